// The raster surface: pictures drawn by hand, and lines and areas beside the plain rule for each pixel.
#include <vek/surfaces/raster.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace
{

using VEK::SurfacePoint;

constexpr unsigned kBlack = 0, kRed = 0xFF, kWhite = 0xFFFFFF;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

/// A white picture with a surface on it.
struct Sheet {
    VEK::CPixels pixels;
    std::unique_ptr<VEK::CSurface> surface;

    Sheet(int width, int height)
    {
        EXPECT_TRUE(VEK::rasterPixels(pixels, width, height, kWhite));
        surface = VEK::rasterSurface(pixels);
    }
    VEK::CSurface* operator->() const { return surface.get(); }

    /// A line of text for each row: '.' white, '#' black, 'r' red, '?' anything else.
    std::string text() const
    {
        std::string result;
        for (int y = 0; y < pixels.height; ++y) {
            for (int x = 0; x < pixels.width; ++x) {
                const std::uint32_t color = pixels.at(x, y);
                result += color == 0xFFFFFFFF ? '.' : color == 0xFF000000 ? '#' : color == 0xFF0000FF ? 'r' : '?';
            }
            result += '\n';
        }
        return result;
    }
    bool isBlank() const { return text().find_first_not_of(".\n") == std::string::npos; }

    void line(double x1, double y1, double x2, double y2) const
    {
        surface->moveTo(x1, y1);
        surface->lineTo(x2, y2);
    }
};

void polygon(VEK::CSurface& surface, const std::vector<SurfacePoint>& points)
{
    surface.polygon(points.data(), static_cast<int>(points.size()));
}

void clipOut(VEK::CSurface& surface, const std::vector<SurfacePoint>& points)
{
    surface.clipOut(points.data(), static_cast<int>(points.size()));
}

TEST(RasterLine, LeavesTheLastPixelOutAndCutsTowardsZero)
{
    Sheet sheet(8, 5);
    const SurfacePoint corner[] = {{1.9, 0.5}, {4.99, 0.9}, {4.2, 3.7}};
    sheet->polyline(corner, 3);
    sheet->lineTo(2, 3); // goes on from the end
    sheet.line(6, 2, 6, 2);
    sheet.line(-0.9, 4, 1.9, 4); // from column 0
    EXPECT_EQ(sheet.text(), ".####...\n"
                            "....#...\n"
                            "....#...\n"
                            "...##...\n"
                            "#.......\n");
}

TEST(RasterLine, EachPixelByTheRuleHoweverFarTheEndsAre)
{
    constexpr int kSize = 70;
    std::mt19937 random(3);
    int lit = 0;
    for (const int reach : {6, 60, 3000, 100'000'000}) {
        std::uniform_int_distribution<int> at(-reach, reach);
        for (int i = 0; i < 400; ++i) {
            // Through the middle of the area, or lines of a hundred million pixels would miss it.
            const std::int64_t x1 = at(random), y1 = at(random);
            const std::int64_t x2 = 60 - x1 + i % 50, y2 = 70 - y1 - i % 50;
            Sheet sheet(kSize, kSize);
            const int hole = i % 3 * 10; // the side of a square from (20, 30) on
            clipOut(*sheet.surface, {{20, 30}, {20.0 + hole, 30}, {20.0 + hole, 30.0 + hole}, {20, 30.0 + hole}});
            sheet.line(double(x1), double(y1), double(x2), double(y2));
            const bool isFlat = std::abs(x2 - x1) >= std::abs(y2 - y1);
            const std::int64_t n = std::max(std::abs(x2 - x1), std::abs(y2 - y1));
            const std::int64_t rise = isFlat ? y2 - y1 : x2 - x1;
            const int sign = (isFlat ? x2 < x1 : y2 < y1) ? -1 : 1;
            Sheet expected(kSize, kSize);
            for (int along = 0; along < kSize && n > 0; ++along) {
                const std::int64_t step = sign * (along - (isFlat ? x1 : y1));
                const std::int64_t sum = 2 * step * rise + n - 1; // twice n times the place across, rounded down
                const std::int64_t across = (isFlat ? y1 : x1) + sum / (2 * n) - (sum % (2 * n) < 0);
                const std::int64_t x = isFlat ? along : across, y = isFlat ? across : along;
                if (step < 0 || step >= n || across < 0 || across >= kSize ||
                    (x >= 20 && x < 20 + hole && y >= 30 && y < 30 + hole))
                    continue;
                expected.pixels.data[static_cast<std::size_t>(y * kSize + x)] = 0xFF000000;
                ++lit;
            }
            ASSERT_EQ(sheet.text(), expected.text()) << x1 << "," << y1 << " to " << x2 << "," << y2;
        }
    }
    EXPECT_GT(lit, 20000);
}

TEST(RasterLine, WithoutFiniteEndsIsLeftOutAndAFarOneKeepsItsDirection)
{
    Sheet sheet(8, 8);
    sheet.line(0, 0, kNaN, 5);
    sheet->lineTo(5, 5);
    sheet.line(0, 0, kInf, 0);
    sheet.line(-kInf, 3, 8, 3);
    sheet->pen(3, kBlack);
    sheet.line(4, 4, 4, -kInf);
    sheet->pixel(kNaN, 0, kBlack);
    sheet->pixel(1e30, 0, kBlack);
    EXPECT_TRUE(sheet.isBlank());
    sheet->pen(1, kBlack);
    sheet.line(-1e12, -1e12, 1e12, 1e12);
    sheet.line(-1e300, 6, 1e300, 6);
    EXPECT_EQ(sheet.text(), "#.......\n"
                            ".#......\n"
                            "..#.....\n"
                            "...#....\n"
                            "....#...\n"
                            ".....#..\n"
                            "########\n"
                            ".......#\n");
}

TEST(RasterPen, WideLinesEndInDiscs)
{
    Sheet sheet(16, 6);
    sheet->pen(3, kBlack);
    sheet.line(2, 2, 6, 2);
    sheet->pen(4, kBlack);
    sheet.line(12, 3, 12, 3);
    EXPECT_EQ(sheet.text(), "................\n"
                            "..#####....##...\n"
                            ".#######..####..\n"
                            "..#####...####..\n"
                            "...........##...\n"
                            "................\n");
    sheet->noPen();
    sheet.line(0, 0, 16, 0);
    sheet->pen(INT_MAX, kRed); // bounded
    sheet.line(8, 3, 8, 3);
    EXPECT_EQ(sheet.text().find_first_not_of("r\n"), std::string::npos);
}

TEST(RasterArea, EdgesRunAlongTheirCorners)
{
    Sheet edged(9, 9);
    edged->brush(kRed);
    polygon(*edged.surface, {{1, 1}, {7, 1}, {1, 7}});
    polygon(*edged.surface, {{8, 2}, {8, 5}}); // there and back
    polygon(*edged.surface, {{8, 8}});
    EXPECT_EQ(edged.text(), ".........\n"
                            ".#######.\n"
                            ".#rrrr#.#\n"
                            ".#rrr#..#\n"
                            ".#rr#...#\n"
                            ".#r#....#\n"
                            ".##......\n"
                            ".#.......\n"
                            ".........\n");
}

TEST(RasterArea, EachPixelByItsCornerHoweverFarThePolygonReaches)
{
    constexpr int kSize = 80;
    std::mt19937 random(5);
    for (const int reach : {10, 100, 4000, 100'000'000}) {
        std::uniform_int_distribution<int> at(-reach, reach);
        for (int i = 0; i < 150; ++i) {
            std::vector<SurfacePoint> points;
            for (int k = 0; k < 3 + i % 6; ++k)
                points.push_back({double(40 + at(random)), double(40 + at(random))});
            Sheet sheet(kSize, kSize);
            sheet->noPen();
            sheet->brush(kBlack);
            polygon(*sheet.surface, points);
            Sheet hole(kSize, kSize);
            hole->clipTo(5, 70, 75, 10);
            clipOut(*hole.surface, points);
            hole->solidRect(0, 0, kSize, kSize, kBlack);
            for (int y = 0; y < kSize; ++y) {
                for (int x = 0; x < kSize; ++x) {
                    bool isInside = false;
                    SurfacePoint a = points.back();
                    for (const SurfacePoint& b : points) {
                        const SurfacePoint& upper = a.y < b.y ? a : b;
                        const SurfacePoint& lower = a.y < b.y ? b : a;
                        if (upper.y <= y && y < lower.y) { // whole numbers, whose products keep below 2^63
                            const auto side = std::int64_t(x - upper.x) * std::int64_t(lower.y - upper.y) -
                                              std::int64_t(y - upper.y) * std::int64_t(lower.x - upper.x);
                            isInside ^= side >= 0;
                        }
                        a = b;
                    }
                    ASSERT_EQ(sheet.pixels.at(x, y) == 0xFF000000, isInside) << reach << " " << x << "," << y;
                    const bool isClipped = x < 5 || x >= 75 || y < 10 || y >= 70;
                    ASSERT_EQ(hole.pixels.at(x, y) == 0xFF000000, !isInside && !isClipped) << x << "," << y;
                }
            }
        }
    }
}

TEST(RasterArea, BoxesInAnyCornerOrder)
{
    Sheet sheet(24, 7);
    sheet->brush(kRed);
    sheet->rectangle(6, 5, 1, 1);
    sheet->rectangle(8, 2, 9, 3); // one pixel has no edge
    sheet->ellipse(18, 6, 11, 1);
    sheet->noPen();
    sheet->rectangle(23, 1, 19, 4);
    sheet->ellipse(19, 4, 21, 7); // no room for a curve
    EXPECT_EQ(sheet.text(), "........................\n"
                            ".#####.......###...rrr..\n"
                            ".#rrr#.....##rrr##.rrr..\n"
                            ".#rrr#.....#rrrrr#......\n"
                            ".#####.....##rrr##.r....\n"
                            ".............###...r....\n"
                            "........................\n");
}

TEST(RasterArea, HugeEllipsesAreCutToTheClip)
{
    Sheet sheet(50, 20);
    sheet->brush(kRed);
    sheet->ellipse(-2e6, 9, 2e6, 4e6); // its top is row 9
    const std::string text = sheet.text();
    EXPECT_EQ(text.find_first_not_of(".\n"), 9u * 51);
    EXPECT_EQ(text.substr(9 * 51, 50), std::string(50, '#'));
    EXPECT_EQ(text.substr(19 * 51, 50), std::string(50, 'r'));
    sheet->noBrush();
    sheet->pen(3, kBlack);
    sheet->ellipse(1e300, 1e300, -1e300, -kInf); // all around
    EXPECT_EQ(sheet.text(), text);
}

TEST(RasterClip, HolesLastUntilTheyAreRestored)
{
    Sheet sheet(12, 6);
    sheet->clipTo(10, 5, 1, 1);
    clipOut(*sheet.surface, {{2, 2}, {5, 2}, {5, 4}, {2, 4}});
    clipOut(*sheet.surface, {{4, 2}, {7, 2}, {7, 4}, {4, 4}}); // adds to the first, and does not open it again
    clipOut(*sheet.surface, {{0, 0}, {12, 6}});
    clipOut(*sheet.surface, {{20, 20}, {30, 20}, {25, 30}});
    sheet->solidRect(0, 0, 12, 6, kBlack);
    sheet.line(0, 3, 12, 3);
    sheet->pixel(3, 3, kRed);
    sheet->pixel(8, 3, kRed);
    EXPECT_EQ(sheet.text(), "............\n"
                            ".#########..\n"
                            ".#.....###..\n"
                            ".#.....#r#..\n"
                            ".#########..\n"
                            "............\n");
    sheet->clipRestore();
    sheet->pen(1, kRed);
    sheet.line(12, 2, 0, 2);
    EXPECT_EQ(sheet.text().substr(2 * 13, 12), ".rrrrrrrrr..");
    clipOut(*sheet.surface, {{0, 0}, {12, 0}, {12, 6}, {0, 6}}); // all of the clip
    sheet->solidRect(0, 0, 12, 6, kBlack);
    EXPECT_EQ(sheet.text().substr(2 * 13, 12), ".rrrrrrrrr..");
    sheet->clipTo(0, 0, 12, 2); // a new clip is whole
    sheet->solidRect(0, 0, 12, 6, kRed);
    EXPECT_EQ(sheet.text().substr(0, 39), "rrrrrrrrrrrr\nrrrrrrrrrrrr\n.rrrrrrrrr..\n");
}

TEST(RasterClip, HolesCostTheirOwnSizeOnly)
{
    Sheet sheet(400, 400);
    for (int i = 0; i < 200'000; ++i) {
        const double x = i % 399, y = i / 399 % 399;
        clipOut(*sheet.surface, {{x, y}, {x + 1, y}, {x + 1, y + 1}, {x, y + 1}});
    }
    sheet->solidRect(0, 0, 400, 400, kBlack);
    EXPECT_EQ(std::count(sheet.pixels.data.begin(), sheet.pixels.data.end(), 0xFF000000u), 400 + 399);
}

TEST(RasterClip, NothingIsLitOutsideWhateverTheNumbers)
{
    std::mt19937 random(11);
    const double odd[] = {0,         -1,         3.7,          20,   59,     60,   1e4,   -65536, 65537,
                          134217727, -134217728, 2147483648.0, 1e12, -1e300, kInf, -kInf, kNaN};
    const auto number = [&] { return odd[random() % std::size(odd)] + random() % 3; };
    Sheet sheet(60, 40);
    for (int i = 0; i < 20'000; ++i) {
        sheet->clipTo(10, 10, 50, 30);
        const int widths[] = {INT_MIN, 0, 1, 2, 5, 1000, INT_MAX};
        sheet->pen(i % 20 == 0 ? widths[i / 20 % 7] : 1, kRed);
        i % 3 == 0 ? sheet->noBrush() : sheet->brush(kBlack);
        const SurfacePoint points[] = {
            {number(), number()}, {number(), number()}, {number(), number()}, {number(), number()}};
        if (i % 5 == 0)
            sheet->clipOut(points, 4);
        sheet->polygon(points, 4);
        sheet->ellipse(number(), number(), number(), number());
        sheet->rectangle(number(), number(), number(), number());
        sheet->solidRect(number(), number(), number(), number(), kBlack);
        sheet->picture(number(), number(), {1, 2, {0xFF000000, 0xFF0000FF}});
    }
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x)
            EXPECT_EQ(sheet.pixels.at(x, y) != 0xFFFFFFFF, x >= 10 && x < 50 && y >= 10 && y < 30) << x << ',' << y;
    }
}

TEST(RasterPicture, LeavesOutPixelsWithoutOpacity)
{
    const VEK::CPixels picture{2, 2, {0xFF000000, 0x000000FF, 0x00FFFFFF, 0xFF0000FF}};
    Sheet sheet(5, 3);
    sheet->picture(1.9, 0, picture);
    sheet->picture(-1, 1, picture);
    sheet->picture(4, 2, picture);
    sheet->picture(kNaN, 0, picture);
    sheet->picture(1e9, 0, picture);
    sheet->picture(0, 0, {3, 3, {1}});
    EXPECT_EQ(sheet.text(), ".#...\n"
                            "..r..\n"
                            "r...#\n");
    sheet->solidRect(4, 1, -3, -2, kRed); // to the left and upwards
    EXPECT_EQ(sheet.text(), ".rrr.\n"
                            "..r..\n"
                            "r...#\n");
}

TEST(RasterPicture, SizesThatCannotBe)
{
    VEK::CPixels pixels{1, 1, {5}};
    for (const auto& [width, height] : {std::pair(0, 10), {10, -1}, {INT_MAX, INT_MAX}, {1 << 28, 2}})
        EXPECT_TRUE(!VEK::rasterPixels(pixels, width, height, kWhite) && pixels == VEK::CPixels()) << width;
    for (VEK::CPixels wrong : {VEK::CPixels{}, VEK::CPixels{4, 4, {1, 2}}, VEK::CPixels{-1, -1, {1}}}) {
        const VEK::CPixels before = wrong;
        const auto surface = VEK::rasterSurface(wrong);
        surface->brush(kRed);
        surface->clipTo(0, 0, 10, 10);
        clipOut(*surface, {{0, 0}, {3, 0}, {3, 3}});
        surface->rectangle(0, 0, 5, 5);
        surface->ellipse(0, 0, 5, 5);
        surface->pen(5, kRed);
        surface->lineTo(9, 9);
        surface->pixel(0, 0, kRed);
        EXPECT_EQ(wrong, before);
    }
}

} // namespace
