// Polylines in a draw pass: line patterns, arcs, dots.
#include "display/pass.h"
#include "draw/split_arc.h"

#include <vek/draw/split.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace VEK
{
namespace
{

/// Points passed to the surface at a time, so that the buffer stays in the cache.
constexpr std::size_t kLinesLimit = 4096;

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

/// The drawing area with room for the pen of the current item.
Beside DrawPass::besideArea() const
{
    return {m_area.left - m_margin, m_area.top - m_margin, m_right + m_margin, m_bottom + m_margin};
}

/// Whether points, including the width of the current item's pen, lie wholly on one side of the drawing area.
bool DrawPass::isOutside(std::span<const SurfacePoint> points) const
{
    if (!m_rules.skipsOutside || points.empty())
        return false;
    Beside area = besideArea();
    return std::all_of(points.begin(), points.end(), [&](const SurfacePoint& p) { return area.add(p); });
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

void DrawPass::endLine()
{
    const std::size_t count = m_lines.size() - m_lineStart;
    if (count == 0)
        return;
    if (count == 1 || isOutside({m_lines.data() + m_lineStart, count}))
        m_lines.resize(m_lineStart);
    else
        m_counts.push_back(static_cast<int>(count));
    m_lineStart = m_lines.size();
    if (m_lines.size() >= kLinesLimit)
        flushLines();
}

void DrawPass::addToLine(const SurfacePoint& p)
{
    m_lines.push_back(p);
    if (m_lines.size() - m_lineStart == kLinesLimit) {
        endLine();
        m_lines.push_back(p);
    }
}

template <class IsDot>
void DrawPass::drawSegments(const CVekVertexArray& vl, const CVekMatrix3d& m, Chords chords, unsigned color,
                            IsDot isDot)
{
    const DeviceMap map(m);
    const CVekPoint3d* before = nullptr;
    for (const CVekVertex& vertex : vl) {
        const auto draw = [&](const CVekPoint3d& start, const CVekPoint3d& end) {
            if (isDot(start, end)) {
                endLine();
                drawDot(map(start), color);
                return;
            }
            if (m_lines.size() == m_lineStart)
                m_lines.push_back(map(start));
            addToLine(map(end));
        };
        if (!before || *before != vertex.start)
            endLine();
        before = &vertex.end;
        if (vertex.bulge == 0.0) {
            draw(vertex.start, vertex.end);
            continue;
        }
        const plane::SpaceArc arc(vertex, vl.normal());
        if (m_trueArcs && arc.bend.isArc() && arc.rise == CVekVector3d()) {
            drawArc(arc, map);
            continue;
        }
        CVekPoint3d start = vertex.start;
        arc.step(chords.count(arc), [&](const CVekPoint3d& end) {
            draw(start, end);
            start = end;
        });
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
        m_dashes.setLogicalLength(0);
        return;
    }
    if (isPattern(type, {1.0, 1.0, 0.0}))
        assign(m_dashes, {10.0, -4.0});
    else if (isPattern(type, {1.0, 1.0, 1.0}))
        assign(m_dashes, {11.0, -5.0, 0.0, -5.0});
    else if (type.len() == 3 && type[0] == 0.0 && type[1] == 0.0 && type[2] != 0.0)
        assign(m_dashes, {0.0, -4.0});
    else
        m_dashes = type;
    for (double& dash : m_dashes)
        dash = dash == 0.0 ? m_dotLength : dash * item.ltscale;
}

/// Draws a stored polyline with the line pattern of the item.
/// @param m to the device from after the view direction
void DrawPass::drawLine(const CVekVertexArray& vl, const CVekMatrix3d& m, unsigned color)
{
    const CVekVertexArray* line = &vl;
    if (m_viewTurns || m_dashes.len() > 1) {
        m_line = vl;
        if (m_viewTurns)
            m_line.transformBy(m_gdx.viewDirectionMtxGet());
        vek_gdx_image_vl_measure(m_line, m_dashes, 1);
        line = &m_line;
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

void DrawPass::drawPieces(const CVekVertexArray& vl, const CVekMatrix3d& m, Chords chords, bool dots, unsigned color)
{
    drawSegments(vl, m, chords, color,
                 [&](const CVekPoint3d& start, const CVekPoint3d& end) { return dots && isShort(start, end); });
}

} // namespace VEK
