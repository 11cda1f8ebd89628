// Any bytes as an icon file, at several sizes.
#include <vek/bitmaps/picture.h>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const int wanted : {0, 16, 300}) {
        VEK::IconImage icon;
        const bool good = VEK::decodeIcon(bytes, wanted, wanted, icon);
        const VEK::CPixels flat = VEK::flattenIcon(icon, 0x123456);
        if (good == flat.empty() || (good && flat.data.size() != icon.mask.data.size()))
            std::abort();
    }
    return 0;
}
