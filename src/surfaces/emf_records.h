// Records of an enhanced metafile, as published in [MS-EMF].
#pragma once

#include "surfaces/opaque_region.h"

#include <vek/surfaces/file.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace VEK::emf
{

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;

    bool operator==(const Point& other) const = default;
};

/// A rectangle whose right and bottom edges are inclusive; a default one is empty.
struct Box {
    std::int32_t left = INT_MAX;
    std::int32_t top = INT_MAX;
    std::int32_t right = INT_MIN;
    std::int32_t bottom = INT_MIN;

    bool isEmpty() const { return left > right || top > bottom; }
    bool fits16() const { return left >= INT16_MIN && top >= INT16_MIN && right <= INT16_MAX && bottom <= INT16_MAX; }
    void add(const Point& p)
    {
        left = std::min(left, p.x);
        top = std::min(top, p.y);
        right = std::max(right, p.x);
        bottom = std::max(bottom, p.y);
    }
    void add(const Box& other)
    {
        left = std::min(left, other.left);
        top = std::min(top, other.top);
        right = std::max(right, other.right);
        bottom = std::max(bottom, other.bottom);
    }
};

enum Type : std::uint32_t {
    kHeader = 1,
    kPolygon = 3,
    kPolyline = 4,
    kPolyPolyline = 7,
    kPolyPolygon = 8,
    kSetWindowExtEx = 9,
    kSetViewportExtEx = 11,
    kEof = 14,
    kSetPixelV = 15,
    kSetMapMode = 17,
    kSetPolyFillMode = 19,
    kSetStretchBltMode = 21,
    kSetBkColor = 25,
    kMoveToEx = 27,
    kIntersectClipRect = 30,
    kSaveDc = 33,
    kRestoreDc = 34,
    kSelectObject = 37,
    kCreatePen = 38,
    kCreateBrushIndirect = 39,
    kDeleteObject = 40,
    kEllipse = 42,
    kRectangle = 43,
    kLineTo = 54,
    kBeginPath = 59,
    kEndPath = 60,
    kSelectClipPath = 67,
    kExtSelectClipRgn = 75,
    kBitBlt = 76,
    kStretchBlt = 77,
    kPolygon16 = 86,
    kPolyline16 = 87,
    kPolyPolyline16 = 90,
    kPolyPolygon16 = 91
};

inline constexpr std::uint32_t kNullBrush = 0x80000005;
inline constexpr std::uint32_t kNullPen = 0x80000008;
inline constexpr std::uint32_t kBlackPen = 0x80000007;
inline constexpr std::uint32_t kWhiteBrush = 0x80000000;

/// Packs records into a buffer and passes it on in blocks.
class Records
{
public:
    explicit Records(CByteSink& sink) : m_sink(sink), m_buffer(std::size_t{1} << 16)
    {
        std::memset(room(kHeaderSize), 0, kHeaderSize);
    }

    /// A record of 32-bit values.
    template <class... Value>
    void add(Type type, Value... values)
    {
        constexpr std::uint32_t size = 8 + 4 * sizeof...(values);
        [[maybe_unused]] unsigned char* to = begin(type, size);
        ((to = put32(to, static_cast<std::uint32_t>(values))), ...);
    }

    /// A record of points with their bounds, in 16 bits where they fit.
    void addPoints(Type wide, Type narrow, std::span<const Point> points);

    /// Several polylines, or polygons that make one figure.
    void addParts(Type wide, Type narrow, std::span<const Point> points, std::span<const int> counts);

    /// From here on coordinates are in parts of a pixel.
    /// @param fineness parts per pixel
    void addGrid(int fineness);

    /// Restricts the clip to the boxes of a region, moved by an offset; the region must not be empty.
    void addRegion(std::span<const PixelBox> region, const Point& offset);

    /// Copies a part of a picture, ignoring its opacity.
    /// @param pixelSize width and height of a pixel
    void addPicture(const CPixels& pixels, const PixelBox& part, const Point& at, int pixelSize);

    /// Writes the rest, then the header over its place.
    /// @param bounds of everything drawn
    /// @param fineness of the bounds: parts per pixel
    /// @param handles largest index of an object
    bool finish(const Box& bounds, int fineness, std::uint32_t handles);

private:
    static constexpr std::uint32_t kHeaderSize = 108;

    static unsigned char* put16(unsigned char* to, std::uint32_t value)
    {
        to[0] = static_cast<unsigned char>(value);
        to[1] = static_cast<unsigned char>(value >> 8);
        return to + 2;
    }
    static unsigned char* put32(unsigned char* to, std::uint32_t value)
    {
        to[0] = static_cast<unsigned char>(value);
        to[1] = static_cast<unsigned char>(value >> 8);
        to[2] = static_cast<unsigned char>(value >> 16);
        to[3] = static_cast<unsigned char>(value >> 24);
        return to + 4;
    }
    static unsigned char* putBox(unsigned char* to, const Box& box);
    static unsigned char* putPoints(unsigned char* to, std::span<const Point> points, bool narrow);

    unsigned char* begin(Type type, std::uint64_t size)
    {
        ++m_count;
        return put32(put32(room(size), type), static_cast<std::uint32_t>(size));
    }

    /// A record whose beginning is written at once and its rest through `room`, so that it need not fit into the
    /// buffer.
    unsigned char* beginLong(Type type, std::uint32_t beginning, std::uint64_t rest)
    {
        ++m_count;
        m_good = m_good && rest <= UINT32_MAX - beginning;
        return put32(put32(room(beginning), type), static_cast<std::uint32_t>(beginning + rest));
    }

    /// Space for this many bytes, which are regarded as written.
    unsigned char* room(std::uint64_t size)
    {
        if (size > m_buffer.size() - m_used)
            flush(static_cast<std::size_t>(size));
        unsigned char* place = m_buffer.data() + m_used;
        m_used += static_cast<std::size_t>(size);
        m_bytes += size;
        return place;
    }

    void flush(std::size_t needed);

    CByteSink& m_sink;
    std::vector<unsigned char> m_buffer;
    std::size_t m_used = 0;
    std::uint64_t m_bytes = 0;
    std::uint64_t m_count = 1; ///< includes the header
    bool m_good = true;
};

} // namespace VEK::emf
