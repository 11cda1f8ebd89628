/// @file
/// Sections of bars, and the elements that belong to one.
#pragma once

#include <vek/data/file.h>

namespace VEK
{

/// The section of a bar: one region for each of its parts, contour and holes. The root of the bar's file has
///  - "REGL": list of regions, or else
///  - "VL": list of polylines that bound the regions, or else
///  - "OUTLINE": an outline as `g_outline` reads it; a tube has its hole;
///  - "UNIT": the unit of its lengths, the drawing's current unit if missing.
/// @param file a null file has no section
/// @param mtx takes the section from the bar's coordinates, in the drawing's current unit, to the caller's
/// @return empty if there is no section, and when memory runs out
VEK_API Regions bar_regl(CDtaFilePointer* file, const CVekMatrix3d& mtx);

/// The sub-elements of a bar's element: those of its group whose "PARENT" names the element or another sub-element, in
/// the order of the group. An element is never a sub-element of itself, and a circle ends.
/// @param keys receives their keys; empty on failure
/// @param root the root of the bar's data; the group is a directory of its linked object "LOBJ", or else of the root
/// @return false if there is none
VEK_API bool bar_bt_subs(CVekArrayTempl<CVekDataKey>& keys, CVekDataItem* root, const CVekString& group,
                         const CVekString& element);

} // namespace VEK
