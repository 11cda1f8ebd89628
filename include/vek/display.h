/// @file
/// The display model: display items, the display object, its registry, and the views.
#pragma once

#include <vek/display/draw.h>
#include <vek/display/gdx.h>
#include <vek/display/item.h>
#include <vek/display/registry.h>
#include <vek/display/view.h>
