#include <vek/pictures/window/picture.h>

#include "pictures/window/layout.h"
#include "pictures/window/paint_buffer.h"
#include "surfaces/window/clipboard.h"

#include <afxext.h>
#include <olectl.h>

#include <algorithm>

namespace VEK
{
namespace
{

/// A coordinate limited to 32 bits, truncated towards zero.
int whole(double value)
{
    return static_cast<int>(std::clamp(value, -2147483647.0, 2147483647.0));
}

bool canBeRead(const wchar_t* path)
{
    const HANDLE file = CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    return file != INVALID_HANDLE_VALUE && CloseHandle(file);
}

/// The picture of a file. For a file that is readable but not a picture, the system's last error is that of some
/// intermediate step.
IPicture* loadPictureFile(const wchar_t* path, DWORD& error)
{
    void* picture = nullptr;
    SetLastError(0);
    const HRESULT result = OleLoadPicturePath(const_cast<LPOLESTR>(path), nullptr, 0, 0, IID_IPicture, &picture);
    error = GetLastError();
    if (SUCCEEDED(result))
        return static_cast<IPicture*>(picture);
    if (HRESULT_FACILITY(result) == FACILITY_WIN32)
        error = static_cast<DWORD>(HRESULT_CODE(result));
    else if (canBeRead(path))
        error = ERROR_INVALID_DATA;
    return nullptr;
}

/// Shows the system's message for an error.
void showError(CWnd& window, DWORD error)
{
    wchar_t text[260] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0, text, 260, nullptr);
    window.MessageBox(text, L"CPicture::LoadImage", MB_OK);
}

} // namespace

IMPLEMENT_DYNAMIC(CPicture, CWnd)

BEGIN_MESSAGE_MAP(CPicture, CWnd)
ON_WM_NCCREATE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_MOUSEWHEEL()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

CPicture::CPicture() : m_backColor(GetSysColor(COLOR_3DFACE)), m_originAtPress(0, 0), m_press(0, 0) {}

CPicture::~CPicture()
{
    release();
}

void CPicture::release()
{
    if (m_picture)
        m_picture->Release();
    m_picture = nullptr;
}

BOOL CPicture::OnNcCreate(LPCREATESTRUCT create)
{
    keepLeftToRight(*this);
    return CWnd::OnNcCreate(create);
}

void CPicture::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    ModifyStyle(0, SS_NOTIFY);
    keepLeftToRight(*this);
}

bool CPicture::LoadImage(const wchar_t* path)
{
    if (!path)
        return false;
    release();
    DWORD error = 0;
    m_picture = loadPictureFile(path, error);
    if (m_picture) {
        const HDC screen = ::GetDC(nullptr);
        OLE_XSIZE_HIMETRIC width = 0;
        OLE_YSIZE_HIMETRIC height = 0;
        m_picture->get_Width(&width);
        m_picture->get_Height(&height);
        m_himetricWidth = width;
        m_himetricHeight = height;
        m_view.width = pixelsOfHimetric(width, GetDeviceCaps(screen, LOGPIXELSX));
        m_view.height = pixelsOfHimetric(height, GetDeviceCaps(screen, LOGPIXELSY));
        ::ReleaseDC(nullptr, screen);
        fit();
    } else if (error != 0) {
        showError(*this, error);
    }
    if (m_hWnd)
        Invalidate();
    return true;
}

void CPicture::fit()
{
    CRect area(0, 0, 0, 0);
    if (m_hWnd)
        GetClientRect(&area);
    m_view.fit(area.right, area.bottom);
}

/// The source runs upwards from its lower edge. A reduced picture is reduced here, by a source larger than the picture,
/// so that a zoom of 1.0 is always the fit.
void CPicture::render(CDC& dc, const CRect& destination, double reduction, const CRect* bounds)
{
    m_picture->Render(dc.m_hDC, destination.left, destination.top, destination.Width(), destination.Height(), 0,
                      m_himetricHeight, whole(m_himetricWidth * reduction), -whole(m_himetricHeight * reduction),
                      bounds);
}

void CPicture::OnPaint()
{
    PaintBuffer buffer(this);
    CDC& dc = buffer.context();
    const COLORREF back = (GetExStyle() & WS_EX_TRANSPARENT) != 0 ? GetSysColor(COLOR_3DFACE) : m_backColor;
    dc.FillSolidRect(buffer.area(), back);
    if (!m_picture || buffer.width() <= 0 || buffer.height() <= 0)
        return;
    const CPoint origin(m_view.originX, m_view.originY);
    const CSize size(whole(m_view.zoom * m_view.width), whole(m_view.zoom * m_view.height));
    render(dc, CRect(origin, size), m_view.reduction(buffer.width(), buffer.height()), &buffer.area());
}

BOOL CPicture::OnEraseBkgnd(CDC*)
{
    return TRUE; // the picture and its surroundings cover everything
}

bool CPicture::Copy()
{
    if (!m_picture)
        return false;
    return toClipboard(
        [this] {
            CMetaFileDC metafile;
            metafile.Attach(CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr));
            const CRect all(0, 0, m_view.width, m_view.height);
            render(metafile, all, 1.0, &all);
            return metafile.CloseEnhanced();
        },
        m_hWnd);
}

void CPicture::Reset()
{
    if (!m_picture)
        return;
    fit();
    if (m_hWnd)
        Invalidate();
}

void CPicture::SetBackColor(unsigned long color)
{
    m_backColor = color;
}

void CPicture::OnMButtonDown(UINT, CPoint point)
{
    SetFocus();
    SetCapture();
    m_originAtPress = CPoint(m_view.originX, m_view.originY);
    m_press = point;
    m_isPanning = true;
}

void CPicture::OnMButtonUp(UINT, CPoint)
{
    m_isPanning = false;
    ReleaseCapture();
}

void CPicture::OnMouseMove(UINT flags, CPoint point)
{
    if ((flags & MK_MBUTTON) == 0) {
        m_isPanning = m_isPanning && GetCapture() == this; // else the button was released elsewhere
        return;
    }
    if (!m_isPanning)
        return;
    m_view.originX = m_originAtPress.x + point.x - m_press.x;
    m_view.originY = m_originAtPress.y + point.y - m_press.y;
    MSG waiting;
    if (!PeekMessageW(&waiting, m_hWnd, WM_PAINT, WM_PAINT, PM_REMOVE))
        Invalidate();
}

BOOL CPicture::OnMouseWheel(UINT, short delta, CPoint point)
{
    ScreenToClient(&point);
    if (!m_view.wheel(delta, point.x, point.y))
        return FALSE;
    Invalidate();
    return TRUE;
}

} // namespace VEK
