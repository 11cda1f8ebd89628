#include "surfaces/holes.h"

#include <algorithm>

namespace VEK
{
namespace
{

/// Maximum number of comparisons of two points, edges or boxes for one answer: a few milliseconds. A glyph needs some
/// thousand, a plate with a thousand drill holes a million.
constexpr double kMostWork = 4e6;

/// Positive where c lies to the left of the line from a to b.
double side(const SurfacePoint& a, const SurfacePoint& b, const SurfacePoint& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Whether two segments cross in a point inside both.
bool cross(const SurfacePoint& a, const SurfacePoint& b, const SurfacePoint& c, const SurfacePoint& d)
{
    if (std::max(a.x, b.x) < std::min(c.x, d.x) || std::max(c.x, d.x) < std::min(a.x, b.x) ||
        std::max(a.y, b.y) < std::min(c.y, d.y) || std::max(c.y, d.y) < std::min(a.y, b.y))
        return false;
    return side(a, b, c) * side(a, b, d) < 0.0 && side(c, d, a) * side(c, d, b) < 0.0;
}

enum class Place { inside, border, outside };

Place placeOf(const SurfacePoint& p, const SurfacePoint* polygon, int count)
{
    bool odd = false;
    SurfacePoint a = polygon[count - 1];
    for (int i = 0; i < count; ++i) {
        const SurfacePoint b = polygon[i];
        const bool spans = (a.y > p.y) != (b.y > p.y);
        const bool near = p.y >= std::min(a.y, b.y) && p.y <= std::max(a.y, b.y) && p.x <= std::max(a.x, b.x);
        if (near) {
            const double s = side(a, b, p);
            if (s == 0.0 && p.x >= std::min(a.x, b.x))
                return Place::border;
            if (spans && (s > 0.0) == (b.y > a.y))
                odd = !odd;
        }
        a = b;
    }
    return odd ? Place::inside : Place::outside;
}

/// Whether every point of one polygon and the middle of each of its edges lie on one side of the other polygon, or on
/// its border if that is allowed, and no edges cross.
bool keepsTo(Place place, bool borderToo, const SurfacePoint* polygon, int count, const SurfacePoint* other,
             int otherCount)
{
    const auto isRight = [&](const SurfacePoint& p) {
        const Place found = placeOf(p, other, otherCount);
        return found == place || (borderToo && found == Place::border);
    };
    SurfacePoint a = polygon[count - 1];
    for (int i = 0; i < count; ++i) {
        const SurfacePoint b = polygon[i];
        if (!isRight(b) || !isRight({(a.x + b.x) / 2.0, (a.y + b.y) / 2.0}))
            return false;
        for (int k = 0; k < otherCount; ++k) {
            if (cross(a, b, other[k], other[k + 1 < otherCount ? k + 1 : 0]))
                return false;
        }
        a = b;
    }
    return true;
}

double doubleArea(const SurfacePoint* points, int count)
{
    double sum = 0.0;
    for (int i = 1; i + 1 < count; ++i)
        sum += side(points[0], points[i], points[i + 1]);
    return sum;
}

} // namespace

void Holes::add(const SurfacePoint* points, int count)
{
    if (count < 3)
        return;
    Box box{points[0].x, points[0].y, points[0].x, points[0].y};
    for (int i = 1; i < count; ++i) {
        box = {std::min(box.left, points[i].x), std::min(box.top, points[i].y), std::max(box.right, points[i].x),
               std::max(box.bottom, points[i].y)};
    }
    m_boxes.resize(m_ends.size()); // without the rest of a hole for which memory ran out
    m_points.resize(m_ends.empty() ? 0 : static_cast<std::size_t>(m_ends.back()));
    m_boxes.push_back(box);
    m_points.insert(m_points.end(), points, points + count);
    m_ends.push_back(static_cast<int>(m_points.size()));
}

void Holes::clear()
{
    m_points.clear();
    m_ends.clear();
    m_boxes.clear();
}

bool Holes::liesIn(const SurfacePoint* polygon, int polygonCount) const
{
    double work = double(m_points.size()) * polygonCount + 0.5 * count() * count();
    if (polygonCount < 3 || work > kMostWork)
        return false;
    for (int i = 0; i < count(); ++i) {
        if (!keepsTo(Place::inside, true, points(i), pointCount(i), polygon, polygonCount))
            return false;
        const Box& a = m_boxes[static_cast<std::size_t>(i)];
        for (int k = 0; k < i; ++k) {
            const Box& b = m_boxes[static_cast<std::size_t>(k)];
            if (a.right <= b.left || b.right <= a.left || a.bottom <= b.top || b.bottom <= a.top)
                continue;
            work += double(pointCount(i)) * pointCount(k);
            if (work > kMostWork ||
                !keepsTo(Place::outside, false, points(i), pointCount(i), points(k), pointCount(k)) ||
                !keepsTo(Place::outside, false, points(k), pointCount(k), points(i), pointCount(i)))
                return false;
        }
    }
    return true;
}

void Holes::windAgainst(const SurfacePoint* polygon, int polygonCount)
{
    const bool left = doubleArea(polygon, polygonCount) > 0.0;
    for (int i = 0; i < count(); ++i) {
        SurfacePoint* hole = m_points.data() + begin(i);
        if ((doubleArea(hole, pointCount(i)) > 0.0) == left)
            std::reverse(hole, hole + pointCount(i));
    }
}

} // namespace VEK
