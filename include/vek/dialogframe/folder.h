/// @file
/// Paths in dialogs.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// The folder at which the dialog for folders begins: slashes become backslashes, a folder loses the one at its end,
/// the root of a drive keeps or gets it. A path of one character or none only has its slash turned.
VEK_API CVekString folderStart(const wchar_t* path);

/// Splits a path or an address behind its last slash or backslash, or behind its drive. The two parts together are the
/// path again. Null is taken as empty.
VEK_API void pathSplit(const wchar_t* path, CVekString& folder, CVekString& name);

} // namespace VEK
