/// @file
/// The directories of the data tree.
#pragma once

#include <vek/data/children.h>
#include <vek/data/item.h>

/// The children of a directory item, in order of insertion; one that replaces another takes its place. Lookup by name
/// does not walk the children.
///
/// A key of several elements is a path. Operations that create an item also create what is missing on the path, and
/// turn leaves on it into directories. A null key or a key without an element names no child.
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
    /// into a directory. Null without a key, and here and below when memory runs out.
    CVekDataItem* makeDir(const CVekDataKey* key);
    CVekDataItem* makeItem(const CVekDataKey* key);

    /// Removes the child at a path.
    /// @return false if there is none
    bool remove(const CVekDataKey* key);

    /// Removes all children, however deep the tree.
    void removeAll();

    /// Stores a shared item under a key, replacing what was there; the tree and the other holders then share it, and no
    /// holder may `release` it while it is in the tree. An item that already has a parent, or that contains this
    /// directory, is stored as a copy.
    /// @param reserved pass false
    /// @return the stored item; null without a key or an item
    virtual CVekDataItem* insertItem(const CVekDataKey* key, const VEK::CSharedPointer<CVekDataItem>& item,
                                     bool reserved);

    /// Stores a deep copy under a key, replacing what was there; a null item gives an empty leaf.
    /// @param reserved pass true
    /// @return the copy, owned by the directory; null without a key
    virtual CVekDataItem* insertCopy(const CVekDataKey* key, const CVekDataItem* item, bool reserved);

    /// The children, for walking by place.
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
