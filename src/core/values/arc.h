/// @file
/// A polyline's segment in its plane: straight lines and arcs of any bulge in one form.
///
/// The plane of a polyline with normal n is that of `CVekMatrix3d::setToPlaneToWorld(n)`: the inverse of that matrix
/// takes points to the plane, where x and y are the coordinates used here and the bulge is positive counter-clockwise.
///
/// Nothing here uses the centre of an arc except the function that returns it: the centre of a flat arc is so far away
/// that differences to it would lose all digits. Points, distances and parameters are computed relative to the start
/// instead, with sine and cosine of half the sweep, which follow from the bulge without cancellation.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace VEK::plane
{

/// A point or a direction in the plane.
struct Vec {
    double x = 0.0;
    double y = 0.0;

    Vec operator+(Vec b) const { return {x + b.x, y + b.y}; }
    Vec operator-(Vec b) const { return {x - b.x, y - b.y}; }
    Vec operator-() const { return {-x, -y}; }
    Vec operator*(double factor) const { return {x * factor, y * factor}; }
    bool operator==(const Vec&) const = default;
    double dot(Vec b) const { return x * b.x + y * b.y; }
    double cross(Vec b) const { return x * b.y - y * b.x; }
    double abs() const { return std::sqrt(x * x + y * y); }
    Vec left() const { return {-y, x}; } ///< a quarter turn counter-clockwise
};

/// An axis-parallel box.
struct Box {
    Vec min;
    Vec max;

    void add(Vec p)
    {
        min = {std::min(min.x, p.x), std::min(min.y, p.y)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y)};
    }
    void add(const Box& b)
    {
        add(b.min);
        add(b.max);
    }
    void grow(double by)
    {
        min = {min.x - by, min.y - by};
        max = {max.x + by, max.y + by};
    }
    bool meets(const Box& b) const
    {
        return min.x <= b.max.x && b.min.x <= max.x && min.y <= b.max.y && b.min.y <= max.y;
    }
    bool holds(Vec p) const { return meets({p, p}); }
    Vec centre() const { return (min + max) * 0.5; }
    Vec extent() const { return (max - min) * 0.5; } ///< from the centre to the corner
};

/// Which boxes a straight segment passes through or comes near to.
class SegmentReach
{
public:
    /// @param tolerance boxes nearer than this are reached too
    SegmentReach(Vec start, Vec end, double tolerance)
        : m_around{start, start}, m_across((end - start).left()), m_size{std::fabs(m_across.x), std::fabs(m_across.y)},
          m_twice(2.0 * m_across.dot(start)), m_slack(2.0 * tolerance * m_across.abs())
    {
        m_around.add(end);
        m_around.grow(tolerance);
    }

    bool meets(const Box& box) const { return box.meets(m_around) && lineMeets(box); }

    /// Whether the whole line of the segment does.
    bool lineMeets(const Box& box) const
    {
        return std::fabs(m_across.dot(box.min + box.max) - m_twice) <= m_size.dot(box.max - box.min) + m_slack;
    }

private:
    Box m_around;
    Vec m_across, m_size;
    double m_twice, m_slack;
};

/// What a bulge says about an arc, whatever its chord. A straight segment has sweep 0, sine 0 and cosine 1.
struct Bend {
    double sweep = 0.0;  ///< included angle, positive counter-clockwise; within one turn either way
    double sine = 0.0;   ///< of half the sweep; its sign is that of the bulge
    double cosine = 1.0; ///< of half the sweep

    Bend() = default;

    /// @param chord length of the chord; if it is 0, or the radius is not finite, the segment is taken as straight
    Bend(double bulge, double chord)
    {
        const bool flat = std::fabs(bulge) <= 1.0;
        const double b = flat ? bulge : 1.0 / bulge;
        const double sineOfHalf = 2.0 * b / (1.0 + b * b);
        if (!(chord > 0.0) || sineOfHalf == 0.0 || !std::isfinite(chord / sineOfHalf))
            return;
        sweep = 4.0 * std::atan(bulge);
        sine = sineOfHalf;
        cosine = (flat ? 1.0 - b * b : b * b - 1.0) / (1.0 + b * b);
    }

    bool isArc() const { return sine != 0.0; }

    /// The point at a parameter from 0 to 1, relative to the start: x along the chord and y to its left, in units of
    /// the chord's length.
    Vec at(double t) const
    {
        if (!isArc())
            return {t, 0.0};
        if (t > 0.5) { // from the end backwards, to hit it exactly
            const double reach = std::sin((1.0 - t) * 0.5 * sweep) / sine;
            const double turn = t * 0.5 * sweep;
            return {1.0 - reach * std::cos(turn), -reach * std::sin(turn)};
        }
        const double reach = std::sin(t * 0.5 * sweep) / sine;
        const double turn = (1.0 - t) * 0.5 * sweep;
        return {reach * std::cos(turn), -reach * std::sin(turn)};
    }

    /// Length of the arc with a chord of length 1.
    double stretch() const { return isArc() ? 0.5 * sweep / sine : 1.0; }
};

/// The most chords that replace one arc, for any tolerance.
inline constexpr int kMaxChords = 4096;

/// The number of equal chords with which an arc stays within a tolerance; at least one for each quarter turn, so that
/// the smallest circle keeps an area. A tolerance that is not above zero, or NaN, gives the greatest number.
inline int chordCount(double radius, double sweep, double tolerance)
{
    const double turn = std::fabs(sweep);
    if (!(turn > 0.0))
        return 1;
    if (!(tolerance > 0.0) || !(radius >= 0.0))
        return kMaxChords;
    const double ratio = tolerance / (2.0 * radius);
    const double step = 4.0 * std::asin(std::sqrt(std::min(1.0, ratio)));
    const double wanted = turn / std::min(step, 0.5 * std::numbers::pi) - 1e-9;
    return wanted < kMaxChords ? std::max(1, static_cast<int>(std::ceil(wanted))) : kMaxChords;
}

/// A segment of a polyline in its plane. Its parameter runs from 0 at the start to 1 at the end, in proportion to the
/// length. If start and end are the same it is that point, whatever the bulge.
class Arc
{
public:
    Arc(Vec start, Vec end, double bulge)
        : m_start(start), m_end(end), m_chord(end - start), m_length(m_chord.abs()), m_bend(bulge, m_length)
    {
    }

    Vec start() const { return m_start; }
    Vec end() const { return m_end; }
    Vec chord() const { return m_chord; }
    double chordLength() const { return m_length; }
    const Bend& bend() const { return m_bend; }
    double sweep() const { return m_bend.sweep; }
    double length() const { return m_length * m_bend.stretch(); }
    bool isArc() const { return m_bend.isArc(); }
    bool isPoint() const { return !(m_length > 0.0); }

    /// Only for an arc.
    double radius() const { return 0.5 * m_length / std::fabs(m_bend.sine); }
    Vec centre() const { return m_start + (m_chord + m_chord.left() * (m_bend.cosine / m_bend.sine)) * 0.5; }

    /// The point at a parameter.
    Vec at(double t) const
    {
        const Vec local = m_bend.at(t);
        if (t > 0.5)
            return m_end + m_chord * (local.x - 1.0) + m_chord.left() * local.y;
        return m_start + m_chord * local.x + m_chord.left() * local.y;
    }

    /// The direction of travel at a parameter, as long as the chord.
    Vec tangent(double t) const
    {
        const double turn = (t - 0.5) * m_bend.sweep;
        return m_chord * std::cos(turn) + m_chord.left() * std::sin(turn);
    }

    /// How far a point lies to the right of the whole line or circle, in the direction of travel; negative to the
    /// left.
    double offset(Vec p) const
    {
        const Vec q = p - m_start;
        const double form = m_bend.sine * q.dot(q - m_chord) + m_bend.cosine * q.cross(m_chord);
        const double size = ray(q).abs() + 0.5 * m_length;
        return size > 0.0 ? form / size : 0.0;
    }

    /// The parameter of the nearest point of the segment.
    double parameter(Vec p) const { return std::clamp(freeParameter(p), 0.0, 1.0); }

    /// The parameter of the nearest point of the whole line or circle: below 0 before the start, above 1 past the end;
    /// off the arc, a point of the circle belongs to the nearer end.
    double freeParameter(Vec p) const
    {
        const Vec q = p - m_start;
        if (!isArc())
            return isPoint() ? 0.0 : q.dot(m_chord) / (m_length * m_length);
        const Vec from = startRay();
        const Vec to = ray(q);
        const double t = std::atan2(m_bend.sine * from.cross(q), from.dot(to)) / m_bend.sweep;
        const double turn = 2.0 * std::numbers::pi / std::fabs(m_bend.sweep);
        return t < 0.0 && t + turn - 1.0 < -t ? t + turn : t;
    }

    /// The box around the segment.
    Box box() const
    {
        Box box{m_start, m_start};
        box.add(m_end);
        if (!isArc())
            return box;
        const double first = std::atan2(m_chord.y, m_chord.x) - 0.5 * m_bend.sweep; // direction at the start
        constexpr double kQuarter = 0.5 * std::numbers::pi;
        const double last = first + m_bend.sweep;
        for (double k = std::ceil(std::min(first, last) / kQuarter); k * kQuarter <= std::max(first, last); k += 1.0)
            box.add(at(std::clamp((k * kQuarter - first) / m_bend.sweep, 0.0, 1.0)));
        return box;
    }

private:
    /// From the centre to a point relative to the start, times the sine: finite for every bend, and half a chord long
    /// on the circle. It points inwards if the arc runs clockwise.
    Vec ray(Vec q) const { return q * m_bend.sine + startRay(); }
    Vec startRay() const { return (m_chord * m_bend.sine + m_chord.left() * m_bend.cosine) * -0.5; }

    Vec m_start;
    Vec m_end;
    Vec m_chord;
    double m_length;
    Bend m_bend;
};

} // namespace VEK::plane
