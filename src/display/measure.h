// The extents after a change, computed before the change is made.
#pragma once

#include "core/values/whole.h"

#include <vek/display/gdx.h>

/// Computes the extents of all items that count. A region without contours, and such a region of a text, gets one empty
/// contour in passing.
/// @param look is called with each item and changes what the extents take from it
/// @return false when memory runs out; otherwise there is room for the corners
template <class Look>
bool CVekGDX::measure(Corners& corners, const CVekMatrix3d& view, Look&& look)
{
    return VEK::whole(false, [&] {
        for (int i = 0; i < displayList.len(); ++i) {
            CVekDisplayItem& item = displayList.item(i);
            Seen seen{item.hasExtents(), &item.mtx, &item.regl};
            look(item, seen);
            if (!seen.counts)
                continue;
            if (item.type == dispRegion && item.reg.len() == 0)
                item.reg.setLogicalLength(1);
            if (item.type == dispText) {
                for (Region& region : *seen.regl) {
                    if (region.len() == 0)
                        region.setLogicalLength(1);
                }
            }
            addItem(corners, item, seen, view);
        }
        return extMax.reserve(2);
    });
}
