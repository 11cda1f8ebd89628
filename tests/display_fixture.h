/// @file
/// Small makers that the tests of the display room share.
#pragma once

#include "shapes.h"

#include <vek/display.h>
#include <vek/draw.h>
#include <vek/values.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>

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

inline CVekColor rgb(unsigned long value)
{
    CVekColor color;
    color.setColor(value);
    return color;
}

inline CVekColor indexed(short index)
{
    CVekColor color;
    color.setColorIndex(index);
    return color;
}

inline CVekArrayTempl<int> path(CVekArrayTempl<int> numbers)
{
    return numbers;
}

inline CVekArrayTempl<double> doubles(CVekArrayTempl<double> values)
{
    return values;
}

inline CVekVertexArray line(double x1, double y1, double x2, double y2)
{
    return shapes::line(x1, y1, x2, y2);
}

inline CVekArrayTempl<CVekVertexArray> square(double side)
{
    return shapes::list({shapes::rectangle(0, 0, side, side)});
}

inline void expectNear(const CVekPoint3d& actual, const CVekPoint3d& expected, double tolerance = 1e-9)
{
    for (int axis = 0; axis < 3; ++axis)
        EXPECT_NEAR(actual[axis], expected[axis], tolerance) << "axis " << axis;
}

inline void expectExtents(const CVekGDX& gdx, const CVekPoint3d& min, const CVekPoint3d& max)
{
    CVekPoint3d actualMin, actualMax;
    ASSERT_TRUE(gdx.extmaxGet(actualMin, actualMax));
    expectNear(actualMin, min);
    expectNear(actualMax, max);
}

} // namespace display_test
