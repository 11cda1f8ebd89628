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

CVekDataItem parameters(std::initializer_list<int> stack)
{
    CVekDataItem item(CVekDataItem::directory);
    const CVekDataKey key(L"STACK");
    VEK::dataItemSet(&item, &key, path(stack));
    return item;
}

CVekArrayTempl<int> stackOf(const CVekGDX& gdx, int i)
{
    CVekArrayTempl<int> stack;
    gdx.itemStackGet(stack, i);
    return stack;
}

std::wstring facade()
{
    return VEK::platform::textOf(std::filesystem::path(VEK_SOURCE_DIR) / "examples" / "facade.slb");
}

} // namespace

TEST(SlideImage, OneItemForEachLineAndFill)
{
    CVekGDX gdx = plain();
    ASSERT_TRUE(VEK::gdxImageSlide(&gdx, richSlide(), 0, nullptr));
    ASSERT_EQ(gdx.lenGet(), 4);
    EXPECT_EQ(gdx.typeGet(0), dispPolyline);
    CVekVertexArray vl;
    gdx.geomGet(vl, 0);
    EXPECT_EQ(vl, line(1, 2, 3, 4));
    EXPECT_EQ(gdx.linetypeGet(0), doubles({1.0}));
    EXPECT_EQ(gdx.ltscaleGet(0), 1.0);
    EXPECT_EQ(gdx.thicknGet(0), 0);
    EXPECT_EQ(gdx.mtxGet(0), CVekMatrix3d::kIdentity);
    gdx.geomGet(vl, 3);
    EXPECT_EQ(vl, line(5, 6, 7, 8));

    // Fills: one closed contour, counter-clockwise whichever way the slide has it.
    for (const int i : {1, 2}) {
        EXPECT_EQ(gdx.typeGet(i), dispRegion);
        CVekGDX::Region region;
        gdx.geomGet(region, i);
        ASSERT_EQ(region.len(), 1);
        EXPECT_EQ(region[0].len(), 3);
        EXPECT_TRUE(region[0].isClosed());
        double twiceArea = 0.0;
        for (const CVekVertex& vertex : region[0])
            twiceArea += vertex.start[0] * vertex.end[1] - vertex.start[1] * vertex.end[0];
        EXPECT_EQ(twiceArea, 100.0);
    }
    // Without a colour record a default colour, then the index; a fill has its colour twice.
    EXPECT_EQ(gdx.colorGet(0), CVekColor());
    EXPECT_EQ(gdx.colorGet(1), CVekColor());
    CVekColor green;
    green.setColorIndex(3);
    EXPECT_EQ(gdx.colorGet(2), green);
    EXPECT_EQ(gdx.fcolorGet(2), green);
    EXPECT_EQ(gdx.colorGet(3), green);
    expectExtents(gdx, {1, 2, 0}, {40, 20, 0});
}

TEST(SlideImage, FillFlagEndsWithTheFirstFill)
{
    CVekGDX gdx = plain();
    ASSERT_TRUE(VEK::gdxImageSlide(&gdx, richSlide(), itemFill | itemOutline, nullptr));
    EXPECT_EQ(gdx.flagGet(0), unsigned{itemFill | itemOutline});
    EXPECT_EQ(gdx.flagGet(1), unsigned{itemFill | itemOutline});
    EXPECT_EQ(gdx.flagGet(2), unsigned{itemFill | itemOutline});
    EXPECT_EQ(gdx.flagGet(3), unsigned{itemOutline});
}

TEST(SlideImage, CountsInTheFirstElementOfThePath)
{
    CVekGDX fresh = plain();
    ASSERT_TRUE(VEK::gdxImageSlide(&fresh, richSlide(), 0, nullptr));
    CVekGDX given = plain();
    CVekDataItem two = parameters({5, 7});
    ASSERT_TRUE(VEK::gdxImageSlide(&given, richSlide(), 0, &two));
    CVekDataItem single(CVekDataItem::directory);
    const CVekDataKey key(L"STACK");
    VEK::dataItemSet(&single, &key, 8);
    CVekGDX one = plain();
    ASSERT_TRUE(VEK::gdxImageSlide(&one, richSlide(), 0, &single));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(stackOf(fresh, i), path({1 + i}));
        EXPECT_EQ(stackOf(given, i), path({5 + i, 7, 1}));
        EXPECT_EQ(stackOf(one, i), path({8 + i, 1}));
    }
}

TEST(SlideImage, ResultIsWhetherTheCounterIsAboveOne)
{
    const Bytes nothing = slide_test::withWords(slide_test::littleHeader(), {0xFF01, 0xFF02, 0xFC00});
    CVekGDX gdx = plain();
    EXPECT_FALSE(VEK::gdxImageSlide(&gdx, nothing, 0, nullptr));
    CVekDataItem above = parameters({5, 7});
    EXPECT_TRUE(VEK::gdxImageSlide(&gdx, nothing, 0, &above));
    EXPECT_EQ(gdx.lenGet(), 0);
    // Below 1 it stays false although items were added, and the largest number begins again from below.
    CVekDataItem below = parameters({-10});
    EXPECT_FALSE(VEK::gdxImageSlide(&gdx, richSlide(), 0, &below));
    EXPECT_EQ(gdx.lenGet(), 4);
    CVekDataItem largest = parameters({2147483646});
    EXPECT_FALSE(VEK::gdxImageSlide(&gdx, richSlide(), 0, &largest));
    EXPECT_EQ(stackOf(gdx, 6), path({-2147483647 - 1, 1}));
}

TEST(SlideImage, MatrixPlacesTheItems)
{
    CVekMatrix3d twice;
    twice.setToScaling(2.0, CVekPoint3d::kOrigin);
    CVekDataItem item(CVekDataItem::directory);
    const CVekDataKey key(L"MTX");
    VEK::dataItemSet(&item, &key, twice);
    CVekGDX gdx = plain();
    ASSERT_TRUE(VEK::gdxImageSlide(&gdx, richSlide(), 0, &item));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(gdx.mtxGet(i), twice);
    expectExtents(gdx, {2, 4, 0}, {80, 40, 0});
}

TEST(SlideImage, HighestPointOfZeroDoesNotMatterHere)
{
    Bytes slide = richSlide();
    std::fill(slide.begin() + 19, slide.begin() + 23, static_cast<unsigned char>(0));
    CVekGDX gdx = plain();
    EXPECT_TRUE(VEK::gdxImageSlide(&gdx, slide, 0, nullptr));
    EXPECT_EQ(gdx.lenGet(), 4);
}

TEST(SlideImage, UnknownLevelAndNoData)
{
    Bytes slide = richSlide();
    slide[18] = 3;
    CVekDataItem above = parameters({5});
    CVekGDX gdx = plain();
    EXPECT_FALSE(VEK::gdxImageSlide(&gdx, slide, 0, &above));
    EXPECT_FALSE(VEK::gdxImageSlide(&gdx, {}, 0, &above));
    EXPECT_FALSE(VEK::gdxImageSlide(nullptr, richSlide(), 0, &above));
    EXPECT_EQ(gdx.lenGet(), 0);
}

TEST(SlideImage, OfALibrary)
{
    const std::wstring file = facade();
    CVekGDX gdx = plain();
    EXPECT_FALSE(vek_gdx_image_sld(&gdx, nullptr, file.c_str(), 0, nullptr));
    EXPECT_FALSE(vek_gdx_image_sld(&gdx, L"PFOSTEN", nullptr, 0, nullptr));
    EXPECT_FALSE(vek_gdx_image_sld(&gdx, L"PFOSTEN", L"", 0, nullptr));
    EXPECT_FALSE(vek_gdx_image_sld(&gdx, L"NOWHERE", file.c_str(), 0, nullptr));
    EXPECT_FALSE(vek_gdx_image_sld(nullptr, L"PFOSTEN", file.c_str(), 0, nullptr));
    EXPECT_EQ(gdx.lenGet(), 0);
    for (const wchar_t* name : {L"pfosten", L"Eckwinkel", L"D\u00E4mmpaneel", L"TRENNSTEG"}) {
        gdx.clear();
        EXPECT_TRUE(vek_gdx_image_sld(&gdx, name, file.c_str(), 0, nullptr));
        EXPECT_GT(gdx.lenGet(), 100) << name;
    }
}

TEST(SlideImage, EmptySlide)
{
    for (const wchar_t* name : {L"LEER", L"leer", L"Leer"}) {
        CVekGDX gdx = plain();
        EXPECT_TRUE(vek_gdx_image_sld(&gdx, name, nullptr, itemFill, nullptr));
        ASSERT_EQ(gdx.lenGet(), 1);
        const CVekDisplayItem& item = gdx.getDisplayList()[0];
        EXPECT_EQ(item.type, dispPoint);
        EXPECT_EQ(item.flag, unsigned{itemHidden});
        EXPECT_EQ(item.stack.len(), 0);
        EXPECT_EQ(item.point, CVekPoint3d::kOrigin);
        EXPECT_EQ(item.color, CVekColor());
        EXPECT_EQ(item.pdSize, 0.0);
        EXPECT_EQ(item.pdMode, 0xFFFFFFFFu);
    }
    EXPECT_FALSE(vek_gdx_image_sld(nullptr, L"LEER", nullptr, 0, nullptr));
}
