/// @file
/// Value types: strings, arrays, maps, points, matrices, polylines, colours, pointers, units.
#pragma once

#include <vek/values/array.h>
#include <vek/values/color.h>
#include <vek/values/country.h>
#include <vek/values/linetype.h>
#include <vek/values/map.h>
#include <vek/values/matrix.h>
#include <vek/values/memory.h>
#include <vek/values/object.h>
#include <vek/values/pixels.h>
#include <vek/values/point.h>
#include <vek/values/pointer.h>
#include <vek/values/polyline.h>
#include <vek/values/string.h>
#include <vek/values/system.h>
#include <vek/values/tolerance.h>
#include <vek/values/units.h>
