// Bitmap files drawn at random beside the pictures that they must give.
#pragma once

#include "picture_bytes.h"

#include <vek/values/pixels.h>

#include <algorithm>
#include <random>

namespace picture_bytes
{

inline constexpr unsigned kRed = 0xFF0000FF, kGreen = 0xFF00FF00, kBlue = 0xFFFF0000, kWhite = 0xFFFFFFFF,
                          kBlack = 0xFF000000;

/// A file and the picture that it must give.
struct Drawn {
    std::string bytes;
    std::size_t needed = 0; ///< so many of the bytes
    VEK::CPixels expected;
    std::vector<std::uint32_t> opacity; ///< of its pixels, as stored; empty where none is

    std::uint32_t& at(int x, int y) { return expected.data[static_cast<std::size_t>(y * expected.width + x)]; }
};

class Random
{
public:
    /// From 0 to `most`.
    unsigned upTo(unsigned most) { return static_cast<unsigned>(m_numbers()) % (most + 1); }
    int size(unsigned most) { return static_cast<int>(1 + upTo(most - 1)); }
    bool chance(unsigned oneOf) { return upTo(oneOf - 1) == 0; }
    std::string noise(std::size_t size)
    {
        std::string bytes(size, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(upTo(255));
        return bytes;
    }
    VEK::CPixels picture(int width, int height, unsigned colors)
    {
        VEK::CPixels pixels{width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height))};
        for (std::uint32_t& pixel : pixels.data)
            pixel = kBlack | upTo(colors);
        return pixels;
    }

private:
    std::mt19937 m_numbers{20};
};

/// Numbers of any bits, the first in the highest ones of a byte.
class Bits
{
public:
    void add(unsigned value, int bits)
    {
        for (int bit = bits - 1; bit >= 0; --bit, ++m_count) {
            if (m_count % 8 == 0)
                bytes += '\0';
            bytes.back() = static_cast<char>(bytes.back() | (value >> bit & 1) << (7 - m_count % 8));
        }
    }

    std::string bytes;

private:
    int m_count = 0;
};

/// A channel of `width` bits at `shift`, to 8 bits: the upper ones, or its own over and over.
inline unsigned channel(std::uint32_t pixel, int shift, int width)
{
    unsigned result = 0;
    for (int i = 0; i < 8; ++i)
        result = result * 2 + (pixel >> (shift + width - 1 - i % width) & 1);
    return result;
}

/// @param isWhole whether a palette is never cut short
inline Drawn drawBmp(Random& random, bool isWhole = false)
{
    static constexpr int kBits[] = {1, 4, 8, 16, 24, 32};
    const int bits = kBits[random.upTo(5)], width = random.size(40), height = random.size(6);
    const int headerSize = random.chance(4) ? 12 : random.chance(2) ? 40 : 108;
    const bool isCore = headerSize == 12, isTopDown = !isCore && random.chance(2);
    const bool hasFields = !isCore && (bits == 16 || bits == 32) && random.chance(2);
    const unsigned colors = bits <= 8 ? 1u << bits : 0;
    const unsigned statedColors = isCore || bits > 8 || random.chance(2) ? 0 : 1 + random.upTo(colors - 1);

    int widths[] = {8, 8, 8}, shifts[] = {16, 8, 0}; // red, green, blue
    if (bits == 16)
        std::fill_n(widths, 3, 5), shifts[0] = 10, shifts[1] = 5;
    for (int i = 0, at = static_cast<int>(random.upTo(1)); hasFields && i < 3; ++i) {
        const int c = (i + width) % 3;
        widths[c] = random.size(bits == 16 ? 5 : 10);
        shifts[c] = at;
        at += widths[c];
    }
    std::string masks;
    for (int c = 0; c < 3; ++c)
        masks += le(((std::int64_t{1} << widths[c]) - 1) << shifts[c], 4);

    std::string header = isCore ? le(12, 4) + le(width, 2) + le(height, 2) + le(1, 2) + le(bits, 2)
                                : info(width, isTopDown ? -height : height, bits, hasFields ? 3 : 0,
                                       static_cast<int>(statedColors), headerSize);
    if (hasFields || headerSize == 108)
        header += hasFields ? masks : random.noise(12);
    header += random.noise(headerSize == 108 ? 56 : 0);
    std::vector<std::uint32_t> palette(colors, kBlack);
    const unsigned entries = statedColors > 0               ? statedColors
                             : !isWhole && random.chance(3) ? random.upTo(colors)
                                                            : colors;
    for (unsigned i = 0; i < entries; ++i) { // a full palette may end early, where the pixels begin
        const unsigned color = random.upTo(0xFFFFFF);
        palette[i] = kBlack | channel(color, 16, 8) | (color & 0xFF00) | (color & 0xFF) << 16;
        header += le(color, isCore ? 3 : 4);
    }
    Drawn drawn;
    drawn.expected = random.picture(width, height, 0);
    std::string rows;
    const unsigned most = random.chance(2) ? 0xFFFFFF : 0xFFFFFFFE; // often the opacity of all pixels is 0
    const bool hasOpacity = bits == 32 && !hasFields;
    drawn.opacity.resize(hasOpacity ? drawn.expected.data.size() : 0);
    for (int y = 0; y < height; ++y) {
        Bits row;
        for (int x = 0; x < width; ++x) {
            std::uint32_t& pixel = drawn.at(x, isTopDown ? y : height - 1 - y);
            const std::uint32_t value = random.upTo(bits <= 8 ? colors - 1 : random.chance(3) ? 0xFFFFFF : most);
            if (hasOpacity)
                drawn.opacity[static_cast<std::size_t>(&pixel - drawn.expected.data.data())] = value >> 24;
            if (bits <= 8)
                pixel = palette[value];
            for (int c = 0; c < 3 && bits > 8; ++c)
                pixel |= channel(value, shifts[c], widths[c]) << 8 * c;
            for (int i = 0; i < std::max(bits / 8, 1); ++i)
                row.add(value >> 8 * i, std::min(bits, 8));
        }
        rows += row.bytes;
        drawn.needed = rows.size();
        rows += random.noise((4 - rows.size() % 4) % 4);
    }
    drawn.bytes = bmp(header, rows);
    drawn.needed += drawn.bytes.size() - rows.size();
    return drawn;
}

} // namespace picture_bytes
