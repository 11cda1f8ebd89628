// Groups by stack path, the draw order and picking.
#include "display_fixture.h"

#include <vector>

namespace
{

using namespace display_test;

Gdx family()
{
    Gdx gdx = plain();
    for (const auto& stack : {path({1, 2}), path({1, 2, 4}), path({1}), path({2}), path({})})
        gdx.imagePt(stack, 0, {1, 1, 0}, {}, {}, 0.0, 0, {});
    return gdx;
}

TEST(DisplayGroup, PrefixSelectsAndExactPathsAreToldApart)
{
    Gdx gdx = family();
    const auto numbers = [&](std::initializer_list<int> stack) {
        std::vector<int> list;
        for (const int i : gdx.StackToItemNr(path(stack)))
            list.push_back(i);
        return list;
    };
    EXPECT_EQ(numbers({1}), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(numbers({1, 2}), (std::vector<int>{0, 1}));
    EXPECT_EQ(numbers({}), (std::vector<int>{}));
    EXPECT_TRUE(gdx.stackGet() == 2 && plain().stackGet() == 0);

    for (const auto& there : {path({1, 2}), path({2, 0})}) // a shorter path compares as if padded with zeros
        EXPECT_EQ(gdx.stackGet(there), 0);
    for (const auto& absent : {path({1, 2, 5}), path({3}), path({})})
        EXPECT_EQ(gdx.stackGet(absent), -1);
    Gdx longer = plain();
    longer.imagePt(path({1, 2, 4}), 0, {}, {}, {}, 0.0, 0, {});
    EXPECT_EQ(longer.stackGet(path({1, 2})), -1);

    EXPECT_TRUE(gdx.pdModeSet(path({1, 2}), 3) && gdx.pdSizeSet(path({1, 2}), 7.0));
    EXPECT_TRUE(gdx.pdModeGet(0) == 3u && gdx.pdModeGet(1) == 0u && gdx.pdSizeGet(0) == 7.0 && gdx.pdSizeGet(1) == 0.0);
    EXPECT_FALSE(gdx.pdModeSet(path({}), 3));
}

TEST(DisplayGroup, FlagsColourModesAndHatches)
{
    Gdx gdx = family();
    EXPECT_TRUE(gdx.cModeSet(path({1, 2}), 0x11));
    EXPECT_EQ(gdx.flagGet(1), 0x100u);
    EXPECT_FALSE(gdx.cModeSet(path({}), 1));
    EXPECT_FALSE(plain().cModeSet(path({1}), 1));
    EXPECT_TRUE(gdx.hatchSet(path({1}), {L"GLASS", 0, 1, false}));
    VEK::CHatchProp prop;
    gdx.hatchGet(2, prop);
    EXPECT_TRUE(prop.name == L"GLASS");

    const struct {
        int code;
        unsigned before, after;
    } codes[] = {{1, 0x50C, 0x508}, {2, 0, 4},  {3, 0x10A, 0x102}, {4, 0, 8},          {5, 0, 16}, {6, 0x7F, 0x6F},
                 {7, 0, 32},        {8, 32, 0}, {9, 0, 64},        {10, 0x440, 0x400}, {11, 9, 9}, {0, 9, 9}};
    for (const auto& row : codes) {
        Gdx one = plain();
        one.imagePt(path({1}), row.before, {1, 1, 0}, {}, {}, 0.0, 0, {});
        CVekArrayTempl<CVekDisplayItem> unmeasured; // leaves the extents as they are
        unmeasured[0].type = dispPoint;
        one.addDisplayList(unmeasured);
        one.flagSet(0, row.code);
        EXPECT_EQ(one.flagGet(0), row.after) << row.code;
        CVekPoint3d min(9, 9, 9), max;
        one.extmaxGet(min, max);
        EXPECT_EQ(min == CVekPoint3d::kOrigin, row.code >= 1 && row.code <= 10) << row.code;
    }

    EXPECT_FALSE(gdx.propSet(path({}), 2));
    EXPECT_TRUE(gdx.redraw(path({2}), 4));
    EXPECT_EQ(gdx.flagGet(3), unsigned{itemNoExt});
    EXPECT_TRUE(gdx.redraw(path({}), 2));
    for (int i = 0; i < gdx.lenGet(); ++i)
        EXPECT_TRUE(gdx.flagGet(i) & itemHidden);
    expectExtents(gdx, {1, 1, 0}, {1, 1, 0}); // hidden items count
    EXPECT_TRUE(gdx.redraw(path({9}), 2));
    EXPECT_FALSE(plain().redraw(path({}), 2));
}

TEST(DisplayGroup, MatrixMovesTheGroupAsOne)
{
    const CVekMatrix3d left = CVekMatrix3d().setToTranslation({-3, 0, 0});
    const CVekMatrix3d target = CVekMatrix3d().setToRotation(0.5, CVekVector3d::kZAxis, {2, 2, 0});
    Gdx gdx = plain();
    gdx.imagePt(path({1, 1}), 0, {}, {}, left, 0.0, 0, {});
    gdx.imagePt(path({1}), 0, {}, {}, CVekMatrix3d(), 0.0, 0, {});
    EXPECT_FALSE(gdx.mtxSet(path({}), target));
    EXPECT_FALSE(gdx.mtxSet(path({4}), target));
    EXPECT_TRUE(gdx.mtxSet(path({1}), target)); // the item of exactly that path leads
    EXPECT_EQ(gdx.mtxGet(1), target);
    expectNear(CVekPoint3d(7, 8, 9) * gdx.mtxGet(0), CVekPoint3d(7, 8, 9) * left * target);

    gdx.imagePt(path({1, 2}), 0, {}, {}, left, 0.0, 0, {});
    const CVekMatrix3d before = gdx.mtxGet(2);
    EXPECT_TRUE(gdx.mtxSet(path({1}), CVekMatrix3d()));
    EXPECT_EQ(gdx.mtxGet(1), CVekMatrix3d());
    expectNear(CVekPoint3d(1, 2, 3) * gdx.mtxGet(2), CVekPoint3d(1, 2, 3) * before * target.inverse());

    Gdx deep = plain(); // longer paths only: the last one leads
    deep.imagePt(path({1, 1}), 0, {}, {}, CVekMatrix3d(), 0.0, 0, {});
    deep.imagePt(path({1, 2}), 0, {}, {}, left, 0.0, 0, {});
    EXPECT_TRUE(deep.mtxSet(path({1}), target));
    EXPECT_EQ(deep.mtxGet(1), target);
}

TEST(DisplayGroup, RemovalTellsWhetherSomethingIsGone)
{
    Gdx gdx = family();
    EXPECT_FALSE(gdx.removeItemStack(path({})) || gdx.clear(path({4})) || gdx.removeItem(5));
    EXPECT_TRUE(gdx.clear(gdx.getDisplayList()[0].stack)); // the path of an item that goes away
    EXPECT_EQ(gdx.lenGet(), 3);
    EXPECT_TRUE(gdx.removeItem(-1) && gdx.removeItem(0) && gdx.removeItem(-1));
    EXPECT_FALSE(gdx.removeItem(-1)) << "nothing is left";
}

TEST(DisplayPick, FindsTheTopmostBoundaryAndReversesTheList)
{
    Gdx gdx = plain();
    EXPECT_EQ(gdx.imageItemGet({0, 0, 0}), -1);
    auto region = square(100);
    region[1] = square(20)[0];
    region[1].move({40, 40, 0});
    gdx.imageReg(path({1}), itemFill, region, {}, {}, {}, 1.0, 0, {}, {}, {});
    gdx.imageVl(path({2, 7}), itemHidden, line(0, 50, 100, 50), {}, {}, {}, 1.0, 0, {});
    CVekMatrix3d shift;
    shift.setToTranslation({200, 0, 0});
    gdx.imageVl(path({3}), 0, CVekVertexArray(CVekVertex({-10, 0, 0}, {10, 0, 0}, 1.0)), {}, shift, {}, 1.0, 0, {});
    gdx.imagePt(path({4}), 0, {300, 0, 0}, {}, {}, 0.0, 0, {});
    gdx.imageTxt(path({5}), 0, L"A", {}, shift, L"", {100, 100, 0}, {});

    EXPECT_EQ(gdx.imageItemGet({50, 54.9, 0}), 2); // hidden ones are tested like others
    EXPECT_EQ(gdx.imageItemGet({50, 44, 0}), -1);  // a hole's edge is not
    EXPECT_EQ(gdx.imageItemGet({50, 4, 0}), 1);
    EXPECT_EQ(gdx.imageItemGet({200, -12, 0}), 3); // bulge 1: a half circle below its chord
    EXPECT_EQ(gdx.imageItemGet({200, 0, 0}), -1);
    EXPECT_EQ(gdx.imageItemGet({303, 4, 0}), 4);
    EXPECT_EQ(gdx.imageItemGet({303.1, 4, 0}), -1);
    EXPECT_EQ(gdx.imageItemGet({300.5, 100.5, 0}), -1); // texts are never hit

    gdx.projMtxSet(shift.setToTranslation({10, 0, 0}));
    gdx.viewMtxSet(shift.setToScaling(2.0, {}));
    // The world's point: 30 - 10, then halved; the true inverse of the chain would give 30 / 2 - 10.
    expectNear(gdx.imagePtWc({30, 0, 0}), {10, 0, 0});
}

} // namespace
