#include <vek/pictures/window/slide_pic.h>

#include "core/values/whole.h"
#include "pictures/window/layout.h"
#include "pictures/window/paint_buffer.h"
#include "surfaces/window/clipboard.h"

#include <vek/pictures/slide_color.h>
#include <vek/pictures/slide_library.h>

#include <afxext.h>

namespace VEK
{
namespace
{

constexpr int kForeground = 7; ///< the colour index that is visible on every background

} // namespace

/// Sets the context and the background index of a drawing until the end of the scope.
class CSlidePic::Context
{
public:
    Context(CSlidePic& owner, CDC& dc, int backIndex) : m_owner(owner), m_backIndex(owner.m_backIndex)
    {
        owner.m_dc = &dc;
        owner.m_backIndex = backIndex;
    }
    ~Context()
    {
        m_owner.m_dc = nullptr;
        m_owner.m_backIndex = m_backIndex;
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

private:
    CSlidePic& m_owner;
    const int m_backIndex;
};

/// Draws what the parser reads.
class CSlidePic::Painter : public SlideVisitor
{
public:
    Painter(CSlidePic& owner, const CRect& rect) : m_owner(owner), m_rect(rect) {}

    bool start(int hiX, int hiY) override
    {
        m_owner.m_hiX = hiX;
        m_owner.m_hiY = hiY;
        return m_mapping.set(m_rect.left, m_rect.top, m_rect.right, m_rect.bottom, hiX, hiY);
    }
    void line(SlidePoint from, SlidePoint to) override
    {
        m_owner.m_dc->MoveTo(mapped(from));
        m_owner.m_dc->LineTo(mapped(to));
    }
    void color(int index) override { m_owner.newColor(index); }
    void fill(std::span<const SlidePoint> points) override
    {
        m_points.clear();
        for (const SlidePoint& point : points)
            m_points.push_back(mapped(point));
        m_owner.m_dc->Polygon(m_points.data(), static_cast<int>(m_points.size()));
    }

private:
    POINT mapped(SlidePoint point) const
    {
        const SlidePoint p = m_mapping.map(point);
        return {p.x, p.y};
    }

    CSlidePic& m_owner;
    CRect m_rect;
    SlideMapping m_mapping;
    std::vector<POINT> m_points;
};

IMPLEMENT_DYNAMIC(CSlidePic, CWnd)

BEGIN_MESSAGE_MAP(CSlidePic, CWnd)
ON_WM_NCCREATE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

CSlidePic::CSlidePic()
    : m_pen(PS_SOLID, 0, acadRGB(kForeground)), m_fill(acadRGB(kForeground)), m_background(acadRGB(m_backIndex)),
      m_system(GetSysColor(COLOR_3DFACE))
{
}

CSlidePic::~CSlidePic() = default;

BOOL CSlidePic::OnNcCreate(LPCREATESTRUCT create)
{
    keepLeftToRight(*this);
    return CWnd::OnNcCreate(create);
}

void CSlidePic::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    keepLeftToRight(*this);
}

void CSlidePic::discard()
{
    m_data.clear();
    m_loaded = false;
    if (m_hWnd)
        Invalidate();
}

bool CSlidePic::show(const wchar_t* name, const wchar_t* library)
{
    discard();
    m_loaded = slideLoad(m_data, name, library, SlideCodePage::system);
    return m_loaded;
}

void CSlidePic::show(void* data, int size)
{
    discard();
    if (!data || size < 0)
        return;
    const auto bytes = static_cast<const unsigned char*>(data);
    m_loaded = VEK::whole(false, [&] { return (m_data.assign(bytes, bytes + size), true); });
}

bool CSlidePic::LoadSlide(unsigned long id, const wchar_t* type)
{
    const HINSTANCE module = AfxGetResourceHandle();
    const HRSRC place = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    const HGLOBAL resource = place ? LoadResource(module, place) : nullptr;
    void* bytes = resource ? LockResource(resource) : nullptr;
    if (!bytes)
        return false;
    show(bytes, static_cast<int>(SizeofResource(module, place)));
    return true;
}

bool CSlidePic::getSize(long& x, long& y) const
{
    if (!m_loaded)
        return false;
    x = m_hiX;
    y = m_hiY;
    return true;
}

int CSlidePic::SetBkColor(int index)
{
    m_backIndex = index;
    m_background.DeleteObject();
    m_background.CreateSolidBrush(acadRGB(index));
    return 1;
}

/// The new objects are selected before the old ones are deleted, since a selected object cannot be deleted. If they
/// cannot be created the colour is unchanged.
void CSlidePic::newColor(int index)
{
    const COLORREF color = acadRGB(slideColor(index, m_backIndex));
    CPen pen;
    CBrush brush;
    if (!pen.CreatePen(PS_SOLID, 1, color) || !brush.CreateSolidBrush(color))
        return;
    m_dc->SelectObject(&pen);
    m_dc->SelectObject(&brush);
    m_pen.DeleteObject();
    m_pen.Attach(pen.Detach());
    m_fill.DeleteObject();
    m_fill.Attach(brush.Detach());
}

bool CSlidePic::draw(CRect rect)
{
    if (!m_loaded || !m_dc)
        return false;
    const int saved = m_dc->SaveDC();
    m_dc->SelectObject(&m_pen);
    m_dc->SelectObject(&m_fill);
    Painter painter(*this, rect);
    const bool drawn = VEK::whole(false, [&] { return m_reader.read(m_data, painter); });
    m_dc->RestoreDC(saved);
    return drawn;
}

void CSlidePic::OnPaint()
{
    const bool seeThrough = (GetExStyle() & WS_EX_TRANSPARENT) != 0;
    const auto paint = [&](CDC& dc, const CRect& area) {
        const Context context(*this, dc, m_backIndex);
        CRgn clip;
        clip.CreateRectRgn(0, 0, area.right, area.bottom);
        const int saved = dc.SaveDC();
        dc.SelectClipRgn(&clip);
        if (!seeThrough) {
            dc.SelectObject(m_loaded ? &m_background : &m_system);
            dc.SelectObject(&m_pen);
            dc.Rectangle(0, 0, area.right, area.bottom);
        }
        draw(area);
        dc.RestoreDC(saved);
    };
    if (seeThrough) { // the background is kept, so nothing can be painted in memory
        CPaintDC dc(this);
        CRect area;
        GetClientRect(&area);
        paint(dc, area);
    } else {
        PaintBuffer buffer(this);
        paint(buffer.context(), buffer.area());
    }
}

/// The slide covers its whole background, so an erase would only cause flicker.
BOOL CSlidePic::OnEraseBkgnd(CDC* dc)
{
    return (GetExStyle() & WS_EX_TRANSPARENT) != 0 ? CWnd::OnEraseBkgnd(dc) : TRUE;
}

bool CSlidePic::Copy()
{
    return toClipboard([this] { return CreateEnhMetaFileW(CRect(0, 0, m_hiX, m_hiY)); }, m_hWnd);
}

HENHMETAFILE CSlidePic::CreateEnhMetaFileW(CRect rect)
{
    CMetaFileDC metafile;
    metafile.Attach(::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr));
    {
        const Context context(*this, metafile, kForeground);
        draw(rect);
    }
    return metafile.CloseEnhanced();
}

} // namespace VEK
