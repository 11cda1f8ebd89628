#include "shapes.h"

#include <vek/values/string.h>

#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace
{

using namespace shapes;

constexpr double kTol = 1e-9; // of everything computed from small numbers

void expectAt(const CVekPoint3d& p, double x, double y, double z = 0.0)
{
    EXPECT_NEAR(p[0], x, kTol);
    EXPECT_NEAR(p[1], y, kTol);
    EXPECT_NEAR(p[2], z, kTol);
}

TEST(GeometryView, DirectionBecomesZAndWorldZPointsUp)
{
    const CVekPoint3d eye(10, 20, 30);
    const CVekVector3d directions[] = {{0, 1, 0}, {-1, 0, 0}, {1, -1, 1}, {-2, -3, 0.5}};
    for (const CVekVector3d& direction : directions) {
        const CVekMatrix3d m = VEK::g_mtx_view(direction, eye, true);
        expectAt(eye * m, 0, 0);
        expectAt((direction * m).asPoint(), 0, 0, direction.abs());
        const CVekVector3d up = CVekVector3d::kZAxis * m;
        EXPECT_NEAR(up[0], 0.0, kTol);
        EXPECT_GT(up[1], 0.0);
        EXPECT_NEAR(m.determinant(), 1.0, kTol);
        expectAt(CVekPoint3d(1, 2, 3) * m * VEK::g_mtx_view(direction, eye, false), 1, 2, 3);
    }
    EXPECT_TRUE(VEK::g_mtx_view({0, 0, 3}, CVekPoint3d::kOrigin, true) == CVekMatrix3d::kIdentity);
    // From below the world's y axis points up, so x runs to the left.
    expectAt(CVekPoint3d(1, 2, 3) * VEK::g_mtx_view({0, 0, -1}, CVekPoint3d::kOrigin, true), -1, 2, -3);
}

TEST(GeometryView, NamesAreComparedExactlyAndOtherNamesAreThePlan)
{
    const CVekPoint3d p(1, 2, 3);
    const auto seen = [&](const wchar_t* name) { return p * VEK::g_mtx_view_dir(name, CVekPoint3d::kOrigin); };
    for (const wchar_t* plan : {L"P", L"w", static_cast<const wchar_t*>(nullptr)})
        expectAt(seen(plan), 1, 2, 3);
    expectAt(seen(L"S"), 1, 3, -2);
    expectAt(seen(L"N"), -1, 3, 2);
    for (const wchar_t* east : {L"W", L"E"})
        expectAt(seen(east), 2, 3, 1);
    expectAt(seen(L"O"), -2, 3, -1);
    EXPECT_NEAR(seen(L"NO")[2], 6.0 / std::sqrt(3.0), kTol);
    EXPECT_NEAR(seen(L"SW")[2], 0.0, kTol);
    expectAt(p * VEK::g_mtx_view_dir(CVekString(L"S"), {1, 2, 3}), 0, 0, 0);
}

TEST(GeometryView, ProjectionKeepsLevelArcsAndSplitsTiltedOnes)
{
    CVekVertex up({1, 2, 3}, {4, 5, 6}, 0.5);
    EXPECT_EQ(VEK::g_vx_xy(up).bulge, 0.5);
    EXPECT_EQ(up.start, CVekPoint3d(1, 2, 0));

    const CVekVertexArray half(line(1, 0, -1, 0, 1.0));
    const CVekMatrix3d m = CVekMatrix3d().setToTranslation({5, 0, 7});
    EXPECT_EQ(VEK::g_vl_proje_mtx_orig(half, m, 0.1), CVekVertexArray(line(6, 0, 4, 0, 1.0)));
    // From below it runs the other way round; the bulge stays readable about z.
    const CVekVertexArray below =
        VEK::g_vl_proje_mtx_orig(half, VEK::g_mtx_view({0, 0, -1}, CVekPoint3d::kOrigin, true), 0.1);
    ASSERT_EQ(below.len(), 1);
    EXPECT_EQ(below.normal(), CVekVector3d::kZAxis);
    expectAt(below[0].mid(), 0, 1);
    // From the side it is chords on the x axis.
    const CVekVertexArray side = VEK::g_vl_proje_mtx_orig(half, VEK::g_mtx_view_dir(L"S", CVekPoint3d::kOrigin), 0.1);
    EXPECT_EQ(side.len(), 4); // 1 - cos(22.5 degrees) is below 0.1, a third of the half circle is not
    for (const CVekVertex& vertex : side) {
        EXPECT_EQ(vertex.bulge, 0.0);
        EXPECT_NEAR(vertex.end[1], 0.0, kTol);
        EXPECT_EQ(vertex.end[2], 0.0);
    }
    const CVekVertexArray end = VEK::g_vl_proje_mtx_orig(CVekVertex({0, 0, 0}, {0, 0, 10}), CVekMatrix3d(), 0.1);
    ASSERT_EQ(end.len(), 1);
    EXPECT_EQ(end[0].start, end[0].end);
}

TEST(GeometryWinding, FollowsTheExactAreaOfArcs)
{
    // A square's corner replaced by a deep notch: the straight hull is positive, the arcs turn it over.
    const CVekVertexArray lens = path({line(0, 0, 1, 0, 0.2), line(1, 0, 0, 0, 0.1)});
    EXPECT_TRUE(VEK::g_vl_orient(lens, CVekVector3d::kZAxis));
    EXPECT_FALSE(VEK::g_vl_orient(lens, -CVekVector3d::kZAxis));
    EXPECT_FALSE(VEK::g_vl_orient(path({line(0, 0, 1, 0, 0.2), line(1, 0, 0, 0, -0.21)}), CVekVector3d::kZAxis));
    // Small and far away, with nearly straight arcs.
    const double x = 1e7, d = 1e-3;
    EXPECT_TRUE(VEK::g_vl_orient(path({line(x, x, x + d, x, 1e-6), line(x + d, x, x, x)}), CVekVector3d::kZAxis));
    EXPECT_FALSE(VEK::g_vl_orient(path({line(x, x, x + d, x, -1e-6), line(x + d, x, x, x)}), CVekVector3d::kZAxis));
    EXPECT_FALSE(VEK::g_vl_orient(CVekVertexArray(), CVekVector3d::kZAxis));
    // The bulge runs about the polyline's own normal.
    CVekVertexArray turned = path({line(0, 0, 1, 0, 1.0), line(1, 0, 0, 0, 1.0)});
    turned.setNormal({0, 0, -1});
    EXPECT_FALSE(VEK::g_vl_orient(turned, CVekVector3d::kZAxis));
}

TEST(GeometryWinding, OrientsClosedContoursAndLeavesOpenOnes)
{
    Polylines region;
    region[0] = path({line(0, 0, 0, 9), line(0, 9, 9, 9), line(9, 9, 9, 0), line(9, 0, 0, 0)});
    region[1] = path({line(2, 1, 0, 1, -1.0), line(0, 1, 2, 1, -1.0)});
    region[2] = path({line(5, 5, 4, 5), line(4, 5, 4, 4)});
    region[3] = path({line(5, 5, 6, 5), line(6, 5, 6, 6), line(6, 6, 5, 5)});
    const CVekVertexArray open = region[2], good = region[3];
    VEK::regionOrient(region, CVekVector3d::kZAxis);
    EXPECT_GT(areaOf(region[0]), 0.0);
    EXPECT_EQ(region[1][0].bulge, 1.0);
    EXPECT_EQ(region[2], open);
    EXPECT_EQ(region[3], good);
}

TEST(GeometryRuns, SplitAtBreaksInOrder)
{
    const CVekVertexArray vl = path({line(0, 0, 1, 0), line(1, 0, 2, 0), line(3, 0, 4, 0), line(5, 0, 5, 0)});
    EXPECT_EQ(VEK::vl_to_vll(vl), list({path({vl[0], vl[1]}), vl[2], vl[3]}));
    EXPECT_EQ(VEK::vl_to_vll(CVekVertexArray()).len(), 0);
}

void expectSame(const Polylines& found, const Polylines& wanted)
{
    ASSERT_EQ(found.len(), wanted.len());
    for (int i = 0; i < found.len(); ++i) {
        ASSERT_EQ(found[i].len(), wanted[i].len());
        EXPECT_NEAR((found[i].normal() - wanted[i].normal()).abs(), 0.0, kTol);
        for (int k = 0; k < found[i].len(); ++k) {
            EXPECT_NEAR(found[i][k].start.distanceTo(wanted[i][k].start), 0.0, kTol);
            EXPECT_NEAR(found[i][k].end.distanceTo(wanted[i][k].end), 0.0, kTol);
            EXPECT_NEAR(found[i][k].bulge, wanted[i][k].bulge, kTol);
            EXPECT_EQ(found[i][k].tag[0], wanted[i][k].tag[0]);
        }
    }
}

TEST(GeometrySpace, WhateverIsDoneToAPolylineGoesAlongWithItsPlane)
{
    // What is done in a plane anywhere in space is what is done in xy, brought there.
    Random random(31);
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        CVekVertexArray vl = random.walk(8, 10.0);
        for (int i = 0; i < vl.len(); ++i)
            vl[i].tag[0] = static_cast<unsigned char>(i);
        if (random.coin())
            vl.removeAt(1 + random.whole(6)); // a break
        const CVekVertexArray flat = upright(vl);
        const CVekPoint3d from = pointAt(flat[random.whole(3)], random.uniform(0.1, 0.9));
        const CVekPoint3d to = pointAt(flat[3 + random.whole(4)], random.uniform(0.1, 0.9));
        const double dash = random.uniform(0.5, 4), gap = random.uniform(0.5, 2), dif = random.uniform(0.01, 0.2);
        const CVekMatrix3d m = random.motion();
        const auto works = [&](const CVekVertexArray& own, const CVekPoint3d& a, const CVekPoint3d& b) {
            Polylines all = VEK::vl_to_vll(own);
            all += VEK::vl_measure(own, 2.0, CVekLineParm(numbers({dash, -gap, 0.0, -gap})));
            all += list({VEK::vl_split_dif(own, dif), VEK::g_vl_expl(own, 3), VEK::g_vl_cut(own, a, b)});
            return all;
        };
        Polylines wanted = works(vl, from, to);
        EXPECT_GT(wanted.len(), 5);
        for (CVekVertexArray& each : wanted)
            each.transformBy(m);
        const CVekVertexArray moved = vl.getTransformedCopy(m);
        expectSame(works(moved, from * m, to * m), wanted);
        vl.append(CVekVertex(vl[-1].end, vl[0].start));
        const CVekVector3d axis = random.direction();
        EXPECT_EQ(VEK::g_vl_orient(vl.getTransformedCopy(m), axis * m), VEK::g_vl_orient(vl, axis));

        // The box in a turned frame, by fine chords.
        const double angle = random.uniform(-4, 4), chord = 1e-4;
        const CVekPoint3dArray box = VEK::vl_extmax(moved, angle);
        const CVekVector3d axes[] = {VEK::polar(angle, 1.0), VEK::polar(angle + pi / 2, 1.0), CVekVector3d::kZAxis};
        for (const CVekVector3d& along : axes) {
            double least = HUGE_VAL, most = -HUGE_VAL;
            for (const CVekPoint3d& p : moved.pts(true, chord)) {
                least = std::min(least, p.asVector().dot(along));
                most = std::max(most, p.asVector().dot(along));
            }
            EXPECT_NEAR(box[0].asVector().dot(along), least, 2 * chord);
            EXPECT_NEAR(box[1].asVector().dot(along), most, 2 * chord);
        }
    }
}

TEST(GeometryExtents, RectangleAround)
{
    const CVekVertexArray half = path({line(1, 0, -1, 0, 1.0), {{-1, 0, 0}, {-1, 0, 3}}});
    const CVekVertexArray rectangle = VEK::vl_extrect(half, 0.5);
    ASSERT_EQ(rectangle.len(), 4);
    EXPECT_TRUE(rectangle.isClosed());
    expectAt(rectangle[0].start, -1.5, -0.5);
    EXPECT_NEAR(areaOf(rectangle), 6.0, kTol);
    for (const CVekVertex& side : rectangle)
        EXPECT_EQ(side.end[2], 0.0);
    EXPECT_EQ(VEK::vl_extrect(half, -0.6).len(), 0);
    EXPECT_EQ(VEK::vl_extrect(CVekVertexArray(), 1.0).len(), 0);
    EXPECT_EQ(VEK::vl_extmax(CVekVertexArray(), 0.0).len(), 0);
}

TEST(GeometryChords, AreThoseOfThePointsAlongAPolyline)
{
    Random random(29);
    for (int round = 0; round < 100; ++round) {
        const double dif = random.pick({0.01, 0.1, 0.0});
        const double bulge = random.uniform(-2, 2);
        CVekVertex arc({0, 0, 0}, random.direction().asPoint() * random.motion(), random.coin() ? bulge : 0.0);
        arc.tag[3] = round;
        CVekVertexArray vl(arc);
        vl.setNormal((arc.end - arc.start) * random.direction()); // its plane lies anywhere
        const CVekPoint3dArray points = vl.pts(true, dif);
        EXPECT_EQ(VEK::vx_split_dif(arc, dif), points.len() - 1);
        for (const CVekVertexArray& chords : {VEK::vl_split_dif(vl, dif), VEK::g_vl_expl(vl, points.len() - 1)}) {
            ASSERT_EQ(chords.len(), points.len() - 1);
            for (int i = 0; i < chords.len(); ++i) {
                CVekVertex chord(points[i], points[i + 1]);
                chord.tag[3] = round;
                EXPECT_TRUE(chords[i] == chord);
            }
        }
        EXPECT_EQ(VEK::g_vl_expl(vl, -round).len(), 1);
    }
}

TEST(GeometryCut, RunsInThePolylinesOwnDirection)
{
    const CVekVertexArray vl = path({line(0, 0, 2, 0), line(2, 0, 2, 2, 1.0), line(2, 2, 0, 2)});
    EXPECT_EQ(VEK::g_vl_cut(vl, {1, 2, 0}, {1, 0, 0}), path({line(1, 0, 2, 0), vl[1], line(2, 2, 1, 2)}));
    // Half of the arc: a part that begins where a segment ends.
    const CVekVertexArray arc = VEK::g_vl_cut(vl, {2, 0, 0}, {3, 1, 0});
    ASSERT_EQ(arc.len(), 1);
    EXPECT_NEAR(arc[0].bulge, std::tan(pi / 8), kTol);
    EXPECT_EQ(VEK::g_vl_cut(vl, {1, 0, 0}, {1, 0, 0}).len(), 0);
    EXPECT_EQ(VEK::g_vl_cut(vl, {1, 0, 0}, {1, 1, 0}).len(), 0);
}

/// Compares the stations of the dashes of a pattern on a straight run along x.
void expectDashes(double length, const std::vector<double>& pattern,
                  const std::vector<std::pair<double, double>>& wanted, double scale = 1.0)
{
    const Polylines pieces = VEK::vl_measure(line(0, 0, length, 0), scale, CVekLineParm(numbers(pattern)));
    ASSERT_EQ(pieces.len(), static_cast<int>(wanted.size()));
    for (int i = 0; i < pieces.len(); ++i) {
        EXPECT_EQ(pieces[i].len(), 1);
        EXPECT_NEAR(pieces[i][0].start[0], wanted[static_cast<std::size_t>(i)].first, kTol);
        EXPECT_NEAR(pieces[i][0].end[0], wanted[static_cast<std::size_t>(i)].second, kTol);
    }
}

TEST(GeometryMeasure, DashesGapsAndDots)
{
    expectDashes(10, {3, -1, 0, -1}, {{0, 3}, {4, 4}, {5, 8}, {9, 9}});
    expectDashes(6.5, {3, -1, 0, -1}, {{0, 3}, {4, 4}, {5, 6.5}}); // the last dash is cut
    expectDashes(10, {3, -1, 0, -1}, {{0, 6}, {8, 8}}, 2.0);
    expectDashes(5, {3, -2}, {{0, 3}});                       // none begins at the end
    expectDashes(5, {0, -2.5}, {{0, 0}, {2.5, 2.5}, {5, 5}}); // but a dot counts there
    expectDashes(0.3, {0, -0.1}, {{0, 0}, {0.1, 0.1}, {0.2, 0.2}, {0.3, 0.3}});
    expectDashes(5, {-2, 1}, {{2, 3}});
    expectDashes(5, {-2}, {});
    expectDashes(5, {0, 0}, {{0, 0}});
    expectDashes(5, {}, {{0, 5}});
    expectDashes(5, {1, -1}, {{0, 5}}, 0.0);
    expectDashes(5, {1e-9, -1e-9}, {{0, 5}}); // too fine: solid
    expectDashes(5, {1, std::nan("")}, {{0, 5}});
    const double most = 1.7e308;
    EXPECT_EQ(VEK::vl_measure(line(0, 0, HUGE_VAL, 0), 1.0, CVekLineParm(most / 4, -most / 4)).len(), 1);
    const CVekVertexArray there = path({line(0, 0, most / 2, 0), line(most / 2, 0, -most / 2, 0)});
    EXPECT_EQ(VEK::vl_measure(there, 1.0, CVekLineParm(most / 8, -most / 8)).len(), 1); // too long to be added up
}

/// An outline from its kind and its parameters.
CVekVertexArray outlineOf(const std::string& numbersOfIt)
{
    std::istringstream text(numbersOfIt);
    int kind = 0;
    text >> kind;
    return VEK::g_outline(kind, CVekVector3d(), numbers({std::istream_iterator<double>(text), {}}));
}

TEST(GeometryOutline, EveryKindIsClosedAndOfItsArea)
{
    const double kSegment = 25 * (std::asin(0.8) - 0.48); // of a disc with radius 5, 2 high
    std::vector<std::pair<std::string, double>> shapes = {{"7 2", 2 * std::sqrt(3.0)},
                                                          {"8 2", 8 * std::tan(pi / 8)},
                                                          {"35 8 2", kSegment},
                                                          {"36 10 8", 25 * pi - kSegment},
                                                          {"37 10 6", 25 * pi - 2 * kSegment},
                                                          {"38 10 6 14", 29.5 * pi + 24 - 25 * std::asin(0.6)},
                                                          {"40 8 10 2", 64 + kSegment}};
    // Each with its area behind, a number and one that is times pi.
    std::istringstream rows("1 2 = 0 1; 2 4 3 = 12 0; 3 3 = 9 0; 4 4 3 1 = 8 1; 4 4 2 1 = 4 1; 5 4 3 1 = 10 0; "
                            "6 5 2 = 6 1; 6 2 2 = 0 1; 9 4 3 = 6 0; 10 -4 3 = 6 0; 11 4 2 3 = 9 0; "
                            "11 0 2 3 = 3 0; 12 4 3 -1 = 12 0; 13 5 8 1 2 1 = 17 -0.25; "
                            "14 6 8 2 1 0.5 = 20.5 -0.125; 15 6 8 2 1 0.5 = 25 -0.25; "
                            "16 -6 8 2 1 0.5 = 24.5 -0.125; 17 6 8 2 1 0.5 = 24.5 -0.125; 18 6 8 1 2 = 20 0; "
                            "19 6 8 2 1 = 20 0; 20 2 = 0 1; 21 3 1 90 = 0 2; 21 3 0 -270 = 0 6.75; "
                            "22 -10 = 0 12.5; 23 10 6 = 0 15; 24 10 1 = 0 9; 25 10 20 1 2 = 44 3; "
                            "25 10 20 1 0 = 56 0; 26 -5 8 1 1 0.5 = 12.5 -0.125; 27 5 8 1 2 = 7 1.25; "
                            "28 -5 8 1 2 = 6 2.5; 29 5 8 1 2 = 6 2.5; 30 -6 10 3.5 1 1.5 = 9 4; "
                            "31 6 10 3.5 1 1.5 = 9 4; 32 10 12 3.5 1 1.5 = 14 3; 33 10 6 5 1 1 = 18 3; "
                            "34 10 10 6 5 1 1 = 18 3; 39 4 6 = 16 2; 41 8 10 4 = 64 0");
    for (std::string row; std::getline(rows, row, ';');) {
        double whole = 0, round = 0;
        std::istringstream(row.substr(row.find('=') + 1)) >> whole >> round;
        shapes.emplace_back(row.substr(0, row.find('=')), whole + round * pi);
    }
    ASSERT_EQ(shapes.size(), 46u);
    for (const auto& [text, area] : shapes) {
        SCOPED_TRACE(text);
        const CVekVertexArray vl = outlineOf(text);
        EXPECT_TRUE(vl.isClosed() && vl.isContinuous());
        for (const CVekVertex& vertex : vl)
            EXPECT_GT(vertex.bulgLen(), 0.1);
        EXPECT_NEAR(areaOf(vl), area, 1e-3);
    }
}

TEST(GeometryOutline, LiesAboutItsOriginAndMoves)
{
    const auto box = [](int kind, const CVekPoint3d& offset, std::initializer_list<double> parameters) {
        return VEK::vl_extmax(VEK::g_outline(kind, offset, numbers(parameters)), 0.0);
    };
    expectAt(box(2, {10, 20, 0}, {4, 6})[0], 8, 17);
    expectAt(box(17, {0, 0, 0}, {6, 8, 2, 1, 0})[1], 5, 4);
    expectAt(box(21, {0, 0, 0}, {3, 1, -90})[0], 0, -3);
    // The mark of a section: its level side through the origin, the round one down.
    expectAt(box(22, {0, 0, 0}, {-10.0})[0], -5, -5);
    expectAt(box(22, {0, 0, 0}, {-10.0})[1], 5, 0);
    // An L with a negative width stands on its right.
    const CVekVertexArray mirrored = VEK::g_outline(13, CVekVector3d(), numbers({-5, 8, 1, 2, 0}));
    EXPECT_TRUE(std::any_of(mirrored.begin(), mirrored.end(), [](const CVekVertex& vertex) {
        return vertex.start == CVekPoint3d(2.5, 4, 0); // the top of its upright leg
    }));
}

TEST(GeometryOutline, ImpossibleParametersGiveNothing)
{
    // Each with the kind in front: unknown ones, then what is missing, not above 0, or leaves no room.
    for (const char* wrong :
         {"0 1",          "42 1",     "2 4",          "1 0",        "2 4 -3",        "6 2 3",        "4 4 3 1.6",
          "5 4 3 1.6",    "11 0 0 3", "21 3 3 90",    "21 3 1 360", "18 6 8 1 4",    "13 5 8 5 2 0", "13 5 8 1 2 5",
          "15 6 8 2 4 0", "24 10 5",  "25 10 20 5 0", "27 5 8 1 5", "30 6 10 5 1 1", "32 5 5 4 1 0", "34 2 10 6 5 1 1",
          "36 10 10",     "37 10 10", "38 10 10 14",  "38 10 6 10", "39 6 3",        "40 8 10 5",    "41 8 4 4"}) {
        EXPECT_EQ(outlineOf(wrong).len(), 0) << wrong;
    }
    EXPECT_EQ(VEK::g_outline(1, CVekVector3d(), numbers({HUGE_VAL})).len(), 0);
}

} // namespace
