#include <vek/values/system.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"

namespace platform = VEK::platform;

namespace
{

constexpr wchar_t kMakerKey[] = L"Software\\OSTWERK";
constexpr wchar_t kRelease[] = L"_2018_20_64_"; ///< year, release and word size of the suite's modules

std::wstring_view viewOf(const wchar_t* text)
{
    return text ? std::wstring_view(text) : std::wstring_view();
}

/// A key without leading and trailing backslashes, which the registry would reject.
std::wstring_view keyOf(const wchar_t* key)
{
    const std::wstring_view text = viewOf(key);
    const std::size_t first = text.find_first_not_of(L'\\');
    return first == text.npos ? std::wstring_view() : text.substr(first, text.find_last_not_of(L'\\') + 1 - first);
}

} // namespace

namespace VEK
{

bool execute(const wchar_t* command, unsigned long timeout, bool show)
{
    return whole(false, [&] { return platform::launch(viewOf(command), timeout, show); });
}

bool regRead(const wchar_t* key, const wchar_t* name, unsigned long& value)
{
    return whole(false, [&] { return !keyOf(key).empty() && platform::settingRead(keyOf(key), viewOf(name), value); });
}

bool regRead(const wchar_t* key, const wchar_t* name, CVekString& value)
{
    CVekString read;
    const bool good = whole(false, [&] {
        std::wstring text;
        if (keyOf(key).empty() || !platform::settingRead(keyOf(key), viewOf(name), text))
            return false;
        read = text.c_str();
        return true;
    });
    if (good)
        value = std::move(read);
    return good;
}

bool regWrite(const wchar_t* key, const wchar_t* name, unsigned long value)
{
    return whole(false, [&] { return !keyOf(key).empty() && platform::settingWrite(keyOf(key), viewOf(name), value); });
}

bool regWrite(const wchar_t* key, const wchar_t* name, const wchar_t* value)
{
    return whole(
        false, [&] { return !keyOf(key).empty() && platform::settingWrite(keyOf(key), viewOf(name), viewOf(value)); });
}

bool regAppKey(CVekString& key, const wchar_t* text)
{
    CVekString path;
    const bool good = whole(false, [&] {
        path = kMakerKey;
        if (text && *text) {
            path += L'\\';
            path += text;
        }
        return true;
    });
    if (good)
        key = std::move(path); // last, since `text` may be the key itself
    return good;
}

bool appFileName(CVekString& result, const wchar_t* family, const wchar_t* module, const wchar_t* ending)
{
    CVekString name;
    bool there = false;
    const bool good = whole(false, [&] {
        CVekString lowerEnding = ending;
        lowerEnding.makeLower();
        name = family;
        name += kRelease;
        name += module;
        name += L'.';
        name += lowerEnding;
        const std::filesystem::path path = platform::modulePath().parent_path() / platform::pathOf(viewOf(name));
        name = platform::textOf(path).c_str();
        std::error_code error;
        there = std::filesystem::is_regular_file(path, error);
        return true;
    });
    if (good)
        result = std::move(name);
    return good && there;
}

} // namespace VEK
