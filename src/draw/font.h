/// @file
/// The built-in font as it is written down: rows of marks and corner points, one table for each group of characters.
#pragma once

#include <span>

namespace VEK::font
{

/// What a row of a font table is.
enum class Mark { point, glyph, outer, hole };

/// A corner point in em units, or a mark that begins something: a glyph, a region with its outer contour, a hole of
/// that region. The points behind the mark of a contour are its corners; the last one joins the first.
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

/// The tables in the order in which they are entered; where a character comes twice, the later glyph stays.
extern const std::span<const Row> kSigns;
extern const std::span<const Row> kCapitals;
extern const std::span<const Row> kSmallLetters;
extern const std::span<const Row> kFurtherCharacters;

} // namespace VEK::font
