#include "objects_data.h"

#include <vek/data/config.h>
#include <vek/data/iterator.h>

#include <algorithm>
#include <map>

namespace
{

using namespace objects_test;
using Map = CVekMapTempl<BgrBt, CVekDataItem>;

/// A random object, and where its elements stand in its coordinates and unit.
class RandomObject
{
public:
    explicit RandomObject(unsigned seed) : random(seed) {}

    std::string write(int depth, int parentUnit, const Placed& here, const std::string& placed)
    {
        const int unit = unitCode();
        const int own = unit ? unit : parentUnit;
        const Placed inside = here.by(scale(own, parentUnit));
        std::string text = "{" + placed + (placed.empty() ? "" : ", ") + unitKey(unit) + "'BT': {";
        for (int i = static_cast<int>(random() % 3); i >= 0; --i) {
            Placed place;
            const std::string keys = placement(random, place);
            const int insertion = unitCode();
            const std::string name = "e" + std::to_string(expected.size());
            expected[name] = inside.by(scale(insertion ? insertion : own, own)).by(place).matrix();
            text += "'" + name + "': {" + unitKey(insertion) + keys + "}" + (i ? ", " : "");
        }
        text += "}, 'BGR': {";
        for (int i = depth < 4 ? static_cast<int>(random() % 3) : 0; i > 0; --i) {
            Placed place;
            const std::string keys = placement(random, place);
            text += "'b" + std::to_string(i) + "': " + write(depth + 1, own, inside.by(place), keys) + (i > 1 ? ", " : "");
        }
        return text + "}}";
    }

    std::map<std::string, CVekMatrix3d> expected;
    std::mt19937 random;

private:
    static constexpr double kMillimetres[] = {0, 25.4, 304.8, 0, 1, 10, 1000};

    int unitCode()
    {
        static constexpr int kCodes[] = {0, 0, 1, 2, 4, 5, 6};
        return kCodes[random() % 7];
    }
    static std::string unitKey(int unit)
    {
        return unit ? "'UNIT': {'@unit': " + std::to_string(unit) + "}, " : "";
    }
    static Placed scale(int from, int to)
    {
        Placed p;
        for (int i = 0; i < 3; ++i)
            p.m[i][i] = from && to ? kMillimetres[from] / kMillimetres[to] : 1.0;
        return p;
    }
};

std::string narrow(const CVekString& text)
{
    const CVekArrayTempl<char> utf8 = VEK::toUtf8(text);
    return std::string(utf8.begin(), utf8.end());
}

/// The element's matrix as an image takes it from the services.
CVekMatrix3d transformation(const BgrBt& key, CVekDataItem& value, const CVekMatrix3d& mtx, double scale)
{
    const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(key.first, key.second, nullptr));
    Vek::lUnit defUnit = Vek::unitNone;
    Vek::lUnit insUnit = Vek::unitNone;
    VEK::lobj_unit(key.first, defUnit);
    VEK::bgr_bt_unit(key.first, key.second, insUnit);
    VEK::dataSet(&value, L"PARM\\DEFUNIT", defUnit);
    VEK::dataSet(&value, L"PARM\\INSUNIT", insUnit);
    double aux = 7.0;
    const CVekMatrix3d m = VEK::getBtTransformation(merged, &value, mtx, scale, aux);
    EXPECT_EQ(aux, 7.0);
    return m;
}

Map elementsOf(CVekDataItem& object, CVekDataItem* second = nullptr, CVekDataItem* parameters = nullptr)
{
    Map map;
    EXPECT_TRUE(vek_bgr_strong(&object, second, CVekMatrix3d(), 1, parameters, map));
    return map;
}

std::string namesOf(const Map& map)
{
    std::string names;
    for (const auto& [key, value] : map)
        names += narrow(key.second) + std::to_string(key.place) + " ";
    return names;
}

TEST(Elements, StandWhereTheChainOfPlacementsPutsThem)
{
    std::size_t judged = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        RandomObject made(seed);
        Placed outer, whole;
        placement(made.random, outer);
        placement(made.random, whole);
        Placed half;
        for (int i = 0; i < 3; ++i)
            half.m[i][i] = 0.5;
        CVekDataItem object = tree(made.write(0, 0, outer.by(half).by(whole), ""));
        Map map;
        ASSERT_TRUE(vek_bgr_strong(&object, nullptr, whole.matrix(), 1, nullptr, map));
        ASSERT_EQ(map.len(), static_cast<int>(made.expected.size()));
        for (auto& [key, value] : map) {
            SCOPED_TRACE(narrow(key.second) + " of " + std::to_string(seed));
            expectNear(transformation(key, value, outer.matrix(), 0.5), made.expected.at(narrow(key.second)));
            ++judged;
        }
    }
    EXPECT_GT(judged, 400u);
}

TEST(Elements, ComeInAnOrderThatAddressesDoNotChange)
{
    std::mt19937 random(5);
    std::string first;
    for (int round = 0; round < 20; ++round) {
        std::vector<std::string> names{"a", "b", "c", "B", "ab", "x", "y", "z"};
        std::shuffle(names.begin(), names.end(), random);
        std::string text = "{'BGR': {'one': {'REF': 'd'}, 'in': {'BT': {'n': {}}, 'BGR': {'i': {'REF': 'd'}}}, 'two': "
                           "{'REF': 'd'}}, 'BT': {";
        for (const std::string& name : names)
            text += "'" + name + "': {}, ";
        text += "'7': {}, '#7': {}, 'leaf': 1}, 'DEF': {'d': {'BT': {'" + names[0] + "'" + ": {}}}}}";
        text.replace(text.rfind("'" + names[0]), names[0].size() + 2, "'w'");
        std::vector<CVekDataItem> ballast(random() % 9);
        CVekDataItem object = tree(text);
        const std::string told = namesOf(elementsOf(object));
        EXPECT_EQ(told, "70 B0 a0 ab0 b0 c0 x0 y0 z0 w1 n2 w3 w4 ");
    }
}

TEST(Elements, HaveTheirDataInLayers)
{
    CVekDataItem object = tree(R"({'UNIT': {'@unit': 5},
        'COMMON': {'LAYER': 'common', 'BT': {'MAT': 'alu', 'S': 1.0}, 'ROT': 1.0, 'HIDE': 0},
        'DEF': {'up': {'TYPE': 'EXTR', 'LAYER_H': 'far', 'BT': {'S': 2.0, 'LEN': 10.0, 'DRILL': {'a': {'D': 1.0}}},
                       'ORG': {'@point': [1, 0, 0]}},
                'near': {'REF': 'up', 'BT': {'LEN': 20.0}, 'UNIT': 1}},
        'BT': {'e': {'REF': 'near', 'BT': {'DRILL': {'b': {'D': 2.0}}}},
               'f': {'REF': 'near', 'ZDIR': {'@point': [1, 0, 0]}, 'BT': 5, 'UNIT': 99},
               'g': {'REF': 'none'}, 'h': 1},
        'BGR': {'s': {'BT': {'i': {'REF': 'near'}}}}})");
    CVekDataItem second = tree("{'GEN_STAT': 3, 'OTHER': 4}");
    const auto merged = [&](const CVekDataItem& of, const wchar_t* name) {
        std::string text;
        CVekString error;
        const VEK::CUniqPointer<CVekDataItem> item(
            VEK::bgr_data_merge(const_cast<CVekDataItem*>(&of), name, &second));
        EXPECT_TRUE(item && VEK::jsonWrite(*item, text, L"", error)) << narrow(name);
        CVekDataItem sorted;
        return item ? CVekDataItem(*item) : sorted;
    };
    const auto same = [](const CVekDataItem& a, const CVekDataItem& b, auto& self) -> bool {
        if (a.isDir() != b.isDir() || (a.isDir() && a.getDir()->len() != b.getDir()->len()))
            return false;
        if (!a.isDir()) {
            double x = 0, y = 0;
            CVekString s, t;
            CVekPoint3d p, q;
            return a.get(x) == b.get(y) && a.get(s) == b.get(t) && a.get(p) == b.get(q) && x == y && s == t && p == q;
        }
        for (VEK::CDataIterator child(&a); !child.done(); child.next()) {
            const CVekDataItem* other = b.getItem(child->getKey());
            if (!other || !self(*child.item(), *other, self))
                return false;
        }
        return true;
    };
    const struct {
        const CVekDataItem* of;
        const wchar_t* name;
        const char* expected;
    } kCases[] = {
        {&object, L"e",
         "{'LAYER': 'common', 'LAYER_H': 'far', 'TYPE': 'EXTR', 'HIDE': 0, 'UNIT': 1, 'ORG': {'@point': [1, 0, 0]}, "
         "'GEN_STAT': 3, 'BT': {'MAT': 'alu', 'S': 2.0, 'LEN': 20.0, 'DRILL': {'a': {'D': 1.0}, 'b': {'D': 2.0}}}}"},
        {&object, L"f",
         "{'LAYER': 'common', 'LAYER_H': 'far', 'TYPE': 'EXTR', 'HIDE': 0, 'UNIT': 5, 'ZDIR': {'@point': [1, 0, 0]}, "
         "'GEN_STAT': 3, 'BT': 5}"},
        {&object, L"g",
         "{'LAYER': 'common', 'HIDE': 0, 'UNIT': 5, 'GEN_STAT': 3, 'ROT': 1.0, 'BT': {'MAT': 'alu', 'S': 1.0}}"},
        {object.getItem(L"BGR\\s"), L"i",
         "{'LAYER_H': 'far', 'TYPE': 'EXTR', 'UNIT': 1, 'ORG': {'@point': [1, 0, 0]}, 'GEN_STAT': 3, "
         "'BT': {'S': 2.0, 'LEN': 20.0, 'DRILL': {'a': {'D': 1.0}}}}"},
    };
    for (const auto& one : kCases) {
        const CVekDataItem got = merged(*one.of, one.name);
        std::string text;
        CVekString error;
        VEK::jsonWrite(got, text, L"", error);
        EXPECT_TRUE(same(got, tree(one.expected), same)) << narrow(one.name) << text;
    }
    for (const wchar_t* name : {L"h", L"none", L""})
        EXPECT_EQ(VEK::bgr_data_merge(&object, name, nullptr), nullptr);
    EXPECT_EQ(VEK::bgr_data_merge(nullptr, L"e", nullptr), nullptr);
    Vek::lUnit unit = Vek::unitMile;
    EXPECT_FALSE(VEK::bgr_bt_unit(&object, L"none", unit));
    EXPECT_EQ(unit, Vek::unitMile);
    EXPECT_TRUE(VEK::lobj_unit(object.getItem(L"BGR\\s"), unit));
    EXPECT_EQ(unit, Vek::unitCentimetre);
}

TEST(Elements, AreNotFoundForEverInCircles)
{
    CVekDataItem object = tree(R"({'BT': {'e': {'REF': 'x'}}, 'BGR': {'a': {'REF': 'p'}, 'q': {'REF': 'q'}, 'n': {}},
        'DEF': {'x': {'REF': 'y'}, 'y': {'REF': 'x', 'TYPE': 'EXTR'}, 'q': {'REF': 'q'},
                'p': {'BT': {'e': {}}, 'BGR': {'again': {'REF': 'p'}, 'r': {'REF': 'r'}}},
                'r': {'BT': {'f': {}}, 'BGR': {'back': {'REF': 'p'}}}}})");
    EXPECT_EQ(namesOf(elementsOf(object)), "e0 e1 f2 ");
    const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(&object, L"e", nullptr));
    CVekString type;
    EXPECT_TRUE(VEK::dataGet(merged, L"TYPE", type) && type == L"EXTR");

    // Forty definitions, each twice in the next: a million million elements.
    std::string text = "{'BGR': {'a': {'REF': 'd40'}}, 'DEF': {'d0': {'BT': {'e': {}}}";
    for (int i = 1; i <= 40; ++i) {
        const std::string below = "{'REF': 'd" + std::to_string(i - 1) + "'}";
        text += ", 'd" + std::to_string(i) + "': {'BGR': {'a': " + below + ", 'b': " + below + "}}";
    }
    CVekDataItem doubled = tree(text + "}}");
    Map map = elementsOf(object);
    EXPECT_FALSE(vek_bgr_strong(&doubled, nullptr, CVekMatrix3d(), 1, nullptr, map));
    EXPECT_FALSE(vek_bgr_strong(nullptr, nullptr, CVekMatrix3d(), 1, nullptr, map));
    EXPECT_EQ(map.len(), 3) << "unchanged";
    CVekDataItem leaf;
    EXPECT_TRUE(vek_bgr_strong(&leaf, nullptr, CVekMatrix3d(), 1, nullptr, map));
    EXPECT_EQ(map.len(), 0) << "nothing to draw is no failure";
}

TEST(Elements, AreHiddenByFlagAndStatus)
{
    CVekDataItem object = tree(R"({'COMMON': {'STAT': {'BGR_STAT2': [9]}},
        'BT': {'a': {'STAT': {'GEN_STAT': [1, 2]}}, 'b': {'STAT': {'BGR_STAT': [2]}}, 'c': {'HIDE': true}, 'd': {}},
        'BGR': {'s': {'STAT': {'BGR_STAT': [1]}, 'BT': {'e': {}}}, 't': {'HIDE': 1, 'BT': {'f': {}}}}})");
    const struct {
        const char* second;
        const char* expected;
    } kCases[] = {{"{}", "a0 b0 d0 e1 "},
                  {"1", "a0 b0 d0 e1 "},
                  {"{'GEN_STAT': 1}", "b0 d0 e1 "},
                  {"{'GEN_STAT': 3, 'BGR_STAT': 2}", "a0 d0 e1 "},
                  {"{'BGR_STAT': 1}", "a0 b0 d0 "},
                  {"{'BGR_STAT2': 9}", "e1 "}};
    for (const auto& one : kCases) {
        CVekDataItem second = tree(one.second);
        EXPECT_EQ(namesOf(elementsOf(object, &second)), one.expected) << one.second;
        for (const wchar_t* name : {L"a", L"b", L"c", L"d"}) { // the element itself knows as well
            const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(&object, name, &second));
            const bool shown = std::string(one.expected).find(narrow(name)) != std::string::npos;
            EXPECT_EQ(VEK::checkBt(merged, nullptr), shown) << one.second << narrow(name);
        }
    }
    CVekDataItem leaf;
    EXPECT_FALSE(VEK::checkBt(nullptr, nullptr) || VEK::checkBt(&leaf, nullptr));
}

TEST(Elements, GetTheParametersOfThePicture)
{
    CVekDataItem object = tree(R"({'COMMON': {'PARM': {'COORD': true, 'OWN': 1, 'CMODE': 7}, 'CUT': {'p': {}}},
        'BT': {'a': {'PARM': {'OWN': 2}}}, 'BGR': {'s': {'BT': {'b': {}}, 'ORG': {'@point': [1, 2, 3]}}}})");
    CVekDataItem parameters = tree("{'CMODE': 2, 'ACT': 'a', 'OTHER': 3}");
    VEK::dataSet(&parameters, L"MTX", CVekMatrix3d().setToTranslation({5, 6, 7}));
    Map map = elementsOf(object, nullptr, &parameters);
    ASSERT_EQ(map.len(), 2);
    for (int i = 0; i < 2; ++i) {
        const CVekDataItem* parm = map.valueAt(i).getItem(L"PARM");
        int mode = 0, own = 0;
        bool coord = false;
        CVekString act;
        CVekMatrix3d m, assembly;
        EXPECT_TRUE(VEK::dataGet(parm, L"CMODE", mode) && mode == 2);
        EXPECT_TRUE(VEK::dataGet(parm, L"ACT", act) && act == L"a");
        EXPECT_TRUE(VEK::dataGet(parm, L"MTX", m) && m[1][3] == 6.0);
        EXPECT_EQ(VEK::dataGet(parm, L"COORD", coord) && coord, i == 0);
        EXPECT_EQ(parm->getItem(L"CUT") != nullptr, i == 0);
        EXPECT_EQ(VEK::dataGet(parm, L"OWN", own) ? own : 0, i == 0 ? 2 : 0);
        EXPECT_FALSE(parm->getItem(L"OTHER"));
        EXPECT_EQ(VEK::dataGet(&map.valueAt(i), L"MTX", assembly) ? assembly[2][3] : 0.0, i == 0 ? 0.0 : 3.0);
    }
}

TEST(Elements, LieOnLayersWithColours)
{
    CVekDataItem* layers = VEK::cfg_dir_make(L"*LAYER*");
    *layers = tree("{'STEEL': {'COLOR': {'@color': {'index': 3}}}, 'NO': {'COLOR': 300}, 'ALU': {'COLOR': 5}, "
                   "'MAP': {'ACHSE': 'AXES', 'BAD': 1}}");
    CVekColor color;
    color.setColorIndex(77);
    const std::pair<const wchar_t*, int> kColors[] = {{L"none", 77}, {L"STEEL", 3}, {L"NO", 3}, {L"ALU", 5}, {L"", 5}};
    for (const auto& [name, index] : kColors) {
        EXPECT_EQ(VEK::layer_color(color, name), index == 3 ? name[0] == L'S' : index == 5 && name[0]);
        EXPECT_EQ(color.colorIndex(), index) << narrow(name);
    }
    CVekString layer = L"0";
    EXPECT_FALSE(VEK::phys_layer(layer, L"BAD", nullptr) || VEK::phys_layer(layer, nullptr, L"none"));
    EXPECT_EQ(layer, L"0");
    EXPECT_TRUE(VEK::phys_layer(layer, L"none", L"ACHSE") && layer == L"AXES");

    const char* const kElements[][3] = {{"{}", "0", "0"},
                                        {"{'LAYER': 'A'}", "A", "A"},
                                        {"{'LAYER': '', 'LAYER_H': 'B'}", "0", "B"},
                                        {"{'LAYER': 4, 'LAYER_H': ''}", "0", "0"}};
    CVekString visible, hidden;
    for (const auto& one : kElements) {
        CVekDataItem element = tree(one[0]);
        EXPECT_TRUE(VEK::getBtLayer(&element, visible, hidden));
        EXPECT_EQ(narrow(visible) + narrow(hidden), std::string(one[1]) + one[2]);
    }
    EXPECT_FALSE(VEK::getBtLayer(nullptr, visible, hidden));
    EXPECT_EQ(VEK::msgBoxTitle(nullptr), L"VEK");
    EXPECT_EQ(VEK::msgBoxTitle(L"Holes"), L"VEK - Holes");
}

TEST(Elements, OfAngleSteelAreChecked)
{
    const std::string good = "'B': 60.0, 'H': 40.0, 'S': 5.0, 'R': 6.0, 'LEN': 80.0";
    const auto check = [](const std::string& bt, const std::string& more) {
        const CVekDataItem element = tree("{'BT': {" + bt + "}" + more + "}");
        return vek_bgr_bt_angle_check(&element);
    };
    EXPECT_TRUE(check(good, "") && check(good, ", 'INSUNIT': 4, 'DEFUNIT': 0") && check("'B': 9, 'H': 9, 'S': 1, 'LEN': -1", ""));
    EXPECT_TRUE(check("'B': 60, 'H': 40, 'S': 5", ", 'AXIS': {'@points': [[0, 0, 0], [0, 3, 4]]}"));
    const std::pair<const char*, const char*> kBad[] = {
        {"5.0", "0.0"}, {"5.0", "-5.0"}, {"5.0", "40.0"}, {"60.0", "5.0"}, {"40.0", "-40.0"},      {"80.0", "0.0"},
        {"6.0", "-1.0"}, {"6.0", "36.0"}, {"60.0", "'x'"}, {"80.0", "null"}, {"80.0", "{'@double': 'nan'}"}};
    for (const auto& [from, to] : kBad) {
        std::string bt = good;
        bt.replace(bt.find(from), std::string(from).size(), to);
        EXPECT_FALSE(check(bt, "")) << bt;
    }
    for (const char* units : {", 'INSUNIT': 21", ", 'DEFUNIT': -2", ", 'UNIT': 1000000"})
        EXPECT_FALSE(check(good, units)) << units;
    EXPECT_FALSE(vek_bgr_bt_angle_check(nullptr));
}

TEST(Elements, KeepTheirPlacementInRawRows)
{
    const CVekDataItem item = tree("{'ORG': {'@point': [1, 2, 3]}, 'ROT': 1.5707963267948966, 'SCALE': 2}");
    double rows[4][4] = {};
    EXPECT_FALSE(VEK::g_mtx_local(nullptr, rows, Vek::unitNone, Vek::unitCurrent));
    EXPECT_EQ(rows[3][3], 0.0);
    const double expected[3][4] = {{0, -2, 0, 25.4}, {2, 0, 0, 50.8}, {0, 0, 2, 76.2}};
    EXPECT_TRUE(VEK::g_mtx_local(&item, rows, Vek::unitInch, Vek::unitMillimetre));
    for (int i = 0; i < 12; ++i)
        EXPECT_NEAR(rows[i / 4][i % 4], expected[i / 4][i % 4], 1e-12);
    EXPECT_EQ(rows[3][3], 1.0);
    EXPECT_TRUE(VEK::g_mtx_local(&item, rows, Vek::unitNone, Vek::unitCurrent));
    EXPECT_EQ(rows[2][3], 3.0);
    expectNear(VEK::g_mtx_local(nullptr), CVekMatrix3d());
}

TEST(Elements, DeriveTheRegionOfTheirOutline)
{
    CVekDataItem element = tree("{'UNIT': 5, 'BT': {'OUTLINE': {'CODE': 2, 'UNIT': {'@unit': 4}, 'PARMS': {'#1': 100.0, "
                                "'#2': 50.0}}, 'INNER': {'a': {'CODE': 1, 'PARMS': {'#1': 2.0}}, 'b': 4}}}");
    VEK::VertexArrays region;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(VEK::objGen(&element, 0));
        ASSERT_TRUE(VEK::dataGet(&element, L"BT\\*REGION*", region));
        ASSERT_EQ(region.len(), 2);
        CVekPoint3d low, high;
        region[i % 2].extents(low, high);
        EXPECT_NEAR(high.x - low.x, i % 2 ? 2.0 : 10.0, 1e-12);
    }
    VEK::dataSet(&element, L"BT\\OUTLINE\\CODE", -5);
    EXPECT_FALSE(VEK::objGen(&element, 0));
    EXPECT_FALSE(element.getItem(L"BT\\*REGION*")) << "nothing old is left";
    element.remove(L"BT");
    EXPECT_TRUE(VEK::objGen(&element, 0));
    CVekDataItem leaf;
    EXPECT_FALSE(VEK::objGen(&leaf, 0) || VEK::objGen(nullptr, 0));
}

} // namespace
