#include <vek/data/config.h>
#include <vek/objects/element.h>

#include "core/values/whole.h"

namespace VEK
{
namespace
{

/// An item of a layer in the configuration; the name may contain any character.
const CVekDataItem* layerItem(const wchar_t* layer, const wchar_t* name)
{
    const CVekDataKey key(5005, L"*LAYER*", 5005, layer, 5005, name, 0);
    return cfg_get(&key);
}

bool mapped(CVekString& layer, const wchar_t* logical)
{
    return logical && *logical && dataItemGet(layerItem(L"MAP", logical), nullptr, layer);
}

} // namespace

bool getBtLayer(const CVekDataItem* element, CVekString& visible, CVekString& hidden)
{
    using Names = std::pair<CVekString, CVekString>;
    Names names = whole(Names(), [&] {
        Names found;
        if (!dataGet(element, L"LAYER", found.first) || found.first.isNull())
            found.first = L"0";
        if (!dataGet(element, L"LAYER_H", found.second) || found.second.isNull())
            found.second = found.first;
        return found;
    });
    if (!element || names.first.isNull())
        return false;
    visible = std::move(names.first);
    hidden = std::move(names.second);
    return true;
}

bool layer_color(CVekColor& color, const CVekString& layer)
{
    const CVekDataItem* stored = layerItem(layer, L"COLOR");
    int index = 0;
    if (dataItemGet(stored, nullptr, color))
        return true;
    if (!dataItemGet(stored, nullptr, index) || index < 0 || index > 256)
        return false;
    CVekColor byIndex;
    byIndex.setColorIndex(static_cast<short>(index));
    color = byIndex;
    return true;
}

bool phys_layer(CVekString& layer, const wchar_t* logical, const wchar_t* second)
{
    return mapped(layer, logical) || mapped(layer, second);
}

} // namespace VEK
