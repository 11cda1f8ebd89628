/// @file
/// A picture in memory.
#pragma once

#include <cstdint>
#include <vector>

namespace VEK
{

/// The most pixels that a picture from a file may have; a larger one counts as unreadable, and none is scaled beyond
/// it.
inline constexpr int kPictureLimit = 1 << 26;

/// Whether a picture from a file may have this size: both sides positive, the area within `kPictureLimit`.
constexpr bool isPictureSize(std::int64_t width, std::int64_t height)
{
    return width > 0 && height > 0 && width <= kPictureLimit && height <= kPictureLimit / width;
}

/// A picture of whole pixels. Rows run from the top, pixels of a row from the left; a pixel is 0xAABBGGRR, a Windows
/// `COLORREF` with the opacity above it: 0xFF shows, 0 is left out, nothing between is used. On the machines that
/// this builds for the bytes in memory are red, green, blue, opacity.
struct CPixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> data; ///< width times height; empty: no picture

    bool empty() const { return data.empty(); }
    std::uint32_t at(int x, int y) const { return data[static_cast<std::size_t>(y) * width + x]; }

    bool operator==(const CPixels& other) const = default;
};

} // namespace VEK
