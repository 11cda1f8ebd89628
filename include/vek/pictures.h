/// @file
/// Pictures: slides and slide libraries.
#pragma once

#include <vek/pictures/slide.h>
#include <vek/pictures/slide_color.h>
#include <vek/pictures/slide_image.h>
#include <vek/pictures/slide_library.h>
