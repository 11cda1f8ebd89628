/// @file
/// Drawing algorithms: hatches, the stroke font, text as regions, arcs and line patterns.
#pragma once

#include <vek/draw/font.h>
#include <vek/draw/hatch.h>
#include <vek/draw/split.h>
#include <vek/draw/text.h>
