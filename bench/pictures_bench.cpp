// Decoding slides, with and without creating items from them. The bytes are those of the slide.
#include "slide_writer.h"

#include <vek/pictures.h>

#include <benchmark/benchmark.h>

namespace
{

/// A slide of that many records in the mix of real ones: mostly short lines in chains, some long ones, colours, and
/// fills of six corners.
slides::Bytes slideOf(int records)
{
    slides::SlideWriter writer(slides::Format::level2Little, 20000, 20000);
    slides::Point at{100, 100};
    for (int i = 0; i < records; ++i) {
        if (i % 64 == 63) {
            writer.color(i % 256);
        } else if (i % 64 == 31) {
            writer.fill({{1, 1}, {9, 1}, {12, 5}, {9, 9}, {1, 9}, {0, 5}});
        } else {
            const slides::Point to{100 + (at.x + 37 + i % 29) % 19000, 100 + (at.y + 23) % 19000};
            writer.line(at, to);
            at = to;
        }
    }
    return writer.finish();
}

class Sum : public VEK::SlideVisitor
{
public:
    long long value = 0;

    bool start(int, int) override { return true; }
    void line(VEK::SlidePoint from, VEK::SlidePoint to) override { value += from.x + to.y; }
    void color(int index) override { value += index; }
    void fill(std::span<const VEK::SlidePoint> points) override { value += static_cast<long long>(points.size()); }
};

void slideDecode(benchmark::State& state)
{
    const slides::Bytes slide = slideOf(static_cast<int>(state.range(0)));
    VEK::SlideReader reader;
    Sum sum;
    for (auto _ : state)
        reader.read(slide, sum);
    benchmark::DoNotOptimize(sum.value);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(slide.size()));
    state.SetComplexityN(state.range(0));
}

/// Into a list with room, as when one object shows slide after slide.
void slideEmit(benchmark::State& state)
{
    const slides::Bytes slide = slideOf(static_cast<int>(state.range(0)));
    CVekGDX gdx;
    VEK::gdxImageSlide(&gdx, slide, 0, nullptr); // from here on the list has room
    for (auto _ : state) {
        gdx.clear();
        VEK::gdxImageSlide(&gdx, slide, 0, nullptr);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(slide.size()));
    state.SetItemsProcessed(state.iterations() * gdx.lenGet());
    state.SetComplexityN(state.range(0));
}

void slideEmitFresh(benchmark::State& state)
{
    const slides::Bytes slide = slideOf(static_cast<int>(state.range(0)));
    std::int64_t items = 0;
    for (auto _ : state) {
        CVekGDX gdx;
        VEK::gdxImageSlide(&gdx, slide, 0, nullptr);
        items += gdx.lenGet();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(slide.size()));
    state.SetItemsProcessed(items);
    state.SetComplexityN(state.range(0));
}

BENCHMARK(slideDecode)->RangeMultiplier(10)->Range(1000, 1000000)->Complexity(benchmark::oN);
BENCHMARK(slideEmit)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(slideEmitFresh)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

/// Looking up the last name of a directory.
void libraryFind(benchmark::State& state)
{
    std::vector<std::pair<std::string, slides::Bytes>> entries;
    for (int i = 0; i < state.range(0); ++i)
        entries.emplace_back("DETAIL" + std::to_string(i), slides::Bytes(40));
    const slides::Bytes library = slides::makeLibrary(entries);
    const CVekString name = VEK::slideName(("detail" + std::to_string(state.range(0) - 1)).c_str());
    VEK::SlideEntry entry;
    for (auto _ : state)
        benchmark::DoNotOptimize(VEK::slideFind(entry, library, library.size(), name));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(libraryFind)->RangeMultiplier(10)->Range(100, 100000)->Complexity(benchmark::oN);

} // namespace
