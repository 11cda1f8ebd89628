/// @file
/// A picture in memory.
#pragma once

#include <cstdint>
#include <vector>

namespace VEK
{

/// The most pixels that a picture from a file may have; a larger one is unreadable, and none is scaled beyond it.
inline constexpr int kPictureLimit = 1 << 26;

/// Whether a picture from a file may have this size: both sides positive, the area within `kPictureLimit`.
constexpr bool isPictureSize(std::int64_t width, std::int64_t height)
{
    return width > 0 && height > 0 && width <= kPictureLimit && height <= kPictureLimit / width;
}

/// A pixel picture. Rows run from the top, pixels of a row from the left; a pixel is 0xAABBGGRR, a Windows `COLORREF`
/// with the opacity in the top byte: 0xFF is opaque, 0 transparent, no other values are used. On the supported
/// (little-endian) machines the bytes in memory are red, green, blue, opacity.
struct CPixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> data; ///< width times height; empty: no picture

    bool empty() const { return data.empty(); }
    std::uint32_t at(int x, int y) const { return data[static_cast<std::size_t>(y) * width + x]; }

    bool operator==(const CPixels& other) const = default;
};

} // namespace VEK
