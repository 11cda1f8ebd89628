// Painting without flicker.
#pragma once

#include <afxwin.h>

namespace VEK
{

/// A context of a window's client area that is painted in memory and copied to the screen when the painting ends. If
/// memory runs out, as for an area of 32,000 by 32,000, it is the window's own context.
class PaintBuffer
{
public:
    explicit PaintBuffer(CWnd* window) : m_paint(window)
    {
        window->GetClientRect(&m_area);
        if (m_memory.CreateCompatibleDC(&m_paint) && m_memory.SetLayout(0) != GDI_ERROR &&
            m_bitmap.CreateCompatibleBitmap(&m_paint, width(), height()))
            m_before = m_memory.SelectObject(&m_bitmap);
    }
    ~PaintBuffer()
    {
        if (!m_before)
            return;
        m_paint.BitBlt(0, 0, width(), height(), &m_memory, 0, 0, SRCCOPY);
        m_memory.SelectObject(m_before);
    }
    PaintBuffer(const PaintBuffer&) = delete;
    PaintBuffer& operator=(const PaintBuffer&) = delete;

    CDC& context() { return m_before ? m_memory : static_cast<CDC&>(m_paint); }
    const CRect& area() const { return m_area; } ///< from (0, 0)
    int width() const { return m_area.right; }
    int height() const { return m_area.bottom; }

private:
    CPaintDC m_paint;
    CDC m_memory;
    CBitmap m_bitmap;
    CBitmap* m_before = nullptr;
    CRect m_area;
};

} // namespace VEK
