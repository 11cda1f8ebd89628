// Every kind of item with every flag, drawn by every set of rules on every surface that needs no window.
#include "display_conformance.h"

namespace display_test
{
namespace
{

constexpr int kHeight = 100, kWidth = 200;

/// What an object looks like on a surface, as bytes.
using Draw = std::string (*)(Gdx& gdx, const VEK::PassRules& rules);

std::string record(Gdx& gdx, const VEK::PassRules& rules)
{
    return draw(gdx, rules).text();
}

std::string fileOf(std::unique_ptr<VEK::CFileSurface> surface, const VEK::CMemorySink& sink, Gdx& gdx,
                   const VEK::PassRules& rules)
{
    VEK::gdxDraw(gdx, *surface, kHeight, kWidth, rules);
    EXPECT_TRUE(surface->finish());
    return sink.bytes();
}

std::string metafile(Gdx& gdx, const VEK::PassRules& rules)
{
    VEK::CMemorySink sink;
    return fileOf(VEK::emfSurface(sink), sink, gdx, rules);
}

std::string svg(Gdx& gdx, const VEK::PassRules& rules)
{
    VEK::CMemorySink sink;
    return fileOf(VEK::svgSurface(sink, kWidth, kHeight), sink, gdx, rules);
}

std::string raster(Gdx& gdx, const VEK::PassRules& rules)
{
    VEK::CPixels pixels;
    EXPECT_TRUE(VEK::rasterPixels(pixels, kWidth, kHeight, 0xFFFFFF));
    VEK::gdxDraw(gdx, *VEK::rasterSurface(pixels), kHeight, kWidth, rules);
    return std::string(reinterpret_cast<const char*>(pixels.data.data()), pixels.data.size() * 4);
}

TEST(PassConformance, KindsFlagsRulesAndSurfaces)
{
    int cases = 0;
    forEachConformanceCase([&](Gdx& gdx, const ConformanceCase& c) {
        ++cases;
        for (const Draw surface : {record, metafile, svg, raster}) {
            Gdx empty = grey();
            const std::string drawn = surface(gdx, *c.rules);
            EXPECT_EQ(drawn != surface(empty, *c.rules), c.shows) << c.kind << ' ' << c.flag;
            EXPECT_EQ(surface(gdx, *c.rules), drawn) << c.kind << ' ' << c.flag; // a second time
        }
    });
    EXPECT_EQ(cases, kConformanceCases);
}

} // namespace
} // namespace display_test
