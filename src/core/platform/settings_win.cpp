#include "core/platform/platform.h"

#include <windows.h>

namespace
{

/// The bytes of a registry value and its type; REG_NONE if absent.
DWORD query(std::wstring_view key, std::wstring_view name, std::string& bytes)
{
    const std::wstring keyText(key);
    const std::wstring nameText(name);
    DWORD type = REG_NONE;
    DWORD size = 0;
    const DWORD flags = RRF_RT_ANY | RRF_NOEXPAND;
    LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, keyText.c_str(), nameText.c_str(), flags, &type, nullptr, &size);
    do {
        bytes.resize(size); // the value may have grown since its size was queried
        if (status == ERROR_SUCCESS || status == ERROR_MORE_DATA)
            status =
                RegGetValueW(HKEY_CURRENT_USER, keyText.c_str(), nameText.c_str(), flags, &type, bytes.data(), &size);
    } while (status == ERROR_MORE_DATA);
    bytes.resize(status == ERROR_SUCCESS ? size : 0);
    return status == ERROR_SUCCESS ? type : REG_NONE;
}

bool write(std::wstring_view key, std::wstring_view name, DWORD type, const void* bytes, std::size_t size)
{
    const std::wstring keyText(key);
    HKEY handle = nullptr;
    const auto create = [&](DWORD option) {
        return RegCreateKeyExW(HKEY_CURRENT_USER, keyText.c_str(), 0, nullptr, option, KEY_SET_VALUE, nullptr, &handle,
                               nullptr);
    };
    LSTATUS status = create(REG_OPTION_NON_VOLATILE);
    if (status == ERROR_CHILD_MUST_BE_VOLATILE) // a level above is volatile
        status = create(REG_OPTION_VOLATILE);
    if (status != ERROR_SUCCESS)
        return false;
    status = RegSetValueExW(handle, std::wstring(name).c_str(), 0, type, static_cast<const BYTE*>(bytes),
                            static_cast<DWORD>(size));
    RegCloseKey(handle);
    return status == ERROR_SUCCESS;
}

} // namespace

bool VEK::platform::settingRead(std::wstring_view key, std::wstring_view name, unsigned long& value)
{
    std::string bytes;
    if (query(key, name, bytes) != REG_DWORD || bytes.size() != sizeof(DWORD))
        return false;
    DWORD number = 0;
    bytes.copy(reinterpret_cast<char*>(&number), sizeof number);
    value = number;
    return true;
}

bool VEK::platform::settingRead(std::wstring_view key, std::wstring_view name, std::wstring& value)
{
    std::string bytes;
    const DWORD type = query(key, name, bytes);
    if (type != REG_SZ && type != REG_EXPAND_SZ)
        return false;
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * sizeof(wchar_t));
    value = text.substr(0, text.find(L'\0'));
    return true;
}

bool VEK::platform::settingWrite(std::wstring_view key, std::wstring_view name, unsigned long value)
{
    const DWORD number = value;
    return write(key, name, REG_DWORD, &number, sizeof number);
}

bool VEK::platform::settingWrite(std::wstring_view key, std::wstring_view name, std::wstring_view value)
{
    const std::wstring text(value);
    return write(key, name, REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}
