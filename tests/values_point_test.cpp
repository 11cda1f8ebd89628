#include "shapes.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{

constexpr double kTol = 1e-9; ///< of all results of a few operations on numbers up to 100
constexpr double kTurn = 2.0 * shapes::pi;

void expectNear(const CVekPoint3d& point, const CVekPoint3d& expected)
{
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(point[axis], expected[axis], kTol) << axis;
}

/// The rows of a matrix by hand: `w` is 1 for a point and 0 for a vector.
CVekPoint3d byRows(const CVekMatrix3d& m, const CVekPoint3d& p, double w)
{
    const auto row = [&](int i) { return m[i][0] * p[0] + m[i][1] * p[1] + m[i][2] * p[2] + m[i][3] * w; };
    return {row(0), row(1), row(2)};
}

} // namespace

TEST(Vector, ReckonsByComponents)
{
    shapes::Random random(3);
    for (int round = 0; round < 100; ++round) {
        const CVekVector3d a = random.direction() * random.uniform(-9, 9), b = random.direction() * 5.0;
        const CVekPoint3d p(b.y, b.z, b.x), q = p + a;
        const double factor = random.uniform(-3, 3), angle = random.uniform(-7, 7);
        CVekVector3d sum = a, less = a, scaled = a;
        sum += b;
        less -= b;
        scaled *= factor;
        CVekPoint3d there = p, back = q;
        there += a;
        back -= a;
        const CVekVector3d cross = a * b;
        for (int i = 0, j = 1, k = 2; i < 3; ++i, j = (i + 1) % 3, k = (i + 2) % 3) {
            EXPECT_TRUE(sum[i] == a[i] + b[i] && (a + b)[i] == sum[i] && less[i] == a[i] - b[i] &&
                        (a - b)[i] == less[i]);
            EXPECT_TRUE(scaled[i] == a[i] * factor && (a * factor)[i] == scaled[i] && (-a)[i] == -a[i]);
            EXPECT_TRUE(q[i] == p[i] + a[i] && there[i] == q[i] && back[i] == q[i] - a[i] && (q - p)[i] == q[i] - p[i]);
            EXPECT_NEAR(cross[i], a[j] * b[k] - a[k] * b[j], kTol);
            EXPECT_TRUE(VEK::p_min(p, q)[i] == std::min(p[i], q[i]) && VEK::p_max(p, q)[i] == std::max(p[i], q[i]));
        }
        EXPECT_NEAR(a.dot(b), a.x * b.x + a.y * b.y + a.z * b.z, kTol);
        EXPECT_NEAR(p.distanceTo(q), std::sqrt(a.dot(a)), kTol);
        CVekVector3d unit = a;
        EXPECT_EQ(&unit.normalize(), &unit);
        expectNear((unit * a.abs()).asPoint(), a.asPoint());
        expectNear(VEK::polar(p, angle, factor),
                   {p[0] + factor * std::cos(angle), p[1] + factor * std::sin(angle), p[2]});
        expectNear(p + VEK::polar(angle, factor), VEK::polar(p, angle, factor));
    }
    static_assert(sizeof(CVekPoint3d) == sizeof(void*) + 3 * sizeof(double));
    EXPECT_TRUE(CVekPoint3d() == CVekPoint3d::kOrigin);
    EXPECT_TRUE(CVekPoint3d(0, 0, 1e-12) != CVekPoint3d());
}

TEST(Vector, ComparesWithinATolerance)
{
    const double before = CVekVector3d::tol;
    EXPECT_EQ(before, 1e-10);
    EXPECT_TRUE(CVekVector3d(1, 0, 0) == CVekVector3d(1, 0, 1e-12));
    EXPECT_FALSE(CVekVector3d(1, 0, 0) == CVekVector3d(1.001, 0, 0));
    CVekVector3d::tol = 0.01;
    EXPECT_TRUE(CVekVector3d(1, 0, 0) == CVekVector3d(1.001, 0, 0));
    CVekVector3d::tol = before;
}

TEST(Angle, ComesIntoOneTurn)
{
    for (const double angle : {0.0, 1.0, kTurn - 0.001}) {
        EXPECT_NEAR(VEK::g_ang(angle), angle, kTol);
        EXPECT_NEAR(VEK::g_ang(angle - 3 * kTurn), angle, kTol);
        EXPECT_NEAR(VEK::g_ang(angle + 5 * kTurn), angle, kTol);
    }
    for (const double angle : {-1e-300, -0.0, kTurn, -kTurn, HUGE_VAL, std::nan("")})
        EXPECT_EQ(VEK::g_ang(angle), 0.0) << angle;
}

TEST(Matrix, ActsByItsRowsAndTheRightFactorFirst)
{
    shapes::Random random(11);
    int judged = 0;
    for (int round = 0; round < 300; ++round) {
        CVekVector3d axes[4];
        for (CVekVector3d& axis : axes)
            axis = random.direction() * random.uniform(0.5, 10);
        CVekMatrix3d m;
        m.setCoordSystem(axes[3].asPoint(), axes[0], axes[1], axes[2]);
        const double volume = (axes[0] * axes[1]).dot(axes[2]);
        EXPECT_NEAR(m.determinant(), volume, kTol);
        if (std::fabs(volume) < 1.0)
            continue;
        ++judged;
        EXPECT_EQ(m.mirrors(), volume < 0.0);
        EXPECT_TRUE(m.translation() == axes[3]);
        for (int i = 0; i < 3; ++i)
            EXPECT_TRUE(m.axis(i) == axes[i] && m[i][0] == axes[0][i] && m[i][2] == axes[2][i] &&
                        m[i][3] == axes[3][i]);
        const CVekPoint3d p = (random.direction() * 5.0).asPoint();
        CVekPoint3d q = p;
        expectNear(q *= m, byRows(m, p, 1));
        expectNear(p * m * m.inverse(), p);
        CVekVector3d v = p.asVector();
        expectNear((v *= m).asPoint(), byRows(m, p, 0));
        const CVekMatrix3d move = random.motion();
        expectNear(p * (move * m), byRows(move, byRows(m, p, 1), 1));
        CVekMatrix3d both = m, back = m;
        both *= move; // acts after what was there
        EXPECT_TRUE(both == move * m && both * CVekMatrix3d() == both && back.invert() == m.inverse());
    }
    EXPECT_GT(judged, 200);
    EXPECT_TRUE(CVekMatrix3d() == CVekMatrix3d::kIdentity);
    EXPECT_TRUE(CVekMatrix3d().axis(3).abs() == 0.0 && CVekMatrix3d().axis(-1).abs() == 0.0);
}

TEST(Matrix, TurnsMirrorsScalesAndStandsAsTold)
{
    shapes::Random random(2);
    for (int round = 0; round < 300; ++round) {
        CVekVector3d axis = random.direction();
        if (random.coin()) // near the border at which the plane's axes are chosen in another way
            axis = {random.uniform(-0.02, 0.02), random.uniform(-0.02, 0.02), random.pick({-1, 1})};
        const CVekVector3d n = axis * (1.0 / axis.abs());
        axis *= random.uniform(0.1, 9);
        const CVekPoint3d at = (random.direction() * 5.0).asPoint();
        const CVekVector3d out = random.direction() * 5.0;
        const double angle = random.uniform(-7, 7), c = std::cos(angle), s = std::sin(angle), along = n.dot(out);
        CVekMatrix3d m;
        expectNear((at + out) * m.setToRotation(angle, axis, at), at + out * c + n * out * s + n * (along * (1 - c)));
        expectNear((at + out) * m.setToMirroring({at, axis}), at + out - n * (2 * along));
        expectNear((out * m).asPoint(), (out - n * (2 * along)).asPoint());
        expectNear((at + out) * m.setToScaling(angle, at), at + out * angle);
        expectNear(at * m.setToTranslation(out), at + out);
        const bool nearZ = std::max(std::fabs(n.x), std::fabs(n.y)) < 1.0 / 64.0;
        const CVekVector3d x = ((nearZ ? CVekVector3d::kYAxis : CVekVector3d::kZAxis) * n).normalize();
        m.setToPlaneToWorld(axis);
        expectNear(m.axis(0).asPoint(), x.asPoint());
        expectNear(m.axis(1).asPoint(), (n * x).asPoint());
        expectNear(m.axis(2).asPoint(), n.asPoint());
    }
    EXPECT_TRUE(CVekMatrix3d().setToPlaneToWorld({0, 0, 2}) == CVekMatrix3d::kIdentity);
}

TEST(Vector, HasADirectionHoweverLongItIs)
{
    const CVekPoint3d centre(1, 2, 3);
    for (const double length : {5e-324, 1e-310, 1e-200, 1e-150, 1.0, 1e150, 1e200, 1.7e308}) {
        SCOPED_TRACE(length);
        const CVekVector3d axis(0, -length, 0);
        EXPECT_EQ(axis.abs(), length);
        EXPECT_EQ(CVekPoint3d().distanceTo(axis.asPoint()), length);
        expectNear(CVekVector3d(axis).normalize().asPoint(), {0, -1, 0});
        const auto same = [&](const CVekMatrix3d& a, const CVekMatrix3d& b) { EXPECT_TRUE(a == b); };
        same(CVekMatrix3d().setToRotation(1.0, axis, centre), CVekMatrix3d().setToRotation(1.0, {0, -1, 0}, centre));
        same(CVekMatrix3d().setToPlaneToWorld(axis), CVekMatrix3d().setToPlaneToWorld({0, -1, 0}));
        same(CVekMatrix3d().setToMirroring({centre, axis}), CVekMatrix3d().setToMirroring({centre, {0, -1, 0}}));
        const CVekMatrix3d m = CVekMatrix3d().setCoordSystem({}, axis, {1, 0, 0}, {0, 0, 1});
        EXPECT_FALSE(m.mirrors());
        EXPECT_TRUE((m * CVekMatrix3d().setToMirroring({{}, {1, 0, 0}})).mirrors());
    }
    for (const double bad : {0.0, std::numeric_limits<double>::infinity(), std::nan("")}) {
        const CVekVector3d axis(0, bad, 0);
        EXPECT_FALSE(CVekVector3d(axis).normalize().isUnit());
        EXPECT_TRUE(CVekMatrix3d().setToRotation(1.0, axis, centre) == CVekMatrix3d::kIdentity);
        EXPECT_TRUE(CVekMatrix3d().setToMirroring({centre, axis}) == CVekMatrix3d::kIdentity);
        EXPECT_TRUE(CVekMatrix3d().setToPlaneToWorld(axis) == CVekMatrix3d::kIdentity);
    }
    EXPECT_EQ(CVekVector3d().normalize().abs(), 0.0);
}

TEST(Matrix, HasAnInverseUnlessItIsSingular)
{
    for (const double factor : {1e-300, -1e-110, 1e-110, 1e110, 1e300}) {
        const CVekMatrix3d m = CVekMatrix3d().setToScaling(factor, {});
        EXPECT_NEAR(m.inverse()[2][2] * factor, 1.0, kTol);
        EXPECT_EQ(m.mirrors(), factor < 0.0);
    }
    CVekMatrix3d bad;
    bad[0][0] = std::nan("");
    for (CVekMatrix3d m : {bad, CVekMatrix3d().setToScaling(0, {1, 2, 3}), CVekMatrix3d().setToScaling(1e-310, {})})
        EXPECT_TRUE(m.inverse() == CVekMatrix3d::kIdentity && m.invert() == CVekMatrix3d::kIdentity);
}
