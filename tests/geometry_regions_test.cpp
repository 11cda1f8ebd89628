#include "shapes.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <numeric>
#include <set>

namespace
{

using namespace shapes;

constexpr double kTol = 1e-6;

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
    // One in another up to its top, and one on top of both.
    EXPECT_EQ(sorted(list({big, rectangle(2, 8, 6, 10), rectangle(0, 10, 10, 12)})), (Wanted{{0, 1}, {2}}));
    EXPECT_EQ(sorted(list({rectangle(2, 8, 6, 10), big, rectangle(0, 10, 10, 12)})), (Wanted{{1, 0}, {2}}));
    // Two arcs that bulge below the vertices of what they contain, and a notch with something in it.
    EXPECT_EQ(sorted(list({circle(0, -4, 0.5), circle(0, 0, 5)})), (Wanted{{1, 0}}));
    CVekVertexArray notched = rectangle(0, 0, 10, 10);
    notched[2].bulge = -1.0;
    EXPECT_EQ(sorted(list({notched, circle(5, 8, 1)})), (Wanted{{0}, {1}}));
}

TEST(GeometryRegions, DeepNestsWhateverTheyShare)
{
    // Squares about one centre and in one corner, diamonds, circles that touch in one point; each the next one's hole.
    const int count = 1000;
    CVekVertexArray (*const makes[])(double) = {
        [](double r) { return rectangle(-r, -r, r, r); }, [](double r) { return rectangle(0, 0, r, r); },
        [](double r) { return regular(4, 0, 0, r); }, [](double r) { return circle(0, r, r); },
        [](double r) { return circle(r, 0, r); }};
    Random random(3);
    for (const auto& make : makes) {
        std::vector<CVekVertexArray> contours;
        for (int i = 1; i <= count; ++i)
            contours.push_back(random.redrawn(make(i)));
        random.shuffle(contours);
        const Regions nested = VEK::g_vll_regions(list(contours), 4);
        ASSERT_EQ(nested.len(), count / 2);
        for (const Polylines& region : nested) {
            ASSERT_EQ(region.len(), 2);
            const auto size = [&](const CVekVertexArray& vl) {
                return VEK::vl_extmax(vl, 0.0)[1][1] / VEK::vl_extmax(make(1), 0.0)[1][1];
            };
            EXPECT_NEAR(size(region[0]) - size(region[1]), 1.0, kTol);
        }
    }
}

TEST(GeometryRegions, AgreeWithTestsOfEveryPair)
{
    Random random(5);
    int holes = 0;
    for (int round = 0; round < 30; ++round) {
        // Circles that do not cross: whatever would cross an earlier one is left out.
        Polylines contours;
        std::vector<std::array<double, 3>> discs;
        for (int i = 0; i < 300; ++i) {
            const std::array<double, 3> disc = {random.uniform(0, 100), random.uniform(0, 100),
                                                std::exp(random.uniform(0, 3.5)) * 0.3};
            const bool apart = std::all_of(discs.begin(), discs.end(), [&](const auto& other) {
                const double d = std::hypot(disc[0] - other[0], disc[1] - other[1]);
                return d > disc[2] + other[2] || d < std::fabs(disc[2] - other[2]);
            });
            if (!apart)
                continue;
            discs.push_back(disc);
            contours.append(random.redrawn(circle(disc[0], disc[1], disc[2])));
        }
        const auto around = [&](int inner, int outer) {
            const auto &a = discs[static_cast<std::size_t>(inner)], &b = discs[static_cast<std::size_t>(outer)];
            return b[2] > a[2] && std::hypot(a[0] - b[0], a[1] - b[1]) < b[2];
        };
        const auto depth = [&](int i) {
            int count = 0;
            for (int other = 0; other < contours.len(); ++other)
                count += around(i, other);
            return count;
        };
        std::size_t seen = 0;
        for (const std::vector<int>& region : sorted(contours)) {
            EXPECT_EQ(depth(region[0]) % 2, 0);
            for (std::size_t k = 1; k < region.size(); ++k)
                EXPECT_TRUE(around(region[k], region[0]) && depth(region[k]) == depth(region[0]) + 1);
            holes += static_cast<int>(region.size()) - 1;
            seen += region.size();
        }
        EXPECT_EQ(seen, discs.size());
        EXPECT_EQ(sorted(contours, 0).size(), discs.size());
    }
    EXPECT_GT(holes, 100);
    EXPECT_EQ(sorted(Polylines()), Wanted());
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

/// Loose segments of contours, in any order and direction, about normals that point up and down, some of them twice.
Polylines scattered(Random& random, const std::vector<CVekVertexArray>& segments)
{
    std::vector<CVekVertexArray> loose;
    for (const CVekVertexArray& vl : segments) {
        for (int i = 0; i < vl.len(); i += random.whole(5) != 0) {
            const CVekVertex& segment = vl[i];
            loose.push_back(random.redrawn(segment));
            if (segment.bulge == 0.0) // whose plane tells nothing
                loose.back().setNormal(random.direction());
        }
    }
    random.shuffle(loose);
    return list(loose);
}

TEST(GeometryPrepare, WaysOutOfANodeAreComparedWhereTheyLeaveIt)
{
    // Within an arc of three quarters below its chord lies a triangle: the arc leaves on the far side of both.
    Random random(19);
    const std::vector<CVekVertexArray> segments = {line(0, 0, 1, 0, std::tan(3 * pi / 8)), line(0, 0, 1, 0),
                                                   line(0, 0, 0.5, -0.5), line(0.5, -0.5, 1, 0)};
    const Polylines contours = VEK::vll_regions_prepare(scattered(random, segments));
    ASSERT_EQ(contours.len(), 2);
    const double areas[] = {std::fabs(areaOf(contours[0])), std::fabs(areaOf(contours[1]))};
    EXPECT_NEAR(std::min(areas[0], areas[1]), 0.25, kTol);
    EXPECT_NEAR(areas[0] + areas[1], 0.75 * pi / 2 + 0.25, 1e-4); // of the disc, and a quarter of its square
}

/// Cells in a grid, with straight and bent walls between some of them. What lies within walls without a gap is a room.
struct Floor {
    static constexpr int kSize = 9; ///< with a border around that has no walls
    std::vector<CVekVertexArray> walls;
    int rooms[kSize * kSize]; ///< of each cell, the number of one cell of its room

    explicit Floor(Random& random)
    {
        std::iota(std::begin(rooms), std::end(rooms), 0);
        const auto isBorder = [](int cell) {
            return std::min(cell % kSize, cell / kSize) == 0 || std::max(cell % kSize, cell / kSize) == kSize - 1;
        };
        const auto part = [&](int cell, int other, const CVekVertex& wall) {
            if ((isBorder(cell) && isBorder(other)) || random.whole(4) == 0)
                std::replace(std::begin(rooms), std::end(rooms), int(rooms[cell]), int(rooms[other]));
            else
                walls.push_back(wall);
        };
        for (int x = 0; x + 1 < kSize; ++x) {
            for (int y = 0; y + 1 < kSize; ++y) {
                const int cell = y * kSize + x;
                part(cell, cell + 1, line(x + 1, y, x + 1, y + 1, random.pick({0, 0, 0.3, -0.3})));
                part(cell, cell + kSize, line(x, y + 1, x + 1, y + 1, random.pick({0, 0, 0.3, -0.3})));
            }
        }
        // The far border, which is one room with the near one.
        for (int i = 0; i < kSize; ++i) {
            std::replace(std::begin(rooms), std::end(rooms), int(rooms[i * kSize + kSize - 1]), int(rooms[0]));
            std::replace(std::begin(rooms), std::end(rooms), int(rooms[kSize * (kSize - 1) + i]), int(rooms[0]));
        }
    }
};

TEST(GeometryPrepare, RoomsOfAGridWhateverTheOrderOfItsWalls)
{
    Random random(17);
    int found = 0;
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        Floor floor(random);
        CVekMatrix3d turn;
        turn.setToRotation(random.pick({0, 0.7, pi}), CVekVector3d::kZAxis, {3, 3, 0});
        for (CVekVertexArray& wall : floor.walls)
            wall.transformBy(turn);
        const Polylines contours = VEK::vll_regions_prepare(scattered(random, floor.walls));
        const Polylines again = VEK::vll_regions_prepare(scattered(random, floor.walls));
        EXPECT_EQ(contours.len(), again.len());
        const auto flat = [](const CVekVertexArray& contour) {
            CVekVertexArray vl = upright(contour);
            if (std::none_of(vl.begin(), vl.end(), [](const CVekVertex& side) { return side.bulge != 0.0; }))
                vl.setNormal(CVekVector3d::kZAxis); // the plane of straight segments tells nothing
            EXPECT_EQ(vl.normal()[2], 1.0);
            return vl;
        };
        for (const CVekVertexArray& contour : contours) {
            EXPECT_TRUE(contour.isClosed() && contour.isContinuous());
            EXPECT_TRUE(std::any_of(again.begin(), again.end(),
                                    [&](const auto& other) { return flat(other) == flat(contour); }));
        }
        // Each room has a contour of its own, the smallest around all of its cells; around the border there is none.
        std::map<int, int> contourOf;
        for (int cell = 0; cell < Floor::kSize * Floor::kSize; ++cell) {
            const CVekPoint3d middle(cell % Floor::kSize + 0.5, cell / Floor::kSize + 0.5, 0);
            int own = -1;
            for (int i = 0; i < contours.len(); ++i) {
                if (VEK::g_vll_pt_inside(list({contours[i]}), middle * turn) > 0 &&
                    (own < 0 || std::fabs(areaOf(contours[i])) < std::fabs(areaOf(contours[own]))))
                    own = i;
            }
            EXPECT_EQ(contourOf.try_emplace(floor.rooms[cell], own).first->second, own);
        }
        EXPECT_EQ(contourOf[floor.rooms[0]], -1);
        std::set<int> distinct;
        for (const auto& [room, contour] : contourOf)
            distinct.insert(contour);
        EXPECT_EQ(distinct.size(), contourOf.size());
        EXPECT_EQ(contourOf.size(), static_cast<std::size_t>(contours.len()) + 1);
        found += contours.len();
    }
    EXPECT_GT(found, 500);
}

} // namespace
