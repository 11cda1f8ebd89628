// The section of a bar, on which a face is picked.
#include "images/emission.h"

#include <vek/geometry/region.h>
#include <vek/images/object.h>
#include <vek/objects.h>

namespace
{

using VEK::dataGet, VEK::isDir, VEK::valueOr;

VEK::Regions regionsOf(const CVekDataItem* element)
{
    VEK::Regions regions;
    if (const CVekDataItem* reference = element->getItem(L"XREF")) {
        const VEK::CUniqPointer<VEK::CDtaFilePointer> file(VEK::dtaOpen(vekDtaMemory, 3, nullptr, reference));
        regions = VEK::bar_regl(file, CVekMatrix3d::kIdentity);
    } else {
        dataGet(element, L"REGL", regions);
    }
    VEK::VertexArrays lines;
    if (regions.len() == 0 && dataGet(element, L"VL", lines))
        regions = VEK::g_vll_regions(VEK::vll_regions_prepare(lines), 4);
    return regions;
}

CVekMatrix3d matrixOf(const CVekDataItem* element)
{
    CVekMatrix3d mtx;
    return dataGet(element, L"MTX", mtx) ? mtx : VEK::g_mtx_local(element);
}

void drawRegions(const VEK::Emission& emission, unsigned long flag, VEK::Regions&& regions)
{
    for (CVekGDX::Region& region : regions)
        emission.region(flag, std::move(region));
}

/// Draws the coated surfaces as thick lines. A surface without a line of its own repeats the one before it: data that
/// stores the line of two equal surfaces once relies on that.
void drawSurfaces(const VEK::Emission& emission, const CVekDataItem* surfaces, const CVekVertexArray& outline)
{
    CVekVertexArray line;
    for (const wchar_t* name : {L"1", L"2", L"TOTAL"}) {
        const CVekDataItem* surface = isDir(surfaces) ? surfaces->getItem(name) : nullptr;
        if (!isDir(surface))
            continue;
        if (name[0] == L'T')
            line = outline;
        else
            dataGet(surface, L"VL", line);
        CVekColor coat;
        if (!dataGet(surface, L"COAT", coat))
            coat.setColorIndex(3);
        if (line.len() > 0)
            emission.line(0, CVekVertexArray(line), coat, 3);
    }
}

} // namespace

bool vek_gdx_image_bar_surface(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    if (!gdx || !object || !params)
        return false;
    return VEK::emitWhole(*gdx, [&] {
        const VEK::CUniqPointer<VEK::CDtaFilePointer> linked(object->lobjGet(nullptr, false));
        const CVekDataItem* wish = VEK::rootOf(params);
        const CVekString groupName = valueOr(wish, L"GRP", CVekString());
        const CVekString elementName = valueOr(wish, L"BT", CVekString());
        const CVekDataKey groupKey(groupName);
        const CVekDataKey elementKey(elementName);
        const CVekDataItem* group = VEK::fileItem(linked, &groupKey);
        const CVekDataItem* element = isDir(group) ? group->getItem(&elementKey) : nullptr;
        if (!isDir(element))
            return false;

        VEK::Emission emission(*gdx);
        VEK::Regions regions = regionsOf(element);
        const CVekVertexArray outline = regions.len() > 0 && regions[0].len() > 0 ? regions[0][0] : CVekVertexArray();
        drawRegions(emission, itemOutline, std::move(regions));
        drawSurfaces(emission, element->getItem(L"SURFACE"), outline);
        for (const wchar_t* pick : {L"PICK\\P1", L"PICK\\P2"}) {
            CVekPoint3d point;
            if (dataGet(wish, pick, point)) // a negative size stays as it is in every zoom
                gdx->imagePt({}, VEK::modeFlag(VEK::colorHighlight), point, CVekColor(), CVekMatrix3d::kIdentity, -10.0,
                             3, CVekPoint3d::kOrigin);
        }

        const CVekMatrix3d toElement = matrixOf(element).inverse();
        CVekArrayTempl<CVekDataKey> keys;
        VEK::bar_bt_subs(keys, VEK::rootOf(object), groupName, elementName);
        for (const CVekDataKey& key : keys) {
            const CVekDataKey name(static_cast<const wchar_t*>(key));
            const CVekDataItem* sub = group->getItem(&name);
            if (!sub)
                continue;
            emission.mtx = toElement * matrixOf(sub);
            drawRegions(emission, VEK::modeFlag(VEK::colorAux) | itemOutline, regionsOf(sub));
        }
        return true;
    });
}
