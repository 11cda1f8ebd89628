#include "core/geometry/area.h"

#include <vek/geometry/region.h>

#include <cmath>

namespace VEK
{
namespace
{

/// Area between an arc and its chord of length 1, with the sign of the bulge.
double arcAreaOfUnitChord(double bulge)
{
    const double angle = 4.0 * std::atan(bulge);
    const double square = angle * angle;
    // Angle minus sine, by its series where the difference would cancel.
    const double difference = std::fabs(angle) < 0.5
                                  ? angle * square / 6.0 * (1.0 - square / 20.0 * (1.0 - square / 42.0))
                                  : angle - std::sin(angle);
    const double radius = (1.0 + bulge * bulge) / (4.0 * bulge);
    return 0.5 * radius * radius * difference;
}

} // namespace

double detail::signedArea(const CVekVertexArray& vl, const CVekVector3d& axis)
{
    if (vl.len() == 0)
        return 0.0;
    // Relative to a point of the polyline, so that a small one far from the origin keeps its precision.
    const CVekPoint3d origin = vl[0].start;
    CVekVector3d before, twice;
    double arcs = 0.0;
    for (const CVekVertex& vertex : vl) {
        const CVekVector3d start = vertex.start - origin;
        const CVekVector3d end = vertex.end - origin;
        twice = twice + before * start + start * end;
        before = end;
        if (vertex.bulge != 0.0) {
            const CVekVector3d chord = end - start;
            arcs += arcAreaOfUnitChord(vertex.bulge) * chord.dot(chord);
        }
    }
    return 0.5 * twice.dot(axis) + arcs * vl.normal().dot(axis);
}

bool g_vl_orient(const CVekVertexArray& vl, const CVekVector3d& axis)
{
    return detail::signedArea(vl, axis) > 0.0;
}

void regionOrient(CVekArrayTempl<CVekVertexArray>& region, const CVekVector3d& axis)
{
    for (CVekVertexArray& contour : region) {
        if (contour.isClosed() && !g_vl_orient(contour, axis))
            contour.revert();
    }
}

} // namespace VEK
