#include "draw/hatch_rows.h"

#include "core/values/intersect.h"

#include <vek/values/tolerance.h>

#include <algorithm>

namespace VEK::detail
{

HatchRows::HatchRows(const CVekArrayTempl<CVekVertexArray>& region, double turn)
    : m_region(region), m_turn(turn), m_within(static_cast<std::size_t>(region.len()))
{
    std::size_t count = 0;
    for (const CVekVertexArray& contour : region)
        count += static_cast<std::size_t>(contour.len());
    m_sides.reserve(count);
    std::uint32_t number = 0;
    for (const CVekVertexArray& contour : region) {
        const bool hangsTogether = addContour(contour, number);
        m_isClosed = m_isClosed && hangsTogether && (contour.len() == 0 || contour.isClosed());
        if (number == 0) {
            m_hangsTogether = hangsTogether;
            m_box = m_all;
        }
        ++number;
    }
    m_tolerance = pointTol(std::max({-m_all.min.x, -m_all.min.y, m_all.max.x, m_all.max.y}));
}

/// @return whether the contour hangs together
bool HatchRows::addContour(const CVekVertexArray& contour, std::uint32_t number)
{
    const double cosine = std::cos(m_turn), sine = std::sin(m_turn);
    const auto turned = [=](const CVekPoint3d& p) {
        return plane::Vec{p[0] * cosine + p[1] * sine, p[1] * cosine - p[0] * sine};
    };
    const bool isTurnedOver = contour.normal()[2] < 0.0;
    bool isChain = true; // each start is the very end before it
    const CVekVertex* before = nullptr;
    plane::Vec end;
    for (const CVekVertex& vertex : contour) {
        const bool follows = before && before->end == vertex.start;
        isChain = isChain && (follows || !before);
        const plane::Vec start = follows ? end : turned(vertex.start);
        end = turned(vertex.end);
        if (m_sides.empty())
            m_all = {start, start};
        if (!follows)
            m_all.add(start);
        m_all.add(end);
        Side side{start, end, 0.0, number};
        if (vertex.bulge != 0.0 && plane::flatArc(vertex, contour.normal()).isArc()) {
            side.bulge = isTurnedOver ? -vertex.bulge : vertex.bulge;
            const plane::Box box = plane::Arc(start, end, side.bulge).box();
            m_all.add(box.min);
            m_all.add(box.max);
        }
        m_sides.push_back(side);
        before = &vertex;
    }
    return isChain || contour.isContinuous();
}

void HatchRows::lay(double height, double step, long long lowest, long long highest)
{
    m_height = height;
    m_step = step;
    m_lowest = lowest;
    const std::uint32_t count = static_cast<std::uint32_t>(std::max(0LL, highest - lowest + 1));
    m_begin.assign(count + 1u, 0);
    m_order.clear();
    if (count == 0)
        return;
    // A side is listed from the first row to the last one that it may meet, rounding included.
    const double base = this->height(lowest), top = this->height(highest);
    const double size = std::max({std::fabs(height), std::fabs(base), std::fabs(top)}) + m_all.max.y - m_all.min.y;
    const double slack = (m_tolerance + 1e-15 * size) / step + 1e-9;
    const double perStep = 1.0 / step;
    for (Side& side : m_sides) {
        double low = std::min(side.start.y, side.end.y), high = std::max(side.start.y, side.end.y);
        if (side.bulge != 0.0) {
            const plane::Box box = plane::Arc(side.start, side.end, side.bulge).box();
            low = box.min.y;
            high = box.max.y;
        }
        const double from = std::clamp((low - base) * perStep - slack, 0.0, double(count));
        const double to = std::min((high - base) * perStep + slack, double(count));
        side.first = static_cast<std::uint32_t>(from);
        side.first += side.first < from;
        if (side.first > to)
            side.first = count; // between two rows
        side.last = static_cast<std::uint32_t>(std::max(to, 0.0));
        ++m_begin[side.first];
    }
    for (std::uint32_t row = 0; row < count; ++row)
        m_begin[row + 1] += m_begin[row];
    m_order.resize(m_sides.size());
    for (std::uint32_t i = 0; i < m_sides.size(); ++i)
        m_order[--m_begin[m_sides[i].first]] = i;
    rewind();
}

void HatchRows::rewind()
{
    m_active.clear();
    m_next = 0;
}

/// Brings the sides at the height of a row, and those only, into the active list.
void HatchRows::activate(std::uint32_t row)
{
    std::size_t kept = 0;
    for (const std::uint32_t side : m_active) {
        if (m_sides[side].last >= row)
            m_active[kept++] = side;
    }
    m_active.resize(kept);
    const std::uint32_t end = m_begin[row + 1];
    for (std::uint32_t i = m_begin[m_next]; i < end; ++i) {
        if (m_sides[m_order[i]].last >= row)
            m_active.push_back(m_order[i]);
    }
    m_next = row + 1;
}

void HatchRows::cut(long long row, double from, double to)
{
    m_y = height(row);
    m_hasOuter = m_hasInside = false;
    m_found.clear();
    m_pairs.clear();
    activate(static_cast<std::uint32_t>(row - m_lowest));
    m_isPlain = cutPlainly(m_y, from, to);
    if (!m_isPlain)
        cutWithCare(m_y, from, to);
}

void HatchRows::sortCuts()
{
    if (m_found.size() == 2 && m_found[1].x < m_found[0].x)
        std::swap(m_found[0], m_found[1]);
    else if (m_found.size() > 2)
        std::sort(m_found.begin(), m_found.end(), [](const Cut& a, const Cut& b) { return a.x < b.x; });
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
        if ((before > 0.0) != (behind > 0.0))
            m_found.push_back(
                {side.start.x + (side.end.x - side.start.x) * (before / (before - behind)), side.contour});
    }
    if (m_found.empty())
        return true;
    sortCuts();
    if (m_found.size() % 2 != 0 || m_found.front().x < from + m_tolerance || m_found.back().x > to - m_tolerance)
        return false;
    for (std::size_t i = 1; i < m_found.size(); ++i) {
        if (m_found[i].x - m_found[i - 1].x <= m_tolerance)
            return false;
        if (i % 2 != 0)
            m_pairs.push_back({m_found[i - 1].x, m_found[i].x});
    }
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
    m_pairs.clear();
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
    sortCuts();
    double last = -HUGE_VAL;
    bool isOdd = false;
    for (const Cut& found : m_found) {
        if (!(found.x - last > m_tolerance))
            continue;
        last = found.x;
        isOdd = !isOdd;
        if (isOdd)
            m_pairs.push_back({last, last});
        else
            m_pairs.back().to = last;
    }
    if (isOdd)
        m_pairs.clear();
}

const std::vector<HatchRows::Stretch>& HatchRows::pieces()
{
    m_pieces.clear();
    if (!m_isPlain) {
        for (auto pair = m_pairs.rbegin(); pair != m_pairs.rend(); ++pair)
            punch({pair->to, pair->from}, m_pieces);
        return m_pieces;
    }
    // No cut lies within a pair, so it is inside where an odd number of cuts of the outer contour lies behind it.
    bool isInOuter = false;
    for (std::size_t i = m_found.size(); i-- > 0;) {
        isInOuter ^= m_found[i].contour == 0;
        if (i % 2 != 0 && isInOuter)
            m_pieces.push_back({m_found[i].x, m_found[i - 1].x});
    }
    return m_pieces;
}

void HatchRows::punch(Stretch piece, std::vector<Stretch>& pieces)
{
    const bool isReversed = piece.from > piece.to;
    const double from = std::min(piece.from, piece.to), to = std::max(piece.from, piece.to);
    const std::vector<Stretch>& inside = outer();
    auto next = std::lower_bound(inside.begin(), inside.end(), from,
                                 [](const Stretch& stretch, double x) { return stretch.to < x; });
    for (; next != inside.end() && next->from < to; ++next) {
        const double low = std::max(from, next->from), high = std::min(to, next->to);
        if (high - low > m_tolerance)
            pieces.push_back(isReversed ? Stretch{high, low} : Stretch{low, high});
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
    if (!m_hasOuter && m_isPlain)
        takeStretches();
    else if (!m_hasOuter)
        takeSpans(1, m_preparedOuter, m_outer);
    m_hasOuter = true;
    return m_outer;
}

bool HatchRows::isInside(double x)
{
    if (!m_hasInside && m_isPlain)
        takeStretches();
    else if (!m_hasInside)
        takeSpans(m_region.len(), m_prepared, m_inside);
    m_hasInside = true;
    const auto next = std::lower_bound(m_inside.begin(), m_inside.end(), x - m_tolerance,
                                       [](const Stretch& stretch, double place) { return stretch.to < place; });
    return next != m_inside.end() && next->from <= x + m_tolerance;
}

} // namespace VEK::detail
