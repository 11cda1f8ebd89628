/// @file
/// Display objects on paper.
#pragma once

#include "shared/sheet.h"

#include <string>

/// The size that an option tells as "800x600", or another one without it. Throws a failure for anything else.
Size sizeOf(const std::string& text, Size otherwise);

/// Fails, before any work is done, when a picture of that name could not be written for its ending.
void checkPictureName(const std::string& path);

/// Fits the items into a picture and writes it, or fails and leaves no file.
void writePicture(CVekGDX& gdx, const std::string& path, Size size);
