/// @file
/// The position of a raster picture in its window: fit, pan and zoom, without a window.
#pragma once

#include <vek/export.h>

namespace VEK
{

/// The placement of a picture in a client area, in whole pixels.
struct VEK_API PictureView {
    int width = 0; ///< of the picture
    int height = 0;
    double zoom = 1.0;
    int originX = 0; ///< the picture's upper left corner in the client area
    int originY = 0;
    double restX = 0.0; ///< rounding remainder of the corner after wheel steps, so that steps back undo them
    double restY = 0.0;

    /// How many times the picture is larger than the client area, in the direction where it exceeds it more; at least
    /// 1.0, and 1.0 for an area without width or height.
    double reduction(int clientWidth, int clientHeight) const;

    /// Zoom 1.0 with the picture centred, reduced if it is larger than the area.
    void fit(int clientWidth, int clientHeight);

    /// One step of the wheel: enlarges by one half for a delta above 0, else reduces by the same factor; the point
    /// under the mouse stays in place. One step may exceed the limits of 20.0 and 0.5.
    /// @param x, y the mouse in the client area
    /// @return false, with nothing changed, if a limit was exceeded before
    bool wheel(int delta, int x, int y);
};

/// Converts a length in hundredths of a millimetre to pixels.
VEK_API int pixelsOfHimetric(int himetric, int pixelsPerInch);

} // namespace VEK
