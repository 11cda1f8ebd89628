// What the toolkit keeps for each thread: which object stands for which handle.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include "handle_map.h"

#include <functional>
#include <tuple>

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
    ThreadState() = default;
    ThreadState(const ThreadState&) = delete;
    ThreadState& operator=(const ThreadState&) = delete;
    ~ThreadState() { endTimer(); }

    std::tuple<HandleMap<HGDIOBJ, CGdiObject>, HandleMap<HDC, CDC>, HandleMap<HWND, CWnd>, HandleMap<HMENU, CMenu>,
               HandleMap<HIMAGELIST, CImageList>>
        maps;
    AFX_MODULE_STATE* module = nullptr; ///< null: the program's
    MSG message = {};                   ///< at work in a window's procedure
    class WindowHook* hook = nullptr;   ///< of the window about to be created
    HWND tip = nullptr;                 ///< the tool tip used last
    HWND exchanging = nullptr;          ///< the window that exchanges values, and is deaf to its controls meanwhile
    CPoint pointer;                     ///< where the last message of the pointer was
    WPARAM quitCode = 0;                ///< what the last WM_QUIT brought
    int level = 0;                      ///< how many modal loops run inside one another
    int depth = 0;                      ///< how many calls to handlers run inside one another
    UINT_PTR timer = 0;                 ///< runs while dead temporary objects are to be looked for

    void forgetTemporary()
    {
        std::apply([this](auto&... each) { (each.forget(level), ...); }, maps);
    }
    /// Lets dead temporary objects go in a turn of the message loop in which no handler can hold one.
    void forgetDeadSoon();
    void endTimer()
    {
        if (timer != 0)
            ::KillTimer(nullptr, std::exchange(timer, 0));
    }
};

ThreadState& threadState();

/// @name What Attach, Detach and FromHandle do in every class of handles
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
/// @param make gives a new object, as a unique pointer, when there is none
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

/// One more modal loop inside the others, for the life of this object: temporary objects of the outer ones stay.
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

/// Asks the application object, ends the exception. Null stands for one that is not the toolkit's.
LRESULT resultOfException(CException* exception, const MSG& message);

/// Makes a call for an object of a module, under the module's state. An exception goes to the application object, or
/// without one to the toolkit, as that of a handler of the message.
/// @return what the call gives, or what is made of the exception
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

/// Takes one message, asks the thread's object or, without one, the windows alone for PreTranslateMessage, dispatches.
BOOL pumpMessage(CWinThread* thread);
/// Whether a message is news: not the wish to paint, the blinking of a caret or a pointer that rests.
bool isNews(const MSG& message);
/// The state of the program, or that of nobody when the program does not use the toolkit itself.
AFX_MODULE_STATE* programState();
/// The first module that has what is asked for: the current one, the libraries that offer their resources to all, the
/// program. Null when none has.
HINSTANCE findModule(const std::function<bool(HINSTANCE)>& has);
