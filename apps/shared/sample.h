/// @file
/// Slides and samples of hatch patterns in the squares of a sheet.
#pragma once

#include "input.h"

#include <vek/data/pattern.h>
#include <vek/display.h>

struct SampleLook {
    double angle = 0.0; ///< degrees
    double scale = 1.0;
    bool crossed = false;
};

/// Adds a square of a sheet, hatched with a pattern of the host, at a scale at which a good number of lines is visible.
/// @param corner lower left corner of the square, whose side is `Sheet::kCell`
void addSample(CVekGDX& gdx, const CVekArrayTempl<int>& stack, const VEK::CHatchPattern& pattern,
               const SampleLook& look, const CVekPoint3d& corner);

/// Puts a slide into a square of a sheet, as large as possible.
void addSlide(CVekGDX& gdx, const InputSlide& slide, const CVekPoint3d& corner);
