/// @file
/// A surface that records the calls, to compare and read them.
#pragma once

#include <vek/surfaces/surface.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace VEK
{

/// The calls of a surface.
enum class SurfaceOp {
    clipTo,
    clipOut,
    clipRestore,
    pen,
    noPen,
    brush,
    noBrush,
    background,
    moveTo,
    lineTo,
    polygon,
    rectangle,
    ellipse,
    pixel,
    solidRect,
    picture
};

/// One call. Positions are in the order of the call's arguments; the second of `solidRect` and of `picture` is its
/// size.
struct VEK_API SurfaceCall {
    SurfaceOp op = SurfaceOp::clipRestore;
    std::vector<SurfacePoint> points;
    int width = 0;      ///< of a pen
    unsigned color = 0; ///< `COLORREF`

    bool operator==(const SurfaceCall& other) const = default;

    /// The call as a line of text, such as "lineTo 10,20" or "pen 2 #ff8000"; colours are written as RGB.
    std::string text() const;
};

/// Records every call; a `polyline` arrives as its moves and lines. When memory runs out, the call is missing, which
/// `memoryShortages` reports, and texts are empty.
class VEK_API CRecorder : public CSurface
{
public:
    /// @param wholePixels whether coordinates are truncated towards zero, as by a surface of pixels
    explicit CRecorder(bool wholePixels = false) : m_whole(wholePixels) {}

    const std::vector<SurfaceCall>& calls() const { return m_calls; }
    void clear() { m_calls.clear(); }

    /// All calls, one per line.
    std::string text() const;

    void clipTo(double left, double top, double right, double bottom) override;
    void clipOut(const SurfacePoint* points, int count) override;
    void clipRestore() override;
    void pen(int width, unsigned color) override;
    void noPen() override;
    void brush(unsigned color) override;
    void noBrush() override;
    void background(unsigned color) override;
    void moveTo(double x, double y) override;
    void lineTo(double x, double y) override;
    void polygon(const SurfacePoint* points, int count) override;
    void rectangle(double x1, double y1, double x2, double y2) override;
    void ellipse(double x1, double y1, double x2, double y2) override;
    void pixel(double x, double y, unsigned color) override;
    void solidRect(double x, double y, double width, double height, unsigned color) override;
    void picture(double x, double y, const CPixels& pixels) override;

private:
    void add(SurfaceOp op, std::initializer_list<SurfacePoint> points = {}, int width = 0, unsigned color = 0);
    void add(SurfaceOp op, const SurfacePoint* points, int count, int width = 0, unsigned color = 0);

    bool m_whole;
    std::vector<SurfaceCall> m_calls;
};

} // namespace VEK
