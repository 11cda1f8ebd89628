#include <vek/geometry.h>
#include <vek/values/string.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace
{

using std::numbers::pi;

constexpr double kTol = 1e-9; // of everything computed from small numbers

using Polylines = CVekArrayTempl<CVekVertexArray>;

CVekArrayTempl<double> list(const std::vector<double>& values)
{
    CVekArrayTempl<double> array;
    for (double value : values)
        array.append(value);
    return array;
}

CVekVertexArray path(std::initializer_list<CVekVertex> vertices)
{
    CVekVertexArray vl;
    for (const CVekVertex& vertex : vertices)
        vl.append(vertex);
    return vl;
}

CVekVertex line(double x0, double y0, double x1, double y1, double bulge = 0.0)
{
    return {{x0, y0, 0.0}, {x1, y1, 0.0}, bulge};
}

double lengthOf(const CVekVertexArray& vl)
{
    double sum = 0.0;
    for (const CVekVertex& vertex : vl)
        sum += vertex.bulgLen();
    return sum;
}

double lengthOf(const Polylines& vll)
{
    double sum = 0.0;
    for (const CVekVertexArray& vl : vll)
        sum += lengthOf(vl);
    return sum;
}

/// Area by Green's theorem over fine chords.
double areaOf(const CVekVertexArray& vl)
{
    const CVekPoint3dArray points = vl.pts(true, 1e-5);
    double twice = 0.0;
    for (int i = 1; i < points.len(); ++i)
        twice += points[i - 1][0] * points[i][1] - points[i][0] * points[i - 1][1];
    return 0.5 * twice;
}

void expectAt(const CVekPoint3d& p, double x, double y, double z = 0.0)
{
    EXPECT_NEAR(p[0], x, kTol);
    EXPECT_NEAR(p[1], y, kTol);
    EXPECT_NEAR(p[2], z, kTol);
}

TEST(GeometryView, PlanFromAboveIsTheIdentity)
{
    const CVekMatrix3d m = VEK::g_mtx_view({0, 0, 3}, CVekPoint3d::kOrigin, true);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(m[row][column], row == column ? 1.0 : 0.0);
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
    // From below the world's y axis points up, so x runs to the left.
    expectAt(CVekPoint3d(1, 2, 3) * VEK::g_mtx_view({0, 0, -1}, CVekPoint3d::kOrigin, true), -1, 2, -3);
}

TEST(GeometryView, NamesAreComparedExactlyAndOtherNamesAreThePlan)
{
    const CVekPoint3d p(1, 2, 3);
    const auto seen = [&](const wchar_t* name) { return p * VEK::g_mtx_view_dir(name, CVekPoint3d::kOrigin); };
    expectAt(seen(L"P"), 1, 2, 3);
    expectAt(seen(L"S"), 1, 3, -2);
    expectAt(seen(L"N"), -1, 3, 2);
    expectAt(seen(L"W"), 2, 3, 1);
    expectAt(seen(L"E"), 2, 3, 1);
    expectAt(seen(L"O"), -2, 3, -1);
    EXPECT_NEAR(seen(L"NO")[2], 6.0 / std::sqrt(3.0), kTol);
    EXPECT_NEAR(seen(L"SW")[2], 0.0, kTol);
    expectAt(seen(L"w"), 1, 2, 3);
    expectAt(seen(nullptr), 1, 2, 3);
    expectAt(p * VEK::g_mtx_view_dir(CVekString(L"S"), {1, 2, 3}), 0, 0, 0);
}

TEST(GeometryView, ProjectionKeepsLevelArcsAndSplitsTiltedOnes)
{
    CVekVertex up({1, 2, 3}, {4, 5, 6}, 0.5);
    EXPECT_EQ(VEK::g_vx_xy(up).bulge, 0.5);
    EXPECT_EQ(up.start, CVekPoint3d(1, 2, 0));

    const CVekVertexArray half(line(1, 0, -1, 0, 1.0));
    CVekMatrix3d m;
    m.setToTranslation({5, 0, 7});
    const CVekVertexArray level = VEK::g_vl_proje_mtx_orig(half, m, 0.1);
    ASSERT_EQ(level.len(), 1);
    EXPECT_EQ(level[0], line(6, 0, 4, 0, 1.0));
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
    CVekVertexArray vl = path({line(0, 0, 1, 0), line(1, 0, 2, 0), line(3, 0, 4, 0), line(5, 0, 5, 0)});
    vl.setNormal({0, 0, -1});
    const Polylines runs = VEK::vl_to_vll(vl);
    ASSERT_EQ(runs.len(), 3);
    EXPECT_EQ(runs[0].len(), 2);
    EXPECT_EQ(runs[1][0], vl[2]);
    EXPECT_EQ(runs[2][0], vl[3]);
    EXPECT_EQ(runs[1].normal(), vl.normal());
    EXPECT_EQ(VEK::vl_to_vll(CVekVertexArray()).len(), 0);
}

TEST(GeometryExtents, BoxInATurnedFrame)
{
    const CVekVertexArray half = path({line(1, 0, -1, 0, 1.0)});
    const CVekPoint3dArray box = VEK::vl_extmax(half, 0.0);
    ASSERT_EQ(box.len(), 2);
    expectAt(box[0], -1, 0);
    expectAt(box[1], 1, 1);
    // Along 45 degrees: from the end at -1 to the far point of the arc, and across from the end at 1 to the same depth.
    const CVekPoint3dArray turned = VEK::vl_extmax(half, pi / 4);
    const double c = std::sqrt(0.5);
    expectAt(turned[0], -c * c + c * c, -c * c - c * c);
    expectAt(turned[1], c - c, c + c);
    EXPECT_EQ(VEK::vl_extmax(CVekVertexArray(), 0.0).len(), 0);
}

TEST(GeometryExtents, RectangleAround)
{
    const CVekVertexArray half = path({line(1, 0, -1, 0, 1.0)});
    const CVekVertexArray rectangle = VEK::vl_extrect(half, 0.5);
    ASSERT_EQ(rectangle.len(), 4);
    EXPECT_TRUE(rectangle.isClosed());
    expectAt(rectangle[0].start, -1.5, -0.5);
    EXPECT_NEAR(areaOf(rectangle), 6.0, kTol);
    EXPECT_EQ(VEK::vl_extrect(half, -0.6).len(), 0);
    EXPECT_EQ(VEK::vl_extrect(CVekVertexArray(), 1.0).len(), 0);
}

TEST(GeometryChords, StayWithinTheDifference)
{
    EXPECT_EQ(VEK::vx_split_dif(line(0, 0, 9, 0), 0.1), 1);
    for (double radius : {0.5, 10.0, 3000.0}) {
        for (double bulge : {1.0, -0.3, 2.5}) {
            const CVekVertex arc = line(-radius, 0, radius, 0, bulge);
            const double r = radius * (1.0 + bulge * bulge) / (2.0 * std::fabs(bulge));
            for (double dif : {0.01, 0.1}) {
                const int n = VEK::vx_split_dif(arc, dif);
                const auto sagitta = [&](int count) {
                    return r * (1.0 - std::cos(2.0 * std::atan(std::fabs(bulge)) / count));
                };
                EXPECT_LE(sagitta(n), dif * (1.0 + kTol));
                if (n > 4) {
                    EXPECT_GT(sagitta(n - 1), dif);
                }
                EXPECT_EQ(VEK::g_vl_expl(arc, n), VEK::vl_split_dif(arc, dif));
            }
        }
    }
    EXPECT_EQ(VEK::vx_split_dif(line(0, 0, 9, 0, 1.0), 0.0), 4096);
}

TEST(GeometryChords, ReplaceArcsAndKeepTheRest)
{
    CVekVertexArray vl = path({line(0, 0, 4, 0), line(4, 0, 0, 0, 1.0), line(0, 0, 0, 0, 1.0)});
    vl[1].tag[3] = 7;
    const CVekVertexArray chords = VEK::g_vl_expl(vl, 2);
    ASSERT_EQ(chords.len(), 4);
    EXPECT_EQ(chords[0], vl[0]);
    expectAt(chords[1].end, 2, 2);
    EXPECT_EQ(chords[2].start, chords[1].end);
    EXPECT_EQ(chords[2].end, vl[1].end);
    EXPECT_EQ(chords[2].tag[3], 7);
    EXPECT_EQ(chords[3].bulge, 0.0);
    EXPECT_EQ(VEK::g_vl_expl(vl, -5).len(), 3);
}

TEST(GeometryCut, RunsInThePolylinesOwnDirection)
{
    const CVekVertexArray vl = path({line(0, 0, 2, 0), line(2, 0, 2, 2, 1.0), line(2, 2, 0, 2)});
    const CVekVertexArray cut = VEK::g_vl_cut(vl, {1, 2, 0}, {1, 0, 0});
    ASSERT_EQ(cut.len(), 3);
    EXPECT_EQ(cut[0], line(1, 0, 2, 0));
    EXPECT_EQ(cut[1], vl[1]);
    EXPECT_EQ(cut[2], line(2, 2, 1, 2));
    // Half of the arc, and a part that begins where a segment ends.
    const CVekVertexArray arc = VEK::g_vl_cut(vl, {2, 0, 0}, {3, 1, 0});
    ASSERT_EQ(arc.len(), 1);
    EXPECT_NEAR(arc[0].bulge, std::tan(pi / 8), kTol);
    EXPECT_EQ(arc[0].end, CVekPoint3d(3, 1, 0));
    EXPECT_EQ(VEK::g_vl_cut(vl, {1, 0, 0}, {1, 0, 0}).len(), 0);
    EXPECT_EQ(VEK::g_vl_cut(vl, {1, 0, 0}, {1, 1, 0}).len(), 0);
}

struct Dash {
    double from, to;
};

/// The stations of the dashes of a pattern on a straight run along x.
std::vector<Dash> dashes(double length, std::initializer_list<double> pattern, double scale = 1.0)
{
    std::vector<Dash> stations;
    for (const CVekVertexArray& piece : VEK::vl_measure(line(0, 0, length, 0), scale, CVekLineParm(list(pattern)))) {
        EXPECT_EQ(piece.len(), 1);
        stations.push_back({piece[0].start[0], piece[0].end[0]});
    }
    return stations;
}

void expectDashes(const std::vector<Dash>& found, std::initializer_list<Dash> wanted)
{
    ASSERT_EQ(found.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_NEAR(found[i].from, wanted.begin()[i].from, kTol);
        EXPECT_NEAR(found[i].to, wanted.begin()[i].to, kTol);
    }
}

TEST(GeometryMeasure, DashesGapsAndDots)
{
    expectDashes(dashes(10, {3, -1, 0, -1}), {{0, 3}, {4, 4}, {5, 8}, {9, 9}});
    expectDashes(dashes(6.5, {3, -1, 0, -1}), {{0, 3}, {4, 4}, {5, 6.5}}); // the last dash is cut
    expectDashes(dashes(10, {3, -1, 0, -1}, 2.0), {{0, 6}, {8, 8}});
    expectDashes(dashes(5, {3, -2}), {{0, 3}});                       // none begins at the end
    expectDashes(dashes(5, {0, -2.5}), {{0, 0}, {2.5, 2.5}, {5, 5}}); // but a dot counts there
    expectDashes(dashes(0.3, {0, -0.1}), {{0, 0}, {0.1, 0.1}, {0.2, 0.2}, {0.3, 0.3}});
    expectDashes(dashes(5, {-2, 1}), {{2, 3}});
    expectDashes(dashes(5, {-2}), {});
    expectDashes(dashes(5, {0, 0}), {{0, 0}});
    expectDashes(dashes(5, {}), {{0, 5}});
    expectDashes(dashes(5, {1, -1}, 0.0), {{0, 5}});
    expectDashes(dashes(5, {1e-9, -1e-9}), {{0, 5}}); // too fine: solid
    expectDashes(dashes(5, {1, -std::numeric_limits<double>::quiet_NaN()}), {{0, 5}});
}

TEST(GeometryMeasure, DashesTurnCornersAndBendWithArcs)
{
    // A straight of 2, a half circle of radius 1, a break, and a straight of 3.
    const CVekVertexArray vl = path({line(0, 0, 2, 0), line(2, 0, 2, 2, 1.0), line(9, 0, 12, 0)});
    const Polylines pieces = VEK::vl_measure(vl, 1.0, CVekLineParm(2.0 + pi / 2, -0.5));
    ASSERT_EQ(pieces.len(), 3);
    ASSERT_EQ(pieces[0].len(), 2);
    EXPECT_EQ(pieces[0][0], vl[0]);
    expectAt(pieces[0][1].end, 3, 1);
    EXPECT_NEAR(pieces[0][1].bulge, std::tan(pi / 8), kTol);
    ASSERT_EQ(pieces[1].len(), 1);
    EXPECT_EQ(pieces[1][0].end, vl[1].end);
    EXPECT_NEAR(lengthOf(pieces[1]), pi / 2 - 0.5, kTol);
    EXPECT_EQ(pieces[2][0], vl[2]); // the pattern starts anew
}

TEST(GeometryMeasure, AddsUpOnLongRunsWithoutDrift)
{
    CVekVertexArray vl;
    for (int i = 0; i < 1000; ++i)
        vl.append(line(i, 0, i + 1, 0, i % 3 ? 0.0 : 0.4));
    const double total = lengthOf(vl);
    const Polylines pieces = VEK::vl_measure(vl, 1.0, CVekLineParm(0.7, -0.3));
    const double whole = std::floor(total);
    EXPECT_EQ(pieces.len(), static_cast<int>(whole) + 1);
    EXPECT_NEAR(lengthOf(pieces), whole * 0.7 + std::min(0.7, total - whole), 1e3 * kTol);
}

TEST(GeometryOutline, EveryKindIsClosedAndOfItsArea)
{
    struct {
        int kind;
        std::vector<double> parameters;
        double area;
    } const shapes[] = {
        {1, {2}, pi},
        {2, {4, 3}, 12},
        {3, {3}, 9},
        {4, {4, 3, 1}, 12 - (4 - pi)},
        {4, {4, 2, 1}, 8 - (4 - pi)},
        {5, {4, 3, 1}, 10},
        {6, {5, 2}, 6 + pi},
        {6, {2, 2}, pi},
        {7, {2}, 2 * std::sqrt(3.0)},
        {8, {2}, 8 * std::tan(pi / 8)},
        {9, {4, 3}, 6},
        {10, {-4, 3}, 6},
        {11, {4, 2, 3}, 9},
        {11, {0, 2, 3}, 3},
        {12, {4, 3, -1}, 12},
        {13, {5, 8, 1, 2, 1}, 8 + 10 - 2 + (1 - pi / 4)},
        {14, {6, 8, 2, 1, 0.5}, 6 + 14 + 2 * 0.25 * (1 - pi / 4)},
        {15, {6, 8, 2, 1, 0.5}, 12 + 12 + 4 * 0.25 * (1 - pi / 4)},
        {16, {-6, 8, 2, 1, 0.5}, 12 + 12 + 2 * 0.25 * (1 - pi / 4)},
        {17, {6, 8, 2, 1, 0.5}, 12 + 12 + 2 * 0.25 * (1 - pi / 4)},
        {18, {6, 8, 1, 2}, 8 + 10 + 2},
        {19, {6, 8, 2, 1}, 16 + 6 - 2},
        {20, {2}, pi},
        {21, {3, 1, 90}, 2 * pi},
        {21, {3, 0, -270}, 6.75 * pi},
        {22, {-10}, 12.5 * pi},
    };
    for (const auto& shape : shapes) {
        SCOPED_TRACE(shape.kind);
        const CVekVertexArray vl = VEK::g_outline(shape.kind, CVekVector3d(), list(shape.parameters));
        EXPECT_TRUE(vl.isClosed());
        EXPECT_TRUE(vl.isContinuous());
        for (const CVekVertex& vertex : vl)
            EXPECT_GT(vertex.bulgLen(), 0.1);
        EXPECT_NEAR(areaOf(vl), shape.area, 1e-3);
    }
}

TEST(GeometryOutline, LiesAboutItsOriginAndMoves)
{
    const auto box = [](int kind, const CVekPoint3d& offset, std::initializer_list<double> parameters) {
        return VEK::vl_extmax(VEK::g_outline(kind, offset, list(parameters)), 0.0);
    };
    expectAt(box(2, {10, 20, 0}, {4, 6})[0], 8, 17);
    expectAt(box(17, {0, 0, 0}, {6, 8, 2, 1, 0})[1], 5, 4);
    expectAt(box(21, {0, 0, 0}, {3, 1, -90})[0], 0, -3);
    // The mark of a section: its level side through the origin, the round one down.
    expectAt(box(22, {0, 0, 0}, {-10.0})[0], -5, -5);
    expectAt(box(22, {0, 0, 0}, {-10.0})[1], 5, 0);
    // An L with a negative width stands on its right.
    const CVekVertexArray mirrored = VEK::g_outline(13, CVekVector3d(), list({-5, 8, 1, 2, 0}));
    EXPECT_TRUE(std::any_of(mirrored.begin(), mirrored.end(), [](const CVekVertex& vertex) {
        return vertex.start == CVekPoint3d(2.5, 4, 0); // the top of its upright leg
    }));
}

TEST(GeometryOutline, ImpossibleParametersGiveNothing)
{
    const std::pair<int, std::vector<double>> wrong[] = {
        {0, {1}},
        {23, {1}},
        {2, {4}},
        {1, {0}},
        {2, {4, -3}},
        {4, {4, 3, 1.6}},
        {5, {4, 3, 1.6}},
        {6, {2, 3}},
        {11, {0, 0, 3}},
        {13, {5, 8, 5, 2, 0}},
        {13, {5, 8, 1, 2, 5}},
        {15, {6, 8, 2, 4, 0}},
        {18, {6, 8, 1, 4}},
        {21, {3, 3, 90}},
        {21, {3, 1, 360}},
        {1, {std::numeric_limits<double>::infinity()}},
    };
    for (const auto& [kind, parameters] : wrong)
        EXPECT_EQ(VEK::g_outline(kind, CVekVector3d(), list(parameters)).len(), 0) << kind;
}

} // namespace
