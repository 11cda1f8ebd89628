/// @file
/// The holes of a hole file, as a dialog edits them. A hole is a child of the directory "BT" with a text as its key.
#pragma once

#include <vek/dialogs/outline.h>

#include <vector>

enum class HoleKind { drill, outline, lines };

/// The holes in their order; they belong to the directory.
std::vector<CVekDataItem*> holesOf(const CVekDataItem* bt);

/// Adds a drilled hole of 10 mm at the origin, named by the lowest number that is free.
/// @return null when memory runs out
CVekDataItem* addHole(CVekDataItem& bt);

/// Gives a hole another name, at its place.
/// @return false if the name is empty or another hole has it
bool renameHole(CVekDataItem& bt, const CVekDataItem& hole, const CVekString& name);

HoleKind kindOf(const CVekDataItem& hole);

/// Turns a hole into a drilled one or a round outline, of its diameter; not into lines.
void setKind(CVekDataItem& hole, HoleKind kind);

/// Diameter of a drilled hole or a round outline; 10 mm for any other hole.
double diameterOf(const CVekDataItem& hole);
void setDiameter(CVekDataItem& hole, double diameter);

/// Where a hole is, in the coordinates of the pattern.
CVekPoint3d positionOf(const CVekDataItem& hole);
void setPosition(CVekDataItem& hole, const CVekPoint3d& position);

/// The outline of a hole, as the outline dialog takes and gives it.
VEK::outlineData outlineOf(const CVekDataItem& hole);
void setOutline(CVekDataItem& hole, const VEK::outlineData& outline);
