// Puts bitmap and icon files together from the published layouts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace picture_bytes
{

/// Bytes from pairs of hexadecimal digits; blanks are for the eye.
inline std::string hex(const std::string& digits)
{
    std::string bytes;
    int half = -1;
    for (const char c : digits) {
        const std::size_t value = std::string("0123456789ABCDEF").find(c);
        if (value == std::string::npos)
            continue;
        if (half >= 0)
            bytes += static_cast<char>(half * 16 + static_cast<int>(value));
        half = half >= 0 ? -1 : static_cast<int>(value);
    }
    return bytes;
}

/// A little-endian number.
inline std::string le(std::int64_t value, int size)
{
    std::string bytes;
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(value >> (i < 8 ? 8 * i : 63) & 0xFF);
    return bytes;
}

/// BITMAPINFOHEADER; a longer one is cut where the colour masks would stand.
inline std::string info(int width, int height, int bits, int compression = 0, int colors = 0, int size = 40)
{
    return le(size, 4) + le(width, 4) + le(height, 4) + le(1, 2) + le(bits, 2) + le(compression, 4) + le(0, 12) +
           le(colors, 4) + le(0, 4);
}

/// A bitmap file of a header with palette and the pixels.
inline std::string bmp(const std::string& header, const std::string& pixels)
{
    const auto at = static_cast<std::int64_t>(14 + header.size());
    const auto size = static_cast<std::int64_t>(pixels.size());
    std::string whole = "BM" + le(at + size, 4) + le(0, 4) + le(at, 4) + header + pixels;
    return header[0] == 12 ? whole : whole.replace(34, 4, le(size, 4));
}

/// An icon file of images, each a bitmap without file header, or a PNG file.
inline std::string ico(const std::vector<std::string>& images)
{
    const auto count = static_cast<std::int64_t>(images.size());
    std::string bytes = le(0, 2) + le(1, 2) + le(count, 2);
    std::int64_t at = 6 + 16 * count;
    std::string data;
    for (const std::string& image : images) {
        const auto size = static_cast<std::int64_t>(image.size());
        const bool isPng = image.starts_with("\x89PNG");
        const std::string height = isPng ? image.substr(23, 1) : le(static_cast<unsigned char>(image[8]) / 2, 1);
        bytes += image.substr(isPng ? 19 : 4, 1) + height + le(0, 2) + le(1, 2);
        bytes += (isPng ? le(32, 2) : image.substr(14, 2)) + le(size, 4) + le(at, 4);
        at += size;
        data += image;
    }
    return bytes + data;
}

} // namespace picture_bytes
