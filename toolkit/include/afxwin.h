/// @file
/// Drawing, windows, dialogs and the system's standard controls.
#pragma once

#include <afx.h>
#include <toolkit/dc.h>
