#include "details.h"

namespace slides
{
namespace
{

/// A hexagon bolt along x through parts with a total thickness `grip`, its head to the left of the origin.
void bolt(Drawing& d, double diameter, double grip)
{
    const double r = diameter / 2.0;
    const double head = 0.65 * diameter;
    const double across = 0.85 * diameter; // half of the width over corners
    const double washer = 0.2 * diameter;
    const double end = grip + washer + 0.8 * diameter + 3.0;
    const auto hexagon = [&](double x, double width) {
        d.body(rect(x, -across, width, 2.0 * across), ink::screw);
        d.color(ink::outline);
        d.line({x, -0.45 * diameter}, {x + width, -0.45 * diameter});
        d.line({x, 0.45 * diameter}, {x + width, 0.45 * diameter});
    };
    d.fill(rect(0.0, -r, grip, 2.0 * r), ink::screw);
    hexagon(-head, head);
    d.body(rect(grip, -1.1 * diameter, washer, 2.2 * diameter), ink::screw);
    hexagon(grip + washer, 0.8 * diameter);
    const double nut = grip + washer + 0.8 * diameter;
    d.body({{nut, -r}, {end - 1.0, -r}, {end, 1.0 - r}, {end, r - 1.0}, {end - 1.0, r}, {nut, r}}, ink::screw);
    d.color(ink::outline);
    d.line({nut, 0.82 * r}, {end, 0.82 * r});
    d.line({nut, -0.82 * r}, {end, -0.82 * r});
    d.centreLine({-head - 4.0, 0.0}, {end + 4.0, 0.0});
}

/// The end of a polyamide bar in the hooks of a shell: the shell is right of x = 0, the bar comes from the left.
Path barSeat(double y)
{
    return {{0.0, y - 5.0}, {0.0, y - 1.1}, {1.6, y - 1.1}, {1.0, y - 2.6}, {4.0, y - 2.6},
            {4.0, y + 2.6}, {1.0, y + 2.6}, {1.6, y + 1.1}, {0.0, y + 1.1}, {0.0, y + 5.0}};
}

} // namespace

Bytes bracketSection(Format format)
{
    Drawing d(format, 330.0, 330.0, 4.0);
    // The edge of the slab.
    const Path slab = {{12.0, 20.0},  {150.0, 20.0},  {150.0, 220.0}, {112.0, 220.0}, {112.0, 196.0}, {95.0, 196.0},
                       {95.0, 124.0}, {104.0, 124.0}, {104.0, 118.0}, {76.0, 118.0},  {76.0, 124.0},  {85.0, 124.0},
                       {85.0, 196.0}, {68.0, 196.0},  {68.0, 220.0},  {12.0, 220.0}};
    d.fill(slab, ink::concrete);
    d.color(ink::hatch);
    d.hatch(slab, 45.0, 9.0);
    d.color(ink::outline);
    d.open({{12.0, 20.0}, {150.0, 20.0}, {150.0, 220.0}, {112.0, 220.0}});
    d.open({{68.0, 220.0}, {12.0, 220.0}});
    d.breakLine({12.0, 10.0}, {12.0, 230.0});

    // The anchor channel with its anchor, and the hammer-head bolt.
    d.body({{68.0, 220.0},
            {68.0, 196.0},
            {112.0, 196.0},
            {112.0, 220.0},
            {99.0, 220.0},
            {99.0, 216.5},
            {108.5, 216.5},
            {108.5, 199.5},
            {71.5, 199.5},
            {71.5, 216.5},
            {81.0, 216.5},
            {81.0, 220.0}},
           ink::steel);
    d.body({{85.0, 196.0},
            {85.0, 124.0},
            {76.0, 124.0},
            {76.0, 118.0},
            {104.0, 118.0},
            {104.0, 124.0},
            {95.0, 124.0},
            {95.0, 196.0}},
           ink::steel);
    d.body({{75.0, 209.0},
            {105.0, 209.0},
            {105.0, 216.0},
            {96.0, 216.0},
            {96.0, 220.0},
            {84.0, 220.0},
            {84.0, 216.0},
            {75.0, 216.0}},
           ink::screw);

    // The mullion in front of the slab, seen from the side.
    d.fill({{185.0, 10.0}, {305.0, 10.0}, {305.0, 320.0}, {185.0, 320.0}}, ink::aluminium);
    d.color(ink::outline);
    d.line({185.0, 10.0}, {185.0, 232.0});
    d.line({185.0, 312.0}, {185.0, 320.0});
    d.line({305.0, 10.0}, {305.0, 320.0});
    d.color(ink::hatch);
    d.line({299.5, 10.0}, {299.5, 320.0});
    d.breakLine({178.0, 10.0}, {312.0, 10.0});
    d.breakLine({178.0, 320.0}, {312.0, 320.0});

    // The bracket: a base plate and a fin with oblong holes, welded together.
    d.body(rect(36.0, 220.0, 114.0, 12.0), ink::steel);
    const Path fin = {{122.0, 232.0}, {276.0, 232.0}, {280.0, 236.0}, {280.0, 308.0},
                      {276.0, 312.0}, {178.0, 312.0}, {122.0, 256.0}};
    const auto slotEnd = [](double x, double y, double from) { return arc({x, y}, 7.0, from, from + 180.0); };
    std::vector<Path> slots;
    for (const double y : {252.0, 292.0})
        slots.push_back(joined(slotEnd(230.0, y, 90.0), slotEnd(250.0, y, -90.0)));
    d.fill(fin, ink::steel, slots);
    d.outline(fin);
    for (const double y : {252.0, 292.0}) { // the washers hide the part between the ends
        d.open(slotEnd(230.0, y, 90.0));
        d.open(slotEnd(250.0, y, -90.0));
    }
    d.fill({{122.0, 232.0}, {122.0, 240.0}, {114.0, 232.0}}, ink::outline);

    d.place({{90.0, 232.0}, 90.0});
    d.body(rect(0.0, -15.0, 3.0, 30.0), ink::screw);
    d.body(rect(3.0, -11.0, 10.0, 22.0), ink::screw);
    d.line({3.0, -5.5}, {13.0, -5.5});
    d.line({3.0, 5.5}, {13.0, 5.5});
    d.body({{13.0, -6.0}, {22.0, -6.0}, {23.5, -4.5}, {23.5, 4.5}, {22.0, 6.0}, {13.0, 6.0}}, ink::screw);
    d.line({13.0, -4.9}, {23.5, -4.9});
    d.line({13.0, 4.9}, {23.5, 4.9});
    d.centreLine({-118.0, 0.0}, {30.0, 0.0});
    for (const double y : {252.0, 292.0}) {
        d.place({{240.0, y}});
        d.body(circle({0.0, 0.0}, 12.0), ink::screw);
        Path nut;
        for (int corner = 0; corner < 6; ++corner)
            nut.push_back(Place{{0.0, 0.0}, 60.0 * corner}({10.5, 0.0}));
        d.outline(nut);
        d.outline(circle({0.0, 0.0}, 6.0));
        d.centreLine({-28.0, 0.0}, {30.0, 0.0});
        d.centreLine({0.0, -17.0}, {0.0, 17.0});
    }
    return d.finish();
}

Bytes thermalBreak(Format format)
{
    Drawing d(format, 100.0, 92.0, 14.0);
    // Outer shell on the left, inner shell on the right, two polyamide bars with foam between them.
    constexpr double kLower = 14.0;
    constexpr double kUpper = 42.0;
    constexpr double kHeight = 56.0;
    d.place({{62.0, 8.0}});
    const Path seats = joined(joined(Path{{0.0, 0.0}}, barSeat(kLower)), joined(barSeat(kUpper), {{0.0, kHeight}}));
    Path inner = joined({{30.0, kHeight}, {30.0, 0.0}}, seats);
    d.body(inner, ink::aluminium, {rounded(rect(6.5, 2.0, 21.5, kHeight - 4.0), 1.5)});
    d.place({{38.0, 8.0}, 0.0, true});
    Path outer = joined({{20.0, kHeight + 20.0}, {20.0, 0.0}}, seats);
    outer = joined(outer, {{15.0, kHeight},
                           {15.0, kHeight + 6.5},
                           {16.6, kHeight + 6.5},
                           {16.6, kHeight + 5.3},
                           {18.2, kHeight + 5.3},
                           {18.2, kHeight + 11.7},
                           {16.6, kHeight + 11.7},
                           {16.6, kHeight + 10.5},
                           {15.0, kHeight + 10.5},
                           {15.0, kHeight + 18.5},
                           {16.0, kHeight + 20.0}});
    d.body(outer, ink::aluminium, {rounded(rect(6.5, 2.0, 11.5, kHeight - 4.0), 1.5)});

    d.place({{50.0, 8.0}});
    for (const double y : {kLower, kUpper}) {
        const Path half = {{0.0, y - 0.9},  {13.4, y - 0.9}, {13.1, y - 2.4}, {15.8, y - 2.4},
                           {15.8, y + 2.4}, {13.1, y + 2.4}, {13.4, y + 0.9}, {7.0, y + 0.9},
                           {5.0, y + 2.8},  {3.0, y + 0.9},  {0.0, y + 0.9}};
        d.body(symmetric(half), ink::polyamide);
    }
    const Path foam = symmetric({{0.0, 18.0}, {11.8, 18.0}, {11.8, 40.2}, {0.0, 40.2}});
    d.body(foam, ink::foam);
    d.color(ink::woolLine);
    d.hatch(foam, 45.0, 2.4);
    d.hatch(foam, -45.0, 2.4);
    return d.finish();
}

Bytes cornerAngle(Format format)
{
    Drawing d(format, 100.0, 100.0, 12.0);
    d.place({{24.0, 24.0}});
    constexpr double kLeg = 60.0;
    constexpr double kThick = 6.0;
    // An equal angle with its root and toe radii, cut through the holes of both legs.
    const Path toe = joined(joined(Path{{38.5, 0.0}, {kLeg, 0.0}}, arc({kLeg - 3.0, kThick - 3.0}, 3.0, 0.0, 90.0)),
                            {{38.5, kThick}});
    Path heel = {{0.0, 0.0}, {29.5, 0.0}, {29.5, kThick}};
    heel = joined(heel, arc({kThick + 7.0, kThick + 7.0}, 7.0, 270.0, 180.0));
    heel = joined(heel, {{kThick, 29.5}, {0.0, 29.5}});
    for (const Path& section : {heel, toe, swapped(toe)}) {
        d.fill(section, ink::steel);
        d.color(ink::outline);
        d.hatch(section, 45.0, 3.0);
        d.outline(section);
    }
    // The fastened parts: one profile wall below, one on the left.
    const Path below = rect(38.5, -4.0, 30.0, 4.0);
    for (const Path& wall : {rect(-4.0, -4.0, 33.5, 4.0), below, swapped(rect(0.0, -4.0, 29.5, 4.0)), swapped(below)})
        d.body(wall, ink::aluminium);
    d.place({{24.0 + 34.0, 20.0}, 90.0});
    bolt(d, 8.0, 10.0);
    d.place({{20.0, 24.0 + 34.0}});
    bolt(d, 8.0, 10.0);
    return d.finish();
}

} // namespace slides
