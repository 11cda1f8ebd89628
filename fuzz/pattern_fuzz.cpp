// Any bytes as a pattern file, with whose patterns a small region is hatched.
#include <vek/draw/hatch.h>
#include <vek/host.h>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    CVekArrayTempl<VEK::CHatchPattern> patterns;
    CVekString error;
    const bool good = VEK::hatchPatternsRead(patterns, reinterpret_cast<const char*>(data), size, L"fuzz.pat", error);
    if (good == (error.len() > 0))
        std::abort();

    CVekLocalApp app;
    CVekApp* const before = vekAppSet(&app);
    CVekArrayTempl<CVekVertexArray> region;
    region[0].append(CVekVertex({-1, 0, 0}, {3, 1, 0}, 0.3));
    region[0].append(CVekVertex({3, 1, 0}, {0, 4, 0}));
    region[0].append(CVekVertex({0, 4, 0}, {-1, 0, 0}));
    for (int i = 0; i < patterns.len() && i < 4; ++i) {
        if (patterns[i].lines.len() > 16)
            patterns[i].lines.setLogicalLength(16);
        app.hatchPatternSet(patterns[i].name, patterns[i].lines);
        const VEK::CHatchProp hatch(patterns[i].name, 0.1 * i, 1.0, false);
        if (vek_gdx_pattern_test(region, hatch, CVekMatrix3d::kIdentity) || i == 0)
            vek_gdx_image_reg_hatch2(region, CVekMatrix3d::kIdentity, hatch);
    }
    vekAppSet(before);
    return 0;
}
