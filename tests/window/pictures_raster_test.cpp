// Pictures as device bitmaps.
#include <vek/bitmaps/picture.h>
#include <vek/pictures/raster.h>

#include "core/platform/platform.h"
#include "picture_draw.h"
#include "test_folder.h"
#include "window/device_pixels.h"

#include <gtest/gtest.h>

#include <afxwin.h>

#include <algorithm>

namespace
{

using namespace picture_bytes;
using VEK::CPixels;

/// The pixels of a bitmap.
CPixels pixelsOf(HBITMAP bitmap)
{
    BITMAP size = {};
    if (GetObjectW(bitmap, sizeof size, &size) == 0)
        return {};
    const HDC memory = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const CPixels pixels = devicePixels(memory, size.bmWidth, size.bmHeight);
    SelectObject(memory, before);
    DeleteDC(memory);
    return pixels;
}

/// A bitmap for the screen in a context.
class Memory
{
public:
    explicit Memory(const CPixels& pixels) : m_size{pixels.width, pixels.height}
    {
        CDC screen;
        screen.Attach(GetDC(nullptr));
        dc.CreateCompatibleDC(&screen);
        bitmap.CreateCompatibleBitmap(&screen, pixels.width, pixels.height);
        ReleaseDC(nullptr, screen.Detach());
        m_before = dc.SelectObject(&bitmap);
        for (int y = 0; y < pixels.height; ++y) {
            for (int x = 0; x < pixels.width; ++x)
                dc.SetPixelV(x, y, pixels.at(x, y) & 0xFFFFFF);
        }
    }
    ~Memory() { release(); }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    void release() { dc.SelectObject(m_before); }

    CPixels pixels() { return devicePixels(dc.m_hDC, m_size.cx, m_size.cy); }

    unsigned long key()
    {
        BITMAP size = {};
        bitmap.GetBitmap(&size);
        return vek_gdx_picture_bkcolor_get(&dc, &size);
    }

    CDC dc;
    CBitmap bitmap;

private:
    const SIZE m_size;
    CBitmap* m_before = nullptr;
};

TEST(RasterPicture, KeyColourOfABitmap)
{
    EXPECT_EQ(Memory(CPixels{4, 3, std::vector<std::uint32_t>(12, kGreen)}).key(), 0x00FF00u);
    EXPECT_EQ(Memory({1, 1, {kBlue}}).key(), 0xFF0000u);
    EXPECT_EQ(Memory({2, 2, {kRed, kBlue, kBlue, kGreen}}).key(), 0x0000FFu); // the middle is the first corner
    Memory none({1, 1, {kRed}});
    EXPECT_EQ(vek_gdx_picture_bkcolor_get(&none.dc, nullptr), CLR_INVALID);
    EXPECT_EQ(vek_gdx_picture_bkcolor_get(nullptr, nullptr), CLR_INVALID);
}

TEST(RasterPicture, TransparentDrawingLeavesTheKeyColourOut)
{
    Memory target({5, 4, std::vector<std::uint32_t>(20, 0xFF336699)});
    Memory sign({3, 2, {kWhite, kRed, kWhite, kWhite, kBlack, kBlue}});
    const COLORREF text = target.dc.SetTextColor(0x123456), back = target.dc.SetBkColor(0x654321);
    EXPECT_NE(text, back);
    vek_gdx_picture_transparent(&target.dc, 1, 1, 99, 99, &sign.bitmap); // selected elsewhere
    sign.release();
    vek_gdx_picture_transparent(&target.dc, 1, 1, 99, 99, nullptr);
    vek_gdx_picture_transparent(nullptr, 1, 1, 99, 99, &sign.bitmap);
    EXPECT_EQ(target.pixels(), (CPixels{5, 4, std::vector<std::uint32_t>(20, 0xFF336699)}));

    vek_gdx_picture_transparent(&target.dc, 1, 1, 99, 99, &sign.bitmap);
    CPixels expected{5, 4, std::vector<std::uint32_t>(20, 0xFF336699)};
    expected.data[7] = kRed;
    expected.data[12] = kBlack;
    expected.data[13] = kBlue;
    EXPECT_EQ(target.pixels(), expected);
    EXPECT_EQ(target.dc.GetTextColor(), 0x123456u);
    EXPECT_EQ(target.dc.GetBkColor(), 0x654321u);
    EXPECT_NE(sign.dc.SelectObject(&sign.bitmap), nullptr); // it was let go
}

TEST(Loaded, BitmapsHaveThePixelsOfTheirFiles)
{
    const TestFolder folder(L"raster");
    Random random;
    for (int i = 0; i < 100; ++i) {
        const Drawn drawn = drawBmp(random, true);
        const std::wstring path = folder.save(L"a.bmp", drawn.bytes);
        bool transparent = true;
        const HBITMAP bitmap = vek_gdx_image_get_bitmap(path.c_str(), 0, 0, 0, transparent, 0x80C0FF);
        ASSERT_EQ(pixelsOf(bitmap), drawn.expected) << i;
        EXPECT_TRUE(transparent);
        DeleteObject(bitmap);
        EXPECT_EQ(vek_gdx_image_get_bitmap(path.c_str(), 0, -8, 8, transparent, 0), nullptr);
    }
}

TEST(Loaded, SystemIconsComeWithoutAName)
{
    bool transparent = true;
    const HBITMAP bitmap = vek_gdx_image_get_bitmap(nullptr, 32512, 5, 5, transparent, 0xFFFFFF); // IDI_APPLICATION
    const CPixels pixels = pixelsOf(bitmap);
    EXPECT_EQ(pixels.width, GetSystemMetrics(SM_CXICON)); // its own size
    EXPECT_FALSE(transparent);
    EXPECT_NE(std::count(pixels.data.begin(), pixels.data.end(), 0xFFFFFFFF), std::ptrdiff_t(pixels.data.size()));
    DeleteObject(bitmap);
    EXPECT_EQ(vek_gdx_image_get_bitmap(nullptr, 64999, 5, 5, transparent, 0xFFFFFF), nullptr);
    EXPECT_EQ(vek_gdx_image_get_bitmap(L"absent.bmp", 32512, 5, 5, transparent, 0xFFFFFF), nullptr);
}

TEST(RasterPicture, IconsOfAModule)
{
    const HMODULE module = LoadLibraryW(L"shell32.dll"); // has icons from 1 on
    VEK::platform::IconBits icon;
    ASSERT_TRUE(VEK::platform::moduleIcon("shell32.dll", 1, 20, 20, icon));
    EXPECT_TRUE(icon.width == 20 && icon.height == 20 && icon.mask.size() == 400u * (icon.color.empty() ? 2 : 1));
    EXPECT_FALSE(VEK::platform::moduleIcon("shell32.dll", 64999, 20, 20, icon));
    EXPECT_FALSE(VEK::platform::moduleIcon("not_loaded.dll", 1, 20, 20, icon));
    FreeLibrary(module);
}

} // namespace
