#include "core/platform/module_win.h"
#include "core/platform/outside.h"

#include <windows.h>

#include <io.h>
#include <shellapi.h>

namespace fs = std::filesystem;

namespace
{

fs::path fileOf(HMODULE module)
{
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
        if (length < name.size()) {
            name.resize(length);
            return name;
        }
        name.resize(name.size() * 2);
    }
}

} // namespace

namespace VEK::platform
{

HINSTANCE ownModule()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&modulePath), &module);
    return module;
}

fs::path programPath()
{
    return fileOf(nullptr);
}

fs::path modulePath()
{
    return fileOf(ownModule());
}

bool isReadable(const fs::path& path)
{
    constexpr int kRead = 4;
    return _waccess(path.c_str(), kRead) == 0;
}

std::vector<std::string> programArguments(int, const char* const*)
{
    // The arguments of main() were converted to the system's code page.
    SetConsoleOutputCP(CP_UTF8);
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i)
        arguments.push_back(utf8Of(words[i]));
    LocalFree(words);
    return arguments;
}

bool errorsGoToTerminal()
{
    DWORD mode = 0; // a console has one
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

std::string systemCodePageOf(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring wideOfSystemCodePage(std::string_view bytes)
{
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), size);
    return text;
}

bool startBySystem(const OutsideCall& call)
{
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    info.lpFile = call.target.c_str();
    info.lpParameters = call.text.empty() ? nullptr : call.text.c_str();
    info.nShow = call.show ? SW_SHOW : SW_HIDE;
    if (!ShellExecuteExW(&info))
        return false;
    if (!info.hProcess)
        return true;
    const bool ended = call.timeout == 0 || WaitForSingleObject(info.hProcess, call.timeout) == WAIT_OBJECT_0;
    CloseHandle(info.hProcess);
    return ended;
}

} // namespace VEK::platform
