#include "label_store.h"

#include <vek/values/system.h>

#include <windows.h>

namespace VEK
{

namespace
{

constexpr const wchar_t* kKey = L"Software\\OSTWERK\\VEK_MSG\\DATA";
constexpr DWORD kLongestName = 10; // with its terminator: the names are ids of languages

/// Below a volatile key only volatile ones can be made.
HKEY openStore()
{
    HKEY key = nullptr;
    for (const DWORD kind : {REG_OPTION_NON_VOLATILE, REG_OPTION_VOLATILE}) {
        const LSTATUS status =
            ::RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, kind, KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
        if (status != ERROR_CHILD_MUST_BE_VOLATILE)
            return status == ERROR_SUCCESS ? key : nullptr;
    }
    return nullptr;
}

} // namespace

bool RegistryLabelStore::clear()
{
    const HKEY key = openStore();
    if (!key)
        return false;
    wchar_t name[kLongestName];
    DWORD length = kLongestName;
    while (::RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
           ::RegDeleteValueW(key, name) == ERROR_SUCCESS)
        length = kLongestName;
    ::RegCloseKey(key);
    return true;
}

void RegistryLabelStore::write(const wchar_t* language, const wchar_t* text)
{
    regWrite(kKey, language, text);
}

bool RegistryLabelStore::read(const wchar_t* language, CVekString& text)
{
    return regRead(kKey, language, text);
}

} // namespace VEK
