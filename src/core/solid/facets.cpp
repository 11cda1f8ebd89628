/// Bodies in a view: curves become chords or true arcs, faces facets.
#include "core/solid/picture.h"

#include <algorithm>

namespace VEK::solids
{
namespace
{

/// A face whose normal leans less than this towards the viewer is seen edge-on.
constexpr double kEdgeOn = 1e-9;

int facing(Vec3 normal)
{
    const double lean = normal.unit().z;
    return lean > kEdgeOn ? 1 : lean < -kEdgeOn ? -1 : 0;
}

class BodyView
{
public:
    BodyView(Picture& picture, const Body& body, Id number, const CVekMatrix3d& toView)
        : m_picture(picture), m_body(body), m_number(number), m_faces(body.faces)
    {
        for (Face& face : m_faces) {
            face.p = mapped(toView, face.p);
            face.q = mapped(toView, face.q);
            face.low.map(toView);
            face.high.map(toView);
        }
        findStops();
        m_signs.resize(m_faces.size() + 1);
        for (Id f = 0; f < m_faces.size(); ++f) {
            m_signs[f] = static_cast<Id>(m_facing.size());
            if (m_faces[f].band)
                addBand(m_faces[f]);
            else
                m_facing.push_back(static_cast<signed char>(facing(m_faces[f].p.cross(m_faces[f].q))));
        }
        m_signs[m_faces.size()] = static_cast<Id>(m_facing.size());
        for (const Edge& edge : body.edges)
            addEdge(edge, toView);
        addPlanes();
        for (Id f = 0; f < m_faces.size(); ++f) {
            if (m_faces[f].band)
                addSilhouettes(f);
        }
    }

private:
    /// The places at which the turns are cut in this view: where faces turn away, besides the body's own.
    void findStops()
    {
        m_stops.resize(m_body.turns.size());
        for (std::size_t i = 0; i < m_stops.size(); ++i)
            m_stops[i] = m_body.turns[i].stops;
        for (const Face& face : m_faces) {
            if (!face.band || face.fine || !(face.to > face.from))
                continue;
            const bool highIsWider = face.high.u.dot(face.high.u) > face.low.u.dot(face.low.u);
            const Curve& base = face.cone && highIsWider ? face.high : face.low;
            const Curve& other = face.cone && highIsWider ? face.low : face.high;
            Vec3 ruling = face.high.at(face.from) - face.low.at(face.from);
            double taper = 0.0;
            if (face.cone) {
                ruling = other.centre - base.centre;
                taper = std::sqrt(other.u.dot(other.u) / base.u.dot(base.u)) - 1.0;
            }
            // The z of (-u sin + v cos) x (ruling + taper (u cos + v sin)) is zero.
            const double a = -taper * base.u.cross(base.v).z;
            const double b = base.v.cross(ruling).z, c = -base.u.cross(ruling).z;
            const double size = std::sqrt(b * b + c * c);
            if (!(size > kEdgeOn * ruling.abs() * base.u.abs()) || !(std::fabs(a) < size))
                continue;
            const double middle = std::atan2(c, b), half = std::acos(-a / size);
            for (const double t : {middle - half, middle + half})
                m_stops[face.turn].push_back(t - std::floor(t / kFullTurn) * kFullTurn);
        }
        for (std::vector<double>& stops : m_stops)
            std::sort(stops.begin(), stops.end());
    }

    void addFacet(Vec3 normal, Vec3 on, double bottom, double top, std::uint32_t begin)
    {
        const Vec3 up = normal.unit() * (normal.z < 0.0 ? -1.0 : 1.0);
        const std::uint32_t end = static_cast<std::uint32_t>(m_picture.sides.size());
        m_picture.facets.push_back({up, up.dot(on), bottom, top, begin, end, kNone, m_number});
    }

    void addSide(Id a, Id b, double bulge)
    {
        if (a > b) {
            std::swap(a, b);
            bulge = -bulge;
        }
        m_picture.sides.push_back({a, b, bulge});
    }

    Id point(Vec3 p) { return m_picture.points.add({p.x, p.y}); }

    void addBand(const Face& face)
    {
        if (!(face.to > face.from))
            return;
        Vec3 low, high;
        Id lowPoint = kNone, highPoint = kNone;
        forEachPlace(m_stops[face.turn], face.from, face.to, [&](double t) {
            const Vec3 nextLow = face.low.at(t), nextHigh = face.high.at(t);
            const Id nextLowPoint = point(nextLow), nextHighPoint = point(nextHigh);
            if (lowPoint != kNone) {
                const Vec3 a = nextLow - low, b = nextHigh - high;
                const Vec3 normal = (a.dot(a) > b.dot(b) ? a : b).cross((high - low) + (nextHigh - nextLow));
                const int sign = facing(normal);
                m_facing.push_back(static_cast<signed char>(face.flipped ? -sign : sign));
                if (sign != 0) {
                    const std::uint32_t begin = static_cast<std::uint32_t>(m_picture.sides.size());
                    addSide(lowPoint, nextLowPoint, 0.0);
                    addSide(nextLowPoint, nextHighPoint, 0.0);
                    addSide(nextHighPoint, highPoint, 0.0);
                    addSide(highPoint, lowPoint, 0.0);
                    const auto [bottom, top] = std::minmax({low.z, high.z, nextLow.z, nextHigh.z});
                    addFacet(normal, low, bottom, top, begin);
                }
            }
            low = nextLow;
            high = nextHigh;
            lowPoint = nextLowPoint;
            highPoint = nextHighPoint;
        });
    }

    /// Which way a face looks beside a chord of an edge.
    int facingAt(Id face, const Edge& edge, Id chord) const
    {
        if (face == kNone || m_signs[face] == m_signs[face + 1])
            return 0;
        if (!m_faces[face].band)
            return m_facing[m_signs[face]];
        if (!edge.curve.straight)
            return m_facing[std::min(m_signs[face] + chord, m_signs[face + 1] - 1)];
        const Face& band = m_body.faces[face]; // at which end of the band the edge is
        const Vec3 middle = edge.at(0.5 * (edge.from + edge.to));
        const auto off = [&](double t) { return ((band.low.at(t) + band.high.at(t)) * 0.5 - middle).abs(); };
        return off(band.from) < off(band.to) ? m_facing[m_signs[face]] : m_facing[m_signs[face + 1] - 1];
    }

    void addEdge(const Edge& edge, const CVekMatrix3d& toView)
    {
        Curve curve = edge.curve;
        curve.map(toView);
        const Id source = addSource(edge.role == Role::fold   ? VekLineKind::fold
                                    : edge.role == Role::hole ? VekLineKind::hole
                                                              : VekLineKind::edge);
        const auto add = [&](Id a, double za, Id b, double zb, double bulge, Id chord) {
            if (a == b)
                return;
            const bool reversed = a > b;
            if (reversed) {
                std::swap(a, b);
                std::swap(za, zb);
                bulge = -bulge;
            }
            for (const Id face : edge.faces) {
                if (face != kNone && !m_faces[face].band && m_facing[m_signs[face]] != 0)
                    m_ofPlanes.push_back({face, {a, b, bulge}, za, std::min(za, zb), std::max(za, zb)});
            }
            if (edge.role == Role::smooth || edge.role == Role::fold) {
                const bool turns = facingAt(edge.faces[0], edge, chord) != facingAt(edge.faces[1], edge, chord);
                if (!turns && edge.role == Role::smooth)
                    return;
                if (turns)
                    m_picture.sources[source].kind = VekLineKind::silhouette;
            }
            m_picture.lines.push_back({a, b, za, zb, bulge, reversed, source, m_number});
        };
        if (isCircle(curve))
            return addArcs(curve, edge, add);
        Id last = kNone, chord = 0;
        double lastZ = 0.0;
        const auto pass = [&](double t) {
            const Vec3 p = curve.at(t);
            const Id next = point(p);
            if (last != kNone)
                add(last, lastZ, next, p.z, 0.0, chord++);
            last = next;
            lastZ = p.z;
        };
        if (curve.straight) {
            pass(edge.from);
            pass(edge.to);
        } else {
            forEachPlace(m_stops[edge.turn], edge.from, edge.to, pass);
        }
    }

    /// Whether a curve is seen along its axis and is a circle.
    bool isCircle(const Curve& c) const
    {
        const double uu = c.u.dot(c.u), vv = c.v.dot(c.v);
        return !c.straight && std::max(std::fabs(c.u.z), std::fabs(c.v.z)) <= 0.5 * m_picture.tolerance &&
               std::fabs(uu - vv) <= kAngleTol * uu && std::fabs(c.u.dot(c.v)) <= kAngleTol * uu;
    }

    /// A circle as arcs that end at the quarters of the picture.
    template <class Add>
    void addArcs(const Curve& curve, const Edge& edge, Add&& add)
    {
        const double start = std::atan2(curve.u.y, curve.u.x);
        const double sense = curve.u.cross(curve.v).z > 0.0 ? 1.0 : -1.0;
        constexpr double kQuarter = 0.5 * kPi;
        // The quarters lie at the parameters (k pi/2 - start) * sense.
        const double offset = -start * sense;
        double last = edge.from;
        Id lastPoint = point(curve.at(last));
        const auto pass = [&](double t) {
            const Id next = point(curve.at(t));
            add(lastPoint, curve.centre.z, next, curve.centre.z, sense * std::tan(0.25 * (t - last)), Id{0});
            last = t;
            lastPoint = next;
        };
        for (double k = std::floor((edge.from - offset) / kQuarter) + 1.0;; k += 1.0) {
            const double t = offset + k * kQuarter;
            if (t >= edge.to - kAngleTol)
                break;
            if (t > edge.from + kAngleTol)
                pass(t);
        }
        pass(edge.to);
    }

    Id addSource(VekLineKind kind)
    {
        m_picture.sources.push_back({m_body.element, kind});
        return static_cast<Id>(m_picture.sources.size() - 1);
    }

    void addPlanes()
    {
        std::stable_sort(m_ofPlanes.begin(), m_ofPlanes.end(),
                         [](const PlaneSide& a, const PlaneSide& b) { return a.face < b.face; });
        for (std::size_t i = 0; i < m_ofPlanes.size();) {
            const Id face = m_ofPlanes[i].face;
            const std::uint32_t begin = static_cast<std::uint32_t>(m_picture.sides.size());
            const Side first = m_ofPlanes[i].side;
            Vec3 on{m_picture.points[first.a].x, m_picture.points[first.a].y, m_ofPlanes[i].zOfA};
            double bottom = m_ofPlanes[i].low, top = m_ofPlanes[i].high;
            for (; i < m_ofPlanes.size() && m_ofPlanes[i].face == face; ++i) {
                m_picture.sides.push_back(m_ofPlanes[i].side);
                bottom = std::min(bottom, m_ofPlanes[i].low);
                top = std::max(top, m_ofPlanes[i].high);
            }
            addFacet(m_faces[face].p.cross(m_faces[face].q), on, bottom, top, begin);
        }
    }

    void addSilhouettes(Id f)
    {
        const Face& face = m_faces[f];
        const signed char* const signs = m_facing.data() + m_signs[f];
        const Id count = m_signs[f + 1] - m_signs[f];
        Id k = 0;
        if (count == 0)
            return;
        forEachPlace(m_stops[face.turn], face.from, face.to, [&](double t) {
            const bool turns =
                k == 0 || k == count ? k == 0 && face.whole && signs[0] != signs[count - 1] : signs[k - 1] != signs[k];
            ++k;
            if (!turns)
                return;
            const Vec3 low = face.low.at(t), high = face.high.at(t);
            Id a = point(low), b = point(high);
            if (a == b)
                return;
            const Id source = addSource(VekLineKind::silhouette);
            if (a < b)
                m_picture.lines.push_back({a, b, low.z, high.z, 0.0, false, source, m_number});
            else
                m_picture.lines.push_back({b, a, high.z, low.z, 0.0, true, source, m_number});
        });
    }

    struct PlaneSide {
        Id face;
        Side side;
        double zOfA;
        double low, high;
    };

    Picture& m_picture;
    const Body& m_body;
    Id m_number;
    std::vector<Face> m_faces; ///< in view coordinates
    std::vector<std::vector<double>> m_stops;
    std::vector<signed char> m_facing; ///< of each plane and of each facet of the bands
    std::vector<Id> m_signs;           ///< where those of each face begin
    std::vector<PlaneSide> m_ofPlanes;
};

} // namespace

void addToPicture(Picture& picture, const Body& body, Id number, const CVekMatrix3d& toView)
{
    BodyView(picture, body, number, toView);
}

} // namespace VEK::solids
