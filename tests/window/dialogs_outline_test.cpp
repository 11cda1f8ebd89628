// The outline dialog as a user has it.
#include "window/dialog_test.h"

#include <vek/dialogs.h>
#include <vek/objects/outline.h>

namespace
{

class OutlineDialog : public DialogTest
{
protected:
    OutlineDialog() { VEK::outlineMemory() = {}; }

    int open(const std::function<void()>& act)
    {
        user.dialog<CVekOutlDlg>([this, act](CVekOutlDlg& it) {
            dialog = &it;
            act();
        });
        return VEK::dlgOutline(VEK::DlgEnv_st(), data, &library);
    }
    HWND control(int id) const { return ::GetDlgItem(*dialog, id); }
    LRESULT send(int id, UINT message, WPARAM w = 0, LPARAM l = 0)
    {
        return ::SendMessageW(control(id), message, w, l);
    }
    void click(int id) { clickButton(*dialog, id); }
    void choose(int place) { chooseRow(*dialog, 5034, place); }
    void type(int id, const wchar_t* typed) { typeInto(*dialog, id, typed, 5034); }
    /// The texts of controls, with blanks between them; nothing of one that is hidden.
    std::wstring texts(std::initializer_list<int> ids)
    {
        std::wstring all;
        for (const int id : ids)
            all += (all.empty() ? L"" : L" ") + std::wstring(isShown(control(id)) ? textOf(*dialog, id) : CString());
        return all;
    }

    CVekDataItem library{CVekDataItem::directory};
    VEK::outlineData data;
    CVekOutlDlg* dialog = nullptr;
};

TEST_F(OutlineDialog, GivesWhatTheUserHasChosenOnlyAtOk)
{
    CVekDataItem leaf;
    EXPECT_EQ(VEK::dlgOutline(VEK::DlgEnv_st(), data, nullptr), 0);
    EXPECT_EQ(VEK::dlgOutline(VEK::DlgEnv_st(), data, &leaf), IDCANCEL);
    data.code = 13;
    data.basePoint = {-2.0, 0.0, 3.0};
    data.unit = Vek::unitCentimetre; // shown in the drawing's millimetres
    const CVekArrayTempl<double> before = {-3.0, 4.0}, after = {-3.5, 4.0, 8.0, 8.0, 8.0};
    for (const int end : {IDCANCEL, IDOK}) {
        data.parms = before;
        const auto act = [&] {
            EXPECT_EQ(::GetFocus(), control(5034));
            EXPECT_EQ(send(5034, CB_GETCOUNT), VEK::outlineKinds);
            EXPECT_EQ(texts({5015, 1080, 1070, 1074, 1075}), L"20 Breite gespiegelt 30 80 ");
            EXPECT_TRUE(texts({4004, 4005}) == L"" && dialog->IsDlgButtonChecked(1061));
            type(1070, L"35");
            click(1081); // the height is plain
            EXPECT_TRUE(::GetWindowLongW(control(1081), GWL_STYLE) & BS_FLAT);
            click(1080);
            EXPECT_EQ(texts({1080}), L"Breite");
            click(1080);
            type(5017, L"5");
            click(1059);
            EXPECT_EQ(texts({1070, 5017}), L"10 0");
            click(1061);
            EXPECT_EQ(texts({1080, 1070, 5017}), L"Breite gespiegelt 35 5");
            choose(20); // the ring, with an angle in degrees
            EXPECT_EQ(texts({1072, 1073}), end == IDOK ? L"HALB " : L"VIERTEL ") << "kept after a cancel";
            click(1082);
            type(1072, L"halb");
            EXPECT_EQ(texts({1082, 1072}), end == IDOK ? L"Winkel HALB" : L"Winkel rechtsdrehend HALB");
            EXPECT_EQ(dialog->choice().parms[2], end == IDOK ? 180.0 : -180.0);
            user.dialog<CDlgFilterOutline>([](CDlgFilterOutline& filter) {
                EXPECT_EQ(filter.m_mask, 15);
                filter.SendDlgItemMessage(5029, LB_SETSEL, FALSE, 2);
                clickButton(filter, IDOK);
            });
            click(5012);
            EXPECT_EQ(texts({5034, 1080, 1070, 1071}), L"Rund Durchmesser 1000 ") << "the ring is filtered out";
            choose(12);
            click(end);
        };
        EXPECT_EQ(open(act), end);
        EXPECT_EQ(data.parms, end == IDOK ? after : before);
        EXPECT_EQ(data.basePoint, CVekPoint3d(-2.0, end == IDOK ? -0.5 : 0.0, 3.0));
        EXPECT_TRUE(data.code == 13 && data.filter == (end == IDOK ? 11 : 15));
    }
}

TEST_F(OutlineDialog, CutsNoTextInAnyLanguage)
{
    loadExamples(VEK_SOURCE_DIR L"/examples");
    int judged = 0;
    const auto fits = [&](int id, int margin) {
        EXPECT_LE(widthOf(*dialog, texts({id})) + margin, placeOf(control(id)).Width())
            << id << testing::PrintToString(texts({id}));
        ++judged;
    };
    for (const wchar_t* language : kLanguages) {
        data.material = L"GLASS";
        const auto act = [&] {
            for (const int id : {5034, 1080, 4005}) {
                const std::wstring german = (dialog->SetCountry(L"de"), texts({id}));
                dialog->SetCountry(language);
                EXPECT_EQ(texts({id}) == german, dialog->country() == std::wstring(L"de")) << id << language;
            }
            for (const int id : {5008, 5010, 5013, 1059, 1060, 1061, 1062})
                fits(id, 20);
            for (const int id : {5011, 5012, 5014, 5016, 4005, IDOK, IDCANCEL, IDHELP})
                fits(id, id < 5000 || id == 5012 ? 8 : 0);
            for (int place = 0; place < VEK::outlineKinds; ++place) {
                choose(place);
                fits(5034, 30);
                for (int id = 1080; id < 1086; ++id) {
                    fits(id, 8);
                    click(id);
                    fits(id, 8);
                    const std::wstring label = texts({id});
                    EXPECT_TRUE(label.empty() || nameOf(control(id - 10)) == label) << id << language;
                }
            }
            EXPECT_EQ(labelOf(control(5034)), texts({5010}));
            user.dialog<CVekMatTreeDlg>([](CVekMatTreeDlg& tree) {
                EXPECT_TRUE(tree.m_tree.selectMat(L"ALU"));
                clickButton(tree, IDOK);
            });
            click(4004);
            EXPECT_EQ(texts({4005}), std::wstring(VEK::CMatMgr().matLabel(L"ALU", language)));
            click(IDOK);
        };
        EXPECT_TRUE(open(act) == IDOK && data.material == L"ALU");
    }
    EXPECT_EQ(judged, 5 * (7 + 8 + 41 * 13));
}

} // namespace
