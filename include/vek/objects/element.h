/// @file
/// Elements of an object: which there are, and how they are placed and coloured.
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
    /// not depend on addresses.
    int place = 0;

    bool operator==(const BgrBt& other) const;
    bool operator<(const BgrBt& other) const;
};

VEK_API bool vek_bgr_strong(CVekDataItem* object, CVekDataItem* second, const CVekMatrix3d& mtx, int mode,
                            CVekDataItem* parameters, CVekMapTempl<BgrBt, CVekDataItem>& elements);
VEK_API bool vek_bgr_bt_angle_check(const CVekDataItem* element);

namespace VEK
{

VEK_API CVekDataItem* bgr_data_merge(CVekDataItem* object, const CVekString& name, CVekDataItem* second);
VEK_API bool lobj_unit(const CVekDataItem* object, Vek::lUnit& unit);
VEK_API bool bgr_bt_unit(const CVekDataItem* object, const CVekString& name, Vek::lUnit& unit);
VEK_API CVekMatrix3d getBtTransformation(const CVekDataItem* element, const CVekDataItem* entry,
                                         const CVekMatrix3d& mtx, double scale, double& aux);
VEK_API CVekPoint3d getBtBasePoint(const CVekMatrix3d& mtx, const CVekMatrix3d& view, const CVekPoint3d& point);
VEK_API bool checkBt(const CVekDataItem* element, const CVekDataItem* parameters);
VEK_API bool objGen(CVekDataItem* item, int mode);
VEK_API bool getBtLayer(const CVekDataItem* element, CVekString& visible, CVekString& hidden);
VEK_API bool layer_color(CVekColor& color, const CVekString& layer);
VEK_API bool phys_layer(CVekString& layer, const wchar_t* logical, const wchar_t* second);
VEK_API CVekMatrix3d g_mtx_local(const CVekDataItem* item);
VEK_API bool g_mtx_local(const CVekDataItem* item, double (*rows)[4], Vek::lUnit from, Vek::lUnit to);
VEK_API CVekString msgBoxTitle(const wchar_t* text);

} // namespace VEK
