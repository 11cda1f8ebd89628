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

/// An elliptical arc: it starts at center + u and runs towards center + v, two conjugate semi-diameters, through
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
/// Coordinates are doubles in device units. A surface of whole pixels truncates them towards zero to integers, as GDI
/// callers do; a scalable one keeps them. A line or edge without finite coordinates is left out. Colours are Windows
/// `COLORREF` values, 0x00BBGGRR. Pen, brush and background apply until they are set again; at first there is a black
/// pen of one pixel, no brush, a white background and no clip.
class VEK_API CSurface
{
public:
    virtual ~CSurface() = default;

    /// Restricts everything that follows to the rectangle.
    virtual void clipTo(double left, double top, double right, double bottom) = 0;

    /// Takes the inside of a polygon, by the even-odd rule, out of the clip. Fewer than three points change nothing.
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

    /// `moveTo` sets the position without drawing; `lineTo` draws a line from there to the point, which becomes the
    /// position. As with GDI, a surface of pixels leaves out the last pixel of a line.
    virtual void moveTo(double x, double y) = 0;
    virtual void lineTo(double x, double y) = 0;

    /// The lines through the points, one after the other: `moveTo` and then `lineTo`, unless a surface has a faster
    /// way.
    virtual void polyline(const SurfacePoint* points, int count);

    /// Many such lines of one pen: a `polyline` for each, in their order, unless a surface has a faster way.
    /// @param points of all lines, one line after the other
    /// @param counts number of points of each line; a line of less than two draws nothing
    virtual void polylines(const SurfacePoint* points, const int* counts, int lines);

    /// Whether the surface draws true arcs. For others the caller draws chords.
    virtual bool hasArcs() const { return false; }

    /// An arc from the position, which is the arc's start, to the arc's end, which becomes the position. Only for
    /// surfaces with `hasArcs`; others draw nothing.
    virtual void arcTo(const SurfaceArc& /*arc*/) {}

    /// A closed polygon: filled with the brush by the even-odd rule, edged with the pen. The position is unchanged.
    virtual void polygon(const SurfacePoint* points, int count) = 0;

    /// A rectangle or an ellipse in the box of two opposite corners in any order, filled with the brush and edged with
    /// the pen. As with GDI, the right and bottom pixel edges lie outside.
    virtual void rectangle(double x1, double y1, double x2, double y2) = 0;
    virtual void ellipse(double x1, double y1, double x2, double y2) = 0;

    /// One pixel.
    virtual void pixel(double x, double y, unsigned color) = 0;

    /// A rectangle of one colour without pen and brush. A negative size extends it to the left or upwards.
    virtual void solidRect(double x, double y, double width, double height, unsigned color) = 0;

    /// A picture with its top left corner at (x, y), each of its pixels one device unit square. Pixels of zero
    /// opacity leave the surface unchanged.
    virtual void picture(double x, double y, const CPixels& pixels) = 0;
};

} // namespace VEK
