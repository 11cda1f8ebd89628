/// @file
/// The draw pass: items into the calls of a surface.
#pragma once

#include <vek/bitmaps/source.h>
#include <vek/display/gdx.h>
#include <vek/surfaces/surface.h>

namespace VEK
{

/// What differs between the places a display object is drawn to. One pass serves them all.
struct PassRules {
    enum class ColorFix {
        whiteToBlack,  ///< a white line would not show on paper
        offBackground, ///< a colour equal to the background is inverted
    };
    enum class Dot {
        line, ///< a line one pixel long
        pixel,
    };
    enum class Fill {
        scanLines, ///< one horizontal line for each row of pixels
        polygon,   ///< the outer contour, with the holes taken out of the clip
    };
    enum class Square {
        box,   ///< a rectangle of opposite corners, mirrored for a negative size
        exact, ///< as many pixels as the size says, for odd and even sizes
    };

    bool fitsView;             ///< the view is fitted to the extents, with a margin of 0.05, and stored
    bool fillsBackground;      ///< the area is filled with the back colour first
    ColorFix colorFix;         ///< the last step for every colour
    Dot dot;                   ///< a segment shorter than 0.22 of unit 4 in a broken polyline
    bool closedIsContinuous;   ///< whether a closed polyline has no dots even where it is broken
    Fill fill;                 ///< solid regions
    bool fillAndHatch;         ///< a region of both is filled and then hatched; otherwise it is only filled
    bool splitsBeforeTest;     ///< the pattern test takes the region with its arcs split
    bool testsInView;          ///< the pattern test takes the view direction into account
    bool inverseFillsInverse;  ///< an item without colour of its own is filled in its pen colour
    double chords;             ///< greatest distance between an arc and its chords, in device units; 0: those of
                               ///< `vek_gdx_image_vl_split`, and half a unit in text
    double textChords;         ///< the same for a glyph's arc, in the glyph's own units; 0: as `chords` says
    Square square;             ///< the square around or instead of a point
    bool marksFromWholePixels; ///< a point is moved to a whole pixel before its mark is drawn around it
    bool skipsOutside;         ///< what lies wholly outside the drawing area is not handed to the surface
    bool picturesOnPaper;      ///< icons are laid on white; otherwise on the back colour
    bool picturesShowThrough;  ///< `itemTransparent` leaves the key colour of a picture out
};

/// Drawing on paper: metafiles and the clipboard.
inline constexpr PassRules paperRules = {.fitsView = true,
                                         .fillsBackground = false,
                                         .colorFix = PassRules::ColorFix::whiteToBlack,
                                         .dot = PassRules::Dot::line,
                                         .closedIsContinuous = true,
                                         .fill = PassRules::Fill::scanLines,
                                         .fillAndHatch = true,
                                         .splitsBeforeTest = false,
                                         .testsInView = false,
                                         .inverseFillsInverse = false,
                                         .chords = 0.0,
                                         .textChords = 0.0,
                                         .square = PassRules::Square::box,
                                         .marksFromWholePixels = false,
                                         .skipsOutside = false,
                                         .picturesOnPaper = true,
                                         .picturesShowThrough = false};

/// Painting a window.
inline constexpr PassRules screenRules = {.fitsView = false,
                                          .fillsBackground = true,
                                          .colorFix = PassRules::ColorFix::offBackground,
                                          .dot = PassRules::Dot::pixel,
                                          .closedIsContinuous = false,
                                          .fill = PassRules::Fill::polygon,
                                          .fillAndHatch = false,
                                          .splitsBeforeTest = true,
                                          .testsInView = true,
                                          .inverseFillsInverse = true,
                                          .chords = 0.0,
                                          .textChords = 0.1,
                                          .square = PassRules::Square::exact,
                                          .marksFromWholePixels = true,
                                          .skipsOutside = true,
                                          .picturesOnPaper = false,
                                          .picturesShowThrough = false};

/// Paper for a surface that scales: rows of pixels mean nothing there, so regions are filled as areas, and chords stay
/// smooth when the picture is enlarged.
inline constexpr PassRules scalableRules = [] {
    PassRules rules = paperRules;
    rules.fill = PassRules::Fill::polygon;
    rules.chords = 0.05;
    rules.picturesShowThrough = true;
    return rules;
}();

/// Draws a display object. Later items cover earlier ones; hidden ones are left out. A hatch too dense to draw becomes
/// a solid fill (`vek_gdx_pattern_test`). A picture that cannot be loaded draws nothing. Sorts the list first
/// (`CVekGDX::displListSort`), and fits the view where the rules say so; nothing else in the object changes. Where
/// memory ends, in the pass or on the surface, so does the picture.
/// @param height, width of the drawing area in device units, from (0, 0) on; everything is clipped to it. 0 means 240
///     and 320
/// @param pictures where the pictures come from; null is `pictureCache()`
VEK_API void gdxDraw(CVekGDX& gdx, CSurface& surface, int height, int width, const PassRules& rules,
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
