#include "core/geometry/area.h"
#include "core/geometry/part.h"
#include "core/values/whole.h"

#include <vek/geometry/polyline.h>
#include <vek/geometry/region.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <numbers>
#include <numeric>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace VEK
{
namespace
{

std::uint64_t mixed(std::uint64_t bits)
{
    bits = (bits ^ bits >> 31) * 0x9e3779b97f4a7c15u;
    return bits ^ bits >> 29;
}

/// Numbers points; points within tolerance of one another get the same number.
class PointNumbers
{
public:
    explicit PointNumbers(double tolerance) : m_tolerance(tolerance) {}

    int operator()(const CVekPoint3d& p)
    {
        // A point within tolerance is in the same cell, or in the next one if the point is that close to its side.
        const double x = p[0] / (kCell * m_tolerance), y = p[1] / (kCell * m_tolerance);
        const double xs[] = {std::floor(x - 1.0 / kCell), std::floor(x + 1.0 / kCell)};
        const double ys[] = {std::floor(y - 1.0 / kCell), std::floor(y + 1.0 / kCell)};
        for (int i = 0; i < (xs[0] == xs[1] ? 1 : 2); ++i) {
            for (int k = 0; k < (ys[0] == ys[1] ? 1 : 2); ++k) {
                const auto found = m_first.find(key(xs[i], ys[k]));
                for (int n = found == m_first.end() ? -1 : found->second; n >= 0; n = m_points[at(n)].next) {
                    const CVekVector3d d = m_points[at(n)].point - p;
                    if (d.dot(d) <= m_tolerance * m_tolerance)
                        return n;
                }
            }
        }
        const int number = static_cast<int>(m_points.size());
        int& first = m_first.try_emplace(key(std::floor(x), std::floor(y)), -1).first->second;
        m_points.push_back({p, first});
        return first = number;
    }

    int count() const { return static_cast<int>(m_points.size()); }

private:
    static constexpr double kCell = 32.0; ///< width of a cell, in tolerances

    struct Numbered {
        CVekPoint3d point;
        int next; ///< the previous one in the same cell
    };

    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    static std::uint64_t key(double x, double y)
    {
        // Cells that share a key only cost another comparison.
        const auto bits = [](double v) {
            return std::fabs(v) < 1e18 ? static_cast<std::uint64_t>(static_cast<std::int64_t>(v)) : std::uint64_t{0};
        };
        return mixed(mixed(bits(x)) + bits(y));
    }

    double m_tolerance;
    std::vector<Numbered> m_points;
    std::unordered_map<std::uint64_t, int> m_first;
};

/// Identifies a segment whatever its direction: the numbers of its ends and of its middle.
using Identity = std::array<int, 3>;

Identity identity(int start, int end, int middle)
{
    return {std::min(start, end), std::max(start, end), middle};
}

struct IdentityHash {
    std::size_t operator()(const Identity& id) const
    {
        std::uint64_t bits = 0;
        for (const int number : id)
            bits = mixed(bits + static_cast<std::uint64_t>(number));
        return static_cast<std::size_t>(bits);
    }
};

/// An order of points that depends only on their position.
bool before(const CVekPoint3d& a, const CVekPoint3d& b)
{
    for (int axis = 0; axis < 3; ++axis) {
        if (a[axis] != b[axis])
            return a[axis] < b[axis];
    }
    return false;
}

/// A loose segment, an edge of the graph whose nodes are the numbered points.
struct Edge {
    CVekVertex vertex;
    CVekVector3d normal;
    int from, to;
    int order; ///< of the run it comes from

    /// The segment in its own or in the opposite direction.
    CVekVertex directed(bool back) const
    {
        CVekVertex own = vertex;
        if (back) {
            std::swap(own.start, own.end);
            own.bulge = -own.bulge;
        }
        return own;
    }
};

/// The bounded faces of the planar graph of loose segments.
///
/// Each edge is walked in both directions, with the face on its left. At a node a face continues along the next edge by
/// angle. Neither the order nor the direction of the segments matters.
class Faces
{
public:
    Faces(const std::vector<Edge>& edges, int nodes)
        : m_edges(edges), m_begins(size(nodes) + 1), m_isUsed(2 * edges.size()), m_onPath(size(nodes), -1)
    {
        for (const Edge& edge : edges) {
            ++m_begins[size(edge.from)];
            ++m_begins[size(edge.to)];
        }
        std::partial_sum(m_begins.begin(), m_begins.end(), m_begins.begin());
        m_ways.resize(2 * edges.size());
        for (Way way = m_ways.size(); way-- > 0;)
            m_ways[--m_begins[size(start(way))]] = way;
        m_clockwise.resize(m_ways.size());
        for (std::size_t node = 0; node + 1 < m_begins.size(); ++node)
            sortByAngle(m_begins[node], m_begins[node + 1]);
    }

    /// Calls `found(contour, order)` for each, its contour counter-clockwise from its leftmost point.
    template <class Found>
    void find(Found&& found)
    {
        for (Way first = 0; first < m_isUsed.size(); ++first) {
            for (Way way = first; !m_isUsed[way]; way = next(way)) {
                m_isUsed[way] = 1;
                m_onPath[size(start(way))] = static_cast<int>(m_path.size());
                m_path.push_back(way);
                const int begin = m_onPath[size(end(way))];
                if (begin >= 0) // a face that touches itself in a node is split there; a dead end bounds nothing
                    takeLoop(size(begin), found);
            }
            m_path.clear();
        }
    }

private:
    /// An edge in one direction: twice its number, plus one if it is against the direction of its segment.
    using Way = std::size_t;

    static std::size_t size(int number) { return static_cast<std::size_t>(number); }
    const Edge& edge(Way way) const { return m_edges[way / 2]; }
    int start(Way way) const { return way % 2 ? edge(way).to : edge(way).from; }
    int end(Way way) const { return start(way ^ 1); }

    /// The position of a way at a distance from its start, relative to that. All ways out of a node are compared at the
    /// same distance, since those with a common tangent separate only further on.
    static CVekVector3d leaving(const plane::SpaceArc& arc, double distance)
    {
        if (!arc.bend.isArc())
            return arc.end - arc.start;
        const double half = std::asin(std::min(1.0, 0.5 * distance / arc.radius()));
        return arc.at(std::min(1.0, 2.0 * half / std::fabs(arc.bend.sweep))) - arc.start;
    }

    /// How far a way gets from its start before it may turn back.
    static double reach(const plane::SpaceArc& arc)
    {
        return std::fabs(arc.bend.sweep) > std::numbers::pi ? 2.0 * arc.radius() : arc.length;
    }

    void sortByAngle(std::size_t begin, std::size_t end)
    {
        std::vector<Out>& outs = m_outs;
        outs.clear();
        double distance = HUGE_VAL;
        for (std::size_t i = begin; i < end; ++i) {
            const Edge& own = edge(m_ways[i]);
            outs.push_back({plane::SpaceArc(own.directed(m_ways[i] % 2), own.normal), m_ways[i], 0.0});
            distance = std::min(distance, 0.5 * reach(outs.back().arc));
        }
        for (Out& out : outs) {
            const CVekVector3d to = leaving(out.arc, distance);
            out.angle = std::atan2(to[1], to[0]);
        }
        std::sort(outs.begin(), outs.end(), [](const Out& a, const Out& b) {
            return a.angle != b.angle ? a.angle < b.angle : before(a.arc.at(0.5), b.arc.at(0.5));
        });
        for (std::size_t i = 0; i < outs.size(); ++i)
            m_clockwise[outs[i].way] = outs[i > 0 ? i - 1 : outs.size() - 1].way;
    }

    Way next(Way way) const { return m_clockwise[way ^ 1]; }

    template <class Found>
    void takeLoop(std::size_t begin, Found&& found)
    {
        CVekVertexArray contour;
        int order = edge(m_path[begin]).order;
        const auto first =
            std::min_element(m_path.begin() + static_cast<std::ptrdiff_t>(begin), m_path.end(), [&](Way a, Way b) {
                return before(edge(a).directed(a % 2).start, edge(b).directed(b % 2).start);
            });
        std::rotate(m_path.begin() + static_cast<std::ptrdiff_t>(begin), first, m_path.end());
        const auto bent = std::find_if(m_path.begin() + static_cast<std::ptrdiff_t>(begin), m_path.end(),
                                       [&](Way way) { return edge(way).vertex.bulge != 0.0; });
        const CVekVector3d normal = edge(bent == m_path.end() ? m_path[begin] : *bent).normal;
        contour.setNormal(normal);
        contour.reserve(static_cast<int>(m_path.size() - begin));
        for (std::size_t i = begin; i < m_path.size(); ++i) {
            const Edge& own = edge(m_path[i]);
            CVekVertex vertex = own.directed(m_path[i] % 2);
            if (own.normal.dot(normal) < 0.0)
                vertex.bulge = -vertex.bulge;
            if (contour.len() > 0)
                vertex.start = contour[-1].end;
            contour.append(vertex);
            order = std::min(order, own.order);
            m_onPath[size(start(m_path[i]))] = -1;
        }
        contour[-1].end = contour[0].start;
        m_path.resize(begin);
        if (detail::signedArea(contour, CVekVector3d::kZAxis) > 0.0) // else the unbounded face around it
            found(std::move(contour), order);
    }

    struct Out {
        plane::SpaceArc arc;
        Way way;
        double angle;
    };

    const std::vector<Edge>& m_edges;
    std::vector<std::size_t> m_begins; ///< where each node's ways begin in the list
    std::vector<Way> m_ways;           ///< those leaving the first node, the second, ...
    std::vector<Way> m_clockwise;      ///< for each way, the next one clockwise at the same node
    std::vector<char> m_isUsed;        ///< of each way
    std::vector<int> m_onPath;         ///< for each node, its place on the path
    std::vector<Way> m_path;
    std::vector<Out> m_outs;
};

/// A run without its segments that have no length or are not finite; the rest meet exactly.
CVekVertexArray cleaned(const CVekVertexArray& run, double tolerance)
{
    CVekVertexArray clean;
    clean.setNormal(run.normal());
    for (const CVekVertex& vertex : run) {
        CVekVertex own = vertex;
        if (clean.len() > 0)
            own.start = clean[-1].end;
        const double length = detail::Segment(own, run.normal()).length();
        if (length > tolerance && std::isfinite(length))
            clean.append(own);
    }
    return clean;
}

CVekArrayTempl<CVekVertexArray> joined(const CVekArrayTempl<CVekVertexArray>& vll)
{
    double size = 0.0;
    for (const CVekVertexArray& vl : vll) {
        for (const CVekVertex& vertex : vl) {
            for (int axis = 0; axis < 3; ++axis) {
                for (const double at : {vertex.start[axis], vertex.end[axis]})
                    size = std::max(size, std::isfinite(at) ? std::fabs(at) : 0.0);
            }
        }
    }
    const double tolerance = pointTol(size);
    PointNumbers numbers(tolerance);

    struct Ordered {
        int order;
        CVekVertexArray contour;
    };
    std::vector<Ordered> contours;
    std::vector<Edge> edges;
    std::unordered_set<Identity, IdentityHash> known;
    int order = 0;
    for (const CVekVertexArray& vl : vll) {
        for (const CVekVertexArray& whole : vl_to_vll(vl)) {
            CVekVertexArray run = cleaned(whole, tolerance);
            ++order;
            if (run.len() > 0 && whole.isClosed()) {
                run[-1].end = run[0].start;
                contours.push_back({order, std::move(run)});
                continue;
            }
            for (const CVekVertex& vertex : run) {
                const int from = numbers(vertex.start), to = numbers(vertex.end);
                const int middle = numbers(detail::Segment(vertex, run.normal()).at(0.5));
                if (known.insert(identity(from, to, middle)).second)
                    edges.push_back({vertex, run.normal(), from, to, order});
            }
        }
    }
    Faces(edges, numbers.count()).find([&](CVekVertexArray&& contour, int first) {
        contours.push_back({first, std::move(contour)});
    });
    std::stable_sort(contours.begin(), contours.end(), [](const Ordered& a, const Ordered& b) {
        if (a.order != b.order)
            return a.order < b.order;
        // Faces with the same first segment.
        const CVekVertex &first = a.contour[0], &second = b.contour[0];
        return first.start != second.start ? before(first.start, second.start) : before(first.end, second.end);
    });

    CVekArrayTempl<CVekVertexArray> prepared;
    std::set<std::vector<Identity>> there;
    for (Ordered& ordered : contours) {
        double length = 0.0;
        std::vector<Identity> shape;
        shape.reserve(static_cast<std::size_t>(ordered.contour.len()));
        int from = numbers(ordered.contour[0].start);
        for (const CVekVertex& vertex : ordered.contour) {
            const detail::Segment segment(vertex, ordered.contour.normal());
            const int to = numbers(vertex.end);
            length += segment.length();
            shape.push_back(identity(from, to, numbers(segment.at(0.5))));
            from = to;
        }
        std::sort(shape.begin(), shape.end());
        const double area = detail::signedArea(ordered.contour, CVekVector3d::kZAxis);
        if (std::fabs(area) > tolerance * length && there.insert(std::move(shape)).second)
            prepared.append(std::move(ordered.contour));
    }
    return prepared;
}

} // namespace

CVekArrayTempl<CVekVertexArray> vll_regions_prepare(const CVekArrayTempl<CVekVertexArray>& vll)
{
    return whole(CVekArrayTempl<CVekVertexArray>(), [&] { return joined(vll); });
}

} // namespace VEK
