/// @file
/// Display objects on paper.
#pragma once

#include "shared/sheet.h"

#include <string>

/// The size that an option tells as "800x600", or another one without it. Throws a failure for anything else.
Size sizeOf(const std::string& text, Size otherwise);

/// Fails, before any work is done, when a picture of that name could not be written for its ending.
void checkPictureName(const std::string& path);

/// How a picture looks beside its items.
struct PictureLook {
    double scale = 1.0; ///< factor on what is told in pixels
    bool onScreen =
        false; ///< painted in the back colour, against which everything stands out; otherwise on white paper
};

/// Fits the items into a picture and writes it, or fails and leaves no file.
void writePicture(CVekGDX& gdx, const std::string& path, Size size, const PictureLook& look = {});
