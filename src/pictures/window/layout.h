// Pictures in right-to-left windows.
#pragma once

#include <afxwin.h>

namespace VEK
{

/// Takes the right-to-left layout from a window, which it may have from its parent: drawings would stand mirrored. For
/// PreSubclassWindow, where windows are taken over, and for WM_NCCREATE, before which a new one may not have it yet.
inline void keepLeftToRight(CWnd& window)
{
    if (window.ModifyStyleEx(WS_EX_LAYOUTRTL, 0))
        window.Invalidate();
}

} // namespace VEK
