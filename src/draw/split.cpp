#include "core/geometry/part.h"
#include "draw/split_arc.h"

#include <vek/draw/split.h>
#include <vek/geometry.h>
#include <vek/values/linetype.h>
#include <vek/values/tolerance.h>
#include <vek/values/units.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <vector>

namespace
{

constexpr double kMeasuredArcChord = 0.1;
constexpr double kLongDash = 0.21;
constexpr double kDotLength = 0.2; // millimetres
constexpr double kDotShare = 1.0;  // what a dot counts in the length of its pattern, though its stroke is shorter

void appendSplit(CVekVertexArray& result, const CVekVertexArray& vl)
{
    for (const CVekVertex& vertex : vl) {
        if (vertex.bulge == 0.0) {
            result.append(vertex);
            continue;
        }
        const VEK::plane::SpaceArc arc(vertex, vl.normal());
        CVekVertex chord = vertex;
        chord.bulge = 0.0;
        arc.step(VEK::detail::splitCount(arc), [&](const CVekPoint3d& end) {
            chord.end = end;
            result.append(chord);
            chord.start = end;
        });
    }
}

/// Turns the pattern so that a segment begins and ends in the middle of a long dash. Rotation and index move together,
/// so that a round looks two places further on: patterns are drawn as they have always been, which includes those
/// whose long dash this search misses.
void arrange(std::vector<double>& dashes)
{
    std::size_t front = 0; // what the pattern begins with; a turn moves it behind the end
    for (std::size_t i = 0; front + i < dashes.size(); ++i) {
        const std::size_t at = front + i;
        if (dashes[at] > kLongDash) {
            if (at + 1 == dashes.size())
                dashes.push_back(0.0); // looking behind the last entry makes one
            if (dashes[at + 1] < 0.0) {
                dashes[front] *= 0.5;
                dashes.push_back(dashes[front]);
                break;
            }
        }
        dashes.push_back(dashes[front++]);
    }
    dashes.erase(dashes.begin(), dashes.begin() + static_cast<std::ptrdiff_t>(front));
}

/// A line pattern that is laid on segments one by one.
class Dashes
{
public:
    Dashes(const CVekArrayTempl<double>& dashes, bool arranged) : m_dashes(dashes.begin(), dashes.end())
    {
        if (arranged)
            arrange(m_dashes);
        const double dot = VEK::acadUnitCv(kDotLength, Vek::unitMillimetre, Vek::unitCurrent);
        for (double& dash : m_dashes) {
            m_total += dash == 0.0 ? kDotShare : std::fabs(dash);
            if (dash == 0.0)
                dash = dot;
            m_gaps += dash < 0.0;
        }
    }

    /// The pattern for a whole run.
    CVekLineParm line() const { return line(0.0); }

    /// Appends what is drawn of a segment.
    void lay(CVekVertexArray& result, CVekVertex& vertex) const
    {
        const double length = vertex.bulgLen();
        if ((m_total > 0.0 && length - m_total <= 0.0) || result.len() >= kMostPieces) {
            result.append(vertex);
            return;
        }
        const double more = m_total > 0.0 ? gapGrowth(length) : 0.0;
        VEK::g_vx_xy(vertex);
        if (vertex.bulge == 0.0) {
            layStraight(result, vertex, more);
            return;
        }
        CVekVertexArray arc = VEK::g_vl_expl(CVekVertexArray(vertex), VEK::vx_split_dif(vertex, kMeasuredArcChord));
        for (const CVekVertexArray& dash : VEK::vl_measure(std::move(arc), 1.0, line(more)))
            result += dash;
    }

private:
    static constexpr int kMostPieces = 1000000; ///< of one polyline; what comes behind stays solid

    /// By how much gaps grow so that whole patterns fill the length.
    double gapGrowth(double length) const
    {
        const double count = std::trunc(length / m_total);
        return std::fabs((length - count * m_total) / (m_gaps * count));
    }

    CVekLineParm line(double more) const
    {
        CVekArrayTempl<double> dashes;
        dashes.reserve(static_cast<int>(m_dashes.size()));
        for (const double dash : m_dashes)
            dashes.append(dash < 0.0 ? dash - more : dash);
        return CVekLineParm(dashes);
    }

    /// What `VEK::vl_measure` does with a single straight segment, without a polyline for each dash.
    void layStraight(CVekVertexArray& result, const CVekVertex& vertex, double more) const
    {
        const VEK::detail::Segment segment(vertex, CVekVector3d::kZAxis);
        const double length = segment.length();
        double period = 0.0;
        for (const double dash : m_dashes)
            period += dash < 0.0 ? more - dash : dash;
        if (!std::isfinite(period) || (period > 0.0 && !(length * double(m_dashes.size()) <= kMostPieces * period))) {
            result.append(vertex);
            return;
        }
        if (m_gaps == int(m_dashes.size()))
            return;
        const double tolerance = std::min(VEK::kPointTol, 1e-6 * period);
        const double rounding = 1e-12 * length;
        const auto parameter = [&](double station) {
            if (!(station > rounding))
                return 0.0;
            return station >= length - rounding ? 1.0 : station / length;
        };
        for (double cycle = 0.0; cycle * period < length - tolerance; cycle += 1.0) {
            double from = cycle * period;
            for (const double dash : m_dashes) {
                if (dash > 0.0 && from < length - tolerance)
                    result.append(segment.part(parameter(from), parameter(std::min(from + dash, length))));
                from += dash < 0.0 ? more - dash : dash;
            }
        }
    }

    std::vector<double> m_dashes;
    double m_total = 0.0;
    int m_gaps = 0;
};

} // namespace

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_split(const CVekArrayTempl<CVekVertexArray>& reg)
{
    CVekArrayTempl<CVekVertexArray> result;
    result.reserve(reg.len());
    for (const CVekVertexArray& vl : reg)
        result.append(vek_gdx_image_vl_split(vl));
    return result;
}

CVekVertexArray vek_gdx_image_vl_split(const CVekVertexArray& vl)
{
    CVekVertexArray result;
    result.reserve(vl.len());
    result.setNormal(vl.normal());
    appendSplit(result, vl);
    return result;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand the pattern over by value
bool vek_gdx_image_vl_measure(CVekVertexArray& vl, CVekArrayTempl<double> dashes, int mode)
try {
    if (dashes.len() < 2)
        return false;
    const Dashes pattern(dashes, mode == 1);
    CVekArrayTempl<CVekVertexArray> runs = VEK::vl_to_vll(vl);
    vl.setLogicalLength(0);
    for (CVekVertexArray& run : runs) {
        for (CVekVertex& vertex : run) {
            if (mode != 0)
                pattern.lay(vl, vertex);
            else
                VEK::g_vx_xy(vertex);
        }
        if (mode != 0)
            continue;
        for (const CVekVertexArray& dash : VEK::vl_measure(std::move(run), 1.0, pattern.line()))
            vl += dash;
    }
    return true;
} catch (const std::bad_alloc&) {
    return false;
}
