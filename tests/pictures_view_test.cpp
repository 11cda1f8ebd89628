#include <vek/pictures/picture_view.h>

#include <gtest/gtest.h>

#include <cmath>

namespace
{

VEK::PictureView view(int width, int height)
{
    VEK::PictureView v;
    v.width = width;
    v.height = height;
    return v;
}

TEST(PictureView, FitsIntoTheArea)
{
    VEK::PictureView small = view(40, 20);
    small.fit(101, 51);
    EXPECT_EQ(small.originX, 30);
    EXPECT_EQ(small.originY, 15);
    EXPECT_EQ(small.reduction(101, 51), 1.0);
    VEK::PictureView wide = view(400, 50);
    wide.fit(100, 50);
    EXPECT_EQ(wide.reduction(100, 50), 4.0);
    EXPECT_EQ(wide.originX, 0);
    EXPECT_EQ(wide.originY, 18); // (50 - 12.5) / 2
    wide.fit(0, 0);
    EXPECT_EQ(wide.reduction(0, 0), 1.0);
}

TEST(PictureView, WheelKeepsThePointUnderTheMouseAndStopsBehindItsLimits)
{
    VEK::PictureView v = view(100, 100);
    v.originX = 10;
    v.originY = 20;
    EXPECT_TRUE(v.wheel(1, 30, 0));
    EXPECT_EQ(v.originX, 0); // -20 becomes -30
    EXPECT_EQ(v.originY, 30);
    EXPECT_TRUE(v.wheel(-1, 30, 0));
    EXPECT_EQ(v.originX, 10);
    EXPECT_EQ(v.originY, 20);
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
