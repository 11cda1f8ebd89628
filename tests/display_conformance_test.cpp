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

/// Compares the calls for an area with those for the same size at (0, 0), without a scale.
void compareAreas(Gdx& gdx, const VEK::PassRules& rules, const VEK::DrawArea& area, const std::string& what)
{
    const int scale = static_cast<int>(area.scale);
    VEK::CRecorder plain, placed;
    VEK::gdxDraw(gdx, plain, area.height / scale, area.width / scale, rules);
    VEK::gdxDraw(gdx, placed, area, rules);
    ASSERT_EQ(plain.calls().size(), placed.calls().size()) << what;
    for (std::size_t i = 0; i < plain.calls().size(); ++i) {
        const VEK::SurfaceCall &a = plain.calls()[i], &b = placed.calls()[i];
        const bool hasSize = a.op == SurfaceOp::solidRect || a.op == SurfaceOp::picture;
        ASSERT_EQ(a.points.size(), b.points.size()) << a.text() << '\n' << b.text();
        for (std::size_t k = 0; k < a.points.size(); ++k) {
            const bool isPlace = k == 0 || !hasSize;
            ASSERT_NEAR(a.points[k].x * scale + (isPlace ? area.left : 0.0), b.points[k].x, 1e-6) << what << a.text();
            ASSERT_NEAR(a.points[k].y * scale + (isPlace ? area.top : 0.0), b.points[k].y, 1e-6) << what << a.text();
        }
        const int width = scale == 1 ? a.width : std::max(a.width, a.op == SurfaceOp::pen ? 1 : 0) * scale;
        ASSERT_EQ((VEK::SurfaceCall{a.op, b.points, width, a.color}), b) << what;
    }
}

TEST(PassConformance, AreasMoveAndScalesEnlarge)
{
    VEK::PassRules even = kScreen; // without what rounds to pixels
    even.fitsView = true;
    even.dot = VEK::PassRules::Dot::line;
    even.square = VEK::PassRules::Square::box;
    even.marksFromWholePixels = false;
    int cases = 0;
    forEachConformanceCase([&](Gdx& gdx, const ConformanceCase& c) {
        ++cases;
        const std::string what = c.kind + (' ' + std::to_string(c.flag) + ' ');
        compareAreas(gdx, *c.rules, {-4.0, 17.0, kWidth, kHeight}, what);
        gdx.pdSizeSet(path({1}), -8.0); // of which the half is whole
        const int scale = 2 + static_cast<int>(c.flag % 3);
        compareAreas(gdx, even, {300.25, -7.5, kWidth * scale, kHeight * scale, double(scale)}, what);
    });
    EXPECT_EQ(cases, kConformanceCases);
}

} // namespace
} // namespace display_test
