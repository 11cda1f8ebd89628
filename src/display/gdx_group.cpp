// Operations on the items of a stack path.
#include "display/measure.h"
#include "display/stack.h"

#include <vek/draw/text.h>

/// Applies a change to every item of a group, in list order.
template <class Change>
bool CVekGDX::forGroup(const Stack& stack, Change change)
{
    bool any = false;
    for (int i = 0; i < displayList.len(); ++i) {
        if (VEK::inGroup(displayList.item(i), stack)) {
            change(i);
            any = true;
        }
    }
    return any;
}

bool CVekGDX::inAny(const Stack& stack) const
{
    for (int i = 0; i < displayList.len(); ++i) {
        if (VEK::inGroup(displayList[i], stack))
            return true;
    }
    return false;
}

CVekArrayTempl<int> CVekGDX::StackToItemNr(const Stack& stack) const
{
    return VEK::whole(CVekArrayTempl<int>(), [&] {
        CVekArrayTempl<int> numbers;
        for (int i = 0; i < displayList.len(); ++i) {
            if (VEK::inGroup(displayList[i], stack))
                numbers.append(i);
        }
        return numbers;
    });
}

int CVekGDX::stackGet() const
{
    int largest = 0;
    for (int i = 0; i < displayList.len(); ++i) {
        const Stack& path = displayList[i].stack;
        if (path.len() > 0)
            largest = std::max(largest, path[0]);
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
    for (int i = 0; stack.len() > 0 && i < displayList.len(); ++i) {
        if (agrees(displayList[i]))
            return 0;
    }
    return -1;
}

bool CVekGDX::pdModeSet(const Stack& stack, unsigned long value)
{
    bool any = false;
    for (int i = 0; stack.len() > 0 && i < displayList.len(); ++i) {
        if (displayList.item(i).stack == stack) {
            displayList.changing(i).pdMode = static_cast<unsigned>(value);
            any = true;
        }
    }
    return any;
}

bool CVekGDX::pdSizeSet(const Stack& stack, double value)
{
    bool any = false;
    for (int i = 0; stack.len() > 0 && i < displayList.len(); ++i) {
        if (displayList.item(i).stack == stack) {
            displayList.changing(i).pdSize = value;
            any = true;
        }
    }
    return any;
}

bool CVekGDX::hatchSet(const Stack& stack, const VEK::CHatchProp& prop)
{
    CVekArrayTempl<VEK::CHatchProp> copies; // one for each item
    const bool complete = VEK::whole(false, [&] { return forGroup(stack, [&](int) { copies.append(prop); }); });
    int next = 0;
    return complete && forGroup(stack, [&](int i) { displayList.changing(i).hatch = std::move(copies[next++]); });
}

bool CVekGDX::cModeSet(const Stack& stack, unsigned mode)
{
    return forGroup(stack, [&](int i) { cFlagSet(i, mode); });
}

void CVekGDX::cFlagSet(int i, unsigned mode)
{
    displayList.setColorMode(i, mode);
}

namespace
{

/// The flag after a change; an unknown code changes nothing.
unsigned changedFlag(unsigned flag, int code)
{
    switch (code) {
    case propShow: return flag & ~itemHidden;
    case propHide: return flag | itemHidden;
    case propExt: return flag & ~itemNoExt;
    case propNoExt: return flag | itemNoExt;
    case propOutline: return flag | itemOutline;
    case propNoOutline: return flag & ~itemOutline;
    case propFullWindow: return flag | itemFullWindow;
    case propNoFullWindow: return flag & ~itemFullWindow;
    case propTransparent: return flag | itemTransparent;
    case propNotTransparent: return flag & ~itemTransparent;
    default: return flag;
    }
}

} // namespace

/// Changes a flag of some items.
template <class IsIn>
bool CVekGDX::flagsSet(int code, IsIn isIn)
{
    Corners corners;
    const auto look = [&](const CVekDisplayItem& item, Seen& seen) {
        if (isIn(item))
            seen.counts = (changedFlag(item.flag, code) & (itemNoExt | itemScreenFixed)) == 0;
    };
    if (!measure(corners, projMtx * viewDirectionMtx, look))
        return false;
    for (int i = 0; i < displayList.len(); ++i) {
        if (isIn(displayList.item(i))) {
            CVekDisplayItem& item = displayList.changing(i);
            item.flag = changedFlag(item.flag, code);
        }
    }
    cornersSet(corners);
    return true;
}

bool CVekGDX::propSet(const Stack& stack, int code)
{
    return inAny(stack) && flagsSet(code, [&](const CVekDisplayItem& item) { return VEK::inGroup(item, stack); });
}

bool CVekGDX::redraw(const Stack& stack, int code)
{
    if (displayList.len() == 0)
        return false;
    const bool all = stack.len() == 0;
    if (code < propShow || code > propNotTransparent || (!all && !inAny(stack)))
        return true;
    return flagsSet(code, [&](const CVekDisplayItem& item) { return all || VEK::inGroup(item, stack); });
}

void CVekGDX::flagSet(int i, int code)
{
    const CVekDisplayItem* one = &displayList.changing(i);
    flagsSet(code, [&](const CVekDisplayItem& item) { return &item == one; });
}

bool CVekGDX::mtxSet(const Stack& stack, const CVekMatrix3d& m)
{
    const CVekDisplayItem* reference = nullptr;
    for (int i = 0; i < displayList.len(); ++i) {
        const CVekDisplayItem& item = displayList.item(i);
        if (!VEK::inGroup(item, stack))
            continue;
        reference = &item;
        if (item.stack.len() == stack.len())
            break;
    }
    if (!reference)
        return false;
    const CVekMatrix3d target = m; // it may refer to an item's matrix
    const CVekMatrix3d change = target * reference->mtx.inverse();
    const auto moved = [&](const CVekDisplayItem& item) {
        CVekMatrix3d mtx = item.mtx;
        return &item == reference ? target : mtx *= change; // exact, without the rounding of the product
    };
    Corners corners;
    CVekMatrix3d there;
    const auto look = [&](const CVekDisplayItem& item, Seen& seen) {
        if (VEK::inGroup(item, stack)) {
            there = moved(item);
            seen.mtx = &there;
        }
    };
    if (!measure(corners, projMtx * viewDirectionMtx, look))
        return false;
    forGroup(stack, [&](int i) { displayList.changing(i).mtx = moved(displayList.item(i)); });
    cornersSet(corners);
    return true;
}

/// The input of a text item's layout, and its glyphs.
struct CVekGDX::Lettering {
    CVekString txt;
    CVekString txtAlign;
    CVekPoint3d point;
    RegionList regl;
};

/// Redoes the texts of a group.
/// @param set changes the input of an item's layout
template <class Set>
bool CVekGDX::letter(const Stack& stack, Set set)
{
    CVekArrayTempl<Lettering> texts;
    const bool complete = VEK::whole(false, [&] {
        return forGroup(stack, [&](int i) {
            const CVekDisplayItem& item = displayList.item(i);
            Lettering& text = texts[texts.len()];
            text.txt = item.txt;
            text.txtAlign = item.txtAlign;
            text.point = item.point;
            set(text);
            text.regl = VEK::textRegions(text.txt, text.txtAlign, text.point);
        });
    });
    Corners corners;
    int next = 0;
    const auto look = [&](const CVekDisplayItem& item, Seen& seen) {
        if (VEK::inGroup(item, stack))
            seen.regl = &texts[next++].regl;
    };
    if (!complete || !measure(corners, projMtx * viewDirectionMtx, look))
        return false;
    next = 0;
    forGroup(stack, [&](int i) {
        CVekDisplayItem& item = displayList.changing(i);
        Lettering& text = texts[next++];
        item.txt = std::move(text.txt);
        item.txtAlign = std::move(text.txtAlign);
        item.point = text.point;
        item.regl = std::move(text.regl);
    });
    cornersSet(corners);
    return true;
}

bool CVekGDX::txtSet(const Stack& stack, const wchar_t* text)
{
    return text && (!inAny(stack) || letter(stack, [&](Lettering& item) { item.txt = text; }));
}

bool CVekGDX::txtAlignSet(const Stack& stack, const wchar_t* align)
{
    return align && (!inAny(stack) || letter(stack, [&](Lettering& item) { item.txtAlign = align; }));
}

void CVekGDX::txtPointSet(const Stack& stack, CVekPoint3d point)
{
    letter(stack, [&](Lettering& item) { item.point = point; });
}

bool CVekGDX::removeItemStack(const Stack& stack)
{
    Corners corners;
    const Stack path = VEK::whole(Stack(), [&] { return Stack(stack); }); // it may refer to an item's path
    const auto look = [&](const CVekDisplayItem& item, Seen& seen) {
        seen.counts = seen.counts && !VEK::inGroup(item, path);
    };
    if (!inAny(path) || !measure(corners, projMtx * viewDirectionMtx, look))
        return false;
    int kept = 0;
    for (int i = 0; i < displayList.len(); ++i) {
        if (VEK::inGroup(displayList.item(i), path))
            continue;
        if (kept < i)
            displayList.item(kept) = std::move(displayList.item(i));
        ++kept;
    }
    displayList.setLogicalLength(kept);
    cornersSet(corners);
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
    const CVekDisplayItem* gone = &std::as_const(displayList)[i];
    Corners corners;
    const auto look = [&](const CVekDisplayItem& item, Seen& seen) { seen.counts = seen.counts && &item != gone; };
    if (!measure(corners, projMtx * viewDirectionMtx, look))
        return false;
    displayList.removeAt(i);
    cornersSet(corners);
    return true;
}
