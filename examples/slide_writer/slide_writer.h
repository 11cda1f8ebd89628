/// @file
/// Writes slides and slide libraries. It knows nothing of the reader.
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

    /// The records one by one. The last point is the start of a vector and of an offset vector, but the end of a
    /// common-endpoint vector, as the format has it; the steps count from it and are from -128 to 127.
    void vector(Point from, Point to);
    void offsetVector(Point fromStep, Point toStep);
    void endpointVector(Point step);
    void color(int index);

    /// @param corners at least three, not repeated at the end; one of them must stand above y = 0
    void fill(std::vector<Point> corners);

    /// A line by the shortest record that holds it, and a chain of lines: at each of its corners a line begins.
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

/// A library of slides with their names, in a code page of 8 bits and of at most 31 bytes.
Bytes makeLibrary(const std::vector<std::pair<std::string, Bytes>>& slides);

} // namespace slides
