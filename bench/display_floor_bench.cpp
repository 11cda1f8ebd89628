// Texts and dashes in memory, each beside the same calls of the surface made without a pass.
#include <vek/display.h>
#include <vek/surfaces.h>

#include <benchmark/benchmark.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace
{

using VEK::SurfacePoint;

constexpr int kWidth = 1000, kHeight = 800;

/// Keeps the calls of a pass, to make them again.
class Tape : public VEK::CSurface
{
public:
    void play(VEK::CSurface& surface) const
    {
        for (const auto& call : m_calls)
            call(surface);
    }
    void clipTo(double left, double top, double right, double bottom) override
    {
        add([=](CSurface& s) { s.clipTo(left, top, right, bottom); });
    }
    void clipOut(const SurfacePoint* points, int count) override
    {
        add([p = kept(points, count)](CSurface& s) { s.clipOut(p.data(), static_cast<int>(p.size())); });
    }
    void clipRestore() override
    {
        add([](CSurface& s) { s.clipRestore(); });
    }
    void pen(int width, unsigned color) override
    {
        add([=](CSurface& s) { s.pen(width, color); });
    }
    void brush(unsigned color) override
    {
        add([=](CSurface& s) { s.brush(color); });
    }
    void polyline(const SurfacePoint* points, int count) override
    {
        add([p = kept(points, count)](CSurface& s) { s.polyline(p.data(), static_cast<int>(p.size())); });
    }
    void polygon(const SurfacePoint* points, int count) override
    {
        add([p = kept(points, count)](CSurface& s) { s.polygon(p.data(), static_cast<int>(p.size())); });
    }
    void solidRect(double x, double y, double width, double height, unsigned color) override
    {
        add([=](CSurface& s) { s.solidRect(x, y, width, height, color); });
    }

    // Calls that no text and no dash makes.
    void noPen() override {}
    void noBrush() override {}
    void background(unsigned) override {}
    void moveTo(double, double) override {}
    void lineTo(double, double) override {}
    void rectangle(double, double, double, double) override {}
    void ellipse(double, double, double, double) override {}
    void pixel(double, double, unsigned) override {}
    void picture(double, double, const VEK::CPixels&) override {}

private:
    static std::vector<SurfacePoint> kept(const SurfacePoint* points, int count) { return {points, points + count}; }
    void add(std::function<void(CSurface&)> call) { m_calls.push_back(std::move(call)); }

    std::vector<std::function<void(CSurface&)>> m_calls;
};

CVekGDX blank()
{
    CVekColor white;
    white.setColor(0xFFFFFF);
    return CVekGDX(white, CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
}

/// So many letters, ten of them an item.
CVekGDX texts(std::int64_t letters)
{
    CVekGDX gdx = blank();
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, 900), y(0, 780);
    for (std::int64_t i = 0; i < letters; i += 10) {
        std::wstring text;
        for (int k = 0; k < 10; ++k)
            text += static_cast<wchar_t>(L'A' + random() % 26);
        CVekMatrix3d m;
        m.setCoordSystem({x(random), y(random), 0}, {10, 0, 0}, {0, 10, 0}, {0, 0, 10});
        gdx.imageTxt({0}, 0, text.c_str(), {}, m, L"", {}, {});
    }
    return gdx;
}

/// So many lines of about 20 pixels with six dashes each.
CVekGDX dashedLines(std::int64_t lines)
{
    CVekGDX gdx = blank();
    std::mt19937 random(1);
    std::uniform_real_distribution<double> x(0, kWidth), y(0, kHeight), by(-20, 20);
    for (std::int64_t i = 0; i < lines; ++i) {
        const CVekPoint3d from(x(random), y(random), 0), to(from[0] + by(random), from[1] + by(random), 0);
        gdx.imageVl({0}, 0, CVekVertexArray(CVekVertex(from, to)), {}, {}, {0.6, -0.4}, from.distanceTo(to) / 6.0001, 1,
                    {});
    }
    return gdx;
}

void inMemory(benchmark::State& state, CVekGDX (*make)(std::int64_t), bool bare)
{
    CVekGDX gdx = make(state.range(0));
    VEK::CPixels pixels;
    VEK::rasterPixels(pixels, kWidth, kHeight, 0xFFFFFF);
    const auto surface = VEK::rasterSurface(pixels);
    Tape tape;
    VEK::gdxDraw(gdx, tape, kHeight, kWidth, VEK::screenRules);
    for (auto _ : state) {
        if (bare)
            tape.play(*surface);
        else
            VEK::gdxDraw(gdx, *surface, kHeight, kWidth, VEK::screenRules);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK_CAPTURE(inMemory, texts, texts, false)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK_CAPTURE(inMemory, textsBare, texts, true)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK_CAPTURE(inMemory, sixDashes, dashedLines, false)->RangeMultiplier(10)->Range(1000, 100000);
BENCHMARK_CAPTURE(inMemory, sixDashesBare, dashedLines, true)->RangeMultiplier(10)->Range(1000, 100000);

} // namespace
