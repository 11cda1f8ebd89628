// Objects that may end in what they call.
#pragma once

#include <afxwin.h>

namespace VEK
{

/// Whether a window still exists and belongs to an object, which may have been deleted.
inline bool lives(HWND window, const CWnd* object)
{
    return CWnd::FromHandlePermanent(window) == object && ::IsWindow(window);
}

} // namespace VEK
