/// Which contour contains which.
#pragma once

#include <vek/values/polyline.h>

#include <vector>

namespace VEK::detail
{

/// For each of a list of closed contours that do not cross, the index of the smallest one that contains it, or -1.
/// Contours may touch and share sides; of two identical ones neither contains the other. Takes n log^2 n time for n
/// segments, however the contours lie.
std::vector<int> parentsOf(const CVekArrayTempl<CVekVertexArray>& contours);

} // namespace VEK::detail
