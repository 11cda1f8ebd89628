#include <vek/controls/value.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace VEK
{

namespace
{

constexpr double kDegrees = 180.0;
constexpr double kPi = 3.141592653589793;
constexpr double kRounding = 1e-12;
constexpr int kFinestFraction = 8; ///< power of two of its denominator

bool isBlank(wchar_t c)
{
    return c == L' ' || (c >= L'\t' && c <= L'\r') || c == 0x85 || c == 0xA0 || c == 0x1680 ||
           (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F || c == 0x3000 ||
           c == 0xFEFF;
}

/// A number too large is the largest there is, as `vekAtoF` reads it.
double withinRange(double value)
{
    return std::isinf(value) ? std::copysign(std::numeric_limits<double>::max(), value) : value;
}

/// How a length is written: with the wanted format, or with one that can show it.
std::pair<Vek::lFormat, int> lengthForm(double value, const ValueRules& rules)
{
    const Vek::lUnit unit = rules.has(valueDrawingUnit) ? Vek::unitCurrent : Vek::unitMillimetre;
    const int precision = autoPrec(rules.precision, unit, rules.format);
    const bool isFeet = rules.format == Vek::formatArchitectural;
    if (!rules.style.fallsBack || (!isFeet && rules.format != Vek::formatFractional))
        return {rules.format, precision};
    const int power = std::min(precision, kFinestFraction);
    // A value read from that fraction may come out a little smaller by the factor.
    if (value == 0.0 || !(std::ldexp(1.0, -power) > std::fabs(value) * (1.0 + kRounding)))
        return {rules.format, power};
    return {isFeet ? Vek::formatEngineering : Vek::formatDecimal,
            autoPrec(rules.precision, Vek::unitCurrent, Vek::formatDecimal)};
}

} // namespace

std::pair<double, double> valueBounds(double a, double b)
{
    return a > b ? std::pair(b, a) : std::pair(a, b);
}

int valueInt(double value)
{
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(value, static_cast<double>(INT_MIN), double{INT_MAX}));
}

bool valueFormat(CVekString& text, double value, const ValueRules& rules)
{
    wchar_t buffer[vekRtoSSize + 1]; // and a degree sign
    bool isWritten = false;
    const bool suppressZeros = rules.has(valueSuppressZeros);
    switch (rules.type) {
    case typeInt:
        isWritten = !std::isnan(value) && vekRtoS(buffer, valueInt(value), Vek::formatDecimal, 0, suppressZeros);
        break;
    case typeLength: {
        const auto [format, precision] = lengthForm(value, rules);
        isWritten = vekRtoS(buffer, value, format, precision, suppressZeros);
        break;
    }
    case typeAngle:
        isWritten = vekRtoS(buffer, value * kDegrees / kPi, Vek::formatDecimal, rules.precision, suppressZeros);
        // A sign without a number would read as an entry.
        if (isWritten && rules.style.hasDegreeSign)
            std::wcscat(buffer, L"°");
        break;
    default: return false;
    }
    if (isWritten)
        text = buffer;
    return true;
}

CVekString valueText(double value, const ValueRules& rules)
{
    CVekString text;
    valueFormat(text, rules.type == typeLength ? value * rules.factor : value, rules);
    return text;
}

double valueParse(const wchar_t* text, const ValueRules& rules)
{
    switch (rules.type) {
    case typeLength: return withinRange(vekAtoF(text) / rules.factor);
    case typeAngle: return withinRange(VEK::atof(text) * kPi / kDegrees);
    default: return vekAtoF(text);
    }
}

CVekString valueTrimmed(const wchar_t* text)
{
    const wchar_t* first = text ? text : L"";
    while (isBlank(*first))
        ++first;
    const wchar_t* end = first + std::wcslen(first);
    while (end > first && isBlank(end[-1]))
        --end;
    return {first, static_cast<unsigned>(end - first)};
}

} // namespace VEK
