/// @file
/// The state of a module (a program or DLL), and the thread's current module: where resources are searched, and whose
/// application object is used.
#pragma once

#include <toolkit/exception.h>

#include <set>
#include <string>

class CWinApp;

/// There is one in each module that uses the toolkit, created at first use or with the module's application object, and
/// destroyed with the module.
class AFX_EXPORTED AFX_MODULE_STATE
{
public:
    AFX_MODULE_STATE(HINSTANCE instance, AFX_GUARD guard);
    ~AFX_MODULE_STATE();
    AFX_MODULE_STATE(const AFX_MODULE_STATE&) = delete;
    AFX_MODULE_STATE& operator=(const AFX_MODULE_STATE&) = delete;

    CWinApp* m_pCurrentWinApp = nullptr;
    HINSTANCE m_hCurrentInstanceHandle;
    HINSTANCE m_hCurrentResourceHandle;
    AFX_GUARD m_pfnGuard;             ///< the module's own
    std::set<std::wstring> m_classes; ///< window classes to unregister
};

extern "C" IMAGE_DOS_HEADER __ImageBase;

/// The state of the calling module: being inline, the function and its object exist once per module.
inline AFX_MODULE_STATE* AfxGetStaticModuleState()
{
    static AFX_MODULE_STATE state(reinterpret_cast<HINSTANCE>(&__ImageBase), &AfxRunGuarded);
    return &state;
}

/// Creates it when the module is loaded, before anything looks for the program's state.
inline AFX_MODULE_STATE* const afxStateOfThisModule = AfxGetStaticModuleState();

/// The thread's current state: that of the program until it is switched.
AFX_EXPORTED AFX_MODULE_STATE* AFXAPI AfxGetModuleState();
/// Switches the thread's state; returns the previous one.
AFX_EXPORTED AFX_MODULE_STATE* AFXAPI AfxSetModuleState(AFX_MODULE_STATE* pNewState);

/// Switches the thread to a state during the lifetime of this object.
class AFX_MAINTAIN_STATE2
{
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* pNewState) : m_before(AfxSetModuleState(pNewState)) {}
    ~AFX_MAINTAIN_STATE2() { AfxSetModuleState(m_before); }
    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

private:
    AFX_MODULE_STATE* m_before;
};

#define AFX_MANAGE_STATE(pModuleState) AFX_MAINTAIN_STATE2 afxModuleStateOfThisBlock(pModuleState)

AFX_EXPORTED HINSTANCE AFXAPI AfxGetInstanceHandle();
AFX_EXPORTED HINSTANCE AFXAPI AfxGetResourceHandle();
AFX_EXPORTED void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);
/// The module that has a resource: the current one, else a library that offers its own to all, else the program; the
/// current one if none has it.
AFX_EXPORTED HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszResource, LPCTSTR lpszType);
