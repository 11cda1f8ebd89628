/// @file
/// The list of a display object's items.
#pragma once

#include <vek/display/item.h>

#include <array>
#include <memory>
#include <utility>

namespace VEK
{
class DisplayIndex;
class DrawOrder;
class DrawPass;
} // namespace VEK

/// The items of a display object in their present order, by the index rules of `CVekArrayTempl`.
///
/// An item is large, so a sort orders numbers and a pick notes that the order is reversed; the items themselves are
/// moved when the list is asked for as an array. All members below see them in the present order. References, pointers
/// and iterators are valid until the next sort, pick, or access by the iterators or as an array.
///
/// Painting and picking read an index of the items instead of the items themselves. Whoever holds an item for writing
/// may write at any time, so a list that has handed one out does without the index until it is cleared or assigned.
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
        lend();
        return isWithin(index) ? m_items.begin()[number(index)] : settled()[index];
    }

    const CVekDisplayItem* begin() const { return settled().begin(); }
    const CVekDisplayItem* end() const { return settled().end(); }
    CVekDisplayItem* begin()
    {
        lend();
        return settled().begin();
    }
    CVekDisplayItem* end()
    {
        lend();
        return settled().end();
    }

    /// The list as the plain array in which it is stored. Its holder reads it directly, so from here on a sort or a
    /// pick moves the items right away.
    operator const CVekArrayTempl<CVekDisplayItem>&() const
    {
        m_isShown = true;
        return settled();
    }

    /// Reserves room for a number of items.
    /// @return false when memory runs out
    bool reserve(int count);

    /// Adds an item at the end; when memory runs out nothing is added.
    void append(CVekDisplayItem&& item);
    void append(const CVekDisplayItem& item) { append(CVekDisplayItem(item)); }

    /// Appends copies of all items of another list, which may be this one.
    /// @return false, with the list unchanged, when memory runs out
    bool append(const CVekArrayTempl<CVekDisplayItem>& items);
    void removeAt(int index);
    int setLogicalLength(int length);

    CVekDisplayList();
    CVekDisplayList(const CVekDisplayList& other);
    CVekDisplayList(CVekDisplayList&& other) noexcept;
    CVekDisplayList& operator=(const CVekDisplayList& other);
    CVekDisplayList& operator=(CVekDisplayList&& other) noexcept;
    ~CVekDisplayList();

    /// Sorts by the classes of the draw order, stable within each; see `CVekGDX::displListSort`.
    /// @return false, with the list unchanged, when memory runs out
    bool sort();

    /// Reverses the order.
    void reverse();

private:
    friend class CVekGDX;
    friend class VEK::DrawPass;

    static constexpr std::size_t kClasses = 6;

    bool isAsStored() const { return m_numbers.len() == 0 && !m_isReversed && !m_isMirrored; }
    bool isWithin(int index) const { return static_cast<unsigned>(index) < static_cast<unsigned>(len()); }

    /// Where the item at a position, which must be within the list, is stored.
    int number(int position) const { return isAsStored() ? position : orderedNumber(position); }
    int orderedNumber(int position) const;
    VEK::DrawOrder order() const;

    /// The position of an index by the array rules; -1 if there is no such item.
    int position(int index) const;

    /// An item that the caller leaves as it is, but for what neither painting nor picking nor the order depends on.
    CVekDisplayItem& item(int position) { return m_items.begin()[number(position)]; }

    /// An item, by the array rules, that the caller changes before anything else reads it, but for the kind and the
    /// colour mode.
    CVekDisplayItem& changing(int index);
    void setColorMode(int index, unsigned mode);

    /// Room for an item behind the last one, see `CVekArrayTempl::spare`; null if there is none.
    CVekDisplayItem* spare(bool& isNew);
    void appendSpare();

    VEK::DisplayIndex* index() const;
    void lend();
    void noteAppended();
    void changeWhole();

    CVekArrayTempl<CVekDisplayItem>& settled() const
    {
        if (!isAsStored())
            settle();
        return m_items;
    }
    void settle() const;
    void turnNumbers() const;
    bool numberAll();
    bool classify();

    mutable CVekArrayTempl<CVekDisplayItem> m_items;

    // The present order: the numbers, of which those of each class may be mirrored, and then all of them reversed.
    mutable CVekArrayTempl<int> m_numbers; ///< of items as stored; empty: in the order in which they are stored
    mutable bool m_isMirrored = false;
    mutable bool m_isReversed = false;

    mutable bool m_isClassed = false; ///< no item was changed since the last sort
    mutable bool m_isShown = false;   ///< the array has been handed out
    bool m_isLent = false;            ///< an item has been handed out for writing

    std::array<int, kClasses + 1> m_first{};            ///< where each class began in the last sort
    mutable CVekArrayTempl<unsigned char> m_classes;    ///< of the items as stored; empty: not known
    mutable std::unique_ptr<VEK::DisplayIndex> m_index; ///< null: not made yet
};
