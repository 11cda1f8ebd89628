#include <vek/surfaces/emf.h>

#include "core/values/whole.h"
#include "surfaces/emf_records.h"
#include "surfaces/holes.h"
#include "surfaces/line_run.h"
#include "surfaces/object_table.h"
#include "surfaces/opaque_region.h"
#include "surfaces/reach.h"

#include <array>
#include <numeric>

namespace VEK
{
namespace
{

using emf::Box;
using emf::Point;

Point whole(const SurfacePoint& p)
{
    return {static_cast<std::int32_t>(p.x), static_cast<std::int32_t>(p.y)};
}

std::int32_t wholeClamped(double value)
{
    return static_cast<std::int32_t>(reach::clamped(value));
}

Box boxOf(const std::vector<Point>& points)
{
    Box box;
    for (const Point& p : points)
        box.add(p);
    return box;
}

constexpr int kMostFineness = 64;

class EmfSurface final : public CFileSurface
{
public:
    EmfSurface(CByteSink& sink, int fineness)
        : m_records(sink), m_fine(std::clamp(fineness, 1, kMostFineness)), m_factor(m_fine)
    {
        if (m_fine > 1)
            m_records.addGrid(m_fine);
    }

    void clipTo(double left, double top, double right, double bottom) override;
    void clipOut(const SurfacePoint* points, int count) override
    {
        VEK::whole(false, [&] { return (addHole(points, count), true); });
    }
    void clipRestore() override;
    void pen(int width, unsigned color) override { setPen(true, width, color); }
    void noPen() override { setPen(false, 1, 0); }
    void brush(unsigned color) override;
    void noBrush() override { m_colors.brushOn = false; }
    void background(unsigned color) override { m_background = color & 0xFFFFFF; }
    void moveTo(double x, double y) override { m_run.moveTo(fine({x, y}), Draw{*this}); }
    void lineTo(double x, double y) override { lineHere({x, y}); }
    void polyline(const SurfacePoint* points, int count) override;
    void polylines(const SurfacePoint* points, const int* counts, int lines) override
    {
        VEK::whole(false, [&] { return (addLines(points, counts, lines), true); });
    }
    void polygon(const SurfacePoint* points, int count) override
    {
        VEK::whole(false, [&] { return (addPolygon(points, count), true); });
    }
    void rectangle(double x1, double y1, double x2, double y2) override
    {
        addBox(emf::kRectangle, corner(x1, y1), corner(x2, y2));
    }
    void ellipse(double x1, double y1, double x2, double y2) override
    {
        addBox(emf::kEllipse, corner(x1, y1), corner(x2, y2));
    }
    void pixel(double x, double y, unsigned color) override;
    void solidRect(double x, double y, double width, double height, unsigned color) override;
    void picture(double x, double y, const CPixels& pixels) override
    {
        VEK::whole(false, [&] { return (addPicture(x, y, pixels), true); });
    }
    bool finish() override;

private:
    struct Draw {
        EmfSurface& surface;
        void operator()(const std::vector<Point>& points) const { surface.writeRun(points); }
    };

    using Objects = ObjectTable<std::uint32_t, 64>;

    /// The settings made by the records so far; restoring a saved context restores them.
    struct Context {
        std::uint32_t pen = emf::kBlackPen;
        std::uint32_t brush = emf::kWhiteBrush;
        unsigned brushColor = 0xFFFFFF;
        unsigned background = 0xFFFFFF;
        bool evenOdd = false;
    };

    struct Colors {
        bool penOn = true;
        int penWidth = 1;
        unsigned pen = 0;
        bool brushOn = false;
        unsigned brush = 0;

        bool drawsArea() const { return penOn || brushOn; }
    };

    SurfacePoint fine(const SurfacePoint& p) const { return {p.x * m_factor, p.y * m_factor}; }
    Point corner(double x, double y) const { return {wholeClamped(x * m_factor), wholeClamped(y * m_factor)}; }

    void lineHere(const SurfacePoint& to)
    {
        if (m_colors.penOn)
            m_run.lineTo(fine(to), Draw{*this});
        else
            m_run.moveTo(fine(to), Draw{*this});
    }

    void addHole(const SurfacePoint* points, int count);
    void addPolygon(const SurfacePoint* points, int count);
    void addLines(const SurfacePoint* points, const int* counts, int lines);
    void addPicture(double x, double y, const CPixels& pixels);
    void flushRun() { m_run.flush(Draw{*this}); }
    void writeRun(const std::vector<Point>& points);
    void writeLines(const std::vector<Point>& points, const std::vector<int>& counts);
    void setPen(bool on, int width, unsigned color);
    void addBox(emf::Type type, const Point& a, const Point& b);
    void save();
    void restore();
    void applyClip(bool holesToo);
    void applyPen();
    void applyLinePen();
    void applyBrush();
    void applyFillRules();
    void applyStretchMode();
    void select(std::uint32_t& current, std::uint32_t handle);
    template <class Create>
    std::uint32_t object(Objects& table, std::uint64_t look, Create create);
    void figureWithHoles(const SurfacePoint* points, int count);
    void cover(Box box, bool edged);
    void collect(const SurfacePoint* points, int count);
    void cut(const SurfacePoint* points, int count);

    const unsigned long m_shortages = memoryShortages();
    emf::Records m_records;
    const int m_fine;      ///< record units per device unit; everything below is in record units
    const double m_factor; ///< the same as a double, for each point
    std::uint32_t m_handles = 0;
    Objects m_pens;
    Objects m_brushes;
    Box m_bounds;
    bool m_finished = false;

    // Set by the caller.
    Colors m_colors;
    unsigned m_background = 0xFFFFFF;
    bool m_clipped = false;
    Box m_clip;
    Holes m_holes; ///< not truncated to whole units yet, which could move a hole's edge across the polygon's
    LineRun<Point> m_run;
    LineBatch<Point, int> m_lines;

    // Set by the records. The clip rectangle and the holes in it each have a saved context.
    Context m_context;
    std::array<Context, 2> m_saved;
    std::size_t m_savedCount = 0;
    int m_holesWritten = 0;
    bool m_stretches = false; ///< whether the stretch mode has been set

    // Scratch
    std::vector<SurfacePoint> m_cut;
    std::vector<SurfacePoint> m_scaled;
    std::vector<Point> m_points;
    std::vector<int> m_counts;
};

void EmfSurface::save()
{
    m_records.add(emf::kSaveDc);
    m_saved[m_savedCount++] = m_context;
}

void EmfSurface::restore()
{
    m_records.add(emf::kRestoreDc, -1);
    m_context = m_saved[--m_savedCount];
}

void EmfSurface::clipTo(double left, double top, double right, double bottom)
{
    flushRun();
    while (m_savedCount > 0)
        restore();
    m_clipped = true;
    const Point a = corner(left, top), b = corner(right, bottom);
    const auto [x1, x2] = std::minmax({a.x, b.x});
    const auto [y1, y2] = std::minmax({a.y, b.y});
    m_clip = {x1, y1, x2, y2};
    m_holes.clear();
    m_holesWritten = 0;
}

void EmfSurface::addHole(const SurfacePoint* points, int count)
{
    flushRun();
    cut(points, count);
    m_points.reserve(m_cut.size()); // for the call that writes the hole
    m_holes.add(m_cut.data(), static_cast<int>(m_cut.size()));
}

void EmfSurface::clipRestore()
{
    if (m_holes.empty())
        return;
    flushRun();
    if (m_holesWritten > 0)
        restore();
    m_holes.clear();
    m_holesWritten = 0;
}

void EmfSurface::applyClip(bool holesToo)
{
    if (m_clipped && m_savedCount == 0) {
        save();
        m_records.add(emf::kIntersectClipRect, m_clip.left, m_clip.top, m_clip.right, m_clip.bottom);
    }
    if (!holesToo || m_holesWritten == m_holes.count())
        return;
    applyFillRules();
    if (m_holesWritten == 0)
        save();
    for (; m_holesWritten < m_holes.count(); ++m_holesWritten) {
        m_points.clear();
        collect(m_holes.points(m_holesWritten), m_holes.pointCount(m_holesWritten));
        m_records.add(emf::kBeginPath);
        m_records.addPoints(emf::kPolygon, emf::kPolygon16, m_points);
        m_records.add(emf::kEndPath);
        m_records.add(emf::kSelectClipPath, 4); // RGN_DIFF
    }
}

void EmfSurface::setPen(bool on, int width, unsigned color)
{
    width = std::max(width, 1);
    color &= 0xFFFFFF;
    if (on == m_colors.penOn && width == m_colors.penWidth && color == m_colors.pen)
        return;
    flushRun();
    m_colors.penOn = on;
    m_colors.penWidth = width;
    m_colors.pen = color;
}

void EmfSurface::brush(unsigned color)
{
    m_colors.brushOn = true;
    m_colors.brush = color & 0xFFFFFF;
}

void EmfSurface::select(std::uint32_t& current, std::uint32_t handle)
{
    if (current == handle)
        return;
    m_records.add(emf::kSelectObject, handle);
    current = handle;
}

template <class Create>
std::uint32_t EmfSurface::object(Objects& table, std::uint64_t look, Create create)
{
    Objects::Entry& entry = table.find(look, [this](std::uint32_t handle) {
        bool inUse = handle == m_context.pen || handle == m_context.brush;
        for (std::size_t i = 0; i < m_savedCount; ++i)
            inUse = inUse || handle == m_saved[i].pen || handle == m_saved[i].brush;
        return inUse;
    });
    if (entry.handle != 0 && entry.look == look)
        return entry.handle;
    if (entry.handle == 0)
        entry.handle = ++m_handles;
    else
        m_records.add(emf::kDeleteObject, entry.handle);
    entry.look = look;
    create(entry.handle);
    return entry.handle;
}

void EmfSurface::applyPen()
{
    std::uint32_t handle = emf::kNullPen;
    if (m_colors.penOn) {
        handle = object(m_pens, std::uint64_t(m_colors.penWidth) << 32 | m_colors.pen, [this](std::uint32_t index) {
            const std::int64_t width = std::int64_t{m_colors.penWidth} * m_fine;
            m_records.add(emf::kCreatePen, index, 0, std::min<std::int64_t>(width, INT_MAX), 0,
                          m_colors.pen); // PS_SOLID, width as x and y
        });
    }
    select(m_context.pen, handle);
}

/// Some readers drop a pen in the colour of the current brush until it is selected again: the edges of letters would be
/// missing.
void EmfSurface::applyLinePen()
{
    applyPen();
    if (m_context.brush != emf::kNullBrush && m_context.brushColor == m_colors.pen) {
        select(m_context.brush, emf::kNullBrush);
        m_records.add(emf::kSelectObject, m_context.pen);
    }
}

void EmfSurface::applyBrush()
{
    std::uint32_t handle = emf::kNullBrush;
    if (m_colors.brushOn) {
        handle = object(m_brushes, m_colors.brush, [this](std::uint32_t index) {
            m_records.add(emf::kCreateBrushIndirect, index, 0, m_colors.brush, 0); // BS_SOLID, no hatch
        });
        m_context.brushColor = m_colors.brush;
    }
    select(m_context.brush, handle);
}

void EmfSurface::applyFillRules()
{
    if (m_context.background != m_background)
        m_records.add(emf::kSetBkColor, m_background);
    m_context.background = m_background;
    if (!m_context.evenOdd)
        m_records.add(emf::kSetPolyFillMode, 1); // ALTERNATE
    m_context.evenOdd = true;
}

/// Shrinking a picture drops pixels; in other modes dark ones would spread.
void EmfSurface::applyStretchMode()
{
    if (!m_stretches)
        m_records.add(emf::kSetStretchBltMode, 3); // COLORONCOLOR
    m_stretches = true;
}

/// Widens the bounds of the picture.
void EmfSurface::cover(Box box, bool edged)
{
    if (edged) {
        const auto half =
            static_cast<std::int32_t>(std::min<std::int64_t>(std::int64_t{m_colors.penWidth} * m_fine / 2, 1 << 20));
        box = {box.left - half, box.top - half, box.right + half, box.bottom + half};
    }
    if (m_clipped) {
        box.left = std::max(box.left, m_clip.left);
        box.top = std::max(box.top, m_clip.top);
        box.right = std::min(box.right, m_clip.right - 1);
        box.bottom = std::min(box.bottom, m_clip.bottom - 1);
    }
    if (!box.isEmpty())
        m_bounds.add(box);
}

void EmfSurface::collect(const SurfacePoint* points, int count)
{
    for (int i = 0; i < count; ++i)
        m_points.push_back(whole(points[i]));
}

void EmfSurface::cut(const SurfacePoint* points, int count)
{
    if (m_fine > 1) {
        m_scaled.clear();
        for (int i = 0; i < count; ++i)
            m_scaled.push_back(fine(points[i]));
        points = m_scaled.data();
    }
    reach::cutPolygon(points, count, m_cut);
}

void EmfSurface::writeRun(const std::vector<Point>& points)
{
    if (m_finished)
        return;
    applyClip(true);
    applyLinePen();
    cover(boxOf(points), true);
    if (points.size() == 2) { // shorter than a polyline of two points
        m_records.add(emf::kMoveToEx, points[0].x, points[0].y);
        m_records.add(emf::kLineTo, points[1].x, points[1].y);
    } else {
        m_records.addPoints(emf::kPolyline, emf::kPolyline16, points);
    }
}

void EmfSurface::addPolygon(const SurfacePoint* points, int pointCount)
{
    flushRun();
    cut(points, pointCount);
    const int cutCount = static_cast<int>(m_cut.size());
    if (cutCount < 2 || m_finished || !m_colors.drawsArea())
        return;
    if (m_colors.brushOn && !m_holes.empty() && m_holesWritten == 0 && m_holes.liesIn(m_cut.data(), cutCount)) {
        figureWithHoles(m_cut.data(), cutCount);
        return;
    }
    applyClip(true);
    applyFillRules();
    applyPen();
    applyBrush();
    m_points.clear();
    collect(m_cut.data(), cutCount);
    cover(boxOf(m_points), m_colors.penOn);
    m_records.addPoints(emf::kPolygon, emf::kPolygon16, m_points);
}

/// Draws the fill as one figure, then the edge, which the holes do not have.
void EmfSurface::figureWithHoles(const SurfacePoint* points, int pointCount)
{
    m_holes.windAgainst(points, pointCount);
    applyClip(false);
    applyFillRules();
    applyBrush();
    select(m_context.pen, emf::kNullPen);
    m_points.clear();
    m_counts.assign(1, pointCount);
    collect(points, pointCount);
    cover(boxOf(m_points), m_colors.penOn);
    for (int i = 0; i < m_holes.count(); ++i) {
        collect(m_holes.points(i), m_holes.pointCount(i));
        m_counts.push_back(m_holes.pointCount(i));
    }
    m_records.addParts(emf::kPolyPolygon, emf::kPolyPolygon16, m_points, m_counts);
    if (m_colors.penOn) {
        applyLinePen();
        m_points.resize(static_cast<std::size_t>(pointCount));
        m_points.push_back(m_points.front());
        m_records.addPoints(emf::kPolyline, emf::kPolyline16, m_points);
    }
}

/// The right and the bottom side lie a pixel inside.
void EmfSurface::addBox(emf::Type type, const Point& a, const Point& b)
{
    flushRun();
    if (a.x == b.x || a.y == b.y || m_finished || !m_colors.drawsArea())
        return;
    const auto [left, right] = std::minmax(a.x, b.x);
    const auto [top, bottom] = std::minmax(a.y, b.y);
    const Box box{left, top, std::max(left, right - m_fine), std::max(top, bottom - m_fine)};
    applyClip(true);
    applyPen();
    applyBrush();
    cover(box, m_colors.penOn);
    m_records.add(type, box.left, box.top, box.right, box.bottom);
}

void EmfSurface::pixel(double x, double y, unsigned color)
{
    if (m_fine > 1) { // a device pixel would vanish when the picture is enlarged
        if (reach::holds(fine({x, y})))
            solidRect(x, y, 1.0, 1.0, color);
        return;
    }
    flushRun();
    if (!reach::holds({x, y}) || m_finished)
        return;
    const Point p = whole({x, y});
    applyClip(true);
    cover({p.x, p.y, p.x, p.y}, false);
    m_records.add(emf::kSetPixelV, p.x, p.y, color & 0xFFFFFF);
}

/// Drawn as a box with an edge of its own colour, which covers exactly these pixels.
void EmfSurface::solidRect(double x, double y, double width, double height, unsigned color)
{
    flushRun();
    const Point from = corner(x, y), size = corner(width, height);
    const Colors asked = m_colors;
    m_colors = {true, 1, color & 0xFFFFFF, true, color & 0xFFFFFF};
    addBox(emf::kRectangle, from, {wholeClamped(double(from.x) + size.x), wholeClamped(double(from.y) + size.y)});
    m_colors = asked;
}

/// Transparent pixels are cut from the clip: readers that ignore clip regions show them in the colour that the picture
/// has there, mostly the paper's, where the usual pair of masked copies would make them black. On a grid finer than
/// pixels the opaque parts are copied one by one: readers differ in the units of a region.
void EmfSurface::addPicture(double x, double y, const CPixels& pixels)
{
    flushRun();
    const SurfacePoint place = fine({x, y});
    if (pixels.empty() || !reach::holds(place) || m_finished)
        return;
    const Point at = whole(place);
    const bool opaque =
        std::all_of(pixels.data.begin(), pixels.data.end(), [](std::uint32_t pixel) { return pixel >> 24 != 0; });
    const PixelBox all{0, 0, pixels.width, pixels.height};
    const std::vector<PixelBox> region = opaque ? std::vector<PixelBox>{all} : opaqueRegion(pixels);
    if (region.empty())
        return;
    applyClip(true);
    const auto end = [this](std::int32_t from, int size) { return wholeClamped(from + double(size) * m_fine) - 1; };
    cover({at.x, at.y, end(at.x, pixels.width), end(at.y, pixels.height)}, false);
    if (m_fine > 1) {
        applyStretchMode();
        for (const PixelBox& part : region)
            m_records.addPicture(pixels, part, {at.x + part.left * m_fine, at.y + part.top * m_fine}, m_fine);
        return;
    }
    if (!opaque) {
        m_records.add(emf::kSaveDc);
        m_records.addRegion(region, at);
    }
    m_records.addPicture(pixels, all, at, 1);
    if (!opaque)
        m_records.add(emf::kRestoreDc, -1);
}

void EmfSurface::polyline(const SurfacePoint* points, int count)
{
    if (count > 0)
        m_run.moveTo(fine(points[0]), Draw{*this});
    for (int i = 1; i < count; ++i)
        lineHere(points[i]);
}

void EmfSurface::addLines(const SurfacePoint* points, const int* counts, int lines)
{
    flushRun();
    if (m_colors.penOn) {
        m_lines.draw(
            points, counts, lines, m_factor, [this](const auto& list, const auto& parts) { writeLines(list, parts); },
            [this](const SurfacePoint* line, int count) {
                polyline(line, count);
                flushRun();
            });
    }
    const SurfacePoint* const end = std::accumulate(counts, counts + lines, points);
    if (end != points)
        m_run.moveTo(fine(end[-1]), Draw{*this});
}

void EmfSurface::writeLines(const std::vector<Point>& points, const std::vector<int>& counts)
{
    if (counts.size() == 1)
        writeRun(points);
    if (counts.size() == 1 || m_finished)
        return;
    applyClip(true);
    applyLinePen();
    cover(boxOf(points), true);
    m_records.addParts(emf::kPolyPolyline, emf::kPolyPolyline16, points, counts);
}

bool EmfSurface::finish()
{
    flushRun();
    if (m_finished)
        return false;
    m_finished = true;
    while (m_savedCount > 0)
        restore();
    return memoryShortages() == m_shortages && m_records.finish(m_bounds, m_fine, m_handles);
}

} // namespace

std::unique_ptr<CFileSurface> emfSurface(CByteSink& sink, int fineness)
{
    return VEK::whole(std::unique_ptr<CFileSurface>(),
                      [&]() -> std::unique_ptr<CFileSurface> { return std::make_unique<EmfSurface>(sink, fineness); });
}

} // namespace VEK
