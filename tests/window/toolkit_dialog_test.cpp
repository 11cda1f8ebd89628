#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <gtest/gtest-spi.h>

#include <stdexcept>

namespace
{

/// A window that knows two commands and never validates itself.
class Owner : public CWnd
{
public:
    explicit Owner(DWORD style = WS_OVERLAPPEDWINDOW)
    {
        CreateEx(0, nullptr, L"", style, CRect(200, 100, 600, 500), nullptr, 0);
    }

    std::vector<UINT> commands;

protected:
    afx_msg void OnRange(UINT id) { commands.push_back(id); }
    afx_msg void OnPaint() {}
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Owner, CWnd)
ON_COMMAND_RANGE(0x7FFF, 0x8000, &Owner::OnRange)
ON_WM_PAINT()
END_MESSAGE_MAP()

class Key : public CEdit
{
public:
    explicit Key(std::vector<std::string>& entries) : log(entries) {}
    BOOL PreTranslateMessage(MSG* message) override
    {
        if (message->message != WM_KEYDOWN)
            return CEdit::PreTranslateMessage(message);
        log.push_back("edit");
        if (message->wParam == VK_F6)
            throw std::runtime_error("before the message");
        return message->wParam == VK_F5;
    }
    std::vector<std::string>& log;
};

class ToolkitDialog : public testing::Test
{
protected:
    ModalQueue user;
    Template source;
};

} // namespace

TEST_F(ToolkitDialog, GivesTheResultOfItsEnd)
{
    Dialog dialog(source);
    for (int again = 0; again < 2; ++again) {
        user.dialog<Dialog>([](Dialog& d) {
            EXPECT_TRUE(d.IsWindowVisible()) << "a modal dialog shows itself";
            d.EndDialog(7);
        });
        EXPECT_EQ(dialog.DoModal(), 7);
        EXPECT_EQ(dialog.m_hWnd, nullptr);
    }
    const std::pair<std::function<void(Dialog&)>, int> ends[] = {
        {[](Dialog& d) { d.PostMessage(WM_CLOSE); }, IDCANCEL},
        {[](Dialog& d) { d.PostMessage(WM_COMMAND, IDOK); }, IDOK},
        {[](Dialog& d) { d.DestroyWindow(); }, -1},
    };
    for (const auto& [end, result] : ends) {
        user.dialog<Dialog>(end);
        EXPECT_EQ(dialog.DoModal(), result);
    }
    user.dialog<Dialog>();
    dialog.onStart = [](Dialog& d) { d.EndDialog(8); };
    EXPECT_EQ(dialog.DoModal(), 8) << "ended before it was shown";
    EXPECT_FALSE(dialog.CreateIndirect(source.get()) || dialog.m_hWnd);
    EXPECT_EQ(CDialog(UINT(12345)).DoModal(), -1) << "no such template";
}

TEST_F(ToolkitDialog, ComesOnlyWhenItIsExpected)
{
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Dialog(source).DoModal(), -1), "unexpected dialog");
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(AfxMessageBox(L"text"), IDCANCEL), "unexpected message box");
    EXPECT_NONFATAL_FAILURE({ ModalQueue().box(L"text"); }, "1 did not come");
    user.box(L"ex", IDRETRY);
    EXPECT_EQ(AfxMessageBox(L"text"), IDRETRY);
    user.box(L"tex", IDNO);
    EXPECT_EQ(CWnd().MessageBox(L"text", L"title"), IDNO);
    EXPECT_EQ(user.lastCaption, L"title");
}

TEST_F(ToolkitDialog, RunsInsideAnother)
{
    Owner owner(WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    Dialog outer(source, &owner);
    user.dialog<Dialog>([&](Dialog& o) {
        EXPECT_FALSE(owner.IsWindowEnabled());
        CWnd* temporary = CWnd::FromHandle(::GetDesktopWindow());
        Dialog inner(source, &o);
        user.dialog<Dialog>([&](Dialog& i) {
            EXPECT_FALSE(o.IsWindowEnabled());
            EXPECT_EQ(i.GetParent(), &o);
            i.EndDialog(3);
        });
        EXPECT_EQ(inner.DoModal(), 3);
        EXPECT_TRUE(o.IsWindowEnabled());
        EXPECT_FALSE(owner.IsWindowEnabled()) << "still behind the outer dialog";
        EXPECT_EQ(CWnd::FromHandle(::GetDesktopWindow()), temporary) << "the inner loop leaves it alone";
        o.EndDialog(4);
    });
    ASSERT_TRUE(owner.GetUpdateRect(nullptr)) << "the owner wishes to be painted all the time";
    EXPECT_EQ(outer.DoModal(), 4);
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST_F(ToolkitDialog, HandsQuitOnToTheLoopOutside)
{
    Dialog outer(source), inner(source);
    user.dialog<Dialog>([&](Dialog&) { EXPECT_EQ(inner.DoModal(), -1); });
    user.dialog<Dialog>([](Dialog&) { ::PostQuitMessage(9); });
    EXPECT_EQ(outer.DoModal(), -1);
    MSG message = {};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 9u);
}

TEST_F(ToolkitDialog, AsksTheControlBeforeTheDialog)
{
    source.item(101, L"EDIT", WS_TABSTOP).item(102, L"EDIT", WS_TABSTOP).item(IDOK, L"BUTTON", BS_DEFPUSHBUTTON);
    Dialog dialog(source);
    Key edit(dialog.log);
    dialog.exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, 101, edit); };
    user.dialog<Dialog>([&](Dialog& d) {
        EXPECT_EQ(CWnd::GetFocus(), &edit) << "the first control";
        for (const WPARAM key : {VK_F5, VK_F6, VK_TAB})
            edit.PostMessage(WM_KEYDOWN, key);
        pumpWaiting();
        EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), 102) << "the dialog's keys work";
        d.GetDlgItem(102)->PostMessage(WM_KEYDOWN, VK_RETURN);
    });
    EXPECT_EQ(dialog.DoModal(), IDOK) << "return presses the default button";
    // What the edit takes, or throws at, goes no further.
    EXPECT_EQ(dialog.log, (std::vector<std::string>{"edit", "edit", "edit", "dialog", "dialog"}));
    EXPECT_EQ(edit.m_hWnd, nullptr) << "a member control goes with its window";
}

TEST_F(ToolkitDialog, StandsInTheMiddleWhenNobodyPlacesIt)
{
    Owner owner(WS_OVERLAPPEDWINDOW | WS_VISIBLE);
    CRect outer, rect;
    owner.GetWindowRect(&outer);
    const auto place = [](Dialog& d) { d.SetWindowPos(nullptr, 33, 44, 0, 0, SWP_NOSIZE | SWP_NOZORDER); };
    const struct {
        Template source;
        std::function<void(Dialog&)> onCreate, onStart;
        bool middle;
    } cases[] = {
        {Template(WS_POPUP | WS_CAPTION, 0, 0), {}, {}, true},
        {Template(WS_POPUP | WS_CAPTION, 0, 5), {}, {}, false},
        {Template(WS_POPUP | DS_ABSALIGN, 0, 0), {}, {}, false},
        {Template(WS_POPUP | WS_CAPTION, 0, 0), place, {}, false},
        {Template(WS_POPUP | WS_CAPTION, 0, 0), {}, place, false},
    };
    for (const auto& each : cases) {
        const auto judge = [&](Dialog& d) {
            d.GetWindowRect(&rect);
            const CSize off = rect.CenterPoint() - outer.CenterPoint();
            EXPECT_EQ(std::abs(off.cx) <= 1 && std::abs(off.cy) <= 1, each.middle) << off.cx << " " << off.cy;
            EXPECT_EQ(rect.TopLeft() == CPoint(33, 44), each.onCreate || each.onStart);
            d.EndDialog(1);
        };
        Dialog modal(each.source, &owner), modeless(each.source);
        for (Dialog* dialog : {&modal, &modeless}) {
            dialog->onCreate = each.onCreate;
            dialog->onStart = each.onStart;
        }
        user.dialog<Dialog>(judge);
        modal.DoModal();
        ASSERT_TRUE(modeless.CreateIndirect(each.source.get(), &owner));
        judge(modeless);
    }
}

TEST_F(ToolkitDialog, StandsWithoutALoop)
{
    CDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(source.get()));
    EXPECT_EQ(CWnd::FromHandlePermanent(dialog.m_hWnd), &dialog);
    dialog.SendMessage(WM_COMMAND, IDCANCEL);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd)) << "hidden, not destroyed";
    EXPECT_TRUE(dialog.DestroyWindow());
}

TEST_F(ToolkitDialog, StandsAsAPageInATab)
{
    Owner owner;
    source.item(200, WC_TABCONTROLW, WS_TABSTOP);
    Dialog dialog(source);
    ASSERT_TRUE(dialog.CreateIndirect(source.get(), &owner));
    dialog.ShowWindow(SW_SHOW);
    CTabCtrl tabs;
    tabs.SubclassDlgItem(200, &dialog);
    const Template child = Template(WS_CHILD | WS_VISIBLE | DS_CONTROL, 0, 0).item(301, L"EDIT", WS_TABSTOP);
    Dialog page(child);
    ASSERT_TRUE(page.CreateIndirect(child.get(), &tabs));
    CRect rect;
    page.GetWindowRect(&rect);
    tabs.ScreenToClient(&rect);
    EXPECT_EQ(rect.TopLeft(), CPoint(0, 0)) << "a page is not centred";
    EXPECT_EQ(CWnd::GetSafeOwner(&page), &dialog);
    page.GetDlgItem(301)->SetFocus();
    press(VK_F7);
    EXPECT_EQ(page.log.size() + dialog.log.size(), 1u) << "the page takes its keys";

    // Commands go on to the parents, ids of controls are nobody else's business.
    CDialog direct;
    ASSERT_TRUE(direct.CreateIndirect(child.get(), &owner));
    direct.SendMessage(WM_COMMAND, 0x8000);
    direct.SendMessage(WM_COMMAND, 0x7FFF);
    EXPECT_EQ(owner.commands, std::vector<UINT>{0x8000});
    dialog.DestroyWindow();
    EXPECT_EQ(page.m_hWnd, nullptr) << "the page goes with the dialog";
}
