// A field for values with any rules and any text: the first bytes are the rules, the others the text.
#include <vek/controls.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <tuple>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    using namespace VEK;
    constexpr std::size_t kHead = 6;
    if (size < kHead)
        return 0;
    const double bounds[] = {-1e300, -10.0, 0.0, 1.0, 100.0, 1e300, nan(), HUGE_VAL};
    ValueRules rules;
    rules.style = data[0] & 0x80 ? editStyle : comboStyle;
    std::tie(rules.min, rules.max) = valueBounds(bounds[data[0] % 8], bounds[data[0] / 8 % 8]);
    rules.type = static_cast<ValueType>(data[1] % 5);
    rules.flags = data[2] | valueTextCounts;
    rules.precision = data[3] % 12;
    rules.format = static_cast<Vek::lFormat>(data[4] % 7);
    rules.factor = std::pow(10.0, data[5] % 9 - 4.0);
    std::wstring text;
    for (std::size_t i = kHead; i + 1 < size; i += 2)
        text += static_cast<wchar_t>(data[i] | data[i + 1] << 8);

    const auto isWrong = [&](double x) {
        return !std::isfinite(x) || (rules.has(valueNotZero) && x == 0.0) || (rules.has(valueNotNegative) && x < 0.0) ||
               (rules.has(valueBounded) && (x < rules.min || x > rules.max));
    };
    const EditCheck check = editCheck({rules, 7.0, ValueWords()}, text.c_str());
    const bool isAccepted = check.action == EditCheck::set && !check.isRefused;
    if (isAccepted && rules.type != typeInt && isWrong(check.value)) // an integer is cut after the tests
        std::abort();
    double read = 0.0;
    if (comboValue(rules, check.text, read) && !std::isfinite(read))
        std::abort();
    valueText(read, rules);
    if (comboCheck(rules, text.c_str()).isSet && !isJudged(rules.type))
        std::abort();
    return 0;
}
