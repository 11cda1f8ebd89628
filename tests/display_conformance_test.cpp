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

/// The part of a picture that an area takes, and whether what lies around it has kept its colour.
std::string partOf(const VEK::CPixels& pixels, int left, int top, unsigned around)
{
    std::string part;
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) {
            const std::uint32_t pixel = pixels.at(x, y);
            if (x >= left && x < left + kWidth && y >= top && y < top + kHeight)
                part.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
            else if (pixel != (0xFF000000u | around))
                return "drawn outside";
        }
    }
    return part;
}

/// Drawn on a place that changes from case to case, in a larger picture.
std::string moved(Gdx& gdx, const VEK::PassRules& rules)
{
    static int turn = 0;
    const int left = ++turn % 41, top = turn % 29;
    VEK::CPixels pixels;
    EXPECT_TRUE(VEK::rasterPixels(pixels, kWidth + 45, kHeight + 31, 0xFFFFFF));
    VEK::gdxDraw(gdx, *VEK::rasterSurface(pixels), VEK::DrawArea{double(left), double(top), kWidth, kHeight}, rules);
    return partOf(pixels, left, top, 0xFFFFFF);
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
            if (surface == raster) {
                EXPECT_EQ(moved(gdx, *c.rules) == drawn, true) << c.kind << ' ' << c.flag;
            }
        }
    });
    EXPECT_EQ(cases, kConformanceCases);
}

/// What is drawn three times as large by the scale has all places, sizes and widths three times.
TEST(PassConformance, ScaleEnlargesEverything)
{
    VEK::PassRules rules = kScreen; // without what rounds to pixels
    rules.fitsView = true;
    rules.dot = VEK::PassRules::Dot::line;
    rules.square = VEK::PassRules::Square::box;
    rules.marksFromWholePixels = false;
    int compared = 0;
    forEachConformanceCase([&](Gdx& gdx, const ConformanceCase& c) {
        gdx.pdSizeSet(path({}), -8.0); // even, so that halves are whole
        const double scale = 2 + c.flag % 3;
        VEK::CRecorder once, enlarged;
        VEK::gdxDraw(gdx, once, {3.0, -7.0, kWidth, kHeight}, rules);
        VEK::gdxDraw(gdx, enlarged,
                     {3.0 * scale, -7.0 * scale, kWidth * int(scale), kHeight * int(scale), scale}, rules);
        ASSERT_EQ(once.calls().size(), enlarged.calls().size()) << c.kind << ' ' << c.flag;
        for (std::size_t i = 0; i < once.calls().size(); ++i, ++compared) {
            VEK::SurfaceCall a = once.calls()[i];
            const VEK::SurfaceCall& b = enlarged.calls()[i];
            ASSERT_EQ(a.points.size(), b.points.size()) << a.text() << '\n' << b.text();
            for (std::size_t k = 0; k < a.points.size(); ++k) {
                ASSERT_NEAR(a.points[k].x * scale, b.points[k].x, 1e-6) << c.kind << ' ' << c.flag << ' ' << a.text();
                ASSERT_NEAR(a.points[k].y * scale, b.points[k].y, 1e-6) << c.kind << ' ' << c.flag << ' ' << a.text();
            }
            ASSERT_EQ(a.width * int(scale), b.width);
            a.points = b.points;
            a.width = b.width;
            ASSERT_EQ(a, b);
        }
    });
    EXPECT_GT(compared, 100 * kConformanceCases / 15);
}

} // namespace
} // namespace display_test
