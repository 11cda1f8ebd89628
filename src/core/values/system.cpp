#include <vek/values/system.h>

#include "core/platform/platform.h"

namespace platform = VEK::platform;

namespace
{

constexpr wchar_t kMakerKey[] = L"Software\\OSTWERK";
constexpr wchar_t kRelease[] = L"_2018_20_64_"; ///< year, release and word size of the suite's modules

std::wstring_view viewOf(const wchar_t* text)
{
    return text ? std::wstring_view(text) : std::wstring_view();
}

/// A key without a backslash at its ends, which a registry would not take.
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
    return platform::launch(viewOf(command), timeout, show);
}

bool regRead(const wchar_t* key, const wchar_t* name, unsigned long& value)
{
    return !keyOf(key).empty() && platform::settingRead(keyOf(key), viewOf(name), value);
}

bool regRead(const wchar_t* key, const wchar_t* name, CVekString& value)
{
    std::wstring text;
    if (keyOf(key).empty() || !platform::settingRead(keyOf(key), viewOf(name), text))
        return false;
    value = text.c_str();
    return true;
}

bool regWrite(const wchar_t* key, const wchar_t* name, unsigned long value)
{
    return !keyOf(key).empty() && platform::settingWrite(keyOf(key), viewOf(name), value);
}

bool regWrite(const wchar_t* key, const wchar_t* name, const wchar_t* value)
{
    return !keyOf(key).empty() && platform::settingWrite(keyOf(key), viewOf(name), viewOf(value));
}

bool regAppKey(CVekString& key, const wchar_t* text)
{
    CVekString whole = kMakerKey;
    if (text && *text) {
        whole += L'\\';
        whole += text;
    }
    key = std::move(whole); // only now, since `text` may be the key itself
    return true;
}

bool appFileName(CVekString& result, const wchar_t* family, const wchar_t* module, const wchar_t* ending)
{
    CVekString lowerEnding = ending;
    lowerEnding.makeLower();
    CVekString name = family;
    name += kRelease;
    name += module;
    name += L'.';
    name += lowerEnding;
    const std::filesystem::path path = platform::modulePath().parent_path() / platform::pathOf(viewOf(name));
    result = platform::textOf(path).c_str();
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

} // namespace VEK
