/// @file
/// View matrices, and polylines seen through them.
#pragma once

#include <vek/values/polyline.h>

namespace VEK
{

/// The matrix of a view along a direction.
///
/// In the view the direction is +z and points at the viewer, `point` is the origin, and the world's z axis points up;
/// where the direction is vertical, the world's y axis does. So (0, 0, 1) with the origin gives the identity.
/// @param direction from the drawing to the viewer, of any length; a null vector counts as (0, 0, 1)
/// @param toView true takes the world to the view, false the view to the world
VEK_API CVekMatrix3d g_mtx_view(const CVekVector3d& direction, const CVekPoint3d& point, bool toView);

/// The matrix that takes the world to a named view.
///
/// | name | direction | name | direction |
/// |---|---|---|---|
/// | "P" | (0, 0, 1) | "NO" | (1, 1, 1) |
/// | "N" | (0, 1, 0) | "NW" | (-1, 1, 1) |
/// | "S" | (0, -1, 0) | "SO" | (1, -1, 1) |
/// | "O" | (-1, 0, 0) | "SW" | (-1, -1, 1) |
/// | "W" | (1, 0, 0) | "E" | (1, 0, 0) |
///
/// The sign of x in "O" and "W" is opposite to that in "NO" and "SW": drawings rely on both as they are.
/// @param name compared exactly, in upper case, a `CVekString` or plain text; any other name is the plan "P"
VEK_API CVekMatrix3d g_mtx_view_dir(const wchar_t* name, const CVekPoint3d& point);

/// Drops a segment into the xy plane: z of both points becomes 0.
/// @return the same segment
VEK_API CVekVertex& g_vx_xy(CVekVertex& vertex);

/// The polyline as the matrix shows it: transformed, and every point dropped to z = 0.
///
/// Arcs stay arcs where their plane comes to lie parallel to xy; all others become chords first. A segment that is
/// seen from its end stays, without length.
/// @param tolerance greatest distance between chord and arc, in the unit of the polyline
VEK_API CVekVertexArray g_vl_proje_mtx_orig(CVekVertexArray vl, const CVekMatrix3d& m, double tolerance);

} // namespace VEK
