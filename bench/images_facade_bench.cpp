// The example facade by growing sizes, many of it beside each other: elements a second, and memory of an element.
#include "memory.h"

#include <vek/json.h>
#include <vek/vek.h>

#include <malloc.h>

#include <string>

namespace
{

using VEK::dataSet;
using File = VEK::CUniqPointer<VEK::CDtaFilePointer>;

std::size_t inUse()
{
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

/// The facade as a definition, and as many of it as make at least so many elements.
CVekDataItem facades(long elements, int& count)
{
    constexpr int kElements = 77;
    CVekDataItem project, object(CVekDataItem::directory);
    CVekString error;
    if (!VEK::jsonLoad(project, L"" VEK_SOURCE_DIR "/examples/facade.json", error))
        return object;
    for (const wchar_t* key : {L"DEF", L"UNIT"})
        *object.makeItem(key) = *project.getItem(key);
    for (const wchar_t* key : {L"BT", L"BGR"})
        *object.makeItem(CVekString(L"DEF\\facade\\") + key) = *project.getItem(key);
    const long copies = (elements + kElements / 2) / kElements;
    for (long i = 0; i < copies; ++i) {
        CVekDataItem* copy = object.makeDir((L"BGR\\" + std::to_wstring(i)).c_str());
        dataSet(copy, L"REF", L"facade");
        dataSet(copy, L"ORG", CVekPoint3d(i % 10 * 3200.0, 0.0, i / 10 * 3700.0));
    }
    count = static_cast<int>(copies) * kElements;
    return object;
}

void facade(benchmark::State& state, bool full)
{
    CVekLocalApp app;
    CVekApp* const before = vekAppSet(&app);
    int count = 0;
    const CVekDataItem object = facades(state.range(0), count);
    CVekDataItem params;
    dataSet(&params, L"VIEW", L"NO");
    dataSet(&params, L"FULL", full);
    const File objectFile(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &object));
    const File paramFile(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &params));
    int items = 0;
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::size_t start = inUse();
        CVekGDX gdx;
        if (!vek_gdx_image_bgr(&gdx, objectFile, paramFile))
            state.SkipWithError("nothing was drawn");
        items = gdx.lenGet();
        bytes = inUse() - start;
    }
    state.counters["items"] = items;
    state.counters["bytes_per_element"] = static_cast<double>(bytes) / count;
    state.SetItemsProcessed(state.iterations() * count);
    state.SetComplexityN(count);
    vekAppSet(before);
}

void BM_facadeElements(benchmark::State& state)
{
    facade(state, false);
}
void BM_facadeSolid(benchmark::State& state)
{
    facade(state, true);
}

BENCHMARK(BM_facadeElements)->RangeMultiplier(10)->Range(60, 6000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_facadeSolid)->RangeMultiplier(10)->Range(60, 6000)->Unit(benchmark::kMillisecond)->Complexity();

} // namespace
