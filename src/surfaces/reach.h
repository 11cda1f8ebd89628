// Coordinates that a surface cannot hold: lines and polygons are clipped where they exceed the limit, so that they keep
// their direction and never wrap around.
#pragma once

#include <vek/surfaces/surface.h>

#include <cmath>
#include <vector>

namespace VEK::reach
{

/// Largest absolute coordinate of a file surface: the largest that GDI draws without overflow.
inline constexpr double kLimit = 134217727.0;

/// Whether a point is within the limit; false if it is not finite.
inline bool holds(const SurfacePoint& p)
{
    return std::abs(p.x) <= kLimit && std::abs(p.y) <= kLimit;
}

inline bool isFinite(const SurfacePoint& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

/// A coordinate of a box, clamped to the limit; 0 for NaN.
double clamped(double value);

/// Clips a segment to the part within the limit.
/// @return false if nothing is left or an end is not finite
bool cutSegment(SurfacePoint& from, SurfacePoint& to);

/// Clips a closed polygon to the part within the limit, which may run along its border; points that are not finite are
/// left out.
void cutPolygon(const SurfacePoint* points, int count, std::vector<SurfacePoint>& result);

} // namespace VEK::reach
