/// @file
/// The walk through the children of a directory.
#pragma once

#include <vek/data/dir.h>

namespace VEK
{

/// Walks through the children of a directory in their order. A null or leaf source is finished at once.
///
/// The directory must outlive the walk. Children may be removed on the way, the present one included; one that is
/// added on the way may be met or not.
class VEK_API CDataIterator : public CVekObj
{
public:
    explicit CDataIterator(const CVekDataDir* dir) : m_dir(dir) { start(); }
    explicit CDataIterator(const CVekDataItem* item) : CDataIterator(item ? item->getDir() : nullptr) {}
    explicit CDataIterator(std::nullptr_t) {}

    /// Goes back to the first child.
    void start() { seek(0); }

    /// Whether the last child lies behind.
    bool done() const { return !m_item; }

    /// Goes on to the next child.
    void next()
    {
        if (m_item)
            seek(m_place + 1);
    }

    /// The present child, owned by the directory; null when the walk is done.
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
