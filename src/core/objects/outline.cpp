#include <vek/data/dir.h>
#include <vek/objects/outline.h>

#include "core/values/whole.h"

#include <cmath>

namespace VEK
{
namespace
{

/// The list of reals under a key: a directory with the integer keys from 1 on.
CVekArrayTempl<double> realsAt(const CVekDataItem* item, const wchar_t* name)
{
    CVekArrayTempl<double> reals;
    const CVekDataItem* list = item->getItem(name);
    const int most = list && list->isDir() ? list->getDir()->len() : 0;
    for (int i = 1; i <= most; ++i) {
        const CVekDataKey key(CVekDataKey::keyInt, i);
        double value = 0.0;
        if (!list->get(value, &key))
            break;
        reals.append(value);
    }
    return reals;
}

/// The contours in the item's own unit: those of its kind, or the one that it stores.
VertexArrays contoursOf(const CVekDataItem* item, bool region)
{
    VertexArrays contours;
    CVekVertexArray vl;
    int code = 0;
    if (dataGet(item, L"CODE", code)) {
        CVekPoint3d base;
        dataGet(item, L"BASE", base);
        const CVekArrayTempl<double> parameters = realsAt(item, L"PARMS");
        if (region)
            return g_outline_region(code, base.asVector(), parameters);
        vl = g_outline(code, base, parameters);
    } else if (!item->get(vl)) {
        dataGet(item, L"VL", vl);
    }
    if (vl.len() > 0)
        contours.append(std::move(vl));
    return contours;
}

/// The contours in a unit; empty if anything in them is not finite.
VertexArrays contoursIn(const CVekDataItem* item, Vek::lUnit unit, bool region)
{
    if (!item)
        return {};
    return whole(VertexArrays(), [&] {
        VertexArrays contours = contoursOf(item, region);
        Vek::lUnit own = Vek::unitCurrent;
        dataGet(item, L"UNIT", own);
        const double factor = acadUnitCv(1.0, own, unit);
        CVekMatrix3d scaling;
        scaling.setToScaling(factor, CVekPoint3d::kOrigin);
        for (CVekVertexArray& vl : contours) {
            if (factor != 1.0)
                vl.transformBy(scaling);
            for (const CVekVertex& vertex : vl)
                if (!std::isfinite(vertex.bulgLen() + vertex.start.distanceTo(CVekPoint3d::kOrigin)))
                    return VertexArrays();
        }
        return contours;
    });
}

} // namespace

bool g_outline(CVekVertexArray& outline, const CVekDataItem* item, Vek::lUnit unit)
{
    VertexArrays contours = contoursIn(item, unit, false);
    if (contours.len() == 0)
        return false;
    outline = std::move(contours[0]);
    return true;
}

bool g_outline_region(VertexArrays& region, const CVekDataItem* item, Vek::lUnit unit)
{
    VertexArrays contours = contoursIn(item, unit, true);
    if (contours.len() == 0)
        return false;
    region = std::move(contours);
    return true;
}

} // namespace VEK
