#include "core/geometry/contour_chain.h"

#include "core/values/stepping.h"

namespace VEK::plane
{

bool appendChain(std::vector<Link>& links, const CVekVertexArray& contour)
{
    const Levelled level(contour);
    const std::size_t first = links.size();
    const double turn = level->normal()[2] < 0.0 ? -1.0 : 1.0; // as in flatArc
    const auto add = [&](const CVekPoint3d& point, double bulge) {
        Link& link = links.emplace_back();
        link.point.x = point[0];
        link.point.y = point[1];
        link.bulge = bulge;
    };
    const auto same = [](const CVekPoint3d& a, const CVekPoint3d& b) {
        return (a[0] == b[0] && a[1] == b[1]) || meets(Vec{a[0], a[1]}, Vec{b[0], b[1]});
    };
    const CVekPoint3d* at = nullptr; // the last point so far
    const CVekPoint3d* start = nullptr;
    for (const CVekVertex& vertex : *level) {
        const double dx = vertex.end[0] - vertex.start[0], dy = vertex.end[1] - vertex.start[1];
        if (!std::isfinite(vertex.start[0] + vertex.start[1] + vertex.end[0] + vertex.end[1] + vertex.bulge))
            return false;
        if (!(dx * dx + dy * dy > 0.0))
            continue;
        if (!at) {
            start = at = &vertex.start;
        } else if (!same(*at, vertex.start)) {
            add(*at, 0.0);
            at = &vertex.start;
        }
        add(*at, turn * vertex.bulge);
        at = &vertex.end;
    }
    if (!at)
        return true;
    if (links.size() == first + 1 || !same(*at, *start))
        add(*at, 0.0);
    add(*start, 0.0);
    return true;
}

} // namespace VEK::plane
