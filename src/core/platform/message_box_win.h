/// @file
/// Message boxes: the one way to them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace VEK::platform
{

/// What a message box would say.
struct MessageBoxCall {
    HWND owner = nullptr;
    std::wstring text;
    std::wstring caption;
    UINT flags = 0;
};

/// As `MessageBoxW`, unless a hook answers in its place.
int messageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags);

/// Puts a hook in the place of the user, for tests: it gets what each box would say and gives its answer.
/// @param hook empty for the user
void messageBoxHookSet(std::function<int(const MessageBoxCall&)> hook);

} // namespace VEK::platform
