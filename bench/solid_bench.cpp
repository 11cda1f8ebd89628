#include <vek/geometry.h>
#include <vek/solid.h>

#include "memory.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>

namespace
{

using Lines = CVekArrayTempl<CVekVertexArrayEx>;

CVek_Solid::Region rectangle(double width, double height)
{
    CVekPoint3dArray corners;
    corners.append({0.0, 0.0, 0.0});
    corners.append({width, 0.0, 0.0});
    corners.append({width, height, 0.0});
    corners.append({0.0, height, 0.0});
    CVek_Solid::Region region;
    region[0].fromPoints(corners, true);
    return region;
}

CVekMatrix3d at(double x, double y, double z)
{
    CVekMatrix3d m;
    return m.setToTranslation({x, y, z});
}

/// Boxes of 20 to 60 in a space that grows with their number, so that the picture stays as dense.
void scatter(CVek_Solid& solid, int boxes)
{
    std::mt19937 random(7);
    const auto any = [&](double low, double high) { return low + (high - low) * (random() / 4294967296.0); };
    const double side = 250.0 * std::sqrt(boxes / 400.0);
    for (int i = 0; i < boxes; ++i)
        solid.extrude(rectangle(any(20, 60), any(20, 60)), at(any(0, side), any(0, side), any(0, 250)), 0, any(20, 60),
                      i);
}

/// Mullions with transoms and panes between them, as they stand in a wall.
void facade(CVek_Solid& solid, int fields)
{
    const int columns = static_cast<int>(std::sqrt(fields));
    for (int i = 0; i < fields; ++i) {
        const double x = 1200.0 * (i % columns), y = 3000.0 * (i / columns);
        solid.extrude(rectangle(50, 3000), at(x, y, 0), 0, 120, i);
        solid.extrude(rectangle(1150, 50), at(x + 50, y, 0), 0, 100, i);
        solid.extrude(rectangle(1130, 2930), at(x + 60, y + 60, 0), 40, 64, i);
    }
}

void project(benchmark::State& state, const CVek_Solid& source, const CVekVector3d& direction, double edges)
{
    CVek_Solid solid;
    solid.add(source, CVekMatrix3d::kIdentity);
    const CVekMatrix3d view = VEK::g_mtx_view(direction, {}, false);
    int visible = 0, hidden = 0;
    for (auto _ : state) {
        Lines seen, unseen;
        if (!solid.project(view, true, seen, unseen, vekModelerFaces))
            state.SkipWithError("not projected");
        visible = seen.len();
        hidden = unseen.len();
    }
    state.counters["visible"] = visible;
    state.counters["hidden"] = hidden;
    state.counters["per_edge"] = benchmark::Counter(edges * static_cast<double>(state.iterations()),
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void BM_Boxes(benchmark::State& state)
{
    const int boxes = static_cast<int>(state.range(0));
    CVek_Solid solid;
    scatter(solid, boxes);
    project(state, solid, {1, 2, 3}, 12.0 * boxes);
}
BENCHMARK(BM_Boxes)->Arg(100)->Arg(400)->Arg(3334)->Arg(13336)->Unit(benchmark::kMillisecond);

void BM_Facade(benchmark::State& state)
{
    const int fields = static_cast<int>(state.range(0));
    CVek_Solid solid;
    facade(solid, fields);
    project(state, solid, state.range(1) ? CVekVector3d(1, -1, 2) : CVekVector3d(0, 0, 1), 36.0 * fields);
}
BENCHMARK(BM_Facade)->ArgsProduct({{100, 1111, 11111}, {0, 1}})->Unit(benchmark::kMillisecond);

/// A plate with holes, drilled and projected.
void BM_Holes(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    for (auto _ : state) {
        CVek_Solid solid;
        solid.extrude(rectangle(10.0 * side, 10.0 * side), CVekMatrix3d::kIdentity, 0, 5, 1);
        CVekArrayTempl<CVekMatrix3d> holes;
        for (int i = 0; i < side * side; ++i)
            holes.append(at(5.0 + 10.0 * (i % side), 5.0 + 10.0 * (i / side), 0));
        solid.drillEach(1, holes, 6);
        Lines seen, unseen;
        benchmark::DoNotOptimize(solid.project(VEK::g_mtx_view({1, 1, 1}, {}, false), true, seen, unseen, 1));
    }
}
BENCHMARK(BM_Holes)->Arg(10)->Arg(32)->Arg(100)->Unit(benchmark::kMillisecond);

} // namespace
