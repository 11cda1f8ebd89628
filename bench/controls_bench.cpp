#include <vek/controls.h>

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace
{

using namespace VEK;

const char* const kFormats[] = {"integer",       "scientific", "decimal", "engineering",
                                "architectural", "fractional", "angle"};

ValueRules rulesOf(long kind)
{
    const ValueType type = kind == 0 ? typeInt : kind == 6 ? typeAngle : typeLength;
    return {editStyle, type, valueSuppressZeros | valueTextCounts, 4, static_cast<Vek::lFormat>(kind), 25.4};
}

std::vector<double> values()
{
    std::mt19937 random(3);
    std::vector<double> all(1024);
    for (double& each : all)
        each = std::uniform_real_distribution<double>(-5000.0, 5000.0)(random);
    return all;
}

void formatting(benchmark::State& state)
{
    const ValueRules rules = rulesOf(state.range(0));
    const std::vector<double> all = values();
    for (auto _ : state) {
        for (const double each : all)
            benchmark::DoNotOptimize(valueText(each, rules));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(all.size()));
    state.SetLabel(kFormats[state.range(0)]);
}
BENCHMARK(formatting)->DenseRange(0, 6);

/// @tparam Job gets the rules and a text
template <class Job>
void overTexts(benchmark::State& state, Job&& job)
{
    const ValueRules rules = rulesOf(state.range(0));
    std::vector<CVekString> texts;
    for (const double each : values())
        texts.push_back(valueText(each, rules));
    for (auto _ : state) {
        for (const CVekString& each : texts)
            benchmark::DoNotOptimize(job(rules, each));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(texts.size()));
    state.SetLabel(kFormats[state.range(0)]);
}

void parsing(benchmark::State& state)
{
    overTexts(state, [](const ValueRules& rules, const wchar_t* text) { return valueParse(text, rules); });
}
BENCHMARK(parsing)->DenseRange(0, 6);

/// All that happens when the focus leaves a field.
void judging(benchmark::State& state)
{
    const ValueWords none;
    overTexts(state, [&](const ValueRules& rules, const wchar_t* text) { return editCheck({rules, 1.0, none}, text); });
}
BENCHMARK(judging)->DenseRange(0, 6);

/// A text of growing length.
void parsingLong(benchmark::State& state)
{
    const std::wstring text(static_cast<std::size_t>(state.range(0)), L'7');
    for (auto _ : state)
        benchmark::DoNotOptimize(valueParse(text.c_str(), rulesOf(2)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(parsingLong)->RangeMultiplier(10)->Range(100, 1000000)->Complexity();

} // namespace
