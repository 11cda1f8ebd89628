// What a device context shows, as pixels.
#pragma once

#include <vek/values/pixels.h>

#include <windows.h>

/// A picture in memory with a device context.
class Canvas
{
public:
    Canvas(int width, int height) : m_width(width), m_height(height)
    {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&m_pixels), nullptr, 0);
        m_old = SelectObject(dc, m_bitmap);
        clear();
    }
    ~Canvas()
    {
        SelectObject(dc, m_old);
        DeleteObject(m_bitmap);
        DeleteDC(dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    void clear() { PatBlt(dc, 0, 0, m_width, m_height, WHITENESS); }

    VEK::CPixels pixels() const
    {
        GdiFlush();
        VEK::CPixels result{m_width, m_height, {m_pixels, m_pixels + m_width * m_height}};
        for (std::uint32_t& pixel : result.data) // comes with blue in the lowest byte
            pixel = 0xFF000000 | (pixel & 0xFF) << 16 | (pixel & 0xFF00) | (pixel >> 16 & 0xFF);
        return result;
    }

    const HDC dc = CreateCompatibleDC(nullptr);

private:
    const int m_width;
    const int m_height;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_old = nullptr;
    std::uint32_t* m_pixels = nullptr;
};

/// The upper left corner of what a context shows.
inline VEK::CPixels devicePixels(HDC dc, int width, int height)
{
    const Canvas canvas(width, height);
    BitBlt(canvas.dc, 0, 0, width, height, dc, 0, 0, SRCCOPY);
    return canvas.pixels();
}
