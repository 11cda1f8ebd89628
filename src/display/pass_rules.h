// What differs between the kinds of output for a display object. One pass serves them all.
#pragma once

#include <vek/display/draw.h>

namespace VEK
{

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
    Dot dot;                   ///< a segment shorter than 0.22 mm in a dashed polyline
    bool closedIsContinuous;   ///< whether a closed polyline has no dots even if it is dashed
    Fill fill;                 ///< solid regions
    bool fillAndHatch;         ///< a region with both is filled and then hatched; otherwise it is only filled
    bool splitsBeforeTest;     ///< the pattern test gets the region with its arcs split
    bool testsInView;          ///< the pattern test takes the view direction into account
    bool inverseFillsInverse;  ///< an item without a colour of its own is filled in its pen colour
    double chords;             ///< greatest distance between an arc and its chords, in device units; 0: those of
                               ///< `vek_gdx_image_vl_split`, and half a unit in text
    double textChords;         ///< the same for a glyph's arc, in the glyph's own units; 0: as for `chords`
    Square square;             ///< the square around or instead of a point
    bool marksFromWholePixels; ///< a point is moved to a whole pixel before its mark is drawn around it
    bool skipsOutside;         ///< what lies wholly outside the drawing area is not passed to the surface
    bool picturesOnPaper;      ///< icons are drawn on white; otherwise on the back colour
    bool picturesShowThrough;  ///< `itemTransparent` leaves out the key colour of a picture
};

} // namespace VEK
