// Dialogs in real windows.
#include "core/platform/outside.h"
#include "window/control_fixture.h"
#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <vek/data/text.h>
#include <vek/dialogframe.h>

namespace
{

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU, kSizable = kStyle | WS_THICKFRAME;
constexpr wchar_t kTitle[] = L"VekTest dialog";

/// "key/built-in text/language", from a ring.
const wchar_t* tell(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language)
{
    static CVekString ring[8];
    static int at = 0;
    if (std::wcscmp(key, L"NULL") == 0)
        return nullptr;
    CVekString& text = ring[at = (at + 1) % 8];
    text = CVekString(key) + L"/" + (builtIn ? builtIn : L"-") + L"/" + language;
    return text;
}

class Form : public CVekDlg
{
    DECLARE_DYNAMIC(Form)

public:
    explicit Form(const Template& source, CWnd* parent = nullptr) : CVekDlg(0, parent), m_source(source)
    {
        InitModalIndirect(m_source.get(), parent);
    }

    std::function<void(Form&)> fill;
    int updates = 0;

    void addLangRsc() override
    {
        if (fill)
            fill(*this);
    }
    bool updLang() override
    {
        ++updates;
        return CVekDlg::updLang();
    }
    void open(CWnd* parent = nullptr) { ASSERT_TRUE(CreateIndirect(m_lpDialogTemplate, parent)); }
    CString textOf(int id)
    {
        CString text;
        GetDlgItemText(id, text);
        return text;
    }
    CString helpFile()
    {
        CString path;
        GetHelpFile(path);
        return path;
    }
    using CVekDlg::m_mapHlpKey, CVekDlg::m_mapLangDef, CVekDlg::m_mapLangKey, CVekDlg::m_mapToolTipKey;

private:
    Template m_source;
};

IMPLEMENT_DYNAMIC(Form, CVekDlg)

class Derived : public Form
{
    DECLARE_DYNAMIC(Derived)
public:
    using Form::Form;
};

IMPLEMENT_DYNAMIC(Derived, Form)

/// The template of dialogs with a title.
Template titled(const wchar_t* title, DWORD style = kStyle, short x = 10, short y = 10)
{
    return Template(style, x, y, title);
}

class DialogFrame : public testing::Test
{
protected:
    DialogFrame() : m_before(CVekDlg::SetMsgCallBack(&tell)) { forget(); }
    ~DialogFrame() override
    {
        forget();
        CVekDlg::SetMsgCallBack(m_before);
        EXPECT_EQ(VEK::dlgStackPop(), nullptr) << "a dialog is still on the stack";
    }
    static void forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\OSTWERK\\VEK\\Dialogs"); }

    ModalQueue user;

private:
    CVekDlg::MsgFcn m_before;
};

CRect rectOf(const CWnd& window)
{
    CRect rect;
    window.GetWindowRect(&rect);
    return rect;
}

TEST_F(DialogFrame, OpensWhereItWasClosed)
{
    CRect screen = rectOf(*CWnd::GetDesktopWindow());
    const CPoint edge = screen.BottomRight();
    struct Case {
        const wchar_t* title;
        DWORD style;
        CRect moved;   ///< before it is closed
        CPoint opened; ///< where the next one opens
    } cases[] = {
        {kTitle, kStyle, {40, 60, 340, 260}, {40, 60}},
        {kTitle, kSizable, {70, 80, 470, 380}, {70, 80}},
        {kTitle, kSizable, {-50, -20, 350, 280}, {0, 0}},
        {kTitle, kSizable, CRect(-100, -30, 300, 200) + edge, edge - CSize(400, 230)},
        {kTitle, WS_POPUP | WS_THICKFRAME, {30, 20, 230, 220}, {30, 20}},
        {L"VekTest\\with\\levels", kStyle, {90, 95, 300, 300}, {90, 95}},
        {L"", kStyle, {40, 60, 340, 260}, {-1, -1}},
        {nullptr, kStyle, {40, 60, 340, 260}, {-1, -1}}, // switched off
        {L"VekTest refused", kStyle, {40, 60, 340, 260}, {-1, -1}},
    };
    const std::wstring refused(300, L'r'); // the registry takes no key of this length
    for (Case& each : cases) {
        const wchar_t* title = !each.title ? kTitle : each.title == cases[8].title ? refused.c_str() : each.title;
        forget();
        const Template source = titled(title, each.style);
        CRect first;
        for (int round = 0; round < 3; ++round) {
            Form form(source);
            form.SavePosition(each.title != nullptr);
            form.open();
            const CRect rect = rectOf(form);
            if (round == 0)
                first = rect;
            const CPoint place = each.opened.x < 0 || round == 0 ? first.TopLeft() : each.opened;
            EXPECT_EQ(rect.TopLeft(), place) << rect.left << ", " << rect.top;
            const bool takesSize = round > 0 && (each.style & WS_THICKFRAME);
            EXPECT_EQ(rect.Size(), takesSize ? each.moved.Size() : first.Size());
            RECT stored = {-7, -7, -7, -7};
            EXPECT_EQ(form.getSavedPos(stored), each.opened.x >= 0 && round > 0);
            form.SetWindowPos(nullptr, each.moved.left, each.moved.top, each.moved.Width(), each.moved.Height(),
                              SWP_NOZORDER);
            if (round == 1)
                form.ShowWindow(SW_SHOWMINIMIZED); // stores where it would return to
            form.DestroyWindow();
        }
    }
    HKEY key = nullptr;
    ASSERT_TRUE(VEK::dlgPositionWrite({5000 | 4000ul << 16, 1 | 1ul << 16}, kTitle)); // on a larger desktop
    Form remote(titled(kTitle));
    remote.open();
    EXPECT_EQ(rectOf(remote).TopLeft(), CPoint(5000, 4000));
    remote.DestroyWindow();
    forget();
    Form again(titled(kTitle));
    again.open();
    again.DestroyWindow();
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, VEK::dlgPositionKey(kTitle) + L"\\lasting", 0, nullptr, 0, KEY_WRITE,
                              nullptr, &key, nullptr),
              static_cast<LSTATUS>(ERROR_CHILD_MUST_BE_VOLATILE));

    forget();
    Form middle(titled(kTitle, kStyle, 0, 0));
    middle.open();
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    const CPoint off = rectOf(middle).CenterPoint() - screen.CenterPoint();
    EXPECT_LE(std::max(std::abs(off.x), std::abs(off.y)), 1) << "centred without a stored place";
}

TEST_F(DialogFrame, FollowsItsLanguage)
{
    const auto fill = [](Form& form) {
        form.m_mapLangKey[1] = L"ONE", form.m_mapLangDef[1] = L"eins";
        form.m_mapLangKey[2] = L"TWO";
        form.m_mapLangKey[3] = L"NULL", form.m_mapLangDef[3] = L"drei";
        form.m_mapLangKey[4] = L"GONE";
    };
    Template source = titled(kTitle);
    for (WORD id = 1; id < 4; ++id)
        source.item(id, L"STATIC", 0, L"template");
    Derived form(source);
    form.fill = fill;
    form.open();
    EXPECT_STREQ(form.country(), L"de") << "the process's";
    EXPECT_EQ(form.textOf(1), L"ONE/eins/de");
    EXPECT_EQ(form.textOf(2), L"TWO/TWO/-/de/de") << "its own text comes from the key";
    EXPECT_EQ(form.textOf(3), L"template");
    form.SetCountry(L"pl");
    EXPECT_EQ(form.textOf(1), L"ONE/eins/pl");
    form.SetDlgItemText(1, L"mine");
    form.SetCountry(L"pl");
    EXPECT_EQ(form.textOf(1), L"mine") << "no refresh";
    form.SetCountry(nullptr);
    EXPECT_EQ(form.textOf(1), L"ONE/eins/");
    EXPECT_EQ(form.updates, 3);
    form.SetCountry(L"fr");
    EXPECT_STREQ(form.GetMsg(L"K", nullptr, nullptr), L"K/-/fr");
    EXPECT_STREQ(form.GetMsg(L"K", L"k", L"cs"), L"K/k/cs");

    Form same(source, &form);
    Derived of(source, &form), own(source, &form);
    own.SetCountry(L"cs");
    CVekDlg other(0, &form);
    ASSERT_TRUE(other.CreateIndirect(source.get(), &form));
    same.open(&form);
    EXPECT_STREQ(same.country(), L"fr") << "the parent is of a derived class";
    same.SetCountry(L"sk"), other.SetCountry(L"hu");
    of.open(&same), own.open(&form);
    EXPECT_STREQ(of.country(), L"fr") << "past a dialog of another class";
    EXPECT_STREQ(own.country(), L"cs");
    Derived stranger(source, &other);
    stranger.open(&other);
    EXPECT_STREQ(stranger.country(), L"fr");
    form.SetCountry(L"en");
    EXPECT_STREQ(of.country(), L"fr") << "nothing is passed on later";

    CVekDlg::SetMsgCallBack(nullptr);
    EXPECT_FALSE(form.updLang());
    EXPECT_STREQ(form.GetMsg(L"K", L"k", L"cs"), L"k");
    CVekDlg::SetMsgCallBack(&tell);
    form.DestroyWindow();
    EXPECT_FALSE(form.updLang());

    const std::wstring endless(100000, L'x');
    Form large(source);
    large.fill = [&](Form& f) { f.m_mapLangKey[1] = endless.c_str(), f.m_mapLangDef[1] = nullptr; };
    large.open();
    EXPECT_GE(large.textOf(1).GetLength(), 100000);
    for (const wchar_t* key : {L"a\\b", L"\\K\\...", L"a\\b\\c\\d", L"a\\b\\c\\d\\e"}) // decoration is the callback's
        EXPECT_EQ(CVekString(key) + L"/-/de", large.GetMsg(key, nullptr, nullptr));
    large.setLink(2, L"text", L"http://a");
    EXPECT_EQ(large.textOf(2), L"<a href=\"http://a\">text</a>");
    large.setLink(2, L"text", nullptr);
    EXPECT_EQ(large.textOf(2), L"text");
    large.setLink(2, nullptr, L"");
    EXPECT_EQ(large.textOf(2), L"<a href=\"\"></a>");
}

/// A control that is a field for the dialog only with an object of its own.
template <class Control>
std::unique_ptr<CWnd> bound(CWnd& dialog, UINT id)
{
    auto control = std::make_unique<Control>();
    EXPECT_TRUE(control->SubclassDlgItem(id, &dialog));
    return control;
}

TEST_F(DialogFrame, LeadsReturnAndPageUpThroughItsFields)
{
    Template source = titled(kTitle, kStyle | WS_VISIBLE);
    const DWORD tab = WS_TABSTOP;
    source.item(1, L"BUTTON", tab).item(2, L"EDIT", tab).item(3, L"EDIT", tab).item(4, L"EDIT", tab);
    source.item(5, L"COMBOBOX", tab | CBS_DROPDOWNLIST).item(6, L"COMBOBOX", tab | CBS_DROPDOWN);
    source.item(7, L"EDIT", tab | ES_MULTILINE | ES_WANTRETURN)
        .item(8, L"COMBOBOX", tab | CBS_SIMPLE)
        .item(12, L"EDIT", tab);
    source.item(10, L"STATIC");
    Form form(source);
    int checked = 0;
    form.open();
    std::vector<std::unique_ptr<CWnd>> controls;
    for (const UINT id : {2u, 3u, 4u, 7u, 12u})
        controls.push_back(bound<CEdit>(form, id));
    for (const UINT id : {5u, 6u, 8u})
        controls.push_back(bound<CComboBox>(form, id));
    form.GetDlgItem(3)->ShowWindow(SW_HIDE);
    form.GetDlgItem(4)->EnableWindow(FALSE);
    const auto focused = [&] {
        const HWND at = ::GetFocus();
        return at == form.m_hWnd ? 0 : ::GetDlgCtrlID(::GetParent(at) == form.m_hWnd ? at : ::GetParent(at));
    };
    const auto press = [&](int from, WPARAM key) {
        form.GetDlgItem(from)->SetFocus();
        MSG message = {::GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        const bool handled = form.PreTranslateMessage(&message);
        return std::pair<bool, int>(handled, focused());
    };
    using Result = std::pair<bool, int>;
    EXPECT_EQ(press(2, VK_RETURN), Result(true, 6)) << "past hidden, disabled and no fields";
    EXPECT_EQ(press(6, VK_RETURN), Result(true, 7));
    EXPECT_EQ(press(12, VK_RETURN), Result(true, 2)) << "a window behind it, so around";
    EXPECT_EQ(press(6, VK_PRIOR), Result(true, 2));
    EXPECT_EQ(press(12, VK_PRIOR), Result(true, 2));
    EXPECT_FALSE(press(7, VK_PRIOR).second == 2) << "a field that wants Return keeps its keys";
    ::DestroyWindow(::GetDlgItem(form, 10));
    struct Check : CEdit {
        int* count = nullptr;
        LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override
        {
            *count += message == WM_KILLFOCUS;
            return CEdit::WindowProc(message, w, l);
        }
    } last;
    controls[4]->UnsubclassWindow();
    last.count = &checked;
    ASSERT_TRUE(last.SubclassDlgItem(12, &form));
    EXPECT_EQ(press(12, VK_RETURN), Result(true, 12)) << "the last one checks itself and stays";
    EXPECT_EQ(checked, 1);
    ::DestroyWindow(::GetDlgItem(form, 1));
    EXPECT_EQ(press(2, VK_PRIOR), Result(true, 2)) << "the first one swallows the key";

    struct Tabs : CTabCtrl {
        std::vector<WPARAM> keys;
        BOOL PreTranslateMessage(MSG* message) override { return keys.push_back(message->wParam), 7; }
    } tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 150), &form, 20));
    Template inner = Template(WS_CHILD | WS_VISIBLE).item(2, L"EDIT", tab).item(3, L"EDIT", tab);
    Form page(inner);
    page.open(&tabs);
    const auto edit = bound<CEdit>(page, 2);
    page.GetDlgItem(2)->SetFocus();
    BYTE held[256] = {};
    held[VK_CONTROL] = held[VK_TAB] = 0x80;
    MSG message = {::GetFocus(), WM_KEYDOWN, VK_RETURN, 0, 0, {}};
    EXPECT_EQ(page.PreTranslateMessage(&message), 7) << "a page leaves Return to its tabs";
    message.wParam = VK_TAB;
    EXPECT_FALSE(tabs.keys.size() > 1);
    ::SetKeyboardState(held);
    EXPECT_EQ(page.PreTranslateMessage(&message), 7) << "and Ctrl+Tab";
    held[VK_CONTROL] = held[VK_TAB] = 0;
    ::SetKeyboardState(held);
    EXPECT_EQ(tabs.keys, (std::vector<WPARAM>{VK_RETURN, VK_TAB}));
}

TEST_F(DialogFrame, ShowsTipsAndHelp)
{
    using VEK::platform::OutsideCall;
    std::vector<OutsideCall> calls;
    const auto before =
        VEK::platform::outsideHookSet([&](const OutsideCall& call) { return calls.push_back(call), true; });
    Form form(titled(kTitle, kStyle).item(1, L"STATIC").item(2, L"STATIC").item(IDHELP, L"BUTTON"));
    form.fill = [](Form& f) {
        f.m_mapToolTipKey[1] = L"TIP", f.m_mapToolTipKey[2] = L"NULL";
        f.m_mapHlpKey[1] = L"HELP", f.m_mapHlpKey[2] = L"NULL", f.m_mapHlpKey[77] = L"FAR", f.m_mapHlpKey[0] = L"";
    };
    form.open();
    NMTTDISPINFOW request = {};
    const auto tip = [&](int id, UINT flags) {
        request = {};
        request.hdr = {::GetDlgItem(form, 2), reinterpret_cast<UINT_PTR>(::GetDlgItem(form, id)), TTN_NEEDTEXTW};
        request.uFlags = flags;
        form.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&request));
        return request.lpszText != nullptr;
    };
    EXPECT_TRUE(tip(1, TTF_IDISHWND));
    EXPECT_STREQ(request.lpszText, L"TIP/-/de");
    EXPECT_EQ(request.hinst, AfxGetResourceHandle());
    EXPECT_FALSE(tip(1, 0) || tip(2, TTF_IDISHWND) || tip(IDHELP, TTF_IDISHWND) || tip(99, TTF_IDISHWND));

    const auto f1 = [&](int id) {
        HELPINFO info = {sizeof info, HELPINFO_WINDOW, id, ::GetDlgItem(form, id), 0, {-5, 6}};
        return form.SendMessage(WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    };
    EXPECT_TRUE(f1(1) && f1(2) && f1(3) && f1(77) && f1(0)) << "always handled";
    const CRect area = rectOf(*form.GetDlgItem(1));
    OutsideCall popup = {OutsideCall::What::helpPopup, L"", L"HELP/-/de"}, other = popup, title = popup;
    popup.x = area.CenterPoint().x, popup.y = area.CenterPoint().y;
    other.text = L"FAR/-/de", other.x = -5, other.y = 6, title = other, title.text = L"/-/de";
    EXPECT_EQ(calls, (std::vector<OutsideCall>{popup, other, title}));
    calls.clear();
    CVekDlg::SetMsgCallBack(nullptr);
    EXPECT_TRUE(f1(1) && !tip(1, TTF_IDISHWND) && calls.empty());

    CWnd& button = *form.GetDlgItem(IDHELP);
    const auto stateOf = [&] {
        return std::pair(::GetWindowLongW(button, GWL_STYLE) & WS_VISIBLE ? 1 : 0, int(button.IsWindowEnabled()));
    };
    form.ShowWindow(SW_SHOW);
    EXPECT_EQ(stateOf(), std::pair(1, 0)) << "grey without a help file";
    form.SetHelpFile(L"C:\\help\\vek.chm");
    EXPECT_EQ(stateOf(), std::pair(1, 1));
    EXPECT_EQ(form.helpFile(), L"C:\\help\\vek.chm");
    form.SetHelpFile(nullptr);
    EXPECT_EQ(stateOf(), std::pair(0, 0 + int(button.IsWindowEnabled())));
    EXPECT_EQ(form.helpFile(), L"");
    form.SetHelpTopic(L"intro");
    user.file([&](OPENFILENAMEW& request2, bool save) {
        EXPECT_TRUE(!save && request2.hwndOwner == form.m_hWnd && (request2.Flags & OFN_FILEMUSTEXIST));
        EXPECT_STREQ(request2.lpstrDefExt, L"chm");
        EXPECT_STREQ(request2.lpstrFilter, L"(*.chm)");
        return false;
    });
    form.Help(L"topic");
    EXPECT_TRUE(calls.empty() && form.helpFile().IsEmpty()) << "cancelled";
    user.file([](OPENFILENAMEW& chosen, bool) { return lstrcpyW(chosen.lpstrFile, L"D:\\x\\book.chm") != nullptr; });
    form.Help(nullptr);
    EXPECT_EQ(calls, (std::vector<OutsideCall>{{OutsideCall::What::helpTopic, L"D:\\x\\book.chm"},
                                               {OutsideCall::What::helpKeyword, L"D:\\x\\book.chm", L"intro"}}));
    EXPECT_EQ(form.helpFile(), L"D:\\x\\book.chm") << "the choice lasts";
    EXPECT_EQ(stateOf(), std::pair(1, 1));
    calls.clear();
    form.SetHelpFile(L"https://a.b/<topic>.html");
    form.Help(L"x~");
    EXPECT_EQ(calls, (std::vector<OutsideCall>{{OutsideCall::What::document, L"https://a.b/xVEK.html"}}));
    VEK::platform::outsideHookSet(before);
}

TEST_F(DialogFrame, DrawsItsGripper)
{
    for (const bool sizable : {true, false}) {
        Form form(titled(kTitle, kStyle | WS_VISIBLE | (sizable ? WS_THICKFRAME : 0u)));
        form.open();
        for (const int grow : {0, 60}) { // the old gripper is gone
            const CRect rect = rectOf(form);
            form.SetWindowPos(nullptr, 0, 0, rect.Width() + grow, rect.Height() + grow, SWP_NOMOVE | SWP_NOZORDER);
            form.UpdateWindow();
            const VEK::CPixels shown = control_test::pixelsOf(form);
            int differing = 0;
            for (int y = 0; y < shown.height; ++y) {
                for (int x = 0; x < shown.width; ++x) {
                    // The lines are diagonals x + y = W + H - c.
                    const int c = shown.width + shown.height - x - y;
                    const bool grey = c == 3 || c == 4 || c == 7 || c == 8 || c == 11 || c == 12,
                               white = c == 5 || c == 9 || c == 13;
                    const unsigned expected = sizable && grey    ? 0x808080
                                              : sizable && white ? 0xFFFFFF
                                                                 : GetSysColor(COLOR_3DFACE);
                    differing += (shown.at(x, y) & 0xFFFFFF) != expected;
                }
            }
            EXPECT_EQ(differing, 0);
        }
    }
}

TEST_F(DialogFrame, FollowsTheResolutionWithoutGrowing)
{
    Form form(titled(kTitle, kSizable | DS_SETFONT).item(1, L"EDIT").item(2, L"BUTTON").item(3, L"COMBOBOX", CBS_DROPDOWN));
    form.open();
    const auto placeOf = [&](int id) {
        CRect place = rectOf(*form.GetDlgItem(id));
        form.ScreenToClient(&place);
        return place;
    };
    const auto fontHeight = [&] {
        LOGFONTW font = {};
        GetObjectW(reinterpret_cast<HFONT>(form.GetDlgItem(1)->SendMessage(WM_GETFONT)), sizeof font, &font);
        return std::abs(font.lfHeight);
    };
    const auto change = [&](int dpi) {
        RECT place = {100, 50, 100 + 3 * dpi, 50 + 2 * dpi};
        form.SendMessage(WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
        EXPECT_EQ(rectOf(form), CRect(place));
    };
    const CRect first[] = {placeOf(1), placeOf(2), placeOf(3)};
    const int font = fontHeight();
    ASSERT_GT(font, 8);
    for (int round = 0; round < 20; ++round) {
        for (const int dpi : {120, 144, 97, 96}) {
            change(dpi);
            for (int i = 0; i < 2; ++i) {
                const CRect& own = first[i];
                const auto scaled = [&](int value) { return MulDiv(value, dpi, 96); };
                ASSERT_EQ(placeOf(i + 1),
                          CRect(scaled(own.left), scaled(own.top), scaled(own.right), scaled(own.bottom)));
            }
            ASSERT_EQ(placeOf(3).TopLeft(), CPoint(MulDiv(first[2].left, dpi, 96), MulDiv(first[2].top, dpi, 96)));
            ASSERT_EQ(fontHeight(), MulDiv(font, dpi, 96));
        }
    }
    EXPECT_EQ(placeOf(3).Width(), first[2].Width());
    change(192);
    form.GetDlgItem(1)->MoveWindow(10, 20, 30, 40);
    change(96);
    EXPECT_EQ(placeOf(1), CRect(5, 10, 20, 30)) << "from where it was moved";
}

} // namespace
