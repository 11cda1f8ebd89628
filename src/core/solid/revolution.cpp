/// Bodies of revolution.
#include "core/solid/body.h"

#include <vek/values/tolerance.h>

namespace VEK::solids
{
namespace
{

using plane::Link;
using plane::Vec;

/// A contour whose arcs are replaced by chords at their regular places.
struct Chain {
    std::vector<Vec> points;       ///< the first one is repeated at the end
    std::vector<Id> arcs;          ///< for each chord the number of its arc, or none
    std::vector<Vec> leave, reach; ///< directions at the ends of each chord, those of the arc
};

Chain chainOf(const Link* links, std::size_t sides)
{
    Chain chain;
    for (std::size_t i = 0; i < sides; ++i) {
        const Link &a = links[i], &b = links[i + 1];
        const auto add = [&](Vec p, Vec leave, Vec reach, bool arc) {
            chain.points.push_back(p);
            chain.leave.push_back(leave);
            chain.reach.push_back(reach);
            chain.arcs.push_back(arc ? static_cast<Id>(i) : kNone);
        };
        if (!plane::Arc(a.point, b.point, a.bulge).isArc()) {
            add(a.point, leaving(a, b), reaching(a, b), false);
            continue;
        }
        const Bow bow = bowOf(a, b);
        std::vector<double> places;
        forEachPlace({}, std::min(bow.from, bow.from + bow.sweep), std::max(bow.from, bow.from + bow.sweep),
                     [&](double t) { places.push_back(t); });
        if (bow.sweep < 0.0)
            std::reverse(places.begin(), places.end());
        const double sense = bow.sweep < 0.0 ? -1.0 : 1.0;
        const auto along = [&](double t) { return Vec{-std::sin(t), std::cos(t)} * sense; };
        for (std::size_t k = 0; k + 1 < places.size(); ++k) {
            const Vec p = k == 0 ? a.point : bow.centre + Vec{std::cos(places[k]), std::sin(places[k])} * bow.radius;
            add(p, along(places[k]), along(places[k + 1]), true);
        }
    }
    chain.points.push_back(chain.points.front());
    return chain;
}

class Lathe
{
public:
    Lathe(Body& body, double from, double to, bool full) : m_body(body), m_from(from), m_to(to), m_full(full)
    {
        m_body.turns.emplace_back();
        if (!m_full)
            m_body.faces.resize(2); // the ends
        for (int end = 0; end < 2 && !m_full; ++end) {
            const double t = end == 0 ? m_from : m_to;
            m_body.faces[static_cast<std::size_t>(end)].p = {std::cos(t), std::sin(t), 0.0};
            m_body.faces[static_cast<std::size_t>(end)].q = {0.0, 0.0, 1.0};
        }
    }

    void addContour(const Link* links, std::size_t sides)
    {
        const Chain chain = chainOf(links, sides);
        const std::size_t count = chain.points.size() - 1;
        std::vector<Id> faces(count);
        for (std::size_t i = 0; i < count; ++i)
            faces[i] = addFace(chain.points[i], chain.points[i + 1], chain.arcs[i] != kNone);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t before = (i + count - 1) % count;
            const Vec in = chain.reach[before], out = chain.leave[i];
            const bool smooth = std::fabs(in.cross(out)) < kSmooth && in.dot(out) > 0.0;
            addParallel(chain.points[i], faces[before], faces[i], smooth);
        }
        if (!m_full)
            addEnds(links, chain, faces);
    }

private:
    static bool onAxis(Vec p) { return p.x <= kPointTol; }

    Curve parallel(Vec p) const { return {{0.0, 0.0, p.y}, {p.x, 0.0, 0.0}, {0.0, p.x, 0.0}, false}; }

    Id addFace(Vec a, Vec b, bool fine)
    {
        if (onAxis(a) && onAxis(b))
            return kNone;
        Face face;
        if (std::fabs(b.y - a.y) <= kPointTol) { // its boundary is the two parallels
            face.p = {1.0, 0.0, 0.0};
            face.q = {0.0, b.x > a.x ? -1.0 : 1.0, 0.0};
        } else {
            face.band = true;
            face.low = parallel(a);
            face.high = parallel(b);
            face.from = m_from;
            face.to = m_to;
            face.turn = 0;
            face.whole = m_full;
            face.cone = std::fabs(b.x - a.x) > 0.0;
            face.fine = fine;
        }
        m_body.faces.push_back(face);
        return static_cast<Id>(m_body.faces.size() - 1);
    }

    void addParallel(Vec p, Id before, Id behind, bool smooth)
    {
        if (onAxis(p) || (before == kNone && behind == kNone))
            return;
        Edge edge;
        edge.curve = parallel(p);
        edge.from = m_from;
        edge.to = m_to;
        edge.turn = 0;
        edge.faces[0] = before;
        edge.faces[1] = behind;
        edge.role = smooth ? Role::smooth : Role::edge;
        m_body.edges.push_back(edge);
    }

    /// The edges of the end faces: lines, and the arcs of the contour.
    void addEnds(const Link* links, const Chain& chain, const std::vector<Id>& faces)
    {
        for (int end = 0; end < 2; ++end) {
            const double t = end == 0 ? m_from : m_to;
            const Vec3 x{std::cos(t), std::sin(t), 0.0};
            const auto at = [&](Vec p) { return x * p.x + Vec3{0.0, 0.0, p.y}; };
            for (std::size_t i = 0; i + 1 < chain.points.size(); ++i) {
                if (chain.arcs[i] != kNone && i > 0 && chain.arcs[i] == chain.arcs[i - 1])
                    continue; // the whole arc is one edge
                const Id own = chain.arcs[i];
                Edge edge;
                edge.faces[0] = static_cast<Id>(end);
                edge.faces[1] = faces[i];
                if (own == kNone) {
                    edge.curve = lineThrough(at(chain.points[i]), at(chain.points[i + 1]));
                } else {
                    const Bow bow = bowOf(links[own], links[own + 1]);
                    edge.curve = {at(bow.centre), x * bow.radius, {0.0, 0.0, bow.radius}, false};
                    edge.from = std::min(bow.from, bow.from + bow.sweep);
                    edge.to = std::max(bow.from, bow.from + bow.sweep);
                    edge.turn = static_cast<Id>(m_body.turns.size());
                    m_body.turns.emplace_back();
                }
                m_body.edges.push_back(edge);
            }
        }
    }

    Body& m_body;
    double m_from;
    double m_to;
    bool m_full;
};

} // namespace

bool makeRevolved(Body& body, const Section& section, double from, double angle)
{
    if (!(std::fabs(from) <= 1e6) || !(std::fabs(angle) > kAngleTol))
        return false;
    const bool full = std::fabs(angle) >= kFullTurn - kAngleTol;
    for (std::size_t c = 0; c + 1 < section.begins.size(); ++c) {
        for (std::size_t i = section.begins[c]; i + 1 < section.begins[c + 1]; ++i) {
            const Link &a = section.links[i], &b = section.links[i + 1];
            if (plane::Arc(a.point, b.point, a.bulge).box().min.x < -kPointTol)
                return false;
        }
    }
    const double first = full ? 0.0 : std::min(from, from + angle);
    Lathe lathe(body, first, full ? kFullTurn : first + std::fabs(angle), full);
    for (std::size_t c = 0; c + 1 < section.begins.size(); ++c) {
        const std::size_t begin = section.begins[c], end = section.begins[c + 1];
        if (end > begin + 1)
            lathe.addContour(&section.links[begin], end - begin - 1);
    }
    return true;
}

} // namespace VEK::solids
