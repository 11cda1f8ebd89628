#include <vek/values/system.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"
#include "core/values/window/in_time.h"

#include <windows.h>

#include <oleauto.h>

#include <memory>

namespace
{

constexpr unsigned long kAnswerTime = 5000; // milliseconds that a running server has to answer

/// The default value of a key below HKEY_CLASSES_ROOT, with variables expanded; empty if absent.
std::wstring classValue(const std::wstring& key, REGSAM view)
{
    HKEY handle = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_QUERY_VALUE | view, &handle) != ERROR_SUCCESS)
        return {};
    std::wstring value(1024, L'\0');
    LSTATUS status = ERROR_MORE_DATA;
    while (status == ERROR_MORE_DATA) {
        value.resize(value.size() * 2);
        DWORD size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
        // RRF_RT_REG_SZ accepts REG_EXPAND_SZ too and expands its variables; the reported size may then be too small.
        status = RegGetValueW(handle, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &size);
    }
    RegCloseKey(handle);
    return status == ERROR_SUCCESS ? value.substr(0, value.find(L'\0')) : std::wstring();
}

} // namespace

bool VEK::dispatchFromProgID(const wchar_t* progId, IDispatch** server)
{
    if (!server)
        return false;
    *server = nullptr;
    CLSID id{};
    if (!progId || FAILED(CLSIDFromProgID(progId, &id)))
        return false;
    *server = VEK::whole(static_cast<IDispatch*>(nullptr), [&] {
        const auto found = std::make_shared<VEK::CMarshalled>();
        const bool answers = VEK::inTime(kAnswerTime, [id, found] {
            IUnknown* running = nullptr;
            if (FAILED(GetActiveObject(id, nullptr, &running)) || !running)
                return;
            *found = VEK::CMarshalled(running, IID_IDispatch);
            running->Release();
        });
        return static_cast<IDispatch*>(answers ? found->take() : nullptr);
    });
    return *server != nullptr;
}

bool VEK::serverFromProgID(const wchar_t* progId, CVekString& path)
{
    CLSID id{};
    wchar_t idText[40];
    if (!progId || FAILED(CLSIDFromProgID(progId, &id)) || StringFromGUID2(id, idText, 40) == 0)
        return false;
    const std::wstring key = std::wstring(L"CLSID\\") + idText + L"\\LocalServer32";
    std::wstring command = classValue(key, 0);
    if (command.empty())
        command = classValue(key, KEY_WOW64_32KEY); // a 32-bit server
    const std::wstring program = platform::commandOf(command).program;
    if (program.empty())
        return false;
    path = program.c_str();
    return true;
}
