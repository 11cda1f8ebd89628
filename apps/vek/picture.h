/// @file
/// Display objects on paper.
#pragma once

#include <vek/display.h>

#include <string>

struct Size {
    int width = 0;
    int height = 0;
};

/// An empty display object with a white back colour.
CVekGDX paper();

/// Adds a line of text in the stroke font, blanks and all.
/// @param height of capitals
/// @param middle whether `at` is the middle of the baseline, not its left end
void addText(CVekGDX& gdx, const CVekString& text, const CVekPoint3d& at, double height, bool middle);

/// Fails, before any work is done, when a picture of that name could not be written for its ending.
void checkPictureName(const std::string& path);

/// Fits the items into a picture and writes it, or fails and leaves no file.
void writePicture(CVekGDX& gdx, const std::string& path, Size size);
