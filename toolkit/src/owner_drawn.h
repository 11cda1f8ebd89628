// Passes the messages of an owner-drawn control to the control's own members.
#pragma once

#include <windows.h>

/// False for other messages, and for row messages to a control that can only draw.
template <class Control>
bool drawnByOwner(Control& control, UINT message, LPARAM lParam, LRESULT* result)
{
    if (message == WM_DRAWITEM) {
        control.DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return true;
    }
    if constexpr (requires(LPCOMPAREITEMSTRUCT rows) { control.CompareItem(rows); }) {
        switch (message) {
        case WM_MEASUREITEM: control.MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam)); return true;
        case WM_DELETEITEM: control.DeleteItem(reinterpret_cast<LPDELETEITEMSTRUCT>(lParam)); return true;
        case WM_COMPAREITEM:
            if (result != nullptr)
                *result = control.CompareItem(reinterpret_cast<LPCOMPAREITEMSTRUCT>(lParam));
            return true;
        default: break;
        }
    }
    return false;
}
