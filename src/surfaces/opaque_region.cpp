#include "surfaces/opaque_region.h"

#include <algorithm>
#include <cstddef>

std::vector<VEK::PixelBox> VEK::opaqueRegion(const CPixels& pixels)
{
    std::vector<PixelBox> region;
    std::size_t band = 0; // the last band, which grows while the next row equals it
    std::vector<PixelBox> row;
    for (int y = 0; y < pixels.height; ++y) {
        row.clear();
        for (int x = 0; x < pixels.width; ++x) {
            if (pixels.at(x, y) >> 24 == 0)
                continue;
            if (row.empty() || row.back().right != x)
                row.push_back({x, y, x, y + 1});
            row.back().right = x + 1;
        }
        const bool same =
            !row.empty() && region.size() - band == row.size() && region.back().bottom == y &&
            std::equal(row.begin(), row.end(), region.begin() + static_cast<std::ptrdiff_t>(band),
                       [](const PixelBox& a, const PixelBox& b) { return a.left == b.left && a.right == b.right; });
        if (!same) {
            band = region.size();
            region.insert(region.end(), row.begin(), row.end());
        }
        for (std::size_t i = band; same && i < region.size(); ++i)
            region[i].bottom = y + 1;
    }
    return region;
}
