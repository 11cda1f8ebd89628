// Draw order and picking.
#include "core/values/stepping.h"
#include "core/values/whole.h"
#include "display/fetch.h"
#include "display/index.h"
#include "display/order.h"

#include <vek/display/gdx.h>
#include <vek/values/memory.h>

namespace
{

constexpr double kPickDistance = 5.0; // world units, whatever the zoom

/// @param normal of length 1, in world coordinates like the segment's ends
bool nearSegment(const CVekVertex& vertex, const CVekVector3d& normal, const CVekPoint3d& world)
{
    if (vertex.start == vertex.end)
        return false;
    const VEK::plane::SpaceArc segment(vertex, normal);
    return segment.at(segment.parameter(world)).distanceTo(world) <= kPickDistance;
}

/// Whether a straight segment is further away than the pick distance in a single coordinate, by a margin that makes
/// rounding irrelevant. The x of the two ends rules out nearly all items of a picture.
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

/// Tests items that can be picked.
class Picker
{
public:
    explicit Picker(const CVekPoint3d& world) : m_world(world) {}

    /// An empty region gets an empty boundary in passing, as everywhere.
    bool hits(CVekDisplayItem& item)
    {
        switch (item.type) {
        case dispPoint: return (item.point * item.mtx).distanceTo(m_world) <= kPickDistance;
        case dispPolyline: return hits(item.vl, item.mtx);
        case dispRegion: return hits(item.reg[0], item.mtx); // only the outer boundary
        default: return false;
        }
    }

private:
    bool hits(const CVekVertexArray& vl, const CVekMatrix3d& m)
    {
        for (const CVekVertex& vertex : vl) {
            if (vertex.bulge == 0.0) {
                if (!farOff(vertex, m, m_world) &&
                    nearSegment(CVekVertex(vertex.start * m, vertex.end * m), CVekVector3d::kZAxis, m_world))
                    return true;
                continue;
            }
            m_arc.setLogicalLength(0);
            m_arc.append(vertex);
            m_arc.setNormal(vl.normal());
            m_arc.transformBy(m);
            for (const CVekVertex& moved : m_arc) {
                if (nearSegment(moved, m_arc.normal(), m_world))
                    return true;
            }
        }
        return false;
    }

    CVekPoint3d m_world;
    CVekVertexArray m_arc; ///< scratch: the arc being tested, in the world
};

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
    constexpr int kNearTop = 1000; // where most of what is picked lies; beyond, all boxes are looked at first
    constexpr double kReach = 1.5 * kPickDistance; // with a margin that makes rounding irrelevant
    const unsigned long shortages = VEK::memoryShortages();
    const auto begin = [&] { // again after the sort, which drops the index if it moves the items
        VEK::DisplayIndex* const index = displayList.index();
        if (index)
            index->beginPick();
        return index;
    };
    if (!VEK::whole(false, [&] { return begin(), true; }) || !displayList.sort())
        return -1;
    const CVekPoint3d world = imagePtWc(devicePoint);
    VEK::DisplayIndex::Box around = VEK::DisplayIndex::Box::none();
    around.add(world - CVekVector3d(kReach, kReach, 0.0));
    around.add(world + CVekVector3d(kReach, kReach, 0.0));
    Picker picker(world);
    const int number = VEK::whole(-1, [&] {
        VEK::DisplayIndex* const index = begin();
        CVekDisplayItem* const items = displayList.m_items.begin();
        int found = -1;
        VEK::DrawOrder order = displayList.order();
        order.reverse();
        int seen = 0;
        order.visit([&](int at, auto ahead) {
            if (index) {
                if (++seen == kNearTop && !index->mayPick(around))
                    return false;
                if (index->world(at).isBeside(around))
                    return true;
            }
            VEK::fetchPlain(items[ahead(VEK::kFetchFar)]);
            VEK::fetchGeometry(items[ahead(VEK::kFetchNear)]);
            const bool hit = picker.hits(items[at]);
            if (index && !index->world(at).isKnown())
                index->learnWorld(at, items[at]);
            if (hit && items[at].stack.len() == 0 && index)
                index->setPath(at, 0);
            if (hit)
                found = items[at].stack[0];
            return !hit;
        });
        return found;
    });
    if (VEK::memoryShortages() != shortages)
        return -1;
    displayList.reverse();
    return number;
}
