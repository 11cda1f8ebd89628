#include "core/geometry/view_direction.h"
#include "core/values/stepping.h"

#include <vek/display/view.h>
#include <vek/geometry.h>

#include <algorithm>

CVekMatrix3d getViewMtx(CVekPoint3d min, CVekPoint3d max, int height, int width, double margin)
{
    const double h = height == 0 ? 240 : height;
    const double w = width == 0 ? 320 : width;
    const double d = std::max(max[0] - min[0], max[1] - min[1]) * margin;
    max += CVekVector3d(d, d, 0.0);
    min -= CVekVector3d(d, d, 0.0);
    const double dx = max[0] - min[0];
    const double dy = max[1] - min[1];
    if (!(dx > 0.0 && dy > 0.0))
        return {};
    const double s = w / h > dx / dy ? h / dy : w / dx;
    min -= CVekVector3d((w / s - dx) * 0.5, (h / s - dy) * 0.5, 0.0);
    CVekMatrix3d flip;
    flip.setCoordSystem({0.0, h, 0.0}, CVekVector3d::kXAxis, -CVekVector3d::kYAxis, CVekVector3d::kZAxis);
    CVekMatrix3d fit;
    fit.setCoordSystem({-s * min[0], -s * min[1], 0.0}, {s, 0.0, 0.0}, {0.0, s, 0.0}, {0.0, 0.0, s});
    return flip * fit;
}

CVekVector3d vek_gdx_view_vdir_get(const wchar_t* keyword)
{
    return VEK::detail::viewDirection(keyword);
}

CVekVertexArray vek_g_vl_mtx_view(const CVekVertexArray& vl, const CVekVector3d& direction, const CVekPoint3d& point,
                                  bool toView)
{
    CVekVertexArray flat = vl.getTransformedCopy(VEK::g_mtx_view(direction, point, toView));
    if (!VEK::plane::isLevel(flat.normal())) {
        if (VEK::plane::hasArcs(flat))
            flat = VEK::plane::inFineChords(flat);
        flat.setNormal(CVekVector3d::kZAxis);
    }
    for (CVekVertex& vertex : flat)
        VEK::g_vx_xy(vertex);
    return flat;
}
