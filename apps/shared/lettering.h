/// @file
/// Display objects for paper, and lettering on them.
#pragma once

#include <vek/display.h>

/// An empty display object with a white back colour.
CVekGDX paper();

/// How a text looks beside its place.
struct TextLook {
    CVekArrayTempl<int> stack;
    unsigned long flag = 0;
    CVekColor color; ///< black at start
    CVekPoint3d reference;
    bool middle = false; ///< whether the origin is the middle of the baseline, not its left end

    TextLook() { color.setColorIndex(7); }
};

/// Adds a line of text in the stroke font as an item for each word, since the font gives blanks no room. A low line is
/// drawn as one, which the font has in another place.
/// @param place from em units, in which capitals are 1.0 high, to where the text stands
void addText(CVekGDX& gdx, const CVekString& text, const CVekMatrix3d& place, const TextLook& look);
