/// The contours of a region, prepared for many searches.
#pragma once

#include "core/geometry/contour_chain.h"
#include "core/values/box_tree.h"
#include "core/values/crossing.h"

#include <cstdint>

namespace VEK::plane
{

/// The segments of contours in a box tree, a few per leaf. It keeps no reference to the polylines.
class ContourTree
{
public:
    /// Consecutive segments of one contour.
    struct Leaf {
        std::uint32_t first; ///< index of the first one's link
        std::uint32_t count;
        std::uint32_t contour;
    };

    /// Stays empty if a coordinate is not finite.
    ContourTree(const CVekVertexArray* contours, int count);

    bool isEmpty() const { return m_leaves.empty(); }
    bool hasOuter() const { return m_hasOuter; } ///< the first contour has a segment
    double tolerance() const { return m_tolerance; }
    const Box& box() const { return m_tree.all(); } ///< of all contours; there must be one
    Vec start(std::uint32_t link) const { return m_links[link].point; }
    Arc side(std::uint32_t link) const { return {m_links[link].point, m_links[link + 1].point, m_links[link].bulge}; }
    bool isStraight(std::uint32_t link) const { return m_links[link].bulge == 0.0; }

    /// Calls `found(leaf, box)` for every leaf whose box and the boxes above it pass `meets(box)`.
    template <class Meets, class Found>
    void visit(Meets&& meets, Found&& found) const
    {
        m_tree.visit(meets, [&](std::uint32_t place, const Box& box) { found(m_leaves[place], box); });
    }

    /// Calls `pass(point, positive)` for every crossing of a leaf's segments through the carrier; positive says to
    /// which side.
    /// @return the absolute value of the carrier's form at the vertex nearest to it
    template <class Pass>
    double visitPassages(const Leaf& leaf, const Carrier& carrier, Pass&& pass) const
    {
        const Link* link = &m_links[leaf.first];
        double behind = carrier(link->point);
        double nearest = std::fabs(behind);
        for (std::uint32_t i = 0; i < leaf.count; ++i, ++link) {
            const double before = behind;
            behind = carrier(link[1].point);
            nearest = std::min(nearest, std::fabs(behind));
            if (link->bulge == 0.0 && !carrier.bends()) {
                if ((before > 0.0) != (behind > 0.0))
                    pass(link->point + (link[1].point - link->point) * (before / (before - behind)), behind > 0.0);
                continue;
            }
            const Passages found = passages(carrier, link->point, link[1].point, link->bulge, before, behind);
            for (int k = 0; k < found.count; ++k)
                pass(Arc(link->point, link[1].point, link->bulge).at(found.t[k]), (before > 0.0) == (k == 1));
        }
        return nearest;
    }

    /// Calls `touch(contour)` for segments on which a point lies within the tolerance, once per leaf.
    template <class Touch>
    void visitTouched(Vec p, Touch&& touch) const
    {
        Box around{p, p};
        around.grow(m_tolerance);
        visit([&](const Box& box) { return box.meets(around); },
              [&](const Leaf& leaf, const Box&) {
                  for (std::uint32_t i = leaf.first; i < leaf.first + leaf.count; ++i) {
                      const Arc segment = side(i);
                      if (std::fabs(segment.offset(p)) <= m_tolerance &&
                          (segment.at(segment.parameter(p)) - p).abs() <= m_tolerance) {
                          touch(leaf.contour);
                          return;
                      }
                  }
              });
    }

private:
    void addLeaves(std::uint32_t first, std::uint32_t contour, std::vector<Box>& boxes);

    std::vector<Link> m_links;
    std::vector<Leaf> m_leaves; ///< in the order of the tree
    BoxTree m_tree;
    double m_tolerance = 0.0;
    bool m_hasOuter = false;
};

} // namespace VEK::plane
