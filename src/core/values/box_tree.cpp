#include "core/values/box_tree.h"

namespace VEK::plane
{
namespace
{

/// Spreads 16 bits to the even places of 32.
std::uint32_t spread(std::uint32_t bits)
{
    bits = (bits | bits << 8) & 0x00ff00ffu;
    bits = (bits | bits << 4) & 0x0f0f0f0fu;
    bits = (bits | bits << 2) & 0x33333333u;
    return (bits | bits << 1) & 0x55555555u;
}

/// The order of boxes along a curve that fills the plane.
std::vector<std::uint32_t> orderOf(const std::vector<Box>& boxes)
{
    Box all = boxes[0];
    for (const Box& box : boxes)
        all.add(box);
    const auto cell = [](double at, double from, double to) {
        const double place = (at - from) / (to - from) * 65535.0;
        return place > 0.0 ? static_cast<std::uint32_t>(std::min(place, 65535.0)) : 0u;
    };
    struct Key {
        std::uint32_t code;
        std::uint32_t box;
        bool operator<(const Key& other) const { return code < other.code; }
    };
    std::vector<Key> keys;
    keys.reserve(boxes.size());
    for (std::uint32_t i = 0; i < boxes.size(); ++i) {
        const Vec c = boxes[i].centre();
        keys.push_back({spread(cell(c.x, all.min.x, all.max.x)) | spread(cell(c.y, all.min.y, all.max.y)) << 1, i});
    }
    std::sort(keys.begin(), keys.end());
    std::vector<std::uint32_t> order;
    order.reserve(keys.size());
    for (const Key& key : keys)
        order.push_back(key.box);
    return order;
}

} // namespace

std::vector<std::uint32_t> BoxTree::build(std::vector<Box> boxes)
{
    m_boxes.clear();
    m_levels.clear();
    if (boxes.empty())
        return {};
    std::vector<std::uint32_t> order = orderOf(boxes);
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

} // namespace VEK::plane
