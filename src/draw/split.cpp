#include "core/geometry/dash_pattern.h"
#include "core/values/whole.h"
#include "draw/split_arc.h"

#include <vek/draw/split.h>
#include <vek/geometry.h>
#include <vek/values/linetype.h>
#include <vek/values/tolerance.h>
#include <vek/values/units.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{

constexpr double kMeasuredArcChord = 0.1;
constexpr double kLongDash = 0.21;
constexpr double kDotLength = 0.2; // millimetres
constexpr double kDotShare = 1.0;  // length of a dot in its pattern, though its stroke is shorter

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

/// Rotates the pattern so that a segment begins and ends in the middle of a long dash. Rotation and index advance
/// together, so that each step looks two entries further on: existing drawings depend on it, including for patterns
/// whose long dash this search misses.
void arrange(std::vector<double>& dashes)
{
    std::size_t front = 0; // the first entry of the pattern; a rotation moves it to the end
    for (std::size_t i = 0; front + i < dashes.size(); ++i) {
        const std::size_t at = front + i;
        if (dashes[at] > kLongDash) {
            if (at + 1 == dashes.size())
                dashes.push_back(0.0); // looking past the last entry creates one
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

/// Applies a line pattern to what becomes one polyline of separate segments.
class Dashes
{
public:
    /// @param polyline receives what is drawn; its normal is unchanged
    Dashes(CVekVertexArray& polyline, const CVekArrayTempl<double>& dashes, bool arranged)
        : m_polyline(polyline), m_dashes(dashes.begin(), dashes.end())
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
        m_piece.setNormal(polyline.normal());
    }

    /// Applies the pattern to a single segment.
    void laySegment(const CVekVertex& vertex)
    {
        const double length = vertex.bulgLen();
        const double tolerance = std::min(VEK::pointTol(reach(vertex)), 1e-6 * m_total);
        if ((m_total > 0.0 && length - m_total <= tolerance) || m_polyline.len() >= kMostPieces) {
            m_polyline.append(vertex);
            return;
        }
        // Gaps are stretched so that whole patterns fill the length.
        const double count = std::floor((length + tolerance) / m_total);
        const double rest = std::max(length - count * m_total, 0.0);
        m_pattern.assign(m_dashes, 1.0, m_total > 0.0 && m_gaps > 0 ? rest / (m_gaps * count) : 0.0);
        m_piece.setLogicalLength(0);
        appendFlat(vertex, vertex.bulge == 0.0 ? 0 : VEK::vx_split_dif(vertex, kMeasuredArcChord));
        layPiece(length);
    }

    /// Applies the pattern along a whole run.
    void layRun(const CVekVertexArray& run)
    {
        const bool keepsArcs = VEK::plane::isLevel(run.normal());
        m_pattern.assign(m_dashes, 1.0, 0.0);
        m_piece.setLogicalLength(0);
        double length = 0.0;
        for (const CVekVertex& vertex : run) {
            appendFlat(vertex, keepsArcs ? 0 : VEK::vx_split_dif(vertex, kMeasuredArcChord));
            length += vertex.bulgLen();
        }
        layPiece(length);
    }

    // Called by the pattern.
    void begin() {}
    void part(const CVekVertex& part) { m_polyline.append(part); }
    void dot(const CVekPoint3d& at) { m_polyline.append(CVekVertex(at, at)); }

private:
    static constexpr int kMostPieces = 1000000; ///< of one polyline; the rest stays solid

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
            VEK::plane::appendChords(m_piece, vertex, VEK::plane::SpaceArc(vertex, m_piece.normal()), chords);
        for (CVekVertex* v = m_piece.begin() + before; v != m_piece.end(); ++v)
            VEK::g_vx_xy(*v);
    }

    /// @param length of the piece before it was flattened
    void layPiece(double length)
    {
        if (std::isfinite(m_pattern.period()) && !m_pattern.draws())
            return;
        if (m_pattern.covers(length))
            m_pattern.lay(m_piece, *this);
        else
            m_polyline.CVekArrayTempl<CVekVertex>::operator+=(m_piece);
    }

    CVekVertexArray& m_polyline;
    std::vector<double> m_dashes;
    double m_total = 0.0;
    int m_gaps = 0;
    VEK::detail::DashPattern m_pattern;
    CVekVertexArray m_piece; ///< the geometry to which the pattern is applied
};

} // namespace

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_split(const CVekArrayTempl<CVekVertexArray>& reg)
{
    return VEK::whole(CVekArrayTempl<CVekVertexArray>(), [&] {
        CVekArrayTempl<CVekVertexArray> result;
        result.reserve(reg.len());
        for (const CVekVertexArray& vl : reg)
            result.append(vek_gdx_image_vl_split(vl));
        return result;
    });
}

CVekVertexArray vek_gdx_image_vl_split(const CVekVertexArray& vl)
{
    return VEK::whole(CVekVertexArray(), [&] {
        CVekVertexArray result;
        result.reserve(vl.len());
        result.setNormal(vl.normal());
        appendSplit(result, vl);
        return result;
    });
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand the pattern over by value
bool vek_gdx_image_vl_measure(CVekVertexArray& vl, CVekArrayTempl<double> dashes, int mode)
{
    if (dashes.len() < 2)
        return false;
    const unsigned long shortages = VEK::memoryShortages();
    const CVekArrayTempl<CVekVertexArray> runs = VEK::vl_to_vll(vl);
    if (VEK::memoryShortages() != shortages)
        return false;
    const bool complete = VEK::whole(false, [&] {
        vl.setLogicalLength(0);
        Dashes pattern(vl, dashes, mode == 1);
        for (const CVekVertexArray& run : runs) {
            if (mode == 0)
                pattern.layRun(run);
            else
                for (const CVekVertex& vertex : run)
                    pattern.laySegment(vertex);
        }
        return true;
    });
    if (!complete) {
        vl.setLogicalLength(0); // keeps the memory of the old content
        for (const CVekVertexArray& run : runs)
            vl.CVekArrayTempl<CVekVertex>::operator+=(run);
    }
    return complete;
}
