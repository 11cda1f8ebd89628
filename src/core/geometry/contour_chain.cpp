#include "core/geometry/contour_chain.h"

#include "core/values/stepping.h"

namespace VEK::plane
{

bool appendChain(std::vector<Link>& links, const CVekVertexArray& contour)
{
    const Levelled level(contour);
    const std::size_t first = links.size();
    const double turn = level->normal()[2] < 0.0 ? -1.0 : 1.0; // as flatArc has it
    for (const CVekVertex& vertex : *level) {
        const Vec start{vertex.start[0], vertex.start[1]}, end{vertex.end[0], vertex.end[1]};
        if (!std::isfinite(start.x + start.y + end.x + end.y + vertex.bulge))
            return false;
        if (!((end - start).abs() > 0.0))
            continue;
        if (links.size() == first || !meets(links.back().point, start))
            links.push_back({start});
        links.back().bulge = turn * vertex.bulge;
        links.push_back({end});
    }
    if (links.size() == first)
        return true;
    const Vec start = links[first].point;
    if (meets(links.back().point, start) && links.size() > first + 2)
        links.back().point = start;
    else
        links.push_back({start});
    return true;
}

} // namespace VEK::plane
