#include "core/platform/platform.h"
#include "display_pass.h"

#include <vek/geometry.h>

#include <cmath>
#include <random>
#include <sstream>

namespace display_test
{
namespace
{

TEST(PassSetUp, FitsOnPaperAndKeepsTheViewOnScreen)
{
    Gdx gdx = grey();
    addLine(gdx, line(0, 0, 100, 50));
    VEK::CRecorder paper;
    VEK::gdxDraw(gdx, paper, 0, 0, VEK::paperRules); // without a size, 240 by 320
    EXPECT_EQ(paper.calls()[0].text(), "clipTo 0,0 320,240");
    const CVekMatrix3d fit = VEK::getViewMtx({0, 0, 0}, {100, 50, 0}, 240, 320, 0.05);
    EXPECT_EQ(gdx.viewMtxGet(), fit);
    const CVekPoint3d to = CVekPoint3d(100, 50, 0) * fit;
    EXPECT_NEAR(paper.calls()[4].points[0].x, to[0], 1e-9);
    EXPECT_NEAR(paper.calls()[4].points[0].y, to[1], 1e-9);

    CVekMatrix3d zoom;
    gdx.viewMtxSet(CVekMatrix3d());
    gdx.zoomMtxSet(zoom.setToScaling(2.0, {10, 0, 0}));
    EXPECT_EQ(calls(gdx, VEK::screenRules), "pen 1 #ff0000\nmoveTo -10,0\nlineTo 190,100\n");
    EXPECT_EQ(gdx.viewMtxGet(), CVekMatrix3d());
}

TEST(PassSetUp, SkipsWhatIsUnknown)
{
    Gdx gdx = grey();
    CVekDisplayItem odd;
    odd.type = static_cast<VekDisplayObj>(4);
    odd.vl = line(0, 0, 9, 9);
    addItem(gdx, odd);
    EXPECT_EQ(calls(gdx) + calls(gdx, kScreen), "");
    addLine(gdx, CVekVertexArray());
    EXPECT_EQ(calls(gdx), "pen 1 #ff0000\n");
}

TEST(PassColours, OfLinesAndFillsByModeAndFixedAtTheEnd)
{
    const CVekColor blue = rgb(0x0000FF), none, white = rgb(0xFFFFFF), back = rgb(kBack);
    const struct {
        CVekColor color;
        unsigned mode;
        const char *paper, *screen;
        bool isFill = false;
        CVekColor fill = CVekColor();
    } cases[] = {
        {rgb(0xFF8000), 0, "#ff8000", "#ff8000"},
        {none, 0, "#3f3f3f", "#3f3f3f"},
        {indexed(5), 0, "#0000ff", "#0000ff"},
        {white, 0, "#000000", "#ffffff"},
        {back, 0, "#c0c0c0", "#3f3f3f"},
        {kRed, 2, "#00ff00", "#00ff00"},
        {kRed, 1, "#000000", "#000000"}, // an entry that the table lacks
        {kRed, 9, "#000000", "#000000"},
        {kRed, 15, "#3f3f3f", "#3f3f3f"},
        {kRed, 0, "#0000ff", "#0000ff", true, blue},
        {kRed, 0, "#ff0000", "#ff0000", true, indexed(0)}, // index 0: as the pen
        {kRed, 2, "#00ff00", "#00ff00", true, blue},
        {none, 0, "#0000ff", "#3f3f3f", true, blue},
        {kRed, 0, "#000000", "#ffffff", true, white},
        {kRed, 0, "#c0c0c0", "#3f3f3f", true, back},
    };
    for (const auto& c : cases) {
        Gdx gdx = grey();
        gdx.ColorTabSet(2, rgb(0x00FF00));
        const unsigned flag = c.mode << itemColorModeShift;
        if (c.isFill)
            addRegion(gdx, itemFill | flag, square(2), c.color, c.fill);
        else
            addLine(gdx, line(0, 0, 9, 9), c.color, kNone, flag);
        EXPECT_EQ(calls(gdx, kPaper).substr(0, 14), "pen 1 " + std::string(c.paper) + "\n");
        const std::string screen = "pen 1 " + std::string(c.screen) + (c.isFill ? "\nbrush " : "\nmoveTo 0,0");
        EXPECT_EQ(calls(gdx, kScreen).substr(0, c.isFill ? 27 : 24), screen + (c.isFill ? c.screen : ""));
    }
    Gdx onWhite = Gdx(white, CVekMatrix3d(), 0.0, 0, CVekPoint3d(), CVekPoint3d());
    addLine(onWhite, line(0, 0, 9, 9), CVekColor());
    EXPECT_NE(draw(onWhite, kPaper).text().find("pen 1 #000000"), std::string::npos);
}

TEST(PassPolyline, MatrixAndViewActInTheOrderOfTheItemsKind)
{
    CVekMatrix3d quarter, right;
    quarter.setCoordSystem({}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}); // (1, 0) to (0, 1)
    right.setToTranslation({10, 0, 0});
    Gdx gdx = grey();
    gdx.viewDirectionMtxSet(quarter);
    addLine(gdx, line(1, 0, 5, 0), kRed, right);
    addRegion(gdx, itemFill | itemOutline, square(4), kRed, CVekColor(), right);
    gdx.imagePt(path({}), 0, {1, 1, 0}, kRed, right, -2.0, 4, CVekPoint3d());
    // The region comes first in draw order. Fill and points: matrix, then view; outlines and polylines: the other way.
    EXPECT_EQ(calls(gdx, unfitted(VEK::scalableRules)),
              "pen 1 #ff0000\nbrush #ff0000\npolygon 0,10 0,14 -4,14 -4,10\n"
              "pen 1 #ff0000\nmoveTo 10,0\nlineTo 10,4\nlineTo 6,4\nlineTo 6,0\nlineTo 10,0\n"
              "pen 1 #ff0000\nmoveTo 10,1\nlineTo 10,5\n"
              "pen 1 #ff0000\nnoBrush\nmoveTo -1,11\nlineTo -1,12\n");
}

TEST(PassPoint, EveryStyle)
{
    struct Case {
        unsigned mode;
        double size;
        const char* paper;
        const char* screen; ///< null: the same
    };
    const char* plus = "moveTo 20,30\nlineTo 20,27\nmoveTo 20,30\nlineTo 20,33\n"
                       "moveTo 20,30\nlineTo 23,30\nmoveTo 20,30\nlineTo 17,30\n";
    const Case cases[] = {
        {0, 6, "brush #ff0000\nellipse 21,31 19,29\n", nullptr},
        {1, 6, "", nullptr},
        {2, 6, plus, nullptr},
        {2, 7, plus, nullptr}, // half of 7 is 3
        {3, 6,
         "moveTo 20,30\nlineTo 17,27\nmoveTo 20,30\nlineTo 17,33\n"
         "moveTo 20,30\nlineTo 23,27\nmoveTo 20,30\nlineTo 23,33\n",
         nullptr},
        {4, 6, "moveTo 20,30\nlineTo 20,27\n", nullptr},
        {4, -10, "moveTo 20,30\nlineTo 20,35\n", nullptr}, // the opposite way
        {4, -5, "moveTo 20,30\nlineTo 20,33\n", nullptr},  // -5 halves to -3
        {33, 6, "ellipse 23,33 17,27\n", nullptr},
        {65, 6, "rectangle 23,33 17,27\n", "rectangle 23,33 17,27\n"},
        {65, 7, "rectangle 23,33 17,27\n", "rectangle 23,33 18,28\n"},
        {65, -6, "rectangle 17,27 23,33\n", nullptr},
        {36, -10, "ellipse 15,25 25,35\nmoveTo 20,30\nlineTo 20,35\n", nullptr},
        {96, 6, "ellipse 23,33 17,27\nrectangle 23,33 17,27\nbrush #ff0000\nellipse 21,31 19,29\n", nullptr},
        {8 + 32 + 2, 7, "brush #ff0000\nrectangle 23,33 17,27\n", "solidRect 17,27 7,7 #ff0000\n"},
        {8, -10, "brush #ff0000\nrectangle 15,25 25,35\n", "solidRect 25,35 -10,-10 #ff0000\n"}};
    for (const Case& c : cases) {
        Gdx gdx = grey();
        gdx.imagePt(path({}), 0, {20, 30, 7}, kRed, kNone, c.size, c.mode, CVekPoint3d());
        const std::string start = "pen 1 #ff0000\nnoBrush\n";
        EXPECT_EQ(calls(gdx, kPaper), start + c.paper) << c.mode << " " << c.size;
        EXPECT_EQ(calls(gdx, kScreen), start + (c.screen ? c.screen : c.paper)) << c.mode << " " << c.size;
    }
}

TEST(PassPoint, SizeFollowsTheZoomUnlessNegative)
{
    for (const double size : {6.9, -6.9, 0.0}) { // 0: the object's own
        Gdx gdx = grey();
        gdx.pdSizeSet(3.0);
        CVekMatrix3d zoom;
        gdx.zoomMtxSet(zoom.setToScaling(2.0, CVekPoint3d::kOrigin));
        gdx.imagePt(path({}), 0, {1, 2, 0}, kRed, kNone, size, 4, CVekPoint3d());
        const char* tick = size > 0 ? "lineTo 2,-2\n" : size < 0 ? "lineTo 2,7\n" : "lineTo 2,1\n";
        EXPECT_EQ(calls(gdx), "pen 1 #ff0000\nnoBrush\nmoveTo 2,4\n" + std::string(tick));
    }
}

TEST(PassPoint, MarksMoveToWholePixelsOnScreen)
{
    Gdx gdx = grey();
    gdx.imagePt(path({}), 0, {-0.5, 10.75, 0}, kRed, kNone, -4.0, 4 + 8, CVekPoint3d());
    gdx.imagePt(path({}), 0, {-0.5, 10.75, 0}, kRed, kNone, -4.0, 4, CVekPoint3d());
    const std::string start = "pen 1 #ff0000\nnoBrush\n";
    EXPECT_EQ(calls(gdx, kPaper, true),
              start + "brush #ff0000\nrectangle -2,8 1,12\n" + start + "moveTo 0,10\nlineTo 0,12\n");
    EXPECT_EQ(calls(gdx, kScreen, true),
              start + "solidRect 2,12 -4,-4 #ff0000\n" + start + "moveTo 0,10\nlineTo 0,12\n");
}

TEST(PassArea, OddScalesAndPlaces)
{
    const auto drawn = [](Gdx& gdx, Rules rules, const VEK::DrawArea& area) {
        VEK::CRecorder recorder;
        VEK::gdxDraw(gdx, recorder, area, rules);
        const std::string text = recorder.text();
        const std::size_t pen = text.find("pen ");
        return pen == std::string::npos ? text : text.substr(pen);
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    Gdx dots = grey(); // a dot, then a line
    addLine(dots, polyline({{{20, 5, 0}, {20.1, 5, 0}}, {{30, 5, 0}, {40, 5, 0}}}), kRed, kNone, 0, 3);
    const std::string rest = "moveTo 30,5\nlineTo 40,5\n";
    for (const auto& [scale, width, dot] : {std::tuple(2.0, "pen 6", "solidRect 19,4 2,2 #ff0000\n"),
                                            {2.5, "pen 8", "solidRect 19,4 3,3 #ff0000\n"},
                                            {0.2, "pen 1", "pixel 20,5 #ff0000\n"},
                                            {0.0, "pen 3", "pixel 20,5 #ff0000\n"},
                                            {-2.0, "pen 3", "pixel 20,5 #ff0000\n"},
                                            {nan, "pen 3", "pixel 20,5 #ff0000\n"}})
        EXPECT_EQ(drawn(dots, kScreen, {0, 0, 100, 100, scale}), width + (" #ff0000\n" + (dot + rest))) << scale;
    EXPECT_EQ(drawn(dots, kPaper, {0, 0, 100, 100, 2.5}), "pen 8 #ff0000\nmoveTo 20,5\nlineTo 22.5,5\n" + rest);
    EXPECT_EQ(drawn(dots, kPaper, {nan, 0, 100, 100}), "");
    EXPECT_EQ(drawn(dots, kPaper, {0, std::numeric_limits<double>::infinity(), 100, 100}), "");

    // Rows stay a pixel apart under a pen of one, and the hatch has the wide one.
    Gdx both = grey();
    addRegion(both, itemFill | itemHatch, square(2), kRed, CVekColor(), kNone, {L"_USER", 0.0, 9.0, false});
    EXPECT_EQ(drawn(both, kPaper, {10, 20, 100, 100, 3.0}),
              "pen 1 #ff0000\nmoveTo 10,20\nlineTo 12,20\nmoveTo 10,21\nlineTo 12,21\npen 3 #ff0000\n"
              "moveTo 12,20\nlineTo 10,20\n");
}

TEST(PassRegion, OnlyRowsOfTheDrawingArea)
{
    Gdx gdx = grey();
    addRegion(gdx, itemFill, square(1), kRed, CVekColor(), CVekMatrix3d().setToScaling(1e12, {0.5, 0.5, 0.0}));
    const auto recorded = draw(gdx, kPaper);
    EXPECT_EQ(recorded.calls().size(), 3u + 2 * 100);
    EXPECT_EQ(recorded.calls().back().points[0].y, 99.0);
    Gdx whole = grey();
    addRegion(whole, itemFill, square(2)); // its upper edge lies on row 0, its lower one below the last row
    EXPECT_EQ(calls(whole), "pen 1 #ff0000\nmoveTo 0,0\nlineTo 2,0\nmoveTo 0,1\nlineTo 2,1\n");
}

TEST(PassRegion, ScanLinesAgreeWithAPointTest)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> number(0.0, 99.0);
    int compared = 0;
    for (int round = 0; round < 20; ++round) {
        CVekArrayTempl<CVekVertexArray> region;
        for (int k = 0; k < 2; ++k) {
            std::vector<std::pair<double, double>> corners(7);
            for (auto& [x, y] : corners)
                x = number(random), y = number(random);
            region.append(shapes::polygon(corners, {0, 0, k == 0 ? 0.7 : 0.0}));
        }
        Gdx gdx = grey();
        addRegion(gdx, itemFill, region);
        const auto recorded = draw(gdx, kPaper);
        for (int y = 0; y < 100; ++y) {
            for (int k = 0; k < 5; ++k, ++compared) {
                const double x = number(random);
                bool drawn = false;
                for (std::size_t i = 4; i < recorded.calls().size(); i += 2) {
                    const auto& to = recorded.calls()[i].points[0];
                    const auto& from = recorded.calls()[i - 1].points[0];
                    drawn = drawn || (to.y == y && from.x <= x && x <= to.x);
                }
                ASSERT_EQ(drawn, VEK::g_vll_pt_inside(region, {x, double(y), 0}) > 0)
                    << round << ": " << x << ", " << y;
            }
        }
    }
    EXPECT_EQ(compared, 10000);
}

TEST(PassRegion, PolygonWithHolesOutOfTheClipOnScreen)
{
    Gdx gdx = grey();
    addRegion(gdx, itemFill | itemOutline, {box(0, 0, 9), box(2, 2, 3), {}}); // the empty one changes no clip
    const std::string areas = "pen 1 #ff0000\nbrush #ff0000\nclipOut 2,2 5,2 5,5 2,5\npolygon 0,0 9,0 9,9 0,9\n"
                              "clipRestore\n";
    const std::string outline = "pen 1 #ff0000\nmoveTo 0,0\nlineTo 9,0\nlineTo 9,9\nlineTo 0,9\nlineTo 0,0\n"
                                "moveTo 2,2\nlineTo 5,2\nlineTo 5,5\nlineTo 2,5\nlineTo 2,2\n";
    EXPECT_EQ(calls(gdx, kScreen), areas + outline);
    EXPECT_EQ(calls(gdx, unfitted(VEK::scalableRules)), areas + outline);
    Gdx solid = grey();
    addRegion(solid, itemFill, square(9));
    EXPECT_EQ(calls(solid, kScreen), "pen 1 #ff0000\nbrush #ff0000\npolygon 0,0 9,0 9,9 0,9\n");
    Gdx empty = grey();
    addRegion(empty, itemFill | itemOutline, CVekArrayTempl<CVekVertexArray>());
    EXPECT_EQ(calls(empty, kScreen), "pen 1 #ff0000\n");
}

TEST(PassText, BodyWithoutHolesAndAnEdgeOfOnePixel)
{
    CVekDisplayItem item;
    item.type = dispText;
    item.color = kRed;
    item.thickn = 2;
    item.regl = {{box(0, 0, 9), box(2, 2, 3), {}}, {line(20, 20, 30, 20)}, {}}; // with an open one, and empty ones
    Gdx gdx = grey();
    addItem(gdx, item);
    EXPECT_EQ(calls(gdx),
              "brush #ff0000\npen 2 #ff0000\nclipOut 2,2 5,2 5,5 2,5\npolygon 0,0 9,0 9,9 0,9\nclipRestore\n"
              "pen 1 #ff0000\nmoveTo 0,0\nlineTo 9,0\nlineTo 9,9\nlineTo 0,9\nlineTo 0,0\n"
              "moveTo 2,2\nlineTo 5,2\nlineTo 5,5\nlineTo 2,5\nlineTo 2,2\n"
              "pen 1 #ff0000\nmoveTo 20,20\nlineTo 30,20\n");
}

TEST(PassText, ArcsTakeTheChordsOfTheirRules)
{
    CVekDisplayItem item;
    item.type = dispText;
    item.color = kRed;
    item.regl[0][0] = polyline({{{1, 0, 0}, {-1, 0, 0}, 1.0}, {{-1, 0, 0}, {1, 0, 0}, 1.0}});
    item.mtx.setToScaling(100.0, CVekPoint3d::kOrigin);
    Gdx gdx = grey();
    addItem(gdx, item);
    const auto corners = [&](Rules rules) {
        const auto recorded = draw(gdx, rules);
        for (const auto& call : recorded.calls()) {
            if (call.op == SurfaceOp::polygon)
                return static_cast<int>(call.points.size());
        }
        return 0;
    };
    const CVekVertex half({1, 0, 0}, {-1, 0, 0}, 1.0);
    CVekVertex pixels = half;
    pixels.transformBy(item.mtx);
    EXPECT_EQ(corners(kScreen), 2 * VEK::vx_split_dif(half, 0.1));
    EXPECT_EQ(corners(kPaper), 2 * VEK::vx_split_dif(pixels, 0.5));
}

TEST(PassScreenFixed, KeepsItsSizeAndItsReferencePoint)
{
    // One unit is the shorter side, 100, divided by 1.1; y points up from the reference point.
    const double unit = 100.0 / 1.1;
    for (const double factor : {1.0, 5.0}) {
        Gdx gdx = grey();
        CVekMatrix3d zoom, view;
        gdx.viewMtxSet(view.setCoordSystem({3, 90, 0}, {2, 0, 0}, {0, -2, 0}, {0, 0, 2}));
        gdx.zoomMtxSet(zoom.setToScaling(factor, {20, 10, 0}));
        const CVekPoint3d reference(10, 7, 0);
        addLine(gdx, polyline({{{0, 0, 0}, {1, 0, 0}}, {{1, 0, 0}, {1, 1, 0}}}), kRed, kNone, itemScreenFixed, 1,
                reference);
        gdx.imagePt(path({}), itemScreenFixed, {1, 0, 0}, kRed, kNone, 0.5, 4, reference);
        gdx.imageTxt(path({}), itemScreenFixed, L"-", kRed, kNone, L"", {}, reference);
        const CVekPoint3d anchor = reference * (gdx.zoomMtxGet() * gdx.viewMtxGet());
        const auto recorded = draw(gdx, kPaper);
        const std::vector<VEK::SurfaceCall>& all = recorded.calls();
        ASSERT_EQ(all.size(), 19u);
        const auto expect = [&](std::size_t call, double x, double y) {
            EXPECT_NEAR(all[call].points[0].x, anchor[0] + x, 1e-9);
            EXPECT_NEAR(all[call].points[0].y, anchor[1] + y, 1e-9);
        };
        expect(3, 0, 0);
        expect(4, unit, 0);
        expect(5, unit, -unit);
        expect(8, unit, 0);
        expect(9, unit, -22); // half of a size of 45 pixels
        expect(18, 0.83322 * unit, -0.488814 * unit);
    }
}

TEST(PassInput, WhatIsNotFiniteEndsQuickly)
{
    for (const double odd : {VEK::nan(), std::numeric_limits<double>::infinity(), 1e300}) {
        Gdx gdx = grey();
        const CVekMatrix3d m = CVekMatrix3d().setToScaling(odd, CVekPoint3d::kOrigin);
        CVekArrayTempl<CVekVertexArray> region;
        region[0] = polyline({{{0, odd, 0}, {odd, 5, 0}, odd}, {{odd, 5, 0}, {0, odd, 0}}});
        region[1] = polyline({{{0, 0, 0}, {10, 0, 0}, 1.0}, {{10, 0, 0}, {0, 0, 0}, 1.0}});
        for (const CVekMatrix3d& matrix : {kNone, m}) {
            addLine(gdx, region[0], kRed, matrix);
            addLine(gdx, region[1], kRed, matrix);
            addRegion(gdx, itemFill | itemOutline, region, kRed, CVekColor(), matrix);
            gdx.imagePt(path({}), 0, {odd, 1, 0}, kRed, matrix, odd, 8 + 64, CVekPoint3d());
            gdx.imageTxt(path({}), 0, L"O", kRed, matrix, L"", {odd, 0, 0}, CVekPoint3d());
        }
        for (const PassRules& rules : {VEK::paperRules, VEK::screenRules, VEK::scalableRules})
            EXPECT_LT(draw(gdx, rules).calls().size(), 100000u);
    }
}

/// Gives one pixel for the pictures "a" and "b", and tells what it was asked for.
class Source : public VEK::CPictureSource
{
public:
    int passes = 0;
    std::string asked;

    void begin() override { ++passes; }
    std::shared_ptr<const VEK::CPixels> picture(const VEK::PictureRequest& r) override
    {
        std::ostringstream text;
        text << VEK::platform::utf8Of(static_cast<const wchar_t*>(r.name)) << ' ' << r.id << ' ' << r.cx << 'x' << r.cy
             << (r.transparent ? " through " : " ") << std::hex << r.back << '\n';
        asked += text.str();
        return r.name == L"none" ? nullptr : m_pixel;
    }

private:
    const std::shared_ptr<const VEK::CPixels> m_pixel = std::make_shared<VEK::CPixels>(VEK::CPixels{1, 1, {7}});
};

TEST(PassPicture, ComesFromTheSourceInEveryPass)
{
    Gdx gdx = grey();
    gdx.imagePicture(path({}), 0, L"a", 5, {7.9, 8, 0}, {27, 18.9, 0});
    gdx.imagePicture(path({}), itemFullWindow | itemTransparent, L"b", -1, {7, 8, 0}, {27, 18, 0});
    gdx.imagePicture(path({}), 0, L"none", 5, {3, 3, 0}, {3, 3, 0});
    const std::string sizes[] = {"a 5 20x10", "b -1 200x100", "none 5 200x100"};
    for (const auto& [rules, through, back] : {std::tuple(kPaper, " ", "ffffff"),
                                               {kScreen, " ", "c0c0c0"},
                                               {unfitted(VEK::scalableRules), " through ", "ffffff"}}) {
        Source source;
        for (int pass = 1; pass <= 2; ++pass) {
            VEK::CRecorder recorder(false);
            source.asked.clear();
            VEK::gdxDraw(gdx, recorder, 100, 200, rules, &source);
            EXPECT_EQ(source.passes, pass);
            EXPECT_EQ(source.asked,
                      sizes[0] + ' ' + back + '\n' + sizes[1] + through + back + '\n' + sizes[2] + ' ' + back + '\n');
            EXPECT_EQ(textOf(recorder, rules), "picture 7,8 1,1\npicture 0,0 1,1\n");
        }
    }
}

} // namespace
} // namespace display_test
