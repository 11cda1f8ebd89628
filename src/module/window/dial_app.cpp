// The application object of the DLL; it exists as long as the module is loaded.
#include <vek/dialogframe.h>

#include <afxwin.h>

namespace
{

class CVekDialApp : public CWinApp
{
public:
    /// Gives all dialogs the texts of the configuration, and all modules of the process the library's resources.
    BOOL InitInstance() override
    {
        CVekDlg::SetMsgCallBack(&VEK::msgCallBack);
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
