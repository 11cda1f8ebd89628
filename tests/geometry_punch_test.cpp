#include "shapes.h"

#include <gtest/gtest.h>

namespace
{

using namespace shapes;

constexpr double kTol = 1e-6; // the point tolerance, within which a cut may lie

/// Compares the lengths of the pieces inside and outside, in order.
void expectLengths(const CVekVertexArray& vl, const Polylines& region, const std::vector<double>& in,
                   const std::vector<double>& out)
{
    for (const bool inside : {true, false}) {
        const Polylines pieces = VEK::vl_punch_reg(vl, region, inside);
        const std::vector<double>& wanted = inside ? in : out;
        ASSERT_EQ(pieces.len(), static_cast<int>(wanted.size())) << (inside ? "inside" : "outside");
        for (int i = 0; i < pieces.len(); ++i) {
            EXPECT_TRUE(pieces[i].isContinuous());
            EXPECT_NEAR(lengthOf(pieces[i]), wanted[i], kTol) << (inside ? "inside " : "outside ") << i;
        }
    }
}

TEST(GeometryPunch, TheBoundaryBelongsToTheRegion)
{
    const Polylines reg = list({rectangle(0, 0, 10, 10), rectangle(2, 2, 8, 8)});
    expectLengths(reg[0], reg, {40}, {});
    expectLengths(reg[1], reg, {24}, {});
    // Of two equal holes, and of a hole in another one, the inner boundary bounds nothing.
    expectLengths(line(3, 4, 5, 4), list({reg[0], reg[1], rectangle(3, 4, 5, 6)}), {}, {2});
    const Polylines disc = list({circle(0, 0, 2), circle(0, 0, 1)});
    expectLengths(disc[0], disc, {4 * pi}, {});
    expectLengths(disc[1], disc, {2 * pi}, {});
    // An arc that leaves along the boundary and one that runs on it in part.
    expectLengths(line(2, 0, 0, 2, std::tan(pi / 8)), disc, {pi}, {});
    expectLengths(path({line(2, -1, 2, 0), line(2, 0, 0, 2, std::tan(pi / 8)), line(0, 2, 0, 3)}), disc, {pi}, {1, 1});
}

TEST(GeometryPunch, PolylinesKeepTheirRunsTagsAndDots)
{
    CVekVertexArray vl = path({line(1, 1, 5, 1), line(5, 1, 15, 1), line(3, 3, 3, 3), line(4, 4, 4, 4.5),
                               line(40, 4, 40, 4), line(12, 5, 5, 5)});
    for (CVekVertex& vertex : vl) {
        vertex.start[2] = vertex.start[0];
        vertex.end[2] = vertex.end[0];
    }
    vl[1].tag[0] = 9;
    const Polylines pieces = VEK::vl_punch(vl, rectangle(0, 0, 10, 10), true);
    ASSERT_EQ(pieces.len(), 4);
    ASSERT_EQ(pieces[0].len(), 2);
    EXPECT_EQ(pieces[0][0], vl[0]);
    EXPECT_EQ(pieces[0][1].tag[0], 9);
    EXPECT_NEAR(pieces[0][1].end[2], 10.0, kTol);
    EXPECT_EQ(pieces[1][0], vl[2]); // the dot inside; the other one is gone
    EXPECT_EQ(pieces[2][0], vl[3]);
    EXPECT_NEAR(pieces[3][0].start[0], 10.0, kTol);
}

TEST(GeometryPunch, EmptyAndOddInput)
{
    expectLengths(line(0, 0, 1, 0), Polylines(), {}, {1});
    expectLengths(line(0, 0, 1, 0), list({CVekVertexArray(), rectangle(0, -1, 1, 1)}), {}, {1});
    expectLengths(line(0, 0, 1, 0), list({rectangle(0, -1, 1, std::nan(""))}), {}, {1});
    EXPECT_EQ(VEK::vl_punch(CVekVertexArray(), rectangle(0, 0, 1, 1), true).len(), 0);
    // An open contour counts as closed, and a point is no contour.
    expectLengths(line(-1, 1, 5, 1), list({path({line(0, 0, 4, 0), line(4, 0, 0, 4)})}), {3}, {1, 2});
    expectLengths(line(-1, 0, 5, 0), list({path({line(1, 0, 1, 0)})}), {}, {6});
}

TEST(GeometryPunch, FineFeaturesFarFromTheOrigin)
{
    const double x = 1e7, d = 1e-3;
    const Polylines reg = list({rectangle(x, x, x + 10 * d, x + 10 * d), circle(x + 5 * d, x + 5 * d, 2 * d)});
    expectLengths(line(x - d, x + 5 * d, x + 11 * d, x + 5 * d), reg, {3 * d, 3 * d}, {d, 4 * d, d});
    expectLengths(line(0, x + d, 2 * x, x + d), reg, {10 * d}, {x, x - 10 * d});
}

TEST(GeometryInside, BoundaryAndEmptyRegions)
{
    const Polylines region = list({circle(0, 0, 5), rectangle(-1, -1, 1, 1)});
    const double points[][3] = {{3, 4, 77}, {1, 0.5, -7}, {-3, 1, 0}, {0, 0, 0}, {0, 5.001, 0}, {-6, 1, 0}};
    for (const auto& [x, y, z] : points)
        EXPECT_EQ(VEK::g_vll_pt_inside(region, {x, y, z}) > 0, &x < points[3]) << x << ' ' << y;
    EXPECT_LT(VEK::g_vll_pt_inside(Polylines(), {0, 0, 0}), 1);
}

// A second method: what the winding of fine chords, and the distance from the exact segments, say of points on the
// pieces.

constexpr double kChord = 1e-3; // distance of the chord polygons from their arcs
constexpr double kOn = 1e-7;    // a point this near lies on a boundary; well within the tolerance of 1e-6 ...
constexpr double kOff = 1e-5;   // ... and one farther off does not
constexpr double kTilted =
    1e-3;                     // what a tilted arc loses of its length, in parts of it, since it is cut as fine chords
constexpr double kSum = 1e-4; // of sums of lengths: a tolerance of 1e-6 for each of up to a hundred cuts

class SecondMethod
{
public:
    explicit SecondMethod(const Polylines& region)
    {
        for (const CVekVertexArray& contour : region) {
            CVekPoint3dArray points = contour.pts(true, kChord);
            for (CVekPoint3d& p : points)
                p[2] = 0.0;
            const bool isLevel = std::fabs(contour.normal()[2]) == 1.0;
            const bool isBent =
                std::any_of(contour.begin(), contour.end(), [](auto& side) { return side.bulge != 0.0; });
            m_contours.push_back(
                {isLevel ? upright(contour) : CVekVertexArray().fromPoints(points, false), points, isBent});
        }
    }

    /// 1 inside or on the boundary, 0 outside, -1 where a point is too near to a boundary to be judged.
    int judge(const CVekPoint3d& p) const
    {
        bool inside = true;
        for (std::size_t i = 0; i < m_contours.size(); ++i) {
            double least = HUGE_VAL;
            for (const CVekVertex& side : m_contours[i].sides)
                least = std::min(least, side.lotp(p).distanceTo(p));
            if (least <= kOn)
                continue;
            if (least < (m_contours[i].isBent ? 2 * kChord : kOff))
                return -1;
            inside = inside && winds(m_contours[i].points, p) == (i == 0);
        }
        return inside;
    }

private:
    struct Contour {
        CVekVertexArray sides;
        CVekPoint3dArray points;
        bool isBent;
    };

    static bool winds(const CVekPoint3dArray& points, const CVekPoint3d& p)
    {
        bool odd = false;
        for (int i = 1; i < points.len(); ++i) {
            const CVekPoint3d &a = points[i - 1], &b = points[i];
            if ((a[1] > p[1]) != (b[1] > p[1]) && p[0] < a[0] + (b[0] - a[0]) * (p[1] - a[1]) / (b[1] - a[1]))
                odd = !odd;
        }
        return odd;
    }

    std::vector<Contour> m_contours;
};

/// Punches both ways and judges three places of every segment of the pieces.
/// @return number of places that could be judged
int check(const CVekVertexArray& vl, const Polylines& region)
{
    const SecondMethod second(region);
    VEK::CPreparedRegion prepared(region);
    int judged = 0;
    double sum = 0.0;
    for (const bool inside : {true, false}) {
        const Polylines pieces = VEK::vl_punch_reg(vl, region, inside);
        EXPECT_EQ(pieces, prepared.punch(vl, inside));
        sum += lengthOf(pieces);
        for (const CVekVertexArray& piece : pieces) {
            EXPECT_TRUE(piece.isContinuous());
            EXPECT_TRUE(piece.normal() == vl.normal());
            for (const CVekVertex& vertex : upright(piece)) {
                for (const double share : {0.2929, 0.618, 0.847}) { // where no grid and no tip happens to touch
                    CVekPoint3d p = pointAt(vertex, share);
                    p[2] = 0.0;
                    const int wanted = second.judge(p);
                    if (wanted < 0)
                        continue;
                    ++judged;
                    EXPECT_EQ(inside, wanted > 0) << p[0] << ' ' << p[1];
                    EXPECT_EQ(prepared.isInside(p), inside) << p[0] << ' ' << p[1];
                }
            }
        }
    }
    EXPECT_NEAR(sum, lengthOf(vl), std::fabs(vl.normal()[2]) == 1.0 ? kSum : kTilted * sum);
    return judged;
}

TEST(GeometryPunchRandom, PiecesLieWhereTheyBelongAndAddUp)
{
    Random random(20240607);
    int judged = 0;
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        Polylines region = list({random.star(0, 0, 6, 11, 3 + round % 40)});
        for (int hole = 0; hole < round % 4; ++hole) {
            const CVekVector3d at = VEK::polar(2.0 * hole, 3.0);
            region.append(random.star(at[0], at[1], 0.5, 1.8, 3 + round % 7));
        }
        CVekVertexArray vl = random.walk(12, 12.0);
        if (round % 3 == 2) { // planes that lie aside of xy
            vl.transformBy(random.tilt());
            region[0].transformBy(random.tilt());
        }
        judged += check(vl, region);
    }
    EXPECT_GT(judged, 5000);
}

TEST(GeometryPunchRandom, WholeNumbersMeetVerticesAndSidesAllTheTime)
{
    Random random(7);
    const auto grid = [&random] { return random.whole(7) - 3.0; };
    const auto bulge = [&random] { return random.pick({0, 0, 0, 1, -1, std::tan(pi / 8), -std::tan(pi / 8)}); };
    int judged = 0;
    for (int round = 0; round < 250; ++round) {
        SCOPED_TRACE(round);
        Polylines region;
        for (int contour = 0; contour < 1 + round % 3; ++contour) {
            CVekVertexArray& vl = region[contour];
            CVekPoint3dArray points;
            for (int i = 0; i < 3 + round % 6; ++i) {
                const double x = grid(), y = grid();
                points.append({x, y, 0});
            }
            vl.fromPoints(points, true);
            for (CVekVertex& vertex : vl)
                vertex.bulge = bulge();
            vl = random.redrawn(vl);
        }
        CVekVertexArray vl;
        CVekPoint3d at(grid(), 0, 0);
        for (int i = 0; i < 6; ++i) {
            const double x = grid(), y = grid();
            vl.append(CVekVertex(at, {x, y, 0}, bulge()));
            at = vl[-1].end;
        }
        judged += check(random.redrawn(vl), region);
    }
    EXPECT_GT(judged, 8000);
}

TEST(GeometryPunchRandom, LinesAlongSidesThatTipsTouch)
{
    // A polyline runs along a side, straight or bent, and holes, triangles and combs, stand with their tips on it.
    Random random(13);
    int judged = 0;
    for (int round = 0; round < 600; ++round) {
        SCOPED_TRACE(round);
        const double bulge = random.pick({0, 0, 0.3, -0.3});
        Polylines region = list({polygon({{0, 0}, {64, 0}, {64, 64}, {0, 64}}, {bulge})});
        CVekVertexArray vl = region[0][0];
        for (int hole = random.whole(4); hole >= 0; --hole) {
            if (bulge == 0.0 && random.coin()) { // a comb of teeth over most of the side
                std::vector<std::pair<double, double>> corners = {{63, 5}, {1, 5}};
                for (double x = 1; x < 62; x += 4)
                    corners.insert(corners.end(), {{x, 0.0}, {x + 2, 2.0}});
                region.append(random.redrawn(polygon(corners)));
                continue;
            }
            const CVekPoint3d tip = pointAt(vl[0], random.pick({0.5, 0.5, 0.25, 0.75, 0.31, 0.73, 0.17, 0.87}));
            const double right = tip[0] + random.uniform(1, 6), left = tip[0] - random.uniform(1, 6);
            region.append(random.redrawn(polygon({{right, 12}, {left, 13}, {tip[0], tip[1]}})));
        }
        region[0] = random.redrawn(region[0]);
        if (bulge == 0.0 && random.coin()) { // reaches out, or covers the side in part
            vl[0].start[0] += random.pick({-3, 0, 5, 16});
            vl[0].end[0] += random.pick({3, 0, -5, -16});
        }
        CVekMatrix3d place;
        place.setToRotation(random.pick({0, pi / 2, 0.3, 2.0}), CVekVector3d::kZAxis, {random.uniform(-9, 9), 5, 0});
        for (CVekVertexArray& contour : region)
            contour.transformBy(place);
        judged += check(random.redrawn(vl.transformBy(place)), region);
    }
    EXPECT_GT(judged, 1500);
}

} // namespace
