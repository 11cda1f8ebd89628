#include <vek/values/units.h>

#include <algorithm>
#include <cmath>

namespace
{

/// A unit's size in metres: `digits` times ten to the power `exponent`. Both are whole numbers, so that the ratio of
/// two units is as precise as a double can be; an inch is exactly 25.4 millimetres.
struct UnitSize {
    double digits = 0.0;
    int exponent = 0;
};

/// Sizes by `Vek::lUnit`. Inch, foot, yard and mile as agreed on in 1959; the astronomical unit by resolution B2 of the
/// International Astronomical Union of 2012, the light year as 365.25 days at 299792458 m/s, the parsec by its
/// resolution B2 of 2015 as 648000/PI astronomical units.
constexpr UnitSize kSizes[] = {
    {},                       // none
    {254.0, -4},              // inch
    {3048.0, -4},             // foot
    {1609344.0, -3},          // mile
    {1.0, -3},                // millimetre
    {1.0, -2},                // centimetre
    {1.0, 0},                 // metre
    {1.0, 3},                 // kilometre
    {254.0, -10},             // microinch
    {254.0, -7},              // mil
    {9144.0, -4},             // yard
    {1.0, -10},               // angstrom
    {1.0, -9},                // nanometre
    {1.0, -6},                // micron
    {1.0, -1},                // decimetre
    {1.0, 1},                 // decametre
    {1.0, 2},                 // hectometre
    {1.0, 9},                 // gigametre
    {149597870700.0, 0},      // astronomical unit
    {9460730472580800.0, 0},  // light year
    {30856775814913673.0, 0}, // parsec
};
static_assert(std::size(kSizes) == Vek::unitParsec + 1);

/// Powers of ten that a double holds exactly.
constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9, 1e10,
                              1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20};

Vek::lUnit g_currentUnit = Vek::unitMillimetre;

int resolved(int unit)
{
    return unit == Vek::unitCurrent ? g_currentUnit : unit;
}

bool hasSize(int unit)
{
    return unit > Vek::unitNone && unit <= Vek::unitParsec;
}

/// What a length is to be multiplied by and divided by.
struct Ratio {
    double up = 1.0;
    double down = 1.0;
};

Ratio ratioOf(int from, int to)
{
    const UnitSize& a = kSizes[from];
    const UnitSize& b = kSizes[to];
    const int shift = a.exponent - b.exponent;
    return shift >= 0 ? Ratio{a.digits * kPowers[shift], b.digits} : Ratio{a.digits, b.digits * kPowers[-shift]};
}

} // namespace

namespace VEK
{

bool acadUnitCv(double value, int from, int to, double& result)
{
    const int fromUnit = resolved(from);
    const int toUnit = resolved(to);
    result = value;
    if (!hasSize(fromUnit) || !hasSize(toUnit))
        return false;
    if (fromUnit == toUnit)
        return true;
    const Ratio ratio = ratioOf(fromUnit, toUnit);
    const double raised = value * ratio.up;
    // Multiplying first keeps whole results whole; only if that overflows is the ratio computed first.
    result = std::isinf(raised) ? value * (ratio.up / ratio.down) : raised / ratio.down;
    return true;
}

double acadUnitCv(double& value, int from, int to)
{
    acadUnitCv(value, from, to, value);
    return value;
}

double acadUnitCv(const double& value, int from, int to)
{
    double result = 0.0;
    acadUnitCv(value, from, to, result);
    return result;
}

Vek::lUnit acad_unit_get()
{
    return g_currentUnit;
}

void acad_unit_set(Vek::lUnit unit)
{
    if (unit == Vek::unitNone || hasSize(unit))
        g_currentUnit = unit;
}

int autoPrec(int precision, Vek::lUnit unit, Vek::lFormat format)
{
    const int target = resolved(unit);
    if (target == Vek::unitMillimetre || !hasSize(target))
        return precision;
    const bool fractions = format == Vek::formatArchitectural || format == Vek::formatFractional;
    const double millimetres = acadUnitCv(1.0, target, Vek::unitMillimetre);
    const double digits = fractions ? std::log2(millimetres) : std::log10(millimetres);
    // Never coarser than in millimetres. The logarithm of a whole number of digits may come out slightly too large.
    const int more = static_cast<int>(std::ceil(digits - 1e-9));
    return std::clamp(std::clamp(precision, -32, 32) + more, 0, 8);
}

} // namespace VEK
