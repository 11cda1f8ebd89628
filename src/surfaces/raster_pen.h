// Wide pens with round ends and corners.
#pragma once

#include "surfaces/raster_areas.h"

namespace VEK::raster
{

class WidePen
{
public:
    static constexpr int kLimit = 32767;

    /// Width from 2 up to kLimit.
    void setWidth(int width);

    /// The disc about a position, as the end of a line.
    void dot(Canvas& canvas, const Point& at, std::uint32_t color) const;

    /// What the disc about a position covers beyond the one about `last`.
    void dotAfter(Canvas& canvas, const Point& at, const Point& last, std::uint32_t color) const;

    /// A line without the discs at its ends.
    void body(Canvas& canvas, AreaScan& scan, const Point& from, const Point& to, std::uint32_t color) const;

private:
    Point cornerOf(const Point& at) const { return {at.x - m_width / 2, at.y - m_width / 2}; }

    int m_width = 0;
    std::vector<int> m_insets; ///< of each row of the disc, how far it begins inside of its box
};

} // namespace VEK::raster
