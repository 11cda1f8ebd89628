#include <vek/controls/tab_order.h>

#include <algorithm>

namespace VEK
{

int nextEnabledTab(const CVekArrayTempl<unsigned>& flags, int from, bool isBackward)
{
    const int count = flags.len();
    int tab = from;
    for (int step = 0; step < count; ++step) { // one round, so that it ends when all are disabled
        tab = isBackward ? tab - 1 : tab + 1;
        if (tab < 0)
            tab = count - 1;
        else if (tab >= count)
            tab = 0;
        if ((flags[tab] & tabDisabled) == 0)
            return tab;
    }
    return -1;
}

int tabAfterInsertion(int selected, int inserted)
{
    return selected >= inserted ? selected + 1 : selected;
}

int tabAfterDeletion(int selected, int deleted, int left)
{
    return deleted < selected ? selected - 1 : std::min(selected, left - 1);
}

DlgRect tabPageRect(const DlgRect& client, int tabHeight)
{
    const int x = 2, y = tabHeight + 4;
    const int width = std::max(client.right - client.left - 6, 0);
    const int height = std::max(client.bottom - client.top - y - 4, 0);
    return {x, y, x + width, y + height};
}

} // namespace VEK
