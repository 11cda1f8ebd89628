#include <vek/geometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace
{

using std::numbers::pi;

constexpr double kTol = 1e-6; // the point tolerance, within which a cut may lie

using Polylines = CVekArrayTempl<CVekVertexArray>;

CVekVertex line(double x0, double y0, double x1, double y1, double bulge = 0.0)
{
    return {{x0, y0, 0.0}, {x1, y1, 0.0}, bulge};
}

CVekVertexArray path(std::initializer_list<CVekVertex> vertices)
{
    CVekVertexArray vl;
    for (const CVekVertex& vertex : vertices)
        vl.append(vertex);
    return vl;
}

CVekVertexArray polygon(const std::vector<std::pair<double, double>>& points)
{
    CVekVertexArray vl;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto& next = points[(i + 1) % points.size()];
        vl.append(line(points[i].first, points[i].second, next.first, next.second));
    }
    return vl;
}

CVekVertexArray rectangle(double x0, double y0, double x1, double y1)
{
    return polygon({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

CVekVertexArray circle(double x, double y, double r)
{
    return path({line(x + r, y, x - r, y, 1.0), line(x - r, y, x + r, y, 1.0)});
}

Polylines region(std::initializer_list<CVekVertexArray> contours)
{
    Polylines list;
    for (const CVekVertexArray& contour : contours)
        list.append(contour);
    return list;
}

double lengthOf(const CVekVertexArray& vl)
{
    double sum = 0.0;
    for (const CVekVertex& vertex : vl)
        sum += vertex.bulgLen();
    return sum;
}

/// Lengths of the pieces inside and outside, in order.
std::vector<double> lengths(const CVekVertexArray& vl, const Polylines& reg, bool inside)
{
    std::vector<double> list;
    for (const CVekVertexArray& piece : VEK::vl_punch_reg(vl, reg, inside)) {
        EXPECT_TRUE(piece.isContinuous());
        list.push_back(lengthOf(piece));
    }
    return list;
}

void expectLengths(const CVekVertexArray& vl, const Polylines& reg, const std::vector<double>& in,
                   const std::vector<double>& out)
{
    for (const bool inside : {true, false}) {
        const std::vector<double> found = lengths(vl, reg, inside);
        const std::vector<double>& wanted = inside ? in : out;
        ASSERT_EQ(found.size(), wanted.size()) << (inside ? "inside" : "outside");
        for (std::size_t i = 0; i < wanted.size(); ++i)
            EXPECT_NEAR(found[i], wanted[i], kTol) << (inside ? "inside " : "outside ") << i;
    }
}

TEST(GeometryPunch, LineThroughARegionWithHoles)
{
    const Polylines reg =
        region({rectangle(0, 0, 10, 10), rectangle(2, 2, 4, 8), circle(7, 5, 1), rectangle(0.5, 9, 1, 9.5)});
    expectLengths(line(-5, 5, 15, 5), reg, {2, 2, 2}, {5, 2, 2, 5});
    expectLengths(line(15, 5, -5, 5), reg, {2, 2, 2}, {5, 2, 2, 5});
    expectLengths(line(3, 5, 7, 5), reg, {2}, {1, 1});
    expectLengths(line(1, 1, 1.5, 1.25), reg, {std::sqrt(0.3125)}, {});
    expectLengths(line(20, 0, 20, 9), reg, {}, {9});
    const Polylines pieces = VEK::vl_punch(line(-5, 5, 15, 5), reg[2], true);
    ASSERT_EQ(pieces.len(), 1);
    EXPECT_NEAR(pieces[0][0].start[0], 6.0, kTol);
    EXPECT_NEAR(pieces[0][0].end[0], 8.0, kTol);
}

TEST(GeometryPunch, HolesThatReachOutOrOverlapStayHoles)
{
    const Polylines reg = region({rectangle(0, 0, 10, 10), rectangle(8, 4, 12, 6), rectangle(2, 4, 5, 6),
                                  rectangle(4, 4, 7, 6), rectangle(4, 4, 7, 6)});
    expectLengths(line(-1, 5, 13, 5), reg, {2, 1}, {1, 5, 5});
}

TEST(GeometryPunch, VerticesOnTheLine)
{
    // A diamond is crossed at two vertices, a zigzag touched at its teeth, and a step passed along its tread.
    expectLengths(line(-5, 0, 5, 0), region({polygon({{-2, 0}, {0, -3}, {2, 0}, {0, 3}})}), {4}, {3, 3});
    const Polylines comb = region({polygon({{0, 0}, {8, 0}, {8, 4}, {6, 2}, {4, 4}, {2, 2}, {0, 4}})});
    expectLengths(line(-1, 2, 9, 2), comb, {8}, {1, 1});
    expectLengths(line(-1, 4, 9, 4), comb, {}, {10});
    expectLengths(line(-1, 3, 9, 3), comb, {1, 2, 1}, {1, 2, 2, 1});
    expectLengths(line(-1, 2, 9, 2), region({polygon({{0, 0}, {8, 0}, {8, 4}, {4, 4}, {4, 2}, {0, 2}})}), {8}, {1, 1});
}

TEST(GeometryPunch, TheBoundaryBelongsToTheRegion)
{
    const Polylines reg = region({rectangle(0, 0, 10, 10), rectangle(2, 2, 8, 8)});
    expectLengths(line(-1, 0, 11, 0), reg, {10}, {1, 1});
    expectLengths(line(-1, 8, 11, 8), reg, {10}, {1, 1});
    expectLengths(line(3, 8, 4, 8), reg, {1}, {});
    expectLengths(reg[0], reg, {40}, {});
    expectLengths(reg[1], reg, {24}, {});
    // Of two equal holes, and of a hole in another one, the inner boundary bounds nothing.
    expectLengths(line(3, 4, 5, 4), region({reg[0], reg[1], rectangle(3, 4, 5, 6)}), {}, {2});
    const Polylines disc = region({circle(0, 0, 2), circle(0, 0, 1)});
    expectLengths(disc[0], disc, {4 * pi}, {});
    expectLengths(disc[1], disc, {2 * pi}, {});
    // An arc that leaves along the boundary and one that runs on it in part.
    expectLengths(line(2, 0, 0, 2, std::tan(pi / 8)), disc, {pi}, {});
    expectLengths(path({line(2, -1, 2, 0), line(2, 0, 0, 2, std::tan(pi / 8)), line(0, 2, 0, 3)}), disc, {pi}, {1, 1});
}

TEST(GeometryPunch, ATouchDoesNotCut)
{
    const Polylines disc = region({circle(0, 0, 2)});
    expectLengths(line(-3, 2, 3, 2), disc, {}, {6});
    expectLengths(line(-3, 1e-3, 3, 1e-3), region({circle(0, 0, 2), circle(0, 1.001, 1)}), {4}, {1, 1});
    expectLengths(circle(1, 0, 1), disc, {2 * pi}, {});
    expectLengths(circle(3, 0, 1), disc, {}, {2 * pi});
    expectLengths(circle(0, 0, 3), region({rectangle(-3, -3, 3, 3)}), {6 * pi}, {});
}

TEST(GeometryPunch, ArcsAreCutExactlyAndStayArcs)
{
    // A circle of radius 5 about the origin and the half plane above y = 3: it cuts at (4, 3) and (-4, 3).
    const Polylines half = region({rectangle(-9, 3, 9, 9)});
    const double angle = std::atan2(3.0, 4.0);
    expectLengths(circle(0, 0, 5), half, {5 * (pi - 2 * angle)}, {5 * (pi + 2 * angle)});
    const Polylines pieces = VEK::vl_punch_reg(circle(0, 0, 5), half, false);
    ASSERT_EQ(pieces.len(), 1); // over the seam of the closed polyline
    ASSERT_EQ(pieces[0].len(), 3);
    EXPECT_NEAR(pieces[0][0].start[0], -4.0, kTol);
    EXPECT_NEAR(pieces[0][-1].end[0], 4.0, kTol);
    EXPECT_NEAR(pieces[0][0].bulge, std::tan(angle / 4), kTol);
    // About a normal that points down the bulge turns the other way.
    CVekVertexArray down = path({line(5, 0, -5, 0, -1.0)});
    down.setNormal({0, 0, -1});
    expectLengths(down, half, {5 * (pi - 2 * angle)}, {5 * angle, 5 * angle});
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
    expectLengths(line(0, 0, 1, 0), region({CVekVertexArray(), rectangle(0, -1, 1, 1)}), {}, {1});
    expectLengths(line(0, 0, 1, 0), region({rectangle(0, -1, 1, std::nan(""))}), {}, {1});
    EXPECT_EQ(VEK::vl_punch(CVekVertexArray(), rectangle(0, 0, 1, 1), true).len(), 0);
    // An open contour counts as closed, and a point is no contour.
    expectLengths(line(-1, 1, 5, 1), region({path({line(0, 0, 4, 0), line(4, 0, 0, 4)})}), {3}, {1, 2});
    expectLengths(line(-1, 0, 5, 0), region({path({line(1, 0, 1, 0)})}), {}, {6});
}

TEST(GeometryPunch, FineFeaturesFarFromTheOrigin)
{
    const double x = 1e7, d = 1e-3;
    const Polylines reg = region({rectangle(x, x, x + 10 * d, x + 10 * d), circle(x + 5 * d, x + 5 * d, 2 * d)});
    expectLengths(line(x - d, x + 5 * d, x + 11 * d, x + 5 * d), reg, {3 * d, 3 * d}, {d, 4 * d, d});
    expectLengths(line(0, x + d, 2 * x, x + d), reg, {10 * d}, {x, x - 10 * d});
}

TEST(GeometryInside, BoundaryHolesAndArcs)
{
    const Polylines reg = region({circle(0, 0, 5), rectangle(-1, -1, 1, 1)});
    const auto inside = [&](double px, double py) { return VEK::g_vll_pt_inside(reg, {px, py, 77.0}); };
    EXPECT_GE(inside(3, 0), 1);
    EXPECT_GE(inside(5, 0), 1);
    EXPECT_GE(inside(3, 4), 1);
    EXPECT_GE(inside(1, 0.5), 1);
    EXPECT_GE(inside(-3, 1), 1); // at the height of a vertex
    EXPECT_LT(inside(0, 0), 1);
    EXPECT_LT(inside(0, 5.001), 1);
    EXPECT_LT(inside(-6, 1), 1);
    EXPECT_LT(inside(6, 0), 1);
    EXPECT_LT(VEK::g_vll_pt_inside(Polylines(), {0, 0, 0}), 1);
}

} // namespace
