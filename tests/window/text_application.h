// The text application, started and registered for a test.
#pragma once

#include "core/platform/outside.h"
#include "dialogframe/window/rsc_app.h"

#include <vek/dialogframe/window/msg_dlg.h>
#include <vek/values/system.h>

#include <gtest/gtest.h>

#include <fstream>
#include <tlhelp32.h>

namespace text_application
{

namespace fs = std::filesystem;

inline constexpr wchar_t kProgId[] = L"Vek_Msg.App";
inline const fs::path kProgram = VEK::platform::programPath().parent_path().parent_path() / L"vek_msg.exe";

template <class Condition>
bool within(int seconds, Condition condition)
{
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(seconds) * 1000;
    while (!condition()) {
        if (GetTickCount64() > end)
            return false;
        Sleep(50);
    }
    return true;
}

/// The processes of the program.
inline std::vector<DWORD> processes()
{
    std::vector<DWORD> found;
    const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(all, &entry); more; more = Process32NextW(all, &entry)) {
        if (lstrcmpiW(entry.szExeFile, L"vek_msg.exe") == 0)
            found.push_back(entry.th32ProcessID);
    }
    CloseHandle(all);
    return found;
}

inline void suspend(DWORD process)
{
    const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(all, &entry); more; more = Thread32Next(all, &entry)) {
        if (entry.th32OwnerProcessID != process)
            continue;
        const HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME, FALSE, entry.th32ThreadID);
        SuspendThread(thread);
        CloseHandle(thread);
    }
    CloseHandle(all);
}

inline void kill(DWORD process)
{
    const HANDLE handle = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, process);
    TerminateProcess(handle, 1);
    WaitForSingleObject(handle, 10000);
    CloseHandle(handle);
}

inline bool run(const wchar_t* arguments)
{
    return VEK::execute((L"\"" + kProgram.wstring() + L"\" " + arguments).c_str(), 30000, true);
}

/// The program, registered by itself and closed at the end.
class TextApplication : public testing::Test
{
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
    static void TearDownTestSuite() { OleUninitialize(); }

    void SetUp() override
    {
        ASSERT_TRUE(within(30, [] { return processes().empty(); })) << "another one runs";
        ASSERT_TRUE(run(L"--register"));
        copyToMachine();
        std::ofstream(m_file) << R"({"*MSG*": {"VEK_": {"de": {"A": "Höhe ≥", "B": "eins\nzwei", "C": "x"},
                                     "pl": {"A": "Wysokość"}}, "OWN": {"EN": {"D": "own", "A": "not"}}}})";
    }
    void TearDown() override
    {
        for (const DWORD process : processes())
            kill(process);
        VEK::rscWaitHookSet({});
        VEK::platform::outsideHookSet({});
        VEK::rscCallDeadlineSet(20000);
        ASSERT_TRUE(run(L"--unregister"));
        for (const std::wstring& key : keys()) {
            EXPECT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, key.c_str(), &m_none), ERROR_FILE_NOT_FOUND);
            RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
        }
        fs::remove(m_file);
    }

    /// Where the program registers itself; the class is what it has entered. Without one there is no second key: its
    /// parent has all classes of the system.
    std::vector<std::wstring> keys()
    {
        const std::wstring programId = std::wstring(L"Software\\Classes\\") + kProgId;
        CVekString id;
        if (VEK::regRead((programId + L"\\CLSID").c_str(), L"", id))
            m_class = id;
        if (m_class.size() != 38)
            return {programId};
        return {programId, L"Software\\Classes\\CLSID\\" + m_class};
    }
    void unregister()
    {
        for (const std::wstring& key : keys()) {
            RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
            RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
        }
    }
    /// Wine looks there only.
    void copyToMachine()
    {
        for (const std::wstring& key : keys()) {
            HKEY from = nullptr, to = nullptr;
            ASSERT_EQ(RegOpenKeyW(HKEY_CURRENT_USER, key.c_str(), &from), ERROR_SUCCESS);
            if (RegCreateKeyW(HKEY_LOCAL_MACHINE, key.c_str(), &to) == ERROR_SUCCESS)
                RegCopyTreeW(from, nullptr, to);
            RegCloseKey(from);
            RegCloseKey(to);
        }
    }
    static IVekMsgDlg running()
    {
        IDispatch* application = nullptr;
        within(30, [&] { return VEK::dispatchFromProgID(kProgId, &application); });
        EXPECT_NE(application, nullptr);
        return application;
    }

    const fs::path m_file = fs::temp_directory_path() / "vek msg test.json";
    std::wstring m_class;
    HKEY m_none = nullptr;
};

} // namespace text_application
