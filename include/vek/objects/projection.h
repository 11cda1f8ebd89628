/// @file
/// The geometry of elements and objects in a view.
#pragma once

#include <vek/data/item.h>
#include <vek/solid.h>

#include <utility>

/// Drill elements, each shared by its holes, with the matrix of each hole.
using DrillList = CVekArrayTempl<std::pair<VEK::CSharedPointer<CVekDataItem>, CVekMatrix3d>>;

namespace VEK
{

/// A standard view, as objects store it.
enum NormView : int {
    normViewNone = -1, ///< no view is stored
    normView3d = 3,    ///< the three-dimensional view
};

VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, NormView& value);

VEK_API bool isViewDirOrtho(const CVekMatrix3d& mtx, const CVekMatrix3d& view);
VEK_API bool isBtOrthoView(const CVekDataItem* element, CVekMatrix3d mtx, const CVekMatrix3d& view,
                           const CVekDataItem* bt, CVekMatrix3d& hostMatrix);
VEK_API bool getProjectedGeometry(const CVekDataItem* element, const CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                  const CVekDataItem* parameters, CVekArrayTempl<CVekVertexArrayEx>& visible,
                                  CVekArrayTempl<CVekVertexArrayEx>& hidden,
                                  CVekArrayTempl<CSharedPointer<CVekDataItem>>& shared);
VEK_API bool getExtrDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt,
                              const CVekDataItem* parameters, const CVekMatrix3d& mtx, const CVekMatrix3d& view);
VEK_API bool getAngleDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt,
                               const CVekDataItem* parameters, const CVekMatrix3d& mtx, const CVekMatrix3d& view);
VEK_API bool getEdgeDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* parameters,
                              const CVekMatrix3d& mtx, const CVekMatrix3d& view);
VEK_API bool getEdgeNDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* parameters,
                               const CVekMatrix3d& mtx, const CVekMatrix3d& view);
VEK_API bool bgr_slx_bgr(CVek_Solid& solid, bool& hasSolid, CVekDataItem* object, CVekDataItem* second,
                         const CVekMatrix3d& mtx, CVekDataItem* parameters, bool cut, bool drills);
VEK_API bool objModel(CVek_Solid& solid, const CVekDataItem* item);

} // namespace VEK
