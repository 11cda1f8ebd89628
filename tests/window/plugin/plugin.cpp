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

    HWND owner = nullptr;

    BOOL OnInitDialog() override
    {
        PluginDialog::OnInitDialog();
        CString text;
        text.LoadString(300);
        owner = ::GetWindow(m_hWnd, GW_OWNER);
        const auto count = [this](int id, UINT message) { return SendDlgItemMessage(id, message); };
        EndDialog(
            static_cast<int>(text.GetLength() + 100 * count(1001, CB_GETCOUNT) + 1000 * count(1002, LB_GETCOUNT)));
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

INT_PTR runPlugin(CWnd* parent, HWND* owner)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    Ending dialog(parent);
    const INT_PTR result = dialog.DoModal();
    if (owner != nullptr)
        *owner = dialog.owner;
    return result;
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
