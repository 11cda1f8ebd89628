// One pass over the items of a display object.
#pragma once

#include "core/values/stepping.h"
#include "display/index.h"
#include "display/order.h"
#include "display/pass_rules.h"
#include "draw/dashes.h"
#include "draw/hatch_plane.h"

#include <vek/values/map.h>

#include <optional>
#include <span>
#include <vector>

namespace VEK
{

/// Transforms points to the device: the two rows of a matrix that it needs.
class DeviceMap
{
public:
    explicit DeviceMap(const CVekMatrix3d& m) : m_m(m) {}

    SurfacePoint operator()(const CVekPoint3d& p) const
    {
        const SurfacePoint v = (*this)(p.asVector());
        return {v.x + m_m[0][3], v.y + m_m[1][3]};
    }
    SurfacePoint operator()(const CVekVector3d& v) const
    {
        return {m_m[0][0] * v[0] + m_m[0][1] * v[1] + m_m[0][2] * v[2],
                m_m[1][0] * v[0] + m_m[1][1] * v[1] + m_m[1][2] * v[2]};
    }

private:
    // No copy: reading it back right after the store would wait for all pixel stores of the item before.
    const CVekMatrix3d& m_m;
};

/// Whether points lie wholly on one side of a rectangle.
class Beside
{
public:
    Beside(double left, double top, double right, double bottom)
        : m_left(left), m_top(top), m_right(right), m_bottom(bottom)
    {
    }

    /// @return whether all points so far lie beyond one and the same edge; once false, further points change nothing
    bool add(const SurfacePoint& p)
    {
        m_isLeft = m_isLeft && p.x < m_left;
        m_isRight = m_isRight && p.x > m_right;
        m_isAbove = m_isAbove && p.y < m_top;
        m_isBelow = m_isBelow && p.y > m_bottom;
        return m_isLeft || m_isRight || m_isAbove || m_isBelow;
    }

private:
    double m_left, m_top, m_right, m_bottom;
    bool m_isLeft = true, m_isRight = true, m_isAbove = true, m_isBelow = true;
};

/// The chord tolerance for arcs.
struct Chords {
    double tolerance = 0.0; ///< in the arc's units; 0: those of `vek_gdx_image_vl_split`

    int count(const plane::SpaceArc& arc) const;
};

/// Draws the items of one object; the buffers live as long as it does.
class DrawPass
{
public:
    /// @param area with a finite position, and a size and a scale above 0
    DrawPass(const CVekGDX& gdx, CSurface& surface, const DrawArea& area, const PassRules& rules,
             CPictureSource& pictures);

    void run();

private:
    using Region = CVekArrayTempl<CVekVertexArray>;

    /// The geometry that a matrix takes to the device: `stored`, before the item's own matrix and the view direction,
    /// or `turned`, after the view direction.
    enum class From { stored, turned };

    /// The pen of the items of one look, and where they show: in the coordinates before `m_total`.
    struct Pen {
        int width;
        unsigned color;
        double margin;
        DisplayIndex::Box area;
        bool isBounded; ///< the area
    };

    void draw(const CVekDisplayItem& item);
    void draw(const CVekDisplayItem* items, const DrawOrder& order, DisplayIndex& index);
    void drawRow(const DisplayIndex& index, const DisplayIndex::Row& row, const DisplayIndex::Box& box);
    void drawText(const DisplayIndex& index, const DisplayIndex::Row& row);
    void drawGlyph(std::span<const DisplayIndex::Contour> contours, const Pen& pen);
    void setRowMatrix(const DisplayIndex& index, unsigned matrix);
    void setRowColumns(const CVekMatrix3d& map);
    const double* mapFlat(const double* from, SurfacePoint* to, std::size_t count) const;
    const Pen& pen(const DisplayIndex& index, unsigned look);
    DisplayIndex::Box shownArea(double margin) const;

    int penWidth(int pixels) const;
    double margin(int thickn) const { return std::max(penWidth(thickn), 1) + m_area.scale; }
    int penWidth(const CVekDisplayItem& item) const { return penWidth(item.thickn); }
    unsigned fixed(unsigned color) const;
    unsigned penColor(unsigned mode, unsigned own) const;
    unsigned penColor(const CVekDisplayItem& item) const;
    unsigned fillColor(const CVekDisplayItem& item, unsigned pen) const;
    CVekMatrix3d fixedMatrix(const CVekDisplayItem& item);
    CVekMatrix3d testMatrix(const CVekDisplayItem& item);
    const CVekMatrix3d& matrix(const CVekDisplayItem& item, From from);

    SurfacePoint wholePixel(const SurfacePoint& p) const;
    void drawPoint(const CVekDisplayItem& item, unsigned color);
    void drawSquare(double x, double y, int size, int half);
    void drawMark(unsigned mode, double x, double y, int half, unsigned color);
    void drawRegion(const CVekDisplayItem& item, unsigned color);
    void drawPicture(const CVekDisplayItem& item);
    void drawText(const CVekDisplayItem& item, unsigned color);

    Beside besideArea() const;
    bool isOutside(std::span<const SurfacePoint> points) const;
    bool isOutside(const Region& region, const CVekMatrix3d& m) const;
    Chords chords(const CVekMatrix3d& m) const;
    Chords textChords(const CVekMatrix3d& m) const;
    void fillScanLines(Region region, const CVekMatrix3d& m);
    void fillPolygon(const Region& region, const CVekMatrix3d& m, Chords chords);
    void collect(const CVekVertexArray& contour, const CVekMatrix3d& m, Chords chords);
    std::optional<detail::HatchView> visiblePart(const CVekMatrix3d& m) const;
    const VekPatternLines& hatchLines(const CVekString& name);
    const Region& split(const Region& region);
    bool hatch(const Region& region, const CVekMatrix3d& m, const CHatchProp& prop);

    void prepareDashes(const CVekDisplayItem& item);
    void drawLine(const CVekVertexArray& vl, const CVekMatrix3d& m, unsigned color);
    void drawPieces(const CVekVertexArray& vl, const CVekMatrix3d& m, Chords chords, bool dots, unsigned color);
    bool isShort(const CVekPoint3d& start, const CVekPoint3d& end) const;
    bool hasDots(const CVekVertexArray& vl) const;
    void drawDashes(const CVekVertexArray& vl, const CVekMatrix3d& m, unsigned color);
    bool haveDots(const CVekVertexArray& vl);
    detail::Stations visiblePart(const CVekVertexArray& piece, const DeviceMap& map) const;
    void drawDot(const SurfacePoint& at, unsigned color);
    void drawArc(const plane::SpaceArc& arc, const DeviceMap& map);

    template <class IsDot>
    void drawStraight(const CVekPoint3d& start, const CVekPoint3d& end, const DeviceMap& map, unsigned color,
                      IsDot&& isDot);
    template <class IsDot>
    void drawBent(const CVekVertex& vertex, const CVekVector3d& normal, const DeviceMap& map, Chords chords,
                  unsigned color, IsDot&& isDot);
    template <class IsDot>
    void drawSegments(const CVekVertexArray& vl, const CVekMatrix3d& m, Chords chords, unsigned color, IsDot isDot);
    void addToLine(const SurfacePoint& p);
    void endLine();
    void flushLines();

    /// Points passed to the surface at a time, so that the buffer stays in the cache.
    static constexpr std::size_t kLinesLimit = 4096;

    const CVekGDX& m_gdx;
    CSurface& m_surface;
    const PassRules& m_rules;
    CPictureSource& m_pictures;
    const DrawArea m_area;
    const double m_right, m_bottom; ///< of the area
    const unsigned m_back;
    const CVekMatrix3d m_total; ///< from after the view direction to the device
    const bool m_viewTurns;     ///< whether the view direction is not the identity
    const CVekMatrix3d m_base;  ///< to the device for an item without a matrix of its own
    const double m_dotLength;
    const double m_shortLength;
    const bool m_trueArcs;

    double m_margin = 0.0;                   ///< how far the current item's pen draws around its points
    std::optional<CVekMatrix3d> m_screenMtx; ///< computed for the first screen-fixed item
    CVekMatrix3d m_matrix;                   ///< to the device for the current item
    std::vector<SurfacePoint> m_contour;
    std::vector<SurfacePoint> m_lines; ///< points of pending lines, the last one still open
    std::vector<int> m_counts;         ///< number of points of each finished line
    std::size_t m_lineStart = 0;       ///< of the open line
    CVekArrayTempl<double> m_linetype; ///< line pattern of the current item; empty: continuous
    detail::Dashes m_dashes;           ///< lays it
    detail::Dashes m_probe;            ///< lays it a second time
    CVekVertexArray m_line;
    Region m_split;                                       ///< the current region, if it has arcs
    CVekMapTempl<CVekString, VekPatternLines> m_patterns; ///< of hatches, as the host has them
    detail::HatchStrokes m_strokes;                       ///< of the current hatch

    /// A point or vector of the device, both coordinates of which are computed at a time.
    using Pair = double __attribute__((vector_size(16)));

    std::array<Pen, DisplayIndex::kLooks> m_pens{}; ///< of the looks of the index
    unsigned m_penCount = 0;
    unsigned m_rowMatrix = 0;           ///< number of the matrix of the current row; none for a text
    std::array<Pair, 4> m_rowColumns{}; ///< of the matrix to the device for the current row
    Pair m_rowZero{};                   ///< what z = 0 adds there: 0, or not a number
    std::vector<SurfacePoint> m_points; ///< of the current row
};

/// The drawing area with room for the pen of the current item.
inline Beside DrawPass::besideArea() const
{
    return {m_area.left - m_margin, m_area.top - m_margin, m_right + m_margin, m_bottom + m_margin};
}

/// Whether points, including the width of the current item's pen, lie wholly on one side of the drawing area.
inline bool DrawPass::isOutside(std::span<const SurfacePoint> points) const
{
    if (!m_rules.skipsOutside || points.empty())
        return false;
    Beside area = besideArea();
    return std::all_of(points.begin(), points.end(), [&](const SurfacePoint& p) { return area.add(p); });
}

inline void DrawPass::endLine()
{
    const std::size_t count = m_lines.size() - m_lineStart;
    if (count == 0)
        return;
    if (count == 1 || isOutside({m_lines.data() + m_lineStart, count}))
        m_lines.resize(m_lineStart);
    else
        m_counts.push_back(static_cast<int>(count));
    m_lineStart = m_lines.size();
    if (m_lines.size() >= kLinesLimit)
        flushLines();
}

inline void DrawPass::addToLine(const SurfacePoint& p)
{
    m_lines.push_back(p);
    if (m_lines.size() - m_lineStart == kLinesLimit) {
        endLine();
        m_lines.push_back(p);
    }
}

} // namespace VEK
