/// @file
/// The dialog for the hole pattern of an element, as other dialogs are called. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/data/item.h>
#include <vek/dialogframe/window/dlg_env.h>

namespace VEK
{

/// `holeDialog`, in the form that all dialogs have. The window is the host's.
/// @param env,second not used
VEK_API int dlgBgr(const DlgEnv_st& env, CVekString& bt, CVekDataItem* data, CVekDataItem* second);

} // namespace VEK

#endif
