#include "core/values/intersect.h"

#include "shapes.h"

#include <vek/values/tolerance.h>

#include <gtest/gtest.h>
#include <limits>

namespace
{

using shapes::pi;
using VEK::plane::Arc;
using VEK::plane::meet;
using VEK::plane::Meetings;
using VEK::plane::Vec;

constexpr double kTol = VEK::kPointTol;

double apart(Vec a, Vec b)
{
    return (a - b).abs();
}

/// What a meeting is expected to be: the point and the parameters on both segments.
struct Expected {
    double x, y, a, b;
    bool along = false;
};

void expectMeetings(const Arc& a, const Arc& b, const std::vector<Expected>& expected)
{
    for (const double offset : {0.0, 1e3, 1e7}) {
        SCOPED_TRACE(offset);
        const Vec o{offset, -offset};
        const Arc c(a.start() + o, a.end() + o, std::tan(0.25 * a.sweep()));
        const Arc d(b.start() + o, b.end() + o, std::tan(0.25 * b.sweep()));
        const Meetings found = meet(c, d, kTol);
        ASSERT_EQ(found.count, static_cast<int>(expected.size()));
        for (int i = 0; i < found.count; ++i) {
            EXPECT_LE(apart(found.points[i].point, o + Vec{expected[i].x, expected[i].y}), kTol);
            EXPECT_NEAR(found.points[i].a, expected[i].a, kTol);
            EXPECT_NEAR(found.points[i].b, expected[i].b, kTol);
            EXPECT_EQ(found.along[i], expected[i].along);
        }
    }
}

/// Meetings by walking along one segment in small steps and halving where the side of the other one changes.
std::vector<Vec> walkedMeetings(const Arc& a, const Arc& b)
{
    const auto side = [&](double t) { return b.offset(a.at(t)) < 0.0; };
    constexpr int kSteps = 400;
    std::vector<Vec> points;
    bool before = side(0.0);
    for (int i = 1; i <= kSteps; ++i) {
        double low = (i - 1.0) / kSteps;
        double high = static_cast<double>(i) / kSteps;
        const bool now = side(high);
        if (now == before)
            continue;
        for (int k = 0; k < 50; ++k) {
            const double mid = 0.5 * (low + high);
            (side(mid) == before ? low : high) = mid;
        }
        const Vec p = a.at(low);
        if (apart(b.at(b.parameter(p)), p) < 0.5 * kTol)
            points.push_back(p);
        before = now;
    }
    return points;
}

CVekVertexArray polygon(int corners, double radius, CVekPoint3d centre, double bulge = 0.0)
{
    CVekVertexArray result = shapes::regular(corners, centre[0], centre[1], radius);
    for (CVekVertex& v : result)
        v.bulge = bulge;
    return result;
}

} // namespace

TEST(SegmentMeetings, touchOverlapAndMiss)
{
    const Arc line({0, 0}, {10, 0}, 0);
    expectMeetings(line, {{4, 0}, {4, 3}, 0}, {{4, 0, 0.4, 0}});
    expectMeetings(line, {{10, 0}, {20, 5}, 0}, {{10, 0, 1, 0}});
    expectMeetings(line, {{4, 1e-3}, {4, 3}, 0}, {});
    expectMeetings(line, {{0, 1e-3}, {10, 1e-3}, 0}, {});
    expectMeetings(line, {{11, 0}, {20, 0}, 0}, {});
    expectMeetings(line, {{12, 0}, {4, 0}, 0}, {{4, 0, 0.4, 1, true}, {10, 0, 1, 0.25}});
    expectMeetings(line, {{2, 0}, {4, 0}, 0}, {{2, 0, 0.2, 0, true}, {4, 0, 0.4, 1}});
    expectMeetings(line, {{3, 0}, {3, 0}, 1}, {{3, 0, 0.3, 0}});
    expectMeetings({{3, 1}, {3, 1}, 1}, {{3, 1}, {3, 1}, 0}, {{3, 1, 0, 0}});

    const Arc upper({1, 0}, {-1, 0}, 1);                             // half of the unit circle
    expectMeetings({{0, -5}, {0, 5}, 0}, upper, {{0, 1, 0.6, 0.5}}); // through the centre, and one side only
    expectMeetings({{-5, 1}, {5, 1}, 0}, upper, {{0, 1, 0.5, 0.5}}); // tangent
    expectMeetings({{-5, 0}, {5, 0}, 0}, upper, {{-1, 0, 0.4, 1}, {1, 0, 0.6, 0}});
    expectMeetings({{1, 0}, {1, -3}, 0}, upper, {{1, 0, 0, 0}});
    expectMeetings({{-5, 1.001}, {5, 1.001}, 0}, upper, {});
    expectMeetings({{0, -3}, {0, 0.999}, 0}, upper, {});
    // An arc so flat that it is its chord within the tolerance lies along it.
    expectMeetings({{0, 0}, {10, 0}, 0}, {{2, 0}, {4, 0}, 1e-9}, {{2, 0, 0.2, 0, true}, {4, 0, 0.4, 1}});

    expectMeetings(upper, {{-1, 2}, {1, 2}, 1}, {{0, 1, 0.5, 0.5}});                // from outside
    expectMeetings({{2, 0}, {-2, 0}, 1}, {{1, 1}, {-1, 1}, 1}, {{0, 2, 0.5, 0.5}}); // from inside
    expectMeetings(upper, {{-1, 0}, {1, 0}, 1}, {{1, 0, 0, 1}, {-1, 0, 1, 0}});     // the other half
    expectMeetings(upper, {{2, 0}, {-2, 0}, 1}, {});
    expectMeetings(upper, {{3, 3}, {2, 3}, 1}, {});

    const double half = std::sqrt(0.5);
    const double quarter = std::tan(pi / 8);
    expectMeetings(upper, upper, {{1, 0, 0, 0, true}, {-1, 0, 1, 1}});
    expectMeetings(upper, {{-1, 0}, {1, 0}, -1}, {{1, 0, 0, 1, true}, {-1, 0, 1, 0}});
    expectMeetings(upper, {{half, half}, {-half, half}, quarter},
                   {{half, half, 0.25, 0, true}, {-half, half, 0.75, 1}});
    expectMeetings(upper, {{0, 1}, {0, -1}, 1}, {{0, 1, 0.5, 0, true}, {-1, 0, 1, 0.5}});
    // Three quarters each, lapping over at both ends.
    const double wide = std::tan(3 * pi / 8);
    expectMeetings({{1, 0}, {0, -1}, wide}, {{-1, 0}, {0, 1}, wide},
                   {{1, 0, 0, 2.0 / 3, true}, {0, 1, 1.0 / 3, 1}, {-1, 0, 2.0 / 3, 0, true}, {0, -1, 1, 1.0 / 3}});
}

TEST(SegmentMeetings, agreeWithWalkingAlong)
{
    std::mt19937 source(7);
    std::uniform_real_distribution<double> spread(-1.0, 1.0);
    int crossings = 0;
    for (const double offset : {0.0, 1e3, 1e7}) {
        for (const double scale : {1e-3, 1.0, 1e3}) {
            const auto point = [&] { return Vec{offset + scale * spread(source), offset + scale * spread(source)}; };
            const auto arc = [&](int kind) {
                const double factors[] = {0.0, 1e-7, 1e-3, 1.0, 1.5, 50.0};
                const Vec start = point();
                return Arc(start, point(), factors[kind] * spread(source));
            };
            for (int round = 0; round < 360; ++round) {
                const Arc a = arc(round % 6);
                const Arc b = arc(round / 6 % 6);
                const Meetings found = meet(a, b, kTol);
                for (int i = 0; i < found.count; ++i) {
                    EXPECT_LE(apart(found.points[i].point, a.at(found.points[i].a)), 1.1 * kTol);
                    EXPECT_LE(apart(found.points[i].point, b.at(found.points[i].b)), 1.1 * kTol);
                }
                for (const Vec& walked : walkedMeetings(a, b)) {
                    // A touch is one point where two crossings enclose a sliver thinner than the tolerance.
                    double least = std::numeric_limits<double>::infinity();
                    for (int i = 0; i < found.count; ++i) {
                        const Vec p = found.points[i].point;
                        const Vec middle = (p + walked) * 0.5;
                        const bool sliver = apart(a.at(a.parameter(middle)), b.at(b.parameter(middle))) <= kTol;
                        least = std::min(least, sliver ? 0.0 : apart(p, walked));
                    }
                    EXPECT_LE(least, 2.0 * kTol);
                    ++crossings;
                }
            }
        }
    }
    EXPECT_GT(crossings, 300);
}

TEST(SegmentMeetings, numbersThatAreNoneMeetNothing)
{
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        for (const double bulge : {0.0, 1.0}) {
            EXPECT_EQ(meet({{bad, 0}, {1, 0}, bulge}, {{0, 0}, {2, 0}, 1}, kTol).count, 0);
            EXPECT_EQ(meet({{0, 0}, {1, 0}, 1}, {{0.5, -3}, {2, bad}, bulge}, kTol).count, 0);
        }
        CVekVertexArray broken = polygon(40, 1.0, {0, 0, 0}, 0.1);
        for (int i = 0; i < broken.len(); i += 3)
            broken[i].start[i / 3 % 2] = bad;
        CVekPoint3dArray points;
        EXPECT_FALSE(broken.intersectWith(points, polygon(40, 0.2, {0, 0, 0}), 3));
        EXPECT_FALSE(polygon(40, 0.2, {0, 0, 0}).intersectWith(points, broken, 3));
    }
}

TEST(PolylineMeetings, planesOfBoth)
{
    // A half circle in the upright plane y = 0 and its mirror image from behind: the arcs are the same.
    CVekVertexArray front(CVekVertex({1, 0, 0}, {-1, 0, 0}, -1));
    front.setNormal({0, 1, 0});
    CVekVertexArray behind = front;
    shapes::turnNormal(behind);
    const CVekVertexArray line(CVekVertex({-3, 0, 0.5}, {3, 0, 0.5})); // with a normal of z
    CVekPoint3dArray points;
    for (const CVekVertexArray* arc : {&front, &behind}) {
        ASSERT_TRUE(line.intersectWith(points, *arc, 3));
        ASSERT_EQ(points.len(), 2);
        EXPECT_LE(points[1].distanceTo({std::sqrt(0.75), 0, 0.5}), kTol);
        ASSERT_TRUE(arc->intersectWith(points, line, 3));
        ASSERT_EQ(points.len(), 2);
        EXPECT_LE(points[0].distanceTo({std::sqrt(0.75), 0, 0.5}), kTol);
    }
    ASSERT_TRUE(front.intersectWith(points, behind, 3)); // one stretch in common
    EXPECT_EQ(points.len(), 2);

    // Seen from above: the points lie at the height of the first polyline.
    const CVekVertexArray sloping(CVekVertex({-2, 0, 0}, {2, 0, 4}));
    ASSERT_TRUE(sloping.intersectWith(points, polygon(4, 1.0, {0, 0, 9}, 0.3), 3));
    ASSERT_EQ(points.len(), 2);
    EXPECT_LE(points[0].distanceTo({-1, 0, 1}), kTol);
    EXPECT_LE(points[1].distanceTo({1, 0, 3}), kTol);
}

TEST(PolylineMeetings, manySegmentsAgreeWithEachByEach)
{
    // Through the tree for the long one, one segment after the other for the short pieces.
    for (const double bulge : {0.0, 0.2}) {
        const CVekVertexArray round = polygon(300, 10.0, {1e3, 0, 0}, bulge);
        CVekVertexArray star = polygon(60, 10.0, {1e3, 0.3, 0}, bulge);
        for (int i = 0; i < star.len(); i += 2)
            star[i].end = star[(i + 1) % star.len()].start = VEK::polar({1e3, 0.3, 0}, 2.0 * pi * (i + 1) / 60, 7.0);
        CVekPoint3dArray all;
        ASSERT_TRUE(star.intersectWith(all, round, 3));
        CVekPoint3dArray each;
        for (const CVekVertex& v : star) {
            CVekPoint3dArray some;
            CVekVertexArray(v).intersectWith(some, round, 3);
            each += some;
        }
        ASSERT_GT(all.len(), 10);
        ASSERT_EQ(all.len(), each.len());
        for (int i = 0; i < all.len(); ++i)
            EXPECT_LE(all[i].distanceTo(each[i]), kTol);
        CVekPoint3dArray first;
        ASSERT_TRUE(star.intersectWith(first, round, 0));
        ASSERT_EQ(first.len(), 1);
        EXPECT_EQ(first[0], all[0]);

        CVekPoint3dArray itself; // all its corners once, and none twice
        ASSERT_TRUE(round.intersectWith(itself, round, 3));
        EXPECT_EQ(itself.len(), 300);
    }
}
