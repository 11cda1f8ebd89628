#include "core/objects/placement.h"

#include <vek/objects/element.h>

#include "core/values/whole.h"

#include <algorithm>

namespace VEK
{
namespace objects
{

double unitFactor(Vek::lUnit from, Vek::lUnit to)
{
    return from == to ? 1.0 : acadUnitCv(1.0, from, to);
}

CVekMatrix3d scaling(double factor)
{
    return CVekMatrix3d().setToScaling(factor, CVekPoint3d::kOrigin);
}

namespace
{

/// The axes of a placement told by directions.
CVekMatrix3d frame(const CVekVector3d& zDirection, const CVekVector3d& xDirection)
{
    CVekVector3d z = zDirection;
    z.normalize();
    CVekMatrix3d m = CVekMatrix3d().setToPlaneToWorld(z);
    z = m.axis(2);
    CVekVector3d x = xDirection;
    x.normalize();
    x -= z * z.dot(x);
    constexpr double kAlong = 1e-9; // an x direction along z says nothing
    if (x.abs() > kAlong) {
        x.normalize();
        m.setCoordSystem(CVekPoint3d::kOrigin, x, z * x, z);
    }
    return m;
}

} // namespace
} // namespace objects

CVekMatrix3d g_mtx_local(const CVekDataItem* item)
{
    CVekMatrix3d m;
    if (dataGet(item, L"MTX", m))
        return m;
    CVekPoint3d origin, x, z(0.0, 0.0, 1.0);
    CVekPoint3dArray axis;
    dataGet(item, L"ORG", origin);
    dataGet(item, L"XDIR", x);
    dataGet(item, L"ZDIR", z);
    if (dataGet(item, L"AXIS", axis) && axis.len() >= 2) {
        origin = axis[0];
        z = (axis[1] - axis[0]).asPoint();
    }
    double angle = 0.0;
    double factor = 1.0;
    CVekPoint3d factors(1.0, 1.0, 1.0);
    dataGet(item, L"ROT", angle);
    if (!dataGet(item, L"SCALE", factors) && dataGet(item, L"SCALE", factor))
        factors.set(factor, factor, factor);
    CVekMatrix3d scale;
    scale.setCoordSystem(CVekPoint3d::kOrigin, CVekVector3d(factors[0], 0, 0), CVekVector3d(0, factors[1], 0),
                         CVekVector3d(0, 0, factors[2]));
    m = objects::frame(z.asVector(), x.asVector());
    if (angle != 0.0)
        m = m * CVekMatrix3d().setToRotation(angle, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
    m = m * scale;
    for (int row = 0; row < 3; ++row)
        m[row][3] = origin[row];
    return m;
}

bool g_mtx_local(const CVekDataItem* item, double (*rows)[4], Vek::lUnit from, Vek::lUnit to)
{
    if (!item || !rows)
        return false;
    const CVekMatrix3d m = whole(CVekMatrix3d(), [&] { return g_mtx_local(item); });
    const double factor = objects::unitFactor(from, to);
    for (int row = 0; row < 4; ++row) {
        std::copy_n(m[row], 4, rows[row]);
        if (row < 3)
            rows[row][3] *= factor;
    }
    return true;
}

CVekMatrix3d getBtTransformation(const CVekDataItem* element, const CVekDataItem* entry, const CVekMatrix3d& mtx,
                                 double scale, double&)
{
    Vek::lUnit from = Vek::unitNone;
    Vek::lUnit to = Vek::unitNone;
    CVekMatrix3d assembly;
    if (!dataGet(entry, L"PARM\\INSUNIT", from))
        dataGet(element, L"UNIT", from);
    dataGet(entry, L"PARM\\DEFUNIT", to);
    dataGet(entry, L"MTX", assembly);
    return mtx * objects::scaling(scale) * assembly * objects::scaling(objects::unitFactor(from, to)) *
           g_mtx_local(element);
}

CVekPoint3d getBtBasePoint(const CVekMatrix3d& mtx, const CVekMatrix3d& view, const CVekPoint3d& point)
{
    CVekPoint3d base = point * mtx * view.inverse();
    base.z = 0.0;
    return base;
}

} // namespace VEK
