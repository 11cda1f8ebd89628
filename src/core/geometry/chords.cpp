#include "core/geometry/part.h"

#include <vek/geometry/polyline.h>
#include <vek/geometry/view.h>

namespace VEK
{
namespace
{

/// Chords of one arc that a caller can ask for; a number beyond it would only fill the memory.
constexpr int kMaxExplode = 1000000;

/// Sine of the angle to xy below which a plane counts as parallel to it.
constexpr double kLevel = 1e-9;

bool hasArcs(const CVekVertexArray& vl)
{
    return std::any_of(vl.begin(), vl.end(), [](const CVekVertex& vertex) { return vertex.bulge != 0.0; });
}

template <class Count>
CVekVertexArray chordsOf(const CVekVertexArray& vl, Count&& count)
{
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
}

/// Whether the plane of a normal comes to lie parallel to xy.
bool liesLevel(const CVekVector3d& normal, const CVekMatrix3d& m)
{
    CVekMatrix3d frame;
    frame.setToPlaneToWorld(normal);
    const CVekVector3d n = (frame.axis(0) * m) * (frame.axis(1) * m);
    return n[0] * n[0] + n[1] * n[1] <= kLevel * kLevel * n[2] * n[2];
}

} // namespace

int vx_split_dif(const CVekVertex& vertex, double dif)
{
    return detail::Segment(vertex, CVekVector3d::kZAxis).chordCount(dif);
}

CVekVertexArray vl_split_dif(CVekVertexArray vl, double dif)
{
    if (!hasArcs(vl))
        return vl;
    return chordsOf(vl, [dif](const detail::Segment& arc) { return arc.chordCount(dif); });
}

CVekVertexArray g_vl_expl(const CVekVertexArray& vl, int n)
{
    return chordsOf(vl, [n](const detail::Segment&) { return std::clamp(n, 1, kMaxExplode); });
}

CVekVertexArray g_vl_proje_mtx_orig(CVekVertexArray vl, const CVekMatrix3d& m, double tolerance)
{
    if (hasArcs(vl) && !liesLevel(vl.normal(), m))
        vl = vl_split_dif(std::move(vl), tolerance);
    vl.transformBy(m);
    const bool turned = vl.normal()[2] < 0.0;
    for (CVekVertex& vertex : vl) {
        g_vx_xy(vertex);
        if (turned)
            vertex.bulge = -vertex.bulge;
    }
    vl.setNormal(CVekVector3d::kZAxis);
    return vl;
}

} // namespace VEK
