/// @file
/// The program's commands; each throws a failure if it cannot do its work.
#pragma once

#include "picture.h"
#include "shared/project.h"
#include "shared/sample.h"

#include <string>

struct DrawOptions {
    std::string input;
    std::string output;
    std::string slide;      ///< empty for all slides of a library
    std::string size;       ///< "WxH"; empty for the default
    ObjectWish object;      ///< which object of a project, and how; its view is for all files
    double scale = 1.0;     ///< factor on lengths given in pixels
    std::string background; ///< a colour, as of a screen; empty for paper
};

void drawCommand(const DrawOptions& options);

/// Lists the names of a library's slides, of a file's patterns or, with their kinds, of a project's objects, one per
/// line.
void listCommand(const std::string& input);

/// Prints items by type, extents and colours of all slides, of one, of a description, or of all objects of a project or
/// of one.
void infoCommand(const std::string& input, const std::string& slide, const ObjectWish& object);

struct HatchOptions {
    std::string name; ///< empty for all patterns on one sheet
    std::string output;
    std::string patterns; ///< a pattern file; empty for the program's own
    std::string size;
    SampleLook look;
};

void hatchCommand(const HatchOptions& options);

void textCommand(const std::string& text, const std::string& output, const std::string& size);
