/// @file
/// Message map entries for the system's messages: the handler's name and parameters are fixed for each. Included by
/// <afxwin.h>.
#pragma once

// clang-format would make these rows harder to read.
// clang-format off

#define AFX_W_WINDOW CWnd::FromHandle(reinterpret_cast<HWND>(m.wParam))
#define AFX_L_WINDOW CWnd::FromHandle(reinterpret_cast<HWND>(m.lParam))
#define AFX_W_DC CDC::FromHandle(reinterpret_cast<HDC>(m.wParam))
#define AFX_W_UINT static_cast<UINT>(m.wParam)
#define AFX_W_WORDS LOWORD(m.wParam), HIWORD(m.wParam)
#define AFX_L_WORDS LOWORD(m.lParam), HIWORD(m.lParam)

/// @name Lifetime and state
/// @{
#define ON_WM_CREATE() \
    AFX_WM(WM_CREATE, OnCreate, int, (LPCREATESTRUCT), \
           m.result = (self->*handler)(reinterpret_cast<LPCREATESTRUCT>(m.lParam)))
#define ON_WM_NCCREATE() \
    AFX_WM(WM_NCCREATE, OnNcCreate, BOOL, (LPCREATESTRUCT), \
           m.result = (self->*handler)(reinterpret_cast<LPCREATESTRUCT>(m.lParam)))
#define ON_WM_DESTROY() AFX_WM(WM_DESTROY, OnDestroy, void, (), (self->*handler)())
#define ON_WM_NCDESTROY() AFX_WM(WM_NCDESTROY, OnNcDestroy, void, (), (self->*handler)())
#define ON_WM_CLOSE() AFX_WM(WM_CLOSE, OnClose, void, (), (self->*handler)())
#define ON_WM_ENABLE() AFX_WM(WM_ENABLE, OnEnable, void, (BOOL), (self->*handler)(static_cast<BOOL>(m.wParam)))
#define ON_WM_SHOWWINDOW() \
    AFX_WM(WM_SHOWWINDOW, OnShowWindow, void, (BOOL, UINT), \
           (self->*handler)(static_cast<BOOL>(m.wParam), static_cast<UINT>(m.lParam)))
#define ON_WM_ACTIVATE() \
    AFX_WM(WM_ACTIVATE, OnActivate, void, (UINT, CWnd*, BOOL), \
           (self->*handler)(LOWORD(m.wParam), AFX_L_WINDOW, HIWORD(m.wParam)))
#define ON_WM_ACTIVATEAPP() \
    AFX_WM(WM_ACTIVATEAPP, OnActivateApp, void, (BOOL, DWORD), \
           (self->*handler)(static_cast<BOOL>(m.wParam), static_cast<DWORD>(m.lParam)))
#define ON_WM_SETFOCUS() \
    AFX_WM(WM_SETFOCUS, OnSetFocus, void, (CWnd*), (self->*handler)(AFX_W_WINDOW))
#define ON_WM_KILLFOCUS() \
    AFX_WM(WM_KILLFOCUS, OnKillFocus, void, (CWnd*), (self->*handler)(AFX_W_WINDOW))
#define ON_WM_CANCELMODE() AFX_WM(WM_CANCELMODE, OnCancelMode, void, (), (self->*handler)())
#define ON_WM_CAPTURECHANGED() \
    AFX_WM(WM_CAPTURECHANGED, OnCaptureChanged, void, (CWnd*), (self->*handler)(AFX_L_WINDOW))
#define ON_WM_QUERYENDSESSION() AFX_WM(WM_QUERYENDSESSION, OnQueryEndSession, BOOL, (), m.result = (self->*handler)())
#define ON_WM_SETTINGCHANGE() \
    AFX_WM(WM_SETTINGCHANGE, OnSettingChange, void, (UINT, LPCTSTR), \
           (self->*handler)(AFX_W_UINT, reinterpret_cast<LPCTSTR>(m.lParam)))
#define ON_WM_SYSCOLORCHANGE() AFX_WM(WM_SYSCOLORCHANGE, OnSysColorChange, void, (), (self->*handler)())
#define ON_WM_HELPINFO() \
    AFX_WM(WM_HELP, OnHelpInfo, BOOL, (HELPINFO*), m.result = (self->*handler)(reinterpret_cast<HELPINFO*>(m.lParam)))
#define ON_WM_TIMER() AFX_WM(WM_TIMER, OnTimer, void, (UINT_PTR), (self->*handler)(m.wParam))
/// @}

/// @name Size and place
/// @{
#define ON_WM_SIZE() \
    AFX_WM(WM_SIZE, OnSize, void, (UINT, int, int), (self->*handler)(AFX_W_UINT, AFX_L_WORDS))
#define ON_WM_MOVE() \
    AFX_WM(WM_MOVE, OnMove, void, (int, int), \
           (self->*handler)(static_cast<short>(LOWORD(m.lParam)), static_cast<short>(HIWORD(m.lParam))))
#define ON_WM_SIZING() \
    AFX_WM(WM_SIZING, OnSizing, void, (UINT, LPRECT), \
           (self->*handler)(AFX_W_UINT, reinterpret_cast<LPRECT>(m.lParam)))
#define ON_WM_GETMINMAXINFO() \
    AFX_WM(WM_GETMINMAXINFO, OnGetMinMaxInfo, void, (MINMAXINFO*), \
           (self->*handler)(reinterpret_cast<MINMAXINFO*>(m.lParam)))
#define ON_WM_WINDOWPOSCHANGING() \
    AFX_WM(WM_WINDOWPOSCHANGING, OnWindowPosChanging, void, (WINDOWPOS*), \
           (self->*handler)(reinterpret_cast<WINDOWPOS*>(m.lParam)))
#define ON_WM_WINDOWPOSCHANGED() \
    AFX_WM(WM_WINDOWPOSCHANGED, OnWindowPosChanged, void, (WINDOWPOS*), \
           (self->*handler)(reinterpret_cast<WINDOWPOS*>(m.lParam)))
/// @}

/// @name Painting
/// @{
#define ON_WM_PAINT() AFX_WM(WM_PAINT, OnPaint, void, (), (self->*handler)())
#define ON_WM_ERASEBKGND() \
    AFX_WM(WM_ERASEBKGND, OnEraseBkgnd, BOOL, (CDC*), m.result = (self->*handler)(AFX_W_DC))
#define ON_WM_NCPAINT() AFX_WM(WM_NCPAINT, OnNcPaint, void, (), (self->*handler)())
/// @}

/// @name Keys and menus
/// @{
#define ON_WM_KEYDOWN() \
    AFX_WM(WM_KEYDOWN, OnKeyDown, void, (UINT, UINT, UINT), (self->*handler)(AFX_W_UINT, AFX_L_WORDS))
#define ON_WM_KEYUP() \
    AFX_WM(WM_KEYUP, OnKeyUp, void, (UINT, UINT, UINT), (self->*handler)(AFX_W_UINT, AFX_L_WORDS))
#define ON_WM_CHAR() \
    AFX_WM(WM_CHAR, OnChar, void, (UINT, UINT, UINT), (self->*handler)(AFX_W_UINT, AFX_L_WORDS))
#define ON_WM_SYSKEYDOWN() \
    AFX_WM(WM_SYSKEYDOWN, OnSysKeyDown, void, (UINT, UINT, UINT), (self->*handler)(AFX_W_UINT, AFX_L_WORDS))
#define ON_WM_SYSKEYUP() \
    AFX_WM(WM_SYSKEYUP, OnSysKeyUp, void, (UINT, UINT, UINT), (self->*handler)(AFX_W_UINT, AFX_L_WORDS))
#define ON_WM_SYSCHAR() \
    AFX_WM(WM_SYSCHAR, OnSysChar, void, (UINT, UINT, UINT), (self->*handler)(AFX_W_UINT, AFX_L_WORDS))
#define ON_WM_SYSCOMMAND() \
    AFX_WM(WM_SYSCOMMAND, OnSysCommand, void, (UINT, LPARAM), (self->*handler)(AFX_W_UINT, m.lParam))
#define ON_WM_GETDLGCODE() \
    AFX_WM(WM_GETDLGCODE, OnGetDlgCode, UINT, (), m.result = static_cast<LRESULT>((self->*handler)()))
#define ON_WM_CONTEXTMENU() \
    AFX_WM(WM_CONTEXTMENU, OnContextMenu, void, (CWnd*, CPoint), (self->*handler)(AFX_W_WINDOW, CPoint(m.lParam)))
#define ON_WM_INITMENUPOPUP() \
    AFX_WM(WM_INITMENUPOPUP, OnInitMenuPopup, void, (CMenu*, UINT, BOOL), \
           (self->*handler)(CMenu::FromHandle(reinterpret_cast<HMENU>(m.wParam)), AFX_L_WORDS))
/// @}

/// @name Pointer
/// @{
#define ON_WM_MOUSEMOVE() \
    AFX_WM(WM_MOUSEMOVE, OnMouseMove, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_LBUTTONDOWN() \
    AFX_WM(WM_LBUTTONDOWN, OnLButtonDown, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_LBUTTONUP() \
    AFX_WM(WM_LBUTTONUP, OnLButtonUp, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_LBUTTONDBLCLK() \
    AFX_WM(WM_LBUTTONDBLCLK, OnLButtonDblClk, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_MBUTTONDOWN() \
    AFX_WM(WM_MBUTTONDOWN, OnMButtonDown, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_MBUTTONUP() \
    AFX_WM(WM_MBUTTONUP, OnMButtonUp, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_MBUTTONDBLCLK() \
    AFX_WM(WM_MBUTTONDBLCLK, OnMButtonDblClk, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_RBUTTONDOWN() \
    AFX_WM(WM_RBUTTONDOWN, OnRButtonDown, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_RBUTTONUP() \
    AFX_WM(WM_RBUTTONUP, OnRButtonUp, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_RBUTTONDBLCLK() \
    AFX_WM(WM_RBUTTONDBLCLK, OnRButtonDblClk, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_MOUSEWHEEL() \
    AFX_WM(WM_MOUSEWHEEL, OnMouseWheel, BOOL, (UINT, short, CPoint), \
           m.result = (self->*handler)(LOWORD(m.wParam), static_cast<short>(HIWORD(m.wParam)), CPoint(m.lParam)))
#define ON_WM_MOUSEHOVER() \
    AFX_WM(WM_MOUSEHOVER, OnMouseHover, void, (UINT, CPoint), (self->*handler)(AFX_W_UINT, CPoint(m.lParam)))
#define ON_WM_MOUSELEAVE() AFX_WM(WM_MOUSELEAVE, OnMouseLeave, void, (), (self->*handler)())
#define ON_WM_MOUSEACTIVATE() \
    AFX_WM(WM_MOUSEACTIVATE, OnMouseActivate, int, (CWnd*, UINT, UINT), \
           m.result = (self->*handler)(AFX_W_WINDOW, AFX_L_WORDS))
#define ON_WM_NCHITTEST() \
    AFX_WM(WM_NCHITTEST, OnNcHitTest, LRESULT, (CPoint), m.result = (self->*handler)(CPoint(m.lParam)))
#define ON_WM_SETCURSOR() \
    AFX_WM(WM_SETCURSOR, OnSetCursor, BOOL, (CWnd*, UINT, UINT), \
           m.result = (self->*handler)(AFX_W_WINDOW, AFX_L_WORDS))
#define ON_WM_DROPFILES() \
    AFX_WM(WM_DROPFILES, OnDropFiles, void, (HDROP), (self->*handler)(reinterpret_cast<HDROP>(m.wParam)))
#define ON_WM_HSCROLL() \
    AFX_WM(WM_HSCROLL, OnHScroll, void, (UINT, UINT, CScrollBar*), \
           (self->*handler)(AFX_W_WORDS, AfxScrollBar(m.lParam)))
#define ON_WM_VSCROLL() \
    AFX_WM(WM_VSCROLL, OnVScroll, void, (UINT, UINT, CScrollBar*), \
           (self->*handler)(AFX_W_WORDS, AfxScrollBar(m.lParam)))
/// @}

/// @name Controls that the parent draws
/// @{
#define ON_WM_DRAWITEM() \
    AFX_WM(WM_DRAWITEM, OnDrawItem, void, (int, LPDRAWITEMSTRUCT), \
           (self->*handler)(static_cast<int>(m.wParam), reinterpret_cast<LPDRAWITEMSTRUCT>(m.lParam)))
#define ON_WM_MEASUREITEM() \
    AFX_WM(WM_MEASUREITEM, OnMeasureItem, void, (int, LPMEASUREITEMSTRUCT), \
           (self->*handler)(static_cast<int>(m.wParam), reinterpret_cast<LPMEASUREITEMSTRUCT>(m.lParam)))
#define ON_WM_COMPAREITEM() \
    AFX_WM(WM_COMPAREITEM, OnCompareItem, int, (int, LPCOMPAREITEMSTRUCT), \
           m.result = (self->*handler)(static_cast<int>(m.wParam), reinterpret_cast<LPCOMPAREITEMSTRUCT>(m.lParam)))
#define ON_WM_DELETEITEM() \
    AFX_WM(WM_DELETEITEM, OnDeleteItem, void, (int, LPDELETEITEMSTRUCT), \
           (self->*handler)(static_cast<int>(m.wParam), reinterpret_cast<LPDELETEITEMSTRUCT>(m.lParam)))
#define ON_WM_PARENTNOTIFY() \
    AFX_WM(WM_PARENTNOTIFY, OnParentNotify, void, (UINT, LPARAM), (self->*handler)(LOWORD(m.wParam), m.lParam))
#define ON_WM_CTLCOLOR() \
    AFX_WM(WM_CTLCOLOR, OnCtlColor, HBRUSH, (CDC*, CWnd*, UINT), \
           const HBRUSH brush = (self->*handler)(AFX_W_DC, AFX_L_WINDOW, m.message - WM_CTLCOLORMSGBOX); \
           m.result = reinterpret_cast<LRESULT>(brush))
/// @}

/// @name Messages that the parent reflects to the control
/// @{
#define ON_WM_DRAWITEM_REFLECT() \
    AFX_WM(WM_DRAWITEM + WM_REFLECT_BASE, DrawItem, void, (LPDRAWITEMSTRUCT), \
           (self->*handler)(reinterpret_cast<LPDRAWITEMSTRUCT>(m.lParam)))
#define ON_WM_MEASUREITEM_REFLECT() \
    AFX_WM(WM_MEASUREITEM + WM_REFLECT_BASE, MeasureItem, void, (LPMEASUREITEMSTRUCT), \
           (self->*handler)(reinterpret_cast<LPMEASUREITEMSTRUCT>(m.lParam)))
#define ON_WM_CTLCOLOR_REFLECT() \
    AFX_ENTRY(WM_CTLCOLOR + WM_REFLECT_BASE, 0, 0, 0, nullptr, &ThisClass::CtlColor, HBRUSH, (CDC*, UINT), \
              const HBRUSH brush = (self->*handler)(AFX_W_DC, \
                                                    m.message - WM_REFLECT_BASE - WM_CTLCOLORMSGBOX); \
              m.result = reinterpret_cast<LRESULT>(brush); \
              return brush != nullptr)
#define ON_WM_HSCROLL_REFLECT() \
    AFX_WM(WM_HSCROLL + WM_REFLECT_BASE, HScroll, void, (UINT, UINT), (self->*handler)(AFX_W_WORDS))
#define ON_WM_VSCROLL_REFLECT() \
    AFX_WM(WM_VSCROLL + WM_REFLECT_BASE, VScroll, void, (UINT, UINT), (self->*handler)(AFX_W_WORDS))
/// @}
// clang-format on
