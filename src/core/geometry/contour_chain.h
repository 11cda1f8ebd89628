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

/// Appends a contour as seen from above: its points, with the first one repeated at the end. Points within tolerance of
/// one another become identical, so that both segments there classify them alike; a gap is closed by a straight
/// segment. Nothing is appended if no segment has a length.
/// @return false if a coordinate is not finite
bool appendChain(std::vector<Link>& links, const CVekVertexArray& contour);

} // namespace VEK::plane
