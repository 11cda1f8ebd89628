#include "core/solid/hole_view.h"

#include <algorithm>

namespace VEK::solids
{

constexpr double kTol = kPointTol;

double parameterOn(const Curve& curve, Vec3 p)
{
    const Vec3 d = p - curve.centre;
    const double uu = curve.u.dot(curve.u), du = d.dot(curve.u);
    if (curve.straight)
        return du / uu;
    const double vv = curve.v.dot(curve.v), uv = curve.u.dot(curve.v), dv = d.dot(curve.v);
    return std::atan2(dv * uu - du * uv, du * vv - dv * uv);
}

HoleView::HoleView(const Body& body, const Hole& hole) : m_body(body), m_hole(hole), m_through(hole.depth == 0.0)
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

bool HoleView::read()
{
    for (Id f = 0; f < m_ofFace.size(); ++f) {
        if (!(m_body.faces[f].band ? readBand(f) : readPlane(f)))
            return false;
    }
    return true;
}

bool HoleView::readPlane(Id f)
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

bool HoleView::readBand(Id f)
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

bool HoleView::readRound(Id f, const Curve& low, const Curve& high)
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

bool HoleView::meetsDisc(const std::array<Vec3, 4>& quad) const
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

void HoleView::crossings(const Curve& c, double from, double to, std::vector<double>& cuts) const
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

bool HoleView::isWithin(Id face, Vec3 p) const
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
        forEachEnd(edge.curve, edge.from, edge.to, pass);
    }
    return inside;
}

std::vector<HoleView::Hit> HoleView::spansAt(double t) const
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

Curve HoleView::curveOf(const Hit& hit) const
{
    const double r = m_hole.radius;
    for (const Crossed& crossed : m_crossed) {
        if (crossed.face == hit.face)
            return {{0.0, 0.0, crossed.at}, {r, 0.0, r * crossed.gx}, {0.0, r, r * crossed.gy}, false};
    }
    return {{0.0, 0.0, hit.z}, {r, 0.0, 0.0}, {0.0, r, 0.0}, false};
}

} // namespace VEK::solids
