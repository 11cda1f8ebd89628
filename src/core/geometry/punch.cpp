#include "core/geometry/meets.h"
#include "core/geometry/part.h"
#include "core/geometry/prepared_region.h"

#include <vek/geometry/region.h>

namespace VEK
{
namespace
{

using Pieces = CVekArrayTempl<CVekVertexArray>;

/// Collects the wanted parts of one continuous run, and joins those that follow on one another.
class RunCollector
{
public:
    RunCollector(const CVekVector3d& normal, bool wantInside, Pieces& pieces)
        : m_normal(normal), m_wantInside(wantInside), m_pieces(pieces), m_begin(pieces.len())
    {
    }

    void add(const CVekVertex& vertex, const std::vector<plane::Span>& inside)
    {
        const detail::Segment segment(vertex, m_normal);
        double behind = 0.0;
        m_goesOn = m_reachesEnd;
        m_reachesEnd = false;
        for (const plane::Span& span : inside) {
            if (m_wantInside)
                addPart(segment, span);
            else if (span.from > behind)
                addPart(segment, {behind, span.from});
            behind = span.to;
        }
        if (!m_wantInside && (behind < 1.0 || inside.empty()))
            addPart(segment, {behind, 1.0});
        m_first = false;
    }

    /// Joins the piece that reaches the end of a closed run to the one that begins at its start.
    void close()
    {
        if (!m_reachesEnd || !m_fromStart || m_pieces.len() - m_begin < 2)
            return;
        CVekVertexArray whole = std::move(m_pieces[-1]);
        m_pieces.setLogicalLength(m_pieces.len() - 1);
        whole += m_pieces[m_begin];
        m_pieces[m_begin] = std::move(whole);
    }

private:
    void addPart(const detail::Segment& segment, const plane::Span& span)
    {
        if (!m_goesOn || span.from > 0.0)
            m_pieces[m_pieces.len()].setNormal(m_normal);
        m_pieces[-1].append(segment.part(span.from, span.to));
        m_reachesEnd = span.to == 1.0;
        m_fromStart = m_fromStart || (m_first && span.from == 0.0);
    }

    CVekVector3d m_normal;
    bool m_wantInside;
    Pieces& m_pieces;
    int m_begin;              ///< the run's first piece
    bool m_first = true;      ///< the run's first segment
    bool m_fromStart = false; ///< a piece begins where the run begins
    bool m_goesOn = false;    ///< the segment before was wanted up to its end
    bool m_reachesEnd = false;
};

Pieces punch(const CVekVertexArray& vl, plane::PreparedRegion region, bool inside)
{
    Pieces pieces;
    const int count = vl.len();
    for (int first = 0; first < count;) {
        RunCollector run(vl.normal(), inside, pieces);
        int i = first;
        do {
            run.add(vl[i], region.spans(plane::flatArc(vl[i], vl.normal())));
            ++i;
        } while (i < count && detail::meets(vl[i - 1].end, vl[i].start));
        if (detail::meets(vl[i - 1].end, vl[first].start))
            run.close();
        first = i;
    }
    return pieces;
}

} // namespace

// NOLINTBEGIN(performance-unnecessary-value-param): callers hand the polyline over by value
CVekArrayTempl<CVekVertexArray> vl_punch(CVekVertexArray vl, const CVekVertexArray& contour, bool inside)
{
    return punch(vl, plane::PreparedRegion(contour), inside);
}

CVekArrayTempl<CVekVertexArray> vl_punch_reg(CVekVertexArray vl, const CVekArrayTempl<CVekVertexArray>& region,
                                             bool inside)
{
    return punch(vl, plane::PreparedRegion(region), inside);
}

// NOLINTEND(performance-unnecessary-value-param)

int g_vll_pt_inside(const CVekArrayTempl<CVekVertexArray>& region, const CVekPoint3d& point)
{
    return plane::PreparedRegion(region).inside({point[0], point[1]}) ? 1 : 0;
}

} // namespace VEK
