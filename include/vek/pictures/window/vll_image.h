/// @file
/// The picture control for lists of polylines. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/pictures/window/dplist_image.h>

/// A picture control that shows a list of polylines and the base point, the origin, in a colour that contrasts with the
/// background; one polyline, the current one, is highlighted. It owns what it shows: item path (0) is the base point,
/// (i + 1) polyline i, and a click is reported by that number. A double click shows the whole picture.
class VEK_API CVekVllImage : public CVekDplistImage
{
    DECLARE_DYNAMIC(CVekVllImage)

public:
    CVekVllImage();

    /// Sets the background, and the line colour: white if its mean brightness is below 128, black otherwise. Does not
    /// repaint.
    /// @param color `COLORREF`
    void SetBkColor(unsigned long color);

    /// Shows other polylines, fitted into the window. No polyline is highlighted then, although the number of the
    /// current one is kept.
    /// @return true
    bool setVll(const CVekArrayTempl<CVekVertexArray>& list);

    /// Makes a polyline the current one; -1 for none. A number past the list highlights nothing.
    /// @return the previous one
    int SetCurVl(int i);

    /// Shows the base point, or hides it and leaves it out of the fit.
    /// @return the previous setting
    bool setDrawBase(bool flag);

protected:
    afx_msg void OnLButtonDblClk(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

    CVekArrayTempl<CVekVertexArray> vll; ///< for derived classes; this one leaves it empty
    CVekGDX gdx;
    int pdSize = 0;               ///< of the base point; 0 is the display object's
    unsigned pdMode = 0xFFFFFFFF; ///< of the base point; 0xFFFFFFFF is the display object's
    int curVl = -1;
    unsigned bkColor = 0;
    unsigned vlColor = 0;
    unsigned alpha = 255; ///< for derived classes
    bool drawBase = true;
};

#endif
