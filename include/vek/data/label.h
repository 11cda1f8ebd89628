/// @file
/// Labels: one string that holds a text for each language.
///
/// A label that begins with a backslash is in the multi-language form: for each language a backslash, its id, a colon
/// and the text, in which every backslash is doubled, as in `\de:Tür\en:Door`. Any other label is a plain text, the
/// same in every language. Line feeds are kept as they are.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// Sets the text of a language in a label; a null or empty text removes the language. An existing plain text first
/// becomes the text of the process's language.
/// @param language its id, without backslash and colon; null or empty for the process's language
/// @return the label's text
VEK_API const wchar_t* label_set(CVekString& label, const wchar_t* text, const wchar_t* language);

/// The label's text in a language, whose id is case-insensitive.
/// @param out receives the text; unchanged on failure
/// @param language as with `label_set`
/// @param anyLanguage whether a missing text is replaced by that of the process's language, or else by the first one
/// @return false for an empty label and if there is no text to give
VEK_API bool label_get(CVekString& out, const wchar_t* label, const wchar_t* language, bool anyLanguage);

} // namespace VEK
