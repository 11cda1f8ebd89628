#include "core/platform/platform.h"
#include "display_fixture.h"
#include "display_hash.h"
#include "slide_bytes.h"
#include "slide_writer.h"

#include <vek/data.h>

#include <filesystem>

using namespace display_test;
using slide_test::Bytes;

/// Random slides beside the items that their records must give.
TEST(SlideImage, HasAnItemForEachLineAndFill)
{
    shapes::Random random(3);
    int items = 0, unseen = 0;
    for (int round = 0; round < 500; ++round) {
        CVekDataItem parameters(CVekDataItem::directory);
        CVekArrayTempl<int> stack;
        for (int i = random.whole(3); i > 0; --i)
            stack.append(static_cast<int>(random.pick({-3, 0, 1, 5, 2147483646})));
        if (stack.len() == 1 && random.coin())
            VEK::dataSet(&parameters, L"STACK", stack[0]);
        else
            VEK::dataSetList(&parameters, L"STACK", stack);
        stack.append(1);
        const CVekMatrix3d m = random.coin() ? random.motion() : CVekMatrix3d();
        VEK::dataSet(&parameters, L"MTX", m);
        slides::SlideWriter writer(static_cast<slides::Format>(random.whole(3)), 900, 900);
        const unsigned flags = static_cast<unsigned>(random.whole(256));
        unsigned flag = flags;
        CVekColor color;
        Gdx expected = plain(), gdx = plain();
        for (int i = random.whole(9); i > 0; --i) {
            slides::Point at[3];
            for (slides::Point& point : at)
                point = {random.whole(900), 1 + random.whole(899)}; // a fill may begin elsewhere with a corner at 0
            if (const int kind = random.whole(3); kind == 0) {
                color.setColorIndex(static_cast<short>(at[0].x % 256));
                writer.color(at[0].x % 256);
                continue;
            } else if (kind == 1) {
                writer.line(at[0], at[1]);
                const CVekVertexArray vl = line(at[0].x, at[0].y, at[1].x, at[1].y);
                expected.imageVl(stack, flag, vl, color, m, doubles({1.0}), 1.0, 0, {});
            } else { // closed and counter-clockwise; no line behind it is marked as filled
                writer.fill({at[0], at[1], at[2]});
                CVekVertexArray vl = shapes::polygon({{at[0].x, at[0].y}, {at[1].x, at[1].y}, {at[2].x, at[2].y}});
                if (shapes::areaOf(vl) < 0.0)
                    vl.revert();
                expected.imageReg(stack, flag | itemFill, shapes::list({vl}), color, m, {}, 1.0, 0, color, {}, {});
                flag &= ~unsigned{itemFill};
            }
            stack[0] = stack[0] == 2147483647 ? -stack[0] - 1 : stack[0] + 1;
        }
        const Bytes slide = writer.finish();
        ASSERT_EQ(VEK::gdxImageSlide(&gdx, slide, flags, &parameters), stack[0] > 1) << round;
        ASSERT_EQ(hashOf(gdx), hashOf(expected)) << round;
        items += gdx.lenGet();
        unseen += stack[0] <= 1;
    }
    EXPECT_TRUE(items > 1000 && unseen > 50);
}

TEST(SlideImage, NeedsAnObjectAndASlideOfAKnownLevel)
{
    Bytes slide = slide_test::withWords(slide_test::littleHeader(), {1, 2, 3, 4, 0xFC00});
    Gdx gdx = plain();
    std::fill(slide.begin() + 19, slide.begin() + 23, static_cast<unsigned char>(0)); // no extent, no matter here
    EXPECT_TRUE(VEK::gdxImageSlide(&gdx, slide, 0, nullptr));
    EXPECT_FALSE(VEK::gdxImageSlide(nullptr, slide, 0, nullptr));
    slide[18] = 3;
    EXPECT_FALSE(VEK::gdxImageSlide(&gdx, slide, 0, nullptr) || VEK::gdxImageSlide(&gdx, {}, 0, nullptr));
    EXPECT_EQ(gdx.lenGet(), 1);
}

TEST(SlideImage, OfALibrary)
{
    const std::wstring file = VEK::platform::textOf(std::filesystem::path(VEK_SOURCE_DIR) / "examples" / "facade.slb");
    CVekGDX gdx = plain();
    for (const wchar_t* library : {static_cast<const wchar_t*>(nullptr), L"", file.c_str()})
        EXPECT_FALSE(vek_gdx_image_sld(&gdx, L"NOWHERE", library, 0, nullptr) ||
                     vek_gdx_image_sld(&gdx, nullptr, library, 0, nullptr));
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
