// Any bytes as a slide library: every entry of its directory, looked up by its own name, must be inside the file.
#include <vek/pictures.h>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const VEK::SlideBytes library(data, size);
    VEK::SlideEntry entry;
    for (std::size_t i = 0; i < 64 && VEK::slideEntry(entry, library, size, i); ++i) {
        VEK::SlideEntry found;
        if (!VEK::slideFind(found, library, size, VEK::slideName(entry.name)))
            continue;
        if (!found.readable || found.begin > found.end || found.end > size)
            std::abort();
        CVekGDX gdx;
        VEK::gdxImageSlide(&gdx, library.subspan(found.begin, found.end - found.begin), 0, nullptr);
    }
    return 0;
}
