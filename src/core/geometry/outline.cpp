#include <vek/geometry/outline.h>

#include "core/geometry/bent_line.h"
#include "core/values/whole.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace VEK
{
namespace
{

using detail::Corner;
using detail::Corners;
using detail::kSame;

void append(CVekVertexArray& vl, double x0, double y0, double x1, double y1, double bulge = 0.0)
{
    vl.append(CVekVertex({x0, y0, 0.0}, {x1, y1, 0.0}, bulge));
}

/// The shape about the centre of its box.
CVekVertexArray centred(CVekVertexArray vl)
{
    CVekPoint3d min, max;
    if (vl.extents(min, max))
        vl.move((CVekPoint3d::kOrigin - min + (CVekPoint3d::kOrigin - max)) * 0.5);
    return vl;
}

/// The shape of counter-clockwise corners about the centre of their box.
CVekVertexArray cornered(Corners corners)
{
    double x0 = corners[0].x, x1 = x0, y0 = corners[0].y, y1 = y0;
    for (const Corner& c : corners) {
        x0 = std::min(x0, c.x), x1 = std::max(x1, c.x);
        y0 = std::min(y0, c.y), y1 = std::max(y1, c.y);
    }
    for (Corner& c : corners)
        c.x -= 0.5 * (x0 + x1), c.y -= 0.5 * (y0 + y1);
    return detail::roundedLine(std::move(corners), true);
}

/// A section bent from sheet, from the corners of one of its sides. Each is bent with the same inner radius.
CVekVertexArray bent(Corners corners, double thickness, double radius)
{
    for (Corner& c : corners)
        c.radius = radius;
    const CVekVertexArray line = detail::bentLine(std::move(corners), thickness);
    return centred(detail::stripContour(line, detail::parallelLine(line, thickness), thickness));
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

CVekVertexArray ellipse(double w, double h)
{
    if (w == h)
        return circle(w);
    constexpr int kSteps = 32;
    CVekVertexArray vl;
    const auto at = [&](double angle) { return plane::Vec{0.5 * w * std::cos(angle), 0.5 * h * std::sin(angle)}; };
    const auto along = [&](double angle) {
        const plane::Vec v{-w * std::sin(angle), h * std::cos(angle)};
        return v * (1.0 / v.abs());
    };
    for (int i = 0; i < kSteps; ++i) {
        const double from = 2.0 * std::numbers::pi * i / kSteps;
        const double to = 2.0 * std::numbers::pi * ((i + 1) % kSteps) / kSteps;
        detail::appendArcs(vl, at(from), along(from), at(to), along(to));
    }
    return vl;
}

/// A disc with a straight side on top; `height` is that from the side to the lowest point.
CVekVertexArray flattened(double diameter, double height)
{
    if (!(height < diameter))
        return {};
    CVekVertexArray vl;
    const double y = height - 0.5 * diameter;
    const double x = std::sqrt(height * (diameter - height));
    append(vl, x, y, -x, y);
    append(vl, -x, y, x, y, height / x);
    return vl;
}

CVekVertexArray flattenedTwice(double diameter, double w)
{
    if (!(w < diameter))
        return {};
    CVekVertexArray vl;
    const double y = 0.5 * w, x = 0.5 * std::sqrt((diameter - w) * (diameter + w));
    const double bulge = (0.5 * diameter - x) / y;
    append(vl, -x, -y, x, -y);
    append(vl, x, -y, x, y, bulge);
    append(vl, x, y, -x, y);
    append(vl, -x, y, -x, -y, bulge);
    return vl;
}

CVekVertexArray keyhole(double diameter, double w, double height)
{
    const double r = 0.5 * diameter, x = 0.5 * w;
    if (!(x < r))
        return {};
    const double neck = -std::sqrt((r - x) * (r + x)), low = r - height + x;
    if (!(low < neck))
        return {};
    CVekVertexArray vl;
    append(vl, x, low, x, neck);
    append(vl, x, neck, -x, neck, (r - neck) / x);
    append(vl, -x, neck, -x, low);
    append(vl, -x, low, x, low, 1.0);
    return vl;
}

/// A rectangle with an arc in place of its upper side, which rises above the corners.
CVekVertexArray arched(double w, double h, double rise)
{
    if (!(rise < h && 2.0 * rise <= w))
        return {};
    CVekVertexArray vl;
    const double x = 0.5 * w, y = 0.5 * h;
    append(vl, -x, -y, x, -y);
    append(vl, x, -y, x, y - rise);
    append(vl, x, y - rise, -x, y - rise, rise / x);
    append(vl, -x, y - rise, -x, -y);
    return vl;
}

CVekVertexArray notch(double w, double depth)
{
    const double x = 0.5 * w, top = 0.5 * depth, low = x - top;
    if (!(low < top))
        return {};
    CVekVertexArray vl;
    append(vl, x, low, x, top);
    append(vl, x, top, -x, top);
    append(vl, -x, top, -x, low);
    append(vl, -x, low, x, low, 1.0);
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

// The sections bent from sheet: t is the thickness of the sheet and r the inner radius of the bends; the corners are
// those of the outer side.

CVekVertexArray bentC(double w, double h, double lip, double t, double r)
{
    if (!(t < lip && 2.0 * lip < h))
        return {};
    return bent({{w, h - lip}, {w, h}, {0, h}, {0, 0}, {w, 0}, {w, lip}}, t, r);
}

CVekVertexArray bentZ(double w, double h, double lip, double t, double r)
{
    if (lip > 0.0 && !(t < lip && lip < h))
        return {};
    Corners corners{{2.0 * w - t, 0}, {w - t, 0}, {w - t, h - t}};
    if (lip > 0.0) {
        corners.insert(corners.begin(), {2.0 * w - t, lip});
        corners.insert(corners.end(), {{t, h - t}, {t, h - lip}});
    } else {
        corners.push_back({0, h - t});
    }
    return bent(std::move(corners), -t, r);
}

CVekVertexArray bentL(double w, double h, double lip, double t, double r)
{
    if (!(t < lip && lip < w - t && lip < h - t))
        return {};
    return bent({{lip, h}, {0, h}, {0, 0}, {w, 0}, {w, lip}}, t, r);
}

CVekVertexArray hat(double crown, double foot, double h, double brim, double t, double r)
{
    const double top = 0.5 * crown, low = 0.5 * foot, side = low + brim;
    if (!(2.0 * t < std::min(crown, foot) && t < h))
        return {};
    return bent({{-side, t}, {-low, t}, {-top, h}, {top, h}, {low, t}, {side, t}}, -t, r);
}

/// A row of the table of kinds. One letter per parameter: '+' above 0, '0' at least 0, '*' any number, 'x' and 'y' of
/// either sign but not 0: the shape is made with the absolute value, and a negative one mirrors it, x at the y axis and
/// y at the x axis. A hollow shape has its hole as well, which starts near the start of the shape.
struct Kind {
    const char* rules;
    CVekVertexArray (*make)(const double* p);
    CVekVertexArray (*hole)(const double* p) = nullptr;
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
    {"++", [](const double* p) { return ellipse(p[0], p[1]); }},
    {"++", [](const double* p) { return circle(p[0]); },
     [](const double* p) { return 2.0 * p[1] < p[0] ? circle(p[0] - 2.0 * p[1]) : CVekVertexArray(); }},
    {"+++0", [](const double* p) { return rectangle(p[0], p[1], p[3]); },
     [](const double* p) {
         const double w = p[0] - 2.0 * p[2], h = p[1] - 2.0 * p[2];
         return w > 0.0 && h > 0.0 ? rectangle(w, h, std::max(0.0, p[3] - p[2])) : CVekVertexArray();
     }},
    {"x++00",
     [](const double* p) {
         const double w = p[0], h = p[1], t = p[2], root = p[3], toe = p[4];
         return t < std::min(w, h) ? cornered({{0, 0}, {w, 0}, {w, t, toe}, {t, t, root}, {t, h, toe}, {0, h}})
                                   : CVekVertexArray();
     }},
    {"x++0",
     [](const double* p) {
         return bent({{0, p[1]}, {0, 0}, {p[0], 0}}, p[2], p[3]);
     }},
    {"x++0",
     [](const double* p) {
         const double w = p[0], h = p[1];
         return 2.0 * p[2] < h ? bent({{w, h}, {0, h}, {0, 0}, {w, 0}}, p[2], p[3]) : CVekVertexArray();
     }},
    {"x++0", [](const double* p) { return bentZ(p[0], p[1], 0.0, p[2], p[3]); }},
    {"x+++0", [](const double* p) { return bentC(p[0], p[1], p[2], p[3], p[4]); }},
    {"x+++0", [](const double* p) { return bentZ(p[0], p[1], p[2], p[3], p[4]); }},
    {"x+++0", [](const double* p) { return bentL(p[0], p[1], p[2], p[3], p[4]); }},
    {"++++0", [](const double* p) { return hat(p[0], p[0], p[1], p[2], p[3], p[4]); }},
    {"+++++0", [](const double* p) { return hat(p[0], p[1], p[2], p[3], p[4], p[5]); }},
    {"++",
     [](const double* p) {
         return centred({CVekVertex({0.0, 0.0, 0.0}, {p[0], 0.0, 0.0}),
                         CVekVertex({p[0], 0.0, 0.0}, {0.0, 0.0, 0.0}, 2.0 * p[1] / p[0])});
     }},
    {"++", [](const double* p) { return flattened(p[0], p[1]); }},
    {"++", [](const double* p) { return flattenedTwice(p[0], p[1]); }},
    {"+++", [](const double* p) { return keyhole(p[0], p[1], p[2]); }},
    {"++", [](const double* p) { return notch(p[0], p[1]); }},
    {"+++", [](const double* p) { return arched(p[0], p[1], p[2]); }},
    {"+++",
     [](const double* p) {
         const double w = p[0], h = p[1], eaves = p[1] - p[2];
         return eaves > 0.0 ? cornered({{0, 0}, {w, 0}, {w, eaves}, {0.5 * w, h}, {0, eaves}}) : CVekVertexArray();
     }},
};

constexpr int kMostParameters = 6;

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

void mirror(CVekVertexArray& vl, double x, double y)
{
    for (CVekVertex& vertex : vl) {
        vertex.start.set(vertex.start[0] * x, vertex.start[1] * y, 0.0);
        vertex.end.set(vertex.end[0] * x, vertex.end[1] * y, 0.0);
        vertex.bulge = -vertex.bulge;
    }
    vl.revert();
}

static_assert(std::size(kKinds) == outlineKinds);

} // namespace

CVekArrayTempl<CVekVertexArray> g_outline_region(int kind, const CVekVector3d& offset,
                                                 const CVekArrayTempl<double>& parameters)
{
    using Contours = CVekArrayTempl<CVekVertexArray>;
    if (kind < 1 || kind > outlineKinds)
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
    return whole(Contours(), [&] {
        Contours contours;
        contours.append(row.make(values));
        if (row.hole)
            contours.append(row.hole(values));
        for (CVekVertexArray& vl : contours) {
            if (vl.len() == 0)
                return Contours();
            if (mirrorX * mirrorY < 0.0)
                mirror(vl, mirrorX, mirrorY);
            vl.move(offset);
        }
        return contours;
    });
}

CVekVertexArray g_outline(int kind, const CVekVector3d& offset, const CVekArrayTempl<double>& parameters)
{
    return whole(CVekVertexArray(), [&] {
        CVekArrayTempl<CVekVertexArray> contours = g_outline_region(kind, offset, parameters);
        if (contours.len() == 0)
            return CVekVertexArray();
        CVekVertexArray& vl = contours[0];
        if (contours.len() > 1) {
            CVekVertexArray& hole = contours[1];
            const CVekVertex seam(vl[0].start, hole[0].start);
            vl.append(seam);
            vl += hole.revert();
            vl.append(CVekVertex(seam.end, seam.start));
        }
        return std::move(vl);
    });
}

} // namespace VEK
