#include "surfaces/raster_pen.h"

#include "surfaces/raster_ellipses.h"

#include <array>
#include <cmath>

namespace VEK::raster
{

void WidePen::setWidth(int width)
{
    if (width == m_width)
        return;
    m_width = 0; // until its rows are allocated
    m_insets.assign(static_cast<std::size_t>(width), 0);
    std::vector<Point> quadrant;
    if (width > 2)
        ellipseQuadrant(width, width, quadrant);
    for (std::size_t i = quadrant.size(); i-- > 0;) { // in reverse: the first of a row is the outermost
        const auto row = static_cast<std::size_t>(quadrant[i].y);
        m_insets[row] = quadrant[i].x;
        m_insets[m_insets.size() - 1 - row] = quadrant[i].x;
    }
    m_width = width;
}

void WidePen::dot(Canvas& canvas, const Point& at, std::uint32_t color) const
{
    dotAfter(canvas, at, {at.x, at.y - m_width}, color);
}

void WidePen::dotAfter(Canvas& canvas, const Point& at, const Point& last, std::uint32_t color) const
{
    const Box& clip = canvas.clip();
    const Point corner = cornerOf(at);
    const Point old = cornerOf(last);
    if (corner.x >= clip.right || corner.x + m_width <= clip.left)
        return;
    const int bottom = std::min(corner.y + m_width, clip.bottom);
    for (int y = std::max(corner.y, clip.top); y < bottom; ++y) {
        const int inset = m_insets[static_cast<std::size_t>(y - corner.y)];
        const int left = corner.x + inset;
        const int right = corner.x + m_width - inset;
        if (y < old.y || y >= old.y + m_width) {
            canvas.span(y, left, right, color);
            continue;
        }
        const int oldInset = m_insets[static_cast<std::size_t>(y - old.y)];
        canvas.span(y, left, std::min(right, old.x + oldInset), color);
        canvas.span(y, std::max(left, old.x + m_width - oldInset), right, color);
    }
}

void WidePen::body(Canvas& canvas, AreaScan& scan, const Point& from, const Point& to, std::uint32_t color) const
{
    // The vector across the line, as long as the pen is wide; rounded up to whole pixels for a slanting line.
    const int dx = to.x - from.x;
    const int dy = to.y - from.y;
    if (dx == 0 && dy == 0)
        return;
    const double length = std::sqrt(static_cast<double>(dx) * dx + static_cast<double>(dy) * dy);
    const auto share = [&](int side) {
        return static_cast<int>(std::abs(static_cast<double>(m_width) * side) / length);
    };
    Point across{0, m_width};
    if (dx == 0) {
        across = {m_width, 0};
    } else if (dy != 0) {
        across = {share(dy) + 1, share(dx) + 1};
        if ((dx < 0) == (dy < 0))
            across.y = -across.y;
    }
    const Point less{across.x / 2, across.y / 2};
    const Point more{across.x - less.x, across.y - less.y};
    const std::array<Point, 4> corners{{{from.x - less.x, from.y - less.y},
                                        {to.x - less.x, to.y - less.y},
                                        {to.x + more.x, to.y + more.y},
                                        {from.x + more.x, from.y + more.y}}};
    scan.fill(corners, canvas.clip(), [&](int y, int x1, int x2) { canvas.span(y, x1, x2, color); });
}

} // namespace VEK::raster
