// Polylines in a draw pass: line patterns, arcs, dots.
#include "display/pass.h"
#include "draw/split_arc.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace VEK
{
namespace
{

bool isPattern(const CVekArrayTempl<double>& dashes, std::initializer_list<double> pattern)
{
    return std::equal(dashes.begin(), dashes.end(), pattern.begin(), pattern.end());
}

void assign(CVekArrayTempl<double>& dashes, std::initializer_list<double> pattern)
{
    dashes.setLogicalLength(0);
    for (const double dash : pattern)
        dashes.append(dash);
}

} // namespace

int Chords::count(const plane::SpaceArc& arc) const
{
    return tolerance == 0.0 ? detail::splitCount(arc) : arc.chords(tolerance);
}

/// Draws all finished lines. Must be called before any other call to the surface.
void DrawPass::flushLines()
{
    if (m_counts.size() == 1)
        m_surface.polyline(m_lines.data(), m_counts[0]);
    else if (!m_counts.empty())
        m_surface.polylines(m_lines.data(), m_counts.data(), static_cast<int>(m_counts.size()));
    m_lines.clear();
    m_counts.clear();
    m_lineStart = 0;
}

/// @param isDot by the ends of a straight segment or a chord, whether it is drawn as a dot
template <class IsDot>
inline void DrawPass::drawStraight(const CVekPoint3d& start, const CVekPoint3d& end, const DeviceMap& map,
                                   unsigned color, IsDot&& isDot)
{
    if (isDot(start, end)) {
        endLine();
        drawDot(map(start), color);
        return;
    }
    if (m_lines.size() == m_lineStart)
        m_lines.push_back(map(start));
    addToLine(map(end));
}

template <class IsDot>
void DrawPass::drawBent(const CVekVertex& vertex, const CVekVector3d& normal, const DeviceMap& map, Chords chords,
                        unsigned color, IsDot&& isDot)
{
    const plane::SpaceArc arc(vertex, normal);
    if (m_trueArcs && arc.bend.isArc() && arc.rise == CVekVector3d()) {
        drawArc(arc, map);
        return;
    }
    CVekPoint3d start = vertex.start;
    arc.step(chords.count(arc), [&](const CVekPoint3d& end) {
        drawStraight(start, end, map, color, isDot);
        start = end;
    });
}

template <class IsDot>
void DrawPass::drawSegments(const CVekVertexArray& vl, const CVekMatrix3d& m, Chords chords, unsigned color,
                            IsDot isDot)
{
    const DeviceMap map(m);
    const CVekPoint3d* before = nullptr;
    for (const CVekVertex& vertex : vl) {
        if (!before || *before != vertex.start)
            endLine();
        before = &vertex.end;
        if (vertex.bulge == 0.0)
            drawStraight(vertex.start, vertex.end, map, color, isDot);
        else
            drawBent(vertex, vl.normal(), map, chords, color, isDot);
    }
    endLine();
}

void DrawPass::drawArc(const plane::SpaceArc& arc, const DeviceMap& map)
{
    const double height = 0.5 * arc.bend.cosine / arc.bend.sine; // of the centre above the chord, the chord being 1
    const CVekVector3d toStart = arc.chord * -0.5 - arc.left * height;
    const CVekVector3d aside = arc.chord * height - arc.left * 0.5;
    const SurfacePoint start = map(arc.start), u = map(toStart);
    endLine();
    flushLines();
    m_surface.moveTo(start.x, start.y);
    m_surface.arcTo({{start.x - u.x, start.y - u.y}, u, map(aside), arc.bend.sweep});
    m_lines.push_back(map(arc.end));
}

bool DrawPass::isShort(const CVekPoint3d& start, const CVekPoint3d& end) const
{
    const CVekVector3d length = end - start;
    return length.dot(length) < m_shortLength * m_shortLength;
}

bool DrawPass::hasDots(const CVekVertexArray& vl) const
{
    return !vl.isContinuous() && !(m_rules.closedIsContinuous && vl.isClosed());
}

void DrawPass::drawDot(const SurfacePoint& at, unsigned color)
{
    if (m_rules.dot == PassRules::Dot::line) {
        addToLine(at);
        addToLine({at.x + m_area.scale, at.y});
        endLine();
        return;
    }
    flushLines();
    const int size = penWidth(1);
    if (size == 1) {
        m_surface.pixel(at.x, at.y, color);
        return;
    }
    const SurfacePoint whole = wholePixel(at);
    m_surface.solidRect(whole.x - size / 2, whole.y - size / 2, size, size, color);
}

/// Handles the special forms of a line pattern, scales the pattern and gives dots their length.
void DrawPass::prepareDashes(const CVekDisplayItem& item)
{
    const CVekArrayTempl<double>& type = item.linetype;
    if (isPattern(type, {1.0}) || isPattern(type, {1.0, 0.0, 0.0})) {
        m_linetype.setLogicalLength(0);
        return;
    }
    if (isPattern(type, {1.0, 1.0, 0.0}))
        assign(m_linetype, {10.0, -4.0});
    else if (isPattern(type, {1.0, 1.0, 1.0}))
        assign(m_linetype, {11.0, -5.0, 0.0, -5.0});
    else if (type.len() == 3 && type[0] == 0.0 && type[1] == 0.0 && type[2] != 0.0)
        assign(m_linetype, {0.0, -4.0});
    else
        m_linetype = type;
    for (double& dash : m_linetype)
        dash = dash == 0.0 ? m_dotLength : dash * item.ltscale;
    if (m_linetype.len() > 1)
        m_dashes.assign(m_linetype, true);
}

/// Draws a stored polyline with the line pattern of the item.
/// @param m to the device from after the view direction
void DrawPass::drawLine(const CVekVertexArray& vl, const CVekMatrix3d& m, unsigned color)
{
    const CVekVertexArray* line = &vl;
    if (m_viewTurns) {
        m_line = vl;
        m_line.transformBy(m_gdx.viewDirectionMtxGet());
        line = &m_line;
    }
    if (m_linetype.len() > 1) {
        drawDashes(*line, m, color);
        return;
    }
    std::optional<bool> dots; // determined only when there is a short segment
    drawSegments(*line, m, chords(m), color, [&](const CVekPoint3d& start, const CVekPoint3d& end) {
        if (!isShort(start, end))
            return false;
        if (!dots)
            dots = hasDots(*line);
        return *dots;
    });
}

/// Draws the dashes of a polyline as they are laid, on the screen only those of its visible part.
void DrawPass::drawDashes(const CVekVertexArray& vl, const CVekMatrix3d& m, unsigned color)
{
    const DeviceMap map(m);
    const Chords fine = chords(m);
    std::optional<bool> dots;
    const auto isDot = [&](const CVekPoint3d& start, const CVekPoint3d& end) {
        if (!isShort(start, end))
            return false;
        if (!dots)
            dots = haveDots(vl);
        return *dots;
    };
    CVekPoint3d before;
    m_dashes.begin(vl.normal());
    for (const CVekVertex& vertex : vl) {
        m_dashes.laySegment(
            vertex, [&](const CVekVertexArray& piece) { return visiblePart(piece, map); },
            [&](const CVekPoint3d& start, const CVekPoint3d& end, double bulge) {
                if (before != start)
                    endLine();
                before = end;
                if (bulge == 0.0)
                    drawStraight(start, end, map, color, isDot);
                else
                    drawBent(CVekVertex(start, end, bulge), vl.normal(), map, fine, color, isDot);
            });
    }
    endLine();
}

/// Whether short dashes of a polyline are dots, as `hasDots` tells it of all its dashes. What lies between the first
/// two patterns and the last two of a segment repeats them and is not looked at.
bool DrawPass::haveDots(const CVekVertexArray& vl)
{
    bool gap = false, repeats = false;
    std::optional<CVekPoint3d> first, last;
    const auto look = [&](const CVekPoint3d& start, const CVekPoint3d& end, double) {
        gap = gap || (last && !repeats && !plane::meets(*last, start));
        first = first ? first : start;
        last = end;
        repeats = false;
    };
    m_probe.assign(m_linetype, true);
    const double some = 2.0 * m_probe.total();
    const auto head = [&](const CVekVertexArray&) { return detail::Stations{0.0, some}; };
    const auto tail = [&](const CVekVertexArray& piece) {
        double length = 0.0;
        for (const CVekVertex& vertex : piece)
            length += vertex.start.distanceTo(vertex.end);
        return detail::Stations{std::max(length - some, 0.0), HUGE_VAL};
    };
    for (const CVekVertex* vertex = vl.begin(); vertex != vl.end() && !gap; ++vertex) {
        m_probe.begin(vl.normal());
        repeats = false;
        int laid = 0;
        m_probe.laySegment(*vertex, head, [&](const CVekPoint3d& start, const CVekPoint3d& end, double bulge) {
            look(start, end, bulge);
            ++laid;
        });
        repeats = laid > 0;
        m_probe.laySegment(*vertex, tail, look);
    }
    if (!gap || !m_rules.closedIsContinuous)
        return gap;
    last.reset();
    for (const CVekVertex* vertex = vl.end(); vertex-- != vl.begin() && !last;) {
        m_probe.begin(vl.normal());
        m_probe.laySegment(*vertex, tail, look);
    }
    return !plane::meets(*last, *first);
}

/// The stretch of a straight-sided piece in which a pen may draw into the area.
detail::Stations DrawPass::visiblePart(const CVekVertexArray& piece, const DeviceMap& map) const
{
    if (!m_rules.skipsOutside)
        return {};
    detail::Stations seen{HUGE_VAL, -HUGE_VAL};
    double along = 0.0;
    for (const CVekVertex& vertex : piece) {
        const SurfacePoint start = map(vertex.start), end = map(vertex.end);
        double from = 0.0, to = 1.0;
        const auto clip = [&](double at, double by, double low, double high) {
            if (by == 0.0) {
                if (at < low || at > high)
                    to = -1.0;
                return;
            }
            const double a = (low - at) / by, b = (high - at) / by;
            from = std::max(from, std::min(a, b));
            to = std::min(to, std::max(a, b));
        };
        clip(start.x, end.x - start.x, m_area.left - m_margin, m_right + m_margin);
        clip(start.y, end.y - start.y, m_area.top - m_margin, m_bottom + m_margin);
        const double length = vertex.start.distanceTo(vertex.end);
        if (from <= to) {
            seen.from = std::min(seen.from, along + from * length);
            seen.to = std::max(seen.to, along + to * length);
        }
        along += length;
    }
    return std::isfinite(along) ? seen : detail::Stations();
}

void DrawPass::drawPieces(const CVekVertexArray& vl, const CVekMatrix3d& m, Chords chords, bool dots, unsigned color)
{
    drawSegments(vl, m, chords, color,
                 [&](const CVekPoint3d& start, const CVekPoint3d& end) { return dots && isShort(start, end); });
}

} // namespace VEK
