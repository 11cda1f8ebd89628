// The application object of the DLL; it exists as long as the module is loaded.
#include <afxwin.h>

namespace
{

class CVekDialApp : public CWinApp
{
public:
    /// Makes the library's resources available to all modules of the process.
    BOOL InitInstance() override
    {
        if (!CWinApp::InitInstance() || !AfxInitExtensionModule(m_module, AfxGetInstanceHandle()))
            return FALSE;
        new CDynLinkLibrary(m_module); // freed with the module
        return TRUE;
    }

    int ExitInstance() override
    {
        AfxTermExtensionModule(m_module);
        return CWinApp::ExitInstance();
    }

private:
    AFX_EXTENSION_MODULE m_module = {};
};

CVekDialApp theApp;

} // namespace
