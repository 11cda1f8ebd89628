/// @file
/// The children of one directory: their order, and the look-up by name.
#pragma once

#include <vek/data/key.h>

class CVekDataItem;

namespace VEK
{

/// One element of a path, as it is looked up. It owns nothing.
struct DataName {
    const wchar_t* text = nullptr; ///< not terminated; null for an integer
    unsigned length = 0;
    int number = 0;

    /// The name that a key's first element, which must be there, stands for.
    static DataName of(const CVekDataKey& key);
};

/// Items in the order in which they came, owned by nobody here. Beyond a few items a hash table stands beside them, so
/// that a look-up, an addition and a removal cost the same however many there are. A removal leaves a gap, which keeps
/// the places of the others until the next addition.
class VEK_API CDataChildren
{
public:
    /// Number of items.
    unsigned len() const { return m_count; }

    /// Places run from 0 up to this number; an item's place is above those of the items that came before it.
    unsigned places() const { return static_cast<unsigned>(m_items.len()); }

    /// The item at a place; null for a gap and outside.
    CVekDataItem* at(unsigned place) const { return place < places() ? m_items.begin()[place] : nullptr; }

    /// The first item at a place or behind it, and its place; null behind the last one.
    CVekDataItem* from(unsigned& place) const;

    /// The item behind one of these; null behind the last one.
    CVekDataItem* after(const CVekDataItem& item) const;

    /// The place of a name, or -1.
    int find(const DataName& name) const;

    /// Adds an item whose name is not there yet.
    /// @return false when the memory is not to be had
    bool append(CVekDataItem* item);

    /// Puts an item at the place of another one of the same name.
    void replace(unsigned place, CVekDataItem* item);

    void remove(unsigned place);

    /// Ends the look-up by name, ahead of the removal of every item.
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
