/// @file
/// Text as regions.
#pragma once

#include <vek/values/polyline.h>
#include <vek/values/string.h>

class CVekDataItem;

namespace VEK
{

/// Lays out a text in the stroke font, in em units: baseline at y = 0, capitals 1.0 high, one line, from left to right.
///
/// The advance of a glyph is its ink width plus 0.5; a character without a glyph, blanks included, takes no space. The
/// width of the text is the sum of these less 0.3, its height the largest y of all glyphs, at least 0, including the
/// insertion point's y: callers that align keep the insertion point at y = 0 and place the text by a matrix.
///
/// An alignment shifts by the whole or half width and height: the first letter "T" down by the height, "C" by half of
/// it, "B" not at all, the second "L" not at all, "C" left by half the width, "R" by the width. The codes are "TL",
/// "TC", "TR", "CL", "CC", "CR", "BC" and "BR"; any other text does not shift. The shift applies to as many contours of
/// each region as the text has regions: the hole of a single "O" is not shifted, and regions with fewer contours get
/// empty ones. Callers rely on the numbers of contours, but texts of more than `kTextPadLimit` regions get no empty
/// ones, whose number would grow with the square of the text length.
///
/// @param point where the text starts, before alignment
/// @return the regions of all glyphs in the order of the characters, closed contours counter-clockwise about z; empty
///     when memory runs out
VEK_API CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> textRegions(const wchar_t* text, const wchar_t* align,
                                                                    const CVekPoint3d& point);

inline constexpr int kTextPadLimit = 512;

} // namespace VEK

/// Gets the regions of a text object, stored in a data item, from the host: its function "vek_text_to_regl" receives
/// the item as a list and the factor as a real.
/// @param regl receives the regions; empty if there is no host, it reports failure, or memory runs out
/// @return whether there is any region
VEK_API bool vek_text_to_regl(const CVekDataItem* item, CVekArrayTempl<CVekArrayTempl<CVekVertexArray>>& regl,
                              double factor);
