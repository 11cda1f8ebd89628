#include <afxcmn.h>

#include "owner_drawn.h"
#include "thread_state.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)
IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)
IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)

// A temporary object is a plain CWnd whatever it is cast to.
static_assert(sizeof(CHeaderCtrl) == sizeof(CWnd) && sizeof(CListCtrl) == sizeof(CWnd) &&
              sizeof(CTreeCtrl) == sizeof(CWnd) && sizeof(CTabCtrl) == sizeof(CWnd) &&
              sizeof(CStatusBarCtrl) == sizeof(CWnd));

CImageList* CImageList::FromHandlePermanent(HIMAGELIST hImageList)
{
    return permanentObject<CImageList>(hImageList);
}

CImageList* CImageList::FromHandle(HIMAGELIST hImageList)
{
    return objectOf<CImageList>(hImageList);
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    return attachHandle(*this, m_hImageList, hImageList);
}

HIMAGELIST CImageList::Detach()
{
    return detachHandle(*this, m_hImageList);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Attach(::ImageList_LoadImageW(AfxFindResourceHandle(lpszBitmapID, RT_BITMAP), lpszBitmapID, cx, nGrow,
                                         crMask, IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

namespace
{

HIMAGELIST handleOf(const CImageList* list)
{
    return list == nullptr ? nullptr : list->GetSafeHandle();
}

/// Reads a text of unknown length: `read` fills a buffer and returns the length used.
template <class Read>
CString textBy(Read read)
{
    CString text;
    int room = 128, length = 0;
    do {
        room *= 2;
        length = read(text.GetBufferSetLength(room), room);
    } while (length >= room - 1 && room < 1 << 20);
    text.ReleaseBuffer(length);
    return text;
}

} // namespace

BOOL CHeaderCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return drawnByOwner(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return drawnByOwner(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CTabCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return drawnByOwner(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

// Lists

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageList)
{
    return CImageList::FromHandle(ask<HIMAGELIST>(LVM_SETIMAGELIST, nImageList, handleOf(pImageList)));
}

CImageList* CListCtrl::GetImageList(int nImageList) const
{
    return CImageList::FromHandle(ask<HIMAGELIST>(LVM_GETIMAGELIST, nImageList));
}

namespace
{

LVITEMW listItem(UINT mask, int row, int column, LPCTSTR text = nullptr, int image = 0, UINT state = 0,
                 UINT stateMask = 0, LPARAM data = 0)
{
    LVITEMW item = {};
    item.mask = mask;
    item.iItem = row;
    item.iSubItem = column;
    item.state = state;
    item.stateMask = stateMask;
    item.pszText = const_cast<LPTSTR>(text);
    item.iImage = image;
    item.lParam = data;
    return item;
}

} // namespace

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                        LPARAM lParam)
{
    return SetItem(nItem, nSubItem, nMask, lpszItem, nImage, nState, nStateMask, lParam, 0);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                        LPARAM lParam, int nIndent)
{
    LVITEMW item = listItem(nMask, nItem, nSubItem, lpszItem, nImage, nState, nStateMask, lParam);
    item.iIndent = nIndent;
    return SetItem(&item);
}

int CListCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, UINT nState, UINT nStateMask, int nImage,
                          LPARAM lParam)
{
    const LVITEMW item = listItem(nMask, nItem, 0, lpszItem, nImage, nState, nStateMask, lParam);
    return InsertItem(&item);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    return InsertItem(LVIF_TEXT, nItem, lpszItem, 0, 0, 0, 0);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    return InsertItem(LVIF_TEXT | LVIF_IMAGE, nItem, lpszItem, 0, 0, nImage, 0);
}

POSITION CListCtrl::GetFirstSelectedItemPosition() const
{
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(GetNextItem(-1, LVNI_SELECTED)) + 1);
}

int CListCtrl::GetNextSelectedItem(POSITION& pos) const
{
    const int item = static_cast<int>(reinterpret_cast<INT_PTR>(pos)) - 1;
    pos = reinterpret_cast<POSITION>(static_cast<INT_PTR>(GetNextItem(item, LVNI_SELECTED)) + 1);
    return item;
}

BOOL CListCtrl::GetItemRect(int nItem, LPRECT lpRect, UINT nCode) const
{
    lpRect->left = static_cast<LONG>(nCode);
    return ask<BOOL>(LVM_GETITEMRECT, nItem, lpRect);
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const
{
    CRect rect(nArea, iSubItem, 0, 0);
    if (!ask(LVM_GETSUBITEMRECT, iItem, &rect))
        return FALSE;
    ref = rect;
    return TRUE;
}

int CListCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    LVHITTESTINFO info = {};
    info.pt = pt;
    const int item = HitTest(&info);
    if (pFlags != nullptr)
        *pFlags = info.flags;
    return item;
}

int CListCtrl::InsertColumn(int nCol, LPCTSTR lpszColumnHeading, int nFormat, int nWidth, int nSubItem)
{
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = const_cast<LPTSTR>(lpszColumnHeading);
    column.fmt = nFormat;
    if (nWidth != -1) {
        column.mask |= LVCF_WIDTH;
        column.cx = nWidth;
    }
    if (nSubItem != -1) {
        column.mask |= LVCF_SUBITEM;
        column.iSubItem = nSubItem;
    }
    return InsertColumn(nCol, &column);
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    LVITEMW item = listItem(LVIF_STATE, nItem, 0, nullptr, 0, nState, nMask);
    return SetItemState(nItem, &item);
}

BOOL CListCtrl::SetCheck(int nItem, BOOL fCheck)
{
    return SetItemState(nItem, static_cast<UINT>(INDEXTOSTATEIMAGEMASK(fCheck ? 2 : 1)), LVIS_STATEIMAGEMASK);
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    return textBy([&](LPTSTR buffer, int room) { return GetItemText(nItem, nSubItem, buffer, room); });
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const
{
    LVITEMW item = listItem(LVIF_TEXT, nItem, nSubItem, lpszText);
    item.cchTextMax = nLen;
    return ask<int>(LVM_GETITEMTEXTW, nItem, &item);
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    const LVITEMW item = listItem(LVIF_TEXT, nItem, nSubItem, lpszText);
    return ask<BOOL>(LVM_SETITEMTEXTW, nItem, &item);
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    LVITEMW item = listItem(LVIF_PARAM, nItem, 0);
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CListCtrl::SetItemData(int nItem, DWORD_PTR dwData)
{
    return SetItem(nItem, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(dwData));
}

// Trees

CImageList* CTreeCtrl::SetImageList(CImageList* pImageList, UINT nImageList)
{
    return CImageList::FromHandle(ask<HIMAGELIST>(TVM_SETIMAGELIST, nImageList, handleOf(pImageList)));
}

CImageList* CTreeCtrl::GetImageList(UINT nImageList) const
{
    return CImageList::FromHandle(ask<HIMAGELIST>(TVM_GETIMAGELIST, nImageList));
}

namespace
{

TVITEMW treeItem(HTREEITEM handle, UINT mask, LPCTSTR text = nullptr, int image = 0, int selectedImage = 0,
                 UINT state = 0, UINT stateMask = 0, LPARAM data = 0)
{
    TVITEMW item = {};
    item.mask = mask;
    item.hItem = handle;
    item.pszText = const_cast<LPTSTR>(text);
    item.iImage = image;
    item.iSelectedImage = selectedImage;
    item.state = state;
    item.stateMask = stateMask;
    item.lParam = data;
    return item;
}

} // namespace

BOOL CTreeCtrl::SetItem(HTREEITEM hItem, UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                        UINT nStateMask, LPARAM lParam)
{
    TVITEMW item = treeItem(hItem, nMask | TVIF_HANDLE, lpszItem, nImage, nSelectedImage, nState, nStateMask, lParam);
    return SetItem(&item);
}

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    return textBy([&](LPTSTR buffer, int room) {
        TVITEMW item = treeItem(hItem, TVIF_HANDLE | TVIF_TEXT);
        item.pszText = buffer;
        item.cchTextMax = room;
        return GetItem(&item) ? static_cast<int>(wcslen(item.pszText)) : 0;
    });
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, LPCTSTR lpszItem)
{
    return SetItem(hItem, TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0);
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const
{
    TVITEMW item = treeItem(hItem, TVIF_HANDLE | TVIF_IMAGE | TVIF_SELECTEDIMAGE);
    if (!GetItem(&item))
        return FALSE;
    nImage = item.iImage;
    nSelectedImage = item.iSelectedImage;
    return TRUE;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage)
{
    return SetItem(hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE, nullptr, nImage, nSelectedImage, 0, 0, 0);
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const
{
    return ask<UINT>(TVM_GETITEMSTATE, hItem, nStateMask);
}

BOOL CTreeCtrl::SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask)
{
    return SetItem(hItem, TVIF_STATE, nullptr, 0, 0, nState, nStateMask, 0);
}

BOOL CTreeCtrl::SetCheck(HTREEITEM hItem, BOOL fCheck)
{
    return SetItemState(hItem, static_cast<UINT>(INDEXTOSTATEIMAGEMASK(fCheck ? 2 : 1)), TVIS_STATEIMAGEMASK);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    TVITEMW item = treeItem(hItem, TVIF_HANDLE | TVIF_PARAM);
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR dwData)
{
    return SetItem(hItem, TVIF_PARAM, nullptr, 0, 0, 0, 0, static_cast<LPARAM>(dwData));
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const
{
    *reinterpret_cast<HTREEITEM*>(lpRect) = hItem;
    return ask<BOOL>(TVM_GETITEMRECT, bTextOnly, lpRect);
}

HTREEITEM CTreeCtrl::InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                                UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    TVINSERTSTRUCTW insert = {};
    insert.hParent = hParent;
    insert.hInsertAfter = hInsertAfter;
    insert.item = treeItem(nullptr, nMask, lpszItem, nImage, nSelectedImage, nState, nStateMask, lParam);
    return InsertItem(&insert);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    return InsertItem(TVIF_TEXT, lpszItem, 0, 0, 0, 0, 0, hParent, hInsertAfter);
}

HTREEITEM CTreeCtrl::InsertItem(LPCTSTR lpszItem, int nImage, int nSelectedImage, HTREEITEM hParent,
                                HTREEITEM hInsertAfter)
{
    return InsertItem(TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE, lpszItem, nImage, nSelectedImage, 0, 0, 0, hParent,
                      hInsertAfter);
}

HTREEITEM CTreeCtrl::HitTest(CPoint pt, UINT* pFlags) const
{
    TVHITTESTINFO info = {};
    info.pt = pt;
    const HTREEITEM item = HitTest(&info);
    if (pFlags != nullptr)
        *pFlags = info.flags;
    return item;
}

// Tabs and status bars

CImageList* CTabCtrl::SetImageList(CImageList* pImageList)
{
    return CImageList::FromHandle(ask<HIMAGELIST>(TCM_SETIMAGELIST, 0, handleOf(pImageList)));
}

CImageList* CTabCtrl::GetImageList() const
{
    return CImageList::FromHandle(ask<HIMAGELIST>(TCM_GETIMAGELIST));
}

LONG CTabCtrl::InsertItem(UINT nMask, int nItem, LPCTSTR lpszItem, int nImage, LPARAM lParam)
{
    TCITEMW item = {};
    item.mask = nMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    return InsertItem(nItem, &item);
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    return InsertItem(TCIF_TEXT, nItem, lpszItem, 0, 0);
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    return InsertItem(TCIF_TEXT | TCIF_IMAGE, nItem, lpszItem, nImage, 0);
}

CString CStatusBarCtrl::GetText(int nPane, int* pType) const
{
    CString text;
    const LRESULT length = ask(SB_GETTEXTLENGTHW, nPane);
    ask(SB_GETTEXTW, nPane, text.GetBufferSetLength(LOWORD(length)));
    if (pType != nullptr)
        *pType = HIWORD(length);
    return text;
}
