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
    // Keys ascend without gaps up to the first free one, so that key k stands at its own place.
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

void gdxMapSetAt(int key, const CVekGDX& gdx)
{
    objects()[key] = gdx;
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
    if (!name)
        return;
    if (fcn)
        functions()[name] = fcn;
    else
        functions().remove(name);
}

} // namespace VEK

bool vek_gdx_image(const wchar_t* name, CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    const VEK::GdxImageFcn* fcn = name ? functions().get(name) : nullptr;
    return fcn && (*fcn)(gdx, object, params);
}
