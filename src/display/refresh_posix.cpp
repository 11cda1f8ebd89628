#include <vek/display/draw.h>
#include <vek/surfaces/emf.h>

#include <exception>

void refresh(CVekGDX* gdx, const wchar_t* file, int height, int width)
{
    if (!gdx)
        return;
    try {
        VEK::CFileSink sink(file);
        const auto surface = VEK::emfSurface(sink);
        VEK::gdxDraw(*gdx, *surface, height, width, VEK::paperRules);
        surface->finish();
    } catch (const std::exception&) { // no memory, or a path that is none in this system
    }
}
