/// @file
/// Elements of an object: which there are, and how they are placed and coloured.
///
/// An object is a directory with its elements by name in "BT", its sub-assemblies in "BGR", shared definitions in
/// "DEF", what its elements have in common in "COMMON" and its unit in "UNIT"; `docs/objects.md` tells every key. The
/// object's unit is its default unit; an element may have one of its own, the insertion unit, for all its lengths.
#pragma once

#include <vek/data/item.h>
#include <vek/values/map.h>

#include <utility>

/// The key of an element in the map of `vek_bgr_strong`: the data of the object that the element belongs to, and the
/// element's name in that object's "BT" directory.
class VEK_API BgrBt : public std::pair<CVekDataItem*, CVekString>
{
public:
    BgrBt() = default;
    BgrBt(CVekDataItem* object, const CVekString& name, int placeInWalk = 0)
        : std::pair<CVekDataItem*, CVekString>(object, name), place(placeInWalk)
    {
    }

    /// The object's place in the walk that found it. Elements are ordered by it, then by name, so that the order does
    /// not depend on addresses. An object that several sub-assemblies refer to has a place for each.
    int place = 0;

    bool operator==(const BgrBt& other) const;
    bool operator<(const BgrBt& other) const;
};

/// Finds the elements to draw, of the object and then, in the order of the data, of its sub-assemblies. An element or a
/// sub-assembly is left out if "HIDE" is set or a status code is in its list in "STAT".
///
/// A sub-assembly that contains itself is not entered again, and none below the 64th.
/// @param second item with the status codes "GEN_STAT", "BGR_STAT" and "BGR_STAT2", or null
/// @param mtx is applied to the whole object
/// @param mode pass 1
/// @param parameters item whose "CMODE", "COORD", "ACT" and "MTX" are passed on, or null
/// @param elements receives the elements in place of what it held. The value of each is a directory with "MTX", the
///     placement of its sub-assembly, if it is not the identity, and "PARM", the element's own "PARM" and "CUT" with
///     those parameters over it. The keys point into the object's data
/// @return false, with the map unchanged, for null, for more than 262,144 elements and sub-assemblies, and when memory
///     runs out
VEK_API bool vek_bgr_strong(CVekDataItem* object, CVekDataItem* second, const CVekMatrix3d& mtx, int mode,
                            CVekDataItem* parameters, CVekMapTempl<BgrBt, CVekDataItem>& elements);

/// Whether an angle element is valid: thickness above 0, both legs longer than it, a fillet that fits, a length, and
/// units that exist ("UNIT", "INSUNIT", "DEFUNIT", as far as it has them).
VEK_API bool vek_bgr_bt_angle_check(const CVekDataItem* element);

namespace VEK
{

/// The complete data of an element: its own over the definitions it refers to, these over the object's "COMMON", with
/// the object's unit if it has none, and the status codes of `second`.
/// @return owned by the caller; null if there is no such element, or when memory runs out
VEK_API CVekDataItem* bgr_data_merge(CVekDataItem* object, const CVekString& name, CVekDataItem* second);

/// The default unit of an object, its own or that of the object around it.
/// @return false, with the unit unchanged, if there is none that has a size
VEK_API bool lobj_unit(const CVekDataItem* object, Vek::lUnit& unit);

/// The insertion unit of an element, or the default unit of its object.
/// @return false, with the unit unchanged, if there is no such element or no unit
VEK_API bool bgr_bt_unit(const CVekDataItem* object, const CVekString& name, Vek::lUnit& unit);

/// The matrix from an element to the display: `mtx`, the scale, the placement of the sub-assembly, the conversion from
/// insertion to default unit and the element's own placement, the last one applied first.
/// @param element merged data of the element
/// @param entry its value in the map of `vek_bgr_strong`, with "INSUNIT" and "DEFUNIT" in "PARM"
/// @param aux is carried from element to element for placements that build on one another; ours do not and leave it
VEK_API CVekMatrix3d getBtTransformation(const CVekDataItem* element, const CVekDataItem* entry,
                                         const CVekMatrix3d& mtx, double scale, double& aux);

/// Where a point of an element is in the picture: view coordinates, z = 0.
/// @param mtx element to world
/// @param view view to world
VEK_API CVekPoint3d getBtBasePoint(const CVekMatrix3d& mtx, const CVekMatrix3d& view, const CVekPoint3d& point);

/// Whether merged data are those of an element that is to be drawn: not hidden by "HIDE" nor by its status codes.
/// @param parameters change nothing
VEK_API bool checkBt(const CVekDataItem* element, const CVekDataItem* parameters);

/// Generates what can be derived from the data of an element or a definition: the region of its outline, under
/// "*REGION*" beside it. Derived data are replaced by each call and belong in no file.
/// @param mode pass 0
/// @return false for null and leaves, for an outline that is invalid, and when memory runs out
VEK_API bool objGen(CVekDataItem* item, int mode);

/// The layers of an element: "LAYER", or "0", and "LAYER_H" for its hidden lines, or the same.
/// @return false, with the names unchanged, for null and when memory runs out
VEK_API bool getBtLayer(const CVekDataItem* element, CVekString& visible, CVekString& hidden);

/// The colour of a layer, in the configuration at "*LAYER*" \ name \ "COLOR": a colour or an index.
/// @return false, with the colour unchanged, for an unknown layer
VEK_API bool layer_color(CVekColor& color, const CVekString& layer);

/// The layer of a logical name, in the configuration at "*LAYER*" \ "MAP" \ name.
/// @param second name to try if the first is unknown, or null
/// @return false, with the layer unchanged, if both are unknown
VEK_API bool phys_layer(CVekString& layer, const wchar_t* logical, const wchar_t* second);

/// The placement of an item: "MTX", or else "ORG" with "XDIR" and "ZDIR", or "AXIS", turned by "ROT" and scaled by
/// "SCALE". The identity without any, and for null. It may mirror or be singular.
VEK_API CVekMatrix3d g_mtx_local(const CVekDataItem* item);

/// The same into raw rows, with the translation converted from one unit to another.
/// @return false, with the rows unchanged, for null
VEK_API bool g_mtx_local(const CVekDataItem* item, double (*rows)[4], Vek::lUnit from, Vek::lUnit to);
inline bool g_mtx_local(const CVekDataItem* item, double (*rows)[4], int from, int to)
{
    return g_mtx_local(item, rows, static_cast<Vek::lUnit>(from), static_cast<Vek::lUnit>(to));
}

} // namespace VEK
