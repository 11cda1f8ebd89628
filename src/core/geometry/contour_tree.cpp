#include "core/geometry/contour_tree.h"

#include <vek/values/tolerance.h>

namespace VEK::plane
{
namespace
{

constexpr std::uint32_t kLeafSegments = 8;

/// Adds a box around an arc; up to a half circle it is not the tight one, which costs more.
void addArc(Box& box, Vec start, Vec end, double bulge)
{
    Box arc{start, start};
    arc.add(end);
    if (std::fabs(bulge) <= 1.0)
        arc.grow(0.5 * std::fabs(bulge) * (end - start).abs());
    else
        arc = Arc(start, end, bulge).box();
    box.add(arc);
}

} // namespace

ContourTree::ContourTree(const CVekVertexArray* contours, int count)
{
    std::size_t links = 0;
    for (int i = 0; i < count; ++i)
        links += static_cast<std::size_t>(contours[i].len()) + 2;
    std::vector<Box> boxes;
    m_links.reserve(links);
    m_leaves.reserve(links / kLeafSegments + static_cast<std::size_t>(count));
    boxes.reserve(m_leaves.capacity());
    for (int i = 0; i < count; ++i) {
        const std::uint32_t first = static_cast<std::uint32_t>(m_links.size());
        if (!appendChain(m_links, contours[i])) {
            m_leaves.clear();
            return;
        }
        if (m_links.size() > first)
            addLeaves(first, static_cast<std::uint32_t>(i), boxes);
    }
    m_hasOuter = !m_leaves.empty() && m_leaves[0].contour == 0;
    double size = 0.0;
    for (const Link& link : m_links)
        size = std::max(size, std::max(std::fabs(link.point.x), std::fabs(link.point.y)));
    m_tolerance = pointTol(size);

    std::vector<Leaf> leaves;
    leaves.reserve(m_leaves.size());
    for (const std::uint32_t i : m_tree.build(std::move(boxes)))
        leaves.push_back(m_leaves[i]);
    m_leaves.swap(leaves);
}

void ContourTree::addLeaves(std::uint32_t first, std::uint32_t contour, std::vector<Box>& boxes)
{
    const std::uint32_t last = static_cast<std::uint32_t>(m_links.size()) - 1;
    // Short contours get at least four leaves: one box would say nothing about where their sides run.
    const std::uint32_t most = std::clamp((last - first) / 4, 1u, kLeafSegments);
    for (; first < last; first += most) {
        const Leaf leaf{first, std::min(most, last - first), contour};
        Box box{m_links[first].point, m_links[first].point};
        for (std::uint32_t i = first; i < first + leaf.count; ++i) {
            box.add(m_links[i + 1].point);
            if (m_links[i].bulge != 0.0)
                addArc(box, m_links[i].point, m_links[i + 1].point, m_links[i].bulge);
        }
        m_leaves.push_back(leaf);
        boxes.push_back(box);
    }
}

} // namespace VEK::plane
