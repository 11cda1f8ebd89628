/// Areas of polylines.
#pragma once

#include <vek/values/polyline.h>

namespace VEK::detail
{

/// The area that a polyline encloses, arcs included, seen along the axis: positive if it runs counter-clockwise about
/// the axis. Gaps are closed by straight segments.
/// @param axis of length 1
double signedArea(const CVekVertexArray& vl, const CVekVector3d& axis);

} // namespace VEK::detail
