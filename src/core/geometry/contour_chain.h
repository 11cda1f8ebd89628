/// A contour as a closed chain of points.
#pragma once

#include "core/values/arc.h"

#include <vek/values/polyline.h>

#include <vector>

namespace VEK::plane
{

/// A point of a contour, with the bulge of the segment to the next one.
struct Link {
    Vec point;
    double bulge = 0.0;
};

/// Appends a contour as seen from above: its points, the first one once more at the end. Points that count as one
/// become the same, so that both segments there judge them alike; a gap is closed by a straight segment. Nothing is
/// appended where no segment has a length.
/// @return false where a coordinate is no finite number
bool appendChain(std::vector<Link>& links, const CVekVertexArray& contour);

} // namespace VEK::plane
