/// @file
/// What an edit control with a value does, without its window.
#pragma once

#include <vek/controls/value.h>

namespace VEK
{

/// The words that a field shows, and takes, in place of values; this base class has none.
class VEK_API ValueWords
{
public:
    virtual ~ValueWords() = default;

    /// The word of exactly this value; null for none.
    virtual const wchar_t* wordOf(double value) const;
    /// The value of a word, compared without case.
    /// @return false, with `value` unchanged, if it is none of the words
    virtual bool valueOf(const wchar_t* word, double& value) const;
};

/// An edit control with a value.
struct EditField {
    ValueRules rules;
    double stored = nan(); ///< the value in the internal unit; NaN for none yet
    const ValueWords& words;
    bool isAsShown = false; ///< the text is that of the stored value: reading it would only lose decimals
};

/// The text for a value that the program sets: its word, else the formatted value. A value that is set as an integer is
/// shown without the factor, whatever the type.
VEK_API CVekString editText(const EditField& field, double value);
VEK_API CVekString editText(const EditField& field, int value);

/// What a program gets from a field. What the user is still typing is not a value yet: the stored one counts, unless
/// there is none or `valueTextCounts` is set. Then the text is read; as an integer without a look at the words.
/// @param text of the control
/// @return false, with `value` unchanged, for an empty text if one is required, and when memory runs out
VEK_API bool editValue(const EditField& field, const wchar_t* text, double& value);
VEK_API bool editValue(const EditField& field, const wchar_t* text, int& value);

/// What becomes of a text that the user has typed when the focus leaves.
struct EditCheck {
    /// What the control does, in this order: the message, the value, the focus.
    enum Action {
        keep, ///< nothing: the text stays, and counts from now on
        word, ///< shows the value's word; the text counts from now on
        set   ///< stores and shows the value, which counts
    } action = keep;
    double value = nan();
    bool storesValue = false; ///< an integer that has a word is shown, but not stored
    CVekString text;          ///< to be shown; unless `keep`
    bool isModified = true;   ///< the modify flag: whether the value differs from the stored one
    bool isRefused = false;   ///< a message is shown, and the focus comes back

    const wchar_t* key = L"VEK_MFC_0003"; ///< of the message
    const wchar_t* builtIn = L"Falsche Eingabe";
    bool namesBound = false;
    CVekString bound; ///< that the message names, in the internal unit

    /// The message in the process's language.
    CVekString message() const;
};

/// Judges a text that the user has changed, in a field that is not free text. A value that has a word is always good.
/// An empty text, a negative value or zero where that is not allowed gives the stored value back, and a value out of
/// the bounds the nearest bound. When memory runs out, the result is that of `keep`.
VEK_API EditCheck editCheck(const EditField& field, const wchar_t* text);

} // namespace VEK
