/// @file
/// What a tree of the material library shows.
#pragma once

#include <vek/data/material.h>

namespace VEK
{

/// What is shown: bits of the flags of `CVekMatTreeCtrl` and of the material dialog.
enum MatTreeFlags : unsigned {
    matTreeDrawing = 1,  ///< the drawing's own materials, too, under a root of their own
    matTreeKeys = 2,     ///< the key before the label
    matTreeEdges = 4,    ///< only materials that have edge data of their own, or a material below them has
    matTreeSystem = 8,   ///< the material "SYSTEM", first under the root of the library
    matTreeNoSpace = 16, ///< not the material "SPACE", except below another one
    matTreePhys = 32,    ///< only materials that have the physical data asked for, or a material below them has
};

/// The pictures of the nodes, an index into the control's image list.
enum MatTreeImage : int {
    matImageNone = 0,    ///< a root, or a material without the data asked for, which stands for those below it
    matImageLibrary = 1, ///< a material of the library
    matImageDrawing = 2, ///< a material of the drawing
};

/// A material as the tree shows it.
struct MatTreeMaterial {
    CVekString key;
    CVekString text;
    int image = matImageNone; ///< a value of `MatTreeImage`
};

/// One place of a material in the tree.
struct MatTreeNode {
    static constexpr int library = -1; ///< parent of the library's materials
    static constexpr int drawing = -2; ///< parent of the drawing's own materials

    int material; ///< index into `MatTree::materials`
    int parent;   ///< index of another node, which comes before this one; or one of the two roots
};

/// The contents of a tree. A material that is below several others has several nodes.
struct MatTree {
    CVekArrayTempl<MatTreeMaterial> materials; ///< each one once, in no particular order
    CVekArrayTempl<MatTreeNode> nodes;         ///< in the order in which the tree shows them
    int selected = MatTreeNode::library;       ///< the node to select, or the root of the library
};

/// What a tree is to show.
struct MatTreeRequest {
    unsigned flags = 0;                         ///< bits of `MatTreeFlags`
    const wchar_t* selected = nullptr;          ///< key to select, in any case; null or empty for none
    const CVekArrayTempl<CVekString>& physKeys; ///< keys of the physical data asked for, in upper case
    const wchar_t* language = nullptr;          ///< of the labels; null for the process's language
    /// The order of two texts, below 0, 0 or above 0: the alphabet of the user.
    int (*order)(const wchar_t*, const wchar_t*);
};

/// Works out a tree of the material library; each material is read once.
///
/// Materials are sorted by their texts; directly under a root by their labels, in the order of characters, where texts
/// decide only among equal labels. "SYSTEM" comes first there, and is left out without its flag. Ties keep the
/// library's order. Of several nodes of the key to select it is the last one, in the library's order.
///
/// A tree ends even if the library does not: a material is left out below itself, and there are at most 256 levels.
/// Where materials are below several others over many levels, the number of nodes can double with each level; from
/// 65,536 nodes on, the materials below one that occurred before are not shown again. Each material of
/// these levels is thus in the tree, with no more further nodes than there are entries in lists of sub-materials.
/// @return false, with the tree unchanged, when memory runs out
VEK_API bool matTree(MatTree& tree, const CMatMgr& library, const MatTreeRequest& request);

/// Whether the physical data of a material have all keys.
VEK_API bool matHasPhys(const CMatProp& material, const CVekArrayTempl<CVekString>& physKeys);

} // namespace VEK
