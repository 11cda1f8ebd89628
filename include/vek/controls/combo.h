/// @file
/// What a combo box with values does, without its window.
#pragma once

#include <vek/controls/value.h>

namespace VEK
{

/// Reads a combo box's text for the program. An angle is the number on the screen, in degrees, although it is set in
/// radians: callers know it so.
/// @return false, with `value` unchanged, for free text
VEK_API bool comboValue(const ValueRules& rules, const wchar_t* text, double& value);

/// What becomes of a combo box's text when the focus leaves. Nothing is refused: a bad entry is corrected.
struct ComboCheck {
    bool isSet = false; ///< whether the value is shown
    double value = 0.0;
    bool beeps = false;
};

/// Judges the text of a combo box. An empty text where one is required becomes 0, or if that is not allowed the minimum
/// or 1. A zero that is not allowed becomes 1; a negative value that is not allowed stays, with a beep only.
VEK_API ComboCheck comboCheck(const ValueRules& rules, const wchar_t* text);

/// How a row of a combo box looks.
enum class ComboRow {
    plain,
    selected, ///< in the colours of a selection
    tinted,   ///< on the tint of the background
    disabled  ///< in grey letters
};

/// How a row looks when it is drawn.
/// @param action, state `itemAction` and `itemState` of the request to draw it
/// @param isAlternate whether the row was given the alternate background
VEK_API ComboRow comboRow(unsigned action, unsigned state, bool isAlternate);

/// The alternate background of a colour: a twentieth towards black where it is light, else towards white. How light it
/// is follows from red and green alone.
/// @param color 0xBBGGRR
VEK_API unsigned comboTint(unsigned color);

} // namespace VEK
