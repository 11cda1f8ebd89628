/// @file
/// Texts in the user's language, help books, and the files of the suite.
#pragma once

#include <vek/values/string.h>

/// The text of a key in a language. Translations are texts in the configuration at "*MSG*" \ prefix \ language \ key,
/// with the language's id in lower case.
/// @param prefix application prefix, such as "VEK_"; null is taken as empty
/// @param builtIn the result if there is no translation; null is taken as empty
/// @param language an id of `VEK::dlCountries`, case-insensitive; null or empty for the process's language
VEK_API CVekString vek_msg_get(const wchar_t* prefix, const wchar_t* key, const wchar_t* builtIn,
                               const wchar_t* language);

namespace VEK
{

/// Sets the process's language, initially "de"; null or an empty text changes nothing.
/// @return the previous language; the text is valid until the second change from now
VEK_API const wchar_t* msgLangSet(const wchar_t* language);

/// Title of a message box: the program's name, followed by the text if there is one. The name is the text "TITLE" of
/// the application prefix "VEK_", or "VEK".
/// @return empty when memory runs out
VEK_API CVekString msgBoxTitle(const wchar_t* text);

/// The location of a help book: the text in the configuration at "*HELP*" \ book, or else the file of that name with
/// the extension ".chm", searched as with `fileFind`.
/// @param file receives the location; unchanged if there is none
VEK_API bool help_find(CVekString book, CVekString& file);

/// Sets the folders of the suite's files, in search order.
VEK_API void filePathSet(const CVekArrayTempl<CVekString>& folders);

/// The full path of a file of the suite: the name as given if that path exists, or else the name in the folders of
/// `filePathSet`, or else in the program's folder.
/// @param out receives the path; unchanged if there is none
VEK_API bool fileFind(CVekString& out, const wchar_t* name);

} // namespace VEK
