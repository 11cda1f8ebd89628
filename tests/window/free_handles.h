// The GDI objects that are left.
#pragma once

#include <windows.h>

#include <vector>

namespace control_test
{

/// How many GDI objects can still be made: a leak takes from them. Asking the system gives 0 under Wine.
inline int freeHandles()
{
    std::vector<HPEN> pens;
    while (const HPEN pen = CreatePen(PS_SOLID, 1, static_cast<COLORREF>(pens.size())))
        pens.push_back(pen);
    for (const HPEN pen : pens)
        DeleteObject(pen);
    return static_cast<int>(pens.size());
}

} // namespace control_test
