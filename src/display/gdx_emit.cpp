// Emission: the write interface of a display object.
#include "core/values/whole.h"

#include <vek/data.h>
#include <vek/display/gdx.h>
#include <vek/draw/text.h>

#include <bit>
#include <cstdint>
#include <memory>
#include <optional>

namespace
{

/// In point and text items the point has another use, so they store the reference point as a vertex.
void keepReference(CVekDisplayItem& item, const CVekPoint3d& refPoint)
{
    if (item.flag & itemScreenFixed)
        item.vl = CVekVertex(refPoint, CVekPoint3d::kOrigin);
}

void setPen(CVekDisplayItem& item, const CVekColor& color, const CVekMatrix3d& mtx,
            const CVekArrayTempl<double>& linetype, double ltscale, unsigned long thickn, const CVekPoint3d& refPoint)
{
    item.color = color;
    item.mtx = mtx;
    if (linetype.len() > 0)
        item.linetype = linetype;
    else
        item.linetype = {1.0};
    item.ltscale = ltscale;
    item.thickn = static_cast<int>(thickn);
    if (item.flag & itemScreenFixed)
        item.point = refPoint;
}

void setFill(CVekDisplayItem& item, const CVekColor& fcolor, const VEK::CHatchProp& hatch)
{
    if (item.flag & (itemFill | itemHatch))
        item.fcolor = fcolor.colorIndex() >= 0 ? fcolor : item.color;
    item.hatch = hatch;
}

/// Makes an item that stood in the list before a new one; its polyline keeps its memory.
void renew(CVekDisplayItem& item)
{
    using Segments = CVekArrayTempl<CVekVertex>;
    Segments kept(static_cast<Segments&&>(item.vl));
    kept.setLogicalLength(0);
    std::destroy_at(&item);
    std::construct_at(&item);
    static_cast<Segments&>(item.vl) = std::move(kept);
}

/// Whether a matrix is the identity to the sign of its zeros; the last row counts in no product.
bool isPureIdentity(const CVekMatrix3d& m)
{
    std::uint64_t difference = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            difference |= std::bit_cast<std::uint64_t>(m[row][column]) ^
                          std::bit_cast<std::uint64_t>(CVekMatrix3d::kIdentity[row][column]);
    return difference == 0;
}

/// The box of straight segments that no matrix moves, exactly as the identity gives it, which leaves no negative zero.
/// @return false if they have to take the general way: arcs, coordinates that are not finite, no segments
bool boxAsItStands(const CVekVertexArray& vl, CVekPoint3d& min, CVekPoint3d& max)
{
    const auto ofIdentity = [](const CVekPoint3d& p) { return CVekPoint3d(p.x + 0.0, p.y + 0.0, p.z + 0.0); };
    double beyond = 0.0; // NaN when one is not finite
    bool straight = vl.len() > 0;
    if (straight)
        min = max = ofIdentity(vl[0].start);
    for (const CVekVertex& vertex : vl) {
        straight &= vertex.bulge == 0.0;
        for (const CVekPoint3d* end : {&vertex.start, &vertex.end}) {
            beyond += (end->x - end->x) + (end->y - end->y) + (end->z - end->z);
            const CVekPoint3d p = ofIdentity(*end);
            min = VEK::p_min(min, p);
            max = VEK::p_max(max, p);
        }
    }
    return straight && beyond == 0.0;
}

} // namespace

/// Adds an item that `build` completes, if memory has not run out.
///
/// It is built in the list's room behind its end, where nobody sees it before it is complete; beside the list if
/// appending moves the items, to which the arguments may belong.
template <class Build>
bool CVekGDX::emit(VekDisplayObj type, const Stack& stack, unsigned long flag, Build&& build)
{
    bool isNew = true;
    CVekDisplayItem* const slot = displayList.spare(isNew);
    std::optional<CVekDisplayItem> beside;
    CVekDisplayItem& item = slot ? *slot : beside.emplace();
    Corners corners = cornersGet();
    const bool complete = VEK::whole(false, [&] {
        if (!isNew)
            renew(item);
        item.type = type;
        item.flag = static_cast<unsigned>(flag);
        item.stack = stack;
        build(item);
        if (type != dispPicture && item.hasExtents()) {
            CVekPoint3d min, max;
            if (type == dispPolyline && isPureIdentity(item.mtx) && isPureIdentity(projMtx) &&
                isPureIdentity(viewDirectionMtx) && boxAsItStands(item.vl, min, max))
                corners.add(min, max);
            else
                addItem(corners, item, {true, &item.mtx, &item.regl}, projMtx * viewDirectionMtx);
        }
        return extMax.reserve(2) && (slot || displayList.reserve(displayList.len() + 1));
    });
    if (!complete)
        return false;
    if (slot)
        displayList.appendSpare();
    else
        displayList.append(std::move(item));
    cornersSet(corners);
    return true;
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
    });
}

void CVekGDX::imageVl(const Stack& stack, unsigned long flag, const CVekVertexArray& vl, const CVekColor& color,
                      const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                      unsigned long thickn, const CVekPoint3d& refPoint)
{
    emit(dispPolyline, stack, flag, [&](CVekDisplayItem& item) {
        item.vl = vl;
        setPen(item, color, mtx, linetype, ltscale, thickn, refPoint);
    });
}

void CVekGDX::imageVl(const Stack& stack, unsigned long flag, CVekVertexArray&& vl, const CVekColor& color,
                      const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                      unsigned long thickn, const CVekPoint3d& refPoint)
{
    emit(dispPolyline, stack, flag, [&](CVekDisplayItem& item) {
        item.vl = std::move(vl);
        setPen(item, color, mtx, linetype, ltscale, thickn, refPoint);
    });
}

void CVekGDX::imageReg(const Stack& stack, unsigned long flag, const Region& reg, const CVekColor& color,
                       const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                       unsigned long thickn, const CVekColor& fcolor, const VEK::CHatchProp& hatch,
                       const CVekPoint3d& refPoint)
{
    emit(dispRegion, stack, flag, [&](CVekDisplayItem& item) {
        item.reg = reg;
        setPen(item, color, mtx, linetype, ltscale, thickn, refPoint);
        setFill(item, fcolor, hatch);
    });
}

void CVekGDX::imageReg(const Stack& stack, unsigned long flag, Region&& reg, const CVekColor& color,
                       const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale,
                       unsigned long thickn, const CVekColor& fcolor, const VEK::CHatchProp& hatch,
                       const CVekPoint3d& refPoint)
{
    emit(dispRegion, stack, flag, [&](CVekDisplayItem& item) {
        item.reg = std::move(reg);
        setPen(item, color, mtx, linetype, ltscale, thickn, refPoint);
        setFill(item, fcolor, hatch);
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
    });
}

bool CVekGDX::imageTxt(const Stack& stack, unsigned long flag, const CVekDataItem* textDir, const CVekColor& color,
                       const CVekMatrix3d& mtx, double height, const CVekPoint3d& refPoint)
{
    if (!textDir || !textDir->isDir())
        return false;
    RegionList regl; // made before the item, since the host may change this object meanwhile
    if (!VEK::whole(false, [&] { return vek_text_to_regl(textDir, regl, height); }))
        return false;
    return emit(dispText, stack, flag, [&](CVekDisplayItem& item) {
        item.regl = std::move(regl);
        item.color = color;
        item.mtx = mtx;
        keepReference(item, refPoint);
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
