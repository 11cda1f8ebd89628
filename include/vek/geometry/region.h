/// @file
/// Regions: winding, inside and outside, punching, and building regions from loose contours.
///
/// A region is a list of polylines: element 0 is the outer contour, the others are holes in it. An empty list, or one
/// with an empty outer contour, contains nothing. The boundary, including that of the holes, belongs to the region. The
/// winding of contours has no meaning; an open contour is closed by a straight segment. All of it works in the xy
/// plane: z of the contours is ignored. The normal of arcs may point down; arcs whose normal is tilted are replaced by
/// fine chords.
///
/// To query one region several times, use a `CPreparedRegion`.
#pragma once

#include <vek/values/polyline.h>

namespace VEK
{

/// Whether a closed polyline runs positively (counter-clockwise) about the axis, by its exact area, arcs included;
/// false if it encloses nothing.
VEK_API bool g_vl_orient(const CVekVertexArray& vl, const CVekVector3d& axis);

/// Gives all closed contours of a region, holes included, the same winding: positive about the axis. Open ones stay
/// as they are.
VEK_API void regionOrient(CVekArrayTempl<CVekVertexArray>& region, const CVekVector3d& axis);

/// Cuts a polyline at a contour. Each piece is a separate polyline, in order along the original; if that is closed, the
/// piece across its start is not divided and comes first.
///
/// The cuts are exact on arcs, and arcs stay arcs. Pieces end only where the polyline changes between inside and
/// outside and at its own gaps; merely touching does not cut. What runs along the boundary is inside. Pieces keep z,
/// tags and normal of the polyline. No piece shorter than the point tolerance is cut off, but a segment of the polyline
/// that has no length, a dot, is inside or outside by its position. If the polyline has arcs that are not parallel to
/// xy, its pieces consist of fine chords.
/// @param inside true keeps what is inside, false the rest
VEK_API CVekArrayTempl<CVekVertexArray> vl_punch(CVekVertexArray vl, const CVekVertexArray& contour, bool inside);

/// The same with a whole region: inside means inside the outer contour and outside every hole.
VEK_API CVekArrayTempl<CVekVertexArray> vl_punch_reg(CVekVertexArray vl, const CVekArrayTempl<CVekVertexArray>& region,
                                                     bool inside);

/// Whether a point lies in the region: 1 inside or on the boundary, 0 outside.
VEK_API int g_vll_pt_inside(const CVekArrayTempl<CVekVertexArray>& region, const CVekPoint3d& point);

/// Prepares loose polylines for `g_vll_regions`: closed contours stay as they are, and the segments of the others
/// become the faces into which they divide the plane, so that cells with common walls each get their own contour.
///
/// Segments are connected where their ends meet; segments that cross elsewhere are not divided there. What cannot bound
/// a face is dropped: segments without length, contours without area, segments that lead to an open end, and duplicate
/// contours. A face that touches itself in a point is split there into its outer contour and those inside it. The
/// contours of faces run counter-clockwise from their leftmost point; which contours there are depends on neither the
/// order nor the direction of the segments.
/// @return in the order of their first segments in the list
VEK_API CVekArrayTempl<CVekVertexArray> vll_regions_prepare(const CVekArrayTempl<CVekVertexArray>& vll);

/// Sorts closed contours that do not cross into regions.
///
/// With bit 4 of the mode the contours directly inside an outer contour become its holes, an island in a hole becomes a
/// separate region, and so on inwards. Without it every contour is a separate region. The other bits are ignored.
/// Regions are in the order of their outer contours in the list; so are the holes of each.
VEK_API CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> g_vll_regions(const CVekArrayTempl<CVekVertexArray>& vll,
                                                                      unsigned long mode);

} // namespace VEK
