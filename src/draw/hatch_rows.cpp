#include "draw/hatch_rows.h"

#include "core/values/intersect.h"

#include <vek/values/tolerance.h>

#include <algorithm>

namespace VEK::detail
{

HatchRows::HatchRows(const CVekArrayTempl<CVekVertexArray>& region, double turn)
    : m_region(region), m_turn(turn), m_within(static_cast<std::size_t>(region.len()))
{
    const double cosine = std::cos(turn), sine = std::sin(turn);
    const auto turned = [=](plane::Vec p) { return plane::Vec{p.x * cosine + p.y * sine, p.y * cosine - p.x * sine}; };
    std::size_t count = 0;
    for (const CVekVertexArray& contour : region) {
        count += static_cast<std::size_t>(contour.len());
        m_isClosed = m_isClosed && (contour.len() == 0 || (contour.isClosed() && contour.isContinuous()));
    }
    m_hangsTogether = region[0].isContinuous();
    m_sides.reserve(count);
    std::uint32_t number = 0;
    for (const CVekVertexArray& contour : region) {
        for (const CVekVertex& vertex : contour) {
            const plane::Arc flat = plane::flatArc(vertex, contour.normal());
            Side side{turned(flat.start()), turned(flat.end()), 0.0, number, 0.0, 0.0};
            plane::Box box{side.start, side.start};
            box.add(side.end);
            if (flat.isArc()) {
                side.bulge = contour.normal()[2] < 0.0 ? -vertex.bulge : vertex.bulge;
                box = plane::Arc(side.start, side.end, side.bulge).box();
            }
            side.low = box.min.y;
            side.high = box.max.y;
            if (m_sides.empty())
                m_all = box;
            m_all.add(box.min);
            m_all.add(box.max);
            if (number == 0)
                m_box = m_all;
            m_sides.push_back(side);
        }
        ++number;
    }
    m_tolerance = pointTol(std::max({-m_all.min.x, -m_all.min.y, m_all.max.x, m_all.max.y}));
    std::sort(m_sides.begin(), m_sides.end(), [](const Side& a, const Side& b) { return a.low < b.low; });
}

void HatchRows::rewind()
{
    m_active.clear();
    m_next = 0;
}

void HatchRows::cut(double y, double from, double to)
{
    m_y = y;
    m_hasOuter = m_hasInside = false;
    m_found.clear();
    m_cuts.clear();
    for (; m_next < m_sides.size() && m_sides[m_next].low <= y + m_tolerance; ++m_next)
        m_active.push_back(static_cast<std::uint32_t>(m_next));
    for (std::size_t i = 0; i < m_active.size();) {
        if (m_sides[m_active[i]].high >= y - m_tolerance) {
            ++i;
            continue;
        }
        m_active[i] = m_active.back();
        m_active.pop_back();
    }
    if (!cutPlainly(y, from, to))
        cutWithCare(y, from, to);
}

/// The common case: straight segments, all crossed well away from their ends and from one another.
bool HatchRows::cutPlainly(double y, double from, double to)
{
    if (!m_isClosed)
        return false;
    for (const std::uint32_t number : m_active) {
        const Side& side = m_sides[number];
        const double before = y - side.start.y, behind = y - side.end.y;
        if (side.bulge != 0.0 || std::fabs(before) <= m_tolerance || std::fabs(behind) <= m_tolerance)
            return false;
        m_found.push_back({side.start.x + (side.end.x - side.start.x) * (before / (before - behind)), side.contour});
    }
    std::sort(m_found.begin(), m_found.end(), [](const Cut& a, const Cut& b) { return a.x < b.x; });
    if (m_found.empty())
        return true;
    if (m_found.front().x < from + m_tolerance || m_found.back().x > to - m_tolerance)
        return false;
    for (const Cut& found : m_found) {
        if (!m_cuts.empty() && found.x - m_cuts.back() <= m_tolerance)
            return false;
        m_cuts.push_back(found.x);
    }
    takeStretches();
    return true;
}

/// What lies between the cuts of a plain row: each contour is entered and left in turn.
void HatchRows::takeStretches()
{
    m_outer.clear();
    m_inside.clear();
    int blocked = 0;
    bool wasInside = false;
    for (const Cut& found : m_found) {
        char& within = m_within[found.contour];
        within = !within;
        if (found.contour > 0)
            blocked += within ? 1 : -1;
        else if (within)
            m_outer.push_back({found.x, found.x});
        else
            m_outer.back().to = found.x;
        const bool isIn = m_within[0] && blocked == 0;
        if (isIn && !wasInside)
            m_inside.push_back({found.x, found.x});
        else if (!isIn && wasInside)
            m_inside.back().to = found.x;
        wasInside = isIn;
    }
    m_hasOuter = m_hasInside = true;
}

/// The row through corners, along segments and across arcs.
void HatchRows::cutWithCare(double y, double from, double to)
{
    m_found.clear();
    m_cuts.clear();
    from = std::max(from, m_all.min.x - 1.0);
    to = std::min(to, m_all.max.x + 1.0);
    if (!(from < to))
        return;
    const plane::Arc row({from, y}, {to, y}, 0.0);
    for (const std::uint32_t number : m_active) {
        const Side& side = m_sides[number];
        const plane::Meetings found = meet(row, plane::Arc(side.start, side.end, side.bulge), m_tolerance);
        for (int i = 0; i < found.count; ++i)
            m_found.push_back({found.points[i].point.x, side.contour});
    }
    std::sort(m_found.begin(), m_found.end(), [](const Cut& a, const Cut& b) { return a.x < b.x; });
    for (const Cut& found : m_found) {
        if (m_cuts.empty() || found.x - m_cuts.back() > m_tolerance)
            m_cuts.push_back(found.x);
    }
}

bool HatchRows::meetsOuter(double from, double to) const
{
    return std::any_of(m_found.begin(), m_found.end(), [&](const Cut& found) {
        return found.contour == 0 && found.x >= from - m_tolerance && found.x <= to + m_tolerance;
    });
}

/// The stretches of a row that is not plain, inside the first contours of the region.
void HatchRows::takeSpans(int contours, std::optional<plane::PreparedRegion>& prepared, std::vector<Stretch>& stretches)
{
    if (!prepared) {
        CVekMatrix3d turn;
        turn.setToRotation(-m_turn, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
        CVekArrayTempl<CVekVertexArray> turned;
        for (int i = 0; i < contours; ++i)
            turned.append(m_region[i].getTransformedCopy(turn));
        prepared.emplace(turned);
    }
    const double start = m_all.min.x - 1.0, length = m_all.max.x + 1.0 - start;
    stretches.clear();
    for (const plane::Span& span : prepared->spans(plane::Arc({start, m_y}, {start + length, m_y}, 0.0)))
        stretches.push_back({start + span.from * length, start + span.to * length});
}

const std::vector<HatchRows::Stretch>& HatchRows::outer()
{
    if (!m_hasOuter)
        takeSpans(1, m_preparedOuter, m_outer);
    m_hasOuter = true;
    return m_outer;
}

bool HatchRows::isInside(double x)
{
    if (!m_hasInside)
        takeSpans(m_region.len(), m_prepared, m_inside);
    m_hasInside = true;
    const auto next = std::lower_bound(m_inside.begin(), m_inside.end(), x - m_tolerance,
                                       [](const Stretch& stretch, double place) { return stretch.to < place; });
    return next != m_inside.end() && next->from <= x + m_tolerance;
}

} // namespace VEK::detail
