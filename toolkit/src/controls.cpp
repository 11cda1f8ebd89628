#include <afxwin.h>

#include "owner_drawn.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CListBox, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)
IMPLEMENT_DYNAMIC(CScrollBar, CWnd)

// A temporary object is a plain CWnd whatever it is cast to.
static_assert(sizeof(CStatic) == sizeof(CWnd) && sizeof(CButton) == sizeof(CWnd) && sizeof(CEdit) == sizeof(CWnd) &&
              sizeof(CListBox) == sizeof(CWnd) && sizeof(CComboBox) == sizeof(CWnd) &&
              sizeof(CScrollBar) == sizeof(CWnd));

CScrollBar* AfxScrollBar(LPARAM window)
{
    return static_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(window)));
}

BOOL CStatic::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return drawnByOwner(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return drawnByOwner(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return drawnByOwner(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    return drawnByOwner(*this, message, lParam, pResult) || CWnd::OnChildNotify(message, wParam, lParam, pResult);
}

void CListBox::GetText(int nIndex, CString& rString) const
{
    const int length = GetTextLen(nIndex);
    GetText(nIndex, rString.GetBufferSetLength(length));
}

UINT CListBox::ItemFromPoint(CPoint pt, BOOL& bOutside) const
{
    const LRESULT found = ask(LB_ITEMFROMPOINT, 0, MAKELPARAM(pt.x, pt.y));
    bOutside = HIWORD(found) != 0;
    return LOWORD(found);
}

void CComboBox::GetLBText(int nIndex, CString& rString) const
{
    const int length = GetLBTextLen(nIndex);
    GetLBText(nIndex, rString.GetBufferSetLength(length));
}
