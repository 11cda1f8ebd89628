// Operations on the items of a stack path.
#include "display/measure.h"
#include "display/stack.h"

#include <vek/draw/text.h>

#include <algorithm>
#include <numeric>

CVekArrayTempl<int> CVekGDX::StackToItemNr(const Stack& stack) const
{
    return VEK::whole(CVekArrayTempl<int>(), [&] {
        CVekArrayTempl<int> positions;
        if (stack.len() == 0)
            return positions;
        VEK::DisplayIndex* const index = displayList.index();
        const CVekDisplayItem* const items = displayList.m_items.begin();
        const int* const paths = index ? index->paths(items) : nullptr;
        const int first = stack[0];
        for (int i = 0; i < displayList.len(); ++i) {
            const int number = displayList.number(i);
            if ((!paths || paths[number] == first) && VEK::inGroup(items[number], stack))
                positions.append(i);
        }
        return positions;
    });
}

/// Changes the items whose path is exactly the given one.
template <class Change>
bool CVekGDX::forExactly(const Stack& stack, Change change)
{
    bool any = false;
    for (const int i : StackToItemNr(stack)) {
        if (displayList.item(i).stack.len() == stack.len()) {
            change(displayList.changing(i));
            any = true;
        }
    }
    return any;
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
    return forExactly(stack, [&](CVekDisplayItem& item) { item.pdMode = static_cast<unsigned>(value); });
}

bool CVekGDX::pdSizeSet(const Stack& stack, double value)
{
    return forExactly(stack, [&](CVekDisplayItem& item) { item.pdSize = value; });
}

bool CVekGDX::hatchSet(const Stack& stack, const VEK::CHatchProp& prop)
{
    const CVekArrayTempl<int> group = StackToItemNr(stack);
    CVekArrayTempl<VEK::CHatchProp> copies; // one for each item
    const bool complete = VEK::whole(false, [&] {
        for (int i = 0; i < group.len(); ++i)
            copies.append(prop);
        return true;
    });
    if (!complete)
        return false;
    for (int i = 0; i < group.len(); ++i)
        displayList.changing(group[i]).hatch = std::move(copies[i]);
    return group.len() > 0;
}

bool CVekGDX::cModeSet(const Stack& stack, unsigned mode)
{
    const CVekArrayTempl<int> group = StackToItemNr(stack);
    for (const int i : group)
        cFlagSet(i, mode);
    return group.len() > 0;
}

void CVekGDX::cFlagSet(int i, unsigned mode)
{
    displayList.setColorMode(i, mode);
}

namespace
{

bool isPropCode(int code)
{
    return code >= propShow && code <= propNotTransparent;
}

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

/// Changes a flag of some items, given by their positions.
bool CVekGDX::flagsSet(const CVekArrayTempl<int>& changed, int code)
{
    Corners corners;
    const auto look = [&](int, const CVekDisplayItem& item, Seen& seen) {
        seen.counts = (changedFlag(item.flag, code) & (itemNoExt | itemScreenFixed)) == 0;
    };
    if (!measure(corners, projMtx * viewDirectionMtx, changed, look))
        return false;
    for (const int i : changed) {
        CVekDisplayItem& item = displayList.changing(i);
        item.flag = changedFlag(item.flag, code);
    }
    cornersSet(corners);
    return true;
}

bool CVekGDX::propSet(const Stack& stack, int code)
{
    const CVekArrayTempl<int> group = StackToItemNr(stack);
    return group.len() > 0 && flagsSet(group, code);
}

bool CVekGDX::redraw(const Stack& stack, int code)
{
    if (displayList.len() == 0)
        return false;
    if (!isPropCode(code))
        return true;
    const unsigned long shortages = VEK::memoryShortages();
    CVekArrayTempl<int> changed;
    if (stack.len() > 0) {
        changed = StackToItemNr(stack);
    } else {
        changed.setLogicalLength(displayList.len());
        std::iota(changed.begin(), changed.end(), 0);
    }
    return VEK::memoryShortages() == shortages && (changed.len() == 0 || flagsSet(changed, code));
}

void CVekGDX::flagSet(int i, int code)
{
    if (!isPropCode(code))
        return;
    displayList.changing(i); // grows the list by the array rules
    const int position = displayList.position(i);
    if (position >= 0)
        flagsSet({position}, code);
}

bool CVekGDX::mtxSet(const Stack& stack, const CVekMatrix3d& m)
{
    const CVekArrayTempl<int> group = StackToItemNr(stack);
    if (group.len() == 0)
        return false;
    const int* const exact =
        std::find_if(group.begin(), group.end(), [&](int i) { return displayList.item(i).stack.len() == stack.len(); });
    const int reference = exact != group.end() ? *exact : group[-1];
    const CVekMatrix3d target = m; // it may refer to an item's matrix
    const CVekMatrix3d change = target * displayList.item(reference).mtx.inverse();
    const auto moved = [&](int place) {
        CVekMatrix3d mtx = displayList.item(group[place]).mtx;
        return group[place] == reference ? target : mtx *= change; // exact, without the rounding of the product
    };
    Corners corners;
    CVekMatrix3d there;
    const auto look = [&](int place, const CVekDisplayItem&, Seen& seen) {
        there = moved(place);
        seen.mtx = &there;
    };
    if (!measure(corners, projMtx * viewDirectionMtx, group, look))
        return false;
    for (int place = 0; place < group.len(); ++place)
        displayList.changing(group[place]).mtx = moved(place);
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
/// @return false when memory runs out
template <class Set>
bool CVekGDX::letter(const Stack& stack, Set set)
{
    const unsigned long shortages = VEK::memoryShortages();
    const CVekArrayTempl<int> group = StackToItemNr(stack);
    if (VEK::memoryShortages() != shortages)
        return false;
    if (group.len() == 0)
        return true;
    CVekArrayTempl<Lettering> texts;
    const bool complete = VEK::whole(false, [&] {
        for (int place = 0; place < group.len(); ++place) {
            const CVekDisplayItem& item = displayList.item(group[place]);
            Lettering& text = texts[place];
            text.txt = item.txt;
            text.txtAlign = item.txtAlign;
            text.point = item.point;
            set(text);
            text.regl = VEK::textRegions(text.txt, text.txtAlign, text.point);
        }
        return true;
    });
    Corners corners;
    const auto look = [&](int place, const CVekDisplayItem&, Seen& seen) { seen.regl = &texts[place].regl; };
    if (!complete || !measure(corners, projMtx * viewDirectionMtx, group, look))
        return false;
    for (int place = 0; place < group.len(); ++place) {
        CVekDisplayItem& item = displayList.changing(group[place]);
        Lettering& text = texts[place];
        item.txt = std::move(text.txt);
        item.txtAlign = std::move(text.txtAlign);
        item.point = text.point;
        item.regl = std::move(text.regl);
    }
    cornersSet(corners);
    return true;
}

bool CVekGDX::txtSet(const Stack& stack, const wchar_t* text)
{
    return text && letter(stack, [&](Lettering& item) { item.txt = text; });
}

bool CVekGDX::txtAlignSet(const Stack& stack, const wchar_t* align)
{
    return align && letter(stack, [&](Lettering& item) { item.txtAlign = align; });
}

void CVekGDX::txtPointSet(const Stack& stack, CVekPoint3d point)
{
    letter(stack, [&](Lettering& item) { item.point = point; });
}

/// Removes items, given by their positions, ascending.
bool CVekGDX::remove(const CVekArrayTempl<int>& gone)
{
    Corners corners;
    const auto look = [](int, const CVekDisplayItem&, Seen& seen) { seen.counts = false; };
    if (gone.len() == 0 || !measure(corners, projMtx * viewDirectionMtx, gone, look))
        return false;
    int kept = gone[0];
    const int* next = gone.begin();
    for (int i = kept; i < displayList.len(); ++i) {
        if (next != gone.end() && *next == i)
            ++next;
        else
            displayList.item(kept++) = std::move(displayList.item(i));
    }
    displayList.setLogicalLength(kept);
    cornersSet(corners);
    return true;
}

bool CVekGDX::removeItemStack(const Stack& stack)
{
    return remove(StackToItemNr(stack));
}

bool CVekGDX::clear(const Stack& stack)
{
    return removeItemStack(stack);
}

bool CVekGDX::removeItem(int i)
{
    const int position = displayList.position(i);
    return position >= 0 && remove({position});
}
