// Pictures as device bitmaps, beside what the system itself makes of the same files.
#include <vek/bitmaps/picture.h>
#include <vek/pictures/raster.h>

#include "core/platform/platform.h"
#include "picture_draw.h"
#include "window/device_pixels.h"

#include <gtest/gtest.h>

#include <afxwin.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

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
    explicit Memory(const CPixels& pixels)
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

    CPixels pixels()
    {
        BITMAP size = {};
        bitmap.GetBitmap(&size);
        return devicePixels(dc.m_hDC, size.bmWidth, size.bmHeight);
    }

    unsigned long key()
    {
        BITMAP size = {};
        bitmap.GetBitmap(&size);
        return vek_gdx_picture_bkcolor_get(&dc, &size);
    }

    CDC dc;
    CBitmap bitmap;

private:
    CBitmap* m_before = nullptr;
};

TEST(RasterPicture, KeyColourOfABitmap)
{
    EXPECT_EQ(Memory(CPixels{4, 3, std::vector<std::uint32_t>(12, kGreen)}).key(), 0x00FF00u);
    EXPECT_EQ(Memory({1, 1, {kBlue}}).key(), 0xFF0000u);
    const auto key = [](unsigned a, unsigned b, unsigned c, unsigned middle, unsigned d) {
        return Memory({4, 4, {a, 1, 1, b, 1, middle, 1, 1, 1, 1, 1, 1, c, 1, 1, d}}).key();
    };
    EXPECT_EQ(key(0x50, 0x40, 0x30, 0x20, 0x90), 0x20u);
    EXPECT_EQ(key(kRed, kBlue, kRed, kBlue, kGreen), 0x0000FFu);
    EXPECT_EQ(key(kRed, kBlue, kRed, kBlue, kBlue), 0xFF0000u);
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

class Loaded : public testing::Test
{
protected:
    Loaded() { std::filesystem::create_directories(m_folder); }
    ~Loaded() override { std::filesystem::remove_all(m_folder); }

    CPixels ours(int cx, int cy)
    {
        m_transparent = true;
        const HBITMAP bitmap = vek_gdx_image_get_bitmap(m_path.c_str(), 0, cx, cy, m_transparent, 0x80C0FF);
        const CPixels pixels = pixelsOf(bitmap);
        DeleteObject(bitmap);
        return pixels;
    }
    void save(const char* name, const std::string& bytes)
    {
        m_path = (m_folder / name).wstring();
        ASSERT_TRUE(VEK::platform::writeFile(m_path, bytes));
    }
    CPixels theirBitmap(int cx, int cy)
    {
        const auto bitmap =
            static_cast<HBITMAP>(LoadImageW(nullptr, m_path.c_str(), IMAGE_BITMAP, cx, cy, LR_LOADFROMFILE));
        const CPixels pixels = pixelsOf(bitmap);
        DeleteObject(bitmap);
        return pixels;
    }
    /// The bitmap's data straight into a device bitmap.
    static CPixels theirData(const std::string& file)
    {
        const auto* header = reinterpret_cast<const BITMAPINFO*>(file.data() + 14);
        std::uint32_t at = 0;
        std::memcpy(&at, file.data() + 10, sizeof at);
        const HDC screen = GetDC(nullptr);
        const HBITMAP bitmap =
            CreateCompatibleBitmap(screen, header->bmiHeader.biWidth, std::abs(header->bmiHeader.biHeight));
        SetDIBits(screen, bitmap, 0, static_cast<UINT>(std::abs(header->bmiHeader.biHeight)), file.data() + at, header,
                  DIB_RGB_COLORS);
        ReleaseDC(nullptr, screen);
        const CPixels pixels = pixelsOf(bitmap);
        DeleteObject(bitmap);
        return pixels;
    }

    std::filesystem::path m_folder = std::filesystem::temp_directory_path() / "vek_raster_test";
    std::wstring m_path;
    bool m_transparent = true;
};

TEST_F(Loaded, BitmapsAreTheSystemsToThePixel)
{
    Random random;
    for (int i = 0; i < 300; ++i) {
        const Drawn drawn = drawBmp(random, true);
        save("a.bmp", drawn.bytes);
        ASSERT_EQ(ours(0, 0), drawn.expected) << i;
        EXPECT_TRUE(m_transparent);
        const bool isCore = drawn.bytes[14] == 12, isTopDown = !isCore && drawn.bytes[25] < 0;
        const bool isOdd = !isCore && drawn.bytes[30] != 0; // masks of any width, which the system does not know
        const CPixels theirs = isOdd ? drawn.expected : isTopDown ? theirData(drawn.bytes) : theirBitmap(0, 0);
        ASSERT_EQ(theirs, drawn.expected) << i; // Wine's loader leaves black what begins at the top
    }
    // Runs of 8 and of 4 bits.
    for (const std::string& bytes :
         {bmp(info(7, 3, 8, 1) + random.noise(1024), hex("0302 0004 01030401 0000 0002 0101 0903 0001")),
          bmp(info(6, 2, 4, 2) + random.noise(64), hex("0312 0003 3410 0000 0002 0101 0556 0001"))}) {
        save("a.bmp", bytes);
        EXPECT_EQ(ours(0, 0), theirData(bytes));
    }
}

TEST_F(Loaded, AreasOfOneColourAreTheSystemsInEverySize) // edges are not: the system blends them
{
    std::string data; // left half red, right half blue
    for (int i = 0; i < 64; ++i)
        data += le(i % 8 < 4 ? 0xFF0000 : 0xFF, 4);
    save("a.bmp", bmp(info(8, 8, 32), data));
    const std::pair<int, int> sizes[] = {{24, 24}, {4, 4}, {30, 0}, {0, 3}};
    for (const auto& [cx, cy] : sizes) {
        const CPixels mine = ours(cx, cy), theirs = theirBitmap(cx, cy);
        ASSERT_EQ(mine.width, theirs.width);
        ASSERT_EQ(mine.height, theirs.height);
        for (int y = 0; y < mine.height; ++y) {
            for (const int x : {0, mine.width / 4, mine.width - 1})
                EXPECT_EQ(mine.at(x, y), theirs.at(x, y)) << cx << ',' << cy << ' ' << x << ',' << y;
        }
    }
    EXPECT_TRUE(ours(-8, 8).empty());
}

TEST_F(Loaded, SystemIconsComeWithoutAName)
{
    m_path.clear();
    m_transparent = true;
    const HBITMAP bitmap = vek_gdx_image_get_bitmap(nullptr, 32512, 5, 5, m_transparent, 0xFFFFFF); // IDI_APPLICATION
    const CPixels pixels = pixelsOf(bitmap);
    EXPECT_EQ(pixels.width, GetSystemMetrics(SM_CXICON)); // its own size
    EXPECT_FALSE(m_transparent);
    EXPECT_NE(std::count(pixels.data.begin(), pixels.data.end(), 0xFFFFFFFF), std::ptrdiff_t(pixels.data.size()));
    DeleteObject(bitmap);
    EXPECT_EQ(vek_gdx_image_get_bitmap(nullptr, 64999, 5, 5, m_transparent, 0xFFFFFF), nullptr);
    EXPECT_EQ(vek_gdx_image_get_bitmap(L"absent.bmp", 32512, 5, 5, m_transparent, 0xFFFFFF), nullptr);
}

TEST(RasterPicture, IconsOfAModule)
{
    const HMODULE module = LoadLibraryW(L"shell32.dll"); // has icons from 1 on
    VEK::platform::IconBits icon;
    ASSERT_TRUE(VEK::platform::moduleIcon("shell32.dll", 1, 20, 20, icon));
    EXPECT_EQ(icon.width, 20);
    EXPECT_EQ(icon.height, 20);
    EXPECT_EQ(icon.mask.size(), 400u * (icon.color.empty() ? 2 : 1));
    EXPECT_FALSE(VEK::platform::moduleIcon("shell32.dll", 64999, 20, 20, icon));
    EXPECT_FALSE(VEK::platform::moduleIcon("not_loaded.dll", 1, 20, 20, icon));
    FreeLibrary(module);
}

} // namespace
