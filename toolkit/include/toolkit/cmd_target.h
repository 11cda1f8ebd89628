/// @file
/// What can get commands, and the application object.
#pragma once

#include <toolkit/exception.h>
#include <toolkit/message_map.h>
#include <toolkit/state.h>

class CWnd;

struct AFX_CMDHANDLERINFO; // no caller has a use for it here

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

    /// The state that was in force when the object was made; its messages are handled under it.
    AFX_MODULE_STATE* m_pModuleState;

    /// Gives a command or notification to its handler. The high word of `nCode` is the message, WM_COMMAND when it is
    /// 0, the low word the code; `pExtra` is an AFX_NOTIFY for WM_NOTIFY. False when nobody handles it.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

    /// The wait cursor stands from Begin to the End that belongs to it; Restore shows it again within.
    inline void BeginWaitCursor();
    inline void EndWaitCursor();
    inline void RestoreWaitCursor();

protected:
    /// The entry of this class or its bases that fits, null when there is none. Codes compare by their low word.
    const AFX_MSGMAP_ENTRY* FindEntry(UINT message, UINT code, UINT id) const;
};

/// The wait cursor for the life of this object.
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
    /// Handles messages until WM_QUIT; the result is that of ExitInstance.
    virtual int Run();
    virtual int ExitInstance();
    /// True for a message that must not be dispatched: windows from the one addressed up to the main window are asked,
    /// then the main window for windows that do not belong to it.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// Takes and dispatches one message; false for WM_QUIT.
    virtual BOOL PumpMessage();
    /// Called while no message waits, with a growing count, until it gives false. Ends temporary objects.
    virtual BOOL OnIdle(LONG lCount);
    /// Whether OnIdle is called anew behind a message: not behind the wish of a window to be painted, the blinking of a
    /// caret, or a message of a pointer that has not moved.
    virtual BOOL IsIdleMessage(MSG* pMsg);
    /// Called for an exception that no handler caught; the result is that of the message. The exception is ended after.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
    /// The active window when the thread has no main window.
    virtual CWnd* GetMainWnd();
};

class AFX_EXPORTED CWinApp : public CWinThread
{
    DECLARE_DYNAMIC(CWinApp)

public:
    /// The application object of the module that makes it. A module has one at most.
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
/// It begins with AfxInitExtensionModule and `new CDynLinkLibrary`, and ends with AfxTermExtensionModule.
/// @{
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

AFX_EXPORTED BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
/// Ends what the module has offered.
AFX_EXPORTED void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

/// The offer, as long as it lives; the one made last is asked first.
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
/// Null when it has none. It is its thread object too.
/// @{
AFX_EXPORTED CWinApp* AFXAPI AfxGetApp();
AFX_EXPORTED CWinThread* AFXAPI AfxGetThread();
/// That of the program when the module has none, else the active window.
AFX_EXPORTED CWnd* AFXAPI AfxGetMainWnd();
AFX_EXPORTED LPCTSTR AFXAPI AfxGetAppName();
/// @}

/// What the toolkit does for an exception that a handler let out: no window for WM_CREATE, a valid one for WM_PAINT, a
/// message box for others, unless the user knows already. Null stands for an exception of another kind, which is
/// silent.
AFX_EXPORTED LRESULT AFXAPI AfxProcessWndProcException(CException* e, const MSG* pMsg);
/// For a program with an entry function of its own: tells its application object the command line. False without one.
AFX_EXPORTED BOOL AFXAPI AfxWinInit(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
/// What a program's entry function does: the application object is asked for InitInstance, then for Run.
AFX_EXPORTED int AFXAPI AfxWinMain(HINSTANCE hInstance, HINSTANCE hPrevInstance, LPTSTR lpCmdLine, int nCmdShow);
/// Takes and dispatches one message with or without an application object; false for WM_QUIT.
AFX_EXPORTED BOOL AFXAPI AfxPumpMessage();
/// A message box of the active window, titled with the application's name.
AFX_EXPORTED int AFXAPI AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFX_EXPORTED int AFXAPI AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = 0);
/// The name of a window class with these properties, registered at first use and for the rest of the module's life.
AFX_EXPORTED LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                                HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);
/// Registers a class, unless it is there; the toolkit takes it back when the module goes.
AFX_EXPORTED BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass);
/// 1 begins, -1 ends, 0 restores the wait cursor of the application object, if there is one.
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
