/// Inside or outside, kept up while one goes along a line.
#pragma once

#include <cstdint>
#include <vector>

namespace VEK::plane
{

/// How a place stands to each contour of a region, number 0 being the outer one. It begins outside of all, and each
/// passage through a contour and each stretch along one changes it, so that a step costs the same however many contours
/// there are.
class Standing
{
public:
    static constexpr int kPass = 0;

    explicit Standing(std::size_t contours) : m_contours(contours) {}

    /// Goes on over what happens at a contour.
    /// @param step `kPass`, or 1 and -1 where a stretch along its boundary begins and ends
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

    /// Outside of all again.
    void reset()
    {
        for (const std::uint32_t contour : m_touched)
            m_contours[contour] = {};
        m_touched.clear();
        m_blocked = 0;
    }

    bool isWithin(std::uint32_t contour) const { return m_contours[contour].within; }
    bool isInOuter() const { return m_contours[0].within || m_contours[0].along > 0; }

    /// Whether the place lies in the region, to which its boundary belongs.
    bool isInside() const { return isInOuter() && m_blocked == 0; }

    /// The contours that were passed or run along, in which alone the place can lie.
    const std::vector<std::uint32_t>& touched() const { return m_touched; }

private:
    struct Contour {
        bool listed = false; ///< among the touched
        bool within = false;
        int along = 0; ///< number of stretches of its boundary that run here
    };

    std::vector<Contour> m_contours;
    std::vector<std::uint32_t> m_touched;
    int m_blocked = 0; ///< holes that the place lies in
};

} // namespace VEK::plane
