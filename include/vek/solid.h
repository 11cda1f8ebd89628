/// @file
/// The solid kernel: bodies of planar and cylindrical faces, and their projection with hidden lines.
#pragma once

#include <vek/solid/solid.h>
