#include <afxwin.h>

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

CScrollBar* AfxScrollBar(LPARAM window)
{
    return static_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(window)));
}

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_STATICW, lpszText, dwStyle, rect, pParentWnd, nID);
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_BUTTONW, lpszCaption, dwStyle, rect, pParentWnd, nID);
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_EDITW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CListBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_LISTBOXW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_COMBOBOXW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CScrollBar::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    return CWnd::Create(WC_SCROLLBARW, nullptr, dwStyle, rect, pParentWnd, nID);
}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

namespace
{

/// The messages of a box that its owner draws, to the box's own members. False for other messages.
template <class Box>
bool ownerDrawn(Box& box, UINT message, LPARAM lParam, LRESULT* result)
{
    switch (message) {
    case WM_DRAWITEM: box.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)); return true;
    case WM_MEASUREITEM: box.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)); return true;
    case WM_DELETEITEM: box.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)); return true;
    case WM_COMPAREITEM:
        if (result != nullptr)
            *result = box.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
        return true;
    default: return false;
    }
}

} // namespace

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ownerDrawn(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return ownerDrawn(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

void CListBox::GetText(int nIndex, CString& rString) const
{
    const int length = GetTextLen(nIndex);
    GetText(nIndex, rString.GetBufferSetLength(length));
}

UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    const LRESULT found = SendMessage(LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y));
    bOutside = HIWORD(found) != 0;
    return LOWORD(found);
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    const int length = GetLBTextLen(nIndex);
    GetLBText(nIndex, rString.GetBufferSetLength(length));
}
