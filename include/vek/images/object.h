/// @file
/// Generators of whole objects, in the form of a registry entry (`VEK::setGdxImageFcn`), and their companions.
#pragma once

#include <vek/data/file.h>

class CVekGDX;

VEK_API bool vek_gdx_image_bgr(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);
VEK_API bool vek_gdx_image_bgr(CVekGDX* gdx, CVekDataItem* object, CVekDataItem* second, CVekMatrix3d& mtx,
                               const CVekMatrix3d& view, CVekDataItem* parm, double scale, double aux);
VEK_API bool vek_gdx_image_bar_surface(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);
VEK_API bool vek_gdx_image_drill(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);
VEK_API bool vek_gdx_image_extr(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);
VEK_API bool vek_gdx_image_fsheet(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);
VEK_API bool vek_gdx_image_hole(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);

VEK_API bool vek_gdx_image_ucs(CVekGDX* gdx, const CVekMatrix3d& mtx);
VEK_API bool vek_wall_edit_image(CVekGDX* gdx, VEK::CDtaFilePointer* params);
