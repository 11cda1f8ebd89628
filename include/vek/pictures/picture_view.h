/// @file
/// Where a raster picture stands in its window: fit, pan and zoom, without a window.
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
    double restX = 0.0; ///< what rounding the wheel's steps has taken from the corner, so that steps back undo them
    double restY = 0.0;

    /// How many times the picture is larger than the client area in the direction that it exceeds it more; at least
    /// 1.0, and 1.0 for an area without width or height.
    double reduction(int clientWidth, int clientHeight) const;

    /// Zoom 1.0 with the picture in the middle, reduced where it is larger than the area.
    void fit(int clientWidth, int clientHeight);

    /// One step of the wheel: half as large again for a delta above 0, else as much smaller; the point under the mouse
    /// keeps its place. A step may pass the limits of 20.0 and 0.5 once.
    /// @param x, y the mouse in the client area
    /// @return false, with nothing changed, when a limit was passed before
    bool wheel(int delta, int x, int y);
};

/// The pixels of a length in hundredths of a millimetre.
VEK_API int pixelsOfHimetric(int himetric, int pixelsPerInch);

} // namespace VEK
