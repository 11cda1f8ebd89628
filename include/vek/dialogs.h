/// @file
/// The ready-made dialogs, and what they do without their windows.
#pragma once

#include <vek/dialogs/hole.h>
#include <vek/dialogs/label_rows.h>
#include <vek/dialogs/material.h>
#include <vek/dialogs/outline.h>
#include <vek/dialogs/outline_groups.h>

#ifdef _WIN32
#include <vek/dialogs/window/filter_outline.h>
#include <vek/dialogs/window/hole_dialog.h>
#include <vek/dialogs/window/label_edit.h>
#include <vek/dialogs/window/material_dialog.h>
#include <vek/dialogs/window/outline_dlg.h>
#include <vek/dialogs/window/units_dlg.h>
#endif
