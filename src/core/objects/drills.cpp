#include "core/objects/drills.h"

#include <vek/data/iterator.h>
#include <vek/objects/element.h>

#include "core/values/whole.h"

#include <cmath>

namespace VEK
{
namespace objects
{
namespace
{

constexpr long long kMostHoles = 1'000'000; // of one drill
constexpr double kRightAngle = 1.57079632679489661923;

/// The drills of a definition: those in "DRILL" that are one.
template <class Found>
void forEachDrill(const CVekDataItem* bt, const Fold* fold, Found&& found)
{
    for (CDataIterator child(bt ? bt->getItem(L"DRILL") : nullptr); !child.done(); child.next()) {
        Drill drill;
        Pattern pattern;
        if (drill.read(child) && pattern.read(child, fold))
            found(*child.item(), drill, pattern);
    }
}

} // namespace

bool Drill::read(const CVekDataItem* bt)
{
    *this = Drill();
    double angle = kRightAngle;
    dataGet(bt, L"D", diameter);
    dataGet(bt, L"DEPTH", depth);
    dataGet(bt, L"DK", sinkDiameter);
    dataGet(bt, L"AK", angle);
    isConical = !dataGet(bt, L"TK", sinkDepth);
    if (!(diameter > 0.0) || !std::isfinite(diameter))
        return false;
    if (!(depth > 0.0))
        depth = 0.0;
    length = depth > 0.0 ? depth : diameter;
    if (depth == 0.0)
        dataGet(bt, L"LEN", length);
    if (isConical)
        sinkDepth = (sinkDiameter - diameter) / 2.0 / std::tan(angle / 2.0);
    if (!(sinkDiameter > diameter) || !(sinkDepth > 0.0) || !(sinkDepth < length))
        sinkDiameter = sinkDepth = 0.0;
    return true;
}

CVekVertexArray Drill::profile() const
{
    CVekPoint3dArray points;
    points.append(CVekPoint3d());
    if (sinkDepth > 0.0) {
        points.append(CVekPoint3d(sinkDiameter / 2.0, 0.0, 0.0));
        if (!isConical)
            points.append(CVekPoint3d(sinkDiameter / 2.0, sinkDepth, 0.0));
    }
    points.append(CVekPoint3d(diameter / 2.0, sinkDepth, 0.0));
    points.append(CVekPoint3d(diameter / 2.0, length, 0.0));
    points.append(CVekPoint3d(0.0, length, 0.0));
    CVekVertexArray profile;
    profile.fromPoints(points, true);
    return profile;
}

bool Pattern::read(const CVekDataItem* drill, const Fold* fold)
{
    *this = Pattern();
    CVekArrayTempl<int> numbers;
    CVekPoint3dArray vectors;
    CVekPoint3d vector;
    if (!dataGet(drill, L"N", numbers) && dataGet(drill, L"N", counts[0]))
        numbers.append(counts[0]);
    if (!dataGet(drill, L"STEP", vectors) && dataGet(drill, L"STEP", vector))
        vectors.append(vector);
    for (int i = 0; i < 2; ++i) {
        counts[i] = i < numbers.len() ? numbers[i] : 1;
        if (i < vectors.len())
            steps[i] = vectors[i].asVector();
    }
    if (counts[0] < 1 || counts[1] < 1 || 1LL * counts[0] * counts[1] > kMostHoles)
        return false;
    first = g_mtx_local(drill);
    int plane = 0;
    if (fold && dataGet(drill, L"PLANE", plane)) {
        const CVekMatrix3d face = fold->plane(plane - 1);
        first = face * first;
        for (CVekVector3d& step : steps)
            step *= face;
    }
    return true;
}

CVekMatrix3d Pattern::hole(int index) const
{
    CVekMatrix3d m = first;
    const CVekVector3d by = steps[0] * (index % counts[0]) + steps[1] * (index / counts[0]);
    for (int row = 0; row < 3; ++row)
        m[row][3] += by[row];
    return m;
}

void drillAll(CVek_Solid& solid, const CVekDataItem* bt, const Fold* fold)
{
    forEachDrill(bt, fold, [&](const CVekDataItem&, const Drill& drill, const Pattern& pattern) {
        CVekArrayTempl<CVekMatrix3d> holes;
        for (int i = 0; i < pattern.count(); ++i)
            holes.append(pattern.hole(i));
        solid.drillEach(0, holes, drill.diameter, drill.depth);
        if (drill.sinkDepth > 0.0 && !drill.isConical)
            solid.drillEach(0, holes, drill.sinkDiameter, drill.sinkDepth);
    });
}

namespace
{

/// The element that a drill is drawn as, shared by its holes.
CSharedPointer<CVekDataItem> drillElement(const CVekDataItem& drill, const CVekDataItem* element,
                                          const CVekDataItem* bt)
{
    CSharedPointer<CVekDataItem> item(new CVekDataItem(CVekDataItem::directory));
    const CVekDataKey key(L"BT");
    CVekDataDir* dir = item ? item->mkDir() : nullptr;
    CVekDataItem* own = dir ? dir->insertCopy(&key, &drill, true) : nullptr;
    if (!own)
        return item;
    for (const wchar_t* placement :
         {L"N", L"STEP", L"PLANE", L"MTX", L"ORG", L"AXIS", L"XDIR", L"ZDIR", L"ROT", L"SCALE"})
        own->remove(placement);
    dataSet(item, L"TYPE", L"DRILL");
    dataSet(item, L"SUBTRACT", 1);
    dataSet(own, L"TYPE", L"DRILL");
    CVekString layer;
    double thickness = 0.0;
    if (!own->getItem(L"LAYER") && dataGet(element, L"LAYER", layer))
        dataSet(own, L"LAYER", layer);
    if (!own->getItem(L"LEN") && dataGet(bt, L"S", thickness) && thickness > 0.0)
        dataSet(own, L"LEN", thickness);
    return item;
}

bool listDrills(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt, const CVekMatrix3d& mtx,
                const Fold* fold)
{
    DrillList list = whole(DrillList(), [&] {
        DrillList found;
        forEachDrill(bt, fold, [&](const CVekDataItem& drill, const Drill&, const Pattern& pattern) {
            const CSharedPointer<CVekDataItem> item = drillElement(drill, element, bt);
            found.reserve(found.len() + pattern.count());
            for (int i = 0; i < pattern.count(); ++i)
                found.append(std::make_pair(item, mtx * pattern.hole(i)));
        });
        return found;
    });
    drills = std::move(list);
    return drills.len() > 0;
}

bool listFoldDrills(DrillList& drills, const CVekDataItem* element, bool several, const CVekMatrix3d& mtx)
{
    const CVekDataItem* bt = element ? element->getItem(L"BT") : nullptr;
    const Fold fold = whole(Fold(), [&] {
        Fold made;
        foldOf(bt, several, made);
        return made;
    });
    return listDrills(drills, element, bt, mtx, &fold);
}

} // namespace
} // namespace objects

bool getExtrDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt, const CVekDataItem*,
                      const CVekMatrix3d& mtx, const CVekMatrix3d&)
{
    return objects::listDrills(drills, element, bt, mtx, nullptr);
}

bool getAngleDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt, const CVekDataItem*,
                       const CVekMatrix3d& mtx, const CVekMatrix3d&)
{
    return objects::listDrills(drills, element, bt, mtx, nullptr);
}

bool getEdgeDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem*, const CVekMatrix3d& mtx,
                      const CVekMatrix3d&)
{
    return objects::listFoldDrills(drills, element, false, mtx);
}

bool getEdgeNDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem*, const CVekMatrix3d& mtx,
                       const CVekMatrix3d&)
{
    return objects::listFoldDrills(drills, element, true, mtx);
}

} // namespace VEK
