/// @file
/// Generators of the elements of an assembly.
///
/// Each asks the object services (`<vek/objects.h>`) for the projection of an element and adds it to a display object,
/// in display coordinates, with identity matrices and empty stack paths. Arguments that they share:
/// - `element`: a directory with the definition "BT"; it is not changed.
/// - `mtx`: places the element in the drawing.
/// - `view`: takes the view to the drawing, the inverse of `VEK::g_mtx_view_dir`.
/// - `parm`: a directory of parameters. "CMODE" (int, 0 if absent) is the colour mode of all lines, 0 to 15; with a
///   larger one they keep the colour of their layer. Only with 1 hidden lines are drawn too, in mode 5. Generators that
///   draw the drills of an element one by one set "NO_DRILL" to 1 in it.
///
/// The result is false, with nothing added, if an argument is null or no directory, and when memory runs out. Otherwise
/// what was added before a failure stays. Drills lie below the element that they belong to.
#pragma once

#include <vek/data/item.h>

class CVekGDX;

/// Draws an element by its "TYPE":
///
/// | "TYPE" | generator |
/// |---|---|
/// | "ROT" | `vek_gdx_image_bgr_rot` |
/// | "ANGLE" | `vek_gdx_image_bgr_angle` |
/// | "EXTR" | `vek_gdx_image_bgr_extr` |
/// | "HATCH", "PATH" | `vek_gdx_image_bgr_path` |
/// | "DRILL" | `vek_gdx_image_bgr_drill` |
/// | "MRA_NM" | `vek_gdx_image_bgr_nm` |
/// | "SCORD" | `vek_gdx_image_bgr_scord` |
/// | "SLICE" | `vek_gdx_image_bgr_slice` |
/// | "COMPOUND" | `vek_gdx_image_bgr_compound`, without "CUT" of the parameters |
/// | "SHEET" | by "SCONS" `vek_gdx_image_bgr_edge` ("EDGE"), `_edge_n` ("EDGE_N"), else `_sheet` |
///
/// The generator works on copies of element and parameters, with `mtx` as "MTX" in the latter. With "CMODE" 1 and
/// "COORD" true the base point of the element is marked first.
/// @return false also for an unknown "TYPE", and for an element that `VEK::checkBt` leaves out
VEK_API bool vek_gdx_image_bgr_bt(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                  CVekDataItem* parm);

/// Draws the projection of an element in two colours; the common end of the generators below.
/// @return false also if the element has no projection
VEK_API bool vek_gdx_image_bgr_obj(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                   CVekDataItem* parm, const CVekColor& visible, const CVekColor& hidden);

/// A body of revolution. Hidden lines have no colour of their own.
VEK_API bool vek_gdx_image_bgr_rot(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                   CVekDataItem* parm);

/// An angle bracket. In views along one of its axes its drills are drawn one by one, as with `vek_gdx_image_bgr_extr`.
/// "INSUNIT" and "DEFUNIT" of the parameters are the units of the check.
/// @return false also if `vek_bgr_bt_angle_check` finds it invalid; nothing is added then
VEK_API bool vek_gdx_image_bgr_angle(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                     CVekDataItem* parm);

/// An extruded profile. In views along one of its axes its drills are drawn one by one, each by
/// `vek_gdx_image_bgr_drill`; in all others they are part of the projected body.
VEK_API bool vek_gdx_image_bgr_extr(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                    CVekDataItem* parm);

/// A profile along a path, a hatch, or several parts in one: three names of one generator. Hidden lines have the colour
/// of the visible ones.
VEK_API bool vek_gdx_image_bgr_path(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                    CVekDataItem* parm);
VEK_API bool vek_gdx_image_bgr_hatch(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                     CVekDataItem* parm);
VEK_API bool vek_gdx_image_bgr_compound(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx,
                                        const CVekMatrix3d& view, CVekDataItem* parm);

/// A drill, and a standard part such as a bolt. Seen along its axis the host draws it: `CVekApp::imageObject` gets a
/// copy of the definition "BT", and "MTX" and "CMODE" as parameters. Otherwise its projection is drawn, in the colours
/// of the layers of "BT".
/// @return that of the host, or of the projection
VEK_API bool vek_gdx_image_bgr_drill(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                     CVekDataItem* parm);
VEK_API bool vek_gdx_image_bgr_nm(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                  CVekDataItem* parm);

/// The drills and standard parts that are listed in the definition "BT" of an element, each child with its own "BT" and
/// "MTX": "DRILL" and "DIN" as "TYPE" of that "BT". Children of other types are skipped.
/// @return false also without a list; true for an empty one
VEK_API bool vek_gdx_image_bgr_scord(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                     CVekDataItem* parm);

/// The mark of a section: a half disc and its axis, in colour mode 3 if "CMODE" is 0.
VEK_API bool vek_gdx_image_bgr_slice(CVekGDX* gdx, CVekMatrix3d& mtx, const CVekMatrix3d& view, CVekDataItem* parm);

/// A sheet with one fold. Its drills are drawn one by one in every view. Sets "MTX_PR" to the view in the parameters.
VEK_API bool vek_gdx_image_bgr_edge(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                    CVekDataItem* parm);

/// A sheet with several folds. Its drills are drawn one by one in views along one of its axes.
VEK_API bool vek_gdx_image_bgr_edge_n(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                      CVekDataItem* parm);

/// A plane sheet.
VEK_API bool vek_gdx_image_bgr_sheet(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                     CVekDataItem* parm);
