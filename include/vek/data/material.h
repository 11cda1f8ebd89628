/// @file
/// The material library.
#pragma once

#include <vek/data/item.h>
#include <vek/values/map.h>

namespace VEK
{

/// Where one kind of a material's data comes from.
enum MatKind : int {
    matNone = 0,      ///< there is none
    matReference = 1, ///< from another material
    matOwn = 2,       ///< the material's own
};

/// The properties of a material.
class VEK_API CMatProp : public CVekObj
{
public:
    CVekArrayTempl<CVekString> subKeys;    ///< keys of the sub-materials
    int physKind = matNone;                ///< a value of `MatKind`
    CVekMapTempl<CVekString, double> phys; ///< physical data by upper-case key
    CVekString physRef;                    ///< the material with the physical data, for `matReference`
    int edgeKind = matNone;                ///< a value of `MatKind`
    CVekArrayTempl<CVekString> edges;      ///< names of the edge data
    CVekString edgeRef;                    ///< the material with the edge data, for `matReference`
};

/// The materials of the library and of the drawing. It stores nothing: every call reads the trees.
///
/// The library is in the configuration under "*MAT*", the drawing's own materials (shadow materials) in its data object
/// of the kind "MAT"; if both have a key, the drawing's material is used. Each child is a material under its key, with
///  - "LABEL": its label, plain or in several languages;
///  - "SUBS": list of texts, the keys of its sub-materials;
///  - "SUB": bool, set for a material that occurs only as a sub-material;
///  - "PHYS": a directory of numbers (own data), or a text, the key of the material with the data;
///  - "EDGE": a list of texts (own data), or a text, the key of the material with the data.
class VEK_API CMatMgr : public CVekObj
{
public:
    /// The keys of all materials except those that occur only as sub-materials: the library's, then the drawing's.
    /// @param drawingOnly leaves out the library's
    void matDrawAll(CVekArrayTempl<CVekString>& keys, bool drawingOnly) const;

    /// Fills the properties of a material.
    /// @return false, with the properties unchanged, for an unknown key
    bool propGet(const wchar_t* key, CMatProp& prop) const;

    /// The material's label in a language, or in another if it has none in that; empty without any.
    CVekString matLabel(const wchar_t* key, const wchar_t* language) const;

    /// Whether the drawing has a material of that key.
    bool isShadowMat(const wchar_t* key) const;
};

} // namespace VEK
