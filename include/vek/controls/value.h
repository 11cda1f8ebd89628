/// @file
/// Values in text fields: how they are shown, read and judged, without a window.
///
/// A field has three kinds of value. It stores a value in the program's internal unit, shows it times a factor, and an
/// angle, in radians inside, in degrees.
#pragma once

#include <vek/values/string.h>
#include <vek/values/units.h>

#include <limits>
#include <utility>

namespace VEK
{

/// What a field holds.
enum ValueType : int {
    typeNone = 0,   ///< free text, which is not judged
    typeInt = 1,    ///< decimal integer
    typeLength = 2, ///< a length in a format and with a factor
    typeAngle = 3   ///< radians, shown as decimal degrees
};

/// Flags of a field.
enum ValueFlag : unsigned short {
    valueRequired = 0x0001, ///< may not be left empty
    valueNotZero = 0x0002,
    valueNotNegative = 0x0004,
    valueBounded = 0x0008,       ///< has a minimum and a maximum
    valueSuppressZeros = 0x0020, ///< the last argument of `vekRtoS`
    valueDrawingUnit = 0x0040,   ///< the precision follows the drawing's unit; without it, it is that for millimetres
    valueTextCounts = 0x8000     ///< of the edit control alone: its text counts, not the stored value
};

/// What the controls write differently.
struct ValueStyle {
    bool fallsBack;     ///< a length too small for the fractions of formats 4 and 5 is shown in decimals
    bool hasDegreeSign; ///< an angle ends with "°"
};
inline constexpr ValueStyle editStyle{true, true};
inline constexpr ValueStyle comboStyle{false, false};

/// How a field shows and judges its value.
struct ValueRules {
    ValueStyle style = editStyle;
    ValueType type = typeNone;
    unsigned flags = valueRequired | valueSuppressZeros; ///< of `ValueFlag`
    int precision = 8;                                   ///< for `autoPrec`; of an angle the decimals
    Vek::lFormat format = Vek::formatDecimal;            ///< of a length
    double factor = 1.0;                                 ///< what a length is multiplied by to be shown
    double min = -std::numeric_limits<double>::max();    ///< bounds, in the internal unit; NaN is none
    double max = std::numeric_limits<double>::max();

    bool has(ValueFlag flag) const { return (flags & flag) != 0; }
};

/// Whether values of a type are judged and have bounds: integers, lengths and angles.
constexpr bool isJudged(ValueType type)
{
    return type == typeInt || type == typeLength || type == typeAngle;
}

/// Two bounds in ascending order. A NaN stays where it is.
VEK_API std::pair<double, double> valueBounds(double a, double b);

/// A value cut towards zero, within the range of int; 0 for NaN.
VEK_API int valueInt(double value);

/// Writes a value as the field shows it, but without the factor.
/// @param text stays as it is for free text, for a value that is not finite, and when memory runs out
/// @return false for free text
VEK_API bool valueFormat(CVekString& text, double value, const ValueRules& rules);

/// Writes a value as the field shows it, with the factor; empty where `valueFormat` writes nothing.
VEK_API CVekString valueText(double value, const ValueRules& rules);

/// Reads what a user typed: a length with `vekAtoF`, divided by the factor; the degrees of an angle with `atof`, so
/// with a decimal point only; all else with `vekAtoF`. A text without a number gives 0.
VEK_API double valueParse(const wchar_t* text, const ValueRules& rules);

/// A text without the blanks at both ends, of whatever width.
VEK_API CVekString valueTrimmed(const wchar_t* text);

} // namespace VEK
