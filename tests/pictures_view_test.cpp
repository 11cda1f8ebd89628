#include <vek/pictures/picture_view.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace
{

TEST(PictureView, FitsIntoTheArea)
{
    struct Case {
        int width, height, areaWidth, areaHeight;
        double reduction;
        int originX, originY;
    };
    const Case cases[] = {{40, 20, 101, 51, 1.0, 30, 15},
                          {400, 50, 100, 50, 4.0, 0, 18}, // (50 - 12.5) / 2
                          {30, 200, 100, 50, 4.0, 46, 0},
                          {40, 20, 0, 0, 1.0, -20, -10}};
    for (const Case& c : cases) {
        VEK::PictureView v;
        v.width = c.width;
        v.height = c.height;
        v.zoom = 9.0;
        v.fit(c.areaWidth, c.areaHeight);
        EXPECT_EQ(v.reduction(c.areaWidth, c.areaHeight), c.reduction) << c.width;
        EXPECT_EQ(v.originX, c.originX) << c.width;
        EXPECT_EQ(v.originY, c.originY) << c.width;
        EXPECT_EQ(v.zoom, 1.0);
    }
}

TEST(PictureView, WheelKeepsThePointUnderTheMouseAndComesBack)
{
    std::mt19937 random(5);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    for (int round = 0; round < 2000; ++round) {
        VEK::PictureView v;
        const int x = upTo(3000) - 1000, y = upTo(3000) - 1000, mouseX = upTo(2000), mouseY = upTo(2000);
        v.originX = x;
        v.originY = y;
        std::vector<int> steps;
        for (int i = upTo(9); i >= 0; --i) {
            steps.push_back(upTo(1) ? 1 + upTo(240) : -upTo(240));
            if (!v.wheel(steps.back(), mouseX, mouseY))
                steps.pop_back();
            EXPECT_NEAR(v.originX, mouseX + (x - mouseX) * v.zoom, 0.5001);
            EXPECT_NEAR(v.originY, mouseY + (y - mouseY) * v.zoom, 0.5001);
        }
        for (std::size_t i = steps.size(); i > 0; --i)
            v.wheel(steps[i - 1] > 0 ? -1 : 1, mouseX, mouseY);
        ASSERT_EQ(v.originX, x) << round;
        ASSERT_EQ(v.originY, y) << round;
    }
}

TEST(PictureView, WheelStopsOneStepBehindItsLimits)
{
    VEK::PictureView v;
    EXPECT_TRUE(v.wheel(0, 0, 0)); // 0.667
    EXPECT_TRUE(v.wheel(-120, 0, 0));
    EXPECT_FALSE(v.wheel(-120, 0, 0));
    EXPECT_NEAR(v.zoom, 4.0 / 9.0, 1e-12);
    int steps = 0;
    while (v.wheel(120, 0, 0))
        ++steps;
    EXPECT_EQ(steps, 10);
    EXPECT_NEAR(v.zoom, std::pow(1.5, 8), 1e-9);
}

TEST(PictureView, LengthsBecomeWholePixels)
{
    EXPECT_EQ(VEK::pixelsOfHimetric(2540, 96), 96);
    EXPECT_EQ(VEK::pixelsOfHimetric(1058, 96), 40); // 39.99
    EXPECT_EQ(VEK::pixelsOfHimetric(0x7FFFFFFF, 0x7FFFFFFF), 0x7FFFFFFF);
}

} // namespace
