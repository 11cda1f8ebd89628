// The entry function of a DLL: its application object, if it has one, begins and ends with it.
#include <afxwin.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
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
