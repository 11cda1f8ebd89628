// Lines of one pixel.
#pragma once

#include "surfaces/raster_canvas.h"

#include <vek/surfaces/surface.h>

namespace VEK::raster
{

/// A line between pixels within reach::kLimit, the last pixel left out.
void line(Canvas& canvas, const Point& from, const Point& to, std::uint32_t color);

/// The same for any finite coordinates, from rounded ones.
void farLine(Canvas& canvas, const SurfacePoint& from, const SurfacePoint& to, std::uint32_t color);

} // namespace VEK::raster
