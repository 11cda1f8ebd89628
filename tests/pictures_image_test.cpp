#include "core/platform/platform.h"
#include "display_fixture.h"
#include "slide_bytes.h"

#include <vek/data.h>
#include <vek/geometry.h>

#include <filesystem>

using namespace display_test;
using slide_test::Bytes;

namespace
{

/// A line, two fills of which the first is clockwise, and a line, in colour 3 from the second fill on.
Bytes richSlide()
{
    return slide_test::withWords(slide_test::littleHeader(),
                                 {1,      2, 3,  4,      0xFD00, 3, -1, 0xFD00, 10, 10, 0xFD00, 10, 20, 0xFD00, 20, 20,
                                  0xFD00, 9, -9, 0xFF03, 0xFD00, 3, -1, 0xFD00, 30, 10, 0xFD00, 40, 10, 0xFD00, 40, 20,
                                  0xFD00, 9, -9, 5,      6,      7, 8,  0xFC00});
}

template <class Value>
CVekDataItem parameter(const wchar_t* name, const Value& value)
{
    CVekDataItem item(CVekDataItem::directory);
    const CVekDataKey key(name);
    VEK::dataItemSet(&item, &key, value);
    return item;
}

/// The items of a slide in an object of their own.
CVekGDX shown(const Bytes& slide, unsigned long flags = 0, const CVekDataItem* item = nullptr, bool result = true)
{
    CVekGDX gdx = plain();
    EXPECT_EQ(VEK::gdxImageSlide(&gdx, slide, flags, item), result);
    return gdx;
}

CVekArrayTempl<int> stackOf(const CVekGDX& gdx, int i)
{
    CVekArrayTempl<int> stack;
    gdx.itemStackGet(stack, i);
    return stack;
}

} // namespace

TEST(SlideImage, OneItemForEachLineAndFill)
{
    Bytes slide = richSlide();
    std::fill(slide.begin() + 19, slide.begin() + 23, static_cast<unsigned char>(0)); // no extent, no matter here
    const CVekGDX gdx = shown(slide);
    ASSERT_EQ(gdx.lenGet(), 4);
    CVekVertexArray vl;
    gdx.geomGet(vl, 0);
    EXPECT_EQ(vl, line(1, 2, 3, 4));
    gdx.geomGet(vl, 3);
    EXPECT_EQ(vl, line(5, 6, 7, 8));
    EXPECT_EQ(gdx.linetypeGet(0), doubles({1.0}));
    EXPECT_EQ(gdx.ltscaleGet(0), 1.0);
    EXPECT_EQ(gdx.thicknGet(0), 0);

    // Fills: one closed contour, counter-clockwise whichever way the slide has it.
    for (const int i : {1, 2}) {
        EXPECT_EQ(gdx.typeGet(i), dispRegion);
        CVekGDX::Region region;
        gdx.geomGet(region, i);
        ASSERT_EQ(region.len(), 1);
        EXPECT_EQ(region[0].len(), 3);
        EXPECT_TRUE(region[0].isClosed());
        EXPECT_EQ(shapes::areaOf(region[0]), 50.0);
    }
    // Without a colour record a default colour, then the index; a fill has its colour twice.
    CVekColor green;
    green.setColorIndex(3);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(gdx.colorGet(i), i < 2 ? CVekColor() : green);
    EXPECT_EQ(gdx.fcolorGet(2), green);
}

TEST(SlideImage, FillFlagEndsWithTheFirstFill)
{
    const CVekGDX gdx = shown(richSlide(), itemFill | itemOutline);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(gdx.flagGet(i), unsigned(i < 3 ? itemFill | itemOutline : itemOutline)) << i;
}

TEST(SlideImage, CountsInTheFirstElementOfThePath)
{
    const CVekDataItem two = parameter(L"STACK", path({5, 7})), one = parameter(L"STACK", 8);
    const CVekGDX fresh = shown(richSlide()), given = shown(richSlide(), 0, &two), single = shown(richSlide(), 0, &one);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(stackOf(fresh, i), path({1 + i}));
        EXPECT_EQ(stackOf(given, i), path({5 + i, 7, 1}));
        EXPECT_EQ(stackOf(single, i), path({8 + i, 1}));
    }
}

TEST(SlideImage, ResultIsWhetherTheCounterIsAboveOne)
{
    const CVekDataItem above = parameter(L"STACK", path({5, 7})), below = parameter(L"STACK", path({-10})),
                       largest = parameter(L"STACK", path({2147483646}));
    const Bytes nothing = slide_test::withWords(slide_test::littleHeader(), {0xFF01, 0xFF02, 0xFC00});
    EXPECT_EQ(shown(nothing, 0, nullptr, false).lenGet(), 0);
    EXPECT_EQ(shown(nothing, 0, &above).lenGet(), 0);
    // Below 1 it stays false although items were added, and the largest number begins again from below.
    EXPECT_EQ(shown(richSlide(), 0, &below, false).lenGet(), 4);
    EXPECT_EQ(stackOf(shown(richSlide(), 0, &largest, false), 2), path({-2147483647 - 1, 1}));

    Bytes unknown = richSlide();
    unknown[18] = 3;
    EXPECT_EQ(shown(unknown, 0, &above, false).lenGet(), 0);
    shown({}, 0, &above, false);
    EXPECT_FALSE(VEK::gdxImageSlide(nullptr, richSlide(), 0, &above));
}

TEST(SlideImage, MatrixPlacesTheItems)
{
    CVekMatrix3d twice;
    twice.setToScaling(2.0, CVekPoint3d::kOrigin);
    const CVekDataItem item = parameter(L"MTX", twice);
    CVekGDX gdx = shown(richSlide());
    expectExtents(gdx, {1, 2, 0}, {40, 20, 0});
    gdx = shown(richSlide(), 0, &item);
    expectExtents(gdx, {2, 4, 0}, {80, 40, 0});
}

TEST(SlideImage, OfALibrary)
{
    const std::wstring file = VEK::platform::textOf(std::filesystem::path(VEK_SOURCE_DIR) / "examples" / "facade.slb");
    CVekGDX gdx = plain();
    EXPECT_FALSE(vek_gdx_image_sld(&gdx, nullptr, file.c_str(), 0, nullptr));
    for (const wchar_t* library : {static_cast<const wchar_t*>(nullptr), L""})
        EXPECT_FALSE(vek_gdx_image_sld(&gdx, L"PFOSTEN", library, 0, nullptr));
    EXPECT_FALSE(vek_gdx_image_sld(&gdx, L"NOWHERE", file.c_str(), 0, nullptr));
    for (const wchar_t* name : {L"PFOSTEN", L"LEER"})
        EXPECT_FALSE(vek_gdx_image_sld(nullptr, name, file.c_str(), 0, nullptr));
    EXPECT_EQ(gdx.lenGet(), 0);
    for (const wchar_t* name : {L"pfosten", L"Eckwinkel", L"D\u00E4mmpaneel", L"TRENNSTEG"}) {
        gdx.clear();
        EXPECT_TRUE(vek_gdx_image_sld(&gdx, name, file.c_str(), 0, nullptr));
        EXPECT_GT(gdx.lenGet(), 100) << name;
    }
    for (const wchar_t* name : {L"LEER", L"leer", L"Leer"}) {
        gdx.clear();
        EXPECT_TRUE(vek_gdx_image_sld(&gdx, name, nullptr, itemFill, nullptr));
        ASSERT_EQ(gdx.lenGet(), 1);
        const CVekDisplayItem& item = gdx.getDisplayList()[0];
        EXPECT_TRUE(item.type == dispPoint && item.flag == itemHidden && item.stack.len() == 0);
        EXPECT_TRUE(item.point == CVekPoint3d() && item.color == CVekColor());
        EXPECT_TRUE(item.pdSize == 0.0 && item.pdMode == 0xFFFFFFFF);
    }
}
