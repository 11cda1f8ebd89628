/// @file
/// Display objects described by a JSON text, whose format is in docs/display-file.md.
#pragma once

#include "patterns.h"

#include <vek/display.h>

#include <string>

/// Whether a path names a description.
bool isDescription(const std::string& path);

/// Adds the items of a description, or fails with the place and the cause. The hatch patterns that it names replace
/// those of `patterns`, and pictures are searched for in its folder.
void addDescription(CVekGDX& gdx, const std::string& path, Patterns& patterns);
