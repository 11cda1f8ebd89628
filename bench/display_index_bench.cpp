// What the index of a list gains, each row beside the least that the same picture can cost.
#include <vek/display.h>
#include <vek/surfaces.h>

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

namespace
{

constexpr int kWidth = 1000, kHeight = 800;

struct Line {
    double x0, y0, x1, y1;
};

struct Box {
    float x0, y0, x1, y1;
};

/// Lines of 10 to 30 all over the picture.
std::vector<Line> lines(std::int64_t count)
{
    std::vector<Line> all;
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, kWidth), y(0, kHeight), length(10, 30), angle(0, 6.28);
    for (std::int64_t i = 0; i < count; ++i) {
        const double a = angle(random), l = length(random), left = x(random), top = y(random);
        all.push_back({left, top, left + l * std::cos(a), top + l * std::sin(a)});
    }
    return all;
}

std::vector<Box> boxes(const std::vector<Line>& all)
{
    std::vector<Box> result;
    for (const Line& line : all) {
        result.push_back(
            {static_cast<float>(std::min(line.x0, line.x1)), static_cast<float>(std::min(line.y0, line.y1)),
             static_cast<float>(std::max(line.x0, line.x1)), static_cast<float>(std::max(line.y0, line.y1))});
    }
    return result;
}

/// @param classes number of classes of the draw order, in turn, so that a sort moves the items
CVekGDX listOf(const std::vector<Line>& all, int classes)
{
    CVekColor white, black;
    white.setColor(0xFFFFFF);
    black.setColor(0);
    CVekGDX gdx(white, CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
    int number = 0;
    for (const Line& line : all) {
        const unsigned long mode = static_cast<unsigned long>(number % classes) << itemColorModeShift;
        gdx.imageVl({number++}, mode, CVekVertexArray(CVekVertex({line.x0, line.y0, 0}, {line.x1, line.y1, 0})), black,
                    CVekMatrix3d(), {}, 1.0, 1, {});
    }
    return gdx;
}

/// A picture in memory, cleared.
class Picture
{
public:
    Picture()
    {
        VEK::rasterPixels(m_pixels, kWidth, kHeight, 0xFFFFFF);
        surface = VEK::rasterSurface(m_pixels);
    }
    void clear()
    {
        surface->clipTo(0, 0, kWidth, kHeight);
        surface->noPen();
        surface->solidRect(0, 0, kWidth, kHeight, 0xFFFFFF);
    }
    void draw(const Line& line, double scale = 1.0, double x = 0.0, double y = 0.0)
    {
        const VEK::SurfacePoint points[] = {{line.x0 * scale + x, line.y0 * scale + y},
                                            {line.x1 * scale + x, line.y1 * scale + y}};
        surface->pen(1, 0);
        surface->polyline(points, 2);
    }
    std::unique_ptr<VEK::CSurface> surface;

private:
    VEK::CPixels m_pixels;
};

void bareCalls(benchmark::State& state)
{
    const std::vector<Line> all = lines(state.range(0));
    Picture picture;
    for (auto _ : state) {
        picture.clear();
        for (const Line& line : all)
            picture.draw(line);
    }
}
BENCHMARK(bareCalls)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);

void paint(benchmark::State& state, int classes)
{
    CVekGDX gdx = listOf(lines(state.range(0)), classes);
    Picture picture;
    VEK::gdxDraw(gdx, *picture.surface, kHeight, kWidth, VEK::screenRules); // sorts, and makes the index
    for (auto _ : state)
        VEK::gdxDraw(gdx, *picture.surface, kHeight, kWidth, VEK::screenRules);
}
BENCHMARK_CAPTURE(paint, asEmitted, 1)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(paint, sorted, 3)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);

void firstPaint(benchmark::State& state)
{
    const CVekGDX gdx = listOf(lines(state.range(0)), 1);
    Picture picture;
    for (auto _ : state) {
        state.PauseTiming();
        {
            CVekGDX copy = gdx;
            state.ResumeTiming();
            VEK::gdxDraw(copy, *picture.surface, kHeight, kWidth, VEK::screenRules);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}
BENCHMARK(firstPaint)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond)->Iterations(5);

constexpr double kZoom = 10.0, kLeft = -4500.0, kTop = -3600.0;

/// A window of a tenth by a tenth: the boxes, and the lines whose boxes meet it.
void bareWindow(benchmark::State& state)
{
    const std::vector<Line> all = lines(state.range(0));
    const std::vector<Box> around = boxes(all);
    const float left = static_cast<float>(-kLeft / kZoom), right = static_cast<float>((kWidth - kLeft) / kZoom);
    const float top = static_cast<float>(-kTop / kZoom), bottom = static_cast<float>((kHeight - kTop) / kZoom);
    Picture picture;
    for (auto _ : state) {
        picture.clear();
        for (std::size_t i = 0; i < all.size(); ++i) {
            const Box& box = around[i];
            if ((box.x1 >= left) & (box.x0 <= right) & (box.y1 >= top) & (box.y0 <= bottom))
                picture.draw(all[i], kZoom, kLeft, kTop);
        }
    }
}
BENCHMARK(bareWindow)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);

void paintWindow(benchmark::State& state)
{
    CVekGDX gdx = listOf(lines(state.range(0)), 1);
    CVekMatrix3d zoom;
    zoom.setCoordSystem({kLeft, kTop, 0}, {kZoom, 0, 0}, {0, kZoom, 0}, {0, 0, kZoom});
    gdx.zoomMtxSet(zoom);
    Picture picture;
    VEK::gdxDraw(gdx, *picture.surface, kHeight, kWidth, VEK::screenRules);
    for (auto _ : state)
        VEK::gdxDraw(gdx, *picture.surface, kHeight, kWidth, VEK::screenRules);
}
BENCHMARK(paintWindow)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);

void bareBoxes(benchmark::State& state)
{
    const std::vector<Box> around = boxes(lines(state.range(0)));
    for (auto _ : state) {
        int hits = 0;
        for (const Box& box : around)
            hits += (box.x1 >= 495) & (box.x0 <= 505) & (box.y1 >= 1995) & (box.y0 <= 2005);
        benchmark::DoNotOptimize(hits);
    }
}
BENCHMARK(bareBoxes)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);

void pickBeside(benchmark::State& state, int classes)
{
    CVekGDX gdx = listOf(lines(state.range(0)), classes);
    gdx.imageItemGet({500, 2000, 0});
    for (auto _ : state)
        benchmark::DoNotOptimize(gdx.imageItemGet({500, 2000, 0}));
}
BENCHMARK_CAPTURE(pickBeside, asEmitted, 1)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(pickBeside, sorted, 3)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);

void sortAsEmitted(benchmark::State& state)
{
    const std::vector<Line> all = lines(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        {
            CVekGDX gdx = listOf(all, 3);
            state.ResumeTiming();
            gdx.displListSort();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}
BENCHMARK(sortAsEmitted)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond)->Iterations(3);

enum class Change { matrix, flag };

void changeOne(benchmark::State& state, Change change)
{
    CVekGDX gdx = listOf(lines(state.range(0)), 1);
    const CVekArrayTempl<int> path{static_cast<int>(state.range(0) / 3)};
    CVekMatrix3d mtx;
    int turn = 0;
    for (auto _ : state) {
        if (change == Change::matrix)
            gdx.mtxSet(path, mtx.setToTranslation({1.0 * (++turn % 100), 0, 0}));
        else
            gdx.propSet(path, ++turn % 2 != 0 ? propHide : propShow);
    }
}
BENCHMARK_CAPTURE(changeOne, matrix, Change::matrix)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(changeOne, flag, Change::flag)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMicrosecond);

} // namespace
