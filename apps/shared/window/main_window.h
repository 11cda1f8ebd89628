/// @file
/// The main window of a program.
#pragma once

#include <afxcmn.h>

/// A window of controls that is used as a dialog: Tab, mnemonics and accelerators, the message font, the monitor's
/// resolution, and the control with the focus again when the program comes to the front. Its end is the program's.
class MainWindow : public CWnd
{
protected:
    /// @param start size at start
    /// @param smallest size; both in pixels at 96 dots an inch
    MainWindow(CSize start, CSize smallest) : m_start(start), m_smallest(smallest) {}

    /// Creates the window, hidden, in its size at start, or in that of the monitor's work area if this is smaller.
    /// @param resources number of the program's icon and accelerators, and of its menu if it has one
    bool create(LPCWSTR title, unsigned resources);

    /// Places the controls; called at each change of the window's size or resolution.
    virtual void layOut() = 0;

    /// What had been measured at another resolution follows it.
    /// @param before dots an inch until now
    virtual void followDpi(int before);

    /// Pixels from pixels at 96 dots an inch.
    int scaled(int pixels) const { return MulDiv(pixels, m_dpi, 96); }

    /// Height of a line of text.
    int lineHeight() const;

    BOOL PreTranslateMessage(MSG* message) override;

    afx_msg int OnCreate(LPCREATESTRUCT create);
    afx_msg void OnDestroy();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* info);
    afx_msg void OnSetFocus(CWnd* before);
    afx_msg void OnActivate(UINT state, CWnd* other, BOOL isMinimised);
    afx_msg LRESULT OnDpiChanged(WPARAM dpi, LPARAM suggested);
    afx_msg LRESULT OnNextControl(WPARAM which, LPARAM isWindow);
    DECLARE_MESSAGE_MAP()

    int m_dpi = 96;

private:
    void setFonts();

    CSize m_start, m_smallest;
    CFont m_font;
    HACCEL m_accelerators = nullptr;
    HWND m_focus = nullptr; ///< the child that gets the focus back
};
