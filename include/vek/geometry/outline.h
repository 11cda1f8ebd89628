/// @file
/// Outlines of standard shapes.
#pragma once

#include <vek/values/polyline.h>

namespace VEK
{

/// The outline of a standard shape: closed, counter-clockwise, in the xy plane, with true arcs.
///
/// | kind | shape | parameters |
/// |---|---|---|
/// | 1 | circle | diameter |
/// | 2 | rectangle | width, height |
/// | 3 | square | side |
/// | 4 | rectangle with rounded corners | width, height, radius |
/// | 5 | rectangle with chamfered corners | width, height, chamfer |
/// | 6 | slot with round ends | overall length, width |
/// | 7 | hexagon, two sides horizontal | width across flats |
/// | 8 | octagon, two sides horizontal | width across flats |
/// | 9 | isosceles triangle, apex up | base, height |
/// | 10 | right triangle, right angle at the lower left | width, height |
/// | 11 | trapezium | bottom width, top width, height |
/// | 12 | parallelogram | width, height, shift of the top |
/// | 13 | L, its corner at the lower left | width, height, vertical leg, horizontal leg, fillet |
/// | 14 | T, its flange on top | width, height, web, flange, fillet |
/// | 15 | I | width, height, web, flange, fillet |
/// | 16 | U, open to the right | width, height, web, flange, fillet |
/// | 17 | Z, upper flange to the left, lower to the right | width, height, web, flange, fillet |
/// | 18 | C, a U with lips | width, height, thickness, lip |
/// | 19 | cross | width, height, vertical bar, horizontal bar |
/// | 20 | quarter disc | radius |
/// | 21 | sector of a ring, starting at the x axis | outer radius, inner radius, angle in degrees |
/// | 22 | half disc, the section mark | diameter |
///
/// The origin is the centre of the shape's bounding box; for 20 to 22 it is the centre of the arc. The fillet is the
/// radius of the inner corners and may be 0, and so may the radius of 4, the chamfer of 5, either width of 11, the
/// shift of 12 and the inner radius of 21. All others must be above 0, but these may be negative: the width of 10, 13,
/// 16 and 17 mirrors the shape at the y axis, the shift of 12 goes to the left, the angle of 21 runs clockwise, and a
/// negative diameter of 22 flips the half disc to below its horizontal side.
///
/// @param offset moves the outline
/// @param parameters as in the table, lengths in the caller's unit; further ones are ignored
/// @return empty for an unknown kind, and for missing or invalid parameters
VEK_API CVekVertexArray g_outline(int kind, const CVekVector3d& offset, const CVekArrayTempl<double>& parameters);
inline CVekVertexArray g_outline(int kind, const CVekPoint3d& offset, const CVekArrayTempl<double>& parameters)
{
    return g_outline(kind, offset.asVector(), parameters);
}

} // namespace VEK
