// Any bytes as a slide: read twice by one reader, which keeps the byte order, and emitted into a display object.
#include <vek/pictures.h>

#include <cstdlib>

namespace
{

/// Counts the records of a slide, which cannot be more than its bytes contain.
class Counter : public VEK::SlideVisitor
{
public:
    std::size_t told = 0;

    bool start(int, int) override { return true; }
    void line(VEK::SlidePoint, VEK::SlidePoint) override { ++told; }
    void color(int) override { ++told; }
    void fill(std::span<const VEK::SlidePoint> points) override { told += points.size(); }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const VEK::SlideBytes slide(data, size);
    VEK::SlideReader reader;
    for (int time = 0; time < 2; ++time) {
        Counter counter;
        reader.read(slide, counter);
        if (counter.told > size + 2)
            std::abort();
    }
    CVekGDX gdx;
    VEK::gdxImageSlide(&gdx, slide, itemFill, nullptr);
    return 0;
}
