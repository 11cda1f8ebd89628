/// @file
/// The system's standard controls. Most members send the message of their name; results are those of the messages.
#pragma once

#include <toolkit/window.h>

class AFX_EXPORTED CStatic : public CWnd
{
    DECLARE_DYNAMIC(CStatic)

public:
    CStatic() = default;

    BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xFFFF);
    HICON SetIcon(HICON hIcon)
    {
        return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(hIcon)));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(STM_GETICON)); }
    HBITMAP SetBitmap(HBITMAP hBitmap)
    {
        return reinterpret_cast<HBITMAP>(SendMessage(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
    }
    HBITMAP GetBitmap() const { return reinterpret_cast<HBITMAP>(SendMessage(STM_GETIMAGE, IMAGE_BITMAP)); }
    HENHMETAFILE SetEnhMetaFile(HENHMETAFILE hMetaFile)
    {
        return reinterpret_cast<HENHMETAFILE>(
            SendMessage(STM_SETIMAGE, IMAGE_ENHMETAFILE, reinterpret_cast<LPARAM>(hMetaFile)));
    }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CButton : public CWnd
{
    DECLARE_DYNAMIC(CButton)

public:
    CButton() = default;

    BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
    void SetState(BOOL bHighlight) { SendMessage(BM_SETSTATE, static_cast<WPARAM>(bHighlight)); }
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int nCheck) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(nCheck)); }
    UINT GetButtonStyle() const { return GetStyle() & BS_TYPEMASK; }
    void SetButtonStyle(UINT nStyle, BOOL bRedraw = TRUE) { SendMessage(BM_SETSTYLE, nStyle, bRedraw); }
    HICON SetIcon(HICON hIcon)
    {
        return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(hIcon)));
    }
    HICON GetIcon() const { return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON)); }
    HBITMAP SetBitmap(HBITMAP hBitmap)
    {
        return reinterpret_cast<HBITMAP>(SendMessage(BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(hBitmap)));
    }
    void Click() { SendMessage(BM_CLICK); }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CEdit : public CWnd
{
    DECLARE_DYNAMIC(CEdit)

public:
    CEdit() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    BOOL CanUndo() const { return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
    int GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
    BOOL GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
    void SetModify(BOOL bModified = TRUE) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(bModified)); }
    void GetRect(LPRECT lpRect) const { SendMessage(EM_GETRECT, 0, reinterpret_cast<LPARAM>(lpRect)); }
    DWORD GetSel() const { return static_cast<DWORD>(SendMessage(EM_GETSEL)); }
    void GetSel(int& nStartChar, int& nEndChar) const
    {
        SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&nStartChar), reinterpret_cast<LPARAM>(&nEndChar));
    }
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE)
    {
        SendMessage(EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
        if (!bNoScroll)
            SendMessage(EM_SCROLLCARET);
    }
    void SetSel(DWORD dwSelection, BOOL bNoScroll = FALSE)
    {
        SetSel(static_cast<short>(LOWORD(dwSelection)), static_cast<short>(HIWORD(dwSelection)), bNoScroll);
    }
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE)
    {
        SendMessage(EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), reinterpret_cast<LPARAM>(lpszNewText));
    }
    void LimitText(int nChars = 0) { SendMessage(EM_LIMITTEXT, static_cast<WPARAM>(nChars)); }
    void SetLimitText(UINT nMax) { SendMessage(EM_SETLIMITTEXT, nMax); }
    UINT GetLimitText() const { return static_cast<UINT>(SendMessage(EM_GETLIMITTEXT)); }
    BOOL SetReadOnly(BOOL bReadOnly = TRUE)
    {
        return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(bReadOnly)));
    }
    BOOL Undo() { return static_cast<BOOL>(SendMessage(EM_UNDO)); }
    void EmptyUndoBuffer() { SendMessage(EM_EMPTYUNDOBUFFER); }
    void SetMargins(UINT nLeft, UINT nRight)
    {
        SendMessage(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(nLeft, nRight));
    }
    int LineFromChar(int nIndex = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINEFROMCHAR, static_cast<WPARAM>(nIndex)));
    }
    int LineIndex(int nLine = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(nLine)));
    }
    int LineLength(int nLine = -1) const
    {
        return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(nLine)));
    }
    void LineScroll(int nLines, int nChars = 0) { SendMessage(EM_LINESCROLL, static_cast<WPARAM>(nChars), nLines); }
    void Cut() { SendMessage(WM_CUT); }
    void Copy() { SendMessage(WM_COPY); }
    void Paste() { SendMessage(WM_PASTE); }
    void Clear() { SendMessage(WM_CLEAR); }
};

class AFX_EXPORTED CListBox : public CWnd
{
    DECLARE_DYNAMIC(CListBox)

public:
    CListBox() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL)); }
    int SetCurSel(int nSelect) { return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(nSelect))); }
    DWORD_PTR GetItemData(int nIndex) const
    {
        return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
    }
    int SetItemData(int nIndex, DWORD_PTR dwItemData)
    {
        return static_cast<int>(
            SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(dwItemData)));
    }
    void* GetItemDataPtr(int nIndex) const
    {
        return reinterpret_cast<void*>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
    }
    int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData)); }
    int GetTopIndex() const { return static_cast<int>(SendMessage(LB_GETTOPINDEX)); }
    int SetTopIndex(int nIndex) { return static_cast<int>(SendMessage(LB_SETTOPINDEX, static_cast<WPARAM>(nIndex))); }
    int GetItemHeight(int nIndex) const
    {
        return static_cast<int>(SendMessage(LB_GETITEMHEIGHT, static_cast<WPARAM>(nIndex)));
    }
    int SetItemHeight(int nIndex, UINT cyItemHeight)
    {
        return static_cast<int>(
            SendMessage(LB_SETITEMHEIGHT, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(cyItemHeight)));
    }
    int AddString(LPCTSTR lpszString)
    {
        return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)));
    }
    int DeleteString(UINT nIndex) { return static_cast<int>(SendMessage(LB_DELETESTRING, nIndex)); }
    int InsertString(int nIndex, LPCTSTR lpszString)
    {
        return static_cast<int>(
            SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszString)));
    }
    void ResetContent() { SendMessage(LB_RESETCONTENT); }
    int FindString(int nStartAfter, LPCTSTR lpszString) const
    {
        return static_cast<int>(
            SendMessage(LB_FINDSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
    }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
    {
        return static_cast<int>(
            SendMessage(LB_FINDSTRINGEXACT, static_cast<WPARAM>(nIndexStart), reinterpret_cast<LPARAM>(lpszFind)));
    }
    int SelectString(int nStartAfter, LPCTSTR lpszString)
    {
        return static_cast<int>(
            SendMessage(LB_SELECTSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
    }
    void SetHorizontalExtent(int cxExtent) { SendMessage(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(cxExtent)); }
    int GetSel(int nIndex) const { return static_cast<int>(SendMessage(LB_GETSEL, static_cast<WPARAM>(nIndex))); }
    int SetSel(int nIndex, BOOL bSelect = TRUE)
    {
        return static_cast<int>(SendMessage(LB_SETSEL, static_cast<WPARAM>(bSelect), nIndex));
    }
    int GetSelCount() const { return static_cast<int>(SendMessage(LB_GETSELCOUNT)); }
    int GetSelItems(int nMaxItems, LPINT rgIndex) const
    {
        return static_cast<int>(
            SendMessage(LB_GETSELITEMS, static_cast<WPARAM>(nMaxItems), reinterpret_cast<LPARAM>(rgIndex)));
    }
    int SelItemRange(BOOL bSelect, int nFirst, int nLast)
    {
        return static_cast<int>(SendMessage(LB_SELITEMRANGE, static_cast<WPARAM>(bSelect), MAKELPARAM(nFirst, nLast)));
    }
    int GetCaretIndex() const { return static_cast<int>(SendMessage(LB_GETCARETINDEX)); }
    int SetCaretIndex(int nIndex, BOOL bScroll = TRUE)
    {
        return static_cast<int>(SendMessage(LB_SETCARETINDEX, static_cast<WPARAM>(nIndex), MAKELPARAM(bScroll, 0)));
    }
    int GetTextLen(int nIndex) const
    {
        return static_cast<int>(SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(nIndex)));
    }
    int GetText(int nIndex, LPTSTR lpszBuffer) const
    {
        return static_cast<int>(
            SendMessage(LB_GETTEXT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszBuffer)));
    }
    void GetText(int nIndex, CString& rString) const;
    int GetItemRect(int nIndex, LPRECT lpRect) const
    {
        return static_cast<int>(
            SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpRect)));
    }
    UINT ItemFromPoint(CPoint pt, BOOL& bOutside) const;
    /// Called for a box that its owner draws.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}
    virtual int CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
    virtual void DeleteItem(LPDELETEITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CComboBox : public CWnd
{
    DECLARE_DYNAMIC(CComboBox)

public:
    CComboBox() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCount() const { return static_cast<int>(SendMessage(CB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
    int SetCurSel(int nSelect) { return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(nSelect))); }
    DWORD_PTR GetItemData(int nIndex) const
    {
        return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
    }
    int SetItemData(int nIndex, DWORD_PTR dwItemData)
    {
        return static_cast<int>(
            SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(dwItemData)));
    }
    void* GetItemDataPtr(int nIndex) const
    {
        return reinterpret_cast<void*>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
    }
    int SetItemDataPtr(int nIndex, void* pData) { return SetItemData(nIndex, reinterpret_cast<DWORD_PTR>(pData)); }
    int GetTopIndex() const { return static_cast<int>(SendMessage(CB_GETTOPINDEX)); }
    int SetTopIndex(int nIndex) { return static_cast<int>(SendMessage(CB_SETTOPINDEX, static_cast<WPARAM>(nIndex))); }
    int GetItemHeight(int nIndex) const
    {
        return static_cast<int>(SendMessage(CB_GETITEMHEIGHT, static_cast<WPARAM>(nIndex)));
    }
    int SetItemHeight(int nIndex, UINT cyItemHeight)
    {
        return static_cast<int>(
            SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(cyItemHeight)));
    }
    int AddString(LPCTSTR lpszString)
    {
        return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lpszString)));
    }
    int DeleteString(UINT nIndex) { return static_cast<int>(SendMessage(CB_DELETESTRING, nIndex)); }
    int InsertString(int nIndex, LPCTSTR lpszString)
    {
        return static_cast<int>(
            SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszString)));
    }
    void ResetContent() { SendMessage(CB_RESETCONTENT); }
    int FindString(int nStartAfter, LPCTSTR lpszString) const
    {
        return static_cast<int>(
            SendMessage(CB_FINDSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
    }
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const
    {
        return static_cast<int>(
            SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(nIndexStart), reinterpret_cast<LPARAM>(lpszFind)));
    }
    int SelectString(int nStartAfter, LPCTSTR lpszString)
    {
        return static_cast<int>(
            SendMessage(CB_SELECTSTRING, static_cast<WPARAM>(nStartAfter), reinterpret_cast<LPARAM>(lpszString)));
    }
    void SetHorizontalExtent(int cxExtent) { SendMessage(CB_SETHORIZONTALEXTENT, static_cast<WPARAM>(cxExtent)); }
    DWORD GetEditSel() const { return static_cast<DWORD>(SendMessage(CB_GETEDITSEL)); }
    BOOL SetEditSel(int nStartChar, int nEndChar)
    {
        return static_cast<BOOL>(SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(nStartChar, nEndChar)));
    }
    BOOL LimitText(int nMaxChars)
    {
        return static_cast<BOOL>(SendMessage(CB_LIMITTEXT, static_cast<WPARAM>(nMaxChars)));
    }
    int GetLBTextLen(int nIndex) const
    {
        return static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(nIndex)));
    }
    int GetLBText(int nIndex, LPTSTR lpszText) const
    {
        return static_cast<int>(
            SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpszText)));
    }
    void GetLBText(int nIndex, CString& rString) const;
    void ShowDropDown(BOOL bShowIt = TRUE) { SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(bShowIt)); }
    BOOL GetDroppedState() const { return static_cast<BOOL>(SendMessage(CB_GETDROPPEDSTATE)); }
    void GetDroppedControlRect(LPRECT lprect) const
    {
        SendMessage(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(lprect));
    }
    int GetDroppedWidth() const { return static_cast<int>(SendMessage(CB_GETDROPPEDWIDTH)); }
    int SetDroppedWidth(UINT nWidth) { return static_cast<int>(SendMessage(CB_SETDROPPEDWIDTH, nWidth)); }
    int SetExtendedUI(BOOL bExtended = TRUE)
    {
        return static_cast<int>(SendMessage(CB_SETEXTENDEDUI, static_cast<WPARAM>(bExtended)));
    }
    void Cut() { SendMessage(WM_CUT); }
    void Copy() { SendMessage(WM_COPY); }
    void Paste() { SendMessage(WM_PASTE); }
    void Clear() { SendMessage(WM_CLEAR); }
    /// Called for a box that its owner draws.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}
    virtual int CompareItem(LPCOMPAREITEMSTRUCT) { return 0; }
    virtual void DeleteItem(LPDELETEITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CScrollBar : public CWnd
{
    DECLARE_DYNAMIC(CScrollBar)

public:
    CScrollBar() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
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
