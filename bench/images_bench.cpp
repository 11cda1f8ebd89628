// Pictures of objects by growing sizes: elements, holes or sheets a second, so that the order of growth shows.
#include <vek/vek.h>

#include <benchmark/benchmark.h>

#include <string>

namespace
{

using VEK::dataSet;
using File = VEK::CUniqPointer<VEK::CDtaFilePointer>;

File file(const CVekDataItem& item)
{
    return File(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &item));
}

CVekMatrix3d at(double x, double y)
{
    return CVekMatrix3d().setToTranslation(CVekVector3d(x, y, 0.0));
}

/// A rectangle, as "OUTLINE" describes it.
CVekDataItem rectangle(double width, double height)
{
    CVekDataItem item;
    const CVekDataKey first(5005, L"PARMS", 5003, 1, 0);
    const CVekDataKey second(5005, L"PARMS", 5003, 2, 0);
    dataSet(&item, L"CODE", 2);
    VEK::dataItemSet(&item, &first, width);
    VEK::dataItemSet(&item, &second, height);
    return item;
}

/// Draws the same file again and again, into a new display object each time.
template <class Generator>
void measure(benchmark::State& state, Generator generator, const CVekDataItem& object, const CVekDataItem& params)
{
    CVekLocalApp app;
    CVekApp* const before = vekAppSet(&app);
    const File objectFile = file(object);
    const File paramFile = file(params);
    int items = 0;
    for (auto _ : state) {
        CVekGDX gdx;
        if (!generator(&gdx, objectFile, paramFile))
            state.SkipWithError("nothing was drawn");
        items = gdx.lenGet();
    }
    state.counters["items"] = items;
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
    vekAppSet(before);
}

/// A hole pattern: polylines, or drills that the host draws.
void holes(benchmark::State& state, bool drills)
{
    CVekDataItem object(CVekDataItem::directory);
    dataSet(&object, L"\\DRAW", L"F");
    VEK::VertexArrays slot;
    slot.append(VEK::g_outline(6, CVekVector3d(), CVekArrayTempl<double>{30.0, 10.0}));
    for (int i = 0; i < state.range(0); ++i) {
        CVekDataItem* hole = object.makeDir((L"BT\\" + std::to_wstring(i)).c_str());
        dataSet(hole, L"MTX", at(i % 100 * 50.0, i / 100 * 50.0));
        if (drills) {
            dataSet(hole, L"GEN\\TYPE", L"DRILL");
            dataSet(hole, L"GEN\\D", 9.0);
        } else {
            dataSet(hole, L"GEN", slot);
        }
    }
    measure(state, vek_gdx_image_hole, object, CVekDataItem(CVekDataItem::directory));
}

void BM_slots(benchmark::State& state)
{
    holes(state, false);
}
void BM_drills(benchmark::State& state)
{
    holes(state, true);
}

/// One profile with a row of drills, seen along its axes.
void BM_drillsOfOneElement(benchmark::State& state)
{
    CVekDataItem object;
    dataSet(&object, L"BT\\post\\TYPE", L"EXTR");
    dataSet(&object, L"BT\\post\\BT\\LEN", 3000.0);
    *object.makeItem(L"BT\\post\\BT\\OUTLINE") = rectangle(50.0, 120.0);
    dataSet(&object, L"BT\\post\\BT\\DRILL\\row\\D", 5.0);
    dataSet(&object, L"BT\\post\\BT\\DRILL\\row\\N", static_cast<int>(state.range(0)));
    dataSet(&object, L"BT\\post\\BT\\DRILL\\row\\STEP", CVekPoint3d(0.0, 0.0, 0.01));
    measure(state, static_cast<VEK::GdxImageFcn>(vek_gdx_image_bgr), object, CVekDataItem(CVekDataItem::directory));
}

/// A grid of profiles, brackets and bolts, each defined once.
void assembly(benchmark::State& state, bool full)
{
    CVekDataItem object;
    dataSet(&object, L"DEF\\post\\TYPE", L"EXTR");
    dataSet(&object, L"DEF\\post\\BT\\LEN", 900.0);
    *object.makeItem(L"DEF\\post\\BT\\OUTLINE") = rectangle(50.0, 120.0);
    dataSet(&object, L"DEF\\bracket\\TYPE", L"ANGLE");
    for (const auto& [key, value] :
         {std::pair(L"B", 60.0), std::pair(L"H", 40.0), std::pair(L"S", 5.0), std::pair(L"LEN", 80.0)})
        dataSet(&object, CVekString(L"DEF\\bracket\\BT\\") + key, value);
    dataSet(&object, L"DEF\\bolt\\TYPE", L"MRA_NM");
    dataSet(&object, L"DEF\\bolt\\BT\\DIN", L"DIN 933");
    dataSet(&object, L"DEF\\bolt\\BT\\D", 10.0);
    dataSet(&object, L"DEF\\bolt\\BT\\L", 40.0);
    const wchar_t* const kNames[] = {L"post", L"bracket", L"bolt"};
    for (int i = 0; i < state.range(0); ++i) {
        CVekDataItem* element = object.makeDir((L"BT\\" + std::to_wstring(i)).c_str());
        dataSet(element, L"REF", kNames[i % 3]);
        dataSet(element, L"MTX", at(i % 78 / 3 * 1000.0, i / 78 * 1000.0));
    }
    CVekDataItem params;
    dataSet(&params, L"VIEW", L"NO");
    dataSet(&params, L"FULL", full);
    measure(state, static_cast<VEK::GdxImageFcn>(vek_gdx_image_bgr), object, params);
}

void BM_elements(benchmark::State& state)
{
    assembly(state, false);
}
void BM_solid(benchmark::State& state)
{
    assembly(state, true);
}

/// A sandwich of two skins for each of so many panels, with a core between each two.
void BM_sandwich(benchmark::State& state)
{
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    CVekDataItem* sheets = VEK::cfg_dir_make(L"*SHEET*");
    CVekPoint3dArray points;
    for (int i = 0; i < 20; ++i)
        points.append(CVekPoint3d(i * 50.0, i % 2 * 8.0, 4.0));
    dataSet(sheets, L"SKIN\\SEG", 1000.0);
    dataSet(sheets, L"SKIN\\FILLET_P", points);
    dataSet(sheets, L"CORE\\\\CALC", L"OUTLINE");
    dataSet(sheets, L"PANEL\\\\CALC", L"COMPOUND");
    dataSet(sheets, L"PANEL\\THICK\\A\\S", 0.6);
    dataSet(sheets, L"PANEL\\THICK\\A\\S_BOT", 0.5);
    for (int i = 0; i < 3 * state.range(0); ++i) {
        CVekDataItem* layer = sheets->makeDir((L"PANEL\\SANDWICH\\" + std::to_wstring(i)).c_str());
        dataSet(layer, L"SIDE", i % 3 == 0 ? L"TOP" : i % 3 == 1 ? L"BOT" : L"");
        dataSet(layer, L"STACK", CVekArrayTempl<CVekString>{i % 3 == 2 ? L"CORE" : L"SKIN"});
        dataSet(layer, L"MTX", at(0.0, i % 3 == 0 ? 60.0 : 0.0));
    }
    CVekDataItem object;
    dataSet(&object, L"LOBJ\\STACK", CVekArrayTempl<CVekString>{L"PANEL"});
    dataSet(&object, L"LOBJ\\D", 200.0);
    measure(state, vek_gdx_image_fsheet, object, CVekDataItem(CVekDataItem::directory));
}

BENCHMARK(BM_slots)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_drills)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_drillsOfOneElement)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_elements)->RangeMultiplier(10)->Range(60, 6000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_solid)->RangeMultiplier(10)->Range(60, 6000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_sandwich)->RangeMultiplier(4)->Range(1, 64)->Unit(benchmark::kMillisecond);

} // namespace
