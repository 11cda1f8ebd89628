/// @file
/// Pixels in memory, drawn on without any window system.
#pragma once

#include <vek/surfaces/surface.h>

#include <memory>

namespace VEK
{

/// The most pixels that `rasterPixels` makes: 2^28, 1 GB.
inline constexpr long long kRasterAreaLimit = 1LL << 28;

/// Makes a picture of one colour to draw on.
/// @param color a `COLORREF`
/// @return false, and an empty picture, when a side is not positive, the area is above `kRasterAreaLimit` (nothing is
/// allocated then) or memory does not suffice
VEK_API bool rasterPixels(CPixels& pixels, int width, int height, unsigned color);

/// A surface that draws into `pixels`, all with full opacity. The picture must outlive the surface and keep its size;
/// one whose data is not width times height pixels is drawn on by nothing.
///
/// It is a surface of whole pixels and lights those that GDI lights on a bitmap of 32 bits:
/// - A line takes one pixel a step along its longer side, the nearest one across, of two equally near ones that with
///   the smaller coordinate, whatever its direction. The last pixel is left out.
/// - The inside of a polygon is a matter of the pixels' top left corners: a corner on a left or upper edge lies
///   inside, one on a right or lower edge outside. So it is with the polygons of `clipOut`.
/// - A wide pen covers a disc of its width at each end and the parallelogram between them. Widths above 32,767 count
///   as that.
/// - The right and the lower side of a box lie outside of it, and a rectangle without an edge is one pixel smaller
///   still. An ellipse without an edge is as large as one with it unless a side is two pixels or less. A box of one
///   pixel has no edge of a one-pixel pen. The ends of an ellipse much narrower than high are cut off; there GDI also
///   fills rows that it never set, which this surface leaves alone.
///
/// Lines are exact to the pixel as long as coordinates keep within plus and minus 2^27, ellipses up to 65,536 pixels a
/// side; larger ones are drawn from rounded coordinates. Polygons are cut at plus and minus 2^27, boxes are moved to
/// that border. What lies outside the clip costs next to nothing, however large it is. Holes take a byte for each
/// pixel of the picture.
/// @return null where memory ends. What does not suffice for a call later on leaves it out, as `memoryShortages` tells
VEK_API std::unique_ptr<CSurface> rasterSurface(CPixels& pixels);

} // namespace VEK
