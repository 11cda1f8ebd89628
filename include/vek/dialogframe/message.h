/// @file
/// Texts by key, as dialogs show them.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// A text key and what stands literally before and behind its text: "\VEK_OUTL_0004\..." is the key "VEK_OUTL_0004"
/// with nothing before and three dots behind.
struct TextKey {
    CVekString before;
    CVekString key;
    CVekString behind;
};

/// Splits a decorated key at its two backslashes. A key with fewer or more of them is not decorated; null is taken as
/// empty.
VEK_API TextKey textKey(const wchar_t* key);

/// The text of a key in a language, with the key's decoration: the message callback of all dialogs. The language "0"
/// shows the keys in place of the texts.
///
/// For the user-interface thread.
/// @param key the key; for language "0" the result itself
/// @param builtIn the text if there is no translation; null is taken as empty
/// @param language null or empty for the process's language
/// @return a text that is valid until the eighth call from now, whatever its length; when memory runs out, `builtIn`
VEK_API const wchar_t* msgCallBack(const wchar_t* key, const wchar_t* builtIn, const wchar_t* language);

} // namespace VEK
