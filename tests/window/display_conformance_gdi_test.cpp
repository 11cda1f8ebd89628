// Every kind of item with every flag: a device context and pixels in memory show the same picture.
#include "display_conformance.h"
#include "window/device_pixels.h"

namespace display_test
{
namespace
{

constexpr int kHeight = 100, kWidth = 200;

VEK::CPixels onContext(Gdx& gdx, const VEK::PassRules& rules)
{
    const Canvas canvas(kWidth, kHeight);
    VEK::gdxDraw(gdx, *VEK::gdiSurface(canvas.dc), kHeight, kWidth, rules);
    return canvas.pixels();
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
