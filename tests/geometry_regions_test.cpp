#include <vek/geometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace
{

constexpr double kTol = 1e-6;

using Polylines = CVekArrayTempl<CVekVertexArray>;
using Regions = CVekArrayTempl<Polylines>;

CVekVertex line(double x0, double y0, double x1, double y1, double bulge = 0.0)
{
    return {{x0, y0, 0.0}, {x1, y1, 0.0}, bulge};
}

CVekVertexArray rectangle(double x0, double y0, double x1, double y1)
{
    return VEK::vl_extrect(line(x0, y0, x1, y1), 0.0);
}

CVekVertexArray circle(double x, double y, double r)
{
    return VEK::g_outline(1, CVekVector3d(x, y, 0.0), [&] {
        CVekArrayTempl<double> parameters;
        parameters.append(2 * r);
        return parameters;
    }());
}

Polylines list(const std::vector<CVekVertexArray>& contours)
{
    Polylines array;
    for (const CVekVertexArray& contour : contours)
        array.append(contour);
    return array;
}

/// The regions as positions of their contours in the list: the outer one first.
std::vector<std::vector<int>> sorted(const Polylines& contours, unsigned long mode = 4)
{
    std::vector<std::vector<int>> result;
    for (const Polylines& region : VEK::g_vll_regions(contours, mode)) {
        result.emplace_back();
        for (const CVekVertexArray& contour : region) {
            int index = -1;
            EXPECT_TRUE(contours.indexOf(contour, index));
            result.back().push_back(index);
        }
    }
    return result;
}

using Wanted = std::vector<std::vector<int>>;

TEST(GeometryRegions, HolesGoToTheirOuterContourAndIslandsStandAlone)
{
    const Polylines contours = list({circle(5, 5, 1), rectangle(0, 0, 20, 20), rectangle(3, 3, 9, 9),
                                     rectangle(30, 0, 40, 10), circle(5, 5, 0.5), circle(15, 5, 2), circle(35, 5, 3)});
    EXPECT_EQ(sorted(contours), (Wanted{{0, 4}, {1, 2, 5}, {3, 6}}));
    EXPECT_EQ(sorted(contours, 0), (Wanted{{0}, {1}, {2}, {3}, {4}, {5}, {6}}));
    EXPECT_EQ(sorted(Polylines()), Wanted());
    // Windings carry no meaning.
    Polylines turned = contours;
    turned[1].revert();
    turned[4].revert();
    EXPECT_EQ(sorted(turned), sorted(contours));
}

TEST(GeometryRegions, ContoursThatTouch)
{
    // In each pair the second lies within the first, or beside it, and they share a point or a side.
    const CVekVertexArray big = rectangle(0, 0, 10, 10);
    for (const CVekVertexArray& inner : {circle(5, 1, 1), circle(1, 5, 1), rectangle(0, 0, 2, 2),
                                         rectangle(3, 0, 5, 10), circle(5, 9, 1), rectangle(8, 8, 10, 10)}) {
        EXPECT_EQ(sorted(list({big, inner})), (Wanted{{0, 1}}));
        EXPECT_EQ(sorted(list({inner, big})), (Wanted{{1, 0}}));
    }
    for (const CVekVertexArray& beside : {circle(5, 11, 1), circle(-1, 5, 1), rectangle(10, 0, 12, 10),
                                          rectangle(2, 10, 4, 12), rectangle(10, 10, 12, 12), rectangle(0, -5, 10, 0)})
        EXPECT_EQ(sorted(list({big, beside})), (Wanted{{0}, {1}}));
    // Three circles that touch in their lowest point, one in another.
    EXPECT_EQ(sorted(list({circle(0, 1, 1), circle(0, 3, 3), circle(0, 2, 2)})), (Wanted{{0}, {1, 2}}));
    // Two arcs that bulge below the vertices of what they contain, and a notch with something in it.
    EXPECT_EQ(sorted(list({circle(0, -4, 0.5), circle(0, 0, 5)})), (Wanted{{1, 0}}));
    CVekVertexArray notched = rectangle(0, 0, 10, 10);
    notched[2].bulge = -1.0;
    EXPECT_EQ(sorted(list({notched, circle(5, 8, 1)})), (Wanted{{0}, {1}}));
}

TEST(GeometryRegions, DeepNestsAndWideFields)
{
    Polylines contours;
    const int count = 1000;
    for (int i = 0; i < count; ++i)
        contours.append(rectangle(-i - 1, -i - 1, i + 1, i + 1));
    const Regions nested = VEK::g_vll_regions(contours, 4);
    ASSERT_EQ(nested.len(), count / 2);
    for (const Polylines& region : nested)
        EXPECT_EQ(region.len(), 2);
}

TEST(GeometryRegions, AgreeWithTestsOfEveryPair)
{
    std::mt19937 random(5);
    const auto uniform = [&](double to) { return to * (static_cast<double>(random()) / 4294967296.0); };
    int holes = 0;
    for (int round = 0; round < 30; ++round) {
        // Circles and squares that do not cross: whatever would cross an earlier one is left out.
        Polylines contours;
        std::vector<std::array<double, 3>> discs;
        for (int i = 0; i < 300; ++i) {
            const std::array<double, 3> disc = {uniform(100), uniform(100), std::exp(uniform(3.5)) * 0.3};
            const bool apart = std::all_of(discs.begin(), discs.end(), [&](const auto& other) {
                const double d = std::sqrt((disc[0] - other[0]) * (disc[0] - other[0]) +
                                           (disc[1] - other[1]) * (disc[1] - other[1]));
                return d > disc[2] + other[2] || d < std::fabs(disc[2] - other[2]);
            });
            if (!apart)
                continue;
            discs.push_back(disc);
            contours.append(circle(disc[0], disc[1], disc[2]));
        }
        const auto depth = [&](std::size_t i) {
            return std::count_if(discs.begin(), discs.end(), [&](const auto& other) {
                const double dx = discs[i][0] - other[0], dy = discs[i][1] - other[1];
                return other[2] > discs[i][2] && dx * dx + dy * dy < other[2] * other[2];
            });
        };
        int seen = 0;
        for (const std::vector<int>& region : sorted(contours)) {
            const std::size_t outer = static_cast<std::size_t>(region[0]);
            EXPECT_EQ(depth(outer) % 2, 0);
            for (std::size_t k = 1; k < region.size(); ++k) {
                const std::size_t hole = static_cast<std::size_t>(region[k]);
                EXPECT_EQ(depth(hole), depth(outer) + 1);
                EXPECT_EQ(VEK::g_vll_pt_inside(list({contours[region[0]]}), {discs[hole][0], discs[hole][1], 0}), 1);
                ++holes;
            }
            seen += static_cast<int>(region.size());
        }
        EXPECT_EQ(seen, contours.len());
    }
    EXPECT_GT(holes, 100);
}

TEST(GeometryPrepare, JoinsLooseRunsEndToEnd)
{
    Polylines loose;
    loose[0] = line(0, 0, 4, 0);
    loose[1] = line(0, 4, 4, 4 + 1e-8); // the wrong way round, and not quite there
    loose[2] = line(4, 0, 4, 4, 0.5);
    loose[3] = line(9, 9, 12, 9); // stays open
    loose[4] = line(0, 4, 0, 0);
    loose[5] = circle(20, 20, 1);
    const Polylines contours = VEK::vll_regions_prepare(loose);
    ASSERT_EQ(contours.len(), 2);
    ASSERT_EQ(contours[0].len(), 4);
    EXPECT_EQ(contours[0][0], loose[0][0]);
    EXPECT_EQ(contours[0][1], line(4, 0, 4, 4, 0.5));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(contours[0][i].end, contours[0][(i + 1) % 4].start);
    EXPECT_EQ(contours[1], loose[5]);
}

TEST(GeometryPrepare, DropsWhatBoundsNothing)
{
    Polylines loose;
    loose[0] = rectangle(0, 0, 4, 4);
    loose[1] = rectangle(0, 0, 4, 4).revert(); // the same once more
    for (int i = 0; i < 4; ++i)
        loose[2].append(loose[0][(i + 2) % 4]); // and begun elsewhere
    loose[3] = line(7, 7, 7, 7, 1.0);
    loose[4].append(line(0, 9, 5, 9));
    loose[4].append(line(5, 9, 0, 9)); // there and back
    loose[5].append(line(1, 1, 2, 1));
    loose[5].append(line(2, 1, 2, 2)); // open
    loose[6] = line(0, 0, std::nan(""), 4);
    loose[7] = line(0, 0, HUGE_VAL, 4);
    loose[8] = rectangle(1, 1, 2, 2);
    loose[8].append(line(1, 1, 1, 1));
    const Polylines contours = VEK::vll_regions_prepare(loose);
    ASSERT_EQ(contours.len(), 2);
    EXPECT_EQ(contours[0], loose[0]);
    EXPECT_EQ(contours[1].len(), 4);
}

TEST(GeometryPrepare, BranchesAndDoubleLinesDoNotMislead)
{
    // A square of single lines, each drawn twice, with lines that lead off from its corners and on from there.
    Polylines loose;
    const CVekVertexArray square = rectangle(0, 0, 4, 4);
    for (const CVekVertex& side : square) {
        loose.append(line(side.start[0], side.start[1], side.start[0] * 3 - 4, side.start[1] * 3 - 4));
        loose.append(line(side.start[0] * 3 - 4, side.start[1] * 3 - 4, 50 + side.start[0], 60 + side.start[1]));
        loose.append(side);
        loose.append(CVekVertexArray(side).revert());
    }
    const Polylines contours = VEK::vll_regions_prepare(loose);
    ASSERT_EQ(contours.len(), 1);
    EXPECT_EQ(contours[0].len(), 4);
    // Two squares that touch at a corner are two.
    loose = Polylines();
    for (const CVekVertex& side : square) {
        loose.append(side);
        loose.append(CVekVertexArray(side).move({4, 4, 0}));
    }
    EXPECT_EQ(VEK::vll_regions_prepare(loose).len(), 2);
}

TEST(GeometryPrepare, ShuffledSidesOfManyContoursComeBackWhole)
{
    std::mt19937 random(11);
    std::vector<CVekVertexArray> sides;
    const int count = 500;
    double area = 0.0;
    for (int i = 0; i < count; ++i) {
        const int row = i / 25;
        const double x = 10.0 * (i % 25), y = 10.0 * row;
        const CVekVertexArray contour = i % 2 ? circle(x, y, 3) : rectangle(x, y, x + 4, y + 6);
        area += i % 2 ? 9 * std::numbers::pi : 24;
        for (const CVekVertex& side : contour) {
            CVekVertexArray single = side;
            sides.push_back(random() % 2 ? single : single.revert());
        }
    }
    for (std::size_t i = sides.size() - 1; i > 0; --i)
        std::swap(sides[i], sides[random() % (i + 1)]);
    const Polylines contours = VEK::vll_regions_prepare(list(sides));
    ASSERT_EQ(contours.len(), count);
    double found = 0.0;
    for (const CVekVertexArray& contour : contours) {
        EXPECT_TRUE(contour.isClosed() && contour.isContinuous());
        const CVekPoint3dArray points = contour.pts(true, 1e-6);
        double twice = 0.0;
        for (int i = 1; i < points.len(); ++i)
            twice += points[i - 1][0] * points[i][1] - points[i][0] * points[i - 1][1];
        found += 0.5 * std::fabs(twice);
    }
    EXPECT_NEAR(found, area, count * 20 * kTol);
    EXPECT_EQ(VEK::g_vll_regions(contours, 4).len(), count);
}

} // namespace
