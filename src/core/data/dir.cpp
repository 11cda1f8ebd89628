#include <vek/data/dir.h>

using VEK::DataName;

CVekDataItem* CVekDataDir::getItem(const CVekDataKey* key) const
{
    const CVekDataDir* dir = this;
    CVekDataItem* item = nullptr;
    for (; key && !key->isEmpty(); key = key->next()) {
        item = dir && key->type() != CVekDataKey::keyLost ? dir->child(DataName::of(*key)) : nullptr;
        if (!item)
            return nullptr;
        dir = item->getDir();
    }
    return item;
}

CVekDataItem* CVekDataDir::makeItem(const CVekDataKey* key)
{
    return key && !key->isEmpty() ? m_owner->makeWay(nullptr, key) : nullptr;
}

CVekDataItem* CVekDataDir::makeDir(const CVekDataKey* key)
{
    CVekDataItem* item = makeItem(key);
    return item && item->mkDir() ? item : nullptr;
}

bool CVekDataDir::remove(const CVekDataKey* key)
{
    CVekDataItem* item = getItem(key);
    if (item)
        item->m_parent->letGo(item);
    return item != nullptr;
}

/// Descends to the last child that has children itself and removes its childless ones, and so on upwards. Thus neither
/// a deep tree nor one of shared items needs a stack.
void CVekDataDir::removeAll()
{
    CVekDataDir* dir = this;
    m_children.dropSlots();
    while (dir != this || !isEmpty()) {
        if (dir->isEmpty()) {
            dir = dir->m_owner->m_parent;
            continue;
        }
        CVekDataItem* last = dir->m_children.at(dir->m_children.places() - 1);
        if (last->m_shared.refCount() == 1) { // the last holder: it is destroyed here like the others
            last->m_shared.release();
            last->m_shared = nullptr;
        }
        CVekDataDir* below = last->m_shared ? nullptr : last->getDir();
        if (below && !below->isEmpty()) {
            dir = below;
            dir->m_children.dropSlots();
        } else {
            dir->letGo(last);
        }
    }
}

CVekDataItem* CVekDataDir::insertItem(const CVekDataKey* key, const VEK::CSharedPointer<CVekDataItem>& item, bool)
{
    CVekDataItem* source = item;
    if (!key || key->isEmpty() || !source)
        return nullptr;
    if (source->m_parent || isWithin(source))
        return insertCopy(key, source, true);
    CVekDataItem* stored = store(*key, source);
    if (stored)
        stored->m_shared = item;
    return stored;
}

CVekDataItem* CVekDataDir::insertCopy(const CVekDataKey* key, const CVekDataItem* item, bool)
{
    if (!key || key->isEmpty())
        return nullptr;
    // Before a change to what it may be part of.
    VEK::CUniqPointer<CVekDataItem> copy(item ? item->clone() : new CVekDataItem);
    CVekDataItem* stored = copy ? store(*key, copy) : nullptr;
    if (stored)
        copy.release();
    return stored;
}

CVekDataItem* CVekDataDir::child(const DataName& name) const
{
    const int place = m_children.find(name);
    return place < 0 ? nullptr : m_children.at(static_cast<unsigned>(place));
}

/// The child with a name; a missing one is created as an empty leaf under a key of that type.
CVekDataItem* CVekDataDir::makeChild(const DataName& name, CVekDataKey::keyType type)
{
    if (CVekDataItem* there = child(name))
        return there;
    VEK::CUniqPointer<CVekDataItem> fresh(new CVekDataItem);
    if (!fresh)
        return nullptr;
    fresh->m_key.m_type = type;
    fresh->m_key.m_number = name.number;
    if (name.text) {
        CVekString text(name.text, name.length);
        if (text.len() != static_cast<int>(name.length))
            return nullptr;
        fresh->m_key.m_text = std::move(text);
    }
    fresh->m_parent = this;
    return m_children.append(fresh) ? fresh.release() : nullptr;
}

/// Stores an item without a parent at a path.
CVekDataItem* CVekDataDir::store(const CVekDataKey& key, CVekDataItem* item)
{
    CVekDataItem* old = makeItem(&key);
    if (!old)
        return nullptr;
    CVekDataDir* dir = old->m_parent;
    std::swap(item->m_key.m_type, old->m_key.m_type);
    std::swap(item->m_key.m_number, old->m_key.m_number);
    std::swap(item->m_key.m_text, old->m_key.m_text);
    item->m_parent = dir;
    dir->m_children.replace(old->m_slot, item);
    old->m_parent = nullptr;
    if (old->m_shared)
        old->m_shared = nullptr;
    else
        delete old;
    return item;
}

/// Whether this directory is the value of an item or anywhere below it.
bool CVekDataDir::isWithin(const CVekDataItem* item) const
{
    const CVekDataDir* top = item->getDir();
    if (!top || top->isEmpty())
        return top == this;
    const CVekDataDir* dir = this;
    while (dir && dir != top)
        dir = dir->m_owner->m_parent;
    return dir != nullptr;
}

void CVekDataDir::letGo(CVekDataItem* child)
{
    m_children.remove(child->m_slot);
    child->m_parent = nullptr;
    const VEK::CSharedPointer<CVekDataItem> shared = std::move(child->m_shared);
    if (!shared)
        delete child;
}
