// Operations on the items of a stack path.
#include "display/stack.h"

#include <vek/display/gdx.h>

/// Runs a change on every item of a group, in list order.
template <class Change>
bool CVekGDX::forGroup(const Stack& stack, Change change)
{
    bool any = false;
    for (int i = 0; i < displayList.len(); ++i) {
        if (VEK::inGroup(displayList[i], stack)) {
            change(i);
            any = true;
        }
    }
    return any;
}

CVekArrayTempl<int> CVekGDX::StackToItemNr(const Stack& stack) const
{
    CVekArrayTempl<int> numbers;
    for (int i = 0; i < displayList.len(); ++i) {
        if (VEK::inGroup(displayList[i], stack))
            numbers.append(i);
    }
    return numbers;
}

int CVekGDX::stackGet() const
{
    int largest = 0;
    for (const CVekDisplayItem& item : displayList) {
        if (item.stack.len() > 0)
            largest = std::max(largest, item.stack[0]);
    }
    return largest;
}

int CVekGDX::stackGet(const Stack& stack) const
{
    const auto agrees = [&](const CVekDisplayItem& item) {
        if (item.stack.len() > stack.len())
            return false;
        for (int i = 0; i < stack.len(); ++i) {
            if (stack[i] != (i < item.stack.len() ? item.stack[i] : 0))
                return false;
        }
        return true;
    };
    return stack.len() > 0 && std::any_of(displayList.begin(), displayList.end(), agrees) ? 0 : -1;
}

bool CVekGDX::pdModeSet(const Stack& stack, unsigned long value)
{
    bool any = false;
    for (CVekDisplayItem& item : displayList) {
        if (stack.len() > 0 && item.stack == stack) {
            item.pdMode = static_cast<unsigned>(value);
            any = true;
        }
    }
    return any;
}

bool CVekGDX::pdSizeSet(const Stack& stack, double value)
{
    bool any = false;
    for (CVekDisplayItem& item : displayList) {
        if (stack.len() > 0 && item.stack == stack) {
            item.pdSize = value;
            any = true;
        }
    }
    return any;
}

bool CVekGDX::hatchSet(const Stack& stack, const VEK::CHatchProp& prop)
{
    const VEK::CHatchProp hatch = prop; // it may be that of an item
    return forGroup(stack, [&](int i) { displayList[i].hatch = hatch; });
}

bool CVekGDX::cModeSet(const Stack& stack, unsigned mode)
{
    return forGroup(stack, [&](int i) { cFlagSet(i, mode); });
}

void CVekGDX::cFlagSet(int i, unsigned mode)
{
    unsigned& flag = displayList[i].flag;
    flag = (flag & 0xFF) | (mode & 15) << itemColorModeShift;
}

bool CVekGDX::propSet(const Stack& stack, int code)
{
    const bool any = forGroup(stack, [&](int i) { flagChange(i, code); });
    if (any)
        refresh_ext();
    return any;
}

bool CVekGDX::redraw(const Stack& stack, int code)
{
    if (displayList.len() == 0)
        return false;
    bool valid = false;
    for (int i = 0; i < displayList.len(); ++i) {
        if (stack.len() == 0 || VEK::inGroup(displayList[i], stack))
            valid |= flagChange(i, code);
    }
    if (valid)
        refresh_ext();
    return true;
}

void CVekGDX::flagSet(int i, int code)
{
    if (flagChange(i, code))
        refresh_ext();
}

bool CVekGDX::flagChange(int i, int code)
{
    unsigned& flag = displayList[i].flag;
    switch (code) {
    case propShow: flag &= ~itemHidden; break;
    case propHide: flag |= itemHidden; break;
    case propExt: flag &= ~itemNoExt; break;
    case propNoExt: flag |= itemNoExt; break;
    case propOutline: flag |= itemOutline; break;
    case propNoOutline: flag &= ~itemOutline; break;
    case propFullWindow: flag |= itemFullWindow; break;
    case propNoFullWindow: flag &= ~itemFullWindow; break;
    case propTransparent: flag |= itemTransparent; break;
    case propNotTransparent: flag &= ~itemTransparent; break;
    default: return false;
    }
    return true;
}

bool CVekGDX::mtxSet(const Stack& stack, const CVekMatrix3d& m)
{
    const CVekArrayTempl<int> group = StackToItemNr(stack);
    if (group.len() == 0)
        return false;
    const auto isWhole = [&](int i) { return displayList[i].stack.len() == stack.len(); };
    const int* whole = std::find_if(group.begin(), group.end(), isWhole);
    const int reference = whole == group.end() ? group[-1] : *whole;
    const CVekMatrix3d target = m; // it may be that of an item
    const CVekMatrix3d change = target * displayList[reference].mtx.inverse();
    for (const int i : group)
        displayList[i].mtx *= change;
    displayList[reference].mtx = target; // without the rounding of the product
    refresh_ext();
    return true;
}

bool CVekGDX::txtSet(const Stack& stack, const wchar_t* text)
{
    if (!text)
        return false;
    const CVekString copy = text;
    const auto change = [&](int i) {
        displayList[i].txt = copy;
        txtReglUpd(i);
    };
    if (forGroup(stack, change))
        refresh_ext();
    return true;
}

bool CVekGDX::txtAlignSet(const Stack& stack, const wchar_t* align)
{
    if (!align)
        return false;
    const CVekString copy = align;
    const auto change = [&](int i) {
        displayList[i].txtAlign = copy;
        txtReglUpd(i);
    };
    if (forGroup(stack, change))
        refresh_ext();
    return true;
}

void CVekGDX::txtPointSet(const Stack& stack, CVekPoint3d point)
{
    const auto change = [&](int i) {
        displayList[i].point = point;
        txtReglUpd(i);
    };
    if (forGroup(stack, change))
        refresh_ext();
}

bool CVekGDX::removeItemStack(const Stack& stack)
{
    const Stack path = stack; // it may be that of an item
    int kept = 0;
    for (int i = 0; i < displayList.len(); ++i) {
        if (VEK::inGroup(displayList[i], path))
            continue;
        if (kept < i)
            displayList[kept] = std::move(displayList[i]);
        ++kept;
    }
    if (kept == displayList.len())
        return false;
    displayList.setLogicalLength(kept);
    refresh_ext();
    return true;
}

bool CVekGDX::clear(const Stack& stack)
{
    return removeItemStack(stack);
}

bool CVekGDX::removeItem(int i)
{
    if (i >= displayList.len() || displayList.len() == 0)
        return false;
    displayList.removeAt(i);
    refresh_ext();
    return true;
}
