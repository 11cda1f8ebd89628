// The application object of the DLL; it begins and ends with the module.
#include <afxwin.h>

namespace
{

class CVekDialApp : public CWinApp
{
public:
    /// Offers the library's resources to all modules of the process.
    BOOL InitInstance() override
    {
        if (!CWinApp::InitInstance() || !AfxInitExtensionModule(m_module, AfxGetInstanceHandle()))
            return FALSE;
        new CDynLinkLibrary(m_module); // goes with the module
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
