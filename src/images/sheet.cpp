// The section of a folded or corrugated sheet: one sheet, or a sandwich of skins and cores.
#include "images/emission.h"

#include <vek/images/object.h>
#include <vek/objects.h>

#include <cmath>
#include <optional>

namespace
{

using VEK::dataGet, VEK::dataSet, VEK::isDir, VEK::valueOr, VEK::VertexArrays;

/// Axis lines of one sheet at most; no sheet has as many segments.
constexpr int kAxisLines = 100000;

CVekColor colorOf(const CVekString& layer)
{
    CVekColor color;
    VEK::layer_color(color, layer);
    return color;
}

/// Reads the keys of a hatch by any reader of named values.
template <class Read>
VEK::CHatchProp hatchOf(Read&& read)
{
    VEK::CHatchProp hatch;
    read(L"HPNAME", hatch.name);
    read(L"HPSCALE", hatch.scale);
    read(L"HPANG", hatch.angle);
    return hatch;
}

/// How the pieces of a sandwich's core look.
struct CoreLook {
    CVekString lineLayer = L"0";
    CVekString fillLayer = L"0";
    VEK::CHatchProp hatch;

    template <class Read>
    void readFrom(bool hatched, Read&& read)
    {
        read(L"PART_CON", lineLayer);
        read(L"PART_FILL", fillLayer);
        if (hatched)
            hatch = hatchOf(read);
    }
};

/// A layer of a sandwich, or a sheet alone.
struct Layer {
    VertexArrays lines;
    CVekVertexArray top;
    CVekVertexArray bottom;
};

CVekVertexArray firstOf(const VertexArrays& lines)
{
    return lines.len() > 0 ? lines[0] : CVekVertexArray();
}

class SheetImage
{
public:
    SheetImage(CVekGDX& gdx, const CVekDataItem& root, const CVekDataItem* params)
        : m_obj(root), m_coord(valueOr(params, L"COORD", false)), m_emission(gdx)
    {
        CVekArrayTempl<CVekString> stack;
        dataGet(&m_obj, L"STACK", stack);
        m_sheet = VEK::fsheet_get(stack);
    }

    bool draw()
    {
        if (!isDir(m_sheet))
            return false;
        readObject();
        place();
        if (valueOr(m_sheet, L"\\CALC", CVekString()) == L"COMPOUND")
            drawSandwich();
        else
            drawSingle();
        return true;
    }

private:
    void readObject()
    {
        dataGet(&m_obj, L"S", m_thickness);
        dataGet(&m_obj, L"IS_HATCH2", m_hatchCores);
        dataGet(&m_obj, L"DRAW", m_draw);
        if (m_draw == L"S")
            m_hatch = hatchOf([&](const wchar_t* key, auto& value) { dataGet(&m_obj, key, value); });
        const CVekString lineLayer = valueOr(&m_obj, L"PART_CON", CVekString(L"0"));
        m_line = colorOf(lineLayer);
        m_fill = colorOf(valueOr(&m_obj, L"PART_FILL", lineLayer));
        m_axisColor = colorOf(valueOr(&m_obj, L"PART_CEN", CVekString(L"0")));

        m_axis = valueOr(&m_obj, L"AXIS", false);
        if (m_axis)
            dataGet(m_sheet, L"\\AXIS", m_axis);
        m_coat = valueOr(&m_obj, L"COATLINE", false);
        if (m_coat) {
            m_topCoat = coatOf(L"SURFACE\\1");
            m_bottomCoat = valueOr(m_sheet, L"\\COAT", false) ? m_topCoat : coatOf(L"SURFACE\\2");
        }
    }

    std::optional<CVekColor> coatOf(const wchar_t* path) const
    {
        CVekColor color;
        return dataGet(&m_obj, path, color) ? std::optional(color) : std::nullopt;
    }

    /// Settles the width, which the services read from the object, and the side to which the sheet runs.
    void place()
    {
        dataGet(m_sheet, L"SEG", m_segment);
        dataGet(m_sheet, L"N", m_count);
        const double width =
            m_count != 0.0 && m_segment != 0.0 ? m_count * m_segment : 5.0 * std::abs(valueOr(&m_obj, L"D", 0.0));
        if (valueOr(m_sheet, L"HORIZONTAL", 1) == -1)
            m_emission.mtx.setToMirroring(CVekPlane(CVekPoint3d(width * 0.5, 0.0, 0.0), CVekVector3d::kXAxis));
        dataSet(&m_obj, L"VL", CVekVertexArray(CVekVertex(CVekPoint3d::kOrigin, CVekPoint3d(width, 0.0, 0.0))));
    }

    void drawSingle()
    {
        Layer layer;
        if (m_sheet->getItem(L"FILLET_P") || m_sheet->getItem(L"POINTS"))
            VEK::fsheet_vll_fillet(&m_obj, layer.lines, layer.top, layer.bottom);
        else if (m_sheet->getItem(L"REGION"))
            VEK::fsheet_vll_region(&m_obj, layer.lines);
        else
            VEK::fsheet_vll_fnc(&m_obj, layer.lines, layer.top, layer.bottom);
        const bool hasLines = layer.lines.len() > 0;
        const CVekVertexArray axis = axisOf(layer.lines, m_thickness);
        drawLines(layer.lines);
        drawCoat(layer.top, m_topCoat);
        drawCoat(layer.bottom, m_bottomCoat);
        drawMark(hasLines);
        drawAxis(axis);
    }

    void drawSandwich()
    {
        const VEK::CUniqPointer<VEK::CDtaFilePointer> file(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &m_obj));
        CVekString id;
        VEK::fsheet_sid(file, id);
        const CVekDataKey thicknessKey(5005, L"THICK", 5005, id, 0);
        const CVekDataItem* thicknesses = m_sheet->getItem(&thicknessKey);
        CVekVertexArray topLine;
        CVekVertexArray bottomLine;
        CVekArrayTempl<VertexArrays> regionsSoFar;
        for (VEK::CDataIterator child(m_sheet->getItem(L"SANDWICH")); !child.done(); child.next()) {
            CVekArrayTempl<CVekString> stack;
            dataGet(child, L"STACK", stack);
            const CVekString side = valueOr(child, L"SIDE", CVekString());
            const double thickness = valueOr(thicknesses, side == L"BOT" ? L"S_BOT" : L"S", 0.0);
            const CVekDataItem* sheet = VEK::fsheet_get(stack);
            if (!isDir(sheet))
                continue;
            const CVekString calc = valueOr(sheet, L"\\CALC", CVekString());
            CVekDataItem own(m_obj);
            dataSet(&own, L"STACK", stack);
            dataSet(&own, L"S", thickness);
            dataSet(&own, L"MTX", VEK::g_mtx_local(child));

            Layer layer;
            if (sheet->getItem(L"REGION"))
                VEK::fsheet_vll_region(&own, layer.lines);
            else if (sheet->getItem(L"FILLET_P"))
                VEK::fsheet_vll_fillet(&own, layer.lines, layer.top, layer.bottom);
            else if (calc == L"OUTLINE" && topLine.len() > 0 && bottomLine.len() > 0)
                VEK::fsheet_vll_outline(&own, topLine, bottomLine, regionsSoFar, layer.lines);

            if (side == L"TOP")
                topLine = firstOf(layer.lines);
            else if (side == L"BOT")
                bottomLine = firstOf(layer.lines);
            else if (calc == L"REGION")
                regionsSoFar.append(layer.lines);

            if (calc != L"REGION" && calc != L"OUTLINE")
                drawSkin(layer, side, thickness);
            else if (layer.lines.len() > 0)
                drawCore(layer.lines, valueOr(sheet, L"\\TYPE", CVekString()));
        }
    }

    void drawSkin(Layer& layer, const CVekString& side, double thickness)
    {
        const bool isTop = side == L"TOP";
        const bool hasLines = layer.lines.len() > 0;
        const CVekVertexArray axis = isTop ? axisOf(layer.lines, thickness) : CVekVertexArray();
        drawLines(layer.lines);
        if (isTop) {
            drawAxis(axis);
            drawCoat(layer.top, m_topCoat);
            drawMark(hasLines);
        } else if (side == L"BOT") { // the first line of a skin is its outer one
            drawCoat(layer.top, m_bottomCoat);
        }
    }

    void drawCore(VertexArrays& lines, const CVekString& type)
    {
        CoreLook look;
        const wchar_t* component = type == L"GASKET" ? L"DICHT" : type == L"INSULATION" ? L"DM" : nullptr;
        if (component) {
            VEK::CCfgBackup backup(true); // reading the attributes may complete the configuration
            backup.attach(VEK::getCfgKey(component));
            CVekAttributeMgr attributes(component, L"");
            attributes.init();
            look.readFrom(m_hatchCores, [&](const wchar_t* key, auto& value) { attributes.get_att(key, value); });
        } else {
            look.hatch = m_hatch;
            look.readFrom(false, [&](const wchar_t* key, auto& value) { dataGet(&m_obj, key, value); });
        }
        const CVekColor line = colorOf(look.lineLayer);
        if (m_hatchCores && !look.hatch.name.isNull())
            m_emission.region(itemOutline | itemHatch, std::move(lines), line, colorOf(look.fillLayer), look.hatch);
        else
            m_emission.region(itemOutline, std::move(lines), line);
    }

    void drawLines(VertexArrays& lines) const
    {
        const bool isFilled = m_draw == L"L";
        if (!isFilled && m_draw != L"S")
            return m_emission.lines(0, lines, m_line);
        for (CVekVertexArray& line : lines) {
            CVekGDX::Region region;
            region.append(std::move(line));
            m_emission.region(itemOutline | (isFilled ? itemFill : itemHatch), std::move(region), m_line, m_fill,
                              m_hatch);
        }
    }

    void drawCoat(CVekVertexArray& line, const std::optional<CVekColor>& coat) const
    {
        if (coat)
            m_emission.line(0, std::move(line), *coat);
    }

    void drawMark(bool hasLines) const
    {
        if (m_coord && hasLines)
            m_emission.mark(VEK::colorBase, CVekPoint3d::kOrigin);
    }

    CVekVertexArray axisOf(const VertexArrays& lines, double thickness) const
    {
        CVekVertexArray axis;
        return m_axis && VEK::fsheet_axis_vl(lines, thickness, axis) ? axis : CVekVertexArray();
    }

    void drawAxis(const CVekVertexArray& axis) const
    {
        for (int i = 0; axis.len() > 0 && i < kAxisLines && m_count + 1.0 > i; ++i) {
            CVekVertexArray line = axis;
            line.move(CVekVector3d(m_segment * i, 0.0, 0.0));
            m_emission.line(0, std::move(line), m_axisColor);
        }
    }

    CVekDataItem m_obj; ///< the linked object, with what the services need
    const CVekDataItem* m_sheet = nullptr;
    bool m_coord;
    VEK::Emission m_emission;

    double m_segment = 0.0;
    double m_count = 1.5; ///< of segments
    double m_thickness = 0.0;
    bool m_axis = false;
    bool m_coat = false;
    bool m_hatchCores = false;
    CVekString m_draw;
    VEK::CHatchProp m_hatch; ///< without a name unless the sheet is drawn hatched
    CVekColor m_line;
    CVekColor m_fill;
    CVekColor m_axisColor;
    std::optional<CVekColor> m_topCoat; ///< none: that line is not drawn
    std::optional<CVekColor> m_bottomCoat;
};

} // namespace

bool vek_gdx_image_fsheet(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    if (!gdx || !object)
        return false;
    return VEK::emitWhole(*gdx, [&] {
        const VEK::CUniqPointer<VEK::CDtaFilePointer> linked(object->lobjGet(nullptr, false));
        const CVekDataItem* root = VEK::rootOf(linked);
        return root && SheetImage(*gdx, *root, VEK::rootOf(params)).draw();
    });
}
