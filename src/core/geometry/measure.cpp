#include "core/geometry/part.h"

#include <vek/geometry/polyline.h>

#include <vector>

namespace VEK
{
namespace
{

/// Entries that are walked at most; more pieces than that fill the memory and show nothing.
constexpr double kMaxEntries = 1e6;

/// Moves along one continuous run, forwards only.
class Walker
{
public:
    explicit Walker(const CVekVertexArray& run) : m_run(run), m_segment(run[0], run.normal())
    {
        for (const CVekVertex& vertex : run)
            m_total += detail::Segment(vertex, run.normal()).length();
        m_rounding = m_total * 1e-12;
        m_length = m_segment.length();
    }

    double total() const { return m_total; }

    CVekPoint3d at(double station)
    {
        advance(station);
        return m_segment.at(parameter(station));
    }

    void appendPart(CVekVertexArray& dash, double from, double to)
    {
        advance(from);
        double t = parameter(from);
        while (to > m_before + m_length + m_rounding && m_index + 1 < m_run.len()) {
            dash.append(m_segment.part(t, 1.0));
            next();
            t = 0.0;
        }
        dash.append(m_segment.part(t, parameter(to)));
    }

private:
    bool next()
    {
        if (m_index + 1 >= m_run.len())
            return false;
        m_before += m_length;
        m_segment = detail::Segment(m_run[++m_index], m_run.normal());
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
    detail::Segment m_segment;
    int m_index = 0;
    double m_before = 0.0; ///< length up to the present segment
    double m_length = 0.0; ///< of the present segment
    double m_total = 0.0;
    double m_rounding = 0.0;
};

/// The pattern, scaled, with the stations at which its entries begin.
struct Pattern {
    std::vector<double> entries;
    std::vector<double> begins;
    double period = 0.0;
    bool draws = false;

    Pattern(const CVekArrayTempl<double>& dashes, double scale)
    {
        entries.reserve(static_cast<std::size_t>(dashes.len()));
        begins.reserve(entries.capacity());
        for (const double dash : dashes) {
            entries.push_back(dash * scale);
            begins.push_back(period);
            period += std::fabs(entries.back());
            draws = draws || dash >= 0.0;
        }
    }
};

void appendDot(CVekArrayTempl<CVekVertexArray>& pieces, const CVekPoint3d& point, const CVekVector3d& normal)
{
    CVekVertexArray& dot = pieces[pieces.len()];
    dot.setNormal(normal);
    dot.append(CVekVertex(point, point));
}

void measureRun(const CVekVertexArray& run, const Pattern& pattern, CVekArrayTempl<CVekVertexArray>& pieces)
{
    if (!(pattern.period > 0.0)) {
        appendDot(pieces, run[0].start, run.normal());
        return;
    }
    Walker walker(run);
    const double total = walker.total();
    const double tol = std::min(kPointTol, 1e-6 * pattern.period);
    for (double cycle = 0.0;; cycle += 1.0) {
        for (std::size_t i = 0; i < pattern.entries.size(); ++i) {
            const double from = cycle * pattern.period + pattern.begins[i];
            const double length = pattern.entries[i];
            if (from > total + tol)
                return;
            if (length == 0.0) {
                appendDot(pieces, walker.at(std::min(from, total)), run.normal());
            } else if (length > 0.0 && from < total - tol) {
                CVekVertexArray& dash = pieces[pieces.len()];
                dash.setNormal(run.normal());
                walker.appendPart(dash, from, std::min(from + length, total));
            }
        }
    }
}

} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand the pattern over by value
CVekArrayTempl<CVekVertexArray> vl_measure(CVekVertexArray vl, double scale, CVekLineParm pattern)
{
    CVekArrayTempl<CVekVertexArray> runs = vl_to_vll(std::move(vl));
    const Pattern scaled(pattern.dashes(), scale);
    if (!(scale > 0.0) || scaled.entries.empty() || !std::isfinite(scaled.period))
        return runs;
    CVekArrayTempl<CVekVertexArray> pieces;
    if (!scaled.draws)
        return pieces;
    double total = 0.0;
    for (const CVekVertexArray& run : runs) {
        for (const CVekVertex& vertex : run)
            total += detail::Segment(vertex, run.normal()).length();
    }
    const double periods = scaled.period > 0.0 ? total / scaled.period : 0.0;
    if (!(periods * static_cast<double>(scaled.entries.size()) <= kMaxEntries)) // nor where the length is not finite
        return runs;
    for (const CVekVertexArray& run : runs)
        measureRun(run, scaled, pieces);
    return pieces;
}

} // namespace VEK
