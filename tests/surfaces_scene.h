// A picture that uses every call of a surface; it fills the area 320 by 240.
#pragma once

#include <vek/surfaces/surface.h>

#include <iterator>

/// A ring on white, whose white is left out on wish.
inline VEK::CPixels ringPicture(bool transparent)
{
    VEK::CPixels pixels{60, 40, {}};
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) {
            const int away = (2 * x - 59) * (2 * x - 59) + 2 * (2 * y - 39) * (2 * y - 39);
            const bool ink = away < 3000 && away > 800;
            pixels.data.push_back(ink ? 0xFF8000C0 : transparent ? 0x00FFFFFF : 0xFFFFFFFF);
        }
    }
    return pixels;
}

/// @param ellipses some players make them a pixel too small
inline void drawScene(VEK::CSurface& surface, bool ellipses)
{
    using Point = VEK::SurfacePoint;
    constexpr unsigned kRed = 0x0000FF, kGreen = 0x008000, kBlue = 0xFF0000;

    surface.clipTo(0, 0, 320, 240);
    surface.background(0xFFFFFF);
    surface.pen(1, kBlue);
    const Point frame[] = {{2, 2}, {317, 2}, {317, 237}, {2, 237}, {2, 2}};
    surface.polyline(frame, 5);

    surface.pen(5, kRed); // wide, and beyond the clip on the right
    surface.moveTo(20, 20);
    surface.lineTo(100, 30);
    surface.moveTo(250, 25);
    surface.lineTo(40000, 25);

    surface.pen(1, 0); // filled, with a hole inside
    surface.brush(kGreen);
    const Point outer[] = {{20, 50}, {120, 50}, {120, 130}, {20, 130}};
    const Point inner[] = {{40, 70}, {100, 70}, {100, 110}, {40, 110}};
    surface.clipOut(inner, 4);
    surface.polygon(outer, 4);
    surface.clipRestore();

    surface.noPen(); // self-crossing, with a hole that sticks out
    surface.brush(kBlue);
    const Point star[] = {{200, 45}, {225, 125}, {155, 75}, {245, 75}, {175, 125}};
    const Point bar[] = {{140, 85}, {260, 85}, {260, 90}, {140, 90}};
    surface.clipOut(bar, 4);
    surface.polygon(star, 5);
    surface.clipRestore();

    surface.pen(1, kRed);
    surface.noBrush();
    surface.rectangle(260, 60, 300, 100);
    if (ellipses)
        surface.ellipse(300, 130, 260, 110);
    surface.brush(kGreen);
    surface.rectangle(30, 150, 70, 190);
    surface.pen(3, kBlue);
    if (ellipses)
        surface.ellipse(90, 150, 150, 190);

    surface.solidRect(170, 150, 40, 40, kRed);
    surface.pixel(230, 170, kGreen);
    surface.pen(1, kGreen); // the dot of a line pattern
    surface.moveTo(240, 170);
    surface.lineTo(241, 170);
    surface.picture(250, 190, ringPicture(false));
    surface.solidRect(180, 195, 40, 20, kGreen);
    surface.picture(170.6, 190.6, ringPicture(true));
    surface.clipOut(bar, 4);
    surface.picture(120, 70, ringPicture(true)); // with the bar left out
    surface.clipRestore();
    for (int i = 0; i < 10; ++i) {
        surface.moveTo(20 + 4 * i, 200);
        surface.lineTo(60 + 4 * i, 230);
    }
}

inline void drawScene(VEK::CSurface& surface)
{
    drawScene(surface, true);
}
