#include <vek/values/color.h>
#include <vek/values/country.h>

#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>

TEST(Palette, IsThePublishedOne)
{
    // A published listing, in part: the first ten, the red tens with their shades, one entry of each other hue.
    const struct {
        int index;
        unsigned long rgb;
    } cases[] = {
        {1, 0xFF0000},   {2, 0xFFFF00},   {3, 0x00FF00},   {4, 0x00FFFF},   {5, 0x0000FF},   {6, 0xFF00FF},
        {7, 0xFFFFFF},   {8, 0x808080},   {9, 0xC0C0C0},   {10, 0xFF0000},  {11, 0xFF7F7F},  {12, 0xA50000},
        {13, 0xA55252},  {14, 0x7F0000},  {15, 0x7F3F3F},  {16, 0x4C0000},  {17, 0x4C2626},  {18, 0x260000},
        {19, 0x261313},  {20, 0xFF3F00},  {21, 0xFF9F7F},  {32, 0xA55200},  {43, 0xA59152},  {54, 0x7F7F00},
        {65, 0x6F7F3F},  {76, 0x264C00},  {87, 0x2F4C26},  {98, 0x002600},  {109, 0x132617}, {110, 0x00FF7F},
        {121, 0x7FFFDF}, {132, 0x00A5A5}, {143, 0x5291A5}, {154, 0x003F7F}, {165, 0x3F4F7F}, {176, 0x00004C},
        {187, 0x2F264C}, {198, 0x130026}, {209, 0x211326}, {210, 0xFF00FF}, {221, 0xFF7FDF}, {232, 0xA50052},
        {243, 0xA55267}, {249, 0x261317}, {250, 0x545454}, {251, 0x767676}, {252, 0x989898}, {253, 0xBABABA},
        {254, 0xDCDCDC}, {255, 0xFFFFFF},
    };
    for (const auto& c : cases)
        EXPECT_EQ(VEK::paletteColor(c.index), c.rgb) << c.index;
    for (const int outside : {-1, 0, 256, 257})
        EXPECT_EQ(VEK::paletteColor(outside), 0u);
}

TEST(Palette, GivesTheNearestEntry)
{
    std::mt19937 random(6);
    for (int i = 0; i < 500; ++i) {
        const unsigned long rgb = i < 255 ? VEK::paletteColor(i + 1) : random() & 0xFFFFFF; // many stand twice
        const auto distance = [&](int index) {
            const unsigned long entry = VEK::paletteColor(index);
            long sum = 0;
            for (int shift = 0; shift < 24; shift += 8) {
                const long d = static_cast<long>(entry >> shift & 0xFF) - static_cast<long>(rgb >> shift & 0xFF);
                sum += d * d;
            }
            return sum;
        };
        const short nearest = VEK::paletteNearest(rgb);
        for (int index = 1; index <= 255; ++index)
            ASSERT_FALSE(distance(index) < distance(nearest) + (index < nearest ? 1 : 0)) << rgb;
    }
}

TEST(Color, HoldsAndComparesAllItsFieldsHoweverItIsPassedOn)
{
    struct Model {
        short index = -1;
        unsigned long rgb = 0;
        std::wstring name, book;
        bool operator==(const Model&) const = default;
    };
    const auto oleOf = [](unsigned long rgb) { return rgb >> 16 | (rgb & 0xFF00) | (rgb & 0xFF) << 16; };
    const wchar_t* const texts[] = {nullptr, L"", L"RAL 9016", L"RAL Classic"};
    std::mt19937 random(5);
    CVekColor colors[3];
    Model models[3];
    int judged = 0;
    for (int round = 0; round < 3000; ++round) {
        const unsigned i = random() % 3, j = random() % 3;
        CVekColor &color = colors[i], &other = colors[j];
        Model &model = models[i], &second = models[j];
        switch (random() % 7) {
        case 0: // 0, the pen's colour, is a choice too; an index drops the value
            model.index = static_cast<short>(static_cast<int>(random() % 4) - 1);
            model.rgb = VEK::paletteColor(model.index);
            color.setColorIndex(model.index);
            break;
        case 1: // by value, which counts as an index where there is none
            model.rgb = random() % 3 * 0x7F0102;
            if (model.index == -1)
                model.index = VEK::paletteNearest(model.rgb);
            random() % 2 ? color.setColor(0xFF000000 | model.rgb) : color.setOleColor(oleOf(model.rgb));
            break;
        case 2: {
            const wchar_t *name = texts[random() % 4], *book = texts[random() % 4];
            color.setNames(name, book);
            model.name = name ? name : L"", model.book = book ? book : L"";
            break;
        }
        case 3: // names of its own, the other way round
            color.setNames(color.bookName(), color.colorName());
            std::swap(model.name, model.book);
            break;
        case 4: color = other, model = Model(second); break;
        case 5: {
            CVekColor taken(std::move(color)), copy(taken);
            color = std::move(copy);
            break;
        }
        default: std::swap(color, other); std::swap(model, second);
        }
        for (unsigned k = 0; k < 3; ++k, ++judged) {
            const CVekColor& c = colors[k];
            const Model& m = models[k];
            EXPECT_EQ(c.red() + c.green() * 256u + c.blue() * 65536u, oleOf(m.rgb)) << round;
            EXPECT_TRUE(c.colorIndex() == m.index && c.color() == m.rgb && c.oleColor() == oleOf(m.rgb) &&
                        m.name == static_cast<const wchar_t*>(c.colorName()) &&
                        m.book == static_cast<const wchar_t*>(c.bookName()))
                << round;
            EXPECT_EQ(c == color, m == model) << round;
        }
    }
    EXPECT_EQ(judged, 9000);
}

TEST(Countries, AreAtLeastTwentyWithGermanFirst)
{
    std::set<CVekString> ids;
    const vek_country_st* row = VEK::dlCountries();
    EXPECT_STREQ(row->id, L"de");
    EXPECT_STREQ(row->name, L"Deutsch");
    for (; row->id; ++row) {
        EXPECT_EQ(std::wcslen(row->id), 2u);
        EXPECT_EQ(std::wcslen(row->region), 2u);
        EXPECT_TRUE(*row->name && *row->english);
        EXPECT_TRUE(ids.insert(row->id).second) << "an id stands once";
    }
    EXPECT_GE(ids.size(), 20u);
}
