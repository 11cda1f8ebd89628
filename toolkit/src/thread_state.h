// What the toolkit keeps for each thread: which object stands for which handle.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include "handle_map.h"

/// @name Telling a temporary object its handle
/// @{
inline void hold(CGdiObject& object, HGDIOBJ handle)
{
    object.m_hObject = handle;
}
inline void hold(CDC& context, HDC handle)
{
    context.m_hDC = context.m_hAttribDC = handle;
}
inline void hold(CWnd& window, HWND handle)
{
    window.m_hWnd = handle;
}
inline void hold(CMenu& menu, HMENU handle)
{
    menu.m_hMenu = handle;
}
inline void hold(CImageList& list, HIMAGELIST handle)
{
    list.m_hImageList = handle;
}
/// @}

/// @name Whether the handle of a temporary object still stands for something
/// @{
inline bool alive(const CGdiObject& object)
{
    return ::GetObjectType(object.m_hObject) != 0;
}
inline bool alive(const CDC& context)
{
    return ::GetObjectType(context.m_hDC) != 0;
}
inline bool alive(const CWnd& window)
{
    return ::IsWindow(window.m_hWnd);
}
inline bool alive(const CMenu& menu)
{
    return ::IsMenu(menu.m_hMenu);
}
inline bool alive(const CImageList&)
{
    return true;
} // the system cannot tell
/// @}

struct ThreadState {
    HandleMap<HGDIOBJ, CGdiObject> objects;
    HandleMap<HDC, CDC> contexts;
    HandleMap<HWND, CWnd> windows;
    HandleMap<HMENU, CMenu> menus;
    HandleMap<HIMAGELIST, CImageList> imageLists;
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
        imageLists.forget(level);
    }
};

ThreadState& threadState();

/// Takes one message, asks the thread's object or, without one, the windows alone for PreTranslateMessage, dispatches.
BOOL pumpMessage(CWinThread* thread);
