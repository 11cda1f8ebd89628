/// @file
/// Writes slides and slide libraries, independently of the reader.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace slides
{

using Bytes = std::vector<unsigned char>;

enum class Format { level1, level2Little, level2Big };

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

/// Builds one slide, record after record. Coordinates are from 0 to 32767.
class SlideWriter
{
public:
    /// @param hiX, hiY the corner opposite to the origin
    SlideWriter(Format format, int hiX, int hiY);

    /// The single records. The last point is the start of a vector and of an offset vector, but the end of a
    /// common-endpoint vector, as the format defines it; the steps are relative to it and from -128 to 127.
    void vector(Point from, Point to);
    void offsetVector(Point fromStep, Point toStep);
    void endpointVector(Point step);
    void color(int index);

    /// @param corners at least three, not repeated at the end; at least one above y = 0
    void fill(std::vector<Point> corners);

    /// A line by the shortest record that can represent it, and a chain of lines: a line begins at each of its corners.
    void line(Point from, Point to);
    void chain(const std::vector<Point>& points);

    Point lastPoint() const { return m_last; }

    /// The slide with its end mark.
    Bytes finish() const;

private:
    void byte(int value) { m_bytes.push_back(static_cast<unsigned char>(value)); }
    void word(int value);

    Format m_format;
    Bytes m_bytes;
    Point m_last;
};

/// A library of slides with their names, in an 8-bit code page and at most 31 bytes long.
Bytes makeLibrary(const std::vector<std::pair<std::string, Bytes>>& slides);

} // namespace slides
