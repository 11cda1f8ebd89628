/// @file
/// Texts in the user's language, help books, and the files of the suite.
#pragma once

#include <vek/values/string.h>

/// The text of a key in a language. Translations stand in the configuration as texts at
/// "*MSG*" \ prefix \ language \ key, with the language's id in small letters.
/// @param prefix application prefix, as "VEK_"; null counts as empty
/// @param builtIn the result when there is no translation; null counts as empty
/// @param language an id of `VEK::dlCountries`, in any case; null or empty for the language of the process
VEK_API CVekString vek_msg_get(const wchar_t* prefix, const wchar_t* key, const wchar_t* builtIn,
                               const wchar_t* language);

namespace VEK
{

/// Sets the language of the process, "de" at start; null or an empty text changes nothing.
/// @return the language before; the text is valid until the second change from now
VEK_API const wchar_t* msgLangSet(const wchar_t* language);

/// The location of a help book: the text in the configuration at "*HELP*" \ book, or else the file of that name with
/// the ending ".chm", sought as by `fileFind`.
/// @param file receives the location, and stays untouched without one
VEK_API bool help_find(CVekString book, CVekString& file);

/// Names the folders in which the files of the suite lie, in the order of search.
VEK_API void filePathSet(const CVekArrayTempl<CVekString>& folders);

/// The full path of a file of the suite: a path that exists as it stands, or else the name in the folders of
/// `filePathSet`, or else beside the program.
/// @param out receives the path, and stays untouched without one
VEK_API bool fileFind(CVekString& out, const wchar_t* name);

} // namespace VEK
