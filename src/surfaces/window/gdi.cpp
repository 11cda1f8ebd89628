#include <vek/surfaces/gdi.h>

#include "core/values/whole.h"
#include "surfaces/line_run.h"
#include "surfaces/object_table.h"
#include "surfaces/opaque_region.h"
#include "surfaces/reach.h"
#include "surfaces/window/device_bitmap.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <vector>

namespace VEK
{
namespace
{

POINT whole(const SurfacePoint& p)
{
    return {static_cast<LONG>(p.x), static_cast<LONG>(p.y)};
}

int wholeClamped(double value)
{
    return static_cast<int>(reach::clamped(value));
}

class GdiSurface final : public CSurface
{
public:
    explicit GdiSurface(HDC dc) : m_dc(dc), m_saved(SaveDC(dc))
    {
        SetPolyFillMode(dc, ALTERNATE);
        SelectObject(dc, GetStockObject(BLACK_PEN));
        SelectObject(dc, GetStockObject(NULL_BRUSH));
        m_outer = CreateRectRgn(0, 0, 0, 0);
        if (GetClipRgn(dc, m_outer) != 1) { // no clip at all
            DeleteObject(m_outer);
            m_outer = nullptr;
        }
    }
    ~GdiSurface() override;
    GdiSurface(const GdiSurface&) = delete;
    GdiSurface& operator=(const GdiSurface&) = delete;

    void clipTo(double left, double top, double right, double bottom) override;
    void clipOut(const SurfacePoint* points, int count) override
    {
        VEK::whole(false, [&] { return (takeOut(points, count), true); });
    }
    void clipRestore() override;
    void pen(int width, unsigned color) override;
    void noPen() override;
    void brush(unsigned color) override;
    void noBrush() override { m_brush = nullptr; }
    void background(unsigned color) override { SetBkColor(m_dc, color & 0xFFFFFF); }
    void moveTo(double x, double y) override { m_run.moveTo({x, y}, Draw{*this}); }
    void lineTo(double x, double y) override { m_run.lineTo({x, y}, Draw{*this}); }
    void polyline(const SurfacePoint* points, int count) override;
    void polylines(const SurfacePoint* points, const int* counts, int lines) override
    {
        VEK::whole(false, [&] { return (drawLines(points, counts, lines), true); });
    }
    void polygon(const SurfacePoint* points, int count) override
    {
        VEK::whole(false, [&] { return (drawPolygon(points, count), true); });
    }
    void rectangle(double x1, double y1, double x2, double y2) override { drawBox(Rectangle, x1, y1, x2, y2); }
    void ellipse(double x1, double y1, double x2, double y2) override { drawBox(Ellipse, x1, y1, x2, y2); }
    void pixel(double x, double y, unsigned color) override;
    void solidRect(double x, double y, double width, double height, unsigned color) override;
    void picture(double x, double y, const CPixels& pixels) override;

private:
    using Objects = ObjectTable<HGDIOBJ, 8>;

    struct Draw {
        GdiSurface& surface;
        void operator()(const std::vector<POINT>& points) const { surface.drawRun(points); }
    };

    void flushRun() { m_run.flush(Draw{*this}); }
    void drawRun(const std::vector<POINT>& points);
    void select(HGDIOBJ object, HGDIOBJ& selected);
    void collect(const SurfacePoint* points, int count);
    void takeOut(const SurfacePoint* points, int count);
    void drawLines(const SurfacePoint* points, const int* counts, int lines);
    void drawPolygon(const SurfacePoint* points, int count);
    bool confine(const CPixels& pixels, int left, int top);
    template <class Create>
    HGDIOBJ object(Objects& table, std::uint64_t look, Create create);
    void drawBox(BOOL WINAPI draw(HDC, int, int, int, int), double x1, double y1, double x2, double y2);

    const HDC m_dc;
    Objects m_pens;
    Objects m_brushes;
    HGDIOBJ m_pen = GetStockObject(BLACK_PEN);
    std::uint64_t m_penLook = 0; ///< of the current pen; 0 if it is not in the table
    HGDIOBJ m_brush = nullptr;   ///< null: hollow
    HGDIOBJ m_selectedPen = m_pen;
    HGDIOBJ m_selectedBrush = GetStockObject(NULL_BRUSH);
    HRGN m_outer = nullptr; ///< the context's initial clip
    HRGN m_clip = nullptr;  ///< the requested rectangle within the initial clip
    LineRun<POINT> m_run;
    LineBatch<POINT, DWORD> m_lines;
    std::vector<POINT> m_points;
    std::vector<SurfacePoint> m_cut;
    const int m_saved; ///< last, so that nothing is saved if memory for the others runs out
};

GdiSurface::~GdiSurface()
{
    flushRun();
    RestoreDC(m_dc, m_saved);
    for (Objects* table : {&m_pens, &m_brushes}) {
        for (const Objects::Entry& entry : *table)
            DeleteObject(entry.handle);
    }
    DeleteObject(m_clip);
    DeleteObject(m_outer);
}

void GdiSurface::clipTo(double left, double top, double right, double bottom)
{
    flushRun();
    DeleteObject(m_clip);
    m_clip = CreateRectRgn(wholeClamped(left), wholeClamped(top), wholeClamped(right), wholeClamped(bottom));
    if (m_outer)
        CombineRgn(m_clip, m_clip, m_outer, RGN_AND);
    SelectClipRgn(m_dc, m_clip);
}

void GdiSurface::takeOut(const SurfacePoint* points, int count)
{
    flushRun();
    collect(points, count);
    if (m_points.size() < 3)
        return;
    const HRGN region = CreatePolygonRgn(m_points.data(), static_cast<int>(m_points.size()), ALTERNATE);
    ExtSelectClipRgn(m_dc, region, RGN_DIFF);
    DeleteObject(region);
}

void GdiSurface::clipRestore()
{
    flushRun();
    SelectClipRgn(m_dc, m_clip ? m_clip : m_outer);
}

void GdiSurface::select(HGDIOBJ object, HGDIOBJ& selected)
{
    if (object == selected)
        return;
    SelectObject(m_dc, object);
    selected = object;
}

template <class Create>
HGDIOBJ GdiSurface::object(Objects& table, std::uint64_t look, Create create)
{
    Objects::Entry& entry =
        table.find(look, [this](HGDIOBJ handle) { return handle == m_selectedPen || handle == m_selectedBrush; });
    if (entry.handle && entry.look == look)
        return entry.handle;
    if (entry.handle)
        DeleteObject(entry.handle);
    entry.look = look;
    entry.handle = create();
    return entry.handle;
}

void GdiSurface::pen(int width, unsigned color)
{
    width = std::max(width, 1);
    color &= 0xFFFFFF;
    const std::uint64_t look = std::uint64_t(width) << 32 | color;
    if (look == m_penLook)
        return;
    flushRun();
    m_pen = object(m_pens, look, [=] { return static_cast<HGDIOBJ>(CreatePen(PS_SOLID, width, color)); });
    m_penLook = look;
}

void GdiSurface::noPen()
{
    flushRun();
    m_pen = GetStockObject(NULL_PEN);
    m_penLook = 0;
}

void GdiSurface::brush(unsigned color)
{
    color &= 0xFFFFFF;
    m_brush = object(m_brushes, color, [=] { return static_cast<HGDIOBJ>(CreateSolidBrush(color)); });
}

void GdiSurface::drawRun(const std::vector<POINT>& points)
{
    select(m_pen, m_selectedPen);
    if (points.size() == 2) {
        MoveToEx(m_dc, points[0].x, points[0].y, nullptr);
        LineTo(m_dc, points[1].x, points[1].y);
    } else {
        Polyline(m_dc, points.data(), static_cast<int>(points.size()));
    }
}

void GdiSurface::polyline(const SurfacePoint* points, int count)
{
    if (count > 0)
        m_run.moveTo(points[0], Draw{*this});
    for (int i = 1; i < count; ++i)
        m_run.lineTo(points[i], Draw{*this});
}

void GdiSurface::drawLines(const SurfacePoint* points, const int* counts, int lines)
{
    flushRun();
    m_lines.draw(
        points, counts, lines, 1.0,
        [this](const auto& list, const auto& parts) {
            if (parts.size() == 1) {
                drawRun(list);
                return;
            }
            select(m_pen, m_selectedPen);
            PolyPolyline(m_dc, list.data(), parts.data(), static_cast<DWORD>(parts.size()));
        },
        [this](const SurfacePoint* line, int count) {
            polyline(line, count);
            flushRun();
        });
    const SurfacePoint* const end = std::accumulate(counts, counts + lines, points);
    if (end != points)
        m_run.moveTo(end[-1], Draw{*this});
}

void GdiSurface::collect(const SurfacePoint* points, int count)
{
    reach::cutPolygon(points, count, m_cut);
    m_points.clear();
    for (const SurfacePoint& p : m_cut)
        m_points.push_back(whole(p));
}

void GdiSurface::drawPolygon(const SurfacePoint* points, int count)
{
    flushRun();
    collect(points, count);
    if (m_points.size() < 2)
        return;
    select(m_pen, m_selectedPen);
    select(m_brush ? m_brush : GetStockObject(NULL_BRUSH), m_selectedBrush);
    Polygon(m_dc, m_points.data(), static_cast<int>(m_points.size()));
}

void GdiSurface::drawBox(BOOL WINAPI draw(HDC, int, int, int, int), double x1, double y1, double x2, double y2)
{
    flushRun();
    select(m_pen, m_selectedPen);
    select(m_brush ? m_brush : GetStockObject(NULL_BRUSH), m_selectedBrush);
    draw(m_dc, wholeClamped(x1), wholeClamped(y1), wholeClamped(x2), wholeClamped(y2));
}

void GdiSurface::pixel(double x, double y, unsigned color)
{
    flushRun();
    if (reach::holds({x, y}))
        SetPixelV(m_dc, static_cast<int>(x), static_cast<int>(y), color & 0xFFFFFF);
}

void GdiSurface::solidRect(double x, double y, double width, double height, unsigned color)
{
    flushRun();
    const int left = wholeClamped(x), top = wholeClamped(y);
    const int right = left + wholeClamped(width), bottom = top + wholeClamped(height);
    const RECT rect = {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
    const COLORREF before = SetBkColor(m_dc, color & 0xFFFFFF);
    ExtTextOutW(m_dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr); // needs no brush
    SetBkColor(m_dc, before);
}

/// Transparent pixels are cut from the clip. Two masked copies would do on a device, but readers of metafiles show the
/// masked pixels in black.
void GdiSurface::picture(double x, double y, const CPixels& pixels)
{
    flushRun();
    if (pixels.empty() || !reach::holds({x, y}))
        return;
    const BITMAPINFO info = deviceBitmapInfo(pixels);
    void* bits = nullptr;
    const HDC memory = CreateCompatibleDC(m_dc);
    if (const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0)) {
        std::transform(pixels.data.begin(), pixels.data.end(), static_cast<std::uint32_t*>(bits), deviceColor);
        const HGDIOBJ before = SelectObject(memory, bitmap);
        const int left = static_cast<int>(x), top = static_cast<int>(y);
        const bool isOpaque =
            std::all_of(pixels.data.begin(), pixels.data.end(), [](std::uint32_t p) { return p >> 24 != 0; });
        const int saved = isOpaque ? 0 : SaveDC(m_dc);
        if (isOpaque || VEK::whole(false, [&] { return confine(pixels, left, top); }))
            BitBlt(m_dc, left, top, pixels.width, pixels.height, memory, 0, 0, SRCCOPY);
        if (!isOpaque)
            RestoreDC(m_dc, saved);
        SelectObject(memory, before);
        DeleteObject(bitmap);
    }
    DeleteDC(memory);
}

/// Restricts the clip to the opaque pixels of a picture.
/// @return false when memory runs out
bool GdiSurface::confine(const CPixels& pixels, int left, int top)
{
    const std::vector<PixelBox> boxes = opaqueRegion(pixels);
    static_assert(sizeof(PixelBox) == sizeof(RECT));
    const std::size_t size = boxes.size() * sizeof(RECT);
    const RGNDATAHEADER header = {sizeof header,
                                  RDH_RECTANGLES,
                                  static_cast<DWORD>(boxes.size()),
                                  static_cast<DWORD>(size),
                                  {0, 0, pixels.width, pixels.height}};
    std::vector<unsigned char> data(sizeof header + size);
    std::memcpy(data.data(), &header, sizeof header);
    std::memcpy(data.data() + sizeof header, boxes.data(), size);
    const HRGN region =
        ExtCreateRegion(nullptr, static_cast<DWORD>(data.size()), reinterpret_cast<const RGNDATA*>(data.data()));
    OffsetRgn(region, left, top);
    const bool isConfined = region && ExtSelectClipRgn(m_dc, region, RGN_AND) != ERROR;
    DeleteObject(region);
    return isConfined;
}

} // namespace

std::unique_ptr<CSurface> gdiSurface(HDC__* dc)
{
    return whole(std::unique_ptr<CSurface>(),
                 [&]() -> std::unique_ptr<CSurface> { return std::make_unique<GdiSurface>(dc); });
}

} // namespace VEK
