#include "surfaces/raster_ellipses.h"

#include <cmath>

namespace VEK::raster
{
namespace
{

/// One axis of an ellipse in a box.
struct Axis {
    double middle;
    double half;

    Axis(int first, int end)
        : middle((static_cast<double>(first) + end - 1.0) / 2.0), half((static_cast<double>(end) - first - 1.0) / 2.0)
    {
    }

    /// The distance of the outline from this axis' middle at the coordinate `at` of the other axis; negative if it does
    /// not extend there.
    double reach(const Axis& other, double at) const
    {
        const double t = std::abs(at - other.middle) / other.half;
        return t <= 1.0 ? half * std::sqrt((1.0 - t) * (1.0 + t)) : -1.0;
    }
};

} // namespace

void ellipseQuadrant(int width, int height, std::vector<Point>& points)
{
    points.clear();
    Point p{0, (height - 1) / 2};
    // The midpoint method, with the equation b b X X + a a Y Y = a a b b times four, for X and Y in half pixels from
    // the middle: `error` is the deviation from the equation at the diagonally next pixel.
    const std::int64_t aa = std::int64_t(width - 1) * (width - 1);
    const std::int64_t bb = std::int64_t(height - 1) * (height - 1);
    const std::int64_t odd = (height - 1) & 1;
    std::int64_t errorX = 4 * bb * (2 - width);
    std::int64_t errorY = 4 * aa * (odd + 1);
    std::int64_t error = errorX + errorY + odd * aa;
    const int last = (width - 1) / 2;
    while (p.x <= last) {
        points.push_back(p);
        const std::int64_t twice = 2 * error;
        if (twice <= errorY) {
            --p.y;
            errorY += 8 * aa;
            error += errorY;
        }
        if (twice >= errorX) {
            ++p.x;
            errorX += 8 * bb;
            error += errorX;
        }
    }
}

void fillEllipse(Canvas& canvas, const Box& box, const std::vector<Point>& quadrant, std::uint32_t color)
{
    int lastRow = -1;
    for (const Point& p : quadrant) {
        if (p.y == lastRow)
            continue;
        lastRow = p.y;
        canvas.span(box.top + p.y, box.left + p.x, box.right - p.x, color);
        canvas.span(box.bottom - 1 - p.y, box.left + p.x, box.right - p.x, color);
    }
}

void fillFarEllipse(Canvas& canvas, const Box& box, std::uint32_t color)
{
    const Axis across(box.left, box.right), down(box.top, box.bottom);
    const Box rows = overlap(box, canvas.clip());
    for (int y = rows.top; y < rows.bottom; ++y) {
        const double reach = across.reach(down, y);
        canvas.span(y, static_cast<int>(std::ceil(across.middle - reach - 0.5)),
                    static_cast<int>(std::floor(across.middle + reach + 0.5)) + 1, color);
    }
}

void farEllipseOutline(const Box& box, const Box& window, std::vector<Point>& points)
{
    points.clear();
    const Axis across(box.left, box.right), down(box.top, box.bottom);
    const auto add = [&](double x, double y) {
        const Point p{static_cast<int>(std::floor(x + 0.5)), static_cast<int>(std::floor(y + 0.5))};
        if (window.holds(p.x, p.y))
            points.push_back(p);
    };
    const Box seen = overlap(box, window);
    for (const double side : {-1.0, 1.0}) {
        for (int y = seen.top; y < seen.bottom; ++y)
            add(across.middle + side * across.reach(down, y), y);
        for (int x = seen.left; x < seen.right; ++x)
            add(x, down.middle + side * down.reach(across, x));
    }
}

} // namespace VEK::raster
