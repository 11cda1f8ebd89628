#include "surfaces/emf_records.h"

namespace VEK::emf
{
namespace
{

/// The reference device: 96 pixels per inch, with a size that is whole in pixels, millimetres and micrometres.
constexpr std::int32_t kDevicePixels[2] = {1920, 1440};
constexpr std::int32_t kDeviceMillimetres[2] = {508, 381};

Box boundsOf(std::span<const Point> points)
{
    Box box;
    for (const Point& p : points)
        box.add(p);
    return box;
}

/// Pixels of the reference device in hundredths of a millimetre.
std::int32_t hundredths(std::int64_t pixels)
{
    const std::int64_t value = pixels * kDeviceMillimetres[0] * 100 / kDevicePixels[0];
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT_MIN, INT_MAX));
}

} // namespace

unsigned char* Records::putBox(unsigned char* to, const Box& box)
{
    for (const std::int32_t value : {box.left, box.top, box.right, box.bottom})
        to = put32(to, static_cast<std::uint32_t>(value));
    return to;
}

unsigned char* Records::putPoints(unsigned char* to, std::span<const Point> points, bool narrow)
{
    for (const Point& p : points) {
        const std::uint32_t x = static_cast<std::uint32_t>(p.x);
        const std::uint32_t y = static_cast<std::uint32_t>(p.y);
        to = narrow ? put16(put16(to, x), y) : put32(put32(to, x), y);
    }
    return to;
}

void Records::addPoints(Type wide, Type narrow, std::span<const Point> points)
{
    const Box box = boundsOf(points);
    const bool small = box.fits16();
    unsigned char* to = begin(small ? narrow : wide, 28 + points.size() * (small ? 4 : 8));
    to = put32(putBox(to, box), static_cast<std::uint32_t>(points.size()));
    putPoints(to, points, small);
}

void Records::addParts(Type wide, Type narrow, std::span<const Point> points, std::span<const int> counts)
{
    const Box box = boundsOf(points);
    const bool small = box.fits16();
    unsigned char* to = begin(small ? narrow : wide, 32 + counts.size() * 4 + points.size() * (small ? 4 : 8));
    to = put32(putBox(to, box), static_cast<std::uint32_t>(counts.size()));
    to = put32(to, static_cast<std::uint32_t>(points.size()));
    for (const int count : counts)
        to = put32(to, static_cast<std::uint32_t>(count));
    putPoints(to, points, small);
}

/// Maps a window of the reference device's size in parts of a pixel to a viewport of its size in pixels.
void Records::addGrid(int fineness)
{
    add(kSetMapMode, 8); // MM_ANISOTROPIC
    add(kSetWindowExtEx, kDevicePixels[0] * fineness, kDevicePixels[1] * fineness);
    add(kSetViewportExtEx, kDevicePixels[0], kDevicePixels[1]);
}

void Records::flush(std::size_t needed)
{
    m_good = m_good && m_sink.write({reinterpret_cast<const char*>(m_buffer.data()), m_used});
    m_used = 0;
    if (needed > m_buffer.size())
        m_buffer.resize(needed);
}

bool Records::finish(const Box& bounds, int fineness, std::uint32_t handles)
{
    add(kEof, 0, 16, 20); // no palette, its offset, and the size of this record again
    flush(0);
    if (!m_good || m_bytes > UINT32_MAX || m_count > UINT32_MAX)
        return false;
    const auto pixel = [fineness](std::int32_t at) { return (at - (at < 0 ? fineness - 1 : 0)) / fineness; };
    const Box box = bounds.isEmpty()
                        ? Box{0, 0, -1, -1}
                        : Box{pixel(bounds.left), pixel(bounds.top), pixel(bounds.right), pixel(bounds.bottom)};
    unsigned char header[kHeaderSize] = {};
    unsigned char* to = put32(put32(header, kHeader), kHeaderSize);
    to = putBox(to, box);
    to = putBox(to, {hundredths(box.left), hundredths(box.top), hundredths(std::int64_t{box.right} + 1),
                     hundredths(std::int64_t{box.bottom} + 1)});
    to = put32(to, 0x464D4520); // " EMF"
    to = put32(to, 0x00010000);
    to = put32(to, static_cast<std::uint32_t>(m_bytes));
    to = put32(to, static_cast<std::uint32_t>(m_count));
    to = put16(to, handles + 1); // index 0 is reserved for the metafile
    to += 14;                    // reserved, no description, no palette
    for (const std::int32_t value : {kDevicePixels[0], kDevicePixels[1], kDeviceMillimetres[0], kDeviceMillimetres[1]})
        to = put32(to, static_cast<std::uint32_t>(value));
    to += 12; // no pixel format, no OpenGL
    for (const std::int32_t value : kDeviceMillimetres)
        to = put32(to, static_cast<std::uint32_t>(value) * 1000);
    return m_sink.rewrite(0, {reinterpret_cast<const char*>(header), kHeaderSize}) && m_sink.commit();
}

} // namespace VEK::emf
