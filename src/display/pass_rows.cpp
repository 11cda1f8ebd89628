// Lines of the index in a draw pass.
#include "display/pass.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace VEK
{
namespace
{

using Box = DisplayIndex::Box;

/// The values that a matrix row takes to a range, a little widened, since points are computed in another way.
/// @param scale, offset of the matrix row
std::pair<float, float> before(double from, double to, double scale, double offset)
{
    const double a = (from - offset) / scale, b = (to - offset) / scale;
    const double slack = 1e-6 * (std::fabs(a) + std::fabs(b) + std::fabs(offset / scale));
    const double low = std::min(a, b) - slack, high = std::max(a, b) + slack;
    if (!(std::fabs(low) < 1e30) || !(std::fabs(high) < 1e30))
        return {-Box::kAll, Box::kAll};
    return {static_cast<float>(low), static_cast<float>(high)};
}

/// Takes the points of a row to the device, as `DeviceMap` does.
/// @param m its first two rows
template <bool isFlat>
void toDevice(const CVekMatrix3d& m, const double* from, unsigned count, SurfacePoint* to)
{
    const CVekMatrix3d::Rows& rows = m;
    const double* const x = rows[0];
    const double* const y = rows[1];
    for (SurfacePoint* const end = to + count; to != end; ++to) {
        const double z = isFlat ? 0.0 : from[2];
        to->x = x[0] * from[0] + x[1] * from[1] + x[2] * z + x[3];
        to->y = y[0] * from[0] + y[1] * from[1] + y[2] * z + y[3];
        from += isFlat ? 2 : 3;
    }
}

} // namespace

/// The part of the world, after the view direction and the items' own matrices, that lies in the drawing area with a
/// margin: everything if the matrix to the device turns.
Box DrawPass::shownArea(double margin) const
{
    const CVekMatrix3d::Rows& m = m_total;
    Box area;
    if (!m_rules.skipsOutside || m[0][1] != 0.0 || m[0][2] != 0.0 || m[1][0] != 0.0 || m[1][2] != 0.0)
        return area;
    std::tie(area.left, area.right) = before(m_area.left - margin, m_right + margin, m[0][0], m[0][3]);
    std::tie(area.bottom, area.top) = before(m_area.top - margin, m_bottom + margin, m[1][1], m[1][3]);
    return area;
}

const DrawPass::Pen& DrawPass::pen(const DisplayIndex& index, unsigned look)
{
    while (m_pens.size() <= look) {
        const DisplayIndex::Look& next = index.looks()[m_pens.size()];
        const double around = margin(next.thickn);
        m_pens.push_back({penWidth(next.thickn), penColor(next.mode, next.color), around, shownArea(around)});
    }
    return m_pens[look];
}

void DrawPass::drawRow(const DisplayIndex& index, const DisplayIndex::Row& row, const Box& box)
{
    const Pen& pen = this->pen(index, row.look);
    if (box.isBeside(pen.area))
        return;
    if (row.matrix != m_rowMatrix) {
        m_rowMatrix = row.matrix;
        m_rowMap = row.matrix != 0 ? m_total * index.matrix(row) : m_total;
    }
    m_surface.pen(pen.width, pen.color);
    SurfacePoint* const points = m_points.data();
    if (row.isFlat)
        toDevice<true>(m_rowMap, index.coordinates(row), row.count, points);
    else
        toDevice<false>(m_rowMap, index.coordinates(row), row.count, points);
    m_margin = pen.margin;
    if (box.isWithin(pen.area) || !isOutside({points, row.count}))
        m_surface.polyline(points, static_cast<int>(row.count));
}

} // namespace VEK
