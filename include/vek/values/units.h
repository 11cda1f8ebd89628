/// @file
/// Length units, length formats, and numbers as text.
#pragma once

#include <vek/values/string.h>

namespace Vek
{

/// How a length is written. The numbers are those of the published linear unit formats of DXF ($LUNITS).
enum lFormat : int {
    formatCurrent = -1,
    formatScientific = 1,    ///< 1.55E+01
    formatDecimal = 2,       ///< 15.50
    formatEngineering = 3,   ///< feet and decimal inches: 1'-3.50"
    formatArchitectural = 4, ///< feet and fractional inches: 1'-3 1/2"
    formatFractional = 5     ///< 15 1/2
};

/// Unit of a length. The numbers are those of the published insertion units of DXF ($INSUNITS), the sizes the exact
/// ones: 0.0254 m for the inch, and those of the International Astronomical Union from 18 on.
enum lUnit : int {
    unitCurrent = -1, ///< the drawing's current unit
    unitNone = 0,
    unitInch = 1,
    unitFoot = 2,
    unitMile = 3,
    unitMillimetre = 4, ///< the unit of the library's own drawing constants
    unitCentimetre = 5,
    unitMetre = 6,
    unitKilometre = 7,
    unitMicroinch = 8,
    unitMil = 9,
    unitYard = 10,
    unitAngstrom = 11,
    unitNanometre = 12,
    unitMicron = 13,
    unitDecimetre = 14,
    unitDecametre = 15,
    unitHectometre = 16,
    unitGigametre = 17,
    unitAstronomical = 18,
    unitLightYear = 19,
    unitParsec = 20
};

} // namespace Vek

namespace VEK
{

/// The marker of an absent value: a quiet NaN.
VEK_API double nan();

/// Convert a text's leading number, with a decimal point whatever the locale; 0 if there is none, or for null. A number
/// too large gives the limit of int, or the largest double.
VEK_API int atoi(const wchar_t* text);
VEK_API double atof(const wchar_t* text);

/// Converts a length in place; for a constant only the result is returned. The units are values of `Vek::lUnit`; -1 is
/// the drawing's current unit. Unit 0, or any number that is not a unit, has no size: converting from or to it changes
/// nothing.
/// @return the new value
VEK_API double acadUnitCv(double& value, int from, int to);
VEK_API double acadUnitCv(const double& value, int from, int to);
inline double acadUnitCv(double&& value, int from, int to)
{
    return acadUnitCv(value, from, to);
}

/// The same, with a separate result.
/// @return false, with the unconverted value in `result`, if one of the units has no size
VEK_API bool acadUnitCv(double value, int from, int to, double& result);

/// The drawing's current unit, initially millimetres.
VEK_API Vek::lUnit acad_unit_get();
VEK_API void acad_unit_set(Vek::lUnit unit);

/// Precision for a unit and format from a precision for millimetres: decimal digits in formats 1 to 3, powers of two of
/// the denominator in formats 4 and 5. For another unit it is adjusted to the same absolute resolution, within 0 to 8.
VEK_API int autoPrec(int precision, Vek::lUnit unit, Vek::lFormat format);

/// The names of the units in a language, indexed by `Vek::lUnit`; an unknown or null language gives German ones.
VEK_API CVekArrayTempl<CVekString>& acad_units(const wchar_t* language);

} // namespace VEK

/// Reads a length as a user types it, in any of the five formats: "1.55E+01", "15,5" and "15.5", 1'-3.50", 1'-3 1/2",
/// "15 1/2", "15-1/2", with a sign. Feet and inches give inches. Both point and comma are decimal separators; if both
/// occur, or several groups of three digits follow, the first one is a thousands separator, and so is a blank before
/// three digits: "1.234,5", "1 234.5" and "1,234,567". Anything after the number is ignored, and a text without a
/// number gives 0, one too large the largest double. The locale has no influence.
VEK_API double vekAtoF(const wchar_t* text);

/// Writes a length; `vekAtoF` reads it back. The value is in inches in formats 3 and 4. Its shortest decimal form is
/// rounded to the precision, halves away from zero: 2.675 with two digits is 2.68. A value that rounds to zero has no
/// sign, and 11.9999 inches without decimals are 1'-0".
/// @param buffer receives the text; `vekRtoSSize` characters suffice for every value
/// @param precision decimal digits, or powers of two of the denominator in formats 4 and 5; clamped to 0 to 8
/// @param suppressZeros leaves out trailing zeros of decimals, and feet or inches of zero, as the published variable
/// DIMZIN does with the value 8: 15.5, 6", 1', 1/2"; 1'-0 1/2" stays. Without it they are 15.50, 0'-6", 1'-0", 0'-0
/// 1/2"
/// @return false for an unknown format, null or a non-finite value; the buffer stays as it was
VEK_API bool vekRtoS(wchar_t* buffer, double value, Vek::lFormat format, int precision, bool suppressZeros);
VEK_API bool vekRtoS(CVekString& text, double value, Vek::lFormat format, int precision, bool suppressZeros);

/// Characters of the longest text of `vekRtoS`, including its terminator.
inline constexpr int vekRtoSSize = 352;
