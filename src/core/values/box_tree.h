/// @file
/// A tree of boxes, which finds those near a place without looking at all of them.
#pragma once

#include "core/values/arc.h"

#include <cstdint>
#include <type_traits>
#include <vector>

namespace VEK::plane
{

struct Range {
    double low, high;
};

/// Boxes that are close together are stored next to one another, and every few of them have a common box above them.
/// The tree is a plain list of boxes: no pointers, one block of memory.
class BoxTree
{
public:
    /// Takes boxes, whose coordinates must be finite.
    /// @return their order in the tree: for each place the index that the box had. An owner that sorts the items of the
    /// boxes likewise has neighbours close together in memory
    std::vector<std::uint32_t> build(std::vector<Box> boxes);

    bool isEmpty() const { return m_boxes.empty(); }

    /// The box around all of them; there must be one.
    const Box& all() const { return m_boxes.back(); }

    /// Appends to ranges of a third coordinate, one for each box in the order of the tree, those of the boxes above
    /// them: then `visit` finds the range of each box under its number.
    void addRangesAbove(std::vector<Range>& ranges) const;

    /// Calls `found(place, box)` for every box that passes `meets(box)`, or `meets(box, number)`, together with those
    /// above it.
    /// @param first the place from which on boxes are visited
    template <class Meets, class Found>
    void visit(Meets&& meets, Found&& found, std::uint32_t first = 0) const
    {
        struct Node {
            std::uint32_t level, index;
        };
        const auto passes = [&](std::uint32_t number) {
            if constexpr (std::is_invocable_v<Meets&, const Box&, std::uint32_t>)
                return meets(m_boxes[number], number);
            else
                return meets(m_boxes[number]);
        };
        if (isEmpty() || !passes(static_cast<std::uint32_t>(m_boxes.size()) - 1))
            return;
        const std::uint32_t top = static_cast<std::uint32_t>(m_levels.size()) - 2;
        if (top == 0) {
            found(0u, all());
            return;
        }
        Node stack[64]; // sixteen levels with three pending nodes each
        int depth = 0;
        stack[depth++] = {top, 0};
        while (depth > 0) {
            const Node node = stack[--depth];
            const std::uint32_t level = node.level - 1;
            const std::uint32_t base = m_levels[level];
            std::uint32_t begin = node.index * kFanOut;
            const std::uint32_t end = std::min(begin + kFanOut, m_levels[node.level] - base);
            begin = std::max(begin, first >> level * kFanOutBits);
            if (level == 0) {
                for (std::uint32_t i = begin; i < end; ++i) {
                    if (passes(i))
                        found(i, m_boxes[i]);
                }
                continue;
            }
            for (std::uint32_t i = end; i-- > begin;) { // so that boxes are found in the order of the tree
                if (passes(base + i))
                    stack[depth++] = {level, i};
            }
        }
    }

private:
    static constexpr std::uint32_t kFanOutBits = 2;
    static constexpr std::uint32_t kFanOut = 1 << kFanOutBits;

    std::vector<Box> m_boxes;            ///< the given ones in their order, then those of each level above them
    std::vector<std::uint32_t> m_levels; ///< where each level begins in the boxes
};

} // namespace VEK::plane
