// Emission: the write interface of a display object.
#include "core/values/whole.h"

#include <vek/data.h>
#include <vek/display/gdx.h>
#include <vek/draw/text.h>

namespace
{

/// In point and text items the point has another use, so they store the reference point as a vertex.
void keepReference(CVekDisplayItem& item, const CVekPoint3d& refPoint)
{
    if (item.flag & itemScreenFixed)
        item.vl = CVekVertex(refPoint, CVekPoint3d::kOrigin);
}

void setPen(CVekDisplayItem& item, const CVekArrayTempl<double>& linetype, double ltscale, unsigned long thickn,
            const CVekPoint3d& refPoint)
{
    if (linetype.len() > 0)
        item.linetype = linetype;
    else
        item.linetype = {1.0};
    item.ltscale = ltscale;
    item.thickn = static_cast<int>(thickn);
    if (item.flag & itemScreenFixed)
        item.point = refPoint;
}

} // namespace

/// Adds an item that `build` completes, if it returns true and memory has not run out.
template <class Build>
bool CVekGDX::emit(VekDisplayObj type, const Stack& stack, unsigned long flag, Build&& build)
{
    CVekDisplayItem item;
    Corners corners = cornersGet();
    const bool complete = VEK::whole(false, [&] {
        item.type = type;
        item.flag = static_cast<unsigned>(flag);
        item.stack = stack;
        if (!build(item))
            return false;
        if (type != dispPicture && item.hasExtents())
            addItem(corners, item, {true, &item.mtx, &item.regl}, projMtx * viewDirectionMtx);
        return extMax.reserve(2) && displayList.reserve(displayList.len() + 1);
    });
    if (complete) {
        displayList.append(std::move(item));
        cornersSet(corners);
    }
    return complete;
}

void CVekGDX::imagePt(const Stack& stack, unsigned long flag, const CVekPoint3d& point, const CVekColor& color,
                      const CVekMatrix3d& mtx, double pointSize, unsigned long pointMode, const CVekPoint3d& refPoint)
{
    emit(dispPoint, stack, flag, [&](CVekDisplayItem& item) {
        item.color = color;
        item.mtx = mtx;
        item.point = point;
        item.pdMode = static_cast<unsigned>(pointMode);
        item.pdSize = pointSize;
        keepReference(item, refPoint);
        return true;
    });
}

void CVekGDX::imageVl(const Stack& stack, unsigned long flag, const CVekVertexArray& vl, const CVekColor& color,
                      const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                      unsigned long thickn, const CVekPoint3d& refPoint)
{
    const unsigned long shortages = VEK::memoryShortages();
    CVekVertexArray copy(vl);
    if (VEK::memoryShortages() == shortages)
        imageVl(stack, flag, std::move(copy), color, mtx, linetype, ltscale, thickn, refPoint);
}

void CVekGDX::imageVl(const Stack& stack, unsigned long flag, CVekVertexArray&& vl, const CVekColor& color,
                      const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                      unsigned long thickn, const CVekPoint3d& refPoint)
{
    emit(dispPolyline, stack, flag, [&](CVekDisplayItem& item) {
        item.color = color;
        item.mtx = mtx;
        item.vl = std::move(vl);
        setPen(item, linetype, ltscale, thickn, refPoint);
        return true;
    });
}

void CVekGDX::imageReg(const Stack& stack, unsigned long flag, const Region& reg, const CVekColor& color,
                       const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                       unsigned long thickn, const CVekColor& fcolor, const VEK::CHatchProp& hatch,
                       const CVekPoint3d& refPoint)
{
    const unsigned long shortages = VEK::memoryShortages();
    Region copy(reg);
    if (VEK::memoryShortages() == shortages)
        imageReg(stack, flag, std::move(copy), color, mtx, linetype, ltscale, thickn, fcolor, hatch, refPoint);
}

void CVekGDX::imageReg(const Stack& stack, unsigned long flag, Region&& reg, const CVekColor& color,
                       const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                       unsigned long thickn, const CVekColor& fcolor, const VEK::CHatchProp& hatch,
                       const CVekPoint3d& refPoint)
{
    emit(dispRegion, stack, flag, [&](CVekDisplayItem& item) {
        item.color = color;
        item.mtx = mtx;
        item.reg = std::move(reg);
        setPen(item, linetype, ltscale, thickn, refPoint);
        if (flag & (itemFill | itemHatch))
            item.fcolor = fcolor.colorIndex() >= 0 ? fcolor : color;
        item.hatch = hatch;
        return true;
    });
}

void CVekGDX::imagePicture(const Stack& stack, unsigned long flag, const wchar_t* file, int id,
                           const CVekPoint3d& corner1, const CVekPoint3d& corner2)
{
    emit(dispPicture, stack, flag, [&](CVekDisplayItem& item) {
        item.txt = file;
        item.pdMode = static_cast<unsigned>(id);
        if (corner1 != corner2)
            item.vl = CVekVertex(corner1, corner2);
        return true;
    });
}

void CVekGDX::imageTxt(const Stack& stack, unsigned long flag, const wchar_t* text, const CVekColor& color,
                       const CVekMatrix3d& mtx, const wchar_t* align, const CVekPoint3d& point,
                       const CVekPoint3d& refPoint)
{
    emit(dispText, stack, flag, [&](CVekDisplayItem& item) {
        item.color = color;
        item.mtx = mtx;
        item.linetype = {1.0, 0.0, 0.0};
        item.point = point;
        item.txtAlign = align;
        item.txt = text;
        keepReference(item, refPoint);
        item.regl = VEK::textRegions(item.txt, item.txtAlign, item.point);
        return true;
    });
}

bool CVekGDX::imageTxt(const Stack& stack, unsigned long flag, const CVekDataItem* textDir, const CVekColor& color,
                       const CVekMatrix3d& mtx, double height, const CVekPoint3d& refPoint)
{
    if (!textDir || !textDir->isDir())
        return false;
    return emit(dispText, stack, flag, [&](CVekDisplayItem& item) {
        if (!vek_text_to_regl(textDir, item.regl, height))
            return false;
        item.color = color;
        item.mtx = mtx;
        keepReference(item, refPoint);
        return true;
    });
}

void CVekGDX::txtReglUpd(int i)
{
    CVekDisplayItem& item = displayList.changing(i);
    const unsigned long shortages = VEK::memoryShortages();
    RegionList regl = VEK::textRegions(item.txt, item.txtAlign, item.point);
    if (VEK::memoryShortages() == shortages)
        item.regl = std::move(regl);
}
