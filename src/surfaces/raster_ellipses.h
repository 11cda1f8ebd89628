// Ellipses of whole pixels.
#pragma once

#include "surfaces/raster_canvas.h"

namespace VEK::raster
{

/// The longest side that `ellipseQuadrant` accepts.
inline constexpr int kEllipseLimit = 65536;

/// The outline's upper left quarter, from the middle row upwards, in a box of that size with its corner at (0, 0). The
/// other quarters mirror it. Each side is at least 3. A box much narrower than high has no pixels in its uppermost
/// rows.
void ellipseQuadrant(int width, int height, std::vector<Point>& points);

/// Fills an ellipse row by row.
/// @param quadrant of `ellipseQuadrant` for the box
void fillEllipse(Canvas& canvas, const Box& box, const std::vector<Point>& quadrant, std::uint32_t color);

/// The same two for boxes beyond the limit; the outline as its pixels within `window`, as four runs of neighbours.
void fillFarEllipse(Canvas& canvas, const Box& box, std::uint32_t color);
void farEllipseOutline(const Box& box, const Box& window, std::vector<Point>& points);

} // namespace VEK::raster
