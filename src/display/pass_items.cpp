// Points, regions, texts and pictures in a draw pass.
#include "core/geometry/prepared_region.h"
#include "display/pass.h"
#include "draw/split_arc.h"

#include <vek/data/app.h>

#include <algorithm>
#include <cmath>

namespace VEK
{
namespace
{

/// Bits of a point style.
enum : unsigned { markLow = 1, markPlus = 2, markTick = 4, markSolid = 8, markCircle = 32, markSquare = 64 };

/// A device unit in the units before the matrix, by its longest axis.
double deviceUnit(const CVekMatrix3d& m)
{
    return 1.0 / std::max({m.axis(0).abs(), m.axis(1).abs(), m.axis(2).abs()});
}

/// A size in pixels, truncated towards zero.
int wholeSize(double size)
{
    constexpr double kMost = 1e9;
    return std::isnan(size) ? 0 : static_cast<int>(std::clamp(size, -kMost, kMost));
}

} // namespace

Chords DrawPass::chords(const CVekMatrix3d& m) const
{
    return {m_rules.chords > 0.0 ? m_rules.chords * deviceUnit(m) : 0.0};
}

Chords DrawPass::textChords(const CVekMatrix3d& m) const
{
    if (m_rules.textChords > 0.0)
        return {m_rules.textChords};
    return {(m_rules.chords > 0.0 ? m_rules.chords : 0.5) * deviceUnit(m)};
}

void DrawPass::collect(const CVekVertexArray& contour, const CVekMatrix3d& m, Chords chords)
{
    const DeviceMap map(m);
    const auto add = [&](const CVekPoint3d& p) { m_contour.push_back(map(p)); };
    m_contour.clear();
    const CVekPoint3d* before = nullptr;
    for (const CVekVertex& vertex : contour) {
        if (!before || !plane::meets(*before, vertex.start))
            add(vertex.start);
        before = &vertex.end;
        if (vertex.bulge == 0.0) {
            add(vertex.end);
        } else {
            const plane::SpaceArc arc(vertex, contour.normal());
            arc.step(chords.count(arc), add);
        }
    }
    if (m_contour.size() > 1 && m_contour.front() == m_contour.back())
        m_contour.pop_back();
}

/// The outer contour as a polygon with pen and brush, without the holes.
void DrawPass::fillPolygon(const Region& region, const CVekMatrix3d& m, Chords chords)
{
    bool holes = false;
    for (int i = 1; i < region.len(); ++i) {
        collect(region[i], m, chords);
        if (m_contour.size() < 3)
            continue;
        m_surface.clipOut(m_contour.data(), static_cast<int>(m_contour.size()));
        holes = true;
    }
    collect(region[0], m, chords);
    if (!m_contour.empty())
        m_surface.polygon(m_contour.data(), static_cast<int>(m_contour.size()));
    m_contour.clear();
    if (holes)
        m_surface.clipRestore();
}

/// The region as horizontal lines, one for each row of pixels; only rows inside the drawing area.
/// @param region without arcs
void DrawPass::fillScanLines(Region region, const CVekMatrix3d& m)
{
    for (CVekVertexArray& contour : region)
        contour.transformBy(m);
    CVekPoint3d min, max;
    if (!region[0].extents(min, max))
        return;
    plane::PreparedRegion prepared(region);
    const double last = std::min(max[1] - m_area.top, static_cast<double>(m_area.height));
    for (double row = std::max(std::trunc(min[1] - m_area.top), 0.0); row < last; row += 1.0) {
        const double y = m_area.top + row;
        for (const plane::Span& span : prepared.spans({{min[0], y}, {max[0], y}, 0.0})) {
            const double from = min[0] + (max[0] - min[0]) * span.from;
            addToLine({from, y});
            addToLine({span.to == 1.0 ? max[0] : min[0] + (max[0] - min[0]) * span.to, y});
            endLine();
        }
    }
    flushLines();
}

/// The part of the plane z = 0, in the coordinates before a matrix, that lies in the drawing area; nothing if the plane
/// is seen edge-on.
std::optional<detail::HatchView> DrawPass::visiblePart(const CVekMatrix3d& m) const
{
    const double edge = penWidth(1) + 1.0; // for the pen beyond the ends of a line, and for rounding
    const plane::Vec x{m[0][0], m[1][0]}, y{m[0][1], m[1][1]};
    const double area = x.cross(y);
    detail::HatchView view;
    for (std::size_t i = 0; i < view.size(); ++i) {
        const plane::Vec corner{i == 1 || i == 2 ? m_right + edge : m_area.left - edge,
                                i < 2 ? m_area.top - edge : m_bottom + edge};
        const plane::Vec from = corner - plane::Vec{m[0][3], m[1][3]};
        view[i] = {from.cross(y) / area, x.cross(from) / area};
        if (!std::isfinite(view[i].x) || !std::isfinite(view[i].y))
            return {};
    }
    return view;
}

/// The lines of a pattern, asked for once in a pass.
const VekPatternLines& DrawPass::hatchLines(const CVekString& name)
{
    if (const VekPatternLines* known = m_patterns.get(name))
        return *known;
    VekPatternLines& lines = m_patterns[name];
    vekAppPtr()->hatchPatternGet(name, lines);
    return lines;
}

/// A region without arcs: itself if it has none.
const DrawPass::Region& DrawPass::split(const Region& region)
{
    if (std::none_of(region.begin(), region.end(), plane::hasArcs))
        return region;
    m_split.setLogicalLength(region.len());
    for (int i = 0; i < region.len(); ++i)
        detail::split(region[i], m_split[i]);
    return m_split;
}

/// Collects the visible lines of a hatch.
/// @param region without arcs
/// @return false if they are too many to draw
bool DrawPass::hatch(const Region& region, const CVekMatrix3d& m, const CHatchProp& prop)
{
    const std::optional<detail::HatchView> view = visiblePart(m);
    return detail::hatchPattern(region, CVekMatrix3d(), prop, hatchLines(prop.name), view ? &*view : nullptr,
                                m_strokes);
}

/// Whether all contours of a region are outside the drawing area, by their corners and how far their arcs may bulge
/// beyond them.
bool DrawPass::isOutside(const Region& region, const CVekMatrix3d& m) const
{
    if (!m_rules.skipsOutside)
        return false;
    const DeviceMap map(m);
    Beside area = besideArea();
    bool any = false;
    for (const CVekVertexArray& contour : region) {
        any = any || contour.len() > 0;
        for (const CVekVertex& vertex : contour) {
            const SurfacePoint start = map(vertex.start);
            if (!area.add(start))
                return false;
            if (vertex.bulge == 0.0)
                continue;
            const double reach = vertex.start.distanceTo(vertex.end) * (1.0 + std::fabs(vertex.bulge)) / deviceUnit(m);
            if (!area.add({start.x - reach, start.y - reach}) || !area.add({start.x + reach, start.y + reach}))
                return false;
        }
        if (contour.len() > 0 && !area.add(map((contour.end() - 1)->end)))
            return false;
    }
    return any;
}

void DrawPass::drawRegion(const CVekDisplayItem& item, unsigned color)
{
    bool fills = (item.flag & itemFill) != 0;
    bool hatches = (item.flag & itemHatch) != 0;
    const CVekMatrix3d& stored = matrix(item, From::stored);
    if ((fills || hatches) && item.reg.len() > 0 && !isOutside(item.reg, stored)) {
        const bool inRows = m_rules.fill == PassRules::Fill::scanLines;
        const Region& straight = hatches || inRows ? split(item.reg) : item.reg;
        if (hatches) {
            const Region& tested = m_rules.splitsBeforeTest ? straight : item.reg;
            hatches = detail::patternTest(tested, item.hatch, hatchLines(item.hatch.name), testMatrix(item));
            fills = fills || !hatches;
        }
        if (hatches && (!fills || m_rules.fillAndHatch)) {
            hatches = hatch(straight, stored, item.hatch);
            fills = fills || !hatches;
        } else {
            hatches = false;
        }
        const unsigned inside = fillColor(item, color);
        const int width = penWidth(1);
        m_surface.pen(fills && inRows ? 1 : width, inside);
        if (fills && inRows) {
            fillScanLines(straight, stored);
        } else if (fills) {
            m_surface.brush(inside);
            fillPolygon(item.reg, stored, chords(stored));
        }
        if (hatches) {
            if (fills && inRows && width != 1)
                m_surface.pen(width, inside);
            const bool alwaysDots = item.hatch.name == L"DOTS";
            for (int i = 0; i < m_strokes.len(); ++i) {
                m_strokes.get(i, m_line);
                drawPieces(m_line, stored, Chords{}, alwaysDots || hasDots(m_line), inside);
            }
            flushLines();
        }
    }
    if ((item.flag & itemOutline) != 0) {
        m_surface.pen(penWidth(item), color);
        prepareDashes(item);
        const CVekMatrix3d& turned = matrix(item, From::turned);
        for (const CVekVertexArray& contour : item.reg)
            drawLine(contour, turned, color);
        flushLines();
    }
}

void DrawPass::drawText(const CVekDisplayItem& item, unsigned color)
{
    const CVekMatrix3d& m = matrix(item, From::stored);
    const Chords chords = textChords(m);
    m_surface.brush(color);
    for (const Region& region : item.regl) {
        if (region.len() == 0 || isOutside(region, m))
            continue;
        if (region[0].isClosed()) {
            m_surface.pen(penWidth(item), color);
            fillPolygon(region, m, chords);
        }
        m_surface.pen(penWidth(1), color);
        for (const CVekVertexArray& contour : region)
            drawPieces(contour, m, chords, false, color);
        flushLines();
    }
}

/// A picture is placed in the drawing area, whatever the matrices.
void DrawPass::drawPicture(const CVekDisplayItem& item)
{
    int left = 0, top = 0, right = m_area.width, bottom = m_area.height;
    if ((item.flag & itemFullWindow) == 0 && item.vl.len() > 0) {
        const CVekPoint3d& first = item.vl.begin()->start;
        const CVekPoint3d& last = (item.vl.end() - 1)->end;
        left = wholeSize(first[0] * m_area.scale);
        top = wholeSize(first[1] * m_area.scale);
        right = wholeSize(last[0] * m_area.scale);
        bottom = wholeSize(last[1] * m_area.scale);
    }
    const std::shared_ptr<const CPixels> pixels =
        m_pictures.picture({.name = item.txt,
                            .id = static_cast<int>(item.pdMode),
                            .cx = right - left,
                            .cy = bottom - top,
                            .transparent = m_rules.picturesShowThrough && (item.flag & itemTransparent) != 0,
                            .back = m_rules.picturesOnPaper ? 0xFFFFFF : m_back});
    if (pixels)
        m_surface.picture(m_area.left + left, m_area.top + top, *pixels);
}

/// A position truncated to a pixel of the drawing area.
SurfacePoint DrawPass::wholePixel(const SurfacePoint& p) const
{
    return {m_area.left + std::trunc(p.x - m_area.left), m_area.top + std::trunc(p.y - m_area.top)};
}

void DrawPass::drawPoint(const CVekDisplayItem& item, unsigned color)
{
    const bool screenFixed = (item.flag & itemScreenFixed) != 0;
    const SurfacePoint at = DeviceMap(matrix(item, From::stored))(item.point);
    double size = item.pdSize == 0.0 ? m_gdx.pdSizeGet() : item.pdSize;
    if (size > 0.0)
        size *= (CVekVector3d::kXAxis * (screenFixed ? fixedMatrix(item) : m_total)).abs();
    else
        size *= m_area.scale;
    const int pixels = wholeSize(size);
    const int half = pixels >> 1; // rounds down, so a negative size extends further to one side
    const unsigned mode = item.pdMode == 0xFFFFFFFFu ? static_cast<unsigned>(m_gdx.pdModeGet()) : item.pdMode;

    m_surface.pen(penWidth(1), color);
    m_surface.noBrush();
    if ((mode & markSolid) != 0) {
        if (m_rules.square == PassRules::Square::exact) {
            const SurfacePoint whole = wholePixel(at);
            m_surface.solidRect(whole.x - half, whole.y - half, pixels, pixels, color);
        } else {
            m_surface.brush(color);
            m_surface.rectangle(at.x + half, at.y + half, at.x - half, at.y - half);
        }
        return;
    }
    if ((mode & markCircle) != 0)
        m_surface.ellipse(at.x + half, at.y + half, at.x - half, at.y - half);
    if ((mode & markSquare) != 0)
        drawSquare(at.x, at.y, pixels, half);
    drawMark(mode, at.x, at.y, half, color);
}

void DrawPass::drawSquare(double x, double y, int size, int half)
{
    int other = -half;
    if (m_rules.square == PassRules::Square::exact)
        other = size % 2 != 0 ? 1 - size / 2 : -(size / 2);
    m_surface.rectangle(x + half, y + half, x + other, y + other);
}

void DrawPass::drawMark(unsigned mode, double x, double y, int half, unsigned color)
{
    if ((mode & (markLow | markPlus | markTick)) == 0) {
        m_surface.brush(color);
        const double radius = m_area.scale;
        m_surface.ellipse(x + radius, y + radius, x - radius, y - radius);
        return;
    }
    if (m_rules.marksFromWholePixels) {
        const SurfacePoint whole = wholePixel({x, y});
        x = whole.x;
        y = whole.y;
    }
    const auto stroke = [&](int toX, int toY) {
        m_surface.moveTo(x, y);
        m_surface.lineTo(x + toX, y + toY);
    };
    if ((mode & markLow) != 0) {
        if ((mode & markPlus) == 0)
            return;
        stroke(-half, -half);
        stroke(-half, half);
        stroke(half, -half);
        stroke(half, half);
    } else if ((mode & markPlus) != 0) {
        stroke(0, -half);
        stroke(0, half);
        stroke(half, 0);
        stroke(-half, 0);
    } else {
        stroke(0, -half);
    }
}

} // namespace VEK
