/// @file
/// Polyline segments, polylines and point lists.
///
/// The tolerances for testing whether a point lies on something are in `<vek/values/tolerance.h>`.
#pragma once

#include <vek/values/array.h>
#include <vek/values/matrix.h>

/// One segment of a polyline.
///
/// The bulge is the tangent of a quarter of the included angle of an arc, positive where the arc runs
/// counter-clockwise from start to end about the normal of the polyline, which is z for a lone vertex; 0 is a straight
/// segment. A segment whose start equals its end is degenerate: it has no length, whatever its bulge.
class VEK_API CVekVertex : public CVekObj
{
public:
    using MovesAsBytes = CVekVertex; ///< see `kVekMovesAsBytes`
    using OwnsNothing = CVekVertex;  ///< see `kVekOwnsNothing`

    CVekPoint3d start;
    CVekPoint3d end;
    double bulge = 0.0;
    unsigned char tag[8] = {}; ///< for the owner's use; copied along and never interpreted

    CVekVertex() = default;
    CVekVertex(const CVekPoint3d& startPoint, const CVekPoint3d& endPoint, double bulgeFactor = 0.0)
        : start(startPoint), end(endPoint), bulge(bulgeFactor)
    {
    }

    CVekVertex& set(const CVekPoint3d& startPoint, const CVekPoint3d& endPoint, double bulgeFactor)
    {
        start = startPoint;
        end = endPoint;
        bulge = bulgeFactor;
        return *this;
    }

    /// Compares start, end, bulge and tag exactly.
    bool operator==(const CVekVertex& other) const;

    /// Transforms the segment, which must lie in a plane parallel to xy; mirroring negates the bulge.
    CVekVertex& transformBy(const CVekMatrix3d& m);

    /// The point halfway along the segment or arc. Here and below an arc lies in a plane parallel to xy; if its ends
    /// differ in z, z runs linearly from start to end.
    CVekPoint3d mid() const;

    /// The length along the segment or arc, whatever plane the arc lies in.
    double bulgLen() const;

    /// Whether the point lies on the segment or arc, its ends included, within the point tolerance.
    bool isPoint(const CVekPoint3d& point) const;

    /// The nearest point of the segment or arc: the foot of the perpendicular, or the nearer end.
    CVekPoint3d lotp(const CVekPoint3d& point) const;
};

/// A list of points.
class VEK_API CVekPoint3dArray : public CVekArrayTempl<CVekPoint3d>
{
public:
    using CVekArrayTempl<CVekPoint3d>::CVekArrayTempl;
    CVekPoint3dArray() = default;

    /// Sorts by the position along a direction; points with equal positions keep their order.
    void sort(const CVekVector3d& direction);

    /// Index of the first point that is exactly equal, or -1.
    int indexOf(const CVekPoint3d& point) const;
};

/// A polyline: segments, and the normal of the plane in which its arcs lie, initially z. Consecutive segments need not
/// touch; a list of separate dashes can be one polyline. Assignment through a reference to the base class, which has no
/// normal, copies the segments only.
///
/// A `CVekArrayTempl<CVekVertexArray>` is a region: element 0 the outer boundary, the others holes.
class VEK_API CVekVertexArray : public CVekArrayTempl<CVekVertex>
{
public:
    using MovesAsBytes = CVekVertexArray; ///< see `kVekMovesAsBytes`

    CVekVertexArray() = default;
    CVekVertexArray(const CVekVertex& vertex) : CVekVertexArray({vertex}) {}
    CVekVertexArray(std::initializer_list<CVekVertex> vertices) : CVekArrayTempl<CVekVertex>(vertices) {}

    CVekVertexArray(const CVekVertexArray&) = default;
    CVekVertexArray(CVekVertexArray&&) noexcept = default;
    ~CVekVertexArray() override = default;
    CVekVertexArray& operator=(const CVekVertexArray& other)
    {
        CVekArrayTempl<CVekVertex>::operator=(other);
        if (len() == other.len()) // otherwise memory ran out
            m_normal = other.m_normal;
        return *this;
    }
    CVekVertexArray& operator=(CVekVertexArray&&) noexcept = default;

    /// An open polyline of straight segments through the points.
    CVekVertexArray(std::initializer_list<CVekPoint3d> points)
    {
        throughPoints(points.begin(), static_cast<int>(points.size()), false);
    }

    /// Appends the segments of another polyline. An empty polyline takes the other's normal, and so does a straight one
    /// if the other has arcs. Arcs about the opposite normal are appended with their bulge negated, arcs in a plane
    /// inclined to this one's as fine chords, like those of `transformBy`.
    CVekVertexArray& operator+=(const CVekVertexArray& other);

    /// Compares segments and normal exactly.
    bool operator==(const CVekVertexArray& other) const;

    /// Transforms all segments and the normal (by the linear part, normalised). Arcs stay arcs if the matrix scales
    /// uniformly in the polyline's plane; mirroring negates the bulges. With any other matrix the arcs are first
    /// replaced by fine chords, 256 to a full circle, which stay within 1e-4 of the radius.
    CVekVertexArray& transformBy(const CVekMatrix3d& m);
    CVekVertexArray getTransformedCopy(const CVekMatrix3d& m) const;

    CVekVertexArray& move(const CVekVector3d& by);

    /// Replaces the polyline by straight segments through the points.
    /// @param closed adds a segment from the last point to the first, unless they coincide
    CVekVertexArray& fromPoints(const CVekPoint3dArray& points, bool closed);

    /// The points along the polyline, none when memory runs out: the first start, and each segment's end; if a segment
    /// does not begin at the end of the one before it, its start as well.
    /// @param arcs whether arcs are split into chords; false gives the segment ends only
    /// @param tolerance chord tolerance, the greatest distance between chord and arc, in the polyline's unit. An arc
    /// has at least one chord per quarter turn and at most 4096, which is also the number for a tolerance of 0, below 0
    /// or NaN
    CVekPoint3dArray pts(bool arcs, double tolerance) const;

    /// The bounding box, arcs included.
    /// @return false for an empty polyline, with the corners unchanged
    bool extents(CVekPoint3d& min, CVekPoint3d& max) const;

    /// Whether the last end meets the first start, within the point tolerance; false when empty.
    bool isClosed() const;

    /// Whether every end meets the next start, within the point tolerance; true when empty.
    bool isContinuous() const;

    const CVekVector3d& normal() const { return m_normal; }

    /// Sets the normal, normalised; a zero vector changes nothing.
    void setNormal(const CVekVector3d& normal);

    /// Reverses the direction: order, ends and bulges.
    CVekVertexArray& revert();

    /// Exchanges segments and normals. A plain list of segments has no normal: arcs taken from one are about z.
    void swap(CVekVertexArray& other) noexcept;
    using CVekArrayTempl<CVekVertex>::swap;

    /// Splits the segment at the index in two at the point, so that the polyline grows by one. If the point is an end
    /// of the segment or is not on it, nothing changes.
    /// @return whether it was split
    bool breakVertex(int index, const CVekPoint3d& point);

    /// Collects the points where the two polylines meet. Points that coincide within the point tolerance are given
    /// once; a common stretch of two segments gives its ends. Both polylines are seen along the normal of this one or,
    /// if only the other one has arcs, of that one; the points lie at the height of this polyline.
    /// @param result receives the points in order along this polyline; it is emptied first
    /// @param mode 0 gives the first point only, any other value all of them; callers pass 3 for that
    /// @return whether there is any point
    bool intersectWith(CVekPoint3dArray& result, const CVekVertexArray& other, unsigned mode) const;

    /// Whether the two polylines meet.
    bool intersectWith(const CVekVertexArray& other, unsigned mode) const;

protected:
    void revertElements() override;
    bool swapRest(CVekArrayTempl<CVekVertex>& other) noexcept override;

private:
    CVekVertexArray& throughPoints(const CVekPoint3d* points, int count, bool closed);

    CVekVector3d m_normal{0.0, 0.0, 1.0};
};

/// What a line of a projection shows.
enum class VekLineKind : unsigned char {
    edge,       ///< where two faces meet
    silhouette, ///< where a curved face turns away from the viewer
    fold,       ///< where a plane face of a folded sheet goes over into the bend
    hole,       ///< the rim of a hole
};

/// A polyline of a projection, with what the projection knows about it besides its geometry.
class VEK_API CVekVertexArrayEx : public CVekVertexArray
{
public:
    using CVekVertexArray::CVekVertexArray;
    CVekVertexArrayEx() = default;

    VekLineKind kind = VekLineKind::edge;
    int element = -1; ///< the number of the element that the line came from, as the caller of the projection gave it
};
