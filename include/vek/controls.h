/// @file
/// The controls of dialogs.
#pragma once

#include <vek/controls/combo.h>
#include <vek/controls/value.h>
#include <vek/controls/value_edit.h>

#ifdef _WIN32
#include <vek/controls/material_tree.h>
#include <vek/controls/window/combo_box.h>
#include <vek/controls/window/edit.h>

#ifdef _WIN32
#include <vek/controls/window/tree.h>
#endif
