#include <vek/pictures/slide_image.h>

#include <vek/data.h>
#include <vek/geometry.h>
#include <vek/pictures/slide_library.h>

namespace VEK
{
namespace
{

constexpr unsigned long kOwnPointStyle = 0xFFFFFFFF;

CVekPoint3d pointOf(SlidePoint point)
{
    return {static_cast<double>(point.x), static_cast<double>(point.y), 0.0};
}

/// Turns records into items.
class SlideEmission : public SlideVisitor
{
public:
    SlideEmission(CVekGDX& gdx, unsigned long flags, const CVekDataItem* item) : m_gdx(gdx), m_flags(flags)
    {
        if (!dataGet(item, L"STACK", m_stack)) {
            int number = 0;
            if (dataGet(item, L"STACK", number))
                m_stack.append(number);
        }
        m_stack.append(1);
        dataGet(item, L"MTX", m_mtx);
        m_linetype.append(1.0);
        m_line[0] = CVekVertex();
        m_region[0] = CVekVertexArray();
    }

    /// Whether the counter shows that something was emitted.
    bool hasEmitted() const { return m_stack[0] > 1; }

    bool start(int, int) override { return true; }

    void line(SlidePoint from, SlidePoint to) override
    {
        m_line[0].start = pointOf(from);
        m_line[0].end = pointOf(to);
        m_gdx.imageVl(m_stack, m_flags, m_line, m_color, m_mtx, m_linetype, 1.0, 0, CVekPoint3d::kOrigin);
        count();
    }

    void color(int index) override { m_color.setColorIndex(static_cast<short>(index)); }

    void fill(std::span<const SlidePoint> points) override
    {
        m_points.setLogicalLength(0);
        for (const SlidePoint& point : points)
            m_points.append(pointOf(point));
        CVekVertexArray& contour = m_region[0];
        contour.fromPoints(m_points, true);
        if (contour.isClosed() && !g_vl_orient(contour, CVekVector3d::kZAxis))
            contour.revert();
        m_gdx.imageReg(m_stack, m_flags | itemFill, m_region, m_color, m_mtx, m_linetype, 1.0, 0, m_color, CHatchProp(),
                       CVekPoint3d::kOrigin);
        count();
        // Lines after a fill are never marked as filled, even if the caller asked for it: owners tell fills and lines
        // of a slide apart by the flag.
        m_flags &= ~static_cast<unsigned long>(itemFill);
    }

private:
    void count() { m_stack[0] = static_cast<int>(static_cast<unsigned>(m_stack[0]) + 1u); }

    CVekGDX& m_gdx;
    unsigned long m_flags;
    CVekGDX::Stack m_stack; ///< element 0 is the counter, whatever its initial value; owners rely on that
    CVekMatrix3d m_mtx;
    CVekColor m_color;
    CVekArrayTempl<double> m_linetype;
    CVekVertexArray m_line;
    CVekPoint3dArray m_points;
    CVekGDX::Region m_region;
};

} // namespace

bool gdxImageSlide(CVekGDX* gdx, SlideBytes slide, unsigned long flags, const CVekDataItem* item)
{
    if (!gdx)
        return false;
    GdxBatch batch(*gdx);
    SlideEmission emission(*gdx, flags, item);
    const bool isRead = SlideReader().read(slide, emission);
    return batch.complete() && isRead && emission.hasEmitted();
}

} // namespace VEK

bool vek_gdx_image_sld(CVekGDX* gdx, const wchar_t* name, const wchar_t* library, unsigned long flags,
                       CVekDataItem* item)
{
    if (!gdx || !name)
        return false;
    VEK::GdxBatch batch(*gdx);
    if (CVekString(name).compareNoCase(L"LEER") == 0) {
        gdx->imagePt({}, itemHidden, CVekPoint3d::kOrigin, CVekColor(), CVekMatrix3d::kIdentity, 0.0,
                     VEK::kOwnPointStyle, CVekPoint3d::kOrigin);
        return batch.complete();
    }
    std::vector<unsigned char> slide;
    if (!library || !VEK::slideLoad(slide, name, library))
        return false;
    return VEK::gdxImageSlide(gdx, slide, flags, item) && batch.complete();
}
