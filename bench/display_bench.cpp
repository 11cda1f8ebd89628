// The display object by growing sizes: each figure is a rate in items, so that the order of growth shows.
#include "memory.h"

#include <vek/display.h>
#include <vek/draw.h>

#include <benchmark/benchmark.h>

#include <string>

namespace
{

CVekGDX plain()
{
    return CVekGDX(CVekColor(), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
}

CVekArrayTempl<int> path(int number)
{
    CVekArrayTempl<int> stack;
    stack.append(number);
    return stack;
}

/// The arguments of an emission, made once.
struct Arguments {
    CVekArrayTempl<int> stack = path(1);
    CVekVertexArray line{CVekVertex({0, 0, 0}, {10, 5, 0}, 0.0)};
    CVekArrayTempl<CVekVertexArray> region;
    CVekColor color;
    CVekMatrix3d mtx;
    CVekArrayTempl<double> linetype;
    VEK::CHatchProp hatch;

    Arguments()
    {
        line.append(CVekVertex({10, 5, 0}, {20, 0, 0}, 0.0));
        region[0] = line;
        region[0].append(CVekVertex({20, 0, 0}, {0, 0, 0}, 0.0));
        linetype.append(1.0);
    }
    void polyline(CVekGDX& gdx) const { gdx.imageVl(stack, 0, line, color, mtx, linetype, 1.0, 0, {}); }
    void point(CVekGDX& gdx) const { gdx.imagePt(stack, 0, {1, 2, 0}, color, mtx, 0.0, 0, {}); }
    void fill(CVekGDX& gdx) const
    {
        gdx.imageReg(stack, itemFill, region, color, mtx, linetype, 1.0, 0, color, hatch, {});
    }
};

CVekGDX filled(int count, int groups)
{
    const Arguments arguments;
    CVekGDX gdx = plain();
    for (int i = 0; i < count; ++i)
        gdx.imageVl(path(i % groups), 0, arguments.line, {}, {}, arguments.linetype, 1.0, 0, {});
    return gdx;
}

template <void (Arguments::*Emit)(CVekGDX&) const>
void emission(benchmark::State& state)
{
    const Arguments arguments;
    CVekGDX gdx = plain();
    const auto emitAll = [&] {
        gdx.clear();
        for (int64_t i = 0; i < state.range(0); ++i)
            (arguments.*Emit)(gdx);
    };
    emitAll(); // from here on the list has room
    for (auto _ : state)
        emitAll();
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["bytes_of_item"] = sizeof(CVekDisplayItem);
}
BENCHMARK(emission<&Arguments::polyline>)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(emission<&Arguments::point>)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK(emission<&Arguments::fill>)->RangeMultiplier(10)->Range(1000, 1000000);

/// Emission into a new list, with arguments made for it: most of it is memory that is taken.
void freshEmission(benchmark::State& state)
{
    const Arguments arguments;
    for (auto _ : state) {
        CVekGDX gdx = plain();
        for (int64_t i = 0; i < state.range(0); ++i)
            gdx.imageVl(arguments.stack, 0, CVekVertexArray(arguments.line[0]), {}, arguments.mtx, {}, 1.0, 0, {});
        benchmark::DoNotOptimize(gdx.lenGet());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(freshEmission)->RangeMultiplier(10)->Range(1000, 1000000);

/// The baseline of emission: copying a finished item into a list with room.
void copyOfFinishedItem(benchmark::State& state)
{
    const CVekGDX gdx = filled(1, 1);
    const CVekDisplayItem& item = gdx.getDisplayList()[0];
    CVekArrayTempl<CVekDisplayItem> list;
    const auto copyAll = [&] {
        list.setLogicalLength(0);
        for (int64_t i = 0; i < state.range(0); ++i)
            list.append(CVekDisplayItem(item));
    };
    copyAll();
    for (auto _ : state)
        copyAll();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(copyOfFinishedItem)->RangeMultiplier(10)->Range(1000, 1000000);

void extentsInFull(benchmark::State& state)
{
    CVekGDX gdx = filled(static_cast<int>(state.range(0)), 10);
    for (auto _ : state)
        gdx.projMtxSet(CVekMatrix3d::kIdentity);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(extentsInFull)->RangeMultiplier(10)->Range(1000, 1000000);

void selectionByPath(benchmark::State& state)
{
    const CVekGDX gdx = filled(static_cast<int>(state.range(0)), 10);
    const CVekArrayTempl<int> stack = path(3);
    for (auto _ : state)
        benchmark::DoNotOptimize(gdx.StackToItemNr(stack).len());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(selectionByPath)->RangeMultiplier(10)->Range(1000, 1000000);

void removalOfATenth(benchmark::State& state)
{
    const CVekGDX whole = filled(static_cast<int>(state.range(0)), 10);
    const CVekArrayTempl<int> stack = path(3);
    for (auto _ : state) {
        state.PauseTiming();
        CVekGDX gdx = whole;
        state.ResumeTiming();
        benchmark::DoNotOptimize(gdx.removeItemStack(stack));
        state.PauseTiming();
        {
            CVekGDX gone = std::move(gdx);
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(removalOfATenth)->RangeMultiplier(10)->Range(1000, 1000000)->Iterations(5);

/// Items of every class, the classes in turn.
CVekGDX mixed(int count)
{
    const Arguments arguments;
    CVekGDX gdx = plain();
    for (int i = 0; i < count; ++i) {
        const unsigned long mode = static_cast<unsigned long>(i % 3) << itemColorModeShift;
        gdx.imageVl(arguments.stack, mode | itemNoExt, arguments.line, {}, {}, arguments.linetype, 1.0, 0, {});
    }
    return gdx;
}

void sortUnsorted(benchmark::State& state)
{
    const CVekGDX whole = mixed(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        {
            CVekGDX gdx = whole;
            state.ResumeTiming();
            gdx.displListSort();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(sortUnsorted)->RangeMultiplier(10)->Range(1000, 1000000)->Iterations(5)->Complexity();

void sortSorted(benchmark::State& state)
{
    CVekGDX gdx = mixed(static_cast<int>(state.range(0)));
    gdx.displListSort();
    for (auto _ : state)
        gdx.displListSort();
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(sortSorted)->RangeMultiplier(10)->Range(1000, 1000000)->Complexity();

/// Two-vertex polylines all over a field of 1000 by 1000, and a point beside it: every item is tested.
CVekGDX field(std::int64_t count)
{
    CVekGDX gdx = plain();
    for (std::int64_t i = 0; i < count; ++i) {
        const double x = static_cast<double>(i * 7 % 1000), y = static_cast<double>(i * 13 % 1009);
        CVekVertexArray vl;
        vl.append(CVekVertex({x, y, 0}, {x + 3, y, 0}));
        vl.append(CVekVertex({x + 3, y, 0}, {x + 3, y + 2, 0}));
        gdx.imageVl(path(static_cast<int>(i)), itemNoExt, vl, {}, {}, {}, 1.0, 1, {});
    }
    return gdx;
}

/// @param seen whether the list is accessed between two picks
void pick(benchmark::State& state, bool seen)
{
    CVekGDX gdx = field(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(gdx.imageItemGet({500.0, 2000.0, 0.0}));
        if (seen) {
            state.PauseTiming();
            benchmark::DoNotOptimize(gdx.typeGet(0));
            state.ResumeTiming();
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK_CAPTURE(pick, afterPick, false)->RangeMultiplier(10)->Range(1000, 1000000)->Complexity();
BENCHMARK_CAPTURE(pick, afterLook, true)->RangeMultiplier(10)->Range(1000, 1000000)->Complexity();

/// The cost of the first access after a pick.
void lookAfterPick(benchmark::State& state)
{
    CVekGDX gdx = field(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        benchmark::DoNotOptimize(gdx.imageItemGet({500.0, 2000.0, 0.0}));
        state.ResumeTiming();
        benchmark::DoNotOptimize(gdx.typeGet(0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(lookAfterPick)->RangeMultiplier(10)->Range(1000, 1000000)->Iterations(10)->Complexity();

void growthOfTheList(benchmark::State& state)
{
    for (auto _ : state) {
        CVekArrayTempl<CVekDisplayItem> list;
        for (int64_t i = 0; i < state.range(0); ++i)
            list.append(CVekDisplayItem());
        benchmark::DoNotOptimize(list.len());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(growthOfTheList)->RangeMultiplier(10)->Range(1000, 1000000);

void textLayout(benchmark::State& state)
{
    std::wstring text;
    while (static_cast<int64_t>(text.size()) < state.range(0))
        text += L"Pfosten-Riegel-Fassade";
    text.resize(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::textRegions(text.c_str(), L"", {}).len());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(textLayout)->RangeMultiplier(10)->Range(1000, 100000);

} // namespace

BENCHMARK_MAIN();
