// Tabs and their pages in real windows.
#include "window/control_fixture.h"
#include "window/dialog_test.h"

#include <vek/controls.h>

#include <algorithm>
#include <deque>
#include <random>

namespace
{

struct Page : CVekTabPage {
    Page() : CVekTabPage(0, nullptr) {}

    enum Creation { works, fails, throws } creation = works;
    bool isEnabled = true;
    int saved = 0, closed = 0;
    Template source = Template(WS_CHILD | DS_SETFONT, 0, 0, L"").item(1, L"EDIT", WS_TABSTOP);
    using CVekTabPage::m_parentDlg;

    BOOL Create(UINT, CWnd* parent) override
    {
        return creation == throws ? throw 5u : creation == works && CreateIndirect(source.get(), parent);
    }
    void DoDataExchange(CDataExchange* exchange) override { saved += exchange->m_bSaveAndValidate; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        closed += message == WM_CLOSE;
        return CVekTabPage::WindowProc(message, wParam, lParam);
    }
};

class ControlsTabCtrl : public testing::Test, protected CVekTabCtrl
{
protected:
    void SetUp() override
    {
        owner.SetHelpFile(L"C:\\help\\facade.chm");
        owner.SetCountry(L"fr");
        ASSERT_TRUE(owner.CreateIndirect(Template().get(), nullptr));
        owner.SetWindowPos(nullptr, 0, 0, 700, 400, SWP_SHOWWINDOW);
        ASSERT_TRUE(Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 600, 300), &owner, 9));
    }
    void TearDown() override { owner.DestroyWindow(); }

    Page& add(int position, Page::Creation creation = Page::works)
    {
        pages.emplace_back().creation = creation;
        InsertItem(position, L"tab", &pages.back(), static_cast<unsigned>(pages.size()));
        return pages.back();
    }
    void click(int tab)
    {
        CRect rect;
        GetItemRect(tab, &rect);
        clickAt(m_hWnd, rect.CenterPoint());
    }
    /// Presses a key, as a message that dialogs and control see before the window with the focus.
    void press(WPARAM key, BYTE ctrl = 0, BYTE shift = 0)
    {
        BYTE held[256] = {}, none[256] = {};
        held[key] = 0x80, held[VK_CONTROL] = ctrl, held[VK_SHIFT] = shift;
        ::SetKeyboardState(held);
        MSG message = {::GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        if (!WalkPreTranslateTree(owner, &message))
            ::DispatchMessageW(&message);
        ::SetKeyboardState(none);
    }

    /// How much of a tab is in the colour of disabled texts.
    int grey(int tab)
    {
        UpdateWindow();
        CRect rect;
        GetItemRect(tab, &rect);
        const VEK::CPixels shown = control_test::pixelsOf(*this);
        int count = 0;
        for (int i = 0; i < rect.Width() * rect.Height(); ++i)
            count += (shown.at(rect.left + i % rect.Width(), rect.top + i / rect.Width()) & 0xFFFFFF) ==
                     ::GetSysColor(COLOR_GRAYTEXT);
        return count;
    }

    std::deque<Page> pages;
    CVekDlg owner = CVekDlg(0, nullptr);
};

/// Whatever is done, the tab that should be is marked, and its page alone is seen.
TEST_F(ControlsTabCtrl, ShowThePageOfTheMarkedTab)
{
    std::mt19937 random(5);
    const auto any = [&](int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); };
    std::deque<Page*> order;
    Page* shown = nullptr;
    int refused = 0, failed = 0, changed = 0;
    for (int round = 0; round < 600; ++round) {
        const int count = GetItemCount(), action = count == 0 ? 0 : any(8), at = any(count + 1) % std::max(count, 1);
        const int now = static_cast<int>(std::find(order.begin(), order.end(), shown) - order.begin());
        int selected = now; // by the action
        if (action == 0 && count < 6) {
            Page& page =
                add(at == 0 && count != 0 ? -1 : at, shown ? Page::Creation(std::max(any(6) - 3, 0)) : Page::works);
            order.insert(at == 0 ? order.end() : order.begin() + at, &page);
            shown = shown ? shown : &page;
        } else if (action == 1 && count > 3) {
            const auto page = order.erase(order.begin() + at);
            if (at == now) // the next one follows, or the last one is left
                shown = page == order.end() ? order.back() : *page;
            shown->creation = Page::works;
            EXPECT_EQ(DeleteItem(at), 1);
        } else if (action == 2) {
            order[at]->isEnabled = any(3) != 0;
            ASSERT_TRUE(EnableTab(at, order[at]->isEnabled) && isTabEnabled(at) == order[at]->isEnabled);
        } else if (action == 3 || action == 4) {
            selected = at;
            action == 3 ? click(at) : static_cast<void>(SetCurSel(at));
        } else {
            const int step = any(2) != 0 ? 1 : -1, isArrow = action == 5;
            do // by Ctrl+Tab in a circle, by arrow key to the end
                selected += isArrow || (selected + step >= 0 && selected + step < count) ? step : step - step * count;
            while (selected >= 0 && selected < count && selected != now && !order[selected]->isEnabled);
            isArrow ? static_cast<void>(SendMessage(WM_KEYDOWN, step < 0 ? VK_LEFT : VK_RIGHT, 0))
                    : press(VK_TAB, 0x80, step < 0 ? 0x80 : 0);
        }
        if (selected >= 0 && selected < count && selected != now) {
            const bool isEnabled = order[selected]->isEnabled, works = order[selected]->creation == Page::works;
            (!isEnabled ? refused : works ? changed : failed) += 1;
            shown = isEnabled && works ? order[selected] : shown;
        }
        ASSERT_EQ(GetItemCount(), static_cast<int>(order.size()));
        for (int i = 0; i < GetItemCount(); ++i) {
            ASSERT_EQ(m_tabs[i].m_dlg, order[i]);
            ASSERT_EQ(order[i]->m_hWnd && order[i]->IsWindowVisible(), order[i] == shown) << round << " " << action;
            ASSERT_EQ(GetCurSel() == i && m_curSel == i, order[i] == shown) << round << " " << action;
        }
    }
    EXPECT_TRUE(refused > 20 && failed > 20 && changed > 100) << refused << " " << failed << " " << changed;
    EXPECT_EQ(DeleteAllItems(), TRUE);
    EXPECT_EQ(m_curSel + m_tabs.len() + GetItemCount(), -1);
    EXPECT_TRUE(std::all_of(pages.begin(), pages.end(), [](const Page& page) { return !page.m_hWnd; }));
}

TEST_F(ControlsTabCtrl, CreatePagesWhenTheyAreShown)
{
    EXPECT_EQ(InsertItem(0, L"none", nullptr, 3) + GetItemCount(), 0);
    Page &first = add(-1), &second = add(-1);
    EXPECT_TRUE(add(0).m_hWnd == nullptr && second.m_hWnd == nullptr && ::IsChild(first, ::GetFocus()));
    CString help;
    first.GetHelpFile(help);
    EXPECT_STREQ(help, L"C:\\help\\facade.chm");
    EXPECT_TRUE(first.m_parentDlg == &owner && std::wcscmp(first.country(), L"fr") == 0);
    CRect tab;
    GetItemRect(0, &tab);
    EXPECT_EQ(placeOf(first, m_hWnd), CRect(2, tab.Height() + 4, 596, 296));
    unsigned id = 99;
    EXPECT_TRUE(GetDlgIDD(0, id) && id == 3);
    for (const int outside : {-1, 3}) {
        EXPECT_FALSE(GetDlgIDD(outside, id) || EnableTab(outside, true) || isTabEnabled(outside));
        EXPECT_EQ(DeleteItem(outside) + SetCurSel(outside), 1);
    }
    const int before[] = {grey(0), grey(1), grey(2)};
    EnableTab(0, false);
    EXPECT_TRUE(grey(0) > before[0] && grey(1) == before[1] && grey(2) == before[2]);
    EnableTab(0, true);
    EXPECT_EQ(grey(0), before[0]);
    EnableTab(0, false), EnableTab(1, false), EnableTab(2, false);
    EXPECT_TRUE(grey(1) > before[1] && grey(2) > before[2]);
    press(VK_TAB, 0x80); // ends although there is none to go to
    press(VK_ESCAPE);    // would hide a page
    EXPECT_TRUE(first.IsWindowVisible() && owner.IsWindowVisible());
    first.saved = 0;
    OnOk();
    EXPECT_TRUE(first.saved == 1 && first.closed == 1 && second.closed == 0);
    MSG empty = {m_hWnd, WM_NULL, 0, 0, 0, {}};
    EXPECT_TRUE(PreTranslateMessage(&empty)); // closes the owner, which only hides
    pumpWaiting();
    EXPECT_FALSE(owner.IsWindowVisible());
    DestroyWindow();
    EXPECT_TRUE(!first.m_hWnd && m_tabs.len() == 0 && m_curSel == -1);
}

TEST_F(ControlsTabCtrl, TakePagesAndTheirControlsToAnotherResolution)
{
    SetFont(owner.GetFont());
    Page &first = add(-1), &hidden = add(-1);
    SetCurSel(1), SetCurSel(0);
    const CRect own = placeOf(*first.GetDlgItem(1), first);
    const int font = fontHeightOf(*first.GetDlgItem(1));
    EXPECT_GT(font, 0);
    for (const int dpi : {144, 97, 192, 96, 120, 96}) {
        changeResolution(owner, dpi, {0, 0, 8 * dpi, 5 * dpi});
        const auto scaled = [&](int value) { return MulDiv(value, dpi, 96); };
        CRect tab;
        GetItemRect(0, &tab);
        for (Page* page : {&first, &hidden}) {
            CWnd& field = *page->GetDlgItem(1);
            EXPECT_EQ(placeOf(*page, m_hWnd), CRect(2, tab.Height() + 4, scaled(600) - 4, scaled(300) - 4)) << dpi;
            EXPECT_EQ(placeOf(field, *page),
                      CRect(scaled(own.left), scaled(own.top), scaled(own.right), scaled(own.bottom)));
            EXPECT_EQ(fontHeightOf(field), scaled(font));
        }
    }
}

} // namespace
