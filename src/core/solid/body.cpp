#include "core/solid/body.h"

#include <vek/values/tolerance.h>

namespace VEK::solids
{

bool isUsable(const CVekMatrix3d& m)
{
    const CVekMatrix3d::Rows& r = m;
    for (int i = 0; i < 3; ++i) {
        for (int k = 0; k < 4; ++k) {
            if (!(std::fabs(r[i][k]) <= kFarthest))
                return false;
        }
    }
    const CVekMatrix3d back = m.inverse();
    return !(back == CVekMatrix3d::kIdentity) || m == CVekMatrix3d::kIdentity;
}

void addExtents(const Body& body, Vec3& min, Vec3& max)
{
    const auto add = [&](Vec3 p) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
    };
    const auto addCurve = [&](const Curve& curve, double from, double to) {
        add(curve.at(from));
        add(curve.at(to));
        if (curve.straight)
            return;
        for (const double angle :
             {std::atan2(curve.v.x, curve.u.x), std::atan2(curve.v.y, curve.u.y), std::atan2(curve.v.z, curve.u.z)}) {
            for (double t = angle + std::ceil((from - angle) / kPi) * kPi; t < to; t += kPi)
                add(curve.at(t));
        }
    };
    for (const Edge& edge : body.edges)
        addCurve(edge.curve, edge.from, edge.to);
    for (const Face& face : body.faces) { // a cone has no edge at its point
        if (face.cone) {
            addCurve(face.low, face.from, face.to);
            addCurve(face.high, face.from, face.to);
        }
    }
}

bool mapBody(Body& body, const CVekMatrix3d& m)
{
    body.blind.clear();
    for (Edge& edge : body.edges)
        edge.curve.map(m);
    for (Face& face : body.faces) {
        face.low.map(m);
        face.high.map(m);
        face.p = mapped(m, face.p);
        face.q = mapped(m, face.q);
    }
    Vec3 min, max;
    addExtents(body, min, max);
    return std::max({-min.x, -min.y, -min.z, max.x, max.y, max.z}) <= kFarthest;
}

bool sectionOf(Section& section, const CVek_Solid::Region& region)
{
    using plane::Link;
    std::vector<Link>& links = section.links;
    for (const CVekVertexArray& contour : region) {
        section.begins.push_back(links.size());
        if (!plane::appendChain(links, contour))
            return false;
        if (section.begins.size() == 1 && links.empty())
            return false;
    }
    section.begins.push_back(links.size());
    if (links.empty())
        return false;
    const std::size_t outer = section.begins[1];
    double size = 0.0, height = 0.0;
    std::size_t far = 0;
    for (std::size_t i = 0; i < links.size(); ++i) {
        if (!(std::max(std::fabs(links[i].point.x), std::fabs(links[i].point.y)) <= kFarthest))
            return false;
        const double distance = (links[i].point - links[0].point).abs();
        if (i < outer && distance > size) {
            size = distance;
            far = i;
        }
    }
    for (std::size_t i = 0; i < outer; ++i) {
        height = std::max(height,
                          std::fabs((links[i].point - links[0].point).cross(links[far].point - links[0].point)) / size);
        if (i + 1 < outer)
            height = std::max(height, (links[i + 1].point - links[i].point).abs() * std::fabs(links[i].bulge));
    }
    return height > pointTol(size);
}

Bow bowOf(const plane::Link& a, const plane::Link& b)
{
    const plane::Arc arc(a.point, b.point, a.bulge);
    const plane::Vec centre = arc.centre();
    const plane::Vec ray = a.point - centre;
    return {centre, arc.radius(), std::atan2(ray.y, ray.x), arc.sweep()};
}

plane::Vec leaving(const plane::Link& a, const plane::Link& b)
{
    const plane::Vec t = plane::Arc(a.point, b.point, a.bulge).tangent(0.0);
    return t * (1.0 / t.abs());
}

plane::Vec reaching(const plane::Link& a, const plane::Link& b)
{
    const plane::Vec t = plane::Arc(a.point, b.point, a.bulge).tangent(1.0);
    return t * (1.0 / t.abs());
}

} // namespace VEK::solids
