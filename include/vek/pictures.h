/// @file
/// Pictures: slides and slide libraries, raster files, and the controls that show pictures.
#pragma once

#include <vek/pictures/picture_view.h>
#include <vek/pictures/raster.h>
#include <vek/pictures/slide.h>
#include <vek/pictures/slide_color.h>
#include <vek/pictures/slide_image.h>
#include <vek/pictures/slide_library.h>

#ifdef _WIN32
#include <vek/pictures/window/dplist_image.h>
#include <vek/pictures/window/picture.h>
#include <vek/pictures/window/slide_pic.h>
#include <vek/pictures/window/vll_image.h>
#endif
