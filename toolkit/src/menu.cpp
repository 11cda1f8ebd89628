#include <afxwin.h>

#include "thread_state.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

CMenu* CMenu::FromHandle(HMENU hMenu)
{
    return objectOf<CMenu>(hMenu);
}

BOOL CMenu::Attach(HMENU hMenu)
{
    return attachHandle(*this, m_hMenu, hMenu);
}

HMENU CMenu::Detach()
{
    return detachHandle(*this, m_hMenu);
}

BOOL CMenu::DestroyMenu()
{
    return m_hMenu != nullptr && ::DestroyMenu(Detach());
}

BOOL CMenu::LoadMenu(LPCTSTR lpszResourceName)
{
    return Attach(::LoadMenuW(AfxFindResourceHandle(lpszResourceName, RT_MENU), lpszResourceName));
}

int CMenu::GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const
{
    const int length = ::GetMenuStringW(m_hMenu, nIDItem, nullptr, 0, nFlags);
    ::GetMenuStringW(m_hMenu, nIDItem, rString.GetBufferSetLength(length), length + 1, nFlags);
    return rString.GetLength();
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT)
{
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd->m_hWnd, nullptr);
}
