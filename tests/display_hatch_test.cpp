// Hatches of the draw pass that are finer than can be drawn, or lie mostly outside of what is seen.
#include "display_pass.h"
#include "shapes.h"

#include <vek/host.h>

namespace
{

using namespace display_test;

TEST(PassHatch, IsDrawnWhereItIsSeenAndSolidWhereItTakesTooManyLines)
{
    CVekLocalApp app;
    VekPatternLines lines;
    lines[0] = doubles({0, 0, 0, 0, 50, 4, -4});
    app.hatchPatternSet(L"DASHED", lines);
    CVekApp* const before = vekAppSet(&app);
    // A wall 120 m long and 4 m high takes 1.2 million dashes, and 4 million lines that are a thousandth apart.
    static constexpr struct {
        const wchar_t* name;
        double scale;
        double x, y, factor; // the place in the corner of the view, and its zoom
        int height, width;
        int least, most;                                           // strokes; none where it is solid
    } kViews[] = {{L"DASHED", 1, 119000, 3940, 5, 100, 200, 5, 8}, // one row, 40 of the wall
                  {L"DASHED", 1, 119990, 3990, 5, 100, 200, 1, 5}, // the far corner
                  {L"DASHED", 1, 0, 0, 0.05, 100, 200, 20000, 21000}, {L"DASHED", 1, 0, 0, 0.05, 200, 6000, 0, 0},
                  {L"DASHED", 1, 0, 0, 0.04, 100, 200, 0, 0}, // rows 2 apart: too dense
                  {L"_USER", 1e-3, 5, 5, 1e4, 100, 200, 9, 13},       {L"_USER", 1e-3, 0, 0, 0.05, 100, 200, 0, 0},
                  {L"_USER", 1e-300, 5, 5, 1e4, 100, 200, 0, 0}};
    for (const auto& view : kViews) {
        for (Rules rules : {kPaper, kScreen}) {
            SCOPED_TRACE(&view - kViews);
            Gdx gdx = grey();
            gdx.imageReg(path({}), itemHatch, shapes::list({shapes::rectangle(0, 0, 120000, 4000)}), kRed, kNone,
                         doubles({}), 1.0, 1, kRed, VEK::CHatchProp(view.name, 0.0, view.scale, false), CVekPoint3d());
            CVekMatrix3d zoom, move;
            move.setToTranslation({-view.x, -view.y, 0});
            gdx.zoomMtxSet(zoom.setToScaling(view.factor, CVekPoint3d::kOrigin) * move);
            int strokes = 0, polygons = 0;
            const VEK::CRecorder drawn = draw(gdx, rules, false, view.height, view.width);
            for (const VEK::SurfaceCall& call : drawn.calls()) {
                strokes += call.op == VEK::SurfaceOp::moveTo;
                polygons += call.op == VEK::SurfaceOp::polygon;
            }
            const bool asPolygon = rules.fill == VEK::PassRules::Fill::polygon;
            EXPECT_EQ(polygons, view.most == 0 && asPolygon);
            if (view.most == 0) {
                EXPECT_EQ(strokes, asPolygon ? 0 : view.height);
                continue;
            }
            EXPECT_GE(strokes, view.least);
            EXPECT_LE(strokes, view.most);
        }
    }
    vekAppSet(before);
}

} // namespace
