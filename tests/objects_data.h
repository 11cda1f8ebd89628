/// @file
/// Object data for tests, written as JSON, and random placements with what they mean.
#pragma once

#include <vek/json.h>
#include <vek/objects.h>

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <string>

namespace objects_test
{

/// A tree from JSON; apostrophes stand for quotation marks.
inline CVekDataItem tree(std::string text)
{
    for (char& c : text)
        c = c == '\'' ? '"' : c;
    CVekDataItem item;
    CVekString error;
    EXPECT_TRUE(VEK::jsonRead(item, text.data(), text.size(), L"t", error)) << text << " " << *VEK::toUtf8(error).begin();
    return item;
}

inline double uniform(std::mt19937& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

inline CVekVector3d vector(std::mt19937& random, double size)
{
    return {uniform(random, -size, size), uniform(random, -size, size), uniform(random, -size, size)};
}

/// A point as JSON, to the last bit.
inline std::string json(const CVekVector3d& v)
{
    std::ostringstream out;
    out.precision(17);
    out << "{'@point': [" << v.x << ", " << v.y << ", " << v.z << "]}";
    return out.str();
}

inline void expectNear(const CVekMatrix3d& a, const CVekMatrix3d& b)
{
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            EXPECT_NEAR(a[row][column], b[row][column], 1e-9 * (1.0 + std::fabs(b[row][column])))
                << row << ' ' << column;
    }
}

/// What a placement means, by rows of plain arithmetic.
struct Placed {
    double m[3][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}};

    Placed by(const Placed& inner) const
    {
        Placed product;
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 4; ++j) {
                product.m[i][j] = j == 3 ? m[i][3] : 0.0;
                for (int k = 0; k < 3; ++k)
                    product.m[i][j] += m[i][k] * inner.m[k][j];
            }
        }
        return product;
    }

    CVekMatrix3d matrix() const
    {
        CVekMatrix3d result;
        for (int i = 0; i < 12; ++i)
            result[i / 4][i % 4] = m[i / 4][i % 4];
        return result;
    }
};

/// A random placement in one of its forms: its keys, and what they mean.
inline std::string placement(std::mt19937& random, Placed& meaning)
{
    CVekVector3d z = vector(random, 1.0).normalize();
    CVekVector3d x = (vector(random, 1.0) * z).normalize();
    const CVekVector3d y = z * x;
    const CVekVector3d origin = vector(random, 1000.0);
    const double angle = uniform(random, -4.0, 4.0);
    const CVekVector3d factors = vector(random, 2.0);
    const int form = static_cast<int>(random() % 5);
    const bool turns = form > 0 && random() % 2;
    const CVekVector3d scale = form == 3 ? factors : form == 4 ? CVekVector3d(factors.x, factors.x, factors.x)
                                                               : CVekVector3d(1, 1, 1);
    const double c = turns ? std::cos(angle) : 1.0;
    const double s = turns ? std::sin(angle) : 0.0;
    for (int i = 0; i < 3; ++i) {
        meaning.m[i][0] = (x[i] * c + y[i] * s) * scale.x;
        meaning.m[i][1] = (y[i] * c - x[i] * s) * scale.y;
        meaning.m[i][2] = z[i] * scale.z;
        meaning.m[i][3] = origin[i];
    }
    std::ostringstream out;
    out.precision(17);
    if (form == 0) {
        out << "'MTX': {'@matrix': [";
        for (int i = 0; i < 12; ++i)
            out << (i % 4 ? ", " : "[") << meaning.m[i / 4][i % 4] << (i % 4 == 3 ? "], " : "");
        out << "[0, 0, 0, 1]]}, 'ORG': {'@point': [1, 2, 3]}";
    } else {
        out << "'XDIR': " << json(x * 3.0 + z * uniform(random, -5.0, 5.0));
        if (form == 1)
            out << ", 'AXIS': {'@points': [" << json(origin).substr(11, json(origin).size() - 12) << ", "
                << json(origin + z * 7.0).substr(11, json(origin + z * 7.0).size() - 12) << "]}";
        else
            out << ", 'ORG': " << json(origin) << ", 'ZDIR': " << json(z * 0.01);
    }
    if (turns)
        out << ", 'ROT': " << std::showpoint << angle;
    if (form == 3)
        out << ", 'SCALE': " << json(scale);
    if (form == 4)
        out << ", 'SCALE': " << std::showpoint << scale.x;
    return out.str();
}

} // namespace objects_test
