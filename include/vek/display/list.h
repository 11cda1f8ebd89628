/// @file
/// The list of a display object's items.
#pragma once

#include <vek/display/item.h>

#include <array>
#include <utility>

/// The items of a display object in their present order, by the index rules of `CVekArrayTempl`.
///
/// An item is large, so a sort orders numbers and a pick notes that the order is reversed; the items themselves are
/// moved when the list is asked for as an array. All members below see them in the present order. References, pointers
/// and iterators are valid until the next sort, pick, or access by the iterators or as an array.
class VEK_API CVekDisplayList
{
public:
    int len() const { return m_items.len(); }

    const CVekDisplayItem& operator[](int index) const
    {
        return isWithin(index) ? m_items.begin()[number(index)] : std::as_const(settled())[index];
    }
    CVekDisplayItem& operator[](int index)
    {
        m_isClassed = false;
        return isWithin(index) ? m_items.begin()[number(index)] : settled()[index];
    }

    const CVekDisplayItem* begin() const { return settled().begin(); }
    const CVekDisplayItem* end() const { return settled().end(); }
    CVekDisplayItem* begin() { return changeable().begin(); }
    CVekDisplayItem* end() { return changeable().end(); }

    /// The list as the plain array in which it is stored. Its holder reads it directly, so from here on a sort or a
    /// pick moves the items right away.
    operator const CVekArrayTempl<CVekDisplayItem>&() const
    {
        m_isShown = true;
        return settled();
    }

    /// Reserves room for a number of items.
    /// @return false when memory runs out
    bool reserve(int count) { return m_items.reserve(count); }
    void append(CVekDisplayItem&& item) { changeable().append(std::move(item)); }

    /// Appends copies of all items of another list, which may be this one.
    /// @return false, with the list unchanged, when memory runs out
    bool append(const CVekArrayTempl<CVekDisplayItem>& items);
    void removeAt(int index) { changeable().removeAt(index); }
    int setLogicalLength(int length);

    CVekDisplayList() = default;
    CVekDisplayList(const CVekDisplayList& other) : m_items(other.settled()) {}
    CVekDisplayList(CVekDisplayList&& other) noexcept : m_items(std::move(other.changeable())) {}
    CVekDisplayList& operator=(const CVekDisplayList& other)
    {
        changeable() = other.settled();
        return *this;
    }
    CVekDisplayList& operator=(CVekDisplayList&& other) noexcept
    {
        changeable() = std::move(other.changeable());
        return *this;
    }
    ~CVekDisplayList() = default;

    /// Sorts by the classes of the draw order, stable within each; see `CVekGDX::displListSort`.
    /// @return false, with the list unchanged, when memory runs out
    bool sort();

    /// Reverses the order.
    void reverse();

private:
    friend class CVekGDX;

    static constexpr std::size_t kClasses = 6;

    bool isAsStored() const { return m_numbers.len() == 0 && !m_isReversed && !m_isMirrored; }
    bool isWithin(int index) const { return static_cast<unsigned>(index) < static_cast<unsigned>(len()); }

    /// Where the item at a position, which must be within the list, is stored.
    int number(int position) const { return isAsStored() ? position : orderedNumber(position); }
    int orderedNumber(int position) const;

    /// An item whose kind and colour mode the caller leaves as they are.
    CVekDisplayItem& keepingClass(int position) { return m_items.begin()[number(position)]; }

    CVekArrayTempl<CVekDisplayItem>& settled() const
    {
        if (!isAsStored())
            settle();
        return m_items;
    }
    CVekArrayTempl<CVekDisplayItem>& changeable()
    {
        m_isClassed = false;
        return settled();
    }
    void settle() const;
    void turnNumbers() const;
    bool numberAll();

    mutable CVekArrayTempl<CVekDisplayItem> m_items;

    // The present order: the numbers, of which those of each class may be mirrored, and then all of them reversed.
    mutable CVekArrayTempl<int> m_numbers; ///< of items as stored; empty: in the order in which they are stored
    mutable bool m_isMirrored = false;
    mutable bool m_isReversed = false;

    mutable bool m_isClassed = false; ///< no item was changed since the last sort
    mutable bool m_isShown = false;   ///< the array has been handed out

    std::array<int, kClasses + 1> m_first{}; ///< where each class began in the last sort
};
