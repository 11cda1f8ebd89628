#include "core/geometry/area.h"
#include "core/geometry/prepared_region.h"

#include <vek/geometry/region.h>

#include <memory>
#include <numeric>

namespace VEK
{
namespace
{

constexpr unsigned long kNest = 4;
constexpr int kNone = -1;

/// The lowest point of a segment.
plane::Vec lowest(const plane::Arc& arc)
{
    const plane::Vec end = arc.start().y <= arc.end().y ? arc.start() : arc.end();
    if (!arc.isArc() || !(arc.box().min.y < end.y))
        return end;
    // There it runs towards +x, or towards -x where it runs clockwise.
    constexpr double kTurn = 2.0 * std::numbers::pi;
    const plane::Vec first = arc.tangent(0.0) * (arc.sweep() > 0.0 ? 1.0 : -1.0);
    double turn = std::fmod(-std::atan2(first.y, first.x) * (arc.sweep() > 0.0 ? 1.0 : -1.0), kTurn);
    if (turn < 0.0)
        turn += kTurn;
    const plane::Vec bottom = arc.at(std::min(1.0, turn / std::fabs(arc.sweep())));
    return bottom.y < end.y ? bottom : end;
}

/// Finds for each contour the smallest one that contains it.
///
/// From the lowest point of a contour one looks straight down. The first boundary below either belongs to a contour
/// that contains it, or to one beside it, with which it shares what contains it; and that one reaches lower, so it was
/// judged before.
class Nesting
{
public:
    explicit Nesting(const CVekArrayTempl<CVekVertexArray>& contours)
        : m_contours(contours), m_all(contours), m_areas(size()), m_parents(size(), kNone), m_alone(size())
    {
        std::vector<plane::Vec> lows(size());
        for (std::size_t i = 0; i < size(); ++i) {
            const CVekVertexArray& contour = at(i);
            m_areas[i] = detail::signedArea(contour, CVekVector3d::kZAxis);
            lows[i] = lowest(plane::flatArc(contour[0], contour.normal()));
            for (const CVekVertex& vertex : contour) {
                const plane::Vec low = lowest(plane::flatArc(vertex, contour.normal()));
                if (low.y < lows[i].y)
                    lows[i] = low;
            }
        }
        std::vector<std::uint32_t> order(size());
        std::iota(order.begin(), order.end(), 0u);
        std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) { return lows[a].y < lows[b].y; });
        for (const std::uint32_t i : order)
            m_parents[i] = findParent(i, lows[i]);
    }

    /// How many contours lie around each.
    std::vector<int> depths() const
    {
        constexpr int kOpen = -1, kOnPath = -2;
        std::vector<int> depths(size(), kOpen);
        std::vector<std::size_t> path;
        for (std::size_t i = 0; i < size(); ++i) {
            std::size_t walk = i;
            while (depths[walk] == kOpen) {
                depths[walk] = kOnPath;
                path.push_back(walk);
                if (m_parents[walk] == kNone)
                    break;
                walk = static_cast<std::size_t>(m_parents[walk]);
            }
            int depth = depths[walk] >= 0 ? depths[walk] : -1; // contours that cross may name each other
            for (; !path.empty(); path.pop_back())
                depths[path.back()] = ++depth;
        }
        return depths;
    }

    int parent(std::size_t i) const { return m_parents[i]; }

private:
    std::size_t size() const { return static_cast<std::size_t>(m_contours.len()); }
    const CVekVertexArray& at(std::size_t i) const { return m_contours[static_cast<int>(i)]; }

    int findParent(std::uint32_t contour, plane::Vec low)
    {
        plane::PreparedRegion::Hit next{};
        const bool found = m_all.lookDown(low, contour, m_touching, next);
        std::sort(m_touching.begin(), m_touching.end(), [&](const auto& a, const auto& b) {
            return std::fabs(m_areas[a.contour]) < std::fabs(m_areas[b.contour]);
        });
        for (const plane::PreparedRegion::Hit& hit : m_touching) {
            if (contains(hit.contour, contour))
                return static_cast<int>(hit.contour);
        }
        if (!found)
            return kNone;
        const bool interiorAbove = next.rightwards == (m_areas[next.contour] > 0.0);
        int parent = interiorAbove ? static_cast<int>(next.contour) : m_parents[next.contour];
        // One that ends at this height is left behind; each once, since contours that cross may name each other.
        for (std::size_t i = 0; i < m_touching.size() && parent != kNone && touches(parent); ++i)
            parent = m_parents[static_cast<std::size_t>(parent)];
        return parent;
    }

    bool touches(int contour) const
    {
        return std::any_of(m_touching.begin(), m_touching.end(),
                           [=](const auto& hit) { return hit.contour == static_cast<std::uint32_t>(contour); });
    }

    /// Judges contours that touch by a point of the inner one that is not on the outer one.
    bool contains(std::uint32_t outer, std::uint32_t inner)
    {
        if (!(std::fabs(m_areas[outer]) > std::fabs(m_areas[inner])))
            return false;
        if (!m_alone[outer])
            m_alone[outer] = std::make_unique<plane::PreparedRegion>(at(outer));
        for (const CVekVertex& vertex : at(inner)) {
            const plane::Vec middle = plane::flatArc(vertex, at(inner).normal()).at(0.5);
            if (!m_alone[outer]->onBoundary(middle))
                return m_alone[outer]->inside(middle);
        }
        return true; // it bounds less, and by nothing of its own
    }

    const CVekArrayTempl<CVekVertexArray>& m_contours;
    plane::PreparedRegion m_all;
    std::vector<double> m_areas;
    std::vector<int> m_parents;
    std::vector<std::unique_ptr<plane::PreparedRegion>> m_alone; ///< of the contours that had to be asked
    std::vector<plane::PreparedRegion::Hit> m_touching;
};

bool boundsArea(const CVekVertexArray& contour)
{
    const double area = detail::signedArea(contour, CVekVector3d::kZAxis);
    return std::isfinite(area) && area != 0.0;
}

} // namespace

CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> g_vll_regions(const CVekArrayTempl<CVekVertexArray>& vll,
                                                              unsigned long mode)
{
    CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> regions;
    CVekArrayTempl<CVekVertexArray> contours;
    contours.reserve(vll.len());
    for (const CVekVertexArray& contour : vll) {
        if (boundsArea(contour))
            contours.append(contour);
    }
    if ((mode & kNest) == 0) {
        for (CVekVertexArray& contour : contours)
            regions[regions.len()].append(std::move(contour));
        return regions;
    }
    const Nesting nesting(contours);
    const std::vector<int> depths = nesting.depths();
    std::vector<int> regionOf(depths.size());
    for (std::size_t i = 0; i < depths.size(); ++i) {
        if (depths[i] % 2 == 0) {
            regionOf[i] = regions.len();
            regions[regions.len()].append(std::move(contours[static_cast<int>(i)]));
        }
    }
    for (std::size_t i = 0; i < depths.size(); ++i) {
        if (depths[i] % 2 != 0)
            regions[regionOf[static_cast<std::size_t>(nesting.parent(i))]].append(
                std::move(contours[static_cast<int>(i)]));
    }
    return regions;
}

} // namespace VEK
