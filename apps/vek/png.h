/// @file
/// PNG files. A build without libpng has the same functions and writes none.
#pragma once

#include <vek/surfaces/file.h>

/// Whether this build can write them at all.
bool canWritePng();

/// Writes opaque pixels as a PNG file of 24 bits a pixel and commits the sink.
/// @return false when anything could not be written
bool writePng(VEK::CByteSink& sink, const VEK::CPixels& pixels);
