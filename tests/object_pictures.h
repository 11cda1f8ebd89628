/// @file
/// Every picture of a tree of "CONFIG", "OBJECT" and "PARAMS", for tests and fuzz targets that change such trees.
#pragma once

#include <vek/vek.h>

#include <string>
#include <vector>

namespace object_pictures
{

struct Picture {
    const char* name;
    CVekGDX gdx;
    bool good;
};

using File = VEK::CUniqPointer<VEK::CDtaFilePointer>;

/// Draws what a tree describes: the assembly, the element and the bar "post", the sheets
/// "PLAIN" and "PANEL", drills, holes and the wall. The host is installed by the caller, and the configuration is as
/// before afterwards.
inline std::vector<Picture> draw(const CVekDataItem& tree)
{
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    for (VEK::CDataIterator child(tree.getItem(L"CONFIG")); !child.done(); child.next())
        VEK::cfgMgrPtr()->tree()->getDir()->insertCopy(child->getKey(), child, true);
    const CVekDataItem params(tree.getItem(L"PARAMS"));
    const CVekDataItem object(tree.getItem(L"OBJECT"));
    std::vector<Picture> pictures;
    const auto add = [&](const char* name, auto generator, auto change) {
        CVekDataItem wish(params);
        CVekDataItem data(object);
        change(wish, data);
        const File objectFile(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &data));
        const File paramFile(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &wish));
        Picture& picture = pictures.emplace_back(Picture{name, CVekGDX(), false});
        picture.good = generator(&picture.gdx, objectFile, paramFile);
    };
    using Generator = bool (*)(CVekGDX*, VEK::CDtaFilePointer*, VEK::CDtaFilePointer*);
    const Generator assembly = vek_gdx_image_bgr;
    add("assembly", assembly, [](auto&, auto&) {});
    add("extrusion", vek_gdx_image_extr, [](auto&, auto& data) {
        const CVekDataItem element(data.getItem(L"BT\\post"));
        data = element;
    });
    add("bar", vek_gdx_image_bar_surface, [](auto& wish, auto&) { VEK::dataSet(&wish, L"BT", L"post"); });
    add("sheet", vek_gdx_image_fsheet, [](auto&, auto&) {});
    add("panel", vek_gdx_image_fsheet,
        [](auto&, auto& data) { VEK::dataSet(&data, L"LOBJ\\STACK", CVekArrayTempl<CVekString>{L"PANEL"}); });
    for (const int view : {0, 3})
        add(view == 0 ? "drill" : "drill as a solid", vek_gdx_image_drill, [&](auto&, auto& data) {
            data.remove(L"BT"); // it is a drill by itself
            VEK::dataSet(&data, L"VIEW", view);
        });
    add("holes", vek_gdx_image_hole, [](auto&, auto&) {});
    add(
        "wall",
        [](CVekGDX* gdx, VEK::CDtaFilePointer*, VEK::CDtaFilePointer* own) { return vek_wall_edit_image(gdx, own); },
        [](auto&, auto&) {});
    while (gdxMapKeyNew() > 1) // what an extrusion without lines has left
        gdxMapRemoveAt(gdxMapKeyNew() - 1);
    return pictures;
}

} // namespace object_pictures
