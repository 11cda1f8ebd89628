/// @file
/// Windows. A CWnd represents a system window from its creation or subclassing until the window is destroyed; the
/// object itself lives on unless PostNcDestroy deletes it. For a window without an object FromHandle returns a
/// temporary one, which must not be kept.
#pragma once

#include <toolkit/cmd_target.h>
#include <toolkit/menu.h>

#include <memory>

class CDataExchange;
class CScrollBar;
class CToolTipCtrl;

/// Declares the create context outside the scope of a member declaration.
struct CCreateContext;

#define MLF_NOIDLEMSG 0x0001 ///< sends no WM_ENTERIDLE to the parent
#define MLF_NOKICKIDLE 0x0002
#define MLF_SHOWONIDLE 0x0004 ///< shows the window once no message but WM_PAINT is waiting

class AFX_EXPORTED CWnd : public CCmdTarget
{
    DECLARE_DYNCREATE(CWnd)
    DECLARE_MESSAGE_MAP()

public:
    CWnd() = default;
    ~CWnd() override;

    HWND m_hWnd = nullptr;

    operator HWND() const { return m_hWnd; }
    HWND GetSafeHwnd() const { return m_hWnd; }
    BOOL operator==(const CWnd& wnd) const { return m_hWnd == wnd.m_hWnd; }
    BOOL operator!=(const CWnd& wnd) const { return m_hWnd != wnd.m_hWnd; }

    /// @name Object and window
    /// @{
    static CWnd* FromHandle(HWND hWnd);
    static CWnd* FromHandlePermanent(HWND hWnd);
    static void DeleteTempMap() { CGdiObject::DeleteTempMap(); }
    BOOL Attach(HWND hWndNew);
    HWND Detach();
    /// Called when the window has its handle, before the object gets its messages.
    virtual void PreSubclassWindow() {}
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    HWND UnsubclassWindow();
    /// May change the window's creation parameters; false cancels the creation.
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, CCreateContext* pContext = nullptr);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                          int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
    virtual BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                          const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    virtual BOOL DestroyWindow();
    /// @}

    /// @name Messages
    /// @{
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::PostMessageW(m_hWnd, message, wParam, lParam);
    }
    BOOL SendChildNotifyLastMsg(LRESULT* pResult = nullptr);
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    BOOL PreTranslateInput(LPMSG lpMsg);
    /// Calls PreTranslateMessage of the addressed window and its parents, up to and including hWndStop.
    static BOOL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    BOOL IsDialogMessage(LPMSG lpMsg) { return ::IsDialogMessageW(m_hWnd, lpMsg); }
    void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL bDeep = TRUE,
                                  BOOL bOnlyPerm = FALSE);
    /// @}

    /// @name Modal loop
    /// @{
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal() { return m_modal; }
    virtual void EndModalLoop(int nResult);
    /// @}

    /// @name Text, style, state
    /// @{
    void SetWindowText(LPCTSTR lpszString) { ::SetWindowTextW(m_hWnd, lpszString); }
    int GetWindowText(LPTSTR lpszStringBuf, int nMaxCount) const
    {
        return ::GetWindowTextW(m_hWnd, lpszStringBuf, nMaxCount);
    }
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const { return ::GetWindowTextLengthW(m_hWnd); }
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE)
    {
        ask(WM_SETFONT, pFont == nullptr ? nullptr : HFONT(*pFont), bRedraw);
    }
    CFont* GetFont() const { return CFont::FromHandle(ask<HFONT>(WM_GETFONT)); }
    HICON SetIcon(HICON hIcon, BOOL bBigIcon) { return ask<HICON>(WM_SETICON, bBigIcon, hIcon); }
    HICON GetIcon(BOOL bBigIcon) const { return ask<HICON>(WM_GETICON, bBigIcon); }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)); }
    /// True if a bit changed; flags other than 0 are passed to SetWindowPos, which keeps size, position and order.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
    BOOL IsIconic() const { return ::IsIconic(m_hWnd); }
    BOOL IsZoomed() const { return ::IsZoomed(m_hWnd); }
    /// @}

    /// @name Size and place
    /// @{
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE)
    {
        ::MoveWindow(m_hWnd, x, y, nWidth, nHeight, bRepaint);
    }
    void MoveWindow(LPCRECT r, BOOL bRepaint = TRUE)
    {
        MoveWindow(r->left, r->top, r->right - r->left, r->bottom - r->top, bRepaint);
    }
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
    {
        return ::SetWindowPos(m_hWnd, pWndInsertAfter == nullptr ? nullptr : pWndInsertAfter->m_hWnd, x, y, cx, cy,
                              nFlags);
    }
    /// The special positions of SetWindowPos in the Z order.
    static const CWnd wndTop, wndBottom, wndTopMost, wndNoTopMost;
    BOOL BringWindowToTop() { return ::BringWindowToTop(m_hWnd); }
    void GetWindowRect(LPRECT lpRect) const { ::GetWindowRect(m_hWnd, lpRect); }
    void GetClientRect(LPRECT lpRect) const { ::GetClientRect(m_hWnd, lpRect); }
    BOOL GetWindowPlacement(WINDOWPLACEMENT* lpwndpl) const;
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* lpwndpl) { return ::SetWindowPlacement(m_hWnd, lpwndpl); }
    void ClientToScreen(LPPOINT lpPoint) const { ::ClientToScreen(m_hWnd, lpPoint); }
    void ClientToScreen(LPRECT lpRect) const { MapWindowPoints(nullptr, lpRect); }
    void ScreenToClient(LPPOINT lpPoint) const { ::ScreenToClient(m_hWnd, lpPoint); }
    void ScreenToClient(LPRECT lpRect) const
    {
        ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(lpRect), 2);
    }
    void MapWindowPoints(CWnd* pwndTo, LPPOINT lpPoint, UINT nCount) const
    {
        ::MapWindowPoints(m_hWnd, pwndTo == nullptr ? nullptr : pwndTo->m_hWnd, lpPoint, nCount);
    }
    void MapWindowPoints(CWnd* pwndTo, LPRECT lpRect) const
    {
        MapWindowPoints(pwndTo, reinterpret_cast<LPPOINT>(lpRect), 2);
    }
    /// Centres the window on another one, by default its owner or parent, within the monitor.
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    /// @}

    /// @name Painting
    /// @{
    CDC* BeginPaint(LPPAINTSTRUCT lpPaint) { return CDC::FromHandle(::BeginPaint(m_hWnd, lpPaint)); }
    void EndPaint(LPPAINTSTRUCT lpPaint) { ::EndPaint(m_hWnd, lpPaint); }
    CDC* GetDC() { return CDC::FromHandle(::GetDC(m_hWnd)); }
    CDC* GetWindowDC() { return CDC::FromHandle(::GetWindowDC(m_hWnd)); }
    int ReleaseDC(CDC* pDC) { return ::ReleaseDC(m_hWnd, pDC->m_hDC); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    void SetRedraw(BOOL bRedraw = TRUE) { SendMessage(WM_SETREDRAW, bRedraw); }
    BOOL GetUpdateRect(LPRECT lpRect, BOOL bErase = FALSE) { return ::GetUpdateRect(m_hWnd, lpRect, bErase); }
    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, lpRect, bErase); }
    void ValidateRect(LPCRECT lpRect) { ::ValidateRect(m_hWnd, lpRect); }
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE)
    {
        return ::RedrawWindow(m_hWnd, lpRectUpdate, prgnUpdate == nullptr ? nullptr : HRGN(*prgnUpdate), flags);
    }
    /// @}

    /// @name Other windows
    /// @{
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* GetOwner() const;
    void SetOwner(CWnd* pOwnerWnd) { m_hWndOwner = pOwnerWnd == nullptr ? nullptr : pOwnerWnd->m_hWnd; }
    CWnd* SetParent(CWnd* p) { return FromHandle(::SetParent(m_hWnd, p == nullptr ? nullptr : p->m_hWnd)); }
    /// The ancestor of this window that has no parent and no owner.
    CWnd* GetTopLevelOwner() const;
    CWnd* GetTopLevelParent() const;
    /// The owner for a modal window: the given one, else the main window's last active popup, else the active window;
    /// never a child. `pWndTop` gets the enabled top-level window behind it, if that is a different one.
    static CWnd* GetSafeOwner(CWnd* pParent = nullptr, HWND* pWndTop = nullptr);
    CWnd* GetWindow(UINT nCmd) const { return FromHandle(::GetWindow(m_hWnd, nCmd)); }
    CWnd* GetTopWindow() const { return FromHandle(::GetTopWindow(m_hWnd)); }
    CWnd* GetNextWindow(UINT nFlag = GW_HWNDNEXT) const { return GetWindow(nFlag); }
    CWnd* GetLastActivePopup() const { return FromHandle(::GetLastActivePopup(m_hWnd)); }
    BOOL IsChild(const CWnd* pWnd) const { return ::IsChild(m_hWnd, pWnd == nullptr ? nullptr : pWnd->m_hWnd); }
    CWnd* GetDescendantWindow(int nID, BOOL bOnlyPerm = FALSE) const;
    CWnd* ChildWindowFromPoint(POINT point) const { return FromHandle(::ChildWindowFromPoint(m_hWnd, point)); }
    static CWnd* WindowFromPoint(POINT point) { return FromHandle(::WindowFromPoint(point)); }
    static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
    static CWnd* FindWindow(LPCTSTR cls, LPCTSTR name) { return FromHandle(::FindWindowW(cls, name)); }
    static CWnd* GetForegroundWindow() { return FromHandle(::GetForegroundWindow()); }
    BOOL SetForegroundWindow() { return ::SetForegroundWindow(m_hWnd); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetCapture() { return FromHandle(::GetCapture()); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
    /// @}

    /// @name Controls of a dialog
    /// @{
    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    void GetDlgItem(int nID, HWND* phWnd) const { *phWnd = ::GetDlgItem(m_hWnd, nID); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    int SetDlgCtrlID(int nID) { return static_cast<int>(::SetWindowLongPtrW(m_hWnd, GWLP_ID, nID)); }
    void SetDlgItemText(int nID, LPCTSTR lpszString) { ::SetDlgItemTextW(m_hWnd, nID, lpszString); }
    int GetDlgItemText(int nID, LPTSTR lpStr, int nMaxCount) const
    {
        return static_cast<int>(::GetDlgItemTextW(m_hWnd, nID, lpStr, nMaxCount));
    }
    int GetDlgItemText(int nID, CString& rString) const;
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE) { ::SetDlgItemInt(m_hWnd, nID, nValue, bSigned); }
    UINT GetDlgItemInt(int nID, BOOL* lpTrans = nullptr, BOOL bSigned = TRUE) const
    {
        return ::GetDlgItemInt(m_hWnd, nID, lpTrans, bSigned);
    }
    void CheckDlgButton(int nIDButton, UINT nCheck) { ::CheckDlgButton(m_hWnd, nIDButton, nCheck); }
    UINT IsDlgButtonChecked(int nIDButton) const { return ::IsDlgButtonChecked(m_hWnd, nIDButton); }
    void CheckRadioButton(int first, int last, int checked) { ::CheckRadioButton(m_hWnd, first, last, checked); }
    int GetCheckedRadioButton(int nIDFirstButton, int nIDLastButton) const;
    LRESULT SendDlgItemMessage(int nID, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return ::SendDlgItemMessageW(m_hWnd, nID, message, wParam, lParam);
    }
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const
    {
        return FromHandle(::GetNextDlgTabItem(m_hWnd, pWndCtl == nullptr ? nullptr : pWndCtl->m_hWnd, bPrevious));
    }
    void GotoDlgCtrl(CWnd* pWndCtrl) { ask(WM_NEXTDLGCTL, pWndCtrl->m_hWnd, TRUE); }
    /// Moves values between controls and members: from the controls if bSaveAndValidate. False if a value is invalid.
    /// Notifications of the controls meanwhile reach no handler.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    /// Fills a dialog's list and combo boxes with the initial rows in the resource of its name, or in memory. False if
    /// there is such a resource and a control rejects a row.
    BOOL ExecuteDlgInit(LPCTSTR lpszResourceName);
    BOOL ExecuteDlgInit(LPVOID lpResource);
    /// @}

    /// @name Scroll bars, timers, menus and the rest
    /// @{
    int GetScrollPos(int nBar) const { return ::GetScrollPos(m_hWnd, nBar); }
    int SetScrollPos(int nBar, int nPos, BOOL bRedraw = TRUE) { return ::SetScrollPos(m_hWnd, nBar, nPos, bRedraw); }
    BOOL SetScrollInfo(int nBar, LPSCROLLINFO info, BOOL bRedraw = TRUE);
    BOOL GetScrollInfo(int nBar, LPSCROLLINFO info, UINT nMask = SIF_ALL);
    void SetScrollRange(int nBar, int nMinPos, int nMaxPos, BOOL bRedraw = TRUE)
    {
        ::SetScrollRange(m_hWnd, nBar, nMinPos, nMaxPos, bRedraw);
    }
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer)
    {
        return ::SetTimer(m_hWnd, nIDEvent, nElapse, lpfnTimer);
    }
    BOOL KillTimer(UINT_PTR nIDEvent) { return ::KillTimer(m_hWnd, nIDEvent); }
    CMenu* GetMenu() const { return CMenu::FromHandle(::GetMenu(m_hWnd)); }
    BOOL SetMenu(CMenu* pMenu) { return ::SetMenu(m_hWnd, pMenu == nullptr ? nullptr : pMenu->m_hMenu); }
    void DrawMenuBar() { ::DrawMenuBar(m_hWnd); }
    CMenu* GetSystemMenu(BOOL bRevert) const { return CMenu::FromHandle(::GetSystemMenu(m_hWnd, bRevert)); }
    void DragAcceptFiles(BOOL bAccept = TRUE) { ::DragAcceptFiles(m_hWnd, bAccept); }
    BOOL OpenClipboard() { return ::OpenClipboard(m_hWnd); }
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);
    /// Shows tool tips for the parts of the window that OnToolHitTest distinguishes. The text is requested by
    /// TTN_NEEDTEXT.
    BOOL EnableToolTips(BOOL bEnable = TRUE);
    static void CancelToolTips(BOOL bKeys = FALSE);
    /// The part at a point in client coordinates: fills pTI, if given, and returns a number for the part, -1 for none.
    /// By default the parts are the child windows.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;
    void FilterToolTipMessage(MSG* pMsg);
    /// @}

protected:
    /// Called before the window is created, so that EndModalLoop can keep RunModalLoop from starting.
    void setModal(bool isModal = true) { m_modal = m_modalSoon = isModal; }

    /// Sends a message with typed parameters and result.
    template <class Result = LRESULT, class First = int, class Second = int>
    Result ask(UINT message, First first = 0, Second second = 0) const
    {
        return (Result)SendMessage(message, (WPARAM)first, (LPARAM)second); // the one cast that fits them all
    }

    /// The default processing of the current message, by the system or the window's own class.
    LRESULT Default();
    /// Handles the message by the message maps, otherwise by default.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// False if no handler handled the message.
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Called for a notification of a control before its parent handles it; true if the parent should not.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Reflects the current message to the control that sent it.
    static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);
    static const MSG* GetCurrentMessage();
    /// The last call to a window's object, which may delete itself.
    virtual void PostNcDestroy() {}
    /// Override to exchange values between controls and members, with the DDX_ and DDV_ routines.
    virtual void DoDataExchange(CDataExchange*) {}

    /// @name Handlers
    /// Each does what the system, or the window's own class, does.
    /// @{
    afx_msg int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    afx_msg BOOL OnNcCreate(LPCREATESTRUCT) { return static_cast<BOOL>(Default()); }
    afx_msg void OnDestroy() { Default(); }
    afx_msg void OnClose() { Default(); }
    afx_msg void OnEnable(BOOL) { Default(); }
    afx_msg void OnShowWindow(BOOL, UINT) { Default(); }
    afx_msg void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    afx_msg void OnActivateApp(BOOL, DWORD) { Default(); }
    afx_msg void OnSetFocus(CWnd*) { Default(); }
    afx_msg void OnKillFocus(CWnd*) { Default(); }
    afx_msg void OnCancelMode() { Default(); }
    afx_msg void OnCaptureChanged(CWnd*) { Default(); }
    afx_msg BOOL OnQueryEndSession() { return static_cast<BOOL>(Default()); }
    afx_msg void OnSettingChange(UINT, LPCTSTR) { Default(); }
    afx_msg void OnSysColorChange() { Default(); }
    afx_msg BOOL OnHelpInfo(HELPINFO*) { return static_cast<BOOL>(Default()); }
    afx_msg void OnTimer(UINT_PTR) { Default(); }
    afx_msg void OnSize(UINT, int, int) { Default(); }
    afx_msg void OnMove(int, int) { Default(); }
    afx_msg void OnSizing(UINT, LPRECT) { Default(); }
    afx_msg void OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
    afx_msg void OnWindowPosChanging(WINDOWPOS*) { Default(); }
    afx_msg void OnWindowPosChanged(WINDOWPOS*) { Default(); }
    afx_msg void OnPaint() { Default(); }
    afx_msg BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    afx_msg void OnNcPaint() { Default(); }
    afx_msg void OnKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnKeyUp(UINT, UINT, UINT) { Default(); }
    afx_msg void OnChar(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysKeyDown(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysKeyUp(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysChar(UINT, UINT, UINT) { Default(); }
    afx_msg void OnSysCommand(UINT, LPARAM) { Default(); }
    afx_msg UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    afx_msg void OnContextMenu(CWnd*, CPoint) { Default(); }
    afx_msg void OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
    afx_msg void OnMouseMove(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnLButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnMButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnMButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnMButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg void OnRButtonDown(UINT, CPoint) { Default(); }
    afx_msg void OnRButtonUp(UINT, CPoint) { Default(); }
    afx_msg void OnRButtonDblClk(UINT, CPoint) { Default(); }
    afx_msg BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    afx_msg void OnMouseHover(UINT, CPoint) { Default(); }
    afx_msg void OnMouseLeave() { Default(); }
    afx_msg int OnMouseActivate(CWnd*, UINT, UINT) { return static_cast<int>(Default()); }
    afx_msg LRESULT OnNcHitTest(CPoint) { return Default(); }
    afx_msg BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    afx_msg void OnDropFiles(HDROP) { Default(); }
    afx_msg void OnNcDestroy(); ///< detaches object and window, then calls PostNcDestroy
    /// These first reflect the message to the control.
    afx_msg void OnHScroll(UINT, UINT, CScrollBar*);
    afx_msg void OnVScroll(UINT, UINT, CScrollBar*);
    afx_msg void OnDrawItem(int, LPDRAWITEMSTRUCT);
    afx_msg void OnMeasureItem(int, LPMEASUREITEMSTRUCT);
    afx_msg int OnCompareItem(int, LPCOMPAREITEMSTRUCT);
    afx_msg void OnDeleteItem(int, LPDELETEITEMSTRUCT);
    afx_msg HBRUSH OnCtlColor(CDC*, CWnd*, UINT);
    afx_msg void OnParentNotify(UINT, LPARAM);
    /// @}

private:
    class ToolTips;
    explicit CWnd(HWND place) : m_hWnd(place) {} ///< for the special positions in the Z order only

    void hookSubclass();

    WNDPROC m_pfnSuper = nullptr; ///< the window's original procedure
    HWND m_hWndOwner = nullptr;
    bool m_modal = false, m_modalSoon = false;
    int m_nModalResult = 0;
    std::shared_ptr<ToolTips> m_toolTips;

    friend class WindowHook;
    friend LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
};

/// The procedure of all windows that have an object.
AFX_EXPORTED LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

/// The control that sent a scroll message; null for the window's own scroll bars.
AFX_EXPORTED CScrollBar* AfxScrollBar(LPARAM window);
