/// Inside or outside, updated along a line.
#pragma once

#include <cstdint>
#include <vector>

namespace VEK::plane
{

/// Whether a place is inside each contour of a region, number 0 being the outer one. It begins outside all of them and
/// is updated at each crossing of a contour and each stretch along one, so that a step takes constant time however many
/// contours there are.
class Standing
{
public:
    static constexpr int kPass = 0;

    Standing() = default;
    explicit Standing(std::size_t contours) : m_contours(contours) {}

    /// Begins with another region.
    void begin(std::size_t contours)
    {
        m_contours.assign(contours, {});
        m_touched.clear();
        m_blocked = 0;
    }

    /// Steps over an event at a contour.
    /// @param step `kPass`, or 1 and -1 at the beginning and end of a stretch along its boundary
    void apply(std::uint32_t contour, int step)
    {
        Contour& own = m_contours[contour];
        const auto blocks = [&] { return contour > 0 && own.within && own.along == 0; };
        m_blocked -= blocks();
        if (step == kPass)
            own.within = !own.within;
        else
            own.along += step;
        m_blocked += blocks();
        if (!own.listed)
            m_touched.push_back(contour);
        own.listed = true;
    }

    /// Goes back to outside all contours.
    void reset()
    {
        for (const std::uint32_t contour : m_touched)
            m_contours[contour] = {};
        m_touched.clear();
        m_blocked = 0;
    }

    bool isWithin(std::uint32_t contour) const { return m_contours[contour].within; }
    bool isInOuter() const { return m_contours[0].within || m_contours[0].along > 0; }

    /// Whether the place is in the region, whose boundary belongs to it.
    bool isInside() const { return isInOuter() && m_blocked == 0; }

    /// The contours that were crossed or run along; the place can be inside no others.
    const std::vector<std::uint32_t>& touched() const { return m_touched; }

private:
    struct Contour {
        bool listed = false; ///< is among the touched
        bool within = false;
        int along = 0; ///< number of stretches of its boundary that run here
    };

    std::vector<Contour> m_contours;
    std::vector<std::uint32_t> m_touched;
    int m_blocked = 0; ///< holes that contain the place
};

} // namespace VEK::plane
