/// @file
/// Hatches: parallel lines, grids of dots, and named patterns of dashed lines.
///
/// The region is a list of contours, element 0 the outer one and the others holes; their winding plays no part. A
/// matrix takes the hatch plane, z = 0, to the world. Work grows with the contour's size once and with what the lines
/// cross. A hatch ends at `VEK::kHatchPieces` pieces. A region, matrix or number that is not finite gives nothing, and
/// nor does a hatch for which memory does not suffice.
#pragma once

#include <vek/values/linetype.h>
#include <vek/values/matrix.h>
#include <vek/values/polyline.h>

namespace VEK
{

/// Lines of one family, and pieces of one hatch, at most.
inline constexpr int kHatchLines = 1000000;
inline constexpr int kHatchPieces = 1000000;

} // namespace VEK

/// Fills a region with parallel lines, or with a grid of dots.
///
/// Dots stand in rows along the x axis of the hatch plane, from the lower edge of the outer contour on. In each piece
/// of a row they begin anew at its start.
///
/// Lines run through the lower corner of the box around the outer contour, in the direction of minus `angle`: a
/// positive angle tilts them clockwise. Their number is not that which the pitch asks for, but that of the whole units
/// by which the outer contour spreads in the longer one of its directions, both ends cut towards zero first; so with a
/// pitch below 1.0 the hatch stops short of the far side. Callers rely on that.
///
/// @param regl in the world
/// @param mtx from the hatch plane to the world
/// @param name L"DOTS" for the grid; any other, for lines
/// @param pitch distance of lines, rows, and dots in a row, in units of the hatch plane; not above 0 gives nothing
/// @param angle radians; the grid has none
/// @return a polyline for each piece and dot, in the world; a dot has no length
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch(CVekArrayTempl<CVekVertexArray> regl,
                                                                const CVekMatrix3d& mtx, const CVekString& name,
                                                                double pitch, double angle);

/// The same.
/// @param cutShort receives whether lines or pieces are missing that the hatch should have
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch(CVekArrayTempl<CVekVertexArray> regl,
                                                                const CVekMatrix3d& mtx, const CVekString& name,
                                                                double pitch, double angle, bool& cutShort);

/// Fills a region with a hatch pattern: families of lines, each with a step from one line to the next and dashes.
///
/// The lines come from `hatchPatternGet` of the host. L"_USER" and L"_U" stand for solid lines one unit apart, a
/// second time a quarter turn on when `hatch.crossed` is set. Dots are strokes of 0.2 mm. The pattern is fixed to the
/// origin of the hatch plane, and turned about it by the angle of `hatch`.
///
/// A line has its stretches inside between the places where it meets the contours, taken in pairs. A line with an odd
/// number of them, as one through a corner that it only touches, is left out, so a gap shows there. Where an end of a
/// stretch parts a dash, that part of it stays whose middle is inside, the first one before the other.
///
/// How lines are found is part of what is drawn. A line reaches 15 times the diagonal of the outer contour to both
/// sides of its middle, a dashed one 20 times the next whole number of patterns; the middles move by the step from the
/// pattern's first point on. The search begins where a line of the pattern not yet turned lies below the region, goes
/// back while lines still meet the outer contour, and then forward, until a line misses it again. It tries 20 times
/// the lines that the diagonal takes, forward three times as many. For L"GRAVEL" a line reaches 150 patterns, and 200
/// with 200 times the lines tried when its scale is below 1.0. So nothing is drawn in a region that lies further aside
/// along the lines than they reach, or that the turned lines reach only behind the last line tried; and of an outer
/// contour in separate parts one above the other, only the part is drawn that is met first.
///
/// A family whose step has no distance draws nothing, and nor does one of more than `VEK::kHatchLines` lines.
///
/// @param regl in the world
/// @param mtx from the hatch plane to the world
/// @return for each hatch line that has any a polyline of its pieces, as separate segments, in the world
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch2(CVekArrayTempl<CVekVertexArray> regl,
                                                                 const CVekMatrix3d& mtx, const VEK::CHatchProp& hatch);

/// The same.
/// @param cutShort receives whether lines or pieces are missing that the hatch should have; a family whose step has no
/// distance should have none
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch2(CVekArrayTempl<CVekVertexArray> regl,
                                                                 const CVekMatrix3d& mtx, const VEK::CHatchProp& hatch,
                                                                 bool& cutShort);

/// Whether a pattern is worth drawing: it takes fewer than 95 lines across the outer contour, and its finest step is
/// more than 2.3 device units. A pattern that the host does not know is, and so are L"_USER" and L"_U". Where memory
/// ends none is.
/// @param mtx from the region's coordinates to device units
VEK_API bool vek_gdx_pattern_test(CVekArrayTempl<CVekVertexArray> regl, const VEK::CHatchProp& hatch,
                                  const CVekMatrix3d& mtx);
