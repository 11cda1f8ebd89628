/// A region prepared for many cuts.
#pragma once

#include "core/geometry/contour_tree.h"
#include "core/geometry/standing.h"
#include "core/values/stepping.h"

namespace VEK::plane
{

/// A stretch of a segment, by the segment's parameter.
struct Span {
    double from;
    double to;
};

/// A region prepared once for many cuts and queries: a cut costs little more than what it crosses, not the whole
/// contour. It keeps no reference to the polylines it was made from, and reuses scratch memory between calls, so only
/// one thread at a time may use it.
///
/// Inside is what lies inside the outer contour and outside every hole; the boundary belongs to the region, within the
/// point tolerance. A region whose outer contour is empty, or that has a non-finite coordinate, contains nothing.
class PreparedRegion
{
public:
    explicit PreparedRegion(const CVekArrayTempl<CVekVertexArray>& region)
        : PreparedRegion(region.begin(), region.len())
    {
    }
    explicit PreparedRegion(const CVekVertexArray& contour) : PreparedRegion(&contour, 1) {}

    bool inside(Vec p);

    /// Whether a point lies on the boundary of a contour.
    bool onBoundary(Vec p) const
    {
        bool touches = false;
        m_contours.visitTouched(p, [&](std::uint32_t) { touches = true; });
        return touches;
    }

    /// The stretches of a segment that are inside, in order and separate; none is shorter than the tolerance unless the
    /// segment is. What is between them is outside. Valid until the next call.
    const std::vector<Span>& spans(const Arc& segment);

private:
    /// An event at a place along a segment; the step is that of `Standing`.
    struct Event {
        double t;
        std::uint32_t contour;
        int step;
    };

    /// The contours that a walk considers: those that are set aside, or all others.
    enum class Walk { others, setAside };

    static constexpr int kAnyContour = -1;

    PreparedRegion(const CVekVertexArray* contours, int count);

    bool isFarOutside(Vec p) const;
    bool takesPart(std::uint32_t contour, Walk walk) const
    {
        return (m_isSetAside[contour] != 0) == (walk == Walk::setAside);
    }
    void findTouched(Vec p, std::vector<std::uint32_t>& touched) const;
    void goTo(Vec p, Walk walk);
    void keepKnown(Vec p);

    void gather(const Arc& segment);
    void addStretches(const Arc& segment, const ContourTree::Leaf& leaf, const Carrier& carrier);
    Span longestFree(int contour) const;
    double placeOff(const Arc& segment, std::uint32_t contour, const Span& free);
    void judge(const Arc& segment, double place, Walk walk);
    void findStart(const Arc& segment);
    void sweep(double length);

    ContourTree m_contours;
    Standing m_standing;
    std::vector<Event> m_events;
    std::vector<Span> m_spans;

    // Contours that need a separate place to be classified from.
    std::vector<char> m_isSetAside; ///< one for each contour
    std::vector<std::uint32_t> m_open;
    std::vector<std::uint32_t> m_touched;

    // A place on no boundary; the next one queried is often near it.
    Vec m_known;
    std::vector<std::uint32_t> m_knownWithin; ///< the contours around it
    bool m_isKnown = false;
};

} // namespace VEK::plane
