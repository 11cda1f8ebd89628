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
    if (bulge != 0.0 && m.determinant() < 0.0)
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
    if (!segment.bend.isArc()) {
        const CVekVector3d chord = end - start;
        const double square = chord.dot(chord);
        if (!(square > 0.0))
            return start;
        const double t = (point - start).dot(chord) / square;
        if (!(t < 1.0))
            return end;
        return t > 0.0 ? start + chord * t : start;
    }
    const plane::Arc arc({start[0], start[1]}, {end[0], end[1]}, bulge);
    return segment.at(arc.parameter({point[0], point[1]}));
}
