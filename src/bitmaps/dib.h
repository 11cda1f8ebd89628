// Device-independent bitmaps: what bitmap files and icons have in common.
#pragma once

#include <vek/values/pixels.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace VEK::dib
{

/// A little-endian number of up to four bytes; what lies behind the end reads as 0.
std::uint32_t number(std::string_view bytes, std::size_t at, int size);

enum class Packing { none, rle4, rle8 };

/// What a bitmap's header tells, after checking.
struct Header {
    int width = 0;
    int height = 0; ///< of an icon: of image and mask together
    bool topDown = false;
    int bits = 0; ///< a pixel
    Packing packing = Packing::none;
    std::uint32_t masks[3] = {0xFF0000, 0xFF00, 0xFF}; ///< red, green, blue; for more than 8 bits
    std::size_t paletteAt = 0;
    std::size_t paletteEntry = 4; ///< bytes
    std::size_t paletteLength = 0;

    std::size_t paletteEnd() const { return paletteAt + paletteLength * paletteEntry; }
    std::size_t rowSize() const { return (std::size_t(width) * std::size_t(bits) + 31) / 32 * 4; }
};

/// @param bytes beginning with the header
/// @return false for what no bitmap can be, among it a size that is none for a picture
bool readHeader(std::string_view bytes, Header& header);

/// The colours of a bitmap of up to 8 bits, black where they are missing.
/// @param bytes beginning with the header, ending where the palette must end
std::vector<std::uint32_t> readPalette(std::string_view bytes, const Header& header);

/// @param data the pixels
/// @return false when they are too few
bool readPixels(std::string_view data, const Header& header, const std::vector<std::uint32_t>& palette,
                CPixels& pixels);

} // namespace VEK::dib
