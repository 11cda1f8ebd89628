/// @file
/// How a dialog's texts are replaced by those of its language.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// The text of one control.
struct ControlText {
    unsigned id = 0;
    CVekString key;
    bool hasBuiltIn = false;
    CVekString builtIn; ///< German; only with `hasBuiltIn`
};

/// The controls of a dialog. Any call may end the dialog.
class VEK_API TextControls
{
public:
    virtual ~TextControls() = default;

    /// Whether the dialog still exists.
    virtual bool exists() = 0;
    virtual bool has(unsigned id) = 0;
    /// The text of a key, null for none.
    /// @param builtIn null for none
    virtual const wchar_t* message(const wchar_t* key, const wchar_t* builtIn) = 0;
    virtual void setText(unsigned id, const wchar_t* text) = 0;
    /// Tells the developer that a control is missing.
    virtual void showMissing(const wchar_t* text) = 0;
};

/// Sets the texts of controls, in their order; a missing control is passed over. A control without a built-in text
/// takes that of the key. Stops when the dialog ends. A control for whose text the memory does not suffice keeps the
/// one that it has.
/// @param isDebugged for the developer: missing controls are reported, and built-in texts are put in brackets, which
/// shows what has no translation
VEK_API void replaceTexts(const CVekArrayTempl<ControlText>& texts, TextControls& controls, bool isDebugged);

} // namespace VEK
