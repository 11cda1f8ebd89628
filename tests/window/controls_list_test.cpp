// Lists whose cells are edited, in real windows.
#include "window/control_fixture.h"
#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <vek/controls.h>

namespace
{

class List : public CVekListCtrl
{
public:
    int isAllowed = 1, isWanted = 1, opened = 0, closed = 0;
    bool isNumber = false;

    int OnAllowEdit(LVHITTESTINFO* hit) override { return hit->iSubItem == 2 ? 0 : isAllowed; }
    void OnInitEditCtrl(LVHITTESTINFO* hit, CVekEdit* edit) override
    {
        EXPECT_EQ(hit->iItem, m_item);
        EXPECT_EQ(hit->iSubItem, m_subItem);
        ++opened;
        if (isNumber)
            edit->setEditFlags(CVekEdit::typeInt, 8, 0, 0, 50);
    }
    int OnEndItemEdit(CVekEdit* edit) override
    {
        EXPECT_EQ(edit, m_edit);
        return isWanted;
    }
    void OnDestroyEditCtrl(CVekEdit* edit) override
    {
        EXPECT_EQ(edit->m_hWnd, nullptr);
        ++closed;
    }
    using CVekListCtrl::m_clickPt, CVekListCtrl::m_edit, CVekListCtrl::m_ending;
};

class ControlsListCtrl : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(owner.CreateIndirect(Template(WS_POPUP).item(1, L"BUTTON").get(), nullptr));
        owner.SetWindowPos(nullptr, 0, 0, 500, 300, SWP_SHOWWINDOW);
        ASSERT_TRUE(
            list.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, CRect(100, 0, 400, 120), &owner, 9));
        list.SetExtendedStyle(LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT);
        images.Create(16, 16, ILC_COLOR32, 1, 1);
        CBitmap bitmap;
        bitmap.CreateBitmap(16, 16, 1, 1, nullptr);
        images.Add(&bitmap, RGB(0, 0, 0));
        list.SetImageList(&images, LVSIL_SMALL);
        const int formats[] = {LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_LEFT, LVCFMT_CENTER};
        for (int column = 0; column < 4; ++column)
            list.InsertColumn(column, L"column", formats[column], 90, column);
        for (int row = 0; row < 30; ++row) {
            list.InsertItem(row, L"12", 0);
            for (int column = 1; column < 4; ++column)
                list.SetItemText(row, column, L"12");
        }
        list.SetItemImage(1, 3, 0);
    }
    void TearDown() override { owner.DestroyWindow(); }

    CRect labelOf(int row, int column)
    {
        CRect label;
        list.GetSubItemRect(row, column, LVIR_LABEL, label);
        return label;
    }
    void click(int row, int column)
    {
        const CPoint at(labelOf(row, column).left + 5, labelOf(row, column).CenterPoint().y);
        list.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
        list.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
    }

    CImageList images;
    CVekDlg owner = CVekDlg(0, nullptr);
    List list;
    ModalQueue user;
};

TEST_F(ControlsListCtrl, OpensAnEditorOverTheCell)
{
    int judged = 0;
    for (int column : {0, 1, 3}) {
        click(1, column);
        if (column == 0) {
            EXPECT_FALSE(list.m_edit) << "the first click selects";
            EXPECT_EQ(list.GetCurSel(), 1);
            click(1, 2);
            EXPECT_FALSE(list.m_edit) << "not allowed";
            click(1, column);
        }
        ASSERT_TRUE(list.m_edit) << column;
        EXPECT_EQ(list.m_clickPt.x, labelOf(1, column).left + 5);
        CRect place;
        list.m_edit->GetWindowRect(&place);
        list.ScreenToClient(&place);
        CRect expected = labelOf(1, column);
        expected.right -= 2;
        expected.left += column == 3 ? 16 : 0;
        EXPECT_EQ(place, expected) << column;
        const DWORD style = column == 0 ? 0 : column == 1 ? ES_RIGHT : ES_CENTER;
        EXPECT_EQ(list.m_edit->GetStyle() & ~DWORD(WS_CLIPSIBLINGS), WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL | style);
        EXPECT_EQ(list.m_edit->GetDlgCtrlID(), 1025);
        EXPECT_EQ(::GetFocus(), list.m_edit->m_hWnd);
        EXPECT_EQ(list.m_edit->GetSel(), DWORD(MAKELONG(0, 2)));
        EXPECT_EQ(list.m_edit->SendMessage(WM_GETFONT), list.SendMessage(WM_GETFONT));
        EXPECT_FALSE(list.m_ending);
        click(0, 1);
        EXPECT_FALSE(list.m_edit) << "closed by a click that selects nothing";
        EXPECT_EQ(list.GetCurSel(), 1);
        ++judged;
    }
    EXPECT_EQ(judged, 3);
    list.SetItemState(1, 0, LVIS_SELECTED);
    EXPECT_EQ(list.GetCurSel(), -1);
    click(0, 0);
    EXPECT_TRUE(list.m_edit) << "without a selection the first row needs one click";
    EXPECT_EQ(list.SetCurSel(30) + list.SetCurSel(-1), 0);
    EXPECT_EQ(list.SetCurSel(29), 1);
    EXPECT_EQ(list.GetCurSel(), 29);
    EXPECT_GT(list.GetTopIndex(), 10) << "seen";
    LVHITTESTINFO nowhere = {};
    nowhere.iItem = 99;
    EXPECT_EQ(list.BeginItemEdit(&nowhere) + list.BeginItemEdit(nullptr), 0);
    EXPECT_FALSE(list.m_edit);
    EXPECT_STREQ(list.GetMsg(L"VEK001", L"Fehler", L"de"), owner.GetMsg(L"VEK001", L"Fehler", L"de"));
}

/// Each way to leave an editor, with each text, wanted or not.
TEST_F(ControlsListCtrl, WritesWhatWasChanged)
{
    const std::function<void()> ways[] = {
        [&] { click(2, 0); },
        [&] { list.SendMessage(WM_HSCROLL, SB_LINERIGHT); },
        [&] { list.SendMessage(WM_VSCROLL, SB_LINEDOWN); },
        [&] { list.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -120)); },
        [&] { owner.GetDlgItem(1)->SetFocus(); },
        [&] {
            NMHEADERW track = {};
            track.hdr = {*list.GetHeaderCtrl(), 0, HDN_BEGINTRACKW};
            list.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&track));
        },
    };
    int judged = 0;
    for (const auto& leave : ways) {
        for (const wchar_t* typed : {L"", L"7", L"77"}) { // nothing, a good number, one that is too large
            for (const bool isNumber : {false, true}) {
                for (const int isWanted : {0, 1}) {
                    list.SetItemText(0, 1, L"12");
                    list.SetCurSel(0);
                    list.isNumber = isNumber;
                    list.isWanted = isWanted;
                    LVHITTESTINFO hit = {};
                    hit.iSubItem = 1;
                    ASSERT_EQ(list.BeginItemEdit(&hit), 1);
                    for (const wchar_t* key = typed; *key; ++key)
                        list.m_edit->SendMessage(WM_CHAR, *key);
                    const bool isRefused = isNumber && typed[0] && typed[1];
                    if (isRefused)
                        user.box(L"50");
                    leave();
                    EXPECT_FALSE(list.m_edit || list.m_ending);
                    const CString now = list.GetItemText(0, 1);
                    EXPECT_STREQ(now, !*typed || !isWanted ? L"12" : isRefused ? L"50" : typed) << judged;
                    ++judged;
                }
            }
        }
    }
    EXPECT_EQ(judged, 72);
    EXPECT_EQ(list.opened, 72);
    EXPECT_EQ(list.closed, 72);
    const int before = control_test::freeHandles();
    for (int i = 0; i < 300; ++i) {
        click(0, 1);
        ASSERT_EQ(list.m_edit != nullptr, i % 2 == 0);
    }
    EXPECT_EQ(control_test::freeHandles(), before);
}

} // namespace
