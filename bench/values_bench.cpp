#include <vek/values.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <numeric>
#include <random>
#include <vector>

namespace
{

/// As large as a display item, and moved like one; it counts its copies.
struct Large {
    using MovesAsBytes = Large;
    static inline long copies = 0;

    double payload[64] = {};
    CVekArrayTempl<int> path;

    Large() { path.append(1); }
    Large(const Large& other) : path(other.path) { ++copies; }
    Large(Large&& other) noexcept = default;
    Large& operator=(const Large& other)
    {
        path = other.path;
        ++copies;
        return *this;
    }
    Large& operator=(Large&& other) noexcept = default;
};

void growthOfLargeElements(benchmark::State& state)
{
    Large::copies = 0;
    for (auto _ : state) {
        CVekArrayTempl<Large> array;
        for (long i = 0; i < state.range(0); ++i)
            array.append(Large());
        benchmark::DoNotOptimize(array.begin());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["copies"] = static_cast<double>(Large::copies);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(growthOfLargeElements)->RangeMultiplier(10)->Range(100, 100000)->Complexity(benchmark::oN);

void appendNumbers(benchmark::State& state)
{
    for (auto _ : state) {
        CVekArrayTempl<double> array;
        for (long i = 0; i < state.range(0); ++i)
            array.append(static_cast<double>(i));
        benchmark::DoNotOptimize(array.begin());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(appendNumbers)->Arg(1000000);

std::vector<int> keys(long count, bool random)
{
    std::vector<int> all(static_cast<std::size_t>(count));
    std::iota(all.begin(), all.end(), 0);
    if (random)
        std::shuffle(all.begin(), all.end(), std::mt19937(1));
    return all;
}

void mapInsert(benchmark::State& state, bool random)
{
    const std::vector<int> all = keys(state.range(0), random);
    for (auto _ : state) {
        CVekMapTempl<int, int> map;
        for (const int key : all)
            map[key] = key;
        benchmark::DoNotOptimize(map.len());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK_CAPTURE(mapInsert, ascending, false)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Complexity(benchmark::oNLogN);
BENCHMARK_CAPTURE(mapInsert, random, true)->RangeMultiplier(10)->Range(1000, 1000000)->Complexity(benchmark::oNLogN);

void mapFind(benchmark::State& state)
{
    const std::vector<int> all = keys(state.range(0), true);
    CVekMapTempl<int, int> map;
    for (const int key : all)
        map[key] = key;
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.get(all[next]));
        next = (next + 1) % all.size();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(mapFind)->RangeMultiplier(10)->Range(1000, 1000000);

void buildString(benchmark::State& state)
{
    for (auto _ : state) {
        CVekString text;
        for (long i = 0; i < state.range(0); ++i)
            text += L"piece ";
        benchmark::DoNotOptimize(text.len());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(buildString)->RangeMultiplier(10)->Range(100, 1000000)->Complexity(benchmark::oN);

void formatString(benchmark::State& state)
{
    CVekString text;
    for (auto _ : state)
        benchmark::DoNotOptimize(text.format(L"%s %d %.2f", L"Text", 42, 1.5).len());
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(formatString);

void writeLength(benchmark::State& state)
{
    const auto format = static_cast<Vek::lFormat>(state.range(0));
    std::mt19937 random(2);
    std::uniform_real_distribution<double> value(-10000.0, 10000.0);
    std::vector<double> values(1000);
    std::generate(values.begin(), values.end(), [&] { return value(random); });
    wchar_t buffer[vekRtoSSize];
    for (auto _ : state) {
        for (const double each : values)
            vekRtoS(buffer, each, format, 4, true);
        benchmark::DoNotOptimize(buffer[0]);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(values.size()));
}
BENCHMARK(writeLength)->DenseRange(1, 5);

void readLength(benchmark::State& state, const wchar_t* text)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(vekAtoF(text));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(readLength, decimal, L"1234.5678");
BENCHMARK_CAPTURE(readLength, architectural, L"-102'-10 9/16\"");

void nearestPaletteEntry(benchmark::State& state)
{
    unsigned long rgb = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(VEK::paletteNearest(rgb));
        rgb = rgb * 1103515245 + 12345;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(nearestPaletteEntry);

void copySharedPointer(benchmark::State& state)
{
    const VEK::CSharedPointer<int> holder(new int(1));
    for (auto _ : state) {
        const VEK::CSharedPointer<int> copy = holder;
        benchmark::DoNotOptimize(static_cast<int*>(copy));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(copySharedPointer);

} // namespace
