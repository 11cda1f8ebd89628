/// @file
/// What a list decides about editing its cells without its window: when an editor opens, where, and how it looks.
#pragma once

#include <vek/dialogframe/position.h>

namespace VEK
{

/// Whether a click opens an editor, as far as its place decides: the first click on a row selects it, the next one
/// edits. While nothing is selected the first row counts as selected, so that a list of one row needs only one click.
/// @param selected row, -1 for none
/// @param clicked row, -1 for none
/// @param isOnContent whether the click hit the text or the icon of a cell
VEK_API bool clickOpensEditor(int selected, int clicked, bool isOnContent);

/// The place of a cell's editor, right of the icon and clear of the next column.
/// @param label of the cell, in client pixels
/// @param iconWidth of the cell, in pixels; 0 without an icon
VEK_API DlgRect cellEditorRect(const DlgRect& label, int iconWidth);

/// The window style of an editor that is aligned as its column.
/// @param headerFormat of the column's header item, as `HDITEM` has it
VEK_API unsigned long cellEditorStyle(int headerFormat);

} // namespace VEK
