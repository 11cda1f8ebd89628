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

TEST(GeometryPunch, ATouchDoesNotCut)
{
    const Polylines disc = list({circle(0, 0, 2)});
    expectLengths(line(-3, 2, 3, 2), disc, {}, {6});
    expectLengths(line(-3, 1e-3, 3, 1e-3), list({circle(0, 0, 2), circle(0, 1.001, 1)}), {4}, {1, 1});
    expectLengths(circle(1, 0, 1), disc, {2 * pi}, {});
    expectLengths(circle(3, 0, 1), disc, {}, {2 * pi});
    expectLengths(circle(0, 0, 3), list({rectangle(-3, -3, 3, 3)}), {6 * pi}, {});
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

} // namespace
