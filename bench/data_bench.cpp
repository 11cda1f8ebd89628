#include <vek/data.h>

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace
{

std::vector<CVekDataKey> keysOf(std::int64_t count)
{
    std::vector<CVekDataKey> keys;
    CVekString name;
    for (int i = 0; i < count; ++i)
        keys.emplace_back(name.format(L"ELEMENT_%d", i));
    return keys;
}

CVekDataItem directoryOf(const std::vector<CVekDataKey>& keys)
{
    CVekDataItem item(CVekDataItem::directory);
    for (const CVekDataKey& key : keys)
        VEK::dataItemSet(&item, &key, 1);
    return item;
}

void lookUp(benchmark::State& state)
{
    std::vector<CVekDataKey> keys = keysOf(state.range(0));
    const CVekDataItem item = directoryOf(keys);
    std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(item.getItem(&keys[next]));
        next = next + 1 == keys.size() ? 0 : next + 1;
    }
}

void build(benchmark::State& state)
{
    const std::vector<CVekDataKey> keys = keysOf(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(directoryOf(keys));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void appendToChain(benchmark::State& state)
{
    for (auto _ : state) {
        VEK::CUniqResbuf chain;
        for (int i = 0; i < state.range(0); ++i)
            chain.append(VEK::mkResbuf(i, VEK::rbLong));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void copy(benchmark::State& state)
{
    const CVekDataItem item = directoryOf(keysOf(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(CVekDataItem(item));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void removeFromTheMiddle(benchmark::State& state)
{
    std::vector<CVekDataKey> keys = keysOf(state.range(0));
    const CVekDataItem item = directoryOf(keys);
    std::shuffle(keys.begin(), keys.end(), std::mt19937(1));
    keys.resize(keys.size() / 10);
    for (auto _ : state) {
        state.PauseTiming();
        CVekDataItem victim(item);
        state.ResumeTiming();
        for (const CVekDataKey& key : keys)
            victim.getDir()->remove(&key);
        state.PauseTiming();
        victim = CVekDataItem();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(keys.size()));
}

void walk(benchmark::State& state)
{
    const CVekDataItem item = directoryOf(keysOf(state.range(0)));
    for (auto _ : state) {
        int sum = 0;
        for (VEK::CDataIterator child(&item); !child.done(); child.next())
            sum += *child->peek<int>();
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(lookUp)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(build)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(appendToChain)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK(copy)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(removeFromTheMiddle)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(walk)->RangeMultiplier(10)->Range(1000, 1000000);
