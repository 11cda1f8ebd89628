/// @file
/// Regions: winding, inside and outside, punching, and regions made of loose contours.
///
/// A region is a list of polylines: element 0 is the outer contour, the others are holes in it. A list without
/// elements, or with an empty outer contour, contains nothing. The boundary, that of the holes too, belongs to the
/// region. The winding of contours carries no meaning; an open contour counts as closed by a straight segment. All
/// of it happens in the xy plane: z of the contours is not looked at. Arcs may lie about a normal that points down;
/// where it points aside, fine chords take their place.
///
/// Who asks one region several times keeps a `CPreparedRegion`.
#pragma once

#include <vek/values/polyline.h>

namespace VEK
{

/// Whether a closed polyline runs positively (counter-clockwise) about the axis, by its exact area, arcs included.
/// One that encloses nothing does not.
VEK_API bool g_vl_orient(const CVekVertexArray& vl, const CVekVector3d& axis);

/// Gives all closed contours of a region, holes included, the same winding: positive about the axis. Open ones stay
/// as they are.
VEK_API void regionOrient(CVekArrayTempl<CVekVertexArray>& region, const CVekVector3d& axis);

/// Cuts a polyline at a contour. Each piece is a polyline of its own; they come in order along the polyline, and of a
/// closed one the piece that runs over its start comes first, in one.
///
/// The cuts are exact on arcs, and arcs stay arcs. Pieces end only where the polyline changes between inside and
/// outside and at its own breaks; a mere touch does not cut. What runs along the boundary is inside. Pieces keep z,
/// tags and normal of the polyline. Nothing shorter than the point tolerance is cut off, but a segment without length
/// that stands in the polyline, a dot, goes with the place where it lies. Of a polyline whose arcs do not lie parallel
/// to xy the pieces are of fine chords.
/// @param inside true keeps what is inside, false the rest
VEK_API CVekArrayTempl<CVekVertexArray> vl_punch(CVekVertexArray vl, const CVekVertexArray& contour, bool inside);

/// The same against a whole region: inside is what lies inside the outer contour and outside every hole.
VEK_API CVekArrayTempl<CVekVertexArray> vl_punch_reg(CVekVertexArray vl, const CVekArrayTempl<CVekVertexArray>& region,
                                                     bool inside);

/// Whether a point lies in the region: 1 inside or on the boundary, 0 outside.
VEK_API int g_vll_pt_inside(const CVekArrayTempl<CVekVertexArray>& region, const CVekPoint3d& point);

/// Prepares loose polylines for `g_vll_regions`: closed contours stay as they are, and out of the segments of the
/// others come the faces that they part the plane into, so that cells which share walls have each a contour of their
/// own.
///
/// Segments belong together where their ends meet; those that cross elsewhere are not parted there. What cannot bound
/// anything is dropped: segments without length, contours without area, what leads to an open end, and contours that
/// are there twice. A face that meets itself in a point gives its outer contour there, and what hangs in it its own
/// ones. The contours of faces run counter-clockwise from their leftmost point; which they are depends on neither the
/// order nor the directions of the segments.
/// @return in the order of their first segments in the list
VEK_API CVekArrayTempl<CVekVertexArray> vll_regions_prepare(const CVekArrayTempl<CVekVertexArray>& vll);

/// Sorts closed contours that do not cross into regions.
///
/// With bit 4 of the mode each outer contour gets the contours that lie directly in it as holes, and an island in a
/// hole becomes a region of its own, and so on inwards. Without it every contour is a region of its own. The other bits
/// are not looked at. Regions come in the order of their outer contours in the list, holes too.
VEK_API CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> g_vll_regions(const CVekArrayTempl<CVekVertexArray>& vll,
                                                                      unsigned long mode);

} // namespace VEK
