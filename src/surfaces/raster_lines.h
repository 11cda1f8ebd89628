// Lines one pixel wide.
#pragma once

#include "surfaces/raster_canvas.h"

#include <vek/surfaces/surface.h>

namespace VEK::raster
{

/// A line between pixels within reach::kLimit, without its last pixel.
void line(Canvas& canvas, const Point& from, const Point& to, std::uint32_t color);

/// The same for any finite coordinates, computed from rounded ones.
void farLine(Canvas& canvas, const SurfacePoint& from, const SurfacePoint& to, std::uint32_t color);

} // namespace VEK::raster
