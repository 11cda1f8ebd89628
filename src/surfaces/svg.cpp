#include <vek/surfaces/svg.h>

#include "core/png/png.h"
#include "core/values/whole.h"
#include "surfaces/ellipse.h"
#include "surfaces/holes.h"
#include "surfaces/reach.h"
#include "surfaces/svg_text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace VEK
{
namespace
{

constexpr double kPi = std::numbers::pi;

using svg::milli;
using svg::MilliPoint;

MilliPoint milliPoint(const SurfacePoint& p)
{
    return {milli(p.x), milli(p.y)};
}

struct Area {
    double left, top, right, bottom;
};

Area areaOf(double x1, double y1, double x2, double y2)
{
    const auto [left, right] = std::minmax({reach::clamped(x1), reach::clamped(x2)});
    const auto [top, bottom] = std::minmax({reach::clamped(y1), reach::clamped(y2)});
    return {left, top, right, bottom};
}

class SvgSurface final : public CFileSurface
{
public:
    SvgSurface(CByteSink& sink, int width, int height);

    void clipTo(double left, double top, double right, double bottom) override;
    void clipOut(const SurfacePoint* points, int count) override
    {
        whole(false, [&] { return (addHole(points, count), true); });
    }
    void clipRestore() override;
    void pen(int width, unsigned color) override { setPen({true, std::max(width, 1), color & 0xFFFFFF}); }
    void noPen() override { setPen({false, 1, 0}); }
    void brush(unsigned color) override { m_brush = {true, color & 0xFFFFFF}; }
    void noBrush() override { m_brush.on = false; }
    void background(unsigned) override {} // has no effect here
    void moveTo(double x, double y) override { m_at = {x, y}; }
    void lineTo(double x, double y) override;
    bool hasArcs() const override { return true; }
    void arcTo(const SurfaceArc& arc) override;
    void polygon(const SurfacePoint* points, int count) override
    {
        whole(false, [&] { return (addPolygon(points, count), true); });
    }
    void rectangle(double x1, double y1, double x2, double y2) override;
    void ellipse(double x1, double y1, double x2, double y2) override;
    void pixel(double x, double y, unsigned color) override;
    void solidRect(double x, double y, double width, double height, unsigned color) override;
    void picture(double x, double y, const CPixels& pixels) override
    {
        whole(false, [&] { return (addPicture(x, y, pixels), true); });
    }
    bool finish() override;

private:
    /// Lines per path element; longer ones are slow in some readers.
    static constexpr int kPathLimit = 10000;

    /// Semi-axis below which an ellipse is drawn as a line.
    static constexpr double kFlat = 0.01;

    struct Pen {
        bool on = true;
        int width = 1;
        unsigned color = 0;

        bool operator==(const Pen& other) const = default;
    };
    struct Brush {
        bool on = false;
        unsigned color = 0;
    };

    void addHole(const SurfacePoint* points, int count);
    void addPolygon(const SurfacePoint* points, int count);
    void addPicture(double x, double y, const CPixels& pixels);
    bool drawsArea() const { return (m_pen.on || m_brush.on) && !m_finished; }
    void setPen(const Pen& wanted);

    void applyClip(bool holesToo);
    void closePath();
    void closeGroups(int keep);
    void openPath(const MilliPoint& from);
    void addLine(const MilliPoint& from, const MilliPoint& to);
    void addChords(const SurfaceArc& arc, double radius);
    void addFlatArc(const SurfaceArc& arc, double turningPoint);
    void addStroke();
    void addFill(bool evenOdd);
    void addOutline(const SurfacePoint* points, int count);
    void addRect(const Area& area);

    const unsigned long m_shortages = memoryShortages();
    svg::Text m_text;
    bool m_finished = false;
    int m_lastId = 0;

    Pen m_pen;
    Brush m_brush;
    SurfacePoint m_at;
    bool m_clipped = false;
    Area m_clip; ///< the whole picture while nothing is clipped
    Holes m_holes;

    // Elements that are still open.
    int m_groups = 0;
    int m_holesWritten = 0;
    int m_pathLines = 0; ///< lines of the open path element, 0 when none is open
    MilliPoint m_pathEnd;

    std::vector<SurfacePoint> m_cut;
};

SvgSurface::SvgSurface(CByteSink& sink, int width, int height)
    : m_text(sink), m_clip{0.0, 0.0, double(std::max(width, 1)), double(std::max(height, 1))}
{
    const int w = std::max(width, 1);
    const int h = std::max(height, 1);
    m_text << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" "
              "width=\""
           << w << "\" height=\"" << h << "\" viewBox=\"0 0 " << w << " " << h
           << "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
}

void SvgSurface::addRect(const Area& area)
{
    m_text << "<rect x=\"" << milli(area.left) << "\" y=\"" << milli(area.top) << "\" width=\""
           << milli(area.right - area.left) << "\" height=\"" << milli(area.bottom - area.top) << "\"";
}

void SvgSurface::addOutline(const SurfacePoint* points, int count)
{
    for (int i = 0; i < count; ++i) {
        m_text.addPoint(i == 0 ? 'M' : 'L', milliPoint(points[i]));
        m_text.settle();
    }
    m_text << "Z";
}

void SvgSurface::addStroke()
{
    if (!m_pen.on)
        return;
    m_text << " stroke=\"";
    m_text.addColor(m_pen.color);
    m_text << "\"";
    if (m_pen.width > 1)
        m_text << " stroke-width=\"" << m_pen.width << "\"";
}

void SvgSurface::addFill(bool evenOdd)
{
    if (!m_brush.on)
        return;
    m_text << " fill=\"";
    m_text.addColor(m_brush.color);
    m_text << (evenOdd ? "\" fill-rule=\"evenodd\"" : "\"");
}

void SvgSurface::closePath()
{
    if (m_pathLines > 0)
        m_text << "\"/>\n";
    m_pathLines = 0;
    m_text.settle();
}

void SvgSurface::closeGroups(int keep)
{
    closePath();
    for (; m_groups > keep; --m_groups)
        m_text << "</g>\n";
}

void SvgSurface::clipTo(double left, double top, double right, double bottom)
{
    closeGroups(0);
    m_clipped = true;
    m_clip = areaOf(left, top, right, bottom);
    m_holes.clear();
    m_holesWritten = 0;
}

void SvgSurface::addHole(const SurfacePoint* points, int count)
{
    reach::cutPolygon(points, count, m_cut);
    m_holes.add(m_cut.data(), static_cast<int>(m_cut.size()));
    closePath();
}

void SvgSurface::clipRestore()
{
    if (m_holesWritten > 0)
        closeGroups(m_clipped ? 1 : 0);
    m_holes.clear();
    m_holesWritten = 0;
}

void SvgSurface::applyClip(bool holesToo)
{
    if (m_clipped && m_groups == 0) {
        m_text << "<clipPath id=\"vek-clip-" << ++m_lastId << "\">";
        addRect(m_clip);
        m_text << "/></clipPath>\n<g clip-path=\"url(#vek-clip-" << m_lastId << ")\">\n";
        ++m_groups;
    }
    if (!holesToo || m_holesWritten == m_holes.count())
        return;
    m_text << "<mask id=\"vek-mask-" << ++m_lastId << "\" maskUnits=\"userSpaceOnUse\" x=\"" << milli(m_clip.left)
           << "\" y=\"" << milli(m_clip.top) << "\" width=\"" << milli(m_clip.right - m_clip.left) << "\" height=\""
           << milli(m_clip.bottom - m_clip.top) << "\">";
    addRect(m_clip);
    m_text << " fill=\"#ffffff\"/>";
    for (; m_holesWritten < m_holes.count(); ++m_holesWritten) {
        m_text << "<path fill=\"#000000\" fill-rule=\"evenodd\" d=\"";
        addOutline(m_holes.points(m_holesWritten), m_holes.pointCount(m_holesWritten));
        m_text << "\"/>";
    }
    m_text << "</mask>\n<g mask=\"url(#vek-mask-" << m_lastId << ")\">\n";
    ++m_groups;
}

void SvgSurface::setPen(const Pen& wanted)
{
    if (wanted == m_pen)
        return;
    closePath();
    m_pen = wanted;
}

void SvgSurface::lineTo(double x, double y)
{
    SurfacePoint from = m_at;
    SurfacePoint to{x, y};
    m_at = to;
    if (!m_pen.on || m_finished)
        return;
    if ((!reach::holds(from) || !reach::holds(to)) && !reach::cutSegment(from, to))
        return;
    addLine(milliPoint(from), milliPoint(to));
}

/// Makes sure that a path is open and ends at a point.
void SvgSurface::openPath(const MilliPoint& from)
{
    if (m_pathLines == kPathLimit)
        closePath();
    if (m_pathLines == 0) {
        applyClip(true);
        m_text << "<path";
        addStroke();
        m_text << " d=\"";
    }
    if (m_pathLines == 0 || from != m_pathEnd)
        m_text.addPoint('M', from);
    ++m_pathLines;
}

void SvgSurface::addLine(const MilliPoint& from, const MilliPoint& to)
{
    openPath(from);
    m_text.addPoint('L', to);
    m_pathEnd = to;
    m_text.settle();
}

void SvgSurface::arcTo(const SurfaceArc& asked)
{
    SurfaceArc arc = asked;
    arc.sweep = std::clamp(arc.sweep, -2.0 * kPi, 2.0 * kPi);
    const EllipseAxes axes = axesOf(arc);
    const SurfacePoint end = arcPoint(arc, arc.sweep);
    if (!reach::isFinite(end) || !std::isfinite(axes.longer)) {
        m_at = end;
    } else if (!reach::holds({std::abs(arc.center.x) + axes.longer, std::abs(arc.center.y) + axes.longer})) {
        addChords(arc, axes.longer);
    } else if (axes.shorter < kFlat) {
        addFlatArc(arc, axes.parameter);
    } else if (m_pen.on && !m_finished) {
        // SVG gives an arc by its ends, from which a reader computes the centre. In pieces of at most a third of a turn
        // the rounding of the ends is not amplified, as it would be near half and whole turns.
        const int pieces = std::max(static_cast<int>(std::ceil(std::abs(arc.sweep) / (2.0 / 3.0 * kPi) - 1e-9)), 1);
        const bool clockwise = (arc.u.x * arc.v.y - arc.u.y * arc.v.x > 0.0) == (arc.sweep > 0.0);
        MilliPoint from = milliPoint(m_at);
        for (int i = 1; i <= pieces; ++i) {
            openPath(from);
            m_text << "A" << milli(axes.longer) << " " << milli(axes.shorter) << " " << milli(axes.turn * 180.0 / kPi)
                   << (clockwise ? " 0 1" : " 0 0");
            from = milliPoint(arcPoint(arc, arc.sweep * i / pieces));
            m_text.addPoint(' ', from);
            m_pathEnd = from;
            m_text.settle();
        }
    }
    m_at = end;
}

/// Draws an arc as fine chords, which are clipped.
void SvgSurface::addChords(const SurfaceArc& arc, double radius)
{
    constexpr double kFine = 0.01, kMost = 1e5;
    const double step = std::sqrt(8.0 * kFine / radius);
    const int chords = static_cast<int>(std::clamp(std::ceil(std::abs(arc.sweep) / step), 1.0, kMost));
    for (int i = 1; i <= chords; ++i) {
        const SurfacePoint to = arcPoint(arc, arc.sweep * i / chords);
        lineTo(to.x, to.y);
    }
}

/// An ellipse without width: a line that turns back at its ends.
void SvgSurface::addFlatArc(const SurfaceArc& arc, double turningPoint)
{
    const double direction = arc.sweep < 0.0 ? -1.0 : 1.0;
    double next = std::fmod(turningPoint * direction, kPi);
    for (next = next <= 0.0 ? next + kPi : next; next < std::abs(arc.sweep); next += kPi) {
        const SurfacePoint to = arcPoint(arc, next * direction);
        lineTo(to.x, to.y);
    }
    const SurfacePoint end = arcPoint(arc, arc.sweep);
    lineTo(end.x, end.y);
}

void SvgSurface::addPolygon(const SurfacePoint* points, int count)
{
    reach::cutPolygon(points, count, m_cut);
    const int cutCount = static_cast<int>(m_cut.size());
    if (cutCount < 2 || !drawsArea())
        return;
    closePath();
    const bool figure = m_brush.on && !m_holes.empty() && m_holesWritten == 0 && m_holes.liesIn(m_cut.data(), cutCount);
    applyClip(!figure);
    m_text << "<path";
    addFill(true);
    if (!figure)
        addStroke();
    m_text << " d=\"";
    addOutline(m_cut.data(), cutCount);
    if (figure) {
        m_holes.windAgainst(m_cut.data(), cutCount);
        for (int i = 0; i < m_holes.count(); ++i)
            addOutline(m_holes.points(i), m_holes.pointCount(i));
    }
    m_text << "\"/>\n";
    if (figure && m_pen.on) { // the edge, which the holes do not have
        m_text << "<path";
        addStroke();
        m_text << " d=\"";
        addOutline(m_cut.data(), cutCount);
        m_text << "\"/>\n";
    }
}

void SvgSurface::rectangle(double x1, double y1, double x2, double y2)
{
    if (!drawsArea())
        return;
    closePath();
    applyClip(true);
    addRect(areaOf(x1, y1, x2, y2));
    addFill(false);
    addStroke();
    m_text << "/>\n";
}

void SvgSurface::ellipse(double x1, double y1, double x2, double y2)
{
    if (!drawsArea())
        return;
    const Area area = areaOf(x1, y1, x2, y2);
    closePath();
    applyClip(true);
    m_text << "<ellipse cx=\"" << milli((area.left + area.right) / 2.0) << "\" cy=\""
           << milli((area.top + area.bottom) / 2.0) << "\" rx=\"" << milli((area.right - area.left) / 2.0) << "\" ry=\""
           << milli((area.bottom - area.top) / 2.0) << "\"";
    addFill(false);
    addStroke();
    m_text << "/>\n";
}

void SvgSurface::pixel(double x, double y, unsigned color)
{
    if (!reach::holds({x, y}) || m_finished)
        return;
    const Pen asked = m_pen;
    pen(1, color);
    addLine(milliPoint({x, y}), milliPoint({x + 1.0, y}));
    setPen(asked);
}

void SvgSurface::solidRect(double x, double y, double width, double height, unsigned color)
{
    const Pen askedPen = m_pen;
    const Brush askedBrush = m_brush;
    noPen();
    brush(color);
    rectangle(x, y, x + reach::clamped(width), y + reach::clamped(height));
    m_pen = askedPen;
    m_brush = askedBrush;
}

void SvgSurface::addPicture(double x, double y, const CPixels& pixels)
{
    if (pixels.empty() || !reach::holds({x, y}) || m_finished)
        return;
    const std::string file = png::encode(pixels, png::Channels::colorAndOpacity);
    if (file.empty())
        return;
    closePath();
    applyClip(true);
    // Two ways to request whole pixels: the attribute of this version, and the style of later ones, which has
    // precedence.
    m_text << "<image x=\"" << milli(x) << "\" y=\"" << milli(y) << "\" width=\"" << pixels.width << "\" height=\""
           << pixels.height
           << "\" image-rendering=\"optimizeSpeed\" style=\"image-rendering:pixelated\" "
              "xmlns:xlink=\"http://www.w3.org/1999/xlink\" xlink:href=\"data:image/png;base64,";
    m_text.addBase64(file);
    m_text << "\"/>\n";
}

bool SvgSurface::finish()
{
    closeGroups(0);
    if (m_finished)
        return false;
    m_finished = true;
    m_text << "</svg>\n";
    return memoryShortages() == m_shortages && m_text.finish();
}

} // namespace

std::unique_ptr<CFileSurface> svgSurface(CByteSink& sink, int width, int height)
{
    return whole(std::unique_ptr<CFileSurface>(),
                 [&]() -> std::unique_ptr<CFileSurface> { return std::make_unique<SvgSurface>(sink, width, height); });
}

} // namespace VEK
