// Pictures that GDI draws from the calls of a surface.
#pragma once

#include "window/device_pixels.h"

#include <vek/surfaces/surface.h>

#include <vector>

inline constexpr int kWidth = 320, kHeight = 240;

/// The calls of a surface, straight to GDI.
class DirectSurface : public VEK::CSurface
{
public:
    explicit DirectSurface(HDC dc) : m_dc(dc)
    {
        SetPolyFillMode(dc, ALTERNATE);
        noBrush();
    }
    ~DirectSurface() override
    {
        SelectClipRgn(m_dc, nullptr);
        pick(GetStockObject(BLACK_PEN));
        pick(GetStockObject(WHITE_BRUSH));
        DeleteObject(m_clip);
    }

    void clipTo(double left, double top, double right, double bottom) override
    {
        DeleteObject(m_clip);
        m_clip = CreateRectRgn(int(left), int(top), int(right), int(bottom));
        SelectClipRgn(m_dc, m_clip);
    }
    void clipOut(const VEK::SurfacePoint* points, int count) override
    {
        const std::vector<POINT> list = whole(points, count);
        const HRGN region = CreatePolygonRgn(list.data(), count, ALTERNATE);
        ExtSelectClipRgn(m_dc, region, RGN_DIFF);
        DeleteObject(region);
    }
    void clipRestore() override { SelectClipRgn(m_dc, m_clip); }
    void pen(int width, unsigned color) override { pick(CreatePen(PS_SOLID, width, color)); }
    void noPen() override { pick(GetStockObject(NULL_PEN)); }
    void brush(unsigned color) override { pick(CreateSolidBrush(color)); }
    void noBrush() override { pick(GetStockObject(NULL_BRUSH)); }
    void background(unsigned color) override { SetBkColor(m_dc, color); }
    void moveTo(double x, double y) override { MoveToEx(m_dc, int(x), int(y), nullptr); }
    void lineTo(double x, double y) override { LineTo(m_dc, int(x), int(y)); }
    void polygon(const VEK::SurfacePoint* points, int count) override
    {
        Polygon(m_dc, whole(points, count).data(), count);
    }
    void rectangle(double x1, double y1, double x2, double y2) override
    {
        Rectangle(m_dc, int(x1), int(y1), int(x2), int(y2));
    }
    void ellipse(double x1, double y1, double x2, double y2) override
    {
        Ellipse(m_dc, int(x1), int(y1), int(x2), int(y2));
    }
    void pixel(double x, double y, unsigned color) override { SetPixelV(m_dc, int(x), int(y), color); }
    void solidRect(double x, double y, double width, double height, unsigned color) override
    {
        const RECT rect = {int(x), int(y), int(x + width), int(y + height)};
        const HBRUSH fill = CreateSolidBrush(color);
        FillRect(m_dc, &rect, fill);
        DeleteObject(fill);
    }
    void picture(double x, double y, const VEK::CPixels& pixels) override
    {
        for (int i = 0; i < pixels.height; ++i) {
            for (int k = 0; k < pixels.width; ++k) {
                if (pixels.at(k, i) >> 24 != 0)
                    SetPixelV(m_dc, int(x) + k, int(y) + i, pixels.at(k, i) & 0xFFFFFF);
            }
        }
    }

private:
    static std::vector<POINT> whole(const VEK::SurfacePoint* points, int count)
    {
        std::vector<POINT> list;
        for (int i = 0; i < count; ++i)
            list.push_back({int(points[i].x), int(points[i].y)});
        return list;
    }
    void pick(HGDIOBJ object) { DeleteObject(SelectObject(m_dc, object)); }

    HDC m_dc;
    HRGN m_clip = nullptr;
};
