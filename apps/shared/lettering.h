/// @file
/// Display objects for paper, and text on them.
#pragma once

#include <vek/display.h>

/// An empty display object with a white back colour.
CVekGDX paper();

/// The appearance of a text, apart from its place.
struct TextLook {
    CVekArrayTempl<int> stack;
    unsigned long flag = 0;
    CVekColor color; ///< initially black
    CVekPoint3d reference;
    bool middle = false; ///< whether the origin is the middle of the baseline, not its left end

    TextLook() { color.setColorIndex(7); }
};

/// Adds a line of text in the stroke font, one item per word, since the font gives blanks no width. An underscore is
/// drawn as such, although the font has it under another code.
/// @param place from em units, in which capitals are 1.0 high, to the coordinates of the text
void addText(CVekGDX& gdx, const CVekString& text, const CVekMatrix3d& place, const TextLook& look);
