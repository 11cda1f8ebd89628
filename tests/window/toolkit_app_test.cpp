#include <afxwin.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

constexpr UINT kFail = WM_APP + 1;

struct Refused : CException {
    explicit Refused(int& count) : alive(count) { ++alive; }
    ~Refused() override { --alive; }
    int& alive;
};

class Main : public CWnd
{
public:
    std::vector<std::string> log;
    int exceptions = 0;

    BOOL open(DWORD style = WS_POPUP, CWnd* parent = nullptr)
    {
        return CreateEx(0, nullptr, L"window", style, CRect(10, 20, 210, 120), parent, 0);
    }
    BOOL PreTranslateMessage(MSG* message) override
    {
        if (message->message == WM_KEYDOWN)
            log.push_back("main");
        return CWnd::PreTranslateMessage(message);
    }

protected:
    afx_msg LRESULT OnFail(WPARAM, LPARAM) { throw new Refused(exceptions); }
    afx_msg void OnPaint() {}
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Main, CWnd)
ON_MESSAGE(kFail, &Main::OnFail)
ON_WM_PAINT()
END_MESSAGE_MAP()

class App : public CWinApp
{
public:
    explicit App(LPCTSTR name = nullptr) : CWinApp(name) {}

    int idles = 0, failures = 0;

    BOOL OnIdle(LONG count) override
    {
        idles += count == 0;
        if (count == 0 && idles == 1)
            m_pMainWnd->PostMessage(WM_CLOSE);
        return CWinApp::OnIdle(count);
    }
    LRESULT ProcessWndProcException(CException* e, const MSG* message) override
    {
        failures += e->IsKindOf(RUNTIME_CLASS(CException)) && message->message == kFail;
        return 33;
    }
};

} // namespace

TEST(ToolkitApp, BelongsToItsModule)
{
    EXPECT_TRUE(!AfxGetApp() && !AfxGetThread());
    {
        App app;
        EXPECT_TRUE(AfxGetApp() == &app && AfxGetThread() == &app && !AfxGetMainWnd());
        EXPECT_STREQ(AfxGetAppName(), L"toolkit_test");
        EXPECT_EQ(app.m_hInstance, ::GetModuleHandleW(nullptr));
    }
    EXPECT_EQ(AfxGetApp(), nullptr);
}

TEST(ToolkitApp, RunsUntilItsMainWindowEnds)
{
    App app(L"named");
    EXPECT_STREQ(AfxGetAppName(), L"named");
    EXPECT_EQ(app.Run(), 0) << "without a main window there is nothing to wait for";
    Main window;
    ASSERT_TRUE(window.open());
    app.m_pMainWnd = &window;
    EXPECT_EQ(AfxGetMainWnd(), &window);
    window.ShowWindow(SW_SHOWNOACTIVATE); // never validated: it wishes to be painted all the time
    EXPECT_EQ(app.Run(), 0);
    EXPECT_GE(app.idles, 1);
    MSG message = {};
    for (const auto& [kind, news] :
         {std::pair{WM_PAINT, FALSE}, {WM_KEYDOWN, TRUE}, {WM_MOUSEMOVE, TRUE}, {WM_MOUSEMOVE, FALSE}}) {
        message = {nullptr, static_cast<UINT>(kind), 0, 0, 0, {77, 78}};
        EXPECT_EQ(app.IsIdleMessage(&message), news) << kind;
    }
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_EQ(app.m_pMainWnd, nullptr);
}

TEST(ToolkitApp, AsksTheMainWindowForTheKeysOfOthers)
{
    App app;
    Main window, other;
    ASSERT_TRUE(window.open() && other.open());
    app.m_pMainWnd = &window;
    MSG key = {other, WM_KEYDOWN, VK_F2, 0, 0, {0, 0}};
    EXPECT_FALSE(app.PreTranslateMessage(&key));
    EXPECT_EQ(other.log.size(), 1u);
    EXPECT_EQ(window.log.size(), 1u);
    key.hwnd = window;
    app.PreTranslateMessage(&key);
    EXPECT_EQ(window.log.size(), 2u) << "its own only once";
    app.m_pMainWnd = nullptr;
}

TEST(ToolkitApp, DecidesOnExceptions)
{
    App app;
    Main window;
    ASSERT_TRUE(window.open());
    EXPECT_EQ(window.SendMessage(kFail), 33);
    EXPECT_TRUE(app.failures == 1 && window.exceptions == 0) << "the exception is ended";
}

TEST(ToolkitApp, ShowsTheWaitCursorToTheLastEnd)
{
    App app;
    const HCURSOR cross = ::LoadCursorW(nullptr, IDC_CROSS), wait = ::LoadCursorW(nullptr, IDC_WAIT);
    ::SetCursor(cross);
    {
        CWaitCursor outer;
        EXPECT_EQ(::GetCursor(), wait);
        app.BeginWaitCursor();
        app.EndWaitCursor();
        EXPECT_EQ(::GetCursor(), wait);
        ::SetCursor(nullptr);
        outer.Restore();
        EXPECT_EQ(::GetCursor(), wait);
    }
    EXPECT_EQ(::GetCursor(), cross);
    app.EndWaitCursor();
    EXPECT_EQ(::GetCursor(), cross) << "an end without a beginning";
}

TEST(ToolkitWindow, KnowsItsRelatives)
{
    Main top, owned, child, grandchild;
    ASSERT_TRUE(top.open(WS_OVERLAPPEDWINDOW) && owned.open(WS_POPUP, &top));
    ASSERT_TRUE(child.open(WS_CHILD, &owned) && grandchild.open(WS_CHILD, &child));
    grandchild.SetDlgCtrlID(66);
    EXPECT_EQ(grandchild.GetParent(), &child);
    EXPECT_EQ(grandchild.GetTopLevelParent(), &top);
    EXPECT_TRUE(owned.GetDescendantWindow(66) == &grandchild && !owned.GetDescendantWindow(67));
    EXPECT_EQ(child.GetOwner(), &owned);
    child.SetOwner(&top);
    EXPECT_EQ(child.GetOwner(), &top);
    HWND behind = nullptr;
    EXPECT_EQ(CWnd::GetSafeOwner(&child, &behind), &owned) << "no child";
    EXPECT_EQ(behind, top.m_hWnd);
    EXPECT_TRUE(child.ModifyStyle(0, WS_BORDER) && !child.ModifyStyle(0, WS_BORDER)) << "nothing to change";
    owned.SetWindowPos(nullptr, 0, 0, 50, 40, SWP_NOZORDER);
    top.MoveWindow(CRect(100, 100, 300, 200));
    top.ShowWindow(SW_SHOWNOACTIVATE);
    owned.CenterWindow();
    CRect rect;
    owned.GetWindowRect(&rect);
    EXPECT_EQ(rect, CRect(175, 130, 225, 170));
}

TEST(ToolkitMenu, FindsItsObjectsAndItems)
{
    CMenu menu;
    ASSERT_TRUE(menu.CreateMenu());
    CMenu popup;
    ASSERT_TRUE(popup.CreatePopupMenu());
    EXPECT_TRUE(popup.AppendMenu(MF_STRING, 5, L"&Open"));
    EXPECT_TRUE(menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(popup.m_hMenu), L"File"));
    EXPECT_EQ(menu.GetSubMenu(0), &popup);
    const HMENU handle = popup.Detach(); // it goes with the menu that it hangs in
    EXPECT_NE(menu.GetSubMenu(0), &popup);
    EXPECT_EQ(menu.GetSubMenu(0)->m_hMenu, handle);
    CString text;
    menu.GetSubMenu(0)->GetMenuString(5, text, MF_BYCOMMAND);
    EXPECT_EQ(text, L"&Open");
    EXPECT_TRUE(menu.DestroyMenu());
    EXPECT_FALSE(::IsMenu(handle));
}
