/// A region cut by many parallel lines, from the lowest to the highest.
#pragma once

#include "core/geometry/prepared_region.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace VEK::detail
{

/// A region in a frame in which the hatch lines are level. Rows must come from below upwards; a row looks at the
/// segments at its own height only.
class HatchRows
{
public:
    struct Stretch {
        double from;
        double to;
    };

    /// @param region in the hatch plane, every coordinate finite; must stay as long as this
    /// @param turn angle of the lines
    HatchRows(const CVekArrayTempl<CVekVertexArray>& region, double turn);

    double tolerance() const { return m_tolerance; }

    /// The box around the outer contour.
    const plane::Box& box() const { return m_box; }

    /// Whether the outer contour hangs together, so that every row between its lowest and highest point meets it.
    bool hangsTogether() const { return m_hangsTogether; }

    /// Lets the rows begin from below again.
    void rewind();

    /// Cuts the row at a height, from one x to another.
    void cut(double y, double from, double to);

    /// Where the present row meets the contours, ascending. Places that coincide count once.
    const std::vector<double>& cuts() const { return m_cuts; }

    /// Whether a stretch of the present row meets the outer contour.
    bool meetsOuter(double from, double to) const;

    /// The stretches of the present row inside the outer contour.
    const std::vector<Stretch>& outer();

    /// Whether a place of the present row lies in the region.
    bool isInside(double x);

private:
    /// A segment of a contour.
    struct Side {
        plane::Vec start;
        plane::Vec end;
        double bulge;
        std::uint32_t contour;
        double low;
        double high;
    };

    struct Cut {
        double x;
        std::uint32_t contour;
    };

    bool cutPlainly(double y, double from, double to);
    void cutWithCare(double y, double from, double to);
    void takeStretches();
    void takeSpans(int contours, std::optional<plane::PreparedRegion>& prepared, std::vector<Stretch>& stretches);

    const CVekArrayTempl<CVekVertexArray>& m_region;
    double m_turn;
    double m_tolerance = 0.0;
    plane::Box m_box{};
    plane::Box m_all{};
    bool m_hangsTogether = true;
    bool m_isClosed = true; ///< all contours are

    std::vector<Side> m_sides; ///< by their lowest points
    std::vector<std::uint32_t> m_active;
    std::size_t m_next = 0;

    double m_y = 0.0;
    bool m_hasOuter = false; ///< the stretches of the present row are there
    bool m_hasInside = false;
    std::vector<Cut> m_found;
    std::vector<double> m_cuts;
    std::vector<Stretch> m_outer;
    std::vector<Stretch> m_inside;
    std::vector<char> m_within; ///< for each contour, while the cuts of a row are gone through
    std::optional<plane::PreparedRegion> m_preparedOuter;
    std::optional<plane::PreparedRegion> m_prepared;
};

} // namespace VEK::detail
