// Assemblies: every element of one by itself, or all of them as one solid.
#include "images/emission.h"

#include <vek/geometry/view.h>
#include <vek/images.h>
#include <vek/objects.h>

namespace
{

using VEK::dataGet, VEK::dataSet, VEK::valueOr;

/// What a parameter file asks of an assembly.
struct Wish {
    CVekString view;
    CVekString active;
    bool full = false;
    bool coord = false;
    bool ucs = false;
    int mode = 0;
    CVekMatrix3d mtx;
    CVekDataItem status; ///< the codes that are set, for the object services

    explicit Wish(const CVekDataItem* params)
    {
        dataGet(params, L"VIEW", view);
        dataGet(params, L"FULL", full);
        dataGet(params, L"ACT", active);
        dataGet(params, L"CMODE", mode);
        dataGet(params, L"COORD", coord);
        dataGet(params, L"MTX", mtx);
        ucs = params && params->getItem(L"UCS");
        for (const wchar_t* code : {L"GEN_STAT", L"BGR_STAT", L"BGR_STAT2"}) {
            const int value = valueOr(params, code, -1);
            if (value != -1)
                dataSet(&status, code, value);
        }
    }

    /// The parameters that the elements get.
    void writeTo(CVekDataItem& parm) const
    {
        parm.mkDir();
        if (mode != 0)
            dataSet(&parm, L"CMODE", mode);
        dataSet(&parm, L"MTX", mtx);
        if (!active.isNull())
            dataSet(&parm, L"ACT", active);
        if (coord)
            dataSet(&parm, L"COORD", true);
    }
};

/// The whole assembly as one solid. Hidden lines are dropped whatever the colour mode: this is the picture for paper.
bool imageFull(CVekGDX& gdx, CVekDataItem* object, Wish& wish, const CVekMatrix3d& view)
{
    CVek_Solid solid;
    bool hasSolid = false;
    VEK::bgr_slx_bgr(solid, hasSolid, object, &wish.status, CVekMatrix3d::kIdentity, nullptr, false, true);
    if (hasSolid)
        solid.solid();
    CVekArrayTempl<CVekVertexArrayEx> visible;
    CVekArrayTempl<CVekVertexArrayEx> hidden;
    const bool good = solid.project(view, true, visible, hidden, vekModelerFaces);
    VEK::Emission(gdx).lines(VEK::modeFlag(wish.mode & 15), visible, CVekColor());
    return good;
}

} // namespace

bool vek_gdx_image_bgr(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    if (!gdx || !object)
        return false;
    return VEK::emitWhole(*gdx, [&] {
        Wish wish(VEK::rootOf(params));
        const CVekMatrix3d view = VEK::g_mtx_view_dir(wish.view, CVekPoint3d::kOrigin).inverse();
        if (wish.coord)
            VEK::Emission(*gdx).mark(VEK::colorBase, CVekPoint3d::kOrigin);
        CVekDataItem* root = VEK::rootOf(object);
        if (wish.full) // without the axes: a picture for paper has none
            return imageFull(*gdx, root, wish, view);
        CVekDataItem parm;
        wish.writeTo(parm);
        const bool good = vek_gdx_image_bgr(gdx, root, &wish.status, wish.mtx, view, &parm, 1.0, 0.0);
        if (wish.ucs) // the axes of "E" are those of "W", by which stored pictures are known
            vek_gdx_image_ucs(gdx,
                              VEK::g_mtx_view_dir(wish.view == L"E" ? L"W" : static_cast<const wchar_t*>(wish.view),
                                                  CVekPoint3d::kOrigin));
        return good;
    });
}

bool vek_gdx_image_bgr(CVekGDX* gdx, CVekDataItem* object, CVekDataItem* second, CVekMatrix3d& mtx,
                       const CVekMatrix3d& view, CVekDataItem* parm, double scale, double aux)
{
    if (!gdx || !object || !second || !VEK::isDir(parm))
        return false;
    return VEK::emitWhole(*gdx, [&] {
        const CVekString active = valueOr(parm, L"ACT", CVekString());
        CVekMapTempl<BgrBt, CVekDataItem> elements;
        vek_bgr_strong(object, second, CVekMatrix3d::kIdentity, 1, parm, elements);
        for (auto& [key, entry] : elements) {
            const auto& [source, name] = static_cast<const std::pair<CVekDataItem*, CVekString>&>(key);
            const VEK::CUniqPointer<CVekDataItem> merged(VEK::bgr_data_merge(source, name, second));
            if (!merged)
                continue;
            CVekDataItem* own = entry.makeDir(L"PARM");
            Vek::lUnit defaultUnit{};
            Vek::lUnit insertionUnit{};
            VEK::lobj_unit(source, defaultUnit);
            VEK::bgr_bt_unit(source, name, insertionUnit);
            dataSet(own, L"DEFUNIT", defaultUnit);
            dataSet(own, L"INSUNIT", insertionUnit);
            if (own && elements.len() > 1 && name != active) // only the active one of several shows its marks
                own->remove(L"COORD");
            CVekMatrix3d placed = VEK::getBtTransformation(merged, &entry, mtx, scale, aux);
            vek_gdx_image_bgr_bt(gdx, merged, placed, view, own);
        }
        return true;
    });
}
