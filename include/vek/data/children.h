/// @file
/// The children of one directory: their order, and lookup by name.
#pragma once

#include <vek/data/key.h>

class CVekDataItem;

namespace VEK
{

/// One element of a path, for lookup. It owns nothing.
struct DataName {
    const wchar_t* text = nullptr; ///< not terminated; null for an integer
    unsigned length = 0;
    int number = 0;

    /// The name in a key's first element, which must exist.
    static DataName of(const CVekDataKey& key);
};

/// Items in order of insertion, not owned. Beyond a few items a hash table is added, so that lookup, insertion and
/// removal take constant time. A removal leaves a gap, so that the places of the others stay valid until the next
/// insertion.
class VEK_API CDataChildren
{
public:
    /// Number of items.
    unsigned len() const { return m_count; }

    /// Places run from 0 up to this number; an item's place is above those of the items inserted before it.
    unsigned places() const { return static_cast<unsigned>(m_items.len()); }

    /// The item at a place; null for a gap and if out of range.
    CVekDataItem* at(unsigned place) const { return place < places() ? m_items.begin()[place] : nullptr; }

    /// The first item at or after a place, and its place; null past the last one.
    CVekDataItem* from(unsigned& place) const;

    /// The item after the given one; null after the last one.
    CVekDataItem* after(const CVekDataItem& item) const;

    /// The place of a name, or -1.
    int find(const DataName& name) const;

    /// Adds an item whose name is not present yet.
    /// @return false when memory runs out
    bool append(CVekDataItem* item);

    /// Replaces the item at a place by another one of the same name.
    void replace(unsigned place, CVekDataItem* item);

    void remove(unsigned place);

    /// Drops the hash table, before all items are removed.
    void dropSlots();

private:
    struct Slot {
        unsigned hash = 0;
        unsigned place = kFree;
    };

    static constexpr unsigned kFree = ~0u;

    void closeGaps();
    void growSlots();
    void enter(const Slot& slot);
    void leave(unsigned place);

    CVekArrayTempl<CVekDataItem*> m_items; ///< null for a gap
    CVekArrayTempl<Slot> m_slots;          ///< open addressing, a power of two; empty while there are few items
    unsigned m_count = 0;
};

} // namespace VEK
