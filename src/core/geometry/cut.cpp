#include "core/geometry/part.h"
#include "core/values/whole.h"

#include <vek/geometry/polyline.h>

#include <optional>

namespace VEK
{
namespace
{

/// A place on a polyline: a segment and the parameter along it.
struct Place {
    int index;
    double t;

    bool before(const Place& other) const { return index != other.index ? index < other.index : t < other.t; }
};

/// The first place at which a point lies on the polyline.
std::optional<Place> placeOf(const CVekVertexArray& vl, const CVekPoint3d& point)
{
    for (int i = 0; i < vl.len(); ++i) {
        const detail::Segment segment(vl[i], vl.normal());
        const double t = segment.parameter(point);
        if (plane::meets(point, segment.at(t)))
            return Place{i, t};
    }
    return {};
}

CVekVertexArray partOf(const CVekVertexArray& vl, const CVekPoint3d& from, const CVekPoint3d& to)
{
    CVekVertexArray cut;
    std::optional<Place> first = placeOf(vl, from);
    std::optional<Place> last = placeOf(vl, to);
    if (!first || !last || plane::meets(from, to))
        return cut;
    const CVekPoint3d* firstPoint = &from;
    const CVekPoint3d* lastPoint = &to;
    if (last->before(*first)) {
        std::swap(first, last);
        std::swap(firstPoint, lastPoint);
    }
    cut.setNormal(vl.normal());
    for (int i = first->index; i <= last->index; ++i) {
        const bool starts = i == first->index;
        const bool ends = i == last->index;
        CVekVertex part = detail::Segment(vl[i], vl.normal()).part(starts ? first->t : 0.0, ends ? last->t : 1.0);
        // Use the given points, so that parts cut at one point meet exactly.
        if (starts)
            part.start = *firstPoint;
        if (ends)
            part.end = *lastPoint;
        if ((starts || ends) && plane::meets(part.start, part.end) && std::fabs(part.bulge) < 1.0)
            continue;
        cut.append(part);
    }
    return cut;
}

} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand the polyline over by value
CVekVertexArray g_vl_cut(CVekVertexArray vl, const CVekPoint3d& from, const CVekPoint3d& to)
{
    return whole(CVekVertexArray(), [&] { return partOf(vl, from, to); });
}

} // namespace VEK
