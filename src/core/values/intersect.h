/// @file
/// Where two segments of a plane meet.
#pragma once

#include "core/values/arc.h"

namespace VEK::plane
{

/// A point that two segments share, with the parameters at which it lies on each.
struct Meeting {
    Vec point;
    double a = 0.0; ///< parameter along the first segment
    double b = 0.0; ///< parameter along the second segment
};

/// What two segments share, in the order of `a`. Two arcs of one circle that overlap at both ends give four points,
/// which is the most; any others give at most two, apart from ends within the tolerance of a touch.
struct Meetings {
    Meeting points[4];
    int count = 0;
    bool along[4] = {}; ///< whether the stretch from that point to the next one is common to both
};

/// The points that two segments share within a tolerance, including ends and touches; for a common stretch its ends.
///
/// Points closer together than the tolerance are given once. If an end is involved, the point is that end and the
/// parameter is exactly 0 or 1. A curve that reaches no deeper than the tolerance past another one touches it, in one
/// point. Segments without length meet what they lie on.
/// @param tolerance greatest distance of such a point from either segment
Meetings meet(const Arc& a, const Arc& b, double tolerance);

} // namespace VEK::plane
