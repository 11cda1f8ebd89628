#include <vek/dialogframe/position.h>
#include <vek/values/system.h>

#include "core/values/whole.h"

#include <algorithm>

namespace VEK
{

namespace
{

unsigned long wordsOf(long long low, long long high)
{
    return static_cast<unsigned long>((low & 0xFFFF) | (high & 0xFFFF) << 16);
}

int lowOf(unsigned long words)
{
    return static_cast<int>(words & 0xFFFF);
}

int highOf(unsigned long words)
{
    return static_cast<int>(words >> 16 & 0xFFFF);
}

long long placed(long long from, long long to, long long edge)
{
    const long long inside = std::max(from, 0LL);
    return std::min(inside, inside - to + edge);
}

} // namespace

DlgPosition dlgPositionOf(const DlgRect& dialog, int right, int bottom)
{
    const long long left = dialog.left;
    const long long top = dialog.top;
    return {wordsOf(placed(left, dialog.right, right), placed(top, dialog.bottom, bottom)),
            wordsOf(dialog.right - left, dialog.bottom - top)};
}

DlgRect dlgRectOf(const DlgPosition& position)
{
    const int left = lowOf(position.pos);
    const int top = highOf(position.pos);
    return {left, top, left + lowOf(position.size), top + highOf(position.size)};
}

CVekString dlgPositionKey(const wchar_t* title)
{
    return whole(CVekString(), [&] {
        CVekString key;
        regAppKey(key, L"VEK");
        return key + L"\\Dialogs\\" + (title ? title : L"");
    });
}

bool dlgPositionRead(DlgRect& rect, const wchar_t* title)
{
    const CVekString key = dlgPositionKey(title);
    DlgPosition position;
    if (key.isNull() || !regRead(key, L"Pos", position.pos))
        return false;
    rect.left = lowOf(position.pos);
    rect.top = highOf(position.pos);
    if (!regRead(key, L"Size", position.size))
        return false;
    rect = dlgRectOf(position);
    return true;
}

bool dlgPositionWrite(const DlgPosition& position, const wchar_t* title)
{
    const CVekString key = dlgPositionKey(title);
    return !key.isNull() && regWrite(key, L"Pos", position.pos) && regWrite(key, L"Size", position.size);
}

} // namespace VEK
