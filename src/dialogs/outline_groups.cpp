#include <vek/dialogs/outline_groups.h>

namespace VEK
{

const OutlineGroupText outlineGroups[4] = {
    {1, L"VEK_OUTL_0101", L"*Grundformen"},
    {2, L"VEK_OUTL_0102", L"Formen erweitert"},
    {4, L"VEK_OUTL_0103", L"Sonderformen"},
    {8, L"VEK_OUTL_0104", L"Bearbeitungen"},
};

int outlineFilter(const CVekArrayTempl<bool>& selected)
{
    int filter = 0, row = 0;
    for (const OutlineGroupText& group : outlineGroups)
        filter |= row < selected.len() && selected[row] ? group.bit : 0, ++row;
    return filter;
}

} // namespace VEK
