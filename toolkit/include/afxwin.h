/// @file
/// Drawing, windows, dialogs and the system's standard controls.
#pragma once

#include <afx.h>
#include <toolkit/cmd_target.h>
#include <toolkit/controls.h>
#include <toolkit/dc.h>
#include <toolkit/dialog.h>
#include <toolkit/menu.h>
#include <toolkit/window.h>
#include <toolkit/window_dc.h>
