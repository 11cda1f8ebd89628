// Any bytes as a bitmap file; the result is scaled, and compressed as PNG and decompressed again.
#include <vek/bitmaps/picture.h>

#include "core/png/png.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    VEK::CPixels pixels;
    const bool good = VEK::decodeBmp({reinterpret_cast<const char*>(data), size}, pixels);
    const std::size_t area = static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height);
    if (good != (area > 0) || pixels.data.size() != area)
        std::abort();
    const VEK::CPixels small = VEK::scaledPicture(pixels, 7, 5);
    if (good == small.empty() || good == (VEK::keyColor(small) == 0xFFFFFFFF))
        std::abort();
    if (good && area < 10000) {
        VEK::png::Header header;
        VEK::CPixels again;
        const std::string file = VEK::png::encode(pixels, VEK::png::Channels::colorAndOpacity);
        if (!VEK::png::readHeader(file, header) || !VEK::png::readPixels(file, header, again) || again != pixels)
            std::abort();
    }
    return 0;
}
