#include "slide_bytes.h"
#include "slide_writer.h"

#include <gtest/gtest.h>

#include <random>

using namespace slide_test;
using Records = std::vector<std::string>;

TEST(SlideHeader, LevelAndVisitorDecide)
{
    for (const int level : {0, 3, 255}) {
        Bytes slide = withWords(littleHeader(), {1, 2, 3, 4});
        slide[18] = static_cast<unsigned char>(level);
        Log log;
        EXPECT_TRUE(!VEK::SlideReader().read(slide, log) && log.hiX == -1) << level;
    }
    Log log;
    EXPECT_FALSE(VEK::SlideReader().read({}, log));
    EXPECT_FALSE(VEK::SlideReader().read(VEK::SlideBytes(littleHeader()).first(18), log));
    struct Stopper : Log {
        bool start(int, int) override { return false; }
    } stopper;
    EXPECT_TRUE(VEK::SlideReader().read(withWords(littleHeader(), {1, 2, 3, 4}), stopper));
    EXPECT_TRUE(stopper.records.empty());
}

TEST(SlideHeader, HighestPointAndRecordsInTheByteOrderOfTheSlide)
{
    const Bytes old =
        withWords(oldHeader({0x01, 0x02, 0x03, 0x04}), {0x0100, 0x0200, 0x0300, 0x0400, 0xFCFC}); // names no order
    Bytes odd = withWords(littleHeader(), {1, 2, 3, 4}); // names neither: its point is big, its records little
    odd[29] = 0x77;
    const struct {
        Bytes before, slide;
        unsigned order;
        int hiX, hiY;
        Records records;
    } cases[] = {{{}, littleHeader(), 0x1234, 256, 512, {}},
                 {littleHeader(), bigHeader(), 0x3412, 256, 512, {}},
                 {bigHeader(), odd, 0x1277, 1, 2, {"L 1,2 3,4"}},
                 {{}, old, 0, 0x0102, 0x0304, {"L 256,512 768,1024"}},
                 {littleHeader(), old, 0x1234, 0x0201, 0x0403, {"L 256,512 768,1024"}},
                 {bigHeader(), old, 0x3412, 0x0102, 0x0304, {"L 1,2 3,4"}}};
    for (const auto& c : cases) {
        VEK::SlideReader reader;
        Log ignored, log;
        reader.read(c.before, ignored);
        EXPECT_TRUE(reader.read(c.slide, log));
        EXPECT_EQ(reader.byteOrder(), c.order);
        EXPECT_EQ(std::pair(log.hiX, log.hiY), std::pair(c.hiX, c.hiY));
        EXPECT_EQ(log.records, c.records);
    }
}

TEST(SlideRecords, TheLastPointHasSixteenBits)
{
    Bytes slide = withWords(littleHeader(), {0x7FFF, 0x8000, 0, 0});
    slide += {1, 0xFE, 0xFF, 0, 0xFE, 0};
    EXPECT_EQ(read(slide),
              (Records{"L 32767,-32768 0,0", "L 32767,-32768 32768,-32769", "L -32768,32767 -32768,32767"}));
}

TEST(SlideRecords, EndAtTheMarkAndAtAnyOtherWordWithTheTopBit)
{
    for (const int end : {0xFC00, 0xFC7F, 0x8000, 0xFA00, 0xFD01, 0xFDFF}) {
        const Bytes slide = withWords(littleHeader(), {1, 2, 3, 4, end, 5, 6, 7, 8});
        EXPECT_EQ(read(slide), Records{"L 1,2 3,4"}) << end;
    }
}

TEST(SlideFill, EndsAtItsTerminatorWhateverItsCount)
{
    // The count leaves the terminator out, counts it in, or is far too large.
    for (const int count : {3, 4, 0xFFFF}) {
        EXPECT_EQ(read(withWords(littleHeader(), {0xFD00, count, -1, 0xFD00, 1, 2, 0xFD00, 3, 4, 0xFD00, 5, 6, 0xFD00,
                                                  1, -2, 7, 8, 9, 10})),
                  (Records{"F 1,2 3,4 5,6 1,2", "L 7,8 9,10"}));
    }
    for (const int count : {0, 1}) {
        EXPECT_EQ(read(withWords(littleHeader(), {0xFD00, count, -1, 0xFD00, 1, 2, 0xFD00, 1, -2, 7, 8, 9, 10})),
                  (Records{"F 1,2 1,2", "L 7,8 9,10"}));
    }
    // With a negative y the only point is its own terminator.
    EXPECT_EQ(read(withWords(littleHeader(), {0xFD00, 1, -1, 0xFD00, 1, -2, 7, 8, 9, 10})),
              (Records{"F 1,-2 1,-2", "L 7,8 9,10"}));
    Bytes slide = withWords(littleHeader(), {50, 60, 0, 0, 0xFD00, 2, -1, 0xFD00, 1, 2, 0xFD00, 3, 4, 0xFD00, 1, -2});
    slide += {1, 0xFE, 1}; // from the last point before
    EXPECT_EQ(read(slide), (Records{"L 50,60 0,0", "F 1,2 3,4 1,2", "L 50,60 51,61"}));
}

TEST(SlideEndOfData, MissingWordsReadAsTheEndMarkAndMissingBytesAsZero)
{
    struct Case {
        std::initializer_list<int> words, bytes;
        const char* record;
    };
    const Case cases[] = {{{5}, {}, "L 5,-772 -772,-772"}, // 0xFCFC
                          {{5, 6}, {}, "L 5,6 -772,-772"},
                          {{5, 6}, {7}, "L 5,6 -772,-772"}, // a byte that is left over is no word
                          {{}, {9, 0xFE}, "L 0,0 9,0"},
                          {{}, {9, 0xFB, 8}, "L 9,8 0,0"},
                          {{0xFD00, 0xFFFF}, {}, "F -772,-772 -772,-772"}, // much promised
                          {{0xFD00, 0xFFFF, -1, 0xFD00, 1, 2, 0xFD00, 3, 4}, {}, "F 1,2 3,4 1,2"}};
    for (const Case& c : cases) {
        Bytes slide = withWords(littleHeader(), c.words);
        slide += c.bytes;
        EXPECT_EQ(read(slide), Records{c.record});
    }
}

TEST(SlideWriterAndReader, AgreeOnRandomSlidesAndWhatIsLeftOfThem)
{
    using slides::Format;
    for (const Format format : {Format::level1, Format::level2Little, Format::level2Big}) {
        std::mt19937 random(11);
        const auto at = [&](int range) { return static_cast<int>(random() % static_cast<unsigned>(range)); };
        slides::SlideWriter writer(format, 3000, 2000);
        Records expected;
        for (int i = 0; i < 500; ++i) {
            // Half of the lines are short and begin near the point before, so that every form of line is used.
            const slides::Point last = writer.lastPoint();
            const slides::Point from =
                at(3) ? slides::Point{std::max(0, last.x + at(90) - 45), std::max(0, last.y)} : last;
            const slides::Point to =
                at(2) ? slides::Point{at(3000), at(2000)} : slides::Point{from.x + at(60), from.y + at(60)};
            writer.line(from, to);
            expected.push_back("L" + Log::text({from.x, from.y}) + Log::text({to.x, to.y}));
            if (i % 10 == 0) {
                writer.color(i % 256);
                expected.push_back("C " + std::to_string(i % 256));
                writer.fill({{i, 1}, {i + 5, 1}, {i, 7}});
                const std::string first = Log::text({i, 1});
                expected.push_back("F" + first + Log::text({i + 5, 1}) + Log::text({i, 7}) + first);
            }
        }
        Log log;
        const Bytes slide = writer.finish();
        EXPECT_TRUE(VEK::SlideReader().read(slide, log));
        EXPECT_EQ(log.records, expected);
        EXPECT_EQ(log.hiX, 3000);
        EXPECT_EQ(log.hiY, 2000);
        std::size_t most = 0;
        for (std::ptrdiff_t length = 0; length < 600; ++length) { // cut anywhere
            const Records part = read(Bytes(slide.begin(), slide.begin() + length));
            ASSERT_TRUE(part.size() >= most && part.size() < expected.size()) << "more data never tell less";
            most = part.size();
            for (std::size_t i = 0; i + 1 < part.size(); ++i)
                ASSERT_EQ(part[i], expected[i]) << length;
        }
        EXPECT_GT(most, 50u);
    }
}

TEST(SlideMapping, FitsAndCentres)
{
    struct Case {
        int left, top, right, bottom;
        VEK::SlidePoint from, to;
    };
    const Case cases[] = {
        {0, 0, 101, 51, {0, 0}, {0, 50}},
        {0, 0, 101, 51, {100, 50}, {100, 0}},
        // Twice as wide as needed: 103 pixels are left, half of them on each side, rounded down. The place is nothing.
        {10, 20, 214, 71, {0, 0}, {51, 50}},
        // Half the scale: what lies between two pixels is cut towards zero.
        {0, 0, 51, 26, {3, 47}, {1, 1}},
        {0, 0, 51, 26, {-3, 53}, {-1, -1}}};
    for (const Case& c : cases) {
        VEK::SlideMapping mapping;
        ASSERT_TRUE(mapping.set(c.left, c.top, c.right, c.bottom, 100, 50));
        EXPECT_EQ(mapping.map(c.from), c.to) << c.right << ' ' << c.from.x;
    }
}

TEST(SlideMapping, RefusesASlideWithoutExtent)
{
    VEK::SlideMapping mapping;
    EXPECT_FALSE(mapping.set(0, 0, 100, 100, 0, 50));
    EXPECT_FALSE(mapping.set(0, 0, 100, 100, 50, 0));
    EXPECT_EQ(mapping.scale, 0.0);
    // A rectangle of nothing, and one beyond all pixels, still map to numbers.
    EXPECT_TRUE(mapping.set(0, 0, 0, 0, 100, 50));
    EXPECT_TRUE(mapping.set(-2147483647, -2147483647, 2147483647, 2147483647, 1, 1));
    EXPECT_EQ(mapping.map({98302, 0}).x, 2147483647);
}

TEST(SlideColor, IsComputedFromTheIndex)
{
    struct {
        int index, red, green, blue;
    } const cases[] = {
        {0, 0, 0, 0},       {1, 255, 0, 0},      {2, 255, 255, 0},     {3, 0, 255, 0},      {4, 0, 255, 255},
        {5, 0, 0, 255},     {6, 255, 0, 255},    {7, 255, 255, 255},   {8, 127, 127, 127},  {9, 191, 191, 191},
        {10, 255, 0, 0},    {11, 255, 127, 127}, {12, 165, 0, 0},      {14, 127, 0, 0},     {16, 76, 0, 0},
        {18, 51, 0, 0},     {19, 51, 25, 25},    {20, 255, 63, 0},     {30, 255, 127, 0},   {50, 255, 255, 0},
        {60, 191, 255, 0},  {90, 0, 255, 0},     {100, 0, 255, 63},    {130, 0, 255, 255},  {140, 0, 191, 255},
        {155, 63, 95, 127}, {170, 0, 0, 255},    {180, 63, 0, 255},    {210, 255, 0, 255},  {240, 255, 0, 63},
        {249, 51, 25, 31},  {250, 84, 84, 84},   {251, 119, 119, 119}, {255, 255, 255, 255}};
    for (const auto& c : cases) {
        const auto expected = static_cast<unsigned long>(c.red | c.green << 8 | c.blue << 16);
        EXPECT_EQ(VEK::acadRGB(c.index), expected) << c.index;
    }
    EXPECT_EQ(VEK::acadRGB(-1), 0u);
    EXPECT_EQ(VEK::acadRGB(100000), 0xFFFFFFu);
    // The foreground shows on white.
    EXPECT_EQ(VEK::slideColor(7, 7), 0);
    EXPECT_EQ(VEK::slideColor(7, 0), 7);
    EXPECT_EQ(VEK::slideColor(3, 7), 3);
    EXPECT_EQ(VEK::slideColor(0, 7), 0);
}
