/// @file
/// The controls of dialogs.
#pragma once

#include <vek/controls/material_tree.h>

#ifdef _WIN32
#include <vek/controls/window/tree.h>
#endif
