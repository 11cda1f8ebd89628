// The raster surface, on a picture of 2000 by 1000 pixels.
#include <vek/surfaces/raster.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>
#include <random>
#include <vector>

namespace
{

using VEK::SurfacePoint;

constexpr int kWidth = 2000, kHeight = 1000;

/// The memory copy rate, for comparison.
void memoryCopy(benchmark::State& state)
{
    const auto size = static_cast<std::size_t>(state.range(0));
    const std::vector<char> from(size, 1);
    std::vector<char> to(size);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), size);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(memoryCopy)->Arg(4 * kWidth * kHeight)->Arg(256 << 20);

/// Separate lines of `shortest` to `longest` pixels, two points each.
std::vector<SurfacePoint> lines(std::int64_t count, double shortest, double longest)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, kWidth), y(0, kHeight), length(shortest, longest), angle(0, 6.28);
    std::vector<SurfacePoint> points;
    for (std::int64_t i = 0; i < count; ++i) {
        const SurfacePoint from{x(random), y(random)};
        const double a = angle(random), l = length(random);
        points.push_back(from);
        points.push_back({from.x + l * std::cos(a), from.y + l * std::sin(a)});
    }
    return points;
}

template <class Draw>
void measure(benchmark::State& state, Draw draw)
{
    VEK::CPixels pixels;
    VEK::rasterPixels(pixels, kWidth, kHeight, 0xFFFFFF);
    for (auto _ : state) {
        const auto surface = VEK::rasterSurface(pixels);
        surface->clipTo(0, 0, kWidth, kHeight);
        draw(*surface);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void shortLines(benchmark::State& state)
{
    const auto points = lines(state.range(0), 10, 30);
    measure(state, [&](VEK::CSurface& surface) {
        for (std::size_t i = 0; i < points.size(); i += 2) {
            surface.moveTo(points[i].x, points[i].y);
            surface.lineTo(points[i + 1].x, points[i + 1].y);
        }
    });
}
BENCHMARK(shortLines)->RangeMultiplier(10)->Range(1000, 1000000);

/// @param pen width of the pen
/// @param hole whether a hole lies across the picture
void shortPolylines(benchmark::State& state, int pen, bool hole)
{
    const auto points = lines(state.range(0), 10, 30);
    measure(state, [&](VEK::CSurface& surface) {
        surface.pen(pen, 0xFF);
        const SurfacePoint band[] = {{0, 500}, {2000, 490}, {2000, 510}};
        if (hole)
            surface.clipOut(band, 3);
        for (std::size_t i = 0; i < points.size(); i += 2)
            surface.polyline(&points[i], 2);
    });
}
BENCHMARK_CAPTURE(shortPolylines, thin, 1, false)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK_CAPTURE(shortPolylines, besideAHole, 1, true)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK_CAPTURE(shortPolylines, threeWide, 3, false)->RangeMultiplier(10)->Range(1000, 100000);

/// Lines a million times as long as the picture.
void farLines(benchmark::State& state)
{
    const auto points = lines(state.range(0), 1e7, 1e8);
    measure(state, [&](VEK::CSurface& surface) {
        for (std::size_t i = 0; i < points.size(); i += 2)
            surface.polyline(&points[i], 2);
    });
}
BENCHMARK(farLines)->RangeMultiplier(10)->Range(1000, 100000);

/// One polygon of many vertices that crosses itself everywhere.
void crossedPolygon(benchmark::State& state)
{
    const auto points = lines(state.range(0) / 2, 10, 30);
    measure(state, [&](VEK::CSurface& surface) {
        surface.noPen();
        surface.brush(0xFF);
        surface.polygon(points.data(), static_cast<int>(points.size()));
    });
}
BENCHMARK(crossedPolygon)->RangeMultiplier(10)->Range(100, 100000);

/// Rings of 40 points with a hole of 30, like glyphs.
void rings(benchmark::State& state)
{
    std::vector<SurfacePoint> outer, hole;
    for (int i = 0; i < 40; ++i)
        outer.push_back({100 + 10 * std::cos(i * 0.157), 100 + 10 * std::sin(i * 0.157)});
    for (int i = 0; i < 30; ++i)
        hole.push_back({100 + 6 * std::cos(i * 0.209), 100 + 6 * std::sin(i * 0.209)});
    measure(state, [&](VEK::CSurface& surface) {
        surface.brush(0xFF);
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            surface.clipOut(hole.data(), 30);
            surface.polygon(outer.data(), 40);
            surface.clipRestore();
        }
    });
}
BENCHMARK(rings)->RangeMultiplier(10)->Range(100, 10000);

/// Holes side by side, before anything is drawn.
void manyHoles(benchmark::State& state)
{
    const auto points = lines(state.range(0), 10, 30);
    measure(state, [&](VEK::CSurface& surface) {
        for (std::size_t i = 0; i < points.size(); i += 2) {
            const SurfacePoint hole[] = {points[i], points[i + 1], {points[i].x, points[i + 1].y}};
            surface.clipOut(hole, 3);
        }
        surface.solidRect(0, 0, kWidth, kHeight, 0xFF);
    });
}
BENCHMARK(manyHoles)->RangeMultiplier(10)->Range(100, 100000);

void ellipses(benchmark::State& state)
{
    measure(state, [&](VEK::CSurface& surface) {
        surface.brush(0xFF);
        for (std::int64_t i = 0; i < state.range(0); ++i)
            surface.ellipse(double(i % 1900), double(i % 900), double(i % 1900 + 20), double(i % 900 + 30));
    });
}
BENCHMARK(ellipses)->RangeMultiplier(10)->Range(100, 10000);

} // namespace
