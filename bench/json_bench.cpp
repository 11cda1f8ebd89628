#include <vek/json.h>

#include <benchmark/benchmark.h>

#include <random>

namespace
{

/// A tree of elements, each with names, numbers, a placement and a polyline, as text of that size.
std::string projectText(std::size_t size)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> length(0, 10000);
    CVekDataItem tree(CVekDataItem::directory);
    std::string text;
    CVekString name;
    CVekString error;
    int count = 0;
    std::size_t written = 0;
    while (written < size) {
        const int target = count ? static_cast<int>(static_cast<double>(count) * 1.02 * static_cast<double>(size) /
                                                    static_cast<double>(written)) +
                                       1
                                 : 100;
        for (; count < target; ++count) {
            CVekDataItem* element = tree.makeDir(name.format(L"BT\\Element %d", count));
            VEK::dataSet(element, L"TYPE", L"EXTR");
            VEK::dataSet(element, L"PART_CON", L"KONTUR");
            VEK::dataSet(element, L"COUNT", count);
            VEK::dataSet(element, L"PARM\\D", length(random));
            VEK::dataSet(element, L"PARM\\S", length(random));
            VEK::dataSet(element, L"MTX",
                         CVekMatrix3d().setToRotation(length(random), CVekVector3d(1, 2, 3), CVekPoint3d(4, 5, 6)));
            CVekVertexArray polyline;
            CVekPoint3d from;
            for (int i = 0; i < 12; ++i) {
                const CVekPoint3d to(length(random), length(random), 0);
                polyline.append(CVekVertex(from, to));
                from = to;
            }
            VEK::dataSet(element, L"VL", polyline);
        }
        VEK::jsonWrite(tree, text, L"bench", error);
        written = text.size();
    }
    return text;
}

const std::string& textOf(std::int64_t size)
{
    static std::string text;
    static std::int64_t made = 0;
    if (made != size)
        text = projectText(static_cast<std::size_t>(size));
    made = size;
    return text;
}

void load(benchmark::State& state)
{
    const std::string& text = textOf(state.range(0));
    CVekString error;
    for (auto _ : state) {
        CVekDataItem tree;
        if (!VEK::jsonRead(tree, text.data(), text.size(), L"bench", error))
            state.SkipWithError("refused");
        state.PauseTiming();
        tree = CVekDataItem();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void save(benchmark::State& state)
{
    const std::string& text = textOf(state.range(0));
    CVekString error;
    CVekDataItem tree;
    VEK::jsonRead(tree, text.data(), text.size(), L"bench", error);
    for (auto _ : state) {
        std::string written;
        VEK::jsonWrite(tree, written, L"bench", error);
        benchmark::DoNotOptimize(written);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

} // namespace

BENCHMARK(load)->Arg(500000)->Arg(5000000)->Arg(50000000)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(500000)->Arg(5000000)->Arg(50000000)->Unit(benchmark::kMillisecond);
