#include "core/values/whole.h"
#include "draw/hatch_plane.h"
#include "draw/hatch_rows.h"

#include <vek/draw/hatch.h>
#include <vek/geometry.h>
#include <vek/values/tolerance.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace
{

using VEK::detail::HatchRows;

/// Transforms pieces to the world and collects them up to the limit.
class Collector
{
public:
    explicit Collector(const CVekMatrix3d& toWorld) : m_toWorld(toWorld), m_normal(CVekVector3d::kZAxis * toWorld) {}

    bool isFull() const { return m_isFull; }
    bool isCutShort() const { return m_isFull || m_lacksLines; }
    void limitLines() { m_lacksLines = true; }

    void add(const CVekPoint3d& start, const CVekPoint3d& end)
    {
        if (m_pieces.len() >= VEK::kHatchPieces) {
            m_isFull = true;
            return;
        }
        CVekVertexArray& piece = m_pieces[m_pieces.len()];
        piece.setNormal(m_normal);
        piece.reserveExactly(1);
        piece.append(CVekVertex(start * m_toWorld, end * m_toWorld));
    }

    CVekArrayTempl<CVekVertexArray> take() { return std::move(m_pieces); }

private:
    const CVekMatrix3d& m_toWorld;
    CVekVector3d m_normal;
    CVekArrayTempl<CVekVertexArray> m_pieces;
    bool m_isFull = false;
    bool m_lacksLines = false;
};

/// A number of lines, limited to the maximum.
double limited(double count, Collector& collector)
{
    if (!(count > VEK::kHatchLines))
        return count;
    collector.limitLines();
    return VEK::kHatchLines;
}

void addDots(const CVekArrayTempl<CVekVertexArray>& region, double pitch, Collector& collector)
{
    CVekPoint3d min, max;
    if (!region[0].extents(min, max))
        return;
    const double count = limited((max[1] - min[1]) / pitch + 1.0, collector);
    const double tolerance = std::min(VEK::kPointTol, 1e-6 * pitch);
    HatchRows rows(region, 0.0);
    rows.lay(min[1], pitch, 0, static_cast<long long>(std::ceil(count)) - 1);
    for (int row = 0; row < count && !collector.isFull(); ++row) {
        rows.cut(row, -HUGE_VAL, HUGE_VAL);
        for (const HatchRows::Stretch& stretch : rows.inside()) {
            const double length = stretch.to - stretch.from;
            for (double dot = 0.0; dot * pitch <= length + tolerance && !collector.isFull(); dot += 1.0) {
                const CVekPoint3d place(stretch.from + std::min(dot * pitch, length), rows.height(row), 0.0);
                collector.add(place, place);
            }
        }
    }
}

/// The whole units between two coordinates, each truncated first.
double wholeUnits(double a, double b)
{
    const long long from = VEK::detail::cutToInt(std::min(a, b));
    const long long to = VEK::detail::cutToInt(std::max(a, b));
    return static_cast<double>(std::llabs(to - from));
}

void addLines(const CVekArrayTempl<CVekVertexArray>& region, double pitch, double angle, Collector& collector)
{
    constexpr double pi = std::numbers::pi;
    const CVekPoint3dArray ext = VEK::vl_extmax(region[0], -angle);
    const CVekPoint3dArray box = VEK::vl_extmax(VEK::vl_extrect(region[0], 0.0), -angle);
    if (ext.len() < 2 || box.len() < 2)
        return;
    const CVekPoint3d& low = box[0];
    const CVekVector3d along = VEK::polar(-angle, 1.0), across = VEK::polar(pi / 2 - angle, 1.0);
    const bool wide = std::fabs(ext[0][0] - ext[1][0]) > std::fabs(ext[0][1] - ext[1][1]);
    double count = wholeUnits(ext[0][wide ? 0 : 1], ext[1][wide ? 0 : 1]);
    // Lines beyond the region produce nothing.
    HatchRows rows(region, -angle);
    const double height = (box[1] - low).dot(across);
    count = limited(std::min(count, std::floor((height + rows.tolerance()) / pitch) + 1.0), collector);
    rows.lay(low.asVector().dot(across), pitch, 0, static_cast<long long>(count) - 1);
    for (int row = 0; row < count && !collector.isFull(); ++row) {
        rows.cut(row, -HUGE_VAL, HUGE_VAL);
        const CVekPoint3d start = CVekPoint3d(0.0, 0.0, low[2]) + across * rows.height(row);
        for (const HatchRows::Stretch& stretch : rows.inside())
            collector.add(start + along * stretch.from, start + along * stretch.to);
    }
}

} // namespace

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch(CVekArrayTempl<CVekVertexArray> regl, const CVekMatrix3d& mtx,
                                                        const CVekString& name, double pitch, double angle,
                                                        bool& cutShort)
{
    cutShort = true;
    return VEK::whole(CVekArrayTempl<CVekVertexArray>(), [&] {
        Collector collector(mtx);
        const bool isGiven = pitch > 0.0 && std::isfinite(pitch) && std::isfinite(angle);
        const unsigned long shortages = VEK::memoryShortages();
        if (isGiven && VEK::detail::toHatchPlane(regl, mtx)) {
            if (name == L"DOTS")
                addDots(regl, pitch, collector);
            else
                addLines(regl, pitch, angle, collector);
        }
        cutShort = collector.isCutShort() || VEK::memoryShortages() != shortages;
        return collector.take();
    });
}

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch(CVekArrayTempl<CVekVertexArray> regl, const CVekMatrix3d& mtx,
                                                        const CVekString& name, double pitch, double angle)
{
    bool cutShort = false;
    return vek_gdx_image_reg_hatch(std::move(regl), mtx, name, pitch, angle, cutShort);
}
