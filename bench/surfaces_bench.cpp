// Lines and figures on the file surfaces, whose bytes are discarded.
#include <vek/surfaces.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace
{

class Nowhere : public VEK::CByteSink
{
public:
    bool write(std::string_view bytes) override
    {
        m_count += bytes.size();
        return true;
    }
    bool rewrite(std::uint64_t, std::string_view) override { return true; }
    bool commit() override { return true; }
    std::size_t count() const { return m_count; }

private:
    std::size_t m_count = 0;
};

enum class Format { emf, svg };

/// Separate lines of 10 to 30 pixels in an area of 2000 by 1000.
std::vector<VEK::SurfacePoint> lines(std::size_t count)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, 2000), y(0, 1000), length(10, 30), angle(0, 6.28);
    std::vector<VEK::SurfacePoint> points;
    for (std::size_t i = 0; i < count; ++i) {
        const VEK::SurfacePoint from{x(random), y(random)};
        const double a = angle(random), l = length(random);
        points.push_back(from);
        points.push_back({from.x + l * std::cos(a), from.y + l * std::sin(a)});
    }
    return points;
}

template <class Draw>
void measure(benchmark::State& state, Format format, Draw draw)
{
    std::size_t bytes = 0;
    for (auto _ : state) {
        Nowhere sink;
        const auto surface = format == Format::emf ? VEK::emfSurface(sink) : VEK::svgSurface(sink, 2000, 1000);
        draw(*surface);
        surface->finish();
        bytes += sink.count();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void separateLines(benchmark::State& state, Format format)
{
    const auto points = lines(static_cast<std::size_t>(state.range(0)));
    measure(state, format, [&](VEK::CSurface& surface) {
        for (std::size_t i = 0; i < points.size(); i += 2) {
            surface.moveTo(points[i].x, points[i].y);
            surface.lineTo(points[i + 1].x, points[i + 1].y);
        }
    });
}
BENCHMARK_CAPTURE(separateLines, emf, Format::emf)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK_CAPTURE(separateLines, svg, Format::svg)->RangeMultiplier(10)->Range(1000, 1000000);

void connectedLines(benchmark::State& state, Format format)
{
    const auto points = lines(static_cast<std::size_t>(state.range(0)) / 2);
    measure(state, format,
            [&](VEK::CSurface& surface) { surface.polyline(points.data(), static_cast<int>(points.size())); });
}
BENCHMARK_CAPTURE(connectedLines, emf, Format::emf)->RangeMultiplier(10)->Range(1000, 1000000);
BENCHMARK_CAPTURE(connectedLines, svg, Format::svg)->RangeMultiplier(10)->Range(1000, 1000000);

/// A new pen for each line.
void colouredLines(benchmark::State& state, Format format)
{
    const auto points = lines(static_cast<std::size_t>(state.range(0)));
    measure(state, format, [&](VEK::CSurface& surface) {
        for (std::size_t i = 0; i < points.size(); i += 2) {
            surface.pen(1, static_cast<unsigned>(i * 7919) & 0xFFFFFF);
            surface.polyline(&points[i], 2);
        }
    });
}
BENCHMARK_CAPTURE(colouredLines, emf, Format::emf)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK_CAPTURE(colouredLines, svg, Format::svg)->RangeMultiplier(10)->Range(1000, 100000);

/// Rings of 40 points with a hole of 30, like glyphs.
void rings(benchmark::State& state, Format format)
{
    std::vector<VEK::SurfacePoint> outer, hole;
    for (int i = 0; i < 40; ++i)
        outer.push_back({100 + 50 * std::cos(i * 0.157), 100 + 50 * std::sin(i * 0.157)});
    for (int i = 0; i < 30; ++i)
        hole.push_back({100 + 40 * std::cos(i * 0.209), 100 + 40 * std::sin(i * 0.209)});
    measure(state, format, [&](VEK::CSurface& surface) {
        surface.clipTo(0, 0, 2000, 1000);
        surface.brush(0xFF);
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            surface.clipOut(hole.data(), 30);
            surface.polygon(outer.data(), 40);
            surface.clipRestore();
        }
    });
}
BENCHMARK_CAPTURE(rings, emf, Format::emf)->RangeMultiplier(10)->Range(100, 10000);
BENCHMARK_CAPTURE(rings, svg, Format::svg)->RangeMultiplier(10)->Range(100, 10000);

} // namespace
