/// @file
/// Outlines in the data tree, and the library of standard outlines.
#pragma once

#include <vek/data/item.h>
#include <vek/geometry/outline.h>

namespace VEK
{

/// Reads the outline of an item:
///  - "CODE": int, the kind of a standard shape (`<vek/geometry/outline.h>`);
///  - "PARMS": directory, its parameters under the integer keys from 1 on;
///  - "BASE": point, by which the shape is moved; the origin if missing;
///  - "VL": polyline, an outline of any shape, for an item without "CODE". The item may also be that polyline itself;
///  - "UNIT": the unit of all its lengths, the drawing's current unit if missing.
/// @param unit the unit of the result, -1 for the drawing's current unit
/// @return false, with `outline` unchanged, for a null item and one without a valid outline
VEK_API bool g_outline(CVekVertexArray& outline, const CVekDataItem* item, Vek::lUnit unit);
inline bool g_outline(CVekVertexArray& outline, const CVekDataItem* item, int unit)
{
    return g_outline(outline, item, static_cast<Vek::lUnit>(unit));
}

/// Reads the outline of such an item as a region: its contour and, of a tube, the hole in it.
VEK_API bool g_outline_region(VertexArrays& region, const CVekDataItem* item, Vek::lUnit unit);

/// Groups of the outline library, the bits of "CODE".
enum OutlineGroup : int {
    outlineBasic = 1,     ///< bars, tubes and rolled sections
    outlineExtended = 2,  ///< further sections and polygons
    outlineSpecial = 4,   ///< round shapes and panes
    outlineMachining = 8, ///< shapes of holes and cut-outs
};

/// How a designation is made from the parameters of an outline, the values of "TXTGEN".
enum OutlineText : int {
    outlineTextDiameter = 1, ///< the diameter sign and the first parameter
    outlineTextSize = 2,     ///< width and height
    outlineTextAll = 3,      ///< the label and all parameters
};

/// Fills a directory with the standard outlines, in place of what it contains: under its code as an integer key, each
/// is a directory with
///  - "CODE": int, bits of `OutlineGroup`;
///  - "LABEL": text key of its name;
///  - "TXTGEN": int, a value of `OutlineText`;
///  - "PARMS": int, the number of its parameters, at most 6;
///  - "PARM1", "PARM2", ...: a directory each, with
///     - "VAL": directory, default values under the integer keys 1 to 4, the ranges for shapes of about 1, 10, 100 and
///       1000;
///     - "LABEL": text key of its name;
///     - "MINUSP": text key of its name for a negative value, of a parameter that may be negative;
///     - "VALID": int, flags of the field: 1 required, 2 not zero, 4 not negative;
///     - "TYPE": "A" for an angle;
///     - "KWORD": directory, values under words that may be typed instead, an angle in radians.
///
/// The text keys are "VEK_OUTL_1" followed by the code in three digits, for parameters "VEK_OUTL_2" and "VEK_OUTL_3"
/// (negative) followed by three digits; `outlineText` has their built-in texts. A default angle is in degrees.
/// @param library becomes a directory if it is a leaf
/// @return false, with the item unchanged, for null and when memory runs out
VEK_API bool outlineInit(CVekDataItem* library);

/// The built-in German text of a text key of the outline library; empty for another key.
VEK_API CVekString outlineText(const wchar_t* key);

} // namespace VEK
