/// @file
/// What a view makes of bodies: points, lines and facets of a picture, and which parts of the lines are seen.
///
/// The picture lies in the xy plane of the view; z is the height towards the viewer, who looks down. Points of the
/// picture that coincide within the tolerance are one point with one number, so what coincides is recognised by
/// numbers and neighbouring facets leave no gap.
#pragma once

#include "core/solid/body.h"
#include "core/values/box_tree.h"

namespace VEK::solids
{

using plane::Box;
using plane::Vec;

/// Points of the picture by number.
class Points
{
public:
    /// @param tolerance points nearer than this are one
    void clear(double tolerance);

    /// The number of a point, a new one if there is none within the tolerance.
    Id add(Vec p);

    Vec operator[](Id point) const { return m_points[point]; }
    Id count() const { return static_cast<Id>(m_points.size()); }

private:
    std::size_t home(std::int64_t x, std::int64_t y) const;
    Id find(std::int64_t x, std::int64_t y, Vec p) const;
    void grow();

    double m_tolerance = 0.0;
    double m_cells = 0.0; ///< to a unit
    std::vector<Vec> m_points;
    std::vector<Id> m_slots; ///< open addressing by cell
};

/// A line of the picture: straight, or an arc that runs in one direction of x and of y.
struct Line {
    Id a, b; ///< a < b, except where an arc has the same ends
    double za, zb;
    double bulge;
    bool reversed; ///< whether its edge runs from b to a
    Id source;     ///< the edge or silhouette that it is a part of
    Id body;
};

struct Source {
    int element;
    VekLineKind kind;
};

/// A side of a facet; its ends in ascending order, so that both facets beside it find points on the same side of it.
struct Side {
    Id a, b;
    double bulge;
};

/// A plane piece of a face that is not seen edge-on. Nothing in it is higher than `top`.
struct Facet {
    Vec3 normal; ///< of length 1, towards the viewer
    double distance;
    double bottom, top;
    std::uint32_t begin, end; ///< its sides
    Id slices = kNone;        ///< an index of them, for a facet with many
    Id body;
};

/// All that a view shows, before it is known what is seen.
struct Picture {
    double tolerance = 0.0;
    Points points;
    std::vector<Source> sources;
    std::vector<Line> lines;
    std::vector<Facet> facets;
    std::vector<Side> sides;

    void clear(double newTolerance);
};

/// Adds what a body shows in a view.
void addToPicture(Picture& picture, const Body& body, Id number, const CVekMatrix3d& toView);

/// A part of a line between two points of the picture, that of the foremost of all that coincide there.
struct Piece {
    Id line;
    Id a, b;
    double bulge;
    double place; ///< along its line, for the order
    bool visible;
};

/// Cuts the lines where what is seen may change, and tells for every part whether it is seen; in the order of lines.
std::vector<Piece> piecesOf(Picture& picture);

/// Finds whether something hides a point.
class Cover
{
public:
    explicit Cover(Picture& picture); // reorders the facets

    /// Whether a facet lies in front of a point.
    bool hides(Vec p, double z);

    /// Calls `each(t)` for the places at which a line from (a, za) to (b, zb) pierces facets of other bodies.
    template <class Each>
    void forEachPierced(Vec a, double za, Vec b, double zb, Id body, Each&& each) const;

private:
    struct Slices {
        double x, width;
        std::uint32_t first, count;
    };
    bool holds(const Facet& facet, Vec p) const;
    void slice(Facet& facet, const Box& box);
    static std::uint32_t sliceOf(const Slices& slices, double x);
    double height(const Facet& facet, Vec p, double z) const
    {
        return facet.normal.x * p.x + facet.normal.y * p.y + facet.normal.z * z - facet.distance;
    }

    const Picture& m_picture;
    plane::BoxTree m_tree;
    std::vector<plane::Range> m_heights; ///< of the boxes of the tree
    std::vector<Slices> m_slices;
    std::vector<std::uint32_t> m_begins, m_members;
    Id m_last = kNone;
};

template <class Each>
void Cover::forEachPierced(Vec a, double za, Vec b, double zb, Id body, Each&& each) const
{
    const plane::SegmentReach reach(a, b, m_picture.tolerance);
    const double low = std::min(za, zb), high = std::max(za, zb);
    const auto meets = [&](const Box& box, std::uint32_t number) {
        return m_heights[number].low <= high && m_heights[number].high >= low && reach.meets(box);
    };
    m_tree.visit(meets, [&](std::uint32_t i, const Box&) {
        const Facet& facet = m_picture.facets[i];
        if (facet.body == body)
            return;
        const double atA = height(facet, a, za), atB = height(facet, b, zb);
        const double tolerance = m_picture.tolerance;
        if (!(std::min(atA, atB) < -tolerance && std::max(atA, atB) > tolerance))
            return;
        const double t = atA / (atA - atB);
        if (holds(facet, a + (b - a) * t))
            each(t);
    });
}

/// Joins pieces to polylines.
void joinPieces(const Picture& picture, const std::vector<Piece>& pieces, CVekArrayTempl<CVekVertexArrayEx>& visible,
                CVekArrayTempl<CVekVertexArrayEx>& hidden);

} // namespace VEK::solids
