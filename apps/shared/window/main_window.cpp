#include "main_window.h"

#include <algorithm>
#include <cstdlib>

BEGIN_MESSAGE_MAP(MainWindow, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_SETFOCUS()
ON_WM_ACTIVATE()
ON_MESSAGE(WM_DPICHANGED, &MainWindow::OnDpiChanged)
ON_MESSAGE(WM_NEXTDLGCTL, &MainWindow::OnNextControl)
END_MESSAGE_MAP()

bool MainWindow::create(LPCWSTR title, unsigned resources)
{
    const LPCWSTR number = MAKEINTRESOURCEW(resources);
    const HINSTANCE module = AfxGetInstanceHandle();
    m_accelerators = LoadAcceleratorsW(module, number);
    const LPCWSTR kind = AfxRegisterWndClass(0, LoadCursorW(nullptr, IDC_ARROW),
                                             reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1), LoadIconW(module, number));
    if (!CreateEx(0, kind, title, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, m_start.cx,
                  m_start.cy, nullptr, LoadMenuW(module, number)))
        return false;
    setFonts();
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(m_hWnd, MONITOR_DEFAULTTONEAREST), &monitor);
    const CRect whole(monitor.rcWork);
    CRect area;
    GetWindowRect(&area);
    const int width = std::min(scaled(m_start.cx), whole.Width()),
              height = std::min(scaled(m_start.cy), whole.Height());
    SetWindowPos(nullptr, std::min(static_cast<int>(area.left), static_cast<int>(whole.right) - width),
                 std::min(static_cast<int>(area.top), static_cast<int>(whole.bottom) - height), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
    return true;
}

void MainWindow::followDpi(int) {}

int MainWindow::lineHeight() const
{
    LOGFONTW font = {};
    GetObjectW(m_font, sizeof font, &font);
    return std::abs(font.lfHeight) * 3 / 2;
}

void MainWindow::setFonts()
{
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(m_dpi));
    const HFONT font = CreateFontIndirectW(&metrics.lfMessageFont);
    for (HWND child = ::GetTopWindow(m_hWnd); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT))
        ::SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    m_font.DeleteObject();
    m_font.Attach(font);
}

BOOL MainWindow::PreTranslateMessage(MSG* message)
{
    return TranslateAcceleratorW(m_hWnd, m_accelerators, message) || IsDialogMessage(message);
}

int MainWindow::OnCreate(LPCREATESTRUCT create)
{
    if (CWnd::OnCreate(create) == -1)
        return -1;
    m_dpi = static_cast<int>(GetDpiForWindow(m_hWnd));
    return 0;
}

void MainWindow::OnDestroy()
{
    CWnd::OnDestroy();
    PostQuitMessage(0);
}

void MainWindow::OnSize(UINT type, int width, int height)
{
    CWnd::OnSize(type, width, height);
    if (type != SIZE_MINIMIZED && m_font.m_hObject != nullptr)
        layOut();
}

void MainWindow::OnGetMinMaxInfo(MINMAXINFO* info)
{
    info->ptMinTrackSize = {scaled(m_smallest.cx), scaled(m_smallest.cy)};
}

void MainWindow::OnSetFocus(CWnd*)
{
    ::SetFocus(m_focus != nullptr ? m_focus : ::GetNextDlgTabItem(m_hWnd, nullptr, FALSE));
}

void MainWindow::OnActivate(UINT state, CWnd* other, BOOL isMinimised)
{
    const HWND focus = ::GetFocus();
    if (state == WA_INACTIVE && ::IsChild(m_hWnd, focus))
        m_focus = focus;
    CWnd::OnActivate(state, other, isMinimised);
}

LRESULT MainWindow::OnDpiChanged(WPARAM dpi, LPARAM suggested)
{
    const int before = m_dpi;
    m_dpi = LOWORD(dpi);
    followDpi(before);
    setFonts();
    const RECT* area = reinterpret_cast<const RECT*>(suggested);
    SetWindowPos(nullptr, area->left, area->top, area->right - area->left, area->bottom - area->top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
    return 0;
}

/// As in a dialog: for the mnemonic of a label IsDialogMessage sends it twice, for the label and then for the control
/// after it.
LRESULT MainWindow::OnNextControl(WPARAM which, LPARAM isWindow)
{
    const HWND next =
        LOWORD(isWindow) != 0 ? reinterpret_cast<HWND>(which) : ::GetNextDlgTabItem(m_hWnd, ::GetFocus(), which != 0);
    ::SetFocus(next);
    return 0;
}
