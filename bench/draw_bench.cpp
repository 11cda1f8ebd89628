// Hatches by lines and by contour segments, the density test, and arcs and dashes by vertex.
#include "draw/hatch_rows.h"
#include "memory.h"

#include <vek/draw.h>
#include <vek/host.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace
{

using Region = CVekArrayTempl<CVekVertexArray>;

/// A polygon of many corners, about 1000 across, with a square hole.
Region ring(int corners)
{
    Region region;
    for (int i = 0; i < corners; ++i) {
        const auto corner = [&](int k) {
            const double angle = 2.0 * std::numbers::pi * (k % corners) / corners;
            return CVekPoint3d(500.0 + 500.0 * std::cos(angle), 500.0 + 500.0 * std::sin(angle), 0.0);
        };
        region[0].append(CVekVertex(corner(i), corner(i + 1)));
    }
    CVekPoint3dArray square;
    square.append({400, 400, 0});
    square.append({600, 400, 0});
    square.append({600, 600, 0});
    square.append({400, 600, 0});
    region.append(CVekVertexArray().fromPoints(square, true));
    return region;
}

/// The host of the benchmarks, with some patterns.
void installHost()
{
    static CVekLocalApp app;
    VekPatternLines dashed;
    for (const double number : {30.0, 0.0, 0.0, 1.0, 1.0, 5.0, -2.0, 0.0, -2.0})
        dashed[0].append(number);
    app.hatchPatternSet(L"DASHED", dashed);
    VekPatternLines many;
    for (int i = 0; i < 531; ++i) {
        for (const double number : {i * 0.7, i * 1.0, i * 2.0, 3.0, 20.0, 2.0, -30.0})
            many[i].append(number);
    }
    app.hatchPatternSet(L"GRAVEL", many);
    vekAppSet(&app);
}

template <class Hatch>
void measure(benchmark::State& state, Hatch hatch)
{
    std::int64_t pieces = 0;
    for (auto _ : state) {
        const Region lines = hatch();
        for (const CVekVertexArray& line : lines)
            pieces += line.len();
    }
    state.SetItemsProcessed(pieces);
    state.SetComplexityN(state.range(0));
}

/// The lines lie one unit apart, so the region is made as high as there are lines.
void BM_plainByLines(benchmark::State& state)
{
    Region region = ring(100);
    for (CVekVertexArray& contour : region)
        contour.transformBy(CVekMatrix3d().setToScaling(static_cast<double>(state.range(0)) / 1000.0, {}));
    measure(state, [&] { return vek_gdx_image_reg_hatch(region, CVekMatrix3d(), L"", 1.0, 0.5); });
}

void BM_plainBySegments(benchmark::State& state)
{
    const Region region = ring(static_cast<int>(state.range(0)));
    measure(state, [&] { return vek_gdx_image_reg_hatch(region, CVekMatrix3d(), L"", 1.0, 0.5); });
}

void BM_dots(benchmark::State& state)
{
    const Region region = ring(100);
    const double pitch = 1000.0 / std::sqrt(static_cast<double>(state.range(0)));
    measure(state, [&] { return vek_gdx_image_reg_hatch(region, CVekMatrix3d(), L"DOTS", pitch, 0.0); });
}

void pattern(benchmark::State& state, const Region& region, const wchar_t* name, double step)
{
    installHost();
    const VEK::CHatchProp hatch(name, 0.3, step, false);
    measure(state, [&] { return vek_gdx_image_reg_hatch2(region, CVekMatrix3d(), hatch); });
}

void BM_patternByLines(benchmark::State& state)
{
    pattern(state, ring(100), L"_U", 1000.0 / static_cast<double>(state.range(0)));
}

void BM_patternBySegments(benchmark::State& state)
{
    pattern(state, ring(static_cast<int>(state.range(0))), L"_U", 1.0);
}

void BM_dashedByLines(benchmark::State& state)
{
    pattern(state, ring(100), L"DASHED", 1000.0 / static_cast<double>(state.range(0)));
}

void BM_manyFamilies(benchmark::State& state)
{
    pattern(state, ring(static_cast<int>(state.range(0))), L"GRAVEL", 10.0);
}

void BM_patternTest(benchmark::State& state)
{
    installHost();
    const Region region = ring(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(vek_gdx_pattern_test(region, {L"DASHED", 0, 100, false}, CVekMatrix3d()));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

// Clips a 2,000-gon with a square hole by 1,000 lines at 45 degrees: the hatch's own clipping, then the bare loop
// (crossings per line, sorted, taken in pairs), then only the list of polylines that the hatch must return, and the
// whole call.

constexpr int kEvenOddRows = 1000;
constexpr double kEvenOddLowest = -500.0;

void addPiece(std::vector<double>& pieces, double from, double to, double y)
{
    const double c = std::sqrt(0.5);
    for (const double x : {from, to}) {
        pieces.push_back((x - y) * c);
        pieces.push_back((x + y) * c);
    }
}

void BM_evenOddClipping(benchmark::State& state)
{
    const Region region = ring(2000);
    std::vector<double> pieces;
    std::int64_t count = 0;
    for (auto _ : state) {
        VEK::detail::HatchRows rows(region, std::numbers::pi / 4);
        rows.lay(kEvenOddLowest, 1.0, 0, kEvenOddRows - 1);
        pieces.clear();
        for (int row = 0; row < kEvenOddRows; ++row) {
            rows.cut(row, -1e4, 1e4);
            for (const VEK::detail::HatchRows::Stretch& piece : rows.pieces())
                addPiece(pieces, piece.from, piece.to, rows.height(row));
        }
        benchmark::DoNotOptimize(pieces.data());
        count += static_cast<std::int64_t>(pieces.size()) / 4;
    }
    state.SetItemsProcessed(count);
    state.counters["pieces"] = static_cast<double>(pieces.size()) / 4;
}

void BM_evenOddBare(benchmark::State& state)
{
    const Region region = ring(2000);
    const double step = 1.0, c = std::sqrt(0.5);
    std::vector<std::vector<double>> rows(kEvenOddRows);
    std::vector<double> pieces;
    std::int64_t count = 0;
    for (auto _ : state) {
        for (std::vector<double>& row : rows)
            row.clear();
        for (const CVekVertexArray& contour : region) {
            for (const CVekVertex& v : contour) {
                const double x0 = (v.start[0] + v.start[1]) * c, y0 = (v.start[1] - v.start[0]) * c;
                const double x1 = (v.end[0] + v.end[1]) * c, y1 = (v.end[1] - v.end[0]) * c;
                const double low = std::ceil((std::min(y0, y1) - kEvenOddLowest) / step);
                const double high = std::ceil((std::max(y0, y1) - kEvenOddLowest) / step);
                for (double row = std::max(low, 0.0); row < std::min(high, double(kEvenOddRows)); row += 1.0) {
                    const double x = x0 + (x1 - x0) * (kEvenOddLowest + row * step - y0) / (y1 - y0);
                    rows[static_cast<std::size_t>(row)].push_back(x);
                }
            }
        }
        pieces.clear();
        double y = kEvenOddLowest;
        for (std::vector<double>& row : rows) {
            std::sort(row.begin(), row.end());
            for (std::size_t i = 0; i + 1 < row.size(); i += 2)
                addPiece(pieces, row[i], row[i + 1], y);
            y += step;
        }
        benchmark::DoNotOptimize(pieces.data());
        count += static_cast<std::int64_t>(pieces.size()) / 4;
    }
    state.SetItemsProcessed(count);
    state.counters["pieces"] = static_cast<double>(pieces.size()) / 4;
}

Region evenOddHatch(const Region& region)
{
    return vek_gdx_image_reg_hatch2(region, CVekMatrix3d(), {L"_U", std::numbers::pi / 4, 1.0, false});
}

void BM_evenOddOutput(benchmark::State& state)
{
    const Region done = evenOddHatch(ring(2000));
    std::int64_t pieces = 0;
    for (auto _ : state) {
        Region lines;
        for (const CVekVertexArray& line : done) {
            CVekVertexArray& copy = lines[lines.len()];
            copy.reserve(line.len());
            for (const CVekVertex& vertex : line)
                copy.append(vertex);
            pieces += line.len();
        }
        benchmark::DoNotOptimize(lines.len());
    }
    state.SetItemsProcessed(pieces);
}

void BM_evenOddRegionCopy(benchmark::State& state)
{
    const Region region = ring(2000);
    for (auto _ : state) {
        const Region copy = region;
        benchmark::DoNotOptimize(copy.len());
    }
}

void BM_evenOddWhole(benchmark::State& state)
{
    const Region region = ring(static_cast<int>(state.range(0)));
    measure(state, [&] { return evenOddHatch(region); });
}

CVekVertexArray chain(int count, double bulge)
{
    CVekVertexArray vl;
    for (int i = 0; i < count; ++i)
        vl.append(CVekVertex({i * 10.0, 0, 0}, {(i + 1) * 10.0, 0, 0}, bulge));
    return vl;
}

void BM_measure(benchmark::State& state)
{
    const CVekVertexArray vl = chain(static_cast<int>(state.range(0)), 0.0);
    CVekArrayTempl<double> dashes;
    dashes.append(2.0);
    dashes.append(-1.0);
    for (auto _ : state) {
        CVekVertexArray copy = vl;
        vek_gdx_image_vl_measure(copy, dashes, 1);
        benchmark::DoNotOptimize(copy.len());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

void BM_split(benchmark::State& state)
{
    const CVekVertexArray vl = chain(static_cast<int>(state.range(0)), 0.3);
    for (auto _ : state)
        benchmark::DoNotOptimize(vek_gdx_image_vl_split(vl).len());
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(BM_plainByLines)->RangeMultiplier(10)->Range(100, 100000)->Complexity();
BENCHMARK(BM_plainBySegments)->RangeMultiplier(10)->Range(100, 100000)->Complexity();
BENCHMARK(BM_dots)->RangeMultiplier(10)->Range(100, 100000)->Complexity();
BENCHMARK(BM_patternByLines)->RangeMultiplier(10)->Range(100, 100000)->Complexity();
BENCHMARK(BM_patternBySegments)->RangeMultiplier(10)->Range(100, 100000)->Complexity();
BENCHMARK(BM_dashedByLines)->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(BM_manyFamilies)->RangeMultiplier(10)->Range(100, 10000)->Complexity();
BENCHMARK(BM_patternTest)->RangeMultiplier(10)->Range(100, 100000)->Complexity();
BENCHMARK(BM_evenOddBare);
BENCHMARK(BM_evenOddClipping);
BENCHMARK(BM_evenOddOutput);
BENCHMARK(BM_evenOddRegionCopy);
BENCHMARK(BM_evenOddWhole)->Arg(2000);
BENCHMARK(BM_measure)->RangeMultiplier(10)->Range(1000, 100000)->Complexity();
BENCHMARK(BM_split)->RangeMultiplier(10)->Range(1000, 100000)->Complexity();

} // namespace
