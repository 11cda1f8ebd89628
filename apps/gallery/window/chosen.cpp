#include "chosen.h"

#include <vek/dialogs.h>

CVekString chooseOutline()
{
    static CVekDataItem library(CVekDataItem::directory);
    static VEK::outlineData data;
    data.material = data.material.isNull() ? CVekString(L"ALU") : data.material;
    CVekString text;
    if (VEK::dlgOutline(VEK::DlgEnv_st(), data, &library) != IDOK)
        return L"No outline chosen";
    text.format(L"Outline %d in range %d of %s, base point %g, %g, parameters", data.code, data.range,
                static_cast<const wchar_t*>(data.material), data.basePoint.x, data.basePoint.y);
    for (const double parameter : data.parms) {
        CVekString number;
        text += number.format(L" %g", parameter);
    }
    return text;
}

CVekString editLabel(bool multi)
{
    static CVekString label(L"\\de:Tür\\en:Door\\fr:Porte");
    const VEK::DlgEnv_st environment;
    const CVekString before = label;
    if (VEK::dlgLabelEdit(environment, label, multi, before, environment.country, nullptr) != IDOK)
        return L"Label unchanged";
    CVekString text = L"Label " + label;
    text.replace(L'\n', L' ');
    return text;
}
