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

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetItemCount() const { return static_cast<int>(SendMessage(HDM_GETITEMCOUNT)); }
    BOOL GetItem(int nPos, HDITEM* pHeaderItem) const
    {
        return static_cast<BOOL>(
            SendMessage(HDM_GETITEMW, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(pHeaderItem)));
    }
    BOOL SetItem(int nPos, HDITEM* pHeaderItem)
    {
        return static_cast<BOOL>(
            SendMessage(HDM_SETITEMW, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(pHeaderItem)));
    }
    int InsertItem(int nPos, HDITEM* phdi)
    {
        return static_cast<int>(
            SendMessage(HDM_INSERTITEMW, static_cast<WPARAM>(nPos), reinterpret_cast<LPARAM>(phdi)));
    }
    BOOL DeleteItem(int nPos) { return static_cast<BOOL>(SendMessage(HDM_DELETEITEM, static_cast<WPARAM>(nPos))); }
    BOOL GetItemRect(int nIndex, LPRECT lpRect) const
    {
        return static_cast<BOOL>(
            SendMessage(HDM_GETITEMRECT, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(lpRect)));
    }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CListCtrl : public CWnd
{
    DECLARE_DYNAMIC(CListCtrl)

public:
    CListCtrl() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    COLORREF GetBkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETBKCOLOR)); }
    BOOL SetBkColor(COLORREF color)
    {
        return static_cast<BOOL>(SendMessage(LVM_SETBKCOLOR, 0, static_cast<LPARAM>(color)));
    }
    COLORREF GetTextColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETTEXTCOLOR)); }
    BOOL SetTextColor(COLORREF color)
    {
        return static_cast<BOOL>(SendMessage(LVM_SETTEXTCOLOR, 0, static_cast<LPARAM>(color)));
    }
    COLORREF GetTextBkColor() const { return static_cast<COLORREF>(SendMessage(LVM_GETTEXTBKCOLOR)); }
    BOOL SetTextBkColor(COLORREF color)
    {
        return static_cast<BOOL>(SendMessage(LVM_SETTEXTBKCOLOR, 0, static_cast<LPARAM>(color)));
    }
    /// The kind is LVSIL_NORMAL, LVSIL_SMALL or LVSIL_STATE; the result of Set is the list before.
    CImageList* SetImageList(CImageList* pImageList, int nImageList);
    CImageList* GetImageList(int nImageList) const;
    int GetItemCount() const { return static_cast<int>(SendMessage(LVM_GETITEMCOUNT)); }
    BOOL GetItem(LVITEM* pItem) const
    {
        return static_cast<BOOL>(SendMessage(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    BOOL SetItem(const LVITEM* pItem)
    {
        return static_cast<BOOL>(SendMessage(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam);
    BOOL SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                 LPARAM lParam, int nIndent);
    int InsertItem(const LVITEM* pItem)
    {
        return static_cast<int>(SendMessage(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    int InsertItem(int nItem, LPCTSTR lpszItem);
    int InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    BOOL DeleteItem(int nItem) { return static_cast<BOOL>(SendMessage(LVM_DELETEITEM, static_cast<WPARAM>(nItem))); }
    BOOL DeleteAllItems() { return static_cast<BOOL>(SendMessage(LVM_DELETEALLITEMS)); }
    int FindItem(LVFINDINFO* pFindInfo, int nStart = -1) const
    {
        return static_cast<int>(
            SendMessage(LVM_FINDITEMW, static_cast<WPARAM>(nStart), reinterpret_cast<LPARAM>(pFindInfo)));
    }
    int GetNextItem(int nItem, int nFlags) const
    {
        return static_cast<int>(SendMessage(LVM_GETNEXTITEM, static_cast<WPARAM>(nItem), MAKELPARAM(nFlags, 0)));
    }
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& pos) const;
    UINT GetSelectedCount() const { return static_cast<UINT>(SendMessage(LVM_GETSELECTEDCOUNT)); }
    int GetSelectionMark() { return static_cast<int>(SendMessage(LVM_GETSELECTIONMARK)); }
    int SetSelectionMark(int iIndex) { return static_cast<int>(SendMessage(LVM_SETSELECTIONMARK, 0, iIndex)); }
    /// The part is LVIR_BOUNDS, LVIR_ICON or LVIR_LABEL.
    BOOL GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const;
    BOOL GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const;
    int HitTest(LVHITTESTINFO* pHitTestInfo) const
    {
        return static_cast<int>(SendMessage(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
    }
    int SubItemHitTest(LPLVHITTESTINFO pInfo)
    {
        return static_cast<int>(SendMessage(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(pInfo)));
    }
    int HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    BOOL EnsureVisible(int nItem, BOOL bPartialOK)
    {
        return static_cast<BOOL>(SendMessage(LVM_ENSUREVISIBLE, static_cast<WPARAM>(nItem), bPartialOK));
    }
    BOOL RedrawItems(int nFirst, int nLast)
    {
        return static_cast<BOOL>(SendMessage(LVM_REDRAWITEMS, static_cast<WPARAM>(nFirst), nLast));
    }
    BOOL Update(int nItem) { return static_cast<BOOL>(SendMessage(LVM_UPDATE, static_cast<WPARAM>(nItem))); }
    CEdit* EditLabel(int nItem);
    BOOL GetColumn(int nCol, LVCOLUMN* pColumn) const
    {
        return static_cast<BOOL>(
            SendMessage(LVM_GETCOLUMNW, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
    }
    BOOL SetColumn(int nCol, const LVCOLUMN* pColumn)
    {
        return static_cast<BOOL>(
            SendMessage(LVM_SETCOLUMNW, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
    }
    int InsertColumn(int nCol, const LVCOLUMN* pColumn)
    {
        return static_cast<int>(
            SendMessage(LVM_INSERTCOLUMNW, static_cast<WPARAM>(nCol), reinterpret_cast<LPARAM>(pColumn)));
    }
    int InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nCol) { return static_cast<BOOL>(SendMessage(LVM_DELETECOLUMN, static_cast<WPARAM>(nCol))); }
    int GetColumnWidth(int nCol) const
    {
        return static_cast<int>(SendMessage(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(nCol)));
    }
    BOOL SetColumnWidth(int nCol, int cx)
    {
        return static_cast<BOOL>(SendMessage(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(nCol), MAKELPARAM(cx, 0)));
    }
    /// The header, subclassed by an object of this list's; null outside the report view.
    CHeaderCtrl* GetHeaderCtrl() const;
    int GetTopIndex() const { return static_cast<int>(SendMessage(LVM_GETTOPINDEX)); }
    int GetCountPerPage() const { return static_cast<int>(SendMessage(LVM_GETCOUNTPERPAGE)); }
    BOOL SetItemState(int nItem, LVITEM* pItem)
    {
        return static_cast<BOOL>(
            SendMessage(LVM_SETITEMSTATE, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pItem)));
    }
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    UINT GetItemState(int nItem, UINT nMask) const
    {
        return static_cast<UINT>(SendMessage(LVM_GETITEMSTATE, static_cast<WPARAM>(nItem), nMask));
    }
    CString GetItemText(int nItem, int nSubItem) const;
    int GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const;
    BOOL SetItemText(int nItem, int nSubItem, LPCTSTR lpszText);
    DWORD_PTR GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, DWORD_PTR dwData);
    int GetStringWidth(LPCTSTR lpsz) const
    {
        return static_cast<int>(SendMessage(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(lpsz)));
    }
    BOOL SortItems(PFNLVCOMPARE pfnCompare, DWORD_PTR dwData)
    {
        return static_cast<BOOL>(SendMessage(LVM_SORTITEMS, dwData, reinterpret_cast<LPARAM>(pfnCompare)));
    }
    DWORD SetExtendedStyle(DWORD dwNewStyle)
    {
        return static_cast<DWORD>(SendMessage(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(dwNewStyle)));
    }
    DWORD GetExtendedStyle() const { return static_cast<DWORD>(SendMessage(LVM_GETEXTENDEDLISTVIEWSTYLE)); }
    DWORD SetHoverTime(DWORD dwHoverTime = static_cast<DWORD>(-1))
    {
        return static_cast<DWORD>(SendMessage(LVM_SETHOVERTIME, 0, static_cast<LPARAM>(dwHoverTime)));
    }
    DWORD GetHoverTime() const { return static_cast<DWORD>(SendMessage(LVM_GETHOVERTIME)); }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;

private:
    mutable CHeaderCtrl m_header;
};

class AFX_EXPORTED CTreeCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTreeCtrl)

public:
    CTreeCtrl() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    UINT GetCount() const { return static_cast<UINT>(SendMessage(TVM_GETCOUNT)); }
    UINT GetIndent() const { return static_cast<UINT>(SendMessage(TVM_GETINDENT)); }
    void SetIndent(UINT nIndent) { SendMessage(TVM_SETINDENT, nIndent); }
    /// The kind is TVSIL_NORMAL or TVSIL_STATE; the result of Set is the list before.
    CImageList* SetImageList(CImageList* pImageList, UINT nImageList);
    CImageList* GetImageList(UINT nImageList) const;
    HTREEITEM GetNextItem(HTREEITEM hItem, UINT nCode) const
    {
        return reinterpret_cast<HTREEITEM>(SendMessage(TVM_GETNEXTITEM, nCode, reinterpret_cast<LPARAM>(hItem)));
    }
    HTREEITEM GetChildItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_CHILD); }
    HTREEITEM GetNextSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PREVIOUS); }
    HTREEITEM GetParentItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_PARENT); }
    HTREEITEM GetNextVisibleItem(HTREEITEM hItem) const { return GetNextItem(hItem, TVGN_NEXTVISIBLE); }
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetSelectedItem() const { return GetNextItem(nullptr, TVGN_CARET); }
    HTREEITEM GetFirstVisibleItem() const { return GetNextItem(nullptr, TVGN_FIRSTVISIBLE); }
    HTREEITEM GetDropHilightItem() const { return GetNextItem(nullptr, TVGN_DROPHILITE); }
    BOOL Select(HTREEITEM hItem, UINT nCode)
    {
        return static_cast<BOOL>(SendMessage(TVM_SELECTITEM, nCode, reinterpret_cast<LPARAM>(hItem)));
    }
    BOOL SelectItem(HTREEITEM hItem) { return Select(hItem, TVGN_CARET); }
    BOOL GetItem(TVITEM* pItem) const
    {
        return static_cast<BOOL>(SendMessage(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    BOOL SetItem(TVITEM* pItem)
    {
        return static_cast<BOOL>(SendMessage(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(pItem)));
    }
    CString GetItemText(HTREEITEM hItem) const;
    BOOL SetItemText(HTREEITEM hItem, LPCTSTR lpszItem);
    BOOL GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const;
    BOOL SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage);
    UINT GetItemState(HTREEITEM hItem, UINT nStateMask) const;
    BOOL SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask);
    DWORD_PTR GetItemData(HTREEITEM hItem) const;
    BOOL SetItemData(HTREEITEM hItem, DWORD_PTR dwData);
    BOOL GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const;
    BOOL ItemHasChildren(HTREEITEM hItem) const { return GetChildItem(hItem) != nullptr; }
    HTREEITEM InsertItem(LPTVINSERTSTRUCT lpInsertStruct)
    {
        return reinterpret_cast<HTREEITEM>(SendMessage(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(lpInsertStruct)));
    }
    HTREEITEM InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState, UINT nStateMask,
                         LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter);
    HTREEITEM InsertItem(LPCTSTR lpszItem, HTREEITEM hParent = TVI_ROOT, HTREEITEM hInsertAfter = TVI_LAST);
    HTREEITEM InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent = TVI_ROOT,
                         HTREEITEM hInsertAfter = TVI_LAST);
    BOOL DeleteItem(HTREEITEM hItem)
    {
        return static_cast<BOOL>(SendMessage(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(hItem)));
    }
    BOOL DeleteAllItems() { return DeleteItem(TVI_ROOT); }
    BOOL Expand(HTREEITEM hItem, UINT nCode)
    {
        return static_cast<BOOL>(SendMessage(TVM_EXPAND, nCode, reinterpret_cast<LPARAM>(hItem)));
    }
    BOOL EnsureVisible(HTREEITEM hItem)
    {
        return static_cast<BOOL>(SendMessage(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(hItem)));
    }
    HTREEITEM HitTest(CPoint pt, UINT* pFlags = nullptr) const;
    HTREEITEM HitTest(TVHITTESTINFO* pHitTestInfo) const
    {
        return reinterpret_cast<HTREEITEM>(SendMessage(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
    }
    BOOL SortChildren(HTREEITEM hItem)
    {
        return static_cast<BOOL>(SendMessage(TVM_SORTCHILDREN, 0, reinterpret_cast<LPARAM>(hItem)));
    }
    BOOL SortChildrenCB(LPTVSORTCB pSort)
    {
        return static_cast<BOOL>(SendMessage(TVM_SORTCHILDRENCB, 0, reinterpret_cast<LPARAM>(pSort)));
    }
};

class AFX_EXPORTED CTabCtrl : public CWnd
{
    DECLARE_DYNAMIC(CTabCtrl)

public:
    CTabCtrl() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetItemCount() const { return static_cast<int>(SendMessage(TCM_GETITEMCOUNT)); }
    CImageList* SetImageList(CImageList* pImageList);
    CImageList* GetImageList() const;
    BOOL GetItem(int nItem, TCITEM* pTabCtrlItem) const
    {
        return static_cast<BOOL>(
            SendMessage(TCM_GETITEMW, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pTabCtrlItem)));
    }
    BOOL SetItem(int nItem, TCITEM* pTabCtrlItem)
    {
        return static_cast<BOOL>(
            SendMessage(TCM_SETITEMW, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pTabCtrlItem)));
    }
    LONG InsertItem(int nItem, TCITEM* pTabCtrlItem)
    {
        return static_cast<LONG>(
            SendMessage(TCM_INSERTITEMW, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(pTabCtrlItem)));
    }
    LONG InsertItem(int nItem, LPCTSTR lpszItem);
    LONG InsertItem(int nItem, LPCTSTR lpszItem, int nImage);
    BOOL DeleteItem(int nItem) { return static_cast<BOOL>(SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(nItem))); }
    BOOL DeleteAllItems() { return static_cast<BOOL>(SendMessage(TCM_DELETEALLITEMS)); }
    BOOL GetItemRect(int nItem, LPRECT lpRect) const
    {
        return static_cast<BOOL>(
            SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpRect)));
    }
    int GetCurSel() const { return static_cast<int>(SendMessage(TCM_GETCURSEL)); }
    int SetCurSel(int nItem) { return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(nItem))); }
    int GetCurFocus() const { return static_cast<int>(SendMessage(TCM_GETCURFOCUS)); }
    void SetCurFocus(int nItem) { SendMessage(TCM_SETCURFOCUS, static_cast<WPARAM>(nItem)); }
    void AdjustRect(BOOL bLarger, LPRECT lpRect)
    {
        SendMessage(TCM_ADJUSTRECT, static_cast<WPARAM>(bLarger), reinterpret_cast<LPARAM>(lpRect));
    }
    int HitTest(TCHITTESTINFO* pHitTestInfo) const
    {
        return static_cast<int>(SendMessage(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(pHitTestInfo)));
    }
    int GetRowCount() const { return static_cast<int>(SendMessage(TCM_GETROWCOUNT)); }
    void SetPadding(CSize size) { SendMessage(TCM_SETPADDING, 0, MAKELPARAM(size.cx, size.cy)); }
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_EXPORTED CStatusBarCtrl : public CWnd
{
    DECLARE_DYNAMIC(CStatusBarCtrl)

public:
    CStatusBarCtrl() = default;

    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    BOOL SetText(LPCTSTR lpszText, int nPane, int nType)
    {
        return static_cast<BOOL>(
            SendMessage(SB_SETTEXTW, static_cast<WPARAM>(nPane | nType), reinterpret_cast<LPARAM>(lpszText)));
    }
    CString GetText(int nPane, int* pType = nullptr) const;
    BOOL SetParts(int nParts, int* pWidths)
    {
        return static_cast<BOOL>(
            SendMessage(SB_SETPARTS, static_cast<WPARAM>(nParts), reinterpret_cast<LPARAM>(pWidths)));
    }
    BOOL GetRect(int nPane, LPRECT lpRect) const
    {
        return static_cast<BOOL>(SendMessage(SB_GETRECT, static_cast<WPARAM>(nPane), reinterpret_cast<LPARAM>(lpRect)));
    }
    BOOL SetSimple(BOOL bSimple = TRUE)
    {
        return static_cast<BOOL>(SendMessage(SB_SIMPLE, static_cast<WPARAM>(bSimple)));
    }
};
