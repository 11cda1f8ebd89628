/// Round holes.
///
/// All work is done in the coordinates of the hole, whose axis is z. What the hole takes away is a cylinder of finite
/// or infinite length. Every edge loses what is inside the cylinder. At each place round the cylinder its generator
/// enters and leaves the body through faces: there run the rims, and between them the wall. Which faces these are
/// changes only where an edge of the body passes through the cylinder.
#include "core/solid/body.h"

#include <vek/values/tolerance.h>

#include <algorithm>
#include <array>

namespace VEK::solids
{
namespace
{

constexpr double kTol = kPointTol;

/// Where the height a + b cos t + c sin t is zero, in [from, to]; nowhere if all of it is at one height.
template <class Each>
void forEachRoot(double a, double b, double c, double from, double to, Each&& each)
{
    const double size = std::sqrt(b * b + c * c);
    if (!(size > kTol) || !(std::fabs(a) < size))
        return;
    const double middle = std::atan2(c, b), half = std::acos(-a / size);
    for (const double root : {middle - half, middle + half}) {
        for (double t = root + std::ceil((from - root) / kFullTurn) * kFullTurn; t <= to; t += kFullTurn)
            each(t);
    }
}

double turned(double t) // to one turn from 0
{
    return t - std::floor(t / kFullTurn) * kFullTurn;
}

/// The parameter at which a curve is nearest to a point of its plane.
double parameterOn(const Curve& curve, Vec3 p)
{
    const Vec3 d = p - curve.centre;
    const double uu = curve.u.dot(curve.u), du = d.dot(curve.u);
    if (curve.straight)
        return du / uu;
    const double vv = curve.v.dot(curve.v), uv = curve.u.dot(curve.v), dv = d.dot(curve.v);
    return std::atan2(dv * uu - du * uv, du * vv - dv * uv);
}

class Drilling
{
public:
    Drilling(Body& body, const Hole& hole) : m_body(body), m_hole(hole), m_through(hole.depth == 0.0)
    {
        m_bottom = m_through ? 1e300 : hole.depth;
        m_begin = m_through ? -1e300 : 0.0;
        m_edges.reserve(body.edges.size());
        for (const Edge& edge : body.edges)
            m_edges.push_back({local(edge.curve), edge.from, edge.to});
        m_ofFace.resize(body.faces.size());
        for (Id e = 0; e < body.edges.size(); ++e) {
            for (const Id face : body.edges[e].faces) {
                if (face != kNone)
                    m_ofFace[face].push_back(e);
            }
        }
    }

    bool run()
    {
        for (Id f = 0; f < m_ofFace.size(); ++f) {
            if (!(m_body.faces[f].band ? readBand(f) : readPlane(f)))
                return false;
        }
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
    struct Local {
        Curve curve;
        double from, to;
    };
    /// A plane that the axis crosses: z = at + gx x + gy y.
    struct Crossed {
        Id face;
        double at, gx, gy;
        double z(double x, double y) const { return at + gx * x + gy * y; }
    };
    /// A plane parallel to the axis, at a distance from it.
    struct Wall {
        Id face;
        double angle, half; ///< of its normal, and from there to where the cylinder meets it
    };
    struct Round {
        Id face;
        std::vector<double> cuts;
    };

    Vec3 local(Vec3 v) const { return {v.dot(m_hole.x), v.dot(m_hole.y), v.dot(m_hole.z)}; }
    Curve local(const Curve& c) const { return {local(c.centre - m_hole.origin), local(c.u), local(c.v), c.straight}; }
    Vec3 world(Vec3 v) const { return m_hole.x * v.x + m_hole.y * v.y + m_hole.z * v.z; }
    Curve world(const Curve& c) const { return {m_hole.origin + world(c.centre), world(c.u), world(c.v), c.straight}; }
    Vec3 around(double t, double z) const { return {m_hole.radius * std::cos(t), m_hole.radius * std::sin(t), z}; }

    bool inLength(double z) const { return z >= m_begin - kTol && z <= m_bottom + kTol; }
    bool isTaken(Vec3 p) const { return std::sqrt(p.x * p.x + p.y * p.y) < m_hole.radius - kTol && inLength(p.z); }

    bool readPlane(Id f)
    {
        const Face& face = m_body.faces[f];
        if (m_ofFace[f].empty())
            return true;
        const Vec3 n = local(face.p.cross(face.q).unit());
        const Local& any = m_edges[m_ofFace[f].front()];
        const Vec3 p = any.curve.at(any.from);
        if (std::fabs(n.z) > kAngleTol) {
            m_crossed.push_back({f, n.dot(p) / n.z, -n.x / n.z, -n.y / n.z});
            return true;
        }
        const double distance = n.dot(p);
        if (std::fabs(distance) < m_hole.radius - kTol)
            m_walls.push_back({f, std::atan2(n.y, n.x), std::acos(distance / m_hole.radius)});
        return true;
    }

    /// @return false if the hole would have to cut what it cannot
    bool readBand(Id f)
    {
        const Face& face = m_body.faces[f];
        const Curve low = local(face.low), high = local(face.high);
        const Vec3 ruling = high.at(face.from) - low.at(face.from);
        if (!face.cone && ruling.x * ruling.x + ruling.y * ruling.y <= kAngleTol * kAngleTol * ruling.dot(ruling))
            return readRound(f, low, high);
        std::array<Vec3, 4> quad;
        bool cuts = false, first = true;
        forEachPlace({}, face.from, face.to, [&](double t) {
            quad[0] = quad[1];
            quad[3] = quad[2];
            quad[1] = low.at(t);
            quad[2] = high.at(t);
            if (!first && meetsDisc(quad)) {
                const auto [least, most] = std::minmax({quad[0].z, quad[1].z, quad[2].z, quad[3].z});
                cuts = cuts || (most > m_begin + kTol && least < m_bottom - kTol);
                m_uncut.push_back(quad);
            }
            first = false;
        });
        return !cuts;
    }

    bool readRound(Id f, const Curve& low, const Curve& high)
    {
        const Face& face = m_body.faces[f];
        Round round{f, {}};
        crossings(low, face.from, face.to, round.cuts);
        if (round.cuts.empty() && !isTaken({low.at(face.from).x, low.at(face.from).y, m_begin}))
            return true;
        forEachPlace({}, face.from, face.to, [&](double t) {
            const Vec3 a = low.at(t), b = high.at(t);
            if (std::sqrt(a.x * a.x + a.y * a.y) < m_hole.radius - kTol && !(inLength(a.z) && inLength(b.z)))
                round.face = kNone;
        });
        if (round.face == kNone)
            return false;
        m_rounds.push_back(std::move(round));
        return true;
    }

    bool meetsDisc(const std::array<Vec3, 4>& quad) const
    {
        bool inside = false;
        for (std::size_t i = 0; i < 4; ++i) {
            const Vec3 a = quad[i], b = quad[(i + 1) % 4];
            const plane::Vec from{a.x, a.y}, way{b.x - a.x, b.y - a.y};
            const double square = way.dot(way);
            const double t = square > 0.0 ? std::clamp(-from.dot(way) / square, 0.0, 1.0) : 0.0;
            if ((from + way * t).abs() < m_hole.radius)
                return true;
            if ((a.y > 0.0) != (b.y > 0.0) && a.x - a.y * way.x / way.y > 0.0)
                inside = !inside;
        }
        return inside;
    }

    /// The parameters at which a curve passes through the infinite cylinder.
    void crossings(const Curve& c, double from, double to, std::vector<double>& cuts) const
    {
        const double square = m_hole.radius * m_hole.radius;
        const auto add = [&](double t) {
            if (t > from + kAngleTol && t < to - kAngleTol)
                cuts.push_back(t);
        };
        if (c.straight) {
            const double a = c.u.x * c.u.x + c.u.y * c.u.y;
            const double b = c.u.x * c.centre.x + c.u.y * c.centre.y;
            const double d = b * b - a * (c.centre.x * c.centre.x + c.centre.y * c.centre.y - square);
            if (a > 0.0 && d > 0.0) {
                add((-b - std::sqrt(d)) / a);
                add((-b + std::sqrt(d)) / a);
            }
            return;
        }
        const auto outside = [&](double t) {
            const Vec3 p = c.at(t);
            return p.x * p.x + p.y * p.y - square;
        };
        const double reach = std::sqrt(c.u.dot(c.u) + c.v.dot(c.v));
        if (std::sqrt(c.centre.x * c.centre.x + c.centre.y * c.centre.y) > m_hole.radius + reach)
            return;
        const double near = 2.0 * m_hole.radius * kTol; // what runs along the cylinder does not pass through it
        double last = from, lastValue = 0.0;
        forEachPlace({}, from, to, [&](double t) {
            const double value = outside(t);
            if (std::fabs(value) <= near)
                return;
            if (lastValue != 0.0 && (value > 0.0) != (lastValue > 0.0)) {
                double a = last, b = t;
                for (int i = 0; i < 60 && b - a > 1e-15 * kFullTurn; ++i) {
                    const double middle = 0.5 * (a + b);
                    ((outside(middle) > 0.0) == (lastValue > 0.0) ? a : b) = middle;
                }
                add(0.5 * (a + b));
            }
            last = t;
            lastValue = value;
        });
    }

    bool cutEdges(std::vector<Edge>& kept)
    {
        bool changed = false;
        std::vector<double> cuts;
        for (Id e = 0; e < m_edges.size(); ++e) {
            const Local& edge = m_edges[e];
            const Curve& c = edge.curve;
            cuts.assign(1, edge.from);
            crossings(c, edge.from, edge.to, cuts);
            for (std::size_t i = 1; i < cuts.size(); ++i) {
                const Vec3 p = c.at(cuts[i]);
                m_breaks.push_back(turned(std::atan2(p.y, p.x)));
            }
            for (const double z : {m_begin, m_bottom}) {
                const auto add = [&](double t) {
                    if (t > edge.from + kAngleTol && t < edge.to - kAngleTol)
                        cuts.push_back(t);
                };
                if (m_through)
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
                const bool stays = !isTaken(c.at(0.5 * (cuts[i] + cuts[i + 1])));
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

    /// Whether a point of a face's plane is inside it, and not on its boundary.
    bool isWithin(Id face, Vec3 p) const
    {
        const Vec3 n = local(m_body.faces[face].p.cross(m_body.faces[face].q));
        const int drop = std::fabs(n.z) >= std::max(std::fabs(n.x), std::fabs(n.y)) ? 2
                         : std::fabs(n.x) > std::fabs(n.y)                          ? 0
                                                                                    : 1;
        // A ray at an odd angle, so that it does not pass through what lies regularly.
        constexpr double kCos = 0.8253356149096783, kSin = 0.5646424733950354;
        const auto seen = [&](Vec3 v) {
            const double a = drop == 0 ? v.y : v.x, b = drop == 2 ? v.y : v.z;
            return plane::Vec{a * kCos - b * kSin, a * kSin + b * kCos};
        };
        const plane::Vec at = seen(p);
        bool inside = false;
        for (const Id e : m_ofFace[face]) {
            const Local& edge = m_edges[e];
            const double t = parameterOn(edge.curve, p);
            const Vec3 off = edge.curve.at(edge.curve.straight ? std::clamp(t, edge.from, edge.to) : t) - p;
            if (off.dot(off) <= kTol * kTol && (edge.curve.straight || turned(t - edge.from) <= edge.to - edge.from))
                return false;
            if (!edge.curve.straight && edge.to - edge.from > kFullTurn - kAngleTol) {
                const Vec3 d = p - edge.curve.centre;
                if (d.dot(d) > edge.curve.u.dot(edge.curve.u) + edge.curve.v.dot(edge.curve.v))
                    continue; // outside the whole ellipse
            }
            plane::Vec last;
            bool first = true;
            const auto pass = [&](double place) {
                const plane::Vec next = seen(edge.curve.at(place));
                if (!first && (last.y > at.y) != (next.y > at.y) &&
                    last.x + (at.y - last.y) * (next.x - last.x) / (next.y - last.y) > at.x)
                    inside = !inside;
                last = next;
                first = false;
            };
            if (edge.curve.straight) {
                pass(edge.from);
                pass(edge.to);
            } else {
                forEachPlace({}, edge.from, edge.to, pass);
            }
        }
        return inside;
    }

    struct Hit {
        double z;
        Id face; ///< kNone for the begin or the bottom
        bool operator==(const Hit& other) const { return face == other.face && (face != kNone || z == other.z); }
    };

    /// Where a generator lies in the body, in pairs; within the length of the hole.
    std::vector<Hit> spansAt(double t)
    {
        std::vector<Hit> hits;
        for (const Crossed& crossed : m_crossed) {
            const Vec3 p = around(t, 0.0);
            const Hit hit{crossed.z(p.x, p.y), crossed.face};
            if (isWithin(crossed.face, {p.x, p.y, hit.z}))
                hits.push_back(hit);
        }
        for (const std::array<Vec3, 4>& quad : m_uncut) {
            const Vec3 p = around(t, 0.0);
            const Vec3 n = (quad[2] - quad[0]).cross(quad[3] - quad[1]);
            bool inside = false;
            for (std::size_t i = 0; i < 4; ++i) {
                const Vec3 a = quad[i], b = quad[(i + 1) % 4];
                if ((a.y > p.y) != (b.y > p.y) && a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y) > p.x)
                    inside = !inside;
            }
            if (inside && n.z != 0.0)
                hits.push_back({(n.dot(quad[0]) - n.x * p.x - n.y * p.y) / n.z, kNone});
        }
        std::sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) { return a.z < b.z; });
        std::vector<Hit> spans;
        for (std::size_t i = 0; i + 1 < hits.size(); i += 2) {
            Hit a = hits[i], b = hits[i + 1];
            if (b.z <= m_begin + kTol || a.z >= m_bottom - kTol)
                continue;
            if (a.z < m_begin - kTol)
                a = {m_begin, kNone};
            if (b.z > m_bottom + kTol)
                b = {m_bottom, kNone};
            spans.push_back(a);
            spans.push_back(b);
        }
        return spans;
    }

    Curve curveOf(const Hit& hit) const
    {
        const double r = m_hole.radius;
        for (const Crossed& crossed : m_crossed) {
            if (crossed.face == hit.face)
                return {{0.0, 0.0, crossed.at}, {r, 0.0, r * crossed.gx}, {0.0, r, r * crossed.gy}, false};
        }
        return {{0.0, 0.0, hit.z}, {r, 0.0, 0.0}, {0.0, r, 0.0}, false};
    }

    Id cap(double z) ///< the face at the begin or the bottom
    {
        Id& face = z == m_begin ? m_beginFace : m_bottomFace;
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
        for (const Crossed& c : m_crossed) {
            for (const double z : {m_begin, m_bottom}) {
                const double r = m_hole.radius;
                if (!m_through)
                    forEachRoot(c.at - z, r * c.gx, r * c.gy, 0.0, kFullTurn,
                                [&](double t) { m_breaks.push_back(turned(t)); });
            }
        }
        for (const Wall& wall : m_walls) {
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
        std::vector<Hit> before, first;
        std::vector<Id> bandsBefore, firstBands;
        std::vector<std::size_t> rims;
        for (std::size_t i = 0; i < places.size(); ++i) {
            const double from = places[i];
            const double to = i + 1 < places.size() ? places[i + 1] : places.front() + kFullTurn;
            const std::vector<Hit> spans = spansAt(0.5 * (from + to));
            std::vector<Id> bands;
            for (std::size_t k = 0; k + 1 < spans.size(); k += 2) {
                bands.push_back(static_cast<Id>(m_body.faces.size()));
                Face& band = m_body.faces.emplace_back();
                band.band = true;
                band.whole = whole;
                band.low = world(curveOf(spans[k]));
                band.high = world(curveOf(spans[k + 1]));
                band.from = from;
                band.to = to;
                band.turn = m_turn;
            }
            for (std::size_t k = 0; k < spans.size(); ++k) {
                Edge rim;
                rim.curve = world(curveOf(spans[k]));
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
    void join(double t, const std::vector<Hit>& a, const std::vector<Id>& bandsA, const std::vector<Hit>& b,
              const std::vector<Id>& bandsB)
    {
        for (std::size_t i = 0; i + 1 < a.size(); i += 2) {
            for (std::size_t k = 0; k + 1 < b.size(); k += 2) {
                if (!(a[i] == b[k]) || !(a[i + 1] == b[k + 1]))
                    continue;
                Edge edge;
                edge.curve = world(lineThrough(curveOf(a[i]).at(t), curveOf(a[i + 1]).at(t)));
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
        for (const Id e : m_ofFace[face]) {
            const Local& edge = m_edges[e];
            const auto add = [&](double t) {
                if (t < edge.from - kAngleTol || t > edge.to + kAngleTol)
                    return;
                const Vec3 p = edge.curve.at(t);
                const double s = parameterOn(line, p);
                if (s > 0.0 && s < 1.0 && (line.at(s) - p).abs() <= kTol)
                    cuts.push_back(s);
            };
            // Across the line, in the face.
            const Vec3 n = local(m_body.faces[face].p.cross(m_body.faces[face].q)).cross(line.u).unit();
            const double off = n.dot(edge.curve.centre - a), u = n.dot(edge.curve.u), v = n.dot(edge.curve.v);
            if (!edge.curve.straight)
                forEachRoot(off, u, v, edge.from, edge.to, add);
            else if (u != 0.0)
                add(-off / u);
        }
        std::sort(cuts.begin(), cuts.end());
        for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
            const Vec3 from = line.at(cuts[i]), to = line.at(cuts[i + 1]);
            if ((to - from).abs() <= kTol || !isWithin(face, (from + to) * 0.5))
                continue;
            Edge edge;
            edge.curve = world(lineThrough(from, to));
            edge.faces[0] = face;
            edge.faces[1] = other;
            edge.role = Role::hole;
            m_new.push_back(edge);
        }
    }

    /// The lines along which the hole leaves through planes parallel to its axis.
    void addUprights()
    {
        for (const Wall& wall : m_walls) {
            double least = 1e300, most = -1e300;
            for (const Id e : m_ofFace[wall.face]) {
                const Local& edge = m_edges[e];
                const auto add = [&](double t) {
                    const double z = edge.curve.at(t).z;
                    least = std::min(least, z);
                    most = std::max(most, z);
                };
                if (edge.curve.straight)
                    add(edge.from), add(edge.to);
                else
                    forEachPlace({}, edge.from, edge.to, add);
            }
            least = std::max(least, m_begin);
            most = std::min(most, m_bottom);
            if (!(most - least > kTol))
                continue;
            for (const double t : {wall.angle - wall.half, wall.angle + wall.half})
                addInside(wall.face, kNone, around(t, least), around(t, most));
            for (const double z : {m_begin, m_bottom}) {
                if (!m_through)
                    addInside(wall.face, cap(z), around(wall.angle - wall.half, z), around(wall.angle + wall.half, z));
            }
        }
    }

    /// The lines in which slanting faces pass through the begin and the bottom.
    void addChords()
    {
        for (const Crossed& c : m_crossed) {
            for (const double z : {m_begin, m_bottom}) {
                double ends[2];
                int count = 0;
                if (!m_through)
                    forEachRoot(c.at - z, m_hole.radius * c.gx, m_hole.radius * c.gy, 0.0, kFullTurn, [&](double t) {
                        if (count < 2)
                            ends[count++] = t;
                    });
                if (count == 2)
                    addInside(c.face, cap(z), around(ends[0], z), around(ends[1], z));
            }
        }
    }

    /// Parts of bands parallel to the hole.
    void cutRoundWalls(std::vector<Edge>& kept)
    {
        for (Round& round : m_rounds) {
            const Face face = m_body.faces[round.face];
            std::vector<double> places{face.from};
            places.insert(places.end(), round.cuts.begin(), round.cuts.end());
            places.push_back(face.to);
            std::sort(places.begin(), places.end());
            Id first = kNone, last = kNone;
            m_body.faces[round.face].to = face.from; // nothing, if nothing stays
            for (std::size_t i = 0; i + 1 < places.size(); ++i) {
                const Vec3 middle = local(face.low.at(0.5 * (places[i] + places[i + 1])) - m_hole.origin);
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
    bool m_through;
    double m_begin, m_bottom;
    std::vector<Local> m_edges;
    std::vector<std::vector<Id>> m_ofFace;
    std::vector<Crossed> m_crossed;
    std::vector<Wall> m_walls;
    std::vector<Round> m_rounds;
    std::vector<std::array<Vec3, 4>> m_uncut;
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
