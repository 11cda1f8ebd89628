#include "plugin/plugin.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <thread>
#include <vector>

namespace
{

/// A program's dialog on top of that of a DLL.
class AppDialog : public PluginDialog
{
public:
    AppDialog() = default;
    int answer() const override { return 2; }

protected:
    afx_msg LRESULT OnAskMore(WPARAM w, LPARAM l) { return 10 * PluginDialog::OnAsk(w, l); }
    DECLARE_MESSAGE_MAP()
};

constexpr UINT kAskMore = WM_APP + 3;

BEGIN_MESSAGE_MAP(AppDialog, PluginDialog)
ON_MESSAGE(kAskMore, &AppDialog::OnAskMore)
END_MESSAGE_MAP()

/// The file of the DLL once more, for the caller to remove.
std::filesystem::path copyOfPlugin()
{
    const std::filesystem::path copy =
        std::filesystem::temp_directory_path() / ("vek_plugin_" + std::to_string(::GetCurrentProcessId()) + ".dll");
    wchar_t source[MAX_PATH];
    ::GetModuleFileNameW(pluginInstance(), source, MAX_PATH);
    std::filesystem::copy_file(source, copy, std::filesystem::copy_options::overwrite_existing);
    return copy;
}

/// A frame of 100 by 50 units without controls.
constexpr DLGTEMPLATE kFrame[2] = {{WS_POPUP | WS_CAPTION, 0, 0, 0, 0, 100, 50}, {}};

} // namespace

TEST(ToolkitModule, EachFindsItsOwn)
{
    EXPECT_EQ(pluginRuns(), 1);
    const HINSTANCE plugin = ::GetModuleHandleW(L"libtoolkit_plugin.dll");
    ASSERT_NE(plugin, nullptr);
    EXPECT_EQ(pluginInstance(), plugin);
    EXPECT_EQ(AfxGetInstanceHandle(), ::GetModuleHandleW(nullptr));
    CString text;
    EXPECT_TRUE(text.LoadString(300)) << "offered to all";
    EXPECT_EQ(text, L"eleven char");
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(200), RT_DIALOG), plugin);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(201), RT_DIALOG), ::GetModuleHandleW(nullptr)) << "nobody has it";
    EXPECT_EQ(runPlugin(nullptr), 2 * 100 + 1000 + 11) << "template, rows and text come from the DLL";
    EXPECT_EQ(AfxGetInstanceHandle(), ::GetModuleHandleW(nullptr));
}

TEST(ToolkitModule, FindsAnOwnerForTheDialogsOfADll)
{
    CWnd active, main;
    HWND owner = nullptr;
    for (CWnd* window : {&active, &main})
        window->CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90, nullptr, nullptr);
    active.ShowWindow(SW_SHOW);
    active.SetActiveWindow();
    runPlugin(nullptr, &owner);
    EXPECT_EQ(owner, active.m_hWnd);
    class : public CWinApp
    {
    } program;
    program.m_pMainWnd = &main;
    runPlugin(nullptr, &owner);
    EXPECT_EQ(owner, main.m_hWnd);
    runPlugin(&active, &owner);
    EXPECT_EQ(owner, active.m_hWnd);
    program.m_pMainWnd = nullptr;
}

TEST(ToolkitModule, WorksInSeveralThreads)
{
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, nullptr, L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr));
    std::vector<std::thread> threads;
    std::atomic<int> right = 0;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            // What belongs to a thread is its own: objects of handles, state, loops.
            const bool apart = CWnd::FromHandlePermanent(window) == nullptr && CWnd::FromHandle(window) != &window;
            right += apart && AfxGetThread() == nullptr && runPlugin(nullptr) == 1211 &&
                     AfxGetInstanceHandle() == ::GetModuleHandleW(nullptr);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(right, 8);
    EXPECT_EQ(CWnd::FromHandle(window), &window);
}

TEST(ToolkitModule, ProgramsDeriveFromTheClassesOfADll)
{
    AppDialog dialog;
    EXPECT_TRUE(dialog.IsKindOf(RUNTIME_CLASS(PluginDialog)));
    EXPECT_TRUE(dialog.IsKindOf(RUNTIME_CLASS(CDialog)));
    ASSERT_TRUE(dialog.CreateIndirect(kFrame));
    EXPECT_EQ(CWnd::FromHandle(dialog.m_hWnd), &dialog);
    EXPECT_EQ(dialog.SendMessage(kAsk), 2);
    EXPECT_EQ(dialog.SendMessage(kAskMore), 20);
    EXPECT_EQ(dialog.SendMessage(kThrow), 0) << "stays in the procedure";
    EXPECT_EQ(dialog.handledFor, ::GetModuleHandleW(nullptr)) << "made for the program";

    AFX_MODULE_STATE other(pluginInstance(), &AfxRunGuarded);
    AFX_MANAGE_STATE(&other);
    EXPECT_EQ(dialog.SendMessage(kAsk), 2);
    EXPECT_EQ(dialog.handledFor, ::GetModuleHandleW(nullptr)) << "whoever sends the message";
}

TEST(ToolkitModule, FindsATextBehindABlockWithoutIt)
{
    const std::filesystem::path file = copyOfPlugin();
    const wchar_t block[] = L"\0\0\0\0\0\0\0\0\0\0\0\0\0\3own\0"; // 288 to 303: only 301 is there
    const HANDLE update = ::BeginUpdateResourceW(file.c_str(), TRUE);
    ASSERT_TRUE(
        ::UpdateResourceW(update, RT_STRING, MAKEINTRESOURCE(19), 0, const_cast<wchar_t*>(block), sizeof block));
    ASSERT_TRUE(::EndUpdateResourceW(update, FALSE));
    const HMODULE module = ::LoadLibraryExW(file.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr);
    const HINSTANCE before = AfxGetResourceHandle();
    AfxSetResourceHandle(module);
    EXPECT_EQ(CString(MAKEINTRESOURCE(301)), L"own");
    EXPECT_EQ(CString(MAKEINTRESOURCE(300)), L"eleven char") << "offered by the DLL";
    AfxSetResourceHandle(before);
    ::FreeLibrary(module);
    std::filesystem::remove(file);
}
