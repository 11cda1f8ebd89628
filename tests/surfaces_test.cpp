#include <vek/surfaces.h>

#include "emf_reader.h"
#include "surfaces_scene.h"
#include "test_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <span>

namespace
{

using VEK::CSurface;
using VEK::SurfacePoint;
using Calls = std::function<void(CSurface&)>;

std::string fileOf(const std::unique_ptr<VEK::CFileSurface>& surface, const VEK::CMemorySink& sink, const Calls& calls)
{
    calls(*surface);
    EXPECT_TRUE(surface->finish());
    return sink.bytes();
}

std::string emfBytes(const Calls& calls, int fineness = 1)
{
    VEK::CMemorySink sink;
    return fileOf(VEK::emfSurface(sink, fineness), sink, calls);
}

/// What stands between the head and the end of an SVG file.
std::string svgBody(const Calls& calls)
{
    VEK::CMemorySink sink;
    const std::string all = fileOf(VEK::svgSurface(sink, 320, 240), sink, calls);
    const std::size_t head = all.find(">\n", all.find("<svg ")) + 2;
    EXPECT_TRUE(all.ends_with("</svg>\n"));
    return all.substr(head, all.size() - head - 7);
}

/// Draws and reads back; the file must be sound.
EmfFile emf(const Calls& calls, int fineness = 1)
{
    EmfFile file(emfBytes(calls, fineness));
    EXPECT_EQ(file.fault, "");
    EXPECT_EQ(file.fineness, fineness);
    return file;
}

void line(CSurface& s, double x1, double y1, double x2, double y2)
{
    s.moveTo(x1, y1);
    s.lineTo(x2, y2);
}

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
const Calls kScene = [](CSurface& s) { drawScene(s); };
using Quad = std::array<std::int32_t, 4>;

const SurfacePoint kSquare[] = {{0, 0}, {50, 0}, {50, 50}, {0, 50}}, kHole[] = {{10, 10}, {20, 10}, {20, 20}, {10, 20}},
                   kAcross[] = {{40, 10}, {60, 10}, {60, 20}};

TEST(Emf, EmptyPictureIsAValidFile)
{
    const EmfFile file = emf([](CSurface&) {});
    EXPECT_TRUE(file.records.size() == 2u && file.handles == 1u);
    EXPECT_TRUE(file.bounds == (Quad{0, 0, -1, -1}) && file.frame == (Quad{0, 0, 0, 0}));
}

/// Draws at random, in part beyond 120 by 90 pixels.
void scribble(CSurface& s, unsigned seed)
{
    std::mt19937 random(seed);
    const auto number = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    bool hasHoles = false;
    for (int i = number(16); i > 0; --i) {
        std::vector<SurfacePoint> p(2 + random() % 6);
        for (SurfacePoint& point : p)
            point = {number(1200) / 8.0 - 15, number(900) / 8.0 - 12};
        const int count = static_cast<int>(p.size()), counts[] = {2, count - 2};
        const unsigned color = std::array{0u, 0xFFu, 0x8000u, 0x123456u}[random() % 4];
        const VEK::CPixels pixels{3, 2, {0xFF0000FF, 0x00FFFFFF, 0xFF00FF00, color | 0xFF000000, color, 0xFF0201FF}};
        switch (number(15)) {
        case 0: s.clipTo(p[0].x, p[0].y, p[1].x, p[1].y), hasHoles = false; break;
        case 1: s.clipOut(p.data(), count), hasHoles = true; break;
        case 2: s.clipRestore(), hasHoles = false; break;
        case 3: s.pen(number(5), color); break;
        case 4: number(2) ? s.noPen() : s.noBrush(); break;
        case 5: s.brush(color); break;
        case 6: // a hole that happens to lie inside takes nothing away from the edge
            if (hasHoles)
                number(2) ? s.noPen() : s.noBrush();
            s.polygon(p.data(), count);
            break;
        case 7: {
            const double x = p[0].x, y = p[0].y;
            const SurfacePoint box[] = {{x, y}, {x + 30, y}, {x + 30, y + 20}, {x, y + 20}};
            const SurfacePoint hole[] = {{x + 9, y + 3}, {x + 9, y + 9.5}, {x + 20, y + 7}};
            s.clipRestore();
            s.clipOut(hole, 3);
            s.polygon(box, 4);
            s.clipRestore(), hasHoles = false;
            break;
        }
        case 8: s.rectangle(p[0].x, p[0].y, p[1].x, p[1].y); break;
        case 9: s.ellipse(p[0].x, p[0].y, p[1].x, p[1].y); break;
        case 10: s.pixel(p[0].x, p[0].y, color); break;
        case 11: s.solidRect(p[0].x, p[0].y, p[1].x - 60, p[1].y - 40, color); break;
        case 12: s.picture(p[0].x, p[0].y, pixels); break;
        case 13: s.polylines(p.data(), counts, 2); break;
        default: s.polyline(p.data(), count);
        }
        s.lineTo(p[0].y, p[0].x);
    }
}

TEST(Emf, ShowsWhatTheSameCallsShowOnPixels)
{
    int lit = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        const Calls calls = [seed](CSurface& s) { scribble(s, seed); };
        VEK::CPixels expected, played;
        ASSERT_TRUE(VEK::rasterPixels(expected, 120, 90, 0x998877) && VEK::rasterPixels(played, 120, 90, 0x998877));
        calls(*VEK::rasterSurface(expected));
        EmfFile file = emf(calls);
        file.play(*VEK::rasterSurface(played));
        ASSERT_EQ(played, expected) << seed;
        for (int i = 0; i < 120 * 90; ++i) {
            if (expected.at(i % 120, i / 120) == 0xFF998877)
                continue;
            ++lit;
            ASSERT_TRUE(file.bounds[0] <= i % 120 && i % 120 <= file.bounds[2] && file.bounds[1] <= i / 120 &&
                        i / 120 <= file.bounds[3])
                << seed;
        }
    }
    EXPECT_GT(lit, 1000000);
}

TEST(Emf, PicksTheSmallestRecord)
{
    const auto bytes = [](const std::vector<SurfacePoint>& points) {
        return emfBytes([&](CSurface& s) { s.polyline(points.data(), static_cast<int>(points.size())); }).size() -
               emfBytes([](CSurface& s) { s.pixel(0, 0, 0); }).size() + 20;
    };
    const std::size_t pen = 28 + 12; // created and selected
    EXPECT_EQ(bytes({{0, 0}, {9, 9}}), pen + 32);
    EXPECT_EQ(bytes({{0, 0}, {9, 9}, {9, 0}}), pen + 28 + 3 * 4);
    EXPECT_EQ(bytes({{0, 0}, {32767, -32768}, {9, 0}}), pen + 28 + 3 * 4);
    EXPECT_EQ(bytes({{0, 0}, {32768, 9}, {9, 0}}), pen + 28 + 3 * 8);
}

TEST(Emf, LongRunsAreCutWhereReadersStop)
{
    const EmfFile file = emf([](CSurface& s) {
        s.moveTo(0, 0);
        for (int i = 1; i <= 3000; ++i)
            s.lineTo(i, i % 2);
    });
    EXPECT_EQ(file.count(87), 3);
    const std::string drawn = file.drawing.text();
    for (int i = 1; i <= 3000; i += 97)
        EXPECT_NE(drawn.find("lineTo " + std::to_string(i) + "," + std::to_string(i % 2) + "\n"), std::string::npos);
}

TEST(Emf, LinesBeyondReachKeepTheirDirection)
{
    const EmfFile file = emf([](CSurface& s) {
        line(s, 0, 0, 1e12, 5e11); // slope 1/2
        line(s, 3e9, 3e9, 4e9, 3e9);
        line(s, 0, 0, kNan, 5);
        s.lineTo(7, 7); // from nowhere
        line(s, 0, 0, kInf, 0);
        line(s, -1e300, 4, 1e300, 4);
    });
    EXPECT_TRUE(file.drawing.text().ends_with("moveTo 0,0\nlineTo 134217727,67108863\n"
                                              "moveTo -134217727,4\nlineTo 134217727,4\n"));
}

TEST(Emf, PolygonsBeyondReachKeepWhatLiesWithin)
{
    const SurfacePoint far[] = {{-1e12, 10}, {1e12, 10}, {1e12, 20}, {kNan, 0}, {-1e12, 20}};
    const SurfacePoint away[] = {{3e9, 3e9}, {4e9, 3e9}, {4e9, 4e9}};
    const EmfFile file = emf([&](CSurface& s) {
        s.brush(0);
        s.polygon(far, 5);
        s.polygon(away, 3);
        s.rectangle(kNan, 1, 1e12, 5);
    });
    EXPECT_EQ(file.count(3), 1);
    for (const char* const part : {"134217727,10 ", "-134217727,20", "rectangle 0,1 134217727,5"})
        EXPECT_NE(file.drawing.text().find(part), std::string::npos) << part;
}

TEST(Emf, BoundsStayInTheClipAndTakeThePenAlong)
{
    const EmfFile file = emf([](CSurface& s) {
        s.clipTo(10, 20, 110, 70);
        s.pen(7, 0);
        line(s, 50, 40, 900, 40);
    });
    EXPECT_EQ(file.bounds, (Quad{47, 37, 109, 43}));
    EXPECT_EQ(file.frame, (Quad{47 * 50800 / 1920, 37 * 50800 / 1920, 110 * 50800 / 1920, 44 * 50800 / 1920}));
}

TEST(Emf, HolesThatOverlapOrRepeatAreClipped)
{
    const SurfacePoint a[] = {{10, 10}, {30, 10}, {30, 30}, {10, 30}};
    const SurfacePoint b[] = {{20, 20}, {40, 20}, {40, 40}, {20, 40}};
    const SurfacePoint within[] = {{12, 12}, {15, 12}, {15, 15}};
    const SurfacePoint notch[] = {{0, 0}, {50, 0}, {50, 50}, {25, 10}, {0, 50}};
    const SurfacePoint inNotch[] = {{24, 40}, {26, 40}, {25, 45}};
    using Points = std::span<const SurfacePoint>;
    const auto clipPaths = [](Points polygon, const std::vector<Points>& holes) {
        return emf([&](CSurface& s) {
                   s.brush(0xFF);
                   for (const Points hole : holes)
                       s.clipOut(hole.data(), static_cast<int>(hole.size()));
                   s.polygon(polygon.data(), static_cast<int>(polygon.size()));
               })
            .count(67);
    };
    for (const Points hole : {Points(a), Points(kSquare)})
        EXPECT_EQ(clipPaths(kSquare, {hole}), 0);
    for (const Points other : {Points(b), Points(a), Points(within)})
        EXPECT_TRUE(clipPaths(kSquare, {a, other}) == 2 && clipPaths(kSquare, {other, a}) == 2);
    EXPECT_EQ(clipPaths(notch, {inNotch}), 1);
    std::vector<std::array<SurfacePoint, 4>> many; // of which none is near another
    for (int i = 0; i < 1000; ++i) {
        const double x = 10 + i % 50 * 20, y = 10 + i / 50 * 20;
        many.push_back({{{x, y}, {x + 9, y}, {x + 9, y + 9}, {x, y + 9}}});
    }
    const SurfacePoint plate[] = {{0, 0}, {2000, 0}, {2000, 1000}, {0, 1000}};
    EXPECT_EQ(clipPaths(plate, {many.begin(), many.end()}), 0);
}

TEST(Emf, PolygonsLargerThanTheBuffer)
{
    std::vector<SurfacePoint> circle;
    for (int i = 0; i < 50000; ++i)
        circle.push_back({40000 + 40000 * std::cos(i * 1e-4), 40000 * std::sin(i * 1e-4)});
    const EmfFile file = emf([&](CSurface& s) { s.polygon(circle.data(), static_cast<int>(circle.size())); });
    EXPECT_EQ(file.records[file.records.size() - 2].words.size(), 5u + 2 * circle.size());
}

/// What is drawn on a fine grid is what is drawn as many times as large in pixels, but for the sides of boxes that lie
/// a pixel inside, and pixels of pictures.
TEST(Emf, FineGridsKeepFractions)
{
    std::mt19937 random(4);
    const auto number = [&] { return (static_cast<int>(random() % 9000) - 3000) / 17.0; };
    for (const int fineness : {2, 16, 64}) {
        std::vector<SurfacePoint> p(40);
        for (SurfacePoint& point : p)
            point = {number(), number()};
        p[1] = {p[0].x + 1e9, p[0].y}; // beyond reach
        const auto calls = [&](double k) {
            return [&p, k](CSurface& s) {
                std::vector<SurfacePoint> q;
                for (const SurfacePoint& point : p)
                    q.push_back({point.x * k, point.y * k});
                const int counts[] = {5, 2, 0, 1, 7, 2};
                s.polylines(q.data(), counts, 6);
                s.lineTo(q[20].x, q[20].y);
                s.clipTo(q[0].x, q[2].y, q[3].x, q[4].y);
                s.brush(0xFF);
                s.pen(int(3 * k), 0x123456);
                s.polygon(q.data(), 6);
                s.clipOut(q.data() + 6, 5);
                s.polygon(q.data() + 12, 6);
                line(s, q[30].x, q[30].y, q[31].x, q[31].y);
                s.clipRestore();
                s.pen(int(k), 0xFF0000);
                s.polyline(q.data() + 20, 9);
            };
        };
        const EmfFile fine = emf(calls(1.0), fineness), large = emf(calls(fineness));
        std::string thin = large.drawing.text(); // a pen that is there from the start has one
        for (std::size_t at = 1; (at = thin.find("pen 1 #000000", at)) != std::string::npos; ++at)
            thin.replace(at + 4, 1, std::to_string(fineness));
        EXPECT_EQ(fine.drawing.text(), thin);
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_NEAR(fine.bounds[i], large.bounds[i] / double(fineness), 1.5); // the pen
    }
    const VEK::CPixels parts{3, 2, {0xFF0000FF, 0x00FFFFFF, 0xFF00FF00, 0xFF0000FF, 0x00FFFFFF, 0xFF00FF00}};
    const EmfFile small = emf(
        [&](CSurface& s) {
            s.rectangle(0, 10, 2.5, 0.25);
            s.pixel(3.5, 4, 0xFF);
            s.picture(20.25, 1, parts);
        },
        16);
    EXPECT_TRUE(small.drawing.text().ends_with(
        "pen 16 #000000\nnoBrush\nrectangle 0,4 40,160\npen 16 #ff0000\nbrush #ff0000\nrectangle 56,64 72,80\n"
        "solidRect 324,16 16,16 #ff0000\nsolidRect 324,32 16,16 #ff0000\n"
        "solidRect 356,16 16,16 #00ff00\nsolidRect 356,32 16,16 #00ff00\n"));
}

TEST(Emf, ManyLinesOfOnePenShareARecord)
{
    std::vector<SurfacePoint> points;
    std::vector<int> counts;
    for (int i = 0; i < 9000; ++i) {
        counts.push_back(i % 4);
        for (int k = 0; k < i % 4; ++k)
            points.push_back({i % 97 * 3.0, i % 89 + k * 1.25});
    }
    const auto draw = [&](bool isMany) {
        return [&, isMany](CSurface& s) {
            isMany ? s.polylines(points.data(), counts.data(), 9000)
                   : s.CSurface::polylines(points.data(), counts.data(), 9000);
            s.lineTo(5, 5); // from the end of the last line
        };
    };
    const EmfFile together = emf(draw(true));
    EXPECT_EQ(together.count(90), 1);
    EXPECT_EQ(svgBody(draw(true)), svgBody(draw(false)));
}

TEST(Emf, ManyColoursNeedFewHandles)
{
    const SurfacePoint box[] = {{0, 0}, {9, 0}, {9, 9}}, hole[] = {{5, 5}, {20, 5}, {20, 20}};
    const EmfFile file = emf([&](CSurface& s) {
        for (unsigned i = 0; i < 900; ++i) {
            if (i % 300 == 0) {
                s.clipTo(0, 0, 100 + i % 7, 100);
                s.polygon(box, 3); // with what is in use again behind the hole
                s.clipOut(hole, 3);
            }
            s.pen(1, i * 37);
            s.brush(i * 91);
            s.polygon(box, 3);
            if (i % 300 == 299)
                s.clipRestore();
        }
    });
    EXPECT_LE(file.handles, 513u);
    EXPECT_EQ(file.count(3) + file.count(86), 900 + 3 + 3); // the last ones make the holes
}

TEST(Svg, KeepsThousandthsAndOnePathForOnePen)
{
    EXPECT_EQ(svgBody([](CSurface& s) {
                  line(s, 1.5, 2, 3.0004, -0.0625);
                  s.lineTo(1000, 0.1);
                  line(s, 0, 0, 5, 5);
                  s.pen(2, 0x0000FF);
                  line(s, 0, 0, -5, 1e-9);
              }),
              "<path stroke=\"#000000\" d=\"M1.5 2L3 -0.063L1000 0.1M0 0L5 5\"/>\n"
              "<path stroke=\"#ff0000\" stroke-width=\"2\" d=\"M0 0L-5 0\"/>\n");
}

TEST(Svg, ClipsAndHoles)
{
    EXPECT_EQ(svgBody([](CSurface& s) {
                  s.clipTo(0, 0, 32, 24);
                  s.brush(0xFF);
                  s.clipOut(kHole, 4);
                  s.polygon(kSquare, 4);
                  s.clipRestore();
                  s.noPen();
                  s.clipOut(kAcross, 3);
                  s.polygon(kSquare, 4);
                  s.clipRestore();
                  s.rectangle(9, 9, 1, 2);
              }),
              "<clipPath id=\"vek-clip-1\"><rect x=\"0\" y=\"0\" width=\"32\" height=\"24\"/></clipPath>\n"
              "<g clip-path=\"url(#vek-clip-1)\">\n"
              "<path fill=\"#ff0000\" fill-rule=\"evenodd\" d=\"M0 0L50 0L50 50L0 50ZM10 20L20 20L20 10L10 10Z\"/>\n"
              "<path stroke=\"#000000\" d=\"M0 0L50 0L50 50L0 50Z\"/>\n"
              "<mask id=\"vek-mask-2\" maskUnits=\"userSpaceOnUse\" x=\"0\" y=\"0\" width=\"32\" height=\"24\">"
              "<rect x=\"0\" y=\"0\" width=\"32\" height=\"24\" fill=\"#ffffff\"/>"
              "<path fill=\"#000000\" fill-rule=\"evenodd\" d=\"M40 10L60 10L60 20Z\"/></mask>\n"
              "<g mask=\"url(#vek-mask-2)\">\n"
              "<path fill=\"#ff0000\" fill-rule=\"evenodd\" d=\"M0 0L50 0L50 50L0 50Z\"/>\n</g>\n"
              "<rect x=\"1\" y=\"2\" width=\"8\" height=\"7\" fill=\"#ff0000\"/>\n</g>\n");
}

TEST(Svg, ArcsShareThePathOfLines)
{
    constexpr double kPi = 3.14159265358979323846;
    EXPECT_EQ(
        svgBody([](CSurface& s) {
            line(s, 150, 0, 150, 100);
            s.arcTo({{100, 100}, {50, 0}, {0, 50}, kPi / 2});
            s.lineTo(0, 150);
            s.arcTo({{0, 100}, {0, 50}, {50, 0}, -kPi}); // to the left, in two pieces
            s.moveTo(30, 0);
            s.arcTo({{20, 0}, {10, 0}, {0, -10}, 2 * kPi});
        }),
        "<path stroke=\"#000000\" d=\"M150 0L150 100A50 50 0 0 1 100 150L0 150A50 50 0 0 1 -50 100A50 50 0 0 1 0 50"
        "M30 0A10 10 0 0 0 15 -8.66A10 10 0 0 0 15 8.66A10 10 0 0 0 30 0\"/>\n");
}

TEST(Svg, ArcsOfEllipsesTellTheirAxes)
{
    // Half axes (40, 30) and (-12, 16), lengths 50 and 20, told by the diameters at 30 degrees of them.
    const double c = std::sqrt(0.75), s = 0.5;
    const VEK::SurfaceArc arc{{0, 0}, {40 * c - 12 * s, 30 * c + 16 * s}, {-40 * s - 12 * c, -30 * s + 16 * c}, 1.0};
    const std::string body = svgBody([&](CSurface& surface) {
        surface.moveTo(arc.u.x, arc.u.y);
        surface.arcTo(arc);
        surface.lineTo(0, 0);
    });
    EXPECT_NE(body.find("M28.641 33.981A50 20 36.87 0 1 "), std::string::npos) << body;
}

TEST(Svg, FlatAndFarArcsAreLines)
{
    // 5 (sin t - cos t) is greatest at 3/4 PI, where it is 5 sqrt(2), and ends at 5 (sin 4 - cos 4).
    EXPECT_EQ(svgBody([](CSurface& s) {
                  s.moveTo(-5, -5);
                  s.arcTo({{0, 0}, {-5, -5}, {5, 5}, 4.0});
                  s.lineTo(9, 9);
              }),
              "<path stroke=\"#000000\" d=\"M-5 -5L7.071 7.071L-0.516 -0.516L9 9\"/>\n");
    const std::string far = svgBody([](CSurface& s) {
        s.moveTo(0, 0);
        s.arcTo({{0, 1e9}, {0, -1e9}, {1e9, 0}, 1e-7}); // 100 to the right
        s.arcTo({{kNan, 0}, {5, 0}, {0, 5}, 1.0});
        s.lineTo(7, 7);
        line(s, 100, 0, 100, 9);
    });
    EXPECT_EQ(far, "<path stroke=\"#000000\" d=\"M0 0L100 0L100 9\"/>\n");
}

TEST(Svg, PicturesAreEmbeddedAsPng)
{
    const VEK::CPixels pixels{2, 2, {0xFF0000FF, 0x00FF00FF, 0xFFFF0000, 0xFFFFFFFF}};
    const std::string body = svgBody([&](CSurface& s) {
        s.clipTo(0, 0, 32, 24);
        line(s, 0, 0, 5, 5);
        s.picture(1.5, 2, pixels);
        s.picture(kNan, 2, pixels);
        s.picture(1, 2, {});
        line(s, 5, 5, 9, 9);
    });
    const std::size_t at = body.find("L5 5\"/>\n<image x=\"1.5\" y=\"2\" width=\"2\" height=\"2\"");
    EXPECT_NE(at, std::string::npos); // what it holds is read by another program in the test of metafiles
    EXPECT_EQ(body.find("<image", at + 20), std::string::npos);
}

TEST(Svg, ManyLinesNeedFewElements)
{
    const std::string body = svgBody([](CSurface& s) {
        for (int i = 0; i < 100000; ++i)
            line(s, i, 0, i, 9);
    });
    EXPECT_EQ(std::count(body.begin(), body.end(), '<'), 10);
}

TEST(Svg, NothingButFiniteNumbers)
{
    const std::string body = svgBody([](CSurface& s) {
        const SurfacePoint odd[] = {{kNan, 1}, {1e300, 5}, {-1e300, 5}, {0, kInf}, {0, 9}};
        s.brush(0);
        s.polygon(odd, 5);
        s.ellipse(kNan, 0, 1e99, 4);
        s.solidRect(0, 0, kInf, kNan, 0);
        line(s, 0, kNan, 5, 5);
        line(s, 0, 0, 1e200, 0);
    });
    EXPECT_TRUE(body.find("nan") == std::string::npos && body.find("inf") == std::string::npos) << body;
    EXPECT_NE(body.find("M0 0L134217727 0"), std::string::npos);
}

TEST(Files, AppearCompleteOrNotAtAll)
{
    const TestFolder folder(L"surfaces");
    const std::wstring path = folder.name(L"Fa\u00E7ade \u4E2D.emf");
    for (const bool isFinished : {false, true}) {
        VEK::CFileSink sink(path.c_str());
        const auto surface = VEK::emfSurface(sink);
        drawScene(*surface);
        EXPECT_EQ(folder.read(L"Fa\u00E7ade \u4E2D.emf"), "");
        EXPECT_EQ(isFinished && surface->finish() && !surface->finish(), isFinished);
    }
    EXPECT_EQ(folder.files(), 1);
    EXPECT_EQ(folder.read(L"Fa\u00E7ade \u4E2D.emf"), emfBytes(kScene));
}

TEST(Files, FailureLeavesTheOldFile)
{
    const TestFolder folder(L"surfaces");
    VEK::CFileSink none(nullptr);
    EXPECT_FALSE(none.write("x"));
    for (const wchar_t* bad : {L".", L"no/such.svg"}) {
        VEK::CFileSink sink(folder.name(bad).c_str());
        EXPECT_FALSE(VEK::svgSurface(sink, 10, 10)->finish());
    }
    {
        VEK::CFileSink sink(folder.save(L"old.svg", "old").c_str());
        EXPECT_TRUE(sink.write("new"));
    }
    EXPECT_EQ(folder.read(L"old.svg"), "old");
    EXPECT_EQ(folder.files(), 1);
}

} // namespace
