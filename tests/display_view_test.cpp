// Views, the registry, and display objects made from configuration and data.
#include "display_fixture.h"

#include <vek/data.h>

#include <algorithm>
#include <cmath>

namespace
{

using namespace display_test;

TEST(DisplayView, FitTakesTheTighterDimensionAndCentres)
{
    const CVekMatrix3d wide = getViewMtx({0, 0, 0}, {100, 50, 0}, 0, 0, 0.0); // 320 by 240, scale 3.2
    expectNear(CVekPoint3d(0, 0, 0) * wide, {0, 200, 0});
    expectNear(CVekPoint3d(100, 50, 1) * wide, {320, 40, 3.2});
    const CVekMatrix3d tall = getViewMtx({10, 0, 0}, {20, 100, 0}, 110, 300, 0.05); // margin 5: scale 1
    expectNear(CVekPoint3d(15, 50, 0) * tall, {150, 55, 0});
    expectNear(CVekPoint3d(10, 100, 0) * tall, {145, 5, 0});
    EXPECT_EQ(getViewMtx({1, 1, 0}, {1, 1, 0}, 100, 100, 0.05), CVekMatrix3d());
    EXPECT_EQ(getViewMtx({0, 0, 0}, {10, 0, 0}, 100, 100, 0.0), CVekMatrix3d());
    EXPECT_EQ(getViewMtx({0, 0, 0}, {VEK::nan(), 1, 0}, 100, 100, 0.05), CVekMatrix3d());
}

TEST(DisplayView, KeywordsTurnTheModel)
{
    EXPECT_EQ(vek_gdx_view_vdir_get(L"O"), CVekVector3d(-1, 0, 0));
    EXPECT_EQ(vek_gdx_view_vdir_get(L"NO"), CVekVector3d(1, 1, 1));
    for (const wchar_t* unknown : {L"X", L"p", L"", static_cast<const wchar_t*>(nullptr)})
        EXPECT_EQ(vek_gdx_view_vdir_get(unknown), CVekVector3d());
    Gdx gdx = plain();
    gdx.imagePt({}, 0, {1, 2, 3}, {}, {}, 0.0, 0, {});
    EXPECT_TRUE(gdx.viewDirectionSet(L"S")); // seen from the south: x to the right, z upwards
    expectExtents(gdx, {1, 3, -2}, {1, 3, -2});
    EXPECT_FALSE(gdx.viewDirectionSet(L"X"));
    expectExtents(gdx, {1, 3, -2}, {1, 3, -2});
    gdx.viewDirectionHvcSet({1, 0, 0}); // from the east
    expectExtents(gdx, {2, 3, 1}, {2, 3, 1});
    EXPECT_TRUE(gdx.viewDirectionSet(L"P"));
    expectExtents(gdx, {1, 2, 3}, {1, 2, 3});
    const CVekVertexArray flat = vek_g_vl_mtx_view(CVekVertexArray(CVekVertex({1, 2, 3}, {4, 5, 6}, 0.0)), {0, -1, 0},
                                                   CVekPoint3d::kOrigin, true);
    expectNear(flat[0].start, {1, 3, 0});
    expectNear(flat[0].end, {4, 6, 0});
    // An arc of the ground seen from the side is straight, whichever way its normal points.
    for (const double up : {1.0, -1.0}) {
        CVekVertexArray arc(CVekVertex({2, 0, 0}, {-2, 0, 0}, up));
        arc.setNormal({0, 0, up});
        for (const CVekPoint3d& p : vek_g_vl_mtx_view(arc, {0, -1, 0}, CVekPoint3d::kOrigin, true).pts(true, 1e-3))
            EXPECT_LE(std::fabs(p[1]) + std::fabs(p[2]) + std::max(std::fabs(p[0]) - 2.0, 0.0), 1e-9);
        EXPECT_EQ(vek_g_vl_mtx_view(arc, {0, 0, -1}, CVekPoint3d::kOrigin, true)[0].bulge, up); // from below still one
    }
}

TEST(DisplayView, ExtentsToFitAreTheCallersOrTheItems)
{
    Gdx gdx = plain();
    CVekPoint3d min(7, 7, 7);
    CVekPoint3d max(8, 8, 8);
    gdx.extMaxViewGet(min, max);
    EXPECT_EQ(min, CVekPoint3d(7, 7, 7));
    gdx.extMaxViewSet({1, 1, 0}, {2, 2, 0});
    gdx.imagePt({}, 0, {50, 50, 0}, {}, {}, 0.0, 0, {});
    gdx.extMaxViewGet(min, max);
    EXPECT_EQ(max, CVekPoint3d(2, 2, 0));
    gdx.extMaxViewSet();
    gdx.imagePt({}, 0, {60, 50, 0}, {}, {}, 0.0, 0, {});
    gdx.extMaxViewGet(min, max); // one point was taken over, which counts as unset
    EXPECT_EQ(max, CVekPoint3d(60, 50, 0));
}

TEST(DisplayTable, ModesOneToFourteen)
{
    Gdx gdx = plain();
    const CVekColor red = indexed(1);
    EXPECT_FALSE(gdx.ColorTabSet(0, red) || gdx.ColorTabSet(15, red));
    EXPECT_TRUE(gdx.ColorTabLenGet() == 0 && gdx.colorTabGet(0) == CVekColor());
    EXPECT_TRUE(gdx.ColorTabSet(1, red));
    EXPECT_TRUE(gdx.ColorTabSet(14, gdx.colorTabGet(1))) << "the table grows under its own entry";
    for (int mode = 0; mode <= 15; ++mode) // 0 is the last entry, by the array rule
        EXPECT_EQ(gdx.colorTabGet(mode) == red, mode < 2 || mode == 14) << mode;
    EXPECT_EQ(gdx.ColorTabLenGet(), 14);
}

bool countingImage(CVekGDX* gdx, VEK::CDtaFilePointer* object, VEK::CDtaFilePointer* params)
{
    gdx->imagePt({}, 0, {}, {}, {}, 0.0, 0, {});
    return object == nullptr && params == nullptr;
}

TEST(DisplayRegistry, KeysAndImageFunctions)
{
    Gdx gdx = plain();
    gdx.imagePt(path({4}), 0, {}, {}, {}, 0.0, 0, {});
    EXPECT_EQ(gdxMapKeyNew(), 1);
    gdxMapSetAt(1, gdx);
    gdxMapSetAt(3, gdx);
    EXPECT_EQ(gdxMapKeyNew(), 2);
    CVekGDX* first = getGdxFromMap(1);
    ASSERT_TRUE(first);
    first->clear();
    EXPECT_EQ(getGdxFromMap(3)->lenGet(), 1); // deep copies
    gdxMapSetAt(-5, gdx);
    EXPECT_TRUE(!gdxMapRemoveAt(2) && gdxMapKeyNew() == 2);
    gdxMapSetAt(1, gdx);
    EXPECT_TRUE(getGdxFromMap(1) == first && first->lenGet() == 1);
    for (const int key : {1, 3, -5})
        EXPECT_TRUE(gdxMapRemoveAt(key));
    EXPECT_EQ(getGdxFromMap(1), nullptr);

    EXPECT_FALSE(vek_gdx_image(L"COUNT", &gdx, nullptr, nullptr));
    VEK::setGdxImageFcn(L"COUNT", countingImage);
    EXPECT_TRUE(vek_gdx_image(L"COUNT", &gdx, nullptr, nullptr));
    for (const wchar_t* other : {L"count", static_cast<const wchar_t*>(nullptr)})
        EXPECT_FALSE(vek_gdx_image(other, &gdx, nullptr, nullptr));
    EXPECT_EQ(gdx.lenGet(), 2);
    VEK::setGdxImageFcn(L"COUNT", nullptr);
    VEK::setGdxImageFcn(L"OTHER", nullptr);
    EXPECT_FALSE(vek_gdx_image(L"COUNT", &gdx, nullptr, nullptr));
}

/// A configuration of colours that a test puts in place of the one that is there.
class DisplayCreation : public testing::Test
{
protected:
    void SetUp() override
    {
        CVekDataItem* root = VEK::cfg_dir_make(L"MRA_MENU");
        CVekDataItem* colors = root->makeDir(L"COLOR");
        VEK::dataSet(colors, L"PDSIZE", 2.75);
        VEK::dataSet(colors, L"PDMODE", 34);
        VEK::dataSet(colors, L"HIGHLIGHT", 1);
        VEK::dataSet(colors, L"BACKGROUND", 254);
        VEK::dataSet(colors, L"AXIS", rgb(0x123456));
    }
    void TearDown() override { VEK::cfg_dir_make(L"MRA_MENU")->remove(L"COLOR"); }
    static CVekGDX made(const CVekDataItem* item)
    {
        const int key = createGdxInMap(item);
        CVekGDX copy = *getGdxFromMap(key);
        gdxMapRemoveAt(key);
        return copy;
    }
};

TEST_F(DisplayCreation, ConfiguredColoursAndDefaults)
{
    const CVekGDX fresh;
    EXPECT_TRUE(fresh.pdSizeGet() == 2.75 && fresh.pdModeGet() == 34u && fresh.ColorTabLenGet() == 5);
    EXPECT_TRUE(fresh.colorTabGet(3).color() == 0x123456u && fresh.colorTabGet(2) == CVekColor());

    const CVekDataItem leaf; // what is no directory counts as null
    for (const CVekGDX& gdx : {made(nullptr), made(&leaf)}) {
        EXPECT_TRUE(gdx.pdSizeGet() == 2.0 && gdx.pdModeGet() == 34u); // cut to whole numbers on this road
        EXPECT_TRUE(gdx.colorTabGet(1).colorIndex() == 1 && gdx.colorTabGet(5) == CVekColor());
        EXPECT_TRUE(gdx.backColorGet().colorIndex() == 254 && gdx.projMtxGet() == CVekMatrix3d());
    }
}

TEST_F(DisplayCreation, DataOverridesWhereItsKeysStand)
{
    CVekDataItem item;
    item.mkDir();
    VEK::dataSet(&item, L"PDSIZE", 9);
    const CVekMatrix3d proj = CVekMatrix3d().setToTranslation({1, 2, 3});
    VEK::dataSetList(&item, L"MTX", proj);
    VEK::dataSet(&item, L"COLOR", 5);
    CVekGDX gdx = made(&item);
    EXPECT_EQ(gdx.pdSizeGet(), 9.0);
    EXPECT_EQ(gdx.pdModeGet(), 34u);
    EXPECT_EQ(gdx.projMtxGet(), proj);
    EXPECT_EQ(gdx.backColorGet(), indexed(5));

    VEK::dataSet(&item, L"RGB", L"66051"); // 0x010203
    VEK::dataSet(&item, L"TBL", L"RAL 9005");
    gdx = made(&item);
    const CVekColor back = gdx.backColorGet();
    EXPECT_TRUE(back.color() == 0x010203u && back.colorIndex() == 5 && back.bookName() == L"RAL 9005");

    VEK::dataSet(&item, L"EXTVIEW", CVekPoint3dArray{{3, 4, 5}}); // the corner that is missing is the origin
    CVekPoint3d min, max;
    made(&item).extMaxViewGet(min, max);
    EXPECT_TRUE(min == CVekPoint3d(3, 4, 5) && max == CVekPoint3d());
}

} // namespace
