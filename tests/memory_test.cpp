// Every allocation fails in turn: what comes out is whole, or told as a failure with everything as it was.
#include "failing_memory.h"

#include <vek/data.h>
#include <vek/host.h>
#include <vek/json.h>

#include <filesystem>
#include <fstream>
#include <functional>

namespace
{

CVekVertexArray arcs(const CVekVector3d& normal)
{
    CVekVertexArray polyline{{{0, 0, 0}, {1, 0, 0}, 0.5}, {{1, 0, 0}, {1, 1, 0}, -1.0}};
    polyline.setNormal(normal);
    return polyline;
}

/// One value of each kind that can grow.
struct Values {
    CVekString text = L"a.b";
    CVekArrayTempl<int> numbers{1, 2, 3};
    CVekArrayTempl<int> others{4, 5};
    CVekArrayTempl<CVekString> texts{L"one", L"two"};
    CVekMapTempl<CVekString, CVekString> map;
    CVekVertexArray polyline = arcs({0, 0, 1});
    CVekPoint3dArray points{{0, 0, 0}, {1, 1, 1}, {2, 0, 0}, {3, 1, 0}, {4, 5, 6}};
    VEK::CSharedPointer<CVekString> shared;
    CVekColor color;

    Values() { map[L"key"] = L"value"; }

    std::string told() const
    {
        CVekString all = text + L"|" + VEK::implode(texts, L",") + L"|" + color.colorName() + color.bookName();
        for (const auto& [key, value] : map)
            all += key + L"=" + value + L";";
        for (const CVekArrayTempl<int>* list : {&numbers, &others}) {
            for (const int number : *list)
                all += CVekString().format(L"%d ", number);
        }
        for (const CVekVertex& v : polyline)
            all += CVekString().format(L"%g %g %g/", v.start.x, v.end.y, v.bulge);
        all += CVekString().format(L"%g;", polyline.normal().y);
        for (const CVekPoint3d& p : points)
            all += CVekString().format(L"%g ", p.x);
        all += CVekString().format(L"%d", shared ? 1 : 0);
        const CVekArrayTempl<char> utf8 = VEK::toUtf8(all);
        return std::string(utf8.begin(), utf8.end());
    }
};

/// A tree with every kind of leaf that owns memory, deep and broad.
CVekDataItem sample()
{
    CVekDataItem tree;
    VEK::dataSet(&tree, L"TEXT", L"a text that fits into no buffer of its own");
    VEK::dataSet(&tree, L"A\\B\\C\\D", 1);
    VEK::dataSet(&tree, L"VL", arcs({0, 1, 0}));
    VEK::dataSet(&tree, L"REG", VEK::Regions{{arcs({0, 0, 1}), arcs({0, 0, -1})}, {}});
    VEK::dataSet(&tree, L"LIST", CVekArrayTempl<CVekString>{L"one", L"two"});
    VEK::dataSet(&tree, L"HATCH", VEK::CHatchProp(L"ANSI31", 0.5, 2.0, true));
    for (int i = 0; i < 12; ++i) { // more than are searched one by one
        const CVekDataKey key(5005, L"MANY", 5003, i, 0);
        VEK::dataItemSet(&tree, &key, 0.5 * i);
    }
    return tree;
}

std::string told(const CVekDataItem& tree)
{
    std::string text;
    CVekString error;
    EXPECT_TRUE(VEK::jsonWrite(tree, text, L"", error));
    return text;
}

} // namespace

TEST(Memory, ValuesStayOrChangeAsAWhole)
{
    const CVekArrayTempl<int> more{9, 8, 7, 6, 5, 4, 3, 2, 1};
    const CVekString another(L"another key");
    const CVekVertexArray upright = arcs({0, 1, 0});
    CVekVertexArray slanted = arcs({0, 1, 1});
    slanted += slanted;
    const std::function<void(Values&)> jobs[] = {
        [](Values& v) { v.text += L"and so much more that a new block is wanted for all of it"; },
        [](Values& v) { v.text.replace(L".", L" a longer text that stands for a point "); },
        [](Values& v) { v.text.format(L"%s and %s", L"first", L"second"); },
        [](Values& v) { v.numbers += v.numbers; },
        [&](Values& v) { v.numbers = more; },
        [](Values& v) { v.numbers += std::move(v.others); },
        [](Values& v) { v.numbers[20] = 0; },
        [&](Values& v) { v.map[another]; },
        [](Values& v) {
            CVekMapTempl<CVekString, CVekString> copy(v.map);
            copy = v.map;
            if (copy.len() > 0)
                v.map = std::move(copy);
        },
        [&](Values& v) { v.polyline += upright; },
        [&](Values& v) { v.polyline = slanted; },
        [](Values& v) {
            CVekMatrix3d stretch;
            stretch[0][0] = 3.0;
            v.polyline.transformBy(stretch);
        },
        [](Values& v) { v.polyline.fromPoints(v.points, true); },
        [](Values& v) { v.shared = VEK::CSharedPointer<CVekString>(new CVekString(v.text)); },
    };
    for (const auto& job : jobs) {
        const std::string before = Values().told();
        Values changed;
        job(changed);
        const std::string after = changed.told();
        FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            Values values;
            const unsigned long shortages = VEK::memoryShortages();
            memory.during([&] { job(values); });
            const std::string now = values.told();
            EXPECT_TRUE(now == after || (now == before && memory.failed())) << now;
            EXPECT_EQ(VEK::memoryShortages() != shortages, memory.failed()) << "each counts";
        });
    }
}

TEST(Memory, ListsComeOutWholeOrEmpty)
{
    const Values values;
    const CVekVertexArray cross{{0.5, -1, 0}, {0.5, 2, 0}};
    const std::function<int()> jobs[] = {
        [&] { return values.polyline.pts(true, 1e-3).len(); },
        [&] {
            CVekPoint3dArray met;
            return values.polyline.intersectWith(met, cross, 3) ? met.len() : 0;
        },
        [&] {
            CVekArrayTempl<CVekString> parts{L"before"};
            return VEK::strTok(parts, L"one two three", L" ", false) ? parts.len() : 0;
        },
        [&] { return VEK::implode(values.texts, L", ").len(); },
        [&] { return VEK::toUtf8(L"a wide text of some length").len(); },
        [&] { return VEK::fromUtf8("a narrow text of some length", 28).len(); },
        [&] { return static_cast<int>(VEK::atof(L"12345678901234567890.5e-15")); },
    };
    for (const auto& job : jobs) {
        const int all = job();
        EXPECT_GT(all, 0);
        FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            const int some = memory.during(job);
            EXPECT_TRUE(some == all || (some == 0 && memory.failed())) << some;
        });
    }
}

TEST(Memory, TreesStayOrChangeAsAWhole)
{
    const CVekDataItem whole = sample();
    const CVekVertexArray arc = arcs({0, 0, 1});
    const CVekVertexArray none;
    const CVekDataKey key(5005, L"A", 5005, L"B", 5005, L"NEW", 5003, 7, 0);
    const CVekDataKey many(5005, L"MANY", 5003, 40, 0);
    const std::function<bool(CVekDataItem&)> jobs[] = {
        [&](CVekDataItem& tree) {
            VEK::CUniqPointer<CVekDataItem> copy(tree.clone());
            if (copy)
                tree = std::move(*copy->getItem(L"A"));
            return copy != nullptr;
        },
        [&](CVekDataItem& tree) {
            tree = *tree.getItem(L"REG");
            return tree.kind() == VEK::DataKind::regions;
        },
        [&](CVekDataItem& tree) { return VEK::dataSet(&tree, L"TEXT\\X\\Y", L"a leaf that becomes a directory"); },
        [&](CVekDataItem& tree) { return VEK::dataItemSet(&tree, &key, arc); },
        [&](CVekDataItem& tree) { return VEK::dataItemSet(&tree, &many, 1.0); },
        [&](CVekDataItem& tree) {
            const CVekDataKey own(5005, L"A", 5005, L"NEW", 5005, L"C", 0); // lost where the memory ends in it
            return VEK::dataItemSet(&tree, &own, 2.0);
        },
        [&](CVekDataItem& tree) { return VEK::dataSetList(&tree, L"A\\LIST", arc); },
        [&](CVekDataItem& tree) { return VEK::dataSetList(&tree, L"LIST", none); },
        [&](CVekDataItem& tree) {
            resbuf* chain = whole.getItem(L"MANY")->mkLisp();
            return chain && tree.setData(chain, false);
        },
        [&](CVekDataItem& tree) { return tree.getDir()->insertCopy(&key, &whole, true) != nullptr; },
    };
    for (const auto& job : jobs) {
        CVekDataItem changed(whole);
        EXPECT_TRUE(job(changed));
        const std::string before = told(whole);
        const std::string after = told(changed);
        FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            CVekDataItem tree(whole);
            const bool done = memory.during([&] { return job(tree); });
            EXPECT_TRUE(done || memory.failed());
            EXPECT_EQ(told(tree), done ? after : before);
        });
    }
}

TEST(Memory, ReadersAndListersTellOfIt)
{
    CVekDataItem tree = sample();
    const CVekString label(L"\\de:Riegel");
    const VEK::CUniqPointer<VEK::CDtaFilePointer> file(VEK::dtaOpen(6, 3, nullptr, &tree));
    constexpr char kPattern[] = "*ONE, first\n45, 0,0, 0,1, 1,-1\n*TWO\n0, 0,0, 0,2\n";
    const std::function<bool(std::string&)> jobs[] = {
        [&](std::string& out) {
            CVekArrayTempl<CVekString> list{L"before"};
            const bool good = VEK::dataGet(&tree, L"LIST", list);
            out = std::to_string(list.len()) + (list.len() == 2 && list[1] == L"two" ? "whole" : "");
            return good;
        },
        [&](std::string& out) {
            CVekArrayTempl<CVekDataKey> keys;
            const bool good = file->dir(keys, nullptr);
            out = std::to_string(keys.len());
            return good;
        },
        [&](std::string& out) {
            VEK::CUniqPointer<VEK::CDtaFilePointer> copy(VEK::dtaOpen(6, 3, nullptr, &tree));
            out = copy && copy->get(L"MANY", false) && copy->get(L"HATCH", false) ? "whole" : "part";
            return copy != nullptr;
        },
        [&](std::string& out) {
            CVekString own(label);
            if (own.isNull())
                return false;
            VEK::label_set(own, L"a mullion of some length", L"en");
            out = own == L"\\de:Riegel\\en:a mullion of some length" ? "whole" : "part";
            return own != label;
        },
        [&](std::string& out) {
            CVekArrayTempl<VEK::CHatchPattern> patterns;
            CVekString error;
            const bool good = VEK::hatchPatternsRead(patterns, kPattern, sizeof kPattern - 1, L"p", error);
            out = std::to_string(patterns.len());
            return good;
        },
        [&](std::string& out) {
            VEK::CUniqResbuf chain(tree.mkLisp());
            int nodes = 0;
            for (const resbuf* node = chain; node; node = node->rbnext)
                ++nodes;
            out = std::to_string(nodes);
            return nodes > 0;
        },
    };
    for (const auto& job : jobs) {
        std::string whole;
        EXPECT_TRUE(job(whole));
        FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            std::string out;
            out.reserve(100);
            const bool done = memory.during([&] { return job(out); });
            EXPECT_TRUE(done ? out == whole : memory.failed()) << out;
        });
    }
}

TEST(Memory, DataFilesAreReadAndWrittenAsAWhole)
{
    const CVekDataItem old = sample();
    CVekDataItem fresh = sample();
    VEK::dataSet(&fresh, L"TEXT", L"another text");
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "vek_memory_test";
    std::filesystem::create_directories(folder);
    const CVekString path((folder / "tree.json").wstring().c_str());
    const auto written = [&] {
        std::ifstream in(folder / "tree.json", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    CVekString error;
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        ASSERT_TRUE(VEK::jsonSave(old, path, error));
        const bool done = memory.during([&] { return VEK::jsonSave(fresh, path, error); });
        EXPECT_TRUE(done || memory.failed());
        EXPECT_EQ(written(), told(done ? fresh : old));
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1) << "nothing is left beside it";
    });
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        CVekDataItem tree(old);
        const bool done = memory.during([&] { return VEK::jsonLoad(tree, path, error); });
        EXPECT_TRUE(done || memory.failed());
        EXPECT_EQ(told(tree), told(done ? fresh : old));
    });
    std::filesystem::remove_all(folder);
}
