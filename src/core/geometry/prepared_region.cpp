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

bool isFinite(const CVekVertex& vertex)
{
    return std::isfinite(vertex.start[0] + vertex.start[1] + vertex.end[0] + vertex.end[1] + vertex.bulge);
}

/// Spreads 16 bits to the even places of 32.
std::uint32_t spread(std::uint32_t bits)
{
    bits = (bits | bits << 8) & 0x00ff00ffu;
    bits = (bits | bits << 4) & 0x0f0f0f0fu;
    bits = (bits | bits << 2) & 0x33333333u;
    return (bits | bits << 1) & 0x55555555u;
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
    for (const CVekVertex& vertex : contour) {
        if (!isFinite(vertex))
            return false;
        const Arc arc = flatArc(vertex, contour.normal());
        if (arc.isPoint())
            continue;
        if (m_links.size() == first)
            m_links.push_back({arc.start()});
        else if (!same(m_links.back().point, arc.start()))
            m_links.push_back({arc.start()});
        m_links.back().bulge = arc.isArc() ? (contour.normal()[2] < 0.0 ? -vertex.bulge : vertex.bulge) : 0.0;
        m_links.push_back({arc.end()});
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
    for (; first < last; first += kLeafSegments) {
        const Leaf leaf{first, std::min(kLeafSegments, last - first), number};
        Box box{m_links[first].point, m_links[first].point};
        for (std::uint32_t i = first; i < first + leaf.count; ++i) {
            box.add(m_links[i + 1].point);
            if (m_links[i].bulge != 0.0) {
                const Box arc = Arc(m_links[i].point, m_links[i + 1].point, m_links[i].bulge).box();
                box.add(arc.min);
                box.add(arc.max);
            }
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

/// Calls `visitLeaf(leaf)` for every leaf whose box and the boxes above it pass `meets(box)`.
template <class Meets, class Visit>
void PreparedRegion::visit(Meets&& meets, Visit&& visitLeaf) const
{
    struct Node {
        std::uint32_t level, index;
    };
    if (m_leaves.empty() || !meets(m_boxes.back()))
        return;
    Node stack[64]; // sixteen levels leave three nodes each waiting
    int depth = 0;
    stack[depth++] = {static_cast<std::uint32_t>(m_levels.size()) - 2, 0};
    while (depth > 0) {
        const Node node = stack[--depth];
        if (node.level == 0) {
            visitLeaf(m_leaves[node.index]);
            continue;
        }
        const std::uint32_t below = m_levels[node.level - 1];
        const std::uint32_t end = std::min((node.index + 1) * kFanOut, m_levels[node.level] - below);
        for (std::uint32_t i = node.index * kFanOut; i < end; ++i) {
            if (meets(m_boxes[below + i]))
                stack[depth++] = {node.level - 1, i};
        }
    }
}

/// Calls `pass(point, positive)` for every passage of a leaf's segments through the carrier; positive tells to which
/// side.
template <class Pass>
void PreparedRegion::visitPassages(const Leaf& leaf, const Carrier& carrier, Pass&& pass) const
{
    const Link* link = &m_links[leaf.first];
    double behind = carrier(link->point);
    for (std::uint32_t i = 0; i < leaf.count; ++i, ++link) {
        const double before = behind;
        behind = carrier(link[1].point);
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
    m_touched.push_back(contour);
}

void PreparedRegion::reset()
{
    for (const std::uint32_t contour : m_touched)
        m_standing[contour] = {};
    m_touched.clear();
    m_blocked = 0;
}

/// Goes from where nothing is inside to a point, along a parallel to the x axis.
/// @param only looks at this contour alone
void PreparedRegion::cast(Vec p, int only)
{
    const Carrier row(Arc(p, p + Vec{1.0, 0.0}, 0.0));
    visit([&](const Box& box) { return box.min.y <= p.y && p.y <= box.max.y && p.x <= box.max.x; },
          [&](const Leaf& leaf) {
              if (only >= 0 && leaf.contour != static_cast<std::uint32_t>(only))
                  return;
              visitPassages(leaf, row, [&](Vec at, bool) {
                  if (at.x > p.x)
                      apply(leaf.contour, kPass);
              });
          });
}

/// Calls `touch(contour)` for segments on which a point lies, once for each of their leaves.
template <class Touch>
void PreparedRegion::visitTouched(Vec p, Touch&& touch) const
{
    visit(
        [&](const Box& box) {
            return box.min.x - m_tolerance <= p.x && p.x <= box.max.x + m_tolerance && box.min.y - m_tolerance <= p.y &&
                   p.y <= box.max.y + m_tolerance;
        },
        [&](const Leaf& leaf) {
            for (std::uint32_t i = leaf.first; i < leaf.first + leaf.count; ++i) {
                const Arc side(m_links[i].point, m_links[i + 1].point, m_links[i].bulge);
                if (std::fabs(side.offset(p)) <= m_tolerance && (side.at(side.parameter(p)) - p).abs() <= m_tolerance) {
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
        [&](const Leaf& leaf) {
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
    reset();
    if (m_leaves.empty() || !std::isfinite(p.x + p.y))
        return false;
    cast(p);
    visitTouched(p, [&](std::uint32_t contour) { apply(contour, 1); });
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
        // A stretch ends where one of the two segments ends, so an end of one lies on the other.
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

/// Collects what happens along a straight segment, and brings the standing to its start: by the passages of the whole
/// line on one side of it.
void PreparedRegion::gatherLine(const Arc& line)
{
    const Carrier carrier(line);
    const Vec start = line.start(), chord = line.chord();
    const double length = line.chordLength();
    const double scale = 1.0 / (length * length);
    const bool forward = (centre(m_boxes.back()) - (start + line.end()) * 0.5).dot(chord) < 0.0;
    const double slack = m_tolerance * length;
    visit(
        [&](const Box& box) {
            const Vec c = centre(box), e = extent(box);
            if (std::fabs(carrier(c)) > std::fabs(chord.y) * e.x + std::fabs(chord.x) * e.y + slack)
                return false;
            const double along = (c - start).dot(chord);
            const double reach = std::fabs(chord.x) * e.x + std::fabs(chord.y) * e.y + slack;
            return forward ? along + reach >= 0.0 : along - reach <= length * length;
        },
        [&](const Leaf& leaf) {
            visitPassages(leaf, carrier, [&](Vec at, bool) {
                const double t = (at - start).dot(chord) * scale;
                if (forward ? t >= 0.0 : t < 0.0)
                    apply(leaf.contour, kPass);
                if (t >= 0.0 && t <= 1.0)
                    m_events.push_back({t, leaf.contour, kPass});
            });
            addStretches(line, leaf, carrier);
        });
    std::sort(m_events.begin(), m_events.end(), [](const Event& a, const Event& b) { return a.t < b.t; });
}

/// The same for an arc. Its circle leads to no place where nothing is inside, so the standing comes from a point of it
/// that lies well away from all boundaries.
void PreparedRegion::gatherArc(const Arc& arc)
{
    const Carrier carrier(arc);
    Box around = arc.box();
    around.grow(m_tolerance);
    const bool bent = std::fabs(arc.sweep()) > kBent;
    const Vec middle = bent ? arc.centre() : Vec();
    const double radius = arc.radius();
    visit([&](const Box& box) { return box.meets(around) && (!bent || circleMeets(box, middle, radius, m_tolerance)); },
          [&](const Leaf& leaf) {
              visitPassages(leaf, carrier, [&](Vec at, bool) {
                  const double t = arc.freeParameter(at);
                  if (t >= 0.0 && t <= 1.0)
                      m_events.push_back({t, leaf.contour, kPass});
              });
              addStretches(arc, leaf, carrier);
          });
    std::sort(m_events.begin(), m_events.end(), [](const Event& a, const Event& b) { return a.t < b.t; });
    findStart(arc);
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

/// A place of the arc in a free piece of it that does not just touch a boundary.
double PreparedRegion::placeIn(const Span& free, const Arc& arc) const
{
    double place = 0.0;
    for (const double part : {0.5, 0.31, 0.73, 0.17, 0.87}) {
        place = free.from + part * (free.to - free.from);
        if (!onBoundary(arc.at(place)))
            break;
    }
    return place;
}

void PreparedRegion::findStart(const Arc& arc)
{
    const auto goBack = [&](double from, int contour) {
        for (const Event& event : m_events) {
            if (event.step == kPass && event.t < from &&
                (contour < 0 || event.contour == static_cast<std::uint32_t>(contour)))
                apply(event.contour, kPass);
        }
    };
    const Span free = longestFree(-1);
    if (free.to > free.from) {
        const double place = placeIn(free, arc);
        cast(arc.at(place));
        goBack(place, -1);
        return;
    }
    // It runs along one boundary or another throughout: each contour is judged where it is not that one.
    cast(arc.at(0.5));
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
            cast(arc.at(place), static_cast<int>(contour));
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
    m_events.clear();
    if (m_leaves.empty() || !std::isfinite(segment.length()))
        return m_spans;
    if (!(segment.length() > 2.0 * m_tolerance)) {
        if (inside(segment.at(0.5)))
            m_spans.push_back({0.0, 1.0});
        return m_spans;
    }
    reset();
    if (segment.isArc())
        gatherArc(segment);
    else
        gatherLine(segment);
    sweep(segment.length());
    return m_spans;
}

} // namespace VEK::plane
