#include <vek/surfaces/surface.h>

void VEK::CSurface::polyline(const SurfacePoint* points, int count)
{
    if (count < 1)
        return;
    moveTo(points[0].x, points[0].y);
    for (int i = 1; i < count; ++i)
        lineTo(points[i].x, points[i].y);
}

void VEK::CSurface::polylines(const SurfacePoint* points, const int* counts, int lines)
{
    for (int i = 0; i < lines; ++i) {
        polyline(points, counts[i]);
        points += counts[i];
    }
}
