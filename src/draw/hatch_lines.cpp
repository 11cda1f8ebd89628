#include "core/geometry/prepared_region.h"
#include "draw/hatch_plane.h"

#include <vek/draw/hatch.h>
#include <vek/geometry.h>
#include <vek/values/tolerance.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace
{

using VEK::plane::Arc;
using VEK::plane::PreparedRegion;
using VEK::plane::Span;
using VEK::plane::Vec;

constexpr double kOverhang = 10.0;

/// Takes pieces to the world, as long as there is room.
class Collector
{
public:
    explicit Collector(const CVekMatrix3d& toWorld) : m_toWorld(toWorld), m_normal(CVekVector3d::kZAxis * toWorld) {}

    bool isFull() const { return m_pieces.len() >= VEK::kHatchPieces; }

    void add(const CVekPoint3d& start, const CVekPoint3d& end)
    {
        CVekVertexArray& piece = m_pieces[m_pieces.len()];
        piece.setNormal(m_normal);
        piece.append(CVekVertex(start * m_toWorld, end * m_toWorld));
    }

    CVekArrayTempl<CVekVertexArray> take() { return std::move(m_pieces); }

private:
    const CVekMatrix3d& m_toWorld;
    CVekVector3d m_normal;
    CVekArrayTempl<CVekVertexArray> m_pieces;
};

/// Hands the stretches of a line inside to `visit(from, to)`, parameters along it.
template <class Visit>
void cut(PreparedRegion& region, const CVekPoint3d& start, const CVekPoint3d& end, Visit&& visit)
{
    for (const Span& span : region.spans(Arc({start[0], start[1]}, {end[0], end[1]}, 0.0)))
        visit(span.from, span.to);
}

void addDots(const CVekVertexArray& outer, PreparedRegion& region, double pitch, Collector& collector)
{
    CVekPoint3d min, max;
    if (!outer.extents(min, max))
        return;
    const double rows = std::min((max[1] - min[1]) / pitch + 1.0, double(VEK::kHatchLines));
    const double tolerance = std::min(VEK::kPointTol, 1e-6 * pitch);
    for (int row = 0; row < rows && !collector.isFull(); ++row) {
        const CVekPoint3d start(min[0] - kOverhang, min[1] + pitch * row, 0.0);
        const CVekPoint3d end(max[0] + kOverhang, start[1], 0.0);
        const double width = end[0] - start[0];
        cut(region, start, end, [&](double from, double to) {
            const double first = start[0] + from * width;
            const double length = (to - from) * width;
            for (double dot = 0.0; dot * pitch <= length + tolerance && !collector.isFull(); dot += 1.0) {
                const CVekPoint3d place(first + std::min(dot * pitch, length), start[1], 0.0);
                collector.add(place, place);
            }
        });
    }
}

/// The whole units between two coordinates, each cut by itself.
double wholeUnits(double a, double b)
{
    const long long from = VEK::detail::cutToInt(std::min(a, b));
    const long long to = VEK::detail::cutToInt(std::max(a, b));
    return static_cast<double>(std::llabs(to - from));
}

void addLines(const CVekVertexArray& outer, PreparedRegion& region, double pitch, double angle, Collector& collector)
{
    constexpr double pi = std::numbers::pi;
    const CVekPoint3dArray ext = VEK::vl_extmax(outer, -angle);
    const CVekPoint3dArray box = VEK::vl_extmax(VEK::vl_extrect(outer, 0.0), -angle);
    if (ext.len() < 2 || box.len() < 2)
        return;
    const CVekPoint3d& low = box[0];
    const double reach = low.distanceTo(box[1]);
    const CVekPoint3d start = VEK::polar(low, pi - angle, reach);
    const CVekPoint3d end = VEK::polar(low, -angle, reach);
    const CVekVector3d step = VEK::polar(pi / 2 - angle, pitch);
    const bool wide = std::fabs(ext[0][0] - ext[1][0]) > std::fabs(ext[0][1] - ext[1][1]);
    double count = wholeUnits(ext[0][wide ? 0 : 1], ext[1][wide ? 0 : 1]);
    // Lines past the region yield nothing.
    const double height = (box[1] - low).dot(VEK::polar(pi / 2 - angle, 1.0));
    count = std::min({count, std::floor((height + region.tolerance()) / pitch) + 1.0, double(VEK::kHatchLines)});
    for (int line = 0; line < count && !collector.isFull(); ++line) {
        const CVekPoint3d from = start + step * line, to = end + step * line;
        cut(region, from, to, [&](double first, double last) {
            if (!collector.isFull())
                collector.add(from + (to - from) * first, from + (to - from) * last);
        });
    }
}

} // namespace

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch(CVekArrayTempl<CVekVertexArray> regl, const CVekMatrix3d& mtx,
                                                        const CVekString& name, double pitch, double angle)
{
    if (!(pitch > 0.0) || !std::isfinite(pitch) || !std::isfinite(angle) || !VEK::detail::isFinite(mtx))
        return {};
    const CVekMatrix3d toPlane = mtx.inverse();
    for (CVekVertexArray& contour : regl)
        contour.transformBy(toPlane);
    if (regl.len() == 0 || !VEK::detail::isFinite(regl))
        return {};
    PreparedRegion region(regl);
    Collector collector(mtx);
    if (name == L"DOTS")
        addDots(regl[0], region, pitch, collector);
    else
        addLines(regl[0], region, pitch, angle, collector);
    return collector.take();
}
