// Values in fields: how they are written, read and judged.
#include <vek/controls.h>

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

using namespace VEK;

namespace
{

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kPi = 3.141592653589793;

class Words : public ValueWords
{
public:
    std::map<double, CVekString> words;

    const wchar_t* wordOf(double value) const override
    {
        const auto found = words.find(value);
        return found == words.end() ? nullptr : static_cast<const wchar_t*>(found->second);
    }
    bool valueOf(const wchar_t* word, double& value) const override
    {
        for (const auto& [own, text] : words) {
            if (text.compareNoCase(word) == 0) {
                value = own;
                return true;
            }
        }
        return false;
    }
};

ValueRules rulesOf(ValueType type, unsigned flags = 0, double min = -kMax, double max = kMax)
{
    return {editStyle, type, flags, 3, Vek::formatDecimal, 1.0, min, max};
}

std::wstring written(double value, const ValueRules& rules)
{
    CVekString text(L"before");
    EXPECT_EQ(valueFormat(text, value, rules), rules.type != typeNone);
    return static_cast<const wchar_t*>(text);
}

} // namespace

TEST(Value, IsWrittenAsEachControlDoes)
{
    acad_unit_set(Vek::unitInch);
    const struct {
        ValueType type;
        double value;
        Vek::lFormat format;
        int precision;
        unsigned flags;
        const wchar_t* edit;
        const wchar_t* combo;
    } cases[] = {
        {typeNone, 5.0, Vek::formatDecimal, 2, 0, L"before", L"before"},
        {typeInt, -5.9, Vek::formatFractional, 2, 0, L"-5", L"-5"},
        {typeInt, -0.9, Vek::formatDecimal, 2, 32, L"0", L"0"},
        {typeInt, 1e300, Vek::formatDecimal, 2, 0, L"2147483647", L"2147483647"},
        {typeInt, -kInfinite, Vek::formatDecimal, 2, 0, L"-2147483648", L"-2147483648"},
        {typeInt, kNan, Vek::formatDecimal, 2, 0, L"before", L"before"},
        {typeLength, 15.5, Vek::formatDecimal, 2, 0, L"15.50", L"15.50"},
        {typeLength, 15.5, Vek::formatDecimal, 2, valueSuppressZeros, L"15.5", L"15.5"},
        {typeLength, 1.0 / 3.0, Vek::formatDecimal, 2, valueDrawingUnit, L"0.3333", L"0.3333"},
        {typeLength, 0.1, Vek::formatFractional, 3, 0, L"0.10000", L"1/8"}, // five decimals of an inch
        {typeLength, -0.1, Vek::formatFractional, 3, valueSuppressZeros, L"-0.1", L"-1/8"},
        {typeLength, 0.1, Vek::formatArchitectural, 3, 0, L"0'-0.10000\"", L"0'-0 1/8\""},
        {typeLength, 0.125, Vek::formatFractional, 3, 0, L"1/8", L"1/8"},
        {typeLength, 0.0, Vek::formatFractional, 3, 0, L"0", L"0"},
        {typeLength, 0.004, Vek::formatFractional, 99, 0, L"1/256", L"1/256"},
        {typeLength, 0.001, Vek::formatDecimal, 2, 0, L"0.00", L"0.00"},
        {typeLength, kInfinite, Vek::formatDecimal, 2, 0, L"before", L"before"},
        {typeAngle, kPi / 2.0, Vek::formatFractional, 2, 32, L"90°", L"90"},
        {typeAngle, -kPi / 7.0, Vek::formatDecimal, 3, 0, L"-25.714°", L"-25.714"},
        {typeAngle, kNan, Vek::formatDecimal, 3, 0, L"before", L"before"},
    };
    for (const auto& c : cases) {
        ValueRules rules{editStyle, c.type, c.flags, c.precision, c.format, 7.0, 0.0, 0.0};
        EXPECT_EQ(written(c.value, rules), c.edit) << c.value;
        rules.style = comboStyle;
        EXPECT_EQ(written(c.value, rules), c.combo) << c.value;
    }
    acad_unit_set(Vek::unitMillimetre);
}

TEST(Value, IsReadBackAsItWasWritten)
{
    std::mt19937 random(7);
    const auto pick = [&](unsigned below) { return static_cast<int>(random() % below); };
    int exact = 0, fallen = 0;
    for (int i = 0; i < 40000; ++i) {
        ValueRules rules = rulesOf(static_cast<ValueType>(1 + pick(3)), pick(2) * 32u);
        rules.style = pick(2) ? editStyle : comboStyle;
        rules.precision = pick(9);
        rules.format = static_cast<Vek::lFormat>(1 + pick(5));
        rules.factor = rules.type == typeLength ? acadUnitCv(1.0, 1 + pick(7), 1 + pick(7)) : 1.0;
        const double size = std::pow(10.0, pick(9) - 4);
        const double shown = pick(8) == 0 ? 0.0 : std::uniform_real_distribution<double>(-size, size)(random);
        const bool isAngle = rules.type == typeAngle;
        const double value = rules.type == typeInt ? std::trunc(shown)
                             : isAngle             ? shown * kPi / 180.0
                                                   : shown / rules.factor;

        // The last place that is shown.
        double step = rules.type == typeInt ? 0.0 : std::pow(0.1, rules.precision);
        bool fallsBack = false; // to decimals
        if (rules.type == typeLength && rules.format == Vek::formatScientific) {
            step *= std::pow(10.0, std::ceil(std::log10(std::fabs(shown) + 1e-30)));
        } else if (rules.type == typeLength && rules.format >= Vek::formatArchitectural) {
            const double fraction = std::pow(0.5, rules.precision);
            fallsBack = rules.style.fallsBack && shown != 0.0 && std::fabs(shown) < fraction;
            step = fallsBack ? step : fraction;
        }
        const CVekString text = valueText(value, rules);
        const double read = valueParse(text, rules);
        const double back = isAngle ? read * 180.0 / kPi : read * rules.factor;
        EXPECT_LE(std::fabs(back - (rules.type == typeInt ? value : shown)), step / 2.0 + 1e-12 * size) << shown;
        if (!fallsBack) { // the decimals may make a fraction
            EXPECT_STREQ(valueText(read, rules), text) << shown;
        }
        fallen += fallsBack;
        exact += read == value;
    }
    EXPECT_GT(exact, 10000);
    EXPECT_GT(fallen, 500);
}
