// The draw pass into a surface that does nothing, and into files.
#include <vek/display.h>
#include <vek/surfaces.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

namespace
{

class NoSurface : public VEK::CSurface
{
public:
    void clipTo(double, double, double, double) override {}
    void clipOut(const VEK::SurfacePoint* points, int) override { benchmark::DoNotOptimize(points); }
    void clipRestore() override {}
    void pen(int, unsigned) override {}
    void noPen() override {}
    void brush(unsigned) override {}
    void noBrush() override {}
    void background(unsigned) override {}
    void moveTo(double x, double) override { benchmark::DoNotOptimize(x); }
    void lineTo(double x, double) override { benchmark::DoNotOptimize(x); }
    void polyline(const VEK::SurfacePoint* points, int) override { benchmark::DoNotOptimize(points); }
    void polygon(const VEK::SurfacePoint* points, int) override { benchmark::DoNotOptimize(points); }
    void rectangle(double, double, double, double) override {}
    void ellipse(double, double, double, double) override {}
    void pixel(double, double, unsigned) override {}
    void solidRect(double, double, double, double, unsigned) override {}
    void picture(double, double, const VEK::CPixels&) override {}
};

CVekGDX blank()
{
    return CVekGDX(CVekColor(), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
}

/// Polylines of two segments each.
CVekGDX polylines(std::int64_t count, bool ownMatrix)
{
    CVekGDX gdx = blank();
    CVekColor color;
    color.setColorIndex(1);
    CVekMatrix3d m;
    if (ownMatrix)
        m.setToRotation(0.1, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
    for (std::int64_t i = 0; i < count; ++i) {
        const double x = static_cast<double>(i % 1000), y = static_cast<double>(i / 1000);
        CVekVertexArray vl;
        vl.append(CVekVertex({x, y, 0}, {x + 3, y, 0}));
        vl.append(CVekVertex({x + 3, y, 0}, {x + 3, y + 2, 0}));
        gdx.imageVl({}, itemNoExt, vl, color, m, {}, 1.0, 1, {});
    }
    gdx.extMaxViewSet({0, 0, 0}, {1003, 1002, 0});
    return gdx;
}

/// The same points through one matrix and nothing else.
void bareLoop(benchmark::State& state)
{
    const CVekGDX gdx = polylines(state.range(0), false);
    const CVekMatrix3d m = gdx.zoomMtxGet() * gdx.projMtxGet();
    for (auto _ : state) {
        for (const CVekDisplayItem& item : gdx.getDisplayList()) {
            for (const CVekVertex& vertex : item.vl) {
                benchmark::DoNotOptimize(vertex.start * m);
                benchmark::DoNotOptimize(vertex.end * m);
            }
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(bareLoop)->RangeMultiplier(10)->Range(1000, 1000000);

void passOverPolylines(benchmark::State& state, bool ownMatrix)
{
    CVekGDX gdx = polylines(state.range(0), ownMatrix);
    NoSurface surface;
    for (auto _ : state)
        VEK::gdxDraw(gdx, surface, 800, 1200, VEK::paperRules);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(passOverPolylines, plain, false)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK_CAPTURE(passOverPolylines, ownMatrix, true)->RangeMultiplier(10)->Range(1000, 1000000);

class Nowhere : public VEK::CByteSink
{
public:
    bool write(std::string_view bytes) override
    {
        count += bytes.size();
        return true;
    }
    bool rewrite(std::uint64_t, std::string_view) override { return true; }
    bool commit() override { return true; }
    std::size_t count = 0;
};

void passIntoFile(benchmark::State& state, bool svg)
{
    CVekGDX gdx = polylines(state.range(0), false);
    std::size_t bytes = 0;
    for (auto _ : state) {
        Nowhere sink;
        const auto surface = svg ? VEK::svgSurface(sink, 1200, 800) : VEK::emfSurface(sink);
        VEK::gdxDraw(gdx, *surface, 800, 1200, VEK::paperRules);
        surface->finish();
        bytes += sink.count;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}
BENCHMARK_CAPTURE(passIntoFile, emf, false)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK_CAPTURE(passIntoFile, svg, true)->RangeMultiplier(10)->Range(1000, 1000000);

/// Ten lines, with so many dashes in total.
void dashesIntoFile(benchmark::State& state)
{
    CVekGDX gdx = blank();
    CVekArrayTempl<double> dashes;
    for (const double dash : {3.0, -2.0})
        dashes.append(dash);
    for (int i = 0; i < 10; ++i) {
        CVekVertexArray vl;
        vl.append(CVekVertex({0.0, 10.0 * i, 0.0}, {0.5 * static_cast<double>(state.range(0)), 10.0 * i + 5.0, 0.0}));
        gdx.imageVl({}, 0, vl, CVekColor(), CVekMatrix3d(), dashes, 1.0, 1, {});
    }
    std::size_t bytes = 0;
    for (auto _ : state) {
        Nowhere sink;
        const auto surface = VEK::emfSurface(sink);
        VEK::gdxDraw(gdx, *surface, 800, 1200, VEK::paperRules);
        surface->finish();
        bytes += sink.count;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}
BENCHMARK(dashesIntoFile)->RangeMultiplier(10)->Range(1000, 1000000);

/// Moves and scales so that 2 m from a place on fill a window of 1200 by 800.
void lookAt(CVekGDX& gdx, double x, double y)
{
    CVekMatrix3d zoom, move;
    move.setToTranslation({-x, -y, 0});
    gdx.zoomMtxSet(zoom.setToScaling(1200.0 / 2000.0, CVekPoint3d::kOrigin) * move);
}

/// So many dashed lines of 120 m that cross a view of 2 m.
void dashesInView(benchmark::State& state, double scale)
{
    CVekGDX gdx = blank();
    const CVekArrayTempl<double> dashes{10.0, -4.0};
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const double y = 1300.0 * static_cast<double>(i) / static_cast<double>(state.range(0));
        const CVekVertexArray vl(CVekVertex({0, y, 0}, {120000, y + 5, 0}));
        gdx.imageVl({}, 0, vl, CVekColor(), CVekMatrix3d(), dashes, scale, 1, {});
    }
    lookAt(gdx, 60000, 0);
    NoSurface surface;
    for (auto _ : state)
        VEK::gdxDraw(gdx, surface, 800, 1200, VEK::screenRules);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(dashesInView, fine, 1.0)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(dashesInView, coarse, 10.0)->RangeMultiplier(10)->Range(1000, 10000)->Unit(benchmark::kMillisecond);

/// A wall of 120 m by 4 m with so many corners at its top, seen through a view of 2 m.
void hatchInView(benchmark::State& state, double angle)
{
    CVekPoint3dArray points;
    points.append({0, 0, 0});
    points.append({120000, 0, 0});
    for (std::int64_t i = state.range(0); i > 0; --i)
        points.append({120000.0 * static_cast<double>(i - 1) / static_cast<double>(state.range(0)), 4000.0 + i % 2, 0});
    CVekArrayTempl<CVekVertexArray> wall;
    wall[0].fromPoints(points, true);
    CVekGDX gdx = blank();
    gdx.imageReg({}, itemHatch, wall, CVekColor(), CVekMatrix3d(), {}, 1.0, 1, CVekColor(),
                 VEK::CHatchProp(L"_USER", angle, 20.0, false), {});
    lookAt(gdx, 60000, 1000);
    NoSurface surface;
    for (auto _ : state)
        VEK::gdxDraw(gdx, surface, 800, 1200, VEK::screenRules);
}
BENCHMARK_CAPTURE(hatchInView, level, 0.0)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(hatchInView, inclined, 0.7)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMillisecond);

/// Lines of 100 with six dashes each.
void sixDashes(benchmark::State& state)
{
    CVekGDX gdx = blank();
    const CVekArrayTempl<double> dashes{12.0, -8.0};
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const double x = static_cast<double>(i % 1000), y = static_cast<double>(i / 1000);
        const CVekVertexArray vl(CVekVertex({x, y, 0}, {x + 100, y, 0}));
        gdx.imageVl({}, itemNoExt, vl, CVekColor(), CVekMatrix3d(), dashes, 1.0, 1, {});
    }
    gdx.extMaxViewSet({0, 0, 0}, {1100, 1002, 0});
    NoSurface surface;
    for (auto _ : state)
        VEK::gdxDraw(gdx, surface, 800, 1200, VEK::paperRules);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(sixDashes)->RangeMultiplier(10)->Range(1000, 100000);

/// A region hatched with a star of 2,000 corners by 1,000 lines, all of it in view.
void hatchOfStar(benchmark::State& state)
{
    CVekPoint3dArray points;
    for (int i = 0; i < 2000; ++i) {
        const double angle = 6.283185307179586 * i / 2000, radius = i % 2 != 0 ? 3000.0 : 1500.0;
        points.append({3000 + radius * std::cos(angle), 3000 + radius * std::sin(angle), 0});
    }
    CVekArrayTempl<CVekVertexArray> star;
    star[0].fromPoints(points, true);
    CVekGDX gdx = blank();
    gdx.imageReg({}, itemHatch, star, CVekColor(), CVekMatrix3d(), {}, 1.0, 1, CVekColor(),
                 VEK::CHatchProp(L"_USER", 0.7, 6.0, false), {});
    NoSurface surface;
    for (auto _ : state)
        VEK::gdxDraw(gdx, surface, 6000, 6000, VEK::screenRules);
}
BENCHMARK(hatchOfStar)->Unit(benchmark::kMillisecond);

/// One item of a text of so many letters.
void passOverText(benchmark::State& state, const VEK::PassRules& rules)
{
    CVekGDX gdx = blank();
    std::wstring text;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        text += static_cast<wchar_t>(L'A' + i % 26);
    gdx.imageTxt({}, 0, text.c_str(), CVekColor(), CVekMatrix3d(), L"", {}, {});
    NoSurface surface;
    for (auto _ : state)
        VEK::gdxDraw(gdx, surface, 800, 1200, rules);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(passOverText, paper, VEK::paperRules)->RangeMultiplier(10)->Range(100, 100000);
BENCHMARK_CAPTURE(passOverText, screen, VEK::screenRules)->RangeMultiplier(10)->Range(100, 100000);

/// A star of so many contour segments filled over 1000 by 1000 pixels.
void scanFill(benchmark::State& state)
{
    const std::int64_t count = state.range(0);
    CVekPoint3dArray points;
    for (std::int64_t i = 0; i < count; ++i) {
        const double angle = 6.283185307179586 * static_cast<double>(i) / static_cast<double>(count);
        const double radius = i % 2 != 0 ? 450.0 : 400.0;
        points.append({500 + radius * std::cos(angle), 500 + radius * std::sin(angle), 0});
    }
    CVekArrayTempl<CVekVertexArray> region;
    region[0].fromPoints(points, true);
    CVekGDX gdx = blank();
    gdx.imageReg({}, itemFill, region, CVekColor(), CVekMatrix3d(), {}, 1.0, 1, CVekColor(), VEK::CHatchProp(), {});
    NoSurface surface;
    for (auto _ : state)
        VEK::gdxDraw(gdx, surface, 1000, 1000, VEK::paperRules);
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(scanFill)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMicrosecond);

} // namespace
