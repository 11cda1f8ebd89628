/// Parts of regions.
#pragma once

#include <vek/values/polyline.h>

namespace VEK::detail
{

/// The part of a region inside or outside a closed contour, as regions. Their outer contours run counter-clockwise.
/// @param inside false keeps what is outside
CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> cutRegion(const CVekArrayTempl<CVekVertexArray>& region,
                                                          const CVekVertexArray& contour, bool inside);

} // namespace VEK::detail
