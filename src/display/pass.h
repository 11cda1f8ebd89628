// One run over the items of a display object.
#pragma once

#include <vek/display/draw.h>

#include <optional>
#include <vector>

namespace VEK
{

/// Draws the items of one object; the buffers live as long as it does.
class DrawPass
{
public:
    /// @param height, width above 0
    DrawPass(const CVekGDX& gdx, CSurface& surface, int height, int width, const PassRules& rules);

    void run();

private:
    using Region = CVekArrayTempl<CVekVertexArray>;

    /// The order in which an item's own matrix and the view direction act.
    enum class Order { ownFirst, viewFirst };

    static constexpr double kHalfPixel = -1.0; ///< chord tolerance: half a pixel, whatever that is in item units

    unsigned fixed(unsigned color) const;
    unsigned penColor(const CVekDisplayItem& item) const;
    unsigned fillColor(const CVekDisplayItem& item, unsigned pen) const;
    CVekMatrix3d fixedMatrix(const CVekDisplayItem& item);
    const CVekMatrix3d& matrix(const CVekDisplayItem& item, Order order);

    void drawPoint(const CVekDisplayItem& item, int number, unsigned color);
    void drawSquare(double x, double y, int size, int half);
    void drawMark(unsigned mode, double x, double y, int half, unsigned color);
    void drawRegion(const CVekDisplayItem& item, unsigned color);
    void drawText(const CVekDisplayItem& item, unsigned color);
    void fillScanLines(const Region& region, const CVekMatrix3d& m);
    void fillPolygon(const Region& region, const CVekMatrix3d& m, double tolerance);
    void drawPolyline(const CVekVertexArray& vl, const CVekMatrix3d& m, unsigned color);
    void drawDot(const SurfacePoint& at, unsigned color);
    bool isShort(const CVekVertex& vertex) const;
    bool hasDots(const CVekVertexArray& vl) const;

    template <class IsDot>
    void drawSegments(const CVekVertexArray& vl, const CVekMatrix3d& m, double tolerance, IsDot isDot);
    void collect(const CVekVertexArray& contour, const CVekMatrix3d& m, double tolerance);
    void addToChain(const SurfacePoint& p);
    void flushChain();

    const CVekGDX& m_gdx;
    CSurface& m_surface;
    const PassRules& m_rules;
    const int m_height;
    const int m_width;
    const unsigned m_back;
    const CVekMatrix3d m_total; ///< from behind the view direction to the device
    const bool m_viewTurns;     ///< whether the view direction does anything
    const CVekMatrix3d m_base;  ///< to the device for an item without a matrix of its own
    const double m_shortLength;

    std::optional<CVekMatrix3d> m_screenMtx; ///< made for the first screen-fixed item
    CVekMatrix3d m_matrix;                   ///< to the device for the present item
    std::vector<SurfacePoint> m_chain;
    Region m_region;
};

} // namespace VEK
