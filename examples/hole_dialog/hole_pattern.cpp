#include "hole_pattern.h"

#include <vek/data/dir.h>
#include <vek/data/iterator.h>
#include <vek/objects/element.h>

#include <string>

namespace
{

constexpr int kRound = 1; // code of the outline
constexpr int kRange = 2; // of outlines about 10

void setType(CVekDataItem& hole, const wchar_t* type)
{
    VEK::dataSet(&hole, L"GEN\\TYPE", CVekString(type));
}

} // namespace

std::vector<CVekDataItem*> holesOf(const CVekDataItem* bt)
{
    std::vector<CVekDataItem*> holes;
    for (VEK::CDataIterator child(bt); !child.done(); child.next()) {
        if (child->getKey()->isText())
            holes.push_back(child);
    }
    return holes;
}

CVekDataItem* addHole(CVekDataItem& bt)
{
    int number = 1;
    while (bt.getItem(std::to_wstring(number).c_str()))
        ++number;
    CVekDataItem* hole = bt.makeDir(std::to_wstring(number).c_str());
    if (hole) {
        setKind(*hole, HoleKind::drill);
        setPosition(*hole, CVekPoint3d::kOrigin);
    }
    return hole;
}

bool renameHole(CVekDataItem& bt, const CVekDataItem& hole, const CVekString& name)
{
    const CVekDataKey key(name);
    if (name.isNull() || bt.getItem(&key))
        return false;
    CVekDataItem renamed(CVekDataItem::directory);
    for (VEK::CDataIterator child(&bt); !child.done(); child.next())
        renamed.getDir()->insertCopy(child.item() == &hole ? &key : child->getKey(), child, true);
    bt = std::move(renamed);
    return true;
}

HoleKind kindOf(const CVekDataItem& hole)
{
    CVekString type;
    VEK::dataGet(&hole, L"GEN\\TYPE", type);
    return type == L"DRILL" ? HoleKind::drill : type == L"OUTLINE" ? HoleKind::outline : HoleKind::lines;
}

void setKind(CVekDataItem& hole, HoleKind kind)
{
    if (kind == kindOf(hole) || kind == HoleKind::lines)
        return;
    const double diameter = diameterOf(hole);
    if (kind == HoleKind::outline) {
        hole.remove(L"GEN\\D");
        VEK::outlineData round;
        round.code = kRound;
        round.parms = {diameter};
        setOutline(hole, round);
    } else {
        const VEK::outlineData before = outlineOf(hole);
        const CVekVector3d base = before.basePoint.asVector() * VEK::acadUnitCv(1.0, before.unit, Vek::unitCurrent);
        if (base.abs() > 0.0) // a drill has its centre at the origin
            setPosition(hole, base.asPoint() * VEK::g_mtx_local(&hole));
        for (const wchar_t* key : {L"GEN\\CODE", L"GEN\\PARMS", L"GEN\\BASE", L"GEN\\UNIT", L"GEN\\VL"})
            hole.remove(key);
        setType(hole, L"DRILL");
        setDiameter(hole, diameter);
    }
}

double diameterOf(const CVekDataItem& hole)
{
    double diameter = VEK::acadUnitCv(10.0, Vek::unitMillimetre, Vek::unitCurrent);
    const VEK::outlineData outline = outlineOf(hole);
    if (kindOf(hole) == HoleKind::outline && outline.code == kRound && outline.parms.len() > 0)
        return VEK::acadUnitCv(outline.parms[0], outline.unit, Vek::unitCurrent);
    VEK::dataGet(&hole, L"GEN\\D", diameter);
    return diameter;
}

void setDiameter(CVekDataItem& hole, double diameter)
{
    VEK::dataSet(&hole, L"GEN\\D", diameter);
}

CVekPoint3d positionOf(const CVekDataItem& hole)
{
    return VEK::g_mtx_local(&hole).translation().asPoint();
}

/// A placement by an origin stays one.
void setPosition(CVekDataItem& hole, const CVekPoint3d& position)
{
    CVekMatrix3d placement = VEK::g_mtx_local(&hole);
    for (int row = 0; row < 3; ++row)
        placement[row][3] = position[row];
    if (hole.getItem(L"MTX") || hole.getItem(L"AXIS"))
        VEK::dataSet(&hole, L"MTX", placement);
    else
        VEK::dataSet(&hole, L"ORG", position);
}

VEK::outlineData outlineOf(const CVekDataItem& hole)
{
    VEK::outlineData outline;
    const CVekDataItem* gen = hole.getItem(L"GEN");
    VEK::dataGet(gen, L"CODE", outline.code);
    VEK::dataGet(gen, L"BASE", outline.basePoint);
    VEK::dataGet(gen, L"UNIT", outline.unit);
    outline.range = kRange;
    for (VEK::CDataIterator parameter(gen ? gen->getItem(L"PARMS") : nullptr); !parameter.done(); parameter.next()) {
        double value = 0.0;
        parameter->get(value);
        outline.parms.append(value);
    }
    return outline;
}

void setOutline(CVekDataItem& hole, const VEK::outlineData& outline)
{
    setType(hole, L"OUTLINE");
    CVekDataItem* gen = hole.getItem(L"GEN");
    VEK::dataSet(gen, L"CODE", outline.code);
    VEK::dataSet(gen, L"BASE", outline.basePoint);
    VEK::dataSet(gen, L"UNIT", outline.unit);
    gen->remove(L"PARMS");
    for (int i = 0; i < outline.parms.len(); ++i) {
        const CVekDataKey key(5005, L"PARMS", 5003, i + 1, 0);
        VEK::dataItemSet(gen, &key, outline.parms[i]);
    }
}
