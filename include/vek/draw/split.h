/// @file
/// Preparing polylines for a device of straight lines: arcs become chords, and line patterns become dashes.
#pragma once

#include <vek/values/polyline.h>

/// The polylines with their arcs replaced by chords, each in the plane of its own normal. Chords stay within 0.01 of
/// an arc shorter than 4.0 and within 0.05 of a longer one, in drawing units. Straight segments stay as they are.
/// Where memory ends the result is empty.
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_split(const CVekArrayTempl<CVekVertexArray>& reg);
VEK_API CVekVertexArray vek_gdx_image_vl_split(const CVekVertexArray& vl);

/// Replaces a polyline by the dashes of a line pattern, as one polyline of separate segments with the normal of the
/// whole: a caller that needs to know whether it is continuous or closed asks before. Dashes lie at z = 0, below or
/// above what they stand for: arcs become chords in the plane of the polyline first. Only along runs (`mode` 0) of a
/// polyline that lies parallel to xy they stay arcs.
/// @param dashes drawn lengths above 0.0, gaps below 0.0, dots 0.0, in drawing units
/// @param mode 1 lays the pattern on each segment by itself, arranged to begin and end within a long dash and with
/// its gaps stretched to end with the segment; a segment not longer than the pattern stays as it is. A length within
/// the tolerance of whole patterns counts as that. 0 runs the pattern along each continuous run.
/// @return false, with the polyline as it was, for a pattern of fewer than two entries and where memory does not
/// suffice
VEK_API bool vek_gdx_image_vl_measure(CVekVertexArray& vl, CVekArrayTempl<double> dashes, int mode);
