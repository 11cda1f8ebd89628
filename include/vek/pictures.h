/// @file
/// Pictures: slides and slide libraries, and raster pictures on Windows.
#pragma once

#include <vek/pictures/raster.h>
#include <vek/pictures/slide.h>
#include <vek/pictures/slide_color.h>
#include <vek/pictures/slide_image.h>
#include <vek/pictures/slide_library.h>
