// The hole dialog of the examples as that of a host, in real windows.
#include "objects_data.h"
#include "window/control_fixture.h"
#include "window/dialog_test.h"

#include <hole_dialog.h>
#include <hole_ids.h>
#include <vek/dialogs.h>

namespace
{

using objects_test::json, objects_test::tree;

/// The selected row and its kind, and the fields; a hyphen for a field that is grey.
std::wstring shown(HoleDialog& dialog)
{
    const auto& list = *static_cast<CVekListCtrl*>(dialog.GetDlgItem(IDC_HOLES_LIST));
    CString all;
    all.Format(L"%d %s", list.GetCurSel(), static_cast<const wchar_t*>(list.GetItemText(list.GetCurSel(), 1)));
    for (const int id : {IDC_HOLES_NAME, IDC_HOLES_KIND, IDC_HOLES_DIAMETER, IDC_HOLES_X, IDC_HOLES_Y})
        all += L" " + (dialog.GetDlgItem(id)->IsWindowEnabled() ? textOf(dialog, id) : CString(L"-"));
    return static_cast<const wchar_t*>(all);
}

struct Step {
    int row; ///< that is selected; -1 as it is
    int id;
    const wchar_t* entry;
    const wchar_t* shown; ///< null for as before

    void act(HoleDialog& dialog) const
    {
        if (row >= 0)
            static_cast<CVekListCtrl*>(dialog.GetDlgItem(IDC_HOLES_LIST))->SetCurSel(row);
        if (!entry)
            clickButton(dialog, id);
        else if (id == IDC_HOLES_KIND)
            chooseRow(dialog, id, VEK::atoi(entry));
        else
            typeInto(dialog, id, entry, IDC_HOLES_LIST);
        pumpWaiting();
    }
};

using HostHoleDialog = DialogTest;

TEST_F(HostHoleDialog, ChangesThePatternOnlyAtOkInEveryLanguage)
{
    const CVekDataItem given = tree(R"({'':{'DRAW':'L','ORDER':'old'},'LABEL':'\\de:P\\cs:D','ORDER':'7','MORE':2,
        'HOLE':{'A':{'GEN':{'TYPE':'DRILL','D':14.0,'LAYER':'X'},'ORG':{'@point':[1,2,3]}},'#5':{'GEN':{}},
        'B':{'GEN':{'TYPE':'OUTLINE','CODE':6,'PARMS':{'#1':50.0,'#2':14.0}},'MTX':{'@matrix':[[0,-1,0,9],[1,0,0,8],
        [0,0,1,7],[0,0,0,1]]}},'C':{'GEN':{'@polylines':[[[0,0,0,30,0,0,0]]]}},'D':{'GEN':{'TYPE':'OUTLINE','CODE':1,
        'PARMS':{'#1':6.0},'BASE':{'@point':[1,0,0]},'UNIT':5},'AXIS':{'@points':[[1,1,0],[1,1,5]]}}}})");
    const CVekDataItem after = tree(R"({'':{'DRAW':'L','ORDER':'8','LABEL':'\\de:N\\cs:D'},'LABEL':'\\de:N\\cs:D',
        'ORDER':'8','MORE':2,'HOLE':{'Z':{'GEN':{'TYPE':'DRILL','D':20.5,'LAYER':'X'},'ORG':{'@point':[1,-3,3]}},
        '#5':{'GEN':{}},'C':{'GEN':{'TYPE':'DRILL','D':10.0}},'D':{'GEN':{'TYPE':'DRILL','D':60.0},
        'AXIS':{'@points':[[1,1,0],[1,1,5]]},'MTX':{'@matrix':[[1,0,0,4],[0,1,0,1],[0,0,1,0],[0,0,0,1]]}},
        '1':{'GEN':{'TYPE':'OUTLINE','CODE':1,'BASE':{'@point':[0,0,0]},'UNIT':{'@unit':4},'PARMS':{'#1':12.0}},
        'ORG':{'@point':[0,60,0]}}}})");
    const Step steps[] = {{-1, IDC_HOLES_X, L"12", L"1 Langloch B Kontur - 12 8"},
                          {0, IDC_HOLES_DIAMETER, L"20,5", L"0 Bohrung A Bohrung 20.5 1 2"},
                          {0, IDC_HOLES_DIAMETER, L"-1", nullptr},
                          {0, IDC_HOLES_Y, L"-3", L"0 Bohrung A Bohrung 20.5 1 -3"},
                          {0, IDC_HOLES_NAME, L"B", nullptr},
                          {0, IDC_HOLES_NAME, L"", nullptr},
                          {0, IDC_HOLES_NAME, L"Z", L"0 Bohrung Z Bohrung 20.5 1 -3"},
                          {2, IDC_HOLES_KIND, L"2", L"2 Linien C Linien - 0 0"},
                          {2, IDC_HOLES_KIND, L"0", L"2 Bohrung C Bohrung 10 0 0"},
                          {3, IDC_HOLES_KIND, L"0", L"3 Bohrung D Bohrung 60 11 1"},
                          {3, IDC_HOLES_X, L"4", L"3 Bohrung D Bohrung 60 4 1"},
                          {-1, IDC_HOLES_ADD, nullptr, L"4 Bohrung 1 Bohrung 10 0 0"},
                          {-1, IDC_HOLES_Y, L"60", L"4 Bohrung 1 Bohrung 10 0 60"},
                          {-1, IDC_HOLES_KIND, L"1", L"4 Rund 1 Kontur - 0 60"},
                          {-1, IDC_HOLES_OUTLINE, nullptr, nullptr},
                          {1, IDC_HOLES_REMOVE, nullptr, L"1 Bohrung C Bohrung 10 0 0"},
                          {-1, IDC_HOLES_LABEL, L"N", nullptr},
                          {-1, IDC_HOLES_ORDER, L"8", nullptr}};
    CVekLocalApp host;
    holeDialogEnter(host);
    vekAppSet(&host);
    loadExamples(VEK_SOURCE_DIR L"/examples");
    CVekString active = L"B";
    for (const int end : {IDCANCEL, IDOK}) {
        user.dialog<HoleDialog>([&](HoleDialog& dialog) {
            std::wstring before = L"1 Langloch B Kontur - 9 8";
            EXPECT_EQ(shown(dialog), before);
            EXPECT_EQ(dialog.SendDlgItemMessage(IDC_HOLES_LIST, LVM_GETNEXTITEM, WPARAM(-1), LVNI_FOCUSED), 1);
            for (const Step& step : steps) {
                const VEK::CPixels picture = control_test::pixelsOf(*dialog.GetDlgItem(IDC_HOLES_PICTURE));
                if (step.id == IDC_HOLES_DIAMETER && *step.entry == L'-')
                    user.box(L"negativ");
                if (step.id == IDC_HOLES_OUTLINE) {
                    user.dialog<CVekOutlDlg>([](CVekOutlDlg& outline) {
                        EXPECT_TRUE(outline.choice().code == 1 && outline.choice().parms[0] == 10.0);
                        outline.choice().parmSet(0, 12.0);
                        outline.SendMessage(WM_COMMAND, IDOK);
                    });
                }
                step.act(dialog);
                const VEK::CPixels next = control_test::pixelsOf(*dialog.GetDlgItem(IDC_HOLES_PICTURE));
                before = step.shown ? step.shown : before;
                EXPECT_EQ(shown(dialog), before);
                EXPECT_TRUE(!step.shown || step.id == IDC_HOLES_NAME || control_test::differing(picture, next) > 5)
                    << before;
            }
            dialog.SendMessage(WM_COMMAND, static_cast<WPARAM>(end));
        });
        CVekDataItem data = given;
        EXPECT_EQ(VEK::dlgBgr(VEK::DlgEnv_st(), active, &data, nullptr), end);
        EXPECT_EQ(json(data), json(end == IDOK ? after : given));
        EXPECT_STREQ(active, end == IDOK ? L"C" : L"B");
    }
    for (const wchar_t* language : kLanguages) {
        VEK::msgLangSet(language);
        user.dialog<HoleDialog>([&](HoleDialog& dialog) {
            EXPECT_EQ(shown(dialog), L"-1  - - - - -") << "an empty pattern";
            for (int id = IDC_HOLES_LABEL_TEXT; id <= IDC_HOLES_GROUP; ++id) {
                const std::wstring text(textOf(dialog, id));
                EXPECT_LE(widthOf(dialog, text), placeOf(*dialog.GetDlgItem(id)).Width()) << id << language;
            }
            for (const int id : {IDC_HOLES_ADD, IDC_HOLES_ADD, IDC_HOLES_REMOVE})
                Step{-1, id, nullptr, nullptr}.act(dialog);
            dialog.SendMessage(WM_COMMAND, IDOK);
        });
        CVekDataItem data;
        EXPECT_EQ(VEK::dlgBgr(VEK::DlgEnv_st(), active, &data, nullptr), IDOK);
        EXPECT_STREQ(active, L"1");
    }
}

} // namespace
