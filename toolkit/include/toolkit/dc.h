/// @file
/// Device contexts. Drawing goes to `m_hDC`, queries to `m_hAttribDC`; both are the same except for a metafile.
#pragma once

#include <toolkit/gdi.h>
#include <toolkit/string.h>

#include <cwchar>

class CWnd;

class AFX_EXPORTED CDC : public CObject
{
    DECLARE_DYNCREATE(CDC)

public:
    CDC() = default;
    ~CDC() override;

    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;
    BOOL m_bPrinting = FALSE;

    operator HDC() const { return m_hDC; }
    HDC GetSafeHdc() const { return m_hDC; }
    static CDC* FromHandle(HDC hDC);
    static void DeleteTempMap() { CGdiObject::DeleteTempMap(); }
    CWnd* GetWindow() const;
    BOOL IsPrinting() const { return m_bPrinting; }

    /// @name Creating and releasing
    /// The destructor deletes the context, unless it was detached.
    /// @{
    BOOL Attach(HDC hDC);
    HDC Detach();
    virtual void SetAttribDC(HDC hDC) { m_hAttribDC = hDC; }
    virtual void SetOutputDC(HDC hDC);
    virtual void ReleaseAttribDC() { m_hAttribDC = nullptr; }
    virtual void ReleaseOutputDC();
    BOOL CreateDC(LPCTSTR driver, LPCTSTR device, LPCTSTR output, const void* init)
    {
        return Attach(::CreateDCW(driver, device, output, static_cast<const DEVMODEW*>(init)));
    }
    BOOL CreateIC(LPCTSTR driver, LPCTSTR device, LPCTSTR output, const void* init)
    {
        return Attach(::CreateICW(driver, device, output, static_cast<const DEVMODEW*>(init)));
    }
    /// A memory context, compatible with the screen if no other is given.
    BOOL CreateCompatibleDC(CDC* pDC) { return Attach(::CreateCompatibleDC(pDC == nullptr ? nullptr : pDC->m_hDC)); }
    BOOL DeleteDC();
    virtual int SaveDC();
    virtual BOOL RestoreDC(int nSavedDC);
    int GetDeviceCaps(int nIndex) const { return ::GetDeviceCaps(m_hAttribDC, nIndex); }
    /// @}

    /// @name Objects
    /// Returns the previous selection, a temporary object unless an object owns it; null on failure.
    /// @{
    virtual CGdiObject* SelectStockObject(int nIndex)
    {
        return CGdiObject::FromHandle(select(::GetStockObject(nIndex)));
    }
    CPen* SelectObject(CPen* pPen) { return swap(pPen); }
    CBrush* SelectObject(CBrush* pBrush) { return swap(pBrush); }
    virtual CFont* SelectObject(CFont* pFont) { return swap(pFont); }
    CBitmap* SelectObject(CBitmap* pBitmap) { return swap(pBitmap); }
    CGdiObject* SelectObject(CGdiObject* pObject) { return swap(pObject); }
    /// Selects a copy of the region; returns its complexity.
    int SelectObject(CRgn* pRgn) { return SelectClipRgn(pRgn); }
    CPalette* SelectPalette(CPalette* pPalette, BOOL bForceBackground)
    {
        return CPalette::FromHandle(::SelectPalette(m_hDC, *pPalette, bForceBackground));
    }
    UINT RealizePalette() { return ::RealizePalette(m_hDC); }
    CPen* GetCurrentPen() const { return CPen::FromHandle(static_cast<HPEN>(current(OBJ_PEN))); }
    CBrush* GetCurrentBrush() const { return CBrush::FromHandle(static_cast<HBRUSH>(current(OBJ_BRUSH))); }
    CFont* GetCurrentFont() const { return CFont::FromHandle(static_cast<HFONT>(current(OBJ_FONT))); }
    CBitmap* GetCurrentBitmap() const { return CBitmap::FromHandle(static_cast<HBITMAP>(current(OBJ_BITMAP))); }
    CPalette* GetCurrentPalette() const { return CPalette::FromHandle(static_cast<HPALETTE>(current(OBJ_PAL))); }
    /// @}

    /// @name Colours and modes
    /// Setters return the previous value.
    /// @{
    COLORREF GetNearestColor(COLORREF crColor) const { return ::GetNearestColor(m_hAttribDC, crColor); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
    virtual COLORREF SetBkColor(COLORREF crColor) { return both(::SetBkColor, crColor); }
    int GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
    int SetBkMode(int nBkMode) { return both(::SetBkMode, nBkMode); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hAttribDC); }
    virtual COLORREF SetTextColor(COLORREF crColor) { return both(::SetTextColor, crColor); }
    int GetPolyFillMode() const { return ::GetPolyFillMode(m_hAttribDC); }
    int SetPolyFillMode(int nPolyFillMode) { return both(::SetPolyFillMode, nPolyFillMode); }
    int GetROP2() const { return ::GetROP2(m_hAttribDC); }
    int SetROP2(int nDrawMode) { return both(::SetROP2, nDrawMode); }
    int GetStretchBltMode() const { return ::GetStretchBltMode(m_hAttribDC); }
    int SetStretchBltMode(int nStretchMode) { return both(::SetStretchBltMode, nStretchMode); }
    int GetGraphicsMode() const { return ::GetGraphicsMode(m_hDC); }
    int SetGraphicsMode(int iMode) { return both(::SetGraphicsMode, iMode); }
    BOOL SetWorldTransform(const XFORM& rXform) { return both(::SetWorldTransform, &rXform); }
    BOOL GetWorldTransform(XFORM& rXform) const { return ::GetWorldTransform(m_hAttribDC, &rXform); }
    UINT GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }
    UINT SetTextAlign(UINT nFlags) { return both(::SetTextAlign, nFlags); }
    DWORD SetLayout(DWORD dwLayout) { return ::SetLayout(m_hDC, dwLayout); }
    DWORD GetLayout() const { return ::GetLayout(m_hDC); }
    CPoint GetBrushOrg() const;
    CPoint SetBrushOrg(int x, int y);
    CPoint SetBrushOrg(POINT point) { return SetBrushOrg(point.x, point.y); }
    /// @}

    /// @name Mapping
    /// @{
    int GetMapMode() const { return ::GetMapMode(m_hAttribDC); }
    virtual int SetMapMode(int nMapMode) { return both(::SetMapMode, nMapMode); }
    CPoint GetViewportOrg() const;
    virtual CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    virtual CPoint OffsetViewportOrg(int nWidth, int nHeight);
    CSize GetViewportExt() const;
    virtual CSize SetViewportExt(int cx, int cy);
    CSize SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }
    CPoint GetWindowOrg() const;
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
    CSize GetWindowExt() const;
    virtual CSize SetWindowExt(int cx, int cy);
    CSize SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }
    void DPtoLP(LPPOINT lpPoints, int nCount = 1) const { ::DPtoLP(m_hAttribDC, lpPoints, nCount); }
    void DPtoLP(LPRECT lpRect) const { DPtoLP(reinterpret_cast<LPPOINT>(lpRect), 2); }
    void LPtoDP(LPPOINT lpPoints, int nCount = 1) const { ::LPtoDP(m_hAttribDC, lpPoints, nCount); }
    void LPtoDP(LPRECT lpRect) const { LPtoDP(reinterpret_cast<LPPOINT>(lpRect), 2); }
    /// @}

    /// @name Clipping
    /// @{
    virtual int GetClipBox(LPRECT lpRect) const { return ::GetClipBox(m_hAttribDC, lpRect); }
    virtual BOOL PtVisible(int x, int y) const { return ::PtVisible(m_hAttribDC, x, y); }
    BOOL PtVisible(POINT point) const { return PtVisible(point.x, point.y); }
    virtual BOOL RectVisible(LPCRECT lpRect) const { return ::RectVisible(m_hAttribDC, lpRect); }
    int SelectClipRgn(CRgn* pRgn) { return both(::SelectClipRgn, pRgn == nullptr ? HRGN() : HRGN(*pRgn)); }
    int SelectClipRgn(CRgn* pRgn, int nMode)
    {
        return both(::ExtSelectClipRgn, pRgn == nullptr ? HRGN() : HRGN(*pRgn), nMode);
    }
    int ExcludeClipRect(int x1, int y1, int x2, int y2) { return both(::ExcludeClipRect, x1, y1, x2, y2); }
    int ExcludeClipRect(LPCRECT r) { return ExcludeClipRect(r->left, r->top, r->right, r->bottom); }
    int IntersectClipRect(int x1, int y1, int x2, int y2) { return both(::IntersectClipRect, x1, y1, x2, y2); }
    int IntersectClipRect(LPCRECT r) { return IntersectClipRect(r->left, r->top, r->right, r->bottom); }
    int OffsetClipRgn(int x, int y) { return both(::OffsetClipRgn, x, y); }
    /// @}

    /// @name Lines
    /// @{
    CPoint GetCurrentPosition() const;
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
    {
        return ::Arc(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
    }
    BOOL Polyline(const POINT* lpPoints, int nCount) { return ::Polyline(m_hDC, lpPoints, nCount); }
    BOOL PolyPolyline(const POINT* lpPoints, const DWORD* lpPolyPoints, int nCount)
    {
        return ::PolyPolyline(m_hDC, lpPoints, lpPolyPoints, static_cast<DWORD>(nCount));
    }
    BOOL PolylineTo(const POINT* lpPoints, int nCount)
    {
        return ::PolylineTo(m_hDC, lpPoints, static_cast<DWORD>(nCount));
    }
    BOOL PolyBezier(const POINT* lpPoints, int nCount)
    {
        return ::PolyBezier(m_hDC, lpPoints, static_cast<DWORD>(nCount));
    }
    /// @}

    /// @name Filled figures
    /// @{
    void FillRect(LPCRECT lpRect, CBrush* pBrush) { ::FillRect(m_hDC, lpRect, *pBrush); }
    void FrameRect(LPCRECT lpRect, CBrush* pBrush) { ::FrameRect(m_hDC, lpRect, *pBrush); }
    void InvertRect(LPCRECT lpRect) { ::InvertRect(m_hDC, lpRect); }
    BOOL FillRgn(CRgn* pRgn, CBrush* pBrush) { return ::FillRgn(m_hDC, *pRgn, *pBrush); }
    BOOL PaintRgn(CRgn* pRgn) { return ::PaintRgn(m_hDC, *pRgn); }
    /// These two also set the background colour.
    void FillSolidRect(LPCRECT lpRect, COLORREF clr);
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF clr);
    void Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight);
    BOOL Ellipse(int x1, int y1, int x2, int y2) { return ::Ellipse(m_hDC, x1, y1, x2, y2); }
    BOOL Ellipse(LPCRECT r) { return Ellipse(r->left, r->top, r->right, r->bottom); }
    BOOL Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
    {
        return ::Pie(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
    }
    BOOL Polygon(const POINT* lpPoints, int nCount) { return ::Polygon(m_hDC, lpPoints, nCount); }
    BOOL PolyPolygon(const POINT* lpPoints, const INT* lpPolyCounts, int nCount)
    {
        return ::PolyPolygon(m_hDC, lpPoints, lpPolyCounts, nCount);
    }
    BOOL Rectangle(int x1, int y1, int x2, int y2) { return ::Rectangle(m_hDC, x1, y1, x2, y2); }
    BOOL Rectangle(LPCRECT r) { return Rectangle(r->left, r->top, r->right, r->bottom); }
    BOOL RoundRect(int x1, int y1, int x2, int y2, int x3, int y3)
    {
        return ::RoundRect(m_hDC, x1, y1, x2, y2, x3, y3);
    }
    void DrawFocusRect(LPCRECT lpRect) { ::DrawFocusRect(m_hDC, lpRect); }
    BOOL DrawEdge(LPRECT lpRect, UINT nEdge, UINT nFlags) { return ::DrawEdge(m_hDC, lpRect, nEdge, nFlags); }
    BOOL DrawFrameControl(LPRECT lpRect, UINT nType, UINT nState)
    {
        return ::DrawFrameControl(m_hDC, lpRect, nType, nState);
    }
    BOOL DrawIcon(int x, int y, HICON hIcon) { return ::DrawIcon(m_hDC, x, y, hIcon); }
    /// @}

    /// @name Pixels and pictures
    /// The source may be null for raster codes that need none.
    /// @{
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    COLORREF GetPixel(POINT point) const { return GetPixel(point.x, point.y); }
    COLORREF SetPixel(int x, int y, COLORREF crColor) { return ::SetPixel(m_hDC, x, y, crColor); }
    COLORREF SetPixel(POINT point, COLORREF crColor) { return SetPixel(point.x, point.y, crColor); }
    BOOL SetPixelV(int x, int y, COLORREF crColor) { return ::SetPixelV(m_hDC, x, y, crColor); }
    BOOL SetPixelV(POINT point, COLORREF crColor) { return SetPixelV(point.x, point.y, crColor); }
    BOOL PatBlt(int x, int y, int nWidth, int nHeight, DWORD dwRop)
    {
        return ::PatBlt(m_hDC, x, y, nWidth, nHeight, dwRop);
    }
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop)
    {
        return ::BitBlt(m_hDC, x, y, nWidth, nHeight, source(pSrcDC), xSrc, ySrc, dwRop);
    }
    BOOL StretchBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, int nSrcWidth,
                    int nSrcHeight, DWORD dwRop)
    {
        return ::StretchBlt(m_hDC, x, y, nWidth, nHeight, source(pSrcDC), xSrc, ySrc, nSrcWidth, nSrcHeight, dwRop);
    }
    BOOL MaskBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, CBitmap& maskBitmap, int xMask,
                 int yMask, DWORD dwRop)
    {
        return ::MaskBlt(m_hDC, x, y, nWidth, nHeight, source(pSrcDC), xSrc, ySrc, maskBitmap, xMask, yMask, dwRop);
    }
    BOOL PlayMetaFile(HENHMETAFILE hEnhMetaFile, LPCRECT lpBounds)
    {
        return ::PlayEnhMetaFile(m_hDC, hEnhMetaFile, lpBounds);
    }
    /// @}

    /// @name Texts
    /// @{
    virtual BOOL TextOut(int x, int y, LPCTSTR lpszString, int nCount)
    {
        return ::TextOutW(m_hDC, x, y, lpszString, nCount);
    }
    BOOL TextOut(int x, int y, const CString& str) { return TextOut(x, y, str, str.GetLength()); }
    virtual BOOL ExtTextOut(int x, int y, UINT nOptions, LPCRECT lpRect, LPCTSTR lpszString, UINT nCount,
                            LPINT lpDxWidths)
    {
        return ::ExtTextOutW(m_hDC, x, y, nOptions, lpRect, lpszString, nCount, lpDxWidths);
    }
    virtual int DrawText(LPCTSTR lpszString, int nCount, LPRECT lpRect, UINT nFormat)
    {
        return ::DrawTextW(m_hDC, lpszString, nCount, lpRect, nFormat);
    }
    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat)
    {
        return DrawText(str, str.GetLength(), lpRect, nFormat);
    }
    CSize GetTextExtent(LPCTSTR lpszString, int nCount) const
    {
        CSize size;
        ::GetTextExtentPoint32W(m_hAttribDC, lpszString, nCount, &size);
        return size;
    }
    CSize GetTextExtent(const CString& str) const { return GetTextExtent(str, str.GetLength()); }
    CSize GetOutputTextExtent(LPCTSTR lpszString, int nCount) const
    {
        CSize size;
        ::GetTextExtentPoint32W(m_hDC, lpszString, nCount, &size);
        return size;
    }
    BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const { return ::GetTextMetricsW(m_hAttribDC, lpMetrics); }
    int GetTextFace(int nCount, LPTSTR lpszFacename) const { return ::GetTextFaceW(m_hAttribDC, nCount, lpszFacename); }
    /// @}

    /// @name Paths
    /// @{
    BOOL BeginPath() { return ::BeginPath(m_hDC); }
    BOOL EndPath() { return ::EndPath(m_hDC); }
    BOOL CloseFigure() { return ::CloseFigure(m_hDC); }
    BOOL FillPath() { return ::FillPath(m_hDC); }
    BOOL StrokePath() { return ::StrokePath(m_hDC); }
    BOOL StrokeAndFillPath() { return ::StrokeAndFillPath(m_hDC); }
    BOOL SelectClipPath(int nMode) { return ::SelectClipPath(m_hDC, nMode); }
    /// @}

private:
    static HDC source(const CDC* dc) { return dc == nullptr ? nullptr : dc->m_hDC; }
    HGDIOBJ select(HGDIOBJ object);
    HGDIOBJ current(UINT type) const { return ::GetCurrentObject(m_hAttribDC, type); }
    template <class Object>
    Object* swap(Object* object)
    {
        return object == nullptr ? nullptr : static_cast<Object*>(CGdiObject::FromHandle(select(object->m_hObject)));
    }
    /// Sets a value in both contexts; the result is that of the attribute context.
    template <class Result, class... Takes, class... Gives>
    Result both(Result(WINAPI* set)(HDC, Takes...), Gives... values)
    {
        const Result drawn = set(m_hDC, values...);
        return m_hAttribDC == m_hDC || m_hAttribDC == nullptr ? drawn : set(m_hAttribDC, values...);
    }
};
