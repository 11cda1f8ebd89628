#include "objects_data.h"

#include <vek/data/config.h>
#include <vek/data/text.h>

#include <algorithm>
#include <map>

namespace
{

using namespace objects_test;

constexpr double kMillimetres[] = {0, 25.4, 304.8, 0, 1, 10, 1000};

CVekMatrix3d scale(int from, int to)
{
    const double factor = from && to ? kMillimetres[from] / kMillimetres[to] : 1.0;
    return CVekMatrix3d().setToScaling(factor, CVekPoint3d::kOrigin);
}

/// Fills an object, and its sub-assemblies, with random elements.
/// @param here from the surrounding object, whose unit is `outer`, to the world
void fill(CVekDataItem& object, int depth, int outer, const CVekMatrix3d& here, std::mt19937& random,
          std::map<std::string, CVekMatrix3d>& expected)
{
    const auto unitIn = [&](CVekDataItem& item, int without) {
        static constexpr int kCodes[] = {0, 0, 1, 2, 4, 5, 6};
        const int code = kCodes[random() % 7];
        if (code)
            VEK::dataSet(&item, L"UNIT", code);
        return code ? code : without;
    };
    const int own = unitIn(object, outer);
    const CVekMatrix3d inside = here * scale(own, outer);
    for (int i = 0; i <= static_cast<int>(random() % 3); ++i) {
        const std::string name = "e" + std::to_string(expected.size());
        CVekDataItem& element = *object.makeDir(L"BT\\" + VEK::fromUtf8(name.data(), name.size()));
        const CVekMatrix3d m = place(element, random);
        const int unit = unitIn(element, own);
        expected[name] = inside * scale(unit, own) * m;
    }
    for (int i = 0; depth < 4 && i < static_cast<int>(random() % 3); ++i) {
        CVekDataItem& inner = *object.makeDir(L"BGR\\" + CVekString().format(L"%d", i));
        const CVekMatrix3d m = place(inner, random);
        fill(inner, depth + 1, own, inside * m, random, expected);
    }
}

std::string namesOf(CVekDataItem& object, CVekDataItem* second = nullptr)
{
    Map map;
    EXPECT_TRUE(vek_bgr_strong(&object, second, CVekMatrix3d(), 1, nullptr, map));
    std::string names;
    for (const auto& [key, value] : map)
        names += narrow(key.second) + std::to_string(key.place) + " ";
    return names;
}

TEST(Elements, StandWhereTheChainOfPlacementsPutsThem)
{
    int judged = 0;
    std::mt19937 random(1);
    for (int round = 0; round < 80; ++round) {
        CVekDataItem object, scratch;
        const CVekMatrix3d mtx = place(scratch, random), whole = place(scratch, random);
        std::map<std::string, CVekMatrix3d> expected;
        const CVekMatrix3d half = CVekMatrix3d().setToScaling(0.5, CVekPoint3d::kOrigin);
        fill(object, 0, 0, mtx * half * whole, random, expected);
        Map map;
        ASSERT_TRUE(vek_bgr_strong(&object, nullptr, whole, 1, nullptr, map));
        ASSERT_EQ(map.len(), static_cast<int>(expected.size()));
        for (int i = 0; i < map.len(); ++i, ++judged)
            expectNear(Taken(map, i, mtx, 0.5).m, expected.at(narrow(map.keyAt(i).second)));
    }
    EXPECT_GT(judged, 300);

    const CVekDataItem item = tree("{'ORG': {'@point': [1, 2, 3]}}");
    CVekMatrix3d rows;
    EXPECT_FALSE(VEK::g_mtx_local(nullptr, rows, Vek::unitInch, Vek::unitMillimetre) || !(rows == CVekMatrix3d()));
    EXPECT_TRUE(VEK::g_mtx_local(&item, rows, Vek::unitInch, Vek::unitMillimetre));
    expectNear(rows, CVekMatrix3d().setToTranslation({25.4, 50.8, 76.2}));
    EXPECT_TRUE(VEK::g_mtx_local(&item, rows, Vek::unitNone, Vek::unitCurrent) && rows[2][3] == 3.0);
}

TEST(Elements, HaveTheirDataInLayers)
{
    CVekDataItem object =
        tree(R"({'UNIT': {'@unit': 5}, 'COMMON': {'LAYER': 'A', 'BT': {'MAT': 'alu', 'S': 1}, 'ROT': 1},
        'DEF': {'up': {'TYPE': 'EXTR', 'BT': {'S': 2, 'LEN': 10, 'DRILL': {'a': {'D': 1}}}, 'ORG': {'@point': [1, 0, 0]}},
                'near': {'REF': 'up', 'BT': {'LEN': 20}, 'UNIT': 1}},
        'BT': {'e': {'REF': 'near', 'BT': {'DRILL': {'b': {'D': 2}}}}, 'f': {'REF': 'near', 'SCALE': 3, 'BT': 5, 'UNIT': 99},
               'g': {'REF': 'none'}, 'h': 1},
        'BGR': {'s': {'BT': {'i': {'REF': 'near'}}}}})");
    CVekDataItem second = tree("{'GEN_STAT': 3, 'OTHER': 4}");
    CVekDataItem* inner = object.getItem(L"BGR\\s");
    const struct {
        CVekDataItem* of;
        const wchar_t* name;
        const char* expected;
    } kCases[] = {
        {&object, L"e",
         R"({'LAYER': 'A', 'BT': {'MAT': 'alu', 'S': 2, 'LEN': 20, 'DRILL': {'a': {'D': 1}, 'b': {'D': 2}}},
             'TYPE': 'EXTR', 'ORG': {'@point': [1, 0, 0]}, 'UNIT': {'@unit': 1}, 'GEN_STAT': 3})"},
        {&object, L"f", R"({'LAYER': 'A', 'BT': 5, 'TYPE': 'EXTR', 'UNIT': {'@unit': 5}, 'SCALE': 3, 'GEN_STAT': 3})"},
        {&object, L"g",
         R"({'LAYER': 'A', 'BT': {'MAT': 'alu', 'S': 1}, 'ROT': 1, 'UNIT': {'@unit': 5}, 'GEN_STAT': 3})"},
        {inner, L"i", R"({'TYPE': 'EXTR', 'BT': {'S': 2, 'LEN': 20, 'DRILL': {'a': {'D': 1}}},
             'ORG': {'@point': [1, 0, 0]}, 'UNIT': {'@unit': 1}, 'GEN_STAT': 3})"}};
    for (const auto& one : kCases) {
        const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(one.of, one.name, &second));
        ASSERT_TRUE(merged);
        EXPECT_EQ(json(*merged), json(tree(one.expected)));
    }
    Vek::lUnit unit = Vek::unitMile;
    for (const wchar_t* name : {L"h", L"none", L""}) {
        EXPECT_EQ(VEK::bgr_data_merge(&object, name, nullptr), nullptr);
        EXPECT_FALSE(VEK::bgr_bt_unit(&object, name, unit) || unit != Vek::unitMile);
    }
    EXPECT_EQ(VEK::bgr_data_merge(nullptr, L"e", nullptr), nullptr);
    EXPECT_TRUE(VEK::lobj_unit(inner, unit) && unit == Vek::unitCentimetre);
}

TEST(Elements, AreNotFoundForEverInCircles)
{
    CVekDataItem object = tree(R"({'BT': {'e': {'REF': 'x'}}, 'BGR': {'a': {'REF': 'p'}, 'q': {'REF': 'q'}, 'n': {}},
        'DEF': {'x': {'REF': 'y'}, 'y': {'REF': 'x', 'TYPE': 'EXTR'}, 'q': {'REF': 'q'},
                'p': {'BT': {'e': {}}, 'BGR': {'again': {'REF': 'p'}, 'r': {'REF': 'r'}}},
                'r': {'BT': {'f': {}}, 'BGR': {'back': {'REF': 'p'}}}}})");
    EXPECT_EQ(namesOf(object), "e0 e1 f2 ");
    const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(&object, L"e", nullptr));
    EXPECT_EQ(json(*merged), json(tree("{'TYPE': 'EXTR'}")));

    // Forty definitions, each twice in the next: a million million elements.
    std::string text = "{'BGR': {'a': {'REF': 'd40'}}, 'DEF': {'d0': {'BT': {'e': {}}}";
    for (int i = 1; i <= 40; ++i) {
        const std::string below = "{'REF': 'd" + std::to_string(i - 1) + "'}";
        text += ", 'd" + std::to_string(i) + "': {'BGR': {'a': " + below + ", 'b': " + below + "}}";
    }
    CVekDataItem doubled = tree(text + "}}"), leaf;
    Map map;
    map[BgrBt()] = leaf;
    EXPECT_FALSE(vek_bgr_strong(&doubled, nullptr, CVekMatrix3d(), 1, nullptr, map));
    EXPECT_FALSE(vek_bgr_strong(nullptr, nullptr, CVekMatrix3d(), 1, nullptr, map));
    EXPECT_EQ(map.len(), 1) << "unchanged";
    EXPECT_TRUE(vek_bgr_strong(&leaf, nullptr, CVekMatrix3d(), 1, nullptr, map) && map.len() == 0);
}

TEST(Elements, AreHiddenByFlagAndStatus)
{
    CVekDataItem object = tree(R"({'COMMON': {'STAT': {'BGR_STAT2': [9]}},
        'BT': {'a': {'STAT': {'GEN_STAT': [1, 2]}}, 'b': {'STAT': {'BGR_STAT': [2]}}, 'c': {'HIDE': true}, 'd': {}, '#7': {}, '7': 1},
        'BGR': {'s': {'STAT': {'BGR_STAT': [1]}, 'BT': {'e': {}}}, 't': {'HIDE': 1, 'BT': {'f': {}}}}})");
    const std::pair<const char*, std::string> kCases[] = {
        {"{}", "a0 b0 d0 e1 "},           {"1", "a0 b0 d0 e1 "},
        {"{'GEN_STAT': 1}", "b0 d0 e1 "}, {"{'GEN_STAT': 3, 'BGR_STAT': 2}", "a0 d0 e1 "},
        {"{'BGR_STAT': 1}", "a0 b0 d0 "}, {"{'BGR_STAT2': 9}", "e1 "}};
    for (const auto& [status, expected] : kCases) {
        CVekDataItem second = tree(status);
        EXPECT_EQ(namesOf(object, &second), expected) << status;
        for (const wchar_t* name : {L"a", L"b", L"c", L"d"}) { // the element itself knows as well
            const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(&object, name, &second));
            EXPECT_EQ(VEK::checkBt(merged, nullptr), expected.find(narrow(name)) != std::string::npos) << status;
        }
    }
    const CVekDataItem leaf;
    EXPECT_FALSE(VEK::checkBt(nullptr, nullptr) || VEK::checkBt(&leaf, nullptr));
}

TEST(Elements, GetTheParametersOfThePicture)
{
    CVekDataItem object = tree(R"({'COMMON': {'PARM': {'COORD': true, 'OWN': 1, 'CMODE': 7}, 'CUT': {'p': {}}},
        'BT': {'a': {'PARM': {'OWN': 2}}}, 'BGR': {'s': {'BT': {'b': {}}, 'ORG': {'@point': [1, 2, 3]}}}})");
    CVekDataItem parameters = tree("{'CMODE': 2, 'ACT': 'a', 'OTHER': 3}");
    VEK::dataSet(&parameters, L"MTX", CVekMatrix3d());
    Map map;
    ASSERT_TRUE(vek_bgr_strong(&object, nullptr, CVekMatrix3d(), 1, &parameters, map));
    const std::string unity = "{'@matrix': [[1, 0, 0, 0], [0, 1, 0, 0], [0, 0, 1, 0], [0, 0, 0, 1]]}";
    const std::string moved = "{'@matrix': [[1, 0, 0, 1], [0, 1, 0, 2], [0, 0, 1, 3], [0, 0, 0, 1]]}";
    const std::string all = "'ACT': 'a', 'MTX': " + unity + "}";
    EXPECT_EQ(json(map.valueAt(0)),
              json(tree("{'PARM': {'COORD': true, 'OWN': 2, 'CMODE': 2, 'CUT': {'p': {}}, " + all + "}")));
    EXPECT_EQ(json(map.valueAt(1)), json(tree("{'PARM': {'CMODE': 2, " + all + ", 'MTX': " + moved + "}")));
}

TEST(Elements, LieOnLayersWithColours)
{
    *VEK::cfg_dir_make(L"*LAYER*") = tree("{'S': {'COLOR': {'@color': {'index': 3}}}, 'NO': {'COLOR': 300}, 'ALU': "
                                          "{'COLOR': 5}, 'MAP': {'ACHSE': 'AXES', 'BAD': 1}}");
    CVekColor color;
    color.setColorIndex(77);
    const std::pair<const wchar_t*, int> kColors[] = {{L"none", 0}, {L"S", 3}, {L"NO", 0}, {L"ALU", 5}, {L"", 0}};
    for (int before = 77; const auto& [name, index] : kColors) {
        EXPECT_EQ(VEK::layer_color(color, name), index > 0) << narrow(name);
        EXPECT_EQ(color.colorIndex(), before = index ? index : before) << narrow(name);
    }
    CVekString layer = L"0";
    EXPECT_FALSE(VEK::phys_layer(layer, L"BAD", nullptr) || VEK::phys_layer(layer, nullptr, L"none") || layer != L"0");
    EXPECT_TRUE(VEK::phys_layer(layer, L"none", L"ACHSE") && layer == L"AXES");

    const std::pair<const char*, const char*> kElements[] = {{"{}", "00"},
                                                             {"{'LAYER': 'A'}", "AA"},
                                                             {"{'LAYER': '', 'LAYER_H': 'B'}", "0B"},
                                                             {"{'LAYER': 4, 'LAYER_H': ''}", "00"}};
    CVekString visible, hidden;
    for (const auto& [text, expected] : kElements) {
        const CVekDataItem element = tree(text);
        EXPECT_TRUE(VEK::getBtLayer(&element, visible, hidden));
        EXPECT_EQ(narrow(visible) + narrow(hidden), expected);
    }
    EXPECT_FALSE(VEK::getBtLayer(nullptr, visible, hidden));
    EXPECT_EQ(narrow(VEK::msgBoxTitle(nullptr) + VEK::msgBoxTitle(L"Holes")), "VEKVEK - Holes");
}

TEST(Elements, OfAngleSteelAreChecked)
{
    const std::string good = "{'BT': {'B': 60, 'H': 40, 'S': 5, 'R': 6, 'LEN': -80}, 'INSUNIT': 4, 'DEFUNIT': 0}";
    const auto check = [&](const std::string& from, const std::string& to) {
        std::string text = good;
        const CVekDataItem element = tree(text.replace(text.find(from), from.size(), to));
        return vek_bgr_bt_angle_check(&element);
    };
    EXPECT_TRUE(check("6", "6") && check("'R': 6, ", "") && check("4,", "-1,"));
    EXPECT_TRUE(check(", 'LEN': -80}", "}, 'AXIS': {'@points': [[0, 0, 0], [0, 3, 4]]}"));
    for (const std::string bad : {"5>0", "5>-5", "5>40", "60>5", "40>-40", "-80>0", " 6,> -1,", " 6,> 36,", "60>'x'",
                                  "-80>null", "-80>{'@double': 'nan'}", "4,>21,", " 0}> -2}", "'DEF>'UNIT': 99, 'DEF"})
        EXPECT_FALSE(check(bad.substr(0, bad.find('>')), bad.substr(bad.find('>') + 1))) << bad;
    EXPECT_FALSE(vek_bgr_bt_angle_check(nullptr));
}

TEST(Elements, DeriveTheRegionOfTheirOutline)
{
    CVekDataItem element =
        tree("{'UNIT': 5, 'BT': {'OUTLINE': {'CODE': 2, 'UNIT': {'@unit': 4}, 'PARMS': {'#1': 100.0, "
             "'#2': 50.0}}, 'INNER': {'a': {'CODE': 1, 'PARMS': {'#1': 2.0}}, 'b': 4}}}");
    for (int i = 0; i < 3; ++i) {
        VEK::VertexArrays region;
        CVekPoint3d low, high;
        EXPECT_TRUE(VEK::objGen(&element, 0));
        ASSERT_TRUE(VEK::dataGet(&element, L"BT\\*REGION*", region) && region.len() == 2);
        region[i % 2].extents(low, high);
        EXPECT_NEAR(high.x - low.x, i % 2 ? 2.0 : 10.0, 1e-12);
    }
    VEK::dataSet(&element, L"BT\\OUTLINE\\CODE", -5);
    EXPECT_FALSE(VEK::objGen(&element, 0));
    EXPECT_FALSE(element.getItem(L"BT\\*REGION*")) << "nothing old is left";
    element.remove(L"BT");
    CVekDataItem leaf;
    EXPECT_TRUE(VEK::objGen(&element, 0) && !VEK::objGen(&leaf, 0) && !VEK::objGen(nullptr, 0));
}

} // namespace
