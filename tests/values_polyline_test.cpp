#include "shapes.h"

#include <vek/values/tolerance.h>

#include <gtest/gtest.h>
#include <limits>

namespace
{

using shapes::pi;

/// Tolerance of lengths and coordinates, for figures of size 1 around the origin.
constexpr double kTol = 1e-9;

const double kNan = std::numeric_limits<double>::quiet_NaN();

void expectAt(const CVekPoint3d& p, double x, double y, double z = 0.0, double tolerance = kTol)
{
    EXPECT_NEAR(p[0], x, tolerance);
    EXPECT_NEAR(p[1], y, tolerance);
    EXPECT_NEAR(p[2], z, tolerance);
}

double apart(const CVekPoint3d& a, const CVekPoint3d& b)
{
    return std::sqrt((a - b).dot(a - b));
}

/// A point of an arc by centre and angle, the way of the school book: second method for everything on arcs.
CVekPoint3d onArc(const CVekVertex& v, const CVekVector3d& normal, double t)
{
    const CVekMatrix3d toWorld = CVekMatrix3d().setToPlaneToWorld(normal), toPlane = toWorld.inverse();
    const CVekPoint3d a = v.start * toPlane, b = v.end * toPlane;
    const double z = a[2] + t * (b[2] - a[2]);
    if (v.bulge == 0.0)
        return CVekPoint3d(a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1]), z) * toWorld;
    const double aside = (1.0 - v.bulge * v.bulge) / (4.0 * v.bulge);
    const double cx = 0.5 * (a[0] + b[0]) - (b[1] - a[1]) * aside;
    const double cy = 0.5 * (a[1] + b[1]) + (b[0] - a[0]) * aside;
    const double turn = t * 4.0 * std::atan(v.bulge);
    const double x = a[0] - cx, y = a[1] - cy;
    return CVekPoint3d(cx + x * std::cos(turn) - y * std::sin(turn), cy + x * std::sin(turn) + y * std::cos(turn), z) *
           toWorld;
}

class Random : public shapes::Random
{
public:
    Random() : shapes::Random(20240611) {}
    double operator()() { return uniform(-1.0, 1.0); }
    CVekVector3d vector() { return {(*this)(), (*this)(), (*this)()}; }

    /// One arc in the plane of a random normal, every third time z or -z.
    CVekVertexArray arc(int round)
    {
        CVekVertexArray polyline;
        polyline.setNormal(round % 3 == 0 ? CVekVector3d(0, 0, round % 2 ? 1 : -1) : vector());
        const CVekVector3d n = polyline.normal(), any = vector();
        const CVekPoint3d start = (vector() * 10.0).asPoint();
        polyline.append(CVekVertex(start, start + (any - n * any.dot(n)), std::tan(1.4 * (*this)())));
        return polyline;
    }
};

const CVekVertexArray kSquare = shapes::rectangle(0, 0, 2, 2);

} // namespace

TEST(Vertex, lengthAndMiddle)
{
    // Nearly a full circle: chord 2, bulge 1e6, radius 500000.5 above or below it.
    const CVekVertex full({0, 0, 0}, {2, 0, 0}, 1e6);
    EXPECT_NEAR(full.bulgLen() / (2.0 * pi * 5e5), 1.0, 1e-6);
    expectAt(full.mid(), 1.0, -1e6, 0.0, 1e-5);

    // Flat at large coordinates: the sagitta is half the chord times the bulge.
    const CVekVertex flat({1e7, 1e7, 0}, {1e7 + 1000.0, 1e7, 0}, 1e-9);
    EXPECT_NEAR(flat.bulgLen(), 1000.0, kTol);
    expectAt(flat.mid(), 1e7 + 500.0, 1e7 - 5e-7, 0.0, 4e-9);

    for (double bulge : {0.0, 1.0, 1e6, kNan})
        EXPECT_EQ(CVekVertex({3, 3, 3}, {3, 3, 3}, bulge).bulgLen(), 0.0);
    EXPECT_NEAR(CVekVertex({0, 0, 0}, {0, 0, 2}, 1.0).bulgLen(), pi, kTol); // in an upright plane
}

TEST(Vertex, nearestPointStaysOnTheSegment)
{
    const CVekVertex half({1, 0, 0}, {-1, 0, 0}, 1.0); // the upper half of the unit circle
    EXPECT_TRUE(half.isPoint({0, 1, 0}) && half.isPoint({-1, 0, 0}) && half.isPoint({0, 1 + 0.9e-6, 0}));
    EXPECT_FALSE(half.isPoint({0, 1 + 1.1e-6, 0}) || half.isPoint({0, -1, 0}) || half.isPoint({0, 1, 1}));
    EXPECT_TRUE(CVekVertex({1, 2, 3}, {1, 2, 3}, 1.0).isPoint({1, 2, 3}));

    Random random;
    for (int round = 0; round < 100; ++round) {
        const CVekPoint3d start(3 * random(), 3 * random(), 0);
        const CVekVertex v(start, {random(), random(), 0}, round % 5 ? std::tan(1.4 * random()) : 0.0);
        EXPECT_LE(apart(v.mid(), onArc(v, CVekVector3d::kZAxis, 0.5)), kTol);
        const CVekPoint3d p(4 * random(), 4 * random(), 0);
        double least = apart(p, v.start);
        for (int i = 1; i <= 800; ++i)
            least = std::min(least, apart(p, onArc(v, CVekVector3d::kZAxis, i / 800.0)));
        const double found = apart(p, v.lotp(p));
        EXPECT_LE(found, least + kTol);
        EXPECT_NEAR(found, least, 1.25e-3 * v.bulgLen());
        EXPECT_TRUE(v.isPoint(v.lotp(p)));
    }
}

TEST(Polyline, fromPointsAndClosure)
{
    CVekVertexArray line = kSquare;
    EXPECT_EQ(line.len(), 4);
    EXPECT_TRUE(line.isClosed() && line.isContinuous());

    CVekPoint3dArray points = line.pts(true, 0.5);
    ASSERT_EQ(points.len(), 5);
    line.fromPoints(points, true); // the last point is the first: no further segment
    EXPECT_EQ(line.len(), 4);
    line.removeAt(1);
    EXPECT_FALSE(line.isContinuous());
    EXPECT_TRUE(line.isClosed());
    points = line.pts(true, 0.5); // the gap shows as a further point
    ASSERT_EQ(points.len(), 5);
    expectAt(points[1], 2, 0);
    expectAt(points[2], 2, 2);
    line.removeAt(-1);
    EXPECT_FALSE(line.isClosed());

    const CVekVertexArray empty;
    EXPECT_TRUE(!empty.isClosed() && empty.isContinuous() && empty.pts(true, 0.5).len() == 0);
    EXPECT_EQ(line.fromPoints(CVekPoint3dArray(), true).len(), 0);
    points.setLogicalLength(1);
    EXPECT_EQ(line.fromPoints(points, true).len(), 0);
}

TEST(Polyline, comparesReversesAndMoves)
{
    const CVekVertexArray a(CVekVertex({0, 0, 0}, {1, 0, 0}, 0.25));
    CVekVertexArray b = a;
    EXPECT_TRUE(a == b);
    b.setNormal({0, 0, -3});
    EXPECT_EQ(b.normal().z, -1.0);
    EXPECT_FALSE(a == b);
    for (const double bad : {0.0, kNan}) {
        b.setNormal({0, bad, 0});
        EXPECT_EQ(b.normal().z, -1.0);
    }
    // Through the base as well, with what belongs to a polyline beside its segments.
    CVekVertexArray c = a;
    CVekArrayTempl<CVekVertex>& base = c;
    base.revert();
    EXPECT_EQ(c[0].bulge, -0.25);
    expectAt(c[0].start, 1, 0);
    base.swap(b);
    EXPECT_TRUE(b.normal().z == 1.0 && c.normal().z == -1.0);
    EXPECT_TRUE(b[0].bulge == -0.25 && c[0].bulge == 0.25);
    b.swap(c);
    EXPECT_TRUE(c.normal().z == 1.0 && c[0].bulge == -0.25);
    CVekArrayTempl<CVekVertex> plain{a[0], a[0]};
    plain.swap(b); // a list of segments has its arcs about z
    EXPECT_TRUE(b.len() == 2 && b.normal().z == 1.0 && plain.len() == 1);
    expectAt(b.move({1, 2, 3})[0].end, 2, 2, 3);
}

TEST(Polyline, joinsInWhateverPlanes)
{
    Random random;
    for (int round = 0; round < 300; ++round) {
        CVekVertexArray a = random.arc(round);
        CVekVertexArray b = random.arc(round + round / 3);
        if (round % 5 == 1)
            b.setNormal(-a.normal());
        if (round % 7 == 2)
            a[0].bulge = 0.0;
        if (round % 7 == 3)
            b[0].bulge = 0.0;
        if (round % 11 == 4)
            a = CVekVertexArray();
        if (round % 11 == 5)
            b = a;
        CVekVertexArray sum = a;
        sum += round % 11 == 5 ? sum : b;
        // The parts are where they were, to within the fineness of chords.
        const double radius = b[0].bulge != 0.0 ? b[0].bulgLen() / std::fabs(4.0 * std::atan(b[0].bulge)) : 0.0;
        for (int i = 0; i < a.len(); ++i)
            EXPECT_LE(apart(onArc(sum[i], sum.normal(), 0.3), onArc(a[i], a.normal(), 0.3)), kTol);
        const int parts = sum.len() - a.len();
        ASSERT_GE(parts, 1);
        for (int i = 0; i < parts; ++i) {
            const CVekPoint3d on = onArc(sum[a.len() + i], sum.normal(), 0.5);
            EXPECT_LE(apart(on, onArc(b[0], b.normal(), (i + 0.5) / parts)), 1e-4 * radius + kTol) << round;
        }
    }
}

TEST(Polyline, arcsAreSteppedWithinTheTolerance)
{
    Random random;
    for (int round = 0; round < 200; ++round) {
        const CVekVertexArray polyline = random.arc(round);
        const double tolerance = 0.5 * std::pow(10.0, -round % 5);
        const CVekPoint3dArray points = polyline.pts(true, tolerance);
        const int chords = points.len() - 1;
        ASSERT_LT(chords, 4096);
        EXPECT_EQ(points[0], polyline[0].start);
        EXPECT_EQ(points[-1], polyline[0].end);
        const double turn = std::fabs(4.0 * std::atan(polyline[0].bulge));
        const double radius = polyline[0].bulgLen() / turn;
        for (int i = 0; i < chords; ++i) {
            const CVekPoint3d on = onArc(polyline[0], polyline.normal(), (i + 0.5) / chords);
            const CVekPoint3d between = points[i] + (points[i + 1] - points[i]) * 0.5;
            EXPECT_LE(apart(on, between), tolerance + kTol);
        }
        // One chord fewer would not do, except for the chord that each quarter turn has.
        const double sagitta = chords > 1 ? radius * (1.0 - std::cos(0.5 * turn / (chords - 1))) : tolerance + 1.0;
        EXPECT_TRUE(sagitta > tolerance || turn / (chords - 1) > 0.5 * pi);
    }
}

TEST(Polyline, chordsOfAnArcAreBounded)
{
    const CVekVertexArray half(CVekVertex({0, 0, 0}, {2, 0, 0}, 1.0));
    EXPECT_EQ(half.pts(false, 0.1).len(), 2);
    EXPECT_EQ(half.pts(true, 100.0).len(), 3);
    for (double tolerance : {0.0, -1.0, kNan, 1e-300})
        EXPECT_EQ(half.pts(true, tolerance).len(), 4097);
    EXPECT_EQ(CVekVertexArray(CVekVertex({0, 0, 0}, {1e150, 0, 0}, 1.0)).pts(true, 1e-9).len(), 4097);
    for (double bulge : {kNan, std::numeric_limits<double>::infinity(), 1e-320})
        EXPECT_EQ(CVekVertexArray(CVekVertex({0, 0, 0}, {2, 0, 0}, bulge)).pts(true, 0.0).len(), 2);
    for (double x : {0.0, kNan, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(CVekVertexArray(CVekVertex({0, 0, 0}, {x, 0, 0}, 1.0)).pts(true, 0.1).len(), 2);
}

TEST(Polyline, extentsHoldTheArcs)
{
    CVekPoint3d low, high;
    EXPECT_FALSE(CVekVertexArray().extents(low, high));
    Random random;
    for (int round = 0; round < 120; ++round) {
        CVekVertexArray polyline = random.arc(round);
        polyline.append(CVekVertex(polyline[0].end, polyline[0].start + random.vector()));
        ASSERT_TRUE(polyline.extents(low, high));
        CVekPoint3d least = VEK::p_min(polyline[0].start, polyline[1].end), most = polyline[1].end;
        for (int i = 1; i <= 800; ++i) {
            const CVekPoint3d p = onArc(polyline[0], polyline.normal(), i / 800.0);
            least = VEK::p_min(least, p);
            most = VEK::p_max(most, p);
        }
        const double step = polyline[0].bulgLen() / 800.0;
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_TRUE(low[axis] <= least[axis] + kTol && high[axis] >= most[axis] - kTol) << round;
            EXPECT_NEAR(low[axis], least[axis], step);
            EXPECT_NEAR(high[axis], most[axis], step);
        }
    }
}

TEST(Polyline, transformedArcIsTheArcOfTransformedPoints)
{
    Random random;
    for (int round = 0; round < 1000; ++round) {
        CVekVertexArray polyline = random.arc(round);
        polyline[0].tag[0] = round % 99;
        CVekMatrix3d m = CVekMatrix3d().setToRotation(4 * random(), random.vector(), random.vector().asPoint());
        if (round % 2)
            m *= CVekMatrix3d().setToMirroring(CVekPlane(random.vector().asPoint(), random.vector()));
        m *= CVekMatrix3d().setToScaling(round % 4 < 2 ? 2.5 : -0.4, random.vector().asPoint());
        const CVekVertexArray image = polyline.getTransformedCopy(m);
        ASSERT_EQ(image.len(), 1);
        EXPECT_NEAR(image.normal().dot(image.normal()), 1.0, kTol);
        EXPECT_EQ(image[0].bulge, m.determinant() < 0.0 ? -polyline[0].bulge : polyline[0].bulge);
        EXPECT_EQ(image[0].tag[0], round % 99);
        for (double t : {0.1, 0.5, 0.9})
            EXPECT_LE(apart(onArc(polyline[0], polyline.normal(), t) * m, onArc(image[0], image.normal(), t)), 1e-7);
    }
}

TEST(Polyline, arcsBecomeChordsWhereTheyAreNone)
{
    CVekMatrix3d m;
    m[0][0] = 3.0; // x alone
    CVekVertexArray polyline = kSquare;
    polyline[1].bulge = 1.0;
    polyline[1].tag[0] = 9;
    const CVekVertexArray image = polyline.getTransformedCopy(m);
    ASSERT_EQ(image.len(), 3 + 128);
    EXPECT_TRUE(image.isClosed() && image.isContinuous());
    for (const CVekVertex& v : image) {
        EXPECT_EQ(v.bulge, 0.0);
        if (v.tag[0] == 9) { // on the ellipse around (6, 1)
            EXPECT_NEAR(std::pow((v.end[0] - 6.0) / 3.0, 2) + std::pow(v.end[1] - 1.0, 2), 1.0, kTol);
        }
    }
    // Straight ones keep their number, and the normal goes along by the linear part.
    CVekVertexArray straight = kSquare;
    straight.setNormal({1, 0, 1});
    straight.transformBy(m);
    EXPECT_EQ(straight.len(), 4);
    EXPECT_NEAR(straight.normal()[0], 3.0 / std::sqrt(10.0), kTol);

    // Flattening along the normal leaves the arcs, and their plane.
    CVekMatrix3d flat;
    flat[2][2] = 0.0;
    polyline.move({0, 0, 5});
    polyline.transformBy(flat);
    EXPECT_EQ(polyline.len(), 4);
    EXPECT_EQ(polyline[1].bulge, 1.0);
    EXPECT_EQ(polyline.normal()[2], 1.0);
    EXPECT_EQ(polyline[1].start[2], 0.0);
}

TEST(Polyline, breaksSegments)
{
    Random random;
    for (int round = 0; round < 200; ++round) {
        CVekVertexArray polyline = random.arc(round);
        polyline[0].tag[1] = round;
        const CVekVertex whole = polyline[0];
        polyline.append(whole); // between two others
        polyline.append(CVekVertex(whole.end, random.vector().asPoint()));
        polyline[0] = CVekVertex(random.vector().asPoint(), whole.start);
        const CVekPoint3d at = onArc(whole, polyline.normal(), 0.3), beside = at + polyline.normal() * 0.1;
        EXPECT_FALSE(polyline.breakVertex(1, whole.start) || polyline.breakVertex(1, whole.end));
        EXPECT_FALSE(polyline.breakVertex(1, beside) || polyline.breakVertex(3, at) || polyline.len() != 3);
        ASSERT_TRUE(polyline.breakVertex(round % 2 ? 1 : -2, at));
        ASSERT_EQ(polyline.len(), 4);
        EXPECT_TRUE(polyline.isContinuous() && polyline[2].end == whole.end && polyline[2].tag[1] == round);
        EXPECT_EQ(polyline[1].end, at);
        EXPECT_NEAR(polyline[1].bulgLen(), 0.3 * whole.bulgLen(), 1e-7);
        EXPECT_LE(apart(onArc(polyline[2], polyline.normal(), 0.5), onArc(whole, polyline.normal(), 0.65)), 1e-7);
    }
    EXPECT_FALSE(CVekVertexArray().breakVertex(-1, {2, 1, 0}));
}

TEST(PointArray, sortsAlongADirection)
{
    CVekPoint3dArray points;
    for (int i = 0; i < 100; ++i)
        points.append({double(i % 10), double(i), 0});
    points.sort({-1, 0, 0});
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(points[i][0], 9 - i / 10);
        EXPECT_EQ(points[i][1], 10 * (i % 10) + 9 - i / 10);
    }
    EXPECT_EQ(points.indexOf({9, 19, 0}), 1);
    EXPECT_EQ(points.indexOf({9, 19, 1e-12}), -1);
}
