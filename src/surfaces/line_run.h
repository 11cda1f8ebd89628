// Combines lines of one pen in whole units for a device: connected lines, kept until something else is drawn, and many
// lines passed at once.
#pragma once

#include "surfaces/reach.h"

#include <algorithm>
#include <vector>

namespace VEK
{

/// @tparam Point a position in whole pixels, with members x and y
template <class Point>
class LineRun
{
public:
    /// The most points drawn together: [MS-EMF] lets devices stop there for wide lines.
    static constexpr std::size_t kLimit = 1360;

    LineRun() { m_points.reserve(kLimit); }

    /// The calls of a surface. A completed run goes to `draw(const std::vector<Point>&)`: two points or more.
    template <class Draw>
    void moveTo(const SurfacePoint& to, Draw&& draw)
    {
        m_at = to;
        if (!m_points.empty() && (!reach::holds(to) || !isEnd(whole(to))))
            flush(draw);
    }
    template <class Draw>
    void lineTo(const SurfacePoint& to, Draw&& draw)
    {
        SurfacePoint from = m_at, end = to;
        m_at = to;
        if (!reach::holds(from) || !reach::holds(end)) {
            flush(draw);
            if (reach::cutSegment(from, end)) {
                m_points.assign({whole(from), whole(end)});
                flush(draw);
            }
            return;
        }
        if (m_points.empty())
            m_points.push_back(whole(from));
        const Point next = whole(end);
        if (!isEnd(next) || m_points.size() == 1) // a line of zero length still draws the dot of a wide pen
            m_points.push_back(next);
        if (m_points.size() == kLimit) {
            flush(draw);
            m_points.push_back(next);
        }
    }
    template <class Draw>
    void flush(Draw&& draw)
    {
        if (m_points.size() > 1)
            draw(m_points);
        m_points.clear();
    }

private:
    static Point whole(const SurfacePoint& p)
    {
        return {static_cast<decltype(Point::x)>(p.x), static_cast<decltype(Point::y)>(p.y)};
    }
    bool isEnd(const Point& p) const { return p.x == m_points.back().x && p.y == m_points.back().y; }

    SurfacePoint m_at;
    std::vector<Point> m_points;
};

/// Many lines at once. A line that begins where the previous one ends continues it.
/// @tparam Count number of points of a line
template <class Point, class Count>
class LineBatch
{
public:
    /// Passes lines in batches to `draw(const std::vector<Point>&, const std::vector<Count>&)`, and those that a run
    /// would clip one by one to `drawOne(const SurfacePoint*, int)`.
    /// @param factor units per device unit
    template <class Draw, class DrawOne>
    void draw(const SurfacePoint* points, const int* counts, int lines, double factor, Draw&& draw, DrawOne&& drawOne)
    {
        const auto flush = [&] {
            if (!m_counts.empty())
                draw(m_points, m_counts);
            m_points.clear();
            m_counts.clear();
        };
        m_points.clear(); // left over from a call for which memory ran out
        m_counts.clear();
        for (int i = 0; i < lines; points += counts[i++]) {
            if (counts[i] < 2)
                continue;
            const auto holds = [factor](const SurfacePoint& p) { return reach::holds({p.x * factor, p.y * factor}); };
            if (counts[i] > static_cast<int>(LineRun<Point>::kLimit) ||
                !std::all_of(points, points + counts[i], holds)) {
                flush();
                drawOne(points, counts[i]);
                continue;
            }
            const auto whole = [factor](const SurfacePoint& p) {
                return Point{static_cast<decltype(Point::x)>(p.x * factor),
                             static_cast<decltype(Point::y)>(p.y * factor)};
            };
            if (m_counts.empty() || !isEnd(whole(points[0])) ||
                static_cast<std::size_t>(m_counts.back()) + static_cast<std::size_t>(counts[i]) >
                    LineRun<Point>::kLimit)
                m_counts.push_back(0);
            const std::size_t start = m_points.size() - static_cast<std::size_t>(m_counts.back());
            for (int k = 0; k < counts[i]; ++k) {
                const Point p = whole(points[k]);
                if (m_points.size() < start + 2 || !isEnd(p)) // at least two, for the dot of a wide pen
                    m_points.push_back(p);
            }
            m_counts.back() = static_cast<Count>(m_points.size() - start);
            if (m_points.size() >= kEnough)
                flush();
        }
        flush();
    }

private:
    static constexpr std::size_t kEnough = 16384;

    bool isEnd(const Point& p) const { return p.x == m_points.back().x && p.y == m_points.back().y; }

    std::vector<Point> m_points;
    std::vector<Count> m_counts;
};

} // namespace VEK
