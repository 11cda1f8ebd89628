// What the toolkit keeps for each thread: which object stands for which handle.
#pragma once

#include <toolkit/dc.h>
#include <toolkit/state.h>

#include "handle_map.h"

inline void giveUp(CGdiObject& object)
{
    object.m_hObject = nullptr;
}
inline void giveUp(CDC& context)
{
    context.m_hDC = context.m_hAttribDC = nullptr;
}

struct ThreadState {
    HandleMap<HGDIOBJ, CGdiObject> objects;
    HandleMap<HDC, CDC> contexts;
    AFX_MODULE_STATE* module = nullptr; ///< null: the program's
    int level = 0;                      ///< how many modal loops run inside one another

    void forgetTemporary()
    {
        objects.forget(level);
        contexts.forget(level);
    }
};

ThreadState& threadState();
