/// @file
/// Drawing algorithms: the stroke font.
#pragma once

#include <vek/draw/font.h>
