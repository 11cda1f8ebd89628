/// @file
/// What the material dialog does without its window.
#pragma once

#include <vek/controls/material_tree.h>

namespace VEK
{

/// The flags of the tree, see `MatTreeFlags`, that options of the material dialog give.
/// @param options words: "EDGE" for materials with edge data; "PHYS" for those with physical data, which counts only
/// without "EDGE"; "SYSTEM" adds the material "SYSTEM", "SPACE" leaves the material "SPACE" out. Others are ignored
VEK_API unsigned matDialogFlags(const CVekArrayTempl<CVekString>& options, bool drawingMats, bool showKeys);

/// Whether a material can be chosen, given the flags and physical keys of the tree that shows it. "SYSTEM" always can.
///
/// With `matTreeEdges` a material needs edge data, own ones that are not empty or a reference to another material,
/// which is not followed. With `matTreePhys` it needs physical data that have all the keys, its own or those at the end
/// of its references; references that come back to themselves lead nowhere. With both flags, edge data of its own are
/// enough.
/// @return false, too, when memory runs out
VEK_API bool matCanBeChosen(const CMatMgr& library, const wchar_t* key, unsigned flags,
                            const CVekArrayTempl<CVekString>& physKeys);

} // namespace VEK
