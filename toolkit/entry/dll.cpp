// The entry function of a DLL: initialises and ends its application object, if it has one.
#include <afxwin.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    // A thread of the host costs nothing; what one has used here is freed with its thread-local objects.
    if (reason != DLL_PROCESS_ATTACH && reason != DLL_PROCESS_DETACH)
        return TRUE;
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    CWinApp* app = AfxGetApp();
    if (app == nullptr)
        return TRUE;
    if (reason == DLL_PROCESS_ATTACH && !app->InitInstance()) {
        app->ExitInstance();
        return FALSE;
    }
    if (reason == DLL_PROCESS_DETACH)
        app->ExitInstance();
    return TRUE;
}
