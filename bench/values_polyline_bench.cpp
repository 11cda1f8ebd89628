#include <vek/values/polyline.h>

#include "core/values/stepping.h"

#include <benchmark/benchmark.h>
#include <numbers>
#include <random>

namespace
{

/// A wavy closed contour, of straight segments or flat arcs.
CVekVertexArray contour(int segments, double bulge, double phase = 0.0)
{
    CVekPoint3dArray points;
    points.reserve(segments);
    for (int i = 0; i < segments; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / segments;
        points.append(VEK::polar(CVekPoint3d::kOrigin, angle, 1000.0 + 50.0 * std::sin(9.0 * angle + phase)));
    }
    CVekVertexArray result;
    result.fromPoints(points, true);
    for (CVekVertex& v : result)
        v.bulge = bulge;
    return result;
}

/// Separate strokes anywhere in a square, the more the shorter.
CVekVertexArray strokes(int count, unsigned seed)
{
    std::mt19937 source(seed);
    std::uniform_real_distribution<double> spread(-1.0, 1.0);
    CVekVertexArray result;
    result.reserve(count);
    const double length = 1000.0 / std::sqrt(count);
    for (int i = 0; i < count; ++i) {
        const CVekPoint3d start(1000.0 * spread(source), 1000.0 * spread(source), 0.0);
        result.append(CVekVertex(start, start + CVekVector3d(length * spread(source), length * spread(source), 0.0)));
    }
    return result;
}

void pointsOf(benchmark::State& state, double bulge)
{
    const CVekVertexArray polyline = contour(static_cast<int>(state.range(0)), bulge);
    std::int64_t points = 0;
    for (auto _ : state)
        points += polyline.pts(true, 0.5).len();
    state.SetItemsProcessed(points);
    state.SetComplexityN(state.range(0));
}

void streamPoints(benchmark::State& state)
{
    const CVekVertexArray polyline = contour(static_cast<int>(state.range(0)), 0.5);
    std::int64_t points = 0;
    for (auto _ : state) {
        double sum = 0.0;
        VEK::plane::forEachPoint(polyline, true, 0.5, [&](const CVekPoint3d& p) {
            sum += p[0];
            ++points;
        });
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(points);
    state.SetComplexityN(state.range(0));
}

void transformedCopy(benchmark::State& state, double bulge)
{
    const CVekVertexArray polyline = contour(static_cast<int>(state.range(0)), bulge);
    const CVekMatrix3d m = CVekMatrix3d().setToRotation(0.3, CVekVector3d::kZAxis, {10, 20, 0});
    for (auto _ : state)
        benchmark::DoNotOptimize(polyline.getTransformedCopy(m));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

void transformInPlace(benchmark::State& state)
{
    CVekVertexArray polyline = contour(static_cast<int>(state.range(0)), 0.0);
    const CVekMatrix3d m = CVekMatrix3d().setToRotation(0.3, CVekVector3d::kZAxis, {10, 20, 0});
    for (auto _ : state)
        benchmark::DoNotOptimize(polyline.transformBy(m));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

void intersect(benchmark::State& state, const CVekVertexArray& a, const CVekVertexArray& b)
{
    CVekPoint3dArray points;
    for (auto _ : state)
        benchmark::DoNotOptimize(a.intersectWith(points, b, 3));
    state.counters["points"] = points.len();
    state.SetItemsProcessed(state.iterations() * (a.len() + b.len()));
    state.SetComplexityN(state.range(0));
}

void intersectLine(benchmark::State& state, double bulge)
{
    const CVekVertexArray line(CVekVertex({-1e5, 3, 0}, {1e5, 5, 0}));
    intersect(state, line, contour(static_cast<int>(state.range(0)), bulge));
}

void intersectContours(benchmark::State& state, double bulge)
{
    const int count = static_cast<int>(state.range(0));
    intersect(state, contour(count, bulge), contour(count, bulge, 1.0));
}

void intersectStrokes(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    intersect(state, strokes(count, 1), strokes(count, 2));
}

} // namespace

BENCHMARK_CAPTURE(pointsOf, straight, 0.0)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(pointsOf, arcs, 0.5)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK(streamPoints)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK(transformInPlace)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(transformedCopy, straight, 0.0)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(transformedCopy, arcs, 0.5)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(intersectLine, straight, 0.0)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(intersectLine, arcs, 0.1)->RangeMultiplier(16)->Range(16, 65536)->Complexity(benchmark::oN);
BENCHMARK_CAPTURE(intersectContours, straight, 0.0)->RangeMultiplier(16)->Range(16, 65536)->Complexity();
BENCHMARK_CAPTURE(intersectContours, arcs, 0.1)->RangeMultiplier(16)->Range(16, 65536)->Complexity();
BENCHMARK(intersectStrokes)->RangeMultiplier(16)->Range(16, 65536)->Complexity();
