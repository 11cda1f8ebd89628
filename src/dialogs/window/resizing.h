/// @file
/// What dialogs that can be resized do with the row of their buttons.
#pragma once

#include <afxwin.h>

#include <vector>

namespace VEK
{

/// Places the controls of a dialog by `buttonRow`; a control that does not exist is passed over.
/// @param buttons ids, the rightmost button first
/// @param rest id of the control that fills the dialog
void layOutRow(CWnd& dialog, const std::vector<int>& buttons, int rest);

} // namespace VEK
