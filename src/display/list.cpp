// The order of the items: sorting, and the order after a pick.
#include <vek/display/list.h>

#include "display/fetch.h"

#include <vek/values/memory.h>

#include <algorithm>
#include <cstring>
#include <numeric>

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

/// Moves each item once, as bytes, to the place at which its number stands; the numbers are used up.
void permute(CVekDisplayItem* items, CVekArrayTempl<int>& numbers)
{
    static_assert(kVekMovesAsBytes<CVekDisplayItem>);
    const auto move = [](void* to, const void* from) { std::memcpy(to, from, sizeof(CVekDisplayItem)); };
    alignas(CVekDisplayItem) unsigned char held[sizeof(CVekDisplayItem)];
    int* const from = numbers.begin();
    for (int first = 0; first < numbers.len(); ++first) {
        if (from[first] == first)
            continue;
        move(held, items + first);
        int to = first;
        while (from[to] != first) {
            move(items + to, items + from[to]);
            to = std::exchange(from[to], to);
        }
        move(items + to, held);
        from[to] = to;
    }
}

} // namespace

bool CVekDisplayList::append(const CVekArrayTempl<CVekDisplayItem>& items)
{
    const unsigned long shortages = VEK::memoryShortages();
    CVekArrayTempl<CVekDisplayItem>& own = changeable();
    const int before = own.len();
    own += items;
    if (VEK::memoryShortages() == shortages)
        return true;
    own.setLogicalLength(before);
    return false;
}

int CVekDisplayList::setLogicalLength(int length)
{
    if (length <= 0) { // no order to keep
        m_numbers.setLogicalLength(0);
        m_isMirrored = m_isReversed = false;
    }
    return changeable().setLogicalLength(length);
}

int CVekDisplayList::orderedNumber(int position) const
{
    int at = m_isReversed ? len() - 1 - position : position;
    if (m_isMirrored) {
        std::size_t c = 0;
        for (std::size_t next = 1; next < kClasses; ++next)
            c += at >= m_first[next];
        at = m_first[c] + m_first[c + 1] - 1 - at;
    }
    return m_numbers.len() > 0 ? m_numbers.begin()[at] : at;
}

/// Has the numbers themselves in the present order.
void CVekDisplayList::turnNumbers() const
{
    if (m_isMirrored) {
        for (std::size_t c = 0; c < kClasses; ++c)
            std::reverse(m_numbers.begin() + m_first[c], m_numbers.begin() + m_first[c + 1]);
    }
    if (m_isReversed)
        std::reverse(m_numbers.begin(), m_numbers.end());
    m_isMirrored = m_isReversed = false;
}

/// The same where the order is that in which the items are stored but for its direction.
/// @return false, with the list unchanged, when memory runs out
bool CVekDisplayList::numberAll()
{
    if (m_numbers.len() == 0 && len() > 0) {
        if (!m_numbers.reserveExactly(len()))
            return false;
        m_numbers.setLogicalLength(len());
        std::iota(m_numbers.begin(), m_numbers.end(), 0);
    }
    turnNumbers();
    return true;
}

bool CVekDisplayList::sort()
{
    if (m_isClassed) { // sorting what is reversed leaves each class reversed
        m_isMirrored = m_isMirrored != m_isReversed;
        m_isReversed = false;
        if (m_isShown)
            settled();
        return true;
    }
    if ((m_isMirrored || m_isReversed) && !numberAll())
        return false;

    constexpr int kAhead = 16;
    const int count = len();
    std::array<int, kClasses + 1> first{};
    CVekArrayTempl<unsigned char> classes; // filled from where the list is seen to be unsorted
    unsigned char before = 0;
    for (int i = 0; i < count; ++i) {
        if (i + kAhead < count)
            VEK::fetch(&m_items.begin()[number(i + kAhead)].type, 1);
        const unsigned char itemClass = orderClass(m_items.begin()[number(i)]);
        if (itemClass < before && classes.len() == 0) {
            if (!classes.reserveExactly(count))
                return false;
            classes.setLogicalLength(count);
            unsigned char* to = classes.begin();
            for (std::size_t c = 0; c < kClasses; ++c)
                to = std::fill_n(to, first[c + 1], static_cast<unsigned char>(c));
        }
        if (classes.len() > 0)
            classes.begin()[i] = itemClass;
        before = itemClass;
        ++first[itemClass + 1u];
    }
    std::partial_sum(first.begin(), first.end(), first.begin());
    if (classes.len() > 0) {
        CVekArrayTempl<int> numbers;
        if (!numbers.reserveExactly(count))
            return false;
        numbers.setLogicalLength(count);
        std::array<int, kClasses + 1> next = first;
        for (int i = 0; i < count; ++i)
            numbers.begin()[next[classes.begin()[i]]++] = number(i);
        m_numbers = std::move(numbers);
    }
    m_first = first;
    m_isClassed = true;
    if (m_isShown)
        settled();
    return true;
}

void CVekDisplayList::reverse()
{
    m_isReversed = !m_isReversed;
    if (m_isShown)
        settled();
}

void CVekDisplayList::settle() const
{
    m_isClassed = m_isClassed && !m_isReversed;
    if (m_numbers.len() > 0) {
        turnNumbers();
        permute(m_items.begin(), m_numbers);
        m_numbers.setLogicalLength(0);
        return;
    }
    if (m_isMirrored) {
        for (std::size_t c = 0; c < kClasses; ++c)
            std::reverse(m_items.begin() + m_first[c], m_items.begin() + m_first[c + 1]);
    }
    if (m_isReversed)
        m_items.revert();
    m_isMirrored = m_isReversed = false;
}
