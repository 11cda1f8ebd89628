#include <vek/dialogframe/folder.h>

namespace VEK
{

CVekString folderStart(const wchar_t* path)
{
    CVekString start(path);
    start.replace(L'/', L'\\');
    const int last = start.len() - 1;
    if (last < 1)
        return start;
    if (start[last] == L'\\' && start[last - 1] != L':')
        return start.mid(0, static_cast<unsigned>(last));
    if (start[last] == L':')
        start += L'\\';
    return start;
}

void pathSplit(const wchar_t* path, CVekString& folder, CVekString& name)
{
    const wchar_t* const begin = path ? path : L"";
    const wchar_t* cut = begin;
    if (*begin && begin[1] == L':')
        cut += 2;
    for (const wchar_t* at = cut; *at; ++at) {
        if (*at == L'\\' || *at == L'/')
            cut = at + 1;
    }
    const CVekString before(begin, static_cast<unsigned>(cut - begin));
    const CVekString behind(cut); // both before the path is overwritten, which may be one of the targets
    folder = before;
    name = behind;
}

} // namespace VEK
