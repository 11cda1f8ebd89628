/// Cutting, point tests and sorting with contours of growing size, so that the order of growth shows.
#include "core/geometry/prepared_region.h"

#include <vek/geometry.h>

#include <benchmark/benchmark.h>

#include <numbers>

namespace
{

using Polylines = CVekArrayTempl<CVekVertexArray>;

/// A star with `count` corners about the origin; every third side is an arc.
Polylines star(int count)
{
    CVekPoint3dArray points;
    for (int i = 0; i < count; ++i)
        points.append(CVekPoint3d() + VEK::polar(2 * std::numbers::pi * i / count, i % 2 ? 1000.0 : 700.0));
    Polylines region;
    region[0].fromPoints(points, true);
    for (int i = 0; i < count; i += 3)
        region[0][i].bulge = 0.1;
    return region;
}

/// A toothed ring, its teeth about as deep as wide.
Polylines gear(int count)
{
    CVekPoint3dArray points;
    for (int i = 0; i < count; ++i)
        points.append(CVekPoint3d() +
                      VEK::polar(2 * std::numbers::pi * i / count, 850.0 + (i % 2 ? 3e3 : -3e3) / count));
    Polylines region;
    region[0].fromPoints(points, true);
    return region;
}

/// A comb with teeth upwards, all of which are crossed by one level line.
Polylines comb(int teeth)
{
    CVekPoint3dArray points;
    for (int i = 0; i < teeth; ++i) {
        points.append(CVekPoint3d(i, 100, 0));
        points.append(CVekPoint3d(i + 0.5, 1, 0));
    }
    points.append(CVekPoint3d(teeth, 0, 0));
    points.append(CVekPoint3d(0, 0, 0));
    Polylines region;
    region[0].fromPoints(points, true);
    return region;
}

/// A grid of squares, each with one inside.
Polylines squares(int count)
{
    Polylines list;
    const int row = static_cast<int>(std::sqrt(count / 2.0)) + 1;
    for (int i = 0; i < count; ++i) {
        const int place = i / 2, line = place / row;
        const double x = 10.0 * (place % row), y = 10.0 * line, h = i % 2 ? 2.0 : 4.0;
        CVekVertexArray box;
        box.append(CVekVertex({x - h, y - h, 0}, {x + h, y + h, 0}));
        list.append(VEK::vl_extrect(box, 0.0));
    }
    return list;
}

void punchOneLine(benchmark::State& state)
{
    const Polylines region = star(static_cast<int>(state.range(0)));
    const CVekVertexArray line(CVekVertex({-2000, 1, 0}, {2000, 3, 0}));
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::vl_punch_reg(line, region, true));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(punchOneLine)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

/// A thousand parallel lines through one prepared region: the time for each piece.
void hatch(benchmark::State& state, Polylines (*make)(int), double angle)
{
    const Polylines region = make(static_cast<int>(state.range(0)));
    const CVekPoint3dArray box = VEK::vl_extmax(region[0], 0.0);
    const CVekPoint3d middle = box[0] + (box[1] - box[0]) * 0.5;
    const double size = box[0].distanceTo(box[1]);
    const CVekVector3d along = VEK::polar(angle, size), across = VEK::polar(angle + std::numbers::pi / 2, 1.0);
    const double height = std::min(size, 2.0 * (middle[1] - box[0][1]));
    std::size_t pieces = 0;
    for (auto _ : state) {
        VEK::plane::PreparedRegion prepared(region);
        for (int i = 0; i < 1000; ++i) {
            const CVekPoint3d at = middle + across * (height * (i / 1000.0 - 0.5));
            const CVekVertex line(at - along, at + along);
            pieces += prepared.spans(VEK::plane::flatArc(line, CVekVector3d::kZAxis)).size();
        }
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(pieces));
}
BENCHMARK_CAPTURE(hatch, star_level, star, 0.0)->RangeMultiplier(10)->Range(100, 100000);
BENCHMARK_CAPTURE(hatch, star_slanted, star, 0.7)->RangeMultiplier(10)->Range(100, 100000);
BENCHMARK_CAPTURE(hatch, comb_level, comb, 0.0)->RangeMultiplier(10)->Range(100, 10000);

void prepare(benchmark::State& state)
{
    const Polylines region = star(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::plane::PreparedRegion(region));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(prepare)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

/// Punches a polyline with as many segments as the contour, and as many dashes on one line.
void punchPolyline(benchmark::State& state)
{
    const Polylines region = gear(static_cast<int>(state.range(0)));
    CVekPoint3dArray points;
    for (int i = 0; i < state.range(0); ++i)
        points.append(CVekPoint3d() + VEK::polar(2 * std::numbers::pi * i / state.range(0), 850.0));
    CVekVertexArray vl;
    vl.fromPoints(points, true);
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::vl_punch_reg(vl, region, true));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(punchPolyline)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void punchDashes(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    const Polylines region = comb(count);
    CVekVertexArray dashes;
    for (int i = 0; i < 3 * count; ++i)
        dashes.append(CVekVertex({i / 3.0, 50, 0}, {i / 3.0 + 0.2, 50, 0}));
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::vl_punch_reg(dashes, region, true));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(punchDashes)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void pointInside(benchmark::State& state)
{
    const Polylines region = star(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::g_vll_pt_inside(region, {100, 200, 0}));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(pointInside)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void measure(benchmark::State& state)
{
    const Polylines region = star(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::vl_measure(region[0], 1.0, CVekLineParm(200.0, -100.0)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(measure)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

/// Builds regions from loose sides in random order.
void regions(benchmark::State& state)
{
    const Polylines contours = squares(static_cast<int>(state.range(0)) / 4);
    Polylines sides;
    const int count = contours.len() * 4;
    for (int i = 0; i < count; ++i) {
        const int at = static_cast<int>(static_cast<std::int64_t>(i) * 7919 % count);
        sides.append(contours[at / 4][at % 4]);
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::g_vll_regions(VEK::vll_regions_prepare(sides), 4));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(regions)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

/// Nested regions.
void nest(benchmark::State& state)
{
    Polylines contours;
    for (int i = static_cast<int>(state.range(0)) / 4; i > 0; --i)
        contours.append(VEK::vl_extrect(CVekVertexArray(CVekVertex()), i));
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::g_vll_regions(contours, 4));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(nest)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

} // namespace
