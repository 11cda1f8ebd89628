/// @file
/// Drawing on pixels in memory, without any window system.
#pragma once

#include <vek/surfaces/surface.h>

#include <memory>

namespace VEK
{

/// The most pixels that `rasterPixels` creates: 2^28, 1 GB.
inline constexpr long long kRasterAreaLimit = 1LL << 28;

/// Creates a picture filled with one colour to draw on.
/// @param color a `COLORREF`
/// @return false, and an empty picture, if a side is not positive, the area is above `kRasterAreaLimit` (nothing is
/// allocated then) or memory runs out
VEK_API bool rasterPixels(CPixels& pixels, int width, int height, unsigned color);

/// A surface that draws into `pixels`, always with full opacity. The picture must outlive the surface and keep its
/// size; nothing is drawn on one whose data is not width times height pixels.
///
/// It is a surface of whole pixels and sets those that GDI sets on a bitmap of 32 bits:
/// - A line takes one pixel per step along its longer side, the nearest one across, of two equally near ones that with
///   the smaller coordinate, whatever its direction. The last pixel is left out.
/// - Whether a pixel is inside a polygon depends on its top left corner: a corner on a left or upper edge is inside,
///   one on a right or lower edge outside. The same holds for the polygons of `clipOut`.
/// - A wide pen covers a disc of its width at each end and the parallelogram between them. Widths above 32,767 are
///   reduced to that.
/// - The right and the lower side of a box lie outside it, and a rectangle without an edge is one pixel smaller still.
///   An ellipse without an edge is as large as one with it unless a side is two pixels or less. A box of one pixel has
///   no edge with a one-pixel pen. The ends of an ellipse much narrower than high are cut off; there GDI also fills
///   rows that it never set, which this surface leaves alone.
///
/// Lines are exact to the pixel if coordinates are within plus and minus 2^27, ellipses up to 65,536 pixels a side;
/// larger ones are drawn from rounded coordinates. Polygons are clipped at plus and minus 2^27, boxes are moved to that
/// border. What lies outside the clip costs next to nothing, however large it is. Holes take a byte for each pixel of
/// the picture.
/// @return null when memory runs out. A later call for which memory runs out draws nothing, which `memoryShortages`
/// reports
VEK_API std::unique_ptr<CSurface> rasterSurface(CPixels& pixels);

} // namespace VEK
