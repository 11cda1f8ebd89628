// Every kind of item with every flag: a device context and pixels in memory show the same picture.
#include "display_conformance.h"

#include <windows.h>

namespace display_test
{
namespace
{

constexpr int kHeight = 100, kWidth = 200;

VEK::CPixels onContext(Gdx& gdx, const VEK::PassRules& rules)
{
    VEK::CPixels pixels{kWidth, kHeight, {}};
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    unsigned* bits = nullptr;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits), nullptr, 0);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    PatBlt(dc, 0, 0, kWidth, kHeight, WHITENESS);
    VEK::gdxDraw(gdx, *VEK::gdiSurface(dc), kHeight, kWidth, rules);
    GdiFlush();
    for (int i = 0; i < kWidth * kHeight; ++i)
        pixels.data.push_back(0xFF000000u | (bits[i] & 0xFF) << 16 | (bits[i] & 0xFF00) | (bits[i] >> 16 & 0xFF));
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    return pixels;
}

TEST(PassConformance, ContextAndRasterShowTheSamePixels)
{
    int cases = 0, differing = 0;
    forEachConformanceCase([&](Gdx& gdx, const ConformanceCase& c) {
        ++cases;
        const VEK::CPixels system = onContext(gdx, *c.rules);
        VEK::CPixels own;
        ASSERT_TRUE(VEK::rasterPixels(own, kWidth, kHeight, 0xFFFFFF));
        VEK::gdxDraw(gdx, *VEK::rasterSurface(own), kHeight, kWidth, *c.rules);
        int pixels = 0;
        for (std::size_t i = 0; i < own.data.size(); ++i)
            pixels += own.data[i] != system.data[i];
        differing += pixels;
        EXPECT_EQ(pixels, 0) << c.kind << ' ' << c.flag;
    });
    EXPECT_EQ(cases, kConformanceCases);
    EXPECT_EQ(differing, 0);
}

} // namespace
} // namespace display_test
