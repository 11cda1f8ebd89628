/// @file
/// The list of a display object's items.
#pragma once

#include <vek/display/item.h>
#include <vek/values/memory.h>

#include <array>
#include <utility>

/// The items of a display object in their present order, by the index rules of `CVekArrayTempl`.
///
/// A pick reverses the list, yet clicks often follow one another without any access to it in between. So a pick only
/// notes the new order, and the first access after it moves the items: all members below see them as the last sort or
/// pick has ordered them. References, pointers and iterators are valid until the next sort or pick.
class VEK_API CVekDisplayList
{
public:
    int len() const { return m_items.len(); }

    const CVekDisplayItem& operator[](int index) const { return std::as_const(settled())[index]; }
    CVekDisplayItem& operator[](int index) { return settled()[index]; }

    const CVekDisplayItem* begin() const { return settled().begin(); }
    const CVekDisplayItem* end() const { return settled().end(); }
    CVekDisplayItem* begin() { return settled().begin(); }
    CVekDisplayItem* end() { return settled().end(); }

    /// The list as the plain array in which it is stored. Its holder reads it directly, so from here on a pick moves
    /// the items right away.
    operator const CVekArrayTempl<CVekDisplayItem>&() const
    {
        m_isShown = true;
        return settled();
    }

    /// Reserves room for a number of items.
    /// @return false when memory runs out
    bool reserve(int count) { return settled().reserve(count); }
    void append(CVekDisplayItem&& item) { settled().append(std::move(item)); }

    /// Appends copies of all items of another list, which may be this one.
    /// @return false, with the list unchanged, when memory runs out
    bool append(const CVekArrayTempl<CVekDisplayItem>& items);
    void removeAt(int index) { settled().removeAt(index); }
    int setLogicalLength(int length)
    {
        if (length <= 0) // no order to keep
            m_isDown = m_isBackwards = false;
        return settled().setLogicalLength(length);
    }

    CVekDisplayList() = default;
    CVekDisplayList(const CVekDisplayList& other) : m_items(other.settled()) {}
    CVekDisplayList(CVekDisplayList&& other) noexcept : m_items(std::move(other.settled())) {}
    CVekDisplayList& operator=(const CVekDisplayList& other)
    {
        settled() = other.settled();
        return *this;
    }
    CVekDisplayList& operator=(CVekDisplayList&& other) noexcept
    {
        settled() = std::move(other.settled());
        return *this;
    }
    ~CVekDisplayList() = default;

    /// Sorts by the classes of the draw order, stable within each; see `CVekGDX::displListSort`.
    /// @return false, with the list unchanged, when memory runs out
    bool sort();

    /// Sorts, reverses, and passes the items to `test` in that order until it returns true. The test must not change
    /// the kind or the colour mode of an item.
    /// @return false when memory runs out; the list may then be sorted, but is not reversed
    template <class Test>
    bool pick(Test&& test)
    {
        const unsigned long shortages = VEK::memoryShortages();
        if (!sort())
            return false;
        m_isDown = true;
        m_isBackwards = !m_isBackwards;
        search(test);
        const bool complete = VEK::memoryShortages() == shortages;
        if (!complete) {
            m_isDown = false;
            m_isBackwards = !m_isBackwards;
        }
        if (m_isShown)
            settle();
        return complete;
    }

private:
    static constexpr std::size_t kClasses = 6;

    CVekArrayTempl<CVekDisplayItem>& settled() const
    {
        if (m_isDown || m_isBackwards)
            settle();
        return m_items;
    }
    void settle() const;
    template <class Test>
    void search(Test& test);
    static void fetch(const CVekDisplayItem& item); ///< prefetches its geometry before its test

    mutable CVekArrayTempl<CVekDisplayItem> m_items;

    // While one of these is set, the items are stored sorted, but their present order is a different one.
    mutable bool m_isDown = false;      ///< the classes are in order from the top down
    mutable bool m_isBackwards = false; ///< the items within each class are in reverse order
    mutable bool m_isShown = false;     ///< the array has been handed out

    std::array<int, kClasses + 1> m_first{}; ///< where each class begins, after a sort
};

template <class Test>
void CVekDisplayList::search(Test& test)
{
    constexpr int kAhead = 8;
    CVekDisplayItem* const items = m_items.begin();
    const int step = m_isBackwards ? -1 : 1;
    for (std::size_t c = kClasses; c-- > 0;) {
        int at = m_isBackwards ? m_first[c + 1] - 1 : m_first[c];
        for (int left = m_first[c + 1] - m_first[c]; left > 0; --left, at += step) {
            if (left > kAhead)
                fetch(items[at + kAhead * step]);
            if (test(items[at]))
                return;
        }
    }
}
