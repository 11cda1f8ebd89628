/// @file
/// Surfaces: what a draw pass draws on.
#pragma once

#include <vek/bitmaps.h>
#include <vek/surfaces/emf.h>
#include <vek/surfaces/file.h>
#include <vek/surfaces/gdi.h>
#include <vek/surfaces/raster.h>
#include <vek/surfaces/recorder.h>
#include <vek/surfaces/surface.h>
#include <vek/surfaces/svg.h>
