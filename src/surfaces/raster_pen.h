// Wide pens with round ends and corners.
#pragma once

#include "surfaces/raster_areas.h"

namespace VEK::raster
{

class WidePen
{
public:
    static constexpr int kLimit = 32767;

    /// Width from 2 to kLimit.
    void setWidth(int width);

    /// The disc about a position, as the end of a line.
    void dot(Canvas& canvas, const Point& at, std::uint32_t color) const;

    /// The part of the disc about a position that the one about `last` does not cover.
    void dotAfter(Canvas& canvas, const Point& at, const Point& last, std::uint32_t color) const;

    /// A line without the discs at its ends.
    void body(Canvas& canvas, AreaScan& scan, const Point& from, const Point& to, std::uint32_t color) const;

private:
    Point cornerOf(const Point& at) const { return {at.x - m_width / 2, at.y - m_width / 2}; }

    int m_width = 0;
    std::vector<int> m_insets; ///< of each row of the disc, its distance from the side of the box
};

} // namespace VEK::raster
