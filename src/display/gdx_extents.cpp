// Extents, and what depends on them: views and fits.
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

/// The extents of a polyline under a matrix; false, and the corners stay, for an empty one. Straight segments need no
/// transformed copy.
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

void CVekGDX::refresh_ext(const CVekPoint3d& point, const CVekMatrix3d& m)
{
    const CVekPoint3d moved = point * m;
    mergeCorners(moved, moved);
}

void CVekGDX::refresh_ext(const CVekVertexArray& vl, const CVekMatrix3d& m)
{
    CVekPoint3d min;
    CVekPoint3d max;
    extentsUnder(vl, m, min, max);
    mergeCorners(min, max);
}

void CVekGDX::mergeCorners(const CVekPoint3d& min, const CVekPoint3d& max)
{
    if (!isFinite(min) || !isFinite(max))
        return;
    if (extMax.len() == 0) {
        extMax.append(min);
        extMax.append(max);
    } else {
        extMax[0] = VEK::p_min(extMax[0], min);
        extMax[1] = VEK::p_max(extMax[1], max);
    }
}

void CVekGDX::mergeExtents(const CVekDisplayItem& item, const CVekMatrix3d& view)
{
    static const CVekVertexArray kEmpty;
    const CVekMatrix3d m = view * item.mtx;
    switch (item.type) {
    case dispPoint: refresh_ext(item.point, m); break;
    case dispPolyline: refresh_ext(item.vl, m); break;
    case dispRegion: refresh_ext(item.reg.len() ? item.reg[0] : kEmpty, m); break;
    case dispText:
        for (const Region& region : item.regl)
            refresh_ext(region.len() ? region[0] : kEmpty, m);
        break;
    default: break;
    }
}

void CVekGDX::refresh_ext()
{
    extMax.setLogicalLength(0);
    const CVekMatrix3d view = projMtx * viewDirectionMtx;
    for (CVekDisplayItem& item : displayList) {
        if (!item.hasExtents())
            continue;
        if (item.type == dispRegion && item.reg.len() == 0)
            item.reg.setLogicalLength(1);
        if (item.type == dispText) {
            for (Region& region : item.regl) {
                if (region.len() == 0)
                    region.setLogicalLength(1);
            }
        }
        mergeExtents(item, view);
    }
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
    bool any = false;
    CVekPoint3d itemMin; // kept from item to item: one without geometry merges what the one before it left
    CVekPoint3d itemMax;
    const CVekMatrix3d view = projMtx * viewDirectionMtx;
    for (const CVekDisplayItem& item : displayList) {
        if (!item.hasExtents() || !VEK::inGroup(item, stack))
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
        min = VEK::p_min(min, itemMin);
        max = VEK::p_max(max, itemMax);
    }
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

void CVekGDX::projMtxSet(const CVekMatrix3d& m)
{
    projMtx = m;
    refresh_ext();
}

void CVekGDX::viewDirectionMtxSet(const CVekMatrix3d& m)
{
    viewDirectionMtx = m;
    refresh_ext();
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
    viewDirectionHvcSet(direction);
    return true;
}
