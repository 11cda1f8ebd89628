#include <vek/controls/combo.h>

#include "core/values/whole.h"

#include <optional>

namespace VEK
{

bool comboValue(const ValueRules& rules, const wchar_t* text, double& value)
{
    if (!isJudged(rules.type))
        return false;
    const std::optional<double> found = whole(std::optional<double>(), [&] {
        return std::optional(rules.type == typeLength ? valueParse(text, rules) : vekAtoF(text));
    });
    value = found.value_or(value);
    return found.has_value();
}

ComboCheck comboCheck(const ValueRules& rules, const wchar_t* text)
{
    if (!isJudged(rules.type))
        return {};
    return whole(ComboCheck(), [&]() -> ComboCheck {
        ComboCheck check = {true, 0.0, false};
        if (text && *text)
            check.value = valueParse(text, rules);
        else if (!rules.has(valueRequired))
            return {};
        else if (rules.has(valueNotZero))
            check.value = rules.has(valueBounded) ? rules.min : 1.0;

        if (rules.has(valueNotNegative) && 0.0 > check.value) {
            check.beeps = true;
        } else if (rules.has(valueNotZero) && check.value == 0.0) {
            check.value = 1.0;
            check.beeps = true;
        } else if (rules.has(valueBounded) && check.value < rules.min) {
            check.value = rules.min;
        } else if (rules.has(valueBounded) && check.value > rules.max) {
            check.value = rules.max;
        }
        return check;
    });
}

ComboRow comboRow(unsigned action, unsigned state, bool isAlternate)
{
    // The numbers of the request.
    constexpr unsigned kActionSelect = 0x0002;
    constexpr unsigned kSelected = 0x0001;
    constexpr unsigned kDisabled = 0x0004;
    constexpr unsigned kFocus = 0x0010;
    constexpr unsigned kEditField = 0x1000;
    if (((action & kActionSelect) && (state & kSelected)) || (state & kFocus))
        return ComboRow::selected;
    if (isAlternate && !(state & kEditField))
        return ComboRow::tinted;
    return (state & kDisabled) ? ComboRow::disabled : ComboRow::plain;
}

unsigned comboTint(unsigned color)
{
    constexpr double kTint = 0.05, kRest = 0.95;
    const auto channel = [&](int shift) { return color >> shift & 0xFF; };
    const unsigned brightness = (channel(0) + 2 * channel(8)) / 3; // blue adds little to what the eye takes as light
    const double tint = brightness > 128 ? 0.0 : 255.0;
    unsigned result = 0;
    for (int shift = 0; shift < 24; shift += 8)
        result |= static_cast<unsigned>(tint * kTint + channel(shift) * kRest) << shift;
    return result;
}

} // namespace VEK
