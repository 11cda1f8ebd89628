/// @file
/// The picture control for raster files. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/pictures/picture_view.h>

#include <afxwin.h>
#include <ocidl.h>

namespace VEK
{

/// A child window that shows a raster image file, at first fitted into it; the middle mouse button pans, the wheel
/// zooms about the mouse. It is laid out left to right, even if its parent is not.
class VEK_API CPicture : public CWnd
{
    DECLARE_DYNAMIC(CPicture)

public:
    CPicture();
    ~CPicture() override;

    /// Shows another file, of a format that the system reads. If it cannot be read, the control is empty, and a message
    /// box shows the system's reason.
    /// @return false only for a null path
    bool LoadImage(const wchar_t* path);

    /// Whether there is a picture to show.
    bool hasPicture() const { return m_picture != nullptr; }

    /// Puts the picture on the clipboard as an enhanced metafile of its size in pixels.
    /// @return false if there is no picture or the clipboard cannot be opened
    virtual bool Copy();

    /// Fits the picture into the window as after loading, and repaints.
    virtual void Reset();

    /// Sets the colour around the picture. Does not repaint.
    /// @param color `COLORREF`; initially that of dialogs
    virtual void SetBackColor(unsigned long color);

protected:
    /// Makes static controls receive mouse messages, and turns off mirroring of the window.
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
    bool m_isPanning = false; ///< with the button that was pressed here
};

} // namespace VEK

#endif
