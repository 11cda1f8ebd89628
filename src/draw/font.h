/// @file
/// The data of the built-in font: rows of marks and corner points, one table for each group of characters.
#pragma once

#include <span>

namespace VEK::font
{

/// The kind of a row of a font table.
enum class Mark { point, glyph, outer, hole };

/// A corner point in em units, or a mark that begins a glyph, a region with its outer contour, or a hole of that
/// region. The points after the mark of a contour are its corners; the last one connects to the first.
struct Row {
    double x = 0.0;
    double y = 0.0;
    Mark mark = Mark::point;
    wchar_t code = 0; ///< character of a glyph mark
};

constexpr Row glyph(wchar_t code)
{
    return {0.0, 0.0, Mark::glyph, code};
}
inline constexpr Row outer{0.0, 0.0, Mark::outer, 0};
inline constexpr Row hole{0.0, 0.0, Mark::hole, 0};

/// The tables in the order in which they are read; if a character occurs twice, the later glyph is used.
extern const std::span<const Row> kSigns;
extern const std::span<const Row> kCapitals;
extern const std::span<const Row> kSmallLetters;
extern const std::span<const Row> kFurtherCharacters;

} // namespace VEK::font
