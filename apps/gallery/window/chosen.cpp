#include "chosen.h"

#include <hole_dialog.h>
#include <vek/dialogs.h>
#include <vek/json.h>

#include <string_view>

CVekString chooseOutline()
{
    static CVekDataItem library(CVekDataItem::directory);
    static VEK::outlineData data;
    if (data.material.isNull()) {
        data.material = L"AW-6060-T66";
        data.code = 17; // with many parameters, one of which has a sign
    }
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

CVekString editHoles()
{
    constexpr std::string_view kBasePlate = R"({
 "": {"DRAW": "L"}, "LABEL": "\\de:Fußplatte\\en:Base plate", "ORDER": "FP-12",
 "HOLE": {
  "A": {"GEN": {"TYPE": "DRILL", "D": 14.0}, "ORG": {"@point": [-60, -60, 0]}},
  "B": {"GEN": {"TYPE": "DRILL", "D": 14.0}, "ORG": {"@point": [60, -60, 0]}},
  "slot": {"GEN": {"TYPE": "OUTLINE", "CODE": 6, "PARMS": {"#1": 50.0, "#2": 14.0}}, "ORG": {"@point": [0, 60, 0]}},
  "edge": {"GEN": {"@polylines": [[[-90, -90, 0, 90, -90, 0, 0], [90, -90, 0, 90, 90, 0, 0],
                                   [90, 90, 0, -90, 90, 0, 0], [-90, 90, 0, -90, -90, 0, 0]]]}}
 }})";
    static CVekDataItem data;
    static CVekString active(L"slot");
    CVekString text;
    if (!data.isDir() && !VEK::jsonRead(data, kBasePlate.data(), kBasePlate.size(), L"base plate", text))
        return text;
    CVekLocalApp host;
    holeDialogEnter(host);
    CVekApp* const before = vekAppSet(&host);
    const int result = VEK::dlgBgr(VEK::DlgEnv_st(), active, &data, nullptr);
    vekAppSet(before);
    if (result != IDOK)
        return L"Hole pattern unchanged";
    text.format(L"Hole pattern of %d holes, selected: %s", static_cast<int>(holesOf(data.getItem(L"HOLE")).size()),
                static_cast<const wchar_t*>(active));
    return text;
}
