#include "core/geometry/dash_pattern.h"
#include "core/values/whole.h"

#include <vek/geometry/polyline.h>

namespace VEK
{
namespace
{

/// A polyline for each dash and dot.
class Pieces
{
public:
    explicit Pieces(CVekArrayTempl<CVekVertexArray>& pieces) : m_pieces(pieces) {}

    void setNormal(const CVekVector3d& normal) { m_normal = normal; }
    void begin() { m_pieces[m_pieces.len()].setNormal(m_normal); }
    void part(const CVekVertex& part) { m_pieces[-1].append(part); }
    void dot(const CVekPoint3d& at)
    {
        begin();
        part(CVekVertex(at, at));
    }

private:
    CVekArrayTempl<CVekVertexArray>& m_pieces;
    CVekVector3d m_normal;
};

CVekArrayTempl<CVekVertexArray> dashesOf(CVekVertexArray&& vl, double scale, const CVekArrayTempl<double>& pattern)
{
    CVekArrayTempl<CVekVertexArray> runs = vl_to_vll(std::move(vl));
    detail::DashPattern dashes;
    dashes.assign(pattern, scale, 0.0);
    if (!(scale > 0.0) || dashes.isEmpty() || !std::isfinite(dashes.period()))
        return runs;
    CVekArrayTempl<CVekVertexArray> pieces;
    if (!dashes.draws())
        return pieces;
    double total = 0.0;
    for (const CVekVertexArray& run : runs) {
        for (const CVekVertex& vertex : run)
            total += detail::Segment(vertex, run.normal()).length();
    }
    if (!dashes.covers(total))
        return runs;
    Pieces collected(pieces);
    for (const CVekVertexArray& run : runs) {
        collected.setNormal(run.normal());
        dashes.lay(run, collected);
    }
    return pieces;
}

} // namespace

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand the pattern over by value
CVekArrayTempl<CVekVertexArray> vl_measure(CVekVertexArray vl, double scale, CVekLineParm pattern)
{
    return whole(CVekArrayTempl<CVekVertexArray>(), [&] { return dashesOf(std::move(vl), scale, pattern.dashes()); });
}

} // namespace VEK
