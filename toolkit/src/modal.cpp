// Loops of messages: that of a program and those of modal windows, which may run inside one another.
#include <afxwin.h>

#include "thread_state.h"

namespace
{

/// One more loop inside the others, for the life of this object: temporary objects of the outer ones stay.
class Level
{
public:
    Level() { ++threadState().level; }
    ~Level()
    {
        threadState().forgetTemporary();
        --threadState().level;
    }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;
};

} // namespace

BOOL CWnd::WalkPreTranslateTree(HWND hWndStop, MSG* pMsg)
{
    for (HWND window = pMsg->hwnd; window != nullptr; window = ::GetParent(window)) {
        CWnd* object = FromHandlePermanent(window);
        if (object != nullptr && object->PreTranslateMessage(pMsg))
            return TRUE;
        if (window == hWndStop)
            break;
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
    const Level level;
    const HWND parent = ::GetParent(m_hWnd);
    bool show = (dwFlags & MLF_SHOWONIDLE) != 0 && (GetStyle() & WS_VISIBLE) == 0;
    bool tellParent = (dwFlags & MLF_NOIDLEMSG) == 0 && parent != nullptr;
    const bool prepared = std::exchange(m_modalSoon, false);
    m_modal = m_modal || !prepared;
    MSG message;
    while (ContinueModal() && m_hWnd != nullptr) {
        if (::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            if (!AfxPumpMessage()) {
                ::PostQuitMessage(static_cast<int>(threadState().quitCode)); // for the loop outside
                m_modal = false;
                return -1;
            }
            tellParent = (dwFlags & MLF_NOIDLEMSG) == 0 && parent != nullptr;
        } else if (show) {
            show = false;
            ShowWindow(SW_SHOWNORMAL);
            UpdateWindow();
        } else if (tellParent) {
            tellParent = false;
            ::SendMessageW(parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
        } else {
            threadState().forgetTemporary();
            ::WaitMessage();
        }
    }
    const bool ended = !m_modal; // by EndModalLoop and not by the end of the window
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
    const BOOL taken =
        thread == nullptr ? CWnd::WalkPreTranslateTree(nullptr, &message) : thread->PreTranslateMessage(&message);
    if (!taken) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return TRUE;
}
