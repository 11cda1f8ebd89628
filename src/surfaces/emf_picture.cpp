// Pictures in a metafile.
#include "surfaces/emf_records.h"

namespace VEK::emf
{

void Records::addRegion(std::span<const PixelBox> region, const Point& offset)
{
    PixelBox all = region.front();
    for (const PixelBox& box : region) {
        all = {std::min(all.left, box.left), std::min(all.top, box.top), std::max(all.right, box.right),
               std::max(all.bottom, box.bottom)};
    }
    const auto put = [&](unsigned char* to, const PixelBox& box) {
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
    for (const PixelBox& box : region)
        put(room(16), box);
}

void Records::addPicture(const CPixels& pixels, const PixelBox& part, const Point& at, int pixelSize)
{
    const bool stretches = pixelSize != 1;
    constexpr std::uint32_t kBitmapHeader = 40, kSourceCopy = 0x00CC0020;
    const std::uint32_t fixed = stretches ? 108 : 100;
    const auto columns = static_cast<std::uint32_t>(part.right - part.left);
    const auto rows = static_cast<std::uint32_t>(part.bottom - part.top);
    const std::uint64_t rowSize = (std::uint64_t(columns) * 3 + 3) / 4 * 4;
    const std::uint64_t bits = rowSize * rows;
    const std::uint32_t width = columns * static_cast<std::uint32_t>(pixelSize);
    const std::uint32_t height = rows * static_cast<std::uint32_t>(pixelSize);
    unsigned char* to = beginLong(stretches ? kStretchBlt : kBitBlt, fixed + kBitmapHeader, bits);
    to = putBox(
        to, {at.x, at.y, at.x + static_cast<std::int32_t>(width) - 1, at.y + static_cast<std::int32_t>(height) - 1});
    const std::uint32_t one = 0x3F800000; // 1.0 of the source's transformation, the identity
    for (const std::uint32_t value : {static_cast<std::uint32_t>(at.x), static_cast<std::uint32_t>(at.y), width, height,
                                      kSourceCopy, 0u, 0u, one, 0u, 0u, one, 0u, 0u, 0xFFFFFFu, 0u, fixed,
                                      kBitmapHeader, fixed + kBitmapHeader, static_cast<std::uint32_t>(bits)})
        to = put32(to, value);
    if (stretches)
        to = put32(put32(to, columns), rows);
    to = put16(put16(put32(put32(put32(to, kBitmapHeader), columns), rows), 1), 24);
    std::memset(to, 0, 24); // uncompressed, no resolution, no palette
    for (int y = part.bottom - 1; y >= part.top; --y) {
        to = room(rowSize);
        unsigned char* const end = to + rowSize;
        for (int x = part.left; x < part.right; ++x, to += 3) {
            const std::uint32_t pixel = pixels.at(x, y);
            to[0] = static_cast<unsigned char>(pixel >> 16);
            to[1] = static_cast<unsigned char>(pixel >> 8);
            to[2] = static_cast<unsigned char>(pixel);
        }
        std::memset(to, 0, static_cast<std::size_t>(end - to));
    }
}

} // namespace VEK::emf
