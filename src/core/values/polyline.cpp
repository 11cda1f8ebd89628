#include "core/values/stepping.h"
#include "core/values/whole.h"

#include <vek/values/polyline.h>

#include <utility>

namespace plane = VEK::plane;

namespace
{

/// Chords that replace a full circle when a transformation distorts it: they stay within 1e-4 of the radius.
constexpr int kCircleChords = 256;

/// How far a matrix may be from scaling a plane uniformly for arcs to stay arcs, relative to the scale.
constexpr double kAlike = 1e-9;

bool same(const CVekVector3d& a, const CVekVector3d& b)
{
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

/// Scales to length 1; false for a vector without direction.
bool makeUnit(CVekVector3d& v)
{
    constexpr double kRounding = 2e-15; // a vector that was normalised before stays as it is, to the last bit
    return std::fabs(v.dot(v) - 1.0) <= kRounding || v.normalize().isUnit();
}

/// What a matrix does to the arcs of a plane.
struct PlaneImage {
    bool alike = false; ///< arcs stay arcs
    bool mirrors = false;
    CVekVector3d normal; ///< of the plane afterwards; only with `alike`

    PlaneImage(const CVekMatrix3d& m, const CVekVector3d& from)
    {
        const CVekMatrix3d frame = CVekMatrix3d().setToPlaneToWorld(from);
        const CVekVector3d x = frame.axis(0) * m;
        const CVekVector3d y = frame.axis(1) * m;
        const double xx = x.dot(x);
        const double yy = y.dot(y);
        const double limit = kAlike * std::max(xx, yy);
        alike = std::fabs(xx - yy) <= limit && std::fabs(x.dot(y)) <= limit;
        mirrors = m.mirrors();
        // The normal is transformed by the linear part. If that makes it oblique to the plane or flattens it, the arcs
        // need the plane's true normal, on the same side.
        normal = from * m;
        CVekVector3d upright = x * y;
        if (!makeUnit(upright)) {
            if (!makeUnit(normal))
                normal = from;
            return;
        }
        if (mirrors)
            upright = -upright;
        const bool flattened = !makeUnit(normal);
        const CVekVector3d aside = normal * upright;
        if (flattened || !(aside.dot(aside) <= kAlike * kAlike) || normal.dot(upright) < 0.0)
            normal = upright;
    }
};

int fineChords(const CVekVertex& vertex)
{
    const double turns = std::fabs(std::atan(vertex.bulge)) * 2.0 / std::numbers::pi;
    return turns > 0.0 ? std::max(1, static_cast<int>(std::ceil(turns * kCircleChords - 1e-9))) : 1;
}

} // namespace

CVekVertexArray VEK::plane::inFineChords(const CVekVertexArray& polyline)
{
    int count = 0;
    for (const CVekVertex& vertex : polyline)
        count += fineChords(vertex);
    CVekVertexArray straight;
    straight.setNormal(polyline.normal());
    if (!straight.reserve(count))
        return straight;
    for (const CVekVertex& vertex : polyline) {
        const SpaceArc arc(vertex, polyline.normal());
        if (!arc.bend.isArc()) {
            straight.append(vertex);
            straight[-1].bulge = 0.0;
            continue;
        }
        plane::appendChords(straight, vertex, arc, fineChords(vertex));
    }
    return straight;
}

CVekVertexArray& CVekVertexArray::operator+=(const CVekVertexArray& other)
{
    const int before = len();
    const CVekVector3d otherNormal = other.m_normal; // other may be this polyline
    const bool bends = !same(m_normal, otherNormal) && plane::hasArcs(other);
    const bool bothBend = bends && plane::hasArcs(*this);
    if (bothBend) {
        const CVekVector3d aside = m_normal * otherNormal;
        if (!(aside.dot(aside) <= kAlike * kAlike)) {
            CVekArrayTempl<CVekVertex>::operator+=(plane::inFineChords(other));
            return *this;
        }
    }
    CVekArrayTempl<CVekVertex>::operator+=(other);
    if (len() == before)
        return *this;
    if (before == 0 || (bends && !bothBend)) {
        m_normal = otherNormal;
    } else if (bothBend && m_normal.dot(otherNormal) < 0.0) {
        for (CVekVertex* v = begin() + before; v != end(); ++v)
            v->bulge = 0.0 - v->bulge;
    }
    return *this;
}

bool CVekVertexArray::operator==(const CVekVertexArray& other) const
{
    return same(m_normal, other.m_normal) && CVekArrayTempl<CVekVertex>::operator==(other);
}

CVekVertexArray& CVekVertexArray::transformBy(const CVekMatrix3d& m)
{
    const bool bends = plane::hasArcs(*this);
    CVekVector3d normal = m_normal * m;
    bool mirrors = false;
    if (bends) {
        const PlaneImage image(m, m_normal);
        if (image.alike) {
            normal = image.normal;
            mirrors = image.mirrors;
        } else {
            CVekVertexArray straight = plane::inFineChords(*this);
            if (straight.len() == 0)
                return *this;
            exchange(straight);
        }
    }
    for (CVekVertex& v : *this) {
        v.start *= m;
        v.end *= m;
        if (mirrors)
            v.bulge = 0.0 - v.bulge;
    }
    if (makeUnit(normal))
        m_normal = normal;
    return *this;
}

CVekVertexArray CVekVertexArray::getTransformedCopy(const CVekMatrix3d& m) const
{
    CVekVertexArray copy(*this);
    copy.transformBy(m);
    return copy;
}

CVekVertexArray& CVekVertexArray::move(const CVekVector3d& by)
{
    for (CVekVertex& v : *this) {
        v.start += by;
        v.end += by;
    }
    return *this;
}

CVekVertexArray& CVekVertexArray::fromPoints(const CVekPoint3dArray& points, bool closed)
{
    return throughPoints(points.begin(), points.len(), closed);
}

CVekVertexArray& CVekVertexArray::throughPoints(const CVekPoint3d* points, int count, bool closed)
{
    if (!reserve(count))
        return *this;
    setLogicalLength(0);
    for (int i = 1; i < count; ++i)
        append(CVekVertex(points[i - 1], points[i]));
    if (closed && count > 0 && !plane::meets(points[count - 1], points[0]))
        append(CVekVertex(points[count - 1], points[0]));
    return *this;
}

CVekPoint3dArray CVekVertexArray::pts(bool arcs, double tolerance) const
{
    CVekPoint3dArray points;
    int count = len() + 1;
    if (arcs) {
        for (const CVekVertex& v : *this) {
            if (!plane::isFlat(v, tolerance))
                count += plane::SpaceArc(v, m_normal).chords(tolerance) - 1;
        }
    }
    // Only a polyline with gaps has more points than that.
    return VEK::whole(CVekPoint3dArray(), [&] {
        points.reserve(count);
        plane::forEachPoint(*this, arcs, tolerance, [&](const CVekPoint3d& point) { points.append(point); });
        return std::move(points);
    });
}

bool CVekVertexArray::extents(CVekPoint3d& min, CVekPoint3d& max) const
{
    if (len() == 0)
        return false;
    CVekPoint3d low = begin()->start;
    CVekPoint3d high = low;
    const auto add = [&](const CVekPoint3d& point) {
        low = VEK::p_min(low, point);
        high = VEK::p_max(high, point);
    };
    for (const CVekVertex& v : *this) {
        add(v.start);
        add(v.end);
        if (v.bulge != 0.0)
            plane::SpaceArc(v, m_normal).forEachExtreme(add);
    }
    min = low;
    max = high;
    return true;
}

bool CVekVertexArray::isClosed() const
{
    return len() > 0 && plane::meets((end() - 1)->end, begin()->start);
}

bool CVekVertexArray::isContinuous() const
{
    for (int i = 1; i < len(); ++i) {
        if (!plane::meets(begin()[i - 1].end, begin()[i].start))
            return false;
    }
    return true;
}

void CVekVertexArray::setNormal(const CVekVector3d& normal)
{
    CVekVector3d unit = normal;
    if (makeUnit(unit))
        m_normal = unit;
}

CVekVertexArray& CVekVertexArray::revert()
{
    CVekArrayTempl<CVekVertex>::revert();
    return *this;
}

void CVekVertexArray::revertElements()
{
    for (CVekVertex& v : *this) {
        std::swap(v.start, v.end);
        v.bulge = 0.0 - v.bulge; // a straight segment keeps a plain zero
    }
}

void CVekVertexArray::swap(CVekVertexArray& other) noexcept
{
    exchange(other);
    std::swap(m_normal, other.m_normal);
}

bool CVekVertexArray::swapRest(CVekArrayTempl<CVekVertex>& other) noexcept
{
    CVekVector3d normal = CVekVector3d::kZAxis;
    if (CVekVertexArray* polyline = dynamic_cast<CVekVertexArray*>(&other))
        normal = std::exchange(polyline->m_normal, m_normal);
    m_normal = normal;
    return true;
}

bool CVekVertexArray::breakVertex(int index, const CVekPoint3d& point)
{
    const int count = len();
    if (count == 0 || index >= count)
        return false;
    const int at = index < 0 ? (count + index % count) % count : index;
    const CVekVertex& whole = begin()[at];
    const plane::SpaceArc segment(whole, m_normal);
    const double t = segment.parameter(point);
    if (plane::meets(whole.start, point) || plane::meets(whole.end, point) || !plane::meets(segment.at(t), point))
        return false;

    CVekVertex first(whole);
    CVekVertex second(whole);
    first.end = point;
    second.start = point;
    first.bulge = std::tan(0.25 * t * segment.bend.sweep);
    second.bulge = std::tan(0.25 * (1.0 - t) * segment.bend.sweep);
    append(second);
    if (len() == count)
        return false;
    begin()[at] = first;
    std::rotate(begin() + at + 1, end() - 1, end());
    return true;
}
