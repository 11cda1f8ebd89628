/// @file
/// The tolerances of the geometry, in one place.
#pragma once

#include <cmath>

namespace VEK
{

/// Two points are the same within this distance, in drawing units: small compared with the finest feature of 1e-3, and
/// large enough for the precision of a double at coordinates around 1e7.
inline constexpr double kPointTol = 1e-6;

/// The point tolerance for coordinates of a given size. Beyond 1e7 the spacing of doubles is too coarse for
/// `kPointTol`, and the tolerance grows with the coordinates.
inline double pointTol(double size)
{
    const double spacing = std::fabs(size) * 1e-13;
    return spacing > kPointTol ? spacing : kPointTol;
}

} // namespace VEK
