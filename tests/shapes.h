/// Polylines and regions that tests share: fixed ones, random ones, and what is known of them by a second method.
#pragma once

#include <vek/geometry.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

namespace shapes
{

using std::numbers::pi;

using Polylines = CVekArrayTempl<CVekVertexArray>;
using Regions = CVekArrayTempl<Polylines>;

inline CVekVertex line(double x0, double y0, double x1, double y1, double bulge = 0.0)
{
    return {{x0, y0, 0.0}, {x1, y1, 0.0}, bulge};
}

inline CVekVertexArray path(const std::vector<CVekVertex>& segments)
{
    CVekVertexArray vl;
    for (const CVekVertex& segment : segments)
        vl.append(segment);
    return vl;
}

/// A closed polyline through the corners; their bulges, where given, are those of the sides behind them.
inline CVekVertexArray polygon(const std::vector<std::pair<double, double>>& corners,
                               const std::vector<double>& bulges = {})
{
    CVekVertexArray vl;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto& [x, y] = corners[(i + 1) % corners.size()];
        vl.append(line(corners[i].first, corners[i].second, x, y, i < bulges.size() ? bulges[i] : 0.0));
    }
    return vl;
}

inline CVekVertexArray rectangle(double x0, double y0, double x1, double y1)
{
    return polygon({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

inline CVekVertexArray circle(double x, double y, double r)
{
    return polygon({{x + r, y}, {x - r, y}}, {1.0, 1.0});
}

/// A regular polygon, its first corner on the x axis through the centre.
inline CVekVertexArray regular(int corners, double x, double y, double r)
{
    std::vector<std::pair<double, double>> points;
    for (int i = 0; i < corners; ++i)
        points.emplace_back(x + r * std::cos(2 * pi * i / corners), y + r * std::sin(2 * pi * i / corners));
    return polygon(points);
}

/// Polylines as a list, or contours as a region.
template <class List = std::initializer_list<CVekVertexArray>>
Polylines list(const List& polylines)
{
    Polylines array;
    for (const CVekVertexArray& vl : polylines)
        array.append(vl);
    return array;
}

inline CVekArrayTempl<double> numbers(const std::vector<double>& values)
{
    CVekArrayTempl<double> array;
    for (const double value : values)
        array.append(value);
    return array;
}

inline double lengthOf(const CVekVertexArray& vl)
{
    double sum = 0.0;
    for (const CVekVertex& vertex : vl)
        sum += vertex.bulgLen();
    return sum;
}

inline double lengthOf(const Polylines& vll)
{
    double sum = 0.0;
    for (const CVekVertexArray& vl : vll)
        sum += lengthOf(vl);
    return sum;
}

/// The point of a segment about z at a share of its length, by the angle between chord and secant.
inline CVekPoint3d pointAt(const CVekVertex& segment, double share)
{
    const CVekVector3d chord = segment.end - segment.start;
    const double half = 2.0 * std::atan(segment.bulge), turn = (1.0 - share) * half;
    if (half == 0.0)
        return segment.start + chord * share;
    const CVekVector3d secant = chord * std::cos(turn) - CVekVector3d::kZAxis * chord * std::sin(turn);
    return segment.start + secant * (std::sin(share * half) / std::sin(half));
}

/// The area seen from above, counter-clockwise positive, by Green's theorem over fine chords.
inline double areaOf(const CVekVertexArray& vl)
{
    const CVekPoint3dArray points = vl.pts(true, 1e-5);
    double twice = 0.0;
    for (int i = 1; i < points.len(); ++i)
        twice += points[i - 1][0] * points[i][1] - points[i][0] * points[i - 1][1];
    return 0.5 * twice;
}

/// Turns the normal of a polyline to its other side and leaves its shape.
inline CVekVertexArray& turnNormal(CVekVertexArray& vl)
{
    vl.setNormal(-vl.normal());
    for (CVekVertex& vertex : vl)
        vertex.bulge = 0.0 - vertex.bulge;
    return vl;
}

/// The same polyline about a normal that does not point down.
inline CVekVertexArray upright(CVekVertexArray vl)
{
    return vl.normal()[2] < 0.0 ? turnNormal(vl) : vl;
}

/// A source of random shapes that is the same in every build: the library's distributions differ between systems.
class Random
{
public:
    explicit Random(unsigned seed) : m_source(seed) {}

    /// From 0 up to `count` - 1.
    int whole(int count) { return static_cast<int>(m_source() % static_cast<unsigned>(count)); }
    double uniform(double from, double to)
    {
        return from + (to - from) * (static_cast<double>(m_source()) / 4294967296.0);
    }
    bool coin() { return whole(2) != 0; }
    double pick(std::initializer_list<double> values) { return values.begin()[whole(static_cast<int>(values.size()))]; }

    template <class List>
    void shuffle(List& list)
    {
        for (int i = static_cast<int>(list.size()) - 1; i > 0; --i)
            std::swap(list[static_cast<std::size_t>(i)], list[static_cast<std::size_t>(whole(i + 1))]);
    }

    /// A unit vector of any direction.
    CVekVector3d direction()
    {
        const double z = uniform(-1.0, 1.0), angle = uniform(0.0, 2 * pi), r = std::sqrt(1.0 - z * z);
        return {r * std::cos(angle), r * std::sin(angle), z};
    }

    /// A turn about any axis and a shift; a polyline's normal goes anywhere with it.
    CVekMatrix3d motion()
    {
        CVekMatrix3d turn, shift;
        const CVekVector3d axis = direction();
        turn.setToRotation(uniform(-pi, pi), axis, CVekPoint3d::kOrigin);
        return shift.setToTranslation(direction() * 10.0) * turn;
    }

    /// A turn by half a right angle about some level axis through the origin.
    CVekMatrix3d tilt()
    {
        CVekMatrix3d turn;
        return turn.setToRotation(pi / 4, VEK::polar(uniform(-pi, pi), 1.0), CVekPoint3d::kOrigin);
    }

    /// The same shape with its winding, its start and the side of its normal drawn anew.
    CVekVertexArray redrawn(CVekVertexArray contour)
    {
        CVekVertexArray vl;
        for (int i = 0, first = whole(std::max(1, contour.len())); i < contour.len(); ++i)
            vl.append(contour[(first + i) % contour.len()]);
        if (coin())
            vl.revert();
        if (coin())
            turnNormal(vl);
        return vl;
    }

    /// A star-shaped contour about a point, a third of its sides bent; it does not meet itself.
    CVekVertexArray star(double x, double y, double inner, double outer, int corners)
    {
        CVekVertexArray vl = regular(corners, x, y, 1.0);
        for (int i = 0; i < corners; ++i) {
            const CVekVector3d out = vl[i].start - CVekPoint3d(x, y, 0.0);
            vl[i].start += out * (uniform(inner, outer) - 1.0);
            vl[i - 1].end = vl[i].start;
        }
        for (CVekVertex& vertex : vl)
            vertex.bulge = whole(3) ? 0.0 : uniform(-0.6, 0.6);
        return redrawn(vl);
    }

    /// A walk of straight and bent segments within a square about the origin.
    CVekVertexArray walk(int count, double reach)
    {
        CVekVertexArray vl;
        CVekPoint3d at{uniform(-reach, reach), uniform(-reach, reach), 0};
        for (int i = 0; i < count; ++i) {
            const CVekPoint3d next{uniform(-reach, reach), uniform(-reach, reach), 0};
            vl.append(CVekVertex(at, next, coin() ? 0.0 : uniform(-1.5, 1.5)));
            at = next;
        }
        if (coin())
            turnNormal(vl);
        return vl;
    }

private:
    std::mt19937 m_source;
};

} // namespace shapes
