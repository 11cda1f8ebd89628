#include <vek/geometry.h>
#include <vek/objects.h>

#include <benchmark/benchmark.h>

#include <cmath>

namespace
{

CVekDataItem* defined(CVekDataItem& object, const wchar_t* name, const wchar_t* type)
{
    CVekDataItem* item = object.makeDir(L"DEF\\" + CVekString(name));
    VEK::dataSet(item, L"TYPE", type);
    return item->makeDir(L"BT");
}

void outline(CVekDataItem* bt, int code, std::initializer_list<double> parameters)
{
    VEK::dataSet(bt, L"OUTLINE\\CODE", code);
    int number = 0;
    for (const double value : parameters) {
        const CVekDataKey key(5005, L"OUTLINE", 5005, L"PARMS", 5003, ++number, 0);
        VEK::dataItemSet(bt, &key, value);
    }
}

/// A facade of bays side by side and in storeys, six elements to a bay: a hollow mullion and transom, a pane, a folded
/// sheet with holes, an angle and a bolt.
CVekDataItem facade(int elements)
{
    CVekDataItem object(CVekDataItem::directory);
    VEK::dataSet(&object, L"UNIT", 4);
    CVekDataItem* mullion = defined(object, L"mullion", L"EXTR");
    outline(mullion, 2, {50.0, 120.0});
    VEK::dataSet(mullion, L"INNER\\chamber\\CODE", 2);
    CVekDataItem* transom = defined(object, L"transom", L"EXTR");
    outline(transom, 4, {50.0, 80.0, 5.0});
    VEK::dataSet(transom, L"MITRE\\E", 0.5);
    CVekDataItem* pane = defined(object, L"pane", L"SHEET");
    outline(pane, 2, {1200.0, 3300.0});
    VEK::dataSet(pane, L"S", 28.0);
    CVekDataItem* sheet = defined(object, L"sheet", L"SHEET");
    VEK::dataSet(sheet->getParent(), L"SCONS", L"EDGE");
    for (const auto& [key, value] : {std::pair(L"S", 2.0), {L"A", 80.0}, {L"B", 40.0}, {L"R", 2.0}, {L"LEN", 1200.0}})
        VEK::dataSet(sheet, key, value);
    VEK::dataSet(sheet, L"DRILL\\a\\D", 9.0);
    VEK::dataSet(sheet, L"DRILL\\a\\PLANE", 1);
    VEK::dataSet(sheet, L"DRILL\\a\\N", 4);
    VEK::dataSet(sheet, L"DRILL\\a\\ORG", CVekPoint3d(40.0, 100.0, 0.0));
    VEK::dataSet(sheet, L"DRILL\\a\\STEP", CVekPoint3d(0.0, 300.0, 0.0));
    CVekDataItem* angle = defined(object, L"angle", L"ANGLE");
    for (const auto& [key, value] : {std::pair(L"B", 60.0), {L"H", 40.0}, {L"S", 5.0}, {L"R", 6.0}, {L"LEN", 80.0}})
        VEK::dataSet(angle, key, value);
    CVekDataItem* bolt = defined(object, L"bolt", L"MRA_NM");
    VEK::dataSet(bolt, L"DIN", L"DIN 933");
    VEK::dataSet(bolt, L"D", 10.0);
    VEK::dataSet(bolt, L"L", 40.0);

    const int wide = static_cast<int>(std::sqrt(elements / 6.0));
    for (int i = 0; i < elements; ++i) {
        static constexpr const wchar_t* kNames[] = {L"mullion", L"transom", L"pane", L"sheet", L"angle", L"bolt"};
        CVekString name;
        CVekDataItem* element = object.makeDir(name.format(L"BT\\%ls %d", kNames[i % 6], i));
        const CVekPoint3d at(1250.0 * (i / 6 % wide) + 30.0 * (i % 6), 0.0, 3500.0 * (i / 6 / wide));
        VEK::dataSet(element, L"REF", kNames[i % 6]);
        VEK::dataSet(element, L"ORG", at);
        if (i % 6 < 2)
            VEK::dataSet(element, L"BT\\LEN", i % 6 ? 1200.0 : 3500.0);
        if (i % 6 == 1)
            VEK::dataSet(element, L"ZDIR", CVekPoint3d(1.0, 0.0, 0.0));
        if (i % 6 == 2)
            VEK::dataSet(element, L"ZDIR", CVekPoint3d(0.0, 1.0, 0.0));
    }
    return object;
}

using Map = CVekMapTempl<BgrBt, CVekDataItem>;
using Lines = CVekArrayTempl<CVekVertexArrayEx>;

CVekMatrix3d isometric()
{
    return VEK::g_mtx_view_dir(L"NO", CVekPoint3d::kOrigin).inverse();
}

void find(benchmark::State& state)
{
    CVekDataItem object = facade(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Map map;
        vek_bgr_strong(&object, nullptr, CVekMatrix3d(), 1, nullptr, map);
        benchmark::DoNotOptimize(map.len());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// What an image asks for each element: merged data, matrix and projection.
void projectEach(benchmark::State& state)
{
    CVekDataItem object = facade(static_cast<int>(state.range(0)));
    Map map;
    vek_bgr_strong(&object, nullptr, CVekMatrix3d(), 1, nullptr, map);
    const CVekMatrix3d view = isometric();
    for (auto _ : state) {
        int lines = 0;
        for (int i = 0; i < map.len(); ++i) {
            const BgrBt& key = map.keyAt(i);
            const VEK::CUniqPointer<CVekDataItem> element(VEK::bgr_data_merge(key.first, key.second, nullptr));
            double aux = 0.0;
            const CVekMatrix3d mtx = VEK::getBtTransformation(element, &map.valueAt(i), CVekMatrix3d(), 1.0, aux);
            Lines visible, hidden;
            CVekArrayTempl<VEK::CSharedPointer<CVekDataItem>> shared;
            VEK::getProjectedGeometry(element, mtx, view, nullptr, visible, hidden, shared);
            lines += visible.len();
        }
        benchmark::DoNotOptimize(lines);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void buildWhole(benchmark::State& state)
{
    CVekDataItem object = facade(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CVek_Solid solid;
        bool hasSolid = false;
        VEK::bgr_slx_bgr(solid, hasSolid, &object, nullptr, CVekMatrix3d(), nullptr, false, true);
        benchmark::DoNotOptimize(solid.bodies());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void projectWhole(benchmark::State& state)
{
    CVekDataItem object = facade(static_cast<int>(state.range(0)));
    CVek_Solid solid;
    bool hasSolid = false;
    VEK::bgr_slx_bgr(solid, hasSolid, &object, nullptr, CVekMatrix3d(), nullptr, false, true);
    solid.solid();
    const CVekMatrix3d view = isometric();
    for (auto _ : state) {
        Lines visible, hidden;
        solid.project(view, true, visible, hidden, vekModelerFaces);
        benchmark::DoNotOptimize(visible.len());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void listHoles(benchmark::State& state)
{
    CVekDataItem element(CVekDataItem::directory);
    VEK::dataSet(&element, L"BT\\DRILL\\a\\D", 5.0);
    VEK::dataSet(&element, L"BT\\DRILL\\a\\N", static_cast<int>(state.range(0)));
    for (auto _ : state) {
        DrillList drills;
        VEK::getExtrDrillData(drills, &element, element.getItem(L"BT"), nullptr, CVekMatrix3d(), CVekMatrix3d());
        benchmark::DoNotOptimize(drills.len());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(find)->RangeMultiplier(10)->Range(60, 60000);
BENCHMARK(projectEach)->RangeMultiplier(10)->Range(60, 6000)->Unit(benchmark::kMillisecond);
BENCHMARK(buildWhole)->RangeMultiplier(10)->Range(60, 6000)->Unit(benchmark::kMillisecond);
BENCHMARK(projectWhole)->RangeMultiplier(10)->Range(60, 6000)->Unit(benchmark::kMillisecond);
BENCHMARK(listHoles)->RangeMultiplier(10)->Range(1000, 100000);
