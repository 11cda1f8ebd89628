// Outlines in the data tree, and the library of standard outlines.
#include <vek/data/dir.h>
#include <vek/data/iterator.h>
#include <vek/objects/outline.h>

#include "shapes.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

using namespace shapes;

/// A kind with the default parameters of a range, as an item of the data form.
CVekDataItem withDefaults(const CVekDataItem& entry, int range)
{
    CVekDataItem item(CVekDataItem::directory);
    VEK::dataSet(&item, L"CODE", static_cast<int>(*entry.getKey()));
    int count = 0;
    VEK::dataGet(&entry, L"PARMS", count);
    for (int i = 1; i <= count; ++i) {
        const std::wstring name = L"PARM" + std::to_wstring(i);
        const CVekDataKey from(5005, name.c_str(), 5005, L"VAL", 5003, range, 0), to(5005, L"PARMS", 5003, i, 0);
        double value = -1.0;
        EXPECT_TRUE(VEK::dataItemGet(&entry, &from, value)) << i;
        VEK::dataItemSet(&item, &to, value);
    }
    return item;
}

void setParameter(CVekDataItem& item, int number, double value)
{
    const CVekDataKey key(5005, L"PARMS", 5003, number, 0);
    VEK::dataItemSet(&item, &key, value);
}

bool isShape(const CVekDataItem& item)
{
    CVekVertexArray vl;
    return VEK::g_outline(vl, &item, Vek::unitCurrent);
}

/// Whether two segments of a polyline cross at an angle, by brute force over chords.
bool crossesItself(const CVekVertexArray& vl)
{
    const CVekPoint3dArray p = vl.pts(true, 0.02);
    const auto side = [&](int a, int b, int c) { return ((p[b] - p[a]) * (p[c] - p[a]))[2]; };
    for (int i = 1; i < p.len(); ++i)
        for (int k = i + 1; k < p.len(); ++k)
            if (side(i - 1, i, k - 1) * side(i - 1, i, k) < -1e-12 &&
                side(k - 1, k, i - 1) * side(k - 1, k, i) < -1e-12)
                return true;
    return false;
}

TEST(ObjectsOutline, TheLibraryIsCompleteAndItsDefaultsAreShapes)
{
    CVekDataItem library;
    VEK::dataSet(&library, L"OLD", 1);
    ASSERT_TRUE(VEK::outlineInit(&library));
    ASSERT_EQ(library.getDir()->len(), VEK::outlineKinds);
    int judged = 0, words = 0, groups[4] = {};
    for (VEK::CDataIterator entry(&library); !entry.done(); entry.next()) {
        const int code = *entry->getKey();
        SCOPED_TRACE(code);
        int mask = 0, textgen = 0, count = 0;
        CVekString label;
        EXPECT_TRUE(VEK::dataGet(entry, L"CODE", mask) && mask > 0 && mask < 16);
        EXPECT_TRUE(VEK::dataGet(entry, L"TXTGEN", textgen) && textgen >= 1 && textgen <= 3);
        EXPECT_TRUE(VEK::dataGet(entry, L"PARMS", count) && count >= 1 && count <= 6);
        EXPECT_TRUE(VEK::dataGet(entry, L"LABEL", label) && !VEK::outlineText(label).isNull());
        for (int bit = 0; bit < 4; ++bit)
            groups[bit] += mask >> bit & 1;
        for (int range = 1; range <= 4; ++range) {
            CVekVertexArray vl;
            const CVekDataItem item = withDefaults(*entry, range);
            ASSERT_TRUE(VEK::g_outline(vl, &item, -1)) << range;
            EXPECT_TRUE(vl.isClosed() && vl.isContinuous() && VEK::g_vl_orient(vl, CVekVector3d::kZAxis)) << range;
            EXPECT_FALSE(range > 2 && crossesItself(vl)) << range;
            VEK::VertexArrays region;
            ASSERT_TRUE(VEK::g_outline_region(region, &item, Vek::unitCurrent));
            double area = areaOf(region[0]);
            for (int hole = 1; hole < region.len(); ++hole)
                area -= areaOf(region[hole]);
            EXPECT_NEAR(areaOf(vl), area, 1e-6 * area);
            ++judged;
        }
        // What the fields let through is what the shape takes.
        for (int i = 1; i <= count; ++i) {
            SCOPED_TRACE(i);
            const CVekDataItem* parameter = entry->getItem((L"PARM" + std::to_wstring(i)).c_str());
            ASSERT_TRUE(parameter);
            int valid = 0;
            EXPECT_TRUE(VEK::dataGet(parameter, L"LABEL", label) && !VEK::outlineText(label).isNull());
            EXPECT_TRUE(VEK::dataGet(parameter, L"VALID", valid) && (valid & 1) && (valid & 4));
            const bool negative = VEK::dataGet(parameter, L"MINUSP", label);
            EXPECT_TRUE(!negative || !VEK::outlineText(label).isNull());
            const CVekDataItem sound = withDefaults(*entry, 3);
            CVekDataItem item = sound;
            setParameter(item, i, 0.0);
            EXPECT_EQ(isShape(item), !(valid & 2));
            const CVekDataKey key(5005, L"PARMS", 5003, i, 0);
            double value = 0.0;
            VEK::dataItemGet(&sound, &key, value);
            setParameter(item, i, -value);
            EXPECT_EQ(isShape(item), negative);
            const bool angle = VEK::dataGet(parameter, L"TYPE", label) && label == L"A";
            for (VEK::CDataIterator word(parameter->getItem(L"KWORD")); !word.done(); word.next(), ++words) {
                EXPECT_TRUE(word->get(value));
                setParameter(item, i, angle ? value * 180 / pi : value);
                EXPECT_TRUE(isShape(item)) << value;
            }
        }
    }
    EXPECT_EQ(judged, 4 * 41);
    EXPECT_EQ(words, 8 + 8 + 8 + 2) << "circle, slot, hexagon, sector";
    for (const int size : groups)
        EXPECT_GE(size, 8);
    EXPECT_FALSE(VEK::outlineInit(nullptr));
    for (const wchar_t* key :
         {L"VEK_OUTL_1000", L"VEK_OUTL_1042", L"VEK_OUTL_3000", L"VEK_OUTL_10010", L"VEK_OUTL_", L""})
        EXPECT_TRUE(VEK::outlineText(key).isNull());
}

TEST(ObjectsOutline, ReadsItemsInAnyUnit)
{
    const double metres[] = {0, 0.0254, 0, 0, 0.001, 0.01, 1};
    Random random(7);
    CVekDataItem library;
    VEK::outlineInit(&library);
    int judged = 0;
    for (VEK::CDataIterator entry(&library); !entry.done(); entry.next(), ++judged) {
        CVekDataItem item = withDefaults(*entry, 1 + random.whole(4)), stored;
        const CVekPoint3d base(random.uniform(-9, 9), random.uniform(-9, 9), 0);
        const int from = static_cast<int>(random.pick({1, 4, 5, 6})),
                  to = static_cast<int>(random.pick({1, 4, 5, 6, -1}));
        CVekVertexArray plain, read, again;
        ASSERT_TRUE(VEK::g_outline(plain, &item, -1));
        VEK::dataSet(&item, L"BASE", base);
        VEK::dataSet(&item, L"UNIT", static_cast<Vek::lUnit>(from));
        ASSERT_TRUE(VEK::g_outline(read, &item, to));
        const double factor = metres[from] / metres[to < 0 ? 4 : to];
        ASSERT_EQ(read.len(), plain.len());
        for (int i = 0; i < plain.len(); ++i) {
            const CVekPoint3d at = plain[i].start + base.asVector();
            EXPECT_LT(read[i].start.distanceTo((at.asVector() * factor).asPoint()), 1e-9 * factor * 1000);
            EXPECT_EQ(read[i].bulge, plain[i].bulge);
        }
        VEK::dataSet(&stored, L"VL", read);
        EXPECT_TRUE(VEK::g_outline(again, &stored, -1));
        EXPECT_TRUE(again == read);
        EXPECT_TRUE(VEK::g_outline(again, stored.getItem(L"VL"), -1) && again == read) << "the polyline itself";
    }
    EXPECT_EQ(judged, 41);
}

TEST(ObjectsOutline, AnythingElseIsNoOutline)
{
    CVekDataItem library, ignored;
    VEK::outlineInit(&library);
    const CVekDataKey angle(CVekDataKey::keyInt, 13);
    const CVekDataItem sound = withDefaults(*library.getItem(&angle), 3);
    CVekVertexArray vl(line(1, 2, 3, 4));
    const CVekVertexArray before = vl;
    const auto isRefused = [&](const CVekDataKey& key, const auto& value) {
        CVekDataItem broken = sound;
        return VEK::dataItemSet(&broken, &key, value) && !VEK::g_outline(vl, &broken, -1) && vl == before;
    };
    EXPECT_TRUE(isRefused(L"CODE", L"13") && isRefused(L"CODE", 0) && isRefused(L"CODE", 42));
    EXPECT_TRUE(isRefused(L"PARMS", 5.0) && isRefused(L"PARMS", L"60"));
    EXPECT_TRUE(isRefused(L"BASE", CVekPoint3d(VEK::nan(), 0, 0)) && isRefused(L"BASE", CVekPoint3d(0, HUGE_VAL, 0)));
    for (int i = 1; i <= 5; ++i) {
        const CVekDataKey key(5005, L"PARMS", 5003, i, 0);
        EXPECT_TRUE(isRefused(key, VEK::nan()) && isRefused(key, L"8")) << i;
    }
    EXPECT_FALSE(VEK::g_outline(vl, nullptr, -1) || VEK::g_outline(vl, &library, -1));
    ignored = sound;
    VEK::dataSet(&ignored, L"BASE", 3);
    VEK::dataSet(&ignored, L"UNIT", CVekString(L"mm"));
    EXPECT_TRUE(isShape(ignored)) << "what may be missing";
}

} // namespace
