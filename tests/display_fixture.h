/// @file
/// Small makers that the tests of the display room share.
#pragma once

#include <vek/display.h>
#include <vek/draw.h>
#include <vek/values.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <string>
#include <utility>

namespace display_test
{

/// A display object whose protected operations a test may call.
class Gdx : public CVekGDX
{
public:
    using CVekGDX::cFlagSet;
    using CVekGDX::CVekGDX;
    using CVekGDX::flagSet;
    using CVekGDX::refresh_ext;
    using CVekGDX::removeItem;
};

inline Gdx plain()
{
    return Gdx(CVekColor(), CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
}

inline CVekArrayTempl<int> path(std::initializer_list<int> numbers)
{
    CVekArrayTempl<int> stack;
    for (const int number : numbers)
        stack.append(number);
    return stack;
}

inline CVekArrayTempl<double> doubles(std::initializer_list<double> values)
{
    CVekArrayTempl<double> list;
    for (const double value : values)
        list.append(value);
    return list;
}

inline CVekVertexArray line(double x1, double y1, double x2, double y2)
{
    return CVekVertexArray(CVekVertex({x1, y1, 0}, {x2, y2, 0}, 0.0));
}

inline CVekArrayTempl<CVekVertexArray> square(double side)
{
    CVekPoint3dArray corners;
    for (const auto& [x, y] : {std::pair(0.0, 0.0), std::pair(side, 0.0), std::pair(side, side), std::pair(0.0, side)})
        corners.append(CVekPoint3d(x, y, 0));
    CVekArrayTempl<CVekVertexArray> region;
    region[0].fromPoints(corners, true);
    return region;
}

inline void expectNear(const CVekPoint3d& actual, const CVekPoint3d& expected, double tolerance = 1e-9)
{
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(actual[axis], expected[axis], tolerance) << "axis " << axis;
}

inline void expectExtents(const CVekGDX& gdx, const CVekPoint3d& min, const CVekPoint3d& max)
{
    CVekPoint3d actualMin;
    CVekPoint3d actualMax;
    ASSERT_TRUE(gdx.extmaxGet(actualMin, actualMax));
    expectNear(actualMin, min);
    expectNear(actualMax, max);
}

} // namespace display_test
