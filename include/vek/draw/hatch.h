/// @file
/// Hatches: parallel lines, grids of dots, and named patterns of dashed lines.
///
/// The region is a list of contours, element 0 the outer one and the others holes; their winding is irrelevant. A
/// matrix transforms the hatch plane, z = 0, to the world. The cost is proportional to the contour's size plus what the
/// lines cross. A hatch has at most `VEK::kHatchPieces` pieces. The result is empty if the region, matrix or a number
/// is not finite or memory runs out.
#pragma once

#include <vek/values/linetype.h>
#include <vek/values/matrix.h>
#include <vek/values/polyline.h>

namespace VEK
{

/// Maximum number of lines of one family, and of pieces of one hatch.
inline constexpr int kHatchLines = 1000000;
inline constexpr int kHatchPieces = 1000000;

} // namespace VEK

/// Fills a region with parallel lines, or with a grid of dots.
///
/// Dots lie in rows along the x axis of the hatch plane, beginning at the lower edge of the outer contour. Each piece
/// of a row starts with a dot at its beginning.
///
/// The first line runs through the lower corner of the box around the outer contour; all run in the direction of minus
/// `angle`: a positive angle tilts them clockwise. Their number is not derived from the pitch: it is the outer
/// contour's extent in whole units in the longer one of its directions, both ends truncated towards zero first; so with
/// a pitch below 1.0 the hatch stops short of the far side. Callers rely on that.
///
/// @param regl in world coordinates
/// @param mtx from the hatch plane to the world
/// @param name L"DOTS" for the grid; anything else for lines
/// @param pitch distance between lines, rows, and dots in a row, in units of the hatch plane; 0 or less gives nothing
/// @param angle radians; ignored for the grid
/// @return a polyline for each piece and dot, in the world; a dot has no length
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch(CVekArrayTempl<CVekVertexArray> regl,
                                                                const CVekMatrix3d& mtx, const CVekString& name,
                                                                double pitch, double angle);

/// As above.
/// @param cutShort receives whether any lines or pieces of the hatch are missing
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch(CVekArrayTempl<CVekVertexArray> regl,
                                                                const CVekMatrix3d& mtx, const CVekString& name,
                                                                double pitch, double angle, bool& cutShort);

/// Fills a region with a hatch pattern: families of lines, each with a step from one line to the next and dashes.
///
/// The lines come from `hatchPatternGet` of the host. L"_USER" and L"_U" mean solid lines one unit apart, repeated at a
/// right angle if `hatch.crossed` is set. Dots are strokes of 0.2 mm. The pattern is anchored at the origin of the
/// hatch plane and rotated about it by the angle of `hatch`.
///
/// The intersections of a line with the contours, taken in pairs, bound its stretches inside. A line with an odd number
/// of intersections, such as one that only touches a corner, is left out, which leaves a gap. Where an end of a stretch
/// divides a dash, the part whose middle is inside is kept, and the first part if both are.
///
/// How lines are found affects what is drawn. A line extends 15 times the diagonal of the outer contour to both sides
/// of its middle, a dashed one 20 times the next whole number of patterns; the middles advance by the step, beginning
/// at the pattern's first point. The search begins where a line of the unrotated pattern lies below the region, goes
/// back while lines still meet the outer contour, and then forward until a line no longer meets it. It tries 20 times
/// as many lines as fit into the diagonal, and three times that number forward. For L"GRAVEL" a line extends 150 times
/// that whole number, and if its scale is below 1.0, 200 times, with 200 times the lines tried. So nothing is drawn in
/// a region that lies further along the lines than they extend, or that the rotated lines reach only after the last
/// line tried; and of an outer contour in separate parts one above the other, only the part met first is drawn.
///
/// A family with a step distance of 0, or with more than `VEK::kHatchLines` lines, draws nothing.
///
/// @param regl in world coordinates
/// @param mtx from the hatch plane to the world
/// @return for each hatch line that has any pieces, a polyline of these as separate segments, in the world
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch2(CVekArrayTempl<CVekVertexArray> regl,
                                                                 const CVekMatrix3d& mtx, const VEK::CHatchProp& hatch);

/// As above.
/// @param cutShort receives whether any lines or pieces of the hatch are missing; a family with a step distance of 0
/// does not count
VEK_API CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch2(CVekArrayTempl<CVekVertexArray> regl,
                                                                 const CVekMatrix3d& mtx, const VEK::CHatchProp& hatch,
                                                                 bool& cutShort);

/// Whether a pattern is worth drawing: it takes fewer than 95 lines across the outer contour, and its finest step is
/// more than 2.3 device units. True for a pattern that the host does not know and for L"_USER" and L"_U". False when
/// memory runs out.
/// @param mtx from the region's coordinates to device units
VEK_API bool vek_gdx_pattern_test(CVekArrayTempl<CVekVertexArray> regl, const VEK::CHatchProp& hatch,
                                  const CVekMatrix3d& mtx);
