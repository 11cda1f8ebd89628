#include "display/pass.h"

#include "display/fetch.h"

#include <vek/display/view.h>
#include <vek/values/units.h>

#include <algorithm>
#include <new>

namespace VEK
{
namespace
{

/// The tightest fit of the extents leaves this share of them free on each side.
constexpr double kMargin = 0.05;

/// What a dot of a line pattern is long, and the length below which a segment of a broken polyline is one.
constexpr double kDotLength = 0.21;
constexpr double kShortLength = 0.22;

double inDrawingUnits(double millimetres)
{
    return acadUnitCv(millimetres, Vek::unitMillimetre, Vek::unitCurrent);
}

/// What places the unit square of a screen-fixed item in the drawing area; the reference point moves it from there.
CVekMatrix3d screenMatrix(const CVekGDX& gdx, int height, int width)
{
    const double scale = getViewMtx({0.0, 0.0, 0.0}, {1.0, 1.0, 0.0}, height, width, kMargin).axis(0)[0];
    CVekMatrix3d unit, flip, move;
    unit.setToScaling(scale, CVekPoint3d::kOrigin);
    flip.setCoordSystem(gdx.viewMtxGet().translation().asPoint(), CVekVector3d::kXAxis, -CVekVector3d::kYAxis,
                        CVekVector3d::kZAxis);
    const CVekPoint3d wanted = CVekPoint3d::kOrigin * (gdx.zoomMtxGet() * gdx.viewMtxGet());
    move.setToTranslation(wanted - CVekPoint3d::kOrigin * (flip * unit));
    return move * flip * unit * gdx.projMtxGet();
}

/// Items that are fetched ahead: first the item, and when that is there, what lies apart from it.
constexpr int kFetchItem = 16;
constexpr int kFetchGeometry = 8;

void fetchAhead(const CVekDisplayItem* items, int i, int count)
{
    if (i + kFetchItem < count)
        fetch(items + i + kFetchItem, sizeof *items);
    if (i + kFetchGeometry < count) {
        fetchGeometry(items[i + kFetchGeometry]);
        fetch(items[i + kFetchGeometry].linetype.begin(), sizeof(double));
    }
}

} // namespace

DrawPass::DrawPass(const CVekGDX& gdx, CSurface& surface, int height, int width, const PassRules& rules,
                   CPictureSource& pictures)
    : m_gdx(gdx), m_surface(surface), m_rules(rules), m_pictures(pictures), m_height(height), m_width(width),
      m_back(static_cast<unsigned>(gdx.backColorGet().oleColor() & 0xFFFFFF)),
      m_total(gdx.zoomMtxGet() * gdx.viewMtxGet() * gdx.projMtxGet()),
      m_viewTurns(!(gdx.viewDirectionMtxGet() == CVekMatrix3d::kIdentity)), m_base(m_total * gdx.viewDirectionMtxGet()),
      m_dotLength(inDrawingUnits(kDotLength)), m_shortLength(inDrawingUnits(kShortLength)),
      m_trueArcs(surface.hasArcs())
{
}

void DrawPass::run()
{
    m_surface.clipTo(0.0, 0.0, m_width, m_height);
    if (m_rules.fillsBackground) {
        m_surface.noPen();
        m_surface.solidRect(0.0, 0.0, m_width, m_height, m_back);
    }
    m_surface.background(m_back);
    m_pictures.begin();
    const CVekDisplayList& list = m_gdx.getDisplayList();
    const CVekDisplayItem* const items = list.begin();
    for (int i = 0; i < list.len(); ++i) {
        fetchAhead(items, i, list.len());
        const CVekDisplayItem& item = items[i];
        if ((item.flag & itemHidden) != 0)
            continue;
        m_margin = std::max(item.thickn, 1) + 1.0;
        const unsigned color = penColor(item);
        switch (item.type) {
        case dispPolyline:
            m_surface.pen(item.thickn, color);
            prepareDashes(item);
            drawLine(item.vl, matrix(item, From::turned), color);
            break;
        case dispPoint: drawPoint(item, i, color); break;
        case dispRegion: drawRegion(item, color); break;
        case dispText: drawText(item, color); break;
        case dispPicture: drawPicture(item); break;
        default: break;
        }
    }
}

unsigned DrawPass::fixed(unsigned color) const
{
    if (m_rules.colorFix == PassRules::ColorFix::whiteToBlack)
        return color == 0xFFFFFF ? 0 : color;
    return color == m_back ? color ^ 0xFFFFFF : color;
}

unsigned DrawPass::penColor(const CVekDisplayItem& item) const
{
    const unsigned mode = item.colorMode();
    if (mode == colorInverse || (mode == colorOwn && item.color.colorIndex() == -1))
        return fixed(~m_back & 0xFFFFFF);
    const CVekColor& color = mode == colorOwn ? item.color : m_gdx.colorTabGet(static_cast<int>(mode));
    return fixed(static_cast<unsigned>(color.oleColor() & 0xFFFFFF));
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
        m_screenMtx = screenMatrix(m_gdx, m_height, m_width);
    const bool inVertex = item.type == dispPoint || item.type == dispText;
    const CVekPoint3d& reference = inVertex ? item.vl[0].start : item.point;
    CVekMatrix3d move;
    move.setToTranslation(reference.asVector() * m_total);
    return move * *m_screenMtx;
}

const CVekMatrix3d& DrawPass::matrix(const CVekDisplayItem& item, From from)
{
    const bool screenFixed = (item.flag & itemScreenFixed) != 0;
    const bool own = !(item.mtx == CVekMatrix3d::kIdentity);
    if (!screenFixed && !own)
        return from == From::stored ? m_base : m_total;
    m_matrix = screenFixed ? fixedMatrix(item) : m_total;
    if (m_viewTurns && from == From::stored)
        m_matrix = m_matrix * m_gdx.viewDirectionMtxGet();
    if (own)
        m_matrix = m_matrix * item.mtx;
    return m_matrix;
}

/// What the pattern test takes lengths through. Here the item's own matrix acts after the one to the device: where a
/// pattern becomes too dense has always been judged so, and drawings are set up by it.
CVekMatrix3d DrawPass::testMatrix(const CVekDisplayItem& item)
{
    const CVekMatrix3d toDevice = (item.flag & itemScreenFixed) != 0 ? fixedMatrix(item) : m_total;
    return m_rules.testsInView ? item.mtx * m_gdx.viewDirectionMtxGet() * toDevice : item.mtx * toDevice;
}

void gdxDraw(CVekGDX& gdx, CSurface& surface, int height, int width, const PassRules& rules, CPictureSource* pictures)
{
    height = height > 0 ? height : 240;
    width = width > 0 ? width : 320;
    gdx.displListSort();
    if (rules.fitsView) {
        CVekPoint3d min, max;
        gdx.extMaxViewGet(min, max);
        gdx.viewMtxSet(getViewMtx(min, max, height, width, kMargin));
    }
    try {
        DrawPass(gdx, surface, height, width, rules, pictures ? *pictures : pictureCache()).run();
    } catch (const std::bad_alloc&) { // what has been drawn stays
    }
}

} // namespace VEK
