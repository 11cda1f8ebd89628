// Tips for the parts of a window: one tip window that follows the part under the pointer.
#include <afxwin.h>

#include "thread_state.h"

#include <cstdlib>

class CWnd::ToolTips
{
public:
    explicit ToolTips(HWND owner) : m_owner(owner) {}
    ~ToolTips()
    {
        if (m_tip != nullptr)
            ::DestroyWindow(m_tip);
        if (threadState().tip == m_tip)
            threadState().tip = nullptr;
    }
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;

    void follow(CWnd& window, const MSG& message)
    {
        if (m_tip == nullptr) {
            m_tip = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                      0, 0, 0, 0, m_owner, nullptr, nullptr, nullptr);
        }
        if (threadState().tip != m_tip) { // the pointer has come from a window with tips of its own
            CWnd::CancelToolTips();
            threadState().tip = m_tip;
        }
        CPoint point(message.pt);
        window.ScreenToClient(&point);
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = m_owner;
        tool.uId = static_cast<UINT_PTR>(-1);
        const INT_PTR part = window.OnToolHitTest(point, &tool);
        if (part != m_part) {
            if (m_part != -1)
                send(TTM_DELTOOLW, &m_tool);
            m_part = part;
            m_tool = tool;
            if (part != -1)
                send(TTM_ADDTOOLW, &m_tool);
        }
        if (part != -1 && tool.lpszText != LPSTR_TEXTCALLBACKW)
            std::free(tool.lpszText); // the tip has a copy
        m_tool.lpszText = LPSTR_TEXTCALLBACKW;
        if (m_part != -1) {
            MSG relayed = message;
            relayed.hwnd = (m_tool.uFlags & TTF_IDISHWND) != 0 ? reinterpret_cast<HWND>(m_tool.uId) : m_tool.hwnd;
            CPoint local(message.pt);
            ::ScreenToClient(relayed.hwnd, &local);
            relayed.lParam = MAKELPARAM(local.x, local.y);
            send(TTM_RELAYEVENT, &relayed);
        }
    }

private:
    void send(UINT message, void* what) { ::SendMessageW(m_tip, message, 0, reinterpret_cast<LPARAM>(what)); }

    HWND m_owner, m_tip = nullptr;
    INT_PTR m_part = -1;
    TOOLINFOW m_tool = {};
};

BOOL CWnd::EnableToolTips(BOOL bEnable)
{
    m_toolTips = bEnable ? std::make_shared<ToolTips>(m_hWnd) : nullptr;
    return TRUE;
}

void CWnd::CancelToolTips(BOOL)
{
    const HWND tip = threadState().tip;
    if (tip != nullptr)
        ::SendMessageW(tip, TTM_POP, 0, 0);
}

INT_PTR CWnd::OnToolHitTest(CPoint point, TOOLINFO* pTI) const
{
    const HWND child = ::ChildWindowFromPointEx(m_hWnd, point, CWP_SKIPINVISIBLE);
    if (child == nullptr || child == m_hWnd)
        return -1;
    if (pTI != nullptr) {
        pTI->hwnd = m_hWnd;
        pTI->uId = reinterpret_cast<UINT_PTR>(child);
        pTI->uFlags |= TTF_IDISHWND;
        pTI->lpszText = LPSTR_TEXTCALLBACKW;
    }
    return ::GetDlgCtrlID(child);
}

void CWnd::FilterToolTipMessage(MSG* pMsg)
{
    if (m_toolTips == nullptr)
        return;
    if (pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST)
        CancelToolTips(TRUE);
    else if (pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST)
        m_toolTips->follow(*this, *pMsg);
}
