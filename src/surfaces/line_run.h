// Connected lines of one pen, kept until something else is drawn, so that a device of whole pixels gets them together.
#pragma once

#include "surfaces/reach.h"

#include <vector>

namespace VEK
{

/// @tparam Point a position in whole pixels, with members x and y
template <class Point>
class LineRun
{
public:
    /// The most points that are drawn together: [MS-EMF] lets devices stop there for wide lines.
    static constexpr std::size_t kLimit = 1360;

    LineRun() { m_points.reserve(kLimit); }

    /// The calls of a surface. What ends a run hands it to `draw(const std::vector<Point>&)`: two points or more.
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
        if (!isEnd(next) || m_points.size() == 1) // a line without length may still leave the dot of a wide pen
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

} // namespace VEK
