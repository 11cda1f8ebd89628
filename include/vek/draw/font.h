/// @file
/// The built-in stroke font: letters as regions, which need no device font and scale and rotate like any geometry.
#pragma once

#include <vek/values/polyline.h>

/// The glyph of a character: a list of regions, one for each separate part of the character.
///
/// Shape: element 0 of a region is its outer contour, further elements are holes. Every contour is closed, gap-free,
/// made of straight segments (bulge 0) and in the plane z = 0. Outer contours run clockwise and holes
/// counter-clockwise, but callers should determine the winding before relying on it.
///
/// Units: the em square. The baseline is y = 0, capitals reach y = 1.0, small letters 0.677966, descenders -0.343729;
/// rounded letters overshoot to -0.0101695 and 1.01085. Ink usually begins at x = 0.155932; full-width glyphs end at
/// 0.844746, the widest (V and W) reach 1.17763. Strokes are 0.022373 thick. There is no table of advance widths: a
/// layout uses the extents of the ink.
///
/// Supported characters: 33 to 95, 97 to 126, 177 (plus-minus), 178, 179 (superscripts), 186 (ordinal), 188 to 190
/// (fractions), 196, 214, 220, 223, 228, 246, 252 (German letters). Two codes have a different glyph than expected, and
/// existing texts rely on it: "[" is a low bar for underlining, "_" a slanted mark at the height of an apostrophe. A
/// blank has no glyph.
///
/// @return a copy, owned by the caller; empty for a character without a glyph and when memory runs out
VEK_API CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> get_ascii_from_map(wchar_t c);
