// The material dialog, with the example's materials and texts.
#include "window/control_fixture.h"
#include "window/dialog_test.h"

#include <vek/dialogs.h>

#include <set>

namespace
{

class MaterialDialog : public DialogTest
{
protected:
    MaterialDialog()
    {
        loadExamples(VEK_SOURCE_DIR L"/examples");
        env.country = L"en";
    }

    static bool canConfirm(CVekMatTreeDlg& dialog, const wchar_t* material)
    {
        EXPECT_TRUE(!material || dialog.m_tree.selectMat(material));
        return dialog.GetDlgItem(IDOK)->IsWindowEnabled();
    }
    static void doubleClick(CVekMatTreeDlg& dialog)
    {
        CRect rect;
        dialog.m_tree.GetItemRect(dialog.m_tree.GetSelectedItem(), &rect, TRUE);
        for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
            dialog.m_tree.PostMessage(message, 0, MAKELPARAM(rect.left + 5, rect.CenterPoint().y));
        control_test::pump();
    }

    VEK::DlgEnvMatTree_st env;
    CVekString key;
};

TEST_F(MaterialDialog, ConfirmsWhatMeetsTheDemands)
{
    const struct {
        CVekArrayTempl<CVekString> options;
        const wchar_t *bad, *good, *text;
    } rows[] = {{{L"EDGE", L"PHYS", L"SYSTEM"}, L"METAL", L"AW-5754-H22", L"Aluminium sheet EN AW-5754 H22"},
                {{L"PHYS", L"SYSTEM"}, L"METAL", L"ALU-EXTRUDED", L"Extruded sections"},
                {{L"SYSTEM"}, nullptr, L"METAL", L"METAL   Metals"}};
    for (const auto& row : rows) {
        env.options = row.options;
        env.physKeys = {L"rho", L"Lambda"};
        env.showKeys = !row.bad;
        key = L"before";
        for (const bool confirms : {false, true}) {
            user.dialog<CVekMatTreeDlg>([&](CVekMatTreeDlg& dialog) {
                CString title;
                dialog.GetWindowText(title);
                EXPECT_EQ(title + dialog.m_tree.GetItemText(dialog.m_tree.GetRootItem()), L"Material selectionLibrary");
                EXPECT_FALSE(canConfirm(dialog, nullptr)) << "at the root";
                doubleClick(dialog);
                dialog.SendMessage(WM_COMMAND, IDOK);
                EXPECT_TRUE(dialog.IsWindowVisible());
                EXPECT_FALSE(row.bad && canConfirm(dialog, row.bad));
                EXPECT_TRUE(canConfirm(dialog, L"SYSTEM") && canConfirm(dialog, row.good));
                EXPECT_STREQ(dialog.m_tree.GetItemText(dialog.m_tree.GetSelectedItem()), row.text);
                if (confirms)
                    doubleClick(dialog);
                else
                    dialog.SendMessage(WM_COMMAND, IDCANCEL);
            });
            EXPECT_EQ(VEK::dlgMatTree(env, key), confirms);
            EXPECT_STREQ(key, confirms ? row.good : L"before");
        }
    }
}

TEST_F(MaterialDialog, FollowsLanguageAndLibraryWhileItIsOpen)
{
    key = L"s235jr";
    env.options = {L"PHYS"};
    env.physKeys = {L"RHO"};
    user.dialog<CVekMatTreeDlg>([&](CVekMatTreeDlg& dialog) {
        CVekMatTreeCtrl& tree = dialog.m_tree;
        const auto isOpen = [&](HTREEITEM item) {
            return (tree.GetItemState(item, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
        };
        std::set<std::wstring> open, labels;
        int judged = 0;
        for (const auto& [item, material] : tree.m_items) {
            if (tree.GetChildItem(item) && judged++ % 2 == 0)
                tree.Expand(item, TVE_EXPAND);
        }
        EXPECT_TRUE(canConfirm(dialog, L"S235JR"));
        for (const auto& [item, material] : tree.m_items) {
            if (isOpen(item))
                open.insert(static_cast<const wchar_t*>(material));
        }
        for (const wchar_t* language : kLanguages) {
            dialog.SetCountry(language);
            CVekString selected;
            EXPECT_TRUE(tree.getSelMat(selected) && selected == L"S235JR" && canConfirm(dialog, nullptr)) << language;
            labels.insert(std::wstring(tree.GetItemText(tree.GetRootItem())));
            for (const auto& [item, material] : tree.m_items) {
                EXPECT_STREQ(tree.GetItemText(item), VEK::CMatMgr().matLabel(material, language));
                EXPECT_EQ(isOpen(item), open.contains(static_cast<const wchar_t*>(material)));
            }
            CString title;
            dialog.GetWindowText(title);
            EXPECT_EQ(labelOf(tree), std::wstring(title));
        }
        EXPECT_TRUE(labels.size() == 5 && open.size() > 5) << open.size();
        EXPECT_STREQ(tree.m_initMat, L"s235jr");
        VEK::cfgMgrPtr()->tree()->remove(L"*MAT*");
        EXPECT_FALSE(canConfirm(dialog, L"ALU")) << "it is gone";
        dialog.SendMessage(WM_COMMAND, IDOK);
        doubleClick(dialog);
        EXPECT_TRUE(dialog.IsWindowVisible());
        dialog.SetCountry(L"de");
        EXPECT_TRUE(tree.GetCount() == 1 && !canConfirm(dialog, nullptr));
        dialog.SendMessage(WM_COMMAND, IDCANCEL);
    });
    EXPECT_EQ(VEK::dlgMatTree(env, key), 0);
}

TEST_F(MaterialDialog, IsLaidOutWithinItsLimits)
{
    key = L"s235jr";
    user.dialog<CVekMatTreeDlg>([&](CVekMatTreeDlg& dialog) {
        EXPECT_TRUE(canConfirm(dialog, nullptr) && !dialog.GetDlgItem(IDHELP)->IsWindowEnabled());
        dialog.SetCountry(L"cs");
        for (const CSize& size : {CSize(2000, 2000), CSize(10, 10), CSize(420, 333)}) {
            dialog.SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
            CRect area, button(0, 0, 50, 14);
            dialog.GetClientRect(&area);
            dialog.MapDialogRect(&button);
            EXPECT_EQ(placeOf(dialog).Size(), CSize(std::clamp(size.cx, 300l, 700l), std::clamp(size.cy, 150l, 900l)));
            const auto place = [&](int id) { return placeOf(*dialog.GetDlgItem(id), dialog); };
            const CRect help = place(IDHELP);
            EXPECT_EQ(help.Size(), button.Size());
            EXPECT_EQ(help.BottomRight(), CPoint(area.right - 12, area.bottom - 12));
            EXPECT_EQ(place(IDOK), help - CPoint(2 * (help.Width() + 6), 0));
            EXPECT_EQ(place(1090), CRect(12, 12, area.right - 12, area.bottom - help.Height() - 24));
        }
        user.dialog<CAboutboxDlg>([&](CAboutboxDlg& box) {
            EXPECT_STREQ(box.country(), L"cs");
            box.EndDialog(IDOK);
        });
        dialog.SendMessage(WM_SYSCOMMAND, 0x12);
        dialog.EndDialog(77);
    });
    EXPECT_TRUE(VEK::dlgMatTree(env, key) == 77 && key == L"s235jr");
}

} // namespace
