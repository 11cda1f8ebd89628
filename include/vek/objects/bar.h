/// @file
/// Sections of bars, and the elements that belong to one.
#pragma once

#include <vek/data/file.h>

namespace VEK
{

VEK_API Regions bar_regl(CDtaFilePointer* file, const CVekMatrix3d& mtx);
VEK_API bool bar_bt_subs(CVekArrayTempl<CVekDataKey>& keys, CVekDataItem* root, const CVekString& group,
                         const CVekString& element);

} // namespace VEK
