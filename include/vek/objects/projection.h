/// @file
/// The geometry of elements and objects in a view.
///
/// `view` is everywhere the matrix from the view to the world, the inverse of `g_mtx_view_dir`; `mtx` takes an element
/// to the world. What comes back is in view coordinates at z = 0.
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

/// Reads a standard view, which is stored as a number.
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, NormView& value);

/// Whether the view direction is parallel to one of the element's axes, within 1e-6 radians.
VEK_API bool isViewDirOrtho(const CVekMatrix3d& mtx, const CVekMatrix3d& view);

/// Whether the axis of a drill or standard part, its z axis, is parallel to the view direction.
/// @param bt its definition
/// @param hostMatrix receives the matrix by which the host places its picture: element to view, with the depth taken
///     out; unchanged if the result is false
/// @return false also for null and for a definition that is no directory
VEK_API bool isBtOrthoView(const CVekDataItem* element, CVekMatrix3d mtx, const CVekMatrix3d& view,
                           const CVekDataItem* bt, CVekMatrix3d& hostMatrix);

/// Projects an element: its body with hidden lines, each line with its kind and element number 0, then its plain lines.
/// @param element merged data
/// @param parameters item, or null: "NO_DRILL" leaves the holes of the element's drills out, "CUT" is a directory of
///     planes that cut its ends, "INSUNIT" the unit of its lengths
/// @param visible,hidden,shared receive the result in place of what they held. `shared` keeps alive what the lines
///     lean on, which is nothing here
/// @return false, with empty lists, if the element has neither body nor lines
VEK_API bool getProjectedGeometry(const CVekDataItem* element, const CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                  const CVekDataItem* parameters, CVekArrayTempl<CVekVertexArrayEx>& visible,
                                  CVekArrayTempl<CVekVertexArrayEx>& hidden,
                                  CVekArrayTempl<CSharedPointer<CVekDataItem>>& shared);

/// The holes of the drills of an element, in order: for each an element of "TYPE" "DRILL", which is one and the same
/// for the holes of a drill, and the matrix of the hole to the world.
/// @param drills receives the list in place of what it held
/// @param bt the element's definition
/// @param parameters,view change nothing
/// @return false, with an empty list, if there is none, and when memory runs out
VEK_API bool getExtrDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt,
                              const CVekDataItem* parameters, const CVekMatrix3d& mtx, const CVekMatrix3d& view);
VEK_API bool getAngleDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt,
                               const CVekDataItem* parameters, const CVekMatrix3d& mtx, const CVekMatrix3d& view);

/// The same for a sheet with one fold, and with several. A drill may stand in one of the sheet's planes.
VEK_API bool getEdgeDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* parameters,
                              const CVekMatrix3d& mtx, const CVekMatrix3d& view);
VEK_API bool getEdgeNDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* parameters,
                               const CVekMatrix3d& mtx, const CVekMatrix3d& view);

/// Builds the solid of a whole object in the object's unit. The element number of its lines is the element's place in
/// the map of `vek_bgr_strong` for the same arguments. Elements without a body are left out, as are drills that are
/// elements of their own.
/// @param solid receives the bodies in place of what it held
/// @param hasSolid whether there is any
/// @param second item with status codes, or null
/// @param parameters,cut pass null and false; they change nothing
/// @param drills with the holes of the elements' own drills
/// @return false, with an empty solid, in the cases of `vek_bgr_strong`
VEK_API bool bgr_slx_bgr(CVek_Solid& solid, bool& hasSolid, CVekDataItem* object, CVekDataItem* second,
                         const CVekMatrix3d& mtx, CVekDataItem* parameters, bool cut, bool drills);

/// Builds the solid of an element or of a definition that stands alone, as the root of a drill's file: a drill gives
/// the body of its hole.
/// @param solid receives the body in place of what it held
/// @return false, with an empty solid, if there is none
VEK_API bool objModel(CVek_Solid& solid, const CVekDataItem* item);

} // namespace VEK
