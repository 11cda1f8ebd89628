// Lists whose cells are edited, in real windows.
#include "window/dialog_test.h"
#include "window/free_handles.h"

#include <vek/controls.h>

namespace
{

class ControlsListCtrl : public testing::Test, protected CVekListCtrl
{
protected:
    void SetUp() override
    {
        owner.CreateIndirect(Template(WS_POPUP | WS_VISIBLE).item(1, L"BUTTON").get(), nullptr);
        ASSERT_TRUE(Create(WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, CRect(0, 0, 300, 120), &owner, 9));
        SetExtendedStyle(LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT);
        images.Create(16, 16, ILC_COLOR32, 1, 1);
        images.Add(::LoadIconW(nullptr, IDI_APPLICATION));
        SetImageList(&images, LVSIL_SMALL);
        for (const int format : {LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_LEFT, LVCFMT_CENTER})
            InsertColumn(9, L"column", format, 90, 9);
        for (int cell = 0; cell < 4 * 30; ++cell)
            cell % 4 == 0 ? InsertItem(cell / 4, L"12", 0) : SetItemText(cell / 4, cell % 4, L"12");
        SetItemImage(1, 3, 0);
    }
    void TearDown() override { owner.DestroyWindow(); }
    int OnAllowEdit(LVHITTESTINFO* hit) override { return hit->iSubItem != 2; }
    void OnInitEditCtrl(LVHITTESTINFO*, CVekEdit* edit) override
    {
        if (isNumber)
            edit->setEditFlags(CVekEdit::typeInt, VEK::valueBounded, 0, 0, 50);
    }
    int OnEndItemEdit(CVekEdit*) override { return isWanted; }
    void OnDestroyEditCtrl(CVekEdit* edit) override { closed += edit->m_hWnd == nullptr; }

    CRect labelOf(int row, int column)
    {
        CRect label;
        GetSubItemRect(row, column, LVIR_LABEL, label);
        return label;
    }
    void click(int row, int column)
    {
        clickAt(m_hWnd, CPoint(labelOf(row, column).left + 5, labelOf(row, column).CenterPoint().y));
    }

    CImageList images;
    CVekDlg owner = CVekDlg(0, nullptr);
    bool isNumber = false, isWanted = true;
    int closed = 0;
};

TEST_F(ControlsListCtrl, OpensAnEditorOverTheCell)
{
    click(1, 0);
    EXPECT_TRUE(!m_edit && GetCurSel() == 1) << "the first click selects";
    click(1, 2); // not allowed
    for (int column : {0, 1, 3}) {
        click(1, column);
        ASSERT_TRUE(m_edit && m_subItem == column) << column;
        CRect expected = labelOf(1, column);
        expected.right -= 2;
        expected.left += column == 3 ? 16 : 0;
        EXPECT_EQ(placeOf(*m_edit, m_hWnd), expected) << column;
        const DWORD align[] = {0, ES_RIGHT, 0, ES_CENTER};
        EXPECT_EQ(m_edit->GetStyle() & ~DWORD(WS_CLIPSIBLINGS), 0x50000080 | align[column]);
        EXPECT_TRUE(m_edit->GetDlgCtrlID() == 1025 && m_edit->GetSel() == 2 << 16 && ::GetFocus() == m_edit->m_hWnd);
        click(0, 1);
        EXPECT_TRUE(!m_edit && GetCurSel() == 1) << "closed by a click that selects nothing";
    }
    SetItemState(1, 0, LVIS_SELECTED);
    click(0, 0); // without a selection the first row needs one click
    EXPECT_TRUE(m_edit && m_item == 0);
    EXPECT_TRUE(SetCurSel(30) + SetCurSel(-1) == 0 && SetCurSel(29) == 1 && GetCurSel() == 29 && GetTopIndex() > 10);
    EXPECT_EQ(GetNextItem(-1, LVNI_FOCUSED), 29) << "where the arrow keys go on";
    LVHITTESTINFO nowhere = {{}, 0, 99, 0, 0};
    EXPECT_TRUE(BeginItemEdit(&nowhere) + BeginItemEdit(nullptr) == 0 && !m_edit);
}

/// Each way to leave an editor, with each text, wanted or not.
TEST_F(ControlsListCtrl, WritesWhatWasChanged)
{
    ModalQueue user;
    NMHEADERW track = {{*GetHeaderCtrl(), 0, HDN_BEGINTRACKW}, 0, 0, nullptr};
    const std::function<void()> ways[] = {
        [&] { click(2, 0); },
        [&] { SendMessage(WM_HSCROLL, SB_LINERIGHT); },
        [&] { SendMessage(WM_VSCROLL, SB_LINEDOWN); },
        [&] { SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -120)); },
        [&] { owner.GetDlgItem(1)->SetFocus(); },
        [&] { SetFocus(); },
        [&] { SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&track)); },
        [&] { press(VK_ESCAPE); }, // the only one after which nothing is written
    };
    int free = 0;
    for (int round = 0; round < 192; ++round) { // all of it twice
        const std::wstring text = round % 3 == 0 ? L"" : round % 3 == 1 ? L"7" : L"77";
        isNumber = round / 3 % 2 != 0, isWanted = round / 6 % 2 != 0;
        const int way = round / 12 % 8;
        const bool isDropped = way == 7, isRefused = isNumber && text == L"77" && !isDropped;
        SetItemText(0, 1, L"12");
        SetCurSel(0);
        LVHITTESTINFO hit = {{}, 0, 0, 1, 0};
        ASSERT_EQ(BeginItemEdit(&hit), 1);
        for (const wchar_t key : text)
            m_edit->SendMessage(WM_CHAR, key);
        if (isRefused)
            user.box(L"50");
        ways[way]();
        EXPECT_TRUE(!m_edit && !m_ending && owner.IsWindowVisible());
        EXPECT_STREQ(GetItemText(0, 1), text.empty() || !isWanted || isDropped ? L"12"
                                        : isRefused                            ? L"50"
                                                                               : text.c_str())
            << round;
        free = round == 95 ? control_test::freeHandles() : free;
    }
    EXPECT_EQ(closed, 192);
    EXPECT_EQ(control_test::freeHandles(), free);
}

} // namespace
