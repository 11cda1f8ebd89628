/// @file
/// A drawing board for slides: lengths in millimetres, y upwards.
#pragma once

#include "slide_writer.h"

#include <vector>

namespace slides
{

struct Mm {
    double x = 0.0;
    double y = 0.0;
};

using Path = std::vector<Mm>;

/// The position of a part: mirrored at its y axis, then rotated about its origin, then moved.
struct Place {
    Mm at;
    double degrees = 0.0;
    bool mirrored = false;

    Mm operator()(Mm point) const;

    /// A position given relative to another one.
    Place operator*(const Place& inner) const;
};

/// Colours of the details, by the AutoCAD Color Index.
namespace ink
{
constexpr int outline = 7;
constexpr int axis = 1;
constexpr int aluminium = 254;
constexpr int bead = 41;
constexpr int steel = 153;
constexpr int screw = 9;
constexpr int gasket = 251;
constexpr int sealant = 250;
constexpr int glass = 141;
constexpr int polyamide = 33;
constexpr int foam = 51;
constexpr int wool = 51;
constexpr int woolLine = 42;
constexpr int concrete = 253;
constexpr int hatch = 8;
constexpr int coating = 5;
} // namespace ink

// Shapes

Path rect(double x, double y, double width, double height);

/// An arc from one angle to another, in degrees, both ends included.
Path arc(Mm center, double radius, double from, double to);
Path circle(Mm center, double radius);

/// The closed path with its corners rounded.
Path rounded(const Path& path, double radius);

/// The strip of a given thickness about an open path.
Path strip(const Path& axis, double thickness);

Path joined(Path a, const Path& b);

/// The reverse path mirrored at the y axis.
Path mirrored(Path path);

/// The path with x and y swapped.
Path swapped(Path path);

/// The closed shape whose right half this is, from the y axis below to the y axis above.
Path symmetric(const Path& rightHalf);

class Drawing
{
public:
    /// A sheet of that size with its lower left corner at the origin.
    Drawing(Format format, double width, double height, double unitsPerMm);

    /// Sets the position of the following parts.
    void place(const Place& place) { m_place = place; }
    const Place& place() const { return m_place; }

    void color(int index);
    void line(Mm from, Mm to) { open({from, to}); }
    void open(const Path& path);
    void outline(Path path);
    void fill(const Path& path, int colorIndex, const std::vector<Path>& holes = {});

    /// A section: filled and outlined, except for its holes.
    void body(const Path& path, int colorIndex, const std::vector<Path>& holes = {});

    /// The same, and its mirror image at the y axis.
    void bodies(const Path& path, int colorIndex, const std::vector<Path>& holes = {});

    /// A dash-dot line.
    void centreLine(Mm from, Mm to);

    /// Parallel lines inside a closed path, in the current colour.
    void hatch(const Path& path, double degrees, double spacing);

    /// The zigzag of insulation between two parallel lines, given by the layer's axis and thickness.
    void zigzag(Mm from, Mm to, double thickness, double step);

    /// The wavy end of a part that continues beyond the picture.
    void breakLine(Mm from, Mm to);

    Bytes finish() const { return m_writer.finish(); }

private:
    Point toSlide(Mm point) const;
    std::vector<Point> toSlide(const Path& path) const;

    SlideWriter m_writer;
    Place m_place;
    double m_scale;
    Point m_high;
    int m_color = -1;
};

} // namespace slides
