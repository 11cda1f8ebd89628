#include "core/values/stepping.h"

#include <vek/values/polyline.h>

#include <utility>

namespace plane = VEK::plane;

namespace
{

/// Chords that a full circle becomes when a transformation bends it out of shape: they stay within 1e-4 of the radius.
constexpr int kCircleChords = 256;

/// How far a matrix may be from scaling a plane alike for arcs to stay arcs, relative to the scale.
constexpr double kAlike = 1e-9;

bool same(const CVekVector3d& a, const CVekVector3d& b)
{
    return a[0] == b[0] && a[1] == b[1] && a[2] == b[2];
}

/// Brings the length to 1; false for a vector that has no direction.
bool makeUnit(CVekVector3d& v)
{
    const double size = std::max({std::fabs(v[0]), std::fabs(v[1]), std::fabs(v[2])});
    if (!(size > 0.0) || !std::isfinite(size))
        return false;
    const CVekVector3d scaled{v[0] / size, v[1] / size, v[2] / size};
    const double length = std::sqrt(scaled.dot(scaled));
    v.set(scaled[0] / length, scaled[1] / length, scaled[2] / length);
    return true;
}

bool hasArcs(const CVekVertexArray& polyline)
{
    return std::any_of(polyline.begin(), polyline.end(), [](const CVekVertex& v) { return v.bulge != 0.0; });
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
        mirrors = m.determinant() < 0.0;
        // The normal goes along by the linear part, except where that shears it out of its right angle to the plane or
        // flattens it: then the arcs need the plane's own normal, on the same side.
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
    const double sweep = std::fabs(4.0 * std::atan(vertex.bulge));
    return std::max(1, static_cast<int>(std::ceil(sweep / (2.0 * std::numbers::pi) * kCircleChords - 1e-9)));
}

} // namespace

CVekVertexArray& CVekVertexArray::operator+=(const CVekVertexArray& other)
{
    const int before = len();
    const bool differ = other.len() > 0 && !same(m_normal, other.m_normal);
    if (differ && before == 0)
        m_normal = other.m_normal;
    const CVekVector3d otherNormal = other.m_normal;
    CVekArrayTempl<CVekVertex>::operator+=(other);
    if (differ && before > 0 && hasArcs(other)) {
        if (same(m_normal, -otherNormal)) {
            for (CVekVertex* v = begin() + before; v != end(); ++v)
                v->bulge = 0.0 - v->bulge;
        } else if (std::none_of(begin(), begin() + before, [](const CVekVertex& v) { return v.bulge != 0.0; })) {
            m_normal = otherNormal;
        }
    }
    return *this;
}

bool CVekVertexArray::operator==(const CVekVertexArray& other) const
{
    return same(m_normal, other.m_normal) && CVekArrayTempl<CVekVertex>::operator==(other);
}

CVekVertexArray& CVekVertexArray::transformBy(const CVekMatrix3d& m)
{
    CVekVertex* v = begin();
    for (; v != end() && v->bulge == 0.0; ++v) {
        v->start *= m;
        v->end *= m;
    }
    if (v == end()) {
        CVekVector3d normal = m_normal * m;
        if (makeUnit(normal))
            m_normal = normal;
        return *this;
    }

    const PlaneImage image(m, m_normal);
    if (image.alike) {
        for (; v != end(); ++v) {
            v->start *= m;
            v->end *= m;
            if (image.mirrors)
                v->bulge = 0.0 - v->bulge;
        }
        m_normal = image.normal;
        return *this;
    }

    int count = static_cast<int>(v - begin());
    for (const CVekVertex* arc = v; arc != end(); ++arc)
        count += fineChords(*arc);
    CVekVertexArray straight;
    straight.reserve(count);
    for (const CVekVertex* done = begin(); done != v; ++done)
        straight.append(*done);
    for (; v != end(); ++v) {
        CVekVertex chord(v->start * m, v->start * m);
        std::copy(std::begin(v->tag), std::end(v->tag), chord.tag);
        const plane::SpaceArc arc(*v, m_normal);
        arc.step(arc.bend.isArc() ? fineChords(*v) : 1, [&](const CVekPoint3d& point) {
            chord.start = std::exchange(chord.end, point * m);
            straight.append(chord);
        });
    }
    CVekVector3d normal = m_normal * m;
    if (makeUnit(normal))
        m_normal = normal;
    swap(straight);
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
    setLogicalLength(0);
    const int count = points.len();
    if (count == 0)
        return *this;
    const CVekPoint3d* at = points.begin();
    const bool closing = closed && !plane::meets(at[count - 1], at[0]);
    reserve(count);
    for (int i = 1; i < count; ++i)
        append(CVekVertex(at[i - 1], at[i]));
    if (closing)
        append(CVekVertex(at[count - 1], at[0]));
    return *this;
}

CVekPoint3dArray CVekVertexArray::pts(bool arcs, double tolerance) const
{
    CVekPoint3dArray points;
    int count = len() + 1;
    if (arcs) {
        for (const CVekVertex& v : *this) {
            if (v.bulge != 0.0)
                count += plane::SpaceArc(v, m_normal).chords(tolerance) - 1;
        }
    }
    points.reserve(count);
    plane::forEachPoint(*this, arcs, tolerance, [&](const CVekPoint3d& point) { points.append(point); });
    return points;
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
    std::reverse(begin(), end());
    for (CVekVertex& v : *this) {
        std::swap(v.start, v.end);
        v.bulge = 0.0 - v.bulge; // a straight segment keeps a plain zero
    }
    return *this;
}
