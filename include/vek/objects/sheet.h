/// @file
/// Sections of folded and corrugated sheets.
///
/// A sheet definition is a directory of the configuration at "*SHEET*", found by a stack of names; lengths are in the
/// unit of the object that uses it. Its profile is a line in the xy plane, one skin of the sheet; the other skin lies
/// above it by the thickness. All bends are concentric: the inner side has the given radius, the outer one that radius
/// and the thickness. Keys of a definition:
///  - "SEG": double, width of a segment. The profile is repeated in steps of it and cut off at the sheet's width, at a
///    right angle to the skins. Segments of which one begins where the other ends are one sheet. Without it the profile
///    stands once, as long as it is;
///  - "DOWN": bool, the second skin lies below the profile's line;
///  - the profile, one of "FILLET_P": list of points, whose z is the inner radius of the bend there, or "POINTS": list
///    of points with "R": double, the radius of all bends, or "REGION": list of polylines, polyline, list of regions or
///    an outline as `g_outline` reads it, or a directory of these, or else a function
///  - "FNC": "TRAPEZ" (also if missing), half a lower flange, web, upper flange, web and half a lower flange, with
///    "H": height, "TOP" and "BOT": widths of the flanges from corner to corner, "R": radius of all bends; or "SINE", a
///    cosine curve from valley to valley of the height "H".
///
/// The services take an item with
///  - "STACK": list of texts, the names of the definition;
///  - "VL": polyline, whose extent in x is the sheet's width; one segment if missing;
///  - "S": double, the thickness. Without one, both skins are the profile's line, and so is the sheet;
///  - "MTX": matrix, the place of the sheet.
/// They empty what they are to fill first, and return false if nothing comes out: the definition is missing or its
/// values are of another type, negative, not finite or too large, a bend does not fit, or the width would take more
/// than 10,000 segments.
#pragma once

#include <vek/data/file.h>

namespace VEK
{

/// The definition that a stack of names leads to, owned by the configuration; null for an empty or unknown stack.
VEK_API CVekDataItem* fsheet_get(const CVekArrayTempl<CVekString>& stack);

/// The sheet's id, under which a definition's "THICK" has the thicknesses: the text "SID" of the file's root, or of the
/// directory "" of the definition that the root's "STACK" names, or else the first name in its "THICK".
/// @param id receives the id; unchanged on failure
VEK_API bool fsheet_sid(CDtaFilePointer* file, CVekString& id);

/// The sheets of a definition by a function, by points or by points with radii.
/// @param lines closed contours, counter-clockwise, that begin with the lower skin; with thickness 0 open lines
/// @param top, bottom the upper and the lower skin of all sheets, from left to right as far as "MTX" leaves them so
VEK_API bool fsheet_vll_fnc(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top,
                            CVekVertexArray& bottom);
VEK_API bool fsheet_vll_fillet(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top,
                               CVekVertexArray& bottom);

/// The contours of a definition with "REGION", repeated by segment; the last segment is cut off at the width.
VEK_API bool fsheet_vll_region(const CVekDataItem* item, VertexArrays& lines);

/// The core between two skins: from the lower side of the upper one to the upper side of the lower one, as far as both
/// reach, less the regions.
/// @param item only tested for null: the skins are in their places
/// @param top, bottom closed contours of sheets, or open lines
/// @param regions what is cut out; holes in it, such as the chambers of a gasket, are cut out as well
/// @param lines outer contours, each followed by its holes, counter-clockwise
VEK_API bool fsheet_vll_outline(const CVekDataItem* item, const CVekVertexArray& top, const CVekVertexArray& bottom,
                                const CVekArrayTempl<VertexArrays>& regions, VertexArrays& lines);

/// The axis at the beginning of a sheet: a vertical line at x = 0, where the sheet's width begins, or at the left end
/// of a sheet that does not reach there. It stands out above and below by a quarter of the sheet's height, or by five
/// times the thickness if that is more.
/// @param axis is emptied first
/// @return false if the sheet has neither a height nor a thickness
VEK_API bool fsheet_axis_vl(const VertexArrays& lines, double thickness, CVekVertexArray& axis);

} // namespace VEK
