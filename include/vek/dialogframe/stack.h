/// @file
/// The stack of open dialogs, through which a dialog finds its parent without being told.
#pragma once

#include <vek/export.h>

struct HWND__; ///< what a window handle points to

namespace VEK
{

/// Puts a window on the process's stack of dialogs. For the user-interface thread, like `dlgStackPop`.
VEK_API void dlgStackPush(HWND__* window);

/// Takes the last window off the stack. Who only wants to know it pushes it again.
/// @return null if the stack is empty
VEK_API HWND__* dlgStackPop();

} // namespace VEK
