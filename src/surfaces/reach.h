// Coordinates that a surface can't hold: lines and polygons are cut where they leave its reach, so that they keep
// their direction and never wrap around.
#pragma once

#include <vek/surfaces/surface.h>

#include <cmath>
#include <vector>

namespace VEK::reach
{

/// Greatest coordinate of a file surface either way: the greatest that GDI draws without overflow.
inline constexpr double kLimit = 134217727.0;

/// Whether a point lies within reach; false for one that is not finite.
inline bool holds(const SurfacePoint& p)
{
    return std::abs(p.x) <= kLimit && std::abs(p.y) <= kLimit;
}

inline bool isFinite(const SurfacePoint& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y);
}

/// A coordinate of a box, moved to the edge of the reach; 0 for one that is no number.
double clamped(double value);

/// Cuts a segment down to the part within reach.
/// @return false when nothing is left or an end is not finite
bool cutSegment(SurfacePoint& from, SurfacePoint& to);

/// Cuts a closed polygon down to the part within reach, which may run along the border of the reach; points that are
/// not finite are left out.
void cutPolygon(const SurfacePoint* points, int count, std::vector<SurfacePoint>& result);

} // namespace VEK::reach
