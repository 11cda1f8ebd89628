// The inside of polygons, even-odd.
#pragma once

#include "surfaces/raster_canvas.h"

#include <bit>
#include <span>

namespace VEK::raster
{

/// Finds the pixels whose top left corner lies inside a polygon, including its left and upper edges.
///
/// Each edge flips one flag in each row that it crosses, at the first pixel to its right; the flags of a row are then
/// the ends of its spans. So a polygon costs the rows that its edges cross, without sorting.
class AreaScan
{
public:
    /// Calls span(y, x1, x2) for the pixels from x1 to x2, excluding x2, of each row, as far as they lie in `clip`.
    template <class Span>
    void fill(std::span<const Point> polygon, const Box& clip, Span span)
    {
        if (!start(polygon, clip))
            return;
        for (int y = m_box.top; y < m_box.bottom; ++y)
            readRow(y, span);
    }

private:
    /// Records the edges.
    /// @return false if nothing lies in the clip
    bool start(std::span<const Point> polygon, const Box& clip);
    void addEdge(Point from, Point to);

    template <class Span>
    void readRow(int y, Span span)
    {
        std::uint64_t* row = &m_flags[static_cast<std::size_t>(y - m_box.top) * m_words];
        int from = -1;
        for (std::size_t i = 0; i < m_words; ++i) {
            for (; row[i] != 0; row[i] &= row[i] - 1) {
                const int x = m_box.left + static_cast<int>(i) * 64 + std::countr_zero(row[i]);
                if (from >= 0)
                    span(y, from, x);
                from = from >= 0 ? -1 : x;
            }
        }
        if (from >= 0 && from < m_box.right) // it ends further right
            span(y, from, m_box.right);
    }

    Box m_box;
    std::size_t m_words = 0;            ///< of a row: a bit for each pixel and one for everything to the right
    std::vector<std::uint64_t> m_flags; ///< all zero between polygons
};

} // namespace VEK::raster
