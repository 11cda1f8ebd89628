#include "drawing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace slides
{
namespace
{

Mm operator+(Mm a, Mm b)
{
    return {a.x + b.x, a.y + b.y};
}
Mm operator-(Mm a, Mm b)
{
    return {a.x - b.x, a.y - b.y};
}
Mm operator*(Mm a, double factor)
{
    return {a.x * factor, a.y * factor};
}
double length(Mm a)
{
    return std::hypot(a.x, a.y);
}
Mm unit(Mm a)
{
    return a * (1.0 / length(a));
}
Mm left(Mm a)
{
    return {-a.y, a.x};
}
double cross(Mm a, Mm b)
{
    return a.x * b.y - a.y * b.x;
}

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}
Mm direction(double degrees)
{
    return {std::cos(radians(degrees)), std::sin(radians(degrees))};
}

double area(const Path& path)
{
    double twice = 0.0;
    for (std::size_t i = 0; i < path.size(); ++i)
        twice += cross(path[i], path[(i + 1) % path.size()]);
    return twice / 2.0;
}

/// The outer path joined to its holes by slits, since a fill is one polygon.
Path slit(Path outer, std::vector<Path> holes)
{
    if (area(outer) < 0.0)
        std::reverse(outer.begin(), outer.end());
    for (Path& hole : holes) {
        if (area(hole) > 0.0)
            std::reverse(hole.begin(), hole.end());
        std::size_t from = 0;
        std::size_t to = 0;
        double nearest = std::numeric_limits<double>::max();
        for (std::size_t i = 0; i < outer.size(); ++i) {
            for (std::size_t k = 0; k < hole.size(); ++k) {
                const double distance = length(outer[i] - hole[k]);
                if (distance < nearest) {
                    nearest = distance;
                    from = i;
                    to = k;
                }
            }
        }
        std::rotate(hole.begin(), hole.begin() + static_cast<std::ptrdiff_t>(to), hole.end());
        hole.push_back(hole.front());
        hole.push_back(outer[from]);
        outer.insert(outer.begin() + static_cast<std::ptrdiff_t>(from) + 1, hole.begin(), hole.end());
    }
    return outer;
}

} // namespace

Path rect(double x, double y, double width, double height)
{
    return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
}

Path arc(Mm center, double radius, double from, double to)
{
    const int steps = std::max(3, static_cast<int>(std::ceil(std::fabs(to - from) / 12.0)));
    Path path;
    for (int i = 0; i <= steps; ++i)
        path.push_back(center + direction(from + (to - from) * i / steps) * radius);
    return path;
}

Path circle(Mm center, double radius)
{
    Path path = arc(center, radius, 0.0, 360.0);
    path.pop_back();
    return path;
}

Path rounded(const Path& path, double radius)
{
    Path result;
    const std::size_t count = path.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Mm corner = path[i];
        const Mm before = path[(i + count - 1) % count] - corner;
        const Mm after = path[(i + 1) % count] - corner;
        const double half =
            std::acos(
                std::clamp((before.x * after.x + before.y * after.y) / (length(before) * length(after)), -1.0, 1.0)) /
            2.0;
        const double back = radius / std::tan(half);
        if (back > 0.49 * std::min(length(before), length(after))) {
            result.push_back(corner);
            continue;
        }
        const Mm start = corner + unit(before) * back;
        const Mm end = corner + unit(after) * back;
        const Mm center = corner + unit(unit(before) + unit(after)) * (radius / std::sin(half));
        const double first = std::atan2(start.y - center.y, start.x - center.x) * 180.0 / std::numbers::pi;
        double turn = std::atan2(end.y - center.y, end.x - center.x) * 180.0 / std::numbers::pi - first;
        turn -= 360.0 * std::round(turn / 360.0);
        result = joined(result, arc(center, radius, first, first + turn));
    }
    return result;
}

Path strip(const Path& axis, double thickness)
{
    Path one;
    Path other;
    for (std::size_t i = 0; i < axis.size(); ++i) {
        const Mm in = unit(axis[std::max<std::size_t>(i, 1)] - axis[std::max<std::size_t>(i, 1) - 1]);
        const Mm out = i + 1 < axis.size() ? unit(axis[i + 1] - axis[i]) : in;
        const Mm along = unit(in + out);
        const double reach = thickness / 2.0 / (along.x * in.x + along.y * in.y);
        one.push_back(axis[i] + left(along) * reach);
        other.push_back(axis[i] - left(along) * reach);
    }
    std::reverse(other.begin(), other.end());
    return joined(one, other);
}

Path joined(Path a, const Path& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

Path mirrored(Path path)
{
    for (Mm& point : path)
        point.x = -point.x;
    std::reverse(path.begin(), path.end());
    return path;
}

Path swapped(Path path)
{
    for (Mm& point : path)
        std::swap(point.x, point.y);
    return path;
}

Path symmetric(const Path& rightHalf)
{
    return joined(rightHalf, mirrored(rightHalf));
}

Mm Place::operator()(Mm point) const
{
    const Mm x = direction(degrees);
    return at + x * (mirrored ? -point.x : point.x) + left(x) * point.y;
}

Place Place::operator*(const Place& inner) const
{
    return {(*this)(inner.at), degrees + (mirrored ? -inner.degrees : inner.degrees), mirrored != inner.mirrored};
}

Drawing::Drawing(Format format, double width, double height, double unitsPerMm)
    : m_writer(format, static_cast<int>(width * unitsPerMm), static_cast<int>(height * unitsPerMm)),
      m_scale(unitsPerMm), m_high{static_cast<int>(width * unitsPerMm), static_cast<int>(height * unitsPerMm)}
{
}

Point Drawing::toSlide(Mm point) const
{
    const Mm placed = m_place(point);
    return {std::clamp(static_cast<int>(std::lround(placed.x * m_scale)), 0, m_high.x),
            std::clamp(static_cast<int>(std::lround(placed.y * m_scale)), 0, m_high.y)};
}

std::vector<Point> Drawing::toSlide(const Path& path) const
{
    std::vector<Point> points;
    for (const Mm& point : path) {
        const Point next = toSlide(point);
        if (points.empty() || next != points.back())
            points.push_back(next);
    }
    return points;
}

void Drawing::color(int index)
{
    if (index != m_color)
        m_writer.color(index);
    m_color = index;
}

void Drawing::open(const Path& path)
{
    m_writer.chain(toSlide(path));
}

void Drawing::outline(Path path)
{
    path.push_back(path.front());
    color(ink::outline);
    open(path);
}

void Drawing::fill(const Path& path, int colorIndex, const std::vector<Path>& holes)
{
    color(colorIndex);
    m_writer.fill(toSlide(slit(path, holes)));
}

void Drawing::body(const Path& path, int colorIndex, const std::vector<Path>& holes)
{
    fill(path, colorIndex, holes);
    outline(path);
    for (const Path& hole : holes)
        outline(hole);
}

void Drawing::bodies(const Path& path, int colorIndex, const std::vector<Path>& holes)
{
    body(path, colorIndex, holes);
    std::vector<Path> mirroredHoles;
    for (const Path& hole : holes)
        mirroredHoles.push_back(mirrored(hole));
    body(mirrored(path), colorIndex, mirroredHoles);
}

void Drawing::centreLine(Mm from, Mm to)
{
    constexpr double kPattern[] = {6.0, 1.5, 1.0, 1.5}; // dash, gap, dot, gap
    color(ink::axis);
    const Mm along = unit(to - from);
    const double end = length(to - from);
    double at = 0.0;
    for (int i = 0; at < end; i = (i + 1) % 4) {
        const double next = std::min(at + kPattern[i], end);
        if (i % 2 == 0)
            line(from + along * at, from + along * next);
        at = next;
    }
}

void Drawing::hatch(const Path& path, double degrees, double spacing)
{
    const Mm along = direction(degrees);
    const Mm across = left(along);
    const auto height = [&](Mm point) { return point.x * across.x + point.y * across.y; };
    double low = std::numeric_limits<double>::max();
    double high = -low;
    for (const Mm& point : path) {
        low = std::min(low, height(point));
        high = std::max(high, height(point));
    }
    for (double at = (std::floor(low / spacing) + 0.5) * spacing; at < high; at += spacing) {
        std::vector<double> cuts;
        for (std::size_t i = 0; i < path.size(); ++i) {
            const Mm a = path[i];
            const Mm b = path[(i + 1) % path.size()];
            if ((height(a) < at) != (height(b) < at)) {
                const Mm cut = a + (b - a) * ((at - height(a)) / (height(b) - height(a)));
                cuts.push_back(cut.x * along.x + cut.y * along.y);
            }
        }
        std::sort(cuts.begin(), cuts.end());
        for (std::size_t i = 0; i + 1 < cuts.size(); i += 2)
            line(along * cuts[i] + across * at, along * cuts[i + 1] + across * at);
    }
}

void Drawing::zigzag(Mm from, Mm to, double thickness, double step)
{
    const Mm along = to - from;
    const Mm side = left(unit(along)) * (thickness / 2.0);
    const int count = std::max(1, static_cast<int>(std::lround(length(along) / step)));
    Path path;
    path.reserve(static_cast<std::size_t>(count) + 1);
    for (int i = 0; i <= count; ++i)
        path.push_back(from + along * (static_cast<double>(i) / count) + side * (i % 2 ? 1.0 : -1.0));
    open(path);
}

void Drawing::breakLine(Mm from, Mm to)
{
    const Mm along = to - from;
    const Mm side = left(unit(along)) * 2.0;
    color(ink::outline);
    open({from, from + along * 0.44, from + along * 0.48 + side, from + along * 0.52 - side, from + along * 0.56, to});
}

} // namespace slides
