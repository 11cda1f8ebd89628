// Sheets: their skins, sandwiches, regions, and what is wrong with a definition.
#include <vek/data/config.h>
#include <vek/data/iterator.h>
#include <vek/json.h>
#include <vek/objects/outline.h>
#include <vek/objects/sheet.h>

#include "shapes.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

using namespace shapes;

using Stack = CVekArrayTempl<CVekString>;
using Points = CVekPoint3dArray;

CVekDataItem object(const Stack& stack, double width, double thickness, const CVekMatrix3d& place = CVekMatrix3d())
{
    CVekDataItem item(CVekDataItem::directory);
    VEK::dataSet(&item, L"STACK", stack);
    VEK::dataSet(&item, L"VL", CVekVertexArray(line(0, 0, width, 0)));
    VEK::dataSet(&item, L"S", thickness);
    VEK::dataSet(&item, L"MTX", place);
    return item;
}

struct Result {
    VEK::VertexArrays lines;
    CVekVertexArray top, bottom;
    bool good = false;
};

/// What the service gives that fits the definition; its arrays hold something else before.
Result run(const CVekDataItem& item, const CVekDataItem* definition)
{
    Result r;
    r.top = r.bottom = rectangle(0, 0, 1, 1);
    r.lines.append(r.top);
    const bool points = definition->getItem(L"FILLET_P") || definition->getItem(L"POINTS");
    r.good = points ? VEK::fsheet_vll_fillet(&item, r.lines, r.top, r.bottom)
                    : VEK::fsheet_vll_fnc(&item, r.lines, r.top, r.bottom);
    return r;
}

/// The configuration with the example profiles, and as it was afterwards.
class ObjectsSheet : public testing::Test
{
protected:
    ObjectsSheet()
    {
        m_backup.attach(nullptr);
        CVekString error;
        const auto path = std::filesystem::path(VEK_SOURCE_DIR) / "examples" / "profiles.json";
        EXPECT_TRUE(VEK::jsonLoad(*VEK::cfgMgrPtr()->tree(), path.wstring().c_str(), error));
    }

    CVekDataItem& define(const wchar_t* name)
    {
        return *VEK::cfg_dir_make((std::wstring(L"*SHEET*\\") + name).c_str());
    }

private:
    VEK::CCfgBackup m_backup{true};
};

TEST_F(ObjectsSheet, HasItsThicknessEverywhere)
{
    Random random(3);
    int judged = 0;
    for (VEK::CDataIterator family(VEK::cfg_get(L"*SHEET*")); !family.done(); family.next())
        for (VEK::CDataIterator sheet(family.item()); !sheet.done(); sheet.next()) {
            double seg = 0.0;
            if (sheet->getItem(L"SANDWICH") || sheet->getItem(L"REGION") || !VEK::dataGet(sheet, L"SEG", seg))
                continue;
            for (const double n : {0.3, 1.0, 1.5, 2.75})
                for (const bool down : {false, true}) {
                    SCOPED_TRACE(std::to_string(seg) + " " + std::to_string(n) + (down ? " down" : ""));
                    VEK::dataSet(sheet, L"DOWN", down);
                    const double s = random.uniform(0.4, 1.2);
                    CVekMatrix3d place = random.motion(), mirror;
                    if (random.coin())
                        place = CVekMatrix3d();
                    if (random.coin())
                        place *= mirror.setToMirroring(CVekPlane(CVekPoint3d(3, 4, 0), CVekVector3d::kXAxis));
                    const Stack stack{CVekString(*family->getKey()), CVekString(*sheet->getKey())};
                    const CVekDataItem flat = object(stack, n * seg, s), item = object(stack, n * seg, s, place);
                    const Result r = run(flat, sheet), placed = run(item, sheet),
                                 line = run(object(stack, n * seg, 0), sheet);
                    ASSERT_TRUE(r.good && placed.good && line.good);
                    double area = 0.0;
                    for (const CVekVertexArray& vl : r.lines) {
                        EXPECT_TRUE(vl.isClosed() && vl.isContinuous() && VEK::g_vl_orient(vl, CVekVector3d::kZAxis));
                        area += areaOf(vl);
                    }
                    EXPECT_NEAR(area, s * 0.5 * (lengthOf(r.top) + lengthOf(r.bottom)), 1e-3) << "concentric bends";
                    const VEK::VertexArrays tops = VEK::vl_to_vll(r.top), bottoms = VEK::vl_to_vll(r.bottom);
                    ASSERT_TRUE(tops.len() == r.lines.len() && bottoms.len() == r.lines.len());
                    for (int i = 0; i < tops.len(); ++i)
                        for (const CVekVertex& segment : tops[i]) {
                            const CVekPoint3d point = pointAt(segment, random.uniform(0, 1));
                            double least = HUGE_VAL;
                            for (const CVekVertex& other : bottoms[i])
                                least = std::min(least, point.distanceTo(other.lotp(point)));
                            ASSERT_NEAR(least, s, 1e-6);
                        }
                    EXPECT_NEAR(lengthOf(placed.top), lengthOf(r.top), 1e-6);
                    EXPECT_LT(placed.top[0].start.distanceTo(r.top[0].start * place), 1e-6);
                    for (const CVekVertexArray& vl : placed.lines)
                        EXPECT_TRUE(vl.isClosed() && vl.isContinuous());
                    EXPECT_TRUE(line.top == line.bottom && std::fabs(lengthOf(line.lines) - lengthOf(line.top)) < 1e-6);
                    EXPECT_EQ(line.lines.len(), r.lines.len());
                    ++judged;
                }
        }
    EXPECT_EQ(judged, 7 * 8);
}

TEST_F(ObjectsSheet, IsAsItsDefinitionSays)
{
    // A trapezium without radii, by Pythagoras; one and a half segments end in the middle of an upper flange.
    CVekDataItem& plain = define(L"PLAIN");
    for (const auto& [key, value] : {std::pair{L"SEG", 207.0}, {L"H", 35.0}, {L"TOP", 40.0}, {L"BOT", 119.0}})
        VEK::dataSet(&plain, key, value);
    const double turn = std::atan2(35, 24);
    for (const double n : {1.0, 1.5, 5.0})
        EXPECT_NEAR(lengthOf(run(object(Stack{L"PLAIN"}, n * 207, 1), &plain).bottom),
                    n * (159 + 2 * std::hypot(24, 35)) + 2 * n * (turn - 2 * std::tan(turn / 2)), 1e-6)
            << n << ", an arc around each upward bend";
    // One bend upwards: the radius is that of the inner side.
    CVekDataItem& bend = define(L"BEND");
    VEK::dataSet(&bend, L"FILLET_P", Points{{0, 0, 9}, {20, 0, 3}, {20, 30, 0}});
    const Result up = run(object(Stack{L"BEND"}, 5, 2), &bend);
    EXPECT_NEAR(lengthOf(up.bottom), 15 + 2.5 * pi + 25, 1e-9);
    EXPECT_NEAR(lengthOf(up.top), 15 + 1.5 * pi + 25, 1e-9);
    VEK::dataSet(&bend, L"DOWN", true);
    EXPECT_NEAR(lengthOf(run(object(Stack{L"BEND"}, 5, 2), &bend).top), 17 + 1.5 * pi + 27, 1e-9);
    bend.remove(L"FILLET_P");
    VEK::dataSet(&bend, L"R", 3.0);
    VEK::dataSet(&bend, L"POINTS", Points{{0, 0, 9}, {20, 0, 9}, {20, 30, 9}});
    EXPECT_NEAR(lengthOf(run(object(Stack{L"BEND"}, 5, 2), &bend).top), 17 + 1.5 * pi + 27, 1e-9);
    // The wave lies on its function, in its arcs' middles as well, and ends where it is told to.
    const auto wave = Stack{L"WELLE", L"18/76"};
    for (const CVekVertex& v : run(object(wave, 190, 0), VEK::fsheet_get(wave)).top)
        for (const CVekPoint3d& p : {v.start, v.mid(), v.end}) {
            EXPECT_NEAR(p[1], 9 - 9 * std::cos(2 * pi * p[0] / 76), 18e-4);
            EXPECT_LE(p[0], 190 + 1e-9);
        }
    CVekString sid;
    const auto sidOf = [&](const CVekDataItem& item) {
        const VEK::CUniqPointer<VEK::CDtaFilePointer> file(VEK::dtaOpen(6, 3, nullptr, &item));
        return VEK::fsheet_sid(file, sid) ? sid : CVekString(L"none");
    };
    CVekDataItem item = object(Stack{L"TRAPEZ", L"35/207"}, 1, 1);
    EXPECT_EQ(sidOf(item), L"0.75") << "the first thickness";
    VEK::dataSet(VEK::fsheet_get(Stack{L"TRAPEZ", L"35/207"}), L"\\SID", CVekString(L"0.88"));
    EXPECT_EQ(sidOf(item), L"0.88");
    VEK::dataSet(&item, L"SID", CVekString(L"1.00"));
    EXPECT_EQ(sidOf(item), L"1.00");
    EXPECT_TRUE(sidOf(object(Stack{L"BEND"}, 1, 1)) == L"none" && !VEK::fsheet_sid(nullptr, sid));
    for (const auto& stack : {Stack(), Stack{L"?"}, Stack{L"TRAPEZ", L"?"}, Stack{L"BEND", L"SEG", L""}})
        EXPECT_FALSE(VEK::fsheet_get(stack));
    CVekVertexArray axis;
    EXPECT_TRUE(VEK::fsheet_axis_vl(list({rectangle(-3, 0, 9, 40)}), 1, axis) &&
                axis == CVekVertexArray(line(0, -10, 0, 50)));
    EXPECT_TRUE(VEK::fsheet_axis_vl(list({rectangle(3, 0, 9, 1)}), 1, axis) &&
                axis == CVekVertexArray(line(3, -5, 3, 6)));
    EXPECT_FALSE(VEK::fsheet_axis_vl(list({}), 1, axis) ||
                 VEK::fsheet_axis_vl(list({line(0, 0, 5, 0)}), VEK::nan(), axis));
    EXPECT_EQ(axis.len(), 0);
}

/// Inside by the even-odd rule over all contours.
bool isWithin(const VEK::VertexArrays& contours, const CVekPoint3d& point)
{
    bool inside = false;
    for (const CVekVertexArray& vl : contours)
        inside ^= VEK::g_vll_pt_inside(list({vl}), point) > 0;
    return inside;
}

TEST_F(ObjectsSheet, CoreIsWhatTheOtherLayersLeave)
{
    CVekMatrix3d up, down;
    up.setToTranslation({0, 60, 0});
    down.setToMirroring(CVekPlane(CVekPoint3d::kOrigin, CVekVector3d::kYAxis));
    const auto skin = Stack{L"PANEEL", L"SKIN"};
    const Result top = run(object(skin, 1000, 2, up), VEK::fsheet_get(skin));
    const Result bottom = run(object(skin, 1000, 2, down), VEK::fsheet_get(skin));
    const CVekDataItem item;
    VEK::VertexArrays whole, core;
    ASSERT_TRUE(VEK::fsheet_vll_outline(&item, top.lines[0], bottom.lines[0], {}, whole));
    ASSERT_EQ(whole.len(), 1);
    // Skins touch the core and do not overlap it: of the box, skins and core leave the notches at the ends.
    EXPECT_NEAR(areaOf(whole[0]) + areaOf(top.lines[0]) + areaOf(bottom.lines[0]), 996 * 60.0, 160);
    for (const CVekVertex& v : whole[0])
        EXPECT_TRUE(v.start[0] > 1e-9 || std::fabs(v.start[1] - 30) < 12 + 1e-9)
            << "along the edge between the skins only";
    Random random(11);
    int judged = 0, holes = 0;
    for (int round = 0; round < 60; ++round) {
        CVekArrayTempl<VEK::VertexArrays> layers;
        VEK::VertexArrays seals;
        for (int i = random.whole(3); i >= 0; --i)
            seals.append(
                random.star(random.uniform(-20, 120), random.uniform(-10, 70), 3, random.pick({8, 20, 45}), 7));
        if (round % 3 == 0) // flush with the end and with one another
            seals = list({rectangle(0, 20, 10, 30), rectangle(10, 20, 15, 45), rectangle(-5, 30, 10, 35)});
        for (const CVekVertexArray& seal : seals)
            layers.append(list({seal}));
        ASSERT_TRUE(VEK::fsheet_vll_outline(&item, top.lines[0], bottom.lines[0], layers, core));
        holes += core.len() - 1;
        for (int k = 0; k < 200; ++k) {
            const CVekPoint3d p(random.uniform(-5, 160), random.uniform(-5, 65), 0);
            bool wanted = isWithin(whole, p), close = false;
            for (const CVekVertexArray& seal : seals)
                wanted = wanted && !isWithin(list({seal}), p);
            for (const CVekVertexArray& vl : seals)
                for (const CVekVertex& v : upright(vl))
                    close = close || p.distanceTo(v.lotp(p)) < 1e-3;
            if (close)
                continue;
            ASSERT_EQ(isWithin(core, p), wanted) << round << ": " << p[0] << ' ' << p[1];
            ++judged;
        }
    }
    EXPECT_GT(judged, 11000);
    EXPECT_GT(holes, 5);
    // Between open lines, in either direction.
    CVekVertexArray low(line(9, 0, 0, 0));
    EXPECT_TRUE(VEK::fsheet_vll_outline(&item, CVekVertexArray(line(0, 4, 9, 4)), low, {}, core));
    EXPECT_DOUBLE_EQ(areaOf(core[0]), 36);
    EXPECT_FALSE(VEK::fsheet_vll_outline(nullptr, low, low, {}, core) ||
                 VEK::fsheet_vll_outline(&item, low, {}, {}, core));
    EXPECT_EQ(core.len(), 0);
    // The seal with its chamber at each joint; the width cuts through the second one.
    const auto seal = Stack{L"PANEEL", L"SEAL"};
    EXPECT_FALSE(VEK::fsheet_vll_region(nullptr, core));
    const double segment = 4 * pi / 3 - std::sqrt(3.0); // of the chamber, half its radius high
    for (const auto& [width, cut] :
         {std::pair{1000.0, 0.0}, {998.0, 0.0}, {1001.0, 60 - segment}, {1003.0, 84 - 4 * pi + segment}}) {
        const CVekDataItem seals = object(seal, width, 0, up);
        EXPECT_TRUE(VEK::fsheet_vll_region(&seals, core));
        ASSERT_EQ(core.len(), cut > 0 ? 3 : 2) << width;
        CVekPoint3d least, most;
        EXPECT_TRUE(core[0].extents(least, most) && least.distanceTo({-4, 84, 0}) < 1e-9);
        EXPECT_NEAR(areaOf(core[0]), 144, 1e-3);
        EXPECT_NEAR(std::fabs(areaOf(core[1])), 4 * pi, 1e-3);
        EXPECT_NEAR(cut, cut > 0 ? areaOf(core[2]) : 0.0, 1e-3);
    }
}

TEST_F(ObjectsSheet, WrongValuesGiveNothingOrSomethingSound)
{
    int judged = 0, refused = 0;
    for (const Stack& stack : {Stack{L"TRAPEZ", L"35/207"}, Stack{L"WELLE", L"18/76"}, Stack{L"STEHFALZ", L"25/530"},
                               Stack{L"KASSETTE", L"100/600"}, Stack{L"PANEEL", L"SEAL"}}) {
        CVekDataItem* definition = VEK::fsheet_get(stack);
        CVekDataItem asked = object(stack, 700, 0.75);
        for (const wchar_t* key : {L"SEG", L"H", L"TOP", L"BOT", L"R", L"FNC", L"POINTS", L"FILLET_P", L"REGION",
                                   L"DOWN", L"STACK", L"S", L"VL", L"MTX"}) {
            CVekDataItem& place = asked.getItem(key) ? asked : *definition;
            const CVekDataItem was = place;
            const double values[] = {VEK::nan(), HUGE_VAL, -1.0, 0.0, 1e-9, 1e300, 40.0};
            for (int i = 0; i < 9; ++i, ++judged) {
                if (i < 7)
                    VEK::dataSet(&place, key, values[i]);
                else if (i == 7)
                    VEK::dataSet(&place, key, CVekString(L"?"));
                else
                    place.remove(key);
                Result r = run(asked, definition);
                for (const CVekVertexArray& vl : r.lines)
                    EXPECT_TRUE(std::isfinite(lengthOf(vl)) && vl.isContinuous());
                EXPECT_TRUE(r.good == (r.lines.len() > 0) && r.good == (r.top.len() > 0) &&
                            r.good == (r.bottom.len() > 0));
                refused += !VEK::fsheet_vll_region(&asked, r.lines) && !r.good;
                EXPECT_TRUE(std::isfinite(lengthOf(r.lines)));
            }
            place = was;
        }
    }
    EXPECT_EQ(judged, 5 * 14 * 9);
    EXPECT_GT(refused, 100);
    // A profile that crosses itself, one that folds back, a bend that does not fit, and too many segments.
    CVekDataItem& bad = define(L"BAD");
    const auto isGood = [&](const Points& corners, double width) {
        VEK::dataSet(&bad, L"FILLET_P", corners);
        return run(object(Stack{L"BAD"}, width, 1), &bad).good;
    };
    EXPECT_TRUE(isGood({{0, 0, 0}, {20, 0, 2}, {20, 20, 2}, {10, 20, 2}, {10, -20, 0}}, 20));
    EXPECT_FALSE(isGood({{0, 0, 0}, {20, 0, 0}, {5, 0, 0}}, 20));
    EXPECT_FALSE(isGood({{0, 0, 0}, {20, 0, 15}, {20, 14, 0}}, 20));
    EXPECT_FALSE(isGood({{0, 0, 0}, {20, 0, -1}, {20, 14, 0}}, 20));
    VEK::dataSet(&bad, L"SEG", 20.0);
    EXPECT_TRUE(isGood({{0, 0, 0}, {20, 0, 0}}, 200000));
    EXPECT_FALSE(isGood({{0, 0, 0}, {20, 0, 0}}, 200001));
}

} // namespace
