#include <vek/solid/solid.h>

#include "core/solid/picture.h"
#include "core/values/whole.h"

#include <vek/values/tolerance.h>

#include <memory>

namespace VEK::solids
{
namespace
{

using Lists = std::pair<CVekArrayTempl<CVekVertexArrayEx>, CVekArrayTempl<CVekVertexArrayEx>>;

Vec3 vec(const CVekPoint3d& p)
{
    return {p[0], p[1], p[2]};
}
Vec3 vec(const CVekVector3d& v)
{
    return {v.x, v.y, v.z};
}

bool endOf(End& end, const CVekPlane& plane)
{
    const Vec3 normal = vec(plane.normal()).unit(), point = vec(plane.point());
    if (!(std::fabs(normal.z) > kSmooth) ||
        !(std::fabs(point.x) + std::fabs(point.y) + std::fabs(point.z) <= kFarthest))
        return false;
    end.slopeX = -normal.x / normal.z;
    end.slopeY = -normal.y / normal.z;
    end.at = normal.dot(point) / normal.z;
    return true;
}

bool holeOf(Hole& hole, const CVekMatrix3d& axis, double diameter, double depth)
{
    if (!isUsable(axis) || !(diameter > 2.0 * VEK::kPointTol) || !(diameter <= kFarthest) || !(depth >= 0.0) ||
        !(depth <= kFarthest))
        return false;
    CVekMatrix3d frame;
    frame.setToPlaneToWorld(axis.axis(2)); // holes along one direction are cut into chords at the same places
    const CVekVector3d origin = axis.translation();
    hole = {vec(origin), vec(frame.axis(0)), vec(frame.axis(1)), vec(frame.axis(2)), 0.5 * diameter, depth};
    return true;
}

bool isAlong(const Hole& a, const Hole& b)
{
    return (a.x - b.x).abs() <= kAngleTol && (a.z - b.z).abs() <= kAngleTol;
}

/// The tolerance of a picture of bodies that reach so far.
double toleranceOf(const std::vector<Body>& bodies, const CVekMatrix3d& toView)
{
    Vec3 min{1e300, 1e300, 1e300}, max{-1e300, -1e300, -1e300};
    for (const Body& body : bodies)
        addExtents(body, min, max);
    double reach = 0.0;
    for (int i = 0; i < 8; ++i) {
        const Vec3 corner = mappedPoint(toView, {i & 1 ? min.x : max.x, i & 2 ? min.y : max.y, i & 4 ? min.z : max.z});
        reach = std::max({reach, std::fabs(corner.x), std::fabs(corner.y), std::fabs(corner.z)});
    }
    return pointTol(reach);
}

} // namespace
} // namespace VEK::solids

using namespace VEK::solids;

struct CVek_Solid::Rep {
    static constexpr std::size_t kMostLines = 5'000'000; ///< a projection takes about half a kilobyte for each

    std::vector<Body> bodies;
    std::size_t lines = 0; ///< of all bodies, as last counted

    static std::size_t linesOf(const std::vector<Body>& list)
    {
        std::size_t count = 0;
        for (const Body& body : list) {
            for (const Edge& edge : body.edges)
                count += edge.curve.straight ? 1 : kChords;
        }
        return count;
    }

    /// Takes bodies over if there is room for them.
    bool append(std::vector<Body>&& more)
    {
        const std::size_t count = lines + linesOf(more);
        if (count > kMostLines)
            return false;
        bodies.insert(bodies.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
        lines = count;
        return true;
    }

    /// Adds what a job builds, placed in the world.
    template <class Make>
    bool build(const CVekMatrix3d& placement, int element, Make&& make)
    {
        if (!isUsable(placement))
            return false;
        return VEK::whole(false, [&] {
            std::vector<Body> made(1);
            made[0].element = element;
            return make(made[0]) && mapBody(made[0], placement) && append(std::move(made));
        });
    }
};

CVek_Solid::CVek_Solid()
{
    m_rep = VEK::whole(std::unique_ptr<Rep>(), [] { return std::make_unique<Rep>(); }).release();
}

CVek_Solid::~CVek_Solid()
{
    delete m_rep;
}

bool CVek_Solid::extrude(const Region& region, const CVekMatrix3d& placement, double z0, double z1, int element,
                         bool folded)
{
    const CVekVector3d up(0.0, 0.0, 1.0);
    return extrude(region, placement, CVekPlane({0.0, 0.0, z0}, up), CVekPlane({0.0, 0.0, z1}, up), element, folded);
}

bool CVek_Solid::extrude(const Region& region, const CVekMatrix3d& placement, const CVekPlane& start,
                         const CVekPlane& end, int element, bool folded)
{
    End low, high;
    return m_rep && endOf(low, start) && endOf(high, end) && m_rep->build(placement, element, [&](Body& body) {
        Section section;
        return sectionOf(section, region) && makePrism(body, section, low, high, folded);
    });
}

bool CVek_Solid::plate(const CVekVertexArray& line, double thickness, int side, const CVekMatrix3d& placement,
                       double z0, double z1, int element)
{
    const CVekVector3d up(0.0, 0.0, 1.0);
    return plate(line, thickness, side, placement, CVekPlane({0.0, 0.0, z0}, up), CVekPlane({0.0, 0.0, z1}, up),
                 element);
}

bool CVek_Solid::plate(const CVekVertexArray& line, double thickness, int side, const CVekMatrix3d& placement,
                       const CVekPlane& start, const CVekPlane& end, int element)
{
    return VEK::whole(false, [&] {
        Region region;
        return sheetOutline(region[0], line, thickness, side) && extrude(region, placement, start, end, element, true);
    });
}

bool CVek_Solid::revolve(const Region& profile, const CVekMatrix3d& placement, double from, double angle, int element)
{
    return m_rep && m_rep->build(placement, element, [&](Body& body) {
        Section section;
        return sectionOf(section, profile) && makeRevolved(body, section, from, angle);
    });
}

bool CVek_Solid::drill(int element, const CVekMatrix3d& axis, double diameter, double depth)
{
    bool any = false;
    for (int i = 0; i < bodies(); ++i) {
        if (m_rep->bodies[static_cast<std::size_t>(i)].element == element)
            any = drillBody(i, axis, diameter, depth) || any;
    }
    return any;
}

bool CVek_Solid::drillEach(int element, const CVekArrayTempl<CVekMatrix3d>& axes, double diameter, double depth)
{
    return m_rep && VEK::whole(false, [&] {
               std::vector<Hole> holes;
               Hole hole;
               for (const CVekMatrix3d& axis : axes) {
                   if (holeOf(hole, axis, diameter, depth))
                       holes.push_back(hole);
               }
               std::vector<Body> changed = m_rep->bodies;
               bool any = false;
               for (std::size_t i = 0, end; i < holes.size(); i = end) {
                   end = i + 1;
                   while (end < holes.size() && isAlong(holes[end], holes[i]))
                       ++end;
                   const std::vector<Hole> run(&holes[i], &holes[0] + end);
                   for (Body& body : changed) {
                       if (body.element == element)
                           any = drilled(body, run) || any;
                   }
               }
               const std::size_t lines = Rep::linesOf(changed);
               if (!any || lines > Rep::kMostLines)
                   return false;
               m_rep->bodies.swap(changed);
               m_rep->lines = lines;
               return true;
           });
}

bool CVek_Solid::drillBody(int body, const CVekMatrix3d& axis, double diameter, double depth)
{
    Hole hole;
    return body >= 0 && body < bodies() && holeOf(hole, axis, diameter, depth) &&
           VEK::whole(false, [&] { return drilled(m_rep->bodies[static_cast<std::size_t>(body)], hole); });
}

bool CVek_Solid::add(const CVek_Solid& other, const CVekMatrix3d& placement)
{
    if (!m_rep || other.bodies() == 0 || !isUsable(placement))
        return false;
    return VEK::whole(false, [&] {
        std::vector<Body> copies = other.m_rep->bodies;
        for (Body& body : copies) {
            if (!mapBody(body, placement))
                return false;
        }
        return m_rep->append(std::move(copies));
    });
}

bool CVek_Solid::add(const CVek_Solid& other, const CVekMatrix3d& placement, int element)
{
    const std::size_t before = static_cast<std::size_t>(bodies());
    if (!add(other, placement))
        return false;
    for (std::size_t i = before; i < m_rep->bodies.size(); ++i)
        m_rep->bodies[i].element = element;
    return true;
}

void CVek_Solid::clear()
{
    if (!m_rep)
        return;
    m_rep->bodies.clear();
    m_rep->lines = 0;
}

int CVek_Solid::bodies() const
{
    return m_rep ? static_cast<int>(m_rep->bodies.size()) : 0;
}

bool CVek_Solid::extents(CVekPoint3d& min, CVekPoint3d& max) const
{
    if (bodies() == 0)
        return false;
    Vec3 low{1e300, 1e300, 1e300}, high{-1e300, -1e300, -1e300};
    for (const Body& body : m_rep->bodies)
        addExtents(body, low, high);
    min.set(low.x, low.y, low.z);
    max.set(high.x, high.y, high.z);
    return true;
}

bool CVek_Solid::solid()
{
    return bodies() > 0; // faces and edges are built when bodies are added; the rest depends on the view
}

bool CVek_Solid::project(const CVekMatrix3d& view, bool together, CVekArrayTempl<CVekVertexArrayEx>& visible,
                         CVekArrayTempl<CVekVertexArrayEx>& hidden, VEK_MODELER_TYPE)
{
    visible.setLogicalLength(0);
    hidden.setLogicalLength(0);
    if (!solid() || !isUsable(view))
        return false;
    std::unique_ptr<Lists> lists = VEK::whole(std::unique_ptr<Lists>(), [&] {
        auto result = std::make_unique<Lists>();
        const CVekMatrix3d toView = view.inverse();
        const double tolerance = toleranceOf(m_rep->bodies, toView);
        Picture picture;
        picture.clear(tolerance);
        Id number = 0;
        for (const Body& body : m_rep->bodies) {
            addToPicture(picture, body, number++, toView);
            if (together && number < m_rep->bodies.size())
                continue;
            const std::vector<Piece> pieces = piecesOf(picture);
            joinPieces(picture, pieces, result->first, result->second);
            picture.clear(tolerance);
        }
        return result;
    });
    if (!lists)
        return false;
    visible.swap(lists->first);
    if (&visible == &hidden)
        visible += std::move(lists->second);
    else
        hidden.swap(lists->second);
    return true;
}
