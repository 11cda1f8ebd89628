/// @file
/// The picture control for display objects. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/display/gdx.h>

#include <afxwin.h>

/// A child window that shows a display object: the wheel zooms about the mouse, the middle button pans, a middle double
/// click shows the whole picture, and a left click notifies the parent of the item there.
///
/// The parent gets a posted message whose number is the dialog id of the control, with wParam 0 and the first number of
/// the item's stack as lParam; so a parent must not use the ids of such controls for messages of its own.
///
/// The zoom belongs to the control: a displayed object gets it with the next step, whatever zoom it had before. A wheel
/// step is measured in notches of 120, times 1.2, so one below 100, as sent by high-resolution wheels, reverses the
/// direction. The control is laid out left to right, even if its parent is not.
///
/// Only the owner fits the view: it calls `zoomExtents` after `set_dpList`, and after a resize if the picture is to
/// follow. Everything runs on the window's thread.
class VEK_API CVekDplistImage : public CWnd
{
    DECLARE_DYNAMIC(CVekDplistImage)

public:
    CVekDplistImage();

    CVekGDX* get_dpList() { return dpList; }

    /// Shows another display object; the view is not fitted.
    /// @param gdx owned by the caller; must outlive the control or be replaced first; null shows nothing, and the
    ///     window then stays invalid
    /// @return whether there is one
    bool set_dpList(CVekGDX* gdx);

    /// Fits the object's extents into the client area and resets the zoom. Does not repaint. Before the window is
    /// created the area is taken as 320 by 240.
    void zoomExtents();

protected:
    /// Turns off mirroring of the window.
    void PreSubclassWindow() override;

    /// Invalidates the whole window, if it exists, with erase.
    void repaint();

    afx_msg BOOL OnNcCreate(LPCREATESTRUCT create);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnLButtonUp(UINT flags, CPoint point);
    afx_msg void OnMButtonDown(UINT flags, CPoint point);
    afx_msg void OnMButtonUp(UINT flags, CPoint point);
    afx_msg void OnMButtonDblClk(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

    CVekGDX* dpList = nullptr;
    CVekMatrix3d zoomMtx; ///< of this control, passed to the object with each step
    CPoint panStart;      ///< where the mouse was when the pan began
    double panX = 0.0;    ///< shift of `zoomMtx` when the pan began
    double panY = 0.0;
    HCURSOR panCursor;
    HCURSOR crossCursor;

private:
    void beginPan(CPoint point);
    void handZoomOn();
    void crossIfFocused();

    bool m_isPanning = false; ///< with the button that was pressed here
};

#endif
