/// @file
/// Messages of GUI programs.
#pragma once

#include <afxwin.h>

#include <string>

/// Writes a text to the program's output, or for MB_ICONERROR to its error output. A GUI program has no console of its
/// own: without one the text appears in a message box.
void report(const std::string& text, UINT kind, LPCWSTR title);
