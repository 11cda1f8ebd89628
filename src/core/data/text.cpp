#include <vek/data/config.h>
#include <vek/data/text.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"

namespace fs = std::filesystem;

namespace VEK
{

namespace
{

/// The process's language and the previous one; the text of either stays in place while the other one changes.
struct Languages {
    CVekString text[2] = {L"de", L""};
    int present = 0;
};

Languages& languages()
{
    static Languages value;
    return value;
}

CVekArrayTempl<CVekString>& folders()
{
    static CVekArrayTempl<CVekString> value;
    return value;
}

/// The full path of a file, if it exists.
bool fileAt(CVekString& out, const fs::path& path)
{
    std::error_code error;
    if (!fs::exists(path, error) || fs::is_directory(path, error))
        return false;
    const fs::path full = fs::absolute(path, error).lexically_normal();
    out = platform::textOf(error ? path : full).c_str();
    return true;
}

bool findFile(CVekString& out, const wchar_t* name)
{
    const fs::path path = platform::pathOf(name);
    if (fileAt(out, path))
        return true;
    for (const CVekString& folder : folders())
        if (fileAt(out, platform::pathOf(static_cast<const wchar_t*>(folder)) / path))
            return true;
    return fileAt(out, platform::programPath().parent_path() / path);
}

} // namespace

const wchar_t* msgLangSet(const wchar_t* language)
{
    Languages& all = languages();
    const int before = all.present;
    if (language && *language) {
        const unsigned long shortages = memoryShortages();
        all.text[1 - before] = language;
        if (memoryShortages() == shortages)
            all.present = 1 - before;
    }
    return all.text[before];
}

bool help_find(CVekString book, CVekString& file)
{
    const CVekDataKey key(CVekDataKey::keyText, L"*HELP*", CVekDataKey::keyText, book, 0);
    if (dataItemGet(cfg_get(&key), nullptr, file))
        return true;
    const bool isNamed = !book.isNull();
    book += L".chm";
    return isNamed && fileFind(file, book);
}

CVekString msgBoxTitle(const wchar_t* text)
{
    return whole(CVekString(), [&] {
        const CVekString program = vek_msg_get(L"VEK_", L"TITLE", L"VEK", nullptr);
        return text && *text ? program + L" - " + text : program;
    });
}

void filePathSet(const CVekArrayTempl<CVekString>& list)
{
    folders() = list;
}

bool fileFind(CVekString& out, const wchar_t* name)
{
    CVekString found;
    const bool good = whole(false, [&] {
        try {
            return name && *name && findFile(found, name);
        } catch (const fs::filesystem_error&) { // the name is not a valid path
            return false;
        }
    });
    if (good)
        out = std::move(found);
    return good;
}

} // namespace VEK

CVekString vek_msg_get(const wchar_t* prefix, const wchar_t* key, const wchar_t* builtIn, const wchar_t* language)
{
    CVekString country(language && *language ? language : VEK::msgLangSet(nullptr));
    country.makeLower();
    CVekString text(builtIn);
    const CVekDataKey path(CVekDataKey::keyText, L"*MSG*", CVekDataKey::keyText, prefix ? prefix : L"",
                           CVekDataKey::keyText, country, CVekDataKey::keyText, key, 0);
    if (key)
        VEK::dataItemGet(VEK::cfg_get(&path), nullptr, text);
    return text;
}
