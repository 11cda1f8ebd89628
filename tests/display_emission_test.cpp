// What the emission operations store, and what they do to the extents.
#include "display_fixture.h"

namespace
{

using namespace display_test;

TEST(DisplayEmission, PolylineKeepsItsArgumentsAndFillsEmptyLinetype)
{
    Gdx gdx = plain();
    CVekColor red;
    red.setColorIndex(1);
    CVekMatrix3d m;
    m.setToTranslation({5, 0, 0});
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
    CVekPoint3d min;
    CVekPoint3d max;
    EXPECT_FALSE(gdx.extmaxGet(min, max));
    EXPECT_EQ(gdx.getDisplayList()[0].vl.len(), 0);
    gdx.imagePt({}, itemScreenFixed, {1, 2, 3}, {}, {}, 0.0, 3, {4, 5, 6});
    EXPECT_FALSE(gdx.extmaxGet(min, max));
    EXPECT_EQ(gdx.getDisplayList()[1].vl, CVekVertexArray(CVekVertex({4, 5, 6}, CVekPoint3d::kOrigin, 0.0)));
    gdx.imagePt({}, 0, {1, 2, 3}, {}, {}, 0.0, 3, {4, 5, 6});
    expectExtents(gdx, {1, 2, 3}, {1, 2, 3});

    gdx.pdSizeSet(4.0);
    gdx.pdModeSet(35);
    EXPECT_EQ(gdx.pdSizeGet(0), -10.0);
    EXPECT_EQ(gdx.pdSizeGet(1), 4.0);
    EXPECT_EQ(gdx.pdModeGet(0), 35u);
    EXPECT_EQ(gdx.pdModeGet(1), 3u);
}

TEST(DisplayEmission, RegionChoosesItsFillColour)
{
    CVekColor pen;
    pen.setColorIndex(3);
    CVekColor own;
    own.setColorIndex(0);
    const VEK::CHatchProp hatch(L"STEEL", 0.5, 2.0, true);
    const struct {
        unsigned flag;
        CVekColor fill;
        CVekColor stored;
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
    EXPECT_TRUE(gdx.pictureGet(0, file, id));
    EXPECT_TRUE(file == L"a.bmp");
    EXPECT_TRUE(gdx.pictureGet(1, file, id));
    EXPECT_EQ(id, 2000u);
    EXPECT_FALSE(gdx.pictureGet(2, file, id));
    CVekPoint3d min;
    CVekPoint3d max;
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

TEST(DisplayEmission, ClearForgetsEverythingOfTheItemsBefore)
{
    Gdx gdx = plain();
    gdx.imageReg(path({1}), itemFill, square(10), {}, {}, {}, 1.0, 7, {}, {L"X", 1, 1, true}, {});
    gdx.imageTxt(path({1}), 0, L"A", {}, {}, L"CC", {1, 1, 0}, {});
    gdx.extMaxViewSet();
    gdx.clear();
    EXPECT_EQ(gdx.lenGet(), 0);
    CVekPoint3d min(1, 1, 1);
    CVekPoint3d max(2, 2, 2);
    gdx.extMaxViewGet(min, max);
    EXPECT_EQ(max, CVekPoint3d(2, 2, 2));
    gdx.imagePt({}, 0, {3, 3, 0}, {}, {}, 0.0, 0, {});
    gdx.imagePt({}, 0, {3, 3, 0}, {}, {}, 0.0, 0, {});
    for (const CVekDisplayItem& item : gdx.getDisplayList()) {
        EXPECT_EQ(item.reg.len() + item.regl.len() + item.vl.len() + item.linetype.len() + item.stack.len(), 0);
        EXPECT_TRUE(item.txt.isNull() && item.hatch.name.isNull());
        EXPECT_EQ(item.thickn, 0);
    }
}

TEST(DisplayExtents, FullRecomputationAgreesWithTheRunningOne)
{
    Gdx gdx = plain();
    CVekMatrix3d turn;
    turn.setToRotation(0.3, CVekVector3d::kZAxis, {1, 1, 0});
    gdx.projMtxSet(turn);
    gdx.viewDirectionSet(L"SW");
    CVekVertexArray arc(CVekVertex({0, 0, 0}, {10, 0, 0}, 1.0));
    gdx.imageVl({}, 0, arc, {}, turn, {}, 1.0, 0, {});
    gdx.imageReg({}, 0, square(20), {}, turn, {}, 1.0, 0, {}, {}, {});
    gdx.imageTxt({}, 0, L"Größe 7", {}, turn, L"TR", {3, 0, 0}, {});
    gdx.imagePt({}, itemHidden, {50, -2, 1}, {}, {}, 0.0, 0, {});
    gdx.imagePt({}, itemNoExt, {500, -2, 1}, {}, {}, 0.0, 0, {});
    CVekPoint3d min;
    CVekPoint3d max;
    ASSERT_TRUE(gdx.extmaxGet(min, max));
    gdx.refresh_ext();
    expectExtents(gdx, min, max);
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
    CVekPoint3d min(1e9, 1e9, 1e9);
    CVekPoint3d max(-1e9, -1e9, -1e9);
    EXPECT_FALSE(gdx.extmaxGet({}, min, max));
    EXPECT_FALSE(gdx.extmaxGet(path({3}), min, max));
    EXPECT_EQ(min, CVekPoint3d(1e9, 1e9, 1e9));
    EXPECT_TRUE(gdx.extmaxGet(path({1}), min, max)); // the picture merges the line's extents once more
    EXPECT_EQ(min, CVekPoint3d(2, 2, 0));
    EXPECT_EQ(max, CVekPoint3d(4, 6, 0));

    // Of the two regions of "!" only the last one counts: the point below the stem.
    CVekPoint3d textMin(1e9, 1e9, 1e9);
    CVekPoint3d textMax(-1e9, -1e9, -1e9);
    EXPECT_TRUE(gdx.extmaxGet(path({2}), textMin, textMax));
    EXPECT_NEAR(textMax[1], 0.16678, 1e-12);

    CVekPoint3d pictureMin(1, 1, 1);
    CVekPoint3d pictureMax(2, 2, 2);
    EXPECT_TRUE(gdx.extmaxGet(path({1, 1}), pictureMin, pictureMax)); // alone, it merges the origin
    EXPECT_EQ(pictureMin, CVekPoint3d::kOrigin);
    EXPECT_EQ(pictureMax, CVekPoint3d(2, 2, 2));
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
    CVekPoint3d min;
    CVekPoint3d max;
    EXPECT_FALSE(gdx.extmaxGet(min, max));
    gdx.txtSet(path({1}), L"-");
    gdx.txtPointSet(path({1}), {100, 0, 0});
    EXPECT_TRUE(gdx.extmaxGet(min, max));
    EXPECT_NEAR(min[0], 100.16678, 1e-9);
}

TEST(DisplayText, LongAlignedTextStaysBounded)
{
    const std::wstring text(100000, L'H');
    const auto regl = VEK::textRegions(text.c_str(), L"CC", {});
    ASSERT_EQ(regl.len(), 100000);
    EXPECT_EQ(regl[99999].len(), 1);
    CVekPoint3d min;
    CVekPoint3d max;
    regl[0][0].extents(min, max);
    EXPECT_LT(max[0], -50000.0);
}

} // namespace
