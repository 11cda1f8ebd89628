/// @file
/// The directories of the data tree.
#pragma once

#include <vek/data/children.h>
#include <vek/data/item.h>

/// The children of a directory item, in the order in which they came; one that replaces another takes its place. A
/// look-up does not walk the children.
///
/// A key of several elements descends; what is missing on its way is created, and leaves on it become directories.
/// A null key or a key without an element names no child.
class VEK_API CVekDataDir : public CVekObj
{
public:
    ~CVekDataDir() override { removeAll(); }
    CVekDataDir(const CVekDataDir&) = delete;
    CVekDataDir& operator=(const CVekDataDir&) = delete;

    bool isEmpty() const { return m_children.len() == 0; }

    /// Number of children.
    int len() const { return static_cast<int>(m_children.len()); }

    /// The child at a path, or null.
    CVekDataItem* getItem(const CVekDataKey* key) const;

    /// The child at a path, created when it is missing: as a directory, or as an empty leaf. `makeDir` turns a leaf
    /// into a directory. Null without a key, and here and below when the memory is not to be had.
    CVekDataItem* makeDir(const CVekDataKey* key);
    CVekDataItem* makeItem(const CVekDataKey* key);

    /// Removes the child at a path.
    /// @return false when there is none
    bool remove(const CVekDataKey* key);

    /// Removes all children, at any depth.
    void removeAll();

    /// Stores a shared item under a key in place of what stood there; the tree and the holders share it from then on,
    /// and nobody may take it back by `release` while it stands in the tree. An item that already has a parent, or
    /// that holds this directory, is stored as a copy.
    /// @param reserved pass false
    /// @return the item that now stands there; null without a key or an item
    virtual CVekDataItem* insertItem(const CVekDataKey* key, const VEK::CSharedPointer<CVekDataItem>& item,
                                     bool reserved);

    /// Stores a deep copy under a key in place of what stood there; a null item gives an empty leaf.
    /// @param reserved pass true
    /// @return the copy, owned by the directory; null without a key
    virtual CVekDataItem* insertCopy(const CVekDataKey* key, const CVekDataItem* item, bool reserved);

    /// The children themselves, for a walk by place.
    const VEK::CDataChildren& children() const { return m_children; }

private:
    friend class CVekDataItem;

    explicit CVekDataDir(CVekDataItem* owner) : m_owner(owner) {}

    CVekDataItem* child(const VEK::DataName& name) const;
    CVekDataItem* makeChild(const VEK::DataName& name, CVekDataKey::keyType type);
    CVekDataItem* store(const CVekDataKey& key, CVekDataItem* item);
    bool isWithin(const CVekDataItem* item) const;
    void letGo(CVekDataItem* child);

    CVekDataItem* m_owner; ///< the item that this directory is the value of
    VEK::CDataChildren m_children;
};
