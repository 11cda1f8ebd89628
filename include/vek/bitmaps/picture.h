/// @file
/// Pictures from files, as pixels.
#pragma once

#include <vek/export.h>
#include <vek/values/pixels.h>
#include <vek/values/string.h>

#include <array>
#include <string_view>

namespace VEK
{

/// An icon as two pictures of the same size.
struct IconImage {
    CPixels color; ///< combined with the background by XOR where the mask is black
    CPixels mask;  ///< white where the background shows, black where the icon does

    // Without `color` the mask is twice as high: its upper half is the mask, its lower half the colours.
};

/// A picture by name: a file with the extension ".ico" or ".bmp", ignoring case, searched for as by `fileFind`. Without
/// a name it is the system's icon of the number `id`, or else the icon resource `id` of the library's own module; both
/// exist on Windows only, and the first has its own size.
/// @param cx, cy size in pixels to which the picture is scaled, 0 for its own; a negative size gives no picture. The
/// image of an icon file nearest to that size is used, its own size being that of the first image. It is scaled as by
/// `scaledPicture`, so that a key colour stays exact.
/// @param transparent set to false for an icon, otherwise unchanged
/// @param back `COLORREF` over which icons are flattened
/// @return opaque pixels; empty if there is no such picture, the extension is a different one or the file is damaged
VEK_API CPixels loadPicture(const CVekString& name, int id, int cx, int cy, bool& transparent, unsigned long back);

/// Decodes a Windows or OS/2 bitmap file, as published in [MS-WMF] and for OS/2 1.x: 1, 4, 8, 16, 24 and 32 bits per
/// pixel, bit fields, RLE4 and RLE8, bottom-up or top-down. The result is opaque; colours missing in the palette, and
/// pixels that a compressed picture skips or does not reach, are black.
/// @return false, with `pixels` empty, for another format, absurd sizes, and truncated uncompressed pixels
VEK_API bool decodeBmp(std::string_view bytes, CPixels& pixels);

/// Decodes one image of an icon file: the one nearest to cx by cy by the sum of both differences, among equals the one
/// with the most bits per pixel, then the first. 0 means the size of the first image. Images are bitmaps with a mask,
/// without which they are fully visible, or PNG, where the mask covers pixels of less than half opacity. For a bitmap
/// of 32 bits with an empty mask and any opacity, the mask covers the pixels without opacity.
/// @return false, with `icon` empty, if the file has no image or the one chosen is damaged
VEK_API bool decodeIcon(std::string_view bytes, int cx, int cy, IconImage& icon);

/// Draws an icon over a colour, as device bitmaps are combined: colour AND mask, then XOR the icon's colours where the
/// mask is black. Partial opacity is not used.
/// @param back `COLORREF`
/// @return opaque pixels; empty if the icon's pictures differ in size
VEK_API CPixels flattenIcon(const IconImage& icon, unsigned long back);

/// A picture in another size. Enlarging repeats the pixel under each new centre, the left or upper one of two;
/// shrinking takes the mean of the pixels that a new pixel covers; each direction is handled separately, so areas of
/// one colour keep it exactly.
/// @return empty for an empty picture, and for a size that is not positive or too large
VEK_API CPixels scaledPicture(const CPixels& pixels, int cx, int cy);

/// The colour taken as a picture's background: the most frequent at its corners and in its middle, and of several the
/// one of lowest value.
/// @return a `COLORREF`, 0xFFFFFFFF (`CLR_INVALID`) without a picture
VEK_API unsigned keyColor(const CPixels& pixels);

/// The choice itself, from the five colours.
VEK_API unsigned keyColorOf(const std::array<unsigned, 5>& colors);

/// Makes all pixels of a colour transparent, so that surfaces leave them out.
VEK_API void leaveOut(CPixels& pixels, unsigned color);

} // namespace VEK
