#include <afxwin.h>

#include "window_hook.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace
{

INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM, LPARAM)
{
    if (message != WM_INITDIALOG)
        return FALSE;
    CDialog* dialog = DYNAMIC_DOWNCAST(CDialog, CWnd::FromHandlePermanent(window));
    return dialog == nullptr || dialog->OnInitDialog();
}

LPCDLGTEMPLATE templateOf(LPCTSTR name, HINSTANCE module)
{
    const HRSRC resource = ::FindResourceW(module, name, RT_DIALOG);
    return resource == nullptr ? nullptr
                               : static_cast<LPCDLGTEMPLATE>(::LockResource(::LoadResource(module, resource)));
}

/// Keeps a window from being used while a modal one stands over it.
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

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void*)
{
    const CWnd* parent = pParentWnd == nullptr ? AfxGetMainWnd() : pParentWnd;
    return createFrom(lpDialogTemplate, parent == nullptr ? nullptr : parent->m_hWnd, AfxGetResourceHandle());
}

BOOL CDialog::InitModalIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, void*)
{
    m_lpDialogTemplate = lpDialogTemplate;
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
    {
        WindowHook hook(this);
        window = ::CreateDialogIndirectParamW(module, source, parent, dialogProc, 0);
        bound = hook.bound();
    }
    if (!bound)
        PostNcDestroy();
    return window != nullptr;
}

INT_PTR CDialog::DoModal()
{
    const HINSTANCE module =
        m_lpszTemplateName == nullptr ? AfxGetResourceHandle() : AfxFindResourceHandle(m_lpszTemplateName, RT_DIALOG);
    const LPCDLGTEMPLATE source =
        m_lpszTemplateName == nullptr ? m_lpDialogTemplate : templateOf(m_lpszTemplateName, module);
    if (source == nullptr)
        return -1;
    HWND top = nullptr;
    const CWnd* owner = GetSafeOwner(m_pParentWnd, &top);
    const HWND parent = owner == nullptr ? nullptr : owner->m_hWnd;
    // The parent, and the window behind it all when that is another one.
    Disabled behind(top), below(parent == ::GetDesktopWindow() ? nullptr : parent);
    setModal();
    int result = -1;
    if (createFrom(source, parent, module)) {
        result = RunModalLoop((GetStyle() & DS_NOIDLEMSG) != 0 ? MLF_SHOWONIDLE | MLF_NOIDLEMSG : MLF_SHOWONIDLE);
        if (m_hWnd != nullptr)
            SetWindowPos(nullptr, 0, 0, 0, 0, SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
    // Before the dialog goes, or another program's window would come to the front.
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
    if (UpdateData(FALSE))
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
