#include "core/geometry/prepared_region.h"

#include "core/geometry/meets.h"
#include "core/values/intersect.h"

#include <limits>
#include <numeric>

namespace VEK::plane
{
namespace
{

constexpr std::uint32_t kLeafSegments = 8;
constexpr std::uint32_t kFanOut = 4;

/// Sweep above which the centre of an arc is near enough to judge by the distance from it.
constexpr double kBent = 0.5;

Vec centre(const Box& box)
{
    return (box.min + box.max) * 0.5;
}

Vec extent(const Box& box)
{
    return (box.max - box.min) * 0.5;
}

/// Adds a box around an arc, for one up to a half circle without the price of the tight one.
void addArc(Box& box, Vec start, Vec end, double bulge)
{
    Box arc{start, start};
    arc.add(end);
    if (std::fabs(bulge) <= 1.0)
        arc.grow(0.5 * std::fabs(bulge) * (end - start).abs());
    else
        arc = Arc(start, end, bulge).box();
    box.add(arc.min);
    box.add(arc.max);
}

bool isFinite(const CVekVertex& vertex)
{
    return std::isfinite(vertex.start[0] + vertex.start[1] + vertex.end[0] + vertex.end[1] + vertex.bulge);
}

bool holds(const Box& box, Vec p)
{
    return box.meets({p, p});
}

/// Spreads 16 bits to the even places of 32.
std::uint32_t spread(std::uint32_t bits)
{
    bits = (bits | bits << 8) & 0x00ff00ffu;
    bits = (bits | bits << 4) & 0x0f0f0f0fu;
    bits = (bits | bits << 2) & 0x33333333u;
    return (bits | bits << 1) & 0x55555555u;
}

/// Whether the whole line of a straight segment passes through a box.
bool lineMeets(const Box& box, const Arc& line, const Carrier& carrier, double tolerance)
{
    const Vec e = extent(box), chord = line.chord();
    return std::fabs(carrier(centre(box))) <=
           std::fabs(chord.y) * e.x + std::fabs(chord.x) * e.y + tolerance * line.chordLength();
}

/// Whether a circle passes through a box.
bool circleMeets(const Box& box, Vec middle, double radius, double tolerance)
{
    const Vec c = centre(box) - middle, e = extent(box);
    const Vec near{std::max(0.0, std::fabs(c.x) - e.x), std::max(0.0, std::fabs(c.y) - e.y)};
    const Vec far{std::fabs(c.x) + e.x, std::fabs(c.y) + e.y};
    return near.abs() <= radius + tolerance && far.abs() >= radius - tolerance;
}

} // namespace

PreparedRegion::PreparedRegion(const CVekArrayTempl<CVekVertexArray>& region)
{
    prepare(region.begin(), region.len());
}

PreparedRegion::PreparedRegion(const CVekVertexArray& contour)
{
    prepare(&contour, 1);
}

void PreparedRegion::prepare(const CVekVertexArray* contours, int count)
{
    m_standing.resize(static_cast<std::size_t>(std::max(1, count)));
    std::size_t links = 0;
    for (int i = 0; i < count; ++i)
        links += static_cast<std::size_t>(contours[i].len()) + 2;
    m_links.reserve(links);
    m_leaves.reserve(links / kLeafSegments + static_cast<std::size_t>(count));
    bool usable = true;
    for (int i = 0; i < count && usable; ++i)
        usable = addContour(contours[i], static_cast<std::uint32_t>(i));
    if (!usable || m_leaves.empty() || m_leaves[0].contour != 0)
        m_leaves.clear();

    double size = 0.0;
    for (const Link& link : m_links)
        size = std::max(size, std::max(std::fabs(link.point.x), std::fabs(link.point.y)));
    m_tolerance = pointTol(size);
    if (m_leaves.empty())
        return;
    sortLeaves();
    buildTree();
}

/// Takes over a contour as a chain of points that ends in its first point. Points that count as one become the same,
/// so that both segments there judge them alike; a gap is closed by a straight segment.
/// @return false where a coordinate is no finite number
bool PreparedRegion::addContour(const CVekVertexArray& contour, std::uint32_t number)
{
    const std::uint32_t first = static_cast<std::uint32_t>(m_links.size());
    const auto same = [](Vec a, Vec b) { return detail::meets({a.x, a.y, 0.0}, {b.x, b.y, 0.0}); };
    const double side = contour.normal()[2] < 0.0 ? -1.0 : 1.0; // as flatArc has it
    for (const CVekVertex& vertex : contour) {
        if (!isFinite(vertex))
            return false;
        const Vec start{vertex.start[0], vertex.start[1]}, end{vertex.end[0], vertex.end[1]};
        if (!((end - start).abs() > 0.0))
            continue;
        if (m_links.size() == first || !same(m_links.back().point, start))
            m_links.push_back({start});
        m_links.back().bulge = side * vertex.bulge;
        m_links.push_back({end});
    }
    if (m_links.size() < first + 2u)
        return true;
    const Vec start = m_links[first].point;
    if (same(m_links.back().point, start) && m_links.size() > first + 2u)
        m_links.back().point = start;
    else
        m_links.push_back({start});
    addLeaves(first, number);
    return true;
}

void PreparedRegion::addLeaves(std::uint32_t first, std::uint32_t number)
{
    const std::uint32_t last = static_cast<std::uint32_t>(m_links.size()) - 1;
    // Short contours in four leaves at least: their box would say nothing of where their sides run.
    const std::uint32_t most = std::clamp((last - first) / 4, 1u, kLeafSegments);
    for (; first < last; first += most) {
        const Leaf leaf{first, std::min(most, last - first), number};
        Box box{m_links[first].point, m_links[first].point};
        for (std::uint32_t i = first; i < first + leaf.count; ++i) {
            box.add(m_links[i + 1].point);
            if (m_links[i].bulge != 0.0)
                addArc(box, m_links[i].point, m_links[i + 1].point, m_links[i].bulge);
        }
        m_leaves.push_back(leaf);
        m_boxes.push_back(box);
    }
}

/// Brings leaves that lie close together next to one another, along a curve that fills the plane.
void PreparedRegion::sortLeaves()
{
    Box all = m_boxes[0];
    for (const Box& box : m_boxes) {
        all.add(box.min);
        all.add(box.max);
    }
    const auto cell = [](double at, double from, double to) {
        const double place = (at - from) / (to - from) * 65535.0;
        return place > 0.0 ? static_cast<std::uint32_t>(std::min(place, 65535.0)) : 0u;
    };
    struct Key {
        std::uint32_t code;
        std::uint32_t leaf;
        bool operator<(const Key& other) const { return code < other.code; }
    };
    std::vector<Key> keys;
    keys.reserve(m_leaves.size());
    for (std::uint32_t i = 0; i < m_leaves.size(); ++i) {
        const Vec c = centre(m_boxes[i]);
        keys.push_back({spread(cell(c.x, all.min.x, all.max.x)) | spread(cell(c.y, all.min.y, all.max.y)) << 1, i});
    }
    std::sort(keys.begin(), keys.end());
    std::vector<Leaf> leaves;
    std::vector<Box> boxes;
    leaves.reserve(m_leaves.size());
    boxes.reserve(m_boxes.size() * 3 / 2 + 16);
    for (const Key& key : keys) {
        leaves.push_back(m_leaves[key.leaf]);
        boxes.push_back(m_boxes[key.leaf]);
    }
    m_leaves.swap(leaves);
    m_boxes.swap(boxes);
}

void PreparedRegion::buildTree()
{
    std::uint32_t begin = 0;
    std::uint32_t count = static_cast<std::uint32_t>(m_boxes.size());
    m_levels = {0, count};
    while (count > 1) {
        for (std::uint32_t i = 0; i < count; i += kFanOut) {
            Box box = m_boxes[begin + i];
            for (std::uint32_t k = 1; k < std::min(kFanOut, count - i); ++k) {
                box.add(m_boxes[begin + i + k].min);
                box.add(m_boxes[begin + i + k].max);
            }
            m_boxes.push_back(box);
        }
        begin += count;
        count = (count + kFanOut - 1) / kFanOut;
        m_levels.push_back(begin + count);
    }
}

/// Calls `visitLeaf(leaf, box)` for every leaf whose box and the boxes above it pass `meets(box)`.
template <class Meets, class Visit>
void PreparedRegion::visit(Meets&& meets, Visit&& visitLeaf) const
{
    struct Node {
        std::uint32_t level, index;
    };
    if (m_leaves.empty())
        return;
    Node stack[64]; // sixteen levels leave three nodes each waiting
    int depth = 0;
    stack[depth++] = {static_cast<std::uint32_t>(m_levels.size()) - 2, 0};
    while (depth > 0) {
        const Node node = stack[--depth];
        const Box& box = m_boxes[m_levels[node.level] + node.index];
        if (!meets(box)) // asked late: what was visited before may have settled it
            continue;
        if (node.level == 0) {
            visitLeaf(m_leaves[node.index], box);
            continue;
        }
        const std::uint32_t count = m_levels[node.level] - m_levels[node.level - 1];
        const std::uint32_t end = std::min((node.index + 1) * kFanOut, count);
        for (std::uint32_t i = node.index * kFanOut; i < end; ++i)
            stack[depth++] = {node.level - 1, i};
    }
}

/// Calls `pass(point, positive)` for every passage of a leaf's segments through the carrier; positive tells to which
/// side.
template <class Pass>
double PreparedRegion::visitPassages(const Leaf& leaf, const Carrier& carrier, Pass&& pass) const
{
    const Link* link = &m_links[leaf.first];
    double behind = carrier(link->point);
    double nearest = std::fabs(behind);
    for (std::uint32_t i = 0; i < leaf.count; ++i, ++link) {
        const double before = behind;
        behind = carrier(link[1].point);
        nearest = std::min(nearest, std::fabs(behind));
        const bool straight = link->bulge == 0.0;
        if (straight && !carrier.bends()) {
            if ((before > 0.0) != (behind > 0.0))
                pass(link->point + (link[1].point - link->point) * (before / (before - behind)), behind > 0.0);
            continue;
        }
        const Passages found = passages(carrier, link->point, link[1].point, link->bulge, before, behind);
        for (int k = 0; k < found.count; ++k)
            pass(Arc(link->point, link[1].point, link->bulge).at(found.t[k]), (before > 0.0) == (k == 1));
    }
    return nearest;
}

/// Moves the present place over an event.
void PreparedRegion::apply(std::uint32_t contour, int step)
{
    Standing& standing = m_standing[contour];
    const auto blocks = [&] { return contour > 0 && standing.within && standing.along == 0; };
    const bool before = blocks();
    if (step == kPass)
        standing.within = !standing.within;
    else
        standing.along += step;
    m_blocked += static_cast<int>(blocks()) - static_cast<int>(before);
    if (!standing.listed)
        m_touched.push_back(contour);
    standing.listed = true;
}

void PreparedRegion::reset()
{
    for (const std::uint32_t contour : m_touched)
        m_standing[contour] = {};
    m_touched.clear();
    m_blocked = 0;
}

bool PreparedRegion::isFarOutside(Vec p) const
{
    Box box = m_boxes.back();
    box.grow(2.0 * m_tolerance);
    return !holds(box, p);
}

/// Goes to a point that lies on no boundary: from the anchor, or from the nearest side where nothing is inside.
/// @param only looks at this contour alone, and leaves the others as they stand
void PreparedRegion::goTo(Vec p, int only)
{
    if (only < 0)
        reset();
    if (isFarOutside(p))
        return;
    const Box& all = m_boxes.back();
    const double beyond = 0.01 * (all.max - all.min).abs() + 10.0 * m_tolerance;
    Vec from{all.min.x - beyond, p.y};
    for (const Vec side : {Vec{all.max.x + beyond, p.y}, Vec{p.x, all.min.y - beyond}, Vec{p.x, all.max.y + beyond}}) {
        if ((side - p).abs() < (from - p).abs())
            from = side;
    }
    if (m_anchored && (m_anchor - p).abs() < (from - p).abs()) {
        from = m_anchor;
        for (const std::uint32_t contour : m_anchorWithin) {
            if (only < 0 || contour == static_cast<std::uint32_t>(only))
                apply(contour, kPass);
        }
        if ((from - p).abs() <= m_tolerance)
            return;
    }
    const Arc way(from, p, 0.0);
    const Carrier carrier(way);
    Box around = way.box();
    around.grow(m_tolerance);
    visit([&](const Box& box) { return box.meets(around) && lineMeets(box, way, carrier, m_tolerance); },
          [&](const Leaf& leaf, const Box&) {
              if (only >= 0 && leaf.contour != static_cast<std::uint32_t>(only))
                  return;
              visitPassages(leaf, carrier, [&](Vec at, bool) {
                  const double t = (at - from).dot(way.chord());
                  if (t >= 0.0 && t <= way.chordLength() * way.chordLength())
                      apply(leaf.contour, kPass);
              });
          });
}

/// Keeps a place on no boundary, to which the present standing belongs.
void PreparedRegion::dropAnchor(Vec p)
{
    m_anchor = p;
    m_anchored = true;
    m_anchorWithin.clear();
    for (const std::uint32_t contour : m_touched) {
        if (m_standing[contour].within)
            m_anchorWithin.push_back(contour);
    }
}

/// Calls `touch(contour)` for segments on which a point lies, once for each of their leaves.
template <class Touch>
void PreparedRegion::visitTouched(Vec p, Touch&& touch) const
{
    Box around{p, p};
    around.grow(m_tolerance);
    visit([&](const Box& box) { return box.meets(around); },
          [&](const Leaf& leaf, const Box&) {
              for (std::uint32_t i = leaf.first; i < leaf.first + leaf.count; ++i) {
                  const Arc side(m_links[i].point, m_links[i + 1].point, m_links[i].bulge);
                  if (std::fabs(side.offset(p)) <= m_tolerance &&
                      (side.at(side.parameter(p)) - p).abs() <= m_tolerance) {
                      touch(leaf.contour);
                      return;
                  }
              }
          });
}

bool PreparedRegion::onBoundary(Vec p) const
{
    bool touches = false;
    visitTouched(p, [&](std::uint32_t) { touches = true; });
    return touches;
}

bool PreparedRegion::lookDown(Vec p, std::uint32_t past, std::vector<Hit>& touching, Hit& next) const
{
    touching.clear();
    next.y = -std::numeric_limits<double>::infinity();
    const Carrier column(Arc(p, p + Vec{0.0, 1.0}, 0.0));
    visit(
        [&](const Box& box) {
            return box.min.x <= p.x && p.x <= box.max.x && box.min.y <= p.y + m_tolerance && box.max.y >= next.y;
        },
        [&](const Leaf& leaf, const Box&) {
            if (leaf.contour == past)
                return;
            visitPassages(leaf, column, [&](Vec at, bool rightwards) {
                const Hit hit{at.y, leaf.contour, rightwards};
                if (std::fabs(at.y - p.y) <= m_tolerance)
                    touching.push_back(hit);
                else if (at.y < p.y && at.y > next.y)
                    next = hit;
            });
        });
    return std::isfinite(next.y);
}

bool PreparedRegion::inside(Vec p)
{
    if (m_leaves.empty() || !std::isfinite(p.x + p.y))
        return false;
    goTo(p);
    bool touches = false;
    visitTouched(p, [&](std::uint32_t contour) {
        apply(contour, 1);
        touches = true;
    });
    if (!touches)
        dropAnchor(p);
    return isInside();
}

void PreparedRegion::addStretches(const Arc& segment, const Leaf& leaf, const Carrier& carrier)
{
    const double near = m_tolerance * segment.chordLength();
    double behind = std::fabs(carrier(m_links[leaf.first].point));
    for (std::uint32_t i = leaf.first; i < leaf.first + leaf.count; ++i) {
        const double before = behind;
        behind = std::fabs(carrier(m_links[i + 1].point));
        const Vec from = m_links[i].point, to = m_links[i + 1].point;
        if (before > near && behind > near) {
            Box box{from, from};
            box.add(to);
            box.grow(m_tolerance);
            if (m_links[i].bulge == 0.0 &&
                !(box.meets({segment.start(), segment.start()}) && box.meets({segment.end(), segment.end()})))
                continue;
            const Arc side(from, to, m_links[i].bulge);
            if (std::fabs(side.offset(segment.start())) > m_tolerance ||
                std::fabs(side.offset(segment.end())) > m_tolerance)
                continue;
        }
        const Meetings found = meet(segment, Arc(from, to, m_links[i].bulge), m_tolerance);
        for (int k = 0; k + 1 < found.count; ++k) {
            if (!found.along[k])
                continue;
            m_events.push_back({found.points[k].a, leaf.contour, 1});
            m_events.push_back({found.points[k + 1].a, leaf.contour, -1});
        }
    }
}

/// Collects what happens along a segment, in order.
void PreparedRegion::gather(const Arc& segment)
{
    m_events.clear();
    const Carrier carrier(segment);
    Box around = segment.box();
    around.grow(m_tolerance);
    const bool line = !segment.isArc();
    const bool bent = std::fabs(segment.sweep()) > kBent;
    const Vec middle = bent ? segment.centre() : Vec();
    const double radius = bent ? segment.radius() : 0.0;
    const double near = m_tolerance * segment.chordLength();
    visit(
        [&](const Box& box) {
            return box.meets(around) && (!line || lineMeets(box, segment, carrier, m_tolerance)) &&
                   (!bent || circleMeets(box, middle, radius, m_tolerance));
        },
        [&](const Leaf& leaf, Box box) {
            const double nearest = visitPassages(leaf, carrier, [&](Vec at, bool) {
                const double t = segment.freeParameter(at);
                if (t >= 0.0 && t <= 1.0)
                    m_events.push_back({t, leaf.contour, kPass});
            });
            // A stretch in common ends where one of the two segments ends, so an end of one lies on the other.
            box.grow(m_tolerance);
            if (nearest <= near || (holds(box, segment.start()) && holds(box, segment.end())))
                addStretches(segment, leaf, carrier);
        });
    std::sort(m_events.begin(), m_events.end(), [](const Event& a, const Event& b) { return a.t < b.t; });
}

/// The longest piece between events that runs along no boundary, or not along that of one contour; empty without any.
Span PreparedRegion::longestFree(int contour) const
{
    Span best{0.0, 0.0};
    double from = 0.0;
    int along = 0;
    const auto piece = [&](double to) {
        if (along == 0 && to - from > best.to - best.from)
            best = {from, to};
        from = to;
    };
    for (const Event& event : m_events) {
        piece(event.t);
        if (contour < 0 || event.contour == static_cast<std::uint32_t>(contour))
            along += event.step;
    }
    piece(1.0);
    return best;
}

/// A place of the segment in a free piece of it that does not just touch a boundary.
double PreparedRegion::placeIn(const Span& free, const Arc& segment) const
{
    double place = 0.0;
    for (const double part : {0.5, 0.31, 0.73, 0.17, 0.87}) {
        place = free.from + part * (free.to - free.from);
        if (!onBoundary(segment.at(place)))
            break;
    }
    return place;
}

/// Brings the standing to the start of a segment, from a place of it that lies on no boundary. The passages between the
/// two are the events themselves, so that rounding at the start cannot turn the rest over.
void PreparedRegion::findStart(const Arc& segment)
{
    if (isFarOutside(segment.start())) {
        reset();
        return;
    }
    const auto goBack = [&](double from, int contour) {
        for (const Event& event : m_events) {
            if (event.step == kPass && event.t < from &&
                (contour < 0 || event.contour == static_cast<std::uint32_t>(contour)))
                apply(event.contour, kPass);
        }
    };
    const Span free = longestFree(-1);
    if (free.to > free.from) {
        const double place = placeIn(free, segment);
        goTo(segment.at(place));
        dropAnchor(segment.at(place));
        goBack(place, -1);
        return;
    }
    // It runs along one boundary or another throughout: each contour is judged where it is not that one.
    goTo(segment.at(0.5));
    std::vector<std::uint32_t> contours;
    for (const Event& event : m_events)
        contours.push_back(event.contour);
    std::sort(contours.begin(), contours.end());
    contours.erase(std::unique(contours.begin(), contours.end()), contours.end());
    for (const std::uint32_t contour : contours) {
        if (m_standing[contour].within)
            apply(contour, kPass);
        const Span own = longestFree(static_cast<int>(contour));
        if (own.to > own.from) {
            const double place = 0.5 * (own.from + own.to);
            goTo(segment.at(place), static_cast<int>(contour));
            goBack(place, static_cast<int>(contour));
        }
    }
}

/// Walks the events from the start and collects what is inside.
void PreparedRegion::sweep(double length)
{
    const double least = m_tolerance / length;
    double from = 0.0;
    bool open = false;
    bool judged = false;
    const auto piece = [&](double to) {
        if (to - from > least) {
            const bool in = isInside();
            if (in && !open)
                m_spans.push_back({judged ? from : 0.0, 1.0});
            else if (!in && open)
                m_spans.back().to = from;
            open = in;
            judged = true;
        }
        from = to;
    };
    for (const Event& event : m_events) {
        piece(event.t);
        apply(event.contour, event.step);
    }
    piece(1.0);
}

const std::vector<Span>& PreparedRegion::spans(const Arc& segment)
{
    m_spans.clear();
    if (m_leaves.empty() || !std::isfinite(segment.length()))
        return m_spans;
    if (!(segment.length() > 2.0 * m_tolerance)) {
        if (inside(segment.at(0.5)))
            m_spans.push_back({0.0, 1.0});
        return m_spans;
    }
    gather(segment);
    findStart(segment);
    sweep(segment.length());
    return m_spans;
}

} // namespace VEK::plane
