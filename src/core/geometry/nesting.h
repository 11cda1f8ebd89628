/// Which contour lies in which.
#pragma once

#include <vek/values/polyline.h>

#include <vector>

namespace VEK::detail
{

/// For each of some closed contours that do not cross, the position of the smallest one that contains it, or -1.
/// Contours may touch and share sides; of two that are the same neither contains the other. Takes n log^2 n for n
/// segments, however the contours lie.
std::vector<int> parentsOf(const CVekArrayTempl<CVekVertexArray>& contours);

} // namespace VEK::detail
