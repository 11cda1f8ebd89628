// The contents of the material tree for libraries of three levels, without and with a filter.
#include <vek/controls.h>
#include <vek/data.h>

#include <benchmark/benchmark.h>

#include <cwchar>

namespace
{

CVekString keyOf(std::int64_t number)
{
    CVekString key;
    return key.format(L"MATERIAL_%d", static_cast<int>(number));
}

/// A hundredth of the materials at the top, a tenth below them, the others below those.
void fill(std::int64_t count, bool hasEdges)
{
    CVekDataItem materials(CVekDataItem::directory);
    const std::int64_t top = count / 100 + 1, middle = top + count / 10;
    CVekArrayTempl<CVekArrayTempl<CVekString>> subs;
    subs.setLogicalLength(static_cast<int>(middle));
    for (std::int64_t i = top; i < count; ++i)
        subs[static_cast<int>(i < middle ? i % top : top + i % (middle - top))].append(keyOf(i));
    for (std::int64_t i = 0; i < count; ++i) {
        CVekDataItem* const material = materials.makeDir(keyOf(i));
        CVekString label;
        label.format(L"\\de:Material %d\\en:Material no. %d", static_cast<int>(i * 7919 % count), static_cast<int>(i));
        VEK::dataSet(material, L"LABEL", label);
        VEK::dataSet(material, L"SUB", i >= top);
        VEK::dataSet(material, L"PHYS\\RHO", 7850.0);
        VEK::dataSet(material, L"PHYS\\LAMBDA", 50.0);
        if (i < middle)
            VEK::dataSet(material, L"SUBS", subs[static_cast<int>(i)]);
        else if (hasEdges && i % 2)
            VEK::dataSet(material, L"EDGE", CVekArrayTempl<CVekString>{L"R1"});
    }
    *VEK::cfg_dir_make(L"*MAT*") = std::move(materials);
}

void tree(benchmark::State& state)
{
    const auto order = [](const wchar_t* a, const wchar_t* b) { return std::wcscmp(a, b); };
    const bool hasEdges = state.range(1) != 0;
    fill(state.range(0), hasEdges);
    int nodes = 0;
    for (auto _ : state) {
        VEK::MatTree made;
        VEK::matTree(made, {}, {hasEdges ? VEK::matTreeEdges : 0u, L"MATERIAL_77", {}, L"en", order});
        nodes = made.nodes.len();
    }
    state.SetItemsProcessed(state.iterations() * nodes);
    state.counters["nodes"] = nodes;
}

BENCHMARK(tree)->ArgNames({"materials", "edges"})->ArgsProduct({{100, 1000, 10000, 100000}, {0, 1}});

} // namespace
