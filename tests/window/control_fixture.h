// A control in a window of its own, and what tests do with it.
#pragma once

#include <gtest/gtest.h>

#include <afxwin.h>

#include "window/device_pixels.h"
#include "window/free_handles.h"

#include <utility>
#include <vector>

namespace control_test
{

inline constexpr UINT kControlId = WM_APP + 77; ///< the control's id is the number of the message to its parent

/// A window that keeps what its control tells it.
class Parent : public CWnd
{
public:
    std::vector<std::pair<WPARAM, LPARAM>> notifications;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == kControlId)
            notifications.emplace_back(wParam, lParam);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

/// Handles the messages that wait. They may not end: a window that paints nothing stays invalid.
inline void pump()
{
    MSG message;
    for (int i = 0; i < 200 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

inline LPARAM at(int x, int y)
{
    return MAKELPARAM(x, y);
}

/// What a window shows, top row first.
inline VEK::CPixels pixelsOf(CWnd& window)
{
    CRect area;
    window.GetClientRect(&area);
    CClientDC dc(&window);
    return devicePixels(dc.m_hDC, area.Width(), area.Height());
}

/// How many pixels differ; all of them for another size.
inline int differing(const VEK::CPixels& a, const VEK::CPixels& b)
{
    if (a.data.size() != b.data.size())
        return static_cast<int>(std::max(a.data.size(), b.data.size()));
    int count = 0;
    for (std::size_t i = 0; i < a.data.size(); ++i)
        count += a.data[i] != b.data[i];
    return count;
}

/// @tparam Window class of the control
template <class Window>
class Control : public testing::Test
{
protected:
    /// Opens the control in the corner of its parent.
    void open(int width, int height)
    {
        ASSERT_TRUE(parent.CreateEx(0, AfxRegisterWndClass(0), L"test", WS_POPUP | WS_VISIBLE, CRect(0, 0, 600, 500),
                                    nullptr, 0));
        ASSERT_TRUE(control.Create(AfxRegisterWndClass(CS_DBLCLKS), L"", WS_CHILD | WS_VISIBLE,
                                   CRect(0, 0, width, height), &parent, kControlId));
        pump();
    }
    void TearDown() override
    {
        control.DestroyWindow();
        parent.DestroyWindow();
        pump();
    }

    LRESULT mouse(UINT message, int x, int y, UINT flags = 0) { return control.SendMessage(message, flags, at(x, y)); }
    LRESULT wheel(int delta, int x, int y, UINT flags = 0)
    {
        CPoint mouse(x, y);
        control.ClientToScreen(&mouse);
        return control.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(flags, delta), at(mouse.x, mouse.y));
    }
    void click(int x, int y)
    {
        mouse(WM_LBUTTONDOWN, x, y, MK_LBUTTON);
        mouse(WM_LBUTTONUP, x, y);
        pump();
    }

    /// A pixel of the painted window, without opacity.
    unsigned pixel(int x, int y)
    {
        control.UpdateWindow();
        return pixelsOf(control).at(x, y) & 0xFFFFFF;
    }

    Parent parent;
    Window control;
};

} // namespace control_test
