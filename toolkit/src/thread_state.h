// The toolkit's state of each thread, with the objects of its handles.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include "handle_map.h"

#include <functional>
#include <tuple>

/// @name Giving a temporary object its handle
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

/// @name Whether the handle of a temporary object is still valid
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
    ThreadState() = default;
    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;
    ~ThreadState() { endTimer(); }

    std::tuple<HandleMap<HGDIOBJ, CGdiObject>, HandleMap<HDC, CDC>, HandleMap<HWND, CWnd>, HandleMap<HMENU, CMenu>,
               HandleMap<HIMAGELIST, CImageList>>
        maps;
    AFX_MODULE_STATE* module = nullptr; ///< null: the program's
    MSG message = {};                   ///< current in a window procedure
    class WindowHook* hook = nullptr;   ///< of the window about to be created
    HWND tip = nullptr;                 ///< the tool tip used last
    HWND exchanging = nullptr;          ///< the window that exchanges values and ignores its controls meanwhile
    CPoint pointer;                     ///< position of the last mouse message
    WPARAM quitCode = 0;                ///< exit code of the last WM_QUIT
    int level = 0;                      ///< number of nested modal loops
    int depth = 0;                      ///< number of nested calls to handlers
    UINT_PTR timer = 0;                 ///< runs while dead temporary objects must be searched for

    void forgetTemporary()
    {
        std::apply([this](auto&... each) { (each.forget(level), ...); }, maps);
    }
    /// Deletes dead temporary objects in an iteration of the message loop in which no handler can hold one.
    void forgetDeadSoon();
    void endTimer()
    {
        if (timer != 0)
            ::KillTimer(nullptr, std::exchange(timer, 0));
    }
};

ThreadState& threadState();

/// @name Attach, Detach and FromHandle of every handle class
/// @{
template <class Object, class Handle>
bool attachHandle(Object& object, Handle& member, Handle handle)
{
    ASSERT(member == nullptr);
    if (handle == nullptr)
        return false;
    member = handle;
    std::get<HandleMap<Handle, Object>>(threadState().maps).enter(handle, &object);
    return true;
}
template <class Object, class Handle>
Handle detachHandle(Object& object, Handle& member)
{
    if (member != nullptr)
        std::get<HandleMap<Handle, Object>>(threadState().maps).remove(member, &object);
    return std::exchange(member, nullptr);
}
template <class Object, class Handle>
Object* permanentObject(Handle handle)
{
    return std::get<HandleMap<Handle, Object>>(threadState().maps).permanent(handle);
}
/// @param make returns a new object, as a unique pointer, if there is none
template <class Object, class Handle, class Make>
Object* objectOf(Handle handle, Make make)
{
    ThreadState& thread = threadState();
    auto& map = std::get<HandleMap<Handle, Object>>(thread.maps);
    Object* object = map.object(handle, thread.level, make);
    if (map.isFull())
        thread.forgetDeadSoon();
    return object;
}
template <class Object, class Handle>
Object* objectOf(Handle handle)
{
    return objectOf<Object>(handle, [] { return std::make_unique<Object>(); });
}
/// @}

/// One more nested modal loop during the lifetime of this object: temporary objects of the outer ones stay.
class ModalLevel
{
public:
    ModalLevel() { ++threadState().level; }
    ~ModalLevel()
    {
        threadState().forgetTemporary();
        --threadState().level;
    }
    ModalLevel(const ModalLevel&) = delete;
    ModalLevel& operator=(const ModalLevel&) = delete;
};

/// Passes the exception to the application object and deletes it. Null means one that is not the toolkit's.
LRESULT resultOfException(CException* exception, const MSG& message);

/// Runs a call for an object of a module, under the module's state. An exception goes to the application object, or if
/// there is none to the toolkit, as one from a handler of the message.
/// @return the result of the call, or of the exception's handling
template <class Call>
LRESULT guarded(AFX_MODULE_STATE* module, const MSG& message, Call call)
{
    struct Context {
        Call& call;
        const MSG& message;
        LRESULT result;
    } context = {call, message, 0};
    AFX_MANAGE_STATE(module);
    ThreadState& thread = threadState();
    ++thread.depth;
    module->m_pfnGuard([](void* it) { static_cast<Context*>(it)->result = static_cast<Context*>(it)->call(); },
                       [](void* it, CException* exception) {
                           static_cast<Context*>(it)->result =
                               resultOfException(exception, static_cast<Context*>(it)->message);
                       },
                       &context);
    --thread.depth;
    return context.result;
}

/// Retrieves one message, calls PreTranslateMessage of the thread's object or, without one, of the windows, and
/// dispatches.
BOOL pumpMessage(CWinThread* thread);
/// Whether a message counts as activity: not WM_PAINT, the blinking of a caret or a mouse message without movement.
bool isNews(const MSG& message);
/// The state of the program, or a default one if the program itself does not use the toolkit.
AFX_MODULE_STATE* programState();
/// The first module that has the resource: the current one, the libraries that offer their resources to all, the
/// program. Null if none has.
HINSTANCE findModule(const std::function<bool(HINSTANCE)>& has);
