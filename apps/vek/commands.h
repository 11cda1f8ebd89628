/// @file
/// What the program does; each command throws a failure when it cannot.
#pragma once

#include "picture.h"

#include <string>

struct DrawOptions {
    std::string input;
    std::string output;
    std::string slide; ///< empty for all slides of a library
    std::string size;  ///< "WxH"; empty for the default
    std::string view;  ///< a keyword of the view table; empty for the plan
};

void drawCommand(const DrawOptions& options);

/// The names of a library's slides, one a line.
void listCommand(const std::string& input);

/// Items by type, extents and colours of all slides, or of one.
void infoCommand(const std::string& input, const std::string& slide);

void textCommand(const std::string& text, const std::string& output, const std::string& size);
