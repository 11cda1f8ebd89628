#include "core/objects/standard_part.h"

#include "core/objects/placement.h"

#include <cmath>
#include <cwchar>

namespace VEK::objects
{
namespace
{

/// Published sizes in millimetres, by nominal diameter.
struct Sizes {
    double diameter;
    double flats;    ///< of hexagon heads and nuts
    double head;     ///< height of a hexagon head
    double cylinder; ///< diameter of a cylindrical head
    double nut;      ///< height of a nut
    double washerHole;
    double washer; ///< outer diameter of a washer
    double washerHeight;
};

constexpr Sizes kSizes[] = {
    {3, 5.5, 2, 5.5, 2.4, 3.2, 7, 0.5}, {4, 7, 2.8, 7, 3.2, 4.3, 9, 0.8},    {5, 8, 3.5, 8.5, 4, 5.3, 10, 1},
    {6, 10, 4, 10, 5, 6.4, 12, 1.6},    {8, 13, 5.3, 13, 6.5, 8.4, 16, 1.6}, {10, 17, 6.4, 16, 8, 10.5, 20, 2},
    {12, 19, 7.5, 18, 10, 13, 24, 2.5}, {16, 24, 10, 24, 13, 17, 30, 3},     {20, 30, 12.5, 30, 16, 21, 37, 3},
    {24, 36, 15, 36, 19, 25, 44, 4},    {30, 46, 18.7, 45, 24, 31, 56, 4},
};

constexpr struct {
    int number;
    StandardPart::Shape shape;
} kNumbers[] = {
    {931, StandardPart::hexagonBolt},
    {933, StandardPart::hexagonBolt},
    {4014, StandardPart::hexagonBolt},
    {4017, StandardPart::hexagonBolt},
    {6914, StandardPart::hexagonBolt},
    {7990, StandardPart::hexagonBolt},
    {912, StandardPart::cylinderBolt},
    {4762, StandardPart::cylinderBolt},
    {84, StandardPart::cylinderBolt},
    {7991, StandardPart::countersunkBolt},
    {10642, StandardPart::countersunkBolt},
    {963, StandardPart::countersunkBolt},
    {965, StandardPart::countersunkBolt},
    {2009, StandardPart::countersunkBolt},
    {7046, StandardPart::countersunkBolt},
    {7337, StandardPart::flatBolt},
    {15977, StandardPart::flatBolt},
    {934, StandardPart::nut},
    {985, StandardPart::nut},
    {4032, StandardPart::nut},
    {6915, StandardPart::nut},
    {125, StandardPart::washer},
    {126, StandardPart::washer},
    {7089, StandardPart::washer},
    {9021, StandardPart::washer},
};

StandardPart::Shape shapeOf(const wchar_t* text)
{
    const wchar_t* begin = text + std::wcslen(text);
    while (begin > text && !(begin[-1] >= L'0' && begin[-1] <= L'9'))
        --begin; // behind the number may stand a form, as the A of "DIN 125 A"
    while (begin > text && begin[-1] >= L'0' && begin[-1] <= L'9')
        --begin;
    const int number = atoi(begin);
    for (const auto& known : kNumbers) {
        if (known.number == number)
            return known.shape;
    }
    return StandardPart::rod;
}

/// A size by the diameter: between two of the table linear, outside in proportion.
double size(double diameter, double Sizes::*column)
{
    const Sizes* above = std::begin(kSizes);
    while (above != std::end(kSizes) && above->diameter < diameter)
        ++above;
    if (above == std::begin(kSizes) || above == std::end(kSizes)) {
        const Sizes& end = above == std::begin(kSizes) ? *above : above[-1];
        return end.*column * diameter / end.diameter;
    }
    const Sizes& below = above[-1];
    const double share = (diameter - below.diameter) / (above->diameter - below.diameter);
    return below.*column + share * (above->*column - below.*column);
}

} // namespace

StandardPart standardPart(const CVekDataItem* bt, Vek::lUnit unit)
{
    CVekString din;
    StandardPart part;
    dataGet(bt, L"DIN", din);
    dataGet(bt, L"D", part.diameter);
    dataGet(bt, L"L", part.length);
    if (!(part.diameter > 0.0) || !std::isfinite(part.diameter) || !std::isfinite(part.length))
        return StandardPart();
    part.shape = shapeOf(din);
    const double millimetre = unitFactor(Vek::unitMillimetre, unit);
    const auto of = [&](double Sizes::*column) { return size(part.diameter / millimetre, column) * millimetre; };
    switch (part.shape) {
    case StandardPart::hexagonBolt:
        part.width = of(&Sizes::flats);
        part.height = of(&Sizes::head);
        break;
    case StandardPart::cylinderBolt:
        part.width = of(&Sizes::cylinder);
        part.height = part.diameter;
        break;
    case StandardPart::countersunkBolt:
        part.width = 2.0 * part.diameter;
        part.height = 0.5 * part.diameter; // of a right angle
        break;
    case StandardPart::flatBolt:
        part.width = 2.0 * part.diameter;
        part.height = 0.25 * part.diameter;
        break;
    case StandardPart::nut:
        part.width = of(&Sizes::flats);
        part.height = of(&Sizes::nut);
        part.hole = part.diameter;
        break;
    case StandardPart::washer:
        part.width = of(&Sizes::washer);
        part.height = of(&Sizes::washerHeight);
        part.hole = of(&Sizes::washerHole);
        break;
    case StandardPart::rod:
    case StandardPart::none: break;
    }
    const bool hasShank = part.shape != StandardPart::nut && part.shape != StandardPart::washer;
    return hasShank && !(part.length > 0.0) ? StandardPart() : part;
}

} // namespace VEK::objects
