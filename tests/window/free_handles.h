// The handles that a process can still get or that it has.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
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

/// How many windows, menus, icons and the like can still be made.
inline int freeUserHandles()
{
    std::vector<HMENU> menus;
    while (const HMENU menu = CreateMenu())
        menus.push_back(menu);
    for (const HMENU menu : menus)
        DestroyMenu(menu);
    return static_cast<int>(menus.size());
}

/// How many files, threads, events and the like the process has open, if they are not more than 300 less than once:
/// the system gives the lowest numbers that are free, in steps of 4. Asking it gives 0 under Wine.
inline int kernelHandles()
{
    std::vector<HANDLE> events(300);
    std::uintptr_t last = 0;
    for (HANDLE& event : events) {
        event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
        last = std::max(last, reinterpret_cast<std::uintptr_t>(event));
    }
    for (const HANDLE event : events)
        CloseHandle(event);
    return static_cast<int>(last / 4 - events.size());
}

} // namespace control_test
