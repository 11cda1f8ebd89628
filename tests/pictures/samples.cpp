// Draws sample pictures as metafile and as SVG into a folder: picture_samples FOLDER
#include <vek/display.h>
#include <vek/draw.h>
#include <vek/surfaces.h>

#include "core/platform/platform.h"
#include "display/pass_rules.h"
#include "surfaces_scene.h"

#include <cmath>
#include <cstdio>
#include <functional>
#include <iterator>

namespace
{

constexpr int kWidth = 640, kHeight = 480;

CVekColor rgb(unsigned long value)
{
    CVekColor color;
    color.setColor(value);
    return color;
}

CVekMatrix3d placed(double x, double y, double scale)
{
    CVekMatrix3d m;
    return m.setCoordSystem({x, y, 0}, {scale, 0, 0}, {0, scale, 0}, {0, 0, scale});
}

CVekVertexArray circle(double x, double y, double radius)
{
    CVekVertexArray vl(CVekVertex({x + radius, y, 0}, {x - radius, y, 0}, 1.0));
    vl.append(CVekVertex({x - radius, y, 0}, {x + radius, y, 0}, 1.0));
    return vl;
}

CVekVertexArray box(double x, double y, double width, double height)
{
    CVekPoint3dArray points;
    for (const CVekPoint3d& p : {CVekPoint3d(x, y, 0), CVekPoint3d(x + width, y, 0),
                                 CVekPoint3d(x + width, y + height, 0), CVekPoint3d(x, y + height, 0)})
        points.append(p);
    CVekVertexArray vl;
    return vl.fromPoints(points, true);
}

/// Every kind of item that is drawn, in an area of 640 by 480.
CVekGDX everything()
{
    CVekGDX gdx(rgb(0xFFFFFF), CVekMatrix3d(), 8.0, 2, {}, {});
    const CVekColor red = rgb(0xC00000), green = rgb(0x00A000), blue = rgb(0x0000C0), none;
    const CVekMatrix3d here;
    gdx.imageVl({}, 0, box(2, 2, 636, 476), none, here, {}, 1.0, 1, {});

    CVekArrayTempl<CVekVertexArray> plate; // with two drill holes and a slot that has corners
    plate.append(box(20, 320, 260, 140));
    plate.append(circle(70, 390, 30));
    plate.append(circle(230, 390, 30));
    plate.append(box(120, 350, 60, 80));
    gdx.imageReg({}, itemFill | itemOutline, plate, none, here, {}, 1.0, 1, rgb(0xB0C4DE), {}, {});
    CVekArrayTempl<CVekVertexArray> moon;
    moon[0] = circle(360, 390, 60);
    moon[0][1].bulge = -0.4;
    gdx.imageReg({}, itemFill, moon, blue, here, {}, 1.0, 1, {}, {}, {});
    gdx.imageVl({}, 0, circle(520, 390, 70), red, here, {}, 1.0, 1, {});
    CVekMatrix3d tilt;
    tilt.setToRotation(1.1, CVekVector3d(1, 1, 0), {520, 390, 0});
    gdx.imageVl({}, 0, circle(520, 390, 70), green, tilt, {}, 1.0, 1, {});

    const unsigned long styles[] = {0, 2, 3, 4, 8, 32, 33, 34, 35, 36, 64, 65, 66, 67, 68, 96, 97, 98, 99, 100};
    int column = 0;
    for (const unsigned long style : styles)
        gdx.imagePt({}, 0, {30.0 + 30 * column++, 290, 0}, red, here, -20.0, style, {});
    gdx.imageTxt({}, 0, L"ABCDEFGHIJKLMNOPQRSTUVWXYZ", none, placed(20, 235, 20), L"", {}, {});
    gdx.imageTxt({}, 0, L"abcdefghijklmnopqrstuvwxyz0123456789", blue, placed(20, 190, 16), L"", {}, {});
    gdx.imageTxt({}, 0, L"\u00C4\u00D6\u00DC\u00E4\u00F6\u00FC\u00DF!?#%&()+-*/=<>@", green, placed(20, 140, 20), L"",
                 {}, {});
    gdx.imageTxt({}, 0, L"80%OQR", red, placed(20, 20, 80), L"", {}, {});
    return gdx;
}

bool write(const std::string& path, const std::function<std::unique_ptr<VEK::CFileSurface>(VEK::CByteSink&)>& make,
           const std::function<void(VEK::CSurface&)>& draw)
{
    VEK::CFileSink sink(VEK::platform::wideOf(path).c_str());
    const auto surface = make(sink);
    draw(*surface);
    return surface->finish();
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2)
        return 2;
    const std::string folder = arguments[1];
    const auto emf = [](VEK::CByteSink& sink) { return VEK::emfSurface(sink); };
    const auto fine = [](VEK::CByteSink& sink) { return VEK::emfSurface(sink, 16); };
    const auto svg = [](VEK::CByteSink& sink) { return VEK::svgSurface(sink, kWidth, kHeight); };
    CVekGDX gdx = everything();
    gdx.extMaxViewSet({0, 0, 0}, {kWidth, kHeight, 0});
    CVekMatrix3d flip; // one unit is one pixel
    gdx.viewMtxSet(flip.setCoordSystem({0, kHeight, 0}, {1, 0, 0}, {0, -1, 0}, {0, 0, 1}));
    const auto draw = [&](VEK::PassRules rules) {
        return [&gdx, rules](VEK::CSurface& surface) mutable {
            rules.fitsView = false;
            VEK::gdxDraw(gdx, surface, kHeight, kWidth, rules);
        };
    };
    const auto scene = [](VEK::CSurface& surface) { drawScene(surface); };
    const auto pictures = [](VEK::CSurface& surface) {
        surface.clipTo(0, 0, kWidth, kHeight);
        surface.picture(20, 30, ringPicture(false));
        surface.picture(120, 30, ringPicture(true));
        surface.moveTo(20, 100);
        surface.lineTo(300, 110);
    };
    const bool good = write(folder + "/pictures.emf", emf, pictures) &&
                      write(folder + "/pictures.svg", svg, pictures) && write(folder + "/scene.emf", emf, scene) &&
                      write(folder + "/scene.svg", svg, scene) &&
                      write(folder + "/paper.emf", emf, draw(VEK::paperRules)) &&
                      write(folder + "/paper.svg", svg, draw(VEK::paperRules)) &&
                      write(folder + "/areas.emf", emf, draw(VEK::scalableRules)) &&
                      write(folder + "/areas.svg", svg, draw(VEK::scalableRules)) &&
                      write(folder + "/fine.emf", fine, draw(VEK::scalableRules)) &&
                      write(folder + "/fine.svg", svg, draw(VEK::scalableRules)) &&
                      write(folder + "/screen.emf", emf, draw(VEK::screenRules)) &&
                      write(folder + "/screen.svg", svg, draw(VEK::screenRules));
    return good ? 0 : 1;
}
