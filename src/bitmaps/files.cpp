#include <vek/bitmaps/picture.h>

#include "bitmaps/dib.h"
#include "core/png/png.h"
#include "core/values/whole.h"

#include <algorithm>
#include <cstdlib>

namespace VEK
{
namespace
{

constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kBlack = 0xFF000000;

/// One image of an icon file, before it is decoded.
struct Candidate {
    std::string_view bytes;
    bool isPng = false;
    dib::Header bitmap;
    png::Header graphic;
    int width = 0;
    int height = 0;
    int bits = 0;
};

bool look(std::string_view bytes, Candidate& candidate)
{
    candidate.bytes = bytes;
    candidate.isPng = png::readHeader(bytes, candidate.graphic);
    if (candidate.isPng) {
        const png::Header& header = candidate.graphic;
        candidate.width = header.width;
        candidate.height = header.height;
        candidate.bits = header.bits;
        return true;
    }
    const dib::Header& header = candidate.bitmap;
    if (!dib::readHeader(bytes, candidate.bitmap) || header.packing != dib::Packing::none || header.height < 2)
        return false;
    candidate.bitmap.height /= 2;
    candidate.width = header.width;
    candidate.height = header.height;
    candidate.bits = header.bits;
    return true;
}

bool choose(std::string_view file, int cx, int cy, Candidate& best)
{
    if (dib::number(file, 0, 2) != 0 || dib::number(file, 2, 2) != 1)
        return false;
    const std::size_t count = dib::number(file, 4, 2);
    bool found = false;
    std::int64_t bestAway = 0;
    for (std::size_t i = 0; i < count && 22 + i * 16 <= file.size(); ++i) {
        const std::size_t entry = 6 + i * 16;
        const std::size_t size = dib::number(file, entry + 8, 4);
        const std::size_t at = dib::number(file, entry + 12, 4);
        Candidate candidate;
        if (at >= file.size() || !look(file.substr(at, size), candidate))
            continue;
        cx = cx == 0 ? candidate.width : cx; // the first readable one
        cy = cy == 0 ? candidate.height : cy;
        const std::int64_t away =
            std::abs(std::int64_t{candidate.width} - cx) + std::abs(std::int64_t{candidate.height} - cy);
        if (!found || away < bestAway || (away == bestAway && candidate.bits > best.bits)) {
            best = candidate;
            bestAway = away;
        }
        found = true;
    }
    return found;
}

/// Masks the transparent pixels, if any pixel is not transparent: programs that write opacity often leave the mask
/// empty.
void maskByOpacity(std::string_view rows, const dib::Header& header, CPixels& mask)
{
    static constexpr std::uint32_t kUsual[] = {0xFF0000, 0xFF00, 0xFF}; // leave the highest byte for opacity
    const bool hasOpacity = header.bits == 32 && std::equal(kUsual, kUsual + 3, header.masks);
    const auto isSet = [](std::uint32_t pixel) { return pixel == kWhite; };
    if (!hasOpacity || std::any_of(mask.data.begin(), mask.data.end(), isSet))
        return;
    bool isUsed = false;
    for (std::size_t i = 0; i < mask.data.size() && !isUsed; ++i)
        isUsed = rows[4 * i + 3] != 0;
    const auto width = static_cast<std::size_t>(mask.width), height = static_cast<std::size_t>(mask.height);
    for (std::size_t i = 0; i < mask.data.size() && isUsed; ++i) {
        const std::size_t row = header.topDown ? i / width : height - 1 - i / width;
        if (rows[4 * (row * width + i % width) + 3] == 0)
            mask.data[i] = kWhite;
    }
}

bool decodeBitmap(const Candidate& chosen, IconImage& icon)
{
    const dib::Header& header = chosen.bitmap;
    const std::size_t end = header.paletteEnd();
    if (end > chosen.bytes.size())
        return false;
    const std::string_view data = chosen.bytes.substr(end);
    if (!dib::readPixels(data, header, dib::readPalette(chosen.bytes.substr(0, end), header), icon.color))
        return false;
    dib::Header maskHeader = header;
    maskHeader.bits = 1;
    const std::size_t colorSize = header.rowSize() * static_cast<std::size_t>(header.height);
    const std::string_view rest = data.substr(std::min(colorSize, data.size()));
    if (!dib::readPixels(rest, maskHeader, {kBlack, kWhite}, icon.mask))
        icon.mask = {icon.color.width, icon.color.height, std::vector<std::uint32_t>(icon.color.data.size(), kBlack)};
    maskByOpacity(data, header, icon.mask);
    return true;
}

bool decodeGraphic(const Candidate& chosen, IconImage& icon)
{
    if (!png::readPixels(chosen.bytes, chosen.graphic, icon.color))
        return false;
    icon.mask = icon.color;
    for (std::size_t i = 0; i < icon.color.data.size(); ++i) {
        icon.mask.data[i] = icon.color.data[i] >> 24 < 128 ? kWhite : kBlack;
        icon.color.data[i] |= kBlack;
    }
    return true;
}

} // namespace

bool decodeBmp(std::string_view bytes, CPixels& pixels)
{
    pixels = {};
    const bool good = whole(false, [&] {
        constexpr std::size_t kFileHeader = 14;
        if (bytes.size() < kFileHeader || !bytes.starts_with("BM"))
            return false;
        const std::string_view bitmap = bytes.substr(kFileHeader);
        dib::Header header;
        if (!dib::readHeader(bitmap, header))
            return false;
        const std::size_t stated = dib::number(bytes, 10, 4);
        const std::size_t at = stated >= kFileHeader + header.paletteAt ? stated : kFileHeader + header.paletteEnd();
        if (at > bytes.size())
            return false;
        const auto palette = dib::readPalette(bytes.substr(0, at).substr(kFileHeader), header);
        return dib::readPixels(bytes.substr(at), header, palette, pixels);
    });
    if (!good)
        pixels = {};
    return good;
}

bool decodeIcon(std::string_view bytes, int cx, int cy, IconImage& icon)
{
    icon = {};
    const bool good = whole(false, [&] {
        Candidate chosen;
        return choose(bytes, cx, cy, chosen) &&
               (chosen.isPng ? decodeGraphic(chosen, icon) : decodeBitmap(chosen, icon));
    });
    if (!good)
        icon = {};
    return good;
}

} // namespace VEK
