// Extents, and views and fits, which depend on them.
#include "display/measure.h"
#include "display/stack.h"

#include <vek/display/gdx.h>
#include <vek/display/view.h>
#include <vek/geometry.h>

#include <cmath>

namespace
{

bool isFinite(const CVekPoint3d& p)
{
    return std::isfinite(p[0]) && std::isfinite(p[1]) && std::isfinite(p[2]);
}

/// The extents of a transformed polyline; false, with the corners unchanged, for an empty one. Straight segments need
/// no transformed copy.
bool extentsUnder(const CVekVertexArray& vl, const CVekMatrix3d& m, CVekPoint3d& min, CVekPoint3d& max)
{
    const auto isArc = [](const CVekVertex& vertex) { return vertex.bulge != 0.0; };
    if (std::any_of(vl.begin(), vl.end(), isArc))
        return vl.getTransformedCopy(m).extents(min, max);
    if (vl.len() == 0)
        return false;
    min = max = vl[0].start * m;
    for (const CVekVertex& vertex : vl) {
        for (const CVekPoint3d& end : {vertex.start * m, vertex.end * m}) {
            min = VEK::p_min(min, end);
            max = VEK::p_max(max, end);
        }
    }
    return true;
}

} // namespace

void CVekGDX::Corners::add(const CVekPoint3d& low, const CVekPoint3d& high)
{
    if (!isFinite(low) || !isFinite(high))
        return;
    min = any ? VEK::p_min(min, low) : low;
    max = any ? VEK::p_max(max, high) : high;
    any = true;
}

CVekGDX::Corners CVekGDX::cornersGet() const
{
    Corners corners;
    corners.any = extmaxGet(corners.min, corners.max);
    return corners;
}

/// Stores both corners, or none when memory runs out.
void CVekGDX::cornersSet(const Corners& corners)
{
    if (corners.any && extMax.len() == 2) { // the usual case
        extMax[0] = corners.min;
        extMax[1] = corners.max;
        return;
    }
    extMax.setLogicalLength(0);
    if (!corners.any || !extMax.reserve(2))
        return;
    extMax.append(corners.min);
    extMax.append(corners.max);
}

void CVekGDX::addItem(Corners& corners, const CVekDisplayItem& item, const Seen& seen, const CVekMatrix3d& view)
{
    static const CVekVertexArray kEmpty;
    const CVekMatrix3d m = view * *seen.mtx;
    CVekPoint3d min, max;
    const auto add = [&](const CVekVertexArray& vl) {
        if (!extentsUnder(vl, m, min, max))
            min = max = CVekPoint3d::kOrigin;
        corners.add(min, max);
    };
    switch (item.type) {
    case dispPoint:
        min = item.point * m;
        corners.add(min, min);
        break;
    case dispPolyline: add(item.vl); break;
    case dispRegion: add(item.reg.len() ? item.reg[0] : kEmpty); break;
    case dispText:
        for (const Region& region : *seen.regl)
            add(region.len() ? region[0] : kEmpty);
        break;
    default: break;
    }
}

/// The same for an item that may change in passing: empty regions get an empty contour.
void CVekGDX::addCounted(Corners& corners, CVekDisplayItem& item, const Seen& seen, const CVekMatrix3d& view)
{
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

void CVekGDX::refresh_ext(const CVekPoint3d& point, const CVekMatrix3d& m)
{
    Corners corners = cornersGet();
    const CVekPoint3d moved = point * m;
    corners.add(moved, moved);
    cornersSet(corners);
}

void CVekGDX::refresh_ext(const CVekVertexArray& vl, const CVekMatrix3d& m)
{
    Corners corners = cornersGet();
    const bool complete = VEK::whole(false, [&] {
        CVekPoint3d min, max;
        extentsUnder(vl, m, min, max);
        corners.add(min, max);
        return extMax.reserve(2);
    });
    if (complete)
        cornersSet(corners);
}

void CVekGDX::refresh_ext()
{
    if (VEK::DisplayIndex* index = displayList.m_index.get())
        index->forgetExtents();
    Corners corners;
    if (measure(corners, projMtx * viewDirectionMtx, {}, [](int, const CVekDisplayItem&, Seen&) {}))
        cornersSet(corners);
}

bool CVekGDX::extmaxGet(CVekPoint3d& min, CVekPoint3d& max) const
{
    if (extMax.len() == 0)
        return false;
    min = extMax[0];
    max = extMax[1];
    return true;
}

bool CVekGDX::extmaxGet(const Stack& stack, CVekPoint3d& min, CVekPoint3d& max) const
{
    const unsigned long shortages = VEK::memoryShortages();
    bool any = false;
    CVekPoint3d low = min, high = max;
    CVekPoint3d itemMin; // kept from item to item: one without geometry merges the box of the previous one
    CVekPoint3d itemMax;
    const CVekMatrix3d view = projMtx * viewDirectionMtx;
    for (const int i : StackToItemNr(stack)) {
        const CVekDisplayItem& item = displayList[i];
        if (!item.hasExtents())
            continue;
        any = true;
        const CVekMatrix3d m = view * item.mtx;
        switch (item.type) {
        case dispPoint: itemMin = itemMax = item.point * m; break;
        case dispPolyline: extentsUnder(item.vl, m, itemMin, itemMax); break;
        case dispRegion: extentsUnder(item.reg[0], m, itemMin, itemMax); break;
        case dispText:
            for (const Region& region : item.regl)
                extentsUnder(region[0], m, itemMin, itemMax);
            break;
        default: break;
        }
        low = VEK::p_min(low, itemMin);
        high = VEK::p_max(high, itemMax);
    }
    if (VEK::memoryShortages() != shortages)
        return false;
    min = low;
    max = high;
    return any;
}

void CVekGDX::extMaxViewSet(const CVekPoint3d& min, const CVekPoint3d& max)
{
    extViewMin = min;
    extViewMax = max;
}

void CVekGDX::extMaxViewSet()
{
    extViewMin = extViewMax = CVekPoint3d::kOrigin;
    extmaxGet(extViewMin, extViewMax);
}

void CVekGDX::extMaxViewGet(CVekPoint3d& min, CVekPoint3d& max) const
{
    if (extViewMin != extViewMax) {
        min = extViewMin;
        max = extViewMax;
    } else {
        extmaxGet(min, max);
    }
}

/// Changes the projection and the view direction and recomputes the extents.
bool CVekGDX::look(const CVekMatrix3d& projection, const CVekMatrix3d& direction)
{
    Corners corners;
    if (!measure(corners, projection * direction, {}, [](int, const CVekDisplayItem&, Seen&) {}))
        return false;
    projMtx = projection;
    viewDirectionMtx = direction;
    cornersSet(corners);
    return true;
}

void CVekGDX::projMtxSet(const CVekMatrix3d& m)
{
    look(m, viewDirectionMtx);
}

void CVekGDX::viewDirectionMtxSet(const CVekMatrix3d& m)
{
    look(projMtx, m);
}

void CVekGDX::viewDirectionHvcSet(const CVekVector3d& direction)
{
    viewDirectionMtxSet(VEK::g_mtx_view(direction, CVekPoint3d::kOrigin, true));
}

bool CVekGDX::viewDirectionSet(CVekString keyword)
{
    const CVekVector3d direction = vek_gdx_view_vdir_get(keyword);
    if (direction.abs() == 0.0)
        return false;
    return look(projMtx, VEK::g_mtx_view(direction, CVekPoint3d::kOrigin, true));
}
