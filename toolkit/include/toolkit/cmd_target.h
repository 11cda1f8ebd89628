/// @file
/// Objects that receive commands, and the application object.
#pragma once

#include <toolkit/exception.h>
#include <toolkit/message_map.h>
#include <toolkit/state.h>

class CWnd;

struct AFX_CMDHANDLERINFO; // no caller needs it

/// What a notification carries on its way to the handler.
struct AFX_NOTIFY {
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

class AFX_EXPORTED CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)
    DECLARE_MESSAGE_MAP()

public:
    CCmdTarget() : m_pModuleState(AfxGetModuleState()) {}

    /// The module state that was current when the object was created; its messages are handled under it.
    AFX_MODULE_STATE* m_pModuleState;

    /// Passes a command or notification to its handler. The high word of `nCode` is the message, WM_COMMAND if it is 0,
    /// the low word the code; `pExtra` is an AFX_NOTIFY for WM_NOTIFY. False if nobody handles it.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    /// Shows the wait cursor from Begin to the matching End; Restore shows it again in between.
    inline void BeginWaitCursor();
    inline void EndWaitCursor();
    inline void RestoreWaitCursor();

protected:
    /// The matching entry of this class or its bases, null if there is none. Codes compare by their low word.
    const AFX_MSGMAP_ENTRY* FindEntry(UINT message, UINT code, UINT id) const;
};

/// Shows the wait cursor during the lifetime of this object.
class CWaitCursor
{
public:
    inline CWaitCursor();
    inline ~CWaitCursor();
    inline void Restore();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
};

class AFX_EXPORTED CWinThread : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread();

    CWnd* m_pMainWnd = nullptr; ///< the thread ends with it
    CWnd* m_pActiveWnd = nullptr;
    DWORD m_nThreadID = 0;

    virtual BOOL InitInstance() { return FALSE; }
    /// Handles messages until WM_QUIT; returns the result of ExitInstance.
    virtual int Run();
    virtual int ExitInstance();
    /// True for a message that must not be dispatched: asks the windows from the addressed one up to the main window,
    /// and the main window also for windows that do not belong to it.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Retrieves and dispatches one message; false for WM_QUIT.
    virtual BOOL PumpMessage();
    /// Called while no message is waiting, with a rising count, until it returns false. Deletes temporary objects.
    virtual BOOL OnIdle(LONG lCount);
    /// Whether OnIdle is called again after a message: not after WM_PAINT, the blinking of a caret, or a mouse message
    /// without movement.
    virtual BOOL IsIdleMessage(MSG* pMsg);
    /// Called for an exception that no handler caught; returns the result of the message. The exception is deleted
    /// afterwards.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
    /// The active window if the thread has no main window.
    virtual CWnd* GetMainWnd();
};

class AFX_EXPORTED CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    /// The application object of the module that creates it. A module has at most one.
    explicit CWinApp(LPCTSTR lpszAppName = nullptr) : CWinApp(AfxGetStaticModuleState(), lpszAppName) {}
    ~CWinApp() override;

    LPCTSTR m_pszAppName; ///< null: that of the program file
    HINSTANCE m_hInstance;
    LPTSTR m_lpCmdLine = nullptr;
    int m_nCmdShow = SW_SHOWDEFAULT;

    virtual BOOL InitApplication() { return TRUE; }
    BOOL InitInstance() override { return TRUE; }
    int Run() override;
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);
    virtual void DoWaitCursor(int nCode);

    HICON LoadIcon(LPCTSTR lpszResourceName) const;
    HICON LoadIcon(UINT nIDResource) const { return LoadIcon(MAKEINTRESOURCE(nIDResource)); }
    HICON LoadStandardIcon(LPCTSTR lpszIconName) const { return ::LoadIconW(nullptr, lpszIconName); }
    HCURSOR LoadCursor(LPCTSTR lpszResourceName) const;
    HCURSOR LoadCursor(UINT nIDResource) const { return LoadCursor(MAKEINTRESOURCE(nIDResource)); }
    HCURSOR LoadStandardCursor(LPCTSTR lpszCursorName) const { return ::LoadCursorW(nullptr, lpszCursorName); }

private:
    CWinApp(AFX_MODULE_STATE* module, LPCTSTR name);

    AFX_MODULE_STATE* m_module;
    CString m_programName;
    int m_waits = 0;
    HCURSOR m_cursorBefore = nullptr;
};

/// @name A DLL whose resources all modules find
/// It calls AfxInitExtensionModule and `new CDynLinkLibrary` on loading, and AfxTermExtensionModule on unloading.
/// @{
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

AFX_EXPORTED BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
/// Withdraws the module's resources.
AFX_EXPORTED void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

/// Offers a module's resources during its lifetime; the newest one is searched first.
class AFX_EXPORTED CDynLinkLibrary : public CCmdTarget
{
    DECLARE_DYNAMIC(CDynLinkLibrary)

public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
};
/// @}

/// @name The application object of the module that the thread works for
/// Null if it has none. It is also the thread object.
/// @{
AFX_EXPORTED CWinApp* AFXAPI AfxGetApp();
AFX_EXPORTED CWinThread* AFXAPI AfxGetThread();
/// The program's main window if the module has none, else the active window.
AFX_EXPORTED CWnd* AFXAPI AfxGetMainWnd();
AFX_EXPORTED LPCTSTR AFXAPI AfxGetAppName();
/// @}

/// Default handling of an exception that escaped a handler: WM_CREATE fails, for WM_PAINT the window is validated,
/// others show a message box unless the user has been informed already. Null means an exception that is not the
/// toolkit's, which is swallowed.
AFX_EXPORTED LRESULT AFXAPI AfxProcessWndProcException(CException* e, const MSG* pMsg);
/// For a program with its own entry function: passes the command line to the application object. False if there is
/// none.
AFX_EXPORTED BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
/// The body of a program's entry function: calls InitInstance and then Run of the application object.
AFX_EXPORTED int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
/// Retrieves and dispatches one message with or without an application object; false for WM_QUIT.
AFX_EXPORTED BOOL AFXAPI AfxPumpMessage();
/// A message box over the active window, titled with the application's name.
AFX_EXPORTED int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFX_EXPORTED int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = 0);
/// The name of a window class with these properties, registered at first use and for the rest of the module's life.
AFX_EXPORTED LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                                HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);
/// Registers a class, unless it is registered; the toolkit unregisters it when the module is unloaded.
AFX_EXPORTED BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass);
/// 1 begins, -1 ends, 0 restores the application object's wait cursor, if there is such an object.
AFX_EXPORTED void AfxWaitCursor(int code);

inline void CCmdTarget::BeginWaitCursor()
{
    AfxWaitCursor(1);
}
inline void CCmdTarget::EndWaitCursor()
{
    AfxWaitCursor(-1);
}
inline void CCmdTarget::RestoreWaitCursor()
{
    AfxWaitCursor(0);
}
inline CWaitCursor::CWaitCursor()
{
    AfxWaitCursor(1);
}
inline CWaitCursor::~CWaitCursor()
{
    AfxWaitCursor(-1);
}
inline void CWaitCursor::Restore()
{
    AfxWaitCursor(0);
}
