/// Punching against a second method: what a fine chord polygon's winding says of points on the pieces.
#include <vek/geometry.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace
{

using std::numbers::pi;

constexpr double kChord = 1e-3; // distance of the chord polygons from their arcs
constexpr double kTol = 1e-4;   // of sums of lengths: a tolerance of 1e-6 for each of up to a hundred cuts

using Polylines = CVekArrayTempl<CVekVertexArray>;
using Random = std::mt19937;

double uniform(Random& random, double from, double to)
{
    // By hand, since the library's distributions differ between systems.
    return from + (to - from) * (static_cast<double>(random()) / 4294967296.0);
}

/// A star-shaped contour with `corners` corners, some sides bent.
CVekVertexArray star(Random& random, double x, double y, double inner, double outer, int corners)
{
    CVekPoint3dArray points;
    for (int i = 0; i < corners; ++i) {
        const CVekVector3d out = VEK::polar(2 * pi * i / corners, uniform(random, inner, outer));
        points.append(CVekPoint3d(x, y, 0.0) + out);
    }
    CVekVertexArray vl;
    vl.fromPoints(points, true);
    for (CVekVertex& vertex : vl)
        vertex.bulge = random() % 3 ? 0.0 : uniform(random, -0.6, 0.6);
    return random() % 2 ? vl : vl.revert();
}

/// A random walk of straight and bent segments.
CVekVertexArray walk(Random& random, int count)
{
    CVekVertexArray vl;
    CVekPoint3d at(uniform(random, -12, 12), uniform(random, -12, 12), 0);
    for (int i = 0; i < count; ++i) {
        const CVekPoint3d next(uniform(random, -12, 12), uniform(random, -12, 12), 0);
        vl.append(CVekVertex(at, next, random() % 2 ? 0.0 : uniform(random, -1.5, 1.5)));
        at = next;
    }
    return vl;
}

/// A region as points, judged by the crossings of a ray.
class Polygons
{
public:
    explicit Polygons(const Polylines& region)
    {
        for (const CVekVertexArray& contour : region)
            m_contours.push_back(contour.pts(true, kChord));
    }

    bool inside(const CVekPoint3d& p) const
    {
        for (std::size_t i = 0; i < m_contours.size(); ++i) {
            if (within(m_contours[i], p) != (i == 0))
                return false;
        }
        return true;
    }

    /// Distance from the nearest boundary.
    double distance(const CVekPoint3d& p) const
    {
        double least = HUGE_VAL;
        for (const CVekPoint3dArray& points : m_contours) {
            for (int i = 1; i < points.len(); ++i)
                least = std::min(least, CVekVertex(points[i - 1], points[i]).lotp(p).distanceTo(p));
        }
        return least;
    }

private:
    static bool within(const CVekPoint3dArray& points, const CVekPoint3d& p)
    {
        bool odd = false;
        for (int i = 1; i < points.len(); ++i) {
            const CVekPoint3d &a = points[i - 1], &b = points[i];
            if ((a[1] > p[1]) != (b[1] > p[1]) && p[0] < a[0] + (b[0] - a[0]) * (p[1] - a[1]) / (b[1] - a[1]))
                odd = !odd;
        }
        return odd;
    }

    std::vector<CVekPoint3dArray> m_contours;
};

double lengthOf(const Polylines& vll)
{
    double sum = 0.0;
    for (const CVekVertexArray& vl : vll) {
        for (const CVekVertex& vertex : vl)
            sum += vertex.bulgLen();
    }
    return sum;
}

/// Punches both ways and judges a few points of every piece.
/// @return number of points that lay far enough from a boundary to be judged
int check(const CVekVertexArray& vl, const Polylines& region)
{
    const Polygons polygons(region);
    int judged = 0;
    double sum = 0.0;
    for (const bool inside : {true, false}) {
        const Polylines pieces = VEK::vl_punch_reg(vl, region, inside);
        sum += lengthOf(pieces);
        for (const CVekVertexArray& piece : pieces) {
            EXPECT_TRUE(piece.isContinuous());
            for (const CVekVertex& vertex : piece) {
                const CVekPoint3d p = vertex.mid();
                if (polygons.distance(p) < 2 * kChord)
                    continue;
                ++judged;
                EXPECT_EQ(polygons.inside(p), inside) << p[0] << ' ' << p[1];
                EXPECT_EQ(VEK::g_vll_pt_inside(region, p) > 0, inside);
            }
        }
    }
    EXPECT_NEAR(sum, lengthOf(VEK::vl_to_vll(vl)), kTol);
    return judged;
}

TEST(GeometryPunchRandom, PiecesLieWhereTheyBelongAndAddUp)
{
    Random random(20240607);
    int judged = 0;
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        Polylines region;
        region.append(star(random, 0, 0, 6, 11, 3 + round % 40));
        for (int hole = 0; hole < round % 4; ++hole) {
            const CVekVector3d at = VEK::polar(2.0 * hole, 3.0);
            region.append(star(random, at[0], at[1], 0.5, 1.8, 3 + round % 7));
        }
        judged += check(walk(random, 12), region);
    }
    EXPECT_GT(judged, 1500);
}

TEST(GeometryPunchRandom, WholeNumbersMeetVerticesAndSidesAllTheTime)
{
    // On a coarse grid cuts go through vertices and along sides as a rule.
    Random random(7);
    const auto grid = [&random] { return static_cast<double>(random() % 7) - 3.0; };
    const auto bulge = [&random] {
        const double bulges[] = {0, 0, 0, 1, -1, std::tan(pi / 8), -std::tan(pi / 8)};
        return bulges[random() % 7];
    };
    int judged = 0;
    for (int round = 0; round < 250; ++round) {
        SCOPED_TRACE(round);
        Polylines region;
        for (int contour = 0; contour < 1 + round % 3; ++contour) {
            CVekPoint3dArray points;
            for (int i = 0; i < 3 + round % 6; ++i)
                points.append({grid(), grid(), 0});
            region[contour].fromPoints(points, true);
            for (CVekVertex& vertex : region[contour])
                vertex.bulge = bulge();
        }
        CVekVertexArray vl;
        CVekPoint3d at(grid(), grid(), 0);
        for (int i = 0; i < 6; ++i) {
            const CVekPoint3d next(grid(), grid(), 0);
            vl.append(CVekVertex(at, next, bulge()));
            at = next;
        }
        judged += check(vl, region);
    }
    EXPECT_GT(judged, 2500);
}

} // namespace
