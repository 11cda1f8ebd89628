/// @file
/// The program's commands; each throws a failure if it cannot do its work.
#pragma once

#include "picture.h"
#include "shared/sample.h"

#include <string>

struct DrawOptions {
    std::string input;
    std::string output;
    std::string slide;      ///< empty for all slides of a library
    std::string size;       ///< "WxH"; empty for the default
    std::string view;       ///< a keyword of the view table; empty for the plan
    double scale = 1.0;     ///< factor on lengths given in pixels
    std::string background; ///< a colour, as of a screen; empty for paper
};

void drawCommand(const DrawOptions& options);

/// Lists the names of a library's slides, or of the patterns of a file, one per line.
void listCommand(const std::string& input);

/// Prints items by type, extents and colours of all slides, of one, or of a description.
void infoCommand(const std::string& input, const std::string& slide);

struct HatchOptions {
    std::string name; ///< empty for all patterns on one sheet
    std::string output;
    std::string patterns; ///< a pattern file; empty for the program's own
    std::string size;
    SampleLook look;
};

void hatchCommand(const HatchOptions& options);

void textCommand(const std::string& text, const std::string& output, const std::string& size);
