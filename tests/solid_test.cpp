#include "shapes.h"

#include <vek/solid.h>

#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>

namespace
{

using shapes::pi;
using shapes::polygon;
using Lines = CVekArrayTempl<CVekVertexArrayEx>;
using Region = CVek_Solid::Region;

Region rectangle(double width, double height)
{
    return {shapes::rectangle(0, 0, width, height)};
}

Region tube(double outer, double inner)
{
    return {shapes::circle(0, 0, outer), shapes::circle(0, 0, inner)};
}

CVekMatrix3d at(double x, double y, double z)
{
    return CVekMatrix3d().setToTranslation({x, y, z});
}

CVekMatrix3d from(double x, double y, double z)
{
    return VEK::g_mtx_view({x, y, z}, {}, false);
}

/// What a projection gave, in numbers: segments and length by kind, and arcs.
struct Sum {
    std::map<VekLineKind, int> segments;
    std::map<VekLineKind, double> length;
    int polylines = 0, closed = 0, arcs = 0;
};
Sum sum(const Lines& lines)
{
    Sum result;
    for (const CVekVertexArrayEx& line : lines) {
        ++result.polylines;
        result.closed += line.isClosed();
        EXPECT_TRUE(line.isContinuous());
        for (const CVekVertex& v : line) {
            ++result.segments[line.kind];
            result.length[line.kind] += v.bulgLen();
            result.arcs += v.bulge != 0.0;
            EXPECT_TRUE(v.start.z == 0.0 && v.end.z == 0.0 && std::isfinite(v.bulge));
        }
    }
    return result;
}

struct View {
    Lines visible, hidden;
    Sum seen, unseen;
};
View projected(CVek_Solid& solid, const CVekMatrix3d& view, bool together = true)
{
    View result;
    EXPECT_TRUE(solid.project(view, together, result.visible, result.hidden, vekModelerFaces));
    result.seen = sum(result.visible);
    result.unseen = sum(result.hidden);
    return result;
}

constexpr auto kEdge = VekLineKind::edge, kSilhouette = VekLineKind::silhouette, kFold = VekLineKind::fold,
               kHole = VekLineKind::hole;

TEST(Solid, OfACubeNineEdgesAreSeenFromItsCornerAndOneContourFromAbove)
{
    CVek_Solid solid;
    ASSERT_TRUE(solid.extrude(rectangle(10, 10), {}, 10, 0, 5));
    View corner = projected(solid, from(1, 1, 1)), above = projected(solid, from(0, 0, 1));
    EXPECT_EQ(std::tuple(corner.seen.segments[kEdge], corner.unseen.segments[kEdge]), std::tuple(9, 3));
    EXPECT_EQ(std::tuple(above.seen.polylines, above.seen.closed, above.seen.segments[kEdge]), std::tuple(1, 1, 4));
    EXPECT_EQ(above.hidden.len(), 0);

    // Two that share a face. Four edges lie on four others, and one hidden edge runs behind a front one.
    ASSERT_TRUE(solid.extrude(rectangle(10, 10), at(10, 0, 0), 0, 10, 6));
    corner = projected(solid, from(1, 1, 1));
    EXPECT_NEAR(corner.seen.length[kEdge] + corner.unseen.length[kEdge], 190 * std::sqrt(2.0 / 3), 1e-9);
    EXPECT_NEAR(corner.seen.length[kEdge], 140 * std::sqrt(2.0 / 3), 1e-9);
    EXPECT_NEAR(projected(solid, from(0, 0, 1)).seen.length[kEdge], 70, 1e-9);
    // What coincides is drawn by the foremost.
    CVek_Solid pile;
    ASSERT_TRUE(pile.extrude(rectangle(10, 10), {}, 0, 10, 1) && pile.extrude(rectangle(10, 10), {}, 30, 40, 2) &&
                pile.extrude(rectangle(10, 10), {}, 12, 20, 3));
    const View stack = projected(pile, from(0, 0, 1));
    ASSERT_EQ(stack.visible.len(), 1);
    EXPECT_EQ(stack.visible[0].element, 2);
    // Alone each is a cube of its own.
    EXPECT_NEAR(projected(solid, from(1, 1, 1), false).seen.length[kEdge], 180 * std::sqrt(2.0 / 3), 1e-9);
}

TEST(Solid, RoundBodiesHaveTrueArcsAlongTheirAxisAndSilhouettesAcrossIt)
{
    CVek_Solid solid;
    ASSERT_TRUE(solid.extrude(tube(5, 4), at(100, -50, 3), 0, 10, 1));
    View along = projected(solid, from(0, 0, 1));
    EXPECT_EQ(std::tuple(along.seen.polylines, along.seen.closed, along.seen.arcs, along.hidden.len()),
              std::tuple(2, 2, 4, 0));
    EXPECT_NEAR(along.seen.length[kEdge], 18 * pi, 1e-9);
    EXPECT_NEAR(projected(solid, from(0, 0, -1)).seen.length[kEdge], 18 * pi, 1e-9);

    // Half of it covered by a plate: arcs are cut exactly and stay arcs.
    ASSERT_TRUE(solid.extrude(rectangle(20, 5), at(90, -50, 20), 0, 1, 2));
    along = projected(solid, from(0, 0, 1));
    EXPECT_NEAR(along.unseen.length[kEdge], 9 * pi, 1e-9);
    EXPECT_EQ(along.unseen.arcs, 2);

    CVek_Solid half, pair; // a face with an arc hides what is behind it and no more
    const Region disc{shapes::path({shapes::line(-5, 0, 5, 0), shapes::line(5, 0, -5, 0, 1)})};
    ASSERT_TRUE(half.extrude(disc, {}, 5, 6, 1) && half.extrude(rectangle(10, 2), at(0, -1, 0), 0, 1, 2));
    EXPECT_NEAR(projected(half, from(0, 0, 1)).unseen.length[kEdge], std::sqrt(24.0) + 1, 1e-9);
    const CVekMatrix3d turned = CVekMatrix3d().setToRotation(pi / 3, {0, 0, 1}, {}); // a part of an arc on another
    ASSERT_TRUE(pair.extrude(disc, {}, 0, 1, 1) && pair.extrude(disc, turned, 5, 6, 2));
    const View both = projected(pair, from(0, 0, 1));
    EXPECT_NEAR(both.seen.length.at(kEdge), 15 + 20 * pi / 3, 1e-9);
    EXPECT_NEAR(both.unseen.length.at(kEdge), 5, 1e-9);

    CVek_Solid rounded; // a plane that goes over into a torus and that into a cylinder
    const Region soft{shapes::path({shapes::line(0, 0, 3, 0), shapes::line(3, 0, 4, 1, std::tan(pi / 8)),
                                    shapes::line(4, 1, 4, 5), shapes::line(4, 5, 0, 5), shapes::line(0, 5, 0, 0)})};
    ASSERT_TRUE(rounded.revolve(soft, {}, 0, 7, 1));
    View inclined = projected(rounded, from(0.2, 0.1, -1)); // the upper rim is the only edge
    EXPECT_NEAR(inclined.seen.length[kEdge] + inclined.unseen.length[kEdge], 7.9 * pi, 0.1 * pi);

    CVek_Solid cone; // a ball on a cone, from below and from the side
    const Region profile{shapes::path({shapes::line(0, 0, 3, 0), shapes::line(3, 0, 1, 6),
                                       shapes::line(1, 6, 0, 7, std::tan(pi / 8)), shapes::line(0, 7, 0, 0)})};
    ASSERT_TRUE(cone.revolve(profile, {}, 0.3, 2 * pi, 1));
    View side = projected(cone, from(1, 0, 0));
    EXPECT_NEAR(side.seen.length[kSilhouette], 2 * std::sqrt(40.0) + pi, 2e-3);
    EXPECT_NEAR(side.seen.length[kEdge], 8, 1e-6);
    View below = projected(cone, from(0, 0, -1));
    EXPECT_NEAR(below.seen.length[kEdge], 6 * pi, 1e-9);
    EXPECT_NEAR(below.unseen.length[kEdge], 2 * pi, 1e-9);
}

TEST(Solid, SheetsHaveFoldsAndPrismsNone)
{
    const double bend = std::tan(pi / 8);
    const CVekVertexArray line =
        shapes::path({shapes::line(0, 20, 0, 5), shapes::line(0, 5, 5, 0, bend), shapes::line(5, 0, 30, 0)});
    for (const int side : {-1, 0, 1}) {
        CVek_Solid sheet;
        ASSERT_TRUE(sheet.plate(line, 2, side, {}, 0, 40, 1));
        View view = projected(sheet, from(1, 1.1, 0.4));
        EXPECT_NEAR(view.seen.length[kFold] + view.unseen.length[kFold],
                    4 * 40 * std::cos(std::atan(0.4 / std::sqrt(2.21))), 1e-6);
        // The contour of the end: the bend is longer outside.
        const double toLeft = side + 1.0, r = 5 - toLeft;
        View end = projected(sheet, from(0, 0, 1));
        EXPECT_NEAR(end.seen.length[kEdge], 80 + 4 + (2 * r + 2) * pi / 2, 1e-9);
        EXPECT_EQ(std::tuple(end.seen.polylines, end.seen.segments[kEdge], end.seen.arcs), std::tuple(1, 8, 2));
        EXPECT_FALSE(sheet.plate(line, 20, 1, {}, 0, 1, 1)) << "the thickness consumes the bend";
    }
    CVek_Solid prism;
    const Region region{shapes::path({shapes::line(0, 0, 10, 0), shapes::line(10, 0, 10, 10, 1),
                                      shapes::line(10, 10, 0, 10), shapes::line(0, 10, 0, 0)})};
    ASSERT_TRUE(prism.extrude(region, {}, 0, 8, 1));
    View view = projected(prism, from(1, 1, 1));
    EXPECT_EQ(view.seen.segments.count(kFold) + view.unseen.segments.count(kFold), 0u);
}

TEST(Solid, HolesMeetFacesEdgesAndOneAnother)
{
    CVek_Solid solid;
    ASSERT_TRUE(solid.extrude(rectangle(40, 20), {}, 0, 5, 1));
    EXPECT_FALSE(solid.drill(1, at(60, 10, 0), 8));                                     // passes by
    EXPECT_FALSE(solid.drill(0, at(10, 10, 0), 8) || solid.drill(2, at(10, 10, 0), 8)); // no such element
    EXPECT_FALSE(solid.drill(1, at(10, 10, 6), 8, 5));                                  // begins behind the plate
    ASSERT_TRUE(solid.drill(1, at(10, 10, 0), 8));
    EXPECT_FALSE(solid.drill(1, at(10, 10, 0), 8)); // there is nothing left
    View above = projected(solid, from(0, 0, 1));
    EXPECT_NEAR(above.seen.length[kHole], 8 * pi, 1e-9);
    EXPECT_EQ(std::tuple(above.seen.arcs, above.hidden.len()), std::tuple(2, 0));
    // Half over the edge, and over the first hole: chord lengths 6 and 2 sqrt(16 - 9).
    ASSERT_TRUE(solid.drill(1, at(0, 10, 0), 6) && solid.drill(1, at(16, 10, 0), 8));
    above = projected(solid, from(0, 0, 1));
    EXPECT_NEAR(above.seen.length[kHole], 3 * pi + 2 * 4 * (2 * pi - 2 * std::acos(0.75)), 1e-6);
    EXPECT_NEAR(above.seen.length[kEdge], 120 - 6, 1e-6);
    View side = projected(solid, from(0, -1, 0)); // the corners of hole and hole are in line
    EXPECT_NEAR(side.unseen.length[kHole], 5, 1e-6);

    // A blind one keeps the lower face whole.
    ASSERT_TRUE(solid.drill(1, CVekMatrix3d().setCoordSystem({32, 10, 5}, {1, 0, 0}, {0, -1, 0}, {0, 0, -1}), 6, 4));
    EXPECT_NEAR(projected(solid, from(0, 0, -1)).seen.length[kHole], above.seen.length[kHole], 1e-9);
    EXPECT_NEAR(projected(solid, from(0, 0, 1)).seen.length[kHole], above.seen.length[kHole] + 6 * pi, 1e-9);
    // Round faces across the hole cannot be cut.
    CVek_Solid round;
    ASSERT_TRUE(round.extrude(tube(5, 4), {}, 0, 10, 1));
    EXPECT_FALSE(round.drill(1, CVekMatrix3d().setCoordSystem({0, 0, 5}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}), 3));
}

TEST(Solid, CopiesAreTransformedAndListsAreOneAfterTheOther)
{
    CVek_Solid part, whole;
    ASSERT_TRUE(part.extrude(tube(5, 4), {}, 0, 10, 7));
    const CVekMatrix3d uneven = CVekMatrix3d().setCoordSystem({30, 0, 0}, {-2, 0, 0}, {0, 1, 0}, {0, 0, 1});
    ASSERT_TRUE(whole.add(part, {}) && whole.add(part, uneven, 8) && whole.add(whole, at(0, 100, 0)));
    EXPECT_EQ(whole.bodies(), 4);
    CVekPoint3d min, max;
    ASSERT_TRUE(whole.extents(min, max));
    EXPECT_LT(min.distanceTo({-5, -5, 0}) + max.distanceTo({40, 105, 10}), 1e-9);
    View view = projected(whole, from(0, 0, 1));
    EXPECT_EQ(view.seen.arcs, 8); // the two even ones
    EXPECT_EQ(view.visible[view.visible.len() - 1].element, 8);
    Lines both;
    ASSERT_TRUE(whole.project(from(1, 2, 3), true, both, both, 99));
    view = projected(whole, from(1, 2, 3));
    ASSERT_EQ(both.len(), view.visible.len() + view.hidden.len());
    for (int i = 0; i < both.len(); ++i) // again exactly the same
        EXPECT_TRUE(both[i] == (i < view.visible.len() ? view.visible[i] : view.hidden[i - view.visible.len()]));
    whole.clear();
    EXPECT_FALSE(whole.solid() || whole.project({}, true, both, both, 1) || both.len() > 0 || whole.extents(min, max));
}

TEST(Solid, LeavesOutWhatIsNoBody)
{
    CVek_Solid solid;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double bad : {0.0, nan, 1e300, -1e300, std::numeric_limits<double>::infinity()}) {
        EXPECT_FALSE(solid.extrude(rectangle(10, 10), {}, 0, bad, 1)) << bad;
        EXPECT_FALSE(solid.extrude(rectangle(bad, 10), {}, 0, 1, 1)) << bad;
        EXPECT_FALSE(solid.revolve(rectangle(10, 10), {}, 0, bad == 0.0 || bad != bad ? bad : nan, 1)) << bad;
        EXPECT_FALSE(solid.plate(shapes::path({shapes::line(0, 0, 10, 0)}), bad, 0, {}, 0, 1, 1)) << bad;
        CVekMatrix3d m;
        m[1][1] = bad;
        EXPECT_FALSE(solid.extrude(rectangle(10, 10), m, 0, 1, 1)) << bad;
        EXPECT_FALSE(
            solid.extrude(rectangle(10, 10), {}, CVekPlane({}, {1, 0, bad}), CVekPlane({0, 0, 1}, {0, 0, 1}), 1))
            << bad;
    }
    EXPECT_FALSE(solid.extrude({}, {}, 0, 1, 1) || solid.revolve(rectangle(-1, 1), {}, 0, 1, 1));
    EXPECT_FALSE(solid.extrude(rectangle(10, 10), {}, CVekPlane({}, {-1, 0, 1}), CVekPlane({0, 0, 1}, {0, 0, 1}),
                               1)); // they meet
    EXPECT_FALSE(solid.extrude({polygon({{0, 0}, {5, 5}, {9, 9}})}, {}, 0, 1, 1));
    EXPECT_EQ(solid.bodies(), 0);

    ASSERT_TRUE(solid.extrude({polygon({{0, 0}, {10, 10}, {10, 0}, {0, 10}})}, {}, 0, 4, 1));
    EXPECT_FALSE(solid.drill(1, at(nan, 0, 0), 1) || solid.drill(1, {}, nan) || solid.drill(1, {}, 1, -1) ||
                 solid.drill(1, {}, 0));
    EXPECT_NEAR(projected(solid, from(0, 0, 1)).seen.length[kEdge], 20 + 20 * std::sqrt(2.0), 1e-6);
    for (const double size : {1e-5, 1e7, 1e11}) { // tiny, huge
        CVek_Solid scaled;
        ASSERT_TRUE(scaled.add(solid, CVekMatrix3d().setToScaling(size, {})));
        projected(scaled, from(1, 2, 3));
    }
    Lines visible, hidden;
    CVekMatrix3d flat;
    flat[2][2] = 0;
    visible.append(CVekVertexArrayEx());
    EXPECT_FALSE(solid.project(flat, true, visible, hidden, 1) || visible.len() > 0);
}

/// Where holes meet, rims are cut into chords in the order of drilling. Patterns that touch nothing, one another, edges
/// and each other's rims; square and slanting; blind ones that end in a face, before or behind it.
TEST(Solid, DrillsAPatternLikeItsHolesOneByOne)
{
    std::mt19937 random(5);
    const auto any = [&](double low, double high) { return low + (high - low) * (random() / 4294967296.0); };
    int cut = 0;
    for (int round = 0; round < 30; ++round) {
        CVek_Solid one, many;
        const CVekMatrix3d place = CVekMatrix3d().setToMirroring(CVekPlane({}, {any(-1, 1), any(-1, 1), 1}));
        const double lean = round % 3 == 0 ? any(-0.1, 0.1) : 0.0;
        for (CVek_Solid* solid : {&one, &many}) {
            const Region plate{shapes::rectangle(0, 0, 40, 30), shapes::circle(20, 15, 4)};
            ASSERT_TRUE(
                solid->extrude(plate, place, CVekPlane({0, 0, 0}, {0, 0, 1}), CVekPlane({0, 0, 6}, {lean, 0, 1}), 1));
        }
        const double depths[] = {0, 3, 6, 8};
        const double diameter = any(1, 3), depth = depths[random() % 4];
        const CVekMatrix3d tilt = CVekMatrix3d().setToRotation(round % 4 == 0 ? any(-0.5, 0.5) : 0.0, {1, 0, 0}, {});
        CVekArrayTempl<CVekMatrix3d> holes;
        const double step = any(0.9, 2) * diameter, x = any(-2, 5), y = any(-2, 5), z = std::floor(any(-2, 2));
        for (int i = 0; i < 24; ++i)
            holes.append(place * at(x + step * (i % 6), y + 1.3 * step * (i / 6), z) * tilt);
        holes.append(CVekMatrix3d(holes[3]));

        bool any1 = false;
        for (const CVekMatrix3d& hole : holes)
            any1 = one.drill(1, hole, diameter, depth) || any1;
        EXPECT_EQ(many.drillEach(1, holes, diameter, depth), any1);
        const CVekMatrix3d view = from(any(-1, 1), any(-1, 1), any(-1, 1));
        View a = projected(one, view), b = projected(many, view);
        for (const VekLineKind kind : {kEdge, VekLineKind::hole, VekLineKind::silhouette}) {
            EXPECT_NEAR(a.seen.length[kind], b.seen.length[kind], 1e-3) << "round " << round;
            EXPECT_NEAR(a.unseen.length[kind], b.unseen.length[kind], 1e-3) << "round " << round;
        }
        cut += any1;
    }
    EXPECT_EQ(cut, 30);
}

} // namespace
