/// Where the segments of a contour cross from one side of a line or circle to the other.
///
/// Sides are determined at the vertices, by the same arithmetic for both segments that share one, and a segment crosses
/// as its two ends require: an odd number of times if they differ, an even number otherwise. So the crossings of a
/// closed contour always add up to an even number, and neither a vertex on the line nor a touch is counted twice or
/// lost.
#pragma once

#include "core/values/arc.h"

namespace VEK::plane
{

/// The whole line or circle of a segment, as a form that is positive on one side of it.
class Carrier
{
public:
    explicit Carrier(const Arc& arc)
        : m_start(arc.start()), m_chord(arc.chord()), m_sine(arc.bend().sine), m_cosine(arc.bend().cosine)
    {
    }

    /// Near the line or circle this is the distance times the chord's length.
    double operator()(Vec p) const
    {
        const Vec q = p - m_start;
        const double across = m_cosine * q.cross(m_chord);
        return m_sine == 0.0 ? across : across + m_sine * q.dot(q - m_chord);
    }

    bool bends() const { return m_sine != 0.0; }
    double sine() const { return m_sine; }

    /// The slope of the form at a point.
    Vec slope(Vec p) const { return ((p - m_start) * 2.0 - m_chord) * m_sine - m_chord.left() * m_cosine; }

private:
    Vec m_start;
    Vec m_chord;
    double m_sine;
    double m_cosine;
};

/// Parameters along a segment at which it crosses the carrier, in order; at most two.
struct Passages {
    double t[2];
    int count = 0;
};

/// The crossings of a segment through a line or circle.
/// @param before, behind the form at the segment's start and end
Passages passages(const Carrier& carrier, Vec start, Vec end, double bulge, double before, double behind);

} // namespace VEK::plane
