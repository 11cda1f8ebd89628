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

/// An icon as its two pictures of one size.
struct IconImage {
    CPixels color; ///< joined with what lies below by exclusive or, where the mask is black
    CPixels mask;  ///< white where the icon leaves what lies below, black where it shows

    // Without `color` the mask is twice as high: its upper half is the mask, its lower half the colours.
};

/// A picture by name: a file with the ending ".ico" or ".bmp" in any case, sought as by `fileFind`. Without a name it
/// is the system's icon of the number `id`, or else the icon resource `id` of the library's own module; both exist on
/// Windows only, and the first comes in its own size.
/// @param cx, cy size in pixels that the picture is scaled to, 0 for its own; a negative size gives no picture. Of an
/// icon file the image nearest to that size is taken, its own size being that of the first image. It is scaled as by
/// `scaledPicture`, so that a key colour stays exact.
/// @param transparent becomes false for an icon and stays otherwise
/// @param back `COLORREF` that icons are flattened over
/// @return opaque pixels; empty when there is no such picture, the ending is another one or the file is damaged
VEK_API CPixels loadPicture(const CVekString& name, int id, int cx, int cy, bool& transparent, unsigned long back);

/// Decodes a Windows or OS/2 bitmap file, as published in [MS-WMF] and for OS/2 1.x: 1, 4, 8, 16, 24 and 32 bits a
/// pixel, bit fields, RLE4 and RLE8, rows from either end. The result is opaque; colours that a palette lacks, and
/// pixels that a compressed picture skips or does not reach, are black.
/// @return false, with `pixels` empty, for another format, absurd sizes, and uncompressed pixels that are cut short
VEK_API bool decodeBmp(std::string_view bytes, CPixels& pixels);

/// Decodes one image of an icon file: the nearest to cx by cy by the sum of both differences, of those the one with the
/// most bits a pixel, of those the first. 0 stands for the size of the first image. Images are bitmaps with a mask,
/// whose absence means that all of it shows, or PNG, where the mask covers what has less than half of the opacity.
/// Where a bitmap of 32 bits has an empty mask and any opacity, the mask covers what has none.
/// @return false, with `icon` empty, when the file has no image or the one chosen is damaged
VEK_API bool decodeIcon(std::string_view bytes, int cx, int cy, IconImage& icon);

/// Draws an icon over a colour, as device bitmaps are combined: colour AND mask, then XOR the icon's colours where the
/// mask is black. Opacity between all and nothing is not used.
/// @param back `COLORREF`
/// @return opaque pixels; empty when the icon's pictures differ in size
VEK_API CPixels flattenIcon(const IconImage& icon, unsigned long back);

/// A picture in another size. What grows repeats the pixels under the new centres, the left or upper one of two, and
/// what shrinks takes the mean of those that a new pixel covers, in each direction on its own; so areas of one colour
/// keep it exactly.
/// @return empty for an empty picture, and a size that is not positive or too large
VEK_API CPixels scaledPicture(const CPixels& pixels, int cx, int cy);

/// The colour that counts as a picture's background: the most frequent at its corners and in its middle, or the one of
/// lowest value among several.
/// @return a `COLORREF`, 0xFFFFFFFF (`CLR_INVALID`) without a picture
VEK_API unsigned keyColor(const CPixels& pixels);

/// The choice alone, from the five colours.
VEK_API unsigned keyColorOf(const std::array<unsigned, 5>& colors);

/// Takes the opacity of all pixels of a colour, so that surfaces leave them out.
VEK_API void leaveOut(CPixels& pixels, unsigned color);

} // namespace VEK
