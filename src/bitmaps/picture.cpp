#include <vek/bitmaps/picture.h>

#include "core/values/whole.h"

#include <algorithm>

namespace VEK
{
namespace
{

constexpr std::uint32_t kOpaque = 0xFF000000;

/// Pixels of a source in one direction, from `begin` to `end`, excluding `end`.
struct Span {
    int begin;
    int end;
};

/// The source pixels, of `size`, that each of `count` pixels covers: adjacent spans when shrinking, and the one pixel
/// under the centre when enlarging.
std::vector<Span> spans(std::int64_t size, int count)
{
    std::vector<Span> result(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t begin =
            count < size ? i * size / count : ((2 * i + 1) * size - 1) / (2 * std::int64_t{count});
        const std::int64_t end = count < size ? (i + 1) * size / count : begin + 1;
        result[static_cast<std::size_t>(i)] = {static_cast<int>(begin), static_cast<int>(end)};
    }
    return result;
}

/// The mean of the opaque pixels, opaque if these are at least half of all.
std::uint32_t mean(const CPixels& pixels, const Span& columns, const Span& rows)
{
    if (columns.end - columns.begin == 1 && rows.end - rows.begin == 1)
        return pixels.at(columns.begin, rows.begin);
    std::uint64_t sums[3] = {}, opaque = 0, all = 0;
    for (int y = rows.begin; y < rows.end; ++y) {
        for (int x = columns.begin; x < columns.end; ++x, ++all) {
            const std::uint32_t pixel = pixels.at(x, y);
            if (pixel >> 24 == 0)
                continue;
            ++opaque;
            for (int channel = 0; channel < 3; ++channel)
                sums[channel] += pixel >> 8 * channel & 0xFF;
        }
    }
    if (opaque * 2 < all)
        return pixels.at(columns.begin, rows.begin) & 0xFFFFFF;
    std::uint32_t result = kOpaque;
    for (int channel = 0; channel < 3; ++channel)
        result |= static_cast<std::uint32_t>((sums[channel] + opaque / 2) / opaque) << 8 * channel;
    return result;
}

} // namespace

CPixels flattenIcon(const IconImage& icon, unsigned long back)
{
    const CPixels& mask = icon.mask;
    CPixels result;
    const bool isDouble = icon.color.empty();
    result.width = mask.width;
    result.height = isDouble ? mask.height / 2 : mask.height;
    const std::size_t area = static_cast<std::size_t>(result.width) * static_cast<std::size_t>(result.height);
    if (!isDouble && (icon.color.width != result.width || icon.color.data.size() != area))
        return {};
    if (area == 0 || mask.data.size() < area)
        return {};
    const auto filled = [&] {
        return std::vector<std::uint32_t>(area, (static_cast<std::uint32_t>(back) & 0xFFFFFF) | kOpaque);
    };
    result.data = whole(std::vector<std::uint32_t>(), filled);
    if (result.data.empty())
        return {};
    const std::uint32_t* color = isDouble ? mask.data.data() + area : icon.color.data.data();
    for (std::size_t i = 0; i < area; ++i)
        result.data[i] = ((result.data[i] & mask.data[i]) ^ (color[i] & ~mask.data[i])) | kOpaque;
    return result;
}

CPixels scaledPicture(const CPixels& pixels, int cx, int cy)
{
    if (pixels.empty() || !isPictureSize(cx, cy))
        return {};
    return whole(CPixels(), [&] {
        CPixels result;
        const std::vector<Span> columns = spans(pixels.width, cx), rows = spans(pixels.height, cy);
        result.data.reserve(static_cast<std::size_t>(cx) * static_cast<std::size_t>(cy));
        Span before{-1, -1};
        for (const Span& row : rows) {
            if (row.begin == before.begin) { // repeats the row just made
                result.data.resize(result.data.size() + columns.size());
                std::copy_n(result.data.end() - 2 * std::ptrdiff_t{cx}, cx, result.data.end() - cx);
                continue;
            }
            for (const Span& column : columns)
                result.data.push_back(mean(pixels, column, row));
            before = row;
        }
        result.width = cx;
        result.height = cy;
        return result;
    });
}

unsigned keyColor(const CPixels& pixels)
{
    if (pixels.empty())
        return 0xFFFFFFFF;
    const int right = pixels.width - 1;
    const int bottom = pixels.height - 1;
    std::array<unsigned, 5> colors = {pixels.at(0, 0), pixels.at(right, 0), pixels.at(0, bottom),
                                      pixels.at(right / 2, bottom / 2), pixels.at(right, bottom)};
    for (unsigned& color : colors)
        color &= 0xFFFFFF;
    return keyColorOf(colors);
}

unsigned keyColorOf(const std::array<unsigned, 5>& colors)
{
    unsigned best = 0;
    std::ptrdiff_t most = 0;
    for (const unsigned color : colors) {
        const std::ptrdiff_t times = std::count(colors.begin(), colors.end(), color);
        if (times > most || (times == most && color < best)) {
            most = times;
            best = color;
        }
    }
    return best;
}

void leaveOut(CPixels& pixels, unsigned color)
{
    for (std::uint32_t& pixel : pixels.data) {
        if ((pixel & 0xFFFFFF) == (color & 0xFFFFFF))
            pixel &= 0xFFFFFF;
    }
}

} // namespace VEK
