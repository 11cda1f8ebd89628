#include <vek/data/config.h>
#include <vek/data/iterator.h>
#include <vek/json.h>

#include "core/values/whole.h"

namespace VEK
{

namespace
{

constexpr wchar_t kTexts[] = L"*MSG*";

/// Copies all texts below a directory to the same places below another one.
/// @return how many there are
int merge(const CVekDataItem* from, CVekDataItem& to)
{
    int count = 0;
    for (CDataIterator it(from); !it.done(); it.next()) {
        if (!it->isDir() && it->kind() != DataKind::text)
            continue;
        CVekDataItem* const own = to.makeItem(it->getKey());
        if (!own)
            continue;
        if (it->isDir()) {
            own->mkDir();
            count += merge(it, *own);
        } else {
            *own = *it.item();
            ++count;
        }
    }
    return count;
}

} // namespace

bool textsLoad(const wchar_t* path, CVekString& error)
{
    CVekDataItem file;
    if (!jsonLoad(file, path, error))
        return false;
    constexpr const wchar_t* kNoMemory = L": there is no memory for these texts";
    CVekDataItem merged(CVekDataItem::directory);
    const wchar_t* cause = whole(kNoMemory, [&]() -> const wchar_t* {
        if (const CVekDataItem* present = cfg_get(kTexts))
            merged = *present;
        return merge(file.getItem(kTexts), merged) > 0 ? nullptr : L": no texts";
    });
    CVekDataItem* const place = cause ? nullptr : cfg_dir_make(kTexts);
    if (place)
        *place = std::move(merged);
    else
        error = CVekString(path) + (cause ? cause : kNoMemory);
    return place != nullptr;
}

} // namespace VEK
