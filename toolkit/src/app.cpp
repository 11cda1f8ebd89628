#include <afxwin.h>

#include "thread_state.h"
#include "user_seam.h"

#include <cwchar>

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

CWinThread::CWinThread() : m_nThreadID(::GetCurrentThreadId()) {}

int CWinThread::Run()
{
    LONG count = 0;
    bool idle = true;
    for (;;) {
        MSG message;
        const bool waits = ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        const bool busy = waits && IsIdleMessage(&message);
        if (idle && !busy) {
            idle = OnIdle(count++);
            continue;
        }
        if (!PumpMessage())
            return ExitInstance();
        if (busy || !waits) {
            idle = true;
            count = 0;
        }
    }
}

BOOL CWinThread::IsIdleMessage(MSG* pMsg)
{
    return isNews(*pMsg);
}

CWnd* CWinThread::GetMainWnd()
{
    return m_pMainWnd == nullptr ? CWnd::GetActiveWindow() : m_pMainWnd;
}

int CWinThread::ExitInstance()
{
    return static_cast<int>(threadState().quitCode);
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg)
{
    CWnd* main = m_pMainWnd;
    if (CWnd::WalkPreTranslateTree(main == nullptr ? nullptr : main->m_hWnd, pMsg))
        return TRUE;
    if (main == nullptr || pMsg->hwnd == nullptr)
        return FALSE;
    return CWnd::FromHandle(pMsg->hwnd)->GetTopLevelParent() != main && main->PreTranslateMessage(pMsg);
}

BOOL CWinThread::PumpMessage()
{
    return pumpMessage(this);
}

BOOL CWinThread::OnIdle(LONG)
{
    threadState().forgetTemporary();
    return FALSE;
}

LRESULT CWinThread::ProcessWndProcException(CException* e, const MSG* pMsg)
{
    return AfxProcessWndProcException(e, pMsg);
}

CWinApp::CWinApp(AFX_MODULE_STATE* module, LPCTSTR name)
    : m_pszAppName(name), m_hInstance(module->m_hCurrentInstanceHandle), m_module(module)
{
    ASSERT(module->m_pCurrentWinApp == nullptr);
    m_pModuleState = module;
    module->m_pCurrentWinApp = this;
    if (name != nullptr)
        return;
    wchar_t path[MAX_PATH] = L"";
    ::GetModuleFileNameW(m_hInstance, path, _countof(path) - 1);
    m_programName = path;
    m_programName = m_programName.Mid(m_programName.ReverseFind(L'\\') + 1);
    if (m_programName.ReverseFind(L'.') > 0)
        m_programName = m_programName.Left(m_programName.ReverseFind(L'.'));
    m_pszAppName = m_programName;
}

CWinApp::~CWinApp()
{
    if (m_module->m_pCurrentWinApp == this)
        m_module->m_pCurrentWinApp = nullptr;
}

int CWinApp::Run()
{
    if (m_pMainWnd == nullptr) // nothing would end the loop
        ::PostQuitMessage(0);
    return CWinThread::Run();
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT)
{
    HWND owner = ::GetActiveWindow();
    if (owner == nullptr && m_pMainWnd != nullptr)
        owner = ::GetLastActivePopup(m_pMainWnd->m_hWnd);
    if ((nType & MB_ICONMASK) == 0)
        nType |= (nType & MB_TYPEMASK) <= MB_OKCANCEL ? MB_ICONEXCLAMATION : MB_ICONQUESTION;
    return toolkit::messageBox(owner, lpszPrompt, m_pszAppName, nType);
}

void CWinApp::DoWaitCursor(int nCode)
{
    const int before = m_waits;
    m_waits = std::max(m_waits + nCode, 0);
    if (m_waits == 0) {
        if (before > 0)
            ::SetCursor(m_cursorBefore);
        return;
    }
    const HCURSOR shown = ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
    if (before == 0)
        m_cursorBefore = shown;
}

HICON CWinApp::LoadIcon(LPCTSTR lpszResourceName) const
{
    return ::LoadIconW(AfxFindResourceHandle(lpszResourceName, RT_GROUP_ICON), lpszResourceName);
}

HCURSOR CWinApp::LoadCursor(LPCTSTR lpszResourceName) const
{
    return ::LoadCursorW(AfxFindResourceHandle(lpszResourceName, RT_GROUP_CURSOR), lpszResourceName);
}

CWinApp* AFXAPI AfxGetApp()
{
    return AfxGetModuleState()->m_pCurrentWinApp;
}

CWinThread* AFXAPI AfxGetThread()
{
    CWinApp* app = AfxGetApp();
    return app != nullptr && app->m_nThreadID == ::GetCurrentThreadId() ? app : nullptr;
}

CWnd* AFXAPI AfxGetMainWnd()
{
    CWinThread* thread = AfxGetThread();
    if (thread == nullptr || thread->m_pMainWnd == nullptr) {
        CWinApp* program = programState()->m_pCurrentWinApp;
        if (program != nullptr && program->m_pMainWnd != nullptr && program->m_nThreadID == ::GetCurrentThreadId())
            thread = program;
    }
    return thread == nullptr ? CWnd::GetActiveWindow() : thread->GetMainWnd();
}

LPCTSTR AFXAPI AfxGetAppName()
{
    const CWinApp* app = AfxGetApp();
    return app == nullptr ? L"" : app->m_pszAppName;
}

int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    CWinApp* app = AfxGetApp();
    return app == nullptr ? toolkit::messageBox(::GetActiveWindow(), lpszText, L"", nType)
                          : app->DoMessageBox(lpszText, nType, nIDHelp);
}

int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp)
{
    CString text;
    text.LoadString(nIDPrompt);
    return AfxMessageBox(text, nType, nIDHelp == 0 ? nIDPrompt : nIDHelp);
}

void AfxWaitCursor(int code)
{
    CWinApp* app = AfxGetApp();
    if (app != nullptr)
        app->DoWaitCursor(code);
}

LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    AFX_MODULE_STATE* module = AfxGetModuleState();
    wchar_t name[96];
    _snwprintf(name, _countof(name), L"Afx:%p:%x:%p:%p:%p", module->m_hCurrentInstanceHandle, nClassStyle, hCursor,
               hbrBackground, hIcon);
    WNDCLASSW details = {};
    details.style = nClassStyle;
    details.hCursor = hCursor;
    details.hbrBackground = hbrBackground;
    details.hIcon = hIcon;
    details.lpfnWndProc = ::DefWindowProcW;
    details.hInstance = module->m_hCurrentInstanceHandle;
    details.lpszClassName = name;
    if (!AfxRegisterClass(&details))
        AfxThrowResourceException();
    return module->m_classes.insert(name).first->c_str();
}

BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass)
{
    WNDCLASSW known;
    if (::GetClassInfoW(lpWndClass->hInstance, lpWndClass->lpszClassName, &known))
        return TRUE;
    if (::RegisterClassW(lpWndClass) == 0)
        return FALSE;
    AfxGetModuleState()->m_classes.insert(lpWndClass->lpszClassName);
    return TRUE;
}

BOOL AFXAPI AfxWinInit(HINSTANCE, HINSTANCE, LPTSTR lpCmdLine, int nCmdShow)
{
    CWinApp* app = AfxGetApp();
    if (app == nullptr)
        return FALSE;
    app->m_lpCmdLine = lpCmdLine;
    app->m_nCmdShow = nCmdShow;
    return TRUE;
}

int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow)
{
    if (!AfxWinInit(hInstance, hPrevInstance, lpCmdLine, nCmdShow))
        return -1;
    CWinApp* app = AfxGetApp();
    if (app->InitApplication() && app->InitInstance())
        return app->Run();
    if (app->m_pMainWnd != nullptr)
        app->m_pMainWnd->DestroyWindow();
    return app->ExitInstance();
}
