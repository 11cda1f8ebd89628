/// @file
/// The ready-made dialogs.
#pragma once

#include <vek/dialogs/hole.h>
#include <vek/dialogs/material.h>

#ifdef _WIN32
#include <vek/dialogs/window/hole_dialog.h>
#include <vek/dialogs/window/material_dialog.h>
#endif
