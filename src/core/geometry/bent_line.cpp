#include "core/geometry/bent_line.h"

#include <algorithm>
#include <cmath>

namespace VEK::detail
{
namespace
{

using plane::Vec;

/// Two directions are the same within this angle.
constexpr double kSameAngle = 1e-9;

Vec flat(const CVekPoint3d& p)
{
    return {p[0], p[1]};
}

CVekPoint3d point(Vec p)
{
    return {p.x, p.y, 0.0};
}

Vec unit(Vec v)
{
    const double length = v.abs();
    return length > 0.0 ? v * (1.0 / length) : v;
}

/// The turn from one direction to another, positive counter-clockwise.
double turnBetween(Vec from, Vec to)
{
    return std::atan2(from.cross(to), from.dot(to));
}

void dropRepeated(Corners& corners, bool closed)
{
    const auto same = [](const Corner& a, const Corner& b) { return a.x == b.x && a.y == b.y; };
    corners.erase(std::unique(corners.begin(), corners.end(), same), corners.end());
    while (closed && corners.size() > 1 && same(corners.front(), corners.back()))
        corners.pop_back();
}

double turnAt(const Corners& corners, std::size_t i)
{
    const std::size_t count = corners.size();
    const Corner &before = corners[(i + count - 1) % count], &here = corners[i], &next = corners[(i + 1) % count];
    return turnBetween({here.x - before.x, here.y - before.y}, {next.x - here.x, next.y - here.y});
}

} // namespace

CVekVertexArray roundedLine(Corners corners, bool closed)
{
    struct Rounded {
        Vec in, out;
        double reach = 0.0, bulge = 0.0;
    };
    dropRepeated(corners, closed);
    const std::size_t count = corners.size();
    if (count < (closed ? 3u : 2u))
        return {};
    std::vector<Rounded> rounded;
    rounded.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const Corner& here = corners[i];
        if (!(here.radius >= 0.0) || !std::isfinite(here.radius) || !std::isfinite(here.x + here.y))
            return {};
        const Vec at{here.x, here.y};
        if (here.radius == 0.0 || (!closed && (i == 0 || i + 1 == count))) {
            rounded.push_back({at, at});
            continue;
        }
        const Corner &before = corners[(i + count - 1) % count], &next = corners[(i + 1) % count];
        const double turn = turnAt(corners, i);
        const double reach = here.radius * std::tan(0.5 * std::fabs(turn));
        rounded.push_back({at - unit({here.x - before.x, here.y - before.y}) * reach,
                           at + unit({next.x - here.x, next.y - here.y}) * reach, reach, std::tan(0.25 * turn)});
    }
    CVekVertexArray vl;
    for (std::size_t i = 0; i < count; ++i) {
        const Rounded& here = rounded[i];
        if (here.reach > 0.0)
            vl.append(CVekVertex(point(here.in), point(here.out), here.bulge));
        if (!closed && i + 1 == count)
            break;
        const Rounded& next = rounded[(i + 1) % count];
        const double side =
            Vec{corners[(i + 1) % count].x - corners[i].x, corners[(i + 1) % count].y - corners[i].y}.abs();
        const double straight = side - here.reach - next.reach;
        if (straight < -kSame * side)
            return {};
        if (straight > kSame * side)
            vl.append(CVekVertex(point(here.out), point(next.in)));
        else if (here.reach > 0.0) // the roundings meet in one point
            vl[-1].end = point(next.in);
    }
    return vl;
}

CVekVertexArray bentLine(Corners corners, double thickness)
{
    dropRepeated(corners, false);
    for (std::size_t i = 1; i + 1 < corners.size(); ++i)
        if (turnAt(corners, i) * thickness > 0.0)
            corners[i].radius += std::fabs(thickness);
    return roundedLine(std::move(corners), false);
}

CVekVertexArray parallelLine(const CVekVertexArray& line, double distance)
{
    CVekVertexArray vl;
    Vec direction;
    for (const CVekVertex& vertex : line) {
        const plane::Arc arc(flat(vertex.start), flat(vertex.end), vertex.bulge);
        if (arc.isPoint())
            continue;
        if (arc.isArc() && arc.radius() - (arc.sweep() > 0.0 ? distance : -distance) < -kSame * arc.radius())
            return {};
        const Vec leave = unit(arc.tangent(0.0)), arrive = unit(arc.tangent(1.0));
        CVekVertex moved(point(arc.start() + leave.left() * distance), point(arc.end() + arrive.left() * distance),
                         vertex.bulge);
        if (vl.len() > 0) {
            const double turn = turnBetween(direction, leave);
            if (std::fabs(turn) <= kSameAngle)
                moved.start = vl[-1].end;
            else if (turn * distance < 0.0)
                vl.append(CVekVertex(vl[-1].end, moved.start, std::tan(0.25 * turn)));
            else if (distance != 0.0)
                return {};
        }
        direction = arrive;
        if (moved.start.distanceTo(moved.end) > kSame * (arc.chordLength() + std::fabs(distance)))
            vl.append(moved);
    }
    return vl;
}

CVekVertexArray stripContour(const CVekVertexArray& line, const CVekVertexArray& parallel, double distance)
{
    CVekVertexArray contour = distance > 0.0 ? line : parallel;
    CVekVertexArray back = distance > 0.0 ? parallel : line;
    if (contour.len() == 0 || back.len() == 0)
        return {};
    back.revert();
    const CVekPoint3d first = contour[0].start;
    contour.append(CVekVertex(contour[-1].end, back[0].start));
    contour += back;
    contour.append(CVekVertex(contour[-1].end, first));
    return contour;
}

void appendArcs(CVekVertexArray& line, Vec from, Vec leave, Vec to, Vec arrive)
{
    // Both arcs get tangents of one length at their meeting point, which lies halfway between the tangents' other ends.
    const Vec way = to - from, both = leave + arrive;
    const double along = 2.0 * way.dot(both), a = 2.0 * (1.0 - leave.dot(arrive)), square = way.dot(way);
    const double reach = 2.0 * square / (along + std::sqrt(along * along + 4.0 * a * square));
    const Vec middle = (from + leave * reach + to - arrive * reach) * 0.5;
    line.append(CVekVertex(point(from), point(middle), std::tan(0.5 * turnBetween(leave, middle - from))));
    line.append(CVekVertex(point(middle), point(to), std::tan(0.5 * turnBetween(to - middle, arrive))));
}

} // namespace VEK::detail
