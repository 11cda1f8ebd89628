#include "core/values/box_tree.h"

namespace VEK::plane
{
namespace
{

struct Item {
    Vec centre;
    std::uint32_t box;
};

/// Partitions items by position, recursively, so that those under one node of the tree are close together.
/// @param most number of items under a node at the level below that of all these
void sortByPlace(Item* first, Item* last, std::ptrdiff_t most, std::ptrdiff_t fanOut)
{
    while (most > 1 && last - first > fanOut) { // their order under one node does not matter
        if (last - first <= most) {
            most /= fanOut;
            continue;
        }
        Box all{first->centre, first->centre};
        for (const Item* item = first; item != last; ++item)
            all.add(item->centre);
        // In the middle, at a boundary between two nodes.
        Item* const middle = first + ((last - first) / most + 1) / 2 * most;
        if (all.max.x - all.min.x > all.max.y - all.min.y)
            std::nth_element(first, middle, last, [](const Item& a, const Item& b) { return a.centre.x < b.centre.x; });
        else
            std::nth_element(first, middle, last, [](const Item& a, const Item& b) { return a.centre.y < b.centre.y; });
        sortByPlace(first, middle, most, fanOut);
        first = middle;
    }
}

} // namespace

std::vector<std::uint32_t> BoxTree::build(std::vector<Box> boxes)
{
    m_boxes.clear();
    m_levels.clear();
    if (boxes.empty())
        return {};
    std::vector<Item> items;
    items.reserve(boxes.size());
    for (const Box& box : boxes)
        items.push_back({box.centre(), static_cast<std::uint32_t>(items.size())});
    std::ptrdiff_t most = 1;
    while (most * kFanOut < static_cast<std::ptrdiff_t>(items.size()))
        most *= kFanOut;
    sortByPlace(items.data(), items.data() + items.size(), most, kFanOut);
    std::vector<std::uint32_t> order;
    order.reserve(items.size());
    for (const Item& item : items)
        order.push_back(item.box);
    m_boxes.reserve(boxes.size() * 4 / 3 + 16);
    for (const std::uint32_t i : order)
        m_boxes.push_back(boxes[i]);
    std::uint32_t begin = 0;
    std::uint32_t count = static_cast<std::uint32_t>(m_boxes.size());
    m_levels = {0, count};
    while (count > 1) {
        for (std::uint32_t i = 0; i < count; i += kFanOut) {
            Box box = m_boxes[begin + i];
            for (std::uint32_t k = 1; k < std::min(kFanOut, count - i); ++k)
                box.add(m_boxes[begin + i + k]);
            m_boxes.push_back(box);
        }
        begin += count;
        count = (count + kFanOut - 1) / kFanOut;
        m_levels.push_back(begin + count);
    }
    return order;
}

void BoxTree::addRangesAbove(std::vector<Range>& ranges) const
{
    for (std::size_t level = 0; level + 2 < m_levels.size(); ++level) {
        for (std::uint32_t i = m_levels[level]; i < m_levels[level + 1]; i += kFanOut) {
            Range all = ranges[i];
            for (std::uint32_t k = i + 1; k < std::min(i + kFanOut, m_levels[level + 1]); ++k)
                all = {std::min(all.low, ranges[k].low), std::max(all.high, ranges[k].high)};
            ranges.push_back(all);
        }
    }
}

} // namespace VEK::plane
