#include <vek/display/gdx.h>

#include "core/values/whole.h"

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
    CVekString name;
    if (!VEK::whole(false, [&] { return (name = item.txt, true); }))
        return false;
    file = std::move(name);
    id = item.pdMode;
    return item.pdMode != vekNoPicture || !file.isNull();
}

bool CVekGDX::hatchGet(int i, VEK::CHatchProp& prop) const
{
    if (i >= displayList.len())
        return false;
    VEK::CHatchProp copy;
    if (!VEK::whole(false, [&] { return (copy = displayList[i].hatch, true); }))
        return false;
    prop = std::move(copy);
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
    CVekColor copy; // it may be an entry of the table, which grows
    if (!VEK::whole(false, [&] { return (copy = color, colorTab.reserve(mode)); }))
        return false;
    colorTab[mode - 1] = std::move(copy);
    return true;
}

bool CVekGDX::addDisplayList(const CVekArrayTempl<CVekDisplayItem>& list)
{
    return list.len() > 0 && displayList.append(list);
}

void CVekGDX::clear()
{
    displayList.setLogicalLength(0);
    extViewMin = CVekPoint3d::kOrigin;
    extViewMax = CVekPoint3d::kOrigin;
    extMax.setLogicalLength(0);
}

namespace VEK
{

GdxBatch::GdxBatch(CVekGDX& gdx)
    : m_gdx(gdx), m_corners(gdx.cornersGet()), m_length(gdx.lenGet()), m_shortages(memoryShortages())
{
}

bool GdxBatch::complete()
{
    if (memoryShortages() == m_shortages)
        return true;
    m_gdx.displayList.setLogicalLength(m_length);
    m_gdx.cornersSet(m_corners);
    return false;
}

} // namespace VEK
