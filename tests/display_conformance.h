// Every kind of item with every flag, for every set of rules: the table that all surfaces are tried with.
#pragma once

#include "display_pass.h"
#include "picture_bytes.h"
#include "test_folder.h"

#include <functional>

namespace display_test
{

struct ConformanceCase {
    const char* kind;
    unsigned flag;
    const VEK::PassRules* rules;
    bool shows; ///< whether anything is drawn on top of the background
};

inline constexpr int kConformanceCases = 5 * 256 * 3;

/// Hands on each case and a fresh object for it, with one item.
template <class Try>
void forEachConformanceCase(Try&& tryCase)
{
    const TestFolder folder(L"conformance"); // with a picture of two by two pixels, three of them green
    using namespace picture_bytes;
    const std::wstring picture =
        folder.save(L"a.bmp", bmp(info(2, 2, 24), hex("00FF00 00FF00 0000 00FF00 000000 0000")));
    const CVekArrayTempl<CVekVertexArray> region{shapes::polygon({{0, 0}, {50, 0}, {50, 50}}, {0.0, 0.3}),
                                                 box(30, 10, 10)};
    using Emit = std::function<void(Gdx&, unsigned)>;
    const std::pair<const char*, Emit> kinds[] = {
        {"polyline",
         [&](Gdx& g, unsigned f) {
             g.imageVl(path({}), f, region[0], kRed, kNone, doubles({1, 1, 1}), 0.5, 3, {25, 25, 0});
         }},
        {"point",
         [](Gdx& g, unsigned f) {
             g.imagePt(path({1}), f, {0.2, -0.2, 0}, kRed, kNone, -9.0, 3 + 32 + 64, {5, 5, 0});
         }},
        {"region",
         [&](Gdx& g, unsigned f) {
             g.imageReg(path({}), f, region, kRed, kNone, doubles({}), 1.0, 1, rgb(0x0000FF),
                        VEK::CHatchProp(L"_USER", 0.7, 3.0, true), {25, 25, 0});
         }},
        {"text",
         [](Gdx& g, unsigned f) {
             CVekMatrix3d m;
             g.imageTxt(path({}), f, L"AO8", kRed, m.setToScaling(9.0, CVekPoint3d::kOrigin), L"", {}, {5, 5, 0});
         }},
        {"picture", [&](Gdx& g, unsigned f) {
             g.imagePicture(path({}), f, picture.c_str(), -1, {7, 8, 0}, {27, 18, 0});
         }}};
    for (const auto& [kind, emit] : kinds) {
        for (unsigned flag = 0; flag < 256; ++flag) {
            const bool needsFlag = kind == std::string("region");
            const bool shows =
                (flag & itemHidden) == 0 && (!needsFlag || (flag & (itemFill | itemHatch | itemOutline)) != 0);
            for (const VEK::PassRules* rules : {&VEK::paperRules, &kScreen, &VEK::scalableRules}) {
                Gdx gdx = grey();
                emit(gdx, flag);
                gdx.extMaxViewSet({0, 0, 0}, {50, 50, 0}); // for those that have no extents of their own
                tryCase(gdx, ConformanceCase{kind, flag, rules, shows});
            }
        }
    }
}

/// Items of every kind in one object.
inline Gdx everything()
{
    Gdx all = grey();
    forEachConformanceCase([&](Gdx& gdx, const ConformanceCase& c) {
        if (c.rules == &kScreen && (c.flag == 0 || c.flag == itemFill || c.flag == itemHatch))
            all.addDisplayList(gdx.getDisplayList());
    });
    all.extMaxViewSet({0, 0, 0}, {50, 50, 0});
    return all;
}

} // namespace display_test
