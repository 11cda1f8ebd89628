/// @file
/// Labels: one string that holds a text for each language.
///
/// A label that begins with a backslash is in the multi-language form: for each language a backslash, its id, a colon
/// and the text, in which every backslash is doubled, as in `\de:Tür\en:Door`. Any other label is a plain text, the
/// same in every language. Line feeds stand as they are.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// Enters the text of a language into a label, in place of the one it had; a null or empty text takes the language
/// out. A plain text that was there becomes the text of the language of the process first.
/// @param language its id, in which neither backslash nor colon stands; null or empty for the language of the process
/// @return the label's text
VEK_API const wchar_t* label_set(CVekString& label, const wchar_t* text, const wchar_t* language);

/// The label's text in a language, compared without regard to case.
/// @param out receives the text, and stays untouched without one
/// @param language as with `label_set`
/// @param anyLanguage whether a missing text is replaced by that of the process's language, or else the first one
/// @return false for an empty label and when the language is missing
VEK_API bool label_get(CVekString& out, const wchar_t* label, const wchar_t* language, bool anyLanguage);

} // namespace VEK
