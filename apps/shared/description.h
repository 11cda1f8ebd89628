/// @file
/// Display objects told by a JSON text. docs/display-file.md tells the form.
#pragma once

#include "patterns.h"

#include <vek/display.h>

#include <string>

/// Whether a path names a description.
bool isDescription(const std::string& path);

/// Adds the items of a description, or fails with the place and the cause. The hatch patterns that it names come in
/// place of those of `patterns`, and its folder becomes the one in which pictures are sought.
void addDescription(CVekGDX& gdx, const std::string& path, Patterns& patterns);
