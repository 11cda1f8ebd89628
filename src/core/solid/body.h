/// @file
/// Bodies as faces and edges, in the world and whatever the view.
///
/// Nothing is cut into facets here. An edge is a straight line or a part of an ellipse, a face a plane or a band of
/// straight rulings between two such curves; each keeps its form under every affine map. All curves that run beside one
/// another (both ends of a bend, the circles of a body of revolution, the rims and the wall of a hole) share a *turn*:
/// one parameter, so that a view can cut them into chords at the same places and no facets gape.
#pragma once

#include "core/geometry/contour_chain.h"

#include <vek/solid/solid.h>

#include <cstdint>
#include <numbers>
#include <vector>

namespace VEK::solids
{

using Id = std::uint32_t;
inline constexpr Id kNone = ~Id{0};

inline constexpr double kPi = std::numbers::pi;
inline constexpr double kFullTurn = 2.0 * kPi;

/// Curves are cut into this many chords to a full turn, which stay within 6e-4 of the radius.
inline constexpr int kChords = 96;
inline constexpr double kChordStep = kFullTurn / kChords;

/// Two places along a turn, and two directions, are the same within this angle.
inline constexpr double kAngleTol = 1e-9;

/// The sine of the angle up to which faces that meet go over into one another.
inline constexpr double kSmooth = 1e-6;

/// Coordinates above this are refused.
inline constexpr double kFarthest = 1e12;

/// A point or a direction. Unlike the public one it has no virtual destructor and so no hidden pointer.
struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    Vec3 operator+(Vec3 b) const { return {x + b.x, y + b.y, z + b.z}; }
    Vec3 operator-(Vec3 b) const { return {x - b.x, y - b.y, z - b.z}; }
    Vec3 operator*(double f) const { return {x * f, y * f, z * f}; }
    double dot(Vec3 b) const { return x * b.x + y * b.y + z * b.z; }
    Vec3 cross(Vec3 b) const { return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x}; }
    double abs() const { return std::sqrt(dot(*this)); }
    Vec3 unit() const
    {
        const double length = abs();
        return length > 0.0 ? *this * (1.0 / length) : *this;
    }
};

inline Vec3 mapped(const CVekMatrix3d& m, Vec3 v) // a direction
{
    const CVekMatrix3d::Rows& r = m;
    const auto row = [&](int i) { return r[i][0] * v.x + r[i][1] * v.y + r[i][2] * v.z; };
    return {row(0), row(1), row(2)};
}
inline Vec3 mappedPoint(const CVekMatrix3d& m, Vec3 p)
{
    const CVekMatrix3d::Rows& r = m;
    return mapped(m, p) + Vec3{r[0][3], r[1][3], r[2][3]};
}

/// centre + u cos t + v sin t, or the straight line centre + u t.
struct Curve {
    Vec3 centre;
    Vec3 u;
    Vec3 v;
    bool straight = false;

    Vec3 at(double t) const { return straight ? centre + u * t : centre + u * std::cos(t) + v * std::sin(t); }
    void map(const CVekMatrix3d& m)
    {
        centre = mappedPoint(m, centre);
        u = mapped(m, u);
        v = mapped(m, v);
    }
};

inline Curve lineThrough(Vec3 a, Vec3 b)
{
    return {a, b - a, {}, true};
}

enum class Role : std::uint8_t { edge, fold, hole, smooth };

/// A part of a curve between two faces. A smooth one is drawn only where one of its faces looks at the viewer and the
/// other one does not.
struct Edge {
    Curve curve;
    double from = 0.0;
    double to = 1.0;
    Id turn = kNone; ///< of the body; none for a straight edge
    Id faces[2] = {kNone, kNone};
    Role role = Role::edge;

    Vec3 at(double t) const { return curve.at(t); }
};

/// A planar face, whose boundary is the set of edges that name it, in no order: inside is what a ray leaves through an
/// odd number of them. Or a band of rulings between two curves. Normals of faces that go over into one another point to
/// the same side; whether that is outwards does not matter.
struct Face {
    Vec3 p, q; ///< of a plane: two directions in it, whose product is the normal
    bool band = false;
    bool flipped = false; ///< a band's normal is chord times ruling, or its opposite
    bool cone = false;    ///< its rulings meet in a point
    bool fine = false;    ///< one of many that stand for a face bent both ways; it turns away at its edges only
    bool whole = false;   ///< the band closes in itself
    Curve low, high;
    double from = 0.0, to = 0.0;
    Id turn = kNone;
};

/// A parameter that several curves share.
struct Turn {
    std::vector<double> stops; ///< places, besides the regular ones, at which all its curves are cut
};

/// A hole in world coordinates; `z` and `x` are unit vectors.
struct Hole {
    Vec3 origin, x, y, z;
    double radius = 0.0;
    double depth = 0.0; ///< 0 for through
};
struct Body {
    std::vector<Edge> edges;
    std::vector<Face> faces;
    std::vector<Turn> turns;
    std::vector<Hole> blind; ///< holes that it has, since drilling one again would cut its own bottom
    int element = -1;
};

/// Calls `each(t)` for the places at which a part of a turn is cut into chords: its two ends, the regular places and
/// the given stops between.
/// @param stops ascending, within one turn from 0
template <class Each>
void forEachPlace(const std::vector<double>& stops, double from, double to, Each&& each)
{
    each(from);
    double last = from;
    const auto add = [&](double t) {
        if (t > last + kAngleTol && t < to - kAngleTol)
            each(last = t);
    };
    double regular = std::ceil(from / kChordStep);
    const std::size_t count = stops.size();
    double lap = std::floor(from / kFullTurn) * kFullTurn;
    std::size_t i = 0;
    while (i < count && lap + stops[i] <= from)
        ++i;
    for (;;) {
        if (i == count && count > 0) {
            i = 0;
            lap += kFullTurn;
        }
        const double next = regular * kChordStep;
        const double stop = count > 0 ? lap + stops[i] : next;
        if (std::min(next, stop) >= to)
            break;
        if (stop < next) {
            add(stop);
            ++i;
        } else {
            add(next);
            regular += 1.0;
        }
    }
    each(to);
}

/// Calls `each(t)` for the ends of the chords of a part of a curve, which is not cut further.
template <class Each>
void forEachEnd(const Curve& curve, double from, double to, Each&& each)
{
    if (curve.straight) {
        each(from);
        each(to);
    } else {
        forEachPlace({}, from, to, each);
    }
}

/// Whether all numbers are usable and the matrix has an inverse.
bool isUsable(const CVekMatrix3d& m);

/// Maps a body; false when something of it lies out of reach.
bool mapBody(Body& body, const CVekMatrix3d& m);

/// The box of a body, added to a box that may be empty.
void addExtents(const Body& body, Vec3& min, Vec3& max);

/// The links of all contours of a region and where each begins; false if there is no area or a bad number.
struct Section {
    std::vector<plane::Link> links;
    std::vector<std::size_t> begins; ///< one more than contours
};
bool sectionOf(Section& section, const CVek_Solid::Region& region);

/// Where an arc of a section has its centre, and from where to where it runs; its sweep may be negative.
struct Bow {
    plane::Vec centre;
    double radius;
    double from;
    double sweep;
};
Bow bowOf(const plane::Link& a, const plane::Link& b);

/// The direction in which a segment of a section leaves its start, or reaches its end.
plane::Vec leaving(const plane::Link& a, const plane::Link& b);
plane::Vec reaching(const plane::Link& a, const plane::Link& b);

/// The plane z = at + x slopeX + y slopeY.
struct End {
    double at = 0.0;
    double slopeX = 0.0;
    double slopeY = 0.0;

    double z(double x, double y) const { return at + slopeX * x + slopeY * y; }
};

bool makePrism(Body& body, const Section& section, End low, End high, bool folded);
bool makeRevolved(Body& body, const Section& section, double from, double angle);

/// The outline of a line with a thickness.
bool sheetOutline(CVekVertexArray& outline, const CVekVertexArray& line, double thickness, int side);

bool drilled(Body& body, const Hole& hole);

/// Holes along one direction, of one diameter and depth.
bool drilled(Body& body, const std::vector<Hole>& holes);

} // namespace VEK::solids
