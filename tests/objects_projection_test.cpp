#include "objects_data.h"

#include <vek/data/iterator.h>
#include <vek/geometry/view.h>

#include <fstream>
#include <functional>
#include <map>
#include <numbers>
#include <vector>

namespace
{

using namespace objects_test;
using std::numbers::pi;
using Lines = CVekArrayTempl<CVekVertexArrayEx>;

constexpr double kTolerance = 1e-6;

CVekMatrix3d viewOf(const wchar_t* name)
{
    return VEK::g_mtx_view_dir(name, CVekPoint3d::kOrigin).inverse();
}

double lengthOf(const Lines& lines, int element = -1)
{
    double length = 0.0;
    for (const CVekVertexArrayEx& line : lines) {
        for (const CVekVertex& vertex : line)
            length += element < 0 || line.element == element ? vertex.bulgLen() : 0.0;
    }
    return length;
}

/// The lines of an element in a view, as its image gets them.
struct Picture {
    bool good;
    Lines visible, hidden;
    CVekArrayTempl<VEK::CSharedPointer<CVekDataItem>> shared;

    Picture(const CVekDataItem& element, const wchar_t* view, const CVekMatrix3d& mtx = CVekMatrix3d(),
            const CVekDataItem* parameters = nullptr)
    {
        good = VEK::getProjectedGeometry(&element, mtx, viewOf(view), parameters, visible, hidden, shared);
        EXPECT_EQ(shared.len(), 0);
    }
};

/// The JSON examples of the documentation that are elements, and those that are objects.
std::vector<std::string> examples()
{
    std::ifstream file(VEK_SOURCE_DIR "/docs/objects.md");
    std::vector<std::string> found;
    std::string line;
    for (bool inside = false; std::getline(file, line);) {
        if (line.rfind("```", 0) == 0) {
            inside = line == "```json";
            if (inside)
                found.emplace_back();
        } else if (inside) {
            found.back() += line;
        }
    }
    for (std::string& text : found)
        text = text[0] == '{' ? text : "{" + text + "}";
    return found;
}

TEST(Views, AreSquareToTheAxesOfAnElementOrNot)
{
    std::mt19937 random(3);
    int along = 0, aside = 0;
    for (int round = 0; round < 3000; ++round) {
        Placed place;
        placement(random, place);
        CVekMatrix3d mtx = place.matrix();
        CVekMatrix3d view;
        const int axis = static_cast<int>(random() % 3);
        const bool aligned = random() % 2;
        CVekVector3d direction = aligned ? mtx.axis(axis) * (random() % 2 ? 1.0 : -1.0) : vector(random, 1.0);
        view = VEK::g_mtx_view(direction, vector(random, 9.0).asPoint(), false);
        double nearest = 0.0; // the greatest cosine
        for (int i = 0; i < 3; ++i) {
            const CVekVector3d a = mtx.axis(i).normalize();
            nearest = std::max(nearest, std::fabs(a.dot(direction.normalize())));
        }
        ASSERT_EQ(VEK::isViewDirOrtho(mtx, view), nearest > 1.0 - 1e-12);
        CVekDataItem bt(CVekDataItem::directory);
        CVekMatrix3d host;
        host[0][0] = 77.0;
        const bool seen = std::fabs(mtx.axis(2).normalize().dot(direction)) > 1.0 - 1e-12;
        ASSERT_EQ(VEK::isBtOrthoView(&bt, mtx, view, &bt, host), seen);
        if (!seen) {
            ASSERT_EQ(host[0][0], 77.0);
            ++aside;
            continue;
        }
        const CVekPoint3d point(uniform(random, -9, 9), uniform(random, -9, 9), 0.0);
        const CVekPoint3d plain = VEK::getBtBasePoint(mtx, view, point);
        ASSERT_NEAR((point * host).distanceTo(plain), 0.0, 1e-9);
        ASSERT_NE(host.inverse(), CVekMatrix3d()) << "the host may need the way back";
        ++along;
    }
    EXPECT_GT(along, 300);
    EXPECT_GT(aside, 1000);
    CVekDataItem leaf;
    CVekMatrix3d host, none;
    none.setToScaling(0.0, CVekPoint3d::kOrigin);
    EXPECT_FALSE(VEK::isBtOrthoView(&leaf, CVekMatrix3d(), CVekMatrix3d(), &leaf, host));
    EXPECT_FALSE(VEK::isBtOrthoView(nullptr, CVekMatrix3d(), CVekMatrix3d(), nullptr, host));
    EXPECT_FALSE(VEK::isViewDirOrtho(none, CVekMatrix3d()));
    VEK::NormView view = VEK::normViewNone;
    const CVekDataItem stored = tree("{'VIEW': 3, 'BAD': 'x'}");
    EXPECT_FALSE(VEK::dataGet(&stored, L"BAD", view));
    EXPECT_TRUE(VEK::dataGet(&stored, L"VIEW", view) && view == VEK::normView3d);
}

TEST(Drills, AreListedWithOneElementForAllTheirHoles)
{
    const CVekDataItem element = tree(R"({'LAYER': 'L', 'BT': {'S': 3.0, 'DRILL': {
        'rows': {'D': 5.0, 'ORG': {'@point': [10, 20, 0]}, 'N': [3, 2], 'STEP': {'@points': [[15, 0, 0], [0, 0, 40]]}},
        'bad': {'D': 0.0}, 'none': {'D': 1.0, 'N': 0}, 'many': {'D': 1.0, 'N': [100000, 100000]}, 'leaf': 1,
        'row': {'D': 6.0, 'LAYER': 'M', 'N': 100000, 'STEP': {'@point': [0, 0, 1]}, 'ZDIR': {'@point': [0, -1, 0]}}}}})");
    std::mt19937 random(8);
    Placed place;
    placement(random, place);
    DrillList drills;
    for (const auto list : {VEK::getExtrDrillData, VEK::getAngleDrillData}) {
        ASSERT_TRUE(list(drills, &element, element.getItem(L"BT"), nullptr, place.matrix(), CVekMatrix3d()));
        ASSERT_EQ(drills.len(), 6 + 100000);
        for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 50000, 100005}) {
            const auto& [item, m] = drills[i];
            EXPECT_EQ(static_cast<CVekDataItem*>(item), static_cast<CVekDataItem*>(drills[i < 6 ? 0 : 6].first));
            const CVekPoint3d at = i < 6 ? CVekPoint3d(10.0 + 15.0 * (i % 3), 20.0, 40.0 * (i / 3)) : CVekPoint3d(0, 0, i - 6);
            EXPECT_NEAR((CVekPoint3d() * m).distanceTo(at * place.matrix()), 0.0, 1e-7) << i;
            CVekString type, layer;
            double length = 0.0;
            EXPECT_TRUE(VEK::dataGet(item, L"TYPE", type) && type == L"DRILL");
            EXPECT_TRUE(VEK::dataGet(item, L"BT\\LAYER", layer) && layer == (i < 6 ? L"L" : L"M"));
            EXPECT_TRUE(VEK::dataGet(item, L"BT\\LEN", length) && length == 3.0);
            EXPECT_FALSE(item->getItem(L"BT\\N") || item->getItem(L"BT\\ZDIR"));
        }
    }
    EXPECT_NE(static_cast<CVekDataItem*>(drills[0].first), static_cast<CVekDataItem*>(drills[6].first));
    EXPECT_FALSE(VEK::getExtrDrillData(drills, &element, nullptr, nullptr, place.matrix(), CVekMatrix3d()));
    EXPECT_EQ(drills.len(), 0);

    // A tray of three planes: in each, 5 along the line and 7 along the fold, drilled into the sheet.
    const CVekDataItem tray = tree(R"({'BT': {'S': 1.0, 'R': 1.0, 'LEN': 100.0,
        'VL': {'@polyline': [[0, 30, 0, 0, 0, 0, 0], [0, 0, 0, 80, 0, 0, 0], [80, 0, 0, 80, 30, 0, 0]]},
        'DRILL': {'1': {'D': 1.0, 'PLANE': 1, 'ORG': {'@point': [5, 7, 0]}}, '2': {'D': 1.0, 'PLANE': 2, 'ORG': {'@point': [5, 7, 0]}},
        '3': {'D': 1.0, 'PLANE': 3, 'ORG': {'@point': [5, 7, 0]}, 'N': 2, 'STEP': {'@point': [3, 0, 0]}}, '4': {'D': 1.0, 'PLANE': 4}}}})");
    ASSERT_TRUE(VEK::getEdgeNDrillData(drills, &tray, nullptr, CVekMatrix3d(), CVekMatrix3d()));
    const CVekPoint3d at[] = {{0, 25, 7}, {5, 0, 7}, {80, 5, 7}, {80, 8, 7}, {0, 0, 0}};
    const CVekVector3d into[] = {{-1, 0, 0}, {0, -1, 0}, {1, 0, 0}, {1, 0, 0}, {0, 0, 1}};
    ASSERT_EQ(drills.len(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_NEAR((CVekPoint3d() * drills[i].second).distanceTo(at[i]), 0.0, 1e-12) << i;
        EXPECT_EQ(drills[i].second.axis(2), into[i]) << i;
    }
    const CVekDataItem edge = tree(R"({'BT': {'S': 1.0, 'A': 30.0, 'B': 20.0, 'ANG': 0.0,
        'DRILL': {'1': {'D': 1.0, 'PLANE': 2, 'ORG': {'@point': [5, 7, 0]}}}}})");
    ASSERT_TRUE(VEK::getEdgeDrillData(drills, &edge, nullptr, CVekMatrix3d(), CVekMatrix3d()));
    EXPECT_NEAR((CVekPoint3d() * drills[0].second).distanceTo({-5, 0, 7}), 0.0, 1e-12);
}

TEST(Shapes, OfEveryTypeHaveTheSizeOfTheirData)
{
    const std::string box = "'OUTLINE': {'CODE': 2, 'PARMS': {'#1': 50.0, '#2': 120.0}}";
    const struct {
        std::string element;
        double low[3], high[3];
        double plan; ///< length of the visible lines seen from above; 0 if they are chords
    } kCases[] = {
        {"{'TYPE': 'EXTR', 'BT': {" + box + ", 'LEN': 3000.0}}", {-25, -60, 0}, {25, 60, 3000}, 340},
        {"{'TYPE': 'EXTR', 'BT': {" + box + ", 'LEN': -30}}", {-25, -60, -30}, {25, 60, 0}, 340},
        {"{'TYPE': 'EXTR', 'AXIS': {'@points': [[0, 0, 0], [0, 3, 4]]}, 'BT': {" + box + "}}", {-25, -60, 0}, {25, 60, 5}, 340},
        {"{'TYPE': 'EXTR', 'BT': {" + box + ", 'INNER': {'a': {'CODE': 2, 'PARMS': {'#1': 40, '#2': 100}}}, 'LEN': 9}}",
         {-25, -60, 0}, {25, 60, 9}, 340 + 280},
        // The end rises by 1 for each x: 25 up on one side, and the start sinks by 2 for each y.
        {"{'TYPE': 'EXTR', 'BT': {" + box + ", 'LEN': 500.0, 'MITRE': {'E': 0.7853981633974483, 'SV': -1.1071487177940904}}}",
         {-25, -60, -120}, {25, 60, 525}, 340},
        {"{'TYPE': 'ANGLE', 'BT': {'B': 60.0, 'H': 40.0, 'S': 5.0, 'LEN': 80.0}}", {0, 0, 0}, {60, 40, 80}, 200},
        {"{'TYPE': 'SHEET', 'BT': {" + box + ", 'S': 2.0}}", {-25, -60, 0}, {25, 60, 2}, 340},
        {"{'TYPE': 'SHEET', 'SCONS': 'EDGE', 'BT': {'S': 2.0, 'A': 60.0, 'B': 40.0, 'LEN': 500.0}}",
         {0, 0, 0}, {60, 40, 500}, 200},
        // The sheet lies on the right of its line, here above it.
        {"{'TYPE': 'SHEET', 'SCONS': 'EDGE', 'BT': {'S': 2.0, 'R': 3.0, 'A': 60.0, 'B': 40.0, 'LEN': 500.0}}",
         {0, 0, 0}, {60, 40, 500}, 2 * 55 + 2 * 35 + 4 + pi / 2 * (5 + 3)},
        {"{'TYPE': 'SHEET', 'SCONS': 'EDGE_N', 'BT': {'S': 2.0, 'R': 1.0, 'LEN': 10.0, 'VL': {'@polyline': "
         "[[0, 30, 0, 0, 0, 0, 0], [0, 0, 0, 80, 0, 0, 0], [80, 0, 0, 80, 30, 0, 0]]}}}",
         {-2, -2, 0}, {82, 30, 10}, 2 * 29 + 78 + 2 * 29 + 78 + 4 + 2 * pi / 2 * (1 + 3)},
        {"{'TYPE': 'ROT', 'BT': {'REGION': {'@polylines': [[[0, 0, 0, 20, 0, 0, 0], [20, 0, 0, 20, 50, 0, 0], "
         "[20, 50, 0, 0, 50, 0, 0], [0, 50, 0, 0, 0, 0, 0]]]}}}", {-20, -20, 0}, {20, 20, 50}, 40 * pi},
        {"{'TYPE': 'PATH', 'BT': {'OUTLINE': {'CODE': 3, 'PARMS': {'#1': 10.0}}, 'VL': {'@polyline': "
         "[[0, 0, 0, 100, 0, 0, 0], [100, 0, 0, 100, 80, 0, 0]]}}}", {0, -5, -5}, {105, 80, 5},
         105 + 85 + 95 + 75 + 10 + 10 + 10 * std::numbers::sqrt2},
        {"{'TYPE': 'COMPOUND', 'BT': {'SUB': {'a': {'TYPE': 'SHEET', 'BT': {" + box + ", 'S': 2}}, 'b': {'TYPE': 'DIN', 'ORG': "
         "{'@point': [0, 0, 2]}, 'BT': {'DIN': '976', 'D': 10.0, 'L': 40.0}}}}}", {-25, -60, 0}, {25, 60, 42}, 340 + 10 * pi},
        {"{'TYPE': 'DRILL', 'BT': {'D': 9.0, 'DEPTH': 30.0}}", {-4.5, -4.5, 0}, {4.5, 4.5, 30}, 9 * pi},
        {"{'TYPE': 'DRILL', 'BT': {'D': 8.0, 'LEN': 30.0, 'DK': 16.0, 'TK': 5.0}}", {-8, -8, 0}, {8, 8, 30}, 0},
        {"{'TYPE': 'MRA_NM', 'BT': {'DIN': 'DIN 933', 'D': 10.0, 'L': 40.0}}",
         {-17 / std::sqrt(3.0), -8.5, -6.4}, {17 / std::sqrt(3.0), 8.5, 40}, 10 * pi + 17 * 2 * std::sqrt(3.0)},
        {"{'TYPE': 'MRA_NM', 'UNIT': 5, 'BT': {'DIN': '4762', 'D': 0.6, 'L': 4.0}}", {-0.5, -0.5, -0.6}, {0.5, 0.5, 4}, 1.6 * pi},
        {"{'TYPE': 'MRA_NM', 'BT': {'DIN': 'DIN 7991', 'D': 8.0, 'L': 30.0}}", {-8, -8, 0}, {8, 8, 30}, 0},
        {"{'TYPE': 'MRA_NM', 'BT': {'DIN': '7337', 'D': 4.0, 'L': 8.0}}", {-4, -4, -1}, {4, 4, 8}, 12 * pi},
        {"{'TYPE': 'MRA_NM', 'BT': {'DIN': 'ISO 4032', 'D': 12.0}}",
         {-19 / std::sqrt(3.0), -9.5, -10}, {19 / std::sqrt(3.0), 9.5, 0}, 12 * pi + 19 * 2 * std::sqrt(3.0)},
        {"{'TYPE': 'MRA_NM', 'BT': {'DIN': 'DIN 125 A', 'D': 14.0}}", {-13.5, -13.5, -2.75}, {13.5, 13.5, 0}, 42 * pi},
        {"{'TYPE': 'SCORD', 'BT': {'a': {'BT': {'TYPE': 'DIN', 'DIN': '976', 'D': 10.0, 'L': 40.0}, 'MTX': {'@matrix': "
         "[[1, 0, 0, 25], [0, 1, 0, 0], [0, 0, 1, 7], [0, 0, 0, 1]]}}, 'b': {'BT': {'TYPE': 'DRILL', 'D': 99.0}}}}",
         {20, -5, 7}, {30, 5, 47}, 10 * pi},
    };
    std::mt19937 random(4);
    for (const auto& one : kCases) {
        SCOPED_TRACE(one.element);
        CVekDataItem element = tree(one.element);
        CVek_Solid solid;
        ASSERT_TRUE(VEK::objModel(solid, &element));
        CVekPoint3d low, high;
        ASSERT_TRUE(solid.extents(low, high));
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(low[i], one.low[i], kTolerance) << i;
            EXPECT_NEAR(high[i], one.high[i], kTolerance) << i;
        }
        Picture picture(element, L"P");
        EXPECT_TRUE(picture.good);
        EXPECT_NEAR(one.plan > 0.0 ? lengthOf(picture.visible) : 0.0, one.plan, 0.002 * one.plan);
        for (const CVekVertexArrayEx& line : picture.visible) {
            EXPECT_EQ(line.element, 0);
            EXPECT_EQ(line.kind == VekLineKind::hole, one.element.find("'TYPE': 'DRILL', 'BT'") == 1);
        }
        // Derived data, a mirror and a scale change nothing but what they should.
        VEK::objGen(&element, 0);
        CVekMatrix3d mirror;
        mirror[0][0] = -2.0;
        mirror[1][1] = mirror[2][2] = 2.0;
        const Picture mirrored(element, L"P", CVekMatrix3d().setToTranslation(vector(random, 900.0)) * mirror);
        EXPECT_NEAR(lengthOf(mirrored.visible), 2.0 * lengthOf(picture.visible), 1e-3 * lengthOf(picture.visible));
        const CVekMatrix3d flat = CVekMatrix3d().setToScaling(0.0, CVekPoint3d::kOrigin);
        EXPECT_FALSE(Picture(element, L"P", flat).good) << "nothing has no picture";
    }
}

TEST(Shapes, AreCutDrilledAndDrawnAsLines)
{
    const CVekDataItem bar = tree(R"({'TYPE': 'EXTR', 'BT': {'OUTLINE': {'CODE': 3, 'PARMS': {'#1': 20.0}}, 'LEN': 100.0,
        'DRILL': {'a': {'D': 8.0, 'ORG': {'@point': [0, 10, 50]}, 'ZDIR': {'@point': [0, -1, 0]}}}}})");
    const CVekDataItem cuts = tree(R"({'CUT': {'a': {'PT': {'@point': [0, 0, 90]}, 'N': {'@point': [0, 0, 2]}},
        'b': {'PT': {'@point': [0, 0, 95]}, 'N': {'@point': [1, 0, 1]}}, 'c': {'PT': {'@point': [0, 0, 5]},
        'N': {'@point': [0, 0, -1]}}, 'd': {'PT': {'@point': [0, 0, 9]}, 'N': {'@point': [1, 0, 0]}}, 'e': {'N': 1}}})");
    EXPECT_NEAR(lengthOf(Picture(bar, L"N").visible), 240 + 8 * pi, kTolerance);
    const CVekDataItem noDrill = tree("{'NO_DRILL': 1}");
    EXPECT_NEAR(lengthOf(Picture(bar, L"N", CVekMatrix3d(), &noDrill).visible), 240, kTolerance);
    EXPECT_NEAR(lengthOf(Picture(bar, L"N", CVekMatrix3d(), &cuts).visible), 2 * (20 + 85) + 8 * pi, kTolerance);

    const CVekDataItem hatch = tree(R"({'TYPE': 'HATCH', 'UNIT': 4, 'BT': {'VLL': {'@polylines':
        [[[0, 0, 0, 3, 4, 0, 0]], [[5, 0, 0, 5, 0, 12, 0], [5, 0, 0, 7, 0, 0, 1]]]}}})");
    const Picture plan(hatch, L"P"), front(hatch, L"S", CVekMatrix3d().setToScaling(2.0, CVekPoint3d::kOrigin));
    EXPECT_TRUE(plan.good && plan.visible.len() == 2 && plan.hidden.len() == 0);
    EXPECT_NEAR(lengthOf(plan.visible), 5 + pi, kTolerance);
    EXPECT_NEAR(lengthOf(front.visible), 2 * (3 + 12 + 2), 0.01) << "the half circle is seen on its edge";
    CVek_Solid solid;
    EXPECT_FALSE(VEK::objModel(solid, &hatch) || VEK::objModel(solid, nullptr));

    std::string nested = "{'TYPE': 'HATCH', 'BT': {'VL': {'@polyline': [[0, 0, 0, 1, 0, 0, 0]]}}}";
    for (int depth = 1; depth < 12; ++depth) {
        nested = "{'TYPE': 'COMPOUND', 'ORG': {'@point': [1, 0, 0]}, 'BT': {'SUB': {'a': " + nested + "}}}";
        EXPECT_EQ(Picture(tree(nested), L"P").good, depth <= 8) << depth;
    }
}

TEST(Shapes, OfTheExamplesAreAllDrawn)
{
    int drawn = 0;
    for (const std::string& text : examples()) {
        CVekDataItem item = tree(text);
        if (item.getItem(L"TYPE")) {
            CVekString type;
            VEK::dataGet(&item, L"TYPE", type);
            EXPECT_TRUE(type == L"SLICE" || !item.getItem(L"BT\\LEN") || Picture(item, L"NO").good || text.size() < 100) << text;
            drawn += Picture(item, L"NO").good;
        } else if (item.getItem(L"BT")) {
            CVek_Solid solid;
            bool hasSolid = false;
            EXPECT_TRUE(VEK::bgr_slx_bgr(solid, hasSolid, &item, nullptr, CVekMatrix3d(), nullptr, false, true));
            EXPECT_TRUE(hasSolid);
            EXPECT_EQ(solid.bodies(), 3);
        }
    }
    EXPECT_EQ(drawn, 12);
}

TEST(Assemblies, AreTheSameAsTheirElements)
{
    std::mt19937 random(12);
    const std::vector<std::string> texts = examples();
    int judged = 0;
    for (int round = 0; round < 8; ++round) {
        std::string bt, inner;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (texts[i].find("\"TYPE\"") != 1)
                continue;
            Placed a, b;
            const std::string name = "'" + std::to_string(i);
            const std::string rest = random() % 3 ? "" : ", 'UNIT': 5";
            bt += name + "': {'REF': 'd" + std::to_string(i) + "', 'SCALE': 1, " + placement(random, a) + rest + "}, ";
            inner += (inner.empty() ? "" : ", ") + ("'d" + std::to_string(i) + "': ") + texts[i];
        }
        std::string text = "{'UNIT': 4, 'BT': {" + bt + "'last': {'REF': 'd1', 'BT': {'LEN': 5.0}}}, 'DEF': {" + inner +
                           ", 'o': {'UNIT': 1, 'BT': {" + bt + "'z': {}}}}, 'BGR': {'x': {'REF': 'o'}, 'y': {'REF': 'o', " +
                           "'ORG': {'@point': [4000, 0, 0]}, 'SCALE': {'@point': [-1, 1, 1]}}}}";
        for (std::size_t at; (at = text.find("'SCALE': 1, ")) != std::string::npos;)
            text.erase(at, 12);
        CVekDataItem object = tree(text);
        CVekMapTempl<BgrBt, CVekDataItem> map;
        ASSERT_TRUE(vek_bgr_strong(&object, nullptr, CVekMatrix3d(), 1, nullptr, map));
        CVek_Solid solid;
        bool hasSolid = false;
        ASSERT_TRUE(VEK::bgr_slx_bgr(solid, hasSolid, &object, nullptr, CVekMatrix3d(), nullptr, false, true));
        Lines visible, hidden;
        ASSERT_TRUE(hasSolid && solid.solid() && solid.project(viewOf(L"NO"), false, visible, hidden, 1));
        for (int i = 0; i < map.len(); ++i) {
            const BgrBt& key = map.keyAt(i);
            const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(key.first, key.second, nullptr));
            Vek::lUnit units[2] = {};
            VEK::lobj_unit(key.first, units[0]);
            VEK::bgr_bt_unit(key.first, key.second, units[1]);
            VEK::dataSet(&map.valueAt(i), L"PARM\\DEFUNIT", units[0]);
            VEK::dataSet(&map.valueAt(i), L"PARM\\INSUNIT", units[1]);
            double aux = 0.0;
            const CVekMatrix3d m = VEK::getBtTransformation(merged, &map.valueAt(i), CVekMatrix3d(), 1.0, aux);
            const Picture picture(*merged, L"NO", m, map.valueAt(i).getItem(L"PARM"));
            CVekString type;
            VEK::dataGet(merged, L"TYPE", type);
            if (!picture.good || type == L"DRILL" || type == L"HATCH") {
                EXPECT_EQ(lengthOf(visible, i), 0.0) << "no body of the assembly";
                continue;
            }
            if (type == L"PATH" || type == L"COMPOUND")
                continue; // lines that several bodies of one element share are drawn once there, twice here
            const double alone = lengthOf(picture.visible) + lengthOf(picture.hidden);
            EXPECT_NEAR(lengthOf(visible, i) + lengthOf(hidden, i), alone, 1e-3 * alone) << i;
            ++judged;
        }
    }
    EXPECT_GT(judged, 150);
}

/// Calls `spoil` for the item and everything below it, each with a fresh copy.
void forEachItem(const CVekDataItem& item, const CVekDataKey& path, const std::function<void(const CVekDataKey&)>& found)
{
    for (VEK::CDataIterator child(&item); !child.done(); child.next()) {
        CVekDataKey key(path);
        key.append(*child->getKey());
        found(key);
        forEachItem(*child.item(), key, found);
    }
}

TEST(Assemblies, SurviveSpoiltData)
{
    const std::vector<std::string> spoils = {"null", "'text'", "{'@double': 'nan'}", "1e300", "0", "-1", "{}",
                                             "{'TYPE': 'EXTR', 'REF': 'x', 'BT': {}}", "{'@point': [0, 0, 0]}"};
    std::vector<std::string> texts = examples();
    texts.push_back(R"({"TYPE": "EXTR", 'UNIT': 5, 'XDIR': {'@point': [1, 1, 0]}, 'AXIS': {'@points': [[0, 0, 0], [0, 3, 4]]},
        'ROT': 1.0, 'SCALE': 2, 'LAYER': 'A', 'STAT': {'GEN_STAT': [1]}, 'HIDE': 0, 'PARM': {'CUT': {}}, 'REF': 'x',
        'CUT': {'a': {'PT': {'@point': [0, 0, 90]}, 'N': {'@point': [0, 0, 2]}}}, 'BT': {'MITRE': {'S': 0.1, 'SV': 0.1},
        'OUTLINE': {'CODE': 3, 'PARMS': {'#1': 20.0}, 'UNIT': 4}, 'INNER': {'a': {'CODE': 3, 'PARMS': {'#1': 9.0}}},
        'DRILL': {'a': {'D': 1.0, 'N': [3, 2], 'STEP': {'@points': [[1, 0, 0], [0, 0, 1]]}, 'DK': 2.0, 'TK': 0.5}}}})");
    int judged = 0;
    for (const std::string& text : texts) {
        if (text.find("\"TYPE\"") != 1)
            continue;
        const CVekDataItem sound = tree("{'DEF': {'x': {'REF': 'x'}}, 'BT': {'e': " + text +
                                        ", 'good': {'TYPE': 'EXTR', 'ORG': {'@point': [-9999, 0, 0]}, 'BT': {'OUTLINE': {'CODE': 3, 'PARMS': {'#1': 9}}, "
                                        "'LEN': 9.0}}}}");
        const CVekDataKey at(5005, L"BT", 5005, L"e", 0);
        forEachItem(*sound.getItem(&at), at, [&](const CVekDataKey& path) {
            for (std::size_t i = 0; i <= spoils.size(); ++i) {
                CVekDataItem object(sound);
                if (i < spoils.size())
                    *object.getItem(&path) = tree(spoils[i]);
                else
                    object.getDir()->remove(&path);
                const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(&object, L"e", nullptr));
                DrillList drills;
                for (const auto list : {VEK::getEdgeDrillData, VEK::getEdgeNDrillData})
                    list(drills, merged, nullptr, CVekMatrix3d(), CVekMatrix3d());
                VEK::getExtrDrillData(drills, merged, merged ? merged->getItem(L"BT") : nullptr, nullptr, CVekMatrix3d(), CVekMatrix3d());
                VEK::objGen(merged, 0);
                vek_bgr_bt_angle_check(merged);
                Lines visible, hidden;
                CVekArrayTempl<VEK::CSharedPointer<CVekDataItem>> shared;
                VEK::getProjectedGeometry(merged, VEK::g_mtx_local(merged), viewOf(L"SW"), nullptr, visible, hidden, shared);
                CVek_Solid solid;
                bool hasSolid = false;
                ASSERT_TRUE(VEK::bgr_slx_bgr(solid, hasSolid, &object, nullptr, CVekMatrix3d(), nullptr, false, true));
                ASSERT_TRUE(solid.project(viewOf(L"NO"), true, visible, hidden, 1));
                ASSERT_GT(lengthOf(visible, 1) + lengthOf(hidden, 1), 20.0) << "the rest is drawn";
                ++judged;
            }
        });
    }
    EXPECT_GT(judged, 1500);
}

} // namespace
