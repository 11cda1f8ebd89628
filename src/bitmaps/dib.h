// Device-independent bitmaps: the common part of bitmap files and icons.
#pragma once

#include <vek/values/pixels.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace VEK::dib
{

/// A little-endian number of up to four bytes; bytes past the end read as 0.
std::uint32_t number(std::string_view bytes, std::size_t at, int size);

enum class Packing { none, rle4, rle8 };

/// The data of a bitmap's header, after validation.
struct Header {
    int width = 0;
    int height = 0; ///< of an icon: of image and mask together
    bool topDown = false;
    int bits = 0; ///< per pixel
    Packing packing = Packing::none;
    std::uint32_t masks[3] = {0xFF0000, 0xFF00, 0xFF}; ///< red, green, blue; for more than 8 bits
    std::size_t paletteAt = 0;
    std::size_t paletteEntry = 4; ///< bytes
    std::size_t paletteLength = 0;

    std::size_t paletteEnd() const { return paletteAt + paletteLength * paletteEntry; }
    std::size_t rowSize() const { return (std::size_t(width) * std::size_t(bits) + 31) / 32 * 4; }
};

/// @param bytes beginning with the header
/// @return false for anything that cannot be a bitmap, including an unusable size
bool readHeader(std::string_view bytes, Header& header);

/// The colours of a bitmap of up to 8 bits, black where they are missing.
/// @param bytes beginning with the header, ending where the palette must end
std::vector<std::uint32_t> readPalette(std::string_view bytes, const Header& header);

/// @param data the pixels
/// @return false if there are too few
bool readPixels(std::string_view data, const Header& header, const std::vector<std::uint32_t>& palette,
                CPixels& pixels);

} // namespace VEK::dib
