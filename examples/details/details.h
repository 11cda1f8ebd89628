/// @file
/// The facade details of the example slides. Sections are drawn as on a shop drawing: aluminium light grey, seals
/// dark, glass light blue, cut edges black, axes red.
#pragma once

#include "drawing.h"

#include <string>
#include <utility>
#include <vector>

namespace slides
{

// Glazing
Bytes mullionSection(Format format);
Bytes transomSection(Format format);
Bytes glazingBead(Format format);
Bytes gasketProfile(Format format);

// Metal construction
Bytes bracketSection(Format format);
Bytes thermalBreak(Format format);
Bytes cornerAngle(Format format);

// Sheets and panels
Bytes sheetProfile(Format format);
Bytes sandwichPanel(Format format);
Bytes drillScrew(Format format);

/// A screw along x with the underside of its head at the origin, for details that are screwed together.
/// @param diameter of its thread
/// @param washer thickness of the sealing washer, 0 for none
/// @param drills whether it ends in a drill point
void drawScrew(Drawing& drawing, double diameter, double length, double washer, bool drills);

/// All example files by name: a library and some of its slides as separate files.
std::vector<std::pair<std::string, Bytes>> exampleFiles();

} // namespace slides
