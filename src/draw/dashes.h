/// @file
/// The dashes of a polyline, handed on as they are laid.
#pragma once

#include "core/geometry/dash_pattern.h"
#include "core/values/stepping.h"

#include <vek/geometry.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace VEK::detail
{

/// A stretch of a piece by the lengths along it; none if it ends before it begins.
struct Stations {
    double from = 0.0;
    double to = HUGE_VAL;
};

/// A straight segment seen from above, by the lengths along it. Points are computed from the nearer end, so that both
/// ends are exact.
class Straight
{
public:
    explicit Straight(const CVekVertex& segment)
        : m_start{segment.start[0], segment.start[1]}, m_end{segment.end[0], segment.end[1]}, m_chord(m_end - m_start),
          m_length(m_chord.abs()), m_rounding(m_length * 1e-12)
    {
    }

    double length() const { return m_length; }

    CVekPoint3d at(double station) const
    {
        const plane::Vec p = seen(station);
        return {p.x, p.y, 0.0};
    }

private:
    plane::Vec seen(double station) const
    {
        if (!(station > m_rounding))
            return m_start;
        if (station >= m_length - m_rounding)
            return m_end;
        const double t = station / m_length;
        return t > 0.5 ? m_end + m_chord * (t - 1.0) : m_start + m_chord * t;
    }

    plane::Vec m_start, m_end, m_chord;
    double m_length, m_rounding;
};

/// Lays a line pattern along one polyline after another. See `vek_gdx_image_vl_measure` for the rules. `out(start, end,
/// bulge)` gets what is drawn; a dot has no length.
class Dashes
{
public:
    /// @param dashes see `vek_gdx_image_vl_measure`
    /// @param arranged to begin and end a segment within a long dash
    template <class Entries>
    void assign(const Entries& dashes, bool arranged)
    {
        m_dashes.assign(dashes.begin(), dashes.end());
        prepare(arranged);
    }

    /// The length of the pattern before its gaps are stretched, which makes it less than twice as long.
    double total() const { return m_total; }

    /// Begins a polyline.
    void begin(const CVekVector3d& normal)
    {
        m_piece.setNormal(normal);
        m_pieces = 0.0;
    }

    /// Applies the pattern to a single segment.
    /// @param see gets the flattened segment, arcs as chords, and tells which of it is wanted; at least all dashes that
    /// reach into that are handed on
    template <class See, class Out>
    void laySegment(const CVekVertex& vertex, See&& see, Out&& out)
    {
        const double length = vertex.bulgLen();
        const double tolerance = std::min(pointTol(reach(vertex)), 1e-6 * m_total);
        if ((m_total > 0.0 && length - m_total <= tolerance) || m_pieces >= kMostPieces) {
            m_pieces += 1.0;
            out(vertex.start, vertex.end, vertex.bulge);
            return;
        }
        m_piece.setLogicalLength(0);
        appendFlat(vertex, vertex.bulge == 0.0 ? 0 : vx_split_dif(vertex, kMeasuredArcChord));
        // Gaps are stretched so that whole patterns fill the length.
        const double count = std::floor((length + tolerance) / m_total);
        const double rest = std::max(length - count * m_total, 0.0);
        m_pattern.assign(m_dashes, 1.0, m_total > 0.0 && m_gaps > 0 ? rest / (m_gaps * count) : 0.0);
        const double all = m_pieces + (m_pattern.covers(length) ? count * m_drawn : 1.0);
        const Stations wanted = see(std::as_const(m_piece));
        if (wanted.from <= wanted.to) {
            if (m_piece.len() == 1 && m_pattern.covers(length) && m_pattern.period() > 0.0)
                layStraight(Straight(m_piece[0]), wanted, out);
            else
                layPiece(length, wanted, [&](const CVekVertex& piece) { out(piece.start, piece.end, piece.bulge); });
        }
        if (wanted.from > 0.0 || wanted.to < length) // what is left out counts as well
            m_pieces = std::max(m_pieces, all);
    }

    /// Applies the pattern along a whole run.
    /// @param out gets a `CVekVertex`
    template <class Out>
    void layRun(const CVekVertexArray& run, Out&& out)
    {
        const bool keepsArcs = plane::isLevel(run.normal());
        m_pattern.assign(m_dashes, 1.0, 0.0);
        m_piece.setLogicalLength(0);
        double length = 0.0;
        for (const CVekVertex& vertex : run) {
            appendFlat(vertex, keepsArcs ? 0 : vx_split_dif(vertex, kMeasuredArcChord));
            length += vertex.bulgLen();
        }
        layPiece(length, {}, out);
    }

private:
    static constexpr double kMeasuredArcChord = 0.1;
    static constexpr double kMostPieces = 1e6; ///< of one polyline; the rest stays solid

    void prepare(bool arranged);

    static double reach(const CVekVertex& vertex)
    {
        double reach = 0.0;
        for (int axis = 0; axis < 3; ++axis)
            reach = std::max({reach, std::fabs(vertex.start[axis]), std::fabs(vertex.end[axis])});
        return reach;
    }

    /// Appends a segment to the piece, flattened. An arc becomes chords in its own plane first, so that it lies where
    /// it would be drawn without a pattern.
    /// @param chords 0 keeps arcs
    void appendFlat(const CVekVertex& vertex, int chords)
    {
        const int before = m_piece.len();
        if (vertex.bulge == 0.0 || chords == 0)
            m_piece.append(vertex);
        else
            plane::appendChords(m_piece, vertex, plane::SpaceArc(vertex, m_piece.normal()), chords);
        for (CVekVertex* v = m_piece.begin() + before; v != m_piece.end(); ++v)
            g_vx_xy(*v);
    }

    template <class Out>
    void layStraight(const Straight& straight, const Stations& wanted, Out&& out)
    {
        int count = 0;
        const auto dash = [&](double from, double to) {
            ++count;
            out(straight.at(from), straight.at(to), 0.0);
        };
        m_pattern.layStations(straight.length(), wanted.from, wanted.to, dash, [&](double at) { dash(at, at); });
        m_pieces += count;
    }

    /// @param length of the piece before it was flattened
    template <class Out>
    void layPiece(double length, const Stations& wanted, Out&& out)
    {
        if (std::isfinite(m_pattern.period()) && !m_pattern.draws())
            return;
        const auto counted = [&](const CVekVertex& vertex) {
            m_pieces += 1.0;
            out(vertex);
        };
        struct Pieces { // for the pattern
            decltype(counted)& add;

            void begin() {}
            void part(const CVekVertex& part) { add(part); }
            void dot(const CVekPoint3d& at) { add(CVekVertex(at, at)); }
        };
        if (m_pattern.covers(length))
            m_pattern.lay(m_piece, Pieces{counted}, wanted.from, wanted.to);
        else
            std::for_each(m_piece.begin(), m_piece.end(), counted);
    }

    std::vector<double> m_dashes;
    double m_total = 0.0;
    int m_gaps = 0;
    int m_drawn = 0; ///< entries that are no gaps
    DashPattern m_pattern;
    CVekVertexArray m_piece; ///< the geometry to which the pattern is applied
    double m_pieces = 0.0;   ///< of the polyline so far
};

} // namespace VEK::detail
