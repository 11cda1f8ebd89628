// What the toolkit keeps for each thread: which object stands for which handle.
#pragma once

#include <afxwin.h>

#include "handle_map.h"

inline void giveUp(CGdiObject& object)
{
    object.m_hObject = nullptr;
}
inline void giveUp(CWnd& window)
{
    window.m_hWnd = nullptr;
}
inline void giveUp(CMenu& menu)
{
    menu.m_hMenu = nullptr;
}
inline void giveUp(CDC& context)
{
    context.m_hDC = context.m_hAttribDC = nullptr;
}

struct ThreadState {
    HandleMap<HGDIOBJ, CGdiObject> objects;
    HandleMap<HDC, CDC> contexts;
    HandleMap<HWND, CWnd> windows;
    HandleMap<HMENU, CMenu> menus;
    AFX_MODULE_STATE* module = nullptr; ///< null: the program's
    MSG message = {};                   ///< at work in a window's procedure
    class WindowHook* hook = nullptr;   ///< of the window about to be created
    HWND tip = nullptr;                 ///< the tool tip used last
    WPARAM quitCode = 0;                ///< what the last WM_QUIT brought
    int level = 0;                      ///< how many modal loops run inside one another

    void forgetTemporary()
    {
        objects.forget(level);
        contexts.forget(level);
        windows.forget(level);
        menus.forget(level);
    }
};

ThreadState& threadState();

/// Takes one message, asks the thread's object or, without one, the windows alone for PreTranslateMessage, dispatches.
BOOL pumpMessage(CWinThread* thread);
