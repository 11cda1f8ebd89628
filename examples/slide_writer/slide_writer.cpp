#include "slide_writer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace slides
{
namespace
{

constexpr char kSlideText[] = "AutoCAD Slide\r\n\x1a";                       // 17 bytes with its terminator
constexpr char kLibraryText[32] = "AutoCAD Slide Library 1.0\r\n\x1a\0\0\0"; // 32 bytes
constexpr std::size_t kEntrySize = 36;
constexpr std::size_t kNameSize = 32;

void little(Bytes& bytes, std::uint32_t value, int count)
{
    for (int i = 0; i < count; ++i)
        bytes.push_back(static_cast<unsigned char>(value >> 8 * i));
}

bool isStep(Point step)
{
    return std::abs(step.x) <= 127 && std::abs(step.y) <= 127;
}

Point operator-(Point a, Point b)
{
    return {a.x - b.x, a.y - b.y};
}

} // namespace

SlideWriter::SlideWriter(Format format, int hiX, int hiY) : m_format(format)
{
    m_bytes.assign(kSlideText, kSlideText + sizeof kSlideText);
    byte('V');
    const bool oldLevel = format == Format::level1;
    byte(oldLevel ? 1 : 2);
    const double aspect = hiY > 0 ? static_cast<double>(hiX) / hiY : 1.0;
    if (oldLevel) {
        // The highest point of a level 1 slide is written high byte first, its records low byte first.
        byte(hiX >> 8);
        byte(hiX);
        byte(hiY >> 8);
        byte(hiY);
        std::uint64_t bits = 0;
        std::memcpy(&bits, &aspect, sizeof bits);
        little(m_bytes, static_cast<std::uint32_t>(bits), 4);
        little(m_bytes, static_cast<std::uint32_t>(bits >> 32), 4);
        little(m_bytes, 0, 3);
        return;
    }
    word(hiX);
    word(hiY);
    const auto scaled = static_cast<std::uint32_t>(std::lround(aspect * 1e7));
    const bool big = format == Format::level2Big;
    for (int i = 0; i < 4; ++i)
        byte(static_cast<int>(scaled >> 8 * (big ? 3 - i : i)));
    word(0);
    word(0x1234);
}

void SlideWriter::word(int value)
{
    const bool big = m_format == Format::level2Big;
    byte(big ? value >> 8 : value);
    byte(big ? value : value >> 8);
}

void SlideWriter::vector(Point from, Point to)
{
    word(from.x);
    word(from.y);
    word(to.x);
    word(to.y);
    m_last = from;
}

void SlideWriter::offsetVector(Point fromStep, Point toStep)
{
    word(0xFB00 | (fromStep.x & 0xFF));
    byte(fromStep.y);
    byte(toStep.x);
    byte(toStep.y);
    m_last = {m_last.x + fromStep.x, m_last.y + fromStep.y};
}

void SlideWriter::endpointVector(Point step)
{
    word(0xFE00 | (step.x & 0xFF));
    byte(step.y);
    m_last = {m_last.x + step.x, m_last.y + step.y};
}

void SlideWriter::color(int index)
{
    word(0xFF00 | (index & 0xFF));
}

void SlideWriter::fill(std::vector<Point> corners)
{
    // The record that ends the fill repeats the first corner, marked by a negative y, so that corner must not have y =
    // 0.
    const auto above = std::find_if(corners.begin(), corners.end(), [](Point point) { return point.y > 0; });
    std::rotate(corners.begin(), above, corners.end());
    const auto vertex = [this](int x, int y) {
        word(0xFD00);
        word(x);
        word(y);
    };
    vertex(static_cast<int>(corners.size()) + 1, -1);
    for (const Point& point : corners)
        vertex(point.x, point.y);
    vertex(corners.front().x, -corners.front().y);
}

void SlideWriter::line(Point from, Point to)
{
    if (from == m_last && isStep(to - from))
        endpointVector(to - from);
    else if (isStep(from - m_last) && isStep(to - m_last))
        offsetVector(from - m_last, to - m_last);
    else
        vector(from, to);
}

void SlideWriter::chain(const std::vector<Point>& points)
{
    if (points.size() < 2)
        return;
    // A device leaves out the last pixel of a line, so a line must begin at every corner: all lines run the same way.
    // The first line of an open chain is written backwards, since the last point after a vector is its start, from
    // which short lines can continue: so only the pixel at an end is left out.
    std::size_t next = 1;
    if (points.front() != points.back())
        line(points[next++], points.front());
    for (; next < points.size(); ++next)
        line(points[next - 1], points[next]);
}

Bytes SlideWriter::finish() const
{
    SlideWriter closed(*this);
    closed.word(0xFC00);
    return closed.m_bytes;
}

Bytes makeLibrary(const std::vector<std::pair<std::string, Bytes>>& slides)
{
    Bytes library(kLibraryText, kLibraryText + sizeof kLibraryText);
    std::size_t offset = library.size() + (slides.size() + 1) * kEntrySize;
    for (const auto& [name, slide] : slides) {
        Bytes entry(name.begin(), name.end());
        entry.resize(kNameSize);
        library.insert(library.end(), entry.begin(), entry.end());
        little(library, static_cast<std::uint32_t>(offset), 4);
        offset += slide.size();
    }
    library.resize(library.size() + kEntrySize);
    for (const auto& [name, slide] : slides)
        library.insert(library.end(), slide.begin(), slide.end());
    return library;
}

} // namespace slides
