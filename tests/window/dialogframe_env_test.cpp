// What surrounds dialogs in real windows: stack, environment, files, the information box, ends at any time.
#include "dialogframe/window/exchange_text.h"
#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <vek/data.h>
#include <vek/dialogframe.h>
#include <vek/host.h>

#include <ole2.h>
#include <shlobj.h>

namespace
{

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;

/// A field that tells its parent of everything. It is no edit control of the system: Wine's do not bear that their
/// parent ends meanwhile.
class Teller : public CEdit
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const HWND parent = ::GetParent(m_hWnd);
        const LRESULT result = CEdit::WindowProc(message, wParam, lParam);
        if (message == WM_SETTEXT || message == WM_SETFOCUS || message == WM_KILLFOCUS || message == WM_SETFONT)
            ::SendMessageW(parent, WM_COMMAND, MAKEWPARAM(50, message), 0);
        return result; // the object may be gone
    }
};

/// A dialog that can delete itself at a message.
class Mortal : public CVekDlg
{
public:
    explicit Mortal(const Template& source, CWnd* parent = nullptr) : CVekDlg(0, parent), m_source(source)
    {
        InitModalIndirect(m_source.get(), parent);
    }

    UINT endsAt = 0;
    bool* deleted = nullptr; ///< the object is on the heap and deletes itself with its window

    BOOL OnInitDialog() override
    {
        m_tellers[0].SubclassDlgItem(1, this);
        m_tellers[1].SubclassDlgItem(2, this);
        return CVekDlg::OnInitDialog();
    }
    void addLangRsc() override { m_mapLangKey[1] = L"ONE", m_mapLangKey[2] = L"TWO", m_mapLangKey[3] = L"THREE"; }
    void addToolTipRsc() override { m_mapToolTipKey[1] = L"TIP"; }
    LPCDLGTEMPLATE source() const { return m_source.get(); }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == endsAt && m_hWnd) {
            endsAt = 0;
            DestroyWindow();
            return 0;
        }
        return CVekDlg::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override
    {
        if (deleted) {
            *deleted = true;
            delete this;
        }
    }

private:
    Template m_source;
    Teller m_tellers[2];
};

class DialogSurroundings : public testing::Test
{
protected:
    DialogSurroundings() : m_before(CVekDlg::SetMsgCallBack(&VEK::msgCallBack)) {}
    ~DialogSurroundings() override
    {
        CVekDlg::SetMsgCallBack(m_before);
        EXPECT_EQ(VEK::dlgStackPop(), nullptr) << "a dialog is still on the stack";
    }
    static Template form()
    {
        return Template(kStyle, 10, 10, L"").item(1, L"STATIC").item(2, L"STATIC").item(3, L"BUTTON", WS_TABSTOP);
    }

    ModalQueue user;

private:
    CVekDlg::MsgFcn m_before;
};

TEST_F(DialogSurroundings, FindTheirParentByTheStack)
{
    EXPECT_EQ(VEK::DlgEnv_st().parent, ::GetActiveWindow());
    EXPECT_EQ(VEK::DlgEnv_st().parentWnd(), CWnd::GetActiveWindow());
    VEK::msgLangSet(L"pl");
    CVekLocalApp host;
    host.defaultUnitSet(4);
    CVekApp* const before = vekAppSet(&host);
    Mortal outer(form()), child(Template(WS_CHILD)), inner(form());
    EXPECT_FALSE(outer.isSubDlg());
    user.dialog<Mortal>([&](Mortal& o) {
        for (int again = 0; again < 2; ++again) { // the stack stays as it was
            const VEK::DlgEnv_st found, copy(found);
            EXPECT_EQ(copy.parent, o.m_hWnd);
            EXPECT_EQ(copy.parentWnd(), &o);
            EXPECT_STREQ(copy.country, L"pl");
            EXPECT_EQ(copy.unit, 4);
            EXPECT_TRUE(copy.helpFile.isNull() && copy.helpTopic.isNull());
        }
        ASSERT_TRUE(child.CreateIndirect(child.source(), &o));
        EXPECT_EQ(VEK::DlgEnv_st().parent, o.m_hWnd) << "a page is not on the stack";
        Mortal sub(form(), &o);
        EXPECT_TRUE(sub.isSubDlg());
        user.dialog<Mortal>([&](Mortal& s) {
            EXPECT_EQ(VEK::DlgEnv_st().parent, s.m_hWnd);
            s.EndDialog(5);
        });
        EXPECT_EQ(sub.DoModal(), 5);
        EXPECT_EQ(VEK::DlgEnv_st().parent, o.m_hWnd);
        user.dialog<Mortal>([&](Mortal& s) { s.GetParent()->DestroyWindow(); });
        EXPECT_EQ(inner.isSubDlg(), false) << "made before";
        Mortal orphan(form(), &o);
        EXPECT_EQ(orphan.DoModal(), -1) << "its parent dies under it";
    });
    EXPECT_EQ(outer.DoModal(), -1);
    EXPECT_EQ(VEK::dlgStackPop(), nullptr);
    {
        Mortal dropped(form());
        ASSERT_TRUE(dropped.CreateIndirect(dropped.source(), nullptr));
    }
    EXPECT_EQ(VEK::dlgStackPop(), nullptr) << "an object that goes takes its window along";
    CVekDlg missing(31234, nullptr);
    EXPECT_EQ(missing.DoModal(), -1) << "no such template";
    vekAppSet(before);
    VEK::msgLangSet(L"de");
}

TEST_F(DialogSurroundings, BearDialogsThatEndThemselves)
{
    const UINT messages[] = {WM_INITDIALOG, WM_SIZE,      WM_SHOWWINDOW, WM_PAINT,        WM_HELP,
                             WM_NOTIFY,     WM_COMMAND,   WM_DPICHANGED, WM_SETTEXT,      WM_GETFONT,
                             WM_ERASEBKGND, WM_KILLFOCUS, WM_SETFOCUS,   WM_CTLCOLOREDIT, WM_WINDOWPOSCHANGED};
    int ended = 0;
    for (const UINT message : messages) {
        for (const bool early : {true, false}) {
            bool deleted = false;
            auto* const dialog = new Mortal(form());
            dialog->deleted = &deleted;
            dialog->endsAt = early ? message : 0;
            dialog->CreateIndirect(dialog->source(), nullptr);
            const auto press = [&](int id, WPARAM key) {
                const HWND field = ::GetDlgItem(*dialog, id);
                ::SetFocus(field);
                MSG down = {field, WM_KEYDOWN, key, 0, 0, {}};
                if (!deleted)
                    dialog->PreTranslateMessage(&down);
            };
            RECT place = {10, 10, 400, 300};
            HELPINFO info = {sizeof info, HELPINFO_WINDOW, 1, nullptr, 0, {}};
            NMTTDISPINFOW request = {};
            request.uFlags = TTF_IDISHWND;
            const std::function<void()> actions[] = {
                [&] { dialog->endsAt = message, dialog->ShowWindow(SW_SHOW); },
                [&] { dialog->UpdateWindow(); },
                [&] { dialog->SetCountry(L"fr"); },
                [&] { dialog->SendMessage(WM_DPICHANGED, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&place)); },
                [&] { dialog->SendMessage(WM_HELP, 0, reinterpret_cast<LPARAM>(&info)); },
                [&] { dialog->SetHelpFile(nullptr); },
                [&] { press(1, VK_RETURN); },
                [&] { press(2, VK_PRIOR); },
                [&] {
                    request.hdr = {::GetDlgItem(*dialog, 2), reinterpret_cast<UINT_PTR>(::GetDlgItem(*dialog, 1)),
                                   TTN_NEEDTEXTW};
                    dialog->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&request));
                },
            };
            for (const auto& action : actions) {
                if (!deleted)
                    action();
            }
            ended += deleted;
            if (!deleted)
                dialog->endsAt = 0, dialog->DestroyWindow();
            EXPECT_TRUE(deleted) << message << (early ? " early" : "");
        }
    }
    EXPECT_GE(ended, 20) << "at these messages";
}

TEST_F(DialogSurroundings, ChooseFilesAndFolders)
{
    Mortal owner(form());
    ASSERT_TRUE(owner.CreateIndirect(owner.source(), nullptr));
    CVekFileDialog dialog(FALSE, L"sld", L"a.sld", OFN_ENABLEHOOK | OFN_FILEMUSTEXIST, L"(*.sld)|*.sld||", &owner);
    dialog.SetTitle(L"title");
    for (const bool chosen : {true, false}) {
        user.file([&](OPENFILENAMEW& request, bool save) {
            EXPECT_FALSE(save) << "it always opens";
            EXPECT_EQ(request.Flags & (OFN_ENABLEHOOK | OFN_FILEMUSTEXIST), static_cast<DWORD>(OFN_FILEMUSTEXIST));
            EXPECT_EQ(request.hwndOwner, owner.m_hWnd);
            EXPECT_STREQ(request.lpstrTitle, L"title");
            EXPECT_STREQ(request.lpstrFile, L"a.sld");
            return chosen;
        });
        EXPECT_EQ(dialog.DoModal(), chosen ? IDOK : IDCANCEL);
    }

    const auto ask = [&](CVekString path, const wchar_t* start, const wchar_t* answer) {
        user.folder([&](BROWSEINFOW& request) -> LPITEMIDLIST {
            EXPECT_EQ(request.ulFlags, 81u);
            EXPECT_EQ(request.hwndOwner, owner.m_hWnd);
            EXPECT_STREQ(reinterpret_cast<const wchar_t*>(request.lParam), start);
            EXPECT_EQ(request.lpfn(owner, BFFM_INITIALIZED, 0, request.lParam), 0);
            wcscpy(request.pszDisplayName, L"what the dialog left");
            return answer ? ILCreateFromPathW(answer) : nullptr;
        });
        const bool chosen = VEK::dlgFolder(owner, path, L"title");
        EXPECT_EQ(chosen, answer != nullptr);
        return path;
    };
    EXPECT_STREQ(ask(L"C:/windows/", L"C:\\windows", L"C:\\windows"), L"C:\\windows\\");
    EXPECT_STREQ(ask(L"C:", L"C:\\", L"C:\\"), L"C:\\");
    EXPECT_STREQ(ask(L"", L"", nullptr), L"what the dialog left");
    EXPECT_STREQ(ask(std::wstring(100000, L'd').c_str(), std::wstring(100000, L'd').c_str(), L"C:\\windows"),
                 L"C:\\windows\\");
}

/// A window that takes files.
class Target : public CWnd, public IDropTarget
{
public:
    std::vector<std::wstring> files;
    bool accepts = true;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        *object = static_cast<IDropTarget*>(this);
        return IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropTarget) ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) override { return answer(effect); }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override { return answer(effect); }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override
    {
        FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        STGMEDIUM medium = {};
        if (SUCCEEDED(data->GetData(&format, &medium))) {
            const auto drop = static_cast<HDROP>(medium.hGlobal);
            wchar_t path[MAX_PATH] = L"";
            for (UINT i = 0; i < DragQueryFileW(drop, ~0u, nullptr, 0); ++i)
                files.emplace_back(path, DragQueryFileW(drop, i, path, MAX_PATH));
            EXPECT_EQ(GlobalSize(medium.hGlobal), 24 + 2 * files.at(0).size());
            ::ReleaseStgMedium(&medium);
        }
        return answer(effect);
    }

private:
    HRESULT answer(DWORD* effect)
    {
        *effect = accepts ? DROPEFFECT_COPY : DROPEFFECT_NONE;
        return S_OK;
    }
};

/// Drops at once where the pointer is.
class Dropping : public COleDropSource
{
public:
    BOOL OnBeginDrag(CWnd*) override { return TRUE; }
    SCODE QueryContinueDrag(BOOL, DWORD) override { return ++asked > 2 ? DRAGDROP_S_DROP : S_OK; }
    int asked = 0;
};

TEST_F(DialogSurroundings, DragAFileIntoAnotherWindow)
{
    ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
    wchar_t folder[MAX_PATH] = L"";
    ::GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"Maß.sld";
    ::CloseHandle(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    Mortal from(form());
    ASSERT_TRUE(from.CreateIndirect(from.source(), nullptr));
    Target target;
    ASSERT_TRUE(target.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(400, 300, 600, 400), nullptr, 0));
    ASSERT_EQ(::RegisterDragDrop(target, &target), S_OK);
    ::SetCursorPos(500, 350);
    const RECT start = {0, 0, 1, 1};
    for (const bool accepts : {true, false}) {
        Dropping source;
        target.accepts = accepts;
        from.PostMessage(WM_MOUSEMOVE);
        EXPECT_EQ(VEK::DoDragDrop(path.c_str(), DROPEFFECT_COPY, &start, &source), accepts);
        EXPECT_GT(source.asked, 2);
    }
    EXPECT_EQ(target.files, std::vector<std::wstring>{path});
    ::RevokeDragDrop(target);
    ::DeleteFileW(path.c_str());
    EXPECT_FALSE(VEK::DoDragDrop(path.c_str(), DROPEFFECT_COPY, &start, nullptr)) << "it is gone";
    EXPECT_FALSE(VEK::DoDragDrop(nullptr, DROPEFFECT_COPY, nullptr, nullptr));
    EXPECT_FALSE(VEK::DoDragDrop(std::wstring(100000, L'd').c_str(), DROPEFFECT_COPY, nullptr, nullptr));
    ::OleUninitialize();
}

TEST_F(DialogSurroundings, NameTheirControlsForScreenReaders)
{
    Template source(kStyle | WS_VISIBLE, 10, 10, L"Maße");
    source.item(0xFFFF, L"STATIC", 0, L"&Breite")
        .item(10, L"EDIT", WS_TABSTOP)
        .item(11, L"BUTTON", WS_TABSTOP, L"&Fertig");
    Mortal dialog(source);
    ASSERT_TRUE(dialog.CreateIndirect(dialog.source(), nullptr));
    EXPECT_EQ(nameOf(dialog), L"Maße");
    EXPECT_EQ(nameOf(::GetDlgItem(dialog, 11)), L"Fertig");
    EXPECT_EQ(nameOf(::GetDlgItem(dialog, 10)), L"Breite");
}

TEST_F(DialogSurroundings, HaveTheLibrarysIconAndInformationBox)
{
    EXPECT_EQ(VEK::appIcon(), ::LoadIconW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(2000)));
    EXPECT_NE(VEK::appIcon(), nullptr);
    CAboutboxDlg box;
    user.dialog<CAboutboxDlg>([](CAboutboxDlg& it) {
        EXPECT_EQ(it.GetIcon(TRUE), VEK::appIcon());
        EXPECT_EQ(it.GetIcon(FALSE), VEK::appIcon());
        CString title, ok;
        it.GetWindowText(title);
        EXPECT_EQ(title, L"Info über VEK");
        EXPECT_GT(it.GetDlgItemText(IDOK, ok), 0);
        it.PostMessage(WM_COMMAND, IDOK);
    });
    EXPECT_EQ(box.DoModal(), IDOK);
}

TEST_F(DialogSurroundings, TellOfInvalidValuesInTheUsersLanguage)
{
    VEK::CCfgBackup backup(true);
    backup.attach(L"*MSG*");
    VEK::dataSet(VEK::cfg_dir_make(L"*MSG*\\VEK_\\pl"), L"VEK_DDX_0003", L"Wpisz od %1 do %2");
    const CVekString language = VEK::msgLangSet(L"pl");
    EXPECT_STREQ(VEK::exchangeText(AFX_IDP_PARSE_INT_RANGE, L""), L"Wpisz od %1 do %2.");
    EXPECT_STREQ(VEK::exchangeText(AFX_IDP_PARSE_INT, L""), L"Bitte geben Sie eine ganze Zahl ein.");
    int known = 0;
    for (UINT id = AFX_IDP_PARSE_INT - 1; id <= AFX_IDP_PARSE_UINT + 1; ++id)
        known += VEK::exchangeText(id, L"") != nullptr;
    EXPECT_EQ(known, 7);
    CVekDlg::SetMsgCallBack(nullptr);
    EXPECT_EQ(VEK::exchangeText(AFX_IDP_PARSE_INT, L""), nullptr);
    VEK::msgLangSet(language);
}

} // namespace
