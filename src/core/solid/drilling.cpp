/// Round holes.
///
/// Every edge loses what is inside the cylinder of the hole. At each place round the cylinder its generator enters and
/// leaves the body through faces: there run the rims, and between them the wall. Which faces these are changes only
/// where an edge of the body passes through the cylinder.
#include "core/solid/hole_view.h"

#include <algorithm>

namespace VEK::solids
{
namespace
{

constexpr double kTol = kPointTol;

class Drilling
{
public:
    Drilling(Body& body, const Hole& hole) : m_body(body), m_hole(hole), m_view(body, hole) {}

    bool run()
    {
        if (!m_view.read())
            return false;
        std::vector<Edge> kept;
        bool changed = cutEdges(kept);
        m_turn = static_cast<Id>(m_body.turns.size());
        m_body.turns.emplace_back();
        addWall();
        addUprights();
        addChords();
        cutRoundWalls(kept);
        changed = changed || !m_new.empty();
        m_body.edges = std::move(kept);
        m_body.edges.insert(m_body.edges.end(), m_new.begin(), m_new.end());
        return changed;
    }

private:
    bool cutEdges(std::vector<Edge>& kept)
    {
        bool changed = false;
        std::vector<double> cuts;
        for (Id e = 0; e < m_view.edges().size(); ++e) {
            const HoleView::Local& edge = m_view.edges()[e];
            const Curve& c = edge.curve;
            cuts.assign(1, edge.from);
            m_view.crossings(c, edge.from, edge.to, cuts);
            for (std::size_t i = 1; i < cuts.size(); ++i) {
                const Vec3 p = c.at(cuts[i]);
                m_breaks.push_back(turned(std::atan2(p.y, p.x)));
            }
            for (const double z : {m_view.begin(), m_view.bottom()}) {
                const auto add = [&](double t) {
                    if (t > edge.from + kAngleTol && t < edge.to - kAngleTol)
                        cuts.push_back(t);
                };
                if (m_view.isThrough())
                    break;
                if (!c.straight)
                    forEachRoot(c.centre.z - z, c.u.z, c.v.z, edge.from, edge.to, add);
                else if (c.u.z != 0.0)
                    add((z - c.centre.z) / c.u.z);
            }
            cuts.push_back(edge.to);
            std::sort(cuts.begin(), cuts.end());
            bool open = false; // whether the last kept piece ends where the next one begins
            for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
                const bool stays = !m_view.isTaken(c.at(0.5 * (cuts[i] + cuts[i + 1])));
                changed = changed || !stays;
                if (stays && open) {
                    kept.back().to = cuts[i + 1];
                } else if (stays) {
                    kept.push_back(m_body.edges[e]);
                    kept.back().from = cuts[i];
                    kept.back().to = cuts[i + 1];
                }
                if (stays != open && i > 0 && m_body.edges[e].turn != kNone)
                    stop(m_body.edges[e].turn, cuts[i]);
                open = stays;
            }
        }
        return changed;
    }

    void stop(Id turn, double t)
    {
        std::vector<double>& stops = m_body.turns[turn].stops;
        const double place = turned(t);
        stops.insert(std::upper_bound(stops.begin(), stops.end(), place), place);
    }

    Id cap(double z) ///< the face at the begin or the bottom
    {
        Id& face = z == m_view.begin() ? m_beginFace : m_bottomFace;
        if (face == kNone) {
            face = static_cast<Id>(m_body.faces.size());
            Face& added = m_body.faces.emplace_back();
            added.p = m_hole.x;
            added.q = m_hole.y;
        }
        return face;
    }

    void addWall()
    {
        // A slanting face may leave the hole's length where no edge passes.
        for (const HoleView::Crossed& c : m_view.crossed()) {
            for (const double z : {m_view.begin(), m_view.bottom()}) {
                const double r = m_hole.radius;
                if (!m_view.isThrough())
                    forEachRoot(c.at - z, r * c.gx, r * c.gy, 0.0, kFullTurn,
                                [&](double t) { m_breaks.push_back(turned(t)); });
            }
        }
        for (const HoleView::Wall& wall : m_view.walls()) {
            m_breaks.push_back(turned(wall.angle - wall.half));
            m_breaks.push_back(turned(wall.angle + wall.half));
        }
        std::sort(m_breaks.begin(), m_breaks.end());
        std::vector<double> places;
        for (const double t : m_breaks) {
            if (places.empty() || t - places.back() > kAngleTol)
                places.push_back(t);
        }
        if (places.size() > 1 && places.front() + kFullTurn - places.back() <= kAngleTol)
            places.pop_back();
        m_body.turns[m_turn].stops = places;
        const bool whole = places.empty();
        if (whole)
            places.push_back(0.0);
        std::vector<HoleView::Hit> before, first;
        std::vector<Id> bandsBefore, firstBands;
        std::vector<std::size_t> rims;
        for (std::size_t i = 0; i < places.size(); ++i) {
            const double from = places[i];
            const double to = i + 1 < places.size() ? places[i + 1] : places.front() + kFullTurn;
            const std::vector<HoleView::Hit> spans = m_view.spansAt(0.5 * (from + to));
            std::vector<Id> bands;
            for (std::size_t k = 0; k + 1 < spans.size(); k += 2) {
                bands.push_back(static_cast<Id>(m_body.faces.size()));
                Face& band = m_body.faces.emplace_back();
                band.band = true;
                band.whole = whole;
                band.low = m_view.world(m_view.curveOf(spans[k]));
                band.high = m_view.world(m_view.curveOf(spans[k + 1]));
                band.from = from;
                band.to = to;
                band.turn = m_turn;
            }
            for (std::size_t k = 0; k < spans.size(); ++k) {
                Edge rim;
                rim.curve = m_view.world(m_view.curveOf(spans[k]));
                rim.from = from;
                rim.to = to;
                rim.turn = m_turn;
                rim.faces[0] = spans[k].face == kNone ? cap(spans[k].z) : spans[k].face;
                rim.role = Role::hole;
                m_new.push_back(rim);
            }
            if (i > 0)
                join(from, before, bandsBefore, spans, bands);
            else
                first = spans, firstBands = bands;
            before = spans;
            bandsBefore = bands;
        }
        if (!whole && places.size() > 1)
            join(places.front(), before, bandsBefore, first, firstBands);
    }

    /// Two parts of the wall that go over into one another.
    void join(double t, const std::vector<HoleView::Hit>& a, const std::vector<Id>& bandsA,
              const std::vector<HoleView::Hit>& b, const std::vector<Id>& bandsB)
    {
        for (std::size_t i = 0; i + 1 < a.size(); i += 2) {
            for (std::size_t k = 0; k + 1 < b.size(); k += 2) {
                if (!(a[i] == b[k]) || !(a[i + 1] == b[k + 1]))
                    continue;
                Edge edge;
                edge.curve = m_view.world(lineThrough(m_view.curveOf(a[i]).at(t), m_view.curveOf(a[i + 1]).at(t)));
                edge.faces[0] = bandsA[i / 2];
                edge.faces[1] = bandsB[k / 2];
                edge.role = Role::smooth;
                m_new.push_back(edge);
            }
        }
    }

    /// What of a straight line is inside a face becomes an edge between it and another one.
    void addInside(Id face, Id other, Vec3 a, Vec3 b)
    {
        const Curve line = lineThrough(a, b);
        std::vector<double> cuts{0.0, 1.0};
        for (const Id e : m_view.edgesOf(face)) {
            const HoleView::Local& edge = m_view.edges()[e];
            const auto add = [&](double t) {
                if (t < edge.from - kAngleTol || t > edge.to + kAngleTol)
                    return;
                const Vec3 p = edge.curve.at(t);
                const double s = parameterOn(line, p);
                if (s > 0.0 && s < 1.0 && (line.at(s) - p).abs() <= kTol)
                    cuts.push_back(s);
            };
            // Across the line, in the face.
            const Vec3 n = m_view.local(m_body.faces[face].p.cross(m_body.faces[face].q)).cross(line.u).unit();
            const double off = n.dot(edge.curve.centre - a), u = n.dot(edge.curve.u), v = n.dot(edge.curve.v);
            if (!edge.curve.straight)
                forEachRoot(off, u, v, edge.from, edge.to, add);
            else if (u != 0.0)
                add(-off / u);
        }
        std::sort(cuts.begin(), cuts.end());
        for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
            const Vec3 from = line.at(cuts[i]), to = line.at(cuts[i + 1]);
            if ((to - from).abs() <= kTol || !m_view.isWithin(face, (from + to) * 0.5))
                continue;
            Edge edge;
            edge.curve = m_view.world(lineThrough(from, to));
            edge.faces[0] = face;
            edge.faces[1] = other;
            edge.role = Role::hole;
            m_new.push_back(edge);
        }
    }

    /// The lines along which the hole leaves through planes parallel to its axis.
    void addUprights()
    {
        for (const HoleView::Wall& wall : m_view.walls()) {
            double least = 1e300, most = -1e300;
            for (const Id e : m_view.edgesOf(wall.face)) {
                const HoleView::Local& edge = m_view.edges()[e];
                const auto add = [&](double t) {
                    const double z = edge.curve.at(t).z;
                    least = std::min(least, z);
                    most = std::max(most, z);
                };
                forEachEnd(edge.curve, edge.from, edge.to, add);
            }
            least = std::max(least, m_view.begin());
            most = std::min(most, m_view.bottom());
            if (!(most - least > kTol))
                continue;
            for (const double t : {wall.angle - wall.half, wall.angle + wall.half})
                addInside(wall.face, kNone, m_view.around(t, least), m_view.around(t, most));
            for (const double z : {m_view.begin(), m_view.bottom()}) {
                if (!m_view.isThrough())
                    addInside(wall.face, cap(z), m_view.around(wall.angle - wall.half, z),
                              m_view.around(wall.angle + wall.half, z));
            }
        }
    }

    /// The lines in which slanting faces pass through the begin and the bottom.
    void addChords()
    {
        for (const HoleView::Crossed& c : m_view.crossed()) {
            for (const double z : {m_view.begin(), m_view.bottom()}) {
                double ends[2];
                int count = 0;
                if (!m_view.isThrough())
                    forEachRoot(c.at - z, m_hole.radius * c.gx, m_hole.radius * c.gy, 0.0, kFullTurn, [&](double t) {
                        if (count < 2)
                            ends[count++] = t;
                    });
                if (count == 2)
                    addInside(c.face, cap(z), m_view.around(ends[0], z), m_view.around(ends[1], z));
            }
        }
    }

    /// Parts of bands parallel to the hole.
    void cutRoundWalls(std::vector<Edge>& kept)
    {
        for (const HoleView::Round& round : m_view.rounds()) {
            const Face face = m_body.faces[round.face];
            std::vector<double> places{face.from};
            places.insert(places.end(), round.cuts.begin(), round.cuts.end());
            places.push_back(face.to);
            std::sort(places.begin(), places.end());
            Id first = kNone, last = kNone;
            m_body.faces[round.face].to = face.from; // nothing, if nothing stays
            for (std::size_t i = 0; i + 1 < places.size(); ++i) {
                const Vec3 middle = m_view.local(face.low.at(0.5 * (places[i] + places[i + 1])) - m_hole.origin);
                if (std::sqrt(middle.x * middle.x + middle.y * middle.y) < m_hole.radius - kTol)
                    continue;
                last = first == kNone ? round.face : static_cast<Id>(m_body.faces.size());
                if (first == kNone)
                    first = last;
                else
                    m_body.faces.emplace_back();
                Face& part = m_body.faces[last];
                part = face;
                part.whole = face.whole && round.cuts.empty();
                part.from = places[i];
                part.to = places[i + 1];
                for (const double t : {part.from, part.to}) {
                    if (t == face.from || t == face.to)
                        continue;
                    Edge edge;
                    edge.curve = lineThrough(face.low.at(t), face.high.at(t));
                    edge.faces[0] = last;
                    edge.role = Role::hole;
                    m_new.push_back(edge);
                }
            }
            for (Edge& edge : kept) {
                for (Id& side : edge.faces) {
                    const Vec3 foot = face.low.at(face.to) - edge.curve.at(edge.from);
                    if (side == round.face && edge.curve.straight && foot.dot(foot) <= kTol * kTol && last != kNone)
                        side = last;
                }
            }
            if (face.whole && first != kNone && last != first) { // what was one part there still goes over
                Edge edge;
                edge.curve = lineThrough(face.low.at(face.from), face.high.at(face.from));
                edge.faces[0] = first;
                edge.faces[1] = last;
                edge.role = Role::smooth;
                m_new.push_back(edge);
            }
        }
    }

    Body& m_body;
    const Hole& m_hole;
    HoleView m_view;
    std::vector<double> m_breaks;
    std::vector<Edge> m_new;
    Id m_turn = kNone;
    Id m_beginFace = kNone;
    Id m_bottomFace = kNone;
};

} // namespace

bool drilled(Body& body, const Hole& hole)
{
    const auto isSame = [&](const Hole& other) {
        return (other.origin - hole.origin).abs() <= kTol && (other.z - hole.z).abs() <= kAngleTol &&
               std::fabs(other.radius - hole.radius) <= kTol && std::fabs(other.depth - hole.depth) <= kTol;
    };
    if (std::any_of(body.blind.begin(), body.blind.end(), isSame))
        return false;
    Body copy = body;
    if (!Drilling(copy, hole).run())
        return false;
    if (hole.depth > 0.0)
        copy.blind.push_back(hole);
    body = std::move(copy);
    return true;
}

} // namespace VEK::solids
