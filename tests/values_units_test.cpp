#include <vek/values/country.h>
#include <vek/values/units.h>

#include <climits>
#include <gtest/gtest.h>
#include <set>

using namespace VEK;

namespace
{

constexpr double kRelative = 1e-15; ///< of a conversion by one factor: a few roundings of a double

/// Puts the drawing's unit back.
class UnitScope
{
public:
    explicit UnitScope(Vek::lUnit unit) : m_before(acad_unit_get()) { acad_unit_set(unit); }
    UnitScope(const UnitScope&) = delete;
    UnitScope& operator=(const UnitScope&) = delete;
    ~UnitScope() { acad_unit_set(m_before); }

private:
    Vek::lUnit m_before;
};

} // namespace

TEST(Units, HaveTheirPublishedSizes)
{
    const double kAstronomical = 149597870700.0, kParsec = kAstronomical * 648000.0 / 3.14159265358979323846;
    const double metres[] = {0,      0.0254, 0.3048, 1609.344, 1e-3, 1e-2, 1,   1e3, 2.54e-8,       2.54e-5,
                             0.9144, 1e-10,  1e-9,   1e-6,     0.1,  10,   100, 1e9, kAstronomical, 9460730472580800.0,
                             kParsec};
    ASSERT_EQ(std::size(metres), 21u);
    for (int unit = 1; unit <= 20; ++unit) {
        EXPECT_NEAR(acadUnitCv(1.0, unit, Vek::unitMetre), metres[unit], metres[unit] * kRelative) << unit;
        for (int other = 1; other <= 20; ++other) {
            const double expected = metres[unit] / metres[other];
            EXPECT_NEAR(acadUnitCv(1.0, unit, other), expected, expected * kRelative) << unit << ' ' << other;
            double value = 3.0;
            acadUnitCv(value, unit, other);
            acadUnitCv(value, other, unit);
            EXPECT_NEAR(value, 3.0, 3.0 * kRelative);
        }
    }
}

TEST(Units, ConvertExactlyWhereTheRatioIsWhole)
{
    EXPECT_EQ(acadUnitCv(1.0, Vek::unitInch, Vek::unitMillimetre), 25.4);
    EXPECT_EQ(acadUnitCv(25.4, Vek::unitMillimetre, Vek::unitInch), 1.0);
    EXPECT_EQ(acadUnitCv(1.0, Vek::unitMile, Vek::unitYard), 1760.0);
    EXPECT_EQ(acadUnitCv(1.0, Vek::unitInch, Vek::unitMil), 1000.0);
    EXPECT_EQ(acadUnitCv(0.1, Vek::unitMetre, Vek::unitMillimetre), 100.0);
    EXPECT_EQ(acadUnitCv(1e300, Vek::unitLightYear, Vek::unitLightYear), 1e300);
    EXPECT_NEAR(acadUnitCv(1e300, Vek::unitInch, Vek::unitFoot) / 1e300, 1.0 / 12.0, kRelative);
    EXPECT_NEAR(acadUnitCv(1e300, Vek::unitLightYear, Vek::unitParsec) / 1e300, 0.3066013937855506, kRelative);
}

TEST(Units, ConvertInPlaceAndNotWithoutASize)
{
    double value = 2.0, result = 0.0;
    EXPECT_TRUE(acadUnitCv(value, Vek::unitInch, Vek::unitMillimetre) == 50.8 && value == 50.8);
    const double constant = 2.0;
    EXPECT_EQ(acadUnitCv(constant, Vek::unitInch, Vek::unitMillimetre), 50.8);
    EXPECT_TRUE(acadUnitCv(2.0, Vek::unitInch, Vek::unitMillimetre, result));
    EXPECT_EQ(result, 50.8);
    for (const int none : {0, 21, -2}) {
        EXPECT_FALSE(acadUnitCv(7.0, none, Vek::unitInch, result));
        EXPECT_EQ(result, 7.0);
        EXPECT_EQ(acadUnitCv(7.0, Vek::unitInch, none), 7.0);
    }
}

TEST(Units, TakeMinusOneForTheDrawingsUnit)
{
    EXPECT_EQ(acad_unit_get(), Vek::unitMillimetre);
    EXPECT_EQ(acadUnitCv(0.21, 4, -1), 0.21);
    const UnitScope scope(Vek::unitInch);
    EXPECT_TRUE(acadUnitCv(50.8, 4, -1) == 2.0 && acadUnitCv(2.0, -1, 4) == 50.8);
    acad_unit_set(static_cast<Vek::lUnit>(21));
    acad_unit_set(Vek::unitCurrent);
    EXPECT_EQ(acad_unit_get(), Vek::unitInch) << "what is no unit changes nothing";
    acad_unit_set(Vek::unitNone);
    EXPECT_EQ(acadUnitCv(7.0, 4, -1), 7.0);
}

TEST(AutoPrecision, KeepsTheFinenessOfMillimetres)
{
    // For 0.01 mm 0.001 in, which are 0.0254 mm, are too coarse; for 1 mm 1/32 in, 0.8 mm, are not, and 1/16 in are.
    const struct {
        int precision;
        Vek::lUnit unit;
        Vek::lFormat format;
        int expected;
    } cases[] = {{2, Vek::unitMillimetre, Vek::formatDecimal, 2},   {3, Vek::unitMillimetre, Vek::formatFractional, 3},
                 {12, Vek::unitMillimetre, Vek::formatDecimal, 12}, {2, Vek::unitCurrent, Vek::formatDecimal, 2},
                 {2, Vek::unitCentimetre, Vek::formatDecimal, 3},   {2, Vek::unitMetre, Vek::formatDecimal, 5},
                 {2, Vek::unitKilometre, Vek::formatScientific, 8}, {4, Vek::unitKilometre, Vek::formatDecimal, 8},
                 {2, Vek::unitInch, Vek::formatDecimal, 4},         {2, Vek::unitInch, Vek::formatEngineering, 4},
                 {0, Vek::unitInch, Vek::formatFractional, 5},      {1, Vek::unitFoot, Vek::formatArchitectural, 8},
                 {2, Vek::unitMicron, Vek::formatDecimal, 0},       {5, Vek::unitMicron, Vek::formatDecimal, 2},
                 {2, Vek::unitNone, Vek::formatDecimal, 2},         {0, Vek::unitParsec, Vek::formatDecimal, 8},
                 {INT_MAX, Vek::unitParsec, Vek::formatDecimal, 8}};
    for (const auto& c : cases)
        EXPECT_EQ(autoPrec(c.precision, c.unit, c.format), c.expected) << c.precision << ' ' << c.unit;
}

TEST(UnitNames, AreThereInEveryLanguage)
{
    int languages = 0;
    for (const vek_country_st* row = dlCountries(); row->id; ++row, ++languages) {
        const CVekArrayTempl<CVekString>& names = acad_units(row->id);
        ASSERT_EQ(names.len(), 21);
        std::set<CVekString> different;
        for (const CVekString& name : names) {
            EXPECT_FALSE(name.isNull());
            different.insert(name);
        }
        EXPECT_EQ(different.size(), 21u);
        if (languages > 0) {
            EXPECT_FALSE(names == acad_units(L"de")) << "not a fallback";
        }
    }
    EXPECT_GE(languages, 20);
    EXPECT_STREQ(acad_units(L"EN")[Vek::unitInch], L"Inch");
    EXPECT_STREQ(acad_units(L"fr")[Vek::unitLightYear], L"Année-lumière");
    EXPECT_EQ(&acad_units(L"xx"), &acad_units(nullptr));
    EXPECT_STREQ(acad_units(nullptr)[Vek::unitInch], L"Zoll");
}
