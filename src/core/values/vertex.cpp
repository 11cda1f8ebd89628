#include "core/values/stepping.h"

#include <vek/values/polyline.h>

#include <cstring>

namespace plane = VEK::plane;

namespace
{

plane::SpaceArc upright(const CVekVertex& vertex)
{
    return plane::SpaceArc(vertex, CVekVector3d::kZAxis);
}

} // namespace

bool CVekVertex::operator==(const CVekVertex& other) const
{
    return start == other.start && end == other.end && bulge == other.bulge &&
           std::memcmp(tag, other.tag, sizeof tag) == 0;
}

CVekVertex& CVekVertex::transformBy(const CVekMatrix3d& m)
{
    start *= m;
    end *= m;
    if (bulge != 0.0 && m.mirrors())
        bulge = -bulge;
    return *this;
}

CVekPoint3d CVekVertex::mid() const
{
    return upright(*this).at(0.5);
}

double CVekVertex::bulgLen() const
{
    const CVekVector3d chord = end - start;
    const double length = std::sqrt(chord.dot(chord));
    return length * plane::Bend(bulge, length).stretch();
}

bool CVekVertex::isPoint(const CVekPoint3d& point) const
{
    return plane::meets(lotp(point), point);
}

CVekPoint3d CVekVertex::lotp(const CVekPoint3d& point) const
{
    const plane::SpaceArc segment = upright(*this);
    return segment.at(segment.parameter(point));
}

void CVekPoint3dArray::sort(const CVekVector3d& direction)
{
    const auto station = [&](const CVekPoint3d& p) { return p.asVector().dot(direction); };
    std::stable_sort(begin(), end(),
                     [&](const CVekPoint3d& a, const CVekPoint3d& b) { return station(a) < station(b); });
}

int CVekPoint3dArray::indexOf(const CVekPoint3d& point) const
{
    int index = -1;
    CVekArrayTempl<CVekPoint3d>::indexOf(point, index);
    return index;
}
