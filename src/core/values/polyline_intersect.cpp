#include "core/values/box_tree.h"
#include "core/values/intersect.h"
#include "core/values/stepping.h"
#include "core/values/whole.h"

#include <vek/values/polyline.h>

#include <vector>

namespace
{

using VEK::plane::Arc;
using VEK::plane::Box;
using VEK::plane::BoxTree;
using VEK::plane::Meetings;
using VEK::plane::Vec;

constexpr int kFew = 4; ///< up to so many segments, testing all of the other polyline is faster than a tree

/// Sine of the angle up to which two planes are parallel.
constexpr double kParallel = 1e-9;

/// The plane of a polyline, through the origin.
class Plane
{
public:
    explicit Plane(const CVekVector3d& normal)
    {
        const CVekMatrix3d frame = CVekMatrix3d().setToPlaneToWorld(normal);
        m_x = frame.axis(0);
        m_y = frame.axis(1);
        m_normal = frame.axis(2);
    }

    const CVekVector3d& normal() const { return m_normal; }
    Vec operator()(const CVekPoint3d& p) const { return {p.asVector().dot(m_x), p.asVector().dot(m_y)}; }
    Arc arc(const CVekVertex& v, double turn) const { return {(*this)(v.start), (*this)(v.end), v.bulge * turn}; }

    /// Back to space, at the height of a segment at a parameter.
    CVekPoint3d lift(Vec p, const CVekVertex& segment, double t) const
    {
        if (t == 0.0 || t == 1.0)
            return t == 0.0 ? segment.start : segment.end;
        const double low = segment.start.asVector().dot(m_normal);
        const double height = low + t * (segment.end.asVector().dot(m_normal) - low);
        return (m_x * p.x + m_y * p.y + m_normal * height).asPoint();
    }

private:
    CVekVector3d m_x;
    CVekVector3d m_y;
    CVekVector3d m_normal;
};

/// A box around a segment, faster to compute than the smallest one.
Box roughBox(Vec start, Vec end, double bulge)
{
    Box box{start, start};
    box.add(end);
    if (bulge != 0.0) {
        const double b = std::fabs(bulge);
        box.grow(0.5 * (end - start).abs() * (b > 1.0 ? b + 1.0 / b : b));
    }
    return box;
}

/// The meetings of two polylines as seen along the normal of the first, or of the other if only that one has arcs.
class Encounter
{
public:
    Encounter(const CVekVertexArray& own, const CVekVertexArray& other)
        : m_own(own), m_other(&other), m_plane(own.normal())
    {
        const CVekVector3d aslant = own.normal() * other.normal();
        const bool parallel = aslant.dot(aslant) <= kParallel * kParallel;
        if (!parallel && VEK::plane::hasArcs(other)) {
            if (VEK::plane::hasArcs(own)) { // tilted arcs are not arcs in this view
                m_chords = VEK::plane::inFineChords(other);
                m_other = &m_chords;
            } else {
                m_plane = Plane(other.normal());
            }
        }
        m_turn = m_plane.normal().dot(other.normal()) < 0.0 ? -1.0 : 1.0;
    }

    /// Passes the meetings to `visit(segment index, meetings)` in the order of the own segments until that returns
    /// false.
    /// @param first stops after the first segment that meets anything
    template <class Visit>
    void visit(bool first, Visit&& visitMeetings) const
    {
        if (m_own.len() <= kFew) {
            visitEach([&](const Box& box, auto& visitNumber) { return scan(box, visitNumber); }, first, visitMeetings);
        } else {
            std::vector<int> numbers;
            const BoxTree tree = treeOfOther(numbers);
            const auto visitNear = [&](const Box& box, auto& visitNumber) {
                bool goesOn = true;
                tree.visit([&](const Box& other) { return goesOn && other.meets(box); },
                           [&](std::uint32_t place, const Box&) { goesOn = visitNumber(numbers[place]); });
                return goesOn;
            };
            visitEach(visitNear, first, visitMeetings);
        }
    }

    CVekPoint3d lift(int index, const VEK::plane::Meeting& meeting) const
    {
        return m_plane.lift(meeting.point, m_own[index], meeting.a);
    }

private:
    /// @param numbers receives the number of the segment at each place of the tree
    BoxTree treeOfOther(std::vector<int>& numbers) const
    {
        std::vector<Box> boxes;
        std::vector<int> finite;
        boxes.reserve(m_other->len());
        finite.reserve(m_other->len());
        for (int i = 0; i < m_other->len(); ++i) {
            const Box box = otherArc(i).box();
            if (!std::isfinite(box.min.x + box.min.y + box.max.x + box.max.y)) // meets nothing, and cannot be sorted
                continue;
            boxes.push_back(box);
            finite.push_back(i);
        }
        BoxTree tree;
        const std::vector<std::uint32_t> order = tree.build(std::move(boxes));
        numbers.reserve(order.size());
        for (const std::uint32_t i : order)
            numbers.push_back(finite[i]);
        return tree;
    }

    Arc otherArc(int number) const { return m_plane.arc(m_other->begin()[number], m_turn); }

    template <class Near, class Visit>
    void visitEach(Near&& near, bool first, Visit& visitMeetings) const
    {
        int index = 0;
        for (const CVekVertex& v : m_own) {
            const Arc arc = m_plane.arc(v, 1.0);
            Box box = arc.box();
            const double tolerance = VEK::pointTol(
                std::max({std::fabs(box.min.x), std::fabs(box.min.y), std::fabs(box.max.x), std::fabs(box.max.y)}));
            box.grow(tolerance);
            bool met = false;
            const auto visitNumber = [&](int number) {
                const Meetings found = meet(arc, otherArc(number), tolerance);
                met = met || found.count > 0;
                return found.count == 0 || visitMeetings(index, found);
            };
            if (!near(box, visitNumber) || (first && met))
                return;
            ++index;
        }
    }

    template <class Visit>
    bool scan(const Box& box, Visit& visitNumber) const
    {
        int number = 0;
        for (const CVekVertex& v : *m_other) {
            if (roughBox(m_plane(v.start), m_plane(v.end), v.bulge).meets(box) && !visitNumber(number))
                return false;
            ++number;
        }
        return true;
    }

    const CVekVertexArray& m_own;
    const CVekVertexArray* m_other;
    CVekVertexArray m_chords;
    Plane m_plane;
    double m_turn = 1.0; ///< -1 if the other polyline's normal points the other way
};

/// A meeting with its position along the first polyline.
struct Hit {
    int index = 0;
    double t = 0.0;
    CVekPoint3d point;

    bool operator<(const Hit& b) const { return index != b.index ? index < b.index : t < b.t; }
};

/// Appends the points of sorted hits, leaving out those that coincide with an earlier one.
void appendDistinct(CVekPoint3dArray& result, const std::vector<Hit>& hits)
{
    // Neighbours are searched along a slanted direction, so that rows and columns of points do not share a position.
    const CVekVector3d slanted{1.0, 0.7548776662466927, 0.5698402909980532};
    const double reach = std::sqrt(slanted.dot(slanted));
    struct Station {
        double at;
        std::size_t hit;
    };
    std::vector<Station> stations;
    stations.reserve(hits.size());
    for (std::size_t i = 0; i < hits.size(); ++i)
        stations.push_back({hits[i].point.asVector().dot(slanted), i});
    std::erase_if(stations, [](const Station& s) { return !std::isfinite(s.at); });
    std::sort(stations.begin(), stations.end(), [](const Station& a, const Station& b) { return a.at < b.at; });

    std::vector<char> repeats(hits.size(), 0);
    for (std::size_t i = 0; i < stations.size(); ++i) {
        const CVekPoint3d& p = hits[stations[i].hit].point;
        const double size = std::max({std::fabs(p[0]), std::fabs(p[1]), std::fabs(p[2])});
        const double limit = stations[i].at + 2.0 * reach * VEK::pointTol(size);
        for (std::size_t j = i + 1; j < stations.size() && stations[j].at <= limit; ++j) {
            if (VEK::plane::meets(p, hits[stations[j].hit].point))
                repeats[std::max(stations[i].hit, stations[j].hit)] = 1;
        }
    }
    for (std::size_t i = 0; i < hits.size(); ++i) {
        if (!repeats[i])
            result.append(hits[i].point);
    }
}

} // namespace

bool CVekVertexArray::intersectWith(CVekPoint3dArray& result, const CVekVertexArray& other, unsigned mode) const
{
    result = VEK::whole(CVekPoint3dArray(), [&] {
        std::vector<Hit> hits;
        const Encounter encounter(*this, other);
        encounter.visit(mode == 0, [&](int index, const Meetings& found) {
            for (int i = 0; i < found.count; ++i)
                hits.push_back({index, found.points[i].a, encounter.lift(index, found.points[i])});
            return true;
        });
        std::sort(hits.begin(), hits.end());
        if (mode == 0 && hits.size() > 1)
            hits.resize(1);
        CVekPoint3dArray points;
        appendDistinct(points, hits);
        return points;
    });
    return result.len() > 0;
}

bool CVekVertexArray::intersectWith(const CVekVertexArray& other, unsigned) const
{
    return VEK::whole(false, [&] {
        bool any = false;
        Encounter(*this, other).visit(true, [&](int, const Meetings&) {
            any = true;
            return false;
        });
        return any;
    });
}
