// The built-in font: every character's structure, sound contours, the metrics, and rows that stand as they are.
#include <draw/font.h>

#include <vek/draw.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace
{

using Region = CVekArrayTempl<CVekVertexArray>;
using Glyph = CVekArrayTempl<Region>;
using VEK::font::Mark;
using VEK::font::Row;

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
            {L"%", {2, 2, 1}},
        };
        std::map<wchar_t, Structure> structures;
        for (const auto& [characters, structure] : groups)
            for (wchar_t character : characters)
                structures[character] = structure;
        return structures;
    }();
    return all;
}

struct Extents {
    double minX = 1e9, minY = 1e9, maxX = -1e9, maxY = -1e9;
};

Extents extentsOf(const Glyph& glyph)
{
    Extents box;
    for (const Region& region : glyph)
        for (const CVekVertex& segment : region[0]) {
            box.minX = std::min(box.minX, segment.start[0]);
            box.minY = std::min(box.minY, segment.start[1]);
            box.maxX = std::max(box.maxX, segment.start[0]);
            box.maxY = std::max(box.maxY, segment.start[1]);
        }
    return box;
}

void expectBox(wchar_t character, double minX, double minY, double maxX, double maxY)
{
    const Extents box = extentsOf(get_ascii_from_map(character));
    EXPECT_EQ(box.minX, minX) << static_cast<int>(character);
    EXPECT_EQ(box.minY, minY) << static_cast<int>(character);
    EXPECT_EQ(box.maxX, maxX) << static_cast<int>(character);
    EXPECT_EQ(box.maxY, maxY) << static_cast<int>(character);
}

void expectContour(const CVekVertexArray& contour, const std::vector<CVekPoint3d>& corners)
{
    ASSERT_EQ(contour.len(), static_cast<int>(corners.size()));
    for (int i = 0; i < contour.len(); ++i) {
        EXPECT_TRUE(contour[i].start == corners[i]);
        EXPECT_TRUE(contour[i].end == corners[(i + 1) % corners.size()]);
    }
}

const std::vector<CVekPoint3d> kHyphen = {
    {0.83322, 0.488814, 0}, {0.16678, 0.488814, 0}, {0.16678, 0.511186, 0}, {0.83322, 0.511186, 0}};

/// Twice the signed area of a triangle, positive when it runs counter-clockwise.
double turn(const CVekPoint3d& a, const CVekPoint3d& b, const CVekPoint3d& c)
{
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

double areaOf(const CVekVertexArray& contour)
{
    double twice = 0.0;
    for (const CVekVertex& segment : contour)
        twice += segment.start[0] * segment.end[1] - segment.end[0] * segment.start[1];
    return twice / 2.0;
}

/// Whether two segments share a point. Ends that touch count.
bool meet(const CVekVertex& a, const CVekVertex& b)
{
    for (int k = 0; k < 2; ++k)
        if (std::max(a.start[k], a.end[k]) < std::min(b.start[k], b.end[k]) ||
            std::max(b.start[k], b.end[k]) < std::min(a.start[k], a.end[k]))
            return false;
    return turn(a.start, a.end, b.start) * turn(a.start, a.end, b.end) <= 0.0 &&
           turn(b.start, b.end, a.start) * turn(b.start, b.end, a.end) <= 0.0;
}

bool meet(const CVekVertexArray& a, const CVekVertexArray& b)
{
    for (const CVekVertex& ofA : a)
        for (const CVekVertex& ofB : b)
            if (meet(ofA, ofB))
                return true;
    return false;
}

/// Even-odd test by a ray to the right.
bool inside(const CVekVertexArray& contour, const CVekPoint3d& point)
{
    bool odd = false;
    for (const CVekVertex& segment : contour)
        if ((segment.start[1] > point[1]) != (segment.end[1] > point[1]))
            odd ^= (turn(segment.start, segment.end, point) > 0.0) == (segment.end[1] > segment.start[1]);
    return odd;
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
        EXPECT_GT(std::fabs(turn(segment.start, segment.end, next.end)), 1e-6) << "no corner after segment " << i;
        for (int j = i + 2; j < n - (i == 0 ? 1 : 0); ++j)
            EXPECT_FALSE(meet(segment, contour[j])) << "segments " << i << " and " << j;
    }
}

std::vector<Row> allRows()
{
    std::vector<Row> rows;
    for (std::span<const Row> table :
         {VEK::font::kSigns, VEK::font::kCapitals, VEK::font::kSmallLetters, VEK::font::kFurtherCharacters})
        rows.insert(rows.end(), table.begin(), table.end());
    return rows;
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
    for (wchar_t absent : {L' ', L'`', L'\n', L'\x20AC'})
        EXPECT_EQ(get_ascii_from_map(absent).len(), 0);
}

TEST(Font, TablesAreWrittenInTheOrderOfTheCharacters)
{
    std::wstring codes, expected;
    int segments = 0;
    for (const Row& row : allRows()) {
        if (row.mark == Mark::glyph)
            codes += row.code;
        segments += row.mark == Mark::point;
    }
    for (wchar_t code = 33; code <= 94; ++code)
        expected += code;
    expected += L"[_";
    for (wchar_t code = 97; code <= 126; ++code)
        expected += code;
    expected += L"\xB1\xB2\xB3\xBA\xBC\xBD\xBE\xC4\xE4\xD6\xF6\xDC\xFC\xDF";
    EXPECT_EQ(codes, expected);
    EXPECT_EQ(codes.size(), 108u);
    EXPECT_EQ(segments, 1577);
}

TEST(Font, ValuesHaveSixSignificantDigits)
{
    for (const Row& row : allRows())
        for (double value : {row.x, row.y}) {
            char text[32];
            std::snprintf(text, sizeof text, "%.6g", value);
            EXPECT_EQ(std::strtod(text, nullptr), value);
        }
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
                EXPECT_EQ(areaOf(region[k]) < 0.0, k == 0) << "winding of contour " << k;
                EXPECT_TRUE(k == 0 || inside(region[0], region[k][0].start)) << "hole " << k;
                for (int other = 0; other < k; ++other)
                    EXPECT_FALSE(meet(region[k], region[other])) << "contours " << k << " and " << other;
            }
            for (int other = 0; other < r; ++other) {
                EXPECT_FALSE(meet(region[0], glyph[other][0])) << "regions " << r << " and " << other;
                EXPECT_FALSE(inside(region[0], glyph[other][0][0].start));
                EXPECT_FALSE(inside(glyph[other][0], region[0][0].start));
            }
        }
        ++glyphs;
    }
    EXPECT_EQ(glyphs, 107);
}

TEST(Font, KeepsItsMetrics)
{
    Extents all;
    for (const auto& [character, structure] : expectedStructures()) {
        const Extents box = extentsOf(get_ascii_from_map(character));
        EXPECT_TRUE(box.maxX <= 1.0 || character == L'V' || character == L'W') << static_cast<int>(character);
        all = {std::min(all.minX, box.minX), std::min(all.minY, box.minY), std::max(all.maxX, box.maxX),
               std::max(all.maxY, box.maxY)};
    }
    EXPECT_EQ(all.minX, 0.0384746);
    EXPECT_EQ(all.maxX, 1.17763);
    EXPECT_EQ(all.minY, -0.343729);
    EXPECT_EQ(all.maxY, 1.05319);

    for (wchar_t flat : std::wstring(L"AHMNXZ"))
        expectBox(flat, 0.155932, 0.0, 0.844746, 1.0);
    for (wchar_t rounded : std::wstring(L"CGOS"))
        expectBox(rounded, 0.155932, -0.0101695, 0.844746, 1.01085);
    expectBox(L'V', 0.155932, 0.0, 1.1763, 1.0);
    expectBox(L'W', 0.155932, 0.0, 1.17763, 1.0);
    expectBox(L'\'', 0.1573, 0.661, 0.3431, 1.0054);
    expectBox(L'_', 0.1573, 0.661, 0.3431, 1.0054);
    for (wchar_t small : std::wstring(L"acegmnopqrsuvwxyz"))
        EXPECT_EQ(extentsOf(get_ascii_from_map(small)).maxY, 0.677966) << static_cast<int>(small);
    for (wchar_t deep : std::wstring(L"gjy"))
        EXPECT_EQ(extentsOf(get_ascii_from_map(deep)).minY, -0.343729) << static_cast<int>(deep);
}

TEST(Font, KeepsTheRowsThatTextsRelyOn)
{
    const Glyph hyphen = get_ascii_from_map(L'-');
    expectContour(hyphen[0][0], kHyphen);

    const Glyph o = get_ascii_from_map(L'O');
    expectContour(
        o[0][0],
        {{0.844746, -0.0101695, 0}, {0.155932, -0.0101695, 0}, {0.155932, 1.01085, 0}, {0.844746, 1.01085, 0}});
    expectContour(
        o[0][1],
        {{0.822373, 0.0115254, 0}, {0.822373, 0.989153, 0}, {0.178305, 0.989153, 0}, {0.178305, 0.0115254, 0}});

    const Glyph mark = get_ascii_from_map(L'!');
    expectContour(mark[0][0],
                  {{0.178305, 0.333559, 0}, {0.155932, 0.333559, 0}, {0.155932, 1.0, 0}, {0.178305, 1.0, 0}});
    expectContour(mark[1][0], {{0.178305, 0.0, 0}, {0.155932, 0.0, 0}, {0.155932, 0.16678, 0}, {0.178305, 0.16678, 0}});

    // The bar has replaced the bracket.
    const Glyph bar = get_ascii_from_map(L'[');
    expectContour(bar[0][0],
                  {{0.83322, -0.176949, 0}, {0.16678, -0.176949, 0}, {0.16678, -0.154576, 0}, {0.83322, -0.154576, 0}});
}

TEST(Font, GivesIndependentCopies)
{
    Glyph first = get_ascii_from_map(L'-');
    const Glyph second = get_ascii_from_map(L'-');
    first[0][0][0].start.set(5.0, 5.0, 5.0);
    first.setLogicalLength(0);
    for (const Glyph& untouched : {second, get_ascii_from_map(L'-')})
        expectContour(untouched[0][0], kHyphen);
}

} // namespace
