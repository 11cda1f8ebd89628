#include <vek/data/dir.h>
#include <vek/data/item.h>
#include <vek/data/resbuf.h>

#include "core/values/whole.h"

#include <algorithm>

namespace VEK
{

namespace
{

template <class T>
bool readNumber(const CVekDataItem* item, const CVekDataKey* key, T& value)
{
    return item && item->get(value, key);
}

template <class T>
bool readObject(const CVekDataItem* item, const CVekDataKey* key, T& value)
{
    const CVekDataItem* leaf = item ? item->getItem(key) : nullptr;
    const T* stored = leaf ? leaf->peek<T>() : nullptr;
    if (!stored)
        return false;
    const unsigned long shortages = memoryShortages();
    T copy(*stored);
    if (memoryShortages() != shortages)
        return false;
    value = std::move(copy);
    return true;
}

/// Copies the value first: it may be part of what the path replaces.
template <class T>
bool write(CVekDataItem* item, const CVekDataKey* key, const T& value)
{
    CVekDataItem leaf;
    const bool copied = whole(false, [&] { return leaf.put<T>(value); });
    CVekDataItem* place = item && copied ? item->makeItem(key) : nullptr;
    if (place)
        *place = std::move(leaf);
    return place != nullptr;
}

template <class T>
bool setList(CVekDataItem* item, const wchar_t* key, const T& value)
{
    CUniqResbuf chain(mkResbuf(value)); // before a change to what key and value may be part of
    if (!item || !chain)
        return false;
    if (!key || !*key)
        return item->setData(chain.release(), false);
    if (chain->restype != rbNil) {
        CVekDataItem list;
        CVekDataItem* place = list.setData(chain.release(), false) ? item->makeItem(key) : nullptr;
        if (place)
            *place = std::move(list);
        return place != nullptr;
    }
    if (item->isDir())
        item->remove(key);
    return item->mkDir() != nullptr;
}

} // namespace

bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, bool& value)
{
    return readNumber(item, key, value);
}

bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, int& value)
{
    return readNumber(item, key, value);
}

bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, unsigned long& value)
{
    return readNumber(item, key, value);
}

bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, double& value)
{
    return readNumber(item, key, value);
}

bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, Vek::lUnit& value)
{
    int unit = 0;
    if (!readNumber(item, key, unit))
        return false;
    value = static_cast<Vek::lUnit>(unit);
    return true;
}

bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, double (*rows)[4])
{
    CVekMatrix3d matrix;
    if (!readObject(item, key, matrix))
        return false;
    const CVekMatrix3d::Rows& numbers = matrix;
    std::copy(&numbers[0][0], &numbers[0][0] + 16, &rows[0][0]);
    return true;
}

bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const wchar_t* value)
{
    const unsigned long shortages = memoryShortages();
    const CVekString text(value);
    return memoryShortages() == shortages && write(item, key, text);
}

bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const double (*rows)[4])
{
    CVekMatrix3d matrix;
    CVekMatrix3d::Rows& numbers = matrix;
    std::copy(&rows[0][0], &rows[0][0] + 16, &numbers[0][0]);
    return write(item, key, matrix);
}

// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are types
#define VEK_SET(T, Parameter)                                                                                          \
    bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, Parameter value)                                      \
    {                                                                                                                  \
        return write<T>(item, key, value);                                                                             \
    }
#define VEK_GET_SET(T)                                                                                                 \
    bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, T& value)                                       \
    {                                                                                                                  \
        return readObject(item, key, value);                                                                           \
    }                                                                                                                  \
    VEK_SET(T, const T&)

// NOLINTEND(bugprone-macro-parentheses)
VEK_SET(bool, bool)
VEK_SET(int, int)
VEK_SET(unsigned long, unsigned long)
VEK_SET(double, double)
VEK_SET(Vek::lUnit, Vek::lUnit)
VEK_GET_SET(CVekString)
VEK_GET_SET(CVekPoint3d)
VEK_GET_SET(CVekPoint3dArray)
VEK_GET_SET(CVekMatrix3d)
VEK_GET_SET(CVekVertexArray)
VEK_GET_SET(VertexArrays)
VEK_GET_SET(Regions)
VEK_GET_SET(CVekArrayTempl<int>)
VEK_GET_SET(CVekArrayTempl<CVekString>)
VEK_GET_SET(CVekColor)
VEK_GET_SET(CHatchProp)
#undef VEK_GET_SET
#undef VEK_SET

bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekArrayTempl<int>& value)
{
    return setList(item, key, value);
}

bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekArrayTempl<CVekString>& value)
{
    return setList(item, key, value);
}

bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekMatrix3d& value)
{
    return setList(item, key, value);
}

bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekVertexArray& value)
{
    return setList(item, key, value);
}

} // namespace VEK
