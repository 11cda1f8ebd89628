#include <afxcmn.h>

#include "thread_state.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)
IMPLEMENT_DYNAMIC(CHeaderCtrl, CWnd)
IMPLEMENT_DYNAMIC(CListCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTreeCtrl, CWnd)
IMPLEMENT_DYNAMIC(CTabCtrl, CWnd)
IMPLEMENT_DYNAMIC(CStatusBarCtrl, CWnd)

CImageList* CImageList::FromHandlePermanent(HIMAGELIST hImageList)
{
    return threadState().imageLists.permanent(hImageList);
}

CImageList* CImageList::FromHandle(HIMAGELIST hImageList)
{
    ThreadState& thread = threadState();
    return thread.imageLists.object(hImageList, thread.level);
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    ASSERT(m_hImageList == nullptr);
    if (hImageList == nullptr)
        return FALSE;
    m_hImageList = hImageList;
    threadState().imageLists.enter(hImageList, this);
    return TRUE;
}

HIMAGELIST CImageList::Detach()
{
    const HIMAGELIST list = m_hImageList;
    if (list != nullptr)
        threadState().imageLists.remove(list, this);
    m_hImageList = nullptr;
    return list;
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Attach(::ImageList_LoadImageW(AfxFindResourceHandle(lpszBitmapID, RT_BITMAP), lpszBitmapID, cx, nGrow,
                                         crMask, IMAGE_BITMAP, LR_CREATEDIBSECTION));
}

BOOL CHeaderCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_HEADERW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_LISTVIEWW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CTreeCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_TREEVIEWW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CTabCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_TABCONTROLW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CStatusBarCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(STATUSCLASSNAMEW, nullptr, dwStyle, rect, pParentWnd, nID);
}

namespace
{

template <class Control>
bool ownerDrawn(Control& control, UINT message, LPARAM lParam)
{
    if (message != WM_DRAWITEM)
        return false;
    control.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return true;
}

CImageList* listFrom(LRESULT handle)
{
    return CImageList::FromHandle(reinterpret_cast<HIMAGELIST>(handle));
}

LPARAM handleOf(const CImageList* list)
{
    return list == nullptr ? 0 : reinterpret_cast<LPARAM>(list->GetSafeHandle());
}

/// Reads a text whose length is not told beforehand: `read` fills a buffer and gives the length that it took.
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
    return ownerDrawn(*this, message, lParam) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CListCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ownerDrawn(*this, message, lParam) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CTabCtrl::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ownerDrawn(*this, message, lParam) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

// Lists

CImageList* CListCtrl::SetImageList(CImageList* pImageList, int nImageList)
{
    return listFrom(SendMessage(LVM_SETIMAGELIST, static_cast<WPARAM>(nImageList), handleOf(pImageList)));
}

CImageList* CListCtrl::GetImageList(int nImageList) const
{
    return listFrom(SendMessage(LVM_GETIMAGELIST, static_cast<WPARAM>(nImageList)));
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                        LPARAM lParam)
{
    return SetItem(nItem, nSubItem, nMask, lpszItem, nImage, nState, nStateMask, lParam, 0);
}

BOOL CListCtrl::SetItem(int nItem, int nSubItem, UINT nMask, LPCTSTR lpszItem, int nImage, UINT nState, UINT nStateMask,
                        LPARAM lParam, int nIndent)
{
    LVITEMW item = {};
    item.mask = nMask;
    item.iItem = nItem;
    item.iSubItem = nSubItem;
    item.state = nState;
    item.stateMask = nStateMask;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    item.lParam = lParam;
    item.iIndent = nIndent;
    return SetItem(&item);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = nItem;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    return InsertItem(&item);
}

int CListCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    LVITEMW item = {};
    item.mask = LVIF_TEXT | LVIF_IMAGE;
    item.iItem = nItem;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    return InsertItem(&item);
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
    return static_cast<BOOL>(
        SendMessage(LVM_GETITEMRECT, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(lpRect)));
}

BOOL CListCtrl::GetSubItemRect(int iItem, int iSubItem, int nArea, CRect& ref) const
{
    CRect rect(nArea, iSubItem, 0, 0);
    if (!SendMessage(LVM_GETSUBITEMRECT, static_cast<WPARAM>(iItem), reinterpret_cast<LPARAM>(&rect)))
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

CEdit* CListCtrl::EditLabel(int nItem)
{
    return static_cast<CEdit*>(
        FromHandle(reinterpret_cast<HWND>(SendMessage(LVM_EDITLABELW, static_cast<WPARAM>(nItem)))));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() const
{
    const HWND header = reinterpret_cast<HWND>(SendMessage(LVM_GETHEADER));
    if (header != nullptr && m_header.m_hWnd == nullptr && FromHandlePermanent(header) == nullptr)
        m_header.SubclassWindow(header);
    return static_cast<CHeaderCtrl*>(FromHandle(header));
}

BOOL CListCtrl::SetItemState(int nItem, UINT nState, UINT nMask)
{
    LVITEMW item = {};
    item.state = nState;
    item.stateMask = nMask;
    return SetItemState(nItem, &item);
}

CString CListCtrl::GetItemText(int nItem, int nSubItem) const
{
    return textBy([&](LPTSTR buffer, int room) { return GetItemText(nItem, nSubItem, buffer, room); });
}

int CListCtrl::GetItemText(int nItem, int nSubItem, LPTSTR lpszText, int nLen) const
{
    LVITEMW item = {};
    item.iSubItem = nSubItem;
    item.pszText = lpszText;
    item.cchTextMax = nLen;
    return static_cast<int>(SendMessage(LVM_GETITEMTEXTW, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)));
}

BOOL CListCtrl::SetItemText(int nItem, int nSubItem, LPCTSTR lpszText)
{
    LVITEMW item = {};
    item.iSubItem = nSubItem;
    item.pszText = const_cast<LPTSTR>(lpszText);
    return static_cast<BOOL>(
        SendMessage(LVM_SETITEMTEXTW, static_cast<WPARAM>(nItem), reinterpret_cast<LPARAM>(&item)));
}

DWORD_PTR CListCtrl::GetItemData(int nItem) const
{
    LVITEMW item = {};
    item.mask = LVIF_PARAM;
    item.iItem = nItem;
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
    return listFrom(SendMessage(TVM_SETIMAGELIST, nImageList, handleOf(pImageList)));
}

CImageList* CTreeCtrl::GetImageList(UINT nImageList) const
{
    return listFrom(SendMessage(TVM_GETIMAGELIST, nImageList));
}

namespace
{

TVITEMW treeItem(HTREEITEM handle, UINT mask)
{
    TVITEMW item = {};
    item.mask = TVIF_HANDLE | mask;
    item.hItem = handle;
    return item;
}

} // namespace

CString CTreeCtrl::GetItemText(HTREEITEM hItem) const
{
    return textBy([&](LPTSTR buffer, int room) {
        TVITEMW item = treeItem(hItem, TVIF_TEXT);
        item.pszText = buffer;
        item.cchTextMax = room;
        return GetItem(&item) ? static_cast<int>(wcslen(item.pszText)) : 0;
    });
}

BOOL CTreeCtrl::SetItemText(HTREEITEM hItem, LPCTSTR lpszItem)
{
    TVITEMW item = treeItem(hItem, TVIF_TEXT);
    item.pszText = const_cast<LPTSTR>(lpszItem);
    return SetItem(&item);
}

BOOL CTreeCtrl::GetItemImage(HTREEITEM hItem, int& nImage, int& nSelectedImage) const
{
    TVITEMW item = treeItem(hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE);
    if (!GetItem(&item))
        return FALSE;
    nImage = item.iImage;
    nSelectedImage = item.iSelectedImage;
    return TRUE;
}

BOOL CTreeCtrl::SetItemImage(HTREEITEM hItem, int nImage, int nSelectedImage)
{
    TVITEMW item = treeItem(hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE);
    item.iImage = nImage;
    item.iSelectedImage = nSelectedImage;
    return SetItem(&item);
}

UINT CTreeCtrl::GetItemState(HTREEITEM hItem, UINT nStateMask) const
{
    return static_cast<UINT>(SendMessage(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(hItem), nStateMask));
}

BOOL CTreeCtrl::SetItemState(HTREEITEM hItem, UINT nState, UINT nStateMask)
{
    TVITEMW item = treeItem(hItem, TVIF_STATE);
    item.state = nState;
    item.stateMask = nStateMask;
    return SetItem(&item);
}

DWORD_PTR CTreeCtrl::GetItemData(HTREEITEM hItem) const
{
    TVITEMW item = treeItem(hItem, TVIF_PARAM);
    GetItem(&item);
    return static_cast<DWORD_PTR>(item.lParam);
}

BOOL CTreeCtrl::SetItemData(HTREEITEM hItem, DWORD_PTR dwData)
{
    TVITEMW item = treeItem(hItem, TVIF_PARAM);
    item.lParam = static_cast<LPARAM>(dwData);
    return SetItem(&item);
}

BOOL CTreeCtrl::GetItemRect(HTREEITEM hItem, LPRECT lpRect, BOOL bTextOnly) const
{
    *reinterpret_cast<HTREEITEM*>(lpRect) = hItem;
    return static_cast<BOOL>(
        SendMessage(TVM_GETITEMRECT, static_cast<WPARAM>(bTextOnly), reinterpret_cast<LPARAM>(lpRect)));
}

HTREEITEM CTreeCtrl::InsertItem(UINT nMask, LPCTSTR lpszItem, int nImage, int nSelectedImage, UINT nState,
                                UINT nStateMask, LPARAM lParam, HTREEITEM hParent, HTREEITEM hInsertAfter)
{
    TVINSERTSTRUCTW insert = {};
    insert.hParent = hParent;
    insert.hInsertAfter = hInsertAfter;
    insert.item.mask = nMask;
    insert.item.pszText = const_cast<LPTSTR>(lpszItem);
    insert.item.iImage = nImage;
    insert.item.iSelectedImage = nSelectedImage;
    insert.item.state = nState;
    insert.item.stateMask = nStateMask;
    insert.item.lParam = lParam;
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
    return listFrom(SendMessage(TCM_SETIMAGELIST, 0, handleOf(pImageList)));
}

CImageList* CTabCtrl::GetImageList() const
{
    return listFrom(SendMessage(TCM_GETIMAGELIST));
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem)
{
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    return InsertItem(nItem, &item);
}

LONG CTabCtrl::InsertItem(int nItem, LPCTSTR lpszItem, int nImage)
{
    TCITEMW item = {};
    item.mask = TCIF_TEXT | TCIF_IMAGE;
    item.pszText = const_cast<LPTSTR>(lpszItem);
    item.iImage = nImage;
    return InsertItem(nItem, &item);
}

CString CStatusBarCtrl::GetText(int nPane, int* pType) const
{
    CString text;
    const LRESULT length = SendMessage(SB_GETTEXTLENGTHW, static_cast<WPARAM>(nPane));
    SendMessage(SB_GETTEXTW, static_cast<WPARAM>(nPane),
                reinterpret_cast<LPARAM>(text.GetBufferSetLength(LOWORD(length))));
    if (pType != nullptr)
        *pType = HIWORD(length);
    return text;
}
