/// A region made ready for being cut many times.
#pragma once

#include "core/geometry/crossing.h"

#include <vek/values/polyline.h>

#include <cstdint>
#include <vector>

namespace VEK::plane
{

/// A stretch of a segment, by the segment's parameter.
struct Span {
    double from;
    double to;
};

/// A segment of a polyline as the xy plane shows it. About a normal that points down its bulge turns the other way.
inline Arc flatArc(const CVekVertex& vertex, const CVekVector3d& normal)
{
    return {{vertex.start[0], vertex.start[1]},
            {vertex.end[0], vertex.end[1]},
            normal[2] < 0.0 ? -vertex.bulge : vertex.bulge};
}

/// A region made ready once for many cuts and questions: a cut costs what it crosses and little more, not the whole
/// contour. It keeps no reference to the polylines it was made of, and its scratch memory from one call to the next; so
/// one thread at a time.
///
/// Inside is what lies inside the outer contour and outside every hole; the boundary belongs to the region, within the
/// point tolerance. A region whose outer contour is empty, or that has a coordinate that is no finite number, contains
/// nothing.
class PreparedRegion
{
public:
    explicit PreparedRegion(const CVekArrayTempl<CVekVertexArray>& region);
    explicit PreparedRegion(const CVekVertexArray& contour);

    bool inside(Vec p);

    /// Whether a point lies on the boundary of a contour.
    bool onBoundary(Vec p) const;

    /// The stretches of a segment that lie inside, in order and apart from one another; none is shorter than the
    /// tolerance unless the segment is. What is outside lies between them. They stand until the next call.
    const std::vector<Span>& spans(const Arc& segment);

    /// Where the parallel to the y axis through a point meets a contour.
    struct Hit {
        double y;
        std::uint32_t contour;
        bool rightwards; ///< the contour runs towards +x there
    };

    /// Looks down from a point past one contour, which it does not see.
    /// @param touching receives what lies at the point's own height, within the tolerance; emptied first
    /// @param next the highest of what lies below
    /// @return whether there is a next one
    bool lookDown(Vec p, std::uint32_t past, std::vector<Hit>& touching, Hit& next) const;

    double tolerance() const { return m_tolerance; }

private:
    /// A point of a contour, with the bulge of the segment to the next one.
    struct Link {
        Vec point;
        double bulge = 0.0;
    };

    /// Consecutive segments of one contour.
    struct Leaf {
        std::uint32_t first;
        std::uint32_t count;
        std::uint32_t contour;
    };

    static constexpr int kPass = 0;

    /// What happens at a place along a segment.
    struct Event {
        double t;
        std::uint32_t contour;
        int step; ///< `kPass`, or 1 and -1 where a stretch along the contour begins and ends
    };

    /// Where a place stands to a contour.
    struct Standing {
        bool listed = false; ///< among the touched
        bool within = false;
        int along = 0; ///< number of stretches of its boundary that run here
    };

    void prepare(const CVekVertexArray* contours, int count);
    bool addContour(const CVekVertexArray& contour, std::uint32_t number);
    void addLeaves(std::uint32_t first, std::uint32_t number);
    void sortLeaves();
    void buildTree();
    /// Leaves that lie higher come first, more or less.
    template <class Meets, class Visit>
    void visit(Meets&& meets, Visit&& visitLeaf) const;
    template <class Pass>
    double visitPassages(const Leaf& leaf, const Carrier& carrier, Pass&& pass) const;

    bool isInside() const { return (m_standing[0].within || m_standing[0].along > 0) && m_blocked == 0; }
    void apply(std::uint32_t contour, int step);
    void reset();
    template <class Touch>
    void visitTouched(Vec p, Touch&& touch) const;
    bool isFarOutside(Vec p) const;
    void goTo(Vec p, int only = -1);
    void dropAnchor(Vec p);

    void gather(const Arc& segment);
    void addStretches(const Arc& segment, const Leaf& leaf, const Carrier& carrier);
    Span longestFree(int contour) const;
    double placeIn(const Span& free, const Arc& segment) const;
    void findStart(const Arc& segment);
    void sweep(double length);

    std::vector<Link> m_links;
    std::vector<Leaf> m_leaves;
    std::vector<Box> m_boxes;            ///< of the leaves, then of each level of the tree above them
    std::vector<std::uint32_t> m_levels; ///< where each level begins in the boxes
    double m_tolerance = 0.0;

    std::vector<Event> m_events;
    std::vector<Standing> m_standing;     ///< one for each contour
    std::vector<std::uint32_t> m_touched; ///< contours whose standing may be other than at start
    int m_blocked = 0;                    ///< holes that the present place lies in

    // A place that lies on no boundary, from which the next one is often not far.
    Vec m_anchor;
    std::vector<std::uint32_t> m_anchorWithin; ///< the contours around it
    bool m_anchored = false;

    std::vector<Span> m_spans;
};

} // namespace VEK::plane
