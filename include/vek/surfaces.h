/// @file
/// Surfaces: what a draw pass draws on.
#pragma once

#include <vek/surfaces/surface.h>
