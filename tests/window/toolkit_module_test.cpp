#include "plugin/plugin.h"

#include <gtest/gtest.h>

#include <atomic>
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
    EXPECT_TRUE(text.LoadString(300)) << "offered to all, and behind a block without it";
    EXPECT_EQ(text + CString(MAKEINTRESOURCE(301)), L"eleven charown");
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
