/// @file
/// The system's standard controls. Most members send the message of their name; results are those of the messages.
#pragma once

#include <toolkit/window.h>

class AFX_EXPORTED CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    CStatic() = default;

    virtual BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xFFFF)
    {
        return CWnd::Create(WC_STATICW, lpszText, dwStyle, rect, pParentWnd, nID);
    }
    HICON SetIcon(HICON hIcon) { return ask<HICON>(STM_SETICON, hIcon); }
    HICON GetIcon() const { return ask<HICON>(STM_GETICON); }
    HBITMAP SetBitmap(HBITMAP hBitmap) { return ask<HBITMAP>(STM_SETIMAGE, IMAGE_BITMAP, hBitmap); }
    HBITMAP GetBitmap() const { return ask<HBITMAP>(STM_GETIMAGE, IMAGE_BITMAP); }
    HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile)
    {
        return ask<HENHMETAFILE>(STM_SETIMAGE, IMAGE_ENHMETAFILE, hMetaFile);
    }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    CButton() = default;

    virtual BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_BUTTONW, lpszCaption, dwStyle, rect, pParentWnd, nID);
    }
    UINT GetState() const { return ask<UINT>(BM_GETSTATE); }
    void SetState(BOOL bHighlight) { ask(BM_SETSTATE, bHighlight); }
    int GetCheck() const { return ask<int>(BM_GETCHECK); }
    void SetCheck(int nCheck) { ask(BM_SETCHECK, nCheck); }
    UINT GetButtonStyle() const { return GetStyle() & BS_TYPEMASK; }
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) { ask(BM_SETSTYLE, nStyle, bRedraw); }
    HICON SetIcon(HICON hIcon) { return ask<HICON>(BM_SETIMAGE, IMAGE_ICON, hIcon); }
    HICON GetIcon() const { return ask<HICON>(BM_GETIMAGE, IMAGE_ICON); }
    HBITMAP SetBitmap(HBITMAP hBitmap) { return ask<HBITMAP>(BM_SETIMAGE, IMAGE_BITMAP, hBitmap); }
    void Click() { ask(BM_CLICK); }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    CEdit() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_EDITW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    BOOL CanUndo() const { return ask<BOOL>(EM_CANUNDO); }
    int GetLineCount() const { return ask<int>(EM_GETLINECOUNT); }
    BOOL GetModify() const { return ask<BOOL>(EM_GETMODIFY); }
    void SetModify(BOOL bModified = TRUE) { ask(EM_SETMODIFY, bModified); }
    void GetRect(LPRECT lpRect) const { ask(EM_GETRECT, 0, lpRect); }
    DWORD GetSel() const { return ask<DWORD>(EM_GETSEL); }
    void GetSel(int& nStartChar, int& nEndChar) const { ask(EM_GETSEL, &nStartChar, &nEndChar); }
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE)
    {
        ask(EM_SETSEL, nStartChar, nEndChar);
        if (!bNoScroll)
            ask(EM_SCROLLCARET);
    }
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE)
    {
        SetSel(static_cast<short>(LOWORD(dwSelection)), static_cast<short>(HIWORD(dwSelection)), bNoScroll);
    }
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE) { ask(EM_REPLACESEL, bCanUndo, lpszNewText); }
    void LimitText(int nChars = 0) { ask(EM_LIMITTEXT, nChars); }
    void SetLimitText(UINT nMax) { ask(EM_SETLIMITTEXT, nMax); }
    UINT GetLimitText() const { return ask<UINT>(EM_GETLIMITTEXT); }
    BOOL SetReadOnly(BOOL bReadOnly = TRUE) { return ask<BOOL>(EM_SETREADONLY, bReadOnly); }
    BOOL Undo() { return ask<BOOL>(EM_UNDO); }
    void EmptyUndoBuffer() { ask(EM_EMPTYUNDOBUFFER); }
    void SetMargins(UINT nLeft, UINT nRight)
    {
        ask(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(nLeft, nRight));
    }
    int LineFromChar(int nIndex = -1) const { return ask<int>(EM_LINEFROMCHAR, nIndex); }
    int LineIndex(int nLine = -1) const { return ask<int>(EM_LINEINDEX, nLine); }
    int LineLength(int nLine = -1) const { return ask<int>(EM_LINELENGTH, nLine); }
    void LineScroll(int nLines, int nChars = 0) { ask(EM_LINESCROLL, nChars, nLines); }
    void Cut() { ask(WM_CUT); }
    void Copy() { ask(WM_COPY); }
    void Paste() { ask(WM_PASTE); }
    void Clear() { ask(WM_CLEAR); }
};

class AFX_EXPORTED CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)

public:
    CListBox() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_LISTBOXW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetCount() const { return ask<int>(LB_GETCOUNT); }
    int GetCurSel() const { return ask<int>(LB_GETCURSEL); }
    int SetCurSel(int nSelect) { return ask<int>(LB_SETCURSEL, nSelect); }
    DWORD_PTR GetItemData(int nIndex) const { return ask<DWORD_PTR>(LB_GETITEMDATA, nIndex); }
    int SetItemData(int nIndex, DWORD_PTR dwItemData) { return ask<int>(LB_SETITEMDATA, nIndex, dwItemData); }
    void* GetItemDataPtr(int nIndex) const { return ask<void*>(LB_GETITEMDATA, nIndex); }
    int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData)); }
    int GetTopIndex() const { return ask<int>(LB_GETTOPINDEX); }
    int SetTopIndex(int nIndex) { return ask<int>(LB_SETTOPINDEX, nIndex); }
    int GetItemHeight(int nIndex) const { return ask<int>(LB_GETITEMHEIGHT, nIndex); }
    int SetItemHeight(int nIndex, UINT cyItemHeight) { return ask<int>(LB_SETITEMHEIGHT, nIndex, cyItemHeight); }
    int AddString(LPCTSTR lpszString) { return ask<int>(LB_ADDSTRING, 0, lpszString); }
    int DeleteString(UINT nIndex) { return ask<int>(LB_DELETESTRING, nIndex); }
    int InsertString(int nIndex, LPCTSTR lpszString) { return ask<int>(LB_INSERTSTRING, nIndex, lpszString); }
    void ResetContent() { ask(LB_RESETCONTENT); }
    int FindString(int nStartAfter, LPCTSTR lpszString) const
    {
        return ask<int>(LB_FINDSTRING, nStartAfter, lpszString);
    }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
    {
        return ask<int>(LB_FINDSTRINGEXACT, nIndexStart, lpszFind);
    }
    int SelectString(int nStartAfter, LPCTSTR lpszString) { return ask<int>(LB_SELECTSTRING, nStartAfter, lpszString); }
    void SetHorizontalExtent(int cxExtent) { ask(LB_SETHORIZONTALEXTENT, cxExtent); }
    int GetSel(int nIndex) const { return ask<int>(LB_GETSEL, nIndex); }
    int SetSel(int nIndex, BOOL bSelect = TRUE) { return ask<int>(LB_SETSEL, bSelect, nIndex); }
    int GetSelCount() const { return ask<int>(LB_GETSELCOUNT); }
    int GetSelItems(int nMaxItems, LPINT rgIndex) const { return ask<int>(LB_GETSELITEMS, nMaxItems, rgIndex); }
    int SelItemRange(BOOL bSelect, int nFirst, int nLast)
    {
        return ask<int>(LB_SELITEMRANGE, bSelect, MAKELPARAM(nFirst, nLast));
    }
    int GetCaretIndex() const { return ask<int>(LB_GETCARETINDEX); }
    int SetCaretIndex(int nIndex, BOOL bScroll = TRUE)
    {
        return ask<int>(LB_SETCARETINDEX, nIndex, MAKELPARAM(bScroll, 0));
    }
    int GetTextLen(int nIndex) const { return ask<int>(LB_GETTEXTLEN, nIndex); }
    int GetText(int nIndex, LPTSTR lpszBuffer) const { return ask<int>(LB_GETTEXT, nIndex, lpszBuffer); }
    void GetText(int nIndex, CString& rString) const;
    int GetItemRect(int nIndex, LPRECT lpRect) const { return ask<int>(LB_GETITEMRECT, nIndex, lpRect); }
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;
    /// Called for a box that its owner draws.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}
    virtual int CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
    virtual void DeleteItem(LPDELETEITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    CComboBox() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_COMBOBOXW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetCount() const { return ask<int>(CB_GETCOUNT); }
    int GetCurSel() const { return ask<int>(CB_GETCURSEL); }
    int SetCurSel(int nSelect) { return ask<int>(CB_SETCURSEL, nSelect); }
    DWORD_PTR GetItemData(int nIndex) const { return ask<DWORD_PTR>(CB_GETITEMDATA, nIndex); }
    int SetItemData(int nIndex, DWORD_PTR dwItemData) { return ask<int>(CB_SETITEMDATA, nIndex, dwItemData); }
    void* GetItemDataPtr(int nIndex) const { return ask<void*>(CB_GETITEMDATA, nIndex); }
    int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData)); }
    int GetTopIndex() const { return ask<int>(CB_GETTOPINDEX); }
    int SetTopIndex(int nIndex) { return ask<int>(CB_SETTOPINDEX, nIndex); }
    int GetItemHeight(int nIndex) const { return ask<int>(CB_GETITEMHEIGHT, nIndex); }
    int SetItemHeight(int nIndex, UINT cyItemHeight) { return ask<int>(CB_SETITEMHEIGHT, nIndex, cyItemHeight); }
    int AddString(LPCTSTR lpszString) { return ask<int>(CB_ADDSTRING, 0, lpszString); }
    int DeleteString(UINT nIndex) { return ask<int>(CB_DELETESTRING, nIndex); }
    int InsertString(int nIndex, LPCTSTR lpszString) { return ask<int>(CB_INSERTSTRING, nIndex, lpszString); }
    void ResetContent() { ask(CB_RESETCONTENT); }
    int FindString(int nStartAfter, LPCTSTR lpszString) const
    {
        return ask<int>(CB_FINDSTRING, nStartAfter, lpszString);
    }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
    {
        return ask<int>(CB_FINDSTRINGEXACT, nIndexStart, lpszFind);
    }
    int SelectString(int nStartAfter, LPCTSTR lpszString) { return ask<int>(CB_SELECTSTRING, nStartAfter, lpszString); }
    void SetHorizontalExtent(int cxExtent) { ask(CB_SETHORIZONTALEXTENT, cxExtent); }
    DWORD GetEditSel() const { return ask<DWORD>(CB_GETEDITSEL); }
    BOOL SetEditSel(int nStartChar, int nEndChar)
    {
        return ask<BOOL>(CB_SETEDITSEL, 0, MAKELPARAM(nStartChar, nEndChar));
    }
    BOOL LimitText(int nMaxChars) { return ask<BOOL>(CB_LIMITTEXT, nMaxChars); }
    int GetLBTextLen(int nIndex) const { return ask<int>(CB_GETLBTEXTLEN, nIndex); }
    int GetLBText(int nIndex, LPTSTR lpszText) const { return ask<int>(CB_GETLBTEXT, nIndex, lpszText); }
    void GetLBText(int nIndex, CString& rString) const;
    void ShowDropDown(BOOL bShowIt = TRUE) { ask(CB_SHOWDROPDOWN, bShowIt); }
    BOOL GetDroppedState() const { return ask<BOOL>(CB_GETDROPPEDSTATE); }
    void GetDroppedControlRect(LPRECT lprect) const { ask(CB_GETDROPPEDCONTROLRECT, 0, lprect); }
    int GetDroppedWidth() const { return ask<int>(CB_GETDROPPEDWIDTH); }
    int SetDroppedWidth(UINT nWidth) { return ask<int>(CB_SETDROPPEDWIDTH, nWidth); }
    int SetExtendedUI(BOOL bExtended = TRUE) { return ask<int>(CB_SETEXTENDEDUI, bExtended); }
    void Cut() { ask(WM_CUT); }
    void Copy() { ask(WM_COPY); }
    void Paste() { ask(WM_PASTE); }
    void Clear() { ask(WM_CLEAR); }
    /// Called for a box that its owner draws.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}
    virtual int CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
    virtual void DeleteItem(LPDELETEITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)

public:
    CScrollBar() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_SCROLLBARW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetScrollPos() const { return ::GetScrollPos(m_hWnd, SB_CTL); }
    int SetScrollPos(int nPos, BOOL bRedraw = TRUE) { return ::SetScrollPos(m_hWnd, SB_CTL, nPos, bRedraw); }
    void GetScrollRange(LPINT lpMinPos, LPINT lpMaxPos) const { ::GetScrollRange(m_hWnd, SB_CTL, lpMinPos, lpMaxPos); }
    void SetScrollRange(int nMinPos, int nMaxPos, BOOL bRedraw = TRUE)
    {
        ::SetScrollRange(m_hWnd, SB_CTL, nMinPos, nMaxPos, bRedraw);
    }
    BOOL GetScrollInfo(LPSCROLLINFO info, UINT nMask = SIF_ALL) { return CWnd::GetScrollInfo(SB_CTL, info, nMask); }
    BOOL SetScrollInfo(LPSCROLLINFO info, BOOL bRedraw = TRUE) { return CWnd::SetScrollInfo(SB_CTL, info, bRedraw); }
    BOOL EnableScrollBar(UINT nArrowFlags = ESB_ENABLE_BOTH) { return ::EnableScrollBar(m_hWnd, SB_CTL, nArrowFlags); }
};
