#include "core/geometry/prepared_region.h"
#include "core/values/stepping.h"
#include "display/pass.h"

#include <algorithm>
#include <cmath>

namespace VEK
{
namespace
{

/// Points that go to the surface at a time, so that the buffer stays in the cache.
constexpr std::size_t kChainLimit = 4096;

/// Bits of a point style.
enum : unsigned { markLow = 1, markPlus = 2, markTick = 4, markSolid = 8, markCircle = 32, markSquare = 64 };

/// Takes points to the device: the two rows of a matrix that it needs.
class DeviceMap
{
public:
    explicit DeviceMap(const CVekMatrix3d& m)
        : m_x{m[0][0], m[0][1], m[0][2], m[0][3]}, m_y{m[1][0], m[1][1], m[1][2], m[1][3]}
    {
    }

    SurfacePoint operator()(const CVekPoint3d& p) const
    {
        return {m_x[0] * p[0] + m_x[1] * p[1] + m_x[2] * p[2] + m_x[3],
                m_y[0] * p[0] + m_y[1] * p[1] + m_y[2] * p[2] + m_y[3]};
    }

private:
    double m_x[4];
    double m_y[4];
};

/// Half a pixel in the units in front of the matrix, by its longest axis.
double halfPixel(const CVekMatrix3d& m)
{
    return 0.5 / std::max({m.axis(0).abs(), m.axis(1).abs(), m.axis(2).abs()});
}

/// A size in pixels, cut towards zero.
int wholeSize(double size)
{
    constexpr double kMost = 1e9;
    return std::isnan(size) ? 0 : static_cast<int>(std::clamp(size, -kMost, kMost));
}

} // namespace

void DrawPass::flushChain()
{
    if (m_chain.size() > 1)
        m_surface.polyline(m_chain.data(), static_cast<int>(m_chain.size()));
    m_chain.clear();
}

void DrawPass::addToChain(const SurfacePoint& p)
{
    m_chain.push_back(p);
    if (m_chain.size() == kChainLimit) {
        flushChain();
        m_chain.push_back(p);
    }
}

template <class IsDot>
void DrawPass::drawSegments(const CVekVertexArray& vl, const CVekMatrix3d& m, double tolerance, IsDot isDot)
{
    const DeviceMap map(m);
    const CVekVertex* before = nullptr;
    for (const CVekVertex& vertex : vl) {
        if (isDot(vertex, map)) {
            before = nullptr;
            continue;
        }
        if (!before || before->end != vertex.start) {
            flushChain();
            m_chain.push_back(map(vertex.start));
        }
        before = &vertex;
        if (vertex.bulge == 0.0) {
            addToChain(map(vertex.end));
            continue;
        }
        if (tolerance == kHalfPixel)
            tolerance = halfPixel(m);
        const plane::SpaceArc arc(vertex, vl.normal());
        arc.step(arc.chords(tolerance), [&](const CVekPoint3d& p) { addToChain(map(p)); });
    }
    flushChain();
}

bool DrawPass::isShort(const CVekVertex& vertex) const
{
    CVekVector3d length = vertex.end - vertex.start;
    if (m_viewTurns)
        length = length * m_gdx.viewDirectionMtxGet();
    return length.dot(length) < m_shortLength * m_shortLength;
}

bool DrawPass::hasDots(const CVekVertexArray& vl) const
{
    return !vl.isContinuous() && !(m_rules.closedIsContinuous && vl.isClosed());
}

void DrawPass::drawDot(const SurfacePoint& at, unsigned color)
{
    flushChain();
    if (m_rules.dot == PassRules::Dot::pixel) {
        m_surface.pixel(at.x, at.y, color);
        return;
    }
    m_surface.moveTo(at.x, at.y);
    m_surface.lineTo(at.x + 1.0, at.y);
}

void DrawPass::drawPolyline(const CVekVertexArray& vl, const CVekMatrix3d& m, unsigned color)
{
    std::optional<bool> dots; // asked only when there is something short
    drawSegments(vl, m, kHalfPixel, [&](const CVekVertex& vertex, const DeviceMap& map) {
        if (!isShort(vertex))
            return false;
        if (!dots)
            dots = hasDots(vl);
        if (*dots)
            drawDot(map(vertex.start), color);
        return *dots;
    });
}

void DrawPass::collect(const CVekVertexArray& contour, const CVekMatrix3d& m, double tolerance)
{
    const DeviceMap map(m);
    m_chain.clear();
    plane::forEachPoint(contour, true, tolerance, [&](const CVekPoint3d& p) { m_chain.push_back(map(p)); });
    if (m_chain.size() > 1 && m_chain.front() == m_chain.back())
        m_chain.pop_back();
}

/// The outer contour as a polygon of pen and brush, without the holes.
void DrawPass::fillPolygon(const Region& region, const CVekMatrix3d& m, double tolerance)
{
    bool holes = false;
    for (int i = 1; i < region.len(); ++i) {
        collect(region[i], m, tolerance);
        if (m_chain.size() < 3)
            continue;
        m_surface.clipOut(m_chain.data(), static_cast<int>(m_chain.size()));
        holes = true;
    }
    collect(region[0], m, tolerance);
    if (!m_chain.empty())
        m_surface.polygon(m_chain.data(), static_cast<int>(m_chain.size()));
    m_chain.clear();
    if (holes)
        m_surface.clipRestore();
}

/// The region as horizontal lines, one for each row of pixels; rows outside the drawing area would not show.
void DrawPass::fillScanLines(const Region& region, const CVekMatrix3d& m)
{
    m_region = region;
    for (CVekVertexArray& contour : m_region)
        contour.transformBy(m);
    CVekPoint3d min, max;
    if (m_region.len() == 0 || !m_region[0].extents(min, max))
        return;
    plane::PreparedRegion prepared(m_region);
    const double last = std::min(max[1], static_cast<double>(m_height));
    for (double y = std::max(std::trunc(min[1]), 0.0); y < last; y += 1.0) {
        for (const plane::Span& span : prepared.spans({{min[0], y}, {max[0], y}, 0.0})) {
            const double from = min[0] + (max[0] - min[0]) * span.from;
            const double to = span.to == 1.0 ? max[0] : min[0] + (max[0] - min[0]) * span.to;
            m_surface.moveTo(from, y);
            m_surface.lineTo(to, y);
        }
    }
}

void DrawPass::drawRegion(const CVekDisplayItem& item, unsigned color)
{
    if ((item.flag & itemFill) != 0 && item.reg.len() > 0) {
        const unsigned fill = fillColor(item, color);
        const CVekMatrix3d& m = matrix(item, Order::ownFirst);
        m_surface.pen(1, fill);
        if (m_rules.fill == PassRules::Fill::scanLines) {
            fillScanLines(item.reg, m);
        } else {
            m_surface.brush(fill);
            fillPolygon(item.reg, m, halfPixel(m));
        }
    }
    if ((item.flag & itemOutline) != 0) {
        m_surface.pen(item.thickn, color);
        const CVekMatrix3d& m = matrix(item, Order::viewFirst);
        for (const CVekVertexArray& contour : item.reg)
            drawPolyline(contour, m, color);
    }
}

void DrawPass::drawText(const CVekDisplayItem& item, unsigned color)
{
    const CVekMatrix3d& m = matrix(item, Order::ownFirst);
    const double tolerance = m_rules.textChords > 0.0 ? m_rules.textChords : halfPixel(m);
    m_surface.brush(color);
    for (const Region& region : item.regl) {
        if (region.len() == 0)
            continue;
        if (region[0].isClosed()) {
            m_surface.pen(item.thickn, color);
            fillPolygon(region, m, tolerance);
        }
        m_surface.pen(1, color);
        for (const CVekVertexArray& contour : region)
            drawSegments(contour, m, tolerance, [](const CVekVertex&, const DeviceMap&) { return false; });
    }
}

void DrawPass::drawPoint(const CVekDisplayItem& item, int number, unsigned color)
{
    const bool screenFixed = (item.flag & itemScreenFixed) != 0;
    const SurfacePoint at = DeviceMap(matrix(item, Order::ownFirst))(item.point);
    double size = m_gdx.pdSizeGet(number);
    if (size > 0.0)
        size *= (CVekVector3d::kXAxis * (screenFixed ? fixedMatrix(item) : m_total)).abs();
    const int pixels = wholeSize(size);
    const int half = pixels >> 1; // rounds down, so a negative size reaches further to one side
    const unsigned mode = static_cast<unsigned>(m_gdx.pdModeGet(number));

    m_surface.pen(1, color);
    m_surface.noBrush();
    if ((mode & markSolid) != 0) {
        if (m_rules.square == PassRules::Square::exact) {
            m_surface.solidRect(std::trunc(at.x) - half, std::trunc(at.y) - half, pixels, pixels, color);
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
        m_surface.ellipse(x + 1.0, y + 1.0, x - 1.0, y - 1.0);
        return;
    }
    if (m_rules.marksFromWholePixels) {
        x = std::trunc(x);
        y = std::trunc(y);
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
