/// Parts of segments in space.
#pragma once

#include "core/values/stepping.h"

#include <vek/values/polyline.h>

#include <cmath>

namespace VEK::detail
{

/// A segment of a polyline, prepared for computing lengths, parameters and parts. Its parameter runs from 0 to 1.
class Segment
{
public:
    Segment(const CVekVertex& vertex, const CVekVector3d& normal) : m_vertex(&vertex), m_arc(vertex, normal) {}

    double length() const
    {
        const double along = m_arc.length * m_arc.bend.stretch();
        return std::sqrt(along * along + m_arc.rise.dot(m_arc.rise));
    }

    CVekPoint3d at(double t) const { return m_arc.at(t); }

    /// The parameter of the nearest point of the segment; of an arc, nearest as seen along the normal.
    double parameter(const CVekPoint3d& p) const { return m_arc.parameter(p); }

    /// The part between two parameters, with the tag of the whole.
    CVekVertex part(double from, double to) const
    {
        CVekVertex vertex = *m_vertex;
        if (from == 0.0 && to == 1.0)
            return vertex;
        if (from != 0.0)
            vertex.start = at(from);
        if (to != 1.0)
            vertex.end = at(to);
        if (m_arc.bend.isArc())
            vertex.bulge = std::tan(0.25 * m_arc.bend.sweep * (to - from));
        else
            vertex.bulge = 0.0;
        return vertex;
    }

    /// Appends the segment as `count` equal chords, or unchanged if it is straight.
    void appendChords(CVekVertexArray& chords, int count) const
    {
        plane::appendChords(chords, *m_vertex, m_arc, count);
    }

    int chordCount(double tolerance) const { return m_arc.chords(tolerance); }

private:
    const CVekVertex* m_vertex;
    plane::SpaceArc m_arc;
};

} // namespace VEK::detail
