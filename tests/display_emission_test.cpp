// What the emission operations store, and what they do to the extents.
#include "display_fixture.h"

#include <vek/host.h>

#include <cmath>
#include <random>

namespace
{

using namespace display_test;

TEST(DisplayEmission, PolylineKeepsItsArgumentsAndFillsEmptyLinetype)
{
    Gdx gdx = plain();
    const CVekColor red = indexed(1);
    const CVekMatrix3d m = CVekMatrix3d().setToTranslation({5, 0, 0});
    gdx.imageVl(path({7, 2}), 0x305, line(0, 0, 10, 4), red, m, {}, 2.5, 3, {9, 9, 9});
    ASSERT_EQ(gdx.lenGet(), 1);
    const CVekDisplayItem& item = gdx.getDisplayList()[0];
    EXPECT_TRUE(item.type == dispPolyline && item.flag == 0x305 && item.stack == path({7, 2}) && item.color == red);
    EXPECT_TRUE(item.mtx == m && item.linetype == doubles({1.0}) && item.ltscale == 2.5 && item.thickn == 3);
    EXPECT_EQ(item.vl, line(0, 0, 10, 4));
    EXPECT_EQ(item.point, CVekPoint3d::kOrigin); // not screen-fixed: no reference point
    expectExtents(gdx, {5, 0, 0}, {15, 4, 0});

    gdx.imageVl({}, itemScreenFixed, line(0, 0, 1, 1), red, {}, doubles({3.0, -1.0}), 1.0, 0, {9, 8, 7});
    EXPECT_EQ(gdx.getDisplayList()[1].point, CVekPoint3d(9, 8, 7));
    EXPECT_EQ(gdx.linetypeGet(1), doubles({3.0, -1.0}));
    expectExtents(gdx, {5, 0, 0}, {15, 4, 0});
}

TEST(DisplayEmission, PointKeepsItsReferenceAsVertexWhenScreenFixed)
{
    Gdx gdx = plain();
    gdx.imagePt({}, itemNoExt, {1, 2, 3}, {}, {}, -10.0, 0xFFFFFFFF, {4, 5, 6});
    CVekPoint3d min, max;
    EXPECT_FALSE(gdx.extmaxGet(min, max));
    EXPECT_EQ(gdx.getDisplayList()[0].vl.len(), 0);
    gdx.imagePt({}, itemScreenFixed, {1, 2, 3}, {}, {}, 0.0, 3, {4, 5, 6});
    EXPECT_FALSE(gdx.extmaxGet(min, max));
    EXPECT_EQ(gdx.getDisplayList()[1].vl, CVekVertexArray(CVekVertex({4, 5, 6}, CVekPoint3d::kOrigin, 0.0)));
    gdx.imagePt({}, 0, {1, 2, 3}, {}, {}, 0.0, 3, {4, 5, 6});
    expectExtents(gdx, {1, 2, 3}, {1, 2, 3});

    gdx.pdSizeSet(4.0);
    gdx.pdModeSet(35);
    EXPECT_TRUE(gdx.pdSizeGet(0) == -10.0 && gdx.pdSizeGet(1) == 4.0);
    EXPECT_TRUE(gdx.pdModeGet(0) == 35u && gdx.pdModeGet(1) == 3u);
}

TEST(DisplayEmission, RegionChoosesItsFillColour)
{
    const CVekColor pen = indexed(3), own = indexed(0);
    const VEK::CHatchProp hatch(L"STEEL", 0.5, 2.0, true);
    const struct {
        unsigned flag;
        CVekColor fill, stored;
    } cases[] = {{itemFill, CVekColor(), pen},
                 {itemHatch, own, own},
                 {itemOutline, own, CVekColor()},
                 {itemFill | itemHatch, pen, pen}};
    for (const auto& row : cases) {
        Gdx gdx = plain();
        gdx.imageReg({}, row.flag, square(10), pen, {}, {}, 1.0, 0, row.fill, hatch, {});
        EXPECT_EQ(gdx.fcolorGet(0), row.stored) << row.flag;
        VEK::CHatchProp stored;
        ASSERT_TRUE(gdx.hatchGet(0, stored));
        EXPECT_EQ(stored, hatch);
        EXPECT_FALSE(gdx.hatchGet(1, stored));
    }
}

TEST(DisplayEmission, PictureNeverMergesAndEqualCornersMeanTheWholeArea)
{
    Gdx gdx = plain();
    gdx.imagePicture(path({1}), itemTransparent, L"a.bmp", 0x7FFFFFFF, {1, 2, 0}, {30, 40, 0});
    gdx.imagePicture({}, 0, nullptr, 2000, {5, 5, 0}, {5, 5, 0});
    gdx.imagePicture({}, 0, L"", 0x7FFFFFFF, {5, 5, 0}, {5, 5, 0});
    EXPECT_EQ(gdx.getDisplayList()[0].vl, CVekVertexArray(CVekVertex({1, 2, 0}, {30, 40, 0}, 0.0)));
    EXPECT_EQ(gdx.getDisplayList()[1].vl.len(), 0);
    CVekString file;
    unsigned long id = 0;
    EXPECT_TRUE(gdx.pictureGet(0, file, id) && file == L"a.bmp");
    EXPECT_TRUE(gdx.pictureGet(1, file, id) && id == 2000u);
    EXPECT_FALSE(gdx.pictureGet(2, file, id));
    CVekPoint3d min, max;
    EXPECT_FALSE(gdx.extmaxGet(min, max));
}

TEST(DisplayEmission, ArgumentsMayBelongToTheListThatGrows)
{
    Gdx gdx = plain();
    gdx.imageVl(path({1}), 0, line(1, 2, 3, 4), {}, {}, doubles({1.0, 0.0, 0.0}), 1.0, 0, {});
    for (int i = 0; i < 40; ++i) {
        const CVekDisplayItem& first = gdx.getDisplayList()[0];
        gdx.imageVl(first.stack, 0, first.vl, first.color, first.mtx, first.linetype, 1.0, 0, first.point);
    }
    ASSERT_EQ(gdx.lenGet(), 41);
    EXPECT_EQ(gdx.getDisplayList()[40].vl, line(1, 2, 3, 4));
    EXPECT_TRUE(gdx.addDisplayList(gdx.getDisplayList()));
    ASSERT_EQ(gdx.lenGet(), 82);
    EXPECT_EQ(gdx.getDisplayList()[81].stack, path({1}));
}

TEST(DisplayEmission, TheHostMayAddItemsWhileItWritesAText)
{
    Gdx gdx = plain();
    gdx.imageVl(path({1}), 0, line(1, 2, 3, 4), {}, {}, {}, 1.0, 0, {});
    CVekLocalApp host;
    host.functionSet(L"vek_text_to_regl", [&](resbuf*, VEK::CUniqResbuf& result) {
        for (int i = 0; i < 20; ++i) // more than there is room for
            gdx.imageVl(path({2}), 0, line(0, 0, 1, 1), {}, {}, {}, 1.0, 0, {});
        result.append(VEK::mkResbuf(VEK::Regions{square(5)}));
        return 5100;
    });
    CVekApp* const before = vekAppSet(&host);
    CVekDataItem text;
    VEK::dataSet(&text, L"TEXT", L"A");
    EXPECT_TRUE(gdx.imageTxt(path({3}), 0, &text, {}, {}, 1.0, {}));
    vekAppSet(before);
    ASSERT_EQ(gdx.lenGet(), 22);
    EXPECT_TRUE(gdx.typeGet(20) == dispPolyline && gdx.getDisplayList()[20].vl == line(0, 0, 1, 1));
    EXPECT_TRUE(gdx.typeGet(21) == dispText && gdx.getDisplayList()[21].regl.len() == 1);
}

TEST(DisplayExtents, OfWhatNoMatrixMovesAreThoseOfTheIdentityBitByBit)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    const double kNumbers[] = {0.0, -0.0, 1.5, -2.25, 1e-310, -1e308, 1.7e308, kInfinite, VEK::nan()};
    std::mt19937 random(7);
    int compared = 0, counted = 0;
    for (int round = 0; round < 4000; ++round, ++compared) {
        const auto number = [&] { return kNumbers[random() % (round % 4 ? 7 : 9)]; };
        const auto point = [&] { return CVekPoint3d(number(), number(), number()); };
        CVekVertexArray vl;
        for (unsigned i = random() % 4; i > 0; --i)
            vl.append(CVekVertex(point(), point(), random() % 16 ? 0.0 : -0.5));
        CVekMatrix3d mtx[3]; // of the item, the view direction, the projection
        if (random() % 2)
            mtx[random() % 3][random() % 3][random() % 4] *= random() % 2 ? -1.0 : 0.5;
        Gdx gdx = plain(), general = plain();
        gdx.projMtxSet(mtx[2]);
        gdx.viewDirectionMtxSet(mtx[1]);
        gdx.imageVl({}, 0, vl, {}, mtx[0], {}, 1.0, 0, {});
        general.refresh_ext(vl, mtx[2] * mtx[1] * mtx[0]);
        CVekPoint3d box[2][2];
        const bool any = gdx.extmaxGet(box[0][0], box[0][1]);
        ASSERT_EQ(any, general.extmaxGet(box[1][0], box[1][1])) << round;
        counted += any;
        for (int axis = 0; axis < 6; ++axis) {
            const double a = box[0][axis / 3][axis % 3], b = box[1][axis / 3][axis % 3];
            ASSERT_TRUE(a == b && std::signbit(a) == std::signbit(b)) << round;
        }
    }
    EXPECT_TRUE(compared == 4000 && counted > 2000 && counted < 4000);
}

TEST(DisplayExtents, EmptyGeometryCountsAsTheOriginAndNonFiniteNotAtAll)
{
    Gdx gdx = plain();
    gdx.imagePt({}, 0, {5, 5, 0}, {}, {}, 0.0, 0, {});
    gdx.imagePt({}, 0, {VEK::nan(), 5, 0}, {}, {}, 0.0, 0, {});
    gdx.imageVl({}, 0, line(0, 0, std::numeric_limits<double>::infinity(), 1), {}, {}, {}, 1.0, 0, {});
    expectExtents(gdx, {5, 5, 0}, {5, 5, 0});
    gdx.imageReg(path({1}), 0, {}, {}, {}, {}, 1.0, 0, {}, {}, {});
    expectExtents(gdx, {0, 0, 0}, {5, 5, 0});
    EXPECT_EQ(gdx.getDisplayList()[3].reg.len(), 0); // stored as given ...
    gdx.refresh_ext();
    EXPECT_EQ(gdx.getDisplayList()[3].reg.len(), 1); // ... and furnished by the full pass
    gdx.imageVl({}, 0, {}, {}, {}, {}, 1.0, 0, {});
    expectExtents(gdx, {0, 0, 0}, {5, 5, 0});
}

TEST(DisplayExtents, OfAGroupWidenWhatTheCallerGave)
{
    Gdx gdx = plain();
    gdx.imageVl(path({1}), 0, line(2, 2, 4, 6), {}, {}, {}, 1.0, 0, {});
    gdx.imagePicture(path({1, 1}), 0, L"p.bmp", 0, {900, 900, 0}, {999, 999, 0});
    gdx.imagePt(path({1, 2}), itemNoExt, {-100, 0, 0}, {}, {}, 0.0, 0, {});
    gdx.imageTxt(path({2}), 0, L"!", {}, {}, L"", {}, {});
    CVekPoint3d min(1e9, 1e9, 1e9), max(-1e9, -1e9, -1e9);
    EXPECT_FALSE(gdx.extmaxGet({}, min, max) || gdx.extmaxGet(path({3}), min, max));
    EXPECT_EQ(min, CVekPoint3d(1e9, 1e9, 1e9));
    EXPECT_TRUE(gdx.extmaxGet(path({1}), min, max)); // the picture merges the line's extents once more
    EXPECT_TRUE(min == CVekPoint3d(2, 2, 0) && max == CVekPoint3d(4, 6, 0));

    // Of the two regions of "!" only the last one counts, the point below the stem. A picture alone merges the origin.
    CVekPoint3d text[2] = {{1e9, 1e9, 1e9}, {-1e9, -1e9, -1e9}}, picture[2] = {{1, 1, 1}, {2, 2, 2}};
    EXPECT_TRUE(gdx.extmaxGet(path({2}), text[0], text[1]) && gdx.extmaxGet(path({1, 1}), picture[0], picture[1]));
    EXPECT_NEAR(text[1][1], 0.16678, 1e-12);
    EXPECT_TRUE(picture[0] == CVekPoint3d::kOrigin && picture[1] == CVekPoint3d(2, 2, 2));
}

TEST(DisplayText, IsLaidOutAnewByEverySetter)
{
    Gdx gdx = plain();
    gdx.imageTxt(path({1}), 0, L"ii", {}, {}, L"CC", {}, {});
    ASSERT_EQ(gdx.getDisplayList()[0].regl.len(), 4);
    const auto laidOut = VEK::textRegions(L"ii", L"CC", {});
    for (int i = 0; i < 4; ++i) { // a contour for each region, filled up with empty ones
        EXPECT_EQ(gdx.getDisplayList()[0].regl[i].len(), 4);
        EXPECT_EQ(gdx.getDisplayList()[0].regl[i][0], laidOut[i][0]);
    }
    EXPECT_FALSE(gdx.txtSet(path({1}), nullptr));
    EXPECT_TRUE(gdx.txtSet(path({9}), L"x"));
    EXPECT_TRUE(gdx.txtAlignSet(path({1}), L"BL"));
    EXPECT_TRUE(gdx.txtSet(path({1}), L" \n "));
    EXPECT_EQ(gdx.getDisplayList()[0].regl.len(), 0);
    CVekPoint3d min, max;
    EXPECT_FALSE(gdx.extmaxGet(min, max));
    gdx.txtSet(path({1}), L"-");
    gdx.txtPointSet(path({1}), {100, 0, 0});
    EXPECT_TRUE(gdx.extmaxGet(min, max));
    EXPECT_NEAR(min[0], 100.16678, 1e-9);
}

} // namespace
