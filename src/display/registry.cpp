#include "display/registry.h"

#include "core/values/whole.h"

#include <vek/display/registry.h>
#include <vek/values/map.h>

namespace
{

CVekMapTempl<int, CVekGDX>& objects()
{
    static CVekMapTempl<int, CVekGDX> map;
    return map;
}

CVekMapTempl<CVekString, VEK::GdxImageFcn>& functions()
{
    static CVekMapTempl<CVekString, VEK::GdxImageFcn> map;
    return map;
}

} // namespace

int gdxMapKeyNew()
{
    // The map is sorted by key, so the first gap from 1 on is the smallest free key.
    const CVekMapTempl<int, CVekGDX>& map = objects();
    int at = 0;
    map.find(1, at);
    int key = 1;
    while (at < map.len() && map.keyAt(at) == key) {
        ++key;
        ++at;
    }
    return key;
}

bool VEK::gdxMapMoveTo(int key, CVekGDX&& gdx)
{
    CVekMapTempl<int, CVekGDX>& map = objects();
    if (!map.get(key))
        map[key]; // enters it, unless memory runs out
    CVekGDX* place = map.get(key);
    if (place)
        *place = std::move(gdx);
    return place != nullptr;
}

void gdxMapSetAt(int key, const CVekGDX& gdx)
{
    const unsigned long shortages = VEK::memoryShortages();
    CVekGDX copy(gdx);
    if (VEK::memoryShortages() == shortages)
        VEK::gdxMapMoveTo(key, std::move(copy));
}

bool gdxMapRemoveAt(int key)
{
    return objects().remove(key);
}

CVekGDX* getGdxFromMap(int key)
{
    return objects().get(key);
}

namespace VEK
{

void setGdxImageFcn(const wchar_t* name, GdxImageFcn fcn)
{
    const unsigned long shortages = memoryShortages();
    const CVekString key(name);
    if (!name || memoryShortages() != shortages)
        return;
    if (fcn)
        functions()[key] = fcn;
    else
        functions().remove(key);
}

} // namespace VEK

bool vek_gdx_image(const wchar_t* name, CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    const unsigned long shortages = VEK::memoryShortages();
    const CVekString key(name);
    const VEK::GdxImageFcn* fcn = name && VEK::memoryShortages() == shortages ? functions().get(key) : nullptr;
    return fcn && (*fcn)(gdx, object, params);
}
