#include "surfaces/reach.h"

#include <algorithm>

namespace VEK::reach
{
namespace
{

/// How far the point lies inside one of the four borders.
double inside(const SurfacePoint& p, int border)
{
    switch (border) {
    case 0: return kLimit - p.x;
    case 1: return kLimit + p.x;
    case 2: return kLimit - p.y;
    default: return kLimit + p.y;
    }
}

/// The point between a, inside, and b, outside, on the border.
SurfacePoint onBorder(const SurfacePoint& a, const SurfacePoint& b, int border)
{
    const double t = inside(a, border) / (inside(a, border) - inside(b, border));
    const double at = border % 2 == 0 ? kLimit : -kLimit;
    if (border < 2)
        return {at, a.y + (b.y - a.y) * t};
    return {a.x + (b.x - a.x) * t, at};
}

/// Reduces coordinates beyond 1e300, so that differences stay finite.
SurfacePoint bounded(const SurfacePoint& p)
{
    return {std::clamp(p.x, -1e300, 1e300), std::clamp(p.y, -1e300, 1e300)};
}

} // namespace

double clamped(double value)
{
    return std::isnan(value) ? 0.0 : std::clamp(value, -kLimit, kLimit);
}

bool cutSegment(SurfacePoint& from, SurfacePoint& to)
{
    if (!isFinite(from) || !isFinite(to))
        return false;
    from = bounded(from);
    to = bounded(to);
    for (int border = 0; border < 4; ++border) {
        const double a = inside(from, border);
        const double b = inside(to, border);
        if (a < 0.0 && b < 0.0)
            return false;
        if (b < 0.0)
            to = onBorder(from, to, border);
        else if (a < 0.0)
            from = onBorder(to, from, border);
    }
    from = {clamped(from.x), clamped(from.y)}; // in case rounding left them outside
    to = {clamped(to.x), clamped(to.y)};
    return true;
}

void cutPolygon(const SurfacePoint* points, int count, std::vector<SurfacePoint>& result)
{
    result.clear();
    for (int i = 0; i < count; ++i) {
        if (isFinite(points[i]))
            result.push_back(bounded(points[i]));
    }
    if (std::all_of(result.begin(), result.end(), holds))
        return;
    std::vector<SurfacePoint> whole;
    for (int border = 0; border < 4 && !result.empty(); ++border) {
        whole.swap(result);
        result.clear();
        SurfacePoint last = whole.back();
        for (const SurfacePoint& p : whole) {
            const double a = inside(last, border);
            const double b = inside(p, border);
            if ((a < 0.0) != (b < 0.0))
                result.push_back(a < 0.0 ? onBorder(p, last, border) : onBorder(last, p, border));
            if (b >= 0.0)
                result.push_back(p);
            last = p;
        }
    }
    for (SurfacePoint& p : result)
        p = {clamped(p.x), clamped(p.y)};
}

} // namespace VEK::reach
