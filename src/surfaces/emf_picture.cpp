// Pictures in a metafile.
#include "surfaces/emf_records.h"

namespace VEK::emf
{

std::vector<Box> opaqueRegion(const CPixels& pixels)
{
    std::vector<Box> region;
    std::size_t band = 0; // the last band, which grows as long as the next row is like it
    std::vector<Box> row;
    for (int y = 0; y < pixels.height; ++y) {
        row.clear();
        for (int x = 0; x < pixels.width; ++x) {
            if (pixels.at(x, y) >> 24 == 0)
                continue;
            if (row.empty() || row.back().right != x)
                row.push_back({x, y, x, y + 1});
            row.back().right = x + 1;
        }
        const bool same = !row.empty() && region.size() - band == row.size() && region.back().bottom == y &&
                          std::equal(row.begin(), row.end(), region.begin() + static_cast<std::ptrdiff_t>(band),
                                     [](const Box& a, const Box& b) { return a.left == b.left && a.right == b.right; });
        if (!same) {
            band = region.size();
            region.insert(region.end(), row.begin(), row.end());
        }
        for (std::size_t i = band; same && i < region.size(); ++i)
            region[i].bottom = y + 1;
    }
    return region;
}

void Records::addRegion(std::span<const Box> region, const Point& offset)
{
    Box all;
    for (const Box& box : region)
        all.add(box);
    const auto put = [&](unsigned char* to, const Box& box) {
        return putBox(to, {box.left + offset.x, box.top + offset.y, box.right + offset.x, box.bottom + offset.y});
    };
    constexpr std::uint32_t kRegionHeader = 32;
    const std::uint64_t rects = region.size() * std::uint64_t{16};
    unsigned char* to = beginLong(kExtSelectClipRgn, 16 + kRegionHeader, rects);
    for (const std::uint64_t value : {kRegionHeader + rects, std::uint64_t{1}}) // RGN_AND
        to = put32(to, static_cast<std::uint32_t>(value));
    for (const std::uint64_t value :
         {std::uint64_t{kRegionHeader}, std::uint64_t{1}, rects / 16, rects}) // RDH_RECTANGLES
        to = put32(to, static_cast<std::uint32_t>(value));
    put(to, all);
    for (const Box& box : region)
        put(room(16), box);
}

void Records::addPicture(const CPixels& pixels, const Point& at)
{
    constexpr std::uint32_t kFixed = 100, kBitmapHeader = 40, kSourceCopy = 0x00CC0020;
    const std::uint64_t rowSize = (std::uint64_t(pixels.width) * 3 + 3) / 4 * 4;
    const std::uint64_t bits = rowSize * std::uint64_t(pixels.height);
    const std::uint32_t width = static_cast<std::uint32_t>(pixels.width);
    const std::uint32_t height = static_cast<std::uint32_t>(pixels.height);
    unsigned char* to = beginLong(kBitBlt, kFixed + kBitmapHeader, bits);
    to = putBox(to, {at.x, at.y, at.x + pixels.width - 1, at.y + pixels.height - 1});
    const std::uint32_t one = 0x3F800000; // 1.0 of the source's transformation, the identity
    for (const std::uint32_t value : {static_cast<std::uint32_t>(at.x), static_cast<std::uint32_t>(at.y), width, height,
                                      kSourceCopy, 0u, 0u, one, 0u, 0u, one, 0u, 0u, 0xFFFFFFu, 0u, kFixed,
                                      kBitmapHeader, kFixed + kBitmapHeader, static_cast<std::uint32_t>(bits)})
        to = put32(to, value);
    to = put16(put16(put32(put32(put32(to, kBitmapHeader), width), height), 1), 24);
    std::memset(to, 0, 24); // not packed, no resolution, no palette
    for (int y = pixels.height - 1; y >= 0; --y) {
        to = room(rowSize);
        unsigned char* const end = to + rowSize;
        for (int x = 0; x < pixels.width; ++x, to += 3) {
            const std::uint32_t pixel = pixels.at(x, y);
            to[0] = static_cast<unsigned char>(pixel >> 16);
            to[1] = static_cast<unsigned char>(pixel >> 8);
            to[2] = static_cast<unsigned char>(pixel);
        }
        std::memset(to, 0, static_cast<std::size_t>(end - to));
    }
}

} // namespace VEK::emf
