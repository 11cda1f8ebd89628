// The extrusion that the host draws, the axes of a coordinate system, and the preview of the wall editor.
#include "images/emission.h"

#include <vek/data/app.h>
#include <vek/display/registry.h>
#include <vek/images/object.h>

namespace
{

using VEK::dataGet, VEK::dataSet, VEK::isDir;

/// A tree as an argument of a function of the host; nil for none.
resbuf* argumentOf(const CVekDataItem* item)
{
    if (!item)
        return vekNewRb(VEK::rbNil);
    return isDir(item) ? VEK::rbToList(item->mkLisp()) : item->mkLisp();
}

/// An item of the wall editor in the configuration.
const CVekDataItem* wallItem(const wchar_t* name)
{
    const CVekDataKey key(5005, L"*WALL_EDIT*", 5005, name, 0);
    return VEK::cfg_get(&key);
}

} // namespace

bool vek_gdx_image_extr(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    const int key = gdx && object ? createGdxInMap(nullptr) : -1;
    if (key < 0)
        return false;
    const bool called = VEK::whole(false, [&] {
        const CVekDataItem* wish = VEK::rootOf(params);
        VEK::CUniqResbuf arguments(VEK::mkResbuf(key, VEK::rbLong));
        arguments.append(argumentOf(VEK::rootOf(object)));
        arguments.append(argumentOf(isDir(wish) ? wish : nullptr));
        VEK::CUniqResbuf result; // what counts is in the display object of the key
        vekAppPtr()->callFunction(L"vek_gdx_image_extr", arguments, result);
        return true;
    });
    const CVekGDX* drawn = getGdxFromMap(key);
    const bool any = called && drawn && drawn->lenGet() > 0 && gdx->addDisplayList(drawn->getDisplayList());
    if (any)
        gdx->projMtxSet(CVekMatrix3d::kIdentity);
    // An object into which the host has drawn nothing stays: it may still do so, under the key that it was given.
    if (any || !called)
        gdxMapRemoveAt(key);
    return any;
}

bool vek_gdx_image_ucs(CVekGDX* gdx, const CVekMatrix3d& mtx)
{
    if (!gdx)
        return false;
    CVekVector3d::tol = 0.001; // stays: whoever compares directions after this sees them as the axes do
    return VEK::emitWhole(*gdx, [&] {
        constexpr unsigned long kFlag = VEK::modeFlag(VEK::colorAux) | itemScreenFixed;
        CVekDataItem text;
        dataSet(&text, L"HEIGHT", 0.04);
        dataSet(&text, L"ALIGN", L"CC");
        for (int i = 0; i < 3; ++i) {
            if (mtx.axis(i) == CVekVector3d::kZAxis) // it points at the viewer
                continue;
            const CVekVector3d axis = CVekMatrix3d::kIdentity.axis(i);
            CVekVertexArray line(CVekVertex(CVekPoint3d::kOrigin, CVekPoint3d::kOrigin + axis * 0.15));
            VEK::Emission(*gdx).line(kFlag, std::move(line.transformBy(mtx)), {});
            const wchar_t name[] = {static_cast<wchar_t>(L'X' + i), L'\0'};
            dataSet(&text, L"TEXT", name);
            CVekMatrix3d place;
            place.setToTranslation(axis * 0.19 * mtx);
            gdx->imageTxt({}, kFlag, &text, CVekColor(), place, 20.0, CVekPoint3d::kOrigin);
        }
        return true;
    });
}

bool vek_wall_edit_image(CVekGDX* gdx, VEK::CDtaFilePointer* params)
{
    const VEK::CUniqPointer<VEK::CDtaFilePointer> file(gdx ? VEK::dtaOpen(vekDtaMemory, 3, nullptr, nullptr) : nullptr);
    const bool show = file && VEK::whole(false, [&] {
                          CVekArrayTempl<CVekDataKey> keys;
                          const CVekDataKey elements(L"SN");
                          if (params)
                              params->dir(keys, &elements);
                          // The number is read by the key's text, which is its first element alone: an editor that
                          // keeps its state below "*WALL_EDIT*" so shows nothing until the parameters name an
                          // element, one that keeps the bare number there shows at once.
                          const CVekDataKey numberKey(5005, L"*WALL_EDIT*", 5005, L"BT", 0);
                          const CVekDataItem* numberItem = VEK::cfg_get(static_cast<const wchar_t*>(numberKey));
                          int number = 0;
                          bool isShown = numberItem && numberItem->get(number, nullptr);
                          const CVekDataKey sought(5003, number, 0);
                          bool isThere = keys.len() == 0;
                          for (int i = 0; i < keys.len() && !isThere; ++i)
                              isThere = keys[i] == sought;
                          if (!isThere) {
                              number = keys[0];
                              isShown = true;
                          }
                          CVekString mode;
                          CVekString cornerMode;
                          CVekVertexArray line;
                          dataGet(wallItem(L"MODE"), nullptr, mode);
                          dataGet(wallItem(L"VL"), nullptr, line);
                          dataGet(VEK::rootOf(params), L"CORNER\\MODE", cornerMode);
                          CVekDataItem* root = VEK::rootOf(file);
                          dataSet(root, L"VL", line);
                          if (mode == L"SHELL" || (mode == L"CORNER" && cornerMode == L"SHELL"))
                              dataSet(root, L"ACT", number);
                          dataSet(root, L"COORD", 1);
                          return isShown;
                      });
    return show && vek_gdx_image(L"WALL", gdx, params, file);
}
