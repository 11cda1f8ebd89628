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
/// | 23 | ellipse | width, height |
/// | 24 | round tube | diameter, wall |
/// | 25 | rectangular tube | width, height, wall, outer radius |
/// | 26 | rolled angle, as 13 | width, height, thickness, root radius, toe radius |
/// | 27 | bent angle, as 13 | width, height, thickness, inner radius |
/// | 28 | bent U, as 16 | width, height, thickness, inner radius |
/// | 29 | bent Z, as 17 | width of a flange, height, thickness, inner radius |
/// | 30 | bent U with lips | width, height, lip, thickness, inner radius |
/// | 31 | bent Z with lips | width of a flange, height, lip, thickness, inner radius |
/// | 32 | bent angle with lips | width, height, lip, thickness, inner radius |
/// | 33 | hat, open below | crown, height, brim, thickness, inner radius |
/// | 34 | rib: a hat with slanted webs | crown, foot, height, brim, thickness, inner radius |
/// | 35 | segment of a disc, its straight side below | chord, height |
/// | 36 | disc with a flat on top | diameter, height |
/// | 37 | disc with two flats, on top and below | diameter, width across flats |
/// | 38 | keyhole, its slot below | diameter, width of the slot, height |
/// | 39 | notch: a rectangle with a round lower end | width, depth |
/// | 40 | pane with an arched top | width, height, rise of the arch |
/// | 41 | pane with a gable | width, height, rise of the gable |
///
/// The origin is the centre of the shape's bounding box; for 20 to 22, 36 and 38 it is the centre of the arc or disc.
/// The fillet is the radius of the inner corners and may be 0, and so may the radius of 4, the chamfer of 5, either
/// width of 11, the shift of 12, the inner radius of 21 and of bent shapes, the outer radius of 25 and the radii of 26.
/// All others must be above 0, but these may be negative: the width of 10, 13, 16, 17 and 26 to 32 mirrors the shape at
/// the y axis, the shift of 12 goes to the left, the angle of 21 runs clockwise, and a negative diameter of 22 flips
/// the half disc to below its horizontal side.
///
/// Widths and heights are overall. Bends of sheet are concentric: outside, the radius is greater by the thickness. The
/// brim is measured from the outside of the web, crown and foot from corner to corner of the upper side. The ellipse
/// consists of arcs that stay within a thousandth of its larger diameter.
///
/// The contour of the tubes goes around the outside, along a seam to the inside, around that clockwise and back along
/// the seam; `g_outline_region` gives them without a seam.
///
/// @param offset moves the outline
/// @param parameters as in the table, lengths in the caller's unit; further ones are ignored
/// @return empty for an unknown kind, and for missing or invalid parameters
VEK_API CVekVertexArray g_outline(int kind, const CVekVector3d& offset, const CVekArrayTempl<double>& parameters);
inline CVekVertexArray g_outline(int kind, const CVekPoint3d& offset, const CVekArrayTempl<double>& parameters)
{
    return g_outline(kind, offset.asVector(), parameters);
}

/// The same shape as a region: its contour and, of a tube, the hole in it, both counter-clockwise.
VEK_API CVekArrayTempl<CVekVertexArray> g_outline_region(int kind, const CVekVector3d& offset,
                                                         const CVekArrayTempl<double>& parameters);

/// The kinds are numbered from 1 to this.
inline constexpr int outlineKinds = 41;

} // namespace VEK
