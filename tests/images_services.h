/// @file
/// Object services that follow a script and note how they are called, in place of the library's own. They stand in one
/// source of a program, and are all that the generators call, so that the linker takes none of the real ones.
#pragma once

#include <vek/data.h>
#include <vek/display.h>
#include <vek/objects.h>

#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace images_test
{

inline struct Script {
    std::string calls; ///< the names and arguments of calls, a blank behind each
    bool isOrtho = false, isAlong = false, projects = true, hasDrills = true, isChecked = true, isAngle = true;
    bool hasSolid = true, hasModel = true, hasSheet = true;
    int lines = 2; ///< polylines of every projection and profile
    CVekDataItem sheets{CVekDataItem::directory};
    std::vector<std::string> names; ///< elements of an assembly
} script;

template <class... T>
void called(const T&... parts)
{
    std::ostringstream text;
    (text << ... << parts) << ' ';
    script.calls += text.str();
}

inline std::string narrow(const wchar_t* text)
{
    return {text, text + std::wcslen(text)};
}

template <class T>
T read(const CVekDataItem* item, const wchar_t* key, T value = T())
{
    VEK::dataGet(item, key, value);
    return value;
}

/// The keys of a directory with their numbers and texts.
inline std::string keysOf(const CVekDataItem* item)
{
    std::map<std::string, std::string> sorted;
    for (VEK::CDataIterator child(item); !child.done(); child.next()) {
        std::ostringstream value;
        if (const auto* text = child->peek<CVekString>())
            value << narrow(*text);
        else if (const auto* m = child->peek<CVekMatrix3d>())
            value << m->translation()[0];
        else
            value << read(child, nullptr, -99.0);
        sorted[narrow(*child->getKey())] = value.str();
    }
    std::string text;
    for (const auto& [key, value] : sorted)
        text += (text.empty() ? "" : ",") + key + '=' + value;
    return '{' + text + '}';
}

/// A level line at a place, for what has one.
template <class Line = CVekVertexArray>
Line lineAt(double x, double y)
{
    Line line;
    line.append(CVekVertex(CVekPoint3d(x, y, 0), CVekPoint3d(x + 1, y, 0)));
    return line;
}

template <class Lines>
bool fill(Lines& lines, double x, double y)
{
    for (int i = 0; i < script.lines; ++i)
        lines.append(lineAt<std::decay_t<decltype(lines[0])>>(x, y + i));
    return script.lines > 0;
}

inline CVekMatrix3d moved(double x)
{
    return CVekMatrix3d().setToTranslation(CVekVector3d(x, 0, 0));
}

/// x becomes `sum` - x.
inline CVekMatrix3d mirrored(double sum)
{
    return CVekMatrix3d().setToMirroring(CVekPlane(CVekPoint3d(sum / 2, 0, 0), CVekVector3d::kXAxis));
}

inline bool drillsFor(const char* kind, DrillList& drills, const CVekDataItem* element, const CVekDataItem* parm)
{
    called(kind, keysOf(element), keysOf(parm));
    const VEK::CSharedPointer<CVekDataItem> drill(new CVekDataItem(CVekDataItem::directory));
    VEK::dataSet(drill, L"BT\\LAYER", L"5");
    for (const double x : {70.0, 80.0})
        drills.append(std::pair(drill, moved(x)));
    return script.hasDrills;
}

/// The profile of a sheet: it shows the width, thickness, placement and stack that it is asked with.
inline bool profile(const char* kind, const CVekDataItem* item, VEK::VertexArrays& lines)
{
    CVekArrayTempl<CVekString> stack;
    VEK::dataGet(item, L"STACK", stack);
    const auto width = read<CVekVertexArray>(item, L"VL");
    const auto mtx = read<CVekMatrix3d>(item, L"MTX");
    called(kind, narrow(stack[0]), ':', width[0].end[0], ',', read(item, L"S", 0.0), ',', mtx.translation()[0]);
    return fill(lines, read(item, L"S", 0.0), 0);
}

/// One with skins.
inline bool profile(const char* kind, const CVekDataItem* item, VEK::VertexArrays& lines, CVekVertexArray& top,
                    CVekVertexArray& bottom)
{
    top = lineAt(0, 50);
    bottom = lineAt(0, 60);
    return profile(kind, item, lines);
}

} // namespace images_test

using namespace images_test;

// Short services stay on a line.
// clang-format off
bool BgrBt::operator==(const BgrBt& other) const { return second == other.second; }
bool BgrBt::operator<(const BgrBt& other) const { return second < other.second; }

bool vek_bgr_strong(CVekDataItem* object, CVekDataItem* second, const CVekMatrix3d&, int mode, CVekDataItem* parm,
                    CVekMapTempl<BgrBt, CVekDataItem>& elements)
{
    called("strong", mode, keysOf(second), keysOf(parm));
    for (const std::string& name : script.names) {
        CVekDataItem& entry = elements[BgrBt(object, std::wstring(name.begin(), name.end()).c_str())];
        if (name != "bare") // without "PARM"
            *entry.makeDir(L"PARM") = *parm;
    }
    return true;
}
bool vek_bgr_bt_angle_check(const CVekDataItem* element) { called("angle", keysOf(element)); return script.isAngle; }

CVek_Solid::CVek_Solid() = default;
CVek_Solid::~CVek_Solid() = default;
bool CVek_Solid::solid() { called("solid"); return true; }
bool CVek_Solid::project(const CVekMatrix3d& view, bool together, CVekArrayTempl<CVekVertexArrayEx>& visible,
                         CVekArrayTempl<CVekVertexArrayEx>& hidden, VEK_MODELER_TYPE modeler)
{
    std::ostringstream axes;
    for (int i = 0; i < 3; ++i)
        axes << std::lround(view.axis(2)[i] * 100) << ',' << std::lround(view.axis(0)[i] * 100) << ','
             << std::lround(view.axis(1)[i] * 100) << ';';
    called("project", axes.str(), together, modeler);
    fill(visible, 1, 0);
    fill(hidden, 2, 0);
    return script.projects;
}

namespace VEK
{

CVekDataItem* bgr_data_merge(CVekDataItem* object, const CVekString& name, CVekDataItem*)
{
    const CVekDataKey key(5005, L"BT", 5005, name, 0);
    const CVekDataItem* element = object->getItem(&key);
    return element ? element->clone() : nullptr;
}
bool lobj_unit(const CVekDataItem*, Vek::lUnit& unit) { unit = Vek::unitMetre; return true; }
bool bgr_bt_unit(const CVekDataItem*, const CVekString& name, Vek::lUnit& unit)
{ unit = name == L"bare" ? Vek::unitInch : Vek::unitFoot; return true; }
CVekMatrix3d getBtTransformation(const CVekDataItem* element, const CVekDataItem*, const CVekMatrix3d& mtx,
                                 double scale, double& aux)
{ return mtx * moved(read(element, L"X", 0.0) * scale + (aux += 1000.0)); }
CVekPoint3d getBtBasePoint(const CVekMatrix3d& mtx, const CVekMatrix3d&, const CVekPoint3d& point)
{ return point * mtx + CVekVector3d(0, 5, 0); }
bool checkBt(const CVekDataItem*, const CVekDataItem*) { return script.isChecked; }
bool objGen(CVekDataItem* item, int mode)
{
    dataSet(item, L"GENERATED", mode); // shows in whatever is made of it
    return true;
}
bool getBtLayer(const CVekDataItem* element, CVekString& visible, CVekString& hidden)
{ return dataGet(element, L"LAYER", visible) && dataGet(element, L"LAYER_H", hidden); }
bool layer_color(CVekColor& color, const CVekString& layer) // layers are called by the number of their colour
{
    if (atoi(layer) > 0)
        color.setColorIndex(static_cast<short>(atoi(layer)));
    return atoi(layer) > 0;
}
bool phys_layer(CVekString& layer, const wchar_t* logical, const wchar_t*)
{
    called("layer", narrow(logical));
    layer = L"9";
    return true;
}
CVekMatrix3d g_mtx_local(const CVekDataItem* item) { return moved(read(item, L"X", 0.0)); }
bool g_mtx_local(const CVekDataItem* item, double (*rows)[4], Vek::lUnit from, Vek::lUnit to)
{ rows[0][3] = read(item, L"X", 0.0); return from == Vek::unitNone && to == Vek::unitCurrent; }
bool isViewDirOrtho(const CVekMatrix3d&, const CVekMatrix3d&) { return script.isOrtho; }
bool isBtOrthoView(const CVekDataItem*, CVekMatrix3d mtx, const CVekMatrix3d&, const CVekDataItem* bt,
                   CVekMatrix3d& hostMatrix)
{
    called("along", keysOf(bt));
    hostMatrix = mtx * moved(3000.0);
    return script.isAlong;
}
bool getProjectedGeometry(const CVekDataItem* element, const CVekMatrix3d& mtx, const CVekMatrix3d&,
                          const CVekDataItem* parm, CVekArrayTempl<CVekVertexArrayEx>& visible,
                          CVekArrayTempl<CVekVertexArrayEx>& hidden, CVekArrayTempl<CSharedPointer<CVekDataItem>>&)
{
    called("geometry", keysOf(element), keysOf(parm));
    fill(visible, mtx.translation()[0], 0);
    fill(hidden, mtx.translation()[0], 100);
    return script.projects;
}
bool getExtrDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt, const CVekDataItem* parm,
                      const CVekMatrix3d&, const CVekMatrix3d&)
{ called(keysOf(bt)); return drillsFor("extrdrills", drills, element, parm); }
bool getAngleDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* bt, const CVekDataItem* parm,
                       const CVekMatrix3d&, const CVekMatrix3d&)
{ called(keysOf(bt)); return drillsFor("angledrills", drills, element, parm); }
bool getEdgeDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* parm, const CVekMatrix3d&,
                      const CVekMatrix3d&) { return drillsFor("edgedrills", drills, element, parm); }
bool getEdgeNDrillData(DrillList& drills, const CVekDataItem* element, const CVekDataItem* parm, const CVekMatrix3d&,
                       const CVekMatrix3d&) { return drillsFor("edgendrills", drills, element, parm); }
bool bgr_slx_bgr(CVek_Solid&, bool& hasSolid, CVekDataItem*, CVekDataItem* second, const CVekMatrix3d& mtx,
                 CVekDataItem* parm, bool cut, bool drills)
{
    called("slx", keysOf(second), mtx == CVekMatrix3d(), !parm, cut, drills);
    hasSolid = script.hasSolid;
    return true;
}
bool objModel(CVek_Solid&, const CVekDataItem*) { return script.hasModel; }

CVekDataItem* fsheet_get(const CVekArrayTempl<CVekString>& stack)
{ return stack.len() > 0 ? script.sheets.getItem(stack[0]) : nullptr; }
bool fsheet_sid(CDtaFilePointer* file, CVekString& id)
{ id = read(fileItem(file, L"ID"), nullptr, CVekString(L"none")); return true; }
bool fsheet_vll_fnc(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top, CVekVertexArray& bottom)
{ return profile("fnc", item, lines, top, bottom); }
bool fsheet_vll_fillet(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top, CVekVertexArray& bottom)
{ return profile("fillet", item, lines, top, bottom); }
bool fsheet_vll_region(const CVekDataItem* item, VertexArrays& lines) { return profile("region", item, lines); }
bool fsheet_vll_outline(const CVekDataItem* item, const CVekVertexArray& top, const CVekVertexArray& bottom,
                        const CVekArrayTempl<VertexArrays>& regions, VertexArrays& lines)
{ called("between", top[0].start[0], '-', bottom[0].start[0], 'r', regions.len()); return profile("outline", item, lines); }
bool fsheet_axis_vl(const VertexArrays& lines, double thickness, CVekVertexArray& axis)
{ axis = lineAt(0, 70 + thickness); return lines.len() > 0; }

Regions bar_regl(CDtaFilePointer* file, const CVekMatrix3d&)
{
    return {{lineAt(read(fileItem(file, L"X"), nullptr, 0.0), 0)}};
}
bool bar_bt_subs(CVekArrayTempl<CVekDataKey>& keys, CVekDataItem*, const CVekString& group, const CVekString& element)
{
    called("subs", narrow(group), '/', narrow(element));
    for (const wchar_t* name : {L"sub", L"absent", L"line", L"bare"})
        keys.append(CVekDataKey(name));
    return true;
}
bool g_outline(CVekVertexArray& outline, const CVekDataItem* item, Vek::lUnit unit)
{ outline = lineAt(read(item, L"W", 0.0), unit); return read(item, L"W", 0.0) > 0.0; }
CVekString getCfgKey(const CVekString& component) { return L"*ATT*\\" + component; }

} // namespace VEK

class CVekAttributeMgr::Attribute
{
};
CVekAttributeMgr::CVekAttributeMgr(const CVekString& component, const CVekString& second) : m_cfgKey(component)
{ called(narrow(component), narrow(second)); }
CVekAttributeMgr::~CVekAttributeMgr() = default;
bool CVekAttributeMgr::init() { VEK::dataSet(VEK::cfg_dir_make(L"*ATT*\\" + m_cfgKey), L"LEFT", 1); return true; }
bool CVekAttributeMgr::get_att(const CVekString& name, CVekString& value)
{
    const bool isGasket = m_cfgKey == L"DICHT";
    value = name == L"HPNAME" ? (isGasket ? L"GUM" : L"") : name == L"PART_CON" ? L"31" : L"32";
    return true;
}
bool CVekAttributeMgr::get_att(const CVekString& name, double& value)
{ value = name == L"HPSCALE" ? 2.5 : 0.5; return true; }
// clang-format on
