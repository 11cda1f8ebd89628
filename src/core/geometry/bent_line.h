/// Lines with rounded corners, and what is parallel to them: outlines and the skins of bent sheets. All of it is in the
/// xy plane.
#pragma once

#include <vek/values/polyline.h>

#include "core/values/arc.h"

#include <vector>

namespace VEK::detail
{

/// A corner of a line, with the radius by which it is rounded.
struct Corner {
    double x, y;
    double radius = 0.0;
};

using Corners = std::vector<Corner>;

/// Lengths are equal within this relative difference.
inline constexpr double kSame = 1e-12;

/// The line through the corners, each rounded by an arc. Corners that coincide with the previous one are left out.
/// @param closed from the last corner back to the first; of an open line the ends are not rounded
/// @return empty if fewer than two corners remain, three of a closed line, or if a radius is not a number, is negative
/// or does not fit
CVekVertexArray roundedLine(Corners corners, bool closed);

/// One skin of a sheet that is bent at the corners: each is rounded so that the inner side of the bend has the corner's
/// radius, and the outer side one that is greater by the thickness.
/// @param thickness how far the other skin is away: positive to the left of the line, negative to the right
/// @return empty as with `roundedLine`
CVekVertexArray bentLine(Corners corners, double thickness);

/// The line at a distance from a continuous one, positive to its left. Arcs keep their centres; about a sharp corner it
/// goes on its outer side by an arc.
/// @return empty if an arc is too tight for the distance, or a sharp corner lies on the inner side
CVekVertexArray parallelLine(const CVekVertexArray& line, double distance);

/// The closed, counter-clockwise contour between an open line and the one parallel to it. It starts with the line on
/// the right, in its direction.
CVekVertexArray stripContour(const CVekVertexArray& line, const CVekVertexArray& parallel, double distance);

/// Appends two arcs from one point to another that leave and arrive in given directions and go over into one another
/// without a corner.
/// @param leave, arrive of length 1, less than half a turn apart
void appendArcs(CVekVertexArray& line, plane::Vec from, plane::Vec leave, plane::Vec to, plane::Vec arrive);

} // namespace VEK::detail
