#include <afxwin.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace
{

using Log = std::vector<std::string>;

constexpr UINT kPing = WM_APP + 1, kPong = WM_APP + 2;
const UINT kNamed = ::RegisterWindowMessageW(L"VekToolkitTest");

/// A window that writes down what reaches it.
class Base : public CWnd
{
    DECLARE_DYNAMIC(Base)

public:
    explicit Base(Log& entries) : log(entries) {}

    BOOL open(CWnd* parent = nullptr, UINT id = 0)
    {
        return CreateEx(0, nullptr, L"test", parent == nullptr ? DWORD(WS_POPUP) : DWORD(WS_CHILD | WS_VISIBLE),
                        CRect(0, 0, 100, 80), parent, id);
    }
    void PostNcDestroy() override { log.push_back("gone"); }

    Log& log;

protected:
    afx_msg LRESULT OnPing(WPARAM w, LPARAM)
    {
        log.push_back("base ping");
        return static_cast<LRESULT>(w) + 1;
    }
    afx_msg LRESULT OnPong(WPARAM, LPARAM)
    {
        log.push_back("base pong");
        return 0;
    }
    afx_msg LRESULT OnNamed(WPARAM, LPARAM) { return 77; }
    DECLARE_MESSAGE_MAP()
};

IMPLEMENT_DYNAMIC(Base, CWnd)

BEGIN_MESSAGE_MAP(Base, CWnd)
ON_MESSAGE(kPing, &Base::OnPing)
ON_MESSAGE(kPong, &Base::OnPong)
ON_REGISTERED_MESSAGE(kNamed, &Base::OnNamed)
END_MESSAGE_MAP()

class Derived : public Base
{
public:
    using Base::Base;

    int created = 0;
    bool refuse = false;

protected:
    afx_msg LRESULT OnPing(WPARAM w, LPARAM l)
    {
        log.push_back("derived ping");
        return Base::OnPing(w, l) * 10;
    }
    afx_msg int OnCreate(LPCREATESTRUCT cs)
    {
        created = Base::OnCreate(cs) == -1 ? 0 : cs->cx;
        return refuse ? -1 : 0;
    }
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint at)
    {
        log.push_back("wheel " + std::to_string(flags) + " " + std::to_string(delta) + " " + std::to_string(at.x));
        return TRUE;
    }
    afx_msg void OnSize(UINT type, int cx, int cy)
    {
        Base::OnSize(type, cx, cy);
        log.push_back("size " + std::to_string(cx) + " " + std::to_string(cy));
    }
    afx_msg void OnEditChange() { log.push_back("change"); }
    afx_msg void OnButton() { log.push_back("button"); }
    afx_msg void OnRange(UINT id) { log.push_back("range " + std::to_string(id)); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Derived, Base)
ON_MESSAGE(kPing, &Derived::OnPing)
ON_WM_CREATE()
ON_WM_MOUSEWHEEL()
ON_WM_SIZE()
ON_BN_CLICKED(11, &Derived::OnButton)
ON_EN_CHANGE(12, &Derived::OnEditChange)
ON_CONTROL_RANGE(BN_CLICKED, 20, 29, &Derived::OnRange)
END_MESSAGE_MAP()

/// A field that chooses its colours itself and keeps its changes from its parent, every other one.
class Edit : public CEdit
{
protected:
    afx_msg BOOL OnChange() { return ++m_changes % 2; }
    afx_msg HBRUSH CtlColor(CDC*, UINT which)
    {
        return static_cast<HBRUSH>(::GetStockObject(which == CTLCOLOR_EDIT ? GRAY_BRUSH : WHITE_BRUSH));
    }
    DECLARE_MESSAGE_MAP()

private:
    int m_changes = 0;
};

BEGIN_MESSAGE_MAP(Edit, CEdit)
ON_CONTROL_REFLECT_EX(EN_CHANGE, &Edit::OnChange)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

class ToolkitMessages : public testing::Test
{
protected:
    Log log;
};

} // namespace

TEST_F(ToolkitMessages, GoToTheMostDerivedHandler)
{
    Derived window(log);
    CButton button, ranged;
    ASSERT_TRUE(window.open());
    EXPECT_EQ(window.created, 100);
    ASSERT_TRUE(button.Create(L"b", WS_CHILD, CRect(0, 0, 9, 9), &window, 11));
    ASSERT_TRUE(ranged.Create(L"r", WS_CHILD, CRect(0, 0, 9, 9), &window, 25));
    log.clear();
    EXPECT_EQ(window.SendMessage(kPing, 4), 50);
    EXPECT_EQ(window.SendMessage(kPong), 0);
    EXPECT_EQ(window.SendMessage(kNamed), 77);
    EXPECT_EQ(window.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, -240), MAKELPARAM(-3, 9)), 1);
    window.SetWindowPos(nullptr, 0, 0, 33, 44, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    button.SendMessage(BM_CLICK);
    ranged.SendMessage(BM_CLICK);
    EXPECT_EQ(log,
              (Log{"derived ping", "base ping", "base pong", "wheel 8 -240 -3", "size 33 44", "button", "range 25"}));
    EXPECT_EQ(window.SendMessage(WM_COMMAND, 99), 0) << "nobody's command";
}

TEST_F(ToolkitMessages, ComeBackToTheControlFirst)
{
    Derived window(log);
    Edit edit;
    ASSERT_TRUE(window.open());
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 50, 20), &window, 12));
    log.clear();
    edit.SetWindowText(L"a");
    EXPECT_EQ(log, Log());
    edit.SetWindowText(L"b");
    EXPECT_EQ(log, Log{"change"});
    CClientDC dc(&edit);
    const LRESULT brush =
        window.SendMessage(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.m_hDC), reinterpret_cast<LPARAM>(edit.m_hWnd));
    EXPECT_EQ(reinterpret_cast<HGDIOBJ>(brush), ::GetStockObject(GRAY_BRUSH));
}

TEST_F(ToolkitMessages, EndWithTheWindow)
{
    HWND handle;
    {
        Derived window(log);
        ASSERT_TRUE(window.open());
        EXPECT_EQ(CWnd::FromHandlePermanent(window.m_hWnd), &window);
        log.clear();
        EXPECT_TRUE(window.DestroyWindow() && !window.m_hWnd && !window.DestroyWindow());
        EXPECT_EQ(log, Log{"gone"});
        ASSERT_TRUE(window.open()) << "an object may stand for a window again";
        handle = window;
    }
    EXPECT_FALSE(::IsWindow(handle)) << "the end of the object ends the window";

    Derived refusing(log);
    refusing.refuse = true;
    log.clear();
    EXPECT_FALSE(refusing.open() || refusing.m_hWnd);
    EXPECT_EQ(std::count(log.begin(), log.end(), "gone"), 1);
    EXPECT_EQ(log.back(), "gone");
}

TEST_F(ToolkitMessages, TemporaryObjectsOwnNothing)
{
    Derived window(log);
    ASSERT_TRUE(window.open());
    const HWND plain =
        ::CreateWindowExW(0, L"STATIC", L"text", WS_CHILD, 0, 0, 9, 9, window, nullptr, nullptr, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(plain), nullptr);
    CWnd* temporary = CWnd::FromHandle(plain);
    ASSERT_TRUE(temporary && CWnd::FromHandle(plain) == temporary);
    CString text;
    temporary->GetWindowText(text);
    EXPECT_EQ(text, L"text");
    CWnd::DeleteTempMap();
    EXPECT_TRUE(::IsWindow(plain));

    CStatic control;
    const auto before = ::GetWindowLongPtrW(plain, GWLP_WNDPROC);
    EXPECT_TRUE(control.SubclassWindow(plain));
    EXPECT_EQ(CWnd::FromHandle(plain), &control);
    EXPECT_EQ(control.UnsubclassWindow(), plain);
    EXPECT_EQ(::GetWindowLongPtrW(plain, GWLP_WNDPROC), before);
    EXPECT_TRUE(::IsWindow(plain) && !control.m_hWnd);
}

namespace
{

/// Deletes itself with its window, in the middle of a handler.
class Fleeting : public CWnd
{
public:
    explicit Fleeting(int& count) : alive(count) { ++alive; }
    ~Fleeting() override { --alive; }
    void PostNcDestroy() override { delete this; }

    int& alive;

protected:
    afx_msg LRESULT OnPing(WPARAM, LPARAM)
    {
        DestroyWindow();
        return 5;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Fleeting, CWnd)
ON_MESSAGE(kPing, &Fleeting::OnPing)
END_MESSAGE_MAP()

class Throwing : public CWnd
{
protected:
    afx_msg LRESULT OnPing(WPARAM what, LPARAM)
    {
        if (what == 1)
            throw std::runtime_error("from a handler");
        if (what == 2)
            throw 42;
        AfxThrowUserException();
    }
    afx_msg int OnCreate(LPCREATESTRUCT cs)
    {
        if (cs->lpCreateParams != nullptr)
            throw std::runtime_error("while created");
        return 0;
    }
    afx_msg void OnPaint() { throw std::runtime_error("while painted"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Throwing, CWnd)
ON_MESSAGE(kPing, &Throwing::OnPing)
ON_WM_CREATE()
ON_WM_PAINT()
END_MESSAGE_MAP()

} // namespace

TEST(ToolkitWindow, MayEndWithinItsOwnHandler)
{
    int alive = 0;
    auto* fleeting = new Fleeting(alive);
    ASSERT_TRUE(fleeting->CreateEx(0, nullptr, L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr));
    const HWND window = *fleeting;
    EXPECT_EQ(::SendMessageW(window, kPing, 0, 0), 5);
    EXPECT_TRUE(alive == 0 && !::IsWindow(window));
}

TEST(ToolkitWindow, KeepsExceptionsInItsProcedure)
{
    Throwing window;
    const CRect rect(0, 0, 20, 20);
    EXPECT_FALSE(window.CreateEx(0, nullptr, L"", WS_POPUP, rect, nullptr, 0, &window));
    ASSERT_TRUE(window.CreateEx(0, nullptr, L"", WS_POPUP, rect, nullptr, 0));
    const int before = std::uncaught_exceptions();
    for (int what = 1; what <= 3; ++what)
        EXPECT_EQ(window.SendMessage(kPing, static_cast<WPARAM>(what)), 0);
    EXPECT_EQ(std::uncaught_exceptions(), before);
    window.ShowWindow(SW_SHOWNOACTIVATE);
    window.UpdateWindow();
    EXPECT_FALSE(window.GetUpdateRect(nullptr)) << "or WM_PAINT would come for ever";
}

TEST(ToolkitWindow, GivesItsContextsBack)
{
    CWnd window;
    ASSERT_TRUE(window.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, 0, 0, 40, 40, nullptr, nullptr));
    for (int i = 0; i < 20000; ++i) { // more than the system has
        CClientDC client(&window);
        ASSERT_EQ(client.GetWindow(), &window);
        CWindowDC whole(&window);
        CPaintDC paint(&window);
        CPen pen(PS_SOLID, 1, RGB(i & 255, 0, 0));
        client.SelectObject(client.SelectObject(&pen));
    }
}
