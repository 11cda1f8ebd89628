// Lines of the draw pass: dots, arcs, line patterns, hatches.
#include "display_pass.h"
#include "pattern_host.h"

#include <vek/geometry.h>
#include <vek/values/units.h>

#include <cmath>
#include <numbers>

namespace display_test
{
namespace
{

TEST(PassPolyline, LinesDotsAndBreaks)
{
    const CVekVertex dot({20, 5, 0}, {20.1, 5, 0}); // shorter than 0.22
    const CVekVertex dash({30, 5, 0}, {40, 5, 0});
    const CVekVertex back({40, 5, 0}, {20, 5, 0});
    Gdx gdx = grey();
    addLine(gdx, polyline({{{0, 0, 0}, {10, 0, 0}}, {{10, 0, 0}, {10, 8, 0}}, dot, dash}));
    addLine(gdx, polyline({dot, {{20.1, 5, 0}, {30, 5, 0}}})); // continuous: no dot
    addLine(gdx, polyline({dot, dash, back}));                 // closed, though it is broken
    const std::string open = "pen 1 #ff0000\nmoveTo 0,0\nlineTo 10,0\nlineTo 10,8\n";
    const std::string dashes = "moveTo 30,5\nlineTo 40,5\n";
    const std::string continuous = "pen 1 #ff0000\nmoveTo 20,5\nlineTo 20.1,5\nlineTo 30,5\n";
    EXPECT_EQ(calls(gdx, kPaper), open + "moveTo 20,5\nlineTo 21,5\n" + dashes + continuous +
                                      "pen 1 #ff0000\nmoveTo 20,5\nlineTo 20.1,5\n" + dashes + "lineTo 20,5\n");
    EXPECT_EQ(calls(gdx, kScreen), open + "pixel 20,5 #ff0000\n" + dashes + continuous +
                                       "pen 1 #ff0000\npixel 20,5 #ff0000\n" + dashes + "lineTo 20,5\n");
}

CVekVertexArray circle(double radius)
{
    return shapes::circle(0, 0, radius);
}

TEST(PassPolyline, ArcsTakeTheChordsOfTheirLengthAtAnyZoom)
{
    CVekMatrix3d scale, turn;
    scale.setToScaling(7.0, CVekPoint3d::kOrigin);
    turn.setToRotation(1.0, {1, 2, 3}, CVekPoint3d::kOrigin);
    const struct {
        double radius, tolerance;
    } cases[] = {{10.0, 0.05}, {1.2, 0.01}}; // 1.2: halves shorter than 4
    for (const auto& c : cases) {
        for (const CVekMatrix3d& m : {kNone, scale, turn, scale * turn}) {
            Gdx gdx = grey();
            addLine(gdx, circle(c.radius), kRed, m);
            const auto recorded = draw(gdx, kPaper);
            int points = 0;
            const CVekMatrix3d toPlane = m.inverse();
            for (const auto& call : recorded.calls()) { // back along z to the circle's plane
                if (call.op != VEK::SurfaceOp::moveTo && call.op != VEK::SurfaceOp::lineTo)
                    continue;
                const CVekVector3d down = CVekVector3d::kZAxis * toPlane;
                CVekPoint3d q = CVekPoint3d(call.points[0].x, call.points[0].y, 0) * toPlane;
                q -= down * (q[2] / down[2]);
                EXPECT_NEAR(q.distanceTo(CVekPoint3d::kOrigin), c.radius, 1e-9);
                ++points;
            }
            EXPECT_EQ(points, 1 + 2 * VEK::vx_split_dif(circle(c.radius)[0], c.tolerance));
        }
    }
}

/// Keeps true arcs.
class ArcRecorder : public VEK::CRecorder
{
public:
    bool hasArcs() const override { return true; }
    void arcTo(const VEK::SurfaceArc& arc) override
    {
        arcs.push_back(arc);
        starts.push_back(calls().back().points[0]);
    }
    std::vector<VEK::SurfaceArc> arcs;
    std::vector<VEK::SurfacePoint> starts;
};

TEST(PassPolyline, TrueArcsGoThroughTheSamePoints)
{
    const CVekMatrix3d turn = CVekMatrix3d().setToRotation(1.0, {1, 2, 3}, CVekPoint3d(4, 5, 6));
    for (const double bulge : {0.3, -0.3, 1.0, 4.0, -4.0}) {
        Gdx gdx = grey();
        const CVekVertex arc({10, 3, 2}, {17, 5, 2}, bulge);
        addLine(gdx, polyline({{{0, 0, 2}, {10, 3, 2}}, arc, {{17, 5, 2}, {20, 5, 2}}}), kRed, turn);
        ArcRecorder recorder;
        VEK::gdxDraw(gdx, recorder, 100, 200, kPaper);
        ASSERT_EQ(recorder.arcs.size(), 1u);
        const VEK::SurfaceArc& drawn = recorder.arcs[0];
        EXPECT_EQ(recorder.text().substr(recorder.text().find("pen")).substr(0, 21), "pen 1 #ff0000\nmoveTo ");
        const CVekPoint3dArray wanted = VEK::g_vl_expl(CVekVertexArray(arc), 8).pts(false, 0.0);
        ASSERT_EQ(wanted.len(), 9);
        for (int i = 0; i <= 8; ++i) {
            const double angle = drawn.sweep * i / 8;
            const CVekPoint3d p = wanted[i] * turn;
            EXPECT_NEAR(drawn.center.x + std::cos(angle) * drawn.u.x + std::sin(angle) * drawn.v.x, p[0], 1e-9);
            EXPECT_NEAR(drawn.center.y + std::cos(angle) * drawn.u.y + std::sin(angle) * drawn.v.y, p[1], 1e-9);
        }
        EXPECT_NEAR(recorder.starts[0].x, (arc.start * turn)[0], 1e-12);
    }
}

TEST(PassDashes, AreThoseOfTheWholeLineWhateverPartOfItShows)
{
    shapes::Random random(31);
    const auto picture = [](Gdx& gdx) {
        VEK::CPixels pixels;
        EXPECT_TRUE(VEK::rasterPixels(pixels, 200, 100, 0xFFFFFF));
        VEK::gdxDraw(gdx, *VEK::rasterSurface(pixels), 100, 200, kScreen);
        return std::move(pixels.data);
    };
    Gdx empty = grey();
    const auto blank = picture(empty);
    const auto unit = VEK::acad_unit_get();
    static const struct {
        CVekArrayTempl<double> type, meaning; ///< of one entry or none: a solid line
    } kForms[] = {{{1}, {}},           {{1, 0, 0}, {}}, {{7}, {}}, {{1, 1, 0}, {10, -4}}, {{1, 1, 1}, {11, -5, 0, -5}},
                  {{0, 0, 3}, {0, -4}}};
    int shown = 0, dotted = 0, judged = 0;
    for (int round = 0; round < 200; ++round) {
        SCOPED_TRACE(round);
        VEK::acad_unit_set(static_cast<Vek::lUnit>(random.pick({1, 4, 4, 5})));
        double dot = 0.21;
        VEK::acadUnitCv(dot, Vek::unitMillimetre, Vek::unitCurrent);
        const double scale = random.pick({1.0, 0.3, 4.0}), reach = random.pick({3.0, 60.0, 900.0, 3000.0});
        CVekArrayTempl<double> linetype, dashes; // and as it is laid, where dots have a length
        for (int i = 2 + random.whole(4); i > 0; --i)
            linetype.append(random.coin() ? random.uniform(-9, 0) : random.pick({0.1, 5.0, 12.0, i > 2 ? 0.0 : 5.0}));
        const auto& form = kForms[random.whole(6)];
        const bool isForm = random.whole(3) == 0;
        for (const double dash : isForm ? form.meaning : linetype)
            dashes.append(dash == 0.0 ? dot : dash * scale);
        if (isForm)
            linetype = form.type;
        CVekVertexArray vl = random.coin() ? random.star(0, 0, 0.3 * reach, reach, 3 + random.whole(5))
                                           : random.walk(1 + random.whole(4), reach);
        if (random.coin())
            vl.transformBy(random.tilt());
        if (random.coin())
            shapes::turnNormal(vl);
        CVekMatrix3d own, place, scaled, centre;
        const CVekMatrix3d view = random.coin() ? random.motion() : CVekMatrix3d();
        if (random.coin())
            own.setToMirroring({CVekPoint3d::kOrigin, random.direction()});
        CVekVertexArray seen = vl.getTransformedCopy(view);
        const CVekPoint3d at = seen[random.whole(seen.len())].mid() * own; // comes to lie in the picture
        place.setToTranslation({random.uniform(0, 200), random.uniform(0, 100), 0});
        scaled.setToScaling(random.pick({0.5, 1.0, 7.0}), CVekPoint3d::kOrigin);
        const CVekMatrix3d zoom = place * scaled * centre.setToTranslation(CVekPoint3d::kOrigin - at);
        Gdx quick = grey(), plain = grey();
        quick.viewDirectionMtxSet(view);
        const unsigned long width = 1 + random.whole(4);
        if (random.coin()) // as an outline
            quick.imageReg(path({}), itemNoExt | itemOutline, shapes::list({vl}), kRed, own, linetype, scale, width, {},
                           {}, {});
        else
            quick.imageVl(path({}), itemNoExt, vl, kRed, own, linetype, scale, width, {});
        // All of it, drawn as a plain polyline.
        ASSERT_TRUE(dashes.len() < 2 || vek_gdx_image_vl_measure(seen, dashes, 1));
        plain.imageVl(path({}), itemNoExt, seen, kRed, own, {}, 1.0, width, {});
        for (Gdx* gdx : {&quick, &plain})
            gdx->zoomMtxSet(zoom);
        EXPECT_EQ(calls(quick, kPaper), calls(plain, kPaper));
        const auto pixels = picture(quick);
        EXPECT_TRUE(pixels == picture(plain));
        shown += pixels != blank;
        dotted += draw(quick, kScreen).text().find("pixel") != std::string::npos;
        ++judged;
    }
    VEK::acad_unit_set(unit);
    EXPECT_GT(judged, 190);
    EXPECT_GT(shown, 120);
    EXPECT_GT(dotted, 30);

    Gdx far = grey(); // 120 m of dots, of which the picture shows 200 mm
    far.imageVl(path({}), 0, line(0, 5, 120000, 5), kRed, kNone, doubles({0, 0, 3}), 1.0, 1, {});
    const auto recorded = draw(far, kScreen);
    EXPECT_NEAR(static_cast<double>(recorded.calls().size()), 200 / 4.21, 12);
}

std::size_t countOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

TEST(PassHatch, LinesDotsOrSolid)
{
    PatternHost host(L"TWO", {{0, 0, 0, 0, 2}});
    host.add(L"DOTS", {{0, 0, 0, 0, 2, 0.0, -5.0}});
    static constexpr struct {
        unsigned flag;
        const wchar_t* pattern;
        double size, factor, view, scale;   // of the region, its matrix, the view and the drawing area
        std::size_t paper, lines, polygons; // the last two on the screen
    } kCases[] = {
        {itemHatch, L"TWO", 5, 10, 1, 1, 3, 3, 0},                    // at 0, 2 and 4
        {itemFill | itemHatch, L"TWO", 5, 10, 1, 1, 50 + 3, 0, 1},    // both on paper only
        {itemHatch | itemOutline, L"TWO", 50, 1, 1, 1, 50 + 4, 4, 1}, // lines 2 pixels apart: too dense
        {itemHatch | itemOutline, L"TWO", 5, 10, 1, 9, 50 + 4, 4, 1}, // 20 units, of nine pixels each
        {itemHatch, L"DOTS", 12, 10, 1, 1, 0, 0, 0},                  // as many as there are pixels on the screen
        {itemHatch, L"TWO", 50, 10, 0.1, 1, 26, 0, 1},                // a view that shrinks counts on screen alone
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(&c - kCases);
        Gdx gdx = grey();
        CVekMatrix3d view, m;
        gdx.viewDirectionMtxSet(view.setToScaling(c.view, CVekPoint3d::kOrigin));
        addRegion(gdx, c.flag, square(c.size), kRed, rgb(0x0000FF), m.setToScaling(c.factor, {}),
                  {c.pattern, 0.0, 1.0, false});
        std::size_t dots = 0;
        for (Rules rules : {kScreen, kPaper}) {
            VEK::CRecorder recorder;
            VEK::gdxDraw(gdx, recorder, {0, 0, 200, 100, c.scale}, rules);
            const std::string text = recorder.text();
            const bool onScreen = rules.fillsBackground;
            dots = onScreen ? countOf(text, "pixel") : dots;
            EXPECT_EQ(countOf(text, "lineTo"), onScreen ? c.lines : c.paper + dots);
            EXPECT_EQ(countOf(text, "polygon"), onScreen ? c.polygons : 0);
            EXPECT_NE(text.find(" #0000ff\n"), std::string::npos);
        }
        EXPECT_EQ(dots > 6, c.paper == 0);
    }
}

TEST(PassHatch, AsksTheHostOnceForAPattern)
{
    PatternHost host(L"TWO", {{0, 0, 0, 0, 2}});
    host.add(L"DASHED", {{0, 0, 0, 0, 50, 4, -4}});
    Gdx gdx = grey();
    for (const wchar_t* name : {L"TWO", L"DASHED", L"NONE", L"TWO", L"DASHED", L"NONE"})
        addRegion(gdx, itemHatch, square(90), kRed, kRed, kNone, {name, 0.0, 3.0, false});
    EXPECT_GT(countOf(calls(gdx, kScreen), "lineTo"), 20u);
    EXPECT_EQ(host.asked(), 3);
    calls(gdx, kScreen);
    EXPECT_EQ(host.asked(), 6); // it may have changed
}

TEST(PassHatch, IsDrawnWhereItIsSeenAndSolidWhereItTakesTooManyLines)
{
    const PatternHost host(L"DASHED", {{0, 0, 0, 0, 50, 4, -4}});
    // A wall 120 m long and 4 m high takes 1.2 million dashes, and 4 million lines that are a thousandth apart.
    static constexpr struct {
        const wchar_t* name;
        double scale;
        double x, y, factor; // the place in the corner of the view, and its zoom
        int height, width;
        int least, most; // strokes; none where it is solid
        double angle = 0.0;
    } kViews[] = {{L"DASHED", 1, 119000, 3940, 5, 100, 200, 5, 8}, // one row, 40 of the wall
                  {L"DASHED", 1, 119990, 3990, 5, 100, 200, 1, 5}, // the far corner
                  {L"DASHED", 1, 0, 0, 0.05, 100, 200, 20000, 21000},
                  {L"DASHED", 1, 0, 0, 0.05, 200, 6000, 0, 0},
                  {L"DASHED", 1, 0, 0, 0.04, 100, 200, 0, 0}, // rows 2 apart: too dense
                  {L"_USER", 1e-3, 5, 5, 1e4, 100, 200, 9, 13},
                  {L"_USER", 1e-3, 0, 0, 0.05, 100, 200, 0, 0},
                  {L"_USER", 1e-300, 5, 5, 1e4, 100, 200, 0, 0},
                  {L"_USER", 1e-3, 5, 5, 1e4, 100, 200, 20, 23, 0.8}, // across the corners of the view
                  {L"_USER", 1e-3, 5, 5, 1e4, 100, 200, 20, 23, -0.8}};
    for (const auto& view : kViews) {
        for (Rules rules : {kPaper, kScreen}) {
            SCOPED_TRACE(&view - kViews);
            Gdx gdx = grey();
            addRegion(gdx, itemHatch, {shapes::rectangle(0, 0, 120000, 4000)}, kRed, kRed, kNone,
                      {view.name, view.angle, view.scale, false});
            CVekMatrix3d zoom, move;
            move.setToTranslation({-view.x, -view.y, 0});
            gdx.zoomMtxSet(zoom.setToScaling(view.factor, CVekPoint3d::kOrigin) * move);
            const std::string drawn = draw(gdx, rules, false, view.height, view.width).text();
            const int strokes = static_cast<int>(countOf(drawn, "moveTo"));
            const bool asPolygon = rules.fill == VEK::PassRules::Fill::polygon;
            EXPECT_EQ(countOf(drawn, "polygon"), view.most == 0 && asPolygon ? 1u : 0u);
            if (view.most == 0) {
                EXPECT_EQ(strokes, asPolygon ? 0 : view.height);
                continue;
            }
            EXPECT_GE(strokes, view.least);
            EXPECT_LE(strokes, view.most);
        }
    }
}

TEST(PassOutside, OnlyTheScreenLeavesOutWhatCannotShow)
{
    const std::pair<double, bool> places[] = {{-300, false}, {-30, true}, {150, true}, {300, false}}; // of 200 pixels
    for (const auto& [x, shows] : places) {
        const CVekMatrix3d move = CVekMatrix3d().setToTranslation({x, 0, 0});
        const CVekArrayTempl<CVekVertexArray> region{shapes::polygon({{0, 20}, {50, 20}, {50, 60}}, {0, 1})};
        for (const unsigned flag : {0u, unsigned(itemFill), unsigned(itemHatch), unsigned(itemOutline)}) {
            Gdx gdx = grey();
            if (flag == 0)
                addLine(gdx, region[0], kRed, move, 0, 9);
            else
                addRegion(gdx, flag, region, kRed, CVekColor(), move, {L"_USER", 0.0, 9.0, false});
            const auto draws = [](const std::string& text) {
                return countOf(text, "lineTo") + countOf(text, "polygon") > 0;
            };
            EXPECT_TRUE(draws(calls(gdx, kPaper)));
            EXPECT_EQ(draws(calls(gdx, kScreen)), shows) << x << ' ' << flag;
        }
    }
    Gdx arc = grey(); // its chord lies outside, its bow does not
    addRegion(arc, itemFill, {polyline({{{-50, 0, 0}, {-50, 90, 0}, 3.0}, {{-50, 90, 0}, {-50, 0, 0}}})});
    EXPECT_EQ(countOf(calls(arc, kScreen), "polygon"), 1u);
}

} // namespace
} // namespace display_test
