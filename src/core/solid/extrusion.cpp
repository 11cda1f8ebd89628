/// Prisms and folded sheets.
#include "core/solid/body.h"

#include <vek/values/tolerance.h>

namespace VEK::solids
{
namespace
{

using plane::Link;
using plane::Vec;

/// The least height of the prism over a segment.
double leastHeight(const Link& a, const Link& b, const End& low, const End& high)
{
    const auto height = [&](Vec p) { return high.z(p.x, p.y) - low.z(p.x, p.y); };
    double least = std::min(height(a.point), height(b.point));
    const plane::Arc arc(a.point, b.point, a.bulge);
    if (!arc.isArc())
        return least;
    const Bow bow = bowOf(a, b);
    const double steepest = std::atan2(high.slopeY - low.slopeY, high.slopeX - low.slopeX) + kPi;
    const double first = std::min(bow.from, bow.from + bow.sweep);
    const double t = steepest + std::ceil((first - steepest) / kFullTurn) * kFullTurn;
    if (t < first + std::fabs(bow.sweep))
        least = std::min(least, height(bow.centre + Vec{std::cos(t), std::sin(t)} * bow.radius));
    return least;
}

Vec3 raised(Vec p, const End& end)
{
    return {p.x, p.y, end.z(p.x, p.y)};
}

Curve raised(const Bow& bow, const End& end)
{
    return {raised(bow.centre, end),
            {bow.radius, 0.0, bow.radius * end.slopeX},
            {0.0, bow.radius, bow.radius * end.slopeY},
            false};
}

void addContour(Body& body, const Link* links, std::size_t sides, const End& low, const End& high, bool folded)
{
    const Id first = static_cast<Id>(body.faces.size());
    for (std::size_t i = 0; i < sides; ++i) {
        const Link &a = links[i], &b = links[i + 1];
        const Id own = static_cast<Id>(body.faces.size());
        Face& face = body.faces.emplace_back();
        Edge lower, upper;
        lower.faces[0] = upper.faces[0] = own;
        lower.faces[1] = 0;
        upper.faces[1] = 1;
        if (plane::Arc(a.point, b.point, a.bulge).isArc()) {
            const Bow bow = bowOf(a, b);
            face.band = true;
            face.low = raised(bow, low);
            face.high = raised(bow, high);
            face.from = std::min(bow.from, bow.from + bow.sweep);
            face.to = std::max(bow.from, bow.from + bow.sweep);
            face.turn = static_cast<Id>(body.turns.size());
            face.flipped = bow.sweep < 0.0; // its neighbours' normals follow the contour
            body.turns.emplace_back();
            lower.curve = face.low;
            upper.curve = face.high;
            lower.from = upper.from = face.from;
            lower.to = upper.to = face.to;
            lower.turn = upper.turn = face.turn;
        } else {
            face.p = raised(b.point, low) - raised(a.point, low);
            face.q = {0.0, 0.0, 1.0};
            lower.curve = lineThrough(raised(a.point, low), raised(b.point, low));
            upper.curve = lineThrough(raised(a.point, high), raised(b.point, high));
        }
        body.edges.push_back(lower);
        body.edges.push_back(upper);
    }
    for (std::size_t i = 0; i < sides; ++i) {
        const std::size_t before = (i + sides - 1) % sides;
        Edge upright;
        upright.curve = lineThrough(raised(links[i].point, low), raised(links[i].point, high));
        upright.faces[0] = first + static_cast<Id>(before);
        upright.faces[1] = first + static_cast<Id>(i);
        const Vec in = reaching(links[before], links[before + 1]), out = leaving(links[i], links[i + 1]);
        if (std::fabs(in.cross(out)) < kSmooth && in.dot(out) > 0.0) {
            const bool bends = body.faces[upright.faces[0]].band != body.faces[upright.faces[1]].band;
            upright.role = folded && bends ? Role::fold : Role::smooth;
        }
        body.edges.push_back(upright);
    }
}

} // namespace

bool makePrism(Body& body, const Section& section, End low, End high, bool folded)
{
    double least = 1e300, most = -1e300;
    for (std::size_t c = 0; c + 1 < section.begins.size(); ++c) {
        for (std::size_t i = section.begins[c]; i + 1 < section.begins[c + 1]; ++i) {
            least = std::min(least, leastHeight(section.links[i], section.links[i + 1], low, high));
            most = std::max(most, -leastHeight(section.links[i], section.links[i + 1], high, low));
        }
    }
    const double thinnest = pointTol(std::fabs(low.at));
    if (most < -thinnest)
        std::swap(low, high);
    else if (!(least > thinnest))
        return false;
    body.faces.resize(2);
    body.faces[0].p = {1.0, 0.0, low.slopeX};
    body.faces[0].q = {0.0, 1.0, low.slopeY};
    body.faces[1].p = {1.0, 0.0, high.slopeX};
    body.faces[1].q = {0.0, 1.0, high.slopeY};
    for (std::size_t c = 0; c + 1 < section.begins.size(); ++c) {
        const std::size_t begin = section.begins[c], end = section.begins[c + 1];
        if (end > begin + 1)
            addContour(body, &section.links[begin], end - begin - 1, low, high, folded);
    }
    return true;
}

namespace
{

struct Piece {
    Vec a, b;
    double bulge;
};

/// The line moved to its left; neighbours that do not go over into one another meet in a corner.
bool beside(std::vector<Piece>& pieces, const std::vector<Link>& links, double by)
{
    const std::size_t count = links.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const Link &a = links[i], &b = links[i + 1];
        const Vec out = leaving(a, b), in = reaching(a, b);
        const plane::Arc arc(a.point, b.point, a.bulge);
        if (arc.isArc()) {
            const double left = arc.sweep() > 0.0 ? arc.radius() - by : arc.radius() + by;
            if (!(left > kPointTol))
                return false;
        }
        pieces.push_back({a.point + out.left() * by, b.point + in.left() * by, a.bulge});
    }
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const Vec in = reaching(links[i], links[i + 1]), out = leaving(links[i + 1], links[i + 2]);
        const double sine = in.cross(out);
        if (std::fabs(sine) < kSmooth)
            continue;
        if (links[i].bulge != 0.0 || links[i + 1].bulge != 0.0)
            return false; // a bend goes over into its neighbours
        const double along = by * (in.dot(out) - 1.0) / sine;
        pieces[i].b = pieces[i + 1].a = links[i + 1].point + in.left() * by + in * along;
    }
    for (std::size_t i = 0; i < count; ++i) { // what corners close together turned round
        if (!((pieces[i].b - pieces[i].a).dot(links[i + 1].point - links[i].point) > 0.0))
            return false;
    }
    return true;
}

} // namespace

bool sheetOutline(CVekVertexArray& outline, const CVekVertexArray& line, double thickness, int side)
{
    if (!(thickness > kPointTol) || !(thickness <= kFarthest) || !line.isContinuous() || line.isClosed())
        return false;
    std::vector<Link> links;
    if (!plane::appendChain(links, line) || links.size() < 3)
        return false;
    links.pop_back(); // the way back to the start
    std::vector<Piece> left, right;
    const double toLeft = side > 0 ? thickness : side < 0 ? 0.0 : 0.5 * thickness;
    if (!beside(left, links, toLeft) || !beside(right, links, toLeft - thickness))
        return false;
    const auto add = [&](Vec a, Vec b, double bulge) { outline.append({{a.x, a.y, 0.0}, {b.x, b.y, 0.0}, bulge}); };
    for (const Piece& piece : right)
        add(piece.a, piece.b, piece.bulge);
    add(right.back().b, left.back().b, 0.0);
    for (std::size_t i = left.size(); i-- > 0;)
        add(left[i].b, left[i].a, -left[i].bulge);
    add(left.front().a, right.front().a, 0.0);
    return true;
}

} // namespace VEK::solids
