/// @file
/// The ready-made dialogs.
#pragma once

#include <vek/dialogs/hole.h>

#ifdef _WIN32
#include <vek/dialogs/window/hole_dialog.h>
#endif
