/// @file
/// Pictures from files: decoding, scaling, key colour, and where a draw pass gets them from.
#pragma once

#include <vek/bitmaps/picture.h>
#include <vek/bitmaps/source.h>
