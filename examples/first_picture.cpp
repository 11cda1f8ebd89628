// Puts a slide of a library and a title into a display object, and writes the picture.
#include <vek/display.h>
#include <vek/pictures.h>
#include <vek/surfaces.h>

#include <cstdio>

int main()
{
    CVekColor white;
    white.setColor(0xFFFFFF);
    CVekGDX gdx(white, CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());

    if (!vek_gdx_image_sld(&gdx, L"PFOSTEN", L"facade.slb", 0, nullptr)) {
        std::puts("facade.slb has no slide PFOSTEN");
        return 1;
    }
    CVekMatrix3d place; // a text is 1 high, and the slide has 8 units a millimetre
    place.setCoordSystem({500, 1700, 0}, {60, 0, 0}, {0, 60, 0}, {0, 0, 60});
    CVekColor blue;
    blue.setColorIndex(5);
    gdx.imageTxt({}, 0, L"Pfosten", blue, place, L"", CVekPoint3d(), CVekPoint3d());

    VEK::CFileSink file(L"first_picture.svg");
    const auto surface = VEK::svgSurface(file, 800, 600);
    VEK::gdxDraw(gdx, *surface, 600, 800, VEK::scalableRules);
    if (!surface->finish()) {
        std::puts("first_picture.svg cannot be written");
        return 1;
    }
    std::printf("%d items in first_picture.svg\n", gdx.lenGet());
    return 0;
}
