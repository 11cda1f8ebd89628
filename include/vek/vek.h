/// @file
/// Everything of the library, for programs that do not mind what they include.
#pragma once

#include <vek/bitmaps.h>
#include <vek/controls.h>
#include <vek/data.h>
#include <vek/dialogframe.h>
#include <vek/dialogs.h>
#include <vek/display.h>
#include <vek/draw.h>
#include <vek/geometry.h>
#include <vek/host.h>
#include <vek/images.h>
#include <vek/objects.h>
#include <vek/pictures.h>
#include <vek/solid.h>
#include <vek/surfaces.h>
#include <vek/values.h>
