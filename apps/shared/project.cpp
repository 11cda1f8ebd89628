#include "project.h"

#include "failure.h"
#include "input.h"

#include "core/platform/platform.h"

#include <vek/data.h>
#include <vek/geometry/view.h>
#include <vek/images.h>
#include <vek/json.h>
#include <vek/objects.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>

namespace
{

using VEK::dataGet, VEK::dataSet;
using File = VEK::CUniqPointer<VEK::CDtaFilePointer>;

constexpr const char* kKeys[] = {"OBJ", "BT", "BGR", "DEF", "LOBJ", "KIND"};

/// A generator, and the options that it knows.
struct Kind {
    const char* name;
    bool (*draw)(CVekGDX*, VEK::CDtaFilePointer*, VEK::CDtaFilePointer*);
    const char* options;
};

const Kind kKinds[] = {{"bgr", vek_gdx_image_bgr, "view full cmode act coord ucs"},
                       {"fsheet", vek_gdx_image_fsheet, "coord"},
                       {"bar", vek_gdx_image_bar_surface, ""},
                       {"drill", vek_gdx_image_drill, "cmode coord"},
                       {"hole", vek_gdx_image_hole, "cmode act coord"},
                       {"extr", vek_gdx_image_extr, "view cmode"}};

const Kind* kindOf(const std::string& name)
{
    const auto found =
        std::find_if(std::begin(kKinds), std::end(kKinds), [&](const Kind& kind) { return name == kind.name; });
    return found != std::end(kKinds) ? found : nullptr;
}

bool isView(const std::string& name)
{
    constexpr const char* kViews[] = {"P", "N", "S", "O", "W", "NO", "NW", "SO", "SW", "E"};
    return std::find(std::begin(kViews), std::end(kViews), name) != std::end(kViews);
}

void copyChild(CVekDataItem& to, const wchar_t* key, const CVekDataItem* child)
{
    const CVekDataKey name(key);
    if (child && !to.getItem(&name))
        to.getDir()->insertCopy(&name, child, true);
}

CVekDataItem loaded(const std::string& path)
{
    CVekDataItem tree;
    CVekString error;
    if (!VEK::jsonLoad(tree, wide(path), error))
        throw Failure(utf8(error));
    checkMemory();
    return tree;
}

/// The parameters of an object, with what is wished over them.
CVekDataItem parametersOf(const ProjectObject& object, const ObjectWish& wish)
{
    CVekDataItem parm(CVekDataItem::directory);
    if (const CVekDataItem* own = object.item->getItem(L"PARM"); own && own->isDir())
        parm = *own;
    if (!wish.view.empty())
        dataSet(&parm, L"VIEW", wide(wish.view));
    if (!wish.active.empty())
        dataSet(&parm, L"ACT", wide(wish.active));
    if (wish.mode != 0)
        dataSet(&parm, L"CMODE", wish.mode);
    if (wish.full)
        dataSet(&parm, L"FULL", true);
    if (wish.coord)
        dataSet(&parm, L"COORD", true);
    if (wish.ucs)
        dataSet(&parm, L"UCS", true);
    return parm;
}

/// The configured colours of the modes, and the look of points without one of their own.
void takeLook(CVekGDX& gdx)
{
    const CVekGDX configured;
    for (const int mode : {VEK::colorHighlight, VEK::colorRefer, VEK::colorAxis, VEK::colorBase, VEK::colorAux})
        gdx.ColorTabSet(mode, configured.colorTabGet(mode));
    gdx.pdModeSet(configured.pdModeGet());
    gdx.pdSizeSet(configured.pdSizeGet());
}

} // namespace

bool isProject(const std::string& path)
{
    if (ending(path) != ".json")
        return false;
    const nlohmann::json tree = nlohmann::json::parse(readWhole(path), nullptr, false);
    return std::any_of(std::begin(kKeys), std::end(kKeys), [&](const char* key) { return tree.contains(key); });
}

Project::Project(const std::string& path) : m_path(path)
{
    m_before.attach(nullptr);
    m_root = loaded(path);
    m_root.mkDir(); // a file of one value has no objects
    const std::filesystem::path file = VEK::platform::pathOf(VEK::platform::wideOf(path));
    CVekArrayTempl<CVekString> used;
    dataGet(&m_root, L"USE", used);
    for (const CVekString& name : used) {
        const std::filesystem::path other =
            file.parent_path() / VEK::platform::pathOf(static_cast<const wchar_t*>(name));
        const CVekDataItem roots = loaded(VEK::platform::utf8Of(VEK::platform::textOf(other)));
        configure(&roots);
    }
    configure(m_root.getItem(L"CFG"));

    const CVekDataItem* others = m_root.getItem(L"OBJ");
    CVekString kind;
    if (dataGet(&m_root, L"KIND", kind) || m_root.getItem(L"BT") || m_root.getItem(L"BGR") || !others)
        m_objects.push_back({VEK::platform::textOf(file.stem()).c_str(), utf8(kind), &m_root});
    for (VEK::CDataIterator child(others); !child.done(); child.next()) {
        CVekString own;
        dataGet(child, L"KIND", own);
        if (child->isDir() && child->getKey()->isText())
            m_objects.push_back({CVekString(*child->getKey()), utf8(own), child.item()});
    }
    checkMemory();
}

/// Each root takes the place of one of the same name.
void Project::configure(const CVekDataItem* roots)
{
    for (VEK::CDataIterator root(roots); !root.done(); root.next())
        VEK::cfgMgrPtr()->tree()->getDir()->insertCopy(root->getKey(), root, true);
}

const ProjectObject& Project::find(const ObjectWish& wish) const
{
    const CVekString wanted = wide(wish.object);
    for (const ProjectObject& object : m_objects) {
        const std::string& kind = object.kind.empty() ? "bgr" : object.kind;
        const bool isKind = wish.kind.empty() || wish.kind == kind || (object.kind.empty() && m_objects.size() == 1);
        if (isKind && (wish.object.empty() || object.name.compareNoCase(wanted) == 0))
            return object;
    }
    throw Failure(m_path + ": has no object" + (wish.object.empty() ? "" : " " + wish.object) +
                  (wish.kind.empty() ? "" : " of kind " + wish.kind));
}

/// What an object of the project lacks of these it has from the project.
CVekDataItem Project::dataOf(const ProjectObject& object) const
{
    CVekDataItem data(*object.item);
    for (const wchar_t* key : {L"UNIT", L"COMMON", L"DEF"})
        copyChild(data, key, m_root.getItem(key));
    return data;
}

void Project::check(const ProjectObject& object, const ObjectWish& wish) const
{
    const std::string& kind = wish.kind.empty() ? object.kind : wish.kind;
    const std::string known = kindOf(kind)->options;
    const auto expect = [&](bool isWished, const std::string& option) {
        if (isWished && known.find(option) == known.npos)
            throw Failure("--" + option + ": has no place with an object of kind " + kind);
    };
    expect(!wish.view.empty(), "view");
    expect(wish.full, "full");
    expect(wish.mode != 0, "cmode");
    expect(!wish.active.empty(), "act");
    expect(wish.coord, "coord");
    expect(wish.ucs, "ucs");
    if (!wish.view.empty() && !isView(wish.view))
        throw Failure("--view " + wish.view + ": not one of P, N, S, O, W, NO, NW, SO, SW, E");
    if (wish.active.empty())
        return;
    const CVekString active = wide(wish.active);
    const CVekDataKey hole(5005, L"BT", 5005, static_cast<const wchar_t*>(active), 0);
    const std::vector<ProjectElement> all = kind == "bgr" ? elements(object) : std::vector<ProjectElement>();
    if (kind == "hole"
            ? !object.item->getItem(&hole)
            : std::none_of(all.begin(), all.end(), [&](const ProjectElement& e) { return e.name == active; }))
        throw Failure("--act " + wish.active + ": there is no such element");
}

void Project::draw(CVekGDX& gdx, const ObjectWish& asked) const
{
    const ProjectObject& object = find(asked);
    ObjectWish wish = asked;
    if (wish.kind.empty())
        wish.kind = object.kind.empty() ? "bgr" : object.kind;
    const Kind* kind = kindOf(wish.kind);
    if (!kind)
        throw Failure(m_path + ": " + utf8(object.name) + " is of the unknown kind " + wish.kind);
    check(object, wish);
    takeLook(gdx);
    const CVekDataItem data = dataOf(object);
    const CVekDataItem parm = parametersOf(object, wish);
    const File objectFile(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &data));
    const File paramFile(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &parm));
    const bool isDrawn = kind->draw(&gdx, objectFile, paramFile);
    checkMemory();
    if (!isDrawn || gdx.lenGet() == 0)
        throw Failure(m_path + ": " + utf8(object.name) + " has nothing to draw as " + wish.kind);
}

void Project::forEachElement(CVekDataItem& data, CVekDataItem* parm, const Found& found) const
{
    CVekMapTempl<BgrBt, CVekDataItem> entries;
    vek_bgr_strong(&data, nullptr, CVekMatrix3d::kIdentity, 1, parm, entries);
    for (auto& [key, entry] : entries) {
        const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(key.first, key.second, nullptr));
        if (!merged)
            continue;
        CVekDataItem* own = entry.makeDir(L"PARM");
        Vek::lUnit defaultUnit{}, insertionUnit{};
        VEK::lobj_unit(key.first, defaultUnit);
        VEK::bgr_bt_unit(key.first, key.second, insertionUnit);
        dataSet(own, L"DEFUNIT", defaultUnit);
        dataSet(own, L"INSUNIT", insertionUnit);
        found(*merged, entry, key.second);
    }
    checkMemory();
}

std::vector<ProjectElement> Project::drawElements(CVekGDX& gdx, const ObjectWish& wish, double scale) const
{
    const ProjectObject& object = find(wish);
    CVekDataItem data = dataOf(object);
    CVekDataItem parm = parametersOf(object, wish);
    const CVekMatrix3d view = VEK::g_mtx_view_dir(wide(wish.view), CVekPoint3d::kOrigin).inverse();
    double carried = 0.0;
    std::vector<ProjectElement> drawn;
    takeLook(gdx);
    forEachElement(data, &parm, [&](CVekDataItem& merged, CVekDataItem& entry, const CVekString& name) {
        CVekMatrix3d placed = VEK::getBtTransformation(&merged, &entry, CVekMatrix3d::kIdentity, scale, carried);
        vek_gdx_image_bgr_bt(&gdx, &merged, placed, view, entry.getItem(L"PARM"));
        CVekString type;
        dataGet(&merged, L"TYPE", type);
        drawn.push_back({name, type, gdx.lenGet()});
    });
    return drawn;
}

std::vector<ProjectElement> Project::elements(const ProjectObject& object) const
{
    CVekDataItem data = dataOf(object);
    std::vector<ProjectElement> all;
    forEachElement(data, nullptr, [&](CVekDataItem& merged, CVekDataItem&, const CVekString& name) {
        CVekString type;
        dataGet(&merged, L"TYPE", type);
        all.push_back({name, type, 0});
    });
    return all;
}
