/// @file
/// Pictures from files: decoding, scaling, key colour, and the source from which a draw pass gets them.
#pragma once

#include <vek/bitmaps/picture.h>
#include <vek/bitmaps/source.h>
