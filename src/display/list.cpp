// The order of the items: sorting, and the order after a pick.
#include <vek/display/list.h>

#include "display/fetch.h"
#include "display/index.h"
#include "display/order.h"

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

CVekDisplayList::CVekDisplayList() = default;
CVekDisplayList::CVekDisplayList(const CVekDisplayList& other)
{
    *this = other;
}

CVekDisplayList::CVekDisplayList(CVekDisplayList&& other) noexcept
{
    *this = std::move(other);
}
CVekDisplayList::~CVekDisplayList() = default;

CVekDisplayList& CVekDisplayList::operator=(const CVekDisplayList& other)
{
    if (this == &other)
        return *this;
    changeWhole();
    m_isLent = false;
    m_items = other.settled();
    m_classes = other.m_classes;
    if (m_classes.len() != len()) // memory ran out
        m_classes.setLogicalLength(0);
    return *this;
}

CVekDisplayList& CVekDisplayList::operator=(CVekDisplayList&& other) noexcept
{
    changeWhole();
    m_isLent = false;
    m_items = std::move(other.settled());
    m_classes = std::move(other.m_classes);
    other.changeWhole();
    return *this;
}

bool CVekDisplayList::reserve(int count)
{
    if ((m_isMirrored || m_isReversed) && !numberAll())
        return false;
    return m_items.reserve(count) && m_classes.reserve(m_classes.len() == len() ? count : 0) &&
           m_numbers.reserve(m_numbers.len() > 0 ? count : 0);
}

void CVekDisplayList::append(CVekDisplayItem&& item)
{
    if (!reserve(len() + 1))
        return;
    m_items.append(std::move(item));
    noteAppended();
}

CVekDisplayItem* CVekDisplayList::spare(bool& isNew)
{
    CVekDisplayItem* const slot = m_items.spare(isNew);
    return slot && reserve(len() + 1) ? slot : nullptr;
}

void CVekDisplayList::appendSpare()
{
    m_items.appendSpare();
    noteAppended();
}

/// Has an item that was stored behind the others in the order, at its end.
void CVekDisplayList::noteAppended()
{
    const int number = len() - 1;
    m_isClassed = false;
    if (m_classes.len() == number)
        m_classes.append(orderClass(m_items.begin()[number]));
    if (m_numbers.len() > 0)
        m_numbers.append(number);
}

bool CVekDisplayList::append(const CVekArrayTempl<CVekDisplayItem>& items)
{
    const unsigned long shortages = VEK::memoryShortages();
    changeWhole();
    const int before = len();
    m_items += items;
    if (VEK::memoryShortages() == shortages)
        return true;
    m_items.setLogicalLength(before);
    return false;
}

void CVekDisplayList::removeAt(int index)
{
    changeWhole();
    m_items.removeAt(index);
}

int CVekDisplayList::setLogicalLength(int length)
{
    if (length <= 0) { // no order to keep, and nobody holds an item
        m_numbers.setLogicalLength(0);
        m_isMirrored = m_isReversed = m_isLent = false;
    }
    changeWhole();
    return m_items.setLogicalLength(length);
}

/// Notes that an item is handed out for writing.
void CVekDisplayList::lend()
{
    m_isClassed = false;
    m_isLent = true;
    m_classes.setLogicalLength(0);
    m_index.reset();
}

/// Notes that the list is about to change in more than single items.
void CVekDisplayList::changeWhole()
{
    settled();
    m_isClassed = false;
    m_classes.setLogicalLength(0);
    m_index.reset();
}

CVekDisplayItem& CVekDisplayList::changing(int index)
{
    if (!isWithin(index))
        return (*this)[index];
    const int at = number(index);
    if (m_index)
        m_index->forget(at);
    return m_items.begin()[at];
}

void CVekDisplayList::setColorMode(int index, unsigned mode)
{
    CVekDisplayItem& item = changing(index);
    item.flag = (item.flag & 0xFF) | (mode & 15) << itemColorModeShift;
    m_isClassed = false;
    if (m_classes.len() > 0)
        m_classes[number(index)] = orderClass(item);
}

/// The index, made when it is first asked for; null while an item may be written to.
VEK::DisplayIndex* CVekDisplayList::index() const
{
    if (m_isLent)
        return nullptr;
    if (!m_index)
        m_index = std::make_unique<VEK::DisplayIndex>();
    m_index->resize(len());
    return m_index.get();
}

VEK::DrawOrder CVekDisplayList::order() const
{
    VEK::DrawOrder order(m_numbers.len() > 0 ? m_numbers.begin() : nullptr);
    if (m_isMirrored) {
        for (std::size_t c = 0; c < kClasses; ++c)
            order.add(m_first[c], m_first[c + 1] - m_first[c], true);
    } else {
        order.add(0, len(), false);
    }
    if (m_isReversed)
        order.reverse();
    return order;
}

int CVekDisplayList::position(int index) const
{
    const int count = len();
    if (index < 0 && count > 0)
        index = (count + index % count) % count;
    return index < count ? index : -1;
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

/// Has the class of each item.
/// @return false, with the list unchanged, when memory runs out
bool CVekDisplayList::classify()
{
    constexpr int kAhead = 16;
    const int count = len();
    if (m_classes.len() == count)
        return true;
    if (!m_classes.reserveExactly(count))
        return false;
    m_classes.setLogicalLength(count);
    for (int i = 0; i < count; ++i) {
        if (i + kAhead < count)
            VEK::fetch(&m_items.begin()[i + kAhead].type, 1);
        m_classes.begin()[i] = orderClass(m_items.begin()[i]);
    }
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

    if (!classify())
        return false;
    const int count = len();
    const int* const numbers = m_numbers.len() > 0 ? m_numbers.begin() : nullptr;
    const auto classAt = [&](int i) { return m_classes.begin()[numbers ? numbers[i] : i]; };
    std::array<int, kClasses + 1> first{};
    bool isSorted = true;
    unsigned char before = 0;
    for (int i = 0; i < count; ++i) {
        const unsigned char itemClass = classAt(i);
        isSorted = isSorted && itemClass >= before;
        before = itemClass;
        ++first[itemClass + 1u];
    }
    std::partial_sum(first.begin(), first.end(), first.begin());
    if (!isSorted) {
        CVekArrayTempl<int> sorted;
        if (!sorted.reserveExactly(count))
            return false;
        sorted.setLogicalLength(count);
        std::array<int, kClasses + 1> next = first;
        for (int i = 0; i < count; ++i)
            sorted.begin()[next[classAt(i)]++] = numbers ? numbers[i] : i;
        m_numbers = std::move(sorted);
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

/// Moves the items into the present order.
void CVekDisplayList::settle() const
{
    m_index.reset();
    const bool isReversed = m_isReversed;
    if (m_numbers.len() > 0) {
        turnNumbers();
        permute(m_items.begin(), m_numbers);
        m_numbers.setLogicalLength(0);
    } else {
        if (m_isMirrored) {
            for (std::size_t c = 0; c < kClasses; ++c)
                std::reverse(m_items.begin() + m_first[c], m_items.begin() + m_first[c + 1]);
        }
        if (m_isReversed)
            m_items.revert();
        m_isMirrored = m_isReversed = false;
    }
    if (m_isClassed && m_classes.len() == len()) {
        for (std::size_t c = 0; c < kClasses; ++c)
            std::fill(m_classes.begin() + m_first[c], m_classes.begin() + m_first[c + 1],
                      static_cast<unsigned char>(c));
        if (isReversed)
            m_classes.revert();
    } else {
        m_classes.setLogicalLength(0);
    }
    m_isClassed = m_isClassed && !isReversed;
}
