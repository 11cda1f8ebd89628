#include "core/geometry/area.h"
#include "core/geometry/meets.h"
#include "core/geometry/part.h"

#include <vek/geometry/polyline.h>
#include <vek/geometry/region.h>

#include <array>
#include <cstdint>
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

/// Gives points numbers; points that count as one get the same.
class PointNumbers
{
public:
    explicit PointNumbers(double tolerance) : m_tolerance(tolerance) {}

    int operator()(const CVekPoint3d& p)
    {
        // What counts as one lies in the same cell, or beside it where the point is that near to the cell's side.
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
        int next; ///< the one before in the same cell
    };

    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    static std::uint64_t key(double x, double y)
    {
        // Cells that share a key only cost a comparison more.
        const auto bits = [](double v) {
            return std::fabs(v) < 1e18 ? static_cast<std::uint64_t>(static_cast<std::int64_t>(v)) : std::uint64_t{0};
        };
        return mixed(mixed(bits(x)) + bits(y));
    }

    double m_tolerance;
    std::vector<Numbered> m_points;
    std::unordered_map<std::uint64_t, int> m_first;
};

/// What tells a segment from another one whatever its direction: the numbers of its ends and of its middle.
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

/// A loose segment, an edge of the graph whose nodes are the numbered points.
struct Edge {
    CVekVertex vertex;
    CVekVector3d normal;
    int from, to;
    int order; ///< of the run that it comes from
    bool used = false;

    int other(int node) const { return node == from ? to : from; }
};

/// Takes closed contours out of loose segments.
class Loops
{
public:
    Loops(std::vector<Edge>& edges, int nodes) : m_edges(edges), m_begins(size(nodes) + 1), m_onPath(size(nodes), -1)
    {
        for (const Edge& edge : edges) {
            ++m_begins[size(edge.from)];
            ++m_begins[size(edge.to)];
        }
        m_degrees.assign(m_begins.begin(), m_begins.end() - 1);
        std::partial_sum(m_begins.begin(), m_begins.end(), m_begins.begin());
        m_atNodes.resize(2 * edges.size());
        for (std::size_t i = edges.size(); i-- > 0;) {
            m_atNodes[--m_begins[size(edges[i].from)]] = i;
            m_atNodes[--m_begins[size(edges[i].to)]] = i;
        }
        dropDeadEnds();
        m_next.assign(m_begins.begin(), m_begins.end() - 1);
    }

    /// Calls `found(contour, order)` for each.
    template <class Found>
    void find(Found&& found)
    {
        for (Edge& first : m_edges) {
            if (first.used)
                continue;
            int node = first.from;
            m_onPath[size(node)] = 0;
            std::size_t edge = static_cast<std::size_t>(&first - m_edges.data());
            while (edge != kNoEdge || !m_path.empty()) {
                if (edge == kNoEdge) { // a dead end after all
                    m_onPath[size(node)] = -1;
                    node = m_path.back().from;
                    m_path.pop_back();
                } else {
                    m_edges[edge].used = true;
                    m_path.push_back({edge, node});
                    node = m_edges[edge].other(node);
                    if (m_onPath[size(node)] >= 0)
                        takeLoop(m_onPath[size(node)], found);
                    else
                        m_onPath[size(node)] = static_cast<int>(m_path.size());
                }
                edge = nextEdge(node);
            }
            m_onPath[size(node)] = -1;
        }
    }

private:
    static constexpr std::size_t kNoEdge = static_cast<std::size_t>(-1);

    struct Step {
        std::size_t edge;
        int from;
    };

    static std::size_t size(int number) { return static_cast<std::size_t>(number); }

    /// What ends where nothing else begins is no part of a contour, and neither is what leads only there.
    void dropDeadEnds()
    {
        std::vector<int> ends;
        for (std::size_t node = 0; node < m_degrees.size(); ++node) {
            if (m_degrees[node] == 1)
                ends.push_back(static_cast<int>(node));
        }
        while (!ends.empty()) {
            const int node = ends.back();
            ends.pop_back();
            for (std::size_t i = m_begins[size(node)]; i < m_begins[size(node) + 1]; ++i) {
                Edge& edge = m_edges[m_atNodes[i]];
                if (edge.used)
                    continue;
                edge.used = true;
                const int other = edge.other(node);
                if (--m_degrees[size(other)] == 1)
                    ends.push_back(other);
            }
        }
    }

    std::size_t nextEdge(int node)
    {
        for (std::size_t& next = m_next[size(node)]; next < m_begins[size(node) + 1]; ++next) {
            if (!m_edges[m_atNodes[next]].used)
                return m_atNodes[next];
        }
        return kNoEdge;
    }

    template <class Found>
    void takeLoop(int begin, Found&& found)
    {
        CVekVertexArray contour;
        const CVekVector3d normal = m_edges[m_path[size(begin)].edge].normal;
        contour.setNormal(normal);
        int order = m_edges[m_path[size(begin)].edge].order;
        for (std::size_t i = size(begin); i < m_path.size(); ++i) {
            const Edge& edge = m_edges[m_path[i].edge];
            CVekVertex vertex = edge.vertex;
            if (edge.from != m_path[i].from) {
                std::swap(vertex.start, vertex.end);
                vertex.bulge = -vertex.bulge;
            }
            if (edge.normal.dot(normal) < 0.0)
                vertex.bulge = -vertex.bulge;
            if (contour.len() > 0)
                vertex.start = contour[-1].end;
            contour.append(vertex);
            order = std::min(order, edge.order);
            if (i > size(begin))
                m_onPath[size(m_path[i].from)] = -1;
        }
        contour[-1].end = contour[0].start;
        m_path.resize(size(begin));
        found(std::move(contour), order);
    }

    std::vector<Edge>& m_edges;
    std::vector<std::size_t> m_begins;  ///< of each node in the list of edges at nodes
    std::vector<std::size_t> m_atNodes; ///< the edges at the first node, at the second, ...
    std::vector<std::size_t> m_degrees;
    std::vector<std::size_t> m_next; ///< of each node, the edge to try next
    std::vector<int> m_onPath;       ///< of each node, its place on the path
    std::vector<Step> m_path;
};

/// A run without segments that have no length or no finite numbers; those that remain meet exactly.
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

} // namespace

CVekArrayTempl<CVekVertexArray> vll_regions_prepare(const CVekArrayTempl<CVekVertexArray>& vll)
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
    Loops(edges, numbers.count()).find([&](CVekVertexArray&& contour, int first) {
        contours.push_back({first, std::move(contour)});
    });
    std::stable_sort(contours.begin(), contours.end(),
                     [](const Ordered& a, const Ordered& b) { return a.order < b.order; });

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

} // namespace VEK
