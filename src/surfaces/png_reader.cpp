#include "surfaces/dib.h"
#include "surfaces/inflate.h"
#include "surfaces/png.h"

#include <array>
#include <cstdlib>

namespace VEK::png
{
namespace
{

constexpr std::string_view kSignature = "\x89PNG\r\n\x1a\n";
constexpr std::size_t kBehindHeader = 33; ///< signature and first chunk

enum Type { kGray = 0, kColor = 2, kIndexed = 3, kGrayAlpha = 4, kColorAlpha = 6 };

std::uint32_t bigNumber(std::string_view bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | dib::number(bytes, at + i, 1);
    return value;
}

struct Chunks {
    std::string packed;
    std::array<std::uint32_t, 256> palette{};
};

Chunks readChunks(std::string_view bytes)
{
    Chunks chunks;
    chunks.palette.fill(0xFF000000);
    for (std::size_t at = kBehindHeader; at + 8 <= bytes.size();) {
        const std::size_t length = bigNumber(bytes, at);
        const std::string_view name = bytes.substr(at + 4, 4);
        const std::string_view data = bytes.substr(at + 8, length);
        if (name == "IDAT")
            chunks.packed += data;
        for (std::size_t i = 0; name == "PLTE" && i < 256 && i * 3 + 3 <= data.size(); ++i)
            chunks.palette[i] = (chunks.palette[i] & 0xFF000000) | dib::number(data, i * 3, 3);
        for (std::size_t i = 0; name == "tRNS" && i < 256 && i < data.size(); ++i)
            chunks.palette[i] = (chunks.palette[i] & 0xFFFFFF) | dib::number(data, i, 1) << 24;
        if (name == "IEND" || length > bytes.size() - at - 8)
            break;
        at += length + 12;
    }
    return chunks;
}

int paeth(int left, int above, int corner)
{
    const int guess = left + above - corner;
    const int a = std::abs(guess - left), b = std::abs(guess - above), c = std::abs(guess - corner);
    return a <= b && a <= c ? left : b <= c ? above : corner;
}

/// Undoes the filter of a row; `above` is the row before it.
bool unfilter(int filter, unsigned char* row, const unsigned char* above, std::size_t size, std::size_t pixelSize)
{
    if (filter > 4)
        return false;
    for (std::size_t i = 0; i < size; ++i) {
        const int left = i < pixelSize ? 0 : row[i - pixelSize];
        const int corner = i < pixelSize ? 0 : above[i - pixelSize];
        const int added[] = {0, left, above[i], (left + above[i]) / 2, paeth(left, above[i], corner)};
        row[i] = static_cast<unsigned char>(row[i] + added[filter]);
    }
    return true;
}

/// A value of a row, as it stands up to 8 bits and its upper byte of 16.
std::uint32_t sample(const unsigned char* row, std::size_t index, int depth)
{
    if (depth >= 8)
        return row[index * static_cast<std::size_t>(depth / 8)];
    const std::size_t perByte = static_cast<std::size_t>(8 / depth);
    const std::size_t shift = 8 - static_cast<std::size_t>(depth) * (index % perByte + 1);
    return row[index / perByte] >> shift & ((1u << depth) - 1);
}

std::uint32_t pixel(const unsigned char* row, std::size_t x, const Header& header, const Chunks& chunks)
{
    const std::size_t at = x * static_cast<std::size_t>(header.channels);
    const auto value = [&](std::size_t channel) { return sample(row, at + channel, header.depth); };
    if (header.type == kIndexed)
        return chunks.palette[value(0)];
    if (header.type == kColor || header.type == kColorAlpha)
        return value(0) | value(1) << 8 | value(2) << 16 | (header.channels == 4 ? value(3) : 255u) << 24;
    const std::uint32_t gray = header.depth < 8 ? value(0) * (255u / ((1u << header.depth) - 1)) : value(0);
    return gray * 0x10101u | (header.channels == 2 ? value(1) : 255u) << 24;
}

} // namespace

bool readHeader(std::string_view bytes, Header& header)
{
    if (bytes.size() < kBehindHeader || !bytes.starts_with(kSignature) || bytes.substr(12, 4) != "IHDR")
        return false;
    const std::int64_t width = bigNumber(bytes, 16), height = bigNumber(bytes, 20);
    header.depth = static_cast<int>(dib::number(bytes, 24, 1));
    header.type = static_cast<int>(dib::number(bytes, 25, 1));
    static constexpr int kChannels[] = {1, 0, 3, 1, 2, 0, 4};
    header.channels = header.type <= 6 ? kChannels[header.type] : 0;
    const bool small = header.depth == 1 || header.depth == 2 || header.depth == 4;
    const bool fits = header.depth == 8 || (header.depth == 16 && header.type != kIndexed) ||
                      (small && (header.type == kGray || header.type == kIndexed));
    if (header.channels == 0 || !fits || bytes[28] != 0 || !dib::isFair(width, height))
        return false;
    header.width = static_cast<int>(width);
    header.height = static_cast<int>(height);
    return true;
}

bool readPixels(std::string_view bytes, const Header& header, CPixels& pixels)
{
    const Chunks chunks = readChunks(bytes);
    const std::size_t width = static_cast<std::size_t>(header.width), height = static_cast<std::size_t>(header.height);
    const std::size_t pixelBits = static_cast<std::size_t>(header.depth) * static_cast<std::size_t>(header.channels);
    const std::size_t rowSize = (width * pixelBits + 7) / 8;
    const std::size_t size = (rowSize + 1) * height;
    std::string rows;
    if (size / 1032 > chunks.packed.size() || !inflate(chunks.packed, size, rows)) // deflate packs no denser
        return false;
    pixels.width = header.width;
    pixels.height = header.height;
    pixels.data.resize(width * height);
    const std::vector<unsigned char> zeros(rowSize);
    const unsigned char* above = zeros.data();
    for (std::size_t y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<unsigned char*>(rows.data()) + y * (rowSize + 1) + 1;
        if (!unfilter(row[-1], row, above, rowSize, std::max<std::size_t>(pixelBits / 8, 1)))
            return false;
        for (std::size_t x = 0; x < width; ++x)
            pixels.data[y * width + x] = pixel(row, x, header, chunks);
        above = row;
    }
    return true;
}

} // namespace VEK::png
