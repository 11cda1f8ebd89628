// The draw pass into pixels in memory.
#include <vek/display.h>
#include <vek/surfaces.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace
{

/// Lines of 10 to 30 pixels on a picture of 2000 by 1000, so many to an item.
void passIntoPixels(benchmark::State& state, int linesOfItem)
{
    CVekGDX gdx(CVekColor(), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
    CVekColor color;
    color.setColorIndex(1);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, 2000), y(0, 1000), length(10, 30), angle(0, 6.28);
    for (std::int64_t i = 0; i < state.range(0); i += linesOfItem) {
        CVekPoint3d at(x(random), y(random), 0);
        CVekVertexArray line;
        for (int k = 0; k < linesOfItem; ++k) {
            const double a = angle(random), l = length(random);
            const CVekPoint3d to(at[0] + l * std::cos(a), at[1] + l * std::sin(a), 0);
            line.append(CVekVertex(at, to));
            at = to;
        }
        gdx.imageVl({}, itemNoExt, line, color, CVekMatrix3d(), {}, 1.0, 1, {});
    }
    gdx.extMaxViewSet({0, 0, 0}, {2000, 1000, 0});
    VEK::CPixels pixels;
    VEK::rasterPixels(pixels, 2000, 1000, 0xFFFFFF);
    for (auto _ : state) {
        VEK::gdxDraw(gdx, *VEK::rasterSurface(pixels), 1000, 2000, VEK::paperRules);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(passIntoPixels, oneToAnItem, 1)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK_CAPTURE(passIntoPixels, tenToAnItem, 10)->RangeMultiplier(10)->Range(1000, 1000000);

} // namespace
