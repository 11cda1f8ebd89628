/// @file
/// A body as a round hole sees it.
///
/// All work is done in the coordinates of the hole, whose axis is z. What the hole takes away is a cylinder of finite
/// or infinite length.
#pragma once

#include "core/solid/body.h"

#include <vek/values/tolerance.h>

#include <array>

namespace VEK::solids
{

/// Where the height a + b cos t + c sin t is zero, in [from, to]; nowhere if all of it is at one height.
template <class Each>
void forEachRoot(double a, double b, double c, double from, double to, Each&& each)
{
    const double size = std::sqrt(b * b + c * c);
    if (!(size > kPointTol) || !(std::fabs(a) < size))
        return;
    const double middle = std::atan2(c, b), half = std::acos(-a / size);
    for (const double root : {middle - half, middle + half}) {
        for (double t = root + std::ceil((from - root) / kFullTurn) * kFullTurn; t <= to; t += kFullTurn)
            each(t);
    }
}

inline double turned(double t) // to one turn from 0
{
    return t - std::floor(t / kFullTurn) * kFullTurn;
}

/// The parameter at which a curve is nearest to a point of its plane.
double parameterOn(const Curve& curve, Vec3 p);

/// The edges and faces of a body in the coordinates of a hole, and those faces that the hole concerns.
class HoleView
{
public:
    HoleView(const Body& body, const Hole& hole);

    /// Reads the faces.
    /// @return false if the hole would have to cut what it cannot
    bool read();

    struct Local {
        Curve curve;
        double from, to;
    };
    /// A plane that the axis crosses: z = at + gx x + gy y.
    struct Crossed {
        Id face;
        double at, gx, gy;
        double z(double x, double y) const { return at + gx * x + gy * y; }
    };
    /// A plane parallel to the axis, at a distance from it.
    struct Wall {
        Id face;
        double angle, half; ///< of its normal, and from there to where the cylinder meets it
    };
    struct Round {
        Id face;
        std::vector<double> cuts;
    };

    struct Hit {
        double z;
        Id face; ///< kNone for the begin or the bottom
        bool operator==(const Hit& other) const { return face == other.face && (face != kNone || z == other.z); }
    };

    const std::vector<Local>& edges() const { return m_edges; }
    const std::vector<Id>& edgesOf(Id face) const { return m_ofFace[face]; }
    const std::vector<Crossed>& crossed() const { return m_crossed; }
    const std::vector<Wall>& walls() const { return m_walls; }
    const std::vector<Round>& rounds() const { return m_rounds; }

    bool isThrough() const { return m_through; }
    double begin() const { return m_begin; }
    double bottom() const { return m_bottom; }

    Vec3 local(Vec3 v) const { return {v.dot(m_hole.x), v.dot(m_hole.y), v.dot(m_hole.z)}; }
    Curve local(const Curve& c) const { return {local(c.centre - m_hole.origin), local(c.u), local(c.v), c.straight}; }
    Vec3 world(Vec3 v) const { return m_hole.x * v.x + m_hole.y * v.y + m_hole.z * v.z; }
    Curve world(const Curve& c) const { return {m_hole.origin + world(c.centre), world(c.u), world(c.v), c.straight}; }
    Vec3 around(double t, double z) const { return {m_hole.radius * std::cos(t), m_hole.radius * std::sin(t), z}; }

    bool inLength(double z) const { return z >= m_begin - kPointTol && z <= m_bottom + kPointTol; }
    bool isTaken(Vec3 p) const { return std::sqrt(p.x * p.x + p.y * p.y) < m_hole.radius - kPointTol && inLength(p.z); }

    /// Appends the parameters at which a curve passes through the infinite cylinder.
    void crossings(const Curve& c, double from, double to, std::vector<double>& cuts) const;

    /// Whether a point of a face's plane is inside it, and not on its boundary.
    bool isWithin(Id face, Vec3 p) const;

    /// Where a generator of the cylinder lies in the body, in pairs; within the length of the hole.
    std::vector<Hit> spansAt(double t) const;

    /// In which curve the cylinder meets the plane of a hit.
    Curve curveOf(const Hit& hit) const;

private:
    bool readPlane(Id f);
    bool readBand(Id f);
    bool readRound(Id f, const Curve& low, const Curve& high);
    bool meetsDisc(const std::array<Vec3, 4>& quad) const;

    const Body& m_body;
    const Hole& m_hole;
    bool m_through;
    double m_begin, m_bottom;
    std::vector<Local> m_edges;
    std::vector<std::vector<Id>> m_ofFace;
    std::vector<Crossed> m_crossed;
    std::vector<Wall> m_walls;
    std::vector<Round> m_rounds;
    std::vector<std::array<Vec3, 4>> m_uncut;
};

} // namespace VEK::solids
