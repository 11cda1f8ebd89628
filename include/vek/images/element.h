/// @file
/// Generators of the elements of an assembly.
#pragma once

#include <vek/data/item.h>

class CVekGDX;

VEK_API bool vek_gdx_image_bgr_bt(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                  CVekDataItem* parm);
VEK_API bool vek_gdx_image_bgr_obj(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                   CVekDataItem* parm, const CVekColor& visible, const CVekColor& hidden);
