// Pictures in right-to-left windows.
#pragma once

#include <afxwin.h>

namespace VEK
{

/// Removes the right-to-left layout from a window, which may inherit it from its parent: drawings would be mirrored.
/// For PreSubclassWindow, when a window is subclassed, and for WM_NCCREATE, before which a new one may not have it yet.
inline void keepLeftToRight(CWnd& window)
{
    if (window.ModifyStyleEx(WS_EX_LAYOUTRTL, 0))
        window.Invalidate();
}

} // namespace VEK
