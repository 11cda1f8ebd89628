/// @file
/// Display objects on paper.
#pragma once

#include "shared/sheet.h"

#include <string>

/// The size of an option such as "800x600", or a default without it. Throws a failure for anything else.
Size sizeOf(const std::string& text, Size fallback);

/// Fails, before any work is done, if the extension of the name is not that of a picture format.
void checkPictureName(const std::string& path);

/// The appearance of a picture, apart from its items.
struct PictureLook {
    double scale = 1.0;    ///< factor on lengths given in pixels
    bool onScreen = false; ///< painted in the back colour, with which everything contrasts; otherwise on white paper
};

/// Fits the items into a picture and writes it, or fails and leaves no file.
void writePicture(CVekGDX& gdx, const std::string& path, Size size, const PictureLook& look = {});
