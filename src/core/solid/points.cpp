#include "core/solid/picture.h"

namespace VEK::solids
{
namespace
{

constexpr double kCellSize = 16.0; ///< in tolerances

} // namespace

void Points::clear(double tolerance)
{
    m_tolerance = tolerance;
    m_cells = 1.0 / (kCellSize * tolerance);
    m_points.clear();
    m_slots.assign(64, kNone);
}

std::size_t Points::home(std::int64_t x, std::int64_t y) const
{
    std::uint64_t h =
        static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15u + static_cast<std::uint64_t>(y) * 0xC2B2AE3D27D4EB4Fu;
    h ^= h >> 29;
    h *= 0xBF58476D1CE4E5B9u;
    return static_cast<std::size_t>(h >> 20) & (m_slots.size() - 1);
}

/// Points of other cells may stand between those of one cell; the distance alone decides.
Id Points::find(std::int64_t x, std::int64_t y, Vec p) const
{
    for (std::size_t i = home(x, y); m_slots[i] != kNone; i = (i + 1) & (m_slots.size() - 1)) {
        const Vec d = m_points[m_slots[i]] - p;
        if (d.dot(d) <= m_tolerance * m_tolerance)
            return m_slots[i];
    }
    return kNone;
}

Id Points::add(Vec p)
{
    const double x = p.x * m_cells, y = p.y * m_cells;
    const double left = std::floor(x), low = std::floor(y);
    constexpr double kMargin = 1.01 / kCellSize;
    // The cell of the point, and those that the tolerance reaches.
    const auto reached = [](double place) { return place < kMargin ? -1 : place > 1.0 - kMargin ? 1 : 0; };
    const int dx = reached(x - left), dy = reached(y - low);
    const std::int64_t i = static_cast<std::int64_t>(left), k = static_cast<std::int64_t>(low);
    Id found = find(i, k, p);
    if (found == kNone && dx != 0)
        found = find(i + dx, k, p);
    if (found == kNone && dy != 0)
        found = find(i, k + dy, p);
    if (found == kNone && dx != 0 && dy != 0)
        found = find(i + dx, k + dy, p);
    if (found != kNone)
        return found;
    if (m_points.size() * 2 >= m_slots.size())
        grow();
    std::size_t slot = home(i, k);
    while (m_slots[slot] != kNone)
        slot = (slot + 1) & (m_slots.size() - 1);
    m_slots[slot] = count();
    m_points.push_back(p);
    return count() - 1;
}

void Points::grow()
{
    m_slots.assign(m_slots.size() * 4, kNone);
    for (Id n = 0; n < count(); ++n) {
        const auto cell = [&](double v) { return static_cast<std::int64_t>(std::floor(v * m_cells)); };
        std::size_t slot = home(cell(m_points[n].x), cell(m_points[n].y));
        while (m_slots[slot] != kNone)
            slot = (slot + 1) & (m_slots.size() - 1);
        m_slots[slot] = n;
    }
}

void Picture::clear(double newTolerance)
{
    tolerance = newTolerance;
    points.clear(tolerance);
    sources.clear();
    lines.clear();
    facets.clear();
    sides.clear();
}

} // namespace VEK::solids
