/// @file
/// Free functions for one polyline: runs, extents, chords, parts, dashes.
#pragma once

#include <vek/values/linetype.h>
#include <vek/values/polyline.h>

namespace VEK
{

/// Splits the polyline at its gaps into its continuous runs, in order.
VEK_API CVekArrayTempl<CVekVertexArray> vl_to_vll(CVekVertexArray vl);

/// The bounding box, arcs included, in a coordinate system whose x axis points along `angle`.
/// @return two points in the caller's coordinates, the lowest and the highest corner in that system; none for an empty
/// polyline
VEK_API CVekPoint3dArray vl_extmax(const CVekVertexArray& vl, double angle);

/// The rectangle of the ordinary bounding box, grown by `offset` on each side: closed, counter-clockwise from the
/// lowest corner, at the lowest z of the polyline.
/// @return empty for an empty polyline, and if a negative offset leaves nothing
VEK_API CVekVertexArray vl_extrect(const CVekVertexArray& vl, double offset);

/// Number of equal chords that stay within `dif` of the segment: 1 for a straight one, for an arc at least one per
/// quarter turn and at most 4096, which is also the number for a `dif` that is not above 0.
VEK_API int vx_split_dif(const CVekVertex& vertex, double dif);

/// The polyline with every arc replaced by equal chords that stay within `dif` of it (see `vx_split_dif`). Straight
/// segments stay as they are; a chord carries the tag of its arc.
VEK_API CVekVertexArray vl_split_dif(CVekVertexArray vl, double dif);

/// Explodes every arc of the polyline into `n` equal chords; `n` is clamped to 1 to a million. Straight segments stay.
VEK_API CVekVertexArray g_vl_expl(const CVekVertexArray& vl, int n);

/// The part of the polyline between two points that lie on it, in the polyline's own direction, whichever point comes
/// first.
/// @return empty if a point does not lie on the polyline, or if both are the same
VEK_API CVekVertexArray g_vl_cut(CVekVertexArray vl, const CVekPoint3d& from, const CVekPoint3d& to);

/// Applies a line pattern to the polyline and returns the dashes.
///
/// The pattern restarts at each continuous run and repeats to its end, where the last dash is cut. A dash around a
/// corner is one polyline; the dash of an arc is an arc. A dot is a piece without length. A dot at the end of a run is
/// kept; a dash that would begin there is not.
///
/// A pattern without any length gives one dot at the start of each run. If a pattern is so fine that all runs together
/// would take more than a million entries, the runs stay solid.
/// @param scale factor on the pattern's lengths
/// @return one polyline for each dash and dot, in order; the runs themselves when the pattern has no entry or the
///     scale is not above 0
VEK_API CVekArrayTempl<CVekVertexArray> vl_measure(CVekVertexArray vl, double scale, CVekLineParm pattern);

} // namespace VEK
