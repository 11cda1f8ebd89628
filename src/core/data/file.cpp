#include <vek/data/app.h>
#include <vek/data/dir.h>
#include <vek/data/file.h>
#include <vek/data/iterator.h>

#include "core/values/whole.h"

namespace VEK
{

namespace
{

template <class T>
bool storeLeaf(CDtaFilePointer* file, const CVekDataKey* key, const T& value)
{
    CVekDataItem leaf;
    return file && dataItemSet(&leaf, nullptr, value) && file->set(&leaf, key);
}

} // namespace

CVekDataItem* CDtaFilePointer::root() const
{
    const CVekDataItem* tree = m_tree;
    return tree->getItem(&m_way);
}

bool CDtaFilePointer::set(const CVekDataItem* item, const CVekDataKey* key)
{
    // Before the path changes anything that the item may be part of.
    const CUniqPointer<CVekDataItem> copy(item ? item->clone() : new CVekDataItem);
    if (!copy)
        return false;
    CVekDataItem* top = m_tree->makeItem(&m_way);
    CVekDataItem* place = top ? top->makeItem(key) : nullptr;
    if (place)
        *place = std::move(*copy);
    return place != nullptr;
}

bool CDtaFilePointer::dir(CVekArrayTempl<CVekDataKey>& keys, const CVekDataKey* key) const
{
    const CVekDataItem* item = fileItem(this, key);
    const unsigned long shortages = memoryShortages();
    keys = whole(CVekArrayTempl<CVekDataKey>(), [&] {
        CVekArrayTempl<CVekDataKey> found;
        for (CDataIterator child(item); !child.done(); child.next())
            found.append(*child->getKey());
        return found;
    });
    return item && item->isDir() && memoryShortages() == shortages;
}

CDtaFilePointer* CDtaFilePointer::lobjGet(const CVekDataKey* key, bool) const
{
    CVekDataKey way(m_way);
    way.append(CVekDataKey(L"LOBJ"));
    if (key)
        way.append(*key);
    const CVekDataItem* object = m_tree->getItem(&way);
    return object && object->isDir() ? new CDtaFilePointer(m_tree, way) : nullptr;
}

CDtaFilePointer* dtaOpen(VekDtaType type, unsigned long mode, const CAdsName& name, const CVekDataKey* key,
                         const CVekDataItem* item)
{
    if (type != vekDtaDrawing)
        return dtaOpen(type, mode, key, item);
    const CSharedPointer<CVekDataItem> tree = vekAppPtr()->dataObject(name);
    CUniqPointer<CDtaFilePointer> file(tree ? new CDtaFilePointer(tree, CVekDataKey()) : nullptr);
    return file && (!item || file->set(item, key)) ? file.release() : nullptr;
}

CDtaFilePointer* dtaOpen(VekDtaType type, unsigned long, const CVekDataKey* key, const CVekDataItem* item)
{
    if (type != vekDtaMemory)
        return nullptr;
    const CSharedPointer<CVekDataItem> tree(new CVekDataItem(CVekDataItem::directory));
    CUniqPointer<CDtaFilePointer> file(tree && tree->isDir() ? new CDtaFilePointer(tree, CVekDataKey()) : nullptr);
    return file && (!item || file->set(item, key)) ? file.release() : nullptr;
}

CVekDataItem* fileItem(const CDtaFilePointer* file, const CVekDataKey* key)
{
    const CVekDataItem* root = file ? file->root() : nullptr;
    return root ? root->getItem(key) : nullptr;
}

CVekDataItem* fileItem(const CDtaFilePointer* file, const wchar_t* path)
{
    const CVekDataItem* root = file ? file->root() : nullptr;
    return root ? root->getItem(path) : nullptr;
}

bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, const wchar_t* value)
{
    return storeLeaf(file, key, value);
}

bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, const CVekString& value)
{
    return storeLeaf(file, key, value);
}

bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, int value)
{
    return storeLeaf(file, key, value);
}

bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, const CVekVertexArray& value)
{
    return storeLeaf(file, key, value);
}

} // namespace VEK
