// The material dialog, with the example's materials and texts.
#include "objects_data.h"
#include "window/control_fixture.h"
#include "window/modal_queue.h"

#include <vek/data.h>
#include <vek/dialogframe.h>
#include <vek/dialogs.h>

namespace
{

class MaterialDialog : public testing::Test
{
protected:
    MaterialDialog() : m_before(CVekDlg::SetMsgCallBack(&VEK::msgCallBack))
    {
        m_backup.attach(nullptr);
        CVekString error;
        EXPECT_TRUE(VEK::jsonLoad(*VEK::cfgMgrPtr()->tree(), VEK_SOURCE_DIR L"/examples/materials.json", error));
        EXPECT_TRUE(VEK::textsLoad(VEK_SOURCE_DIR L"/examples/texts.json", error));
        env.country = L"en";
    }
    ~MaterialDialog() override { CVekDlg::SetMsgCallBack(m_before); }

    /// Opens the dialog as a program does.
    /// @return what the function gave; `key` is what it left there
    int open(const std::function<void(CVekMatTreeDlg&)>& act)
    {
        user.dialog<CVekMatTreeDlg>(act);
        return VEK::dlgMatTree(env, key);
    }
    static bool canConfirm(CVekMatTreeDlg& dialog, const wchar_t* material)
    {
        EXPECT_TRUE(dialog.m_tree.selectMat(material)) << CVekString(material).len();
        return dialog.GetDlgItem(IDOK)->IsWindowEnabled();
    }
    static void doubleClick(CVekMatTreeDlg& dialog, HTREEITEM item)
    {
        CRect rect;
        dialog.m_tree.EnsureVisible(item);
        dialog.m_tree.GetItemRect(item, &rect, TRUE);
        for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
            dialog.m_tree.PostMessage(message, 0, MAKELPARAM(rect.left + 5, rect.CenterPoint().y));
        control_test::pump();
    }

    ModalQueue user;
    VEK::DlgEnvMatTree_st env;
    CVekString key;

private:
    VEK::CCfgBackup m_backup{true};
    CVekDlg::MsgFcn m_before;
};

TEST_F(MaterialDialog, ConfirmsWhatMeetsTheDemands)
{
    struct Row {
        CVekArrayTempl<CVekString> options;
        const wchar_t* bad;
        const wchar_t* good;
    };
    for (const Row& row : {Row{{L"EDGE", L"PHYS", L"SYSTEM"}, L"METAL", L"AW-5754-H22"},
                           {{L"PHYS", L"SYSTEM"}, L"METAL", L"ALU-EXTRUDED"},
                           {{L"SYSTEM"}, nullptr, L"METAL"}}) {
        env.options = row.options;
        env.physKeys = {L"rho", L"Lambda"};
        env.showKeys = row.bad == nullptr;
        key = L"before";
        for (const int answer : {IDCANCEL, IDOK}) {
            EXPECT_EQ(open([&](CVekMatTreeDlg& dialog) {
                          CString title;
                          dialog.GetWindowText(title);
                          const HTREEITEM root = dialog.m_tree.GetRootItem();
                          EXPECT_EQ(title + dialog.m_tree.GetItemText(root), L"Material selectionLibrary");
                          EXPECT_FALSE(dialog.GetDlgItem(IDOK)->IsWindowEnabled()) << "at the root";
                          doubleClick(dialog, root);
                          dialog.PostMessage(WM_COMMAND, IDOK);
                          control_test::pump();
                          EXPECT_FALSE(row.bad && canConfirm(dialog, row.bad));
                          EXPECT_TRUE(canConfirm(dialog, L"SYSTEM") && canConfirm(dialog, row.good));
                          EXPECT_EQ(dialog.m_tree.GetItemText(dialog.m_tree.GetSelectedItem()).Find(row.good) == 0,
                                    env.showKeys);
                          if (answer == IDCANCEL)
                              dialog.PostMessage(WM_COMMAND, IDCANCEL);
                          else
                              doubleClick(dialog, dialog.m_tree.GetSelectedItem());
                      }),
                      answer == IDOK ? 1 : 0);
            EXPECT_STREQ(key, answer == IDOK ? row.good : L"before");
        }
    }
}

TEST_F(MaterialDialog, IsLaidOutWithinItsLimits)
{
    key = L"s235jr";
    user.dialog<CVekMatTreeDlg>([&](CVekMatTreeDlg& dialog) {
        EXPECT_TRUE(dialog.GetDlgItem(IDOK)->IsWindowEnabled()) << "the key given is selected";
        for (const CSize& size : {CSize(2000, 2000), CSize(10, 10), CSize(420, 333)}) {
            dialog.SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
            CRect window, area, tree;
            dialog.GetWindowRect(&window);
            EXPECT_EQ(window.Size(), CSize(std::clamp(size.cx, 300l, 700l), std::clamp(size.cy, 150l, 900l)));
            dialog.GetClientRect(&area);
            const auto place = [&](int id) {
                CRect rect;
                dialog.GetDlgItem(id)->GetWindowRect(&rect);
                dialog.ScreenToClient(&rect);
                return rect;
            };
            const CRect help = place(IDHELP);
            EXPECT_EQ(help.BottomRight(), CPoint(area.right - 12, area.bottom - 12));
            EXPECT_EQ(place(IDOK), help - CPoint(2 * (help.Width() + 6), 0));
            EXPECT_EQ(place(1090), CRect(12, 12, area.right - 12, area.bottom - help.Height() - 24));
        }
        user.dialog<CAboutboxDlg>([](CAboutboxDlg& box) { box.EndDialog(IDOK); });
        dialog.SendMessage(WM_SYSCOMMAND, 0x12);
        dialog.EndDialog(77);
    });
    EXPECT_EQ(VEK::dlgMatTree(env, key), 77);
    EXPECT_STREQ(key, L"s235jr");
}

} // namespace
