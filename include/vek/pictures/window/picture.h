/// @file
/// The picture control for raster files. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/pictures/picture_view.h>

#include <afxwin.h>
#include <ocidl.h>

namespace VEK
{

/// A child window that shows a raster image file, fitted into it at first; the middle mouse button pans, the wheel
/// zooms about the mouse. It runs from left to right, whatever its parent does.
class VEK_API CPicture : public CWnd
{
    DECLARE_DYNAMIC(CPicture)

public:
    CPicture();
    ~CPicture() override;

    /// Shows another file, of a format that the system reads. One that cannot be read leaves the control empty, and the
    /// system's message tells why.
    /// @return false only for a null path
    bool LoadImage(const wchar_t* path);

    /// Whether there is a picture to show.
    bool hasPicture() const { return m_picture != nullptr; }

    /// Puts the picture on the clipboard as an enhanced metafile of its size in pixels.
    /// @return false without a picture, and when the clipboard cannot be opened
    virtual bool Copy();

    /// Fits the picture into the window as after loading, and repaints.
    virtual void Reset();

    /// Sets what shows around the picture. Does not repaint.
    /// @param color `COLORREF`; at start that of dialogs
    virtual void SetBackColor(unsigned long color);

protected:
    /// Static controls are made to tell of the mouse, and no window mirrors its picture.
    void PreSubclassWindow() override;

    afx_msg BOOL OnNcCreate(LPCREATESTRUCT create);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    afx_msg void OnMButtonDown(UINT flags, CPoint point);
    afx_msg void OnMButtonUp(UINT flags, CPoint point);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    void release();
    void fit();
    void render(CDC& dc, const CRect& destination, double reduction, const CRect* bounds);

    COLORREF m_backColor;
    IPicture* m_picture = nullptr; ///< owned
    int m_himetricWidth = 0;
    int m_himetricHeight = 0;
    PictureView m_view;
    CPoint m_originAtPress;
    CPoint m_press;
    bool m_isPanning = false; ///< with the button that went down here
};

} // namespace VEK

#endif
