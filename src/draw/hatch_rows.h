/// A region cut by many parallel lines, from the lowest to the highest.
#pragma once

#include "core/geometry/standing.h"
#include "core/values/arc.h"

#include <vek/values/polyline.h>

#include <cstdint>
#include <vector>

namespace VEK::detail
{

/// A region in a frame in which the hatch lines are level, cut by equidistant rows. Rows must be cut from the lowest
/// upwards; a row examines only the segments at its own height.
///
/// A contour with gaps is closed by straight segments; they bound its inside, but produce no cuts.
class HatchRows
{
public:
    struct Stretch {
        double from;
        double to;
    };

    HatchRows() = default;
    HatchRows(const CVekArrayTempl<CVekVertexArray>& region, double turn) { set(region, turn); }

    /// Replaces the region; its memory stays in use.
    /// @param region in the hatch plane, with at least one contour, all coordinates `isFinite`
    /// @param turn angle of the lines
    void set(const CVekArrayTempl<CVekVertexArray>& region, double turn);

    double tolerance() const { return m_tolerance; }

    /// The box around the outer contour.
    const plane::Box& box() const { return m_box; }

    /// Whether the outer contour has no gap, so that every row between its lowest and highest point meets it.
    bool isContinuous() const { return m_isContinuous; }

    /// Sets up the rows: row number n lies at `height` + n * `step`, and there is none below `lowest` or above
    /// `highest`.
    /// @param step above 0
    void lay(double height, double step, long long lowest, long long highest);

    double height(long long row) const { return m_height + static_cast<double>(row) * m_step; }

    /// Restarts the rows from the lowest.
    void rewind();

    /// Cuts a row between two values of x.
    void cut(long long row, double from, double to);

    /// The stretches between the cuts of the current row, taken in pairs from the lowest x; none if their number is
    /// odd. Coincident cuts count once.
    const std::vector<Stretch>& pairs() const { return m_pairs; }

    /// The parts of the pairs inside the outer contour, from the last pair to the first and each from its end to its
    /// start.
    const std::vector<Stretch>& pieces();

    /// Appends the parts of a piece of the current row inside the outer contour.
    void punch(Stretch piece, std::vector<Stretch>& pieces);

    /// Whether a stretch of the current row meets the outer contour.
    bool meetsOuter(double from, double to) const;

    /// The stretches of the whole current row that lie in the region, its boundary included.
    const std::vector<Stretch>& inside();

    /// Whether a position on the current row lies in the region.
    bool isInside(double x);

private:
    /// A segment of a contour.
    struct Side {
        plane::Vec start;
        plane::Vec end;
        double bulge = 0.0;
        std::uint32_t contour = 0;
        bool isBridge = false;   ///< across a gap
        std::uint32_t first = 0; ///< the rows that it may meet, counted from the lowest
        std::uint32_t last = 0;
    };

    /// Where a row meets a side.
    struct Cut {
        double x;
        std::uint32_t contour;
        std::uint32_t side;
    };

    /// A change of what a row passes through.
    struct Event {
        double x;
        std::uint32_t contour;
        int step = plane::Standing::kPass;
    };

    void addContour(const CVekVertexArray& contour, std::uint32_t number, double turn);
    Side& addSide(plane::Vec start, plane::Vec end, std::uint32_t contour);
    void activate(std::uint32_t row);
    bool cutPlainly(double y, double from, double to);
    void cutWithCare(double y, double from, double to);
    void addPasses(const plane::Arc& row, const Side& side);
    void takeStretches();

    double m_tolerance = 0.0;
    plane::Box m_box{};                         ///< of the outer contour
    plane::Box m_all{{0.0, 0.0}, {-1.0, -1.0}}; ///< of all contours; inverted if there are none
    bool m_isContinuous = true;
    std::vector<Side> m_sides;

    double m_height = 0.0;
    double m_step = 1.0;
    long long m_lowest = 0;
    std::vector<std::uint32_t> m_begin;  ///< for each row from the lowest, where its sides begin in `m_order`
    std::vector<std::uint32_t> m_order;  ///< the sides, sorted by their first row
    std::vector<std::uint32_t> m_active; ///< mostly in the order in which the last row crosses them
    std::uint32_t m_next = 0;            ///< the first row whose sides are not active yet

    bool m_isPlain = false; ///< whether the current row is
    bool m_hasStretches = false;
    std::vector<Cut> m_found;    ///< where the current row meets contours
    std::vector<Event> m_events; ///< where it crosses them and runs along them
    std::vector<Stretch> m_pairs;
    std::vector<Stretch> m_pieces;
    std::vector<Stretch> m_outer;
    std::vector<Stretch> m_inside;
    plane::Standing m_standing; ///< while the stretches are taken
};

} // namespace VEK::detail
