/// @file
/// What a draw pass draws on.
#pragma once

#include <vek/export.h>
#include <vek/values/pixels.h>

namespace VEK
{

/// A position on a surface, in device units: x to the right, y downwards from the top edge.
struct SurfacePoint {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const SurfacePoint& other) const = default;
};

/// An arc of an ellipse: it starts at center + u and runs towards center + v, two conjugate half diameters, through
/// `sweep` radians (-2 PI to 2 PI) of the parameter; so it ends at center + cos(sweep) u + sin(sweep) v.
struct SurfaceArc {
    SurfacePoint center;
    SurfacePoint u;
    SurfacePoint v;
    double sweep = 0.0;

    bool operator==(const SurfaceArc& other) const = default;
};

/// A surface. A draw pass turns every item into these few calls; each kind of output is one derived class.
///
/// Coordinates arrive as doubles in device units. A surface of whole pixels cuts them towards zero to integers, as
/// GDI callers do; one that scales keeps them. A line or edge without finite coordinates is left out. Colours are
/// Windows `COLORREF` values, 0x00BBGGRR. Pen, brush and background stay in force until they are set again; at start
/// there is a black pen of one pixel, no brush, a white background and no clip.
class VEK_API CSurface
{
public:
    virtual ~CSurface() = default;

    /// Confines everything that follows to the rectangle.
    virtual void clipTo(double left, double top, double right, double bottom) = 0;

    /// Takes the inside of a polygon, even-odd, out of the clip. Fewer than three points change nothing.
    virtual void clipOut(const SurfacePoint* points, int count) = 0;

    /// Undoes every `clipOut` since the last `clipTo`.
    virtual void clipRestore() = 0;

    /// Solid pen; a width of 0 or 1 is one pixel. Ends and corners of a wider pen are round.
    virtual void pen(int width, unsigned color) = 0;

    /// No pen: areas are drawn without an edge, and lines not at all.
    virtual void noPen() = 0;

    /// Solid brush.
    virtual void brush(unsigned color) = 0;

    /// No brush: areas are drawn hollow.
    virtual void noBrush() = 0;

    virtual void background(unsigned color) = 0;

    /// Sets the position without drawing, and draws a line from there, which becomes the position. As with GDI a
    /// surface of pixels leaves the last pixel of a line out.
    virtual void moveTo(double x, double y) = 0;
    virtual void lineTo(double x, double y) = 0;

    /// The lines through the points, one after the other: `moveTo` and then `lineTo`, which is what it does unless a
    /// surface has something faster.
    virtual void polyline(const SurfacePoint* points, int count);

    /// Many such lines of one pen: a `polyline` for each, in their order, unless a surface has something faster.
    /// @param points of all lines, one line behind the other
    /// @param counts how many points each line has; one of less than two draws nothing
    virtual void polylines(const SurfacePoint* points, const int* counts, int lines);

    /// Whether the surface draws true arcs. For others callers draw chords.
    virtual bool hasArcs() const { return false; }

    /// An arc from the position, which is the arc's start, to the arc's end, which becomes the position. Only for
    /// surfaces with `hasArcs`; others draw nothing.
    virtual void arcTo(const SurfaceArc& /*arc*/) {}

    /// A closed polygon: even-odd filled with the brush, edged with the pen. The position stays.
    virtual void polygon(const SurfacePoint* points, int count) = 0;

    /// A rectangle or an ellipse in the box of two opposite corners in any order, filled with the brush and edged
    /// with the pen. As with GDI the right and the bottom edge of pixels lie outside.
    virtual void rectangle(double x1, double y1, double x2, double y2) = 0;
    virtual void ellipse(double x1, double y1, double x2, double y2) = 0;

    /// One pixel.
    virtual void pixel(double x, double y, unsigned color) = 0;

    /// A rectangle of one colour without pen and brush. A negative size reaches to the left or upwards.
    virtual void solidRect(double x, double y, double width, double height, unsigned color) = 0;

    /// A picture with its top left corner at (x, y), each of its pixels one device unit square. Pixels without opacity
    /// leave what is there.
    virtual void picture(double x, double y, const CPixels& pixels) = 0;
};

} // namespace VEK
