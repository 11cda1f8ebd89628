/// @file
/// The controls of a dialog at other resolutions.
#pragma once

#include <afxwin.h>

#include <vector>

/// Scales controls when a dialog comes to a monitor of another resolution. The scale is always taken from where a
/// control was last put by somebody else, so that many changes, there and back, add up no rounding.
class VekDpiLayout
{
public:
    /// @param dialog new; its controls are as large as its monitor demands
    explicit VekDpiLayout(HWND dialog);

    /// Notes where the controls are, before the dialog changes its size.
    void note(HWND dialog);

    /// Scales the controls, and their font if it is the dialog's. A control that has been moved since `note`, by a
    /// dialog that arranges its controls itself, stays there.
    /// @param font of the dialog, at the resolution at which it was made
    void scale(HWND dialog, HFONT font, int dpi);

private:
    struct Control {
        HWND window;
        CRect own;   ///< where somebody put it, when the resolution was `dpi`
        int dropped; ///< height of a combo box with its list, which is what its size sets; else 0
        int dpi;
        CRect last; ///< where it was last
    };

    void setFont(HWND dialog, HFONT font, int dpi);

    std::vector<Control> m_controls;
    int m_dpi;
    int m_firstDpi;
    CFont m_font; ///< of the controls; none while they have the dialog's
};
