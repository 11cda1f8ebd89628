// Pictures from files. The files are put together here from the published layouts, field by field.
#include <vek/surfaces.h>

#include "core/platform/platform.h"
#include "picture_bytes.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

using namespace picture_bytes;
using VEK::CPixels;
using VEK::IconImage;
using VEK::platform::textOf;

constexpr unsigned kRed = 0xFF0000FF, kGreen = 0xFF00FF00, kBlue = 0xFFFF0000, kWhite = 0xFFFFFFFF, kBlack = 0xFF000000;
constexpr unsigned kGray = 0xFF808080;

CPixels decoded(const std::string& bytes)
{
    CPixels pixels;
    EXPECT_TRUE(VEK::decodeBmp(bytes, pixels));
    return pixels;
}

bool fails(const std::string& bytes)
{
    CPixels pixels{1, 1, {0}};
    const bool good = VEK::decodeBmp(bytes, pixels);
    EXPECT_EQ(pixels, good ? pixels : CPixels{});
    return !good;
}

/// Black, red, green, blue, then white, in the order that files have them.
const std::string kPalette = hex("00000000 0000FF00 00FF0000 FF000000 FFFFFF00");

TEST(Bmp, RowsFromTheBottomWithPaddingAndFromTheTop)
{
    const std::string rows = hex("0000FF FFFFFF 0000 FF0000 00FF00 0000"); // lower row red, white
    const CPixels expected{2, 2, {kBlue, kGreen, kRed, kWhite}};
    EXPECT_EQ(decoded(bmp(info(2, 2, 24), rows)), expected);
    EXPECT_EQ(decoded(bmp(info(2, 2, 24), rows.substr(0, 14))), expected); // without the last padding
    EXPECT_EQ(decoded(bmp(info(2, -2, 24), rows)), (CPixels{2, 2, {kRed, kWhite, kBlue, kGreen}}));
    EXPECT_TRUE(fails(bmp(info(2, 2, 24), rows.substr(0, 13))));
}

TEST(Bmp, IndexedPixels)
{
    EXPECT_EQ(decoded(bmp(info(9, 1, 1) + kPalette.substr(0, 8), hex("A0800000"))),
              (CPixels{9, 1, {kRed, kBlack, kRed, kBlack, kBlack, kBlack, kBlack, kBlack, kRed}}));
    EXPECT_EQ(decoded(bmp(info(3, 1, 4, 0, 5) + kPalette, hex("12 40 0000"))), (CPixels{3, 1, {kRed, kGreen, kWhite}}));
    EXPECT_EQ(decoded(bmp(info(2, 1, 8, 0, 5) + kPalette, hex("03 FF 0000"))), (CPixels{2, 1, {kBlue, kBlack}}));
}

TEST(Bmp, PaletteCutShortByThePixelsOrTheEnd)
{
    const std::string whole = bmp(info(2, 1, 8) + kPalette, hex("01 04 0000")); // means 256 colours and has 5
    EXPECT_EQ(decoded(whole), (CPixels{2, 1, {kRed, kWhite}}));
    EXPECT_TRUE(fails(whole.substr(0, 60)));
}

TEST(Bmp, CoreHeader)
{
    const std::string header = le(12, 4) + le(2, 2) + le(1, 2) + le(1, 2) + le(4, 2) + hex("000000 0000FF 00FF00");
    EXPECT_EQ(decoded(bmp(header + std::string(13 * 3, '\0'), hex("21 000000"))), (CPixels{2, 1, {kGreen, kRed}}));
}

TEST(Bmp, SixteenAndThirtyTwoBits)
{
    // 5 bits of 16 are 10000 -> 10000100, 6 bits of 33 are 100001 -> 10000110
    EXPECT_EQ(decoded(bmp(info(2, 1, 16), le(0x7C00, 2) + le(16, 2))), (CPixels{2, 1, {kRed, 0xFF840000}}));
    EXPECT_EQ(decoded(bmp(info(2, 1, 16, 3) + le(0xF800, 4) + le(0x7E0, 4) + le(0x1F, 4), le(33 << 5, 2) + le(31, 2))),
              (CPixels{2, 1, {0xFF008600, kBlue}}));
    EXPECT_EQ(decoded(bmp(info(1, 1, 32), le(0x12FF8040, 4))), (CPixels{1, 1, {0xFF4080FF}}));
    // 10 bits a channel, with the masks within a longer header
    const std::string longer = info(1, 1, 32, 3, 0, 108) + le(0x3FF00000, 4) + le(0xFFC00, 4) + le(0x3FF, 4);
    EXPECT_EQ(decoded(bmp(longer + std::string(108 - 52, '\0'), le(0x3FF00000 | 0x200 << 10 | 4, 4))),
              (CPixels{1, 1, {0xFF0180FF}}));
}

TEST(Bmp, RunLengths)
{
    // run of 3 green; 4 as they are; end of row; move by 1, 1; run of 9, which the border cuts; end
    const std::string rle8 = hex("03 02 00 04 01 03 04 01 00 00 00 02 01 01 09 03 00 01");
    EXPECT_EQ(decoded(bmp(info(7, 3, 8, 1, 5) + kPalette, rle8)),
              (CPixels{7, 3, {kBlack, kBlue,  kBlue,  kBlue,  kBlue,  kBlue,  kBlue,  //
                              kBlack, kBlack, kBlack, kBlack, kBlack, kBlack, kBlack, //
                              kGreen, kGreen, kGreen, kRed,   kBlue,  kWhite, kRed}}));
    // run of 3 in turn, then 3 as they are with padding
    const std::string rle4 = hex("03 12 00 03 34 10 00 00 00 01");
    EXPECT_EQ(decoded(bmp(info(6, 1, 4, 2, 5) + kPalette, rle4)),
              (CPixels{6, 1, {kRed, kGreen, kRed, kBlue, kWhite, kRed}}));
    EXPECT_EQ(decoded(bmp(info(2, 1, 8, 1, 5) + kPalette, hex("01"))), (CPixels{2, 1, {kBlack, kBlack}}));
}

TEST(Bmp, RefusesWhatNoPictureCanBe)
{
    const std::string pixels(64, '\0');
    EXPECT_FALSE(fails(bmp(info(4, 4, 32), pixels)));
    EXPECT_TRUE(fails(""));
    EXPECT_TRUE(fails("BM"));
    EXPECT_TRUE(fails("X" + bmp(info(4, 4, 32), pixels).substr(1)));
    EXPECT_TRUE(fails(bmp(info(4, 4, 31), pixels)));
    EXPECT_TRUE(fails(bmp(info(0, 4, 32), pixels)));
    EXPECT_TRUE(fails(bmp(info(-4, 4, 32), pixels)));
    EXPECT_TRUE(fails(bmp(info(4, 4, 32, 4), pixels)));      // JPEG within
    EXPECT_TRUE(fails(bmp(info(4, -4, 8, 1), pixels)));      // runs from the top
    EXPECT_TRUE(fails(bmp(info(30000, 30000, 1), pixels)));  // more than is taken at all
    EXPECT_TRUE(fails(bmp(info(8000, 8000, 8, 1), pixels))); // runs that can't fill it
    EXPECT_TRUE(fails(bmp(info(INT_MAX, INT_MIN, 1), pixels)));
}

std::string dibImage(int width, int height, int bits, const std::string& palette, const std::string& data)
{
    return info(width, height * 2, bits, 0, static_cast<int>(palette.size() / 4)) + palette + data;
}

TEST(Icon, NearestSizeThenMostColoursThenFirst)
{
    const auto image = [](int size, int bits, unsigned color) { // one colour, all of it showing
        const std::size_t area = static_cast<std::size_t>(size * size);
        std::string data, palette;
        for (std::size_t i = 0; i < area && bits == 32; ++i)
            data += le(color, 4);
        if (bits == 8) {
            palette = le(color, 4);
            data.assign(static_cast<std::size_t>((size + 3) / 4 * 4 * size), '\0');
        }
        return dibImage(size, size, bits, palette, data + std::string(static_cast<std::size_t>(size * 4), '\0'));
    };
    const std::string file =
        ico({image(16, 8, 0x10), image(32, 8, 0x20), image(32, 32, 0x30), image(32, 32, 0x40), image(48, 8, 0x50)});
    const auto chosen = [&](int cx, int cy) {
        IconImage icon;
        EXPECT_TRUE(VEK::decodeIcon(file, cx, cy, icon));
        return std::pair(icon.color.width, icon.color.data[0] & 0xFFFFFF);
    };
    EXPECT_EQ(chosen(0, 0), std::pair(16, 0x100000u));
    EXPECT_EQ(chosen(20, 24), std::pair(16, 0x100000u));
    EXPECT_EQ(chosen(20, 30), std::pair(32, 0x300000u));
    EXPECT_EQ(chosen(30, 30), std::pair(32, 0x300000u));
    EXPECT_EQ(chosen(1000, 1000), std::pair(48, 0x500000u));
    EXPECT_EQ(chosen(40, 40), std::pair(32, 0x300000u)); // as far as 48
}

TEST(Icon, MaskColourAndBackAreCombined)
{
    // A row of four: black shows, white shows, nothing shows, and colour where the mask is white, which is dropped.
    const std::string file = ico({dibImage(4, 1, 1, hex("00000000 FFFFFF00"), hex("50000000") + hex("30000000"))});
    IconImage icon;
    ASSERT_TRUE(VEK::decodeIcon(file, 0, 0, icon));
    EXPECT_EQ(icon.mask, (CPixels{4, 1, {kBlack, kBlack, kWhite, kWhite}}));
    EXPECT_EQ(VEK::flattenIcon(icon, 0x0000FF), (CPixels{4, 1, {kBlack, kWhite, kRed, kRed}}));

    // The same as a mask of double height.
    const IconImage plain{{}, {4, 2, {kBlack, kBlack, kWhite, kWhite, kBlack, kWhite, kBlack, kWhite}}};
    EXPECT_EQ(VEK::flattenIcon(plain, 0x0000FF), VEK::flattenIcon(icon, 0x0000FF));
    EXPECT_TRUE(VEK::flattenIcon({}, 0).empty());
    EXPECT_TRUE(VEK::flattenIcon({{2, 1, {0, 0}}, {1, 1, {0}}}, 0).empty());
}

TEST(Icon, MissingMaskShowsAllAndMissingColoursFail)
{
    IconImage icon;
    const std::string image = dibImage(1, 1, 32, "", le(0x00FF0000, 4));
    ASSERT_TRUE(VEK::decodeIcon(ico({image}), 0, 0, icon));
    EXPECT_EQ(VEK::flattenIcon(icon, 0xFFFFFF), (CPixels{1, 1, {kRed}}));
    EXPECT_FALSE(VEK::decodeIcon(ico({image.substr(0, 43)}), 0, 0, icon));
    EXPECT_TRUE(icon.color.empty());
    EXPECT_FALSE(VEK::decodeIcon(ico({}), 0, 0, icon));
    EXPECT_FALSE(VEK::decodeIcon(ico({image}).substr(0, 20), 0, 0, icon));
    std::string cursor = ico({image});
    cursor[2] = 2;
    EXPECT_FALSE(VEK::decodeIcon(cursor, 0, 0, icon));
}

TEST(Icon, PngInside)
{
    // Two by two pixels of RGBA, made by a common library: red, half green; nothing, white. Filter Sub, fixed codes.
    const std::string png =
        hex("89504E470D0A1A0A 0000000D49484452 00000002 00000002 0806000000 72B60D24 00000019 49444154 78"
            "0163FCCFC0F09FF13F432303231333C37F2000003A2E0783 5A325DE9 00000000 49454E44 AE426082");
    IconImage icon;
    ASSERT_TRUE(VEK::decodeIcon(ico({png}), 0, 0, icon));
    EXPECT_EQ(icon.mask, (CPixels{2, 2, {kBlack, kBlack, kWhite, kBlack}}));
    EXPECT_EQ(VEK::flattenIcon(icon, 0x808080), (CPixels{2, 2, {kRed, kGreen, kGray, kWhite}}));
    for (std::size_t size = 26; size < 61; ++size) // where the last pixel ends; the rest is checksums
        EXPECT_FALSE(VEK::decodeIcon(ico({png.substr(0, size)}), 0, 0, icon)) << size;
}

TEST(Icon, PngOfAllFiltersWithCodesOfItsOwn)
{
    // 48 by 16 greys of 4 bits, the rows filtered by 0 to 4 in turn, in two chunks, packed by a common library.
    const std::string png =
        hex("89504E470D0A1A0A0000000D4948445200000030000000100400000000B0354E6C000000324944415478DA1D8FCD4BC34014C4DF"
            "6C821A59EDBEA4E0071AEDC6739BA6B95BB57FB6C2E62F10EACD43AD28D45BB6221265FD78F4F0B07D75C00000010B49444154F8"
            "CD1C1E334384425D5DC7157331BDE89F5786282D4580385B4C699EB76BCE5F28D8FB163C7CA51F0518E39AB081DEC03042301183"
            "7D876DEB697775D871D27E51D2A32E898935418E4940D40C3DD88D98C94A66D61FC493C934BD1A4B0B6B6B250296F75F3C9D3E5C"
            "AEF5C390303F93F0C5889462386D34344C631A34C1B0B8062E3AE6E5C1271DAD1E4F9ED3768983ACC3D6B75FAA18C11802101C1B"
            "F680BBC45D01323493CC727C3390C17516498BD90C172230BBB3B9E726F784FCA345BEA8C3DC3E41AB5BE96E361358A0896E1D05"
            "7111F16E3BA0758FBE12F3BEF37BF4D621397BDFF98B19861DF6D80B465E9CBC427B26B6651645E7375551ABB21C4796D3026559"
            "FD030DB5653F836543BF0000000049454E44AE426082");
    IconImage icon;
    ASSERT_TRUE(VEK::decodeIcon(ico({png}), 0, 0, icon));
    ASSERT_EQ(icon.color.width, 48);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 48; ++x) {
            const unsigned gray = static_cast<unsigned>((x * x + y * 3) / 7 % 5 * 17);
            ASSERT_EQ(icon.color.at(x, y), kBlack | gray * 0x10101u) << x << ',' << y;
        }
    }
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
    EXPECT_TRUE(VEK::scaledPicture(row, 0, 1).empty());
    EXPECT_TRUE(VEK::scaledPicture(row, 1, -1).empty());
    EXPECT_TRUE(VEK::scaledPicture(row, 30000, 30000).empty());
    EXPECT_TRUE(VEK::scaledPicture({}, 3, 3).empty());
}

TEST(Picture, KeyColourIsTheMostFrequentOfFivePlaces)
{
    EXPECT_EQ(VEK::keyColor({1, 1, {kRed}}), 0x0000FFu);
    EXPECT_EQ(VEK::keyColor({}), 0xFFFFFFFFu);
    // 3 by 3: the corners are places 0, 2, 6, 8 and the middle is 4.
    const auto key = [](unsigned a, unsigned b, unsigned c, unsigned middle, unsigned d) {
        return VEK::keyColor({3, 3, {a, 1, b, 1, middle, 1, c, 1, d}});
    };
    EXPECT_EQ(key(5, 4, 3, 2, 9), 2u);                      // all different: the lowest
    EXPECT_EQ(key(9, 9, 3, 3, 7), 3u);                      // a tie
    EXPECT_EQ(key(9, 9, 3, 3, 9), 9u);                      // the most frequent
    EXPECT_EQ(key(kBlue, kRed, kRed, kBlue, 8), 0x0000FFu); // red is the lower value
    // 4 by 4: the middle is cut to column and row 1.
    CPixels even{4, 4, std::vector<std::uint32_t>(16, 7)};
    for (const std::size_t corner : {0, 3, 12, 15})
        even.data[corner] = static_cast<std::uint32_t>(20 + corner);
    even.data[5] = 2;
    EXPECT_EQ(VEK::keyColor(even), 2u);
}

TEST(Picture, LeavingOutAColour)
{
    CPixels pixels{3, 1, {kRed, kGreen, kRed}};
    VEK::leaveOut(pixels, 0x0000FF);
    EXPECT_EQ(pixels, (CPixels{3, 1, {0x000000FF, kGreen, 0x000000FF}}));
}

class PictureFiles : public testing::Test
{
protected:
    PictureFiles()
    {
        std::filesystem::create_directories(m_folder);
        save("a.BMP", bmp(info(2, 1, 24), hex("0000FF 00FF00 0000")));
        save("b.Ico", ico({dibImage(2, 1, 32, "", le(0xFF0000, 4) + le(0xFF, 4) + hex("40000000"))}));
        save("c.png", bmp(info(2, 1, 24), hex("0000FF 00FF00 0000")));
        save("d.bmp", "BM");
    }
    ~PictureFiles() override { std::filesystem::remove_all(m_folder); }

    void save(const char* name, const std::string& bytes)
    {
        ASSERT_TRUE(VEK::platform::writeFile(m_folder / name, bytes));
    }
    CPixels load(const char* name, int cx, int cy)
    {
        m_transparent = true;
        return VEK::loadPicture(textOf(m_folder / name).c_str(), 0, cx, cy, m_transparent, 0x808080);
    }

    std::filesystem::path m_folder = std::filesystem::temp_directory_path() / "vek_picture_test";
    bool m_transparent = true;
};

TEST_F(PictureFiles, EndingDecidesAndOnlyIconsAreFlattened)
{
    EXPECT_EQ(load("a.BMP", 0, 0), (CPixels{2, 1, {kRed, kGreen}}));
    EXPECT_TRUE(m_transparent);
    EXPECT_EQ(load("a.BMP", 4, 0), (CPixels{4, 1, {kRed, kRed, kGreen, kGreen}}));
    EXPECT_EQ(load("b.Ico", 0, 2), (CPixels{2, 2, {kRed, kGray, kRed, kGray}}));
    EXPECT_FALSE(m_transparent);
    for (const char* name : {"c.png", "d.bmp", "none.bmp", "none.ico"}) {
        EXPECT_TRUE(load(name, 0, 0).empty()) << name;
        EXPECT_TRUE(m_transparent);
    }
    EXPECT_TRUE(load("a.BMP", -2, 1).empty());
    EXPECT_TRUE(load("a.BMP", 1 << 20, 1 << 20).empty());
    EXPECT_TRUE(VEK::loadPicture(L".bmp", 0, 0, 0, m_transparent, 0).empty());
    EXPECT_TRUE(VEK::loadPicture(nullptr, 65000, 0, 0, m_transparent, 0).empty());
}

TEST(Picture, Examples)
{
    const std::filesystem::path folder = std::filesystem::path(VEK_SOURCE_DIR) / "examples" / "pictures";
    bool transparent = true;
    const CPixels sign = VEK::loadPicture(textOf(folder / "sign.bmp").c_str(), 0, 0, 0, transparent, 0);
    EXPECT_EQ(sign.width, 208);
    EXPECT_EQ(VEK::keyColor(sign), 0xFFFFFFu);
    EXPECT_TRUE(transparent);
    for (const int size : {16, 32, 48, 60}) {
        const CPixels north =
            VEK::loadPicture(textOf(folder / "north.ico").c_str(), 0, size, size, transparent, 0xAA00);
        ASSERT_EQ(north.width, size);
        EXPECT_EQ(north.at(0, 0), 0xFF00AA00u);
        EXPECT_EQ(north.at(size * 7 / 16, size / 2), 0xFF2020C0u); // the left half of the needle
        EXPECT_EQ(north.at(size * 9 / 16, size / 2), 0xFFFEFEFEu);
    }
}

} // namespace
