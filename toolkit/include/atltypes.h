/// @file
/// Points, sizes and rectangles in whole device units, with the layout of the system's structures.
#pragma once

#include <toolkit/base.h>

class CPoint;
class CRect;

class CSize : public SIZE
{
public:
    CSize() : SIZE{0, 0} {}
    CSize(int initCX, int initCY) : SIZE{initCX, initCY} {}
    CSize(SIZE initSize) : SIZE(initSize) {}
    CSize(POINT initPt) : SIZE{initPt.x, initPt.y} {}
    /// From the low and high word of a message's parameter.
    CSize(DWORD dwSize) : SIZE{static_cast<short>(LOWORD(dwSize)), static_cast<short>(HIWORD(dwSize))} {}

    void SetSize(int width, int height) { cx = width, cy = height; }
    BOOL operator==(SIZE size) const { return cx == size.cx && cy == size.cy; }
    BOOL operator!=(SIZE size) const { return !(*this == size); }
    void operator+=(SIZE size) { cx += size.cx, cy += size.cy; }
    void operator-=(SIZE size) { cx -= size.cx, cy -= size.cy; }
    CSize operator+(SIZE size) const { return CSize(cx + size.cx, cy + size.cy); }
    CSize operator-(SIZE size) const { return CSize(cx - size.cx, cy - size.cy); }
    CSize operator-() const { return CSize(-cx, -cy); }
    inline CPoint operator+(POINT point) const;
    inline CPoint operator-(POINT point) const;
    inline CRect operator+(const RECT* lpRect) const;
    inline CRect operator-(const RECT* lpRect) const;
};

class CPoint : public POINT
{
public:
    CPoint() : POINT{0, 0} {}
    CPoint(int initX, int initY) : POINT{initX, initY} {}
    CPoint(POINT initPt) : POINT(initPt) {}
    CPoint(SIZE initSize) : POINT{initSize.cx, initSize.cy} {}
    CPoint(LPARAM dwPoint) : POINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))} {}

    void Offset(int xOffset, int yOffset) { x += xOffset, y += yOffset; }
    void Offset(POINT point) { Offset(point.x, point.y); }
    void Offset(SIZE size) { Offset(size.cx, size.cy); }
    void SetPoint(int X, int Y) { x = X, y = Y; }
    BOOL operator==(POINT point) const { return x == point.x && y == point.y; }
    BOOL operator!=(POINT point) const { return !(*this == point); }
    void operator+=(SIZE size) { Offset(size); }
    void operator-=(SIZE size) { Offset(-size.cx, -size.cy); }
    void operator+=(POINT point) { Offset(point); }
    void operator-=(POINT point) { Offset(-point.x, -point.y); }
    CPoint operator+(SIZE size) const { return CPoint(x + size.cx, y + size.cy); }
    CPoint operator-(SIZE size) const { return CPoint(x - size.cx, y - size.cy); }
    CPoint operator-() const { return CPoint(-x, -y); }
    CPoint operator+(POINT point) const { return CPoint(x + point.x, y + point.y); }
    CSize operator-(POINT point) const { return CSize(x - point.x, y - point.y); }
    inline CRect operator+(const RECT* lpRect) const;
    inline CRect operator-(const RECT* lpRect) const;
};

/// Right and bottom are exclusive. Width and Height do not sort the edges; NormalizeRect does.
class CRect : public RECT
{
public:
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    CRect(const RECT& srcRect) : RECT(srcRect) {}
    CRect(LPCRECT lpSrcRect) : RECT(*lpSrcRect) {}
    CRect(POINT point, SIZE size) : RECT{point.x, point.y, point.x + size.cx, point.y + size.cy} {}
    CRect(POINT topLeft, POINT bottomRight) : RECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y} {}

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    BOOL IsRectEmpty() const { return ::IsRectEmpty(this); }
    BOOL IsRectNull() const { return left == 0 && right == 0 && top == 0 && bottom == 0; }
    BOOL PtInRect(POINT point) const { return ::PtInRect(this, point); }
    void SetRect(int x1, int y1, int x2, int y2) { ::SetRect(this, x1, y1, x2, y2); }
    void SetRectEmpty() { ::SetRectEmpty(this); }
    void CopyRect(LPCRECT lpSrcRect) { ::CopyRect(this, lpSrcRect); }
    BOOL EqualRect(LPCRECT lpRect) const { return ::EqualRect(this, lpRect); }
    void InflateRect(int x, int y) { ::InflateRect(this, x, y); }
    void InflateRect(SIZE size) { ::InflateRect(this, size.cx, size.cy); }
    void InflateRect(LPCRECT lpRect) { InflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    void InflateRect(int l, int t, int r, int b) { left -= l, top -= t, right += r, bottom += b; }
    void DeflateRect(int x, int y) { ::InflateRect(this, -x, -y); }
    void DeflateRect(SIZE size) { ::InflateRect(this, -size.cx, -size.cy); }
    void DeflateRect(LPCRECT lpRect) { DeflateRect(lpRect->left, lpRect->top, lpRect->right, lpRect->bottom); }
    void DeflateRect(int l, int t, int r, int b) { left += l, top += t, right -= r, bottom -= b; }
    void OffsetRect(int x, int y) { ::OffsetRect(this, x, y); }
    void OffsetRect(SIZE size) { ::OffsetRect(this, size.cx, size.cy); }
    void OffsetRect(POINT point) { ::OffsetRect(this, point.x, point.y); }
    void MoveToX(int x) { right += x - left, left = x; }
    void MoveToY(int y) { bottom += y - top, top = y; }
    void MoveToXY(int x, int y) { MoveToX(x), MoveToY(y); }
    void MoveToXY(POINT point) { MoveToXY(point.x, point.y); }
    void NormalizeRect()
    {
        if (left > right)
            SetRect(right, top, left, bottom);
        if (top > bottom)
            SetRect(left, bottom, right, top);
    }
    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) { return ::IntersectRect(this, lpRect1, lpRect2); }
    BOOL UnionRect(LPCRECT lpRect1, LPCRECT lpRect2) { return ::UnionRect(this, lpRect1, lpRect2); }
    BOOL SubtractRect(LPCRECT lpRectSrc1, LPCRECT lpRectSrc2) { return ::SubtractRect(this, lpRectSrc1, lpRectSrc2); }

    void operator=(const RECT& srcRect) { static_cast<RECT&>(*this) = srcRect; }
    BOOL operator==(const RECT& rect) const { return ::EqualRect(this, &rect); }
    BOOL operator!=(const RECT& rect) const { return !::EqualRect(this, &rect); }
    void operator+=(POINT point) { OffsetRect(point); }
    void operator+=(SIZE size) { OffsetRect(size); }
    void operator-=(POINT point) { OffsetRect(-point.x, -point.y); }
    void operator-=(SIZE size) { OffsetRect(-size.cx, -size.cy); }
    void operator&=(const RECT& rect) { ::IntersectRect(this, this, &rect); }
    void operator|=(const RECT& rect) { ::UnionRect(this, this, &rect); }
    CRect operator+(POINT point) const { return moved(point.x, point.y); }
    CRect operator+(SIZE size) const { return moved(size.cx, size.cy); }
    CRect operator-(POINT point) const { return moved(-point.x, -point.y); }
    CRect operator-(SIZE size) const { return moved(-size.cx, -size.cy); }
    CRect operator&(const RECT& rect) const
    {
        CRect both;
        both.IntersectRect(this, &rect);
        return both;
    }
    CRect operator|(const RECT& rect) const
    {
        CRect both;
        both.UnionRect(this, &rect);
        return both;
    }

private:
    CRect moved(int x, int y) const { return CRect(left + x, top + y, right + x, bottom + y); }
};

inline CPoint CSize::operator+(POINT point) const
{
    return CPoint(cx + point.x, cy + point.y);
}
inline CPoint CSize::operator-(POINT point) const
{
    return CPoint(cx - point.x, cy - point.y);
}
inline CRect CSize::operator+(const RECT* lpRect) const
{
    return CRect(lpRect) + *this;
}
inline CRect CSize::operator-(const RECT* lpRect) const
{
    return CRect(lpRect) - *this;
}
inline CRect CPoint::operator+(const RECT* lpRect) const
{
    return CRect(lpRect) + static_cast<POINT>(*this);
}
inline CRect CPoint::operator-(const RECT* lpRect) const
{
    return CRect(lpRect) - static_cast<POINT>(*this);
}
