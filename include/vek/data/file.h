/// @file
/// Open data files.
#pragma once

#include <vek/data/item.h>

/// Kind of a data file. Only these two can be opened.
using VekDtaType = int;
inline constexpr VekDtaType vekDtaDrawing = 3; ///< a data object of the drawing
inline constexpr VekDtaType vekDtaMemory = 6;  ///< a file in memory

namespace VEK
{

/// The host's name of an entity of the drawing. A default-constructed one names nothing.
class VEK_API CAdsName : public CVekObj
{
public:
    CAdsName() = default;
    CAdsName(long long first, long long second) : m_name{first, second} {}

    bool isNull() const { return m_name[0] == 0 && m_name[1] == 0; }
    long long operator[](int index) const { return m_name[index & 1]; }
    bool operator==(const CAdsName& other) const
    {
        return m_name[0] == other.m_name[0] && m_name[1] == other.m_name[1];
    }

private:
    long long m_name[2] = {0, 0};
};

/// An open data file: its own data tree, or a place in a shared one. Items that it returns belong to that tree and are
/// valid while the file is open.
class VEK_API CDtaFilePointer : public CVekObj
{
public:
    CDtaFilePointer(const CDtaFilePointer&) = delete;
    CDtaFilePointer& operator=(const CDtaFilePointer&) = delete;

    /// The item at a path; a null key or text gives the root. A text is a path as with `CVekDataItem::getItem`.
    ///
    /// Callers query an optional file without testing for null, so a call on a null pointer gives null. New code should
    /// use `fileItem`: such a call is undefined behaviour in C++.
    /// @param reserved pass false
    /// @return null if it is absent
    CVekDataItem* get(const CVekDataKey* key, bool reserved) const;
    CVekDataItem* get(const wchar_t* path, bool reserved) const;
    CVekDataItem* get(std::nullptr_t, bool reserved) const;

    /// Stores a copy at a path, creating what is missing; a null item gives an empty leaf, a null key replaces the
    /// root.
    /// @return false, with the file as it was, when memory runs out
    bool set(const CVekDataItem* item, const CVekDataKey* key);

    /// Lists the keys below a path, each of one element.
    /// @param keys is emptied first
    /// @return false if there is no directory at the path, or when memory runs out
    bool dir(CVekArrayTempl<CVekDataKey>& keys, const CVekDataKey* key) const;

    /// Opens the linked object of the file, the directory "LOBJ" of its root. What is written to it is written to this
    /// file; either may be closed first.
    /// @param key further elements of the path to the object, null for none
    /// @param reserved pass false
    /// @return a new file, owned by the caller; null if there is no such object
    CDtaFilePointer* lobjGet(const CVekDataKey* key, bool reserved) const;

private:
    friend VEK_API CDtaFilePointer* dtaOpen(VekDtaType type, unsigned long mode, const CAdsName& name,
                                            const CVekDataKey* key, const CVekDataItem* item);
    friend VEK_API CDtaFilePointer* dtaOpen(VekDtaType type, unsigned long mode, const CVekDataKey* key,
                                            const CVekDataItem* item);

    CDtaFilePointer(const CSharedPointer<CVekDataItem>& tree, const CVekDataKey& way) : m_tree(tree), m_way(way) {}

    CVekDataItem* root() const;

    friend VEK_API CVekDataItem* fileItem(const CDtaFilePointer* file, const CVekDataKey* key);
    friend VEK_API CVekDataItem* fileItem(const CDtaFilePointer* file, const wchar_t* path);

    CSharedPointer<CVekDataItem> m_tree;
    CVekDataKey m_way; ///< from the tree to the root of this file; without an element for the tree itself
};

/// Opens the data object of a drawing entity known to the host, type 3; writing to the file writes to the drawing. With
/// type 6 the name is ignored.
/// @param mode pass 3
/// @param key where `item` is stored after opening, null for the root
/// @param item null to leave the contents as they are
/// @return a file owned by the caller; null for an unknown type, if the drawing has no such object, and here and below
/// when memory runs out
VEK_API CDtaFilePointer* dtaOpen(VekDtaType type, unsigned long mode, const CAdsName& name, const CVekDataKey* key,
                                 const CVekDataItem* item);

/// Opens a file in memory, type 6: a copy of the item, or an empty directory when it is null.
/// @param mode pass 3
/// @param key where in the file the copy is stored, null for the root
/// @return a file owned by the caller; null for another type
VEK_API CDtaFilePointer* dtaOpen(VekDtaType type, unsigned long mode, const CVekDataKey* key, const CVekDataItem* item);

/// The item at a path of a file; null if the file is null or has no such item.
VEK_API CVekDataItem* fileItem(const CDtaFilePointer* file, const CVekDataKey* key);
VEK_API CVekDataItem* fileItem(const CDtaFilePointer* file, const wchar_t* path);

/// Stores a value at a path of a file.
/// @return false for a null file
VEK_API bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, const wchar_t* value);
VEK_API bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, const CVekString& value);
VEK_API bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, int value);
VEK_API bool fileItemSet(CDtaFilePointer* file, const CVekDataKey* key, const CVekVertexArray& value);

} // namespace VEK
