#include "display/pass.h"

#include "core/values/whole.h"
#include "display/fetch.h"
#include "display/index.h"
#include "display/order.h"

#include <vek/display/view.h>
#include <vek/values/units.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace VEK
{
namespace
{

/// The closest fit of the extents leaves this fraction of them free on each side.
constexpr double kMargin = 0.05;

/// The length of a dot of a line pattern, and the length below which a segment of a dashed polyline is one.
constexpr double kDotLength = 0.21;
constexpr double kShortLength = 0.22;

double inDrawingUnits(double millimetres)
{
    return acadUnitCv(millimetres, Vek::unitMillimetre, Vek::unitCurrent);
}

CVekMatrix3d moved(const CVekMatrix3d& m, const DrawArea& area)
{
    if (area.left == 0.0 && area.top == 0.0)
        return m;
    CVekMatrix3d move;
    return move.setToTranslation({area.left, area.top, 0.0}) * m;
}

/// The matrix from the unit square of a screen-fixed item to the drawing area; the reference point is added to it.
CVekMatrix3d screenMatrix(const CVekGDX& gdx, const DrawArea& area)
{
    const double scale = getViewMtx({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}, area.height, area.width, kMargin).axis(0)[0];
    CVekMatrix3d unit, flip, move;
    unit.setToScaling(scale, CVekPoint3d::kOrigin);
    flip.setCoordSystem(gdx.viewMtxGet().translation().asPoint(), CVekVector3d::kXAxis, -CVekVector3d::kYAxis,
                        CVekVector3d::kZAxis);
    const CVekPoint3d wanted = CVekPoint3d::kOrigin * (gdx.zoomMtxGet() * gdx.viewMtxGet());
    move.setToTranslation(wanted - CVekPoint3d::kOrigin * (flip * unit));
    return moved(move * flip * unit * gdx.projMtxGet(), area);
}

} // namespace

DrawPass::DrawPass(const CVekGDX& gdx, CSurface& surface, const DrawArea& area, const PassRules& rules,
                   CPictureSource& pictures)
    : m_gdx(gdx), m_surface(surface), m_rules(rules), m_pictures(pictures), m_area(area),
      m_right(area.left + area.width), m_bottom(area.top + area.height),
      m_back(static_cast<unsigned>(gdx.backColorGet().oleColor() & 0xFFFFFF)),
      m_total(moved(gdx.zoomMtxGet() * gdx.viewMtxGet() * gdx.projMtxGet(), area)),
      m_viewTurns(!isIdentity(gdx.viewDirectionMtxGet())), m_base(m_total * gdx.viewDirectionMtxGet()),
      m_dotLength(inDrawingUnits(kDotLength)), m_shortLength(inDrawingUnits(kShortLength)),
      m_trueArcs(surface.hasArcs())
{
}

void DrawPass::run()
{
    m_surface.clipTo(m_area.left, m_area.top, m_right, m_bottom);
    if (m_rules.fillsBackground) {
        m_surface.noPen();
        m_surface.solidRect(m_area.left, m_area.top, m_area.width, m_area.height, m_back);
    }
    m_surface.background(m_back);
    m_pictures.begin();
    const CVekDisplayList& list = m_gdx.getDisplayList();
    const CVekDisplayItem* const items = list.m_items.begin();
    DisplayIndex* const index = list.index();
    if (!index) {
        list.order().visit([&](int number, auto ahead) {
            fetchPlain(items[ahead(kFetchFar)]);
            fetchGeometry(items[ahead(kFetchNear)]);
            draw(items[number]);
            return true;
        });
        return;
    }
    index->beginPaint(m_gdx.viewDirectionMtxGet(), m_viewTurns);
    draw(items, list.order(), *index);
}

void DrawPass::draw(const CVekDisplayItem& item)
{
    if ((item.flag & itemHidden) != 0)
        return;
    m_margin = margin(item.thickn);
    const unsigned color = penColor(item);
    switch (item.type) {
    case dispPolyline:
        m_surface.pen(penWidth(item), color);
        prepareDashes(item);
        drawLine(item.vl, matrix(item, From::turned), color);
        flushLines();
        break;
    case dispPoint: drawPoint(item, color); break;
    case dispRegion: drawRegion(item, color); break;
    case dispText: drawText(item, color); break;
    case dispPicture: drawPicture(item); break;
    default: break;
    }
}

/// The width in device units of a pen given in pixels.
int DrawPass::penWidth(int pixels) const
{
    if (m_area.scale == 1.0)
        return pixels;
    return static_cast<int>(std::clamp(std::round(std::max(pixels, 1) * m_area.scale), 1.0, double(INT_MAX)));
}

unsigned DrawPass::fixed(unsigned color) const
{
    if (m_rules.colorFix == PassRules::ColorFix::whiteToBlack)
        return color == 0xFFFFFF ? 0 : color;
    return color == m_back ? color ^ 0xFFFFFF : color;
}

unsigned DrawPass::penColor(unsigned mode, unsigned own) const
{
    if (mode == colorInverse)
        return fixed(~m_back & 0xFFFFFF);
    if (mode == colorOwn)
        return fixed(own);
    return fixed(static_cast<unsigned>(m_gdx.colorTabGet(static_cast<int>(mode)).oleColor() & 0xFFFFFF));
}

unsigned DrawPass::penColor(const CVekDisplayItem& item) const
{
    const unsigned mode = item.colorMode();
    return penColor(mode == colorOwn && item.color.colorIndex() == -1 ? colorInverse : mode,
                    static_cast<unsigned>(item.color.oleColor() & 0xFFFFFF));
}

unsigned DrawPass::fillColor(const CVekDisplayItem& item, unsigned pen) const
{
    const bool inverse = m_rules.inverseFillsInverse && item.color.colorIndex() == -1;
    if (item.colorMode() != colorOwn || item.fcolor.colorIndex() == 0 || inverse)
        return pen;
    return fixed(static_cast<unsigned>(item.fcolor.oleColor() & 0xFFFFFF));
}

CVekMatrix3d DrawPass::fixedMatrix(const CVekDisplayItem& item)
{
    if (!m_screenMtx)
        m_screenMtx = screenMatrix(m_gdx, m_area);
    const bool inVertex = item.type == dispPoint || item.type == dispText;
    const CVekPoint3d& reference = inVertex ? item.vl[0].start : item.point;
    CVekMatrix3d move;
    move.setToTranslation(reference.asVector() * m_total);
    return move * *m_screenMtx;
}

const CVekMatrix3d& DrawPass::matrix(const CVekDisplayItem& item, From from)
{
    const bool screenFixed = (item.flag & itemScreenFixed) != 0;
    const bool own = !isIdentity(item.mtx);
    if (!screenFixed && !own)
        return from == From::stored ? m_base : m_total;
    m_matrix = screenFixed ? fixedMatrix(item) : m_total;
    if (m_viewTurns && from == From::stored)
        m_matrix = m_matrix * m_gdx.viewDirectionMtxGet();
    if (own)
        m_matrix = m_matrix * item.mtx;
    return m_matrix;
}

/// The matrix by which the pattern test converts lengths to pixels. Here the item's own matrix is applied after the one
/// to the device: the limit for dense patterns has always been computed like this, and drawings are made for it.
CVekMatrix3d DrawPass::testMatrix(const CVekDisplayItem& item)
{
    CVekMatrix3d toPixels = (item.flag & itemScreenFixed) != 0 ? fixedMatrix(item) : m_total;
    if (m_area.scale != 1.0) {
        CVekMatrix3d back;
        toPixels = back.setToScaling(1.0 / m_area.scale, CVekPoint3d::kOrigin) * toPixels;
    }
    return m_rules.testsInView ? item.mtx * m_gdx.viewDirectionMtxGet() * toPixels : item.mtx * toPixels;
}

bool gdxDraw(CVekGDX& gdx, CSurface& surface, const DrawArea& asked, const PassRules& rules, CPictureSource* pictures)
{
    DrawArea area = asked;
    area.height = area.height > 0 ? area.height : 240;
    area.width = area.width > 0 ? area.width : 320;
    if (!(area.scale > 0.0) || !std::isfinite(area.scale))
        area.scale = 1.0;
    return whole(false, [&] {
        gdx.displListSort();
        if (rules.fitsView) {
            CVekPoint3d min, max;
            gdx.extMaxViewGet(min, max);
            gdx.viewMtxSet(getViewMtx(min, max, area.height, area.width, kMargin));
        }
        if (std::isfinite(area.left) && std::isfinite(area.top))
            DrawPass(gdx, surface, area, rules, pictures ? *pictures : pictureCache()).run();
        return true;
    });
}

bool gdxDraw(CVekGDX& gdx, CSurface& surface, int height, int width, const PassRules& rules, CPictureSource* pictures)
{
    return gdxDraw(gdx, surface, DrawArea{.width = width, .height = height}, rules, pictures);
}

} // namespace VEK
