// Binds an object to the window that the thread creates next, before that window gets its first message.
#pragma once

#include <afxwin.h>

class WindowHook
{
public:
    explicit WindowHook(CWnd* window);
    ~WindowHook();
    WindowHook(const WindowHook&) = delete;
    WindowHook& operator=(const WindowHook&) = delete;

    bool bound() const { return m_window == nullptr; }

private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam);

    CWnd* m_window; ///< null once it has its handle
    WindowHook* m_outer;
    HHOOK m_hook;
};
