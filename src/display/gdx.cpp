#include <vek/display/gdx.h>

#include <algorithm>

CVekGDX::CVekGDX(const CVekColor& back, const CVekMatrix3d& projection, double pointSize, unsigned long pointMode,
                 const CVekPoint3d& viewMin, const CVekPoint3d& viewMax)
    : backColor(back), pdSize(pointSize), pdMode(static_cast<unsigned>(pointMode)), projMtx(projection),
      extViewMin(viewMin), extViewMax(viewMax)
{
}

bool CVekGDX::pictureGet(int i, CVekString& file, unsigned long& id) const
{
    const CVekDisplayItem& item = displayList[i];
    file = item.txt;
    id = item.pdMode;
    return item.pdMode != vekNoPicture || !item.txt.isNull();
}

bool CVekGDX::hatchGet(int i, VEK::CHatchProp& prop) const
{
    if (i >= displayList.len())
        return false;
    prop = displayList[i].hatch;
    return true;
}

unsigned long CVekGDX::pdModeGet(int i) const
{
    const unsigned own = displayList[i].pdMode;
    return own == 0xFFFFFFFFu ? pdMode : own;
}

double CVekGDX::pdSizeGet(int i) const
{
    const double own = displayList[i].pdSize;
    return own == 0.0 ? pdSize : own;
}

const CVekColor& CVekGDX::colorTabGet(int mode) const
{
    return colorTab[static_cast<int>(static_cast<unsigned>(mode) - 1u)];
}

bool CVekGDX::ColorTabSet(int mode, const CVekColor& color)
{
    if (mode <= 0 || mode >= 15)
        return false;
    const CVekColor copy(color); // it may be an entry of the table, which grows
    colorTab[mode - 1] = copy;
    return true;
}

bool CVekGDX::addDisplayList(const CVekArrayTempl<CVekDisplayItem>& list)
{
    const bool any = list.len() > 0;
    displayList += list;
    return any;
}

void CVekGDX::clear()
{
    displayList.setLogicalLength(0);
    extViewMin = CVekPoint3d::kOrigin;
    extViewMax = CVekPoint3d::kOrigin;
    extMax.setLogicalLength(0);
}
