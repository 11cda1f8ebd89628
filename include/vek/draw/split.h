/// @file
/// Preparing polylines for a device that draws straight lines: arcs become chords, and line patterns become dashes.
#pragma once

#include <vek/values/polyline.h>

/// The polylines with their arcs replaced by chords, each in the plane of its own normal. The chord tolerance is 0.01
/// for an arc shorter than 4.0 and 0.05 for a longer one, in drawing units. Straight segments are unchanged. The result
/// is empty when memory runs out.
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_split(const CVekArrayTempl<CVekVertexArray>& reg);
VEK_API CVekVertexArray vek_gdx_image_vl_split(const CVekVertexArray& vl);

/// Replaces a polyline by the dashes of a line pattern, as one polyline of separate segments with the same normal: a
/// caller that needs to know whether it is continuous or closed checks before. Dashes lie at z = 0, below or above the
/// original: arcs become chords in the plane of the polyline first. They remain arcs only along runs (`mode` 0) of a
/// polyline parallel to xy.
/// @param dashes lengths of dashes above 0.0, gaps below 0.0, dots 0.0, in drawing units
/// @param mode 1 applies the pattern to each segment separately, arranged to begin and end within a long dash and with
/// its gaps stretched to end with the segment; a segment not longer than the pattern is unchanged. A length within the
/// tolerance of a whole number of patterns is taken as that number. 0 applies the pattern along each continuous run.
/// @return false, with the polyline unchanged, for a pattern of fewer than two entries and when memory runs out
VEK_API bool vek_gdx_image_vl_measure(CVekVertexArray& vl, CVekArrayTempl<double> dashes, int mode);
