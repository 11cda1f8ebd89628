/// @file
/// Lists, trees, tabs, headers and status bars. Most members send the message of their name; results are those of the
/// messages.
#pragma once

#include <afxtempl.h>
#include <toolkit/controls.h>
#include <toolkit/image_list.h>

class AFX_EXPORTED CHeaderCtrl : public CWnd
{
    DECLARE_DYNAMIC(CHeaderCtrl)

public:
    CHeaderCtrl() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_HEADERW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetItemCount() const { return ask<int>(HDM_GETITEMCOUNT); }
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const { return ask<BOOL>(HDM_GETITEMW, nPos, pHeaderItem); }
    BOOL SetItem(int nPos, HDITEM* pHeaderItem) { return ask<BOOL>(HDM_SETITEMW, nPos, pHeaderItem); }
    int InsertItem(int nPos, HDITEM* phdi) { return ask<int>(HDM_INSERTITEMW, nPos, phdi); }
    BOOL DeleteItem(int nPos) { return ask<BOOL>(HDM_DELETEITEM, nPos); }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const { return ask<BOOL>(HDM_GETITEMRECT, nIndex, lpRect); }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CListCtrl : public CWnd
{
    DECLARE_DYNAMIC(CListCtrl)

public:
    CListCtrl() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_LISTVIEWW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    COLORREF GetBkColor() const { return ask<COLORREF>(LVM_GETBKCOLOR); }
    BOOL SetBkColor(COLORREF color) { return ask<BOOL>(LVM_SETBKCOLOR, 0, color); }
    COLORREF GetTextColor() const { return ask<COLORREF>(LVM_GETTEXTCOLOR); }
    BOOL SetTextColor(COLORREF color) { return ask<BOOL>(LVM_SETTEXTCOLOR, 0, color); }
    COLORREF GetTextBkColor() const { return ask<COLORREF>(LVM_GETTEXTBKCOLOR); }
    BOOL SetTextBkColor(COLORREF color) { return ask<BOOL>(LVM_SETTEXTBKCOLOR, 0, color); }
    /// The kind is LVSIL_NORMAL, LVSIL_SMALL or LVSIL_STATE; the result of Set is the list before.
    CImageList* SetImageList(CImageList* pImageList, int nImageList);
    CImageList* GetImageList(int nImageList) const;
    int GetItemCount() const { return ask<int>(LVM_GETITEMCOUNT); }
    BOOL GetItem(LVITEM* pItem) const { return ask<BOOL>(LVM_GETITEMW, 0, pItem); }
    BOOL SetItem(const LVITEM* pItem) { return ask<BOOL>(LVM_SETITEMW, 0, pItem); }
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam);
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam, int nIndent);
    int InsertItem(const LVITEM* pItem) { return ask<int>(LVM_INSERTITEMW, 0, pItem); }
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    int InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage, LPARAM lParam);
    BOOL DeleteItem(int nItem) { return ask<BOOL>(LVM_DELETEITEM, nItem); }
    BOOL DeleteAllItems() { return ask<BOOL>(LVM_DELETEALLITEMS); }
    int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const { return ask<int>(LVM_FINDITEMW, nStart, pFindInfo); }
    int GetNextItem(int nItem, int nFlags) const { return ask<int>(LVM_GETNEXTITEM, nItem, MAKELPARAM(nFlags, 0)); }
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& pos) const;
    UINT GetSelectedCount() const { return ask<UINT>(LVM_GETSELECTEDCOUNT); }
    int GetSelectionMark() { return ask<int>(LVM_GETSELECTIONMARK); }
    int SetSelectionMark(int iIndex) { return ask<int>(LVM_SETSELECTIONMARK, 0, iIndex); }
    /// The part is LVIR_BOUNDS, LVIR_ICON or LVIR_LABEL.
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const;
    int HitTest(LVHITTESTINFO* pHitTestInfo) const { return ask<int>(LVM_HITTEST, 0, pHitTestInfo); }
    int SubItemHitTest(LPLVHITTESTINFO pInfo) { return ask<int>(LVM_SUBITEMHITTEST, 0, pInfo); }
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    BOOL EnsureVisible(int nItem, BOOL bPartialOK) { return ask<BOOL>(LVM_ENSUREVISIBLE, nItem, bPartialOK); }
    BOOL RedrawItems(int nFirst, int nLast) { return ask<BOOL>(LVM_REDRAWITEMS, nFirst, nLast); }
    BOOL Update(int nItem) { return ask<BOOL>(LVM_UPDATE, nItem); }
    CEdit* EditLabel(int nItem) { return static_cast<CEdit*>(FromHandle(ask<HWND>(LVM_EDITLABELW, nItem))); }
    CEdit* GetEditControl() const { return static_cast<CEdit*>(FromHandle(ask<HWND>(LVM_GETEDITCONTROL))); }
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const { return ask<BOOL>(LVM_GETCOLUMNW, nCol, pColumn); }
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn) { return ask<BOOL>(LVM_SETCOLUMNW, nCol, pColumn); }
    int InsertColumn(int nCol, const LVCOLUMN* pColumn) { return ask<int>(LVM_INSERTCOLUMNW, nCol, pColumn); }
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol) { return ask<BOOL>(LVM_DELETECOLUMN, nCol); }
    int GetColumnWidth(int nCol) const { return ask<int>(LVM_GETCOLUMNWIDTH, nCol); }
    BOOL SetColumnWidth(int nCol, int cx) { return ask<BOOL>(LVM_SETCOLUMNWIDTH, nCol, MAKELPARAM(cx, 0)); }
    /// A temporary object unless somebody has subclassed the header; null outside the report view.
    CHeaderCtrl* GetHeaderCtrl() const { return static_cast<CHeaderCtrl*>(FromHandle(ask<HWND>(LVM_GETHEADER))); }
    int GetTopIndex() const { return ask<int>(LVM_GETTOPINDEX); }
    int GetCountPerPage() const { return ask<int>(LVM_GETCOUNTPERPAGE); }
    BOOL SetItemState(int nItem, LVITEM* pItem) { return ask<BOOL>(LVM_SETITEMSTATE, nItem, pItem); }
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    /// For a list with LVS_EX_CHECKBOXES.
    BOOL GetCheck(int nItem) const { return (GetItemState(nItem, LVIS_STATEIMAGEMASK) >> 12) == 2; }
    BOOL SetCheck(int nItem, BOOL fCheck = TRUE);
    UINT GetItemState(int nItem, UINT nMask) const { return ask<UINT>(LVM_GETITEMSTATE, nItem, nMask); }
    CString GetItemText(int nItem, int nSubItem) const;
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    int GetStringWidth(LPCTSTR lpsz) const { return ask<int>(LVM_GETSTRINGWIDTHW, 0, lpsz); }
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData) { return ask<BOOL>(LVM_SORTITEMS, dwData, pfnCompare); }
    DWORD SetExtendedStyle(DWORD dwNewStyle) { return ask<DWORD>(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, dwNewStyle); }
    DWORD GetExtendedStyle() const { return ask<DWORD>(LVM_GETEXTENDEDLISTVIEWSTYLE); }
    DWORD SetHoverTime(DWORD dwHoverTime = static_cast<DWORD>(-1))
    {
        return ask<DWORD>(LVM_SETHOVERTIME, 0, dwHoverTime);
    }
    DWORD GetHoverTime() const { return ask<DWORD>(LVM_GETHOVERTIME); }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CTreeCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTreeCtrl)

public:
    CTreeCtrl() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_TREEVIEWW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    UINT GetCount() const { return ask<UINT>(TVM_GETCOUNT); }
    UINT GetIndent() const { return ask<UINT>(TVM_GETINDENT); }
    void SetIndent(UINT nIndent) { ask(TVM_SETINDENT, nIndent); }
    /// The kind is TVSIL_NORMAL or TVSIL_STATE; the result of Set is the list before.
    CImageList* SetImageList(CImageList* pImageList, UINT nImageList);
    CImageList* GetImageList(UINT nImageList) const;
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const { return ask<HTREEITEM>(TVM_GETNEXTITEM, nCode, hItem); }
    HTREEITEM GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUS); }
    HTREEITEM GetParentItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PARENT); }
    HTREEITEM GetNextVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXTVISIBLE); }
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
    HTREEITEM GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }
    BOOL Select(HTREEITEM hItem, UINT nCode) { return ask<BOOL>(TVM_SELECTITEM, nCode, hItem); }
    BOOL SelectItem(HTREEITEM hItem) { return Select(hItem, TVGN_CARET); }
    BOOL GetItem(TVITEM* pItem) const { return ask<BOOL>(TVM_GETITEMW, 0, pItem); }
    BOOL SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                 UINT nStateMask, LPARAM lParam);
    BOOL SetItem(TVITEM* pItem) { return ask<BOOL>(TVM_SETITEMW, 0, pItem); }
    CString GetItemText(HTREEITEM hItem) const;
    BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem);
    BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
    BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage);
    UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const;
    BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask);
    /// For a tree with TVS_CHECKBOXES.
    BOOL GetCheck(HTREEITEM hItem) const { return (GetItemState(hItem, TVIS_STATEIMAGEMASK) >> 12) == 2; }
    BOOL SetCheck(HTREEITEM hItem, BOOL fCheck = TRUE);
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData);
    BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;
    BOOL ItemHasChildren(HTREEITEM hItem) const { return GetChildItem(hItem) != nullptr; }
    HTREEITEM InsertItem(LPTVINSERTSTRUCT lpInsertStruct) { return ask<HTREEITEM>(TVM_INSERTITEMW, 0, lpInsertStruct); }
    HTREEITEM InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState, UINT nStateMask,
                         LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
    HTREEITEM InsertItem(LPCTSTR lpszItem, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
    HTREEITEM InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent = TVI_ROOT,
                         HTREEITEM hInsertAfter = TVI_LAST);
    BOOL DeleteItem(HTREEITEM hItem) { return ask<BOOL>(TVM_DELETEITEM, 0, hItem); }
    BOOL DeleteAllItems() { return DeleteItem(TVI_ROOT); }
    BOOL Expand(HTREEITEM hItem, UINT nCode) { return ask<BOOL>(TVM_EXPAND, nCode, hItem); }
    CEdit* EditLabel(HTREEITEM hItem) { return static_cast<CEdit*>(FromHandle(ask<HWND>(TVM_EDITLABELW, 0, hItem))); }
    CEdit* GetEditControl() const { return static_cast<CEdit*>(FromHandle(ask<HWND>(TVM_GETEDITCONTROL))); }
    BOOL EnsureVisible(HTREEITEM hItem) { return ask<BOOL>(TVM_ENSUREVISIBLE, 0, hItem); }
    HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    HTREEITEM HitTest(TVHITTESTINFO* pHitTestInfo) const { return ask<HTREEITEM>(TVM_HITTEST, 0, pHitTestInfo); }
    BOOL SortChildren(HTREEITEM hItem) { return ask<BOOL>(TVM_SORTCHILDREN, 0, hItem); }
    BOOL SortChildrenCB(LPTVSORTCB pSort) { return ask<BOOL>(TVM_SORTCHILDRENCB, 0, pSort); }
};

class AFX_EXPORTED CTabCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTabCtrl)

public:
    CTabCtrl() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(WC_TABCONTROLW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    int GetItemCount() const { return ask<int>(TCM_GETITEMCOUNT); }
    CImageList* SetImageList(CImageList* pImageList);
    CImageList* GetImageList() const;
    BOOL GetItem(int nItem, TCITEM* pTabCtrlItem) const { return ask<BOOL>(TCM_GETITEMW, nItem, pTabCtrlItem); }
    BOOL SetItem(int nItem, TCITEM* pTabCtrlItem) { return ask<BOOL>(TCM_SETITEMW, nItem, pTabCtrlItem); }
    LONG InsertItem(int nItem, TCITEM* pTabCtrlItem) { return ask<LONG>(TCM_INSERTITEMW, nItem, pTabCtrlItem); }
    LONG InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam);
    LONG InsertItem(int nItem, LPCTSTR lpszItem);
    LONG InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    BOOL DeleteItem(int nItem) { return ask<BOOL>(TCM_DELETEITEM, nItem); }
    BOOL DeleteAllItems() { return ask<BOOL>(TCM_DELETEALLITEMS); }
    BOOL GetItemRect(int nItem, LPRECT lpRect) const { return ask<BOOL>(TCM_GETITEMRECT, nItem, lpRect); }
    int GetCurSel() const { return ask<int>(TCM_GETCURSEL); }
    int SetCurSel(int nItem) { return ask<int>(TCM_SETCURSEL, nItem); }
    int GetCurFocus() const { return ask<int>(TCM_GETCURFOCUS); }
    void SetCurFocus(int nItem) { ask(TCM_SETCURFOCUS, nItem); }
    void AdjustRect(BOOL bLarger, LPRECT lpRect) { ask(TCM_ADJUSTRECT, bLarger, lpRect); }
    int HitTest(TCHITTESTINFO* pHitTestInfo) const { return ask<int>(TCM_HITTEST, 0, pHitTestInfo); }
    int GetRowCount() const { return ask<int>(TCM_GETROWCOUNT); }
    void SetPadding(CSize size) { ask(TCM_SETPADDING, 0, MAKELPARAM(size.cx, size.cy)); }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CStatusBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CStatusBarCtrl)

public:
    CStatusBarCtrl() = default;

    virtual BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
    {
        return CWnd::Create(STATUSCLASSNAMEW, nullptr, dwStyle, rect, pParentWnd, nID);
    }
    BOOL SetText(LPCTSTR lpszText, int nPane, int nType) { return ask<BOOL>(SB_SETTEXTW, nPane | nType, lpszText); }
    CString GetText(int nPane, int* pType = nullptr) const;
    BOOL SetParts(int nParts, int* pWidths) { return ask<BOOL>(SB_SETPARTS, nParts, pWidths); }
    BOOL GetRect(int nPane, LPRECT lpRect) const { return ask<BOOL>(SB_GETRECT, nPane, lpRect); }
    BOOL SetSimple(BOOL bSimple = TRUE) { return ask<BOOL>(SB_SIMPLE, bSimple); }
};
