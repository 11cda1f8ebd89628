/// @file
/// Dragging data into other programs.
#pragma once

#include <afxdisp.h>

#include <memory>

using DROPEFFECT = DWORD;

/// Decides how a drag goes on.
class AFX_EXPORTED COleDropSource : public CCmdTarget
{
    DECLARE_DYNAMIC(COleDropSource)

public:
    COleDropSource() = default;

    /// Waits while the button is held: true once the pointer has left the start rectangle or a fifth of a second has
    /// passed, false if the button was released or Escape pressed.
    virtual BOOL OnBeginDrag(CWnd* pWnd);
    /// Escape or the other button cancels; releasing the button that began the drag drops.
    virtual SCODE QueryContinueDrag(BOOL bEscapePressed, DWORD dwKeyState);
    virtual SCODE GiveFeedback(DROPEFFECT dropEffect);

    CRect m_rectStartDrag;    ///< on the screen
    DWORD m_dwButtonDrop = 0; ///< MK_LBUTTON or MK_RBUTTON: which one began
    DWORD m_dwButtonCancel = 0;
};

/// Data for other programs.
class AFX_EXPORTED COleDataSource : public CCmdTarget
{
    DECLARE_DYNAMIC(COleDataSource)

public:
    COleDataSource();
    ~COleDataSource() override;

    /// Takes ownership of data, for every aspect unless a format is given.
    void CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal, LPFORMATETC lpFormatEtc = nullptr);
    void CacheData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium, LPFORMATETC lpFormatEtc = nullptr);
    void Empty();
    /// Drags until the data is dropped or the drag cancelled; returns what was done with the data, DROPEFFECT_NONE for
    /// nothing. The drag begins when the pointer leaves the given screen rectangle, by default the one at the pointer.
    DROPEFFECT DoDragDrop(DWORD dwEffects = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK,
                          LPCRECT lpRectStartDrag = nullptr, COleDropSource* pDropSource = nullptr);
    /// The interface of an id, without a reference for the caller; null if the data does not have it.
    LPUNKNOWN GetInterface(const void* iid);

private:
    class Data;
    Data* m_data;
};
