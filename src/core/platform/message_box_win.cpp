#include "core/platform/message_box_win.h"

namespace VEK::platform
{
namespace
{

std::function<int(const MessageBoxCall&)>& hook()
{
    static std::function<int(const MessageBoxCall&)> theHook;
    return theHook;
}

} // namespace

int messageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags)
{
    if (hook())
        return hook()({owner, text, caption, flags});
    return MessageBoxW(owner, text, caption, flags);
}

void messageBoxHookSet(std::function<int(const MessageBoxCall&)> newHook)
{
    hook() = std::move(newHook);
}

} // namespace VEK::platform
