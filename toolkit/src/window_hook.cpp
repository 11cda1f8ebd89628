#include "window_hook.h"

#include "thread_state.h"

namespace
{

/// Windows that the system itself creates along with ours.
bool isInputMethod(HWND window)
{
    wchar_t name[16];
    ::GetClassNameW(window, name, _countof(name));
    return _wcsicmp(name, L"IME") == 0 || _wcsnicmp(name, L"MSCTFIME", 8) == 0;
}

void registerCommonControls()
{
    static const bool done = [] {
        const INITCOMMONCONTROLSEX all = {sizeof all, ICC_WIN95_CLASSES | ICC_DATE_CLASSES | ICC_USEREX_CLASSES |
                                                          ICC_COOL_CLASSES | ICC_STANDARD_CLASSES | ICC_LINK_CLASS};
        return ::InitCommonControlsEx(&all) != FALSE;
    }();
    static_cast<void>(done);
}

} // namespace

WindowHook::WindowHook(CWnd* window) : m_window(window), m_outer(threadState().hook)
{
    registerCommonControls();
    threadState().hook = this;
    m_hook = ::SetWindowsHookExW(WH_CBT, &hook, nullptr, ::GetCurrentThreadId());
}

WindowHook::~WindowHook()
{
    ::UnhookWindowsHookEx(m_hook);
    threadState().hook = m_outer;
}

LRESULT CALLBACK WindowHook::hook(int code, WPARAM wParam, LPARAM lParam)
{
    WindowHook* waiting = threadState().hook;
    if (waiting == nullptr)
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    const HHOOK own = waiting->m_hook;
    const HWND created = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND && waiting->m_window != nullptr && !isInputMethod(created)) {
        const CREATESTRUCTW* made = reinterpret_cast<CBT_CREATEWNDW*>(lParam)->lpcs;
        waiting->m_place = CPoint(made->x, made->y);
        CWnd* window = std::exchange(waiting->m_window, nullptr);
        window->Attach(created);
        window->hookSubclass();
    }
    return ::CallNextHookEx(own, code, wParam, lParam);
}
