#include <afxwin.h>

#include "thread_state.h"

IMPLEMENT_DYNCREATE(CMenu, CObject)

CMenu* CMenu::FromHandle(HMENU hMenu)
{
    ThreadState& thread = threadState();
    return thread.menus.object(hMenu, thread.level);
}

BOOL CMenu::Attach(HMENU hMenu)
{
    ASSERT(m_hMenu == nullptr);
    if (hMenu == nullptr)
        return FALSE;
    m_hMenu = hMenu;
    threadState().menus.enter(hMenu, this);
    return TRUE;
}

HMENU CMenu::Detach()
{
    const HMENU menu = m_hMenu;
    if (menu != nullptr)
        threadState().menus.remove(menu, this);
    m_hMenu = nullptr;
    return menu;
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
