#include "draw/hatch_rows.h"

#include "core/values/crossing.h"
#include "core/values/intersect.h"
#include "core/values/stepping.h"

namespace VEK::detail
{
namespace
{

/// Sorts places that mostly are in order already.
template <class Place>
void sort(std::vector<Place>& places)
{
    std::size_t moves = 0;
    for (std::size_t i = 1; i < places.size(); ++i) {
        const Place place = places[i];
        std::size_t to = i;
        for (; to > 0 && place.x < places[to - 1].x; --to)
            places[to] = places[to - 1];
        places[to] = place;
        moves += i - to;
        if (moves > 4 * places.size()) {
            std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) { return a.x < b.x; });
            return;
        }
    }
}

} // namespace

void HatchRows::set(const CVekArrayTempl<CVekVertexArray>& region, double turn)
{
    m_standing.begin(static_cast<std::size_t>(region.len()));
    m_box = {};
    m_all = {{0.0, 0.0}, {-1.0, -1.0}};
    m_isContinuous = true;
    m_sides.clear();
    std::size_t count = 0;
    for (const CVekVertexArray& contour : region)
        count += static_cast<std::size_t>(contour.len()) + 1;
    m_sides.reserve(count);
    std::uint32_t number = 0;
    for (const CVekVertexArray& contour : region)
        addContour(contour, number++, turn);
    m_tolerance = pointTol(std::max({-m_all.min.x, -m_all.min.y, m_all.max.x, m_all.max.y}));
}

HatchRows::Side& HatchRows::addSide(plane::Vec start, plane::Vec end, std::uint32_t contour)
{
    Side& side = m_sides.emplace_back();
    side.start = start;
    side.end = end;
    side.contour = contour;
    return side;
}

void HatchRows::addContour(const CVekVertexArray& contour, std::uint32_t number, double turn)
{
    const double cosine = std::cos(turn), sine = std::sin(turn);
    const auto turned = [=](const CVekPoint3d& p) {
        return plane::Vec{p[0] * cosine + p[1] * sine, p[1] * cosine - p[0] * sine};
    };
    plane::Vec first, end; // of the chain so far
    const CVekPoint3d* before = nullptr;
    plane::Box box{};
    for (const CVekVertex& vertex : contour) {
        // Coincident points become identical, so that both segments there treat them alike.
        plane::Vec start = end;
        if (!before || *before != vertex.start) {
            const plane::Vec own = turned(vertex.start);
            if (!before || !plane::meets(end, own))
                start = own;
        }
        if (&vertex == contour.begin())
            box = {start, start};
        box.add(start);
        const bool isPoint = vertex.start[0] == vertex.end[0] && vertex.start[1] == vertex.end[1];
        if (number == 0 && (before ? start != end : isPoint))
            m_isContinuous = false;
        if (isPoint) { // produces a cut and bounds nothing
            addSide(start, start, number);
            continue;
        }
        if (!before)
            first = start;
        else if (start != end)
            addSide(end, start, number).isBridge = true;
        before = &vertex.end;
        end = turned(vertex.end);
        box.add(end);
        Side& side = addSide(start, end, number);
        if (vertex.bulge != 0.0) {
            const double bulge = contour.normal()[2] < 0.0 ? -vertex.bulge : vertex.bulge;
            const plane::Arc arc(start, end, bulge);
            side.bulge = arc.isArc() ? bulge : 0.0;
            box.add(arc.box().min);
            box.add(arc.box().max);
        }
    }
    if (contour.len() == 0)
        return;
    if (before)
        addSide(end, first, number).isBridge = !plane::meets(end, first);
    if (number == 0)
        m_box = box;
    if (m_all.max.x < m_all.min.x)
        m_all = box;
    m_all.add(box.min);
    m_all.add(box.max);
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
    // A side is listed from the first to the last row that it may meet, rounding included.
    const double base = this->height(lowest), top = this->height(highest);
    const double size = std::max({std::fabs(height), std::fabs(base), std::fabs(top)}) + m_all.max.y - m_all.min.y;
    const double slack = std::min((m_tolerance + 1e-15 * size) / step + 1e-9, 2.0 * count);
    const double perStep = std::min(1.0 / step, 1e300); // finite, to avoid NaN
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
            side.first = count; // lies between two rows
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

/// Makes exactly the sides at the height of a row active.
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
    m_hasStretches = false;
    m_found.clear();
    m_pairs.clear();
    activate(static_cast<std::uint32_t>(row - m_lowest));
    m_isPlain = cutPlainly(height(row), from, to);
    if (!m_isPlain)
        cutWithCare(height(row), from, to);
}

/// The common case: straight segments, all crossed well away from their ends and from one another.
bool HatchRows::cutPlainly(double y, double from, double to)
{
    for (const std::uint32_t number : m_active) {
        const Side& side = m_sides[number];
        const double before = y - side.start.y, behind = y - side.end.y;
        if (side.isBridge || side.bulge != 0.0 || std::fabs(before) <= m_tolerance || std::fabs(behind) <= m_tolerance)
            return false;
        if ((before > 0.0) != (behind > 0.0))
            m_found.push_back(
                {side.start.x + (side.end.x - side.start.x) * (before / (before - behind)), side.contour, number});
    }
    if (m_found.empty())
        return true;
    sort(m_found);
    if (m_found.size() == m_active.size()) { // the next row will cross them in nearly the same order
        for (std::size_t i = 0; i < m_found.size(); ++i)
            m_active[i] = m_found[i].side;
    }
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

/// The general case: the row through corners, along segments and across arcs.
void HatchRows::cutWithCare(double y, double from, double to)
{
    m_found.clear();
    m_events.clear();
    m_pairs.clear();
    from = std::max(from, m_all.min.x - 1.0);
    to = std::min(to, m_all.max.x + 1.0);
    if (!(from < to))
        return;
    const plane::Arc row({from, y}, {to, y}, 0.0);
    for (const std::uint32_t number : m_active) {
        const Side& side = m_sides[number];
        const plane::Meetings found = meet(row, plane::Arc(side.start, side.end, side.bulge), m_tolerance);
        for (int i = 0; i < found.count; ++i) {
            if (!side.isBridge)
                m_found.push_back({found.points[i].point.x, side.contour, number});
            if (found.along[i]) {
                m_events.push_back({found.points[i].point.x, side.contour, 1});
                m_events.push_back({found.points[i + 1].point.x, side.contour, -1});
            }
        }
        addPasses(row, side);
    }
    sort(m_found);
    sort(m_events);
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
    // No cut lies within a pair, so it is inside if an odd number of cuts of the outer contour follows it.
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
    if (!m_hasStretches)
        takeStretches();
    auto next = std::lower_bound(m_outer.begin(), m_outer.end(), from,
                                 [](const Stretch& stretch, double x) { return stretch.to < x; });
    for (; next != m_outer.end() && next->from < to; ++next) {
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

void HatchRows::addPasses(const plane::Arc& row, const Side& side)
{
    const plane::Carrier carrier(row);
    const double before = carrier(side.start), behind = carrier(side.end);
    const plane::Passages found = plane::passages(carrier, side.start, side.end, side.bulge, before, behind);
    for (int i = 0; i < found.count; ++i)
        m_events.push_back({plane::Arc(side.start, side.end, side.bulge).at(found.t[i]).x, side.contour});
}

/// Determines the stretches of the current row inside the outer contour and inside the region. Stretches shorter than
/// the tolerance are ignored.
void HatchRows::takeStretches()
{
    m_hasStretches = true;
    m_outer.clear();
    m_inside.clear();
    double from = -HUGE_VAL;
    const auto judge = [](std::vector<Stretch>& stretches, bool isIn, double place) {
        const bool wasIn = !stretches.empty() && stretches.back().to == HUGE_VAL;
        if (isIn && !wasIn)
            stretches.push_back({place, HUGE_VAL});
        else if (!isIn && wasIn)
            stretches.back().to = place;
    };
    const auto piece = [&](double to) {
        if (to - from > m_tolerance) {
            judge(m_outer, m_standing.isInOuter(), from);
            judge(m_inside, m_standing.isInside(), from);
        }
        from = to;
    };
    if (m_isPlain) {
        for (const Cut& found : m_found) {
            piece(found.x);
            m_standing.apply(found.contour, plane::Standing::kPass);
        }
    } else {
        for (const Event& event : m_events) {
            piece(event.x);
            m_standing.apply(event.contour, event.step);
        }
    }
    piece(HUGE_VAL);
}

const std::vector<HatchRows::Stretch>& HatchRows::inside()
{
    if (!m_hasStretches)
        takeStretches();
    return m_inside;
}

bool HatchRows::isInside(double x)
{
    const auto next = std::lower_bound(inside().begin(), inside().end(), x - m_tolerance,
                                       [](const Stretch& stretch, double place) { return stretch.to < place; });
    return next != m_inside.end() && next->from <= x + m_tolerance;
}

} // namespace VEK::detail
