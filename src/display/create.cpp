// Display objects from the host's colours, the configuration and a data item.
#include "display/registry.h"

#include <vek/data.h>
#include <vek/data/app.h>
#include <vek/display/registry.h>

namespace
{

/// The keys of colour modes 1 to 5, below the configured colours.
constexpr const wchar_t* kModeKeys[] = {L"HIGHLIGHT", L"REFER", L"AXIS", L"BASE", L"AUX"};
constexpr const wchar_t* kColors = L"MRA_MENU\\COLOR";

/// The configured item of a key below the colours.
CVekDataItem* configured(const wchar_t* key)
{
    return VEK::cfg_get(CVekString(kColors) + L"\\" + key);
}

int intOf(const CVekDataItem* item, const wchar_t* key)
{
    int value = 0;
    if (VEK::dataGet(item, key, value))
        return value;
    VEK::dataGet(configured(key), nullptr, value);
    return value;
}

CVekColor colorOf(const CVekDataItem* item)
{
    CVekColor color;
    int index = 0;
    if (VEK::dataGet(item, nullptr, index))
        color.setColorIndex(static_cast<short>(index));
    else
        VEK::dataGet(item, nullptr, color);
    return color;
}

/// Reads the back colour of a data item, which overrides the configured one.
void readBackColor(const CVekDataItem* item, CVekColor color, CVekGDX& gdx)
{
    int index = 0;
    if (!VEK::dataGet(item, L"COLOR", index))
        return;
    color.setColorIndex(static_cast<short>(index));
    CVekString text;
    if (VEK::dataGet(item, L"RGB", text))
        color.setColor(static_cast<unsigned long>(VEK::atoi(text)));
    if (VEK::dataGet(item, L"TBL", text))
        color.setNames(text, text);
    gdx.backColorSet(color);
}

} // namespace

CVekGDX::CVekGDX()
{
    backColor.setOleColor(vekAppPtr()->backgroundColor());
    const CVekDataItem* colors = VEK::cfg_get(kColors);
    VEK::dataGet(colors, L"PDSIZE", pdSize);
    unsigned long style = pdMode;
    if (VEK::dataGet(colors, L"PDMODE", style))
        pdMode = static_cast<unsigned>(style);
    for (int mode = 1; mode <= 5; ++mode) {
        CVekColor color;
        VEK::dataGet(colors, kModeKeys[mode - 1], color);
        ColorTabSet(mode, color);
    }
}

int createGdxInMap(const CVekDataItem* item)
{
    const unsigned long shortages = VEK::memoryShortages();
    const CVekDataItem* data = item && item->isDir() ? item : nullptr;
    CVekColor color;
    color.setColorIndex(0);
    const int pointSize = intOf(data, L"PDSIZE");
    const int pointMode = intOf(data, L"PDMODE");
    CVekPoint3dArray view;
    VEK::dataGet(data, L"EXTVIEW", view);
    CVekMatrix3d projection;
    VEK::dataGet(data, L"MTX", projection);

    const int key = gdxMapKeyNew();
    const CVekPoint3dArray& corners = view; // reading a corner that is missing grows nothing
    CVekGDX gdx(color, projection, pointSize, static_cast<unsigned>(pointMode), corners[0], corners[1]);
    for (int mode = 1; mode <= 5; ++mode)
        gdx.ColorTabSet(mode, colorOf(configured(kModeKeys[mode - 1])));
    gdx.backColorSet(colorOf(configured(L"BACKGROUND")));
    readBackColor(data, color, gdx);
    return VEK::memoryShortages() == shortages && VEK::gdxMapMoveTo(key, std::move(gdx)) ? key : -1;
}
