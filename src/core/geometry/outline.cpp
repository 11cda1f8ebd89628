#include <vek/geometry/outline.h>

#include "core/values/whole.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace VEK
{
namespace
{

/// A corner of a closed shape, with the radius by which it is rounded.
struct Corner {
    double x, y;
    double radius = 0.0;
};

using Corners = std::vector<Corner>;

/// Lengths are equal within this relative difference.
constexpr double kSame = 1e-12;

void append(CVekVertexArray& vl, double x0, double y0, double x1, double y1, double bulge = 0.0)
{
    vl.append(CVekVertex({x0, y0, 0.0}, {x1, y1, 0.0}, bulge));
}

/// The shape of counter-clockwise corners about the centre of its box. Corners that coincide with the previous one are
/// left out; empty if fewer than three remain or a corner radius does not fit.
CVekVertexArray cornered(Corners corners)
{
    struct Rounded {
        CVekPoint3d in, out;
        double reach, bulge;
    };
    const auto same = [](const Corner& a, const Corner& b) { return a.x == b.x && a.y == b.y; };
    corners.erase(std::unique(corners.begin(), corners.end(), same), corners.end());
    while (corners.size() > 1 && same(corners.front(), corners.back()))
        corners.pop_back();
    const std::size_t count = corners.size();
    if (count < 3)
        return {};
    CVekPoint3d min(corners[0].x, corners[0].y, 0.0), max = min;
    for (const Corner& c : corners) {
        min = p_min(min, {c.x, c.y, 0.0});
        max = p_max(max, {c.x, c.y, 0.0});
    }
    const CVekVector3d middle((min[0] + max[0]) * 0.5, (min[1] + max[1]) * 0.5, 0.0);
    std::vector<Rounded> rounded;
    rounded.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Corner& before = corners[(i + count - 1) % count];
        const Corner& here = corners[i];
        const Corner& next = corners[(i + 1) % count];
        CVekVector3d in(here.x - before.x, here.y - before.y, 0.0);
        CVekVector3d out(next.x - here.x, next.y - here.y, 0.0);
        in.normalize();
        out.normalize();
        const double turn = std::atan2((in * out)[2], in.dot(out));
        const double reach = here.radius * std::tan(0.5 * std::fabs(turn));
        const CVekPoint3d at = CVekPoint3d(here.x, here.y, 0.0) - middle;
        rounded.push_back({at - in * reach, at + out * reach, reach, std::tan(0.25 * turn)});
    }
    CVekVertexArray vl;
    for (std::size_t i = 0; i < count; ++i) {
        const Rounded& here = rounded[i];
        const Rounded& next = rounded[(i + 1) % count];
        const double dx = corners[(i + 1) % count].x - corners[i].x;
        const double dy = corners[(i + 1) % count].y - corners[i].y;
        const double side = std::sqrt(dx * dx + dy * dy);
        const double straight = side - here.reach - next.reach;
        if (straight < -kSame * side)
            return {};
        if (here.reach > 0.0)
            vl.append(CVekVertex(here.in, here.out, here.bulge));
        if (straight > kSame * side)
            vl.append(CVekVertex(here.out, next.in));
        else if (here.reach > 0.0) // the roundings meet in one point
            vl[-1].end = next.in;
    }
    return vl;
}

CVekVertexArray regular(int corners, double acrossFlats, double firstAngle)
{
    const double radius = 0.5 * acrossFlats / std::cos(std::numbers::pi / corners);
    Corners shape;
    for (int i = 0; i < corners; ++i) {
        const CVekVector3d v = polar(firstAngle + 2.0 * std::numbers::pi * i / corners, radius);
        shape.push_back({v[0], v[1]});
    }
    return cornered(shape);
}

CVekVertexArray circle(double diameter)
{
    CVekVertexArray vl;
    const double r = 0.5 * diameter;
    append(vl, r, 0.0, -r, 0.0, 1.0);
    append(vl, -r, 0.0, r, 0.0, 1.0);
    return vl;
}

CVekVertexArray slot(double length, double width)
{
    if (!(length > width * (1.0 + kSame)))
        return length >= width ? circle(width) : CVekVertexArray();
    CVekVertexArray vl;
    const double r = 0.5 * width;
    const double x = 0.5 * length - r;
    append(vl, -x, -r, x, -r);
    append(vl, x, -r, x, r, 1.0);
    append(vl, x, r, -x, r);
    append(vl, -x, r, -x, -r, 1.0);
    return vl;
}

CVekVertexArray ringSector(double outer, double inner, double degrees)
{
    CVekVertexArray vl;
    if (!(outer > inner) || !(degrees < 360.0))
        return vl;
    const double angle = degrees * std::numbers::pi / 180.0;
    const int arcs = degrees > 180.0 ? 2 : 1;
    const double bulge = std::tan(0.25 * angle / arcs);
    const CVekVector3d middle = polar(0.5 * angle, 1.0);
    const CVekVector3d last = polar(angle, 1.0);
    const CVekVector3d first(1.0, 0.0, 0.0);
    const auto arc = [&](double radius, const CVekVector3d& from, const CVekVector3d& to, double sign) {
        if (arcs == 2)
            vl.append(CVekVertex((from * radius).asPoint(), (middle * radius).asPoint(), sign * bulge));
        const CVekVector3d& start = arcs == 2 ? middle : from;
        vl.append(CVekVertex((start * radius).asPoint(), (to * radius).asPoint(), sign * bulge));
    };
    arc(outer, first, last, 1.0);
    vl.append(CVekVertex((last * outer).asPoint(), (last * inner).asPoint()));
    if (inner > 0.0)
        arc(inner, last, first, -1.0);
    vl.append(CVekVertex((first * inner).asPoint(), (first * outer).asPoint()));
    return vl;
}

CVekVertexArray quarterDisc(double r)
{
    CVekVertexArray vl;
    append(vl, 0.0, 0.0, r, 0.0);
    append(vl, r, 0.0, 0.0, r, std::tan(std::numbers::pi / 8.0));
    append(vl, 0.0, r, 0.0, 0.0);
    return vl;
}

CVekVertexArray halfDisc(double diameter)
{
    CVekVertexArray vl;
    const double r = 0.5 * diameter;
    append(vl, -r, 0.0, r, 0.0);
    append(vl, r, 0.0, -r, 0.0, 1.0);
    return vl;
}

CVekVertexArray rectangle(double w, double h, double radius)
{
    return cornered({{0, 0, radius}, {w, 0, radius}, {w, h, radius}, {0, h, radius}});
}

CVekVertexArray chamfered(double w, double h, double c)
{
    if (2.0 * c > std::min(w, h))
        return {};
    return cornered({{c, 0}, {w - c, 0}, {w, c}, {w, h - c}, {w - c, h}, {c, h}, {0, h - c}, {0, c}});
}

// The profiles: w and h are width and height of the box, s and t the thickness of vertical and horizontal parts, r the
// fillet.

CVekVertexArray profileL(double w, double h, double s, double t, double r)
{
    if (!(s < w && t < h))
        return {};
    return cornered({{0, 0}, {w, 0}, {w, t}, {s, t, r}, {s, h}, {0, h}});
}

CVekVertexArray profileT(double w, double h, double s, double t, double r)
{
    if (!(s < w && t < h))
        return {};
    const double left = 0.5 * (w - s), right = 0.5 * (w + s);
    return cornered(
        {{left, 0}, {right, 0}, {right, h - t, r}, {w, h - t}, {w, h}, {0, h}, {0, h - t}, {left, h - t, r}});
}

CVekVertexArray profileI(double w, double h, double s, double t, double r)
{
    if (!(s < w && 2.0 * t < h))
        return {};
    const double left = 0.5 * (w - s), right = 0.5 * (w + s);
    return cornered({{0, 0},
                     {w, 0},
                     {w, t},
                     {right, t, r},
                     {right, h - t, r},
                     {w, h - t},
                     {w, h},
                     {0, h},
                     {0, h - t},
                     {left, h - t, r},
                     {left, t, r},
                     {0, t}});
}

CVekVertexArray profileU(double w, double h, double s, double t, double r)
{
    if (!(s < w && 2.0 * t < h))
        return {};
    return cornered({{0, 0}, {w, 0}, {w, t}, {s, t, r}, {s, h - t, r}, {w, h - t}, {w, h}, {0, h}});
}

CVekVertexArray profileZ(double w, double h, double s, double t, double r)
{
    if (!(s < w && 2.0 * t < h))
        return {};
    const double right = 2.0 * w - s;
    return cornered({{w - s, 0}, {right, 0}, {right, t}, {w, t, r}, {w, h}, {0, h}, {0, h - t}, {w - s, h - t, r}});
}

CVekVertexArray profileC(double w, double h, double t, double lip)
{
    if (!(2.0 * t < w && 2.0 * lip < h && t < lip))
        return {};
    return cornered({{0, 0},
                     {w, 0},
                     {w, lip},
                     {w - t, lip},
                     {w - t, t},
                     {t, t},
                     {t, h - t},
                     {w - t, h - t},
                     {w - t, h - lip},
                     {w, h - lip},
                     {w, h},
                     {0, h}});
}

CVekVertexArray cross(double w, double h, double s, double t)
{
    if (!(s < w && t < h))
        return {};
    const double left = 0.5 * (w - s), right = 0.5 * (w + s);
    const double low = 0.5 * (h - t), high = 0.5 * (h + t);
    return cornered({{left, 0},
                     {right, 0},
                     {right, low},
                     {w, low},
                     {w, high},
                     {right, high},
                     {right, h},
                     {left, h},
                     {left, high},
                     {0, high},
                     {0, low},
                     {left, low}});
}

/// A row of the table of kinds. One letter per parameter: '+' above 0, '0' at least 0, '*' any number, 'x' and 'y' of
/// either sign but not 0: the shape is made with the absolute value, and a negative one mirrors it, x at the y axis and
/// y at the x axis.
struct Kind {
    const char* rules;
    CVekVertexArray (*make)(const double* p);
};

const Kind kKinds[] = {
    {"+", [](const double* p) { return circle(p[0]); }},
    {"++", [](const double* p) { return rectangle(p[0], p[1], 0.0); }},
    {"+", [](const double* p) { return rectangle(p[0], p[0], 0.0); }},
    {"++0", [](const double* p) { return rectangle(p[0], p[1], p[2]); }},
    {"++0", [](const double* p) { return chamfered(p[0], p[1], p[2]); }},
    {"++", [](const double* p) { return slot(p[0], p[1]); }},
    {"+", [](const double* p) { return regular(6, p[0], 0.0); }},
    {"+", [](const double* p) { return regular(8, p[0], std::numbers::pi / 8.0); }},
    {"++",
     [](const double* p) {
         return cornered({{0, 0}, {p[0], 0}, {0.5 * p[0], p[1]}});
     }},
    {"x+",
     [](const double* p) {
         return cornered({{0, 0}, {p[0], 0}, {0, p[1]}});
     }},
    {"00+",
     [](const double* p) {
         return cornered({{-0.5 * p[0], 0}, {0.5 * p[0], 0}, {0.5 * p[1], p[2]}, {-0.5 * p[1], p[2]}});
     }},
    {"++*",
     [](const double* p) {
         return cornered({{0, 0}, {p[0], 0}, {p[0] + p[2], p[1]}, {p[2], p[1]}});
     }},
    {"x+++0", [](const double* p) { return profileL(p[0], p[1], p[2], p[3], p[4]); }},
    {"++++0", [](const double* p) { return profileT(p[0], p[1], p[2], p[3], p[4]); }},
    {"++++0", [](const double* p) { return profileI(p[0], p[1], p[2], p[3], p[4]); }},
    {"x+++0", [](const double* p) { return profileU(p[0], p[1], p[2], p[3], p[4]); }},
    {"x+++0", [](const double* p) { return profileZ(p[0], p[1], p[2], p[3], p[4]); }},
    {"++++", [](const double* p) { return profileC(p[0], p[1], p[2], p[3]); }},
    {"++++", [](const double* p) { return cross(p[0], p[1], p[2], p[3]); }},
    {"+", [](const double* p) { return quarterDisc(p[0]); }},
    {"+0y", [](const double* p) { return ringSector(p[0], p[1], p[2]); }},
    {"y", [](const double* p) { return halfDisc(p[0]); }},
};

constexpr int kMostParameters = 5;

/// Whether a parameter is valid by the letter of its rule.
bool fits(char rule, double value)
{
    if (!std::isfinite(value))
        return false;
    switch (rule) {
    case '+': return value > 0.0;
    case '0': return value >= 0.0;
    case '*': return true;
    default: return value != 0.0;
    }
}

} // namespace

CVekVertexArray g_outline(int kind, const CVekVector3d& offset, const CVekArrayTempl<double>& parameters)
{
    if (kind < 1 || kind > static_cast<int>(std::size(kKinds)))
        return {};
    const Kind& row = kKinds[kind - 1];
    double values[kMostParameters] = {};
    double mirrorX = 1.0, mirrorY = 1.0;
    for (int i = 0; row.rules[i]; ++i) {
        const char rule = row.rules[i];
        if (i >= parameters.len() || !fits(rule, parameters[i]))
            return {};
        const bool mirrors = parameters[i] < 0.0 && (rule == 'x' || rule == 'y');
        (rule == 'x' ? mirrorX : mirrorY) *= mirrors ? -1.0 : 1.0;
        values[i] = mirrors ? -parameters[i] : parameters[i];
    }
    return whole(CVekVertexArray(), [&] {
        CVekVertexArray vl = row.make(values);
        if (mirrorX * mirrorY < 0.0) {
            for (CVekVertex& vertex : vl) {
                vertex.start.set(vertex.start[0] * mirrorX, vertex.start[1] * mirrorY, 0.0);
                vertex.end.set(vertex.end[0] * mirrorX, vertex.end[1] * mirrorY, 0.0);
                vertex.bulge = -vertex.bulge;
            }
            vl.revert();
        }
        vl.move(offset);
        return vl;
    });
}

} // namespace VEK
