// The system's own player of metafiles as an independent reader: what it draws from our file is compared, pixel by
// pixel, with the same calls made on its device context.
#include <vek/surfaces.h>

#include "surfaces_scene.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <cmath>
#include <vector>

namespace
{

constexpr int kWidth = 320, kHeight = 240;

/// A white picture in memory with a device context.
class Canvas
{
public:
    Canvas()
    {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof info.bmiHeader, kWidth, -kHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        m_bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&m_pixels), nullptr, 0);
        m_old = SelectObject(dc, m_bitmap);
        PatBlt(dc, 0, 0, kWidth, kHeight, WHITENESS);
    }
    ~Canvas()
    {
        SelectObject(dc, m_old);
        DeleteObject(m_bitmap);
        DeleteDC(dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    unsigned at(int x, int y) const
    {
        GdiFlush();
        return m_pixels[y * kWidth + x] & 0xFFFFFF;
    }

    const HDC dc = CreateCompatibleDC(nullptr);

private:
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_old = nullptr;
    unsigned* m_pixels = nullptr;
};

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

/// Plays a record as it stands, without the fit to a frame that would round coordinates.
int CALLBACK playRecord(HDC dc, HANDLETABLE* table, const ENHMETARECORD* record, int handles, LPARAM)
{
    if (record->iType == EMR_HEADER)
        ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
    if (record->iType == EMR_EXTSELECTCLIPRGN) { // the player fits regions by itself
        const auto* clip = reinterpret_cast<const EMREXTSELECTCLIPRGN*>(record);
        const auto* data = reinterpret_cast<const RGNDATA*>(clip->RgnData);
        const HRGN region = ExtCreateRegion(nullptr, clip->cbRgnData, data);
        const int kind = ExtSelectClipRgn(dc, region, static_cast<int>(clip->iMode));
        DeleteObject(region);
        return kind != ERROR;
    }
    return PlayEnhMetaFileRecord(dc, table, record, static_cast<UINT>(handles));
}

class Player : public testing::Test
{
protected:
    template <class Calls>
    void compare(Calls calls)
    {
        DirectSurface direct(m_expected.dc);
        calls(direct);
        VEK::CMemorySink sink;
        const auto surface = VEK::emfSurface(sink);
        calls(*surface);
        ASSERT_TRUE(surface->finish());
        const HENHMETAFILE file = SetEnhMetaFileBits(static_cast<UINT>(sink.bytes().size()),
                                                     reinterpret_cast<const BYTE*>(sink.bytes().data()));
        ASSERT_NE(file, nullptr);
        ENHMETAHEADER header = {};
        EXPECT_EQ(GetEnhMetaFileHeader(file, sizeof header, &header), sizeof header);
        SetGraphicsMode(m_played.dc, GM_ADVANCED);
        const RECT area = {0, 0, kWidth, kHeight};
        EXPECT_TRUE(EnumEnhMetaFile(m_played.dc, file, playRecord, nullptr, &area));
        DeleteEnhMetaFile(file);

        int differing = 0, drawn = 0;
        RECT bounds = {kWidth, kHeight, -1, -1};
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                differing += m_played.at(x, y) != m_expected.at(x, y);
                if (m_expected.at(x, y) == 0xFFFFFF)
                    continue;
                ++drawn;
                bounds = {std::min<LONG>(bounds.left, x), std::min<LONG>(bounds.top, y),
                          std::max<LONG>(bounds.right, x), std::max<LONG>(bounds.bottom, y)};
            }
        }
        EXPECT_GT(drawn, 0);
        EXPECT_EQ(differing, 0) << "of " << drawn << " pixels drawn";
        EXPECT_LE(header.rclBounds.left, bounds.left);
        EXPECT_LE(header.rclBounds.top, bounds.top);
        EXPECT_GE(header.rclBounds.right, bounds.right);
        EXPECT_GE(header.rclBounds.bottom, bounds.bottom);
    }

    Canvas m_expected, m_played;
};

TEST_F(Player, DrawsTheSceneToThePixel)
{
    compare([](VEK::CSurface& s) { drawScene(s, false); });
}

TEST_F(Player, DrawsWideRunsAndSteepLinesToThePixel)
{
    compare([](VEK::CSurface& s) {
        s.clipTo(0, 0, kWidth, kHeight);
        for (int i = 0; i < 12; ++i) {
            s.pen(1 + i / 3, 0x400000u + 9000u * static_cast<unsigned>(i));
            s.moveTo(20 + 20 * i, 20);
            for (int k = 1; k < 9; ++k)
                s.lineTo(20 + 20 * i + 9 * (k % 3), 20 + 7.3 * k * (i % 4 + 1));
            s.lineTo(20 + 20 * i, 20);
        }
        s.lineTo(-1e6, 3e5);
        s.lineTo(-70000, 100);
        s.lineTo(160, 120);
    });
}

TEST_F(Player, DrawsTheSmallestEllipsesToThePixel)
{
    compare([](VEK::CSurface& s) {
        s.brush(0xFF);
        s.ellipse(21, 31, 19, 29);
        s.ellipse(40, 30, 41, 31);
        s.ellipse(50, 30, 52, 31);
    });
}

TEST_F(Player, ManyColoursToThePixel)
{
    compare([](VEK::CSurface& s) {
        for (unsigned i = 0; i < 900; ++i) {
            const double x = i % 30 * 10, y = i / 30 * 8;
            s.pen(1, i * 7919);
            s.brush(i * 104729 & 0xFFFFFF);
            s.rectangle(x, y, x + 8, y + 7);
        }
    });
}

} // namespace
