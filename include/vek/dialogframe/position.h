/// @file
/// The memory of where dialogs were: one place for each dialog title, in the per-user settings.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// A rectangle in screen pixels, right and bottom outside it.
struct DlgRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const DlgRect&) const = default;
};

/// A dialog's place as it is stored: two words of 16 bits each, unsigned, the first one low.
struct DlgPosition {
    unsigned long pos = 0;  ///< left and top, setting "Pos"
    unsigned long size = 0; ///< width and height, setting "Size"

    bool operator==(const DlgPosition&) const = default;
};

/// What is stored of a dialog. A place left of or above the desktop is moved to its edge, then one that hangs over the
/// right or bottom edge is moved back by what hangs over. A dialog larger than the desktop so gets a negative place, of
/// which the low 16 bits are stored. The size stays that of the dialog.
/// @param right,bottom edges of the desktop
VEK_API DlgPosition dlgPositionOf(const DlgRect& dialog, int right, int bottom);

/// The rectangle that is stored, whatever the present desktop.
VEK_API DlgRect dlgRectOf(const DlgPosition& position);

/// The settings key for dialogs of a title, see `regRead`.
/// @param title as in the dialog's template: a translated one would have a place of its own in each language
VEK_API CVekString dlgPositionKey(const wchar_t* title);

/// Reads what is stored for a title.
/// @return false if place or size is missing. If only the size is, left and top have been set nevertheless
VEK_API bool dlgPositionRead(DlgRect& rect, const wchar_t* title);

/// Stores a place for a title.
/// @return false if it cannot be written
VEK_API bool dlgPositionWrite(const DlgPosition& position, const wchar_t* title);

} // namespace VEK
