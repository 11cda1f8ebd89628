/// @file
/// Pictures as device bitmaps. What they are made of, the decoders, the flattening of icons and the choice of the key
/// colour, stands in <vek/bitmaps/picture.h> for every system.
#pragma once

#ifdef _WIN32

#include <vek/export.h>
#include <vek/values/string.h>

class CBitmap;
class CDC;
struct HBITMAP__;
struct tagBITMAP;

/// A picture as `VEK::loadPicture` gives it, in a bitmap for the screen.
/// @return the bitmap, which the caller owns and deletes; null without a picture
VEK_API HBITMAP__* vek_gdx_image_get_bitmap(const CVekString& name, int id, int cx, int cy, bool& transparent,
                                            unsigned long back);

/// The colour that counts as a bitmap's background, as `VEK::keyColor` chooses it.
/// @param dc has the bitmap selected
/// @param bm the bitmap's size
/// @return a `COLORREF`, `CLR_INVALID` when the bitmap has no pixels or something is null
VEK_API unsigned long vek_gdx_picture_bkcolor_get(CDC* dc, tagBITMAP* bm);

/// Draws a bitmap with its top left corner at (x, y), in its own size, and leaves out its background colour. Draws
/// nothing when the bitmap is selected elsewhere.
/// @param w, h not used
VEK_API void vek_gdx_picture_transparent(CDC* dc, int x, int y, int w, int h, CBitmap* bitmap);

#endif
