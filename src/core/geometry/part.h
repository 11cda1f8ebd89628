/// Parts of segments in space.
#pragma once

#include "core/values/stepping.h"

#include <vek/values/polyline.h>

#include <cmath>

namespace VEK::detail
{

/// A segment of a polyline, prepared for lengths, parameters and parts. Its parameter runs from 0 to 1 along it.
class Segment
{
public:
    Segment(const CVekVertex& vertex, const CVekVector3d& normal) : m_vertex(&vertex), m_arc(vertex, normal) {}

    double length() const
    {
        const double along = m_arc.length * m_arc.bend.stretch();
        return std::sqrt(along * along + m_arc.rise.dot(m_arc.rise));
    }

    CVekPoint3d at(double t) const
    {
        if (t == 0.0 || t == 1.0)
            return t == 0.0 ? m_arc.start : m_arc.end;
        return m_arc.at(t);
    }

    /// The parameter of the nearest point of the segment.
    double parameter(const CVekPoint3d& p) const
    {
        const CVekVector3d q = p - m_arc.start;
        if (m_arc.bend.isArc()) {
            const double square = m_arc.length * m_arc.length;
            return plane::Arc({}, {1.0, 0.0}, m_vertex->bulge)
                .parameter({q.dot(m_arc.chord) / square, q.dot(m_arc.left) / square});
        }
        const CVekVector3d chord = m_arc.end - m_arc.start;
        const double square = chord.dot(chord);
        return square > 0.0 ? std::clamp(q.dot(chord) / square, 0.0, 1.0) : 0.0;
    }

    /// The part between two parameters, with the tag of the whole.
    CVekVertex part(double from, double to) const
    {
        CVekVertex vertex = *m_vertex;
        if (from == 0.0 && to == 1.0)
            return vertex;
        vertex.start = at(from);
        vertex.end = at(to);
        vertex.bulge = std::tan(0.25 * m_arc.bend.sweep * (to - from));
        return vertex;
    }

    /// Appends the segment as `count` equal chords, or as it is where it is straight.
    void appendChords(CVekVertexArray& chords, int count) const
    {
        CVekVertex chord = *m_vertex;
        chord.bulge = 0.0;
        if (!m_arc.bend.isArc()) {
            chords.append(chord);
            return;
        }
        m_arc.step(count, [&](const CVekPoint3d& end) {
            chord.end = end;
            chords.append(chord);
            chord.start = end;
        });
    }

    int chordCount(double tolerance) const { return m_arc.chords(tolerance); }

private:
    const CVekVertex* m_vertex;
    plane::SpaceArc m_arc;
};

} // namespace VEK::detail
