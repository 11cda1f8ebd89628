// Values in fields: how they are written, read and judged.
#include <vek/controls.h>

#include <gtest/gtest.h>

#include <array>
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

TEST(ValueEdit, IsJudgedWhenTheFocusLeaves)
{
    const Words words;
    using Check = EditCheck;
    constexpr const wchar_t* kSmall = L"Wert darf nicht kleiner sein als 2.5";
    constexpr const wchar_t* kEmpty = L"Eintragung notwendig";
    const struct {
        ValueType type;
        unsigned flags;
        double stored;
        const wchar_t* text;
        Check::Action action;
        double value;
        const wchar_t* shown;
        bool isModified;
        const wchar_t* message; ///< empty if it is accepted
    } cases[] = {
        {typeLength, 0, 3.0, L" \x2003\t", Check::keep, kNan, L"", true, L""},
        {typeLength, 1, 3.0, L"\xA0 ", Check::set, 3.0, L"76.2", false, kEmpty},
        {typeLength, 1, kNan, L"", Check::set, kNan, L"", false, kEmpty},
        {typeLength, 15, kNan, L"", Check::set, kNan, L"", false, kEmpty},
        {typeInt, 15, kNan, L"", Check::set, kNan, L"", false, kEmpty},
        {typeAngle, 1, kNan, L"", Check::set, kNan, L"", false, kEmpty},
        {typeLength, 5, -3.0, L"", Check::set, -3.0, L"-76.2", false, L"Wert darf nicht negativ sein"},
        {typeLength, 9, 2.0, L"", Check::set, 2.5, L"63.5", true, kSmall}, // an empty one's value is tested too
        {typeLength, 7, kNan, L"25.4", Check::set, 1.0, L"25.4", true, L""},
        {typeLength, 0, 1.0, L"  25,4 ", Check::set, 1.0, L"25.4", false, L""},
        {typeLength, 4, 1.0, L"-1", Check::set, 1.0, L"25.4", false, L"Wert darf nicht negativ sein"},
        {typeLength, 0, 1.0, L"-25.4", Check::set, -1.0, L"-25.4", true, L""},
        {typeInt, 2, 7.0, L"-0.0", Check::word, 0.0, L"Auto", true, L""},
        {typeAngle, 14, 7.0, L"aUTO ", Check::word, 0.0, L"Auto", true, L""}, // neither zero nor a bound strikes
        {typeLength, 8, 3.0, L"25.4", Check::set, 2.5, L"63.5", true, kSmall},
        {typeLength, 8, 3.0, L"507.9", Check::set, 507.9 / 25.4, L"507.9", true, L""},
        {typeLength, 8, 3.0, L"508.1", Check::set, 20.0, L"508", true, L"Wert darf nicht größer sein als 20"},
        {typeInt, 8, 2.0, L"1", Check::set, 2.0, L"2", false,
         L"Wert darf nicht kleiner sein als 2"}, // the bound is cut
        {typeInt, 0, 5.9, L"5.2", Check::set, 5.0, L"5", false, L""},
        {typeInt, 0, kNan, L"0.9", Check::set, 0.0, L"Auto", true, L""},
        {typeInt, 0, 5.0, L"1e300", Check::set, 2147483647.0, L"2147483647", true, L""},
        {typeInt, 0, 5.0, L"5'-6 1/2\"", Check::set, 66.0, L"66", true, L""},
        {typeAngle, 8, 2.5, L"180°", Check::set, kPi, L"180°", true, L""},
        {typeAngle, 8, 2.5, L"90,9", Check::set, 2.5, L"143.239°", false, L"Wert darf nicht kleiner sein als 143.239°"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.type << ' ' << c.flags << ' '
                                        << std::string(c.text, c.text + std::wcslen(c.text)));
        ValueRules rules = rulesOf(c.type, c.flags | valueSuppressZeros | valueTextCounts, 2.5, 20.0);
        rules.factor = 25.4;
        const EditCheck check = editCheck({rules, c.stored, words}, c.text);
        EXPECT_EQ(check.action, c.action);
        EXPECT_TRUE(check.value == c.value || (std::isnan(check.value) && std::isnan(c.value))) << check.value;
        EXPECT_STREQ(check.text, c.shown);
        EXPECT_EQ(check.isModified, c.isModified);
        EXPECT_STREQ(check.isRefused ? check.message() : CVekString(), c.message);
        EXPECT_EQ(check.storesValue, c.action == Check::word || (c.action == Check::set && check.text != L"Auto"));
    }
}

TEST(ValueEdit, LetsNoRefusedValueThrough)
{
    const std::wstring nines(100000, L'9'), blanks(100000, 0x3000);
    const std::pair<const wchar_t*, double> texts[] = {
        {L"5'-6 1/2\"", 66.5}, {L"5'6-1/2\"", 66.5},   {L"66.5\"", 66.5},     {L"-5'6,5", -66.5},     {L"1/0", 1.0},
        {L"3 1/2", 3.5},       {L"1e999", kMax},       {L"-1e999", -kMax},    {L"1e-999", 0.0},       {L"\x0665", 0.0},
        {L"1.234,5", 1234.5},  {L"1 234.5", 1234.5},   {L"+ 2", 2.0},         {L"--2", 0.0},          {L"nan", 0.0},
        {L"'", 0.0},           {L"\x2028 7\x85", 7.0}, {nines.c_str(), kMax}, {blanks.c_str(), kNan}, {L"", kNan}};
    const double bounds[] = {-kMax, -5.0, 0.0, 3.0, 66.5, kMax, kNan, kInfinite, -kInfinite};
    const ValueWords none;
    std::mt19937 random(11);
    int accepted = 0, refused = 0;
    for (int i = 0; i < 6000; ++i) {
        const auto& [text, entered] = texts[random() % std::size(texts)];
        const auto [min, max] = valueBounds(bounds[random() % 9], bounds[random() % 9]);
        const unsigned flags = random() % 16;
        const double stored = std::array{kNan, 4.0, -7.0}[random() % 3];
        const EditCheck check = editCheck({rulesOf(typeLength, flags, min, max), stored, none}, text);
        const bool isEmpty = std::isnan(entered);
        const bool isGood = !((flags & 2) && entered == 0.0) && !((flags & 4) && entered < 0.0) &&
                            !((flags & 8) && (entered < min || entered > max));
        EXPECT_FALSE(min > max);
        EXPECT_EQ(check.isRefused, isEmpty ? (flags & 1) != 0 : !isGood) << entered;
        EXPECT_EQ(check.action, isEmpty && !(flags & 1) ? EditCheck::keep : EditCheck::set);
        const bool isBound = (flags & 8) && (check.value == min || check.value == max);
        const bool isStored = check.value == stored || (std::isnan(check.value) && std::isnan(stored));
        EXPECT_TRUE(check.action == EditCheck::keep ||
                    (check.isRefused ? isBound || isStored : check.value == entered));
        ++(check.isRefused ? refused : accepted);
    }
    EXPECT_GT(accepted, 2000);
    EXPECT_GT(refused, 2000);
}

TEST(ValueEdit, GivesWhatIsStoredOrEntered)
{
    const Words words;
    ValueRules rules = rulesOf(typeLength, valueRequired);
    rules.factor = 2.0;
    const auto get = [&](auto value, double stored, const wchar_t* text) {
        EXPECT_TRUE(editValue({rules, stored, words}, text, value));
        return value;
    };
    EXPECT_TRUE(get(-1.0, 3.7, L"9") == 3.7 && get(-1, -3.7, L"9") == -3 && get(-1, 1e99, L"") == 2147483647)
        << "typing";
    EXPECT_TRUE(get(-1.0, kNan, L" 9 ") == 4.5 && get(-1, kNan, L" 9 ") == 9 && get(-1.0, kInfinite, L"9") == 4.5);
    EXPECT_TRUE(get(-1.0, kNan, L"AUTO") == 0.0 && get(-1.0, kNan, L"Autos") == 0.0 && get(-1, kNan, L"auto") == 0);
    double value = -1.0;
    int whole = -1;
    EXPECT_FALSE(editValue({rules, kNan, words}, L"\x3000", value) || editValue({rules, kNan, words}, L"", whole));
    EXPECT_TRUE(value == -1.0 && whole == -1) << "required";
    rules.flags = valueTextCounts;
    EXPECT_TRUE(get(-1.0, 3.7, L"9") == 4.5 && get(-1.0, 3.7, L"") == 0.0 && get(-1, 3.7, L"9.9") == 9);
    EXPECT_STREQ(editText(EditField{rules, 0.0, words}, 7), L"7.000") << "an integer goes without the factor";
    EXPECT_STREQ(editText(EditField{rules, 0.0, words}, 0), L"Auto");
    rules.factor = 1e-10;
    EXPECT_EQ(get(-1.0, 3.7, L"-1e300"), -kMax);
    rules.type = typeAngle;
    EXPECT_EQ(get(-1.0, 3.7, L"-180,5°"), -kPi) << "with a point only";
}

TEST(ValueCombo, CorrectsWithoutAWord)
{
    const struct {
        ValueType type;
        unsigned flags;
        double min;
        const wchar_t* text;
        bool isSet;
        double value;
        bool beeps;
    } cases[] = {
        {typeNone, 15, 5.0, L"7", false, 0.0, false},   {typeLength, 14, 5.0, L"", false, 0.0, false},
        {typeLength, 1, 5.0, L"", true, 0.0, false},    {typeInt, 3, 5.0, L"", true, 1.0, false},
        {typeInt, 11, 5.0, L"", true, 5.0, false},      {typeInt, 15, -5.0, L"", true, -5.0, true},
        {typeLength, 1, 5.0, L" ", true, 0.0, false},   {typeLength, 9, 5.0, L"", true, 5.0, false},
        {typeLength, 12, 5.0, L"-3", true, -1.5, true}, {typeLength, 10, 5.0, L"0", true, 1.0, true},
        {typeLength, 14, 5.0, L"3", true, 5.0, false},  {typeLength, 8, 5.0, L"99", true, 20.0, false},
        {typeAngle, 0, 5.0, L"180", true, kPi, false},  {typeInt, 0, 5.0, L"7,9", true, 7.9, false},
    };
    for (const auto& c : cases) {
        ValueRules rules = rulesOf(c.type, c.flags, c.min, 20.0);
        rules.factor = 2.0;
        const ComboCheck check = comboCheck(rules, c.text);
        EXPECT_TRUE(check.isSet == c.isSet && check.value == c.value && check.beeps == c.beeps)
            << c.flags << check.value;
        double value = -1.0; // an angle is what is shown
        EXPECT_EQ(comboValue(rules, L"90", value), c.type != typeNone);
        EXPECT_EQ(value, c.type == typeNone ? -1.0 : c.type == typeLength ? 45.0 : 90.0);
    }
}

TEST(ValueCombo, DrawsARowByItsState)
{
    for (unsigned bits = 0; bits < 64; ++bits) {
        const bool select = bits & 1, selected = bits & 2, disabled = bits & 4, focus = bits & 8, edit = bits & 16;
        const ComboRow expected = focus || (select && selected) ? ComboRow::selected
                                  : (bits & 32) && !edit        ? ComboRow::tinted
                                  : disabled                    ? ComboRow::disabled
                                                                : ComboRow::plain;
        EXPECT_EQ(comboRow(1u + 2u * select, selected + 4u * disabled + 16u * focus + 0x1000u * edit, bits & 32),
                  expected);
    }
    for (unsigned c = 0; c < 256; ++c) {
        const auto channel = [&](unsigned x) { return ((c > 128 ? 0 : 255 * 5) + x * 95) / 100; };
        EXPECT_EQ(comboTint((255 - c) << 16 | c << 8 | c), channel(255 - c) << 16 | channel(c) << 8 | channel(c)) << c;
    }
}
