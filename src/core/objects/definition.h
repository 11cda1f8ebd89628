/// @file
/// The data of an element as it is meant: its own, that of the definitions it refers to, and what its object's elements
/// have in common.
#pragma once

#include <vek/data/item.h>

namespace VEK::objects
{

/// The object whose "BGR" or "DEF" directory contains the given one, or null.
CVekDataItem* enclosing(const CVekDataItem* object);

/// Whether the unit has a size.
bool isUnit(Vek::lUnit unit);

/// The unit of an object, its own or that of an enclosing one; `unitNone` without any.
Vek::lUnit unitOf(const CVekDataItem* object);

/// Whether the directory holds a key that places it.
bool isPlaced(const CVekDataItem* item);

/// Whether a key of an element leaves its geometry alone.
bool isNeutral(const wchar_t* key);

/// The directories that make up an element or a sub-assembly, the topmost first: its own, and those it refers to. Each
/// reference is looked up where it stands: in the "DEF" of the object, then of those around it.
class Layers
{
public:
    /// @param own a directory of the object; the layers are empty if it is none
    /// @param withCommon whether the object's "COMMON" lies beneath
    Layers(CVekDataItem* own, const CVekDataItem* object, bool withCommon);

    int len() const { return m_count; }
    CVekDataItem* operator[](int index) const { return m_layers[index]; }

    /// Whether references led from the first layer to another one.
    bool refers() const { return m_refers; }

    /// Reads the value at a path from the first layer that has one.
    template <class T>
    bool get(const wchar_t* path, T& value) const
    {
        for (int i = 0; i < m_count; ++i) {
            if (dataGet(m_layers[i], path, value))
                return true;
        }
        return false;
    }

    /// The unit of the lengths of an element, or that of its object.
    Vek::lUnit unit(const CVekDataItem* object) const;

    /// The first layer that is placed, or the first one.
    const CVekDataItem* placed() const;

    /// Whether "HIDE", or "STAT" with one of the status codes of `status`, hides it.
    bool isHidden(const CVekDataItem* status) const;

    /// Lays a child directory of all layers, or the layers themselves for null, over what `target` holds.
    void merge(CVekDataItem& target, const wchar_t* child) const;

private:
    static constexpr int kMost = 32;

    void add(CVekDataItem* layer);

    CVekDataItem* m_layers[kMost];
    int m_count = 0;
    bool m_refers = false;
};

/// Lays the children of a directory over those of another: directories merge, anything else replaces what was there.
void layOver(CVekDataItem& target, const CVekDataItem& over, int depth = 0);

/// The keys under which status codes are stored.
inline constexpr const wchar_t* kStatusKeys[] = {L"GEN_STAT", L"BGR_STAT", L"BGR_STAT2"};

} // namespace VEK::objects
