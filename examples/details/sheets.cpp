#include "details.h"

namespace slides
{
namespace
{

constexpr double kPitch = 207.0;
constexpr double kRib = 35.0;

/// The axis of one rib of the trapezoidal sheet from one valley's middle to the next.
Path ribAxis(double x)
{
    return {{x + 12.0, 0.0},         {x + 15.0, 3.0},   {x + 21.0, 3.0},   {x + 24.0, 0.0},
            {x + 59.5, 0.0},         {x + 83.5, kRib},  {x + 99.0, kRib},  {x + 101.0, kRib - 2.0},
            {x + 106.0, kRib - 2.0}, {x + 108.0, kRib}, {x + 123.5, kRib}, {x + 147.5, 0.0},
            {x + 183.0, 0.0},        {x + 186.0, 3.0},  {x + 192.0, 3.0},  {x + 195.0, 0.0}};
}

} // namespace

void drawScrew(Drawing& d, double diameter, double length, double washer, bool drills)
{
    const double r = diameter / 2.0;
    const double root = 0.78 * r;
    const double flange = -0.18 * diameter;
    const double head = flange - 0.85 * diameter;
    d.body(swapped(symmetric({{0.0, head - 0.1 * diameter},
                              {0.6 * diameter, head - 0.1 * diameter},
                              {0.72 * diameter, head},
                              {0.72 * diameter, flange - 0.08 * diameter},
                              {0.85 * diameter, flange},
                              {1.1 * diameter, 0.0},
                              {0.0, 0.0}})),
           ink::screw);
    d.line({flange, -0.36 * diameter}, {head, -0.36 * diameter});
    d.line({flange, 0.36 * diameter}, {head, 0.36 * diameter});
    if (washer > 0.0)
        d.body(rect(0.0, -1.25 * diameter, washer, 2.5 * diameter), ink::gasket);

    const double pitch = 0.3 * diameter;
    const double start = washer + 0.2 * diameter;
    const int turns = static_cast<int>((length - start - (drills ? 1.6 : 0.2) * diameter) / pitch);
    const double end = start + turns * pitch;
    Path upper = {{washer, root}, {start, root}};
    Path lower = {{washer, -root}, {start, -root}};
    for (double x = start; x < end - 0.5 * pitch; x += pitch) {
        upper = joined(upper, {{x + 0.25 * pitch, r}, {x + 0.5 * pitch, root}, {x + pitch, root}});
        lower = joined(lower, {{x + 0.5 * pitch, -root}, {x + 0.75 * pitch, -r}, {x + pitch, -root}});
    }
    const double drill = 0.86 * root;
    const Path drillPoint = {
        {end, drill}, {length - drill, drill}, {length, 0.0}, {length - drill, -drill}, {end, -drill}};
    const Path blunt = {{length, 0.7 * root}, {length, -0.7 * root}};
    d.body(joined(joined(upper, drills ? drillPoint : blunt), Path(lower.rbegin(), lower.rend())), ink::screw);
    for (double x = start; x < end - 0.5 * pitch; x += pitch)
        d.line({x + 0.25 * pitch, r}, {x + 0.75 * pitch, -r});
    if (drills)
        d.open({{end + 0.3 * drill, 0.5 * drill}, {length - 1.4 * drill, 0.1 * drill}, {length, 0.0}});
}

Bytes drillScrew(Format format)
{
    Drawing d(format, 80.0, 40.0, 30.0);
    d.place({{14.0, 20.0}});
    drawScrew(d, 6.3, 58.0, 2.0, true);
    d.centreLine({-11.0, 0.0}, {63.0, 0.0});
    return d.finish();
}

Bytes sheetProfile(Format format)
{
    Drawing d(format, 450.0, 130.0, 6.0);
    // A purlin runs across below the sheet.
    d.fill(rect(10.0, 8.0, 430.0, 60.0), ink::steel);
    d.color(ink::outline);
    d.line({10.0, 68.0}, {440.0, 68.0});
    d.line({10.0, 8.0}, {440.0, 8.0});
    d.color(ink::hatch);
    d.line({10.0, 64.0}, {440.0, 64.0});
    d.line({10.0, 12.0}, {440.0, 12.0});
    d.breakLine({10.0, 2.0}, {10.0, 74.0});
    d.breakLine({440.0, 2.0}, {440.0, 74.0});

    d.place({{18.0, 69.0}});
    d.body(strip(joined(joined(Path{{0.0, 0.0}}, ribAxis(0.0)), joined(ribAxis(kPitch), {{2.0 * kPitch, 0.0}})), 1.6),
           ink::coating);
    for (const double x : {36.0, 171.0, 36.0 + kPitch, 171.0 + kPitch}) {
        d.place({{18.0 + x, 71.6}, -90.0});
        drawScrew(d, 6.3, 26.0, 1.8, true);
    }
    return d.finish();
}

Bytes sandwichPanel(Format format)
{
    Drawing d(format, 210.0, 230.0, 7.0);
    // Two panels with the outside on the left. The outer facing of the upper one hides the screw of the lower one.
    d.fill({{20.0, 12.0},
            {120.0, 12.0},
            {120.0, 115.0},
            {112.0, 115.0},
            {110.0, 129.0},
            {100.0, 129.0},
            {98.0, 115.0},
            {46.0, 115.0},
            {42.0, 135.0},
            {30.0, 135.0},
            {30.0, 90.0},
            {20.0, 84.0}},
           ink::wool);
    d.fill({{20.0, 218.0},
            {20.0, 139.0},
            {44.0, 139.0},
            {48.0, 118.0},
            {96.0, 118.0},
            {98.0, 132.0},
            {112.0, 132.0},
            {114.0, 118.0},
            {120.0, 118.0},
            {120.0, 218.0}},
           ink::wool);
    d.color(ink::woolLine);
    d.zigzag({70.0, 12.0}, {70.0, 84.0}, 97.0, 8.0);
    d.zigzag({70.0, 143.0}, {70.0, 218.0}, 97.0, 8.0);
    d.color(ink::outline);
    d.open({{100.0, 129.0}, {98.0, 115.0}, {46.0, 115.0}, {42.0, 135.0}});
    d.open({{21.0, 139.0}, {44.0, 139.0}, {48.0, 118.0}, {96.0, 118.0}, {98.0, 132.0}});

    constexpr double kFacing = 1.4;
    const Path facings[] = {{{20.0, 12.0}, {20.0, 84.0}, {30.0, 90.0}, {30.0, 135.0}, {41.0, 135.0}},
                            {{120.0, 12.0}, {120.0, 115.0}, {112.0, 115.0}, {110.0, 129.0}, {100.0, 129.0}},
                            {{20.0, 218.0}, {20.0, 87.0}, {24.0, 87.0}, {24.0, 91.0}},
                            {{120.0, 218.0}, {120.0, 118.0}, {114.0, 118.0}, {112.0, 132.0}, {99.0, 132.0}}};
    for (const Path& facing : facings)
        d.body(strip(facing, kFacing), ink::coating);
    d.body(rounded(rect(32.0, 135.8, 8.0, 3.0), 1.0), ink::gasket);
    d.body(rounded(rect(101.0, 129.8, 8.0, 1.6), 0.6), ink::gasket);
    d.breakLine({12.0, 12.0}, {128.0, 12.0});
    d.breakLine({12.0, 218.0}, {128.0, 218.0});

    // The supporting tube, the sealing tape and the screw with its load plate.
    d.body({{122.7, 103.2},
            {122.7, 130.0},
            {182.7, 130.0},
            {182.7, 70.0},
            {122.7, 70.0},
            {122.7, 96.8},
            {126.7, 96.8},
            {126.7, 74.0},
            {178.7, 74.0},
            {178.7, 126.0},
            {126.7, 126.0},
            {126.7, 103.2}},
           ink::steel);
    d.body(rect(120.7, 73.0, 2.0, 16.0), ink::gasket);
    d.body(rect(120.7, 111.0, 2.0, 16.0), ink::gasket);
    d.body(rect(27.5, 93.0, 1.8, 20.0), ink::screw);
    d.place({{27.5, 100.0}});
    drawScrew(d, 5.5, 118.0, 0.0, true);
    return d.finish();
}

} // namespace slides
