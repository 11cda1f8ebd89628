#include <vek/controls/cell_editor.h>

namespace VEK
{

bool clickOpensEditor(int selected, int clicked, bool isOnContent)
{
    return isOnContent && clicked >= 0 && clicked == (selected < 0 ? 0 : selected);
}

DlgRect cellEditorRect(const DlgRect& label, int iconWidth)
{
    return {label.left + iconWidth, label.top, label.right - 2, label.bottom};
}

unsigned long cellEditorStyle(int headerFormat)
{
    constexpr int right = 1, center = 2;                   // of a header item
    constexpr unsigned long visibleScrolling = 0x50000080; // WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL
    constexpr unsigned long centered = 1, rightAligned = 2;
    if ((headerFormat & center) != 0)
        return visibleScrolling | centered;
    return (headerFormat & right) != 0 ? visibleScrolling | rightAligned : visibleScrolling;
}

} // namespace VEK
