/// @file
/// Pictures as device bitmaps. The portable parts, the decoders, the flattening of icons and the choice of the key
/// colour, are in <vek/bitmaps/picture.h>.
#pragma once

#ifdef _WIN32

#include <vek/export.h>
#include <vek/values/string.h>

class CBitmap;
class CDC;
struct HBITMAP__;
struct tagBITMAP;

/// The picture of `VEK::loadPicture` as a bitmap for the screen.
/// @return the bitmap, which the caller owns and deletes; null if there is no picture
VEK_API HBITMAP__* vek_gdx_image_get_bitmap(const CVekString& name, int id, int cx, int cy, bool& transparent,
                                            unsigned long back);

/// The colour taken as a bitmap's background, chosen as by `VEK::keyColor`.
/// @param dc has the bitmap selected
/// @param bm the bitmap's size
/// @return a `COLORREF`, `CLR_INVALID` if the bitmap has no pixels or an argument is null
VEK_API unsigned long vek_gdx_picture_bkcolor_get(CDC* dc, tagBITMAP* bm);

/// Draws a bitmap with its top left corner at (x, y), in its own size, without its background colour. Draws nothing if
/// the bitmap is selected elsewhere.
/// @param w, h not used
VEK_API void vek_gdx_picture_transparent(CDC* dc, int x, int y, int w, int h, CBitmap* bitmap);

#endif
