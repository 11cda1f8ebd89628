// Painting the picture control: the time of a paint compared with a bare program that makes the same device calls, the
// time of a pan beyond the picture, and the time from a wheel step to the finished paint. Google Benchmark is not
// available for this compiler, so the program repeats the runs itself and prints the medians.
#include <vek/display.h>
#include <vek/pictures.h>
#include <vek/surfaces.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace
{

constexpr int kWidth = 1200, kHeight = 800, kRounds = 9, kColors = 8;

using Clock = std::chrono::steady_clock;

double microseconds(Clock::time_point from)
{
    return std::chrono::duration<double, std::micro>(Clock::now() - from).count();
}

double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// Polylines of three points over the whole area, the colour changing every tenth item as in drawings by layers.
CVekGDX polylines(int count)
{
    CVekGDX gdx;
    for (int i = 0; i < count; ++i) {
        const double x = i * 7919LL % (kWidth - 30), y = i * 104729LL % (kHeight - 30);
        CVekVertexArray vl;
        vl.append(CVekVertex({x, y, 0}, {x + 20, y + i % 7, 0}));
        vl.append(CVekVertex({x + 20, y + i % 7, 0}, {x + 25, y + 15, 0}));
        CVekColor color;
        color.setColorIndex(static_cast<short>(1 + i / 10 % kColors));
        gdx.imageVl({}, itemNoExt, vl, color, CVekMatrix3d(), {}, 1.0, 1, {});
    }
    return gdx;
}

struct Bare {
    std::vector<POINT> points; ///< three for each item
    std::vector<int> pens;     ///< of each item
    HPEN handles[kColors] = {};
    HBRUSH back = CreateSolidBrush(0);

    explicit Bare(const CVekGDX& gdx)
    {
        for (const CVekDisplayItem& item : gdx.getDisplayList()) {
            const auto whole = [](const CVekPoint3d& p) {
                return POINT{static_cast<LONG>(p[0]), static_cast<LONG>(p[1])};
            };
            points.push_back(whole(item.vl.begin()[0].start));
            points.push_back(whole(item.vl.begin()[0].end));
            points.push_back(whole(item.vl.begin()[1].end));
            pens.push_back(item.color.colorIndex() - 1);
        }
        for (int i = 0; i < kColors; ++i) {
            CVekColor color;
            color.setColorIndex(static_cast<short>(i + 1));
            handles[i] = CreatePen(PS_SOLID, 1, color.oleColor());
        }
    }
    ~Bare()
    {
        for (const HPEN pen : handles)
            DeleteObject(pen);
        DeleteObject(back);
    }

    void paint(HDC dc) const
    {
        const RECT area = {0, 0, kWidth, kHeight};
        FillRect(dc, &area, back);
        const HRGN clip = CreateRectRgnIndirect(&area);
        SelectClipRgn(dc, clip);
        DeleteObject(clip);
        int pen = -1;
        const HGDIOBJ before = GetCurrentObject(dc, OBJ_PEN);
        for (std::size_t i = 0; i < pens.size(); ++i) {
            if (pens[i] != pen)
                SelectObject(dc, handles[pen = pens[i]]);
            Polyline(dc, points.data() + 3 * i, 3);
        }
        SelectObject(dc, before);
        SelectClipRgn(dc, nullptr);
        GdiFlush();
    }
};

void measure(CVekDplistImage& control, int count)
{
    CVekGDX gdx = polylines(count);
    const Bare bare(gdx);
    CClientDC screen(&control);
    CDC memory;
    CBitmap bitmap;
    memory.CreateCompatibleDC(&screen);
    bitmap.CreateCompatibleBitmap(&screen, kWidth, kHeight);
    CBitmap* const old = memory.SelectObject(&bitmap);
    control.set_dpList(&gdx);
    std::vector<double> ours, theirs, outside, wheel;
    const CVekMatrix3d none;
    CVekMatrix3d away;
    away.setToTranslation({1e5, 0, 0});
    for (int round = 0; round < kRounds; ++round) {
        gdx.zoomMtxSet(none);
        Clock::time_point from;
        for (int turn = 0; turn < 3; ++turn) { // the first run of each only warms up memory
            from = Clock::now();
            VEK::gdxDraw(gdx, *VEK::gdiSurface(memory.m_hDC), kHeight, kWidth, VEK::screenRules);
            GdiFlush();
            if (turn > 0)
                ours.push_back(microseconds(from));
            from = Clock::now();
            bare.paint(memory.m_hDC);
            if (turn > 0)
                theirs.push_back(microseconds(from));
        }
        gdx.zoomMtxSet(away);
        from = Clock::now();
        VEK::gdxDraw(gdx, *VEK::gdiSurface(memory.m_hDC), kHeight, kWidth, VEK::screenRules);
        GdiFlush();
        outside.push_back(microseconds(from));
        from = Clock::now();
        control.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, round % 2 == 0 ? 120 : -120), MAKELPARAM(600, 400));
        control.UpdateWindow();
        GdiFlush();
        wheel.push_back(microseconds(from));
    }
    memory.SelectObject(old);
    std::printf("%8d items: paint %9.0f us, bare calls %9.0f us, ratio %.2f; all outside %7.0f us (%.0f ns an item); "
                "wheel to paint %9.0f us\n",
                count, median(ours), median(theirs), median(ours) / median(theirs), median(outside),
                median(outside) * 1000 / count, median(wheel));
}

} // namespace

int main()
{
    CWnd parent;
    parent.CreateEx(0, AfxRegisterWndClass(0), L"bench", WS_POPUP | WS_VISIBLE, CRect(0, 0, kWidth, kHeight), nullptr,
                    0);
    CVekDplistImage control;
    control.Create(AfxRegisterWndClass(CS_DBLCLKS), L"", WS_CHILD | WS_VISIBLE, CRect(0, 0, kWidth, kHeight), &parent,
                   1000);
    for (const int count : {1000, 10000, 100000})
        measure(control, count);
    control.DestroyWindow();
    parent.DestroyWindow();
}
