// One display object whose every bit agrees in all builds: natively and under Windows, debug and optimised.
#include "display_fixture.h"
#include "display_hash.h"

namespace
{

using namespace display_test;

/// Every kind of item, under matrices whose entries are fractions: no angle functions, which C libraries round
/// differently.
Gdx reference()
{
    Gdx gdx = plain();
    CVekMatrix3d turned; // by the angle of the 3-4-5 triangle
    turned.setCoordSystem({1, 2, 3}, {0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1});
    gdx.projMtxSet(turned);
    gdx.viewDirectionMtxSet(turned * turned);
    const CVekColor red = indexed(1), grey = rgb(0x7F8081);
    for (int i = 0; i < 50; ++i) {
        const CVekVertexArray vl = line(i / 7.0, i / 3.0, 100.0 / (i + 1), -i / 9.0);
        gdx.imageVl(path({i % 4, i}), (i % 5u) << itemColorModeShift, vl, red, turned, doubles({1, 1, 0}), 0.1 * i, 2,
                    {});
        gdx.imagePt(path({i % 3}), itemScreenFixed, {i / 11.0, 0, 0}, grey, {}, -10.0, 35, {1.0 / (i + 3), 0, 0});
    }
    const CVekArrayTempl<CVekVertexArray> disc{shapes::polygon({{-1.1, 0}, {1.1, 0}}, {1.0, 1.0})};
    gdx.imageReg(path({9}), itemFill | itemNoExt, disc, red, turned, {}, 1.0, 0, grey, {L"STEEL", 0.25, 2, true}, {});
    gdx.imagePicture(path({8}), itemTransparent, L"panel.bmp", 2001, {0, 0, 0}, {64, 48, 0});
    gdx.imageTxt(path({7}), 0x100, L"Riegel 50/120 (±0,5)", red, turned, L"CC", {0.1, 0, 0}, {});
    gdx.mtxSet(path({1}), turned * turned * turned);
    gdx.cModeSet(path({2}), 3);
    gdx.removeItemStack(path({0, 8}));
    gdx.displListSort();
    gdx.viewMtxSet(getViewMtx({-3, -2, 0}, {97, 61, 0}, 480, 640, 0.05));
    return gdx;
}

TEST(Golden, ReferenceObjectHasTheSameBitsInEveryBuild)
{
    const Gdx gdx = reference();
    CVekPoint3d min, max;
    ASSERT_TRUE(gdx.extmaxGet(min, max));
    Hash hash;
    const CVekArrayTempl<CVekDisplayItem>& list = gdx.getDisplayList();
    hash << list << min << max << gdx.viewMtxGet();
    RecordProperty("hash", std::to_string(hash.value()));
    // Changes only with a change of what is stored; then every build gives the new value.
    EXPECT_EQ(hash.value(), 0x269A423B08FB9EA3u);
}

} // namespace
