/// Whether a facet hides a point.
#include "core/solid/picture.h"

namespace VEK::solids
{
namespace
{

/// From this number of sides on a facet gets an index of them.
constexpr std::uint32_t kManySides = 24;

/// Whether a side passes above a point, by the height where it crosses the upright through it. The start belongs to a
/// side and the end does not, so that sides that share a point are counted once.
bool passesAbove(Vec a, Vec b, double bulge, Vec p)
{
    if ((a.x > p.x) == (b.x > p.x))
        return false;
    if (bulge == 0.0)
        return a.y + (p.x - a.x) * (b.y - a.y) / (b.x - a.x) > p.y;
    const plane::Arc arc(a, b, bulge);
    const Vec centre = arc.centre();
    const double across = p.x - centre.x, square = arc.radius() * arc.radius() - across * across;
    const bool upper = arc.at(0.5).y > centre.y;
    return centre.y + (upper ? 1.0 : -1.0) * std::sqrt(std::max(0.0, square)) > p.y;
}

} // namespace

Cover::Cover(Picture& picture) : m_picture(picture)
{
    std::vector<Box> boxes;
    boxes.reserve(picture.facets.size());
    for (Facet& facet : picture.facets) {
        const Vec first = picture.points[picture.sides[facet.begin].a];
        Box box{first, first};
        for (std::uint32_t i = facet.begin; i < facet.end; ++i) {
            box.add(picture.points[picture.sides[i].a]);
            box.add(picture.points[picture.sides[i].b]);
        }
        if (facet.end - facet.begin >= kManySides)
            slice(facet, box);
        boxes.push_back(box);
    }
    const std::vector<std::uint32_t> order = m_tree.build(std::move(boxes));
    std::vector<Facet> ordered;
    ordered.reserve(order.size());
    for (const std::uint32_t i : order)
        ordered.push_back(picture.facets[i]);
    m_heights.reserve(2 * order.size());
    for (const Facet& facet : ordered)
        m_heights.push_back({facet.bottom, facet.top});
    m_tree.addRangesAbove(m_heights);
    picture.facets = std::move(ordered);
}

/// Cuts the facet into upright slices, each with the sides that reach into it: as many as there are sides, but fewer
/// if long sides would otherwise stand in many of them.
void Cover::slice(Facet& facet, const Box& box)
{
    const std::uint32_t sides = facet.end - facet.begin;
    const double width = box.max.x - box.min.x;
    double reach = 0.0;
    for (std::uint32_t i = facet.begin; i < facet.end; ++i)
        reach += std::fabs(m_picture.points[m_picture.sides[i].b].x - m_picture.points[m_picture.sides[i].a].x);
    const double each = std::max(width / sides, reach / (4.0 * sides));
    if (!(each > 0.0))
        return;
    const std::uint32_t count = static_cast<std::uint32_t>(width / each) + 1;
    Slices slices{box.min.x, each, static_cast<std::uint32_t>(m_begins.size()), count};
    const auto forEach = [&](auto&& act) {
        for (std::uint32_t i = facet.begin; i < facet.end; ++i) {
            const double a = m_picture.points[m_picture.sides[i].a].x, b = m_picture.points[m_picture.sides[i].b].x;
            const std::uint32_t last = sliceOf(slices, std::max(a, b));
            for (std::uint32_t k = sliceOf(slices, std::min(a, b)); k <= last; ++k)
                act(k, i);
        }
    };
    m_begins.resize(m_begins.size() + count + 1, 0);
    std::uint32_t* const begins = &m_begins[slices.first];
    forEach([&](std::uint32_t k, std::uint32_t) { ++begins[k]; });
    std::uint32_t total = static_cast<std::uint32_t>(m_members.size());
    for (std::uint32_t k = 0; k <= count; ++k) // where each one ends, and after the filling where it begins
        begins[k] = total += begins[k];
    m_members.resize(total);
    forEach([&](std::uint32_t k, std::uint32_t i) { m_members[--begins[k]] = i; });
    facet.slices = static_cast<Id>(m_slices.size());
    m_slices.push_back(slices);
}

std::uint32_t Cover::sliceOf(const Slices& slices, double x)
{
    const double k = (x - slices.x) / slices.width;
    return k > 0.0 ? std::min(static_cast<std::uint32_t>(k), slices.count - 1) : 0;
}

bool Cover::holds(const Facet& facet, Vec p) const
{
    bool inside = false;
    const auto pass = [&](const Side& side) {
        inside ^= passesAbove(m_picture.points[side.a], m_picture.points[side.b], side.bulge, p);
    };
    if (facet.slices == kNone) {
        for (std::uint32_t i = facet.begin; i < facet.end; ++i)
            pass(m_picture.sides[i]);
    } else {
        const Slices& slices = m_slices[facet.slices];
        const std::uint32_t* const begins = &m_begins[slices.first + sliceOf(slices, p.x)];
        for (std::uint32_t i = begins[0]; i < begins[1]; ++i)
            pass(m_picture.sides[m_members[i]]);
    }
    return inside;
}

bool Cover::hides(Vec p, double z)
{
    const double tolerance = m_picture.tolerance;
    const auto isHidden = [&](Id i) {
        const Facet& facet = m_picture.facets[i];
        return facet.top > z && height(facet, p, z) < -tolerance && holds(facet, p);
    };
    if (m_last != kNone && isHidden(m_last)) // what hides one point often hides the next one
        return true;
    bool hidden = false;
    m_tree.visit(
        [&](const Box& box, std::uint32_t number) { return !hidden && m_heights[number].high > z && box.holds(p); },
        [&](std::uint32_t i, const Box&) {
            if (!hidden && isHidden(i)) {
                hidden = true;
                m_last = i;
            }
        });
    return hidden;
}

} // namespace VEK::solids
