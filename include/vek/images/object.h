/// @file
/// Generators of whole objects, in the form of a registry entry (`VEK::setGdxImageFcn`), and their companions. None is
/// registered by itself.
///
/// A generator only adds items: clearing the display object is the caller's matter. A missing key means its default and
/// a missing file means all defaults, unless told otherwise. On failure the result is false and what was added before
/// stays; when memory runs out nothing was added. Where not told otherwise items have the identity matrix and an empty
/// stack path, and the mark of the origin ("COORD") has colour mode 4.
#pragma once

#include <vek/data/file.h>

class CVekGDX;

/// Draws an assembly, every element by itself, or all of them as one solid.
///
/// | parameter | type | default | meaning |
/// |---|---|---|---|
/// | "VIEW" | text | "" | a name of `VEK::g_mtx_view_dir` |
/// | "FULL" | bool | false | one solid with hidden lines removed, in one colour; without placement and axes |
/// | "ACT" | text | "" | the active element |
/// | "CMODE" | int | 0 | colour mode of all lines |
/// | "COORD" | bool | false | marks the origin, and with "CMODE" 1 the base point of the active or only element |
/// | "MTX" | matrix | identity | placement of the object |
/// | "UCS" | any | absent | its presence adds the axes (`vek_gdx_image_ucs`); those of "E" are drawn as of "W" |
/// | "GEN_STAT", "BGR_STAT", "BGR_STAT2" | int | -1 | status codes, handed on to the object services |
///
/// @return false for a null display object or object file, and with "FULL" for an object without a solid
VEK_API bool vek_gdx_image_bgr(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);

/// Draws the elements of an assembly one after the other, in the order of `BgrBt`. An element that cannot be drawn is
/// left out.
/// @param second the status item of the assembly; may be empty
/// @param mtx placement of the object in the drawing
/// @param view takes the view to the drawing
/// @param parm a directory: "ACT", "CMODE", "COORD" and "MTX"
/// @param scale, aux handed on to `VEK::getBtTransformation`
/// @return false for null arguments and a parm that is no directory
VEK_API bool vek_gdx_image_bgr(CVekGDX* gdx, CVekDataItem* object, CVekDataItem* second, CVekMatrix3d& mtx,
                               const CVekMatrix3d& view, CVekDataItem* parm, double scale, double aux);

/// Draws the section of a bar, on which a face is picked: its regions, its coated surfaces as lines 3 pixels wide, two
/// pick points in colour mode 1, and its sub-elements in colour mode 5.
///
/// Parameters: "GRP" and "BT" (texts), the group in the linked object and the element in it; "PICK\P1", "PICK\P2"
/// (points). Keys of element and sub-elements: "XREF" (item, see `VEK::bar_regl`), else "REGL" (list of regions), else
/// "VL" (list of polylines); "MTX", else the stored placement. Sub-elements are drawn in the element's coordinates. Of
/// the element also "SURFACE": directories "1" and "2" with "VL" (polyline), and "TOTAL" for the outline of the first
/// region; "COAT" in each is the colour, index 3 if absent.
/// @return false for a null argument and if there is no such element
VEK_API bool vek_gdx_image_bar_surface(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);

/// Draws a drill: through `CVekApp::imageObject`, or its solid from a fixed corner if "VIEW" in the object's root is 3.
///
/// Parameters: "CMODE" (int, 0), "MTX" (matrix, identity), "COORD" (bool, false), "STACK" (list of ints, empty). The
/// items get that path and 1 behind it, the mark of "COORD" 2. The solid has the colour of the layer "PART_SOLID" of
/// the object ("0"), and neither placement nor mark.
/// @return false for a null display object, and if there is no solid
VEK_API bool vek_gdx_image_drill(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);

/// Draws an extrusion that the function "vek_gdx_image_extr" of the host computes. It gets a list of the key of a
/// temporary display object (an integer), the object and the parameters (lists, nil if absent), and draws into the
/// object of that key. Its items are added, and the projection is set to the identity.
/// @return false for a null display object or object file, and if the host has drawn nothing; the temporary object then
/// stays registered, as the host may still draw into it
VEK_API bool vek_gdx_image_extr(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);

/// Draws the section of a folded or corrugated sheet, or of a sandwich of such sheets with cores between them, from the
/// linked object of a file.
///
/// Parameter: "COORD" (bool, false). Keys of the object:
///
/// | key | type | default | meaning |
/// |---|---|---|---|
/// | "STACK" | list of texts | empty | names the sheet, see `VEK::fsheet_get` |
/// | "D", "S" | double | 0.0 | depth, a fifth of the width where the sheet tells none; thickness |
/// | "DRAW" | text | "" | "S" hatched, "L" filled, otherwise lines |
/// | "HPNAME", "HPSCALE", "HPANG" | text, doubles | none | the hatch of "S", angle in radians |
/// | "IS_HATCH2" | bool | false | hatches the cores of a sandwich |
/// | "AXIS", "COATLINE" | bool | false | draws axis lines, coated lines |
/// | "SURFACE\1", "SURFACE\2" | colour | absent | colours of the coats, top and bottom; without one it is not drawn |
/// | "PART_CON", "PART_CEN" | text | "0" | layers of the lines and of the axes |
/// | "PART_FILL" | text | "PART_CON" | layer of the fill; of a core "0" by default |
///
/// Keys of the sheet: "SEG" (double, 0.0) and "N" (double, 1.5), width and number of segments; "HORIZONTAL" (int), -1
/// mirrors the section within its width; below the key "" "CALC", "COMPOUND" for a sandwich, "AXIS" (bool), which
/// overrules a set "AXIS" of the object, and "COAT" (bool), which gives the bottom the coat of the top; "FILLET_P",
/// "POINTS" and "REGION" choose the service that computes it.
///
/// The layers of a sandwich are the children of "SANDWICH" in their order: "STACK", "SIDE" ("TOP", "BOT" or any other)
/// and a placement. Their thickness is "THICK" \ sheet id \ "S", or "S_BOT" for the bottom. A sheet of "CALC" "OUTLINE"
/// is the space between the skins that stand before it, less the regions of "CALC" "REGION" so far; both are cores. A
/// core of "TYPE" "GASKET" or "INSULATION", below the key "", takes layers and hatch from the attributes of "DICHT" or
/// "DM", any other from the object. A layer without definition is left out.
/// @return false for a null display object or object file, and without linked object or sheet
VEK_API bool vek_gdx_image_fsheet(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);

/// Draws a hole pattern; that of the drawing if `object` is null.
///
/// Parameters: "ACT" (text, ""), the active element, drawn in colour mode 1; "MTX" (matrix, identity); "CMODE" (int,
/// 0), the mode of the others, of which the low four bits count; "COORD" (bool, false), marks the active element, and
/// the origin of the pattern once for each element.
///
/// The file: below the key "" "DRAW" ("F" filled, "S" hatched, else lines), the layers "PART_CON" and "PART_FILL", and
/// "HPNAME", "HPSCALE", "HPANG" for "S"; below "BT" the elements under text keys. An element has "MTX", or a stored
/// placement, and "GEN": a list of polylines, or a directory whose "TYPE" is "OUTLINE" (see `VEK::g_outline`) or
/// "DRILL", which the host draws.
/// @return false for a null display object only
VEK_API bool vek_gdx_image_hole(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params);

/// Draws the axes of a coordinate system in colour mode 5, of fixed size on the screen, with their names; the axis that
/// points at the viewer is left out. Sets `CVekVector3d::tol` to 0.001. The host gives the names (`vek_text_to_regl`).
/// @param mtx takes the coordinate system to the view
/// @return false for a null display object
VEK_API bool vek_gdx_image_ucs(CVekGDX* gdx, const CVekMatrix3d& mtx);

/// Draws the preview of the wall that is being edited: calls the registered generator "WALL" with `params` and a file
/// of "VL", the polyline of "*WALL_EDIT*\VL" in the configuration, "ACT", the number of the active element, and
/// "COORD". "ACT" is there only if "*WALL_EDIT*\MODE" is "SHELL", or "CORNER" while "CORNER\MODE" of the parameters is
/// "SHELL".
///
/// The number is the value of "*WALL_EDIT*" itself; one that is not among the keys below "SN" of the parameters is
/// replaced by the first of these.
/// @return that of the generator; false if there is none, and if there is no number
VEK_API bool vek_wall_edit_image(CVekGDX* gdx, VEK::CDtaFilePointer* params);
