/// @file
/// The draw pass: items into the calls of a surface.
#pragma once

#include <vek/bitmaps/source.h>
#include <vek/display/gdx.h>
#include <vek/surfaces/surface.h>

namespace VEK
{

/// What differs between the places a display object is drawn to.
struct PassRules;

/// Drawing on paper: metafiles and the clipboard. The view is fitted to the extents, white lines become black, solid
/// regions are filled by rows of pixels.
VEK_API extern const PassRules paperRules;

/// Painting a window: the stored view, on the back colour, where lines of that colour are inverted.
VEK_API extern const PassRules screenRules;

/// Paper for a surface that scales: rows of pixels mean nothing there, so regions are filled as areas, and chords stay
/// smooth when the picture is enlarged.
VEK_API extern const PassRules scalableRules;

/// A surface that scales as a screen of the back colour: fitted and smooth as `scalableRules`, painted and coloured as
/// `screenRules`.
VEK_API extern const PassRules scalableScreenRules;

/// Where on a surface a display object is drawn, in device units. Pixels of the object, which pictures, screen-fixed
/// items and the zoom matrix are told in, count from the left top corner.
struct DrawArea {
    double left = 0.0;
    double top = 0.0;
    int width = 0;      ///< 0 or less means 320
    int height = 0;     ///< 0 or less means 240
    double scale = 1.0; ///< device units to a pixel: what is told in pixels grows by it, so pen widths, marks of a
                        ///< negative size, dots, the corners of pictures and the step from which on a pattern is worth
                        ///< drawing. What is not above 0 and finite counts as 1
};

/// Draws a display object. Later items cover earlier ones; hidden ones are left out. A hatch too dense to draw, or
/// of which more than can be drawn would show, becomes a solid fill (`vek_gdx_pattern_test`, `VEK::kHatchPieces`). A
/// picture that cannot be loaded draws nothing. Sorts the list first (`CVekGDX::displListSort`), and fits the view to
/// the size of the area where the rules say so; nothing else in the object changes. The surface keeps the clip, pen and
/// brush that were set last.
/// @param area everything is clipped to it; one that lies nowhere finite draws nothing
/// @param pictures where the pictures come from; null is `pictureCache()`
/// @return whether the picture is whole: false where memory ended, in the pass or on the surface, and parts are missing
VEK_API bool gdxDraw(CVekGDX& gdx, CSurface& surface, const DrawArea& area, const PassRules& rules,
                     CPictureSource* pictures = nullptr);

/// Draws a display object on the area of a height and width from (0, 0) on.
VEK_API bool gdxDraw(CVekGDX& gdx, CSurface& surface, int height, int width, const PassRules& rules,
                     CPictureSource* pictures = nullptr);

} // namespace VEK

/// Exports a display object as an enhanced metafile by `VEK::paperRules`, into a file or onto the clipboard. Like every
/// draw on paper it sorts the list and replaces the view matrix: a window that shows the object must fit it again.
/// @param gdx null does nothing
/// @param file replaced if it exists; null means the clipboard. Systems without metafiles of their own have none; the
///     file is then one of `VEK::emfSurface`
/// @param height, width of the drawing area in pixels; 0 means 240 and 320
///
/// There is no result: a file that cannot be written is not there, and a clipboard that is in use keeps its content.
VEK_API void refresh(CVekGDX* gdx, const wchar_t* file, int height, int width);

namespace VEK
{
using ::refresh;
} // namespace VEK
