// What surrounds dialogs in real windows: stack, environment, files, the information box, ends at any time.
#include "dialogframe/window/exchange_text.h"
#include "window/dialog_test.h"

#include <filesystem>
#include <fstream>
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
class Mortal : public Form
{
public:
    explicit Mortal(const Template& source, bool* flag = nullptr) : Form(source), m_deleted(flag)
    {
        fill = [](Form& form) {
            form.m_mapLangKey[1] = L"ONE", form.m_mapLangKey[2] = L"TWO", form.m_mapLangKey[3] = L"THREE";
            form.m_mapToolTipKey[1] = L"TIP";
        };
    }

    UINT endsAt = 0;

    BOOL OnInitDialog() override
    {
        m_tellers[0].SubclassDlgItem(1, this);
        m_tellers[1].SubclassDlgItem(2, this);
        return Form::OnInitDialog();
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != endsAt || !m_hWnd)
            return Form::WindowProc(message, wParam, lParam);
        endsAt = 0;
        DestroyWindow();
        return 0;
    }
    void PostNcDestroy() override
    {
        if (m_deleted) {
            *m_deleted = true;
            delete this;
        }
    }

private:
    bool* m_deleted; ///< the object is on the heap and deletes itself with its window
    Teller m_tellers[2];
};

class DialogSurroundings : public DialogTest
{
protected:
    static Template form()
    {
        return Template(kStyle, 10, 10, L"").item(3, L"BUTTON", WS_TABSTOP).item(1, L"STATIC").item(2, L"STATIC");
    }
};

TEST_F(DialogSurroundings, FindTheirParentByTheStack)
{
    EXPECT_EQ(VEK::DlgEnv_st().parent, ::GetActiveWindow());
    EXPECT_EQ(VEK::DlgEnv_st().parentWnd(), CWnd::GetActiveWindow());
    VEK::msgLangSet(L"pl");
    CVekLocalApp host;
    host.defaultUnitSet(4);
    vekAppSet(&host);
    Form outer(form()), child(Template(WS_CHILD)), early(form());
    user.dialog<Form>([&](Form& o) {
        ASSERT_TRUE(child.open(&o));
        for (int again = 0; again < 2; ++again) { // the stack stays as it was, and a page is not on it
            const VEK::DlgEnv_st found, copy(found);
            EXPECT_TRUE(copy.parent == o.m_hWnd && copy.parentWnd() == &o && copy.unit == 4);
            EXPECT_STREQ(copy.country, L"pl");
            EXPECT_TRUE(copy.helpFile.isNull() && copy.helpTopic.isNull());
            child.DestroyWindow();
        }
        Form sub(form(), &o);
        EXPECT_TRUE(sub.isSubDlg() && !outer.isSubDlg() && !early.isSubDlg());
        user.dialog<Form>([&](Form& s) {
            EXPECT_EQ(VEK::DlgEnv_st().parent, s.m_hWnd);
            s.EndDialog(5);
        });
        EXPECT_EQ(sub.DoModal(), 5);
        EXPECT_EQ(VEK::DlgEnv_st().parent, o.m_hWnd);
        user.dialog<Form>([&](Form& s) { s.GetParent()->DestroyWindow(); });
        EXPECT_EQ(sub.DoModal(), -1) << "its parent dies under it";
    });
    EXPECT_EQ(outer.DoModal(), -1);
    EXPECT_EQ(VEK::dlgStackPop(), nullptr);
    Form(form()).open();
    EXPECT_EQ(VEK::dlgStackPop(), nullptr) << "an object that goes takes its window along";
    EXPECT_EQ(CVekDlg(31234, nullptr).DoModal(), -1) << "no such template";
}

TEST_F(DialogSurroundings, BearDialogsThatEndThemselves)
{
    const UINT messages[] = {WM_INITDIALOG, WM_SIZE,     WM_SHOWWINDOW,      WM_PAINT,   WM_HELP,
                             WM_NOTIFY,     WM_COMMAND,  WM_DPICHANGED,      WM_GETFONT, WM_CTLCOLORSTATIC,
                             WM_ERASEBKGND, WM_SETFOCUS, WM_WINDOWPOSCHANGED};
    for (const UINT message : messages) {
        for (const bool early : {true, false}) {
            bool deleted = false;
            auto* const dialog = new Mortal(form(), &deleted);
            dialog->endsAt = early ? message : 0;
            dialog->open();
            const auto press = [&](int id, WPARAM key) {
                const HWND field = ::GetDlgItem(*dialog, id);
                ::SetFocus(field);
                MSG down = {field, WM_KEYDOWN, key, 0, 0, {}};
                if (!deleted)
                    dialog->PreTranslateMessage(&down);
            };
            RECT place = {10, 10, 400, 300};
            HELPINFO info = {sizeof info, HELPINFO_WINDOW, 1, nullptr, 0, {}};
            NMTTDISPINFOW tip = {};
            tip.hdr.code = TTN_NEEDTEXTW;
            const std::function<void()> actions[] = {
                [&] { dialog->endsAt = message, dialog->ShowWindow(SW_SHOW); },
                [&] { dialog->UpdateWindow(); },
                [&] { dialog->SetCountry(L"fr"); },
                [&] { dialog->SendMessage(WM_DPICHANGED, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&place)); },
                [&] { dialog->SendMessage(WM_HELP, 0, reinterpret_cast<LPARAM>(&info)); },
                [&] { dialog->SetHelpFile(nullptr); },
                [&] { press(1, VK_RETURN); },
                [&] { press(2, VK_PRIOR); },
                [&] { press(2, VK_RETURN); },
                [&] { dialog->SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&tip)); },
            };
            for (const auto& action : actions) {
                if (!deleted)
                    action();
            }
            EXPECT_EQ(deleted, early || message != WM_INITDIALOG) << message << (early ? " early" : "");
            if (!deleted)
                dialog->endsAt = 0, dialog->DestroyWindow();
        }
    }
}

TEST_F(DialogSurroundings, ChooseFilesAndFolders)
{
    Form owner(form());
    ASSERT_TRUE(owner.open());
    CVekFileDialog dialog(FALSE, L"sld", L"a.sld", OFN_ENABLEHOOK | OFN_FILEMUSTEXIST, L"(*.sld)|*.sld||", &owner);
    dialog.SetTitle(L"title");
    for (const bool chosen : {true, false}) {
        user.file([&](OPENFILENAMEW& request, bool save) {
            EXPECT_TRUE(!save && request.hwndOwner == owner.m_hWnd) << "it always opens";
            EXPECT_EQ(request.Flags & (OFN_ENABLEHOOK | OFN_FILEMUSTEXIST), static_cast<DWORD>(OFN_FILEMUSTEXIST));
            EXPECT_EQ(std::wstring(request.lpstrTitle) + request.lpstrFile, L"titlea.sld");
            return chosen;
        });
        EXPECT_EQ(dialog.DoModal(), chosen ? IDOK : IDCANCEL);
    }
    const std::wstring endless(100000, L'd');
    const wchar_t* const rows[][4] = {// path, where the dialog starts, its answer and what comes of it
                                      {L"C:/windows/", L"C:\\windows", L"C:\\windows", L"C:\\windows\\"},
                                      {L"C:", L"C:\\", L"C:\\", L"C:\\"},
                                      {L"", L"", nullptr, L"what the dialog left"},
                                      {endless.c_str(), endless.c_str(), L"C:\\windows", L"C:\\windows\\"}};
    for (const auto& [given, start, answer, result] : rows) {
        user.folder([&](BROWSEINFOW& request) -> LPITEMIDLIST {
            EXPECT_TRUE(request.ulFlags == 81 && request.hwndOwner == owner.m_hWnd);
            EXPECT_STREQ(reinterpret_cast<const wchar_t*>(request.lParam), start);
            EXPECT_EQ(request.lpfn(owner, BFFM_INITIALIZED, 0, request.lParam), 0);
            wcscpy(request.pszDisplayName, L"what the dialog left");
            return answer ? ILCreateFromPathW(answer) : nullptr;
        });
        CVekString path = given;
        EXPECT_EQ(VEK::dlgFolder(owner, path, L"title"), answer != nullptr);
        EXPECT_STREQ(path, result);
    }
}

/// A window that takes files.
class Target : public CWnd, public IDropTarget
{
public:
    std::vector<std::wstring> files;
    DWORD effect = DROPEFFECT_COPY;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        *object = static_cast<IDropTarget*>(this);
        return IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDropTarget) ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD* it) override { return *it = effect, S_OK; }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* it) override { return *it = effect, S_OK; }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* it) override
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
        return *it = effect, S_OK;
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
    const std::filesystem::path path = std::filesystem::temp_directory_path() / L"Maß.sld";
    std::ofstream(path) << "x";
    Target target;
    ASSERT_TRUE(target.CreateEx(0, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(400, 300, 600, 400), nullptr, 0));
    ASSERT_EQ(::RegisterDragDrop(target, &target), S_OK);
    ::SetCursorPos(500, 350);
    const RECT start = {0, 0, 1, 1};
    for (const DWORD effect : {DROPEFFECT_COPY, DROPEFFECT_NONE}) {
        Dropping source;
        target.effect = effect;
        target.PostMessage(WM_MOUSEMOVE);
        EXPECT_EQ(VEK::DoDragDrop(path.c_str(), DROPEFFECT_COPY, &start, &source), effect != DROPEFFECT_NONE);
        EXPECT_GT(source.asked, 2);
    }
    EXPECT_EQ(target.files, std::vector<std::wstring>{path.wstring()});
    ::RevokeDragDrop(target);
    std::filesystem::remove(path);
    const std::wstring endless(100000, L'd');
    for (const wchar_t* gone : {path.c_str(), static_cast<const wchar_t*>(nullptr), endless.c_str()})
        EXPECT_FALSE(VEK::DoDragDrop(gone, DROPEFFECT_COPY, &start, nullptr));
    ::OleUninitialize();
}

TEST_F(DialogSurroundings, HaveTheLibrarysIconAndInformationBox)
{
    EXPECT_EQ(VEK::appIcon(), ::LoadIconW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(2000)));
    user.dialog<CAboutboxDlg>([](CAboutboxDlg& it) {
        EXPECT_TRUE(VEK::appIcon() && it.GetIcon(TRUE) == VEK::appIcon() && it.GetIcon(FALSE) == VEK::appIcon());
        EXPECT_EQ(nameOf(it), L"Info über VEK");
        it.SetWindowText(L"");
        for (const int id : {IDOK, 5020})
            it.SetDlgItemText(id, L"");
        it.SetCountry(L"en");
        EXPECT_TRUE(nameOf(it) != L"" && textOf(it, IDOK) != L"" && textOf(it, 5020) != L"");
        it.PostMessage(WM_COMMAND, IDOK);
    });
    EXPECT_EQ(CAboutboxDlg().DoModal(), IDOK);
}

TEST_F(DialogSurroundings, TellOfInvalidValuesInTheUsersLanguage)
{
    VEK::dataSet(VEK::cfg_dir_make(L"*MSG*\\VEK_\\pl"), L"VEK_DDX_0003", L"Wpisz od %1 do %2");
    VEK::msgLangSet(L"pl");
    EXPECT_STREQ(VEK::exchangeText(AFX_IDP_PARSE_INT_RANGE, L""), L"Wpisz od %1 do %2.");
    EXPECT_STREQ(VEK::exchangeText(AFX_IDP_PARSE_INT, L""), L"Bitte geben Sie eine ganze Zahl ein.");
    int known = 0;
    for (UINT id = AFX_IDP_PARSE_INT - 1; id <= AFX_IDP_PARSE_UINT + 1; ++id)
        known += VEK::exchangeText(id, L"") != nullptr;
    EXPECT_EQ(known, 7);
    CVekDlg::SetMsgCallBack(nullptr);
    EXPECT_EQ(VEK::exchangeText(AFX_IDP_PARSE_INT, L""), nullptr);
}

} // namespace
