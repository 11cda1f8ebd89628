#include "surfaces/raster_areas.h"

namespace VEK::raster
{

bool AreaScan::start(std::span<const Point> polygon, const Box& clip)
{
    m_box = {};
    if (polygon.size() < 3)
        return false;
    Box bounds{polygon[0].x, polygon[0].y, polygon[0].x, polygon[0].y};
    for (const Point& p : polygon)
        bounds = around(bounds, {p.x, p.y, p.x, p.y});
    const Box box = overlap(bounds, clip);
    if (box.empty())
        return false;
    m_box = box;
    m_words = static_cast<std::size_t>(box.right - box.left) / 64 + 1;
    const std::size_t needed = m_words * static_cast<std::size_t>(box.bottom - box.top);
    if (m_flags.size() < needed)
        m_flags.resize(needed);
    Point last = polygon.back();
    for (const Point& p : polygon) {
        if (last.y < p.y)
            addEdge(last, p);
        else
            addEdge(p, last);
        last = p;
    }
    return true;
}

/// The edge runs downwards and includes its upper, but not its lower end.
void AreaScan::addEdge(Point from, Point to)
{
    const int top = std::max(from.y, m_box.top);
    const int bottom = std::min(to.y, m_box.bottom);
    if (top >= bottom || std::min(from.x, to.x) >= m_box.right)
        return;
    std::uint64_t* row = &m_flags[static_cast<std::size_t>(top - m_box.top) * m_words];
    if (std::max(from.x, to.x) <= m_box.left) {
        for (int y = top; y < bottom; ++y, row += m_words)
            *row ^= 1;
        return;
    }
    // The crossing with row y is at x + (y - from.y) * dx / height, rounded up.
    const std::int64_t height = to.y - from.y;
    const std::int64_t dx = to.x - from.x;
    const std::int64_t slope = dx / height - (dx % height < 0);
    const std::int64_t slopeRest = dx - slope * height;
    const std::int64_t down = (top - from.y) * slopeRest + height - 1;
    std::int64_t x = from.x - m_box.left + (top - from.y) * slope + down / height;
    std::int64_t rest = down % height;
    const std::int64_t width = m_box.right - m_box.left;
    for (int y = top; y < bottom; ++y, row += m_words) {
        const auto column = static_cast<std::uint64_t>(std::clamp<std::int64_t>(x, 0, width));
        row[column / 64] ^= std::uint64_t(1) << column % 64;
        x += slope;
        rest += slopeRest;
        if (rest >= height) {
            rest -= height;
            ++x;
        }
    }
}

} // namespace VEK::raster
