#include <vek/data/dir.h>
#include <vek/data/item.h>

#include "core/data/kinds.h"
#include "core/values/whole.h"

#include <cwchar>
#include <limits>

using VEK::DataKind;
using VEK::DataName;

namespace
{

template <class T>
constexpr DataKind kKindOf = DataKind::empty;
#define VEK_KIND(T, kind)                                                                                              \
    template <>                                                                                                        \
    constexpr DataKind kKindOf<T> = DataKind::kind;
VEK_SCALAR_KINDS(VEK_KIND)
VEK_OBJECT_KINDS(VEK_KIND)
#undef VEK_KIND

bool isObject(DataKind kind)
{
    switch (kind) {
    case DataKind::directory:
#define VEK_CASE(T, kind) case DataKind::kind:
        VEK_OBJECT_KINDS(VEK_CASE)
#undef VEK_CASE
        return true;
    default: return false;
    }
}

/// Splits a path at its first backslash.
/// @return the rest, or null if the path is one name
const wchar_t* firstName(const wchar_t* path, DataName& name)
{
    const wchar_t* end = std::wcschr(path, L'\\');
    name = {path, static_cast<unsigned>(end ? end - path : std::wcslen(path)), 0};
    return end ? end + 1 : nullptr;
}

} // namespace

CVekDataItem::CVekDataItem() {}

CVekDataItem::CVekDataItem(int kind)
{
    if (kind == directory)
        mkDir();
}

CVekDataItem::CVekDataItem(const CVekDataItem* source)
{
    copyFrom(source);
}

CVekDataItem::CVekDataItem(CVekDataItem&& other) noexcept : CVekObj()
{
    takeOver(other);
}

CVekDataItem::~CVekDataItem()
{
    clear();
}

CVekDataItem& CVekDataItem::operator=(CVekDataItem&& other) noexcept
{
    if (m_parent && m_parent->isWithin(&other)) // its contents include this item
        return *this = static_cast<const CVekDataItem&>(other);
    CVekDataItem contents(std::move(other)); // other may be below this item
    clear();
    takeOver(contents);
    return *this;
}

CVekDataItem* CVekDataItem::clone() const
{
    VEK::CUniqPointer<CVekDataItem> copy(new CVekDataItem);
    return copy && copy->copyFrom(this) ? copy.release() : nullptr;
}

CVekDataDir* CVekDataItem::getDir() const
{
    return isDir() ? static_cast<CVekDataDir*>(m_value.object) : nullptr;
}

CVekDataDir* CVekDataItem::mkDir()
{
    if (!isDir()) {
        CVekDataDir* dir = new CVekDataDir(this);
        if (!dir)
            return nullptr;
        clear();
        m_value.object = dir;
        m_kind = DataKind::directory;
    }
    return getDir();
}

CVekDataItem* CVekDataItem::getParent() const
{
    return m_parent ? m_parent->m_owner : nullptr;
}

CVekDataItem* CVekDataItem::getItem(const wchar_t* path) const
{
    const CVekDataItem* item = this;
    while (item && path) {
        const CVekDataDir* dir = item->getDir();
        if (!dir)
            return nullptr;
        if (CVekDataItem* exact = dir->child({path, static_cast<unsigned>(std::wcslen(path)), 0}))
            return exact;
        DataName name;
        path = firstName(path, name);
        item = path ? dir->child(name) : nullptr;
    }
    return const_cast<CVekDataItem*>(item);
}

/// Creates the missing parts of a path, given as a text or as a key. A leaf on the way keeps its value until all of
/// them exist: the path may be its text, and when memory runs out the tree stays as it was and the result is null.
CVekDataItem* CVekDataItem::makeWay(const wchar_t* path, const CVekDataKey* key)
{
    CVekDataItem contents;          // of the leaf that becomes a directory
    CVekDataItem* former = nullptr; // that leaf
    CVekDataItem* fresh = nullptr;  // the first new child of an existing directory
    CVekDataItem* item = this;
    while (item && (path || key)) {
        if (!item->isDir() && !former && !fresh) {
            former = item;
            item = &contents;
        }
        CVekDataDir* dir = item->mkDir();
        DataName name;
        CVekDataKey::keyType nameType = CVekDataKey::keyText;
        item = dir && path ? dir->child({path, static_cast<unsigned>(std::wcslen(path)), 0}) : nullptr;
        if (item)
            break;
        if (key) {
            name = DataName::of(*key);
            nameType = key->type();
            key = key->next();
        } else {
            path = firstName(path, name);
        }
        if (!dir || nameType == CVekDataKey::keyLost)
            break;
        const int before = dir->len();
        item = dir->makeChild(name, nameType);
        if (!former && !fresh && dir->len() != before)
            fresh = item;
    }
    if (!item) {
        if (fresh)
            fresh->m_parent->letGo(fresh);
    } else if (former) {
        *former = std::move(contents);
    }
    return item;
}

CVekDataItem* CVekDataItem::makeItem(const wchar_t* path)
{
    return makeWay(path, nullptr);
}

CVekDataItem* CVekDataItem::makeDir(const wchar_t* path)
{
    CVekDataItem* item = makeItem(path);
    return item && item->mkDir() ? item : nullptr;
}

CVekDataItem* CVekDataItem::getItem(const CVekDataKey* key) const
{
    if (!key || key->isEmpty())
        return const_cast<CVekDataItem*>(this);
    const CVekDataDir* dir = getDir();
    return dir ? dir->getItem(key) : nullptr;
}

CVekDataItem* CVekDataItem::makeItem(const CVekDataKey* key)
{
    return makeWay(nullptr, key && !key->isEmpty() ? key : nullptr);
}

void CVekDataItem::remove(const wchar_t* path)
{
    CVekDataItem* item = getItem(path);
    if (item && item != this)
        item->m_parent->letGo(item);
}

void CVekDataItem::clear()
{
    if (isObject(std::exchange(m_kind, DataKind::empty)))
        delete m_value.object;
}

/// Moves the contents of another item here; this one must be empty.
void CVekDataItem::takeOver(CVekDataItem& other)
{
    m_value = other.m_value;
    m_kind = std::exchange(other.m_kind, DataKind::empty);
    if (CVekDataDir* dir = getDir())
        dir->m_owner = this;
}

/// Copies the value of a leaf; this item must be empty.
bool CVekDataItem::copyLeaf(const CVekDataItem& source)
{
    switch (source.m_kind) {
#define VEK_COPY(T, kind)                                                                                              \
    case DataKind::kind: m_value.object = new T(*static_cast<const T*>(source.m_value.object)); break;
        VEK_OBJECT_KINDS(VEK_COPY)
#undef VEK_COPY
    default: m_value = source.m_value; break;
    }
    const bool good = !isObject(source.m_kind) || m_value.object;
    if (good)
        m_kind = source.m_kind;
    return good;
}

/// Copies a subtree, or nothing when it is missing, into this item, which must be empty.
/// @return false, with the item still empty, when memory runs out
bool CVekDataItem::copyFrom(const CVekDataItem* source)
{
    const bool good = VEK::whole(false, [&] { return !source || copyTree(*source); });
    if (!good)
        clear();
    return good;
}

/// Copies a subtree into this item, which must be empty. It walks by parents and places, so that a tree of any depth
/// needs no stack. When memory runs out the copy ends early.
bool CVekDataItem::copyTree(const CVekDataItem& source)
{
    const CVekDataItem* from = &source;
    CVekDataItem* to = this;
    for (;;) {
        const CVekDataDir* dir = from->getDir();
        const CVekDataItem* next = nullptr;
        if (dir) {
            if (!to->mkDir())
                return false;
            unsigned first = 0;
            next = dir->children().from(first);
            to = next ? to : to->getParent();
        } else {
            if (!to->copyLeaf(*from))
                return false;
            to = to->getParent();
        }
        while (!next && from != &source) {
            next = from->m_parent->children().after(*from);
            if (!next) {
                from = from->getParent();
                to = to->getParent();
            }
        }
        if (!next)
            return true;
        from = next;
        to = to->getDir()->makeChild(DataName::of(from->m_key), from->m_key.type());
        if (!to)
            return false;
    }
}

bool CVekDataItem::wholeNumber(long long& number) const
{
    constexpr double kLimit = 9223372036854775808.0; // 2^63
    switch (m_kind) {
    case DataKind::boolean: number = m_value.boolean; return true;
    case DataKind::integer: number = m_value.integer; return true;
    case DataKind::unit: number = m_value.unit; return true;
    case DataKind::unsignedLong: number = static_cast<long long>(m_value.unsignedLong); return number >= 0;
    case DataKind::real:
        if (!(m_value.real > -kLimit && m_value.real < kLimit))
            return false;
        number = static_cast<long long>(m_value.real);
        return true;
    default: return false;
    }
}

bool CVekDataItem::get(bool& value, const CVekDataKey* key) const
{
    const CVekDataItem* item = getItem(key);
    long long number = 0;
    if (!item || !item->wholeNumber(number))
        return false;
    value = number != 0;
    return true;
}

bool CVekDataItem::get(int& value, const CVekDataKey* key) const
{
    const CVekDataItem* item = getItem(key);
    long long number = 0;
    if (!item || !item->wholeNumber(number))
        return false;
    if (item->m_kind == DataKind::unsignedLong && number <= std::numeric_limits<unsigned>::max())
        number = static_cast<int>(static_cast<unsigned>(number));
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return false;
    value = static_cast<int>(number);
    return true;
}

bool CVekDataItem::get(unsigned long& value, const CVekDataKey* key) const
{
    const CVekDataItem* item = getItem(key);
    if (item && item->m_kind == DataKind::unsignedLong) {
        value = item->m_value.unsignedLong;
        return true;
    }
    long long number = 0;
    if (!item || !item->wholeNumber(number))
        return false;
    if (number < 0 && number >= std::numeric_limits<int>::min())
        number = static_cast<unsigned>(number);
    if (number < 0 || static_cast<unsigned long long>(number) > std::numeric_limits<unsigned long>::max())
        return false;
    value = static_cast<unsigned long>(number);
    return true;
}

bool CVekDataItem::get(double& value, const CVekDataKey* key) const
{
    const CVekDataItem* item = getItem(key);
    long long number = 0;
    if (!item)
        return false;
    if (item->m_kind == DataKind::real)
        value = item->m_value.real;
    else if (item->m_kind == DataKind::unsignedLong)
        value = static_cast<double>(item->m_value.unsignedLong);
    else if (item->wholeNumber(number))
        value = static_cast<double>(number);
    else
        return false;
    return true;
}

bool CVekDataItem::get(CVekString& value, const CVekDataKey* key) const
{
    return VEK::dataItemGet(this, key, value);
}

bool CVekDataItem::get(CVekPoint3d& value, const CVekDataKey* key) const
{
    return VEK::dataItemGet(this, key, value);
}

bool CVekDataItem::get(CVekPoint3dArray& value, const CVekDataKey* key) const
{
    return VEK::dataItemGet(this, key, value);
}

bool CVekDataItem::get(CVekVertexArray& value, const CVekDataKey* key) const
{
    return VEK::dataItemGet(this, key, value);
}

bool CVekDataItem::get(CVekArrayTempl<int>& value, const CVekDataKey* key) const
{
    return VEK::dataItemGet(this, key, value);
}

bool CVekDataItem::get(CVekArrayTempl<CVekString>& value, const CVekDataKey* key) const
{
    return VEK::dataItemGet(this, key, value);
}

template <class T>
const T* CVekDataItem::peek() const
{
    if (m_kind != kKindOf<T>)
        return nullptr;
    if constexpr (std::is_scalar_v<T>)
        return reinterpret_cast<const T*>(&m_value);
    else
        return static_cast<const T*>(m_value.object);
}

template <class T>
bool CVekDataItem::put(T value)
{
    if constexpr (std::is_scalar_v<T>) {
        clear();
        ::new (static_cast<void*>(&m_value)) T(value);
    } else if (m_kind == kKindOf<T>) {
        *static_cast<T*>(m_value.object) = std::move(value);
    } else {
        T* object = new T(std::move(value));
        if (!object)
            return false;
        clear();
        m_value.object = object;
    }
    m_kind = kKindOf<T>;
    return true;
}

#define VEK_LEAF(T, kind)                                                                                              \
    template VEK_API const T* CVekDataItem::peek() const;                                                              \
    template VEK_API bool CVekDataItem::put(T);
VEK_SCALAR_KINDS(VEK_LEAF)
VEK_OBJECT_KINDS(VEK_LEAF)
#undef VEK_LEAF
