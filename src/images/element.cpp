// Elements of an assembly.
#include "images/emission.h"

#include <vek/data/app.h>
#include <vek/geometry.h>
#include <vek/images.h>
#include <vek/objects.h>

namespace
{

using VEK::dataGet, VEK::dataSet, VEK::isDir, VEK::valueOr;

/// A copy of the definition of an element, empty where there is none.
CVekDataItem definitionOf(const CVekDataItem* element)
{
    return CVekDataItem(element->getItem(L"BT"));
}

/// Where the colour of the hidden lines comes from.
enum class Hidden {
    hiddenLayer,
    visibleLayer,
    none, ///< an unset colour
};

/// Draws the projection of an element in the colours of the layers that `source` names.
bool imageProjection(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                     CVekDataItem* parm, const CVekDataItem* source, Hidden from)
{
    CVekString visibleLayer;
    CVekString hiddenLayer;
    VEK::getBtLayer(source, visibleLayer, hiddenLayer);
    CVekColor visible;
    CVekColor hidden;
    VEK::layer_color(visible, visibleLayer);
    if (from == Hidden::hiddenLayer)
        VEK::layer_color(hidden, hiddenLayer);
    return vek_gdx_image_bgr_obj(gdx, element, mtx, view, parm, visible,
                                 from == Hidden::visibleLayer ? visible : hidden);
}

/// Runs a generator of an element whose arguments are valid.
template <class Job>
bool imageElement(CVekGDX* gdx, const CVekDataItem* element, const CVekDataItem* parm, Job&& job)
{
    return gdx && isDir(element) && isDir(parm) && VEK::emitWhole(*gdx, std::forward<Job>(job));
}

/// Draws the drills of an element, below the element, and keeps them out of its projection.
/// @param drillsOf fills a list of drills, or gives false, which is no failure of the picture
template <class DrillsOf>
void imageDrills(CVekGDX* gdx, const CVekMatrix3d& view, CVekDataItem* parm, DrillsOf&& drillsOf)
{
    dataSet(parm, L"NO_DRILL", 1);
    DrillList drills;
    if (!drillsOf(drills))
        return;
    for (auto& [drill, mtx] : drills)
        vek_gdx_image_bgr_drill(gdx, drill, mtx, view, parm);
}

/// Draws a drill or a standard part: along its axis the host does, otherwise it is a projection like any other.
bool imagePart(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view, CVekDataItem* parm,
               Hidden from)
{
    return imageElement(gdx, element, parm, [&] {
        CVekDataItem bt = definitionOf(element);
        VEK::objGen(&bt, 0);
        CVekMatrix3d hostMatrix;
        if (!VEK::isBtOrthoView(element, mtx, view, &bt, hostMatrix))
            return imageProjection(gdx, element, mtx, view, parm, &bt, from);
        CVekDataItem wish;
        dataSet(&wish, L"MTX", hostMatrix);
        dataSet(&wish, L"CMODE", valueOr(parm, L"CMODE", 0));
        return vekAppPtr()->imageObject(gdx, &bt, &wish);
    });
}

using Generator = bool (*)(CVekGDX*, CVekDataItem*, CVekMatrix3d&, const CVekMatrix3d&, CVekDataItem*);

bool imageSlice(CVekGDX* gdx, CVekDataItem*, CVekMatrix3d& mtx, const CVekMatrix3d& view, CVekDataItem* parm)
{
    return vek_gdx_image_bgr_slice(gdx, mtx, view, parm);
}

bool imageCompound(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view, CVekDataItem* parm)
{
    parm->remove(L"CUT");
    return vek_gdx_image_bgr_compound(gdx, element, mtx, view, parm);
}

bool imageSheet(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view, CVekDataItem* parm)
{
    const CVekString construction = valueOr(element, L"SCONS", CVekString());
    const Generator generator = construction == L"EDGE"     ? vek_gdx_image_bgr_edge
                                : construction == L"EDGE_N" ? vek_gdx_image_bgr_edge_n
                                                            : vek_gdx_image_bgr_sheet;
    return generator(gdx, element, mtx, view, parm);
}

constexpr struct {
    const wchar_t* type;
    Generator generator;
} kGenerators[] = {
    {L"ROT", vek_gdx_image_bgr_rot},
    {L"ANGLE", vek_gdx_image_bgr_angle},
    {L"EXTR", vek_gdx_image_bgr_extr},
    {L"HATCH", vek_gdx_image_bgr_path},
    {L"DRILL", vek_gdx_image_bgr_drill},
    {L"MRA_NM", vek_gdx_image_bgr_nm},
    {L"SCORD", vek_gdx_image_bgr_scord},
    {L"PATH", vek_gdx_image_bgr_path},
    {L"SLICE", imageSlice},
    {L"COMPOUND", imageCompound},
    {L"SHEET", imageSheet},
};

} // namespace

bool vek_gdx_image_bgr_bt(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                          CVekDataItem* parm)
{
    return imageElement(gdx, element, parm, [&] {
        if (!VEK::checkBt(element, parm))
            return false;
        CVekDataItem obj(*element);
        CVekDataItem own(*parm);
        VEK::objGen(&obj, 0);
        const CVekString type = valueOr(element, L"TYPE", CVekString());
        dataSet(&own, L"MTX", mtx);
        if (valueOr(&own, L"CMODE", 0) == VEK::colorHighlight && valueOr(&own, L"COORD", false))
            VEK::Emission(*gdx).mark(VEK::colorHighlight, VEK::getBtBasePoint(mtx, view, CVekPoint3d::kOrigin));
        own.remove(L"COORD");
        for (const auto& row : kGenerators) {
            if (type == row.type)
                return row.generator(gdx, &obj, mtx, view, &own);
        }
        return false;
    });
}

bool vek_gdx_image_bgr_obj(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                           CVekDataItem* parm, const CVekColor& visible, const CVekColor& hidden)
{
    return imageElement(gdx, element, parm, [&] {
        CVekArrayTempl<CVekVertexArrayEx> visibleLines;
        CVekArrayTempl<CVekVertexArrayEx> hiddenLines;
        {
            CVekArrayTempl<VEK::CSharedPointer<CVekDataItem>> shared;
            if (!VEK::getProjectedGeometry(element, mtx, view, parm, visibleLines, hiddenLines, shared))
                return false;
        }
        const int mode = valueOr(parm, L"CMODE", 0);
        const VEK::Emission emission(*gdx);
        emission.lines(VEK::modeFlag(mode), visibleLines, visible);
        if (mode == VEK::colorHighlight)
            emission.lines(VEK::modeFlag(VEK::colorAux), hiddenLines, hidden);
        return true;
    });
}

bool vek_gdx_image_bgr_rot(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                           CVekDataItem* parm)
{
    return imageElement(gdx, element, parm,
                        [&] { return imageProjection(gdx, element, mtx, view, parm, element, Hidden::none); });
}

bool vek_gdx_image_bgr_angle(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                             CVekDataItem* parm)
{
    return imageElement(gdx, element, parm, [&] {
        const CVekDataItem bt = definitionOf(element);
        CVekDataItem checked(*element);
        for (const wchar_t* unit : {L"INSUNIT", L"DEFUNIT"})
            dataSet(&checked, unit, valueOr(parm, unit, Vek::unitNone));
        if (!vek_bgr_bt_angle_check(&checked))
            return false;
        if (VEK::isViewDirOrtho(mtx, view))
            imageDrills(gdx, view, parm, [&](DrillList& drills) {
                return VEK::getAngleDrillData(drills, element, &bt, parm, mtx, view);
            });
        return imageProjection(gdx, element, mtx, view, parm, element, Hidden::visibleLayer);
    });
}

bool vek_gdx_image_bgr_extr(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                            CVekDataItem* parm)
{
    return imageElement(gdx, element, parm, [&] {
        CVekDataItem bt = definitionOf(element);
        if (bt.getItem(L"TYPE"))
            VEK::objGen(&bt, 0);
        if (VEK::isViewDirOrtho(mtx, view))
            imageDrills(gdx, view, parm, [&](DrillList& drills) {
                return VEK::getExtrDrillData(drills, element, &bt, parm, mtx, view);
            });
        return imageProjection(gdx, element, mtx, view, parm, element, Hidden::hiddenLayer);
    });
}

bool vek_gdx_image_bgr_path(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                            CVekDataItem* parm)
{
    return imageElement(gdx, element, parm,
                        [&] { return imageProjection(gdx, element, mtx, view, parm, element, Hidden::visibleLayer); });
}

bool vek_gdx_image_bgr_hatch(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                             CVekDataItem* parm)
{
    return vek_gdx_image_bgr_path(gdx, element, mtx, view, parm);
}

bool vek_gdx_image_bgr_compound(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                                CVekDataItem* parm)
{
    return vek_gdx_image_bgr_path(gdx, element, mtx, view, parm);
}

bool vek_gdx_image_bgr_drill(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                             CVekDataItem* parm)
{
    return imagePart(gdx, element, mtx, view, parm, Hidden::visibleLayer);
}

bool vek_gdx_image_bgr_nm(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                          CVekDataItem* parm)
{
    return imagePart(gdx, element, mtx, view, parm, Hidden::none);
}

bool vek_gdx_image_bgr_scord(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                             CVekDataItem* parm)
{
    return imageElement(gdx, element, parm, [&] {
        const CVekDataItem bt = definitionOf(element);
        if (!bt.isDir())
            return false;
        CVekDataItem part; // used again for each child, which replaces what is its own
        CVekDataDir* const keys = part.mkDir();
        if (!keys)
            return false;
        for (const wchar_t* name : {L"PART", L"CUT", L"BGR"}) {
            const CVekDataKey key(name);
            if (const CVekDataItem* common = element->getItem(&key))
                keys->insertCopy(&key, common, true);
        }
        for (VEK::CDataIterator child(&bt); !child.done(); child.next()) {
            CVekString type;
            if (!dataGet(child, L"BT\\TYPE", type))
                continue;
            const bool isDrill = type == L"DRILL";
            if (!isDrill && type != L"DIN")
                continue;
            CVekMatrix3d placed = mtx * valueOr(child, L"MTX", CVekMatrix3d());
            const CVekDataKey key(L"BT");
            keys->insertCopy(&key, child->getItem(&key), true);
            dataSet(&part, L"TYPE", isDrill ? L"DRILL" : L"MRA_NM");
            part.remove(isDrill ? L"UNION" : L"SUBTRACT");
            dataSet(&part, isDrill ? L"SUBTRACT" : L"UNION", isDrill ? 1 : 0);
            (isDrill ? vek_gdx_image_bgr_drill : vek_gdx_image_bgr_nm)(gdx, &part, placed, view, parm);
        }
        return true;
    });
}

bool vek_gdx_image_bgr_slice(CVekGDX* gdx, CVekMatrix3d& mtx, const CVekMatrix3d& view, CVekDataItem* parm)
{
    return imageElement(gdx, parm, parm, [&] {
        int mode = valueOr(parm, L"CMODE", 0);
        if (mode == 0)
            mode = VEK::colorAxis;
        CVekString layer(L"0");
        VEK::phys_layer(layer, L"ACHSE", nullptr); // enters the layer in the drawing; the colour mode alone decides
        CVekPoint3dArray axis;
        axis.append(CVekPoint3d::kOrigin);
        axis.append(CVekPoint3d(0.0, 0.0, 10.0));
        const CVekMatrix3d toView = view.inverse();
        for (CVekVertexArray shape : {VEK::g_outline(22, CVekVector3d(), CVekArrayTempl<double>{-10.0}),
                                      CVekVertexArray().fromPoints(axis, false)}) {
            shape = VEK::vl_split_dif(std::move(shape), 0.1);
            shape.transformBy(mtx);
            VEK::Emission(*gdx).line(VEK::modeFlag(mode), VEK::g_vl_proje_mtx_orig(std::move(shape), toView, 0.1), {});
        }
        return true;
    });
}

bool vek_gdx_image_bgr_edge(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                            CVekDataItem* parm)
{
    return imageElement(gdx, element, parm, [&] {
        dataSet(parm, L"MTX_PR", view);
        imageDrills(gdx, view, parm,
                    [&](DrillList& drills) { return VEK::getEdgeDrillData(drills, element, parm, mtx, view); });
        return imageProjection(gdx, element, mtx, view, parm, element, Hidden::hiddenLayer);
    });
}

bool vek_gdx_image_bgr_edge_n(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                              CVekDataItem* parm)
{
    return imageElement(gdx, element, parm, [&] {
        if (VEK::isViewDirOrtho(mtx, view))
            imageDrills(gdx, view, parm,
                        [&](DrillList& drills) { return VEK::getEdgeNDrillData(drills, element, parm, mtx, view); });
        return imageProjection(gdx, element, mtx, view, parm, element, Hidden::hiddenLayer);
    });
}

bool vek_gdx_image_bgr_sheet(CVekGDX* gdx, CVekDataItem* element, CVekMatrix3d& mtx, const CVekMatrix3d& view,
                             CVekDataItem* parm)
{
    return imageElement(gdx, element, parm,
                        [&] { return imageProjection(gdx, element, mtx, view, parm, element, Hidden::hiddenLayer); });
}
