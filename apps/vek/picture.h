/// @file
/// Display objects on paper.
#pragma once

#include <vek/display.h>

#include <string>

struct Size {
    int width = 0;
    int height = 0;
};

/// The size that an option tells as "800x600", or another one without it. Throws a failure for anything else.
Size sizeOf(const std::string& text, Size otherwise);

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

/// Adds a line of text in the stroke font as an item for each word, since the font gives blanks no room.
/// @param place from em units, in which capitals are 1.0 high, to where the text stands
void addText(CVekGDX& gdx, const CVekString& text, const CVekMatrix3d& place, const TextLook& look);

/// Fails, before any work is done, when a picture of that name could not be written for its ending.
void checkPictureName(const std::string& path);

/// Fits the items into a picture and writes it, or fails and leaves no file.
void writePicture(CVekGDX& gdx, const std::string& path, Size size);
