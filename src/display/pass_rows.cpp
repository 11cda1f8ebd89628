// Lines of the index in a draw pass.
#include "display/pass.h"

#include <algorithm>
#include <cmath>
#include <limits>
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
    for (; m_penCount <= look; ++m_penCount) {
        const DisplayIndex::Look& next = index.looks()[m_penCount];
        const double around = margin(next.thickn);
        const Box area = shownArea(around);
        m_pens[m_penCount] = {penWidth(next.thickn), penColor(next.mode, next.color), around, area, area.isBounded()};
    }
    return m_pens[look];
}

void DrawPass::setRowMatrix(const DisplayIndex& index, unsigned matrix)
{
    setRowColumns(matrix != 0 ? m_total * index.matrix(matrix) : m_total);
    m_rowMatrix = matrix;
}

void DrawPass::setRowColumns(const CVekMatrix3d& map)
{
    for (std::size_t column = 0; column < 4; ++column)
        m_rowColumns[column] = Pair{map[0][column], map[1][column]};
    m_rowZero = m_rowColumns[2] * 0.0;
}

/// Takes points with z = 0 to the device.
/// @return behind their coordinates
inline const double* DrawPass::mapFlat(const double* from, SurfacePoint* to, std::size_t count) const
{
    const auto [x, y, z, origin] = m_rowColumns;
    for (SurfacePoint* const end = to + count; to != end; ++to, from += 2) {
        const Pair p = x * from[0] + y * from[1] + m_rowZero + origin;
        *to = {p[0], p[1]};
    }
    return from;
}

inline void DrawPass::drawRow(const DisplayIndex& index, const DisplayIndex::Row& row, const Box& box)
{
    const Pen& pen = row.look < m_penCount ? m_pens[row.look] : this->pen(index, row.look);
    if (box.isBeside(pen.area))
        return;
    if (row.matrix != m_rowMatrix)
        setRowMatrix(index, row.matrix);
    m_surface.pen(pen.width, pen.color);
    const double* from = index.coordinates(row);
    SurfacePoint* const points = m_points.data();
    if (row.kind == DisplayIndex::Kind::flatLine) {
        mapFlat(from, points, row.count);
    } else {
        const auto [x, y, z, origin] = m_rowColumns;
        for (SurfacePoint *to = points, *const end = points + row.count; to != end; ++to, from += 3) {
            const Pair p = x * from[0] + y * from[1] + z * from[2] + origin;
            *to = {p[0], p[1]};
        }
    }
    m_margin = pen.margin;
    if ((pen.isBounded && box.isWithin(pen.area)) || !isOutside({points, row.count}))
        m_surface.polyline(points, row.count);
}

/// Draws a text like `drawText` of its item.
void DrawPass::drawText(const DisplayIndex& index, const DisplayIndex::Row& row)
{
    const DisplayIndex::Text& text = index.text(row);
    const Pen& pen = this->pen(index, row.look);
    setRowColumns(text.moves ? m_total * text.mtx : m_total);
    m_rowMatrix = std::numeric_limits<unsigned>::max();
    m_margin = pen.margin;
    m_surface.brush(pen.color);
    const double* from = index.coordinates(text);
    const std::span<const DisplayIndex::Contour> contours = index.contours(text);
    for (std::size_t first = 0, last = 0; first < contours.size(); first = last) {
        std::size_t count = 0;
        do
            count += contours[last++].count;
        while (last < contours.size() && !contours[last].beginsGlyph);
        if (m_points.size() < count)
            m_points.resize(count);
        from = mapFlat(from, m_points.data(), count);
        if (!isOutside({m_points.data(), count}))
            drawGlyph(contours.subspan(first, last - first), pen);
    }
}

/// @param contours whose points are those of the current row
void DrawPass::drawGlyph(std::span<const DisplayIndex::Contour> contours, const Pen& pen)
{
    const SurfacePoint* const outer = m_points.data();
    const auto corners = [](const SurfacePoint* points, int count) {
        return count > 1 && points[0] == points[count - 1] ? count - 1 : count;
    };
    if (contours[0].isClosed) {
        m_surface.pen(pen.width, pen.color);
        bool holes = false;
        const SurfacePoint* hole = outer + contours[0].count;
        for (const DisplayIndex::Contour& contour : contours.subspan(1)) {
            const int count = corners(hole, contour.count);
            if (count >= 3)
                m_surface.clipOut(hole, count);
            holes = holes || count >= 3;
            hole += contour.count;
        }
        m_surface.polygon(outer, corners(outer, contours[0].count));
        if (holes)
            m_surface.clipRestore();
    }
    m_surface.pen(penWidth(1), pen.color);
    const SurfacePoint* points = outer;
    for (const DisplayIndex::Contour& contour : contours) {
        m_lines.insert(m_lines.end(), points, points + contour.count);
        points += contour.count;
        endLine();
    }
    flushLines();
}

/// Draws a list by its index, and adds to it what has no row yet.
void DrawPass::draw(const CVekDisplayItem* items, const DrawOrder& order, DisplayIndex& index)
{
    using Kind = DisplayIndex::Kind;
    setRowMatrix(index, 0);
    m_points.resize(DisplayIndex::kPoints);
    order.visit([&](int number, auto ahead) {
        const DisplayIndex::Row& later = index.row(ahead(kFetchFar));
        if (later.isLine()) {
            fetch(index.coordinates(later), 64);
        } else if (later.kind == Kind::text) {
            fetch(index.coordinates(index.text(later)), 64);
        } else if (later.kind != Kind::nothing) {
            fetchPlain(items[ahead(kFetchFar)]);
            fetchGeometry(items[ahead(kFetchNear)]);
        }
        if (!order.isAsStored()) // otherwise the processor sees them coming
            index.fetchRow(ahead(2 * kFetchFar));
        const DisplayIndex::Row* row = &index.row(number);
        if (row->kind == Kind::unknown)
            row = &index.learn(number, items[number]);
        if (row->isLine())
            drawRow(index, *row, index.shown(number));
        else if (row->kind == Kind::text)
            drawText(index, *row);
        else if (row->kind == Kind::item)
            draw(items[number]);
        return true;
    });
}

} // namespace VEK
