/// When points count as one.
#pragma once

#include <vek/values/point.h>
#include <vek/values/tolerance.h>

#include <algorithm>
#include <cmath>

namespace VEK::detail
{

/// The point tolerance where a point lies.
inline double tolAt(const CVekPoint3d& p)
{
    return pointTol(std::max(std::fabs(p[0]), std::max(std::fabs(p[1]), std::fabs(p[2]))));
}

/// Whether two points count as one.
inline bool meets(const CVekPoint3d& a, const CVekPoint3d& b)
{
    const CVekVector3d d = a - b;
    const double tol = tolAt(a);
    return d.dot(d) <= tol * tol;
}

} // namespace VEK::detail
