// The built-in font: every character's structure, sound contours, the metrics, and rows that stand as they are.
#include "shapes.h"

#include <vek/draw.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace
{

using Region = CVekArrayTempl<CVekVertexArray>;
using Glyph = CVekArrayTempl<Region>;

/// Number of contours of each region of a glyph.
using Structure = std::vector<int>;

Structure structureOf(const Glyph& glyph)
{
    Structure structure;
    for (const Region& region : glyph)
        structure.push_back(region.len());
    return structure;
}

const std::map<wchar_t, Structure>& expectedStructures()
{
    static const std::map<wchar_t, Structure> all = [] {
        const std::pair<std::wstring, Structure> groups[] = {
            {L"'()*+,-./12357<>CEFGHIJKLMNSTUVWXYZ[\\]^_cfhklmnrstuvwxyz{|}~\xB2\xB3\xDF", {1}},
            {L"#0469@ADOPQRabdegopq\xBA", {2}},
            {L"$&8B", {3}},
            {L"!\":;=?ij\xB1", {1, 1}},
            {L"\xBD\xDC\xFC", {1, 1, 1}},
            {L"\xBC\xBE", {1, 1, 2}},
            {L"\xC4\xE4\xD6\xF6", {2, 1, 1}},
            {L"%", {2, 2, 1}}};
        std::map<wchar_t, Structure> structures;
        for (const auto& [characters, structure] : groups)
            for (wchar_t character : characters)
                structures[character] = structure;
        return structures;
    }();
    return all;
}

using Box = std::pair<CVekPoint3d, CVekPoint3d>;

void grow(Box& box, const CVekPoint3d& p)
{
    box = {VEK::p_min(box.first, p), VEK::p_max(box.second, p)};
}

/// The box around the outer contours of a glyph.
Box boxOf(const Glyph& glyph)
{
    Box box{glyph[0][0][0].start, glyph[0][0][0].start};
    for (const Region& region : glyph) {
        for (const CVekVertex& segment : region[0])
            grow(box, segment.start);
    }
    return box;
}

bool isInside(const CVekVertexArray& outer, const CVekVertexArray& contour)
{
    return VEK::g_vll_pt_inside(shapes::list({outer}), contour[0].start) >= 1;
}

void expectSimple(const CVekVertexArray& contour)
{
    const int n = contour.len();
    ASSERT_GE(n, 3);
    for (int i = 0; i < n; ++i) {
        const CVekVertex& segment = contour[i];
        const CVekVertex& next = contour[(i + 1) % n];
        EXPECT_TRUE(segment.end == next.start) << "gap after segment " << i;
        EXPECT_EQ(segment.bulge, 0.0);
        EXPECT_EQ(segment.start[2], 0.0);
        EXPECT_GT(segment.start.distanceTo(segment.end), 0.005);
        EXPECT_GT(((segment.end - segment.start) * (next.end - next.start)).abs(), 1e-6) << "no corner behind " << i;
        for (int j = i + 2; j < n - (i == 0 ? 1 : 0); ++j)
            EXPECT_FALSE(CVekVertexArray(segment).intersectWith(CVekVertexArray(contour[j]), 0)) << i << ' ' << j;
    }
}

TEST(Font, HoldsExactlyItsCharacters)
{
    EXPECT_EQ(expectedStructures().size(), 107u);
    int held = 0;
    for (int code = 0; code <= 0xFFFF; ++code) {
        const Structure structure = structureOf(get_ascii_from_map(static_cast<wchar_t>(code)));
        const auto expected = expectedStructures().find(static_cast<wchar_t>(code));
        EXPECT_EQ(structure, expected == expectedStructures().end() ? Structure() : expected->second) << code;
        held += !structure.empty();
    }
    EXPECT_EQ(held, 107);
}

TEST(Font, ContoursAreSoundAndWoundAsTold)
{
    int glyphs = 0;
    for (const auto& [character, structure] : expectedStructures()) {
        SCOPED_TRACE(static_cast<int>(character));
        const Glyph glyph = get_ascii_from_map(character);
        for (int r = 0; r < glyph.len(); ++r) {
            const Region& region = glyph[r];
            for (int k = 0; k < region.len(); ++k) {
                expectSimple(region[k]);
                EXPECT_EQ(shapes::areaOf(region[k]) < 0.0, k == 0) << "winding of contour " << k;
                EXPECT_TRUE(k == 0 || isInside(region[0], region[k])) << "hole " << k;
                for (int other = 0; other < k; ++other)
                    EXPECT_FALSE(region[k].intersectWith(region[other], 0)) << "contours " << k << " and " << other;
            }
            for (int other = 0; other < r; ++other) {
                EXPECT_FALSE(region[0].intersectWith(glyph[other][0], 0)) << "regions " << r << " and " << other;
                EXPECT_FALSE(isInside(region[0], glyph[other][0]));
                EXPECT_FALSE(isInside(glyph[other][0], region[0]));
            }
        }
        ++glyphs;
    }
    EXPECT_EQ(glyphs, 107);
}

TEST(Font, KeepsItsMetrics)
{
    Box all = boxOf(get_ascii_from_map(L'-'));
    for (const auto& [character, structure] : expectedStructures()) {
        const Box box = boxOf(get_ascii_from_map(character));
        EXPECT_TRUE(box.second[0] <= 1.0 || character == L'V' || character == L'W') << static_cast<int>(character);
        grow(all, box.first);
        grow(all, box.second);
    }
    EXPECT_EQ(all, Box({0.0384746, -0.343729, 0}, {1.17763, 1.05319, 0}));
    const std::pair<std::wstring, Box> boxes[] = {
        {L"AHMNXZ", {{0.155932, 0.0, 0}, {0.844746, 1.0, 0}}},
        {L"CGOS", {{0.155932, -0.0101695, 0}, {0.844746, 1.01085, 0}}},
        {L"V", {{0.155932, 0.0, 0}, {1.1763, 1.0, 0}}},
        {L"W", {{0.155932, 0.0, 0}, {1.17763, 1.0, 0}}},
        {L"'_", {{0.1573, 0.661, 0}, {0.3431, 1.0054, 0}}},
        {L"[", {{0.16678, -0.176949, 0}, {0.83322, -0.154576, 0}}}, // the bar that has replaced the bracket
    };
    for (const auto& [characters, box] : boxes) {
        for (const wchar_t character : characters)
            EXPECT_EQ(boxOf(get_ascii_from_map(character)), box) << static_cast<int>(character);
    }
    for (const wchar_t small : std::wstring(L"acegmnopqrsuvwxyz"))
        EXPECT_EQ(boxOf(get_ascii_from_map(small)).second[1], 0.677966) << static_cast<int>(small);
}

TEST(Font, GivesIndependentCopies)
{
    Glyph first = get_ascii_from_map(L'-');
    const Glyph second = first;
    first[0][0][0].start.set(5.0, 5.0, 5.0);
    for (const Glyph& untouched : {second, get_ascii_from_map(L'-')})
        EXPECT_EQ(
            untouched[0][0],
            shapes::polygon({{0.83322, 0.488814}, {0.16678, 0.488814}, {0.16678, 0.511186}, {0.83322, 0.511186}}));
}

TEST(Text, IsLaidOutAsTold)
{
    static constexpr struct {
        const wchar_t* code;
        double x, y; // of the width and the height
    } kCodes[] = {{L"TL", 0, 1},   {L"TC", 0.5, 1}, {L"TR", 1, 1}, {L"CL", 0, 0.5}, {L"CC", 0.5, 0.5}, {L"CR", 1, 0.5},
                  {L"BC", 0.5, 0}, {L"BR", 1, 0},   {L"BL", 0, 0}, {L"", 0, 0},     {L"tl", 0, 0},     {L"CCC", 0, 0}};
    shapes::Random random(9);
    const std::wstring characters = L"AOiW% \n[_gB8\xBE\xC4\x20AC`!";
    for (int round = 0; round < 400; ++round) {
        std::wstring text;
        for (int i = random.whole(6); i > 0; --i)
            text += characters[static_cast<std::size_t>(random.whole(static_cast<int>(characters.size())))];
        const auto& code = kCodes[random.whole(12)];
        const CVekPoint3d at(random.uniform(-9, 9), random.pick({0, 5, -5}), random.pick({0, 2}));
        Glyph expected;
        double x = 0.0, height = 0.0;
        for (const wchar_t character : text) {
            Glyph glyph = get_ascii_from_map(character);
            if (glyph.len() == 0)
                continue;
            for (Region& region : glyph) {
                for (CVekVertexArray& contour : region)
                    (shapes::areaOf(contour) < 0.0 ? contour.revert() : contour)
                        .move(at.asVector() + CVekVector3d(x, 0, 0));
                expected.append(region);
            }
            const Box box = boxOf(glyph);
            x += box.second[0] - box.first[0] + 0.5;
            height = std::max(height, box.second[1]);
        }
        const CVekVector3d shift(code.x * (0.3 - x), -code.y * height, 0);
        const int count = code.x == 0.0 && code.y == 0.0 ? 0 : expected.len();
        for (Region& region : expected) {
            for (int k = 0; k < count; ++k)
                region[k].move(shift);
        }
        const Glyph actual = VEK::textRegions(text.c_str(), code.code, at);
        ASSERT_EQ(structureOf(actual), structureOf(expected)) << round;
        for (int r = 0; r < actual.len(); ++r) {
            for (int k = 0; k < actual[r].len(); ++k) {
                ASSERT_EQ(actual[r][k].len(), expected[r][k].len());
                for (int i = 0; i < actual[r][k].len(); ++i)
                    EXPECT_LE(actual[r][k][i].start.distanceTo(expected[r][k][i].start), 1e-9) << round;
            }
        }
    }
    EXPECT_EQ(VEK::textRegions(nullptr, nullptr, {}).len(), 0);
}

} // namespace
