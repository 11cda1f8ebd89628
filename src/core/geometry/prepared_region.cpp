#include "core/geometry/prepared_region.h"

#include "core/values/intersect.h"

namespace VEK::plane
{
namespace
{

/// Sweep above which the centre of an arc is near enough to classify points by their distance from it.
constexpr double kBent = 0.5;

/// Whether a circle passes through a box.
bool circleMeets(const Box& box, Vec middle, double radius, double tolerance)
{
    const Vec c = box.centre() - middle, e = box.extent();
    const Vec near{std::max(0.0, std::fabs(c.x) - e.x), std::max(0.0, std::fabs(c.y) - e.y)};
    const Vec far{std::fabs(c.x) + e.x, std::fabs(c.y) + e.y};
    return near.abs() <= radius + tolerance && far.abs() >= radius - tolerance;
}

} // namespace

PreparedRegion::PreparedRegion(const CVekVertexArray* contours, int count)
    : m_contours(contours, count), m_standing(static_cast<std::size_t>(std::max(1, count))),
      m_isSetAside(static_cast<std::size_t>(std::max(1, count)))
{
}

bool PreparedRegion::isFarOutside(Vec p) const
{
    Box box = m_contours.box();
    box.grow(2.0 * m_contours.tolerance());
    return !box.holds(p);
}

/// The contours on which a point lies.
void PreparedRegion::findTouched(Vec p, std::vector<std::uint32_t>& touched) const
{
    touched.clear();
    m_contours.visitTouched(p, [&](std::uint32_t contour) { touched.push_back(contour); });
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
}

/// Updates the standing of the contours that a point is not on, from outside to that point: from the known place, or
/// from the nearest side where nothing is inside.
void PreparedRegion::goTo(Vec p, Walk walk)
{
    if (isFarOutside(p))
        return;
    const double tolerance = m_contours.tolerance();
    const Box& all = m_contours.box();
    const double beyond = 0.01 * (all.max - all.min).abs() + 10.0 * tolerance;
    Vec from{all.min.x - beyond, p.y};
    for (const Vec side : {Vec{all.max.x + beyond, p.y}, Vec{p.x, all.min.y - beyond}, Vec{p.x, all.max.y + beyond}}) {
        if ((side - p).abs() < (from - p).abs())
            from = side;
    }
    if (m_isKnown && (m_known - p).abs() < (from - p).abs()) {
        from = m_known;
        for (const std::uint32_t contour : m_knownWithin) {
            if (takesPart(contour, walk))
                m_standing.apply(contour, Standing::kPass);
        }
        if ((from - p).abs() <= tolerance)
            return;
    }
    const Arc way(from, p, 0.0);
    const Carrier carrier(way);
    const SegmentReach reach(from, p, tolerance);
    m_contours.visit([&](const Box& box) { return reach.meets(box); },
                     [&](const ContourTree::Leaf& leaf, const Box&) {
                         if (!takesPart(leaf.contour, walk))
                             return;
                         m_contours.visitPassages(leaf, carrier, [&](Vec at, bool) {
                             const double t = (at - from).dot(way.chord());
                             if (t >= 0.0 && t <= way.chordLength() * way.chordLength())
                                 m_standing.apply(leaf.contour, Standing::kPass);
                         });
                     });
}

/// Remembers a place on no boundary, to which the current standing belongs.
void PreparedRegion::keepKnown(Vec p)
{
    m_known = p;
    m_isKnown = true;
    m_knownWithin.clear();
    for (const std::uint32_t contour : m_standing.touched()) {
        if (m_standing.isWithin(contour))
            m_knownWithin.push_back(contour);
    }
}

bool PreparedRegion::inside(Vec p)
{
    if (!m_contours.hasOuter() || !std::isfinite(p.x + p.y))
        return false;
    m_standing.reset();
    goTo(p, Walk::others);
    findTouched(p, m_touched);
    for (const std::uint32_t contour : m_touched)
        m_standing.apply(contour, 1);
    if (m_touched.empty())
        keepKnown(p);
    return m_standing.isInside();
}

void PreparedRegion::addStretches(const Arc& segment, const ContourTree::Leaf& leaf, const Carrier& carrier)
{
    const double tolerance = m_contours.tolerance();
    const double near = tolerance * segment.chordLength();
    double behind = std::fabs(carrier(m_contours.start(leaf.first)));
    for (std::uint32_t i = leaf.first; i < leaf.first + leaf.count; ++i) {
        const double before = behind;
        const Vec from = m_contours.start(i), to = m_contours.start(i + 1);
        behind = std::fabs(carrier(to));
        if (before > near && behind > near) {
            Box box{from, from};
            box.add(to);
            box.grow(tolerance);
            if (m_contours.isStraight(i) && !(box.holds(segment.start()) && box.holds(segment.end())))
                continue;
            const Arc side = m_contours.side(i);
            if (std::fabs(side.offset(segment.start())) > tolerance ||
                std::fabs(side.offset(segment.end())) > tolerance)
                continue;
        }
        const Meetings found = meet(segment, m_contours.side(i), tolerance);
        for (int k = 0; k + 1 < found.count; ++k) {
            if (!found.along[k])
                continue;
            m_events.push_back({found.points[k].a, leaf.contour, 1});
            m_events.push_back({found.points[k + 1].a, leaf.contour, -1});
        }
    }
}

/// Collects the events along a segment, in order.
void PreparedRegion::gather(const Arc& segment)
{
    m_events.clear();
    const double tolerance = m_contours.tolerance();
    const Carrier carrier(segment);
    Box around = segment.box();
    around.grow(tolerance);
    const SegmentReach chord(segment.start(), segment.end(), tolerance);
    const bool line = !segment.isArc();
    const bool bent = std::fabs(segment.sweep()) > kBent;
    const Vec middle = bent ? segment.centre() : Vec();
    const double radius = bent ? segment.radius() : 0.0;
    const double near = tolerance * segment.chordLength();
    m_contours.visit(
        [&](const Box& box) {
            return box.meets(around) && (!line || chord.lineMeets(box)) &&
                   (!bent || circleMeets(box, middle, radius, tolerance));
        },
        [&](const ContourTree::Leaf& leaf, Box box) {
            const double nearest = m_contours.visitPassages(leaf, carrier, [&](Vec at, bool) {
                const double t = segment.freeParameter(at);
                if (t >= 0.0 && t <= 1.0)
                    m_events.push_back({t, leaf.contour, Standing::kPass});
            });
            // A common stretch ends where one of the two segments ends, so an end of one lies on the other.
            box.grow(tolerance);
            if (nearest <= near || (box.holds(segment.start()) && box.holds(segment.end())))
                addStretches(segment, leaf, carrier);
        });
    std::sort(m_events.begin(), m_events.end(), [](const Event& a, const Event& b) { return a.t < b.t; });
}

/// The longest piece between events that runs along no boundary, or not along that of one contour; empty if none.
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
        if (contour != kAnyContour && event.contour != static_cast<std::uint32_t>(contour))
            continue;
        piece(event.t);
        along += event.step;
    }
    piece(1.0);
    return best;
}

/// A place within a free piece of the segment that a contour does not touch; `m_touched` receives the contours that it
/// lies on.
double PreparedRegion::placeOff(const Arc& segment, std::uint32_t contour, const Span& free)
{
    // Touches are isolated or evenly spaced; steps by the golden section avoid both.
    constexpr double kGolden = 0.6180339887498949;
    constexpr int kTries = 64;
    double part = 0.5;
    for (int i = 0; i < kTries; ++i) {
        findTouched(segment.at(free.from + part * (free.to - free.from)), m_touched);
        if (!std::binary_search(m_touched.begin(), m_touched.end(), contour))
            break;
        part = std::fmod(part + kGolden, 1.0);
    }
    return free.from + part * (free.to - free.from);
}

/// Updates the standing of contours to the start of a segment, from a place on it that is not on them. The crossings
/// between the two are the events themselves, so that rounding at the start cannot invert the rest.
void PreparedRegion::judge(const Arc& segment, double place, Walk walk)
{
    const Vec p = segment.at(place);
    goTo(p, walk);
    if (walk == Walk::others && m_open.empty())
        keepKnown(p);
    for (const Event& event : m_events) {
        if (event.t >= place)
            break;
        if (event.step == Standing::kPass && takesPart(event.contour, walk))
            m_standing.apply(event.contour, Standing::kPass);
    }
}

/// Updates the standing to the start of a segment. A contour is classified from a place that it does not touch, almost
/// always the same one for all contours.
void PreparedRegion::findStart(const Arc& segment)
{
    m_standing.reset();
    if (isFarOutside(segment.start()))
        return;
    const Span free = longestFree(kAnyContour);
    const double first = free.to > free.from ? 0.5 * (free.from + free.to) : 0.5;
    findTouched(segment.at(first), m_open);
    for (const std::uint32_t contour : m_open)
        m_isSetAside[contour] = 1;
    judge(segment, first, Walk::others);
    for (const std::uint32_t contour : m_open)
        m_isSetAside[contour] = 0;

    while (!m_open.empty()) {
        const std::uint32_t contour = m_open.back();
        m_open.pop_back();
        const Span own = longestFree(static_cast<int>(contour));
        if (!(own.to > own.from)) // it runs along the whole segment, which is all that matters
            continue;
        const double place = placeOff(segment, contour, own);
        const auto stays = std::partition(m_open.begin(), m_open.end(), [&](std::uint32_t other) {
            return std::binary_search(m_touched.begin(), m_touched.end(), other);
        });
        const auto mark = [&](char isSetAside) {
            m_isSetAside[contour] = isSetAside;
            std::for_each(stays, m_open.end(), [&](std::uint32_t other) { m_isSetAside[other] = isSetAside; });
        };
        mark(1);
        judge(segment, place, Walk::setAside);
        mark(0);
        m_open.erase(stays, m_open.end());
    }
}

/// Walks the events from the start and collects the inside stretches.
void PreparedRegion::sweep(double length)
{
    const double least = m_contours.tolerance() / length;
    double from = 0.0;
    bool open = false;
    bool judged = false;
    const auto piece = [&](double to) {
        if (to - from > least) {
            const bool in = m_standing.isInside();
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
        m_standing.apply(event.contour, event.step);
    }
    piece(1.0);
}

const std::vector<Span>& PreparedRegion::spans(const Arc& segment)
{
    m_spans.clear();
    if (!m_contours.hasOuter() || !std::isfinite(segment.length()))
        return m_spans;
    if (!(segment.length() > 2.0 * m_contours.tolerance())) {
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
