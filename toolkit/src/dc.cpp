#include <toolkit/dc.h>

#include "thread_state.h"

IMPLEMENT_DYNCREATE(CDC, CObject)

CDC::~CDC()
{
    DeleteDC();
}

CDC* CDC::FromHandle(HDC hDC)
{
    return objectOf<CDC>(hDC);
}

BOOL CDC::Attach(HDC hDC)
{
    if (!attachHandle(*this, m_hDC, hDC))
        return FALSE;
    SetAttribDC(hDC);
    return TRUE;
}

HDC CDC::Detach()
{
    ReleaseAttribDC();
    return detachHandle(*this, m_hDC);
}

void CDC::SetOutputDC(HDC hDC)
{
    ReleaseOutputDC();
    attachHandle(*this, m_hDC, hDC);
}

void CDC::ReleaseOutputDC()
{
    detachHandle(*this, m_hDC);
}

BOOL CDC::DeleteDC()
{
    return m_hDC != nullptr && ::DeleteDC(Detach());
}

int CDC::SaveDC()
{
    const int drawn = ::SaveDC(m_hDC);
    return m_hAttribDC == m_hDC || m_hAttribDC == nullptr ? drawn : ::SaveDC(m_hAttribDC);
}

BOOL CDC::RestoreDC(int nSavedDC)
{
    if (m_hAttribDC == m_hDC || m_hAttribDC == nullptr)
        return ::RestoreDC(m_hDC, nSavedDC);
    // The two contexts may number their saved states differently, so only the last ones are sure to match.
    return nSavedDC == -1 && ::RestoreDC(m_hDC, -1) && ::RestoreDC(m_hAttribDC, -1);
}

HGDIOBJ CDC::select(HGDIOBJ object)
{
    const HGDIOBJ drawn = ::SelectObject(m_hDC, object);
    return m_hAttribDC == m_hDC || m_hAttribDC == nullptr ? drawn : ::SelectObject(m_hAttribDC, object);
}

CPoint CDC::GetBrushOrg() const
{
    CPoint point;
    ::GetBrushOrgEx(m_hDC, &point);
    return point;
}

CPoint CDC::SetBrushOrg(int x, int y)
{
    CPoint before;
    ::SetBrushOrgEx(m_hDC, x, y, &before);
    return before;
}

CPoint CDC::GetViewportOrg() const
{
    CPoint point;
    ::GetViewportOrgEx(m_hAttribDC, &point);
    return point;
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    CPoint before;
    both(::SetViewportOrgEx, x, y, &before);
    return before;
}

CPoint CDC::OffsetViewportOrg(int nWidth, int nHeight)
{
    CPoint before;
    both(::OffsetViewportOrgEx, nWidth, nHeight, &before);
    return before;
}

CSize CDC::GetViewportExt() const
{
    CSize size;
    ::GetViewportExtEx(m_hAttribDC, &size);
    return size;
}

CSize CDC::SetViewportExt(int cx, int cy)
{
    CSize before;
    both(::SetViewportExtEx, cx, cy, &before);
    return before;
}

CPoint CDC::GetWindowOrg() const
{
    CPoint point;
    ::GetWindowOrgEx(m_hAttribDC, &point);
    return point;
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    CPoint before;
    both(::SetWindowOrgEx, x, y, &before);
    return before;
}

CSize CDC::GetWindowExt() const
{
    CSize size;
    ::GetWindowExtEx(m_hAttribDC, &size);
    return size;
}

CSize CDC::SetWindowExt(int cx, int cy)
{
    CSize before;
    both(::SetWindowExtEx, cx, cy, &before);
    return before;
}

CPoint CDC::GetCurrentPosition() const
{
    CPoint point;
    ::GetCurrentPositionEx(m_hAttribDC, &point);
    return point;
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint before;
    both(::MoveToEx, x, y, &before);
    return before;
}

BOOL CDC::LineTo(int x, int y)
{
    // The attribute context follows the current position without drawing.
    if (m_hAttribDC != m_hDC && m_hAttribDC != nullptr)
        ::MoveToEx(m_hAttribDC, x, y, nullptr);
    return ::LineTo(m_hDC, x, y);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF clr)
{
    SetBkColor(clr);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF clr)
{
    const CRect rect(x, y, x + cx, y + cy);
    FillSolidRect(&rect, clr);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF clrTopLeft, COLORREF clrBottomRight)
{
    const int x = lpRect->left, y = lpRect->top, cx = lpRect->right - x, cy = lpRect->bottom - y;
    FillSolidRect(x, y, cx - 1, 1, clrTopLeft);
    FillSolidRect(x, y, 1, cy - 1, clrTopLeft);
    FillSolidRect(x + cx, y, -1, cy, clrBottomRight);
    FillSolidRect(x, y + cy, cx, -1, clrBottomRight);
}
