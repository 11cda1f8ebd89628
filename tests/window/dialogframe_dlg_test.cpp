// Dialogs in real windows.
#include "core/platform/outside.h"
#include "window/control_fixture.h"
#include "window/dialog_test.h"

#include <array>
#include <winternl.h>

namespace
{

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU, kSizable = kStyle | WS_THICKFRAME;
constexpr wchar_t kTitle[] = L"VekTest dialog";
const std::wstring kEndless(100000, L'x');

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

class Derived : public Form
{
    DECLARE_DYNAMIC(Derived)
public:
    using Form::Form;
};

IMPLEMENT_DYNAMIC(Derived, CVekDlg)

class DialogFrame : public DialogTest
{
protected:
    DialogFrame()
    {
        CVekDlg::SetMsgCallBack(&tell);
        forget();
    }
    ~DialogFrame() override { forget(); }
    static void forget() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\OSTWERK\\VEK\\Dialogs"); }
    static Template source(DWORD style = kStyle, const wchar_t* title = kTitle, short at = 10)
    {
        return Template(style, at, at, title);
    }
};

TEST_F(DialogFrame, OpensWhereItWasClosed)
{
    const CPoint edge = placeOf(::GetDesktopWindow()).BottomRight();
    const struct {
        std::wstring title;
        DWORD style;
        CRect moved;   ///< before it is closed
        CPoint opened; ///< where the next one opens; negative for where the template says
        bool remembers = true;
    } cases[] = {
        {kTitle, kStyle, {40, 60, 340, 260}, {40, 60}},
        {kTitle, kSizable, {-50, -20, 350, 280}, {0, 0}},
        {kTitle, kSizable, CRect(-100, -30, 300, 200) + edge, edge - CSize(400, 230)},
        {kTitle, WS_POPUP | WS_THICKFRAME, {30, 20, 230, 220}, {30, 20}},
        {L"VekTest\\with\\levels", kStyle, {90, 95, 300, 300}, {90, 95}},
        {L"", kStyle, {40, 60, 340, 260}, {-1, -1}},
        {kTitle, kStyle, {40, 60, 340, 260}, {-1, -1}, false},
        {std::wstring(300, L'r'), kStyle, {40, 60, 340, 260}, {-1, -1}}, // the registry takes no key of this length
    };
    for (const auto& each : cases) {
        forget();
        CRect first;
        for (int round = 0; round < 3; ++round) {
            Form it(source(each.style, each.title.c_str()));
            it.SavePosition(each.remembers);
            it.open();
            const bool isKnown = round > 0 && each.opened.x >= 0, isSizable = (each.style & WS_THICKFRAME) != 0;
            first = round == 0 ? placeOf(it) : first;
            EXPECT_EQ(placeOf(it).TopLeft(), isKnown ? each.opened : first.TopLeft());
            EXPECT_EQ(placeOf(it).Size(), isKnown && isSizable ? each.moved.Size() : first.Size());
            RECT stored = {};
            EXPECT_EQ(it.getSavedPos(stored), isKnown);
            it.MoveWindow(each.moved);
            if (round == 1)
                it.ShowWindow(SW_SHOWMINIMIZED); // stores where it would return to
            it.DestroyWindow();
        }
    }
    forget();
    CRect area;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    Form centred(source(kStyle, kTitle, 0)), distant(source());
    centred.open();
    const CPoint off = placeOf(centred).CenterPoint() - area.CenterPoint();
    EXPECT_LE(std::max(std::abs(off.x), std::abs(off.y)), 1) << "without a stored place";
    centred.DestroyWindow();
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, VEK::dlgPositionKey(kTitle) + L"\\lasting", 0, nullptr, 0, KEY_WRITE,
                              nullptr, &key, nullptr),
              static_cast<LSTATUS>(ERROR_CHILD_MUST_BE_VOLATILE));
    ASSERT_TRUE(VEK::dlgPositionWrite({5000 | 4000ul << 16, 1 | 1ul << 16}, kTitle)); // on a larger desktop
    distant.open();
    EXPECT_EQ(placeOf(distant).TopLeft(), CPoint(5000, 4000));
}

TEST_F(DialogFrame, FollowsItsLanguage)
{
    Template texts = source();
    for (WORD id = 1; id < 4; ++id)
        texts.item(id, L"STATIC", 0, L"template");
    Derived form(texts);
    form.fill = [](Form& f) {
        f.m_mapLangKey[1] = L"ONE", f.m_mapLangDef[1] = L"eins";
        f.m_mapLangKey[2] = L"TWO";
        f.m_mapLangKey[3] = L"NULL", f.m_mapLangDef[3] = L"drei";
        f.m_mapLangKey[4] = L"GONE";
    };
    form.open();
    EXPECT_STREQ(form.country(), L"de") << "the process's";
    EXPECT_EQ(form.textOf(1), L"ONE/eins/de");
    EXPECT_EQ(form.textOf(2), L"TWO/TWO/-/de/de") << "its own text comes from the key";
    EXPECT_EQ(form.textOf(3), L"template");
    BYTE& isDebugged = NtCurrentTeb()->ProcessEnvironmentBlock->BeingDebugged;
    isDebugged = TRUE;
    user.box(L"\nSetDlgItemText failed:\nDlgID = 4\nKEY = 'GONE'");
    form.SetCountry(L"pl");
    isDebugged = FALSE;
    EXPECT_EQ(form.textOf(1), L"ONE/[eins]/pl");
    user.box(L"");
    EXPECT_EQ(form.MessageBoxW(nullptr, L"mine", MB_OK), IDOK);
    EXPECT_STREQ(VEK::msgBoxTitle(nullptr), user.lastCaption.c_str());
    form.SetDlgItemText(1, L"mine");
    form.SetCountry(L"pl");
    EXPECT_EQ(form.textOf(1), L"mine") << "no refresh";
    form.SetCountry(nullptr);
    EXPECT_EQ(form.textOf(1), L"ONE/eins/");
    form.SetCountry(L"fr");
    EXPECT_EQ(form.updates, 4);
    EXPECT_STREQ(form.GetMsg(L"K", nullptr, nullptr), L"K/-/fr");
    EXPECT_STREQ(form.GetMsg(L"K", L"k", L"cs"), L"K/k/cs");

    Form same(texts, &form);
    Derived below(texts, &same);
    same.open(&form);
    EXPECT_STREQ(same.country(), L"fr") << "the parent is of a derived class";
    same.SetCountry(L"sk");
    below.open(&same);
    EXPECT_STREQ(below.country(), L"fr") << "past a dialog of another class";
    form.SetCountry(L"en");
    EXPECT_STREQ(below.country(), L"fr") << "nothing is passed on later";
    same.m_mapLangKey[1] = kEndless.c_str(), same.m_mapLangDef[1] = nullptr;
    EXPECT_TRUE(same.updLang());
    EXPECT_EQ(same.textOf(1), (kEndless + L"//sk").c_str());
    const wchar_t* const links[][3] = {{L"text", L"http://a", L"<a href=\"http://a\">text</a>"},
                                       {L"text", nullptr, L"text"},
                                       {nullptr, L"", L"<a href=\"\"></a>"}};
    for (const auto& [text, target, link] : links) {
        same.setLink(2, text, target);
        EXPECT_EQ(same.textOf(2), link);
    }
    CVekDlg::SetMsgCallBack(nullptr);
    EXPECT_FALSE(form.updLang());
    EXPECT_STREQ(form.GetMsg(L"K", L"k", L"cs"), L"k");
    CVekDlg::SetMsgCallBack(&tell);
    form.DestroyWindow();
    EXPECT_FALSE(form.updLang());
}

/// A field that counts how often it loses the focus.
struct Field : CEdit {
    int left = 0;
    LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override
    {
        left += message == WM_KILLFOCUS;
        return CEdit::WindowProc(message, w, l);
    }
};

TEST_F(DialogFrame, LeadsReturnAndPageUpThroughItsFields)
{
    Template form = source(kStyle | WS_VISIBLE);
    form.item(1, L"BUTTON").item(2, L"EDIT").item(3, L"EDIT", WS_DISABLED).item(5, L"COMBOBOX", CBS_DROPDOWNLIST);
    form.item(6, L"COMBOBOX", CBS_DROPDOWN).item(7, L"EDIT", ES_MULTILINE | ES_WANTRETURN);
    form.item(8, L"COMBOBOX", CBS_SIMPLE).item(12, L"EDIT").item(10, L"STATIC");
    Form it(form);
    it.open();
    Field fields[4];
    CComboBox boxes[3];
    for (unsigned i = 0; i < 4; ++i)
        ASSERT_TRUE(fields[i].SubclassDlgItem(std::array{2u, 3u, 7u, 12u}[i], &it));
    for (unsigned i = 0; i < 3; ++i)
        ASSERT_TRUE(boxes[i].SubclassDlgItem(std::array{5u, 6u, 8u}[i], &it));
    /// The control to which a key leads, negative if the key went on to the toolkit.
    const auto press = [&](int from, WPARAM key) {
        it.GetDlgItem(from)->SetFocus();
        MSG message = {::GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
        const bool isHandled = it.PreTranslateMessage(&message);
        const HWND at = ::GetFocus(), control = ::GetParent(at) == it.m_hWnd ? at : ::GetParent(at);
        return (isHandled ? 1 : -1) * ::GetDlgCtrlID(control);
    };
    EXPECT_EQ(press(2, VK_RETURN), 6) << "past what is no field";
    EXPECT_EQ(press(6, VK_RETURN), 7);
    EXPECT_EQ(press(12, VK_RETURN), 2) << "a window behind it, so around";
    EXPECT_EQ(press(6, VK_PRIOR), 2);
    EXPECT_NE(std::abs(press(7, VK_PRIOR)), 2) << "a field that wants Return keeps its keys";
    ::DestroyWindow(::GetDlgItem(it, 10));
    fields[3].left = 0;
    EXPECT_EQ(press(12, VK_RETURN), 12) << "the last one checks itself and stays";
    EXPECT_EQ(fields[3].left, 1);
    ::DestroyWindow(::GetDlgItem(it, 1));
    EXPECT_EQ(press(2, VK_PRIOR), 2) << "the first one swallows the key";

    struct Tabs : CTabCtrl {
        std::vector<WPARAM> keys;
        BOOL PreTranslateMessage(MSG* message) override { return keys.push_back(message->wParam), 7; }
    } tabs;
    ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 200, 150), &it, 20));
    Form page(Template(WS_CHILD | WS_VISIBLE).item(2, L"EDIT", WS_TABSTOP).item(3, L"EDIT", WS_TABSTOP));
    page.open(&tabs);
    for (const int down : {0, 1, 2, 3}) { // Ctrl, Tab
        BYTE held[256] = {};
        held[VK_CONTROL] = down & 1 ? 0x80 : 0;
        held[VK_TAB] = down & 2 ? 0x80 : 0;
        ::SetKeyboardState(held);
        for (const WPARAM key : {VK_RETURN, VK_TAB}) {
            page.GetDlgItem(2)->SetFocus();
            MSG message = {::GetFocus(), WM_KEYDOWN, key, 0, 0, {}};
            EXPECT_EQ(page.PreTranslateMessage(&message) == 7, down == 3 || key == VK_RETURN) << down;
        }
    }
    ::SetKeyboardState(std::array<BYTE, 256>().data());
    EXPECT_EQ(tabs.keys, (std::vector<WPARAM>{VK_RETURN, VK_RETURN, VK_RETURN, VK_RETURN, VK_TAB}));
}

TEST_F(DialogFrame, ShowsTipsAndHelp)
{
    using VEK::platform::OutsideCall;
    std::vector<OutsideCall> calls;
    const auto before =
        VEK::platform::outsideHookSet([&](const OutsideCall& call) { return calls.push_back(call), true; });
    Form form(source().item(1, L"STATIC").item(2, L"STATIC").item(IDHELP, L"BUTTON"));
    form.fill = [](Form& f) {
        f.m_mapToolTipKey[1] = kEndless.c_str(), f.m_mapToolTipKey[2] = L"NULL";
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
    ASSERT_TRUE(tip(1, TTF_IDISHWND));
    EXPECT_EQ(request.lpszText, kEndless + L"/-/de");
    EXPECT_EQ(request.hinst, AfxGetResourceHandle());
    EXPECT_FALSE(tip(1, 0) || tip(2, TTF_IDISHWND) || tip(IDHELP, TTF_IDISHWND) || tip(99, TTF_IDISHWND));
    form.ShowWindow(SW_SHOW);
    const CPoint middle = placeOf(*form.GetDlgItem(1)).CenterPoint();
    MSG over = {form, WM_MOUSEMOVE, 0, 0, 0, middle};
    form.PreTranslateMessage(&over);
    EXPECT_NE(::FindWindowW(TOOLTIPS_CLASSW, nullptr), nullptr);

    const auto f1 = [&](int id) {
        HELPINFO info = {sizeof info, HELPINFO_WINDOW, id, ::GetDlgItem(form, id), 0, {-5, 6}};
        return form.SendMessage(WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
    };
    EXPECT_TRUE(f1(1) && f1(2) && f1(3) && f1(77) && f1(0)) << "always handled";
    OutsideCall popup = {OutsideCall::What::helpPopup, L"", L"HELP/-/de"}, other = popup, title = popup;
    popup.x = middle.x, popup.y = middle.y;
    other.text = L"FAR/-/de", other.x = -5, other.y = 6, title = other, title.text = L"/-/de";
    EXPECT_EQ(std::exchange(calls, {}), (std::vector<OutsideCall>{popup, other, title}));
    CVekDlg::SetMsgCallBack(nullptr);
    EXPECT_TRUE(f1(1) && !tip(1, TTF_IDISHWND) && calls.empty());

    /// The help file, and the button: shown and enabled, grey or hidden.
    const auto help = [&] {
        CString path;
        form.GetHelpFile(path);
        CWnd& button = *form.GetDlgItem(IDHELP);
        return path + (!button.IsWindowVisible() ? L" hidden" : button.IsWindowEnabled() ? L" enabled" : L" grey");
    };
    EXPECT_EQ(help(), L" grey");
    form.SetHelpFile(L"https://a.b/<topic>.html");
    EXPECT_EQ(help(), L"https://a.b/<topic>.html enabled");
    form.Help(L"x~");
    EXPECT_EQ(std::exchange(calls, {}),
              (std::vector<OutsideCall>{{OutsideCall::What::document, L"https://a.b/xVEK.html"}}));
    form.SetHelpFile(nullptr);
    EXPECT_EQ(help(), L" hidden");
    form.SetHelpTopic(L"intro");
    for (const bool chosen : {false, true}) {
        user.file([&](OPENFILENAMEW& asked, bool save) {
            EXPECT_TRUE(!save && asked.hwndOwner == form.m_hWnd && (asked.Flags & OFN_FILEMUSTEXIST));
            EXPECT_STREQ(asked.lpstrDefExt, L"chm");
            EXPECT_STREQ(asked.lpstrFilter, L"(*.chm)");
            return chosen && lstrcpyW(asked.lpstrFile, L"D:\\x\\book.chm");
        });
        form.Help(chosen ? nullptr : L"topic");
        EXPECT_TRUE(chosen || (calls.empty() && help() == L" hidden")) << "cancelled";
    }
    EXPECT_EQ(calls, (std::vector<OutsideCall>{{OutsideCall::What::helpTopic, L"D:\\x\\book.chm"},
                                               {OutsideCall::What::helpKeyword, L"D:\\x\\book.chm", L"intro"}}));
    EXPECT_EQ(help(), L"D:\\x\\book.chm enabled") << "the choice lasts";
    VEK::platform::outsideHookSet(before);
}

TEST_F(DialogFrame, DrawsItsGripper)
{
    for (const DWORD style : {kStyle, kSizable}) {
        Form form(source(style | WS_VISIBLE));
        form.open();
        for (const int grow : {0, 60}) { // the old gripper is gone
            const CRect rect = placeOf(form);
            form.SetWindowPos(nullptr, 0, 0, rect.Width() + grow, rect.Height() + grow, SWP_NOMOVE | SWP_NOZORDER);
            form.UpdateWindow();
            const VEK::CPixels shown = control_test::pixelsOf(form);
            int differing = 0;
            for (int i = 0; i < shown.width * shown.height; ++i) {
                const int x = i % shown.width, y = i / shown.width;
                // Diagonals, from the corner on: grey, grey, white and a gap, three times.
                const int line = style == kSizable ? shown.width + shown.height - x - y - 3 : -1;
                const unsigned expected = line < 0 || line > 10 || line % 4 == 3 ? GetSysColor(COLOR_3DFACE)
                                          : line % 4 == 2                        ? 0xFFFFFF
                                                                                 : 0x808080;
                differing += (shown.at(x, y) & 0xFFFFFF) != expected;
            }
            EXPECT_EQ(differing, 0);
        }
    }
}

TEST_F(DialogFrame, FollowsTheResolutionWithoutGrowing)
{
    Form form(source(kSizable | DS_SETFONT).item(1, L"EDIT").item(2, L"BUTTON").item(3, L"COMBOBOX", CBS_DROPDOWN));
    form.open();
    const auto place = [&](int id) { return placeOf(*form.GetDlgItem(id), form); };
    const auto change = [&](int dpi) { changeResolution(form, dpi, {100, 50, 100 + 3 * dpi, 50 + 2 * dpi}); };
    const CRect first[] = {place(1), place(2), place(3)};
    const int font = fontHeightOf(*form.GetDlgItem(1));
    ASSERT_GT(font, 8);
    for (unsigned i = 0; i < 60; ++i) {
        const int dpi = std::array{120, 144, 97, 192, 96}[i % 5];
        const auto scaled = [&](int value) { return MulDiv(value, dpi, 96); };
        change(dpi);
        for (int id = 1; id < 4; ++id) { // the height of a combo box is that of its font
            const CRect& own = first[id - 1];
            const int bottom = id == 3 ? place(3).bottom : scaled(own.bottom);
            ASSERT_EQ(place(id), CRect(scaled(own.left), scaled(own.top), scaled(own.right), bottom)) << dpi;
        }
        ASSERT_EQ(fontHeightOf(*form.GetDlgItem(1)), scaled(font));
    }
    EXPECT_EQ(place(3), first[2]);
    change(192);
    form.GetDlgItem(1)->MoveWindow(10, 20, 30, 40);
    change(96);
    EXPECT_EQ(place(1), CRect(5, 10, 20, 30)) << "from where it was moved";
    form.onMessage = [&](UINT message) {
        if (message == WM_SIZE)
            form.GetDlgItem(2)->MoveWindow(1, 2, 3, 4);
    };
    change(192);
    EXPECT_EQ(place(2), CRect(1, 2, 4, 6)) << "a dialog that arranges it itself";
}

} // namespace
