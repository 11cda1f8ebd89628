/// @file
/// Views: fitting extents to a drawing area, and view directions by keyword.
#pragma once

#include <vek/values/polyline.h>
#include <vek/values/string.h>

/// The matrix that fits extents into a drawing area and turns the y axis downwards, so that its results are pixels.
/// @param min, max extents to fit, in the space after the projection
/// @param height, width size of the drawing area in pixels; 0 means 240 and 320
/// @param margin added on each side, as a fraction of the larger extent
/// @return the identity if the extents have no width or no height
VEK_API CVekMatrix3d getViewMtx(CVekPoint3d min, CVekPoint3d max, int height, int width, double margin);

/// The direction of a view keyword: "P" plan, "N", "S", "O", "W" the four sides, "NO", "NW", "SO", "SW" the corners
/// from above. The x of "O" and "W" has the opposite sign to the corners' on purpose: stored views rely on it.
/// @return the zero vector for an unknown keyword
VEK_API CVekVector3d vek_gdx_view_vdir_get(const wchar_t* keyword);

/// A copy of the polyline transformed by `VEK::g_mtx_view(direction, point, toView)` and flattened to z = 0. If its
/// plane is not parallel to xy afterwards, its arcs become fine chords first.
VEK_API CVekVertexArray vek_g_vl_mtx_view(const CVekVertexArray& vl, const CVekVector3d& direction,
                                          const CVekPoint3d& point, bool toView);

namespace VEK
{
using ::getViewMtx;
} // namespace VEK
