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

/// Between corners of a small grid, so that segments touch, lap over one another and lose their length all the time.
TEST(SegmentMeetings, areEndsTouchesAndStretchesOfAGrid)
{
    std::mt19937 source(8);
    const auto whole = [&](int count) { return static_cast<int>(source() % static_cast<unsigned>(count)); };
    const double kBulges[] = {0, 0, 1, -1, 1e-9, 0.5, -0.5, 3, std::tan(pi / 8), std::tan(3 * pi / 8)};
    int stretches = 0, ends = 0, touches = 0, misses = 0;
    for (int round = 0; round < 30000; ++round) {
        const double offset = std::array{0.0, 1e3, 1e7}[source() % 3];
        const auto point = [&] { return Vec{offset + whole(3), whole(3) - offset}; };
        const auto arc = [&](Vec start) { return Arc(start, point(), kBulges[whole(10)]); };
        const Arc a = arc(point());
        const double from = 0.25 * whole(5), to = 0.25 * whole(5), turn = a.sweep() * (to - from);
        const double other = turn - std::copysign(2.0 * pi, turn); // the other way round, over both ends of `a`
        const Arc b = whole(4) > 0 || !a.isArc()
                          ? arc(point())
                          : Arc(a.at(from), a.at(to), std::tan(0.25 * (whole(2) ? turn : other)));
        SCOPED_TRACE(round);
        const Meetings found = meet(a, b, kTol);
        const auto isShared = [&](Vec p, double within) {
            return apart(p, a.at(a.parameter(p))) <= within && apart(p, b.at(b.parameter(p))) <= within;
        };
        for (const bool ofA : {true, false}) {
            for (const double at : {0.0, 1.0}) {
                const Vec end = (ofA ? a : b).at(at);
                const auto isEnd = [&](const VEK::plane::Meeting& m) {
                    return apart(m.point, end) <= 1.1 * kTol && ((ofA ? m.a : m.b) == 0.0 || (ofA ? m.a : m.b) == 1.0);
                };
                const bool isFound = std::any_of(found.points, found.points + found.count, isEnd);
                EXPECT_TRUE(isFound ? isShared(end, 1.1 * kTol) : !isShared(end, 0.5 * kTol));
                ends += isFound;
            }
        }
        const auto isCommon = [&](double low, double high) { // none of it within a step of a touch
            int on = 0;
            for (const double t : {0.25, 0.5, 0.75})
                on += isShared(a.at(low + t * (high - low)), kTol);
            EXPECT_TRUE(on == 0 || on == 3);
            return on == 3;
        };
        double before = 0.0;
        for (int i = 0; i < found.count; ++i) {
            const auto& [at, onA, onB] = found.points[i];
            EXPECT_TRUE(isShared(at, 1.1 * kTol) && apart(a.at(onA), b.at(onB)) <= 2.0 * kTol && onA >= before);
            EXPECT_EQ(onA > before + 1e-3 && isCommon(before, onA), i > 0 && found.along[i - 1]);
            touches += onA > 0.0 && onA < 1.0 && onB > 0.0 && onB < 1.0;
            stretches += found.along[i];
            before = onA;
        }
        EXPECT_FALSE(before < 1.0 - 1e-3 && !a.isPoint() && isCommon(before, 1.0));
        misses += found.count == 0;
    }
    EXPECT_TRUE(stretches > 2000 && ends > 5000 && touches > 1000 && misses > 5000)
        << stretches << ' ' << ends << ' ' << touches << ' ' << misses;
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
