/// @file
/// Hatch patterns and their text files.
#pragma once

#include <vek/values/string.h>

#include <cstddef>

/// The line families of a hatch pattern, each with its angle in degrees, x and y of a point on its first line, shift
/// along the lines and distance to the next line, then the dashes; lengths are in pattern units.
using VekPatternLines = CVekArrayTempl<CVekArrayTempl<double>>;

namespace VEK
{

/// A hatch pattern as read from a file.
class VEK_API CHatchPattern : public CVekObj
{
public:
    CVekString name;
    CVekString description;
    VekPatternLines lines;
};

/// Reads hatch patterns from a file or from bytes, in the public `.pat` form:
///
///     ;; a comment
///     *NAME, description
///     angle, x, y, shift, distance, dash, dash, ...
///
/// A star begins a pattern; its name ends at the first comma, and a description may be missing. Each further line is a
/// family of five numbers and any number of dashes: above 0 drawn, below 0 a gap, 0 a dot. A semicolon begins a
/// comment, except in a description. Blanks are allowed around every value, empty lines anywhere. Numbers have a
/// decimal point. Names and descriptions are UTF-8, or else code page 1252. A control character 26 ends the file.
///
/// Reading ends at the first invalid line: a value that is not a finite number, an empty value, a family of fewer than
/// five numbers or without a pattern, a pattern without a name or without a family.
///
/// @param patterns the patterns are appended to it, on failure those complete before the error; none when memory runs
/// out
/// @param error receives "NAME:LINE: cause" on failure, without the line if a file cannot be read at all, and is
/// unchanged otherwise; NAME is the path or `name`
VEK_API bool hatchPatternsLoad(CVekArrayTempl<CHatchPattern>& patterns, const wchar_t* path, CVekString& error);
VEK_API bool hatchPatternsRead(CVekArrayTempl<CHatchPattern>& patterns, const char* bytes, std::size_t size,
                               const wchar_t* name, CVekString& error);

} // namespace VEK
