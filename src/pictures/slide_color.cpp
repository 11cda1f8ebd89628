#include <vek/pictures/slide_color.h>

#include <algorithm>

namespace VEK
{
namespace
{

struct Rgb {
    double r, g, b;
};

constexpr Rgb kPure[] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}};

constexpr double kBrightness[] = {1.0, 0.65, 0.5, 0.3, 0.2};

/// A hue of the wheel, from 0 to 23, at saturation s.
Rgb wheel(int hue, double s)
{
    const double p = hue * 0.25;
    const int sector = static_cast<int>(p);
    const double f = p - sector;
    const double low = 1.0 - s;
    const double rising = 1.0 - (1.0 - f) * s;
    const double falling = 1.0 - s * f;
    switch (sector) {
    case 0: return {1.0, rising, low};
    case 1: return {falling, 1.0, low};
    case 2: return {low, 1.0, rising};
    case 3: return {low, falling, 1.0};
    case 4: return {rising, low, 1.0};
    default: return {1.0, low, falling};
    }
}

} // namespace

unsigned long acadRGB(int index)
{
    Rgb color = kPure[7];
    double v = 1.0;
    if (index <= 7) {
        color = kPure[std::max(index, 0)];
    } else if (index <= 9) {
        v = index == 8 ? 0.5 : 0.75;
    } else if (index < 250) {
        const int digit = index % 10;
        color = wheel((index - 10) / 10, digit % 2 ? 0.5 : 1.0);
        v = kBrightness[digit / 2];
    } else {
        v = (std::min(index, 255) - 250) * 0.134 + 0.333333;
    }
    const auto component = [v](double part) { return std::min(static_cast<unsigned long>(part * v * 255.0), 255ul); };
    return component(color.r) | component(color.g) << 8 | component(color.b) << 16;
}

int slideColor(int index, int backIndex)
{
    return index == 7 && backIndex == 7 ? 0 : index;
}

} // namespace VEK
