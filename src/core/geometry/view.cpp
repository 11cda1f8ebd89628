#include "core/geometry/view_direction.h"

#include <vek/geometry/view.h>

#include <cmath>
#include <cwchar>

namespace VEK
{
namespace
{

/// Sine of the angle to the vertical below which a direction counts as vertical.
constexpr double kVertical = 1e-9;

} // namespace

CVekMatrix3d g_mtx_view(const CVekVector3d& direction, const CVekPoint3d& point, bool toView)
{
    CVekVector3d z = direction;
    z.normalize();
    if (!(z.dot(z) > 0.5))
        z = CVekVector3d::kZAxis;
    CVekVector3d x(-z[1], z[0], 0.0); // the world's z axis cross z
    if (x.dot(x) > kVertical * kVertical) {
        x.normalize();
    } else {
        z.set(0.0, 0.0, z[2] < 0.0 ? -1.0 : 1.0);
        x.set(z[2], 0.0, 0.0);
    }
    CVekMatrix3d m;
    m.setCoordSystem(point, x, z * x, z);
    return toView ? m.invert() : m;
}

CVekVector3d detail::viewDirection(const wchar_t* name)
{
    static constexpr struct {
        const wchar_t* name;
        double x, y, z;
    } kViews[] = {{L"P", 0, 0, 1},  {L"N", 0, 1, 0},   {L"S", 0, -1, 0},  {L"O", -1, 0, 0},
                  {L"W", 1, 0, 0}, // against the sign of the corners below
                  {L"NO", 1, 1, 1}, {L"NW", -1, 1, 1}, {L"SO", 1, -1, 1}, {L"SW", -1, -1, 1}};
    for (const auto& view : kViews) {
        if (name && std::wcscmp(name, view.name) == 0)
            return {view.x, view.y, view.z};
    }
    return {};
}

CVekMatrix3d g_mtx_view_dir(const wchar_t* name, const CVekPoint3d& point)
{
    if (name && std::wcscmp(name, L"E") == 0)
        return g_mtx_view(CVekVector3d::kXAxis, point, true);
    return g_mtx_view(detail::viewDirection(name), point, true); // a null direction gives the plan view
}

CVekVertex& g_vx_xy(CVekVertex& vertex)
{
    vertex.start[2] = 0.0;
    vertex.end[2] = 0.0;
    return vertex;
}

} // namespace VEK
