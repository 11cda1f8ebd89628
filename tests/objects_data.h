/// @file
/// Object data for tests.
#pragma once

#include <vek/json.h>
#include <vek/objects.h>

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace objects_test
{

/// A tree from JSON, in which apostrophes may stand for quotation marks.
inline CVekDataItem tree(std::string text)
{
    for (char& c : text)
        c = c == '\'' ? '"' : c;
    CVekDataItem item;
    CVekString error;
    EXPECT_TRUE(VEK::jsonRead(item, text.data(), text.size(), L"t", error)) << text;
    return item;
}

inline std::string json(const CVekDataItem& item)
{
    std::string text;
    CVekString error;
    EXPECT_TRUE(VEK::jsonWrite(item, text, L"t", error));
    return text;
}

inline std::string narrow(const CVekString& text)
{
    const CVekArrayTempl<char> utf8 = VEK::toUtf8(text);
    return std::string(utf8.begin(), utf8.end());
}

inline double uniform(std::mt19937& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

inline CVekVector3d vector(std::mt19937& random, double size)
{
    return {uniform(random, -size, size), uniform(random, -size, size), uniform(random, -size, size)};
}

/// Gives an item a placement in one of its forms.
/// @return what it means: axes worked out one by one
inline CVekMatrix3d place(CVekDataItem& item, std::mt19937& random)
{
    const CVekVector3d z = vector(random, 1.0).normalize();
    const CVekVector3d x = (vector(random, 1.0) * z).normalize();
    const CVekVector3d y = z * x;
    const CVekPoint3d origin = vector(random, 1000.0).asPoint();
    const int form = static_cast<int>(random() % 5);
    const double angle = form > 1 ? uniform(random, -4.0, 4.0) : 0.0;
    CVekVector3d scale(1.0, 1.0, 1.0);
    if (form > 2)
        scale = vector(random, 2.0);
    if (form == 3)
        scale.y = scale.z = scale.x;
    const double c = std::cos(angle), s = std::sin(angle);
    CVekMatrix3d m;
    m.setCoordSystem(origin, (x * c + y * s) * scale.x, (y * c - x * s) * scale.y, z * scale.z);
    VEK::dataSet(&item, L"ORG", form ? origin : CVekPoint3d(1, 2, 3));
    VEK::dataSet(&item, L"XDIR", (x * 3.0 + z * uniform(random, -5.0, 5.0)).asPoint());
    if (form == 0)
        VEK::dataSet(&item, L"MTX", m);
    if (form == 1)
        VEK::dataSet(&item, L"AXIS", CVekPoint3dArray{origin, origin + z * 7.0});
    else
        VEK::dataSet(&item, L"ZDIR", (z * 0.01).asPoint());
    if (angle != 0.0)
        VEK::dataSet(&item, L"ROT", angle);
    if (form == 3)
        VEK::dataSet(&item, L"SCALE", scale.x);
    if (form == 4)
        VEK::dataSet(&item, L"SCALE", scale.asPoint());
    return m;
}

inline void expectNear(const CVekMatrix3d& a, const CVekMatrix3d& b)
{
    for (int i = 0; i < 12; ++i)
        EXPECT_NEAR(a[i / 4][i % 4], b[i / 4][i % 4], 1e-9 * (1.0 + std::fabs(b[i / 4][i % 4]))) << i;
}

using Map = CVekMapTempl<BgrBt, CVekDataItem>;

/// An element of the map as an image takes it from the services.
struct Taken {
    VEK::CUniqPointer<CVekDataItem> merged;
    CVekDataItem* parm;
    CVekMatrix3d m;

    Taken(Map& map, int index, const CVekMatrix3d& mtx = CVekMatrix3d(), double scale = 1.0)
    {
        const BgrBt& key = map.keyAt(index);
        CVekDataItem& value = map.valueAt(index);
        merged = VEK::CUniqPointer<CVekDataItem>(VEK::bgr_data_merge(key.first, key.second, nullptr));
        parm = value.makeDir(L"PARM");
        Vek::lUnit units[2] = {};
        VEK::lobj_unit(key.first, units[0]);
        VEK::bgr_bt_unit(key.first, key.second, units[1]);
        VEK::dataSet(parm, L"DEFUNIT", units[0]);
        VEK::dataSet(parm, L"INSUNIT", units[1]);
        double aux = 7.0;
        m = VEK::getBtTransformation(merged, &value, mtx, scale, aux);
        EXPECT_EQ(aux, 7.0);
    }
};

} // namespace objects_test
