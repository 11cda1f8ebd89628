#include <vek/dialogs/hole.h>
#include <vek/dialogs/window/hole_dialog.h>

namespace VEK
{

int dlgBgr(const DlgEnv_st&, CVekString& bt, CVekDataItem* data, CVekDataItem*)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    return holeDialog(bt, data);
}

} // namespace VEK
