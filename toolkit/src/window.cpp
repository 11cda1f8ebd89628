// The connection between windows and objects, and the most used members of windows.
#include <afxwin.h>

#include "thread_state.h"
#include "user_seam.h"
#include "window_hook.h"

#include <algorithm>

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

CWnd::~CWnd()
{
    if (m_hWnd != nullptr && FromHandlePermanent(m_hWnd) == this)
        CWnd::DestroyWindow();
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd)
{
    return permanentObject<CWnd>(hWnd);
}

CWnd* CWnd::FromHandle(HWND hWnd)
{
    return objectOf<CWnd>(hWnd);
}

BOOL CWnd::Attach(HWND hWndNew)
{
    ASSERT(FromHandlePermanent(hWndNew) == nullptr);
    return attachHandle(*this, m_hWnd, hWndNew);
}

HWND CWnd::Detach()
{
    m_toolTips = nullptr;
    return detachHandle(*this, m_hWnd);
}

BOOL CWnd::SubclassWindow(HWND hWnd)
{
    if (!Attach(hWnd))
        return FALSE;
    hookSubclass();
    return TRUE;
}

void CWnd::hookSubclass()
{
    PreSubclassWindow();
    const auto before =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AfxWndProc)));
    if (before != AfxWndProc)
        m_pfnSuper = before;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent)
{
    const HWND control = ::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID));
    return control != nullptr && SubclassWindow(control);
}

HWND CWnd::UnsubclassWindow()
{
    if (m_pfnSuper != nullptr)
        ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    m_pfnSuper = nullptr;
    return Detach();
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    if (cs.lpszClass == nullptr)
        cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, CCreateContext*)
{
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, nullptr);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, LPVOID lpParam)
{
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, pParentWnd == nullptr ? nullptr : pParentWnd->m_hWnd,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                    int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam)
{
    CREATESTRUCT cs = {lpParam, AfxGetInstanceHandle(), nIDorHMenu,     hWndParent,    nHeight,  nWidth, y,
                       x,       LONG(dwStyle),          lpszWindowName, lpszClassName, dwExStyle};
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }
    HWND window = nullptr;
    bool bound = false;
    {
        WindowHook hook(this);
        window = ::CreateWindowExW(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x, cs.y,
                                   cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
        bound = hook.bound();
    }
    if (!bound) // otherwise the window called it when it was destroyed
        PostNcDestroy();
    return window != nullptr;
}

BOOL CWnd::DestroyWindow()
{
    return m_hWnd != nullptr && ::DestroyWindow(m_hWnd);
}

void CWnd::OnNcDestroy()
{
    CWinThread* thread = AfxGetThread();
    if (thread != nullptr && thread->m_pMainWnd == this) {
        thread->m_pMainWnd = nullptr;
        // A DLL must not end its program.
        if (AfxGetModuleState()->m_hCurrentInstanceHandle == ::GetModuleHandleW(nullptr))
            ::PostQuitMessage(0);
    }
    Default();
    m_pfnSuper = nullptr;
    Detach();
    PostNcDestroy();
}

void CWnd::GetWindowText(CString& rString) const
{
    const int length = GetWindowTextLength();
    GetWindowText(rString.GetBufferSetLength(length), length + 1);
    rString.ReleaseBuffer();
}

int CWnd::GetDlgItemText(int nID, CString& rString) const
{
    rString.Empty();
    const HWND control = ::GetDlgItem(m_hWnd, nID);
    if (control != nullptr)
        FromHandle(control)->GetWindowText(rString);
    return rString.GetLength();
}

namespace
{

BOOL modifyStyle(HWND window, int which, DWORD remove, DWORD add, UINT flags)
{
    const DWORD before = static_cast<DWORD>(::GetWindowLongPtrW(window, which));
    const DWORD after = (before & ~remove) | add;
    if (after == before)
        return FALSE;
    ::SetWindowLongPtrW(window, which, static_cast<LONG_PTR>(after));
    if (flags != 0)
        ::SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
    return TRUE;
}

CWnd* topOf(HWND window)
{
    HWND above = window;
    while (above != nullptr) {
        window = above;
        above = ::GetParent(window); // the owner, if the window is not a child
    }
    return CWnd::FromHandle(window);
}

HWND descendant(HWND window, int id, bool permanentOnly)
{
    const HWND direct = ::GetDlgItem(window, id);
    if (direct != nullptr && (!permanentOnly || CWnd::FromHandlePermanent(direct) != nullptr))
        return direct;
    for (HWND child = ::GetTopWindow(window); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
        const HWND found = descendant(child, id, permanentOnly);
        if (found != nullptr)
            return found;
    }
    return nullptr;
}

} // namespace

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return modifyStyle(m_hWnd, GWL_STYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    return modifyStyle(m_hWnd, GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
}

BOOL CWnd::GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const
{
    lpwndpl->length = sizeof *lpwndpl;
    return ::GetWindowPlacement(m_hWnd, lpwndpl);
}

void CWnd::CenterWindow(CWnd* pAlternateOwner)
{
    const bool child = (GetStyle() & WS_CHILD) != 0;
    const HWND over = pAlternateOwner != nullptr ? pAlternateOwner->m_hWnd
                      : child                    ? ::GetParent(m_hWnd)
                                                 : ::GetWindow(m_hWnd, GW_OWNER);
    MONITORINFO monitor = {sizeof monitor, {}, {}, 0};
    ::GetMonitorInfoW(::MonitorFromWindow(over == nullptr ? m_hWnd : over, MONITOR_DEFAULTTONEAREST), &monitor);
    CRect area(monitor.rcWork), target(area), rect;
    if (child) {
        ::GetClientRect(::GetParent(m_hWnd), &area);
        target = area;
        ::GetClientRect(over, &target);
        ::MapWindowPoints(over, ::GetParent(m_hWnd), reinterpret_cast<LPPOINT>(&target), 2);
    } else if (over != nullptr && ::IsWindowVisible(over) && !::IsIconic(over)) {
        ::GetWindowRect(over, &target);
    }
    GetWindowRect(&rect);
    int x = target.CenterPoint().x - rect.Width() / 2, y = target.CenterPoint().y - rect.Height() / 2;
    x = std::max<int>(std::min<int>(x, area.right - rect.Width()), area.left);
    y = std::max<int>(std::min<int>(y, area.bottom - rect.Height()), area.top);
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CWnd* CWnd::GetOwner() const
{
    return FromHandle(m_hWndOwner != nullptr ? m_hWndOwner : ::GetParent(m_hWnd));
}

CWnd* CWnd::GetTopLevelOwner() const
{
    return topOf(m_hWnd);
}

CWnd* CWnd::GetTopLevelParent() const
{
    return topOf(m_hWnd);
}

CWnd* CWnd::GetSafeOwner(CWnd* pParent, HWND* pWndTop)
{
    const CWnd* main = AfxGetMainWnd();
    HWND owner = pParent != nullptr ? pParent->m_hWnd : main == nullptr ? nullptr : main->m_hWnd;
    while (owner != nullptr && (::GetWindowLongPtrW(owner, GWL_STYLE) & WS_CHILD) != 0)
        owner = ::GetParent(owner);
    const CWnd* top = topOf(owner);
    if (pParent == nullptr && owner != nullptr)
        owner = ::GetLastActivePopup(owner);
    if (pWndTop != nullptr)
        *pWndTop = top != nullptr && top->m_hWnd != owner && top->IsWindowEnabled() ? top->m_hWnd : nullptr;
    return FromHandle(owner);
}

CWnd* CWnd::GetDescendantWindow(int nID, BOOL bOnlyPerm) const
{
    return FromHandle(descendant(m_hWnd, nID, bOnlyPerm));
}

int CWnd::GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const
{
    for (int id = nIDFirstButton; id <= nIDLastButton; ++id) {
        if (IsDlgButtonChecked(id))
            return id;
    }
    return 0;
}

BOOL CWnd::SetScrollInfo(int nBar, LPSCROLLINFO info, BOOL bRedraw)
{
    info->cbSize = sizeof *info;
    ::SetScrollInfo(m_hWnd, nBar, info, bRedraw);
    return TRUE;
}

BOOL CWnd::GetScrollInfo(int nBar, LPSCROLLINFO info, UINT nMask)
{
    info->cbSize = sizeof *info;
    info->fMask = nMask;
    return ::GetScrollInfo(m_hWnd, nBar, info);
}

int CWnd::MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption, UINT nType)
{
    return toolkit::messageBox(m_hWnd, lpszText, lpszCaption == nullptr ? AfxGetAppName() : lpszCaption, nType);
}

// Contexts of windows

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CWindowDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

CWnd* CDC::GetWindow() const
{
    return CWnd::FromHandle(::WindowFromDC(m_hDC));
}

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(pWnd == nullptr ? nullptr : pWnd->m_hWnd)
{
    if (!Attach(::GetDC(m_hWnd)))
        AfxThrowResourceException();
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(pWnd == nullptr ? nullptr : pWnd->m_hWnd)
{
    if (!Attach(::GetWindowDC(m_hWnd)))
        AfxThrowResourceException();
}

CWindowDC::~CWindowDC()
{
    ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd)
{
    if (!Attach(::BeginPaint(m_hWnd, &m_ps)))
        AfxThrowResourceException();
}

CPaintDC::~CPaintDC()
{
    ::EndPaint(m_hWnd, &m_ps);
    Detach();
}
