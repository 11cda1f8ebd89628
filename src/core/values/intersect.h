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

/// What two segments share: up to two separate points, and up to two common stretches.
///
/// Two stretches come only of two arcs of one circle that lap over at both ends. Each stretch is a pair of points, its
/// ends, so that `points[0]` and `points[1]` are the ends of the first one.
struct Meetings {
    Meeting points[4];
    int count = 0;
    bool overlap = false; ///< the points are the ends of common stretches, two by two
};

/// The points that two segments share within a tolerance; the ends of the segments and touches are among them. Points
/// closer to one another than the tolerance count once, and a common stretch shorter than that is a point. They stand
/// in the order of `a`; a meeting at an end has the parameter 0 or 1 exactly.
/// @param tolerance greatest distance of a point from both segments
Meetings meet(const Arc& a, const Arc& b, double tolerance);

} // namespace VEK::plane
