// The raster surface beside GDI: the same calls on both, compared pixel by pixel.
#include <vek/surfaces.h>

#include "surfaces_scene.h"
#include "window/device_pixels.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <iomanip>
#include <random>
#include <sstream>

namespace
{

constexpr int kWidth = 320, kHeight = 240;

using VEK::SurfacePoint;
using Calls = std::function<void(VEK::CSurface&)>;

class RasterBesideGdi : public testing::Test
{
protected:
    /// Pixels that differ, of `m_drawn` pixels that GDI lit.
    int differing(const Calls& calls)
    {
        m_expected.clear();
        calls(*VEK::gdiSurface(m_expected.dc));
        VEK::CPixels pixels;
        EXPECT_TRUE(VEK::rasterPixels(pixels, kWidth, kHeight, 0xFFFFFF));
        calls(*VEK::rasterSurface(pixels));
        const VEK::CPixels expected = m_expected.pixels();
        int count = 0;
        for (std::size_t i = 0; i < pixels.data.size(); ++i) {
            m_drawn += expected.data[i] != 0xFFFFFFFF;
            if (pixels.data[i] != expected.data[i] && count++ == 0)
                m_first = {static_cast<double>(i % kWidth), static_cast<double>(i / kWidth)};
        }
        return count;
    }

    /// Draws figures that `make` makes at random, each alone, and says how many pixels of all differ.
    void stress(int count, const std::function<Calls(std::ostream&)>& make)
    {
        int total = 0, wrong = 0;
        for (int i = 0; i < count; ++i) {
            std::ostringstream description;
            const Calls calls = make(description);
            const int pixels = differing(calls);
            total += pixels;
            if (pixels > 0 && ++wrong <= 5)
                std::printf("  %d pixels, first at %g, %g: %s\n", pixels, m_first.x, m_first.y,
                            description.str().c_str());
        }
        std::printf("  %d figures, %d pixels lit, %d differ\n", count, m_drawn, total);
        EXPECT_EQ(total, 0) << "in " << wrong << " figures";
        EXPECT_GT(m_drawn, count);
    }

    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(m_random); }

    /// Near, far or hardly apart, as the dice fall.
    /// @param farthest GDI takes long for areas of a million rows
    std::vector<SurfacePoint> points(int count, std::ostream& description, int farthest = 1000)
    {
        const int reach = std::array{4, 40, 200, farthest}[static_cast<std::size_t>(number(0, 3))];
        const int x = number(-20, kWidth + 20), y = number(-20, kHeight + 20);
        std::vector<SurfacePoint> list;
        for (int i = 0; i < count; ++i) {
            list.push_back({double(x + number(-reach, reach)), double(y + number(-reach, reach))});
            description << " " << int(list.back().x) << "," << int(list.back().y);
        }
        return list;
    }

    Canvas m_expected{kWidth, kHeight};
    int m_drawn = 0;
    SurfacePoint m_first;
    std::mt19937 m_random{20};
};

TEST_F(RasterBesideGdi, Scene)
{
    EXPECT_EQ(differing([](VEK::CSurface& s) { drawScene(s); }), 0) << "first at " << m_first.x << ", " << m_first.y;
    EXPECT_GT(m_drawn, 9000);
}

TEST_F(RasterBesideGdi, RandomLines)
{
    stress(6000, [this](std::ostream& description) {
        const int width = number(0, 1) ? 1 : number(0, 4) == 0 ? number(20, 90) : number(2, 12);
        description << "width " << width;
        return [list = points(number(2, 5), description, width == 1 ? 10000000 : 1000), width](VEK::CSurface& s) {
            s.clipTo(30, 20, 290, 200);
            s.pen(width, 0xFF);
            const int counts[] = {2, static_cast<int>(list.size()) - 2};
            s.polylines(list.data(), counts, 2);
        };
    });
}

TEST_F(RasterBesideGdi, RandomPolygons)
{
    stress(3000, [this](std::ostream& description) {
        const int pen = number(0, 2) * number(0, 2), filled = number(0, 3);
        description << "pen " << pen << " filled " << filled;
        return [list = points(number(1, 9), description), pen, filled](VEK::CSurface& s) {
            s.pen(pen, 0xFF);
            if (pen == 0)
                s.noPen();
            if (filled != 0)
                s.brush(0x8000);
            s.polygon(list.data(), static_cast<int>(list.size()));
        };
    });
}

TEST_F(RasterBesideGdi, RandomBoxes)
{
    stress(4000, [this](std::ostream& description) {
        const int pen = number(0, 3) * number(0, 2), round = number(0, 3);
        const int sizes[] = {8, 150, 6000};
        const int width = number(0, sizes[number(0, 2)]), height = number(0, sizes[number(0, 2)]);
        const int x = number(-20 - width / 2, kWidth), y = number(-20 - height / 2, kHeight);
        // In an ellipse of which it cuts off the ends GDI fills rows that lie anywhere, from memory that nobody set.
        const bool isCut = round != 0 && width > 2 && height > 0.75 * (width - 1) * (width - 1) - 1;
        const bool isFilled = !isCut && number(0, 1) != 0;
        description << "pen " << pen << " filled " << isFilled << " round " << round << " " << x << "," << y << " size "
                    << width << "," << height;
        const int left = number(0, 1) ? x : x + width, top = number(0, 1) ? y : y + height;
        return [=](VEK::CSurface& s) {
            s.pen(pen, 0xFF);
            if (pen == 0)
                s.noPen();
            if (isFilled)
                s.brush(0x8000);
            if (round != 0)
                s.ellipse(left, top, 2 * x + width - left, 2 * y + height - top);
            else
                s.rectangle(left, top, 2 * x + width - left, 2 * y + height - top);
        };
    });
}

TEST_F(RasterBesideGdi, RandomHoles)
{
    stress(2000, [this](std::ostream& description) {
        std::vector<std::vector<SurfacePoint>> holes;
        for (int i = number(1, 4); i > 0; --i)
            holes.push_back(points(number(3, 7), description));
        const int pen = number(1, 4);
        return [=, body = points(6, description)](VEK::CSurface& s) {
            s.clipTo(300, 20, 30, 200);
            for (const auto& hole : holes)
                s.clipOut(hole.data(), static_cast<int>(hole.size()));
            s.pen(pen, 0xFF);
            s.brush(0x8000);
            s.rectangle(0, 0, 200, 150);
            s.noBrush();
            s.polyline(body.data(), 6);
            s.ellipse(100, 50, 310, 210);
            s.clipRestore();
            s.pen(1, 0xFF0000);
            s.polygon(body.data(), 6);
        };
    });
}

} // namespace
