// Rows through a region, beside one cut and one question at a time.
#include "core/geometry/prepared_region.h"
#include "draw/hatch_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace
{

using Region = CVekArrayTempl<CVekVertexArray>;
using VEK::detail::HatchRows;
using VEK::plane::Arc;
using VEK::plane::PreparedRegion;

constexpr double kTolerance = 1e-6;

/// Corners on whole numbers, so that rows meet corners and run along sides all the time; now and then an arc, a gap or
/// an open end.
CVekVertexArray contour(std::mt19937& random, bool arcs, bool gaps)
{
    const auto below = [&](unsigned count) { return static_cast<int>(random() % count); };
    CVekPoint3dArray corners;
    for (int i = 3 + below(8); i > 0; --i)
        corners.append({1.0 * below(9), 1.0 * below(9), 0});
    const CVekVertexArray whole = CVekVertexArray().fromPoints(corners, true);
    CVekVertexArray vl;
    for (CVekVertex side : whole) {
        if (gaps && below(6) == 0)
            continue;
        if (arcs && below(3) == 0)
            side.bulge = 0.25 * (below(9) - 4);
        vl.append(side);
    }
    return vl;
}

/// Stretches of a row, and spans of a line from -50 to 50.
bool agree(const std::vector<HatchRows::Stretch>& stretches, const std::vector<VEK::plane::Span>& spans)
{
    return std::equal(stretches.begin(), stretches.end(), spans.begin(), spans.end(),
                      [](const HatchRows::Stretch& stretch, const VEK::plane::Span& span) {
                          return std::fabs(stretch.from + 50.0 - 100.0 * span.from) <= kTolerance &&
                                 std::fabs(stretch.to + 50.0 - 100.0 * span.to) <= kTolerance;
                      });
}

TEST(HatchRows, AgreeWithTheRegionAtCornersAlongSidesAndAcrossGaps)
{
    std::mt19937 random(11);
    int compared = 0, inside = 0;
    for (int round = 0; round < 600; ++round) {
        SCOPED_TRACE(round);
        const bool arcs = round % 3 == 1, gaps = round % 4 == 2;
        Region region;
        for (int i = 0; i <= round % 4; ++i)
            region.append(contour(random, arcs, gaps));
        if (region[0].len() == 0)
            continue;
        HatchRows rows(region, 0.0);
        rows.lay(-1.0, 0.5, 0, 20);
        PreparedRegion outer(region[0]), whole(region);
        for (int row = 0; row <= 20; row += 1 + round % 3) {
            SCOPED_TRACE(row);
            rows.cut(row, -50.0, 50.0);
            const double y = rows.height(row);
            std::vector<HatchRows::Stretch> stretches;
            rows.punch({-50.0, 50.0}, stretches);
            const Arc line({-50.0, y}, {50.0, y}, 0.0);
            ASSERT_TRUE(agree(stretches, outer.spans(line)));
            ASSERT_TRUE(agree(rows.inside(), whole.spans(line)));
            for (double x = -0.97; x < 10.0; x += 0.31) {
                if (whole.onBoundary({x, y}))
                    continue;
                ASSERT_EQ(rows.isInside(x), whole.inside({x, y})) << x;
                ++compared;
                inside += rows.isInside(x);
            }
        }
    }
    EXPECT_GT(compared, 50000);
    EXPECT_GT(inside, 5000);
}

TEST(HatchRows, FarFromTheirOriginAndFinerThanTheTolerance)
{
    Region square;
    CVekPoint3dArray corners;
    for (const auto& [x, y] : {std::pair(0.0, 0.0), std::pair(8.0, 0.0), std::pair(8.0, 8.0), std::pair(0.0, 8.0)})
        corners.append({x, y, 0.0});
    square[0].fromPoints(corners, true);
    const auto count = [&](double height, double step) {
        HatchRows rows(square, 0.0);
        const long long lowest = std::llround((-1.0 - height) / step), last = lowest + std::llround(10.0 / step);
        rows.lay(height, step, lowest, last);
        int met = 0;
        for (long long row = lowest; row <= last; ++row) {
            rows.cut(row, -1e9, 1e9);
            const bool between = rows.height(row) >= -rows.tolerance() && rows.height(row) <= 8.0 + rows.tolerance();
            EXPECT_EQ(rows.pieces().size(), between ? 1u : 0u) << rows.height(row);
            met += between;
        }
        return met;
    };
    EXPECT_EQ(count(0.0, 0.5), 17);
    EXPECT_EQ(count(-1e9, 0.5), 17);
    EXPECT_EQ(count(0.125, 0.5), 16);
    EXPECT_GT(count(1e14, 0.25), 16); // heights are rounded to 1/64 there
    EXPECT_GT(count(0.0, 1e-4), 80000);
    HatchRows rows(square, 0.0);
    rows.lay(4.0, std::numeric_limits<double>::denorm_min(), 0, 100);
    rows.cut(100, -1e9, 1e9);
    EXPECT_EQ(rows.pieces().size(), 1u);
}

} // namespace
