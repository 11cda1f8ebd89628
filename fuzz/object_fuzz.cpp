#include "../tests/object_pictures.h"

#include <vek/json.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>

/// Whatever a tree describes is drawn, in bounded time, and the extents of what is drawn are numbers.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CVekDataItem tree;
    CVekString error;
    if (!VEK::jsonRead(tree, reinterpret_cast<const char*>(data), size, L"fuzz", error))
        return 0;
    CVekLocalApp app;
    CVekApp* const before = vekAppSet(&app);
    for (const object_pictures::Picture& picture : object_pictures::draw(tree)) {
        CVekPoint3d low;
        CVekPoint3d high;
        if (picture.gdx.extmaxGet(low, high) && !(std::isfinite(low[0]) && std::isfinite(high[0])))
            std::abort();
    }
    vekAppSet(before);
    return 0;
}
