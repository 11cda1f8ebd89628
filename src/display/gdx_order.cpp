// Draw order and picking: what depends on the order of the list.
#include <vek/display/gdx.h>

#include <array>

namespace
{

constexpr int kClasses = 6;

/// The class of an item in the draw order, from 0 at the bottom.
int orderClass(const CVekDisplayItem& item)
{
    if (item.type == dispPicture)
        return 5;
    const bool region = item.type == dispRegion;
    switch (item.colorMode()) {
    case VEK::colorHighlight: return region ? 3 : 4;
    case VEK::colorRefer: return 2;
    default: return region ? 0 : 1;
    }
}

constexpr double kPickDistance = 5.0; // world units, whatever the zoom

bool nearVertex(const CVekVertex& vertex, const CVekPoint3d& world)
{
    return vertex.start != vertex.end && vertex.lotp(world).distanceTo(world) <= kPickDistance;
}

bool nearPolyline(const CVekVertexArray& vl, const CVekMatrix3d& m, const CVekPoint3d& world)
{
    for (const CVekVertex& vertex : vl) {
        if (vertex.bulge == 0.0) {
            if (nearVertex(CVekVertex(vertex.start * m, vertex.end * m, 0.0), world))
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
    const int count = displayList.len();
    std::array<int, kClasses + 1> first{};
    bool sorted = true;
    int before = 0;
    for (const CVekDisplayItem& item : displayList) {
        const int itemClass = orderClass(item);
        sorted &= itemClass >= before;
        before = itemClass;
        ++first[static_cast<std::size_t>(itemClass) + 1];
    }
    if (sorted)
        return;
    for (std::size_t c = 1; c < first.size(); ++c)
        first[c] += first[c - 1];
    CVekArrayTempl<CVekDisplayItem> ordered;
    if (ordered.setLogicalLength(count) < count)
        return;
    for (CVekDisplayItem& item : displayList)
        ordered[first[static_cast<std::size_t>(orderClass(item))]++] = std::move(item);
    displayList = std::move(ordered);
}

CVekPoint3d CVekGDX::imagePtWc(const CVekPoint3d& devicePoint) const
{
    return devicePoint * (viewDirectionMtx.inverse() * viewMtx.inverse() * projMtx.inverse() * zoomMtx.inverse());
}

int CVekGDX::imageItemGet(const CVekPoint3d& devicePoint)
{
    const CVekPoint3d world = imagePtWc(devicePoint);
    displListSort();
    displayList.revert();
    for (CVekDisplayItem& item : displayList) {
        if (isHit(item, world))
            return item.stack[0];
    }
    return -1;
}
