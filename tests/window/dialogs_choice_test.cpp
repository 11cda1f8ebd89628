// The dialogs for units and for groups of outlines, in real windows.
#include "window/dialog_test.h"

#include <vek/dialogs.h>

using DialogsChoice = DialogTest;

TEST_F(DialogsChoice, OfAUnitEndsOnlyWithOneThatHasASize)
{
    VEK::DlgEnv_st environment;
    environment.country = L"en";
    user.dialog<CVekUnitsDlg>([](CVekUnitsDlg& dialog) {
        CListBox& list = *static_cast<CListBox*>(dialog.GetDlgItem(1091));
        EXPECT_TRUE(::GetFocus() == list.m_hWnd && list.GetCount() == 21 && dialog.GetIcon(TRUE));
        for (const int unit : {0, 6, 0, 6}) {
            list.SetCurSel(unit);
            dialog.SendMessage(WM_COMMAND, MAKEWPARAM(1091, LBN_SELCHANGE), LPARAM(list.m_hWnd));
            EXPECT_EQ(dialog.GetDlgItem(IDOK)->IsWindowEnabled() != FALSE, unit != 0);
            press(VK_ESCAPE);
            dialog.SendMessage(WM_CLOSE);
            dialog.SendMessage(WM_COMMAND, unit == 0 ? IDOK : IDCANCEL);
            ASSERT_TRUE(dialog.IsWindowVisible()) << unit;
        }
        dialog.SetCountry(L"de"); // in which the choice stays
        CString text;
        list.GetText(list.GetCurSel(), text);
        EXPECT_STREQ(text, VEK::acad_units(L"de")[6]);
        EXPECT_EQ(labelOf(list), L"Einheit wählen");
        dialog.SendMessage(WM_COMMAND, IDOK);
    });
    EXPECT_EQ(VEK::dlgUnits(environment, Vek::lUnit(0)), 6);
    user.dialog<CVekUnitsDlg>([](CVekUnitsDlg& dialog) { dialog.SendMessage(WM_COMMAND, IDOK); });
    EXPECT_EQ(VEK::dlgUnits(environment, Vek::lUnit(4)), 4);
}

TEST_F(DialogsChoice, OfGroupsGivesTheBitsOfTheSelectedRows)
{
    for (int before = 0; before < 16; ++before) {
        const int after = (before * 5 + 3) & 15, end = before % 3 == 0 ? IDCANCEL : IDOK;
        CDlgFilterOutline dialog;
        dialog.m_mask = before;
        user.dialog<CDlgFilterOutline>([&](CDlgFilterOutline& it) {
            CListBox& list = *static_cast<CListBox*>(it.GetDlgItem(5029));
            for (int row = 0; row < list.GetCount(); ++row) {
                EXPECT_EQ(list.GetSel(row) > 0, (before >> row & 1) != 0) << before;
                list.SetSel(row, after >> row & 1);
            }
            it.SetCountry(L"fr"); // in which the choice stays
            it.SendMessage(WM_COMMAND, static_cast<WPARAM>(end));
        });
        EXPECT_EQ(dialog.DoModal(), end);
        EXPECT_EQ(dialog.m_mask, end == IDOK ? after : before);
    }
}
