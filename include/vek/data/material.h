/// @file
/// The material library.
#pragma once

#include <vek/data/item.h>
#include <vek/values/map.h>

namespace VEK
{

/// Where a material's data of one sort come from.
enum MatKind : int {
    matNone = 0,      ///< there are none
    matReference = 1, ///< another material has them
    matOwn = 2,       ///< the material has them itself
};

/// The properties of a material.
class VEK_API CMatProp : public CVekObj
{
public:
    CVekArrayTempl<CVekString> subKeys;    ///< keys of the sub-materials
    int physKind = matNone;                ///< a value of `MatKind`
    CVekMapTempl<CVekString, double> phys; ///< physical data by key in capital letters
    CVekString physRef;                    ///< the material that has the physical data, for `matReference`
    int edgeKind = matNone;                ///< a value of `MatKind`
    CVekArrayTempl<CVekString> edges;      ///< names of the edge data
    CVekString edgeRef;                    ///< the material that has the edge data, for `matReference`
};

/// The materials of the library and of the drawing. It holds no data of its own: every call reads the trees.
///
/// The library stands in the configuration under "*MAT*", the drawing's own materials (shadow materials) in its data
/// object of the kind "MAT"; a key of both is the drawing's. Each child is a material, its key the material's, with
///  - "LABEL": its label, plain or in several languages;
///  - "SUBS": list of texts, the keys of its sub-materials;
///  - "SUB": bool, set for a material that stands below others only;
///  - "PHYS": a directory of numbers (own data), or a text, the key of the material that has them;
///  - "EDGE": a list of texts (own data), or a text, the key of the material that has them.
class VEK_API CMatMgr : public CVekObj
{
public:
    /// The keys of all materials that do not stand below others only: the library's, then the drawing's.
    /// @param drawingOnly leaves the library's out
    void matDrawAll(CVekArrayTempl<CVekString>& keys, bool drawingOnly) const;

    /// Fills the properties of a material.
    /// @return false, with the properties untouched, for an unknown key
    bool propGet(const wchar_t* key, CMatProp& prop) const;

    /// The material's label in a language, or in another when it has none there; empty without one.
    CVekString matLabel(const wchar_t* key, const wchar_t* language) const;

    /// Whether the drawing holds the material for itself.
    bool isShadowMat(const wchar_t* key) const;
};

} // namespace VEK
