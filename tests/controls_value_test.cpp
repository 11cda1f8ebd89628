// Values in fields: how they are written, read and judged.
#include <vek/controls.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace VEK;

namespace
{

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr double kMax = std::numeric_limits<double>::max();
constexpr double kPi = 3.141592653589793;

struct Words : ValueWords { // for zero
    const wchar_t* wordOf(double value) const override { return value == 0.0 ? L"Auto" : nullptr; }
    bool valueOf(const wchar_t* word, double& value) const override
    {
        return CVekString(L"Auto").compareNoCase(word) == 0 && (value = 0.0, true);
    }
};

ValueRules rulesOf(ValueType type, unsigned flags, double factor, double min = -kMax, double max = kMax)
{
    return {editStyle, type, flags, 3, Vek::formatDecimal, factor, min, max};
}

} // namespace

TEST(Value, IsWrittenAsEachControlDoes)
{
    acad_unit_set(Vek::unitInch);
    const auto expect = [](ValueType type, double value, int format, int precision, unsigned flags, const wchar_t* edit,
                           const wchar_t* combo) {
        for (const bool isCombo : {false, true}) {
            CVekString text(L"before");
            const ValueRules rules{isCombo ? comboStyle : editStyle, type, flags, precision, Vek::lFormat(format), 7.0};
            EXPECT_EQ(valueFormat(text, value, rules), type != typeNone);
            EXPECT_STREQ(text, isCombo ? combo : edit) << value << ' ' << format;
        }
    };
    expect(typeNone, 5.0, 2, 2, 0, L"before", L"before");
    expect(typeInt, -5.9, 5, 2, 0, L"-5", L"-5");
    expect(typeInt, 1e300, 2, 2, 0, L"2147483647", L"2147483647");
    expect(typeInt, kNan, 2, 2, 0, L"before", L"before");
    expect(typeLength, 15.5, 2, 2, 0, L"15.50", L"15.50");
    expect(typeLength, 1.0 / 3.0, 2, 2, valueDrawingUnit, L"0.3333", L"0.3333");
    expect(typeLength, 0.1, 5, 3, 0, L"0.10000", L"1/8"); // five decimals of an inch
    expect(typeLength, -0.1, 5, 3, valueSuppressZeros, L"-0.1", L"-1/8");
    expect(typeLength, 0.1, 4, 3, 0, L"0'-0.10000\"", L"0'-0 1/8\"");
    expect(typeLength, 0.125, 5, 3, 0, L"1/8", L"1/8");
    expect(typeLength, 0.0, 5, 3, 0, L"0", L"0");
    expect(typeLength, 0.004, 5, 99, 0, L"1/256", L"1/256");
    expect(typeLength, kInfinite, 2, 2, 0, L"before", L"before");
    expect(typeAngle, -kPi / 7.0, 5, 3, 0, L"-25.714°", L"-25.714");
    expect(typeAngle, kNan, 2, 3, 0, L"before", L"before");
    acad_unit_set(Vek::unitMillimetre);
}

TEST(Value, IsReadBackAsItWasWritten)
{
    std::mt19937 random(7);
    const auto pick = [&](unsigned below) { return static_cast<int>(random() % below); };
    int exact = 0, fallen = 0;
    for (int i = 0; i < 40000; ++i) {
        const auto type = static_cast<ValueType>(1 + pick(3));
        ValueRules rules = rulesOf(type, pick(2) * 32u, acadUnitCv(1.0, 1 + pick(7), 1 + pick(7)));
        rules.style = pick(2) ? editStyle : comboStyle;
        rules.precision = pick(9);
        rules.format = static_cast<Vek::lFormat>(1 + pick(5));
        const double size = std::pow(10.0, pick(9) - 4);
        double shown = pick(8) == 0 ? 0.0 : std::uniform_real_distribution<double>(-size, size)(random);
        shown = type == typeInt ? std::trunc(shown) : shown;
        const double unit = type == typeAngle ? kPi / 180.0 : type == typeInt ? 1.0 : 1.0 / rules.factor;

        double step = std::pow(0.1, rules.precision); // the last place that is shown
        bool fallsBack = false;                       // to decimals
        if (type == typeLength && rules.format == Vek::formatScientific) {
            step *= std::pow(10.0, std::ceil(std::log10(std::fabs(shown) + 1e-30)));
        } else if (type == typeLength && rules.format >= Vek::formatArchitectural) {
            const double fraction = std::pow(0.5, rules.precision);
            fallsBack = rules.style.fallsBack && shown != 0.0 && std::fabs(shown) < fraction;
            step = fallsBack ? step : fraction;
        }
        const CVekString text = valueText(shown * unit, rules);
        const double read = valueParse(text, rules);
        EXPECT_LE(std::fabs(read / unit - shown), (type == typeInt ? 0.0 : step / 2.0) + 1e-12 * size) << shown;
        EXPECT_TRUE(fallsBack || valueText(read, rules) == text) << shown; // the decimals may make a fraction
        fallen += fallsBack;
        exact += read == shown * unit;
    }
    EXPECT_TRUE(exact > 10000 && fallen > 500);
}

TEST(ValueEdit, IsJudgedWhenTheFocusLeaves)
{
    constexpr auto keep = EditCheck::keep, word = EditCheck::word, set = EditCheck::set;
    const auto expect = [](ValueType type, unsigned flags, double stored, const wchar_t* text, EditCheck::Action action,
                           double value, const wchar_t* shown, bool isModified, const wchar_t* message) {
        SCOPED_TRACE(testing::Message() << type << ' ' << flags << ' ' << testing::PrintToString(text));
        const ValueRules rules = rulesOf(type, flags | valueSuppressZeros | valueTextCounts, 25.4, 2.5, 20.0);
        const EditCheck check = editCheck({rules, stored, Words()}, text);
        EXPECT_EQ(check.action, action);
        EXPECT_TRUE(check.value == value || (std::isnan(check.value) && std::isnan(value))) << check.value;
        EXPECT_STREQ(check.text, shown);
        EXPECT_EQ(check.isModified, isModified);
        EXPECT_STREQ(check.isRefused ? check.message() : CVekString(), message);
        EXPECT_EQ(check.storesValue, action == word || (action == set && check.text != L"Auto"));
    };
    constexpr const wchar_t *kEmpty = L"Eintragung notwendig", *kNegative = L"Wert darf nicht negativ sein";
    expect(typeLength, 0, 3.0, L" \x2003\t", keep, kNan, L"", true, L"");
    expect(typeLength, 1, 3.0, L"\xA0 ", set, 3.0, L"76.2", false, kEmpty);
    expect(typeLength, 1, kNan, L"", set, kNan, L"", false, kEmpty);
    expect(typeInt, 15, kNan, L"", set, kNan, L"", false, kEmpty);
    expect(typeLength, 5, -3.0, L"", set, -3.0, L"-76.2", false, kNegative); // what is stored is tested too
    expect(typeLength, 9, 2.0, L"", set, 2.5, L"63.5", true, L"Wert darf nicht kleiner sein als 2.5");
    expect(typeLength, 0, 1.0, L"  25,4 ", set, 1.0, L"25.4", false, L"");
    expect(typeLength, 4, 1.0, L"-1", set, 1.0, L"25.4", false, kNegative);
    expect(typeInt, 2, 7.0, L"-0.0", word, 0.0, L"Auto", true, L"");
    expect(typeAngle, 14, 7.0, L"aUTO ", word, 0.0, L"Auto", true, L""); // neither zero nor a bound strikes
    expect(typeLength, 8, 3.0, L"507.9", set, 507.9 / 25.4, L"507.9", true, L"");
    expect(typeLength, 8, 3.0, L"508.1", set, 20.0, L"508", true, L"Wert darf nicht größer sein als 20");
    expect(typeInt, 8, 2.0, L"1", set, 2.0, L"2", false, L"Wert darf nicht kleiner sein als 2"); // cut
    expect(typeInt, 0, 5.9, L"5.2", set, 5.0, L"5", false, L"");
    expect(typeInt, 0, kNan, L"0.9", set, 0.0, L"Auto", true, L"");
    expect(typeInt, 0, 5.0, L"5'-6 1/2\"", set, 66.0, L"66", true, L"");
    expect(typeAngle, 8, 2.5, L"9,9", set, 2.5, L"143.239°", false, L"Wert darf nicht kleiner sein als 143.239°");
}

TEST(ValueEdit, LetsNoRefusedValueThrough)
{
    const std::wstring nines(100000, L'9'), blanks(100000, 0x3000);
    const std::pair<const wchar_t*, double> texts[] = {
        {L"5'-6 1/2\"", 66.5}, {L"5'6-1/2\"", 66.5},   {L"66.5\"", 66.5},     {L"-5'6,5", -66.5},     {L"1/0", 1.0},
        {L"3 1/2", 3.5},       {L"1e999", kMax},       {L"-1e999", -kMax},    {L"1e-999", 0.0},       {L"\x0665", 0.0},
        {L"1.234,5", 1234.5},  {L"1 234.5", 1234.5},   {L"+ 2", 2.0},         {L"--2", 0.0},          {L"nan", 0.0},
        {L"'", 0.0},           {L"\x2028 7\x85", 7.0}, {nines.c_str(), kMax}, {blanks.c_str(), kNan}, {L"", kNan}};
    const double bounds[] = {-kMax, -5.0, 0.0, 3.0, 66.5, kMax, kNan, kInfinite, -kInfinite},
                 stored[] = {kNan, 4.0, -7.0};
    std::mt19937 random(11);
    int accepted = 0, refused = 0;
    for (int i = 0; i < 6000; ++i) {
        const auto& [text, entered] = texts[random() % std::size(texts)];
        const auto [min, max] = valueBounds(bounds[random() % 9], bounds[random() % 9]);
        const unsigned flags = random() % 16;
        const double old = stored[random() % 3];
        const EditCheck check = editCheck({rulesOf(typeLength, flags, 1.0, min, max), old, ValueWords()}, text);
        const bool isBad = ((flags & 2) && entered == 0.0) || ((flags & 4) && entered < 0.0) ||
                           ((flags & 8) && (entered < min || entered > max));
        const bool isLeft = std::isnan(entered) && !(flags & 1);
        EXPECT_EQ(check.action, isLeft ? EditCheck::keep : EditCheck::set);
        EXPECT_EQ(check.isRefused, std::isnan(entered) ? !isLeft : isBad) << entered;
        const bool isBound = (flags & 8) && !(min > max) && (check.value == min || check.value == max);
        const bool isBack = check.value == old || (std::isnan(check.value) && std::isnan(old));
        EXPECT_TRUE(isLeft || (check.isRefused ? isBound || isBack : check.value == entered)) << entered;
        ++(check.isRefused ? refused : accepted);
    }
    EXPECT_TRUE(accepted > 2000 && refused > 2000);
}

TEST(ValueEdit, GivesWhatIsStoredOrEntered)
{
    ValueRules rules = rulesOf(typeLength, valueRequired, 2.0);
    const auto get = [&](auto value, double stored, const wchar_t* text) {
        EXPECT_EQ(editValue({rules, stored, Words()}, text, value), !rules.has(valueRequired) || *text != L' ');
        return value;
    };
    EXPECT_TRUE(get(-1.0, 3.7, L"9") == 3.7 && get(-1, -3.7, L"9") == -3 && get(-1, 1e99, L"") == 2147483647);
    EXPECT_TRUE(get(-1.0, kNan, L"9 ") == 4.5 && get(-1, kNan, L"9 ") == 9 && get(-1.0, kInfinite, L"9") == 4.5);
    EXPECT_TRUE(get(-1.0, kNan, L"AUTO") == 0.0 && get(-1, kNan, L"auto") == 0);
    EXPECT_TRUE(get(-1.0, kNan, L" \x3000") == -1.0 && get(-1, kNan, L" ") == -1) << "required";
    rules = rulesOf(typeLength, valueTextCounts, 1e-10);
    EXPECT_TRUE(get(-1.0, 3.7, L" ") == 0.0 && get(-1, 3.7, L"9.9") == 9 && get(-1.0, 3.7, L"-1e300") == -kMax);
    EXPECT_STREQ(editText(EditField{rules, 0.0, Words()}, 7), L"7.000") << "an integer goes without the factor";
    rules.type = typeAngle;
    EXPECT_EQ(get(-1.0, 3.7, L"-180,5°"), -kPi) << "with a point only";
}

TEST(ValueCombo, CorrectsAndDrawsByItsRules)
{
    const auto expect = [](ValueType type, unsigned flags, double min, const wchar_t* text, double value, bool beeps) {
        const ValueRules rules = rulesOf(type, flags, 2.0, min, 20.0);
        const ComboCheck check = comboCheck(rules, text);
        EXPECT_TRUE(check.isSet ? check.value == value : std::isnan(value)) << flags << testing::PrintToString(text);
        EXPECT_EQ(check.beeps, beeps);
        double read = -1.0; // an angle is what is shown
        EXPECT_EQ(comboValue(rules, L"90", read), type != typeNone);
        EXPECT_EQ(read, type == typeNone ? -1.0 : type == typeLength ? 45.0 : 90.0);
    };
    expect(typeNone, 15, 5.0, L"7", kNan, false), expect(typeLength, 14, 5.0, L"", kNan, false);
    expect(typeLength, 1, 5.0, L"", 0.0, false), expect(typeInt, 3, 5.0, L"", 1.0, false);
    expect(typeInt, 11, 5.0, L"", 5.0, false), expect(typeInt, 15, -5.0, L"", -5.0, true);
    expect(typeLength, 1, 5.0, L" ", 0.0, false), expect(typeLength, 9, 5.0, L"", 5.0, false);
    expect(typeLength, 12, 5.0, L"-3", -1.5, true), expect(typeLength, 10, 5.0, L"0", 1.0, true);
    expect(typeLength, 14, 5.0, L"3", 5.0, false), expect(typeLength, 8, 5.0, L"99", 20.0, false);
    expect(typeAngle, 0, 5.0, L"180", kPi, false), expect(typeInt, 0, 5.0, L"7,9", 7.9, false);
    EXPECT_TRUE(comboRow(2, 1, true) == ComboRow::selected && comboRow(1, 0x14, true) == ComboRow::selected);
    EXPECT_TRUE(comboRow(1, 1, true) == ComboRow::tinted && comboRow(2, 4, true) == ComboRow::tinted);
    EXPECT_TRUE(comboRow(1, 0x1004, true) == ComboRow::disabled && comboRow(2, 0, false) == ComboRow::plain);
    for (unsigned c = 0; c < 256; ++c) {
        const auto channel = [&](unsigned x) { return ((c > 128 ? 0 : 255 * 5) + x * 95) / 100; };
        EXPECT_EQ(comboTint((255 - c) << 16 | c << 8 | c), channel(255 - c) << 16 | channel(c) << 8 | channel(c)) << c;
    }
}
