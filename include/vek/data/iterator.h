/// @file
/// Iterating over the children of a directory.
#pragma once

#include <vek/data/dir.h>

namespace VEK
{

/// Iterates over the children of a directory in order. A null source or a leaf has none.
///
/// The directory must outlive the iterator. Children may be removed during the iteration, including the current one; a
/// child added meanwhile may or may not be visited.
class VEK_API CDataIterator : public CVekObj
{
public:
    explicit CDataIterator(const CVekDataDir* dir) : m_dir(dir) { start(); }
    explicit CDataIterator(const CVekDataItem* item) : CDataIterator(item ? item->getDir() : nullptr) {}
    explicit CDataIterator(std::nullptr_t) {}

    /// Returns to the first child.
    void start() { seek(0); }

    /// Whether all children have been visited.
    bool done() const { return !m_item; }

    /// Advances to the next child.
    void next()
    {
        if (m_item)
            seek(m_place + 1);
    }

    /// The current child, owned by the directory; null when done.
    CVekDataItem* item() const { return m_item; }
    CVekDataItem* operator->() const { return m_item; }
    operator CVekDataItem*() const { return m_item; }

private:
    void seek(unsigned place)
    {
        m_place = place;
        m_item = m_dir ? m_dir->children().from(m_place) : nullptr;
    }

    const CVekDataDir* m_dir = nullptr;
    unsigned m_place = 0;
    CVekDataItem* m_item = nullptr;
};

} // namespace VEK
