/// @file
/// Text as regions.
#pragma once

#include <vek/values/polyline.h>
#include <vek/values/string.h>

class CVekDataItem;

namespace VEK
{

/// Lays a text out in the stroke font, in em units: baseline at y = 0, capitals 1.0 high, one line, from left to right.
///
/// A glyph takes its ink width and 0.5; a character without a glyph, blanks included, takes no room at all. The width
/// of the text is the sum of these less 0.3, its height the largest y of all glyphs, from 0 on, the insertion point's
/// y included: callers that align keep the insertion point at y = 0 and place the text by a matrix.
///
/// An alignment shifts by whole or half width and height: the first letter "T" down by the height, "C" by half of it,
/// "B" not at all, the second "L" not at all, "C" left by half the width, "R" by the width. The codes are "TL", "TC",
/// "TR", "CL", "CC", "CR", "BC" and "BR"; any other text does not shift. The shift reaches as many contours of each
/// region as the text has regions: the hole of a lone "O" stays behind, and regions with fewer contours get empty ones.
/// Callers rely on the numbers of contours, but texts of more than `kTextPadLimit` regions are left without the empty
/// ones, which would grow with the square of the text.
///
/// @param point where the text starts, before alignment
/// @return the regions of all glyphs in the order of the characters, closed contours counter-clockwise about z; none
///     where memory ends
VEK_API CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> textRegions(const wchar_t* text, const wchar_t* align,
                                                                    const CVekPoint3d& point);

inline constexpr int kTextPadLimit = 512;

} // namespace VEK

/// Asks the host for the regions of a text object that lives in a data item: its function "vek_text_to_regl" gets the
/// item as a list and the factor as a real.
/// @param regl receives the regions; empty when there is no host, it reports failure, or memory ends
/// @return whether there is any region
VEK_API bool vek_text_to_regl(const CVekDataItem* item, CVekArrayTempl<CVekArrayTempl<CVekVertexArray>>& regl,
                              double factor);
