// Random solids against rays. Each body is known a second time: by the quadrics of its faces, a rule for what is
// inside, and the curves of its edges, all written down from the same numbers that the solid was built from.

#include "shapes.h"

#include <vek/solid.h>

#include <functional>
#include <gtest/gtest.h>

namespace
{

using shapes::pi;
using Lines = CVekArrayTempl<CVekVertexArrayEx>;
using P = CVekPoint3d;

/// Chords of curves lie within this of them, with the radii used here; nothing is judged closer to where it changes.
constexpr double kNear = 0.012;

struct Known {
    CVekMatrix3d place;
    std::vector<std::function<double(const P&)>> faces; ///< zero on them, in body coordinates
    std::function<bool(const P&, double)> inside;       ///< deeper than a margin
    std::vector<std::vector<P>> edges;                  ///< in the world, curves as fine chords
};

class Scene
{
public:
    explicit Scene(unsigned seed) : m_random(seed), m_regular(seed % 3 == 0)
    {
        for (int i = 0; i < 4; ++i)
            addBody(i);
    }

    double any(double low, double high)
    {
        const double v = low + (high - low) * (m_random() / 4294967296.0);
        return m_regular ? std::round(v) : v;
    }

    CVekMatrix3d view()
    {
        static const wchar_t* const kNames[] = {L"P", L"N", L"S", L"O", L"W", L"NO", L"NW", L"SO", L"SW"};
        if (m_random() % 3 == 0)
            return VEK::g_mtx_view_dir(kNames[m_random() % 9], {1, 2, 3}).inverse();
        const auto free = [&] { return m_random() / 2147483648.0 - 1.0; };
        return VEK::g_mtx_view({free(), free(), free()}, {}, false);
    }

    CVek_Solid solid;
    std::vector<Known> known;

private:
    void edge(Known& k, const std::function<P(double)>& at, double from, double to, int chords)
    {
        std::vector<P>& points = k.edges.emplace_back();
        for (int i = 0; i <= chords; ++i)
            points.push_back(at(from + (to - from) * i / chords) * k.place);
    }
    void line(Known& k, P a, P b)
    {
        edge(
            k, [=](double t) { return a + (b - a) * t; }, 0, 1, 1);
    }
    void circle(Known& k, P c, double r, double from = 0, double to = 2 * pi)
    {
        edge(
            k, [=](double t) { return P(c.x + r * std::cos(t), c.y + r * std::sin(t), c.z); }, from, to, 192);
    }
    static std::function<double(const P&)> round(double x, double y, double r)
    {
        return [=](const P& p) { return (p.x - x) * (p.x - x) + (p.y - y) * (p.y - y) - r * r; };
    }
    static std::function<double(const P&)> plane(double a, double b, double c, double d)
    {
        return [=](const P& p) { return a * p.x + b * p.y + c * p.z - d; };
    }

    void addBody(int element)
    {
        Known k;
        if (m_regular) {
            k.place.setToRotation(any(0, 4) * pi / 2, {any(0, 1), 0, 1}, {});
            if (k.place.axis(2).x * k.place.axis(2).x + 1 == 1 && any(0, 1) == 1)
                k.place *= CVekMatrix3d().setToMirroring({{}, {1, 0, 0}});
        } else {
            k.place.setToRotation(any(0, 6), {any(-1, 1), any(-1, 1), any(-1, 1)}, {});
            if (any(0, 1) > 0.5)
                k.place *= CVekMatrix3d().setToMirroring({{}, {any(-1, 1), any(-1, 1), 1}});
        }
        k.place *= CVekMatrix3d().setToTranslation({any(-8, 8), any(-8, 8), any(-8, 8)});
        switch (m_random() % 5) {
        case 0: bar(k, element); break;
        case 1: tube(k, element); break;
        case 2: turned(k, element); break;
        case 3: sheet(k, element); break;
        default: drilled(k, element); break;
        }
        known.push_back(std::move(k));
    }

    void box(Known& k, double w, double h, const std::function<double(double, double)>& low,
             const std::function<double(double, double)>& high)
    {
        for (const double x : {0.0, w})
            k.faces.push_back(plane(1, 0, 0, x));
        for (const double y : {0.0, h})
            k.faces.push_back(plane(0, 1, 0, y));
        k.faces.push_back([=](const P& p) { return p.z - low(p.x, p.y); });
        k.faces.push_back([=](const P& p) { return p.z - high(p.x, p.y); });
        const double xs[] = {0, w, w, 0}, ys[] = {0, 0, h, h};
        for (int i = 0; i < 4; ++i) {
            const double x = xs[i], y = ys[i], nx = xs[(i + 1) % 4], ny = ys[(i + 1) % 4];
            line(k, {x, y, low(x, y)}, {x, y, high(x, y)});
            line(k, {x, y, low(x, y)}, {nx, ny, low(nx, ny)});
            line(k, {x, y, high(x, y)}, {nx, ny, high(nx, ny)});
        }
        k.inside = [=](const P& p, double m) {
            return p.x > m && p.x < w - m && p.y > m && p.y < h - m && p.z > low(p.x, p.y) + m &&
                   p.z < high(p.x, p.y) - m;
        };
    }
    void bar(Known& k, int element) ///< with mitred ends
    {
        const double w = any(2, 6), h = any(2, 6), a = any(-1, 1), b = any(-1, 1), c = any(-1, 1), length = any(13, 15);
        box(
            k, w, h, [=](double x, double y) { return a * x / 2 + b * y / 2; },
            [=](double x, double y) { return length + c * x / 2 - b * y / 2; });
        const bool swap = m_random() % 2 == 0;
        const CVekPlane start({0, 0, 0}, CVekVector3d(-a / 2, -b / 2, 1)),
            end({0, 0, length}, CVekVector3d(c / 2, -b / 2, -1) * 3);
        ASSERT_TRUE(
            solid.extrude({shapes::rectangle(0, 0, w, h)}, k.place, swap ? end : start, swap ? start : end, element));
    }

    void tube(Known& k, int element) ///< with parallel slanting ends
    {
        const double r = any(2, 5), q = r - any(1, 1.5), length = any(3, 10), a = any(-1, 1) / 2, b = any(-1, 1) / 2;
        k.faces = {round(0, 0, r), round(0, 0, q), plane(-a, -b, 1, 0), plane(-a, -b, 1, length)};
        k.inside = [=](const P& p, double m) {
            const double d = std::sqrt(p.x * p.x + p.y * p.y), z = p.z - a * p.x - b * p.y;
            return d < r - m && d > q + m && z > m && z < length - m;
        };
        for (const double z : {0.0, length}) {
            for (const double d : {r, q})
                edge(
                    k,
                    [=](double t) {
                        return P(d * std::cos(t), d * std::sin(t), z + d * (a * std::cos(t) + b * std::sin(t)));
                    },
                    0, 2 * pi, 192);
        }
        const CVek_Solid::Region region{shapes::circle(0, 0, r), shapes::circle(0, 0, q)};
        const CVekVector3d normal(-a, -b, 1);
        ASSERT_TRUE(solid.extrude(region, k.place, CVekPlane({}, normal), CVekPlane({0, 0, length}, normal), element));
    }

    void turned(Known& k, int element) ///< a cylinder with a cone on it, whole or in part
    {
        const double r = any(3, 5), q = any(1, 2), h = any(2, 4), top = h + any(2, 4);
        const bool part = m_random() % 2 == 0;
        const double angle = part ? 1.75 * pi : 7;
        const double slope = (q - r) / (top - h);
        k.faces = {round(0, 0, r),
                   plane(0, 0, 1, 0),
                   plane(0, 0, 1, top),
                   plane(0, 1, 0, 0),
                   plane(1, 1, 0, 0),
                   [=](const P& p) {
                       const double d = r + slope * (p.z - h);
                       return p.x * p.x + p.y * p.y - d * d;
                   }};
        k.inside = [=](const P& p, double m) {
            const double d = std::sqrt(p.x * p.x + p.y * p.y), wide = p.z < h ? r : r + slope * (p.z - h);
            // Away lies what is between 7/4 of a turn and a whole one.
            return d < wide - m && p.z > m && p.z < top - m && (!part || p.y > m || p.x + p.y < -m);
        };
        const double to = part ? angle : 2 * pi;
        for (const auto& [radius, z] : {std::pair(r, 0.0), std::pair(r, h), std::pair(q, top)})
            circle(k, {0, 0, z}, radius, 0, to);
        for (const double t : {0.0, angle}) {
            const auto at = [&](double radius, double z) { return P(radius * std::cos(t), radius * std::sin(t), z); };
            if (!part)
                continue;
            line(k, at(0, 0), at(r, 0));
            line(k, at(r, 0), at(r, h));
            line(k, at(r, h), at(q, top));
            line(k, at(q, top), at(0, top));
        }
        if (part)
            line(k, {0, 0, 0}, {0, 0, top});
        ASSERT_TRUE(
            solid.revolve({shapes::polygon({{0, 0}, {r, 0}, {r, h}, {q, top}, {0, top}})}, k.place, 0, angle, element));
    }

    void sheet(Known& k, int element) ///< one bend, the thickness to the left
    {
        const double t = any(1, 1.4), r = any(2, 3), a = r + any(2, 6), b = r + any(2, 6), length = any(4, 10);
        const double s = r - t;
        k.faces = {plane(1, 0, 0, 0), plane(1, 0, 0, t), plane(0, 1, 0, 0), plane(0, 1, 0, t),
                   plane(1, 0, 0, b), plane(0, 1, 0, a), plane(0, 0, 1, 0), plane(0, 0, 1, length),
                   round(r, r, r),    round(r, r, s),    plane(1, 0, 0, r), plane(0, 1, 0, r)};
        k.inside = [=](const P& p, double m) {
            if (p.z < m || p.z > length - m)
                return false;
            if (p.x < r && p.y < r) {
                const double d = std::sqrt((p.x - r) * (p.x - r) + (p.y - r) * (p.y - r));
                return d < r - m && d > s + m;
            }
            return (p.x > m && p.x < t - m && p.y >= r && p.y < a - m) ||
                   (p.y > m && p.y < t - m && p.x >= r && p.x < b - m);
        };
        const double xs[] = {0, t, t, r, b, b, r, 0}, ys[] = {a, a, r, t, t, 0, 0, r};
        for (int i = 0; i < 8; ++i) {
            line(k, {xs[i], ys[i], 0}, {xs[i], ys[i], length});
            for (const double z : {0.0, length}) {
                if (i == 2 || i == 6)
                    circle(k, {r, r, z}, i == 2 ? s : r, pi, 1.5 * pi);
                else
                    line(k, {xs[i], ys[i], z}, {xs[(i + 1) % 8], ys[(i + 1) % 8], z});
            }
        }
        const CVekVertexArray path = shapes::path(
            {shapes::line(0, a, 0, r), shapes::line(0, r, r, 0, std::tan(pi / 8)), shapes::line(r, 0, b, 0)});
        ASSERT_TRUE(solid.plate(path, t, 1, k.place, 0, length, element));
    }

    void drilled(Known& k, int element) ///< a plate with a straight, a slanting and a blind hole
    {
        const double t = any(2, 3), w = any(17, 20), lean = m_random() % 2 == 0 ? 0.5 : 0.25;
        box(
            k, w, 8, [](double, double) { return 0.0; }, [=](double, double) { return t; });
        ASSERT_TRUE(solid.extrude({shapes::rectangle(0, 0, w, 8)}, k.place, 0, t, element));
        const auto drill = [&](const P& at, const CVekVector3d& to, double diameter, double depth) {
            CVekMatrix3d axis;
            const CVekVector3d z = (to * k.place).normalize();
            axis.setToPlaneToWorld(z);
            const P from = at * k.place;
            axis = CVekMatrix3d().setCoordSystem(from, axis.axis(0), axis.axis(1), axis.axis(2));
            EXPECT_TRUE(solid.drill(element, axis, diameter, depth));
        };
        drill({3, 4, 0}, {0, 0, 1}, 3, 0);
        drill({8, 4, 0}, {lean, 0, 1}, 2, 0);
        drill({14, 4, t}, {0, 0, -1}, 4, t / 2);
        // Of the slanting one (x - 8 - lean z) / sqrt(1 + lean^2) is the distance across its axis.
        const double shrink = 1 / (1 + lean * lean);
        const auto slanting = [=](const P& p) {
            const double x = p.x - 8 - lean * p.z;
            return x * x * shrink + (p.y - 4) * (p.y - 4) - 1;
        };
        k.faces.insert(k.faces.end(), {round(3, 4, 1.5), slanting, round(14, 4, 2), plane(0, 0, 1, t / 2)});
        k.inside = [=, plate = k.inside](const P& p, double m) {
            return plate(p, m) && round(3, 4, 1.5)(p) > 3 * m && slanting(p) > 2 * m &&
                   (round(14, 4, 2)(p) > 4 * m || p.z < t / 2 - m);
        };
        for (const double z : {0.0, t}) {
            circle(k, {3, 4, z}, 1.5);
            edge(
                k, [=](double s) { return P(8 + lean * z + std::cos(s) / std::sqrt(shrink), 4 + std::sin(s), z); }, 0,
                2 * pi, 192);
            circle(k, {14, 4, z == 0 ? t / 2 : t}, 2);
        }
    }

    std::mt19937 m_random;
    bool m_regular; ///< at right angles and whole numbers, so that much coincides
};

/// How much of each body lies along the line of sight above a point of the world.
struct Sight {
    double length = 0;
    int spans = 0;
};
Sight sight(const Known& body, const P& from, const CVekVector3d& towards, double begin, double margin)
{
    const CVekMatrix3d toBody = body.place.inverse();
    const P origin = from * toBody;
    const CVekVector3d way = towards * toBody;
    std::vector<double> places{begin, 200};
    for (const auto& face : body.faces) { // on a line a quadric is a polynomial of degree two
        const double c = face(origin), plus = face(origin + way), minus = face(origin - way);
        const double a = (plus + minus) / 2 - c, b = (plus - minus) / 2, d = b * b - 4 * a * c;
        if (std::fabs(a) < 1e-9 && std::fabs(b) > 1e-9)
            places.push_back(-c / b);
        else if (std::fabs(a) >= 1e-9 && d >= 0)
            places.insert(places.end(), {(-b - std::sqrt(d)) / (2 * a), (-b + std::sqrt(d)) / (2 * a)});
    }
    std::sort(places.begin(), places.end());
    Sight result;
    for (std::size_t i = 0; i + 1 < places.size(); ++i) {
        const double middle = (places[i] + places[i + 1]) / 2;
        if (middle < begin || !body.inside(origin + way * middle, margin))
            continue;
        result.length += places[i + 1] - places[i];
        ++result.spans;
    }
    return result;
}

double distance(const P& p, const P& a, const P& b) // in the picture
{
    const double x = b.x - a.x, y = b.y - a.y, square = x * x + y * y;
    const double t = square > 0 ? std::clamp(((p.x - a.x) * x + (p.y - a.y) * y) / square, 0.0, 1.0) : 0;
    return std::sqrt(std::pow(a.x + t * x - p.x, 2) + std::pow(a.y + t * y - p.y, 2));
}

double distanceInSpace(const P& p, const P& a, const P& b)
{
    const CVekVector3d way = b - a;
    return p.distanceTo(a + way * std::clamp((p - a).dot(way) / way.dot(way), 0.0, 1.0));
}

bool isOn(const Lines& lines, const P& p)
{
    return std::any_of(lines.begin(), lines.end(), [&](const CVekVertexArrayEx& line) {
        return std::any_of(line.begin(), line.end(), [&](const CVekVertex& v) {
            if (v.bulge == 0.0)
                return distance(p, v.start, v.end) < kNear;
            return P(p.x, p.y, 0).distanceTo(v.lotp({p.x, p.y, 0})) < kNear;
        });
    });
}

TEST(SolidRandom, AgreesWithRaysAgainstTheInputs)
{
    int seen = 0, unseen = 0, skipped = 0, silhouettes = 0, onEdges = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        Scene scene(seed);
        ASSERT_EQ(scene.solid.bodies(), 4);
        const CVekMatrix3d view = scene.view(), toView = view.inverse();
        const CVekVector3d towards = view.axis(2);
        Lines visible, hidden;
        ASSERT_TRUE(scene.solid.project(view, true, visible, hidden, vekModelerFaces));
        SCOPED_TRACE(testing::Message() << "seed " << seed);

        const auto isHidden = [&](const P& p) {
            return std::any_of(scene.known.begin(), scene.known.end(),
                               [&](const Known& k) { return sight(k, p, towards, 1e-4, 1e-5).length > 1e-4; });
        };
        std::vector<std::pair<P, P>> pictured; // every chord of every edge
        std::vector<std::pair<P, P>> inSpace;
        for (const Known& k : scene.known) {
            for (const std::vector<P>& edge : k.edges) {
                for (std::size_t i = 0; i + 1 < edge.size(); ++i) {
                    pictured.emplace_back(edge[i] * toView, edge[i + 1] * toView);
                    inSpace.emplace_back(edge[i], edge[i + 1]);
                }
            }
        }
        // Each edge is where it must be, and seen where nothing is in front of it.
        for (const Known& k : scene.known) {
            for (const std::vector<P>& edge : k.edges) {
                const std::size_t count = edge.size() - 1;
                for (int sample = 1; sample < 6; ++sample) {
                    const auto at = [&](double t) {
                        const std::size_t i =
                            std::min(static_cast<std::size_t>(t * static_cast<double>(count)), count - 1);
                        return count == 1 ? edge[0] + (edge[1] - edge[0]) * t : edge[i]; // not on a chord
                    };
                    const double t = sample / 6.0 + 0.011;
                    const P p = at(t), before = at(t - 0.01), behind = at(t + 0.01);
                    const P q = p * toView, qBefore = before * toView, qBehind = behind * toView;
                    const bool covered = isHidden(p);
                    bool clear = covered == isHidden(before) && covered == isHidden(behind), front = !covered;
                    for (std::size_t i = 0; i < pictured.size() && clear; ++i) {
                        const auto& [a, b] = pictured[i];
                        if (distance(q, a, b) > kNear)
                            continue;
                        // One that coincides may be seen although this one is not; one that crosses is too near.
                        const bool along = distance(qBefore, a, b) < 1e-3 && distance(qBehind, a, b) < 1e-3;
                        if (!along && (distanceInSpace(p, inSpace[i].first, inSpace[i].second) > 2 * kNear ||
                                       std::find(edge.begin(), edge.end(), inSpace[i].first) == edge.end()))
                            clear = false;
                        const double x = b.x - a.x, y = b.y - a.y;
                        const double s = ((q.x - a.x) * x + (q.y - a.y) * y) / (x * x + y * y);
                        if (along && !isHidden(inSpace[i].first + (inSpace[i].second - inSpace[i].first) * s))
                            front = true;
                    }
                    if (!clear || qBefore.distanceTo({qBehind.x, qBehind.y, qBefore.z}) < 4 * kNear) {
                        ++skipped;
                        continue;
                    }
                    ++(front ? seen : unseen);
                    EXPECT_TRUE(isOn(front ? visible : hidden, q))
                        << (front ? "not seen" : "not hidden") << " at " << q.x << ' ' << q.y;
                }
            }
        }
        // Each line drawn is an edge, or where a body ends or grows deeper.
        for (const Lines* lines : {&visible, &hidden}) {
            for (const CVekVertexArrayEx& line : *lines) {
                for (const CVekVertex& v : line) {
                    const P p = v.mid();
                    if (line.kind != VekLineKind::silhouette) {
                        ++onEdges;
                        EXPECT_TRUE(
                            std::any_of(pictured.begin(), pictured.end(),
                                        [&](const auto& edge) { return distance(p, edge.first, edge.second) < kNear; }))
                            << "drawn at " << p.x << ' ' << p.y << " by element " << line.element;
                        continue;
                    }
                    const double length = v.start.distanceTo(v.end);
                    if (length < 0.5)
                        continue;
                    const CVekVector3d across((v.start.y - v.end.y) / length, (v.end.x - v.start.x) / length, 0);
                    ++silhouettes;
                    const auto depth = [&](double by) {
                        return sight(scene.known[static_cast<std::size_t>(line.element)], (p + across * by) * view,
                                     towards, -100, 1e-5)
                            .length;
                    };
                    // On one side the depth changes with the square root of the distance, so much faster.
                    const double change =
                        std::fabs(depth(0.004) - depth(0.002)) + std::fabs(depth(-0.004) - depth(-0.002));
                    EXPECT_GT(change, 0.015) << "silhouette at " << p.x << ' ' << p.y;
                }
            }
        }
    }
    EXPECT_GT(seen, 6000) << skipped << " skipped, " << onEdges << " on edges";
    EXPECT_GT(unseen, 4500);
    EXPECT_GT(silhouettes, 600);
}

} // namespace
