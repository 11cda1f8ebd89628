// The text of a control.
#pragma once

#include <vek/values/string.h>

#include <afxwin.h>

namespace VEK
{

/// Empty without a window, and when memory runs out, which is counted.
inline CVekString windowText(const CWnd& window)
{
    CVekString text;
    const int length = window.m_hWnd ? window.GetWindowTextLength() : 0;
    if (length > 0) {
        if (wchar_t* buffer = text.GetBuffer(static_cast<unsigned>(length)))
            window.GetWindowText(buffer, length + 1);
    }
    return text;
}

} // namespace VEK
