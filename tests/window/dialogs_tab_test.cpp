// The keyboard's way through every dialog of the library, the examples and the gallery.
#include "objects_data.h"
#include "window/dialog_test.h"

#include "../apps/gallery/window/resource.h"

#include <hole_dialog.h>
#include <vek/dialogs.h>

#include <map>

namespace
{

/// The control that has the focus; that of a combo box is in its field.
HWND focused(HWND dialog)
{
    const HWND focus = ::GetFocus();
    return ::GetParent(focus) == dialog ? focus : ::GetParent(focus);
}

bool isStop(HWND control)
{
    constexpr LONG wanted = WS_TABSTOP | WS_VISIBLE;
    return (::GetWindowLongW(control, GWL_STYLE) & (wanted | WS_DISABLED)) == wanted;
}

/// What the control is for the system, as DLGC_STATIC.
LRESULT kindOf(HWND control)
{
    return ::SendMessageW(control, WM_GETDLGCODE, 0, 0);
}

/// Whether the user has something to do there: no label, no flat button, and of radio buttons not each.
bool isUsed(HWND control)
{
    const LONG style = ::GetWindowLongW(control, GWL_STYLE);
    return (style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE &&
           (kindOf(control) & (DLGC_STATIC | DLGC_RADIOBUTTON)) == 0 &&
           ((kindOf(control) & DLGC_BUTTON) == 0 || (style & BS_FLAT) == 0);
}

/// The letter of the control's access key; 0 for none.
wchar_t accessKey(HWND control)
{
    wchar_t text[200] = L"";
    ::GetWindowTextW(control, text, 200);
    const LRESULT kind = kindOf(control);
    const bool hasPrefix = (::GetWindowLongW(control, GWL_STYLE) & SS_NOPREFIX) == 0;
    if (!isShown(control) || !((kind & DLGC_BUTTON) || ((kind & DLGC_STATIC) && hasPrefix)))
        return 0;
    for (const wchar_t* at = text; *at; ++at) {
        if (*at == L'&' && *++at != L'&')
            return static_cast<wchar_t>(::towlower(*at));
    }
    return 0;
}

/// Whether one that comes later should have come before: it is straight above, or to the left in the same row.
bool leadsBack(const CRect& earlier, const CRect& later)
{
    const auto shared = [](LONG from, LONG to, LONG otherFrom, LONG otherTo) {
        return 2 * (std::min(to, otherTo) - std::max(from, otherFrom)) > std::min(to - from, otherTo - otherFrom);
    };
    return (later.right <= earlier.left && shared(earlier.top, earlier.bottom, later.top, later.bottom)) ||
           (later.bottom <= earlier.top && shared(earlier.left, earlier.right, later.left, later.right));
}

class DialogKeys : public DialogTest
{
protected:
    DialogKeys()
    {
        loadExamples(VEK_SOURCE_DIR L"/examples");
        holeDialogEnter(m_host);
        vekAppSet(&m_host);
    }

    static void press(CVekDlg& dialog, UINT message, WPARAM key, LPARAM context = 0)
    {
        MSG pressed = {::GetFocus(), message, key, context, 0, {}};
        EXPECT_TRUE(dialog.PreTranslateMessage(&pressed));
    }
    void walk(CVekDlg& dialog)
    {
        CString title;
        dialog.GetWindowText(title);
        SCOPED_TRACE(testing::PrintToString(static_cast<const wchar_t*>(title)));
        std::vector<HWND> controls, stops, way;
        for (HWND at = ::GetWindow(dialog, GW_CHILD); at; at = ::GetWindow(at, GW_HWNDNEXT))
            controls.push_back(at);
        std::copy_if(controls.begin(), controls.end(), std::back_inserter(stops), isStop);
        ASSERT_FALSE(stops.empty());
        for (const HWND control : controls)
            EXPECT_TRUE(isStop(control) || !isUsed(control)) << ::GetDlgCtrlID(control);
        ::SetFocus(stops[0]);
        do {
            way.push_back(focused(dialog));
            press(dialog, WM_KEYDOWN, VK_TAB);
        } while (focused(dialog) != stops[0] && way.size() <= stops.size());
        EXPECT_EQ(way, stops) << "each once, and round";
        for (std::size_t later = 1; later < way.size(); ++later) {
            for (std::size_t earlier = 0; earlier < later; ++earlier, ++judged)
                EXPECT_FALSE(leadsBack(placeOf(way[earlier]), placeOf(way[later])))
                    << ::GetDlgCtrlID(way[earlier]) << " before " << ::GetDlgCtrlID(way[later]);
        }
        std::map<wchar_t, HWND> keys;
        for (const HWND control : controls) {
            const wchar_t key = accessKey(control);
            if (!key)
                continue;
            EXPECT_TRUE(keys.emplace(key, control).second) << "two have the key " << static_cast<char>(key);
            if (!(kindOf(control) & DLGC_STATIC)) // a button would be pressed
                continue;
            ::SetFocus(stops.back());
            press(dialog, WM_SYSCHAR, key, 1 << 29);
            EXPECT_EQ(focused(dialog), ::GetWindow(control, GW_HWNDNEXT)) << static_cast<char>(key);
            ++labels;
        }
        ++walked;
    }
    void expect(int answer)
    {
        user.dialog<CVekDlg>([this, answer](CVekDlg& dialog) {
            walk(dialog);
            dialog.EndDialog(answer);
        });
    }

    int walked = 0, judged = 0, labels = 0;

private:
    CVekLocalApp m_host;
};

TEST_F(DialogKeys, LeadThroughReadyMadeOnesInReadingOrder)
{
    CVekDataItem library(CVekDataItem::directory),
        holes = objects_test::tree(R"({'HOLE':{'A':{'GEN':{'TYPE':'DRILL','D':14.0}}}})");
    VEK::outlineData outline;
    outline.code = 13;
    outline.material = L"ALU";
    for (const wchar_t* language : kLanguages) {
        VEK::msgLangSet(language);
        VEK::DlgEnvMatTree_st env;
        CVekString material = L"S235JR", label = L"Door", active = L"A";
        for (const wchar_t* help : {L"", L"vek.chm"}) {
            env.helpFile = help;
            for (int i = 0; i < 7; ++i)
                expect(IDCANCEL);
            EXPECT_EQ(VEK::dlgUnits(env, Vek::unitMillimetre), Vek::unitMillimetre);
            EXPECT_EQ(VEK::dlgMatTree(env, material), 0);
            EXPECT_EQ(VEK::dlgOutline(env, outline, &library), IDCANCEL);
            EXPECT_EQ(VEK::dlgLabelEdit(env, label, 1, label, env.country, nullptr), IDCANCEL);
            EXPECT_EQ(VEK::dlgBgr(env, active, &holes, nullptr), IDCANCEL);
            EXPECT_EQ(CDlgFilterOutline().DoModal(), IDCANCEL);
            EXPECT_EQ(CAboutboxDlg().DoModal(), IDCANCEL);
        }
    }
    EXPECT_EQ(walked, 5 * 2 * 7);
    EXPECT_EQ(judged, 1785);
}

TEST_F(DialogKeys, LeadThroughThoseOfTheGallery)
{
    for (const int id : {IDD_SAMPLE, IDD_VALUES, IDD_LIST, IDD_TABS, IDD_MATERIAL_TREE}) {
        expect(IDCANCEL);
        EXPECT_EQ(CVekDlg(id, nullptr).DoModal(), IDCANCEL) << id;
    }
    CWnd frame;
    ASSERT_TRUE(
        frame.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 600, 500), nullptr, 0));
    for (const int id : {IDD_TABS_GLASS, IDD_TABS_FRAME, IDD_TABS_NOTES}) {
        CVekDlg page(id, &frame);
        ASSERT_TRUE(page.Create(MAKEINTRESOURCE(id), &frame)) << id;
        page.ShowWindow(SW_SHOW);
        walk(page);
    }
    EXPECT_EQ(walked, 8);
    EXPECT_EQ(labels, 18);
}

} // namespace
