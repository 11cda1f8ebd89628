#include <vek/values/units.h>

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace
{

CVekString written(double value, int format, int precision, bool suppressZeros)
{
    CVekString text;
    EXPECT_TRUE(vekRtoS(text, value, static_cast<Vek::lFormat>(format), precision, suppressZeros));
    return text;
}

struct WrittenCase {
    double value;
    int format;
    int precision;
    const wchar_t* plain;
    const wchar_t* suppressed;
};

void expectWritten(std::initializer_list<WrittenCase> cases)
{
    for (const WrittenCase& c : cases) {
        EXPECT_STREQ(written(c.value, c.format, c.precision, false), c.plain);
        EXPECT_STREQ(written(c.value, c.format, c.precision, true), c.suppressed);
    }
}

} // namespace

TEST(LengthText, HasFiveForms)
{
    expectWritten({{15.5, 1, 2, L"1.55E+01", L"1.55E+01"},
                   {0.0, 1, 2, L"0.00E+00", L"0E+00"},
                   {9.996, 1, 2, L"1.00E+01", L"1E+01"},
                   {1234567.0, 1, 0, L"1E+06", L"1E+06"},
                   {0.000125, 1, 1, L"1.3E-04", L"1.3E-04"},
                   {DBL_MIN, 1, 3, L"2.225E-308", L"2.225E-308"}});
    expectWritten({{100.0, 2, 3, L"100.000", L"100"},
                   {0.0, 2, 0, L"0", L"0"},
                   {-0.004, 2, 2, L"0.00", L"0"},
                   {-0.006, 2, 2, L"-0.01", L"-0.01"},
                   {2.675, 2, 2, L"2.68", L"2.68"},
                   {-1.005, 2, 2, L"-1.01", L"-1.01"},
                   {1e22, 2, 1, L"10000000000000000000000.0", L"10000000000000000000000"},
                   {3.7, 2, -5, L"4", L"4"},
                   {1.0 / 3.0, 2, 99, L"0.33333333", L"0.33333333"}});
    EXPECT_STREQ(written(1e300, 2, 0, true), (L"1" + std::wstring(300, L'0')).c_str());
    expectWritten({{15.5, 3, 2, L"1'-3.50\"", L"1'-3.5\""},
                   {11.9999, 3, 3, L"1'-0.000\"", L"1'"},
                   {3.5, 3, 1, L"0'-3.5\"", L"3.5\""},
                   {0.0, 3, 2, L"0'-0.00\"", L"0\""},
                   {24.25, 3, 2, L"2'-0.25\"", L"2'-0.25\""},
                   {1e18, 3, 0, L"83333333333333333'-4\"", L"83333333333333333'-4\""}});
    expectWritten({{15.5, 4, 4, L"1'-3 1/2\"", L"1'-3 1/2\""},
                   {-15.5, 4, 1, L"-1'-3 1/2\"", L"-1'-3 1/2\""},
                   {11.9999, 4, 8, L"1'-0\"", L"1'"},
                   {0.5, 4, 3, L"0'-0 1/2\"", L"1/2\""},
                   {6.0, 4, 3, L"0'-6\"", L"6\""},
                   {0.0, 4, 4, L"0'-0\"", L"0\""},
                   {-0.01, 4, 4, L"0'-0\"", L"0\""},
                   {127.0 / 256.0, 4, 8, L"0'-0 127/256\"", L"127/256\""},
                   {1e18, 4, 8, L"83333333333333333'-4\"", L"83333333333333333'-4\""}});
    expectWritten({{15.5, 5, 4, L"15 1/2", L"15 1/2"},
                   {-0.5, 5, 1, L"-1/2", L"-1/2"},
                   {15.97, 5, 4, L"16", L"16"},
                   {15.96, 5, 4, L"15 15/16", L"15 15/16"},
                   {0.0, 5, 3, L"0", L"0"},
                   {100.0, 5, 8, L"100", L"100"}});
}

TEST(LengthText, RefusesWhatItCannotWrite)
{
    wchar_t buffer[vekRtoSSize] = L"before";
    CVekString text = L"before";
    EXPECT_FALSE(vekRtoS(static_cast<wchar_t*>(nullptr), 1.0, Vek::formatDecimal, 2, false));
    for (const double value : {VEK::nan(), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_FALSE(vekRtoS(buffer, value, Vek::formatDecimal, 2, false));
        EXPECT_FALSE(vekRtoS(text, value, Vek::formatDecimal, 2, false));
    }
    for (const int format : {-1, 0, 6})
        EXPECT_FALSE(vekRtoS(buffer, 1.0, static_cast<Vek::lFormat>(format), 2, false));
    EXPECT_STREQ(buffer, L"before");
    EXPECT_STREQ(text, L"before");
}

TEST(LengthText, FitsItsRoomForEveryValue)
{
    wchar_t buffer[vekRtoSSize];
    for (int format = 1; format <= 5; ++format) {
        for (const double value : {-DBL_MAX, DBL_MAX, -DBL_TRUE_MIN, std::nextafter(-DBL_MAX, 0.0)}) {
            ASSERT_TRUE(vekRtoS(buffer, value, static_cast<Vek::lFormat>(format), 8, false));
            EXPECT_LT(std::wcslen(buffer), static_cast<std::size_t>(vekRtoSSize));
        }
    }
}

/// The text of a random value reads back as the value to within half a step of its precision, and writes as itself.
TEST(LengthText, ReadsBack)
{
    std::mt19937_64 random(20);
    std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
    int cases = 0;
    for (int format = 1; format <= 5; ++format) {
        for (int precision = 0; precision <= 8; ++precision) {
            for (int i = 0; i < 400; ++i) {
                const double value = mantissa(random) * std::pow(10.0, static_cast<int>(random() % 8) - 1);
                const bool suppress = random() % 2 == 0;
                const CVekString text = written(value, format, precision, suppress);
                const double back = vekAtoF(text);
                const double scale = format == 1 ? std::pow(10.0, std::floor(std::log10(std::fabs(value)))) : 1.0;
                const double step = format < 4 ? scale * std::pow(10.0, -precision) : std::ldexp(1.0, -precision);
                ASSERT_LE(std::fabs(back - value), step * 0.5 + std::fabs(value) * 1e-15) << format << ' ' << value;
                ASSERT_STREQ(written(back, format, precision, suppress), text);
                ++cases;
            }
        }
    }
    EXPECT_EQ(cases, 5 * 9 * 400);
}

TEST(LengthReading, TakesWhatUsersType)
{
    const std::pair<double, std::vector<const wchar_t*>> cases[] = {
        {15.5,
         {L"15.5", L"15,5", L"  + 15,5 mm", L"1.55E+01", L"1'-3.50\"", L"1'-3 1/2\"", L"1' 3-1/2\"", L"15 1/2",
          L"15-1/2"}},
        {-0.5, {L"-.5"}},
        {-0.25, {L"\u2212 ,25"}},
        {15.0, {L"15.", L"15e", L"1'3", L"15 1"}},
        {0.015, {L"1,5e-2"}},
        {1234.5, {L"1.234,5", L"1,234.5"}},
        {1.234, {L"1.234"}},
        {1234567.0, {L"1,234,567", L"1 234 567"}},
        {12345.5, {L"12\u00A0345,5"}},
        {1234.0, {L"1234 567"}},
        {1.2, {L"1.2.3"}},
        {12.0, {L"1'"}},
        {18.0, {L"1,5'", L"1\u2032 6\u2033"}},
        {-18.0, {L"-1'-6\""}},
        {6.0, {L"6''"}},
        {3.5, {L"3 1/2\""}},
        {7.5, {L"15 / 2"}},
        {-0.125, {L"-1/8"}},
        {15.125, {L"15 125/1000"}},
        {1.0, {L"1/0"}},
        {0.0, {L"", L"abc", L"'", L"--5", L".", L"inf", L"nan", L"0x10", L"1e-999"}},
        {45.5, {L"45.5\u00B0"}},
        {DBL_MAX, {L"1e999", L"1e308'", L"9e307/1e-9"}},
        {-DBL_MAX, {L"-1e999"}},
    };
    for (const auto& [value, texts] : cases) {
        for (const wchar_t* text : texts)
            EXPECT_DOUBLE_EQ(vekAtoF(text), value) << ::testing::PrintToString(text);
    }
    EXPECT_EQ(vekAtoF(nullptr), 0.0);
    EXPECT_EQ(vekAtoF(std::wstring(100000, L'7').c_str()), DBL_MAX);
    EXPECT_EQ(vekAtoF((L"0." + std::wstring(100000, L'0') + L"7").c_str()), 0.0);
}

TEST(PlainConversion, ReadsTheLeadingNumber)
{
    const std::pair<const wchar_t*, int> whole[] = {{L" -42abc", -42},
                                                    {L"+7.9", 7},
                                                    {L"x", 0},
                                                    {nullptr, 0},
                                                    {L"2147483647", INT_MAX},
                                                    {L"99999999999999999999999", INT_MAX},
                                                    {L"-99999999999999999999999", INT_MIN}};
    for (const auto& [text, value] : whole)
        EXPECT_EQ(VEK::atoi(text), value);
    const std::pair<const wchar_t*, double> real[] = {
        {L" -1.5e2x", -150.0}, {L"1,5", 1.0}, {L".5", 0.5}, {L"1'6", 1.0}, {nullptr, 0.0}};
    for (const auto& [text, value] : real)
        EXPECT_EQ(VEK::atof(text), value);
    EXPECT_TRUE(std::isnan(VEK::nan()));
}

TEST(PlainConversion, IgnoresTheLocale)
{
    for (const char* name : {"de_DE.UTF-8", "de_DE", "German_Germany.1252"}) {
        if (std::setlocale(LC_ALL, name))
            break;
    }
    EXPECT_EQ(VEK::atof(L"1.5"), 1.5);
    EXPECT_EQ(vekAtoF(L"1.5"), 1.5);
    EXPECT_STREQ(written(1.5, 2, 2, false), L"1.50");
    std::setlocale(LC_ALL, "C");
}
