// Drills by themselves, and hole patterns.
#include "images/emission.h"

#include <vek/data/app.h>
#include <vek/images/object.h>
#include <vek/objects.h>

namespace
{

using VEK::dataGet, VEK::dataSet, VEK::isDir, VEK::valueOr;

/// The solid of a drill from a fixed corner, whatever the parameters place.
bool imageDrillSolid(CVekGDX& gdx, const CVekDataItem* root, const CVekGDX::Stack& stack)
{
    CVek_Solid solid;
    if (!VEK::objModel(solid, root))
        return false;
    solid.solid();
    const CVekVector3d x = CVekVector3d(1.0, 1.0, 0.0).normalize();
    const CVekVector3d z = CVekVector3d(1.0, -1.0, 1.0).normalize();
    CVekMatrix3d view;
    view.setCoordSystem(CVekPoint3d::kOrigin, x, z * x, z);
    CVekArrayTempl<CVekVertexArrayEx> visible;
    CVekArrayTempl<CVekVertexArrayEx> hidden;
    solid.project(view, false, visible, hidden, vekModelerFaces);
    CVekColor color;
    VEK::layer_color(color, valueOr(root, L"PART_SOLID", CVekString(L"0")));
    for (CVekVertexArrayEx& line : visible)
        gdx.imageVl(stack, 0, std::move(line), color, CVekMatrix3d::kIdentity, {}, 1.0, 0, CVekPoint3d::kOrigin);
    return true;
}

/// A hole pattern: what holds for all of its elements.
class HoleImage
{
public:
    HoleImage(CVekGDX& gdx, const CVekDataItem* root, const CVekDataItem* params) : m_gdx(gdx), m_emission(gdx)
    {
        dataGet(params, L"ACT", m_active);
        dataGet(params, L"MTX", m_mtx);
        dataGet(params, L"CMODE", m_mode);
        dataGet(params, L"COORD", m_coord);
        const CVekDataItem* header = root ? root->getItem(L"") : nullptr;
        const CVekString draw = valueOr(header, L"DRAW", CVekString());
        if (draw == L"F")
            m_region = itemOutline | itemFill;
        if (draw == L"S") {
            m_region = itemOutline | itemHatch;
            dataGet(header, L"HPNAME", m_hatch.name);
            dataGet(header, L"HPSCALE", m_hatch.scale);
            dataGet(header, L"HPANG", m_hatch.angle);
        }
        VEK::layer_color(m_line, valueOr(header, L"PART_CON", CVekString()));
        VEK::layer_color(m_fill, valueOr(header, L"PART_FILL", CVekString()));
        m_activeColor.setColorIndex(7);
    }

    void draw(const CVekDataItem& child)
    {
        const bool isActive = m_active == static_cast<const wchar_t*>(*child.getKey());
        const int mode = isActive ? int{VEK::colorHighlight} : m_mode;
        const CVekMatrix3d placed = m_mtx * matrixOf(child);
        if (m_coord && isActive)
            m_emission.mark(VEK::colorHighlight, CVekPoint3d::kOrigin * placed, m_activeColor);
        const CVekDataItem* gen = child.getItem(L"GEN");
        const CVekString type = valueOr(gen, L"TYPE", CVekString());
        if (type == L"DRILL")
            drawDrill(*gen, placed, mode);
        else
            drawLines(gen, type, placed, mode);
        // The mark of the whole pattern comes with every element: whoever counts the marks at the origin knows the
        // number of elements.
        if (m_coord)
            m_emission.mark(VEK::colorBase, CVekPoint3d::kOrigin + m_mtx.translation());
    }

private:
    static CVekMatrix3d matrixOf(const CVekDataItem& child)
    {
        CVekMatrix3d mtx;
        if (!dataGet(&child, L"MTX", mtx))
            VEK::g_mtx_local(&child, static_cast<CVekMatrix3d::Rows&>(mtx), Vek::unitNone, Vek::unitCurrent);
        return mtx;
    }

    void drawDrill(const CVekDataItem& gen, const CVekMatrix3d& placed, int mode)
    {
        CVekDataItem drill(gen);
        VEK::objGen(&drill, 0);
        CVekDataItem wish;
        dataSet(&wish, L"MTX", placed);
        dataSet(&wish, L"CMODE", mode);
        vekAppPtr()->imageObject(&m_gdx, &drill, &wish);
    }

    void drawLines(const CVekDataItem* gen, const CVekString& type, const CVekMatrix3d& placed, int mode)
    {
        VEK::VertexArrays lines;
        CVekVertexArray outline;
        if (type.isNull())
            dataGet(gen, nullptr, lines);
        else if (type == L"OUTLINE" && VEK::g_outline(outline, gen, Vek::unitCurrent))
            lines.append(std::move(outline));
        for (CVekVertexArray& line : lines) {
            line.transformBy(placed);
            CVekGDX::Region region;
            if (m_region)
                region.append(line);
            m_emission.line(VEK::modeFlag(mode & 15), std::move(line), m_line);
            if (m_region)
                m_emission.region(m_region, std::move(region), m_line, m_fill, m_hatch);
        }
    }

    CVekGDX& m_gdx;
    VEK::Emission m_emission;
    CVekString m_active;
    CVekMatrix3d m_mtx;
    int m_mode = 0;
    bool m_coord = false;
    unsigned long m_region = 0; ///< the flag of the region of each outline; 0 for lines only
    CVekColor m_line;
    CVekColor m_fill;
    CVekColor m_activeColor;
    VEK::CHatchProp m_hatch;
};

/// The drawing's own hole pattern, created when there is none.
VEK::CDtaFilePointer* drawingHoles()
{
    VEK::CAdsName name;
    return vekAppPtr()->namedDataObject(name, L"HOLE", true) ? VEK::dtaOpen(vekDtaDrawing, 3, name, nullptr, nullptr)
                                                             : nullptr;
}

} // namespace

bool vek_gdx_image_drill(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    return gdx && VEK::emitWhole(*gdx, [&] {
               const CVekDataItem* wish = VEK::rootOf(params);
               const bool coord = valueOr(wish, L"COORD", false);
               CVekGDX::Stack stack;
               dataGet(wish, L"STACK", stack);
               stack.append(1); // the drill lies one level below the caller's path
               CVekDataItem* root = VEK::rootOf(object);
               if (valueOr<int>(root, L"VIEW", VEK::normViewNone) == VEK::normView3d)
                   return imageDrillSolid(*gdx, root, stack);
               CVekDataItem own;
               dataSet(&own, L"CMODE", valueOr(wish, L"CMODE", 0));
               dataSet(&own, L"MTX", valueOr(wish, L"MTX", CVekMatrix3d()));
               dataSet(&own, L"STACK", stack);
               vekAppPtr()->imageObject(gdx, root, &own);
               if (coord) {
                   stack[-1] += 1; // beside the drill, so that it can be told apart from it
                   gdx->imagePt(stack, VEK::modeFlag(VEK::colorBase), CVekPoint3d::kOrigin, CVekColor(),
                                CVekMatrix3d::kIdentity, 0.0, VEK::kOwnPointStyle, CVekPoint3d::kOrigin);
               }
               return true;
           });
}

bool vek_gdx_image_hole(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    return gdx && VEK::emitWhole(*gdx, [&] {
               const VEK::CUniqPointer<VEK::CDtaFilePointer> own(object ? nullptr : drawingHoles());
               const CVekDataItem* root = VEK::rootOf(object ? object : own);
               HoleImage image(*gdx, root, VEK::rootOf(params));
               for (VEK::CDataIterator child(root ? root->getItem(L"BT") : nullptr); !child.done(); child.next()) {
                   if (child->getKey()->isText())
                       image.draw(*child);
               }
               return true;
           });
}
