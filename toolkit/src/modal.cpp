// Message loops: that of a program and those of modal windows, which may be nested.
#include <afxwin.h>

#include "thread_state.h"
#include "user_seam.h"

BOOL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND window = pMsg->hwnd; window != nullptr; window = window == hWndStop ? nullptr : ::GetParent(window)) {
        CWnd* object = FromHandlePermanent(window);
        BOOL taken = object != nullptr; // and stays so after an exception
        if (object != nullptr)
            guarded(object->m_pModuleState, *pMsg, [&] { return taken = object->PreTranslateMessage(pMsg); });
        if (taken)
            return TRUE;
    }
    return FALSE;
}

BOOL CWnd::PreTranslateMessage(MSG* pMsg)
{
    FilterToolTipMessage(pMsg);
    return FALSE;
}

BOOL CWnd::PreTranslateInput(LPMSG lpMsg)
{
    const bool key = lpMsg->message >= WM_KEYFIRST && lpMsg->message <= WM_KEYLAST;
    const bool pointer = lpMsg->message >= WM_MOUSEFIRST && lpMsg->message <= WM_MOUSELAST;
    return (key || pointer) && IsDialogMessage(lpMsg);
}

int CWnd::RunModalLoop(DWORD dwFlags)
{
    const ModalLevel level;
    const HWND parent = ::GetParent(m_hWnd);
    const bool tellsParent = (dwFlags & MLF_NOIDLEMSG) == 0 && parent != nullptr;
    bool show = (dwFlags & MLF_SHOWONIDLE) != 0 && (GetStyle() & WS_VISIBLE) == 0;
    bool idle = true;
    toolkit::User* user = toolkit::userInPlace();
    CDialog* unanswered = user == nullptr ? nullptr : DYNAMIC_DOWNCAST(CDialog, this);
    const bool prepared = std::exchange(m_modalSoon, false);
    m_modal = m_modal || !prepared;
    while (ContinueModal() && m_hWnd != nullptr) {
        MSG message;
        const bool waits = ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        // A window that never validates itself gets WM_PAINT for ever, which must not keep the loop from being idle.
        const bool busy = waits && isNews(message);
        if (!busy && show) {
            show = false;
            ShowWindow(SW_SHOWNORMAL);
            UpdateWindow();
        } else if (!busy && unanswered != nullptr) {
            user->dialogWaits(*std::exchange(unanswered, nullptr));
        } else if (!busy && idle) {
            idle = false;
            threadState().forgetTemporary();
            if (tellsParent)
                ::SendMessageW(parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
        } else if (!waits) {
            ::WaitMessage();
        } else if (AfxPumpMessage()) {
            idle = idle || busy;
        } else {
            ::PostQuitMessage(static_cast<int>(threadState().quitCode)); // for the outer loop
            m_modal = false;
            return -1;
        }
    }
    const bool ended = !m_modal; // by EndModalLoop and not by the window's destruction
    m_modal = false;
    return ended ? m_nModalResult : -1;
}

void CWnd::EndModalLoop(int nResult)
{
    m_nModalResult = nResult;
    if (m_modal) {
        m_modal = false;
        PostMessage(WM_NULL); // wakes the loop
    }
}

BOOL AFXAPI AfxPumpMessage()
{
    CWinThread* thread = AfxGetThread();
    return thread == nullptr ? pumpMessage(nullptr) : thread->PumpMessage();
}

BOOL pumpMessage(CWinThread* thread)
{
    MSG message;
    if (::GetMessageW(&message, nullptr, 0, 0) <= 0) {
        threadState().quitCode = message.wParam;
        return FALSE;
    }
    BOOL taken = TRUE; // and stays so after an exception
    if (thread == nullptr)
        taken = CWnd::WalkPreTranslateTree(nullptr, &message);
    else
        guarded(thread->m_pModuleState, message, [&] { return taken = thread->PreTranslateMessage(&message); });
    if (!taken) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return TRUE;
}

bool isNews(const MSG& message)
{
    constexpr UINT caretBlinks = 0x0118; // a timer of the system
    if (message.message != WM_MOUSEMOVE && message.message != WM_NCMOUSEMOVE)
        return message.message != WM_PAINT && message.message != caretBlinks;
    CPoint& before = threadState().pointer;
    return std::exchange(before, CPoint(message.pt)) != message.pt;
}
