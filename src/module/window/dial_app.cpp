// The application object of the DLL; it begins and ends with the module.
#include <afxwin.h>

namespace
{

class CVekDialApp : public CWinApp
{
};

CVekDialApp theApp;

} // namespace
