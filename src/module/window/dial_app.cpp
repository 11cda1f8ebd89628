// The application object of the DLL; it exists as long as the module is loaded.
#include "dialogframe/window/exchange_text.h"

#include <vek/dialogframe.h>

#include <toolkit/user.h>

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
        m_texts = toolkit::textSourceSet(&VEK::exchangeText);
        return TRUE;
    }

    int ExitInstance() override
    {
        toolkit::textSourceSet(m_texts);
        AfxTermExtensionModule(m_module);
        return CWinApp::ExitInstance();
    }

private:
    AFX_EXTENSION_MODULE m_module = {};
    toolkit::TextSource m_texts = nullptr; ///< that was there before
};

CVekDialApp theApp;

} // namespace
