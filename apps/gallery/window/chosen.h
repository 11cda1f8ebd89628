/// @file
/// The library's ready-made dialogs in the gallery. Each function opens one, with what came back before, and tells in
/// one line what came back now.
#pragma once

#include <vek/values/string.h>

CVekString chooseOutline();

/// @param multi whether texts may have several lines
CVekString editLabel(bool multi);

/// In a host that has the hole dialog of the examples.
CVekString editHoles();
