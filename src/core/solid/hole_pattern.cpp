/// Many round holes along one direction.
///
/// Drilling one hole looks at the whole body. In a pattern most holes touch nothing: seen along their axis, no edge and
/// no other hole lies near them. Such a hole goes through the same faces all round, so that its rims and its wall
/// follow from a single ray along its axis. Only the others are drilled one by one.
#include "core/solid/body.h"

#include "core/values/box_tree.h"

#include <vek/values/tolerance.h>

#include <algorithm>
#include <array>

namespace VEK::solids
{
namespace
{

using plane::Box;
using plane::Vec;

/// Of holes that touch an edge or one another, each costs a look at the whole body.
constexpr std::size_t kMostTouching = 1000;

constexpr std::size_t kMostFree = 10000; // a projection takes 100 KB for each

/// A frame turned by an odd angle, so that a ray in it does not pass through what lies regularly.
constexpr double kCos = 0.8253356149096783, kSin = 0.5646424733950354;

Vec oddly(Vec v)
{
    return {v.x * kCos - v.y * kSin, v.x * kSin + v.y * kCos};
}

class Pattern
{
public:
    Pattern(Body& body, const std::vector<Hole>& holes) : m_body(body), m_frame(holes.front()), m_holes(holes) {}

    bool run()
    {
        dropDoubles();
        std::vector<Hole> touching, free;
        part(touching, free);
        bool changed = false;
        const auto drillEach = [&](std::vector<Hole>& holes) {
            holes.resize(std::min(holes.size(), kMostTouching));
            for (const Hole& hole : holes)
                changed = drilled(m_body, hole) || changed;
        };
        drillEach(touching);
        readFaces();
        std::vector<Hole> slanting;
        free.resize(std::min(free.size(), kMostFree));
        for (const Hole& hole : free) {
            const Vec centre = seen(hole.origin);
            readHits(centre);
            if (areApart(hole))
                changed = addWalls(hole, centre) || changed;
            else
                slanting.push_back(hole);
        }
        drillEach(slanting);
        return changed;
    }

private:
    /// A plane that the axes cross: z = at + gx x + gy y.
    struct Crossed {
        Id face;
        double at, gx, gy;
    };
    struct Hit {
        double z;
        const Crossed* plane; ///< null for the begin or the bottom
    };

    Vec seen(Vec3 v) const { return {v.dot(m_frame.x), v.dot(m_frame.y)}; }
    Vec3 world(double x, double y, double z) const { return m_frame.x * x + m_frame.y * y + m_frame.z * z; }

    Box boxOf(const Curve& curve, double from, double to) const
    {
        if (curve.straight) {
            Box box{seen(curve.at(from)), seen(curve.at(from))};
            box.add(seen(curve.at(to)));
            return box;
        }
        const Vec centre = seen(curve.centre), u = seen(curve.u), v = seen(curve.v);
        const Vec reach{std::hypot(u.x, v.x), std::hypot(u.y, v.y)};
        return {centre - reach, centre + reach};
    }

    /// The same hole twice is one.
    void dropDoubles()
    {
        const auto place = [&](const Hole& h) {
            return std::array<double, 3>{h.origin.dot(m_frame.x), h.origin.dot(m_frame.y),
                                         h.depth == 0.0 ? 0.0 : h.origin.dot(m_frame.z)};
        };
        std::sort(m_holes.begin(), m_holes.end(), [&](const Hole& a, const Hole& b) { return place(a) < place(b); });
        const auto same = [&](const Hole& a, const Hole& b) { return place(a) == place(b); };
        m_holes.erase(std::unique(m_holes.begin(), m_holes.end(), same), m_holes.end());
    }

    void part(std::vector<Hole>& touching, std::vector<Hole>& free) const
    {
        std::vector<Box> obstacles;
        std::vector<Box> ofFace(m_body.faces.size(), Box{{1e300, 1e300}, {-1e300, -1e300}});
        for (const Edge& edge : m_body.edges) {
            const Box box = boxOf(edge.curve, edge.from, edge.to);
            obstacles.push_back(box);
            for (const Id face : edge.faces) {
                if (face != kNone)
                    ofFace[face].add(box);
            }
        }
        for (std::size_t f = 0; f < m_body.faces.size(); ++f) { // what the axes do not cross in one point
            const Face& face = m_body.faces[f];
            if (face.band) {
                ofFace[f].add(boxOf(face.low, face.from, face.to));
                ofFace[f].add(boxOf(face.high, face.from, face.to));
            }
            const bool isCrossed = !face.band && std::fabs(face.p.cross(face.q).unit().dot(m_frame.z)) > kAngleTol;
            if (!isCrossed && ofFace[f].min.x <= ofFace[f].max.x)
                obstacles.push_back(ofFace[f]);
        }
        plane::BoxTree tree, others;
        tree.build(std::move(obstacles));
        std::vector<Box> discs;
        discs.reserve(m_holes.size());
        for (const Hole& hole : m_holes)
            discs.push_back(disc(hole));
        others.build(discs);
        for (std::size_t i = 0; i < m_holes.size(); ++i) {
            const auto meets = [&](const Box& box) { return box.meets(discs[i]); };
            const auto touches = [&](const Box& other) {
                return (other.centre() - discs[i].centre()).abs() <= other.extent().x + discs[i].extent().x;
            };
            int found = -1; // itself
            others.visit([&](const Box& box) { return found < 1 && meets(box); },
                         [&](std::uint32_t, const Box& box) { found += touches(box) ? 1 : 0; });
            tree.visit([&](const Box& box) { return found < 1 && meets(box); },
                       [&](std::uint32_t, const Box&) { ++found; });
            (found > 0 ? touching : free).push_back(m_holes[i]);
        }
    }

    Box disc(const Hole& hole) const
    {
        Box box{seen(hole.origin), seen(hole.origin)};
        box.grow(hole.radius + 4.0 * kPointTol);
        return box;
    }

    void readFaces()
    {
        std::vector<Id> first(m_body.faces.size(), kNone);
        std::vector<Box> boxes;
        std::vector<Id> edges;
        for (Id e = 0; e < m_body.edges.size(); ++e) {
            const Edge& edge = m_body.edges[e];
            bool bounds = false;
            for (const Id face : edge.faces) {
                if (face == kNone || m_body.faces[face].band)
                    continue;
                first[face] = e;
                bounds = true;
            }
            if (!bounds)
                continue;
            Box box{oddly(seen(edge.at(edge.from))), oddly(seen(edge.at(edge.from)))};
            forEachChord(edge, [&](Vec, Vec b) { box.add(b); });
            boxes.push_back(box);
            edges.push_back(e);
        }
        for (const std::uint32_t i : m_rays.build(std::move(boxes)))
            m_rayEdges.push_back(edges[i]);
        m_planeOf.assign(m_body.faces.size(), kNone);
        for (Id f = 0; f < m_body.faces.size(); ++f) {
            const Face& face = m_body.faces[f];
            if (face.band || first[f] == kNone)
                continue;
            const Vec3 world = face.p.cross(face.q).unit();
            const Vec3 n{world.dot(m_frame.x), world.dot(m_frame.y), world.dot(m_frame.z)};
            if (std::fabs(n.z) <= kAngleTol)
                continue;
            const Edge& edge = m_body.edges[first[f]];
            m_planeOf[f] = static_cast<Id>(m_planes.size());
            m_planes.push_back({f, world.dot(edge.at(edge.from)) / n.z, -n.x / n.z, -n.y / n.z});
        }
        m_inside.assign(m_planes.size(), 0);
    }

    template <class Each>
    void forEachChord(const Edge& edge, Each&& each) const
    {
        Vec last;
        bool isFirst = true;
        const auto pass = [&](double t) {
            const Vec next = oddly(seen(edge.at(t)));
            if (!isFirst)
                each(last, next);
            last = next;
            isFirst = false;
        };
        forEachEnd(edge.curve, edge.from, edge.to, pass);
    }

    /// Finds the planes through which an axis passes.
    void readHits(Vec centre)
    {
        const Vec at = oddly(centre);
        m_touched.clear();
        m_rays.visit([&](const Box& box) { return box.min.y <= at.y && at.y <= box.max.y && box.max.x >= at.x; },
                     [&](std::uint32_t place, const Box&) {
                         const Edge& edge = m_body.edges[m_rayEdges[place]];
                         bool odd = false;
                         forEachChord(edge, [&](Vec a, Vec b) {
                             if ((a.y > at.y) != (b.y > at.y) && a.x + (at.y - a.y) * (b.x - a.x) / (b.y - a.y) > at.x)
                                 odd = !odd;
                         });
                         if (!odd)
                             return;
                         for (const Id face : edge.faces) {
                             const Id index = face == kNone ? kNone : m_planeOf[face];
                             if (index == kNone)
                                 continue;
                             m_inside[index] ^= 1;
                             m_touched.push_back(index);
                         }
                     });
        m_hits.clear();
        for (const Id index : m_touched) {
            const Crossed& plane = m_planes[index];
            if (m_inside[index])
                m_hits.push_back({plane.at + plane.gx * centre.x + plane.gy * centre.y, &plane});
            m_inside[index] = 0;
        }
        std::sort(m_hits.begin(), m_hits.end(), [](const Hit& a, const Hit& b) { return a.z < b.z; });
    }

    /// Whether the planes keep their order all over the hole, and none of them reaches into its begin or its bottom.
    bool areApart(const Hole& hole) const
    {
        const double begin = hole.origin.dot(m_frame.z);
        for (std::size_t i = 0; i < m_hits.size(); ++i) {
            const Crossed& plane = *m_hits[i].plane;
            const double rise = hole.radius * std::hypot(plane.gx, plane.gy);
            if (i > 0) {
                const Crossed& below = *m_hits[i - 1].plane;
                const double apart = hole.radius * std::hypot(plane.gx - below.gx, plane.gy - below.gy);
                if (m_hits[i].z - m_hits[i - 1].z <= apart + 4.0 * kPointTol)
                    return false;
            }
            for (const double end : {begin, begin + hole.depth}) {
                if (hole.depth > 0.0 && rise > kPointTol && std::fabs(m_hits[i].z - end) <= rise + kPointTol)
                    return false;
            }
        }
        return m_hits.size() % 2 == 0;
    }

    bool addWalls(const Hole& hole, Vec centre)
    {
        const double begin = hole.origin.dot(m_frame.z), bottom = begin + hole.depth;
        Id turn = kNone;
        for (std::size_t i = 0; i + 1 < m_hits.size(); i += 2) {
            Hit low = m_hits[i], high = m_hits[i + 1];
            if (hole.depth > 0.0) {
                if (high.z <= begin + kPointTol || low.z >= bottom - kPointTol)
                    continue;
                if (low.z < begin - kPointTol)
                    low = {begin, nullptr};
                if (high.z > bottom + kPointTol)
                    high = {bottom, nullptr};
            }
            if (turn == kNone) {
                turn = static_cast<Id>(m_body.turns.size());
                m_body.turns.emplace_back();
            }
            const auto rim = [&](const Hit& hit) {
                const double r = hole.radius, gx = hit.plane ? hit.plane->gx : 0.0,
                             gy = hit.plane ? hit.plane->gy : 0.0;
                return Curve{world(centre.x, centre.y, hit.z), world(r, 0.0, r * gx), world(0.0, r, r * gy), false};
            };
            Face band;
            band.band = band.whole = true;
            band.low = rim(low);
            band.high = rim(high);
            band.to = kFullTurn;
            band.turn = turn;
            m_body.faces.push_back(band);
            for (const Hit& hit : {low, high}) {
                Edge edge;
                edge.curve = rim(hit);
                edge.to = kFullTurn;
                edge.turn = turn;
                edge.role = Role::hole;
                edge.faces[0] = hit.plane ? hit.plane->face : static_cast<Id>(m_body.faces.size());
                m_body.edges.push_back(edge);
                if (!hit.plane) { // the flat begin or bottom
                    Face& cap = m_body.faces.emplace_back();
                    cap.p = m_frame.x;
                    cap.q = m_frame.y;
                }
            }
        }
        if (turn != kNone && hole.depth > 0.0)
            m_body.blind.push_back(hole);
        return turn != kNone;
    }

    Body& m_body;
    const Hole m_frame;
    std::vector<Hole> m_holes;
    std::vector<Crossed> m_planes;
    std::vector<Id> m_planeOf; ///< place in m_planes of a face
    plane::BoxTree m_rays;     ///< edges in the odd frame
    std::vector<Id> m_rayEdges;
    std::vector<unsigned char> m_inside;
    std::vector<Id> m_touched;
    std::vector<Hit> m_hits;
};

} // namespace

bool drilled(Body& body, const std::vector<Hole>& holes)
{
    if (holes.empty())
        return false;
    Body copy = body;
    if (!Pattern(copy, holes).run())
        return false;
    body = std::move(copy);
    return true;
}

} // namespace VEK::solids
