#include "core/geometry/region_cut.h"

#include <vek/geometry/region.h>

#include "core/values/arc.h"

#include <utility>
#include <vector>

namespace VEK::detail
{
namespace
{

using Contours = CVekArrayTempl<CVekVertexArray>;

/// The boundaries of the parts in single segments, and where they were cut.
struct Pieces {
    Contours segments;
    CVekPoint3dArray cuts;

    void add(const Contours& pieces)
    {
        for (const CVekVertexArray& piece : pieces) {
            if (!piece.isClosed()) {
                cuts.append(piece[0].start);
                cuts.append(piece[piece.len() - 1].end);
            }
            const double up = piece.normal()[2] < 0.0 ? -1.0 : 1.0;
            for (const CVekVertex& vertex : piece)
                segments.append(CVekVertexArray(CVekVertex(vertex.start, vertex.end, vertex.bulge * up)));
        }
    }

    /// Divides the segments where the end of another lies on them: faces are found from segments that meet at ends.
    void divide()
    {
        for (const CVekPoint3d& cut : cuts)
            for (int i = 0, count = segments.len(); i < count; ++i)
                if (segments[i].breakVertex(0, cut)) {
                    segments.append(CVekVertexArray(segments[i][1]));
                    segments[i] = CVekVertexArray(CVekVertex(segments[i][0]));
                }
    }
};

/// A point just inside the middle of the longest side of a counter-clockwise contour.
CVekPoint3d pointWithin(const CVekVertexArray& contour)
{
    const CVekVertex* longest = contour.begin();
    for (const CVekVertex& vertex : contour)
        if (vertex.bulgLen() > longest->bulgLen())
            longest = &vertex;
    const plane::Arc arc({longest->start[0], longest->start[1]}, {longest->end[0], longest->end[1]}, longest->bulge);
    const plane::Vec p = arc.at(0.5) + arc.chord().left() * 1e-4;
    return {p.x, p.y, 0.0};
}

} // namespace

CVekArrayTempl<Contours> cutRegion(const Contours& region, const CVekVertexArray& contour, bool inside)
{
    Pieces pieces;
    for (const CVekVertexArray& side : region)
        pieces.add(vl_punch(side, contour, inside));
    pieces.add(vl_punch_reg(contour, region, true));
    pieces.divide();
    Contours other;
    other.append(contour);
    CVekArrayTempl<Contours> parts;
    for (Contours& part : g_vll_regions(vll_regions_prepare(pieces.segments), 4)) {
        const CVekPoint3d point = pointWithin(part[0]);
        if (g_vll_pt_inside(region, point) > 0 && (g_vll_pt_inside(other, point) > 0) == inside)
            parts.append(std::move(part));
    }
    return parts;
}

} // namespace VEK::detail
