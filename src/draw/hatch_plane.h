/// What both hatches need of numbers and regions.
#pragma once

#include <vek/values/matrix.h>
#include <vek/values/polyline.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace VEK::detail
{

/// Cuts towards zero. What 32 bits cannot hold becomes the lowest number, as processors have it.
inline std::int32_t cutToInt(double value)
{
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<std::int32_t>(value)
                                                         : std::numeric_limits<std::int32_t>::min();
}

inline bool isFinite(const CVekMatrix3d& m)
{
    double sum = 0.0;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            sum += m[row][column] * 0.0;
    }
    return sum == 0.0;
}

/// Whether every coordinate is finite, and so far from infinity that products of two are, too.
inline bool isFinite(const CVekArrayTempl<CVekVertexArray>& region)
{
    constexpr double kGreat = 1e150;
    double sum = 0.0;
    for (const CVekVertexArray& contour : region) {
        for (const CVekVertex& v : contour) {
            for (int axis = 0; axis < 3; ++axis)
                sum += (std::fabs(v.start[axis]) + std::fabs(v.end[axis])) * kGreat * 0.0;
            sum += v.bulge * 0.0;
        }
    }
    return sum == 0.0;
}

} // namespace VEK::detail
