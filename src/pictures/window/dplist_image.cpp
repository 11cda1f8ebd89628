#include <vek/pictures/window/dplist_image.h>

#include "core/platform/module_win.h"
#include "pictures/window/layout.h"
#include "pictures/window/paint_buffer.h"

#include <vek/display/draw.h>
#include <vek/display/view.h>
#include <vek/surfaces/gdi.h>

#include <cmath>

namespace
{

constexpr int kPanCursor = 4006;
constexpr double kMargin = 0.05;
constexpr double kWheelStep = 1.2;

CVekPoint3d worldOf(CPoint point)
{
    return {static_cast<double>(point.x), static_cast<double>(point.y), 0.0};
}

} // namespace

IMPLEMENT_DYNAMIC(CVekDplistImage, CWnd)

BEGIN_MESSAGE_MAP(CVekDplistImage, CWnd)
ON_WM_NCCREATE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_MOUSEWHEEL()
ON_WM_MOUSEMOVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_WM_MBUTTONDBLCLK()
END_MESSAGE_MAP()

CVekDplistImage::CVekDplistImage()
    : panStart(0, 0), panCursor(LoadCursorW(VEK::platform::ownModule(), MAKEINTRESOURCEW(kPanCursor))),
      crossCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32515))) // IDC_CROSS
{
}

BOOL CVekDplistImage::OnNcCreate(LPCREATESTRUCT create)
{
    VEK::keepLeftToRight(*this);
    return CWnd::OnNcCreate(create);
}

void CVekDplistImage::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    VEK::keepLeftToRight(*this);
}

bool CVekDplistImage::set_dpList(CVekGDX* gdx)
{
    dpList = gdx;
    repaint();
    return dpList != nullptr;
}

void CVekDplistImage::repaint()
{
    if (m_hWnd)
        Invalidate(TRUE);
}

void CVekDplistImage::zoomExtents()
{
    if (!dpList)
        return;
    CRect area(0, 0, 0, 0);
    if (m_hWnd)
        GetClientRect(&area);
    CVekPoint3d min, max;
    dpList->extMaxViewGet(min, max);
    dpList->viewMtxSet(VEK::getViewMtx(min, max, area.Height(), area.Width(), kMargin));
    zoomMtx = CVekMatrix3d();
    dpList->zoomMtxSet(zoomMtx);
}

void CVekDplistImage::OnPaint()
{
    if (!dpList)
        return;
    VEK::PaintBuffer buffer(this);
    if (buffer.width() <= 0 || buffer.height() <= 0)
        return;
    if (const auto surface = VEK::gdiSurface(buffer.context()))
        VEK::gdxDraw(*dpList, *surface, buffer.height(), buffer.width(), VEK::screenRules);
}

/// The picture covers its whole background, so an erase would only cause flicker.
BOOL CVekDplistImage::OnEraseBkgnd(CDC* dc)
{
    return dpList ? TRUE : CWnd::OnEraseBkgnd(dc);
}

void CVekDplistImage::handZoomOn()
{
    dpList->zoomMtxSet(zoomMtx);
    Invalidate(TRUE);
}

/// The step is measured in notches of 120, so that a step below 100 of a high-resolution wheel zooms in the opposite
/// direction: callers rely on it.
BOOL CVekDplistImage::OnMouseWheel(UINT flags, short delta, CPoint point)
{
    if ((flags & MK_MBUTTON) != 0)
        return FALSE;
    if (!dpList || delta == 0)
        return TRUE;
    ScreenToClient(&point);
    const double step = std::fabs(static_cast<double>(delta)) * kWheelStep / 120.0;
    CVekMatrix3d scale;
    zoomMtx = scale.setToScaling(delta > 0 ? step : 1.0 / step, worldOf(point)) * zoomMtx;
    panX = zoomMtx[0][3];
    panY = zoomMtx[1][3];
    handZoomOn();
    return TRUE;
}

void CVekDplistImage::beginPan(CPoint point)
{
    panX = zoomMtx[0][3];
    panY = zoomMtx[1][3];
    panStart = point;
    m_isPanning = true;
}

void CVekDplistImage::OnMButtonDown(UINT flags, CPoint point)
{
    if (GetFocus() != this)
        SetFocus();
    beginPan(point);
    SetCapture();
    CWnd::OnMButtonDown(flags, point);
    SetCursor(panCursor);
}

void CVekDplistImage::OnMouseMove(UINT flags, CPoint point)
{
    if (GetFocus() == this) {
        if ((flags & MK_MBUTTON) == 0 && GetCapture() != this)
            m_isPanning = false; // the button was released elsewhere
        if ((flags & MK_MBUTTON) == 0) {
            SetCursor(crossCursor);
        } else if (dpList && m_isPanning) {
            zoomMtx[0][3] = point.x + panX - panStart.x;
            zoomMtx[1][3] = point.y + panY - panStart.y;
            handZoomOn();
            SetCursor(panCursor);
        }
    }
    CWnd::OnMouseMove(flags, point);
}

void CVekDplistImage::OnMButtonUp(UINT flags, CPoint point)
{
    m_isPanning = false;
    ReleaseCapture();
    CWnd::OnMButtonUp(flags, point);
    SetCursor(crossCursor);
}

/// The button is still down: a drag that follows pans from the extents.
void CVekDplistImage::OnMButtonDblClk(UINT flags, CPoint point)
{
    zoomExtents();
    beginPan(point);
    Invalidate(TRUE);
    CWnd::OnMButtonDblClk(flags, point);
}

void CVekDplistImage::OnLButtonDown(UINT flags, CPoint point)
{
    SetFocus();
    if (dpList) {
        const int number = dpList->imageItemGet(worldOf(point));
        if (CWnd* const parent = GetParent(); parent && number > -1)
            parent->PostMessage(static_cast<UINT>(GetDlgCtrlID()), 0, number);
    }
    CWnd::OnLButtonDown(flags, point);
    crossIfFocused();
}

void CVekDplistImage::OnLButtonUp(UINT flags, CPoint point)
{
    CWnd::OnLButtonUp(flags, point);
    crossIfFocused();
}

void CVekDplistImage::crossIfFocused()
{
    if (GetFocus() == this)
        SetCursor(crossCursor);
}
