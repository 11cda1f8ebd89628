#include "bitmaps/dib.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>

namespace VEK::dib
{
namespace
{

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr std::uint32_t kBitFields = 3;
constexpr std::uint32_t kAlphaBitFields = 6;

/// One channel of a pixel of more than 8 bits.
class Channel
{
public:
    explicit Channel(std::uint32_t mask) : m_mask(mask)
    {
        if (mask == 0)
            return;
        const int width = 32 - std::countl_zero(mask) - std::countr_zero(mask);
        m_shift = std::countr_zero(mask) + std::max(width - 8, 0);
        const int used = std::min(width, 8);
        for (std::uint32_t value = 0; value < 1u << used; ++value) {
            std::uint32_t filled = value << (8 - used);
            for (int step = used; step < 8; step += step)
                filled |= filled >> step;
            m_full[value] = static_cast<unsigned char>(filled);
        }
    }

    std::uint32_t of(std::uint32_t pixel) const { return m_full[(pixel & m_mask) >> m_shift]; }

private:
    std::uint32_t m_mask;
    int m_shift = 0;
    std::array<unsigned char, 256> m_full{}; ///< a value of fewer bits stretched to 8
};

void readIndexed(const unsigned char* row, const Header& header, const std::vector<std::uint32_t>& palette,
                 std::uint32_t* to)
{
    const int perByte = 8 / header.bits;
    const unsigned indexMask = (1u << header.bits) - 1;
    for (int x = 0; x < header.width; ++x) {
        const int shift = 8 - header.bits * (x % perByte + 1);
        to[x] = palette[row[x / perByte] >> shift & indexMask];
    }
}

bool readRows(std::string_view data, const Header& header, const std::vector<std::uint32_t>& palette, CPixels& pixels)
{
    const std::size_t rowSize = header.rowSize();
    const std::size_t rowUsed = (std::size_t(header.width) * std::size_t(header.bits) + 7) / 8;
    const std::size_t rows = static_cast<std::size_t>(header.height);
    if (data.size() < rowUsed || (data.size() - rowUsed) / rowSize < rows - 1) // the last row needs no padding
        return false;
    const Channel red(header.masks[0]), green(header.masks[1]), blue(header.masks[2]);
    pixels.data.resize(rows * static_cast<std::size_t>(header.width));
    for (std::size_t y = 0; y < rows; ++y) {
        const auto* row = reinterpret_cast<const unsigned char*>(data.data()) + y * rowSize;
        std::uint32_t* to =
            pixels.data.data() + (header.topDown ? y : rows - 1 - y) * static_cast<std::size_t>(header.width);
        if (header.bits <= 8) {
            readIndexed(row, header, palette, to);
            continue;
        }
        const int bytes = header.bits / 8;
        for (int x = 0; x < header.width; ++x, row += bytes) {
            std::uint32_t pixel = row[0] | std::uint32_t{row[1]} << 8;
            if (bytes > 2)
                pixel |= std::uint32_t{row[2]} << 16;
            if (bytes > 3)
                pixel |= std::uint32_t{row[3]} << 24;
            to[x] = red.of(pixel) | green.of(pixel) << 8 | blue.of(pixel) << 16 | kOpaque;
        }
    }
    return true;
}

/// Runs of pixels, from the lowest row upwards; those outside the picture are dropped.
class RunReader
{
public:
    RunReader(std::string_view data, const Header& header, const std::vector<std::uint32_t>& palette, CPixels& pixels)
        : m_data(data), m_perByte(header.packing == Packing::rle4 ? 2 : 1), m_palette(palette), m_pixels(pixels)
    {
    }

    void read()
    {
        while (m_at + 2 <= m_data.size() && m_y < m_pixels.height) {
            const unsigned count = byte(m_at);
            const unsigned value = byte(m_at + 1);
            m_at += 2;
            if (count > 0) {
                for (unsigned i = 0; i < count; ++i)
                    put(value, i);
            } else if (value == 0) { // end of row
                m_x = 0;
                ++m_y;
            } else if (value == 1) { // end of picture
                return;
            } else if (value == 2) { // move
                m_x += static_cast<int>(byte(m_at));
                m_y += static_cast<int>(byte(m_at + 1));
                m_at += 2;
            } else { // that many literal pixels, padded to 16 bits
                for (unsigned i = 0; i < value; ++i)
                    put(byte(m_at + i / m_perByte), i);
                m_at += ((value + m_perByte - 1) / m_perByte + 1) / 2 * 2;
            }
            m_x = std::min(m_x, m_pixels.width);
        }
    }

private:
    unsigned byte(std::size_t at) const { return number(m_data, at, 1); }

    void put(unsigned value, unsigned turn)
    {
        if (m_x >= m_pixels.width || m_y >= m_pixels.height)
            return;
        if (m_perByte == 2)
            value = turn % 2 == 0 ? value >> 4 : value & 15;
        const int y = m_pixels.height - 1 - m_y;
        m_pixels.data[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_pixels.width) +
                      static_cast<std::size_t>(m_x)] = m_palette[value];
        ++m_x;
    }

    std::string_view m_data;
    unsigned m_perByte;
    const std::vector<std::uint32_t>& m_palette;
    CPixels& m_pixels;
    std::size_t m_at = 0;
    int m_x = 0;
    int m_y = 0;
};

} // namespace

std::uint32_t number(std::string_view bytes, std::size_t at, int size)
{
    std::uint32_t value = 0;
    for (int i = 0; i < size && at < bytes.size(); ++i, ++at)
        value |= std::uint32_t{static_cast<unsigned char>(bytes[at])} << 8 * i;
    return value;
}

bool readHeader(std::string_view bytes, Header& header)
{
    const std::uint32_t size = number(bytes, 0, 4);
    const bool core = size == 12; // of OS/2 1.x
    if ((!core && size < 40) || size > bytes.size())
        return false;
    const auto extent = [&](std::size_t place) {
        return core ? std::int64_t{number(bytes, place, 2)}
                    : std::int64_t{static_cast<std::int32_t>(number(bytes, place, 4))};
    };
    const std::int64_t width = extent(4);
    std::int64_t height = extent(core ? 6 : 8);
    header.topDown = height < 0;
    height = std::abs(height);
    if (!isPictureSize(width, height))
        return false;
    header.width = static_cast<int>(width);
    header.height = static_cast<int>(height);
    header.bits = static_cast<int>(number(bytes, core ? 10 : 14, 2));
    if (header.bits != 1 && header.bits != 4 && header.bits != 8 && header.bits != 16 && header.bits != 24 &&
        header.bits != 32)
        return false;

    const std::uint32_t compression = core ? 0 : number(bytes, 16, 4);
    const bool fields = compression == kBitFields || compression == kAlphaBitFields;
    if (compression == 1 && header.bits == 8 && !header.topDown)
        header.packing = Packing::rle8;
    else if (compression == 2 && header.bits == 4 && !header.topDown)
        header.packing = Packing::rle4;
    else if (compression != 0 && !(fields && size != 64 && (header.bits == 16 || header.bits == 32)))
        return false; // in the header of OS/2 2.x the same number names a fax format

    header.paletteAt = size;
    if (fields) {
        for (std::size_t i = 0; i < 3; ++i)
            header.masks[i] = number(bytes, 40 + 4 * i, 4);
        if (size == 40)
            header.paletteAt += compression == kBitFields ? 12 : 16;
    } else if (header.bits == 16) {
        header.masks[0] = 0x7C00;
        header.masks[1] = 0x3E0;
        header.masks[2] = 0x1F;
    }
    header.paletteEntry = core ? 3 : 4;
    const std::size_t used = core ? 0 : number(bytes, 32, 4);
    header.paletteLength = used;
    if (header.bits <= 8 && (used == 0 || used > std::size_t{1} << header.bits))
        header.paletteLength = std::size_t{1} << header.bits;
    return true;
}

std::vector<std::uint32_t> readPalette(std::string_view bytes, const Header& header)
{
    if (header.bits > 8)
        return {};
    std::vector<std::uint32_t> palette(std::size_t{1} << header.bits, kOpaque);
    for (std::size_t i = 0; i < header.paletteLength; ++i) {
        const std::size_t at = header.paletteAt + i * header.paletteEntry;
        if (at + 3 > bytes.size())
            break;
        palette[i] = number(bytes, at + 2, 1) | number(bytes, at + 1, 1) << 8 | number(bytes, at, 1) << 16 | kOpaque;
    }
    return palette;
}

bool readPixels(std::string_view data, const Header& header, const std::vector<std::uint32_t>& palette, CPixels& pixels)
{
    pixels.width = header.width;
    pixels.height = header.height;
    if (header.packing == Packing::none)
        return readRows(data, header, palette, pixels);
    const std::size_t area = static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
    if (area > (std::size_t{1} << 20) + data.size() * 256) // nearly all pixels would be skipped
        return false;
    pixels.data.assign(area, kOpaque);
    RunReader(data, header, palette, pixels).read();
    return true;
}

} // namespace VEK::dib
