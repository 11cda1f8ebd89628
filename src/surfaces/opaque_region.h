// Which pixels of a picture have opacity.
#pragma once

#include <vek/values/pixels.h>

#include <cstdint>
#include <vector>

namespace VEK
{

/// A rectangle of pixels, the right and the bottom side outside. The system's regions take it as it lies in memory.
struct PixelBox {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

/// The pixels with opacity as boxes in bands from the top.
std::vector<PixelBox> opaqueRegion(const CPixels& pixels);

} // namespace VEK
