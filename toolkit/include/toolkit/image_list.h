/// @file
/// Lists of pictures of one size. The destructor destroys the list that was created or attached.
#pragma once

#include <toolkit/dc.h>

class AFX_EXPORTED CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)

public:
    CImageList() = default;
    ~CImageList() override { DeleteImageList(); }

    HIMAGELIST m_hImageList = nullptr;

    operator HIMAGELIST() const { return m_hImageList; }
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }
    static CImageList* FromHandle(HIMAGELIST hImageList);
    static CImageList* FromHandlePermanent(HIMAGELIST hImageList);
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();
    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
    {
        return Attach(::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
    }
    /// A list made from a bitmap of the module's resources, which has the pictures in a row.
    BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask)
    {
        return Create(MAKEINTRESOURCE(nBitmapID), cx, nGrow, crMask);
    }
    BOOL DeleteImageList() { return m_hImageList != nullptr && ::ImageList_Destroy(Detach()); }

    int GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
    BOOL SetImageCount(UINT uNewCount) { return ::ImageList_SetImageCount(m_hImageList, uNewCount); }
    BOOL GetImageInfo(int nImage, IMAGEINFO* pInfo) const
    {
        return ::ImageList_GetImageInfo(m_hImageList, nImage, pInfo);
    }
    COLORREF GetBkColor() const { return ::ImageList_GetBkColor(m_hImageList); }
    COLORREF SetBkColor(COLORREF cr) { return ::ImageList_SetBkColor(m_hImageList, cr); }
    int Add(CBitmap* pbmImage, CBitmap* pbmMask)
    {
        return ::ImageList_Add(m_hImageList, *pbmImage, pbmMask == nullptr ? nullptr : HBITMAP(*pbmMask));
    }
    int Add(CBitmap* pbmImage, COLORREF crMask) { return ::ImageList_AddMasked(m_hImageList, *pbmImage, crMask); }
    int Add(HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, -1, hIcon); }
    int Replace(int nImage, HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, nImage, hIcon); }
    BOOL Remove(int nImage) { return ::ImageList_Remove(m_hImageList, nImage); }
    HICON ExtractIcon(int nImage) { return ::ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
    {
        return ::ImageList_Draw(m_hImageList, nImage, pDC->m_hDC, pt.x, pt.y, nStyle);
    }
};
