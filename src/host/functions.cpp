#include "host/host_images.h"

#include "core/values/whole.h"

#include <vek/data.h>
#include <vek/display/registry.h>
#include <vek/draw/text.h>
#include <vek/geometry/view.h>
#include <vek/images.h>

namespace VEK::host
{

bool textToRegions(resbuf* arguments, Regions& regions)
{
    CVekDataItem item;
    if (!fromRb(item, arguments, 0) || !item.isDir())
        return false;
    CVekString text;
    CVekString align;
    double height = 1.0;
    dataGet(&item, L"TEXT", text);
    dataGet(&item, L"ALIGN", align);
    dataGet(&item, L"HEIGHT", height);
    regions = textRegions(text, L"", CVekPoint3d::kOrigin);
    CVekPoint3d low;
    CVekPoint3d high;
    bool any = false;
    for (const CVekGDX::Region& region : regions) {
        CVekPoint3d min;
        CVekPoint3d max;
        if (region.len() == 0 || !region[0].extents(min, max))
            continue;
        low = any ? p_min(low, min) : min;
        high = any ? p_max(high, max) : max;
        any = true;
    }
    const auto shift = [&](wchar_t letter, wchar_t middle, wchar_t far, int i) {
        return letter == middle ? -0.5 * (low[i] + high[i]) : letter == far ? -high[i] : 0.0;
    };
    const CVekVector3d by(shift(align[1], L'C', L'R', 0), shift(align[0], L'C', L'T', 1), 0.0);
    CVekMatrix3d toOrigin;
    CVekMatrix3d scale;
    toOrigin.setToTranslation(by);
    scale.setToScaling(height, CVekPoint3d::kOrigin);
    for (CVekGDX::Region& region : regions) {
        for (CVekVertexArray& contour : region)
            contour.transformBy(scale * toOrigin);
    }
    return true;
}

bool imageExtrusion(resbuf* arguments)
{
    if (!arguments || arguments->restype != rbLong)
        return false;
    CVekGDX* gdx = getGdxFromMap(arguments->resval.rlong);
    resbuf* next = arguments->rbnext;
    CVekDataItem object;
    CVekDataItem wish;
    if (!gdx || !fromRb(object, next, 0) || !fromRb(wish, next, 0) || !object.isDir())
        return false;
    if (!object.getItem(L"BT")) {
        CVekDataItem element(CVekDataItem::directory);
        dataSet(&element, L"TYPE", L"EXTR");
        if (CVekDataItem* bt = element.makeItem(L"BT"))
            *bt = std::move(object);
        object = std::move(element);
    }
    CVekString view;
    CVekMatrix3d mtx;
    dataGet(&wish, L"VIEW", view);
    dataGet(&wish, L"MTX", mtx);
    wish.mkDir();
    return vek_gdx_image_bgr_bt(gdx, &object, mtx, g_mtx_view_dir(view, CVekPoint3d::kOrigin).inverse(), &wish);
}

} // namespace VEK::host
