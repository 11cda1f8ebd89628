// Pictures from files. The files are put together here from the published layouts, most of them drawn at random beside
// the picture that they must give.
#include <vek/bitmaps.h>

#include "core/png/png.h"
#include "picture_draw.h"
#include "test_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <map>

namespace
{

using namespace picture_bytes;
using VEK::CPixels;
using VEK::IconImage;
using VEK::platform::textOf;

constexpr unsigned kGray = 0xFF808080;

TEST(Bmp, FilesDrawnAtRandom)
{
    Random random;
    for (int i = 0; i < 2000; ++i) {
        const Drawn drawn = drawBmp(random);
        CPixels pixels;
        for (const std::size_t size : {drawn.bytes.size(), drawn.needed}) { // with and without the last padding
            ASSERT_TRUE(VEK::decodeBmp(std::string_view(drawn.bytes).substr(0, size), pixels)) << i;
            ASSERT_EQ(pixels, drawn.expected) << i << ", header " << int(drawn.bytes[14]);
        }
        EXPECT_FALSE(VEK::decodeBmp(std::string_view(drawn.bytes).substr(0, drawn.needed - 1), pixels)) << i;
        EXPECT_EQ(pixels, CPixels());
    }
}

TEST(Bmp, RunLengths)
{
    // Black, red, green, blue, white; a run of 3 green; 4 as they are; end of row; move by 1, 1; a run that the border
    // cuts; end. Then a run of 3 in turn and 3 as they are with padding.
    const std::string palette = hex("00000000 0000FF00 00FF0000 FF000000 FFFFFF00");
    const std::string rle8 = hex("03 02 00 04 01 03 04 01 00 00 00 02 01 01 09 03 00 01"),
                      rle4 = hex("03 12 00 03 34 10 00 00 00 01");
    CPixels pixels;
    EXPECT_TRUE(VEK::decodeBmp(bmp(info(7, 3, 8, 1, 5) + palette, rle8), pixels));
    EXPECT_EQ(pixels, (CPixels{7, 3, {kBlack, kBlue,  kBlue,  kBlue,  kBlue,  kBlue,  kBlue,  //
                                      kBlack, kBlack, kBlack, kBlack, kBlack, kBlack, kBlack, //
                                      kGreen, kGreen, kGreen, kRed,   kBlue,  kWhite, kRed}}));
    EXPECT_TRUE(VEK::decodeBmp(bmp(info(6, 1, 4, 2, 5) + palette, rle4), pixels));
    EXPECT_EQ(pixels, (CPixels{6, 1, {kRed, kGreen, kRed, kBlue, kWhite, kRed}}));
    EXPECT_TRUE(VEK::decodeBmp(bmp(info(2, 1, 8, 1, 5) + palette, hex("01")), pixels));
    EXPECT_EQ(pixels, (CPixels{2, 1, {kBlack, kBlack}}));
}

TEST(Bmp, RefusesWhatNoPictureCanBe)
{
    const std::string pixels(64, '\0');
    CPixels read;
    EXPECT_TRUE(VEK::decodeBmp(bmp(info(4, 4, 32), pixels), read));
    for (const std::string& bad :
         {std::string(), std::string("BM"), "X" + bmp(info(4, 4, 32), pixels).substr(1), bmp(info(4, 4, 31), pixels),
          bmp(info(0, 4, 32), pixels), bmp(info(-4, 4, 32), pixels), bmp(info(4, 4, 32, 4), pixels), // JPEG within
          bmp(info(4, -4, 8, 1), pixels),                                             // runs from the top
          bmp(info(30000, 30000, 1), pixels), bmp(info(INT_MAX, INT_MIN, 1), pixels), // more than is taken at all
          bmp(info(8000, 8000, 8, 1), pixels), bmp(info(2, 1, 8), "").substr(0, 60)}) {
        read = {1, 1, {0}};
        EXPECT_FALSE(VEK::decodeBmp(bad, read)) << bad.size();
        EXPECT_EQ(read, CPixels());
    }
}

std::string dibImage(int width, int height, int bits, const std::string& palette, const std::string& data)
{
    return info(width, height * 2, bits, 0, static_cast<int>(palette.size() / 4)) + palette + data;
}

TEST(Icon, NearestSizeThenMostColoursThenFirst)
{
    const auto image = [](int size, int bits, unsigned color) {
        return dibImage(
            size, size, bits, bits == 8 ? le(color * 0x10101, 4) : "",
            std::string(static_cast<std::size_t>(size * size * 5), static_cast<char>(bits == 8 ? 0 : color)));
    };
    const std::string file =
        ico({image(16, 8, 0x10), image(32, 8, 0x20), image(32, 32, 0x30), image(32, 32, 0x40), image(48, 8, 0x50)});
    const auto chosen = [&](int cx, int cy) {
        IconImage icon;
        EXPECT_TRUE(VEK::decodeIcon(file, cx, cy, icon));
        return std::pair(icon.color.width, icon.color.data[0] & 0xFF);
    };
    for (const auto& [cx, cy, size, color] : {std::tuple(0, 0, 16, 0x10u),
                                              {20, 24, 16, 0x10u},
                                              {20, 30, 32, 0x30u},
                                              {1000, 1000, 48, 0x50u},
                                              {40, 40, 32, 0x30u}})
        EXPECT_EQ(chosen(cx, cy), std::pair(size, color)) << cx; // 40 is as far from 32 as from 48
}

/// Whatever the opacity of the pixels the mask says what shows; where it is empty, any opacity says it.
TEST(Icon, ShowsWhereItsMaskIsBlack)
{
    Random random;
    IconImage icon;
    for (int i = 0; i < 500; ++i) {
        Drawn drawn = drawBmp(random, true);
        const int width = drawn.expected.width, height = drawn.expected.height;
        std::string image = drawn.bytes.substr(14), mask;
        const bool isCore = image[0] == 12, isTopDown = !isCore && image[11] < 0;
        image.replace(isCore ? 6 : 8, isCore ? 2 : 4, le(isTopDown ? -2 * height : 2 * height, isCore ? 2 : 4));
        const unsigned left = random.upTo(3); // nothing, all, or drawn, is left out
        bool isEmpty = true;
        for (int y = 0; y < height; ++y) {
            Bits row;
            for (int x = 0; x < width; ++x) {
                const unsigned bit = std::min(left, 1u) & (left == 1 ? 1 : random.upTo(1));
                row.add(bit, 1);
                isEmpty = isEmpty && bit == 0;
                if (bit != 0)
                    drawn.at(x, isTopDown ? y : height - 1 - y) = kGray;
            }
            row.add(0, (32 - width % 32) % 32);
            mask += row.bytes;
        }
        const bool byOpacity = isEmpty && std::count(drawn.opacity.begin(), drawn.opacity.end(), 0u) <
                                              static_cast<std::ptrdiff_t>(drawn.opacity.size());
        for (std::size_t k = 0; byOpacity && k < drawn.opacity.size(); ++k)
            drawn.expected.data[k] = drawn.opacity[k] == 0 ? kGray : drawn.expected.data[k];
        const bool isMissing = left == 0 && random.chance(2);
        ASSERT_TRUE(VEK::decodeIcon(ico({image + (isMissing ? "" : mask)}), 0, 0, icon)) << i;
        ASSERT_EQ(VEK::flattenIcon(icon, 0x808080), drawn.expected) << i << ", mask " << left;
        EXPECT_FALSE(VEK::decodeIcon(ico({image.substr(0, drawn.needed - 15)}), 0, 0, icon));
        EXPECT_TRUE(icon.color.empty());
    }
    // Without colours the mask holds them in its lower half: black, white, what lies below, and that again.
    const IconImage plain{{}, {4, 2, {kBlack, kBlack, kWhite, kWhite, kBlack, kWhite, kBlack, kWhite}}};
    EXPECT_EQ(VEK::flattenIcon(plain, 0x0000FF), (CPixels{4, 1, {kBlack, kWhite, kRed, kRed}}));
    EXPECT_TRUE(VEK::flattenIcon({}, 0).empty());
    EXPECT_TRUE(VEK::flattenIcon({{2, 1, {0, 0}}, {1, 1, {0}}}, 0).empty());

    std::string cursor = ico({dibImage(1, 1, 32, "", le(0, 4))});
    EXPECT_FALSE(VEK::decodeIcon(ico({}), 0, 0, icon));
    EXPECT_FALSE(VEK::decodeIcon(cursor.substr(0, 20), 0, 0, icon));
    cursor[2] = 2;
    EXPECT_FALSE(VEK::decodeIcon(cursor, 0, 0, icon));
}

/// With a checksum that is none: nobody looks at it.
std::string chunk(const std::string& name, const std::string& data)
{
    const std::string size = le(static_cast<std::int64_t>(data.size()), 4);
    return std::string(size.rbegin(), size.rend()) + name + data + "none";
}

/// A row of two pixels, stored unpacked and without a filter.
std::string png(int type, int bits, const std::string& row, const std::string& chunks)
{
    const auto size = static_cast<int>(row.size()) + 1;
    const std::string packed = hex("7801 01") + le(size, 2) + le(~size, 2) + '\0' + row + "none";
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", hex("00000002 00000001") + le(bits, 1) + le(type, 1) + le(0, 3)) +
           chunks + chunk("IDAT", packed.substr(0, 5)) + chunk("tEXt", "") + chunk("IDAT", packed.substr(5)) +
           chunk("IEND", "");
}

bool decodePng(std::string_view bytes, CPixels& pixels)
{
    VEK::png::Header header;
    return VEK::png::readHeader(bytes, header) && VEK::png::readPixels(bytes, header, pixels);
}

TEST(Png, OfAllKinds)
{
    enum { gray, color = 2, indexed, grayAlpha, colorAlpha = 6 };
    const std::string palette = chunk("PLTE", hex("0000FF FF0000 00FF00")) + chunk("tRNS", hex("80 FF"));
    const struct {
        int type, bits;
        const char* row;
        std::string chunks;
        std::vector<std::uint32_t> expected;
    } kinds[] = {{gray, 1, "40", "", {kBlack, kWhite}},
                 {gray, 2, "B0", chunk("tRNS", hex("0003")), {0xFFAAAAAA, 0x00FFFFFF}},
                 {gray, 4, "1F", chunk("tRNS", hex("0001")), {0x00111111, kWhite}},
                 {gray, 8, "01FE", "", {0xFF010101, 0xFFFEFEFE}},
                 {gray, 16, "1234 12FF", chunk("tRNS", hex("1234")), {0x00121212, 0xFF121212}},
                 {color, 8, "123456 FF0000", chunk("tRNS", hex("0012 0034 0056")), {0x00563412, kRed}},
                 {color, 16, "1234 5678 9ABC FFFF 0000 00FF", "", {0xFF9A5612, kRed}},
                 {indexed, 1, "40", palette, {0x80FF0000, kRed}},
                 {indexed, 2, "80", palette, {kGreen, 0x80FF0000}},
                 {indexed, 4, "12", palette, {kRed, kGreen}},
                 {indexed, 8, "0200", palette, {kGreen, 0x80FF0000}},
                 {grayAlpha, 8, "1280 34FF", "", {0x80121212, 0xFF343434}},
                 {grayAlpha, 16, "1234 7FFF 5678 8000", "", {0x7F121212, 0x80565656}},
                 {colorAlpha, 8, "12345678 9ABCDEFF", "", {0x78563412, 0xFFDEBC9A}},
                 {colorAlpha, 16, "1234 5678 9ABC DEF0 FFFF 0000 0000 0000", "", {0xDE9A5612, 0x000000FF}}};
    for (const auto& kind : kinds) {
        const std::string file = png(kind.type, kind.bits, hex(kind.row), kind.chunks);
        CPixels pixels;
        ASSERT_TRUE(decodePng(file, pixels)) << kind.type << ", " << kind.bits;
        EXPECT_EQ(pixels, (CPixels{2, 1, kind.expected})) << kind.type << ", " << kind.bits;
        for (std::size_t size = 0; size + 4 < file.size(); ++size)
            EXPECT_FALSE(decodePng(std::string_view(file).substr(0, size), pixels)) << size;
        IconImage icon;
        ASSERT_TRUE(VEK::decodeIcon(ico({file}), 0, 0, icon));
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_EQ(icon.color.data[i], kind.expected[i] | kBlack);
            EXPECT_EQ(icon.mask.data[i], kind.expected[i] >> 24 < 128 ? kWhite : kBlack);
        }
    }
    std::string lying = png(gray, 8, "xx", "");
    for (const char* size : {"00002000 00002000", "04000000 00000001", "04000001 00000001", "00000000 00000001",
                             "80000000 00000001", "7FFFFFFF 7FFFFFFF"}) {
        CPixels pixels;
        EXPECT_FALSE(decodePng(lying.replace(16, 8, hex(size)), pixels)) << size;
    }
}

TEST(Png, ComesBackAsItWasWritten)
{
    using VEK::png::Channels;
    Random random;
    for (int i = 0; i < 200; ++i) {
        CPixels pixels = random.picture(random.size(60), random.size(60), i % 2 == 0 ? 3 : 0xFFFFFF), again;
        for (std::uint32_t& pixel : pixels.data)
            pixel ^= random.upTo(255) << 24;
        ASSERT_TRUE(decodePng(VEK::png::encode(pixels, Channels::colorAndOpacity), again)) << i;
        ASSERT_EQ(again, pixels) << i;
        ASSERT_TRUE(decodePng(VEK::png::encode(pixels, Channels::color), again)) << i;
        for (std::uint32_t& pixel : pixels.data)
            pixel |= kBlack;
        ASSERT_EQ(again, pixels) << i;
    }
    for (const CPixels& bad : {CPixels(), CPixels{1 << 15, 1 << 15, {0}}, CPixels{2, 1, {0}}, CPixels{-1, -1, {0}}})
        EXPECT_EQ(VEK::png::encode(bad, Channels::color), "");
}

TEST(Picture, GrowingRepeatsAndShrinkingTakesTheMean)
{
    const unsigned a = 0xFF000010, b = 0xFF300020, c = 0xFF0000FF, d = 0xFF000000;
    const CPixels row{4, 1, {a, b, c, d}};
    EXPECT_EQ(VEK::scaledPicture(row, 6, 2), (CPixels{6, 2, {a, a, b, c, c, d, a, a, b, c, c, d}}));
    EXPECT_EQ(VEK::scaledPicture(row, 2, 1), (CPixels{2, 1, {0xFF180018, 0xFF000080}}));
    EXPECT_EQ(VEK::scaledPicture(row, 3, 1), (CPixels{3, 1, {a, b, 0xFF000080}})); // covers 1, 1 and 2
    EXPECT_EQ(VEK::scaledPicture({2, 2, {a, a, b, b}}, 4, 1),
              (CPixels{4, 1, {0xFF180018, 0xFF180018, 0xFF180018, 0xFF180018}}));
    EXPECT_EQ(VEK::scaledPicture({4, 1, {c, 0x00FFFFFF, 0x00FFFFFF, c}}, 2, 1), (CPixels{2, 1, {c, c}}));
    EXPECT_EQ(VEK::scaledPicture({3, 1, {c, 7, 7}}, 1, 1).data[0] >> 24, 0u);
    for (const auto& [width, height] : {std::pair(0, 1), {1, -1}, {30000, 30000}})
        EXPECT_TRUE(VEK::scaledPicture(row, width, height).empty() && VEK::scaledPicture({}, 3, 3).empty());
}

TEST(Picture, KeyColourIsTheMostFrequentOfFivePlaces)
{
    Random random;
    for (int i = 0; i < 500; ++i) {
        const int width = random.size(5), height = random.size(5);
        CPixels pixels = random.picture(width, height, 3);
        std::map<unsigned, int> counts; // by colour
        for (const auto& [x, y] : {std::pair(0, 0),
                                   {width - 1, 0},
                                   {0, height - 1},
                                   {width - 1, height - 1},
                                   {(width - 1) / 2, (height - 1) / 2}})
            ++counts[pixels.at(x, y) & 0xFFFFFF];
        const unsigned key =
            std::max_element(counts.begin(), counts.end(), [](auto& p, auto& q) { return p.second < q.second; })->first;
        ASSERT_EQ(VEK::keyColor(pixels), key) << i;
        CPixels without = pixels;
        VEK::leaveOut(without, key);
        for (std::uint32_t& pixel : pixels.data)
            pixel = (pixel & 0xFFFFFF) == key ? key : pixel;
        ASSERT_EQ(without, pixels) << i;
    }
    EXPECT_EQ(VEK::keyColor({}), 0xFFFFFFFFu);
    EXPECT_EQ(VEK::keyColorOf({kBlue, kRed, kRed, kBlue, 8}), kRed);
}

/// Counts what it reads.
class Cache : public VEK::CPictureCache
{
public:
    using CPictureCache::CPictureCache;

    int reads = 0;
    bool isBroken = false;

protected:
    bool load(const VEK::PictureRequest& request, CPixels& pixels) override
    {
        ++reads;
        return !isBroken && CPictureCache::load(request, pixels);
    }
};

class PictureFiles : public testing::Test
{
protected:
    PictureFiles()
    {
        save(L"a.BMP", bmp(info(2, 1, 24), hex("0000FF 00FF00 0000")));
        save(L"b.Ico", ico({dibImage(2, 1, 32, "", le(0xFF0000, 4) + le(0xFF, 4) + hex("40000000"))}));
        save(L"c.png", bmp(info(2, 1, 24), hex("0000FF 00FF00 0000")));
        save(L"d.bmp", "BM");
    }

    void save(const wchar_t* name, const std::string& bytes) { ASSERT_NE(m_folder.save(name, bytes), L""); }
    VEK::PictureRequest request(const wchar_t* name, int cx = 0, bool transparent = false)
    {
        return {m_folder.name(name).c_str(), 0, cx, 0, transparent, 0x808080};
    }
    CPixels load(const wchar_t* name, int cx, int cy)
    {
        m_transparent = true;
        return VEK::loadPicture(m_folder.name(name).c_str(), 0, cx, cy, m_transparent, 0x808080);
    }
    CPixels get(Cache& cache, const VEK::PictureRequest& request)
    {
        const auto pixels = cache.picture(request);
        return pixels ? *pixels : CPixels();
    }

    TestFolder m_folder{L"bitmaps"};
    bool m_transparent = true;
};

TEST_F(PictureFiles, EndingDecidesAndOnlyIconsAreFlattened)
{
    EXPECT_EQ(load(L"a.BMP", 0, 0), (CPixels{2, 1, {kRed, kGreen}}));
    EXPECT_TRUE(m_transparent);
    EXPECT_EQ(load(L"a.BMP", 4, 0), (CPixels{4, 1, {kRed, kRed, kGreen, kGreen}}));
    EXPECT_EQ(load(L"b.Ico", 0, 2), (CPixels{2, 2, {kRed, kGray, kRed, kGray}}));
    EXPECT_FALSE(m_transparent);
    for (const wchar_t* name : {L"c.png", L"d.bmp", L"none.bmp", L"none.ico"}) {
        EXPECT_TRUE(load(name, 0, 0).empty());
        EXPECT_TRUE(m_transparent);
    }
    EXPECT_TRUE(load(L"a.BMP", -2, 1).empty());
    EXPECT_TRUE(load(L"a.BMP", 1 << 20, 1 << 20).empty());
    EXPECT_TRUE(VEK::loadPicture(L".bmp", 0, 0, 0, m_transparent, 0).empty());
    EXPECT_TRUE(VEK::loadPicture(nullptr, 65000, 0, 0, m_transparent, 0).empty());
}

TEST_F(PictureFiles, AreReadOnceForEachWayToShowThem)
{
    Cache cache;
    for (int pass = 0; pass < 3; ++pass) {
        cache.begin();
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(get(cache, request(L"a.BMP")), (CPixels{2, 1, {kRed, kGreen}}));
            EXPECT_EQ(get(cache, request(L"a.BMP", 1)), (CPixels{1, 1, {0xFF008080}}));
            EXPECT_EQ(get(cache, request(L"a.BMP", 0, true)), (CPixels{2, 1, {kRed & 0xFFFFFF, kGreen}}));
            EXPECT_EQ(get(cache, request(L"b.Ico", 0, true)), (CPixels{2, 1, {kRed, kGray}}));
            VEK::PictureRequest black = request(L"b.Ico");
            black.back = 0;
            EXPECT_EQ(get(cache, black), (CPixels{2, 1, {kRed, kBlack}}));
            EXPECT_EQ(cache.picture(request(L"d.bmp")), nullptr);
            EXPECT_EQ(cache.picture(request(L"none.bmp")), nullptr);
            EXPECT_EQ(cache.picture({L"", 65000}), nullptr);
        }
    }
    EXPECT_EQ(cache.reads, 8);
    EXPECT_EQ(cache.picture(request(L"a.BMP")), cache.picture(request(L"a.BMP")));
    cache.clear();
    EXPECT_EQ(cache.size(), 0u);
    cache.isBroken = true; // is tried again
    EXPECT_EQ(cache.picture(request(L"a.BMP")), nullptr);
    cache.isBroken = false;
    EXPECT_NE(cache.picture(request(L"a.BMP")), nullptr);
    EXPECT_EQ(cache.reads, 10);
}

TEST_F(PictureFiles, AreShownAnewInTheNextPassWhenTheyChange)
{
    Cache cache;
    const auto path = m_folder / L"a.BMP";
    const CPixels before = get(cache, request(L"a.BMP")), swapped{2, 1, {kGreen, kRed}};
    const auto time = std::filesystem::last_write_time(path);
    save(L"a.BMP", bmp(info(2, 1, 24), hex("00FF00 0000FF 0000"))); // as long as before
    std::filesystem::last_write_time(path, time + std::chrono::seconds(1));
    EXPECT_EQ(get(cache, request(L"a.BMP")), before);
    cache.begin();
    EXPECT_EQ(get(cache, request(L"a.BMP")), swapped);
    save(L"a.BMP", bmp(info(1, 1, 24), hex("FF0000 00"))); // another size at the same time
    std::filesystem::last_write_time(path, time + std::chrono::seconds(1));
    cache.begin();
    EXPECT_EQ(get(cache, request(L"a.BMP")), (CPixels{1, 1, {kBlue}}));
    std::filesystem::remove(path);
    cache.begin();
    EXPECT_EQ(cache.picture(request(L"a.BMP")), nullptr);
    save(L"a.BMP", bmp(info(2, 1, 24), hex("0000FF 00FF00 0000")));
    cache.begin();
    EXPECT_EQ(get(cache, request(L"a.BMP")), before);
    EXPECT_EQ(cache.reads, 5);
}

TEST_F(PictureFiles, TakeNoMoreThanTheLimit)
{
    constexpr std::size_t kLimit = 64 << 10;
    Cache cache(kLimit);
    const auto reads = [&](int cx) { // of a picture of two pixels' height a column
        const int before = cache.reads;
        EXPECT_EQ(get(cache, request(L"a.BMP", cx)).width, cx);
        EXPECT_LE(cache.size(), kLimit);
        return cache.reads - before;
    };
    EXPECT_EQ(reads(5000) + reads(5001) + reads(5002), 3); // 20,000 bytes each
    EXPECT_EQ(reads(5000), 0);
    EXPECT_EQ(reads(5003), 1); // in the place of 5001
    EXPECT_EQ(reads(5002) + reads(5000) + reads(5003), 0);
    EXPECT_EQ(reads(5001), 1);
    EXPECT_EQ(reads(20000) + reads(20000), 2); // not kept, and puts no other out
    EXPECT_EQ(reads(5001) + reads(5003) + reads(5000), 0);
    for (int cx = 1; cx < 1000; ++cx)
        reads(cx);
}

} // namespace
