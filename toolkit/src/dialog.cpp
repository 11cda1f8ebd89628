#include <afxwin.h>

#include "user_seam.h"
#include "window_hook.h"

#include <cstring>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace
{

/// Whether the template gives the dialog no position.
bool leavesPlace(LPCDLGTEMPLATE source)
{
    const auto words = reinterpret_cast<const WORD*>(source);
    const bool extended = words[0] == 1 && words[1] == 0xFFFF;
    const WORD* const style = extended ? words + 6 : words;
    const WORD* const place = extended ? words + 9 : words + 5;
    const DWORD placed = DS_ABSALIGN | DS_CENTER | DS_CENTERMOUSE | WS_CHILD;
    return (MAKELONG(style[0], style[1]) & placed) == 0 && place[0] == 0 && place[1] == 0;
}

/// @param unplaced the hook that saw the window's initial position if the template gives none, else null
INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM, LPARAM unplaced)
{
    if (message != WM_INITDIALOG)
        return FALSE;
    CDialog* dialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(window));
    const BOOL setsFocus = dialog == nullptr || dialog->OnInitDialog();
    const auto hook = reinterpret_cast<const WindowHook*>(unplaced);
    CRect rect;
    if (hook != nullptr && ::GetWindowRect(window, &rect) && !::IsWindowVisible(window) &&
        rect.TopLeft() == hook->place())
        dialog->CenterWindow();
    return setsFocus;
}

LPCDLGTEMPLATE templateOf(LPCTSTR name, HINSTANCE module)
{
    const HRSRC resource = ::FindResourceW(module, name, RT_DIALOG);
    return resource == nullptr ? nullptr
                               : static_cast<LPCDLGTEMPLATE>(::LockResource(::LoadResource(module, resource)));
}

/// Disables a window while a modal one is over it.
class Disabled
{
public:
    explicit Disabled(HWND window) : m_window(window != nullptr && ::IsWindowEnabled(window) ? window : nullptr)
    {
        if (m_window != nullptr)
            ::EnableWindow(m_window, FALSE);
    }
    ~Disabled() { end(); }
    Disabled(const Disabled&) = delete;
    Disabled& operator=(const Disabled&) = delete;

    void end()
    {
        if (m_window != nullptr)
            ::EnableWindow(m_window, TRUE);
        m_window = nullptr;
    }

private:
    HWND m_window;
};

} // namespace

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_pParentWnd(pParentWnd)
{
}

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(MAKEINTRESOURCE(nIDTemplate), pParentWnd) {}

CDialog::~CDialog()
{
    if (m_hWnd != nullptr && FromHandlePermanent(m_hWnd) == this)
        CDialog::DestroyWindow();
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
{
    m_lpszTemplateName = lpszTemplateName;
    const HINSTANCE module = AfxFindResourceHandle(lpszTemplateName, RT_DIALOG);
    const CWnd* parent = pParentWnd == nullptr ? AfxGetMainWnd() : pParentWnd;
    return createFrom(templateOf(lpszTemplateName, module), parent == nullptr ? nullptr : parent->m_hWnd, module);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpDialogInit = lpDialogInit;
    const CWnd* parent = pParentWnd == nullptr ? AfxGetMainWnd() : pParentWnd;
    return createFrom(lpDialogTemplate, parent == nullptr ? nullptr : parent->m_hWnd, AfxGetResourceHandle());
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void* lpDialogInit)
{
    m_lpDialogTemplate = lpDialogTemplate;
    m_lpDialogInit = lpDialogInit;
    if (pParentWnd != nullptr)
        m_pParentWnd = pParentWnd;
    return TRUE;
}

BOOL CDialog::createFrom(LPCDLGTEMPLATE source, HWND parent, HINSTANCE module)
{
    if (source == nullptr)
        return FALSE;
    HWND window = nullptr;
    bool bound = false;
    const bool modal = ContinueModal();
    if (!modal)
        setModal(); // so that EndDialog is noticed
    {
        WindowHook hook(this);
        window = ::CreateDialogIndirectParamW(module, source, parent, dialogProc,
                                              leavesPlace(source) ? reinterpret_cast<LPARAM>(&hook) : 0);
        bound = hook.bound();
    }
    if (!bound)
        PostNcDestroy();
    else if (!modal && FromHandlePermanent(window) == this) {
        const bool ended = !ContinueModal();
        setModal(false);
        if (ended)
            DestroyWindow();
    }
    return ::IsWindow(window);
}

INT_PTR CDialog::DoModal()
{
    const HINSTANCE module =
        m_lpszTemplateName == nullptr ? AfxGetResourceHandle() : AfxFindResourceHandle(m_lpszTemplateName, RT_DIALOG);
    const LPCDLGTEMPLATE source =
        m_lpszTemplateName == nullptr ? m_lpDialogTemplate : templateOf(m_lpszTemplateName, module);
    toolkit::User* user = toolkit::userInPlace();
    if (source == nullptr || (user != nullptr && !user->dialogOpens(*this)))
        return -1;
    const int result = runModal(source, module);
    if (user != nullptr)
        user->dialogEnded(*this, result);
    return result;
}

int CDialog::runModal(LPCDLGTEMPLATE source, HINSTANCE module)
{
    HWND top = nullptr;
    const CWnd* owner = GetSafeOwner(m_pParentWnd, &top);
    const HWND parent = owner == nullptr ? nullptr : owner->m_hWnd;
    // The parent, and the top-level window if that is a different one.
    Disabled behind(top), below(parent == ::GetDesktopWindow() ? nullptr : parent);
    setModal();
    int result = -1;
    if (createFrom(source, parent, module)) {
        result = RunModalLoop((GetStyle() & DS_NOIDLEMSG) != 0 ? MLF_SHOWONIDLE | MLF_NOIDLEMSG : MLF_SHOWONIDLE);
        if (m_hWnd != nullptr)
            SetWindowPos(nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
    // Before the dialog is destroyed, or another program's window would come to the front.
    below.end();
    behind.end();
    if (parent != nullptr && ::GetActiveWindow() == m_hWnd)
        ::SetActiveWindow(parent);
    DestroyWindow();
    return result;
}

void CDialog::EndDialog(int nResult)
{
    EndModalLoop(nResult);
    ::EndDialog(m_hWnd, nResult);
}

BOOL CDialog::OnInitDialog()
{
    if ((m_lpszTemplateName != nullptr ? ExecuteDlgInit(m_lpszTemplateName) : ExecuteDlgInit(m_lpDialogInit)) &&
        UpdateData(FALSE))
        return TRUE;
    EndDialog(-1);
    return FALSE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    return CWnd::PreTranslateMessage(pMsg) || PreTranslateInput(pMsg);
}

BOOL CDialog::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (CWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo))
        return TRUE;
    constexpr UINT firstCommand = 0x8000, firstSystem = 0xF000;
    if (nCode != CN_COMMAND || nID < firstCommand || nID >= firstSystem)
        return FALSE;
    CWnd* parent = GetParent();
    CWinApp* app = AfxGetApp();
    return (parent != nullptr && parent->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) ||
           (app != nullptr && app->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo));
}

BOOL CWnd::ExecuteDlgInit(LPCTSTR lpszResourceName)
{
    const HINSTANCE module = AfxFindResourceHandle(lpszResourceName, RT_DIALOG);
    const HRSRC resource = ::FindResourceW(module, lpszResourceName, RT_DLGINIT);
    return resource == nullptr || ExecuteDlgInit(::LockResource(::LoadResource(module, resource)));
}

BOOL CWnd::ExecuteDlgInit(LPVOID lpResource)
{
    // Each row: the id of the control, a message, the length of a text in the ANSI code page, the text. 0 ends the
    // list.
    const auto word = [at = static_cast<const BYTE*>(lpResource)](size_t offset) {
        WORD value;
        std::memcpy(&value, at + offset, sizeof value); // rows may be at odd addresses
        return value;
    };
    for (size_t at = 0; lpResource != nullptr && word(at) != 0;) {
        const HWND control = ::GetDlgItem(m_hWnd, word(at));
        const UINT message = word(at + 2); // LB_ADDSTRING and CB_ADDSTRING have their 16-bit numbers here
        const size_t length = static_cast<size_t>(MAKELONG(word(at + 4), word(at + 6)));
        const CString row(static_cast<const char*>(lpResource) + at + 8);
        at += 8 + length;
        const UINT add = message == 0x0401 ? LB_ADDSTRING : message == 0x0403 ? CB_ADDSTRING : 0;
        if (add != 0 && ::SendMessageW(control, add, 0, reinterpret_cast<LPARAM>(row.GetString())) < 0)
            return FALSE;
    }
    return TRUE;
}
