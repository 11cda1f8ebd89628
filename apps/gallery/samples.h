/// @file
/// The gallery's own pictures. Each group of items has its own path, so that a click picks it.
#pragma once

#include "shared/patterns.h"

#include <vek/display.h>

/// A group for each kind of display item; the picture item is in the corner of the window.
void addKinds(CVekGDX& gdx, Patterns& patterns);

/// Polylines with arcs, from flat to nearly closed, in several line types.
void addArcs(CVekGDX& gdx, Patterns& patterns);

/// All letters, digits and signs of the stroke font.
void addLetters(CVekGDX& gdx, Patterns& patterns);

/// Each alignment beside its insertion point.
void addAlignment(CVekGDX& gdx, Patterns& patterns);

/// A star of texts.
void addTurned(CVekGDX& gdx, Patterns& patterns);

/// A square of one pattern, or of each.
void addPattern(CVekGDX& gdx, const VEK::CHatchPattern& pattern);
void addPatternSheet(CVekGDX& gdx, Patterns& patterns);
