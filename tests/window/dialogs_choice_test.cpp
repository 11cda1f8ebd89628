// The dialogs for units and for groups of outlines, in real windows.
#include "window/dialog_fixture.h"
#include "window/free_handles.h"
#include "window/modal_queue.h"

#include <vek/data/text.h>
#include <vek/dialogs.h>

namespace
{

void select(CDialog& dialog, int id, int row)
{
    dialog.SendDlgItemMessage(id, LB_SETCURSEL, static_cast<WPARAM>(row));
    dialog.SendMessage(WM_COMMAND, MAKEWPARAM(id, LBN_SELCHANGE), reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}

void press(CDialog& dialog, WPARAM key)
{
    MSG message = {::GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
    if (!CWnd::WalkPreTranslateTree(dialog, &message))
        ::DispatchMessageW(&message);
}

TEST(DialogsUnits, ClosesOnlyWithAUnitThatHasASize)
{
    ModalQueue user;
    VEK::DlgEnv_st environment;
    environment.country = L"en";
    const CVekArrayTempl<CVekString>& names = VEK::acad_units(L"en");
    ASSERT_EQ(names.len(), 21);
    user.dialog<CVekUnitsDlg>([&](CVekUnitsDlg& dialog) {
        ASSERT_EQ(dialog.SendDlgItemMessage(1091, LB_GETCOUNT), names.len());
        wchar_t text[100] = {};
        for (int i = 0; i < names.len(); ++i) {
            dialog.SendDlgItemMessage(1091, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            EXPECT_STREQ(text, names[i]);
        }
        EXPECT_EQ(::GetFocus(), dialog.GetDlgItem(1091)->m_hWnd);
        EXPECT_EQ(dialog.SendDlgItemMessage(1091, LB_GETCURSEL), 0);
        EXPECT_TRUE(dialog.GetIcon(TRUE) && dialog.GetIcon(FALSE));
        for (const int unit : {0, 6, 0}) {
            if (unit != 0)
                select(dialog, 1091, unit);
            else if (dialog.m_unit != 0)
                select(dialog, 1091, 0);
            EXPECT_EQ(dialog.GetDlgItem(IDOK)->IsWindowEnabled() != FALSE, unit != 0);
            press(dialog, VK_ESCAPE);
            dialog.SendMessage(WM_CLOSE);
            dialog.PostMessage(WM_COMMAND, IDCANCEL);
            if (unit == 0)
                dialog.SendMessage(WM_COMMAND, IDOK);
            pumpWaiting();
            ASSERT_TRUE(dialog.IsWindowVisible()) << unit;
        }
        select(dialog, 1091, 6);
        dialog.SetCountry(L"de"); // in which the choice stays
        EXPECT_EQ(dialog.SendDlgItemMessage(1091, LB_GETCURSEL), 6);
        dialog.SendDlgItemMessage(1091, LB_GETTEXT, 6, reinterpret_cast<LPARAM>(text));
        EXPECT_STREQ(text, VEK::acad_units(L"de")[6]);
        press(dialog, VK_RETURN);
    });
    EXPECT_EQ(VEK::dlgUnits(environment, Vek::lUnit(0)), 6);
    user.dialog<CVekUnitsDlg>([](CVekUnitsDlg& dialog) {
        EXPECT_TRUE(dialog.GetDlgItem(IDOK)->IsWindowEnabled());
        dialog.SendMessage(WM_COMMAND, IDOK);
    });
    EXPECT_EQ(VEK::dlgUnits(environment, Vek::lUnit(4)), 4);
}

TEST(DialogsFilterOutline, GivesTheBitsOfTheSelectedRows)
{
    ModalQueue user;
    int free = 0, judged = 0;
    for (int before = 0; before < 16; ++before) {
        for (const bool isConfirmed : {true, false}) {
            const int after = (before * 5 + 3) & 15;
            CDlgFilterOutline dialog;
            dialog.m_mask = before;
            user.dialog<CDlgFilterOutline>([&](CDlgFilterOutline& it) {
                ASSERT_EQ(it.SendDlgItemMessage(5029, LB_GETCOUNT), 4);
                EXPECT_EQ(::GetFocus(), it.GetDlgItem(5029)->m_hWnd);
                for (WPARAM row = 0; row < 4; ++row) {
                    EXPECT_EQ(it.SendDlgItemMessage(5029, LB_GETSEL, row) > 0, (before >> row & 1) != 0) << before;
                    it.SendDlgItemMessage(5029, LB_SETSEL, after >> row & 1, static_cast<LPARAM>(row));
                }
                it.SetCountry(L"fr"); // in which the choice stays
                it.SendMessage(WM_COMMAND, isConfirmed ? IDOK : IDCANCEL);
            });
            EXPECT_EQ(dialog.DoModal(), isConfirmed ? IDOK : IDCANCEL);
            EXPECT_EQ(dialog.m_mask, isConfirmed ? after : before);
            if (++judged == 2)
                free = control_test::freeHandles();
        }
    }
    EXPECT_EQ(judged, 32);
    EXPECT_EQ(control_test::freeHandles(), free);
}

} // namespace
