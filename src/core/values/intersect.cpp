#include "core/values/intersect.h"

#include "core/values/crossing.h"

#include <utility>

namespace VEK::plane
{

namespace
{

/// A line or circle as the zeros of k |q|^2 + h q + f, scaled so that the slope there is 1: near it the form is the
/// distance. k is half the curvature, so a line needs no special case.
struct Form {
    double k = 0.0;
    Vec h;
    double f = 0.0;

    /// @param origin point from which q is measured
    Form(const Arc& arc, Vec origin)
    {
        const Carrier carrier(arc);
        const double scale = 1.0 / arc.chordLength();
        k = carrier.sine() * scale;
        h = carrier.slope(origin) * scale;
        f = carrier(origin) * scale;
    }

    double form(Vec q) const { return k * q.dot(q) + h.dot(q) + f; }
    Vec slope(Vec q) const { return q * (2.0 * k) + h; }
    double offset(Vec q) const { return 2.0 * form(q) / (slope(q).abs() + 1.0); }
};

class Finder
{
public:
    Finder(const Arc& a, const Arc& b, double tolerance) : m_a(a), m_b(b), m_tolerance(tolerance) {}

    Meetings find()
    {
        const int endsOfA = ends(m_a, m_b, false);
        const int endsOfB = ends(m_b, m_a, true);
        const bool separate = !m_a.isArc() && !m_b.isArc() && (apart(m_a, m_b) || apart(m_b, m_a));
        const bool together = (endsOfA == 2 && near(m_a.at(0.5), m_b)) || (endsOfB == 2 && near(m_b.at(0.5), m_a));
        if (!separate && !together && !m_a.isPoint() && !m_b.isPoint())
            crossings();
        for (int i = 1; i < m_found.count; ++i) { // so few that a library sort would be slower
            for (int j = i; j > 0 && m_found.points[j].a < m_found.points[j - 1].a; --j)
                std::swap(m_found.points[j], m_found.points[j - 1]);
        }
        for (int i = 0; i + 1 < m_found.count; ++i) {
            const Vec between = m_a.at(0.5 * (m_found.points[i].a + m_found.points[i + 1].a));
            m_found.along[i] = near(between, m_b) && within(between, m_b.at(m_b.parameter(between)));
        }
        return m_found;
    }

private:
    bool within(Vec p, Vec q) const { return (p - q).dot(p - q) <= m_tolerance * m_tolerance; }
    bool near(Vec p, const Arc& carrier) const { return std::fabs(carrier.offset(p)) <= m_tolerance; }

    /// Whether both ends of a segment are on the same side of a straight one, too far from it to touch.
    bool apart(const Arc& segment, const Arc& line) const
    {
        const double first = line.offset(segment.start());
        const double last = line.offset(segment.end());
        return (first > m_tolerance && last > m_tolerance) || (first < -m_tolerance && last < -m_tolerance);
    }

    void add(Meeting found)
    {
        for (int i = 0; i < m_found.count; ++i) {
            if (within(found.point, m_found.points[i].point))
                return;
        }
        if (m_found.count < 4)
            m_found.points[m_found.count++] = found;
    }

    /// Adds the ends of one segment that lie on the other.
    /// @return how many ends lie on the whole line or circle of the other
    int ends(const Arc& segment, const Arc& other, bool swapped)
    {
        int onCarrier = 0;
        for (const double own : {0.0, 1.0}) {
            const Vec end = own == 0.0 ? segment.start() : segment.end();
            if (!near(end, other))
                continue;
            ++onCarrier;
            double at = other.parameter(end);
            if (!within(end, other.at(at)))
                continue;
            if (within(end, other.start()))
                at = 0.0;
            else if (within(end, other.end()))
                at = 1.0;
            add(swapped ? Meeting{end, at, own} : Meeting{end, own, at});
        }
        return onCarrier;
    }

    /// Adds the points where the whole lines or circles cross or touch, if they lie on both segments.
    void crossings()
    {
        const bool aBendsMore =
            std::fabs(m_a.bend().sine) * m_b.chordLength() >= std::fabs(m_b.bend().sine) * m_a.chordLength();
        const Arc& bent = aBendsMore ? m_a : m_b;
        const Arc& flat = aBendsMore ? m_b : m_a;
        m_origin = bent.start();
        const Form c(bent, m_origin);
        const Form d(flat, m_origin);
        if (c.k == 0.0) {
            const double across = d.h.dot(bent.chord());
            if (across != 0.0)
                addInside(bent.chord() * (-d.f / across));
            return;
        }

        // The circles' common chord is on the line where both forms agree, one scaled to the other.
        const double ratio = d.k / c.k;
        const Vec normal = d.h - c.h * ratio;
        const double square = normal.dot(normal);
        const double least = 2.0 * d.k * m_tolerance; // for centres that are one, where the normal is but rounding
        if (!(square > least * least))
            return;
        const Vec foot = normal * (-d.f / square);
        const Vec along = normal.left() * (1.0 / std::sqrt(square));
        const double half = -0.5 * (2.0 * c.k * foot.dot(along) + c.h.dot(along));
        const double constant = c.form(foot);
        const double discriminant = half * half - c.k * constant;

        // The circle extends farthest past the chord's line on the normal through the chord's middle.
        const Vec middle = foot + along * (half / c.k);
        const Vec outwards = normal * (std::copysign(1.0, c.slope(middle).dot(normal)) / std::sqrt(square));
        const Vec farthest = middle - outwards * c.offset(middle);
        if (std::fabs(d.offset(farthest)) <= m_tolerance) {
            addInside(farthest);
            return;
        }
        if (!(discriminant >= 0.0))
            return;
        const double larger = half + std::copysign(std::sqrt(discriminant), half);
        addInside(foot + along * (larger / c.k));
        if (larger != 0.0)
            addInside(foot + along * (constant / larger));
    }

    void addInside(Vec q)
    {
        const Vec point = m_origin + q;
        const double a = m_a.freeParameter(point);
        const double b = m_b.freeParameter(point);
        if (a >= 0.0 && a <= 1.0 && b >= 0.0 && b <= 1.0)
            add({point, a, b});
    }

    const Arc& m_a;
    const Arc& m_b;
    double m_tolerance;
    Vec m_origin;
    Meetings m_found;
};

} // namespace

Meetings meet(const Arc& a, const Arc& b, double tolerance)
{
    return Finder(a, b, tolerance).find();
}

} // namespace VEK::plane
