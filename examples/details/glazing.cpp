#include "details.h"

namespace slides
{
namespace
{

constexpr double kGlassEdge = 10.0; // from the axis to the edge of a pane, so that 15 are covered
constexpr double kGlassInside = 9.0;
constexpr double kLite = 6.0;
constexpr double kCavity = 16.0;
constexpr double kGlassOutside = kGlassInside + 2.0 * kLite + kCavity;
constexpr double kPlate = kGlassOutside + 5.0; // underside of the pressure plate
constexpr double kCapTop = kPlate + 20.0;

/// One flank of the screw channel, downwards, with its teeth.
Path channelFlank()
{
    Path path{{2.4, 13.0}};
    for (double y = 12.0; y > 2.5; y -= 1.5)
        path = joined(path, {{2.4, y}, {3.1, y - 0.4}, {2.4, y - 0.8}});
    return joined(path, {{2.4, 1.0}});
}

/// The box of mullion or transom behind y = 0, with the grooves of the gaskets and the screw channel.
void supportProfile(Drawing& d, double depth)
{
    const Path half = {{23.8, -depth}, {24.65, 0.35 - depth}, {25.0, 1.2 - depth}, {25.0, 0.0},  {18.5, 0.0},
                       {18.5, -1.2},   {19.7, -1.2},          {19.7, -2.9},        {14.3, -2.9}, {14.3, -1.2},
                       {15.5, -1.2},   {15.5, 0.0},           {5.0, 0.0},          {5.0, 13.0}};
    const Path chamber = rounded(rect(-22.5, 2.5 - depth, 45.0, depth - 8.0), 1.5);
    d.body(symmetric(joined(half, channelFlank())), ink::aluminium, {chamber});
}

/// A double glazing from its edge to a break line.
void pane(Drawing& d, double edge, double reach)
{
    constexpr double kInner = kGlassInside + kLite;
    const double away = reach > edge ? 1.0 : -1.0;
    const auto part = [&](double from, double to, double y, double height) {
        return Path{{edge + from * away, y},
                    {edge + to * away, y},
                    {edge + to * away, y + height},
                    {edge + from * away, y + height}};
    };
    const double width = (reach - edge) * away;
    d.body(part(0.0, width, kGlassInside, kLite), ink::glass);
    d.body(part(0.0, width, kInner + kCavity, kLite), ink::glass);
    d.body(part(0.0, 4.0, kInner, kCavity), ink::sealant);
    d.body(rounded(part(4.0, 10.5, kInner, kCavity), 1.0), ink::aluminium,
           {rounded(part(4.7, 9.8, kInner + 0.7, kCavity - 1.4), 0.6)});
    d.breakLine({reach, kGlassInside - 5.0}, {reach, kGlassOutside + 5.0});
}

void gaskets(Drawing& d)
{
    d.bodies({{12.5, 0.0},
              {15.7, 0.0},
              {15.7, -1.4},
              {14.6, -1.4},
              {15.2, -2.6},
              {18.8, -2.6},
              {19.4, -1.4},
              {18.3, -1.4},
              {18.3, 0.0},
              {24.6, 0.0},
              {24.6, 5.0},
              {25.6, 8.4},
              {24.8, 9.0},
              {22.6, 7.8},
              {20.4, 9.0},
              {18.2, 7.8},
              {16.0, 9.0},
              {13.8, 7.8},
              {12.5, 9.0}},
             ink::gasket, {rounded(rect(15.0, 2.0, 7.5, 3.8), 1.2)});
    constexpr double y = kGlassOutside;
    d.bodies({{14.0, y},
              {16.2, y + 1.3},
              {18.4, y},
              {20.6, y + 1.3},
              {22.8, y},
              {24.0, y + 1.0},
              {25.2, y},
              {25.0, y + 3.5},
              {24.4, y + 5.0},
              {20.3, y + 5.0},
              {20.3, y + 6.4},
              {21.4, y + 6.4},
              {21.0, y + 7.5},
              {17.0, y + 7.5},
              {16.6, y + 6.4},
              {17.7, y + 6.4},
              {17.7, y + 5.0},
              {14.0, y + 5.0}},
             ink::gasket);
}

/// The insulating block on one side of the screw.
Path insulator()
{
    return {{3.2, 13.6}, {7.6, 13.6}, {8.4, 20.0}, {8.4, 30.0}, {7.0, 34.0}, {7.0, kPlate}, {3.2, kPlate}};
}

/// Pressure plate, screw and cover cap.
void clamp(Drawing& d)
{
    constexpr double y = kPlate;
    d.bodies({{3.2, y},        {17.5, y},       {17.5, y + 1.2}, {16.3, y + 1.2}, {16.3, y + 2.8}, {21.7, y + 2.8},
              {21.7, y + 1.2}, {20.5, y + 1.2}, {20.5, y},       {24.6, y},       {24.6, y + 3.2}, {23.4, y + 4.4},
              {22.2, y + 4.4}, {22.2, y + 7.0}, {23.3, y + 7.6}, {22.4, y + 8.8}, {20.6, y + 8.8}, {20.6, y + 4.4},
              {9.0, y + 4.4},  {8.0, y + 3.4},  {3.2, y + 3.4}},
             ink::aluminium);
    d.body(symmetric({{0.0, kCapTop - 1.5},
                      {23.7, kCapTop - 1.5},
                      {23.7, y + 7.0},
                      {22.8, y + 6.2},
                      {23.7, y + 5.4},
                      {23.7, y + 4.0},
                      {25.0, y + 4.0},
                      {25.0, kCapTop - 1.0},
                      {24.7, kCapTop - 0.3},
                      {24.0, kCapTop},
                      {0.0, kCapTop}}),
           ink::aluminium);
    const Place here = d.place();
    d.place(here * Place{{0.0, y + 3.4}, -90.0});
    drawScrew(d, 5.5, 42.5, 0.0, false);
    d.place(here);
}

} // namespace

Bytes mullionSection(Format format)
{
    Drawing d(format, 190.0, 204.0, 8.0);
    d.place({{95.0, 134.0}});
    supportProfile(d, 120.0);
    pane(d, kGlassEdge, 91.0);
    pane(d, -kGlassEdge, -91.0);
    gaskets(d);
    d.bodies(insulator(), ink::polyamide);
    clamp(d);
    d.centreLine({0.0, -130.0}, {0.0, kCapTop + 6.0});
    return d.finish();
}

Bytes transomSection(Format format)
{
    Drawing d(format, 160.0, 160.0, 8.0);
    d.place({{68.0, 80.0}, 90.0});
    supportProfile(d, 80.0);
    pane(d, kGlassEdge, 76.0);
    pane(d, -kGlassEdge, -76.0);
    gaskets(d);
    d.body(mirrored(insulator()), ink::polyamide);
    // The upper pane rests on a support in the rebate, on a setting block.
    d.body({{5.0, 4.0}, {7.0, 4.0}, {7.0, 38.0}, {4.0, 38.0}, {4.0, 36.0}, {5.0, 36.0}}, ink::steel);
    d.body(rect(7.0, kGlassInside, 3.0, kGlassOutside - kGlassInside), ink::gasket);
    clamp(d);
    d.centreLine({0.0, -88.0}, {0.0, kCapTop + 5.0});
    return d.finish();
}

Bytes glazingBead(Format format)
{
    Drawing d(format, 90.0, 116.0, 12.0);
    d.place({{12.0, 8.0}});
    // The frame: two chambers, the outer flange as a stop for the glass, a groove for the foot of the bead.
    d.body({{0.0, 0.0},   {66.0, 0.0},  {66.0, 50.0}, {63.5, 50.0}, {63.5, 48.5}, {64.5, 48.5},
            {64.5, 46.0}, {58.5, 46.0}, {58.5, 48.5}, {60.0, 48.5}, {60.0, 50.0}, {5.5, 50.0},
            {5.5, 62.0},  {3.8, 62.0},  {3.8, 60.8},  {2.0, 60.8},  {2.0, 67.2},  {3.8, 67.2},
            {3.8, 66.0},  {5.5, 66.0},  {5.5, 70.0},  {4.5, 72.0},  {0.0, 72.0}},
           ink::aluminium,
           {rounded(rect(2.5, 2.5, 28.0, 45.0), 1.5),
            rounded({{33.0, 2.5}, {63.5, 2.5}, {63.5, 43.5}, {56.0, 43.5}, {56.0, 47.5}, {33.0, 47.5}}, 1.2)});

    // Outer gasket in its groove, glass on its setting block, inner gasket.
    d.body({{5.5, 61.0},
            {5.5, 62.3},
            {3.9, 62.3},
            {3.9, 61.2},
            {2.4, 62.0},
            {2.4, 66.0},
            {3.9, 66.8},
            {3.9, 65.7},
            {5.5, 65.7},
            {5.5, 71.5},
            {8.6, 73.2},
            {10.0, 72.4},
            {9.0, 70.4},
            {10.0, 68.2},
            {9.0, 66.0},
            {10.0, 63.8},
            {9.0, 61.6},
            {10.0, 60.0}},
           ink::gasket);
    d.body(rect(10.0, 50.0, 28.0, 5.0), ink::gasket);
    d.body(rect(10.0, 55.0, 6.0, 48.0), ink::glass);
    d.body(rect(32.0, 55.0, 6.0, 48.0), ink::glass);
    d.body(rect(16.0, 55.0, 16.0, 4.0), ink::sealant);
    d.body(rounded(rect(16.0, 59.0, 16.0, 6.5), 1.0), ink::aluminium, {rounded(rect(16.7, 59.7, 14.6, 5.1), 0.6)});
    d.body({{38.0, 60.0},
            {39.0, 61.6},
            {38.0, 63.8},
            {39.0, 66.0},
            {38.0, 68.2},
            {39.0, 70.4},
            {38.0, 72.4},
            {40.0, 73.4},
            {43.0, 72.0},
            {43.0, 66.4},
            {44.4, 66.4},
            {44.4, 67.4},
            {45.6, 66.6},
            {45.6, 63.4},
            {44.4, 62.6},
            {44.4, 63.6},
            {43.0, 63.6},
            {43.0, 60.0}},
           ink::gasket);
    d.breakLine({6.0, 103.0}, {42.0, 103.0});

    // The bead, clipped in.
    d.body({{43.0, 50.2}, {60.4, 50.2}, {60.4, 48.0}, {58.9, 48.0}, {59.3, 46.6}, {62.4, 46.6}, {62.9, 50.2},
            {66.0, 50.2}, {66.0, 71.0}, {65.0, 72.0}, {46.0, 72.0}, {43.2, 69.8}, {43.2, 66.9}, {44.1, 66.9},
            {44.1, 68.2}, {46.6, 67.2}, {46.6, 62.8}, {44.1, 61.8}, {44.1, 63.1}, {43.2, 63.1}},
           ink::bead,
           {rounded({{45.2, 52.2}, {63.8, 52.2}, {63.8, 69.8}, {48.8, 69.8}, {48.8, 60.6}, {45.2, 60.6}}, 0.8)});
    return d.finish();
}

Bytes gasketProfile(Format format)
{
    Drawing d(format, 40.0, 32.0, 45.0);
    d.place({{20.0, 10.0}});
    // The face of the metal with the groove, and the glass on the lips.
    d.body(
        symmetric(
            {{0.0, -8.0}, {18.0, -8.0}, {18.0, 0.0}, {1.9, 0.0}, {1.9, -1.7}, {3.6, -1.7}, {3.6, -5.4}, {0.0, -5.4}}),
        ink::aluminium);
    d.body(rect(-18.0, 10.2, 36.0, 6.0), ink::glass);

    Path half = {{0.0, -5.0}, {1.2, -5.0}, {2.2, -4.4}, {3.3, -2.5}, {3.1, -1.9}, {1.7, -1.9}, {1.7, 0.0}, {10.4, 0.0}};
    half = joined(half, arc({10.4, 1.2}, 1.2, -90.0, 0.0));
    half = joined(half, {{11.6, 4.6}, {12.4, 6.6}, {14.0, 8.8}, {13.9, 9.8}, {12.8, 10.0}, {10.8, 8.4}});
    half = joined(half, arc({8.8, 8.4}, 1.8, 20.0, 160.0));
    half = joined(half, arc({4.4, 8.4}, 1.8, 20.0, 160.0));
    half = joined(half, arc({0.0, 8.4}, 1.8, 20.0, 90.0));
    Path chamber = rounded({{2.0, 1.8}, {9.6, 1.8}, {9.6, 6.0}, {2.0, 6.0}}, 1.6);
    d.body(symmetric(half), ink::gasket, {chamber, mirrored(chamber)});
    d.centreLine({0.0, -9.5}, {0.0, 20.0});
    return d.finish();
}

} // namespace slides
