#include "plugin.h"

#include <stdexcept>

namespace
{

int g_runs = 0;
AFX_EXTENSION_MODULE g_extension = {};

class App : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        ++g_runs;
        AfxInitExtensionModule(g_extension, AfxGetInstanceHandle());
        new CDynLinkLibrary(g_extension);
        return CWinApp::InitInstance();
    }
    int ExitInstance() override
    {
        AfxTermExtensionModule(g_extension);
        --g_runs;
        return CWinApp::ExitInstance();
    }
} g_app;

class Ending : public PluginDialog
{
public:
    using PluginDialog::PluginDialog;

    BOOL OnInitDialog() override
    {
        PluginDialog::OnInitDialog();
        CString text;
        text.LoadString(300);
        EndDialog(text.GetLength());
        return TRUE;
    }
};

} // namespace

IMPLEMENT_DYNAMIC(PluginDialog, CDialog)

BEGIN_MESSAGE_MAP(PluginDialog, CDialog)
ON_MESSAGE(kAsk, &PluginDialog::OnAsk)
ON_MESSAGE(kThrow, &PluginDialog::OnThrow)
END_MESSAGE_MAP()

PluginDialog::PluginDialog(CWnd* parent) : CDialog(200u, parent) {}

LRESULT PluginDialog::OnAsk(WPARAM, LPARAM)
{
    handledFor = AfxGetResourceHandle();
    return answer();
}

LRESULT PluginDialog::OnThrow(WPARAM, LPARAM)
{
    throw std::runtime_error("from the DLL");
}

INT_PTR runPlugin(CWnd* parent)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    Ending dialog(parent);
    return dialog.DoModal();
}

int pluginRuns()
{
    return g_runs;
}

HINSTANCE pluginInstance()
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return AfxGetApp() == &g_app ? AfxGetInstanceHandle() : nullptr;
}
