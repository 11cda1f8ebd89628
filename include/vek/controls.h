/// @file
/// The controls.
#pragma once

#include <vek/controls/material_tree.h>
