/// @file
/// What the dialogs that can be resized have in common: the layout, and the information box in the system menu.
#pragma once

#include <vek/dialogframe/window/dlg.h>

#include <vector>

namespace VEK
{

/// Places the controls of a dialog by `buttonRow`; a control that does not exist is passed over.
/// @param buttons ids, the rightmost button first
/// @param rest id of the control that fills the dialog
void layOutRow(CWnd& dialog, const std::vector<int>& buttons, int rest);

/// Adds the command that opens the information box to a dialog's system menu.
void addInfoCommand(CVekDlg& dialog);

/// Opens the information box if a system command is that one.
/// @param id of the command, whose lowest four bits the system uses
bool infoCommand(CVekDlg& dialog, UINT id);

} // namespace VEK
