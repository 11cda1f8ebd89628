/// @file
/// View matrices, and polylines seen through them.
#pragma once

#include <vek/values/polyline.h>

namespace VEK
{

/// The matrix of a view along a direction.
///
/// In the view the direction is +z and points at the viewer, `point` is the origin, and the world's z axis points up;
/// if the direction is vertical, the world's y axis does. So (0, 0, 1) with the origin gives the identity.
/// @param direction from the drawing to the viewer, of any length; a null vector is taken as (0, 0, 1)
/// @param toView true maps the world to the view, false the view to the world
VEK_API CVekMatrix3d g_mtx_view(const CVekVector3d& direction, const CVekPoint3d& point, bool toView);

/// The matrix that maps the world to a named view.
///
/// | name | direction | name | direction |
/// |---|---|---|---|
/// | "P" | (0, 0, 1) | "NO" | (1, 1, 1) |
/// | "N" | (0, 1, 0) | "NW" | (-1, 1, 1) |
/// | "S" | (0, -1, 0) | "SO" | (1, -1, 1) |
/// | "O" | (-1, 0, 0) | "SW" | (-1, -1, 1) |
/// | "W" | (1, 0, 0) | "E" | (1, 0, 0) |
///
/// The sign of x in "O" and "W" is opposite to that in "NO" and "SW": existing drawings rely on both.
/// @param name compared exactly, in upper case; any other name is the plan view "P"
VEK_API CVekMatrix3d g_mtx_view_dir(const wchar_t* name, const CVekPoint3d& point);

/// Projects a segment onto the xy plane: z of both points becomes 0.
/// @return the same segment
VEK_API CVekVertex& g_vx_xy(CVekVertex& vertex);

/// The polyline transformed by the matrix and projected onto the xy plane.
///
/// Arcs stay arcs if their plane ends up parallel to xy; all others are first replaced by chords. A segment seen end-on
/// is kept, without length.
/// @param tolerance greatest distance between chord and arc, in the unit of the polyline
VEK_API CVekVertexArray g_vl_proje_mtx_orig(CVekVertexArray vl, const CVekMatrix3d& m, double tolerance);

} // namespace VEK
