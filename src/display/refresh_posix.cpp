#include <vek/display/draw.h>
#include <vek/surfaces/emf.h>

void refresh(CVekGDX* gdx, const wchar_t* file, int height, int width)
{
    if (!gdx)
        return;
    VEK::CFileSink sink(file);
    const auto surface = VEK::emfSurface(sink);
    if (surface && VEK::gdxDraw(*gdx, *surface, height, width, VEK::paperRules))
        surface->finish();
}
