#include "objects_data.h"

#include <vek/geometry/view.h>

#include <algorithm>
#include <fstream>
#include <numbers>
#include <vector>

namespace
{

using namespace objects_test;
using std::numbers::pi;
using Lines = CVekArrayTempl<CVekVertexArrayEx>;

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
        CVekDataItem bt(CVekDataItem::directory);
        CVekMatrix3d mtx = place(bt, random);
        for (int row = 0; row < 3 && round % 4 == 0; ++row)
            mtx[row][0] += 0.7 * mtx[row][2]; // sheared
        CVekVector3d direction = random() % 2 ? mtx.axis(static_cast<int>(random() % 3)) * -1.0 : vector(random, 1.0);
        const CVekMatrix3d view = VEK::g_mtx_view(direction, vector(random, 9.0).asPoint(), false);
        direction.normalize();
        double cosine[3];
        for (int i = 0; i < 3; ++i)
            cosine[i] = std::fabs(mtx.axis(i).normalize().dot(direction));
        ASSERT_EQ(VEK::isViewDirOrtho(mtx, view), *std::max_element(cosine, cosine + 3) > 1.0 - 1e-12);
        CVekMatrix3d host;
        const bool seen = VEK::isBtOrthoView(&bt, mtx, view, &bt, host);
        ASSERT_EQ(seen, cosine[2] > 1.0 - 1e-12);
        const CVekPoint3d point(uniform(random, -9, 9), uniform(random, -9, 9), 0.0);
        ASSERT_NEAR((point * host).distanceTo(seen ? VEK::getBtBasePoint(mtx, view, point) : point), 0.0, 1e-9);
        ASSERT_NE(host.determinant(), 0.0) << "the host may need the way back";
        ++(seen ? along : aside);
    }
    EXPECT_GT(along, 300);
    EXPECT_GT(aside, 1000);
    CVekDataItem leaf;
    CVekMatrix3d host;
    EXPECT_FALSE(VEK::isBtOrthoView(&leaf, CVekMatrix3d(), CVekMatrix3d(), &leaf, host));
    EXPECT_FALSE(VEK::isBtOrthoView(nullptr, CVekMatrix3d(), CVekMatrix3d(), nullptr, host));
    EXPECT_FALSE(VEK::isViewDirOrtho(CVekMatrix3d().setToScaling(0.0, CVekPoint3d::kOrigin), CVekMatrix3d()));
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
    CVekDataItem scratch;
    const CVekMatrix3d mtx = place(scratch, random);
    DrillList drills;
    for (const auto list : {VEK::getExtrDrillData, VEK::getAngleDrillData}) {
        ASSERT_TRUE(list(drills, &element, element.getItem(L"BT"), nullptr, mtx, CVekMatrix3d()));
        ASSERT_EQ(drills.len(), 6 + 100000);
        for (const int i : {0, 1, 2, 3, 4, 5, 6, 7, 50000, 100005}) {
            const auto& [item, m] = drills[i];
            EXPECT_EQ(static_cast<CVekDataItem*>(item), static_cast<CVekDataItem*>(drills[i < 6 ? 0 : 6].first));
            const CVekPoint3d at =
                i < 6 ? CVekPoint3d(10.0 + 15.0 * (i % 3), 20.0, 40.0 * (i / 3)) : CVekPoint3d(0, 0, i - 6);
            EXPECT_NEAR((CVekPoint3d() * m).distanceTo(at * mtx), 0.0, 1e-7) << i;
            CVekString type, layer;
            double length = 0.0;
            EXPECT_TRUE(VEK::dataGet(item, L"TYPE", type) && type == L"DRILL");
            EXPECT_TRUE(VEK::dataGet(item, L"BT\\LAYER", layer) && layer == (i < 6 ? L"L" : L"M"));
            EXPECT_TRUE(VEK::dataGet(item, L"BT\\LEN", length) && length == 3.0);
            EXPECT_FALSE(item->getItem(L"BT\\N") || item->getItem(L"BT\\ZDIR"));
        }
    }
    EXPECT_NE(static_cast<CVekDataItem*>(drills[0].first), static_cast<CVekDataItem*>(drills[6].first));
    EXPECT_FALSE(VEK::getExtrDrillData(drills, &element, nullptr, nullptr, mtx, CVekMatrix3d()));
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
    const double r3 = std::sqrt(3.0);
    const struct {
        std::string type, bt; ///< BOX stands for a rectangle of 50 x 120, NM for a standard part
        double size[7];       ///< two corners, and the length of the visible lines from above, 0 where they are chords
    } kCases[] = {
        {"EXTR", "BOX, 'LEN': 3000.0", {-25, -60, 0, 25, 60, 3000, 340}},
        {"EXTR", "BOX, 'LEN': -30", {-25, -60, -30, 25, 60, 0, 340}},
        {"EXTR', 'AXIS': {'@points': [[0, 0, 0], [0, 3, 4]]}, 'X': '", "BOX", {-25, -60, 0, 25, 60, 5, 340}},
        {"EXTR", "BOX, 'INNER': {'a': {'CODE': 3, 'PARMS': {'#1': 40}}}, 'LEN': 9", {-25, -60, 0, 25, 60, 9, 500}},
        // The end rises by 1 for each x: 25 up on one side, and the start sinks by 2 for each y.
        {"EXTR",
         "BOX, 'LEN': 500, 'MITRE': {'E': 0.7853981633974483, 'SV': -1.1071487177940904}",
         {-25, -60, -120, 25, 60, 525, 340}},
        {"ANGLE", "'B': 60.0, 'H': 40.0, 'S': 5.0, 'LEN': 80.0", {0, 0, 0, 60, 40, 80, 200}},
        {"SHEET", "BOX, 'S': 2.0", {-25, -60, 0, 25, 60, 2, 340}},
        {"SHEET', 'SCONS': 'EDGE", "'S': 2, 'A': 60, 'B': 40, 'LEN': 500", {0, 0, 0, 60, 40, 500, 200}},
        {"SHEET', 'SCONS': 'EDGE",
         "'S': 2, 'R': 3, 'A': 60, 'B': 40, 'LEN': 500",
         {0, 0, 0, 60, 40, 500, 184 + pi / 2 * 8}},
        // The sheet is on the right of its line, outside of the tray, whose line has the inner radius.
        {"SHEET', 'SCONS': 'EDGE_N",
         "'S': 2, 'R': 1, 'LEN': 10, 'VL': {'@polyline': [[0, 30, 0, 0, 0, 0, 0], [0, 0, 0, 80, 0, 0, 0], "
         "[80, 0, 0, 80, 30, 0, 0]]}",
         {-2, -2, 0, 82, 30, 10, 2 * (29 + 78 + 29) + 4 + pi * (1 + 3)}},
        {"ROT",
         "'REGION': {'@polylines': [[[0, 0, 0, 20, 0, 0, 0], [20, 0, 0, 20, 50, 0, 0], [20, 50, 0, 0, 50, 0, 0]]]}",
         {-20, -20, 0, 20, 20, 50, 40 * pi}},
        {"PATH",
         "'OUTLINE': {'CODE': 3, 'PARMS': {'#1': 10.0}}, 'VL': {'@polyline': [[0, 0, 0, 100, 0, 0, 0], "
         "[100, 0, 0, 100, 80, 0, 0]]}",
         {0, -5, -5, 105, 80, 5, 105 + 85 + 95 + 75 + 20 + 10 * std::numbers::sqrt2}},
        {"COMPOUND",
         "'SUB': {'a': {'TYPE': 'SHEET', 'BT': {BOX, 'S': 2}}, 'b': {'TYPE': 'DIN', 'ORG': {'@point': [0, 0, 2]}, "
         "'BT': {'D': 10, 'L': 40}}}",
         {-25, -60, 0, 25, 60, 42, 340 + 10 * pi}},
        {"DRILL", "'D': 9.0, 'DEPTH': 30.0", {-4.5, -4.5, 0, 4.5, 4.5, 30, 9 * pi}},
        {"DRILL", "'D': 8.0, 'LEN': 30.0, 'DK': 16.0, 'TK': 5.0", {-8, -8, 0, 8, 8, 30, 24 * pi}},
        {"NM", "'DIN': 'DIN 933', 'D': 10, 'L': 40", {-17 / r3, -8.5, -6.4, 17 / r3, 8.5, 40, 10 * pi + 34 * r3}},
        {"NM', 'UNIT': 5, 'X': '", "'DIN': '4762', 'D': 0.6, 'L': 4", {-0.5, -0.5, -0.6, 0.5, 0.5, 4, 1.6 * pi}},
        {"NM", "'DIN': 'DIN 7991', 'D': 8, 'L': 30", {-8, -8, 0, 8, 8, 30, 0}},
        {"NM", "'DIN': '7337', 'D': 4, 'L': 8", {-4, -4, -1, 4, 4, 8, 12 * pi}},
        {"NM", "'DIN': 'ISO 4032', 'D': 12", {-19 / r3, -9.5, -10, 19 / r3, 9.5, 0, 12 * pi + 38 * r3}},
        {"NM", "'DIN': 'DIN 125 A', 'D': 14", {-13.5, -13.5, -2.75, 13.5, 13.5, 0, 42 * pi}},
        {"SCORD",
         "'a': {'BT': {'TYPE': 'DIN', 'D': 10, 'L': 40}, 'MTX': {'@matrix': [[1, 0, 0, 25], [0, 1, 0, 0], [0, 0, 1, "
         "7], "
         "[0, 0, 0, 1]]}}, 'b': {'BT': {'TYPE': 'DRILL', 'D': 99.0}}",
         {20, -5, 7, 30, 5, 47, 10 * pi}},
    };
    for (const auto& one : kCases) {
        std::string text = "{'TYPE': '" + one.type + "', 'BT': {" + one.bt + "}}";
        for (const auto& [from, to] :
             {std::pair("BOX", "'OUTLINE': {'CODE': 2, 'PARMS': {'#1': 50, '#2': 120}}"), {"'NM", "'MRA_NM"}})
            if (const std::size_t at = text.find(from); at != std::string::npos)
                text.replace(at, 3, to);
        SCOPED_TRACE(text);
        CVekDataItem element = tree(text);
        CVek_Solid solid;
        CVekPoint3d low, high;
        ASSERT_TRUE(VEK::objModel(solid, &element) && solid.extents(low, high));
        const auto& [x0, y0, z0, x1, y1, z1, plan] = one.size;
        EXPECT_LT(low.distanceTo({x0, y0, z0}) + high.distanceTo({x1, y1, z1}), 1e-6)
            << low.x << ' ' << high.x << ' ' << high.z;
        const Picture picture(element, L"P");
        EXPECT_NEAR(plan > 0.0 ? lengthOf(picture.visible) : 0.0, plan, 1e-6 * plan);
        for (const CVekVertexArrayEx& line : picture.visible) {
            EXPECT_EQ(line.element, 0);
            EXPECT_EQ(line.kind == VekLineKind::hole, one.type == "DRILL");
        }
        VEK::objGen(&element, 0); // derived data and a mirror change nothing but what they should
        CVekMatrix3d mirror;
        mirror.setCoordSystem({7, 8, 9}, {-2, 0, 0}, {0, 2, 0}, {0, 0, 2});
        EXPECT_NEAR(lengthOf(Picture(element, L"P", mirror).visible), 2 * lengthOf(picture.visible), 1e-3 * plan + 1);
        EXPECT_FALSE(Picture(element, L"P", mirror.setToScaling(0.0, CVekPoint3d::kOrigin)).good);
    }
}

TEST(Shapes, AreCutDrilledAndDrawnAsLines)
{
    const CVekDataItem bar =
        tree(R"({'TYPE': 'EXTR', 'BT': {'OUTLINE': {'CODE': 3, 'PARMS': {'#1': 20.0}}, 'LEN': 100.0,
        'DRILL': {'a': {'D': 8.0, 'ORG': {'@point': [0, 10, 50]}, 'ZDIR': {'@point': [0, -1, 0]}}}}})");
    const CVekDataItem cuts = tree(R"({'CUT': {'a': {'PT': {'@point': [0, 0, 90]}, 'N': {'@point': [0, 0, 2]}},
        'b': {'PT': {'@point': [0, 0, 95]}, 'N': {'@point': [1, 0, 1]}}, 'c': {'PT': {'@point': [0, 0, 5]},
        'N': {'@point': [0, 0, -1]}}, 'd': {'PT': {'@point': [0, 0, 9]}, 'N': {'@point': [1, 0, 0]}}, 'e': {'N': 1}}})");
    EXPECT_NEAR(lengthOf(Picture(bar, L"N").visible), 240 + 8 * pi, 1e-6);
    const CVekDataItem noDrill = tree("{'NO_DRILL': 1}");
    EXPECT_NEAR(lengthOf(Picture(bar, L"N", CVekMatrix3d(), &noDrill).visible), 240, 1e-6);
    EXPECT_NEAR(lengthOf(Picture(bar, L"N", CVekMatrix3d(), &cuts).visible), 2 * (20 + 85) + 8 * pi, 1e-6);

    const CVekDataItem hatch = tree(R"({'TYPE': 'HATCH', 'UNIT': 4, 'BT': {'VLL': {'@polylines':
        [[[0, 0, 0, 3, 4, 0, 0]], [[5, 0, 0, 5, 0, 12, 0], [5, 0, 0, 7, 0, 0, 1]]]}}})");
    const Picture plan(hatch, L"P"), front(hatch, L"S", CVekMatrix3d().setToScaling(2.0, CVekPoint3d::kOrigin));
    EXPECT_TRUE(plan.good && plan.visible.len() == 2 && plan.hidden.len() == 0);
    EXPECT_NEAR(lengthOf(plan.visible), 5 + pi, 1e-6);
    EXPECT_NEAR(lengthOf(front.visible), 2 * (3 + 12 + 2), 0.01) << "the half circle is seen on its edge";
    CVek_Solid solid;
    EXPECT_FALSE(VEK::objModel(solid, &hatch) || VEK::objModel(solid, nullptr));

    std::string nested = "{'TYPE': 'HATCH', 'BT': {'VL': {'@polyline': [[0, 0, 0, 1, 0, 0, 0]]}}}";
    for (int depth = 1; depth < 12; ++depth) {
        nested = "{'TYPE': 'COMPOUND', 'ORG': {'@point': [1, 0, 0]}, 'BT': {'SUB': {'a': " + nested + "}}}";
        EXPECT_EQ(Picture(tree(nested), L"P").good, depth <= 8) << depth;
    }
}

TEST(Assemblies, AreTheSameAsTheirElements)
{
    std::mt19937 random(12);
    int judged = 0, drawn = 0;
    for (const std::string& text : examples()) {
        CVekDataItem item = tree(text);
        CVek_Solid solid;
        bool hasSolid = false;
        drawn += text.find("\"TYPE\"") == 1 && Picture(item, L"NO").good;
        EXPECT_TRUE(VEK::bgr_slx_bgr(solid, hasSolid, &item, nullptr, CVekMatrix3d(), nullptr, false, true));
        EXPECT_TRUE(!item.getItem(L"BGR") || solid.bodies() == 3);
    }
    EXPECT_EQ(drawn, 12);
    for (int round = 0; round < 8; ++round) {
        CVekDataItem object =
            tree("{'UNIT': 4, 'DEF': {'o': {'UNIT': 1}}, 'BGR': {'x': {'REF': 'o'}, 'y': {'REF': 'o'}}}");
        place(*object.getItem(L"BGR\\y"), random);
        for (int i = 0; const std::string& text : examples()) {
            CVekString name;
            *object.makeDir(L"DEF\\d" + name.format(L"%d", ++i)) = tree(text);
            for (const wchar_t* path : {L"BT\\", L"DEF\\o\\BT\\", L"BT\\own"}) {
                CVekDataItem* element = object.makeDir(path + name);
                VEK::dataSet(element, L"REF", L"d" + name);
                place(*element, random);
                if (random() % 3 == 0)
                    VEK::dataSet(element, L"UNIT", 5);
                if (random() % 3 == 0)
                    VEK::dataSet(element, L"BT\\LEN", 5.0);
            }
        }
        Map map;
        CVek_Solid solid;
        bool hasSolid = false;
        Lines visible, hidden;
        ASSERT_TRUE(vek_bgr_strong(&object, nullptr, CVekMatrix3d(), 1, nullptr, map));
        ASSERT_TRUE(VEK::bgr_slx_bgr(solid, hasSolid, &object, nullptr, CVekMatrix3d(), nullptr, false, true));
        ASSERT_TRUE(hasSolid && solid.solid() && solid.project(viewOf(L"NO"), false, visible, hidden, 1));
        for (int i = 0; i < map.len(); ++i) {
            const Taken taken(map, i);
            const Picture picture(*taken.merged, L"NO", taken.m, taken.parm);
            CVekString type;
            VEK::dataGet(taken.merged, L"TYPE", type);
            if (type == L"PATH" || type == L"COMPOUND")
                continue; // lines that several bodies of one element share are drawn once there, twice here
            const bool isBody = picture.good && type != L"DRILL" && type != L"HATCH";
            const double alone = isBody ? lengthOf(picture.visible) + lengthOf(picture.hidden) : 0.0;
            EXPECT_NEAR(lengthOf(visible, i) + lengthOf(hidden, i), alone, 1e-3 * alone) << i;
            judged += isBody;
        }
    }
    EXPECT_GT(judged, 200);
}

} // namespace
