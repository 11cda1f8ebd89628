/// @file
/// Geometry on polylines and regions: measuring, cutting, punching, outlines of standard shapes, view matrices.
///
/// Common to all of it: lengths are in the caller's unit, angles are radians, counter-clockwise from the x axis.
/// Nothing raises an error and no argument is changed unless it is passed by reference; what cannot be done gives an
/// empty result. Points closer than the point tolerance of `<vek/values/tolerance.h>` are the same point.
#pragma once

#include <vek/geometry/outline.h>
#include <vek/geometry/polyline.h>
#include <vek/geometry/prepared_region.h>
#include <vek/geometry/region.h>
#include <vek/geometry/view.h>
