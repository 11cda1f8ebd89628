#include <vek/dialogframe/stack.h>
#include <vek/values/array.h>

namespace VEK
{

namespace
{

CVekArrayTempl<HWND__*>& dialogs()
{
    static CVekArrayTempl<HWND__*> stack;
    return stack;
}

} // namespace

void dlgStackPush(HWND__* window)
{
    dialogs().append(window);
}

HWND__* dlgStackPop()
{
    CVekArrayTempl<HWND__*>& stack = dialogs();
    HWND__* const top = stack.len() > 0 ? stack[-1] : nullptr;
    stack.setLogicalLength(stack.len() - 1);
    return top;
}

} // namespace VEK
