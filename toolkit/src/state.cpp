#include <toolkit/state.h>

#include "thread_state.h"

#include <vector>

namespace
{

AFX_MODULE_STATE* g_program = nullptr;

std::vector<CDynLinkLibrary*>& libraries()
{
    static std::vector<CDynLinkLibrary*> all;
    return all;
}

} // namespace

AFX_MODULE_STATE* programState()
{
    static AFX_MODULE_STATE unknown(nullptr, &AfxRunGuarded);
    return g_program == nullptr ? &unknown : g_program;
}

HINSTANCE findModule(const std::function<bool(HINSTANCE)>& has)
{
    const HINSTANCE current = AfxGetResourceHandle(), program = programState()->m_hCurrentResourceHandle;
    if (has(current))
        return current;
    const std::vector<CDynLinkLibrary*>& all = libraries();
    for (auto library = all.rbegin(); library != all.rend(); ++library) {
        if (has((*library)->m_hResource))
            return (*library)->m_hResource;
    }
    return has(program) ? program : nullptr;
}

AFX_MODULE_STATE::AFX_MODULE_STATE(HINSTANCE instance, AFX_GUARD guard)
    : m_hCurrentInstanceHandle(instance == nullptr ? ::GetModuleHandleW(nullptr) : instance),
      m_hCurrentResourceHandle(m_hCurrentInstanceHandle), m_pfnGuard(guard)
{
    if (instance == ::GetModuleHandleW(nullptr))
        g_program = this;
}

AFX_MODULE_STATE::~AFX_MODULE_STATE()
{
    for (const std::wstring& name : m_classes)
        ::UnregisterClassW(name.c_str(), m_hCurrentInstanceHandle);
    if (g_program == this)
        g_program = nullptr;
}

AFX_MODULE_STATE* AFXAPI AfxGetModuleState()
{
    AFX_MODULE_STATE* state = threadState().module;
    return state == nullptr ? programState() : state;
}

AFX_MODULE_STATE* AFXAPI AfxSetModuleState(AFX_MODULE_STATE* pNewState)
{
    return std::exchange(threadState().module, pNewState);
}

HINSTANCE AFXAPI AfxGetInstanceHandle()
{
    return AfxGetModuleState()->m_hCurrentInstanceHandle;
}

HINSTANCE AFXAPI AfxGetResourceHandle()
{
    return AfxGetModuleState()->m_hCurrentResourceHandle;
}

void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource)
{
    AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}

HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszResource, LPCTSTR lpszType)
{
    const HINSTANCE found =
        findModule([=](HINSTANCE module) { return ::FindResourceW(module, lpszResource, lpszType) != nullptr; });
    return found == nullptr ? AfxGetResourceHandle() : found;
}

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL)
    : m_hModule(state.hModule), m_hResource(state.hResource)
{
    libraries().push_back(this);
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    std::erase(libraries(), this);
}

BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    state = {TRUE, hModule, hModule};
    return TRUE;
}

void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL)
{
    const std::vector<CDynLinkLibrary*> all = libraries();
    for (CDynLinkLibrary* library : all) {
        if (library->m_hModule == state.hModule)
            delete library;
    }
    state.bInitialized = FALSE;
}
