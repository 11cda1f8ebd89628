/// @file
/// The programs' own catalogue of texts.
#pragma once

#include <string>

/// The path of the catalogue "texts.json": beside the program, as installed in share/vek, or in the folder "examples"
/// of a folder around the program, as in a build. Empty if there is none.
std::string textsOfProgram();
