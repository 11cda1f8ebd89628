// The order of the items: sorting, and the order after a pick.
#include <vek/display/list.h>

#include "display/fetch.h"

namespace
{

/// The class of an item in the draw order, from 0 at the bottom.
unsigned char orderClass(const CVekDisplayItem& item)
{
    if (item.type == dispPicture)
        return 5;
    const bool region = item.type == dispRegion;
    switch (item.colorMode()) {
    case VEK::colorHighlight: return region ? 3 : 4;
    case VEK::colorRefer: return 2;
    default: return region ? 0 : 1;
    }
}

} // namespace

bool CVekDisplayList::append(const CVekArrayTempl<CVekDisplayItem>& items)
{
    const unsigned long shortages = VEK::memoryShortages();
    CVekArrayTempl<CVekDisplayItem>& own = settled();
    const int before = own.len();
    own += items;
    if (VEK::memoryShortages() == shortages)
        return true;
    own.setLogicalLength(before);
    return false;
}

bool CVekDisplayList::sort()
{
    if (m_isDown || m_isBackwards) { // no item was accessed since they were sorted
        m_isDown = false;
        return true;
    }
    m_first = {};
    bool sorted = true;
    unsigned char before = 0;
    for (const CVekDisplayItem& item : m_items) {
        const unsigned char itemClass = orderClass(item);
        sorted &= itemClass >= before;
        before = itemClass;
        ++m_first[itemClass + 1u];
    }
    for (std::size_t c = 1; c < m_first.size(); ++c)
        m_first[c] += m_first[c - 1];
    if (sorted)
        return true;
    CVekArrayTempl<int> place; // destination of each item
    if (!place.reserve(m_items.len()))
        return false;
    std::array<int, kClasses + 1> next = m_first;
    for (const CVekDisplayItem& item : m_items)
        place.append(next[orderClass(item)]++);
    for (int i = 0; i < m_items.len(); ++i) {
        while (place[i] != i) {
            const int to = place[i];
            std::swap(m_items[i], m_items[to]);
            std::swap(place[i], place[to]);
        }
    }
    return true;
}

void CVekDisplayList::settle() const
{
    if (m_isBackwards != m_isDown) {
        for (std::size_t c = 0; c < kClasses; ++c)
            std::reverse(m_items.begin() + m_first[c], m_items.begin() + m_first[c + 1]);
    }
    if (m_isDown)
        m_items.revert();
    m_isDown = m_isBackwards = false;
}

void CVekDisplayList::fetch(const CVekDisplayItem& item)
{
    VEK::fetchGeometry(item);
}
