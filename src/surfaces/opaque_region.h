// The pixels of a picture that are not transparent.
#pragma once

#include <vek/values/pixels.h>

#include <cstdint>
#include <vector>

namespace VEK
{

/// A rectangle of pixels, right and bottom exclusive, with the memory layout of the system's region data.
struct PixelBox {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

/// The pixels that are not transparent, as boxes in bands from the top.
std::vector<PixelBox> opaqueRegion(const CPixels& pixels);

} // namespace VEK
