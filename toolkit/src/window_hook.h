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
    /// Where the system creates the window, in coordinates of its parent or, without a parent, of the screen.
    CPoint place() const { return m_place; }

private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam);

    CWnd* m_window; ///< null once it has its handle
    CPoint m_place;
    WindowHook* m_outer;
    HHOOK m_hook;
};
