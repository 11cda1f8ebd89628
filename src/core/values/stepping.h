/// @file
/// Walking along polylines in space, without an intermediate list of points.
#pragma once

#include "core/values/arc.h"

#include <vek/values/polyline.h>
#include <vek/values/tolerance.h>

namespace VEK::plane
{

/// Whether two points coincide within tolerance.
inline bool meets(const CVekPoint3d& a, const CVekPoint3d& b)
{
    if (a == b)
        return true;
    const CVekVector3d d = b - a;
    const double tolerance = pointTol(std::max({std::fabs(a[0]), std::fabs(a[1]), std::fabs(a[2])}));
    return d.dot(d) <= tolerance * tolerance;
}

/// The same in the plane.
inline bool meets(Vec a, Vec b)
{
    if (a == b)
        return true;
    const double tolerance = pointTol(std::max(std::fabs(a.x), std::fabs(a.y)));
    return (b - a).dot(b - a) <= tolerance * tolerance;
}

inline bool hasArcs(const CVekVertexArray& polyline)
{
    return std::any_of(polyline.begin(), polyline.end(), [](const CVekVertex& v) { return v.bulge != 0.0; });
}

/// A segment in space: the chord's projection onto the plane of the normal, that projection turned by 90 degrees in the
/// plane, and the rise along the normal, which is linear from start to end.
struct SpaceArc {
    CVekPoint3d start;
    CVekPoint3d end;
    CVekVector3d chord;
    CVekVector3d left;
    CVekVector3d rise;
    double bulge = 0.0;
    double length = 0.0; ///< of the chord in the plane
    Bend bend;

    /// @param normal of length 1
    SpaceArc(const CVekVertex& vertex, const CVekVector3d& normal)
        : start(vertex.start), end(vertex.end), bulge(vertex.bulge)
    {
        chord = end - start;
        rise = normal * chord.dot(normal);
        chord = chord - rise;
        left = normal * chord;
        length = std::sqrt(chord.dot(chord));
        bend = Bend(vertex.bulge, length);
    }

    CVekPoint3d at(double t) const
    {
        const Vec local = bend.at(t);
        if (t > 0.5)
            return end + (chord * (local.x - 1.0) + left * local.y + rise * (t - 1.0));
        return start + (chord * local.x + left * local.y + rise * t);
    }

    /// The parameter of the point of the segment that is nearest to a point; of an arc, nearest as seen along the
    /// normal.
    double parameter(const CVekPoint3d& point) const
    {
        const CVekVector3d from = point - start;
        const double square = length * length;
        if (bend.isArc())
            return Arc({}, {1.0, 0.0}, bulge).parameter({from.dot(chord) / square, from.dot(left) / square});
        const CVekVector3d straight = end - start;
        const double t = from.dot(straight) / straight.dot(straight);
        return t > 0.0 ? std::min(t, 1.0) : 0.0;
    }

    double radius() const { return bend.isArc() ? 0.5 * length / std::fabs(bend.sine) : 0.0; }

    int chords(double tolerance) const { return bend.isArc() ? chordCount(radius(), bend.sweep, tolerance) : 1; }

    /// Passes on the points of an arc at which a coordinate is greatest or least.
    template <class Out>
    void forEachExtreme(Out&& out) const
    {
        if (!bend.isArc())
            return;
        const double unbent = 1.0 / bend.stretch(); // weight of the rise relative to travel along the chord
        for (int axis = 0; axis < 3; ++axis) {
            const double reach = std::sqrt(chord[axis] * chord[axis] + left[axis] * left[axis]);
            const double level = -rise[axis] * unbent / reach;
            if (!(std::fabs(level) <= 1.0))
                continue;
            const double towards = std::atan2(left[axis], chord[axis]); // direction of travel that follows the axis
            const double aside = std::acos(level);
            for (const double turn : {towards - aside, towards + aside}) {
                const double t = 0.5 + std::remainder(turn, 2.0 * std::numbers::pi) / bend.sweep;
                if (t > 0.0 && t < 1.0)
                    out(at(t));
            }
        }
    }

    /// Passes on the points that divide the segment into `count` equal chords: those in between, and the end.
    template <class Out>
    void step(int count, Out&& out) const
    {
        if (count > 1) {
            // Equal chords turn by equal angles, so each follows from the previous one by a rotation. All angles come
            // from half the angle of one chord and half the sweep.
            const double angle = 0.5 * bend.sweep / count;
            const double c = std::cos(angle);
            const double s = std::sin(angle);
            const double reach = s / bend.sine;
            const Vec turn{1.0 - 2.0 * s * s, 2.0 * s * c};
            Vec piece = Vec{c * bend.cosine + s * bend.sine, s * bend.cosine - c * bend.sine} * reach;
            Vec sum;
            for (int i = 1; i < count; ++i) {
                sum = sum + piece;
                out(start + (chord * sum.x + left * sum.y + rise * (static_cast<double>(i) / count)));
                piece = {piece.x * turn.x - piece.y * turn.y, piece.x * turn.y + piece.y * turn.x};
            }
        }
        out(end);
    }
};

/// Appends a segment as `count` equal chords with its tag, or as one if it is straight.
inline void appendChords(CVekVertexArray& chords, const CVekVertex& vertex, const SpaceArc& arc, int count)
{
    CVekVertex chord = vertex;
    chord.bulge = 0.0;
    arc.step(arc.bend.isArc() ? count : 1, [&](const CVekPoint3d& end) {
        chord.end = end;
        chords.append(chord);
        chord.start = end;
    });
}

/// Whether a segment is quickly seen to stay within a tolerance of its chord: every straight one, and an arc of up to a
/// quarter turn, whose sagitta is half the chord times the bulge.
inline bool isFlat(const CVekVertex& vertex, double tolerance)
{
    constexpr double kQuarterTurn = std::numbers::sqrt2 - 1.0;
    const double bulge = vertex.bulge;
    if (bulge == 0.0)
        return true;
    const CVekVector3d chord = vertex.end - vertex.start;
    return tolerance > 0.0 && std::fabs(bulge) <= kQuarterTurn &&
           bulge * bulge * chord.dot(chord) <= 4.0 * tolerance * tolerance;
}

/// Passes the points along a polyline to `out(const CVekPoint3d&)`, in order: those that `CVekVertexArray::pts`
/// collects, but without an allocation, so that a draw pass can write them where it needs them.
/// `start(const CVekPoint3d&)` gets the first point and every point where the polyline continues after a gap, which
/// separates the runs.
template <class Start, class Out>
void forEachPoint(const CVekVertexArray& polyline, bool arcs, double tolerance, Start&& start, Out&& out)
{
    const CVekVertex* before = nullptr;
    for (const CVekVertex& vertex : polyline) {
        if (!before || !meets(before->end, vertex.start))
            start(vertex.start);
        if (arcs && !isFlat(vertex, tolerance)) {
            const SpaceArc arc(vertex, polyline.normal());
            arc.step(arc.chords(tolerance), out);
        } else {
            out(vertex.end);
        }
        before = &vertex;
    }
}
template <class Out>
void forEachPoint(const CVekVertexArray& polyline, bool arcs, double tolerance, Out&& out)
{
    forEachPoint(polyline, arcs, tolerance, out, out);
}

/// A copy whose arcs are replaced by chords within 1e-4 of their radius, for use where arcs cannot be kept; empty when
/// memory runs out.
CVekVertexArray inFineChords(const CVekVertexArray& polyline);

/// Whether a plane with this normal, of any length, is parallel to xy, so that its arcs are also arcs seen from above.
inline bool isLevel(const CVekVector3d& normal)
{
    constexpr double kLevel = 1e-9; // sine of the angle to xy
    return normal[0] * normal[0] + normal[1] * normal[1] <= kLevel * kLevel * normal[2] * normal[2];
}

/// A polyline as seen from above: the polyline itself or, if its arcs are tilted, a copy with fine chords.
class Levelled
{
public:
    explicit Levelled(const CVekVertexArray& polyline) : m_polyline(&polyline)
    {
        if (isLevel(polyline.normal()) || !hasArcs(polyline))
            return;
        m_chords = inFineChords(polyline);
        m_polyline = &m_chords;
    }
    Levelled(const Levelled&) = delete;
    Levelled& operator=(const Levelled&) = delete;

    const CVekVertexArray& operator*() const { return *m_polyline; }
    const CVekVertexArray* operator->() const { return m_polyline; }

private:
    const CVekVertexArray* m_polyline;
    CVekVertexArray m_chords;
};

/// A segment of a level polyline as seen from above. If the normal points down, the bulge is negated.
inline Arc flatArc(const CVekVertex& vertex, const CVekVector3d& normal)
{
    return {{vertex.start[0], vertex.start[1]},
            {vertex.end[0], vertex.end[1]},
            normal[2] < 0.0 ? -vertex.bulge : vertex.bulge};
}

} // namespace VEK::plane
