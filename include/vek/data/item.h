/// @file
/// The nodes of the data tree.
#pragma once

#include <vek/data/key.h>
#include <vek/values/color.h>
#include <vek/values/linetype.h>
#include <vek/values/pointer.h>
#include <vek/values/polyline.h>
#include <vek/values/units.h>

class CVekDataDir;
struct resbuf;

namespace VEK
{

class CDataChildren;

/// A list of polylines, or one region: outline and holes.
using VertexArrays = CVekArrayTempl<CVekVertexArray>;

/// A list of regions.
using Regions = CVekArrayTempl<CVekArrayTempl<CVekVertexArray>>;

/// What a node of the data tree holds.
enum class DataKind {
    empty, ///< a leaf without a value
    boolean,
    integer,
    unsignedLong,
    real,
    text,
    point,
    points,
    matrix,
    polyline,
    polylines,
    regions,
    integers,
    texts,
    color,
    unit,
    hatch,
    directory
};

} // namespace VEK

/// A node of the data tree: a leaf that holds one value, or a directory that holds named children in order of
/// insertion.
///
/// A child keeps its address as long as it is in its directory, also when a leaf gets a new value. The tree owns what
/// `getItem` and similar functions return. A tree of any depth can be copied and destroyed. When memory runs out a tree
/// stays as it was; see `<vek/values/memory.h>`.
///
/// Reading never converts, with one exception: `bool`, `int`, `unsigned long`, `double` and the length unit read as one
/// another. Fractions are truncated towards zero; a negative integer reads as the `unsigned long` of the same 32 bits,
/// and back; a value that the target cannot hold is not read.
///
/// Paths given as text descend at backslashes, empty names included. At each level a child named exactly as the
/// remaining text takes precedence. A null text is the item itself, and L"" is the child named "".
class VEK_API CVekDataItem : public CVekObj
{
public:
    /// What a new item is.
    enum type : int { leaf = 0, directory = 1 };

    /// An empty leaf.
    CVekDataItem();

    /// An empty item of a kind given by a value of `type`: 1 makes a directory.
    explicit CVekDataItem(int kind);

    /// A deep copy. A null source gives an empty leaf, and so does running out of memory, which `clone` reports.
    CVekDataItem(const CVekDataItem& other);
    explicit CVekDataItem(const CVekDataItem* source);

    /// Moves the contents and leaves an empty leaf behind. Children keep their addresses.
    CVekDataItem(CVekDataItem&& other) noexcept;

    ~CVekDataItem() override;

    /// Copies deeply or moves the contents; the item keeps its place and key. The source may be below or above this
    /// item in the tree.
    CVekDataItem& operator=(const CVekDataItem& other);
    CVekDataItem& operator=(CVekDataItem&& other) noexcept;

    /// A deep copy on the heap, owned by the caller; null when memory runs out.
    CVekDataItem* clone() const;

    VEK::DataKind kind() const { return m_kind; }
    bool isDir() const { return m_kind == VEK::DataKind::directory; }

    /// The directory, owned by the item; null for a leaf.
    CVekDataDir* getDir() const;

    /// Turns a leaf into an empty directory.
    /// @return the directory, owned by the item
    CVekDataDir* mkDir();

    /// The child directory at a path; missing parts of the path are created, and leaves on it become directories. The
    /// text may be that of such a leaf. Null, here and below, when memory runs out.
    CVekDataItem* makeDir(const wchar_t* path);

    /// The item at a path, created as an empty leaf if missing.
    CVekDataItem* makeItem(const wchar_t* path);
    CVekDataItem* makeItem(const CVekDataKey* key);

    /// The item at a path, or null if absent.
    CVekDataItem* getItem(const wchar_t* path) const;
    CVekDataItem* getItem(const CVekDataKey* key) const;
    CVekDataItem* getItem(std::nullptr_t) const { return getItem(static_cast<const CVekDataKey*>(nullptr)); }

    /// The key of the item in its parent; a key without an element if it has no parent.
    const CVekDataKey* getKey() const { return &m_key; }

    /// The item whose directory contains this one, or null.
    CVekDataItem* getParent() const;

    /// Reads the value at a path; a null key reads the item's own.
    /// @param value receives the value; unchanged on failure
    /// @return false if the path is absent or its value is not of that type
    bool get(bool& value, const CVekDataKey* key = nullptr) const;
    bool get(int& value, const CVekDataKey* key = nullptr) const;
    bool get(unsigned long& value, const CVekDataKey* key = nullptr) const;
    bool get(double& value, const CVekDataKey* key = nullptr) const;
    bool get(CVekString& value, const CVekDataKey* key = nullptr) const;
    bool get(CVekPoint3d& value, const CVekDataKey* key = nullptr) const;
    bool get(CVekPoint3dArray& value, const CVekDataKey* key = nullptr) const;
    bool get(CVekVertexArray& value, const CVekDataKey* key = nullptr) const;
    bool get(CVekArrayTempl<int>& value, const CVekDataKey* key = nullptr) const;
    bool get(CVekArrayTempl<CVekString>& value, const CVekDataKey* key = nullptr) const;

    /// The stored value, owned by the item and valid until it changes; null if the item holds another type. T is one of
    /// the leaf types that `dataItemGet` reads.
    template <class T>
    const T* peek() const;

    /// Replaces the contents, including children, by a value.
    /// @return false, with the contents as they were, when memory runs out
    template <class T>
    bool put(T value);

    /// Removes the child at a path; an absent one is no error.
    void remove(const wchar_t* path);

    /// Replaces the contents by what a chain describes, in the form of `mkLisp` or the `mkResbuf` family.
    /// @param chain always released; null describes an empty directory
    /// @param reserved pass false
    /// @return false, with the contents as they were, if the chain describes no value
    bool setData(resbuf* chain, bool reserved);

    /// The item as a chain, owned by the caller. A leaf has the form of the `mkResbuf` family, a directory is the
    /// sequence of its children, each a list of key, dot (5018) and value, without an enclosing list; null for an empty
    /// directory, and when memory runs out.
    resbuf* mkLisp() const;

private:
    friend class CVekDataDir;
    friend class VEK::CDataChildren;

    /// Numbers are stored in place; everything else, including a directory, is a separate object.
    union Value {
        bool boolean;
        int integer;
        unsigned long unsignedLong;
        double real = 0.0;
        Vek::lUnit unit;
        CVekObj* object;
    };

    void clear();
    void takeOver(CVekDataItem& other);
    bool copyLeaf(const CVekDataItem& source);
    CVekDataItem* makeWay(const wchar_t* path, const CVekDataKey* key);
    bool copyFrom(const CVekDataItem* source);
    bool copyTree(const CVekDataItem& source);
    bool wholeNumber(long long& number) const;

    VEK::DataKind m_kind = VEK::DataKind::empty;
    unsigned m_slot = 0; ///< place in the parent
    Value m_value;
    CVekDataDir* m_parent = nullptr;
    CVekDataKey m_key;
    VEK::CSharedPointer<CVekDataItem> m_shared; ///< the item itself, while other holders share it with the parent
};

namespace VEK
{

/// Reads the value at a path of an item, as `CVekDataItem::get` does.
/// @return false, with the target unchanged, for a null item, an absent path or a value of another type, and when
/// memory runs out
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, bool& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, int& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, unsigned long& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, double& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekString& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekPoint3d& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekPoint3dArray& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekMatrix3d& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, double (*rows)[4]);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekVertexArray& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, VertexArrays& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, Regions& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekArrayTempl<int>& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekArrayTempl<CVekString>& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CVekColor& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, Vek::lUnit& value);
VEK_API bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, CHatchProp& value);

/// Stores a value at a path of an item: missing parts of the path are created, leaves on it become directories, and an
/// existing item is replaced but keeps its address. The value may be a part of the tree.
/// @return false, with the tree as it was, for a null item and when memory runs out
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, bool value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, int value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, unsigned long value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, double value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const wchar_t* value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekString& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekPoint3d& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekPoint3dArray& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekMatrix3d& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const double (*rows)[4]);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekVertexArray& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const VertexArrays& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const Regions& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekArrayTempl<int>& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekArrayTempl<CVekString>& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CVekColor& value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, Vek::lUnit value);
VEK_API bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const CHatchProp& value);
bool dataItemSet(CVekDataItem* item, const CVekDataKey* key, const void* value) = delete; // no pointer is a bool

/// Reads the value at a text path of an item; a null path reads the item's own.
/// @return false, with the target unchanged, as with `dataItemGet`
template <class T>
bool dataGet(const CVekDataItem* item, const wchar_t* path, T& target)
{
    return item && dataItemGet(item->getItem(path), nullptr, target);
}

/// Stores a value at a text path of an item; a null path replaces the item's own. Path and value may be parts of the
/// tree.
/// @return false as with `dataItemSet`
template <class T>
bool dataSet(CVekDataItem* item, const wchar_t* path, const T& value)
{
    CVekDataItem leaf;
    CVekDataItem* place = item && dataItemSet(&leaf, nullptr, value) ? item->makeItem(path) : nullptr;
    if (place)
        *place = std::move(leaf);
    return place != nullptr;
}

/// Stores a list at a text path of an item, which becomes a directory. An empty list removes what is there. A null or
/// empty text replaces the item's own value. Path and value may be parts of the tree.
/// @return false for a null item and if the value cannot be stored
VEK_API bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekArrayTempl<int>& value);
VEK_API bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekArrayTempl<CVekString>& value);
VEK_API bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekMatrix3d& value);
VEK_API bool dataSetList(CVekDataItem* item, const wchar_t* key, const CVekVertexArray& value);

} // namespace VEK
