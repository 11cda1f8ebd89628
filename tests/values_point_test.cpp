#include <vek/values/matrix.h>

#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <random>

namespace
{

constexpr double kTol = 1e-9; ///< of all results of a few operations on numbers up to 100
constexpr double kQuarter = std::numbers::pi / 2.0;

void expectNear(const CVekPoint3d& point, double x, double y, double z)
{
    EXPECT_NEAR(point[0], x, kTol);
    EXPECT_NEAR(point[1], y, kTol);
    EXPECT_NEAR(point[2], z, kTol);
}

void expectNear(const CVekVector3d& vector, double x, double y, double z)
{
    expectNear(vector.asPoint(), x, y, z);
}

void expectNear(const CVekMatrix3d& a, const CVekMatrix3d& b)
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(a[row][column], b[row][column], kTol) << row << ' ' << column;
    }
}

/// A matrix of random numbers, with an inverse.
CVekMatrix3d randomMatrix(std::mt19937& random)
{
    std::uniform_real_distribution<double> number(-10.0, 10.0);
    CVekMatrix3d m;
    do {
        for (int row = 0; row < 3; ++row) {
            for (double& element : m[row])
                element = number(random);
        }
    } while (std::fabs(m.determinant()) < 1.0);
    return m;
}

} // namespace

TEST(Point, MovesByAVectorAndGivesDistances)
{
    CVekPoint3d p(1, 2, 3);
    const CVekPoint3d q(4, 6, 3);
    expectNear(q - p, 3, 4, 0);
    EXPECT_EQ(p.distanceTo(q), 5.0);
    p += q - p;
    EXPECT_TRUE(p == q);
    p -= CVekVector3d(0, 0, 1e-12);
    EXPECT_TRUE(p != q);
    EXPECT_TRUE(p.asVector() == q.asVector()) << "vectors compare within their tolerance";
    expectNear(VEK::p_min({1, 5, -1}, {2, 4, -2}), 1, 4, -2);
    expectNear(VEK::p_max({1, 5, -1}, {2, 4, -2}), 2, 5, -1);
    expectNear(VEK::polar({1, 1, 1}, kQuarter, 2.0), 1, 3, 1);
    expectNear(VEK::polar(std::numbers::pi, 2.0), -2, 0, 0);
    EXPECT_TRUE(CVekPoint3d() == CVekPoint3d::kOrigin);
}

TEST(Vector, HasProductsAndALength)
{
    const CVekVector3d x = CVekVector3d::kXAxis;
    const CVekVector3d y = CVekVector3d::kYAxis;
    EXPECT_TRUE(x * y == CVekVector3d::kZAxis);
    EXPECT_TRUE(y * x == -CVekVector3d::kZAxis);
    EXPECT_EQ(CVekVector3d(1, 2, 3).dot({4, 5, 6}), 32.0);
    expectNear(CVekVector3d(1, 2, 3) * CVekVector3d(4, 5, 6), -3, 6, -3);
    expectNear(CVekVector3d(1, 2, 3) * 2.0 + x - y, 3, 3, 6);
    CVekVector3d v(3, 0, 4);
    EXPECT_EQ(v.abs(), 5.0);
    EXPECT_EQ(&v.normalize(), &v);
    expectNear(v, 0.6, 0, 0.8);
    CVekVector3d zero;
    EXPECT_EQ(zero.normalize().abs(), 0.0);
}

TEST(Vector, ComparesWithinATolerance)
{
    const double before = CVekVector3d::tol;
    EXPECT_EQ(before, 1e-10);
    EXPECT_FALSE(CVekVector3d(1, 0, 0) == CVekVector3d(1.001, 0, 0));
    CVekVector3d::tol = 0.01;
    EXPECT_TRUE(CVekVector3d(1, 0, 0) == CVekVector3d(1.001, 0, 0));
    CVekVector3d::tol = before;
}

TEST(Angle, ComesIntoOneTurn)
{
    const double turn = 4.0 * kQuarter;
    for (const double angle : {0.0, 1.0, turn - 0.001}) {
        EXPECT_NEAR(VEK::g_ang(angle), angle, kTol);
        EXPECT_NEAR(VEK::g_ang(angle - 3 * turn), angle, kTol);
        EXPECT_NEAR(VEK::g_ang(angle + 5 * turn), angle, kTol);
    }
    for (const double angle : {-1e-300, -0.0, turn, -turn, HUGE_VAL, std::nan("")})
        EXPECT_EQ(VEK::g_ang(angle), 0.0) << angle;
}

TEST(Matrix, TakesAPointWithItsTranslationAndAVectorWithoutIt)
{
    CVekMatrix3d m;
    EXPECT_TRUE(m == CVekMatrix3d::kIdentity);
    m.setToTranslation({1, 2, 3});
    EXPECT_EQ(m[0][3], 1.0);
    EXPECT_EQ(m[2][3], 3.0);
    expectNear(m.translation(), 1, 2, 3);
    expectNear(CVekPoint3d(1, 1, 1) * m, 2, 3, 4);
    expectNear(CVekVector3d(1, 1, 1) * m, 1, 1, 1);
    m[0][3] += 10;
    CVekPoint3d p;
    p *= m;
    expectNear(p, 11, 2, 3);
}

TEST(Matrix, ProductAppliesTheRightFactorFirst)
{
    CVekMatrix3d move;
    move.setToTranslation({1, 0, 0});
    CVekMatrix3d zoom;
    zoom.setToScaling(10, {0, 0, 0});
    expectNear(CVekPoint3d(2, 0, 0) * (zoom * move), 30, 0, 0);
    expectNear(CVekPoint3d(2, 0, 0) * (move * zoom), 21, 0, 0);
    CVekMatrix3d both = move;
    both *= zoom; // acts after what was there
    EXPECT_TRUE(both == zoom * move);
    EXPECT_TRUE(both * CVekMatrix3d() == both && CVekMatrix3d() * both == both);

    std::mt19937 random(11);
    for (int i = 0; i < 100; ++i) {
        const CVekMatrix3d a = randomMatrix(random);
        const CVekMatrix3d b = randomMatrix(random);
        const CVekPoint3d inTurn = CVekPoint3d(1, -2, 3) * b * a;
        expectNear(CVekPoint3d(1, -2, 3) * (a * b), inTurn[0], inTurn[1], inTurn[2]);
    }
}

TEST(Vector, IsThreeFieldsAndThreeNumbers)
{
    CVekVector3d v(1, 2, 3);
    CVekPoint3d p(4, 5, 6);
    for (int axis = 0; axis < 3; ++axis) {
        v[axis] += 10.0 * axis;
        p[axis] -= axis;
    }
    EXPECT_TRUE(v.x == 1 && v.y == 12 && v.z == 23 && p.x == 4 && p.y == 4 && p.z == 4);
    static_assert(sizeof(CVekPoint3d) == sizeof(void*) + 3 * sizeof(double));
    v += {1, 1, 1};
    v -= {2, 3, 4};
    v *= -2.0;
    expectNear(v, 0, -20, -40);
    v *= CVekMatrix3d().setToScaling(0.5, {9, 9, 9});
    expectNear(v, 0, -10, -20);
    v += v;
    v -= v;
    expectNear(v, 0, 0, 0);
}

TEST(Vector, HasADirectionHoweverLongItIs)
{
    const CVekPoint3d centre(1, 2, 3);
    for (const double length : {5e-324, 1e-310, 1e-200, 1e-150, 1.0, 1e150, 1e200, 1.7e308}) {
        SCOPED_TRACE(length);
        const CVekVector3d axis(0, -length, 0);
        EXPECT_EQ(axis.abs(), length);
        EXPECT_EQ(CVekPoint3d().distanceTo(axis.asPoint()), length);
        expectNear(CVekVector3d(axis).normalize(), 0, -1, 0);
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
}

TEST(Matrix, HasTheAxesInItsColumns)
{
    CVekMatrix3d m;
    m.setCoordSystem({7, 8, 9}, {1, 2, 3}, {4, 5, 6}, {0, 0, 1});
    EXPECT_EQ(m[1][0], 2.0);
    EXPECT_EQ(m[2][1], 6.0);
    EXPECT_EQ(m[1][3], 8.0);
    expectNear(m.axis(1), 4, 5, 6);
    expectNear(m.axis(3), 0, 0, 0);
    expectNear(m.axis(-1), 0, 0, 0);
    expectNear(CVekPoint3d(1, 0, 0) * m, 8, 10, 12);
    EXPECT_EQ(m.determinant(), 5.0 - 8.0);
}

TEST(Matrix, TurnsCounterClockwiseSeenAgainstTheAxis)
{
    CVekMatrix3d m;
    m.setToRotation(kQuarter, CVekVector3d::kZAxis, {1, 1, 0});
    expectNear(CVekPoint3d(2, 1, 5) * m, 1, 2, 5);
    expectNear(CVekPoint3d(1, 1, 0) * m, 1, 1, 0);
    m.setToRotation(kQuarter, {5, 0, 0}, CVekPoint3d::kOrigin);
    expectNear(CVekPoint3d(0, 1, 0) * m, 0, 0, 1);
    // A third of a turn about the space diagonal leads x to y and y to z.
    m.setToRotation(4.0 * kQuarter / 3.0, {1, 1, 1}, CVekPoint3d::kOrigin);
    expectNear(CVekPoint3d(1, 2, 3) * m, 3, 1, 2);
}

TEST(Matrix, ScalesAndMirrorsAboutTheirPlaces)
{
    CVekMatrix3d m;
    m.setToScaling(3, {1, 1, 1});
    expectNear(CVekPoint3d(2, 1, 0) * m, 4, 1, -2);
    m.setToMirroring(CVekPlane({0, 5, 0}, {0, 2, 0}));
    expectNear(CVekPoint3d(1, 7, 2) * m, 1, 3, 2);
    expectNear(CVekVector3d(1, 7, 2) * m, 1, -7, 2);
    EXPECT_LT(m.determinant(), 0.0);
    m.setToMirroring(CVekPlane({1, 0, 0}, {1, 1, 0}));
    expectNear(CVekPoint3d(1, 1, 0) * m, 0, 0, 0);
}

TEST(Matrix, ChoosesThePlanesAxesByTheArbitraryAxisRule)
{
    CVekMatrix3d m;
    EXPECT_TRUE(m.setToPlaneToWorld({0, 0, 2}) == CVekMatrix3d::kIdentity);
    m.setToPlaneToWorld({0, 0, -1}); // y cross -z is -x
    expectNear(m.axis(0), -1, 0, 0);
    expectNear(m.axis(1), 0, 1, 0);
    m.setToPlaneToWorld({0, -1, 0}); // z cross -y is x
    expectNear(m.axis(0), 1, 0, 0);
    expectNear(m.axis(1), 0, 0, 1);
    // On either side of 1/64 the reference axis changes from y to z.
    m.setToPlaneToWorld({1.0 / 65.0, 0, 1});
    EXPECT_NEAR(m.axis(0)[1], 0.0, kTol);
    EXPECT_GT(m.axis(0)[0], 0.9);
    m.setToPlaneToWorld({1.0 / 63.0, 0, 1});
    expectNear(m.axis(0), 0, 1, 0);

    std::mt19937 random(2);
    std::uniform_real_distribution<double> number(-1.0, 1.0);
    for (int i = 0; i < 100; ++i) {
        CVekVector3d normal(number(random), number(random), number(random));
        m.setToPlaneToWorld(normal);
        normal.normalize();
        expectNear(m.axis(2), normal[0], normal[1], normal[2]);
        EXPECT_NEAR(m.axis(0)[2], 0.0, kTol) << "x is level";
        EXPECT_NEAR(m.axis(0).abs(), 1.0, kTol);
        EXPECT_NEAR(m.determinant(), 1.0, kTol);
    }
}

TEST(Matrix, InverseUndoesAndASingularMatrixHasNone)
{
    std::mt19937 random(4);
    for (int i = 0; i < 100; ++i) {
        CVekMatrix3d m = randomMatrix(random);
        expectNear(m * m.inverse(), CVekMatrix3d::kIdentity);
        expectNear(m.inverse() * m, CVekMatrix3d::kIdentity);
        const CVekMatrix3d inverse = m.inverse();
        EXPECT_TRUE(m.invert() == inverse);
    }
    for (const double factor : {1e-300, -1e-110, 1e-110, 1e110, 1e300}) {
        const CVekMatrix3d m = CVekMatrix3d().setToScaling(factor, {});
        EXPECT_NEAR(m.inverse()[2][2] * factor, 1.0, kTol);
        EXPECT_EQ(m.mirrors(), factor < 0.0);
    }
    EXPECT_TRUE(CVekMatrix3d().setToScaling(1e-310, {}).inverse() == CVekMatrix3d::kIdentity) << "beyond any number";
    CVekMatrix3d flat;
    flat.setToScaling(0, {1, 2, 3});
    EXPECT_TRUE(flat.invert() == CVekMatrix3d::kIdentity);
    CVekMatrix3d bad;
    bad[0][0] = std::nan("");
    EXPECT_TRUE(bad.inverse() == CVekMatrix3d::kIdentity);
}
