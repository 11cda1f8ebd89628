/// @file
/// The dialog for the hole pattern of an element, which the host brings along.
#pragma once

#include <vek/data/item.h>

namespace VEK
{

/// Lets the user edit the hole pattern of an element: calls the host's function "mra_hole_dial", without arguments,
/// which shows the dialog and answers with an integer, 1 for OK and 0 for a cancel.
///
/// The two exchange the pattern through the drawing's data object "HOLE", which is in the form of a hole file, and the
/// name of the active element through the configuration at "*HOLE*" \ "BT". Both keep what the last call left there, so
/// that `vek_gdx_image_hole` draws the pattern that is being edited. Without such an object the host is called
/// nevertheless. The host finds the standard outlines in the configuration at "*VEK_OUTLINE*", which is filled if it is
/// missing.
/// @param bt name of the active element, in and out
/// @param data directory with the pattern, null for none; on OK it receives the new one
///  - "": directory, the header of the hole file;
///  - "LABEL", "ORDER": texts, which the header has under the same keys;
///  - "HOLE": directory of the elements, "BT" in the hole file.
/// @return 1 after OK, the only result with which `bt` and `data` are changed; 2 after a cancel, or if the host did not
/// answer with an integer; 0 if the call failed, if it answered with another number, or when memory runs out
VEK_API int holeDialog(CVekString& bt, CVekDataItem* data);

} // namespace VEK
