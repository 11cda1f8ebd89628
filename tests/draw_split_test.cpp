// Arcs to chords, and polylines to dashes.
#include <vek/draw/split.h>
#include <vek/values.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <numbers>
#include <vector>

namespace
{

constexpr double kTolerance = 1e-9;

CVekArrayTempl<double> dashes(std::initializer_list<double> values)
{
    CVekArrayTempl<double> list;
    for (const double value : values)
        list.append(value);
    return list;
}

CVekVertexArray line(double length)
{
    return CVekVertexArray(CVekVertex({0, 0, 0}, {length, 0, 0}, 0.0));
}

/// Start and end of each piece along the x axis.
std::vector<double> stations(const CVekVertexArray& vl)
{
    std::vector<double> list;
    for (const CVekVertex& piece : vl) {
        list.push_back(piece.start[0]);
        list.push_back(piece.end[0]);
    }
    return list;
}

void expectStations(CVekVertexArray vl, const CVekArrayTempl<double>& pattern, int mode,
                    const std::vector<double>& expected)
{
    ASSERT_TRUE(vek_gdx_image_vl_measure(vl, pattern, mode));
    const std::vector<double> actual = stations(vl);
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], kTolerance) << i;
}

TEST(DrawSplit, ChordsStayWithinTheToleranceOfTheirArc)
{
    // Quarter circles of radius 2.48 and 2.60 are 3.9 and 4.08 long: one on each side of the limit.
    for (const auto& [radius, tolerance] : {std::pair(2.48, 0.01), std::pair(2.6, 0.05)}) {
        CVekVertexArray arc(CVekVertex({radius, 0, 0}, {0, radius, 0}, std::tan(std::numbers::pi / 8)));
        arc.append(CVekVertex({0, radius, 0}, {-5, radius, 0}, 0.0));
        CVekMatrix3d tilt;
        tilt.setToRotation(0.7, {1, 2, 0}, {0, 0, 0});
        arc.transformBy(tilt);
        const CVekVertexArray split = vek_gdx_image_vl_split(arc);
        ASSERT_GT(split.len(), 2);
        EXPECT_EQ(split[-1], arc[-1]); // straight segments stay to the bit
        EXPECT_TRUE(split.isContinuous());
        double worst = 0.0;
        for (int i = 0; i + 1 < split.len(); ++i) {
            EXPECT_EQ(split[i].bulge, 0.0);
            EXPECT_NEAR(split[i].start.distanceTo({}), radius, kTolerance);
            worst = std::max(worst, radius - split[i].mid().distanceTo({}));
        }
        EXPECT_LE(worst, tolerance);
        EXPECT_GT(worst, tolerance / 4); // and not finer than need be
    }
    EXPECT_EQ(vek_gdx_image_reg_split({}).len(), 0);
    CVekArrayTempl<CVekVertexArray> region;
    region[1] = line(3);
    ASSERT_EQ(vek_gdx_image_reg_split(region).len(), 2);
    EXPECT_EQ(vek_gdx_image_reg_split(region)[1], line(3));
}

TEST(DrawMeasure, SegmentsBeginAndEndWithHalfADash)
{
    // 5, -1 becomes 2.5, -1, 2.5; on 6.1 the one gap grows by 0.1, on 12.5 the two by 0.25 each.
    expectStations(line(6.1), dashes({5, -1}), 1, {0, 2.5, 3.6, 6.1});
    expectStations(line(12.5), dashes({5, -1}), 1, {0, 2.5, 3.75, 6.25, 6.25, 8.75, 10, 12.5});
    expectStations(line(6), dashes({5, -1}), 1, {0, 6}); // not longer than the pattern: solid
    expectStations(line(12.5), dashes({5, -1}), 0, {0, 5, 6, 11, 12, 12.5});
    CVekVertexArray two = line(6.1);
    two.append(CVekVertex({100, 0, 0}, {103, 0, 0}, 0.0));
    expectStations(two, dashes({5, -1}), 1, {0, 2.5, 3.6, 6.1, 100, 103});
}

TEST(DrawMeasure, SearchForTheLongDashLooksTwoPlacesOn)
{
    // The dot turns to the end, the index moves on to the dash: the gap in front is halved, not the dash. The length
    // counts the dot as 1 while it is drawn 0.2 long, so that twice 9 in 20 stretches each gap by 2 / 6 and leaves room
    // for the start of one more dash.
    const double g = 4.0 / 3.0;
    std::vector<double> expected;
    double at = 0.0;
    for (int round = 0; round < 2; ++round) {
        expected.insert(expected.end(), {at + g, at + g + 4, at + g + 4 + (g + 1), at + g + 4 + (g + 1) + 0.2});
        at += g + 4 + (g + 1) + 0.2 + g;
    }
    expected.insert(expected.end(), {at + g, 20});
    expectStations(line(20), dashes({0.0, -2, 4, -2}), 1, expected);
}

TEST(DrawMeasure, AMillionShortDashesAreSearchedOnce)
{
    CVekArrayTempl<double> dust;
    dust.reserve(1000000);
    for (int i = 0; i < 500000; ++i) {
        dust.append(0.1);
        dust.append(-0.1);
    }
    expectStations(line(90000), dust, 1, {0, 90000}); // not longer than the pattern: solid
}

TEST(DrawMeasure, DotsGapsAndShortPatterns)
{
    CVekVertexArray solid = line(5);
    EXPECT_FALSE(vek_gdx_image_vl_measure(solid, dashes({3}), 1));
    EXPECT_EQ(solid, line(5));
    CVekVertexArray gaps = line(5);
    EXPECT_TRUE(vek_gdx_image_vl_measure(gaps, dashes({-1, -1}), 1));
    EXPECT_EQ(gaps.len(), 0);
    CVekVertexArray half(CVekVertex({-10, 0, 3}, {10, 0, 3}, 1.0));
    EXPECT_TRUE(vek_gdx_image_vl_measure(half, dashes({3, -1}), 1));
    double drawn = 0.0;
    for (const CVekVertex& piece : half) {
        EXPECT_EQ(piece.start[2], 0.0); // laid flat
        drawn += piece.bulgLen();
    }
    // 31.4 along the arc: 7 patterns of 4, with 3 drawn in each; the chords are a little shorter than the arc.
    EXPECT_NEAR(drawn, 21.0, 0.5);
}

} // namespace
