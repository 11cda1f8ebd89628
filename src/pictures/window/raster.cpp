#include <vek/pictures/raster.h>

#include "surfaces/window/device_bitmap.h"

#include <vek/bitmaps/picture.h>

#include <afxwin.h>

HBITMAP vek_gdx_image_get_bitmap(const CVekString& name, int id, int cx, int cy, bool& transparent, unsigned long back)
{
    VEK::CPixels pixels = VEK::loadPicture(name, id, cx, cy, transparent, back);
    if (pixels.empty())
        return nullptr;
    for (std::uint32_t& pixel : pixels.data)
        pixel = VEK::deviceColor(pixel);
    const BITMAPINFO info = VEK::deviceBitmapInfo(pixels);
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap = CreateDIBitmap(screen, &info.bmiHeader, CBM_INIT, pixels.data.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

unsigned long vek_gdx_picture_bkcolor_get(CDC* dc, BITMAP* bm)
{
    if (!dc || !bm || bm->bmWidth < 1 || bm->bmHeight < 1)
        return CLR_INVALID;
    const int right = bm->bmWidth - 1;
    const int bottom = bm->bmHeight - 1;
    const auto at = [&](int x, int y) { return static_cast<unsigned>(dc->GetPixel(x, y)); };
    return VEK::keyColorOf({at(0, 0), at(right, 0), at(0, bottom), at(right / 2, bottom / 2), at(right, bottom)});
}

void vek_gdx_picture_transparent(CDC* dc, int x, int y, int, int, CBitmap* bitmap)
{
    BITMAP size = {};
    if (!dc || !bitmap || bitmap->GetBitmap(&size) == 0)
        return;
    CDC source, mask;
    CBitmap bits;
    if (!source.CreateCompatibleDC(dc) || !mask.CreateCompatibleDC(dc) ||
        !bits.CreateBitmap(size.bmWidth, size.bmHeight, 1, 1, nullptr))
        return;
    source.SetLayout(0); // a mirrored context may pass on its layout
    mask.SetLayout(0);
    CBitmap* const sourceBefore = source.SelectObject(bitmap);
    if (!sourceBefore)
        return;
    CBitmap* const maskBefore = mask.SelectObject(&bits);

    // The mask is white where the bitmap has the key colour. Copied to a colour bitmap, its white becomes the
    // background colour and its black the text colour: white keeps what the two XOR copies restore, black leaves the
    // bitmap unchanged.
    source.SetBkColor(vek_gdx_picture_bkcolor_get(&source, &size));
    mask.BitBlt(0, 0, size.bmWidth, size.bmHeight, &source, 0, 0, SRCCOPY);
    const COLORREF textBefore = dc->SetTextColor(RGB(0, 0, 0));
    const COLORREF backBefore = dc->SetBkColor(RGB(255, 255, 255));
    dc->BitBlt(x, y, size.bmWidth, size.bmHeight, &source, 0, 0, SRCINVERT);
    dc->BitBlt(x, y, size.bmWidth, size.bmHeight, &mask, 0, 0, SRCAND);
    dc->BitBlt(x, y, size.bmWidth, size.bmHeight, &source, 0, 0, SRCINVERT);

    dc->SetTextColor(textBefore);
    dc->SetBkColor(backBefore);
    mask.SelectObject(maskBefore);
    source.SelectObject(sourceBefore);
}
