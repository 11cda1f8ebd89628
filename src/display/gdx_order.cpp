// Draw order and picking.
#include <vek/display/gdx.h>

namespace
{

constexpr double kPickDistance = 5.0; // world units, whatever the zoom

bool nearVertex(const CVekVertex& vertex, const CVekPoint3d& world)
{
    return vertex.start != vertex.end && vertex.lotp(world).distanceTo(world) <= kPickDistance;
}

/// Whether a straight segment lies further off than the pick distance in one coordinate alone, by so much that no
/// rounding of the distance matters. It settles nearly all of a picture by the x of the two ends.
bool farOff(const CVekVertex& vertex, const CVekMatrix3d& m, const CVekPoint3d& world)
{
    constexpr double kFar = 1.5 * kPickDistance;
    const CVekMatrix3d::Rows& rows = m;
    for (int axis = 0; axis < 3; ++axis) {
        const double* r = rows[axis];
        const auto offset = [&](const CVekPoint3d& p) {
            return r[0] * p[0] + r[1] * p[1] + r[2] * p[2] + r[3] - world[axis];
        };
        const double start = offset(vertex.start), end = offset(vertex.end);
        if ((start > kFar && end > kFar) || (start < -kFar && end < -kFar))
            return true;
    }
    return false;
}

bool nearPolyline(const CVekVertexArray& vl, const CVekMatrix3d& m, const CVekPoint3d& world)
{
    for (const CVekVertex& vertex : vl) {
        if (vertex.bulge == 0.0) {
            if (!farOff(vertex, m, world) && nearVertex(CVekVertex(vertex.start * m, vertex.end * m, 0.0), world))
                return true;
            continue;
        }
        CVekVertexArray arc(vertex);
        arc.setNormal(vl.normal());
        for (const CVekVertex& moved : arc.transformBy(m)) {
            if (nearVertex(moved, world))
                return true;
        }
    }
    return false;
}

/// An empty region gets an empty boundary on the way, as everywhere.
bool isHit(CVekDisplayItem& item, const CVekPoint3d& world)
{
    switch (item.type) {
    case dispPoint: return (item.point * item.mtx).distanceTo(world) <= kPickDistance;
    case dispPolyline: return nearPolyline(item.vl, item.mtx, world);
    case dispRegion: return nearPolyline(item.reg[0], item.mtx, world); // the outer boundary alone
    default: return false;
    }
}

} // namespace

void CVekGDX::displListSort()
{
    displayList.sort();
}

CVekPoint3d CVekGDX::imagePtWc(const CVekPoint3d& devicePoint) const
{
    return devicePoint * (viewDirectionMtx.inverse() * viewMtx.inverse() * projMtx.inverse() * zoomMtx.inverse());
}

int CVekGDX::imageItemGet(const CVekPoint3d& devicePoint)
{
    const CVekPoint3d world = imagePtWc(devicePoint);
    int number = -1;
    displayList.pick([&](CVekDisplayItem& item) {
        const bool hit = isHit(item, world);
        if (hit)
            number = item.stack[0];
        return hit;
    });
    return number;
}
