/// @file
/// The controls of dialogs.
#pragma once

#include <vek/controls/cell_editor.h>
#include <vek/controls/combo.h>
#include <vek/controls/material_tree.h>
#include <vek/controls/tab_order.h>
#include <vek/controls/value.h>
#include <vek/controls/value_edit.h>

#ifdef _WIN32
#include <vek/controls/window/combo_box.h>
#include <vek/controls/window/edit.h>
#include <vek/controls/window/list_ctrl.h>
#include <vek/controls/window/tab_ctrl.h>
#include <vek/controls/window/tree.h>
#endif
