#include <vek/data/dir.h>
#include <vek/data/item.h>
#include <vek/data/resbuf.h>

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
    if (stored)
        value = *stored;
    return stored != nullptr;
}

/// Takes the value by value: it may stand in what the path replaces.
template <class T>
bool write(CVekDataItem* item, const CVekDataKey* key, T value)
{
    CVekDataItem* leaf = item ? item->makeItem(key) : nullptr;
    return leaf && leaf->put<T>(std::move(value));
}

template <class T>
bool setList(CVekDataItem* item, const wchar_t* key, const T& value)
{
    if (!item)
        return false;
    if (!key || !*key)
        return item->setData(mkResbuf(value), false);
    CVekDataDir* dir = item->mkDir();
    CUniqResbuf chain(mkResbuf(value));
    const CVekDataKey path(key);
    if (!dir)
        return false;
    if (!chain || chain->restype == rbNil) {
        dir->remove(&path);
        return true;
    }
    const CSharedPointer<CVekDataItem> leaf(new CVekDataItem);
    return leaf && leaf->setData(chain.release(), false) && dir->insertItem(&path, leaf, false);
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
    return write(item, key, CVekString(value));
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
