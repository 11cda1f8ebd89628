/// The dashes of a family of hatch lines.
#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace VEK::detail
{

/// A dash table that repeats along a line from its start; positions are distances from there. Only the dashes of a
/// stretch are visited, however long the line is.
class HatchDashes
{
public:
    /// @param table the dashes of a family
    /// @param dot length of the stroke of a dot
    void assign(std::span<const double> table, double scale, double dot)
    {
        m_drawn.clear();
        m_period = m_total = m_longest = 0.0;
        m_isGiven = !table.empty();
        for (const double given : table) {
            const double length = given == 0.0 ? dot : scale * given;
            if (length > 0.0)
                m_drawn.push_back({m_period, m_period + length});
            m_longest = std::max(m_longest, length);
            m_period += std::fabs(length);
            m_total += given == 0.0 ? 1.0 : std::fabs(length);
        }
    }

    bool isGiven() const { return m_isGiven; }
    bool draws() const { return !m_drawn.empty() && std::isfinite(m_period); }

    /// The pattern length used to make lines a whole number of patterns long. A dot counts as one unit in it, though
    /// its stroke is shorter.
    double total() const { return m_total; }

    double longest() const { return m_longest; }

    /// The start of the first dash, and the end of the last one for a line of the given length.
    double firstStart() const { return m_drawn.front().from; }
    double lastEnd(double length) const
    {
        const double cycle = std::floor(length / m_period);
        for (double back = 0.0; back <= 1.0; back += 1.0) {
            for (auto dash = m_drawn.rbegin(); dash != m_drawn.rend(); ++dash) {
                if ((cycle - back) * m_period + dash->from < length)
                    return std::min((cycle - back) * m_period + dash->to, length);
            }
        }
        return 0.0;
    }

    /// Passes the dashes that reach into a stretch of a line to `visitDash(from, to)`, until that returns false.
    /// @param length of the line, where its last dash is cut
    template <class Visit>
    void visit(double from, double to, double length, Visit&& visitDash) const
    {
        from = std::max(from, 0.0);
        to = std::min(to, length);
        double cycle = std::floor(from / m_period);
        auto dash = std::lower_bound(m_drawn.begin(), m_drawn.end(), from - cycle * m_period,
                                     [](const Dash& a, double station) { return a.to < station; });
        for (;; ++dash) {
            if (dash == m_drawn.end()) {
                cycle += 1.0;
                dash = m_drawn.begin();
            }
            const double start = cycle * m_period;
            if (!(start + dash->from < to) || !visitDash(start + dash->from, std::min(start + dash->to, length)))
                return;
        }
    }

private:
    struct Dash {
        double from;
        double to;
    };

    std::vector<Dash> m_drawn;
    double m_period = 0.0;
    double m_total = 0.0;
    double m_longest = 0.0;
    bool m_isGiven = false;
};

} // namespace VEK::detail
