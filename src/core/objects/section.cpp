#include "core/objects/section.h"

#include <vek/data/iterator.h>
#include <vek/objects/element.h>
#include <vek/objects/outline.h>

#include "core/geometry/bent_line.h"
#include "core/values/whole.h"

#include <cmath>

namespace VEK
{
namespace objects
{
namespace
{

constexpr int kOutlineL = 13;
constexpr double kRightAngle = 1.57079632679489661923;

bool isPositive(double value)
{
    return value > 0.0 && std::isfinite(value);
}

/// The unit to ask for: an outline without one of its own is in that of the element.
Vek::lUnit in(const CVekDataItem* outline, Vek::lUnit unit)
{
    return outline->getItem(L"UNIT") ? unit : Vek::unitNone;
}

} // namespace

bool outlineSection(const CVekDataItem& bt, Vek::lUnit unit, VertexArrays& region)
{
    const CVekDataItem* outline = bt.getItem(L"OUTLINE");
    if (!outline || !g_outline_region(region, outline, in(outline, unit)))
        return false;
    for (CDataIterator inner(bt.getItem(L"INNER")); !inner.done(); inner.next()) {
        CVekVertexArray hole;
        if (g_outline(hole, inner, in(inner, unit)))
            region.append(std::move(hole));
    }
    return true;
}

bool sectionOf(const CVekDataItem* bt, Vek::lUnit unit, VertexArrays& region)
{
    region.setLogicalLength(0);
    if (dataGet(bt, kDerivedSection, region) || dataGet(bt, L"REGION", region))
        return region.len() > 0;
    return bt && outlineSection(*bt, unit, region);
}

bool angleSection(const CVekDataItem* bt, VertexArrays& region)
{
    double width = 0.0, height = 0.0, thickness = 0.0, radius = 0.0;
    dataGet(bt, L"B", width);
    dataGet(bt, L"H", height);
    dataGet(bt, L"S", thickness);
    dataGet(bt, L"R", radius);
    region.setLogicalLength(0);
    if (!isPositive(thickness) || !(width > thickness) || !(height > thickness) || !(radius >= 0.0))
        return false;
    CVekVertexArray outline = g_outline(kOutlineL, CVekVector3d(width / 2.0, height / 2.0, 0.0),
                                        {width, height, thickness, thickness, radius});
    if (outline.len() == 0)
        return false;
    region.append(std::move(outline));
    return true;
}

double lengthOf(const CVekDataItem* element, const CVekDataItem* bt)
{
    double length = 0.0;
    CVekPoint3dArray axis;
    if (!dataGet(bt, L"LEN", length) && dataGet(element, L"AXIS", axis) && axis.len() >= 2)
        length = axis[0].distanceTo(axis[1]);
    return std::isfinite(length) ? length : 0.0;
}

CVekMatrix3d Fold::plane(int number) const
{
    CVekMatrix3d m;
    if (number < 0 || number >= flats.len())
        return m;
    const CVekVector3d& x = flats[number].direction;
    return m.setCoordSystem(flats[number].start, x, CVekVector3d::kZAxis, x * CVekVector3d::kZAxis);
}

bool foldOf(const CVekDataItem* bt, bool several, Fold& fold)
{
    fold = Fold();
    double radius = 0.0;
    dataGet(bt, L"S", fold.thickness);
    dataGet(bt, L"R", radius);
    if (!isPositive(fold.thickness) || !(radius >= 0.0))
        return false;
    CVekVertexArray line;
    if (several) {
        dataGet(bt, L"VL", line);
    } else {
        double first = 0.0, second = 0.0, angle = kRightAngle;
        dataGet(bt, L"A", first);
        dataGet(bt, L"B", second);
        dataGet(bt, L"ANG", angle);
        if (!isPositive(first) || !isPositive(second) || !(std::fabs(angle) < 2.0 * kRightAngle))
            return false;
        line = {{first, 0.0, 0.0}, {}, {-second * std::cos(angle), second * std::sin(angle), 0.0}};
    }
    detail::Corners corners;
    bool hasArcs = false;
    for (const CVekVertex& vertex : line) {
        hasArcs |= vertex.bulge != 0.0;
        corners.push_back({vertex.start.x, vertex.start.y, radius});
        CVekVector3d direction = vertex.end - vertex.start;
        if (vertex.bulge == 0.0 && direction.abs() > 0.0)
            fold.flats.append(Flat{vertex.start, direction.normalize()});
    }
    if (line.len() > 0 && !hasArcs && radius > 0.0) { // otherwise its bends are told, or sharp
        corners.push_back({line[-1].end.x, line[-1].end.y});
        line = detail::bentLine(std::move(corners), -fold.thickness);
    }
    fold.line = std::move(line);
    return fold.line.len() > 0;
}

bool endsOf(const CVekDataItem* bt, double length, const CVekDataItem* cuts, Ends& ends)
{
    constexpr double kSteepest = 0.998 * kRightAngle;
    double start[2] = {0.0, 0.0};
    double end[2] = {0.0, 0.0};
    dataGet(bt, L"MITRE\\S", start[0]);
    dataGet(bt, L"MITRE\\SV", start[1]);
    dataGet(bt, L"MITRE\\E", end[0]);
    dataGet(bt, L"MITRE\\EV", end[1]);
    for (const double angle : {start[0], start[1], end[0], end[1]}) {
        if (!(std::fabs(angle) < kSteepest))
            return false;
    }
    const auto plane = [](double z, const double(&rise)[2]) {
        return CVekPlane({0.0, 0.0, z}, {-std::tan(rise[0]), -std::tan(rise[1]), 1.0});
    };
    if (length == 0.0)
        return false;
    ends.low = plane(length < 0.0 ? length : 0.0, length < 0.0 ? end : start);
    ends.high = plane(length < 0.0 ? 0.0 : length, length < 0.0 ? start : end);
    ends.square = start[0] == 0.0 && start[1] == 0.0 && end[0] == 0.0 && end[1] == 0.0;
    for (CDataIterator cut(cuts); !cut.done(); cut.next()) {
        CVekPoint3d point, direction;
        if (!dataGet(cut, L"PT", point) || !dataGet(cut, L"N", direction))
            continue;
        CVekVector3d normal = direction.asVector();
        normal.normalize();
        const double z = point.asVector().dot(normal) / normal.z; // where it meets the axis
        constexpr double kAlong = 1e-3;                           // a plane along the axis cuts off no end
        if (!(std::fabs(normal.z) > kAlong) || !std::isfinite(z))
            continue;
        CVekPlane& side = normal.z > 0.0 ? ends.high : ends.low;
        if ((normal.z > 0.0) == (z < side.point().z)) {
            side = CVekPlane({0.0, 0.0, z}, normal);
            ends.square = false;
        }
    }
    return ends.low.point().z < ends.high.point().z;
}

} // namespace objects

bool objGen(CVekDataItem* item, int)
{
    if (!item || !item->isDir())
        return false;
    CVekDataItem* bt = item->getItem(L"BT");
    if (!bt || !bt->isDir())
        bt = item;
    const CVekDataKey key(objects::kDerivedSection);
    if (!bt->getItem(L"OUTLINE") || bt->getItem(L"REGION")) { // nothing to derive
        bt->getDir()->remove(&key);
        return true;
    }
    const VertexArrays region = whole(VertexArrays(), [&] {
        VertexArrays derived;
        Vek::lUnit unit = Vek::unitNone;
        dataGet(item, L"UNIT", unit);
        objects::outlineSection(*bt, unit, derived);
        return derived;
    });
    if (region.len() > 0)
        return dataItemSet(bt, &key, region);
    bt->getDir()->remove(&key);
    return false;
}

} // namespace VEK

bool vek_bgr_bt_angle_check(const CVekDataItem* element)
{
    return VEK::whole(false, [&] {
        const CVekDataItem* bt = element ? element->getItem(L"BT") : nullptr;
        for (const wchar_t* key : {L"UNIT", L"INSUNIT", L"DEFUNIT"}) {
            Vek::lUnit unit = Vek::unitNone;
            if (VEK::dataGet(element, key, unit) && (unit < Vek::unitCurrent || unit > Vek::unitParsec))
                return false;
        }
        VEK::VertexArrays section;
        return VEK::objects::angleSection(bt, section) && VEK::objects::lengthOf(element, bt) != 0.0;
    });
}
