/// @file
/// The draw pass: turns items into calls to a surface.
#pragma once

#include <vek/bitmaps/source.h>
#include <vek/display/gdx.h>
#include <vek/surfaces/surface.h>

namespace VEK
{

/// What differs between the kinds of output for a display object.
struct PassRules;

/// Drawing on paper: metafiles and the clipboard. The view is fitted to the extents, white lines become black, solid
/// regions are filled by rows of pixels.
VEK_API extern const PassRules paperRules;

/// Painting a window: the stored view, on the back colour, with lines of that colour inverted.
VEK_API extern const PassRules screenRules;

/// Paper for a scalable surface: rows of pixels mean nothing there, so regions are filled as areas, and chords stay
/// smooth when the picture is enlarged.
VEK_API extern const PassRules scalableRules;

/// A scalable surface as a screen of the back colour: fitted and smooth as with `scalableRules`, painted and coloured
/// as with `screenRules`.
VEK_API extern const PassRules scalableScreenRules;

/// Where on a surface a display object is drawn, in device units. Pixels of the object, in which pictures, screen-fixed
/// items and the zoom matrix are given, count from the top left corner.
struct DrawArea {
    double left = 0.0;
    double top = 0.0;
    int width = 0;      ///< 0 or less means 320
    int height = 0;     ///< 0 or less means 240
    double scale = 1.0; ///< device units per pixel, the factor on everything given in pixels: pen widths, marks of a
                        ///< negative size, dots, corners of pictures and the smallest pattern step that is worth
                        ///< drawing. A value that is not finite and above 0 means 1
};

/// Draws a display object. Later items cover earlier ones; hidden ones are left out. A hatch too dense to draw, or with
/// more visible pieces than can be drawn, becomes a solid fill (`vek_gdx_pattern_test`, `VEK::kHatchPieces`). A picture
/// that cannot be loaded draws nothing. Sorts the list first (`CVekGDX::displListSort`), and fits the view to the size
/// of the area if the rules require it; nothing else in the object changes. The surface keeps the clip, pen and brush
/// that were set last.
/// @param area everything is clipped to it; nothing is drawn if its position is not finite
/// @param pictures source of the pictures; null means `pictureCache()`
/// @return whether the picture is complete: false if memory ran out, in the pass or on the surface, and parts are
///     missing
VEK_API bool gdxDraw(CVekGDX& gdx, CSurface& surface, const DrawArea& area, const PassRules& rules,
                     CPictureSource* pictures = nullptr);

/// Draws a display object in the area of the given height and width at (0, 0).
VEK_API bool gdxDraw(CVekGDX& gdx, CSurface& surface, int height, int width, const PassRules& rules,
                     CPictureSource* pictures = nullptr);

} // namespace VEK

/// Exports a display object as an enhanced metafile by `VEK::paperRules`, to a file or to the clipboard. Like any
/// drawing on paper it sorts the list and replaces the view matrix: a window that shows the object must fit it again.
/// @param gdx null does nothing
/// @param file replaced if it exists; null means the clipboard. On a system without metafiles of its own there is no
///     clipboard, and the file is written by `VEK::emfSurface`
/// @param height, width of the drawing area in pixels; 0 means 240 and 320
///
/// There is no result: a file that cannot be written does not exist afterwards, and a clipboard that is in use is
/// unchanged.
VEK_API void refresh(CVekGDX* gdx, const wchar_t* file, int height, int width);

namespace VEK
{
using ::refresh;
} // namespace VEK
