#include <vek/surfaces/raster.h>

#include "core/values/whole.h"
#include "surfaces/raster_areas.h"
#include "surfaces/raster_ellipses.h"
#include "surfaces/raster_lines.h"
#include "surfaces/raster_pen.h"
#include "surfaces/reach.h"

namespace VEK
{
namespace
{

using raster::Box;
using raster::Point;

std::uint32_t opaque(unsigned color)
{
    return 0xFF000000u | (color & 0xFFFFFF);
}

Point whole(const SurfacePoint& p)
{
    return {static_cast<int>(p.x), static_cast<int>(p.y)};
}

/// The position of a box's corner.
Point corner(double x, double y)
{
    return whole({reach::clamped(x), reach::clamped(y)});
}

class RasterSurface final : public CSurface
{
public:
    explicit RasterSurface(CPixels& pixels) : m_canvas(pixels) {}

    void clipTo(double left, double top, double right, double bottom) override
    {
        m_canvas.clipTo(boxOf(corner(left, top), corner(right, bottom)));
    }
    void clipOut(const SurfacePoint* points, int count) override;
    void clipRestore() override { m_canvas.clipRestore(); }
    void pen(int width, unsigned color) override
    {
        m_penOn = true;
        m_penWidth = std::clamp(width, 1, raster::WidePen::kLimit);
        if (m_penWidth > 1 && !VEK::whole(false, [&] { return (m_widePen.setWidth(m_penWidth), true); }))
            m_penWidth = 1;
        m_pen = opaque(color);
    }
    void noPen() override { m_penOn = false; }
    void brush(unsigned color) override
    {
        m_brushOn = true;
        m_brush = opaque(color);
    }
    void noBrush() override { m_brushOn = false; }
    void background(unsigned) override {} // has no effect on what a surface draws
    void moveTo(double x, double y) override { m_at = {x, y}; }
    void lineTo(double x, double y) override
    {
        const SurfacePoint from = m_at;
        m_at = {x, y};
        draw(from, m_at);
    }
    void polyline(const SurfacePoint* points, int count) override;
    void polylines(const SurfacePoint* points, const int* counts, int lines) override;
    void polygon(const SurfacePoint* points, int count) override;
    void rectangle(double x1, double y1, double x2, double y2) override;
    void ellipse(double x1, double y1, double x2, double y2) override
    {
        VEK::whole(false, [&] { return (addEllipse(x1, y1, x2, y2), true); });
    }
    void pixel(double x, double y, unsigned color) override
    {
        if (reach::holds({x, y}))
            m_canvas.pixel(static_cast<int>(x), static_cast<int>(y), opaque(color));
    }
    void solidRect(double x, double y, double width, double height, unsigned color) override;
    void picture(double x, double y, const CPixels& pixels) override;

private:
    void draw(const SurfacePoint& from, const SurfacePoint& to)
    {
        if (!m_penOn)
            return;
        if (!reach::holds(from) || !reach::holds(to))
            drawFar(from, to);
        else if (m_penWidth == 1)
            line(m_canvas, whole(from), whole(to), m_pen);
        else
            drawWide(whole(from), whole(to));
    }
    void drawFar(SurfacePoint from, SurfacePoint to);
    void drawWide(const Point& from, const Point& to);
    void drawRing(const Box& box);
    void drawQuadrants(const Box& box);
    void fillBox(const Box& box, std::uint32_t color);
    void fillPolygon(const SurfacePoint* points, int count, bool asHole);
    void addPolygon(const SurfacePoint* points, int count, bool asHole);
    void addEllipse(double x1, double y1, double x2, double y2);

    /// A pixel of an outline after the one at `last`; the first one if they are equal.
    void dotAfter(const Point& at, const Point& last)
    {
        if (m_penWidth == 1)
            m_canvas.pixel(at.x, at.y, m_pen);
        else if (at == last)
            m_widePen.dot(m_canvas, at, m_pen);
        else
            m_widePen.dotAfter(m_canvas, at, last, m_pen);
    }
    void widen(const Point& from, const Point& to)
    {
        if (m_penWidth > 1)
            m_widePen.body(m_canvas, m_scan, from, to, m_pen);
    }

    raster::Canvas m_canvas;
    bool m_penOn = true;
    bool m_brushOn = false;
    int m_penWidth = 1;
    std::uint32_t m_pen = opaque(0);
    std::uint32_t m_brush = opaque(0);
    SurfacePoint m_at;

    // Scratch
    raster::AreaScan m_scan;
    raster::WidePen m_widePen;
    std::vector<SurfacePoint> m_cut;
    std::vector<Point> m_points;
};

void RasterSurface::clipOut(const SurfacePoint* points, int count)
{
    fillPolygon(points, count, true);
}

void RasterSurface::addPolygon(const SurfacePoint* points, int count, bool asHole)
{
    if (count < 3)
        return;
    const SurfacePoint* end = points + count;
    if (!std::all_of(points, end, reach::holds)) {
        reach::cutPolygon(points, count, m_cut);
        points = m_cut.data();
        end = points + m_cut.size();
    }
    m_points.resize(static_cast<std::size_t>(end - points));
    std::transform(points, end, m_points.begin(), whole);
    const Box& clip = m_canvas.clip();
    if (asHole) {
        m_canvas.prepareHoles();
        m_scan.fill(m_points, clip, [&](int y, int x1, int x2) { m_canvas.cutOut(y, x1, x2); });
    } else {
        m_scan.fill(m_points, clip, [&](int y, int x1, int x2) { m_canvas.span(y, x1, x2, m_brush); });
    }
}

/// Leaves out the polygon if memory runs out for its vertices or for the mask of holes.
void RasterSurface::fillPolygon(const SurfacePoint* points, int count, bool asHole)
{
    VEK::whole(false, [&] { return (addPolygon(points, count, asHole), true); });
}

void RasterSurface::polyline(const SurfacePoint* points, int count)
{
    if (count < 1)
        return;
    m_at = points[count - 1];
    for (int i = 1; i < count; ++i)
        draw(points[i - 1], points[i]);
}

void RasterSurface::polylines(const SurfacePoint* points, const int* counts, int lines)
{
    for (int i = 0; i < lines; points += counts[i++])
        RasterSurface::polyline(points, counts[i]);
}

void RasterSurface::polygon(const SurfacePoint* points, int count)
{
    if (m_brushOn)
        fillPolygon(points, count, false);
    for (int i = 1; i < count; ++i)
        draw(points[i - 1], points[i]);
    if (count > 1)
        draw(points[count - 1], points[0]);
}

void RasterSurface::drawFar(SurfacePoint from, SurfacePoint to)
{
    if (!reach::isFinite(from) || !reach::isFinite(to))
        return;
    if (m_penWidth == 1)
        farLine(m_canvas, from, to, m_pen);
    else if (reach::cutSegment(from, to))
        drawWide(whole(from), whole(to));
}

void RasterSurface::drawWide(const Point& from, const Point& to)
{
    m_widePen.dot(m_canvas, from, m_pen);
    m_widePen.dot(m_canvas, to, m_pen);
    VEK::whole(false, [&] { return (m_widePen.body(m_canvas, m_scan, from, to, m_pen), true); });
}

/// The edge of a box: the pen follows its outermost pixels.
void RasterSurface::drawRing(const Box& box)
{
    const double right = box.right - 1;
    const double bottom = box.bottom - 1;
    const double left = box.left;
    const double top = box.top;
    draw({left, top}, {right, top});
    draw({right, top}, {right, bottom});
    draw({right, bottom}, {left, bottom});
    draw({left, bottom}, {left, top});
}

void RasterSurface::fillBox(const Box& box, std::uint32_t color)
{
    const Box seen = overlap(box, m_canvas.clip());
    for (int y = seen.top; y < seen.bottom; ++y)
        m_canvas.span(y, seen.left, seen.right, color);
}

void RasterSurface::rectangle(double x1, double y1, double x2, double y2)
{
    const Box box = boxOf(corner(x1, y1), corner(x2, y2));
    if (box.empty())
        return;
    const int right = box.right - 1;
    const int bottom = box.bottom - 1;
    if (m_brushOn)
        fillBox({box.left + m_penOn, box.top + m_penOn, right, bottom}, m_brush);
    drawRing(box);
}

void RasterSurface::addEllipse(double x1, double y1, double x2, double y2)
{
    const Box box = boxOf(corner(x1, y1), corner(x2, y2));
    const int width = box.right - box.left;
    const int height = box.bottom - box.top;
    if (box.empty())
        return;
    if (std::min(width, height) < 3) { // no room for a curve; with an edge there is nothing else
        if (m_brushOn && !m_penOn)
            fillBox({box.left, box.top, box.right - 1, box.bottom - 1}, m_brush);
        drawRing(box);
        return;
    }
    const int beyond = m_penOn ? m_penWidth : 0;
    const Box& clip = m_canvas.clip();
    const Box window{clip.left - beyond, clip.top - beyond, clip.right + beyond, clip.bottom + beyond};
    if (overlap(box, window).empty())
        return;
    const bool isFar = std::max(width, height) > raster::kEllipseLimit;
    if (!isFar)
        raster::ellipseQuadrant(width, height, m_points);
    if (m_brushOn && isFar)
        fillFarEllipse(m_canvas, box, m_brush);
    else if (m_brushOn)
        fillEllipse(m_canvas, box, m_points, m_brush);
    if (!m_penOn)
        return;
    if (isFar) {
        farEllipseOutline(box, window, m_points);
        for (std::size_t i = 0; i < m_points.size(); ++i)
            dotAfter(m_points[i], m_points[i > 0 ? i - 1 : 0]);
    } else {
        drawQuadrants(box);
    }
}

/// The outline of an ellipse from the upper left quarter in `m_points`.
void RasterSurface::drawQuadrants(const Box& box)
{
    const int right = box.right - 1;
    const int bottom = box.bottom - 1;
    for (const bool atRight : {false, true}) {
        for (const bool below : {false, true}) {
            const auto mirrored = [&](const Point& p) {
                return Point{atRight ? right - p.x : box.left + p.x, below ? bottom - p.y : box.top + p.y};
            };
            Point last = mirrored(m_points.front());
            widen(last, {last.x, box.top + bottom - last.y}); // over the middle to the quarter above or below
            for (const Point& p : m_points) {
                const Point next = mirrored(p);
                dotAfter(next, last);
                widen(last, next);
                last = next;
            }
            widen(last, {box.left + right - last.x, last.y});
        }
    }
}

void RasterSurface::solidRect(double x, double y, double width, double height, unsigned color)
{
    const Point from = corner(x, y);
    const Point size = corner(width, height);
    fillBox(boxOf(from, {from.x + size.x, from.y + size.y}), opaque(color));
}

void RasterSurface::picture(double x, double y, const CPixels& pixels)
{
    if (!reach::holds({x, y}) || pixels.width < 1 || pixels.height < 1 ||
        pixels.data.size() != static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height))
        return;
    const Point at = whole({x, y});
    const Box clip = m_canvas.clip();
    const int left = std::max(0, clip.left - at.x);
    const int top = std::max(0, clip.top - at.y);
    const auto right = static_cast<int>(std::min<std::int64_t>(pixels.width, std::int64_t(clip.right) - at.x));
    const auto bottom = static_cast<int>(std::min<std::int64_t>(pixels.height, std::int64_t(clip.bottom) - at.y));
    for (int row = top; row < bottom; ++row) {
        for (int column = left; column < right; ++column) {
            const std::uint32_t color = pixels.at(column, row);
            if (color >> 24 != 0)
                m_canvas.pixel(at.x + column, at.y + row, opaque(color));
        }
    }
}

} // namespace

bool rasterPixels(CPixels& pixels, int width, int height, unsigned color)
{
    pixels = {};
    if (width < 1 || height < 1 || width > kRasterAreaLimit / height)
        return false;
    const std::size_t area = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    pixels.data =
        VEK::whole(std::vector<std::uint32_t>(), [&] { return std::vector<std::uint32_t>(area, opaque(color)); });
    if (pixels.data.empty())
        return false;
    pixels.width = width;
    pixels.height = height;
    return true;
}

std::unique_ptr<CSurface> rasterSurface(CPixels& pixels)
{
    return VEK::whole(std::unique_ptr<CSurface>(),
                      [&]() -> std::unique_ptr<CSurface> { return std::make_unique<RasterSurface>(pixels); });
}

} // namespace VEK
