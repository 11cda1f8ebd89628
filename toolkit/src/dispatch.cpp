// How a message finds its handler.
#include <afxwin.h>

#include "thread_state.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindEntry(UINT message, UINT code, UINT id) const
{
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap == nullptr ? nullptr : map->pfnGetBaseMap()) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry) {
            const UINT handled = entry->pRegistered == nullptr ? entry->nMessage : *entry->pRegistered;
            if (handled == message && LOWORD(entry->nCode) == LOWORD(code) && id >= entry->nID && id <= entry->nLastID)
                return entry;
        }
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO*)
{
    const UINT message = HIWORD(nCode) == 0 ? WM_COMMAND : HIWORD(nCode);
    const AFX_MSGMAP_ENTRY* entry = FindEntry(message, LOWORD(nCode), nID);
    if (entry == nullptr)
        return FALSE;
    const auto notice = static_cast<AFX_NOTIFY*>(pExtra);
    AFX_CALL call = {message, nID, notice == nullptr ? 0 : reinterpret_cast<LPARAM>(notice->pNMHDR), 0, nID};
    const BOOL handled = entry->pfn(this, call);
    if (notice != nullptr && notice->pResult != nullptr)
        *notice->pResult = call.result;
    return handled;
}

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_CTLCOLOR()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
ON_WM_COMPAREITEM()
ON_WM_DELETEITEM()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_PARENTNOTIFY()
END_MESSAGE_MAP()

namespace
{

bool asksForColours(UINT message)
{
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

/// Notifications of controls that UpdateData fills or reads are not caused by the user, and reach no handler.
bool isExchanging(HWND window)
{
    return threadState().exchanging == window;
}

/// The message that represents this one in the maps.
UINT mapped(UINT message)
{
    if (asksForColours(message))
        return WM_CTLCOLOR;
    if (message > WM_REFLECT_BASE && asksForColours(message - WM_REFLECT_BASE))
        return WM_CTLCOLOR + WM_REFLECT_BASE;
    return message;
}

} // namespace

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    CWnd* window = CWnd::FromHandlePermanent(hWnd);
    if (window == nullptr)
        return ::DefWindowProcW(hWnd, message, wParam, lParam);
    ThreadState& thread = threadState();
    const DWORD point = ::GetMessagePos();
    const MSG now = {hWnd,
                     message,
                     wParam,
                     lParam,
                     static_cast<DWORD>(::GetMessageTime()),
                     {static_cast<short>(LOWORD(point)), static_cast<short>(HIWORD(point))}};
    const MSG before = std::exchange(thread.message, now);
    // The handler may delete the window's object: nothing below this line touches it.
    const LRESULT result = guarded(window->m_pModuleState, now, [window, message, wParam, lParam] {
        return window->WindowProc(message, wParam, lParam);
    });
    thread.message = before;
    return result;
}

LRESULT resultOfException(CException* exception, const MSG& message)
{
    CWinThread* thread = AfxGetThread();
    const LRESULT result = thread == nullptr || exception == nullptr
                               ? AfxProcessWndProcException(exception, &message)
                               : thread->ProcessWndProcException(exception, &message);
    if (exception != nullptr)
        exception->Delete();
    return result;
}

LRESULT AFXAPI AfxProcessWndProcException(CException* e, const MSG* pMsg)
{
    if (pMsg->message == WM_CREATE)
        return -1;
    if (pMsg->message == WM_PAINT) // or it would be sent again at once
        ::ValidateRect(pMsg->hwnd, nullptr);
    else if (e != nullptr && !e->IsKindOf(RUNTIME_CLASS(CUserException)))
        e->ReportError(MB_ICONEXCLAMATION);
    return 0;
}

const MSG* CWnd::GetCurrentMessage()
{
    return &threadState().message;
}

LRESULT CWnd::Default()
{
    const MSG& message = threadState().message;
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_pfnSuper == nullptr ? ::DefWindowProcW(m_hWnd, message, wParam, lParam)
                                 : ::CallWindowProcW(m_pfnSuper, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) ? result : DefWindowProc(message, wParam, lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    LRESULT result = 0;
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam))
            return FALSE;
        result = 1;
    } else if (message == WM_NOTIFY) {
        if (!OnNotify(wParam, lParam, &result))
            return FALSE;
    } else {
        const AFX_MSGMAP_ENTRY* entry = FindEntry(mapped(message), 0, 0);
        AFX_CALL call = {message, wParam, lParam, 0, 0};
        if (entry == nullptr || !entry->pfn(this, call))
            return FALSE;
        result = call.result;
    }
    if (pResult != nullptr)
        *pResult = result;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const HWND control = reinterpret_cast<HWND>(lParam);
    if (control != nullptr && isExchanging(m_hWnd))
        return TRUE;
    if (control != nullptr && ReflectLastMsg(control))
        return TRUE;
    return OnCmdMsg(LOWORD(wParam), control == nullptr ? CN_COMMAND : HIWORD(wParam), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult)
{
    NMHDR* header = reinterpret_cast<NMHDR*>(lParam);
    if (isExchanging(m_hWnd))
        return TRUE;
    if (ReflectLastMsg(header->hwndFrom, pResult))
        return TRUE;
    AFX_NOTIFY notice = {pResult, header};
    const UINT id = static_cast<UINT>(::GetDlgCtrlID(header->hwndFrom));
    return OnCmdMsg(id, MAKELONG(header->code, WM_NOTIFY), &notice, nullptr);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult)
{
    CWnd* child = FromHandlePermanent(hWndChild);
    return child != nullptr && child->SendChildNotifyLastMsg(pResult);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* pResult)
{
    const MSG message = threadState().message;
    return OnChildNotify(message.message, message.wParam, message.lParam, pResult);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    switch (message) {
    case WM_COMMAND: return OnCmdMsg(0, MAKELONG(HIWORD(wParam), WM_COMMAND + WM_REFLECT_BASE), nullptr, nullptr);
    case WM_NOTIFY: {
        AFX_NOTIFY notice = {pResult, reinterpret_cast<NMHDR*>(lParam)};
        return OnCmdMsg(0, MAKELONG(notice.pNMHDR->code, WM_NOTIFY + WM_REFLECT_BASE), &notice, nullptr);
    }
    default: return OnWndMsg(WM_REFLECT_BASE + message, wParam, lParam, pResult);
    }
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT)
{
    LRESULT brush = 0;
    return reinterpret_cast<HBRUSH>(pWnd != nullptr && pWnd->SendChildNotifyLastMsg(&brush) ? brush : Default());
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT item)
{
    if (item->CtlType == ODT_MENU || !ReflectLastMsg(item->hwndItem))
        Default();
}

void CWnd::OnMeasureItem(int id, LPMEASUREITEMSTRUCT item)
{
    const CWnd* control = item->CtlType == ODT_MENU ? nullptr : GetDescendantWindow(id, TRUE);
    if (control == nullptr || !ReflectLastMsg(control->m_hWnd))
        Default();
}

int CWnd::OnCompareItem(int, LPCOMPAREITEMSTRUCT item)
{
    LRESULT order = 0;
    return static_cast<int>(ReflectLastMsg(item->hwndItem, &order) ? order : Default());
}

void CWnd::OnDeleteItem(int, LPDELETEITEMSTRUCT item)
{
    if (!ReflectLastMsg(item->hwndItem))
        Default();
}

void CWnd::OnHScroll(UINT, UINT, CScrollBar* bar)
{
    if (bar == nullptr || !ReflectLastMsg(reinterpret_cast<HWND>(threadState().message.lParam)))
        Default();
}

void CWnd::OnVScroll(UINT, UINT, CScrollBar* bar)
{
    if (bar == nullptr || !ReflectLastMsg(reinterpret_cast<HWND>(threadState().message.lParam)))
        Default();
}

void CWnd::OnParentNotify(UINT message, LPARAM lParam)
{
    const bool aboutChild = LOWORD(message) == WM_CREATE || LOWORD(message) == WM_DESTROY;
    if (!aboutChild || !ReflectLastMsg(reinterpret_cast<HWND>(lParam)))
        Default();
}

void CWnd::SendMessageToDescendants(UINT message, WPARAM wParam, LPARAM lParam, BOOL bDeep, BOOL bOnlyPerm)
{
    HWND next = nullptr;
    for (HWND child = ::GetTopWindow(m_hWnd); child != nullptr; child = next) {
        next = ::GetWindow(child, GW_HWNDNEXT);
        CWnd* object = FromHandlePermanent(child);
        if (!bOnlyPerm || object != nullptr)
            ::SendMessageW(child, message, wParam, lParam);
        if (bDeep && ::IsWindow(child))
            FromHandle(child)->SendMessageToDescendants(message, wParam, lParam, bDeep, bOnlyPerm);
    }
}
