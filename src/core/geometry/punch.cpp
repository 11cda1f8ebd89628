#include "core/geometry/part.h"
#include "core/geometry/prepared_region.h"
#include "core/values/whole.h"

#include <vek/geometry/prepared_region.h>
#include <vek/geometry/region.h>

namespace VEK
{
namespace
{

using Pieces = CVekArrayTempl<CVekVertexArray>;

/// Collects the wanted parts of one continuous run, and joins consecutive ones.
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
    bool m_fromStart = false; ///< a piece begins at the start of the run
    bool m_goesOn = false;    ///< the previous segment was wanted up to its end
    bool m_reachesEnd = false;
};

Pieces cut(plane::PreparedRegion& region, const CVekVertexArray& polyline, bool inside)
{
    const plane::Levelled level(polyline);
    const CVekVertexArray& vl = *level;
    Pieces pieces;
    const int count = vl.len();
    for (int first = 0; first < count;) {
        RunCollector run(vl.normal(), inside, pieces);
        int i = first;
        do {
            run.add(vl[i], region.spans(plane::flatArc(vl[i], vl.normal())));
            ++i;
        } while (i < count && plane::meets(vl[i - 1].end, vl[i].start));
        if (plane::meets(vl[i - 1].end, vl[first].start))
            run.close();
        first = i;
    }
    return pieces;
}

template <class Contours>
std::unique_ptr<plane::PreparedRegion> prepared(const Contours& contours)
{
    return whole(std::unique_ptr<plane::PreparedRegion>(),
                 [&] { return std::make_unique<plane::PreparedRegion>(contours); });
}

} // namespace

CPreparedRegion::CPreparedRegion(const CVekArrayTempl<CVekVertexArray>& region) : m_region(prepared(region)) {}
CPreparedRegion::CPreparedRegion(const CVekVertexArray& contour) : m_region(prepared(contour)) {}
CPreparedRegion::~CPreparedRegion() = default;
CPreparedRegion::CPreparedRegion(CPreparedRegion&& other) noexcept = default;
CPreparedRegion& CPreparedRegion::operator=(CPreparedRegion&& other) noexcept = default;

bool CPreparedRegion::isInside(const CVekPoint3d& point)
{
    return whole(false, [&] { return m_region && m_region->inside({point[0], point[1]}); });
}

Pieces CPreparedRegion::punch(const CVekVertexArray& vl, bool inside)
{
    return whole(Pieces(), [&] { return m_region ? cut(*m_region, vl, inside) : Pieces(); });
}

// NOLINTBEGIN(performance-unnecessary-value-param): callers hand the polyline over by value
CVekArrayTempl<CVekVertexArray> vl_punch(CVekVertexArray vl, const CVekVertexArray& contour, bool inside)
{
    return CPreparedRegion(contour).punch(vl, inside);
}

CVekArrayTempl<CVekVertexArray> vl_punch_reg(CVekVertexArray vl, const CVekArrayTempl<CVekVertexArray>& region,
                                             bool inside)
{
    return CPreparedRegion(region).punch(vl, inside);
}

// NOLINTEND(performance-unnecessary-value-param)

int g_vll_pt_inside(const CVekArrayTempl<CVekVertexArray>& region, const CVekPoint3d& point)
{
    return CPreparedRegion(region).isInside(point) ? 1 : 0;
}

} // namespace VEK
