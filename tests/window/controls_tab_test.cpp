// Tabs and their pages in real windows.
#include "window/control_fixture.h"
#include "window/dialog_fixture.h"

#include <vek/controls.h>

#include <deque>
#include <random>

namespace
{

class Page : public CVekTabPage
{
public:
    Page() : CVekTabPage(0, nullptr) {}

    enum class Creation { works, fails, throws } creation = Creation::works;
    bool isEnabled = true;
    int saved = 0, closed = 0;
    using CVekTabPage::m_parentDlg;
    CString helpAtStart, topicAtStart;
    CVekString languageAtStart;

    BOOL Create(LPCTSTR, CWnd* parent) override
    {
        if (creation == Creation::throws)
            throw 5u;
        return creation == Creation::works && CreateIndirect(m_source.get(), parent);
    }
    BOOL Create(UINT id, CWnd* parent) override { return Create(MAKEINTRESOURCE(id), parent); }
    void addLangRsc() override
    {
        GetHelpFile(helpAtStart);
        GetHelpTopic(topicAtStart);
        languageAtStart = country();
    }

protected:
    void DoDataExchange(CDataExchange* exchange) override { saved += exchange->m_bSaveAndValidate; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        closed += message == WM_CLOSE;
        return CVekTabPage::WindowProc(message, wParam, lParam);
    }

private:
    Template m_source = Template(WS_CHILD, 0, 0, L"").item(1, L"EDIT", WS_TABSTOP);
};

class Owner : public CVekDlg
{
public:
    Owner() : CVekDlg(0, nullptr) {}

    int closed = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        closed += message == WM_CLOSE;
        return message == WM_CLOSE ? 0 : CVekDlg::WindowProc(message, wParam, lParam);
    }
};

class Tabs : public CVekTabCtrl
{
public:
    using CVekTabCtrl::m_curSel, CVekTabCtrl::m_tabs;
};

class ControlsTabCtrl : public testing::Test
{
protected:
    void SetUp() override
    {
        owner.SetHelpFile(L"C:\\help\\facade.chm");
        owner.SetHelpTopic(L"glass");
        owner.SetCountry(L"fr");
        ASSERT_TRUE(owner.CreateIndirect(Template().get(), nullptr));
        owner.SetWindowPos(nullptr, 0, 0, 700, 400, SWP_SHOWWINDOW);
        ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 600, 300), &owner, 9));
    }
    void TearDown() override { owner.DestroyWindow(); }

    Page& add(int position = -1, Page::Creation creation = Page::Creation::works)
    {
        Page& page = pages.emplace_back();
        page.creation = creation;
        const auto name = L"Tab " + std::to_wstring(pages.size());
        tabs.InsertItem(position, name.c_str(), &page, static_cast<unsigned>(pages.size()));
        return page;
    }
    CPoint middleOf(int tab)
    {
        CRect rect;
        tabs.GetItemRect(tab, &rect);
        return rect.CenterPoint();
    }
    void click(int tab)
    {
        const CPoint at = middleOf(tab);
        tabs.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        tabs.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    }
    /// Presses a key in the focus, as a message that the dialogs and the control see before the window.
    void press(WPARAM key, bool ctrl = false, bool shift = false)
    {
        BYTE held[256] = {};
        held[VK_CONTROL] = ctrl ? 0x80 : 0;
        held[VK_SHIFT] = shift ? 0x80 : 0;
        held[key] = 0x80;
        ::SetKeyboardState(held);
        MSG message = {::GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        if (!CWnd::WalkPreTranslateTree(owner, &message))
            ::DispatchMessageW(&message);
        std::fill(held, held + 256, BYTE(0));
        ::SetKeyboardState(held);
    }

    std::deque<Page> pages; // before the tabs, which must end first
    Owner owner;
    Tabs tabs;
};

/// Whatever is done, the tab that should be is marked, and its page alone is seen.
TEST_F(ControlsTabCtrl, ShowThePageOfTheMarkedTab)
{
    std::mt19937 random(5);
    const auto any = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    std::vector<Page*> order;
    Page* shown = nullptr;
    int refused = 0, failed = 0, changed = 0;
    const auto select = [&](int at) {
        Page& page = *order[static_cast<std::size_t>(at)];
        refused += !page.isEnabled;
        failed += page.isEnabled && page.creation != Page::Creation::works;
        changed += page.isEnabled && page.creation == Page::Creation::works && shown != &page;
        if (page.isEnabled && page.creation == Page::Creation::works)
            shown = &page;
    };
    for (int round = 0; round < 600; ++round) {
        const int count = static_cast<int>(order.size());
        const int now = static_cast<int>(std::find(order.begin(), order.end(), shown) - order.begin());
        const int action = any(8);
        if (count == 0 || (action == 0 && count < 6)) {
            const int at = any(count + 2) - 1; // -1 is the end too
            const auto creation = any(4) != 0 || !shown ? Page::Creation::works
                                  : any(2) != 0         ? Page::Creation::fails
                                                        : Page::Creation::throws;
            Page& page = add(at, creation);
            order.insert(at < 0 ? order.end() : order.begin() + at, &page);
            shown = shown ? shown : &page;
        } else if (action == 1 && count > 3) {
            int at = any(count);
            const std::size_t next = static_cast<std::size_t>(at < count - 1 ? at + 1 : at - 1);
            if (at == now && order[next]->creation != Page::Creation::works)
                at = (at + 1) % count; // a page that cannot take the place
            Page* const gone = order[static_cast<std::size_t>(at)];
            ASSERT_EQ(tabs.DeleteItem(at), 1);
            ASSERT_EQ(gone->m_hWnd, nullptr);
            order.erase(order.begin() + at);
            if (gone == shown)
                shown = order[static_cast<std::size_t>(std::min(at, count - 2))];
        } else if (action == 2) {
            const int at = any(count);
            Page& page = *order[static_cast<std::size_t>(at)];
            page.isEnabled = any(3) != 0;
            ASSERT_TRUE(tabs.EnableTab(at, page.isEnabled));
            ASSERT_EQ(tabs.isTabEnabled(at), page.isEnabled);
        } else if (action == 3 || action == 4) {
            const int at = any(count);
            action == 3 ? click(at) : static_cast<void>(tabs.SetCurSel(at));
            select(at);
        } else {
            const bool isBackward = any(2) != 0, isArrow = action == 5;
            int at = now, steps = 0;
            do // by Ctrl+Tab in a circle, by arrow key to the end
                at = isBackward ? at - 1 : at + 1, at = isArrow ? at : (at + count) % count;
            while (at >= 0 && at < count && !order[static_cast<std::size_t>(at)]->isEnabled && ++steps < count);
            if (isArrow)
                tabs.SendMessage(WM_KEYDOWN, isBackward ? VK_LEFT : VK_RIGHT, 0);
            else
                press(VK_TAB, true, isBackward);
            if (at >= 0 && at < count && at != now)
                select(at);
        }
        ASSERT_EQ(tabs.GetItemCount(), static_cast<int>(order.size()));
        for (std::size_t i = 0; i < order.size(); ++i) {
            ASSERT_EQ(tabs.m_tabs[static_cast<int>(i)].m_dlg, order[i]);
            ASSERT_EQ(order[i]->m_hWnd && order[i]->IsWindowVisible(), order[i] == shown) << round << " " << action;
            ASSERT_EQ(tabs.GetCurSel() == static_cast<int>(i), order[i] == shown) << round << " " << action;
        }
        ASSERT_EQ(order[static_cast<std::size_t>(tabs.m_curSel)], shown);
    }
    EXPECT_GT(refused, 20);
    EXPECT_GT(failed, 10);
    EXPECT_GT(changed, 100);
    EXPECT_EQ(tabs.DeleteAllItems(), TRUE);
    EXPECT_EQ(tabs.m_curSel, -1);
    EXPECT_EQ(tabs.m_tabs.len() + tabs.GetItemCount(), 0);
    for (const Page& page : pages)
        EXPECT_EQ(page.m_hWnd, nullptr);
}

TEST_F(ControlsTabCtrl, CreatePagesWhenTheyAreShown)
{
    EXPECT_EQ(tabs.InsertItem(0, L"none", nullptr, 3), 0);
    EXPECT_EQ(tabs.GetItemCount(), 0);
    Page &first = add(), &second = add(), &third = add(0);
    EXPECT_TRUE(first.m_hWnd && ::IsChild(first, ::GetFocus()));
    EXPECT_FALSE(second.m_hWnd || third.m_hWnd);
    EXPECT_EQ(first.m_parentDlg, &owner);
    EXPECT_STREQ(first.helpAtStart, L"C:\\help\\facade.chm");
    EXPECT_STREQ(first.topicAtStart, L"glass");
    EXPECT_STREQ(first.languageAtStart, L"fr");
    CRect tab, area, place;
    tabs.GetItemRect(0, &tab);
    tabs.GetClientRect(&area);
    first.GetWindowRect(&place);
    tabs.ScreenToClient(&place);
    EXPECT_EQ(place, CRect(2, tab.Height() + 4, area.right - 4, area.bottom - 4));
    unsigned id = 99;
    EXPECT_TRUE(tabs.GetDlgIDD(0, id));
    EXPECT_EQ(id, 3u);
    for (const int outside : {-1, 3}) {
        EXPECT_FALSE(tabs.GetDlgIDD(outside, id) || tabs.EnableTab(outside, true) || tabs.isTabEnabled(outside));
        EXPECT_EQ(tabs.DeleteItem(outside), 0);
        EXPECT_EQ(tabs.SetCurSel(outside), 1);
    }
    EXPECT_EQ(id, 3u);

    press(VK_ESCAPE); // would close the page, and then the dialog
    EXPECT_TRUE(first.IsWindowVisible() && owner.IsWindowVisible());
    MSG empty = {tabs, WM_NULL, 0, 0, 0, {}};
    EXPECT_TRUE(tabs.PreTranslateMessage(&empty));
    control_test::pump();
    EXPECT_EQ(owner.closed, 1);

    for (int i = 0; i < 3; ++i)
        tabs.EnableTab(i, false);
    press(VK_TAB, true); // ends although there is none to go to
    EXPECT_EQ(tabs.GetCurSel(), 1);
    first.saved = 0;
    tabs.OnOk();
    EXPECT_EQ(first.saved, 1);
    EXPECT_EQ(first.closed, 1);
    EXPECT_FALSE(second.saved || second.closed || second.m_hWnd);
    tabs.DestroyWindow();
    EXPECT_EQ(first.m_hWnd, nullptr);
}

} // namespace
