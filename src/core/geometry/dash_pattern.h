/// Line patterns laid along polylines.
#pragma once

#include "core/geometry/part.h"

#include <vek/values/array.h>
#include <vek/values/tolerance.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace VEK::detail
{

/// Moves along one continuous run of at least one segment, forwards only.
class RunWalker
{
public:
    explicit RunWalker(const CVekVertexArray& run)
        : m_run(run), m_segment(*run.begin(), run.normal()), m_length(m_segment.length()), m_total(m_length)
    {
        for (int i = 1; i < run.len(); ++i)
            m_total += Segment(run[i], run.normal()).length();
        m_rounding = m_total * 1e-12;
    }

    double total() const { return m_total; }

    CVekPoint3d at(double station)
    {
        advance(station);
        return m_segment.at(parameter(station));
    }

    /// Hands the parts of segments between two stations to `part`.
    template <class Part>
    void forEachPart(double from, double to, Part&& part)
    {
        advance(from);
        double t = parameter(from);
        while (to > m_before + m_length + m_rounding && m_index + 1 < m_run.len()) {
            part(m_segment.part(t, 1.0));
            next();
            t = 0.0;
        }
        part(m_segment.part(t, parameter(to)));
    }

private:
    bool next()
    {
        if (m_index + 1 >= m_run.len())
            return false;
        m_before += m_length;
        m_segment = Segment(m_run[++m_index], m_run.normal());
        m_length = m_segment.length();
        return true;
    }

    /// Goes to the segment in which a station lies, at a joint to the one that begins there.
    void advance(double station)
    {
        while (station >= m_before + m_length - m_rounding && next()) {
        }
    }

    double parameter(double station) const
    {
        const double along = station - m_before;
        if (!(along > m_rounding))
            return 0.0;
        return along >= m_length - m_rounding ? 1.0 : along / m_length;
    }

    const CVekVertexArray& m_run;
    Segment m_segment;
    int m_index = 0;
    double m_before = 0.0; ///< length up to the present segment
    double m_length = 0.0; ///< of the present segment
    double m_total = 0.0;
    double m_rounding = 0.0;
};

/// Drawn lengths above 0, gaps below 0 and dots 0, with the stations at which they begin.
class DashPattern
{
public:
    /// @param more by how much gaps are longer than given
    template <class Entries>
    void assign(const Entries& entries, double scale, double more)
    {
        m_entries.assign(entries.begin(), entries.end());
        m_begins.resize(m_entries.size());
        m_period = 0.0;
        m_draws = false;
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            const double given = m_entries[i];
            m_entries[i] = given < 0.0 ? scale * given - more : scale * given;
            m_begins[i] = m_period;
            m_period += std::fabs(m_entries[i]);
            m_draws = m_draws || given >= 0.0;
        }
    }

    bool isEmpty() const { return m_entries.empty(); }
    double period() const { return m_period; }
    bool draws() const { return m_draws; }

    /// Whether no more entries than the memory should be filled with cover a length; false as well where it is no
    /// finite number.
    bool covers(double length) const
    {
        constexpr double kMaxEntries = 1e6;
        const double periods = m_period > 0.0 ? length / m_period : 0.0;
        return std::isfinite(m_period) && periods * static_cast<double>(m_entries.size()) <= kMaxEntries;
    }

    /// Lays the pattern along a continuous run from its start: `pieces` is told where a dash begins and gets its parts
    /// (`begin()`, `part(const CVekVertex&)`), and gets dots (`dot(const CVekPoint3d&)`). A pattern without extent is
    /// one dot at the start.
    /// @param low, high stations outside of which dashes may be left out; what is handed on is the same as without
    template <class Pieces>
    void lay(const CVekVertexArray& run, Pieces&& pieces, double low = 0.0, double high = HUGE_VAL) const
    {
        if (run.len() == 0) // where memory ends
            return;
        if (!(m_period > 0.0)) {
            pieces.dot(run.begin()->start);
            return;
        }
        RunWalker walker(run);
        layStations(
            walker.total(), low, high,
            [&](double from, double to) {
                pieces.begin();
                walker.forEachPart(from, to, [&](const CVekVertex& part) { pieces.part(part); });
            },
            [&](double at) { pieces.dot(walker.at(at)); });
    }

    /// The same for a run of a known length: `dash(from, to)` and `dot(at)` get stations. The pattern must have an
    /// extent.
    template <class Dash, class Dot>
    void layStations(double total, double low, double high, Dash&& dash, Dot&& dot) const
    {
        const double tol = std::min(kPointTol, 1e-6 * m_period);
        const double last = std::min(total + tol, high + m_period);
        for (double cycle = std::max(std::floor(low / m_period) - 1.0, 0.0);; cycle += 1.0) {
            for (std::size_t i = 0; i < m_entries.size(); ++i) {
                const double from = cycle * m_period + m_begins[i];
                const double length = m_entries[i];
                if (from > last)
                    return;
                if (length == 0.0)
                    dot(std::min(from, total));
                else if (length > 0.0 && from < total - tol)
                    dash(from, std::min(from + length, total));
            }
        }
    }

private:
    std::vector<double> m_entries;
    std::vector<double> m_begins;
    double m_period = 0.0;
    bool m_draws = false;
};

} // namespace VEK::detail
