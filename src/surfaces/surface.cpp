#include <vek/surfaces/surface.h>

void VEK::CSurface::polyline(const SurfacePoint* points, int count)
{
    if (count < 1)
        return;
    moveTo(points[0].x, points[0].y);
    for (int i = 1; i < count; ++i)
        lineTo(points[i].x, points[i].y);
}
