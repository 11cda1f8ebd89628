#include "core/geometry/part.h"
#include "core/values/whole.h"

#include <vek/geometry/polyline.h>
#include <vek/geometry/view.h>

namespace VEK
{
namespace
{

/// The most chords per arc that a caller gets; more would only fill the memory.
constexpr int kMaxExplode = 1000000;

template <class Count>
CVekVertexArray chordsOf(const CVekVertexArray& vl, Count&& count)
{
    return whole(CVekVertexArray(), [&] {
        CVekVertexArray chords;
        chords.setNormal(vl.normal());
        chords.reserve(vl.len());
        for (const CVekVertex& vertex : vl) {
            if (vertex.bulge == 0.0) {
                chords.append(vertex);
                continue;
            }
            const detail::Segment segment(vertex, vl.normal());
            segment.appendChords(chords, count(segment));
        }
        return chords;
    });
}

/// Whether the plane of a normal ends up parallel to xy.
bool liesLevel(const CVekVector3d& normal, const CVekMatrix3d& m)
{
    CVekMatrix3d frame;
    frame.setToPlaneToWorld(normal);
    return plane::isLevel((frame.axis(0) * m) * (frame.axis(1) * m));
}

} // namespace

int vx_split_dif(const CVekVertex& vertex, double dif)
{
    // Whatever plane the arc lies in: a lone vertex has no normal, and the chord's length does not depend on it.
    const double chord = vertex.start.distanceTo(vertex.end);
    const plane::Bend bend(vertex.bulge, chord);
    return bend.isArc() ? plane::chordCount(0.5 * chord / std::fabs(bend.sine), bend.sweep, dif) : 1;
}

CVekVertexArray vl_split_dif(CVekVertexArray vl, double dif)
{
    if (!plane::hasArcs(vl))
        return vl;
    return chordsOf(vl, [dif](const detail::Segment& arc) { return arc.chordCount(dif); });
}

CVekVertexArray g_vl_expl(const CVekVertexArray& vl, int n)
{
    return chordsOf(vl, [n](const detail::Segment&) { return std::clamp(n, 1, kMaxExplode); });
}

CVekVertexArray g_vl_proje_mtx_orig(CVekVertexArray vl, const CVekMatrix3d& m, double tolerance)
{
    return whole(CVekVertexArray(), [&] {
        if (plane::hasArcs(vl) && !liesLevel(vl.normal(), m))
            vl = vl_split_dif(std::move(vl), tolerance);
        vl.transformBy(m);
        const bool turned = vl.normal()[2] < 0.0;
        for (CVekVertex& vertex : vl) {
            g_vx_xy(vertex);
            if (turned)
                vertex.bulge = -vertex.bulge;
        }
        vl.setNormal(CVekVector3d::kZAxis);
        return std::move(vl);
    });
}

} // namespace VEK
