#include "surfaces/ellipse.h"

#include <cmath>
#include <numbers>

namespace VEK
{

SurfacePoint arcPoint(const SurfaceArc& arc, double parameter)
{
    const double c = std::cos(parameter), s = std::sin(parameter);
    return {arc.center.x + c * arc.u.x + s * arc.v.x, arc.center.y + c * arc.u.y + s * arc.v.y};
}

EllipseAxes axesOf(const SurfaceArc& arc)
{
    // The distance from the centre has its extremes where its derivative by the parameter is zero; this one is the
    // maximum.
    const SurfacePoint &u = arc.u, &v = arc.v;
    const double across = 2.0 * (u.x * v.x + u.y * v.y);
    const double along = u.x * u.x + u.y * u.y - v.x * v.x - v.y * v.y;
    EllipseAxes axes;
    axes.parameter = 0.5 * std::atan2(across, along);
    const SurfacePoint end = arcPoint({{}, u, v}, axes.parameter);
    const SurfacePoint side = arcPoint({{}, u, v}, axes.parameter + std::numbers::pi / 2.0);
    axes.longer = std::hypot(end.x, end.y);
    axes.shorter = std::hypot(side.x, side.y);
    axes.turn = axes.longer - axes.shorter > 1e-9 * axes.longer ? std::atan2(end.y, end.x) : 0.0;
    return axes;
}

} // namespace VEK
